#pragma once
// The large display ("Visor XL"): a second window beside a calculator that
// repeats its two displays in large type, for reading from a distance.
// ExtendedDisplayRefresh (WindowServices.h) fills it; it holds no state of its
// own. Text1 repeats the calculator's numero, Text2 its result.
#include <QWidget>

class QLineEdit;
class QPlainTextEdit;

class ExtendedDisplayWindow : public QWidget {
  Q_OBJECT
 public:
  explicit ExtendedDisplayWindow(QWidget* parent = nullptr);
  void setFrameColour(const QColor& colour);
  // Both text boxes take this width; the window follows.
  void fitWidth(int width);

  QLineEdit* Text1 = nullptr;
  QPlainTextEdit* Text2 = nullptr;  // results may hold several lines

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor frame_;
};
