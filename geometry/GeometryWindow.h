#pragma once
// The geometry window (Geomet, "GeoKORD"): the figure list and the arrows
// that walk it, the drawing (Picture3, with the formulas when they are on),
// the parameter boxes, the buttons, the three result lines with the decimal
// adjust, the notes, and the inline calculator. Every event goes to the
// GeometryModel; the window then repaints from its fields.
#include <QWidget>
#include <array>

#include "geometry/GeometryModel.h"

class FigureView;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSpinBox;

class GeometryWindow : public QWidget {
  Q_OBJECT

 public:
  explicit GeometryWindow(QWidget* parent = nullptr);

  GeometryModel& model() { return model_; }
  void refresh();

 public Q_SLOTS:
  // For the screenshot tour: a figure's name, worked out with sample values.
  void showScreenshotState(const QString& state);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* buildTop();
  QGroupBox* buildParameters();
  QWidget* buildButtons();
  QGroupBox* buildResults();
  QGroupBox* buildCalculator();
  template <typename Handler>
  void act(Handler&& handler);
  void boxMenu(int index, const QPoint& at);

  GeometryModel model_;
  bool refreshing_ = false;
  QPushButton* chameleonButton1Back = nullptr;
  QPushButton* chameleonButton1 = nullptr;
  QComboBox* Combo1 = nullptr;
  QLabel* Label4 = nullptr;
  FigureView* Picture3 = nullptr;
  std::array<QLabel*, GeometryModel::kBoxes> Label1{};
  std::array<QLineEdit*, GeometryModel::kBoxes> Text1{};
  QPushButton* chameleonButton2 = nullptr;
  QPushButton* chameleonButton3 = nullptr;
  QPushButton* chameleonButton4 = nullptr;
  QPushButton* chameleonButton5 = nullptr;
  std::array<QLabel*, GeometryModel::kLines> Label2{};
  std::array<QLineEdit*, GeometryModel::kLines> Text2{};
  QCheckBox* Check1 = nullptr;
  QSpinBox* UpDown1 = nullptr;
  QLabel* notesLabel = nullptr;
  QLineEdit* Text3 = nullptr;
  QPushButton* Command1 = nullptr;
  QLabel* calcStatus = nullptr;
};
