#pragma once
// The power action's warning window: what is about to happen, the seconds
// left in large digits and how to stop it. It is not modal, so the rest of
// the program goes on while it counts down; closing it in any way (its
// button, Escape, the title bar) tells the chronometer to cancel.
#include <QDialog>

#include "chrono/Chronometer.h"

class QLabel;
class QPushButton;

class PowerWarningDialog : public QDialog {
  Q_OBJECT

 public:
  explicit PowerWarningDialog(QWidget* parent = nullptr);
  void showWarning(const Chronometer::PowerWarning& warning);
  // Hides it without it counting as the user's cancel.
  void dismiss();

 Q_SIGNALS:
  void cancelled();

 private:
  QLabel* heading_ = nullptr;
  QLabel* Label = nullptr;  // the seconds left
  QLabel* secondsLabel_ = nullptr;
  QLabel* footer_ = nullptr;
  QPushButton* cancel_ = nullptr;
};
