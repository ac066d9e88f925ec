#pragma once
// The About window (Form6): the program's name and version, the user's
// name, the note on the sample lottery draws, and four chameleon buttons and
// the web address (Label5) that open their pages through the platform layer.
// The background is the control centre's gradient; Escape closes the window,
// Shift+F10 runs the control centre's system action.
#include <QWidget>

#include "shell/AboutModel.h"

class ChameleonButtonWidget;
class QLabel;

class AboutWindow : public QWidget {
  Q_OBJECT

 public:
  explicit AboutWindow(QWidget* parent = nullptr);
  AboutModel& model() { return model_; }
  void loadCaptions();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  AboutModel model_;
  QLabel* heading_ = nullptr;
  QLabel* subtitle_ = nullptr;
  QLabel* version_ = nullptr;
  QLabel* user_ = nullptr;
  QLabel* note_ = nullptr;
  QLabel* Label5 = nullptr;
  ChameleonButtonWidget* Command1 = nullptr;
  ChameleonButtonWidget* Command3 = nullptr;
  ChameleonButtonWidget* Command4 = nullptr;
  ChameleonButtonWidget* Command5 = nullptr;
  bool placed_ = false;
};
