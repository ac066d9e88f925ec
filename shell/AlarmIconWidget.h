#pragma once
// The small bell that windows show while the chronometer has an alarm or a
// power action armed (its "estado" in the program-wide AlarmRegistry above
// 0). It looks at the state once a second on the program's clock and hides
// itself when nothing is armed, so a layout gives it no room then.
#include <QLabel>
#include <memory>

class ClockTimer;

class AlarmIconWidget : public QLabel {
  Q_OBJECT

 public:
  explicit AlarmIconWidget(QWidget* parent = nullptr);
  ~AlarmIconWidget() override;
  // Shows or hides the bell from the present state.
  void refreshState();

 private:
  std::unique_ptr<ClockTimer> timer_;
};
