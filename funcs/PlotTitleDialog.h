#pragma once
// The plot's title dialog: the boxes Text3(0..2) for the titles of F, X and
// Y. A box left empty shows (greyed) and keeps the function table's title.
#include <QDialog>
#include <array>

class PlotAppearance;
class PlotModel;
class QLineEdit;

class PlotTitleDialog : public QDialog {
  Q_OBJECT

 public:
  PlotTitleDialog(PlotModel& model, PlotAppearance& appearance, QWidget* parent);

  std::array<QLineEdit*, 3> Text3{};

 private:
  PlotAppearance& appearance_;
};
