#pragma once
// The colour viewer's window: the sample, the three sliders scrl, the text
// fields txt1 (RGB), txt2 (HLS), txtDEC, txtHEX, txtHTML and txtRGB, the
// sample choice Check1, the colour dialog and botoncopia. Every typed key goes
// through ColourModel::typeKey (the fields' key filters); every change
// repaints all fields from the model.
#include <QDialog>
#include <QHash>
#include <array>

#include "calc/ColourModel.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QSlider;

class ColourWindow : public QDialog {
  Q_OBJECT

 public:
  explicit ColourWindow(QWidget* parent = nullptr);
  ColourModel& model() { return model_; }
  void refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QLineEdit* addField(const QString& name, ColourModel::Field field, int index);
  void chooseColour();

  ColourModel model_;
  std::array<QSlider*, 3> scrl{};
  std::array<QLineEdit*, 3> txt1{}, txt2{};
  QLineEdit* txtDEC = nullptr;
  QLineEdit* txtHEX = nullptr;
  QLineEdit* txtHTML = nullptr;
  QLineEdit* txtRGB = nullptr;
  QCheckBox* Check1 = nullptr;
  QLabel* Picture1 = nullptr;  // the sample
  QPushButton* botoncopia = nullptr;
  QPushButton* dialogo = nullptr;
  struct FieldRef {
    ColourModel::Field field;
    int index;
  };
  QHash<QLineEdit*, FieldRef> fields_;
  bool refreshing_ = false;
};
