#pragma once
// The linear system tool of the scientific calculator: up to 50 equations
// A(i,1)·X1 + ... + A(i,n)·Xn = K(i) in the grid MSFlexGrid1(2), n rows by
// n + 1 columns of cell texts. Command39 asks for n and the entry mode
// (fast: the user clicks cells to take numero; normal: Command85(0) takes
// numero into the next coefficient, prompting in func). Command85(1) solves:
// the ranks of A and of A|K decide between the indeterminate and the
// incompatible messages and the elimination of calc/MatrixAlgebra.h.
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <vector>

class CalculatorEngine;
class PrintDocument;

class LinearSystem {
 public:
  explicit LinearSystem(CalculatorEngine& engine) : engine_(engine) {}

  static constexpr int kMaxEquations = 50;

  int n = 0;          // equations (0: no system defined)
  QStringList cells;  // n rows of n + 1 texts, row-major
  bool fastMode = true;
  std::int16_t stepSystem = 0;  // coefficients entered so far in normal mode
  // The last solution: ranks, the unknowns' texts, and the code of a failure
  // shown (0 none).
  int rankA = 0;
  int rankAK = 0;
  QStringList X;
  QString solutionText;
  int errorCode = 0;
  int revision = 0;  // bumped on each change of the grid

  QString cell(int r, int c) const { return cells.value(r * (n + 1) + c); }
  void setCell(int r, int c, const QString& text);

  void Command39_Click();          // define: number of equations and entry mode
  void Command85_Click(int index); // 0 next coefficient, 1 solve, 2 clear
  void cellClick(int row, int col);  // takes numero into a cell
  // Clear key and failures: the normal-mode entry starts again.
  void resetStep() { stepSystem = 0; }
  // The prompt of the coefficient the normal mode takes next.
  QString prompt() const;
  // The printout of the system and its solution (offered by the solution's box).
  PrintDocument document() const;

 private:
  void guarded(int topic, const std::function<void()>& body);
  void define(int equations);
  void solve();

  CalculatorEngine& engine_;
};
