#pragma once
// Two pages of the calculator's panel area over the engine's models: the
// matrix page (the grids MSFlexGrid2(0..2) of A, B and C with their size
// boxes Text6/Text7 and keys, the right-click menu of MatrizOp and
// MatrizCcopia, the two-matrix keys Command75, ChangeMatriz and the print
// key Image4) and the equations page (the keys of the equation tools and the
// linear system grid MSFlexGrid1(2)). A click on a cell takes numero; every
// event goes to the model, then `changed` lets the window repaint.
#include <QWidget>
#include <array>
#include <functional>

class CalculatorEngine;
class QLineEdit;
class QMenu;
class QTableWidget;

class MatrixPanelView : public QWidget {
  Q_OBJECT

 public:
  MatrixPanelView(CalculatorEngine& engine, std::function<void()> changed, QWidget* parent = nullptr);
  // Repaints the grids and boxes when the models changed.
  void refresh();
  QTableWidget* grid(int i) const { return MSFlexGrid2[static_cast<std::size_t>(i)]; }
  QMenu* gridMenu() const { return menu_; }

 private:
  QWidget* buildMatrix(int i);
  QWidget* buildOperations();
  void fillGrid(QTableWidget* view, int rows, int cols, const std::function<QString(int, int)>& cell);

  CalculatorEngine& engine_;
  std::function<void()> changed_;
  std::array<QTableWidget*, 3> MSFlexGrid2{};
  std::array<QLineEdit*, 3> Text6{};
  std::array<QLineEdit*, 3> Text7{};
  QMenu* menu_ = nullptr;
  int shownRevision_ = -1;
};

// The screenshot tour's states: "matrices" fills the three grids, "system"
// solves a system of three equations.
void showMatrixScreenshotState(CalculatorEngine& engine, const QString& state);

// The equations page: the tool keys (built by the window from the key
// table, like every other key) and the system grid.
class EquationsPanelView : public QWidget {
  Q_OBJECT

 public:
  EquationsPanelView(CalculatorEngine& engine, QWidget* keys, std::function<void()> changed, QWidget* parent = nullptr);
  void refresh();
  QTableWidget* systemGrid() const { return MSFlexGrid1; }

 private:
  CalculatorEngine& engine_;
  std::function<void()> changed_;
  QTableWidget* MSFlexGrid1 = nullptr;  // the system grid, MSFlexGrid1(2)
  int shownRevision_ = -1;
};
