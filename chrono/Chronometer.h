#pragma once
// The chronometer's model (window "Horavi") without its widgets.
//
// How the pieces fit:
//  - Two timers of the injected Clock drive it: Timer1 every second (the
//    clock of the day, the alarm, the power action's warning) and Timer2
//    for the running measure. Every text is computed from the clock's now()
//    and a stored origin, never by counting ticks: a late, missed or extra
//    tick only changes how fresh the display is, so nothing drifts.
//  - Five modes (menutiempo1): the program's running time, a chronometer,
//    one with hundredths, and two countdowns (the second with the alarm
//    sound at 0). crono1(0..4) are start, stop/continue, pause/continue
//    (a lap), zero and the lap list shown or hidden.
//  - The alarm is a time of day (Alarmacalc, seconds since midnight) armed
//    by Command4; it rings when a Timer1 tick passes over it, so one armed a
//    second too late rings tomorrow. With Check2 it comes back every Text2
//    minutes. With Check3 the power action (accion) starts at the same
//    moment: a warning with a countdown that closing it cancels, then
//    SystemAction through the platform layer.
//  - Load and unload keep the mode, the options and a pending alarm in the
//    program-wide AlarmRegistry, so reopening the window finds them.
//  - Messages go through ReportError and MBoxShow; the file dialog through a
//    hook; the view repaints when the model calls hooks.changed.
#include <QDateTime>
#include <QObject>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>

class Clock;
class ClockTimer;
class PrintDocument;

class Chronometer {
 public:
  enum Mode { kWorkTime = 0, kChrono = 1, kPowerChrono = 2, kReverse = 3, kReverseAlarm = 4 };
  enum class Run { Idle, Running, Stopped };
  enum PowerAction { kShutdown = 0, kSuspend = 1, kScreenSaver = 2 };

  struct FileDialogRequest {
    QString title;
    QString filter;  // "description|*.cro"
    QString folder;
    bool save = true;
  };
  struct Hooks {
    std::function<QString(const FileDialogRequest&)> fileDialog;
    std::function<void()> changed;  // the fields changed outside an event of the view (a tick)
  };

  // The power action's warning window, as the view shows it.
  struct PowerWarning {
    bool open = false;
    int action = kShutdown;
    QDateTime deadline;
    QString title;     // 421
    QString heading;   // 418, 452 or 453
    QString seconds;   // seconds left
    QString secondsLabel;  // 419
    QString footer;    // 420, or 451 under one minute
  };

  static constexpr int kTimer1Interval = 1000;
  static constexpr int kDefaultCountdown = 120;  // "00:02:00"

  explicit Chronometer(Clock& clock);
  ~Chronometer();
  Chronometer(const Chronometer&) = delete;
  Chronometer& operator=(const Chronometer&) = delete;

  Hooks hooks;

  // ---- Display --------------------------------------------------------------
  QString caption;
  QString lblTime;   // the time of day
  QString lblAux;    // the measure
  QString Label19 = QStringLiteral("00");  // hundredths of the measure (mode 2)
  QString Label2;    // the mode's name
  QString Label15;   // the power action's name
  QString Label18;   // the alarm's next instant, or "not set"
  bool running() const { return run_ == Run::Running; }
  Run runState() const { return run_; }
  bool frozen() const { return frozen_; }
  int mode() const { return mode_; }
  bool hasTenths() const { return mode_ == kPowerChrono; }
  bool isReverse() const { return mode_ == kReverse || mode_ == kReverseAlarm; }
  qint64 countdownSeconds() const { return cuenta_; }
  QStringList List1;
  bool List1Visible = false;

  // ---- Alarm and power action ----------------------------------------------
  std::array<QString, 3> Text1;  // hours, minutes, seconds
  QString Text2;                 // repeat interval in minutes
  int Check1 = 0;                // alarm active
  int Check2 = 0;                // repeat
  int Check3 = 0;                // power action active
  int Alarmacalc = -1;           // seconds since midnight of the next alarm; -1 none
  bool hasonado = false;         // the alarm rang and does not come back
  QList<QDateTime> rings;        // each time the alarm message opened
  PowerWarning warning;
  // "hh:mm:ss" from the three boxes.
  QString alarmText() const;
  // 0 nothing armed, 1 the alarm or the power action armed, 2 armed with repeat.
  int armedState() const;

  bool Timer1Enabled() const;
  bool Timer2Enabled() const;
  int Timer2Interval() const;
  int errorsReported = 0;  // messages of error shown (2701, 2900, ...)

  // ---- Events ---------------------------------------------------------------
  void Form_Load();
  void Form_Unload();
  void menutiempo1_Click(int index);
  void crono1_Click(int index);
  void Command4_Click();  // arms the alarm
  void Check1_Click(int value);
  // The texts of the mode and the alarm again, in the language in use.
  void loadCaptions();
  // The alarm switched off from outside (Preferences): as Check1 cleared.
  void switchOffAlarm();
  void Check2_Click(int value);
  void Check3_Click(int value);
  void menuaccion_Click(int action);  // picks accion: 0 "Apagar", 1 "Suspender", 2 "SalvaPant."
  // The preset alarms of the settings, "name (hh:mm:ss):" per preset that is a time.
  QStringList alarfavItems() const;
  void alarfav_Click(int index);  // fills Text1 from preset index (0-based in the list)
  void GuardaTiempos_Click();
  bool saveTimes(const QString& path);
  void ImprimeTiempos_Click();
  PrintDocument timesDocument() const;
  // The warning window was closed before its countdown ended: cancels.
  void warning_Close();
  void Timer1_Timer();
  void Timer2_Timer();

  // The text of a whole number of seconds, "hh:mm:ss" ("hh" wraps at 24).
  static QString hms(qint64 seconds);
  // The name of an action by accion: 1 suspend, 2 screen saver, other shut down.
  static int actionOf(int accion);

 private:
  QObject alarmSwitchContext_;  // receives the shell's switch-off while this model lives
  void setMode(int index, bool ask);
  void askCountdown();
  void restore();
  void save() const;
  qint64 elapsedMs(const QDateTime& now) const;
  // The measure at now: seconds (0 when a countdown ran out) and hundredths.
  void measure(const QDateTime& now, qint64& seconds, int& hundredths) const;
  void showMeasure(const QDateTime& now);
  QString lapLine() const;
  void resetMeasure();
  void startTimer2();
  void stopTimer2();
  void finishCountdown();
  void updateLabels();
  void checkAlarm(const QDateTime& now);
  void ring(const QDateTime& now);
  void openWarning(const QDateTime& now);
  void updateWarning(const QDateTime& now);
  void performPowerAction(int action);
  void report(int code);
  void notify();

  Clock& clock_;
  std::unique_ptr<ClockTimer> Timer1;
  std::unique_ptr<ClockTimer> Timer2;
  int mode_ = kChrono;
  Run run_ = Run::Idle;
  bool frozen_ = false;     // pause: the display stands while the measure runs on
  QDateTime inicio;         // origin of the measure
  QDateTime pausa;          // moment of the last stop
  qint64 marcaSuma = 0;     // milliseconds spent stopped since the start
  qint64 cuenta_ = kDefaultCountdown;  // the countdown's value, seconds
  qint64 lastCheck_ = 0;    // whole seconds (plain scale) of the last alarm check
  qint64 shownSecond_ = -1; // the second lblAux shows, to format only on change
  bool loaded_ = false;
};
