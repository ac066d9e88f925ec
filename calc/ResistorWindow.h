#pragma once
// The resistor colour-code window: the band count Option1, the drawing of the
// resistor with a selector Check2 under each band, the colour keys
// Command86(0..12), the normal way (Command87: value, tolerance and
// coefficient from the bands) and the reverse way (Command97: bands from the
// value in Text9, with the tolerance of Combo2 and the coefficient of Combo3),
// reset (Command89) and the printed sheet (Image7). The model is ResistorCode.
#include <QDialog>
#include <QList>

#include "calc/ResistorCode.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

class ResistorWindow : public QDialog {
  Q_OBJECT

 public:
  explicit ResistorWindow(QWidget* parent = nullptr);
  ResistorCode& model() { return model_; }
  void refresh();

 private:
  QWidget* buildBands();
  QWidget* buildColourKeys();
  QWidget* buildResults();

  ResistorCode model_;
  QList<QRadioButton*> Option1;
  QList<QCheckBox*> Check2;
  QList<QPushButton*> Command86;
  QWidget* drawing_ = nullptr;
  QPushButton* Command87 = nullptr;
  QPushButton* Command97 = nullptr;
  QPushButton* Command89 = nullptr;
  QPushButton* Image7 = nullptr;
  QLineEdit* Text8 = nullptr;
  QLineEdit* Text9 = nullptr;
  QLabel* tolerance_ = nullptr;
  QComboBox* Combo2 = nullptr;
  QComboBox* Combo3 = nullptr;
  bool refreshing_ = false;
};
