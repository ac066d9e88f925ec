#pragma once
// The periodic table's window: the 111 element buttons (zeta) in their
// table positions under the group heads (Label2), the data sheet below with
// a caption and a label for each field and the two pictures, the colour
// legend, the molecular-weight builder (shown in calculo mode) and the menus:
// table (print, layout), molecular weight, energy unit, electronegativity
// scale and the notes. Every event goes to the PeriodicTable model; the
// window then repaints from its fields.
#include <QList>
#include <QMainWindow>
#include <array>

#include "elements/PeriodicTable.h"

class ElementPictureView;
class QAction;
class QGridLayout;
class QLabel;
class QMenu;
class QPushButton;
class QToolButton;
class QWidget;

class PeriodicTableWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit PeriodicTableWindow(QWidget* parent = nullptr);

  PeriodicTable& table() { return table_; }
  // Repaints every control from the model.
  void refresh();
  // Captions in the language in use.
  void loadTexts();

 public Q_SLOTS:
  // For the screenshot tour: "sheet" shows gold, "long" the long layout,
  // "molweight" the builder with a formula.
  void showScreenshotState(const QString& state);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* buildTable();
  QWidget* buildSheet();
  QWidget* buildLegend();
  QWidget* buildBuilder();
  void buildMenus();
  void placeButtons();
  void styleButton(int z);
  void fitToScreen();

  PeriodicTable table_;
  // Controls under their model names.
  std::array<QToolButton*, kElementCount + 1> zeta{};  // index z; 0 unused
  std::array<QLabel*, kGroupCount> Label2{};
  std::array<QLabel*, kElementFieldCount> sheetLabels_{};    // named after the fields
  std::array<QLabel*, kElementFieldCount> sheetCaptions_{};
  QLabel* zText = nullptr;
  QLabel* lanthanides_ = nullptr;
  QLabel* actinides_ = nullptr;
  QToolButton* Command3 = nullptr;
  QPushButton* Command4 = nullptr;
  ElementPictureView* Image2 = nullptr;
  ElementPictureView* Image3 = nullptr;  // crystal system
  QLabel* hint_ = nullptr;
  // The builder.
  QWidget* builder_ = nullptr;
  QLabel* Label1 = nullptr;
  QLabel* formula = nullptr;
  QLabel* masa = nullptr;
  QLabel* nn = nullptr;
  QLabel* Image6 = nullptr;
  std::array<QToolButton*, 10> Command1{};
  QPushButton* Command112 = nullptr;
  QPushButton* Command123 = nullptr;
  QPushButton* Command124 = nullptr;
  // Legend.
  std::array<QLabel*, 6> classNames_{};
  QLabel* legendItalic_ = nullptr;
  QLabel* legendUnderline_ = nullptr;
  QLabel* legendColour_ = nullptr;
  QWidget* legend_ = nullptr;
  // Menus.
  QMenu* tablaMenu_ = nullptr;
  QMenu* tipotabla_ = nullptr;
  QMenu* energyMenu_ = nullptr;
  QMenu* electroMenu_ = nullptr;
  QMenu* notas_ = nullptr;
  QMenu* cuaderno_ = nullptr;
  QMenu* tablas_ = nullptr;
  QAction* elementoimpr = nullptr;
  QAction* tipotabla1 = nullptr;
  QAction* tipotabla2 = nullptr;
  QAction* salir_ = nullptr;
  QAction* calculo = nullptr;
  std::array<QAction*, 2> EnergyUnit{};
  QAction* pauling = nullptr;
  QAction* paulingno = nullptr;
  QList<QAction*> notes_;
  QGridLayout* grid_ = nullptr;
  QWidget* tableArea_ = nullptr;
};
