#pragma once
// The large display ("Visor XL"): a second window beside a calculator that
// repeats its two displays in large type, for reading from a distance.
// ExtendedDisplayRefresh (WindowServices.h) fills it; it holds no state of its
// own. Text1 repeats the calculator's numero, Text2 its result. Its two
// fields show in one of two typefaces, each with its own sizes: "Arial" or
// the seven-segment LCD face of fonts/LCDfont.ttf; switchFont() goes from one
// to the other.
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
  // Arial <-> LCD.
  void switchFont();
  bool lcdFont() const { return lcd_; }
  // The family of the LCD face, registering fonts/LCDfont.ttf when the
  // system does not know it yet.
  static QString lcdFamily();

  QLineEdit* Text1 = nullptr;
  QPlainTextEdit* Text2 = nullptr;  // results may hold several lines

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void applyFont();

  QColor frame_;
  bool lcd_ = false;
};
