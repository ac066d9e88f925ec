#pragma once
// The chronometer's window (Horavi): an LCD panel with the time of day, the
// mode and the measure; the five buttons crono1(0..4); the lap list; the
// alarm frame with the power action; menus for files, modes, preset alarms
// and the action. Every event goes to the Chronometer model, which runs on
// the program's clock (the real one, unless a test hands in a simulated
// clock); the window repaints whenever the model says it changed. The power
// action's warning is a window of its own (PowerWarningDialog), shown while
// the model has it open; closing it cancels the action.
#include <QMainWindow>
#include <array>

#include "chrono/Chronometer.h"

class Clock;
class PowerWarningDialog;
class QAction;
class QCheckBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;

class ChronometerWindow : public QMainWindow {
  Q_OBJECT

 public:
  // clock: nullptr for the program's clock.
  explicit ChronometerWindow(QWidget* parent = nullptr, Clock* clock = nullptr);
  ~ChronometerWindow() override;

  Chronometer& model() { return model_; }
  PowerWarningDialog* warningWindow() const { return warning_; }
  void refresh();

 public Q_SLOTS:
  // For the screenshot tour: "running" a measure with laps, "alarm" an armed
  // alarm with repeat and power action, "warning" the power warning.
  void showScreenshotState(const QString& state);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* buildPanel();
  QWidget* buildButtons();
  QWidget* buildAlarm();
  void buildMenus();
  void fillPresets();
  template <typename Handler>
  void act(Handler&& handler);
  void takeBoxes();
  void refreshWarning();
  QString askFileName(const Chronometer::FileDialogRequest& request);

  Chronometer model_;
  bool unloaded_ = false;
  bool refreshing_ = false;
  bool startShowsRestart_ = false;
  bool warningPicture_ = false;  // the screenshot tour shows the warning alone  // crono1(0) shows "start again" while running
  // Controls under their model names.
  QLabel* lblTime = nullptr;
  QLabel* lblAux = nullptr;
  QLabel* Label19 = nullptr;
  QLabel* Label2 = nullptr;
  QLabel* Label15 = nullptr;
  QLabel* Label18 = nullptr;
  QLabel* Image3 = nullptr;
  std::array<QPushButton*, 5> crono1{};
  QListWidget* List1 = nullptr;
  std::array<QLineEdit*, 3> Text1{};
  QLineEdit* Text2 = nullptr;
  QCheckBox* Check1 = nullptr;
  QCheckBox* Check2 = nullptr;
  QCheckBox* Check3 = nullptr;
  QPushButton* Command4 = nullptr;
  std::array<QAction*, 5> menutiempo1{};
  std::array<QAction*, 3> menuaccion{};
  QMenu* alarfav = nullptr;
  PowerWarningDialog* warning_ = nullptr;
};
