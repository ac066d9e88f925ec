#pragma once
// The matrix panel of the scientific calculator: three grids of cell texts,
// A, B and C (MSFlexGrid2(0..2)), their size boxes Text6/Text7, and the
// operations. A matrix is read into 64-bit floats (calc/MatrixAlgebra.h) when
// an operation starts; C receives every result. A failed check shows its
// message and leaves all three grids as they were.
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>
#include <vector>

#include "calc/MatrixAlgebra.h"

class CalculatorEngine;
class PrintDocument;

class MatrixModel {
 public:
  explicit MatrixModel(CalculatorEngine& engine) : engine_(engine) {}

  // The cells of a grid as texts; 0 rows means not defined.
  struct Grid {
    int rows = 0;
    int cols = 0;
    QStringList cells;  // row-major
    bool defined() const { return rows > 0 && cols > 0; }
    QString cell(int r, int c) const { return cells.value(r * cols + c); }
    void setCell(int r, int c, const QString& text) { cells[r * cols + c] = text; }
  };

  std::array<QString, 3> Text6{QStringLiteral("3"), QStringLiteral("3"), QStringLiteral("3")};  // rows
  std::array<QString, 3> Text7{QStringLiteral("3"), QStringLiteral("3"), QStringLiteral("3")};  // columns
  std::array<Grid, 3> MSFlexGrid2;
  int clickedGrid = 0;  // the grid whose menu was opened last
  // What the last operation found: the code of a failure shown (0 none), its
  // text, and the dependent rows of the row dependence.
  int errorCode = 0;
  QString errorText;
  std::vector<int> dependentRows;
  // Bumped on each change of a grid, so the view repaints only then.
  int revision = 0;

  void Command54_Click(int i);     // define matrix i from Text6(i), Text7(i)
  void Command57_Click(int i);     // clear the cells of matrix i
  void Command77_Click(int i);     // random fill of matrix i
  void Command75_Click(int index); // A+B, A-B, A*B, A*inverse(B) into C
  // Scalar product, opposite, transpose, inverse by adjoints, inverse by
  // Gauss-Jordan, determinant, rank, row dependence, on clickedGrid.
  void MatrizOp_Click(int index);
  void MatrizCcopia_Click();  // copies C into clickedGrid
  void ChangeMatriz_Click();  // exchanges A and B
  void MatrizPrinter_Click(); // prints the three grids
  // A click on a cell (0-based) takes the value of numero.
  void cellClick(int grid, int row, int col);
  // Defines a grid with these rows of cell texts (the sizes follow).
  void setGrid(int i, const QList<QStringList>& rows);
  PrintDocument document() const;

  static QString letter(int i);

 private:
  void guarded(int topic, const std::function<void()>& body);
  void fail(int code, int grid = -1);
  bool read(int i, Matrix& m);
  void putC(const Matrix& m);
  void showOperation(const QString& name);
  bool askScalar(double& factor);

  CalculatorEngine& engine_;
};
