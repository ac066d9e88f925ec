#include "chrono/Chronometer.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>

#include "chrono/CroFile.h"
#include "shell/AlarmSwitch.h"
#include "shell/Clock.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/Platform.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"

namespace {

constexpr int kHelpTopic = 90000;
constexpr int kMessageSound = 1;
constexpr int kMessageStyle = 3;
constexpr qint64 kDay = 86400;
// Seconds the warning runs before the power action: shutting down gives
// the longest notice.
constexpr int kWarningSeconds[] = {120, 60, 60};
// Timer2: four refreshes a second are enough for whole seconds; the
// hundredths of mode 2 want 25. An old processor gets half as many.
constexpr int kTimer2Interval = 250;
constexpr int kTimer2TenthsInterval = 40;

// Whole seconds of a time on one continuous scale of its date and time
// fields, so that the time of day is this value modulo a day.
qint64 plainSeconds(const QDateTime& t) {
  return t.date().toJulianDay() * kDay + t.time().msecsSinceStartOfDay() / 1000;
}

// "hh:mm:ss" read as a time of day: seconds since midnight, or -1 when the
// text is not a date/time. A whole date counts as its midnight.
int timeOfDay(const QString& text) {
  try {
    const double serial = rt::DateValue(text);
    const double fraction = serial - std::floor(serial);
    return static_cast<int>(std::llround(fraction * kDay) % kDay);
  } catch (const rt::RuntimeError&) {
    return -1;
  }
}

QString twoDigits(qint64 v) { return QStringLiteral("%1").arg(v, 2, 10, QLatin1Char('0')); }

QString& section() { return program().SectionTitle; }

}  // namespace

Chronometer::Chronometer(Clock& clock) : clock_(clock) {
  Timer1 = clock_.createTimer([this] { Timer1_Timer(); });
  Timer2 = clock_.createTimer([this] { Timer2_Timer(); });
  Text1 = {QStringLiteral("00"), QStringLiteral("00"), QStringLiteral("00")};
  Text2 = QStringLiteral("5");
  QObject::connect(&alarmSwitch(), &AlarmSwitch::switchedOff, &alarmSwitchContext_, [this] { switchOffAlarm(); });
}

Chronometer::~Chronometer() = default;

QString Chronometer::hms(qint64 seconds) {
  return rt::FormatDate(static_cast<double>(seconds) / kDay, QStringLiteral("hh:mm:ss"));
}

int Chronometer::actionOf(int accion) {
  if (accion == 1) return kSuspend;
  if (accion == 2) return kScreenSaver;
  return kShutdown;
}

QString Chronometer::alarmText() const { return Text1[0] + u':' + Text1[1] + u':' + Text1[2]; }

int Chronometer::armedState() const {
  if (Alarmacalc < 0 || (Check1 == 0 && Check3 == 0)) return 0;
  return Check1 != 0 && Check2 != 0 && Text2.trimmed().toInt() > 0 ? 2 : 1;
}

bool Chronometer::Timer1Enabled() const { return Timer1->isActive(); }
bool Chronometer::Timer2Enabled() const { return Timer2->isActive(); }

int Chronometer::Timer2Interval() const {
  const int base = hasTenths() ? kTimer2TenthsInterval : kTimer2Interval;
  return program().SlowComputer == 1 ? base * 2 : base;
}

void Chronometer::report(int code) {
  ++errorsReported;
  section() = Res(8);
  ReportError(code, kMessageSound, kMessageStyle, 0);
}

void Chronometer::notify() {
  if (hooks.changed) hooks.changed();
}

// ---- Load and unload ----------------------------------------------------------

void Chronometer::Form_Load() {
  const QDateTime now = clock_.now();
  lastCheck_ = plainSeconds(now) - 1;
  restore();
  lblTime = hms(plainSeconds(now) % kDay);
  setMode(mode_, false);
  Timer1->start(kTimer1Interval);
  loaded_ = true;
  updateLabels();
}

void Chronometer::Form_Unload() {
  if (!loaded_) return;
  loaded_ = false;
  Timer1->stop();
  Timer2->stop();
  warning.open = false;  // the warning window goes with this one: the action is off
  save();
}

// The mode, the options and a pending alarm live in the program-wide
// registry while the window is closed; an alarm that rang ("hasonado") is
// not brought back.
void Chronometer::save() const {
  QVariantMap& r = program().AlarmRegistry;
  r.insert(QStringLiteral("mode"), mode_);
  r.insert(QStringLiteral("cuenta"), cuenta_);
  r.insert(QStringLiteral("Text1"), alarmText());
  r.insert(QStringLiteral("Text2"), Text2);
  r.insert(QStringLiteral("Check2"), Check2);
  r.insert(QStringLiteral("List1"), List1);
  r.insert(QStringLiteral("hasonado"), hasonado ? QStringLiteral("hasonado") : QString());
  const bool pending = !hasonado && armedState() > 0;
  r.insert(QStringLiteral("Alarmacalc"), pending ? Alarmacalc : -1);
  r.insert(QStringLiteral("Check1"), pending ? Check1 : 0);
  r.insert(QStringLiteral("Check3"), pending ? Check3 : 0);
}

void Chronometer::restore() {
  const QVariantMap& r = program().AlarmRegistry;
  if (!r.contains(QStringLiteral("mode"))) {
    // A first opening: the preset chosen as default, when it is a time.
    const ProgramState& p = program();
    const int preset = p.DefaultAlarm - 1;
    if (preset >= 0 && preset < static_cast<int>(p.AlarmTimes.size())) {
      const int t = timeOfDay(p.AlarmTimes[static_cast<size_t>(preset)]);
      if (t >= 0) Text1 = {twoDigits(t / 3600), twoDigits(t / 60 % 60), twoDigits(t % 60)};
    }
    return;
  }
  mode_ = std::clamp(r.value(QStringLiteral("mode")).toInt(), 0, 4);
  cuenta_ = r.value(QStringLiteral("cuenta"), kDefaultCountdown).toLongLong();
  const QStringList t = r.value(QStringLiteral("Text1")).toString().split(u':');
  if (t.size() == 3) Text1 = {t[0], t[1], t[2]};
  Text2 = r.value(QStringLiteral("Text2")).toString();
  Check2 = r.value(QStringLiteral("Check2")).toInt();
  List1 = r.value(QStringLiteral("List1")).toStringList();
  hasonado = !r.value(QStringLiteral("hasonado")).toString().isEmpty();
  Alarmacalc = r.value(QStringLiteral("Alarmacalc"), -1).toInt();
  Check1 = r.value(QStringLiteral("Check1")).toInt();
  Check3 = r.value(QStringLiteral("Check3")).toInt();
}

// ---- Modes --------------------------------------------------------------------

void Chronometer::menutiempo1_Click(int index) {
  if (helpInstead(kHelpTopic) || index < 0 || index > 4) return;
  setMode(index, true);
  notify();
}

void Chronometer::setMode(int index, bool ask) {
  stopTimer2();
  mode_ = index;
  run_ = Run::Idle;
  frozen_ = false;
  Label2 = Res(400 + mode_);
  caption = Res(8) + QStringLiteral("  -  ") + Label2;
  if (isReverse() && ask) askCountdown();
  resetMeasure();
  // The program's running time is shown live from the start.
  if (mode_ == kWorkTime) {
    run_ = Run::Running;
    startTimer2();
    showMeasure(clock_.now());
  }
}

void Chronometer::askCountdown() {
  ProgramState& p = program();
  const QString fallback = hms(kDefaultCountdown);
  p.MessageDefault = fallback;
  p.MessageSound = 0;
  MBoxShow(0, Res(449), 5, 3, 0, Res(450));
  const QString text = p.MessageResult == 0 ? p.MessageValue.toText().trimmed() : fallback;
  const int seconds = timeOfDay(text);
  if (seconds < 0) {
    report(701);
    cuenta_ = kDefaultCountdown;
  } else {
    cuenta_ = seconds;
  }
}

// ---- Measures -----------------------------------------------------------------

qint64 Chronometer::elapsedMs(const QDateTime& now) const {
  if (mode_ == kWorkTime) return clock_.startTime().msecsTo(now);
  const QDateTime& end = run_ == Run::Stopped ? pausa : now;
  return std::max<qint64>(inicio.msecsTo(end), 0);
}

void Chronometer::measure(const QDateTime& now, qint64& seconds, int& hundredths) const {
  const qint64 ms = elapsedMs(now);
  seconds = ms / 1000;
  hundredths = static_cast<int>(ms % 1000 / 10);
  if (isReverse()) {
    seconds = std::max<qint64>(cuenta_ - seconds, 0);
    hundredths = 0;
  }
}

void Chronometer::showMeasure(const QDateTime& now) {
  qint64 seconds = 0;
  int hundredths = 0;
  measure(now, seconds, hundredths);
  if (seconds != shownSecond_) {
    lblAux = hms(seconds);
    shownSecond_ = seconds;
  }
  if (hasTenths()) Label19 = twoDigits(hundredths);
}

QString Chronometer::lapLine() const { return hasTenths() ? lblAux + QStringLiteral("  ") + Label19 : lblAux; }

void Chronometer::resetMeasure() {
  shownSecond_ = -1;
  lblAux = hms(isReverse() ? cuenta_ : 0);
  Label19 = QStringLiteral("00");
  marcaSuma = 0;
}

void Chronometer::startTimer2() { Timer2->start(Timer2Interval()); }
void Chronometer::stopTimer2() { Timer2->stop(); }

void Chronometer::Timer2_Timer() {
  const QDateTime now = clock_.now();
  if (!frozen_) showMeasure(now);
  if (isReverse() && run_ == Run::Running) {
    qint64 seconds = 0;
    int hundredths = 0;
    measure(now, seconds, hundredths);
    if (seconds == 0) finishCountdown();
  }
  notify();
}

// The countdown reached "00:00:00": it stands there; mode 4 rings the alarm
// sound, mode 3 beeps.
void Chronometer::finishCountdown() {
  stopTimer2();
  run_ = Run::Idle;
  frozen_ = false;
  shownSecond_ = 0;
  lblAux = hms(0);
  platform().beep();
  if (mode_ == kReverseAlarm && program().SoundOn == 1) {
    platform().playSound(soundPath(program().AlarmSoundFile), true);
  }
}

void Chronometer::crono1_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  const QDateTime now = clock_.now();
  switch (index) {
    case 0:  // start, or start again
      inicio = now;
      marcaSuma = 0;
      run_ = Run::Running;
      frozen_ = false;
      shownSecond_ = -1;
      startTimer2();
      showMeasure(now);
      break;
    case 1:  // stop / continue
      if (run_ == Run::Running) {
        stopTimer2();
        pausa = now;
        run_ = Run::Stopped;
        frozen_ = false;
        showMeasure(now);
        List1 << lapLine();
      } else if (run_ == Run::Stopped) {
        const qint64 stopped = pausa.msecsTo(now);
        // A countdown takes up again from the time it had run; the others
        // move the origin on by the time spent stopped. Both keep the shown value.
        if (isReverse()) inicio = now.addMSecs(-inicio.msecsTo(pausa));
        else inicio = inicio.addMSecs(stopped);
        marcaSuma += stopped;
        run_ = Run::Running;
        startTimer2();
        showMeasure(now);
      }
      break;
    case 2:  // pause / continue: the display stands, the measure runs on
      if (run_ != Run::Running) break;
      frozen_ = !frozen_;
      showMeasure(now);
      if (frozen_) List1 << lapLine();
      break;
    case 3: {  // zero
      stopTimer2();
      run_ = Run::Idle;
      frozen_ = false;
      resetMeasure();
      if (!List1.isEmpty()) {
        program().MessageSound = 0;
        MBoxShow(0, Res(411), 6, 6, 0, Res(8));
        if (program().MessageResult == 0) List1.clear();
      }
      break;
    }
    case 4:
      List1Visible = !List1Visible;
      break;
    default:
      return;
  }
}

// ---- Alarm --------------------------------------------------------------------

void Chronometer::Command4_Click() {
  if (helpInstead(kHelpTopic)) return;
  const int t = timeOfDay(alarmText());
  if (t < 0) {
    report(702);
    return;
  }
  Alarmacalc = t;
  Text1 = {twoDigits(t / 3600), twoDigits(t / 60 % 60), twoDigits(t % 60)};
  Check1 = 1;
  hasonado = false;
  // Only what comes after this second rings: an alarm set a second ago
  // waits for tomorrow, one set for this very second rings at the next tick.
  lastCheck_ = plainSeconds(clock_.now()) - 1;
  updateLabels();
}

void Chronometer::Check1_Click(int value) {
  if (helpInstead(kHelpTopic)) return;
  Check1 = value ? 1 : 0;
  if (Check1) hasonado = false;
  updateLabels();
}

void Chronometer::loadCaptions() {
  Label2 = Res(400 + mode_);
  caption = Res(8) + QStringLiteral("  -  ") + Label2;
  updateLabels();
  notify();
}

void Chronometer::switchOffAlarm() {
  if (Check1 == 0) return;
  Check1 = 0;
  updateLabels();
  notify();
}

void Chronometer::Check2_Click(int value) {
  if (helpInstead(kHelpTopic)) return;
  Check2 = value ? 1 : 0;
  updateLabels();
}

void Chronometer::Check3_Click(int value) {
  if (helpInstead(kHelpTopic)) return;
  Check3 = value ? 1 : 0;
  updateLabels();
}

void Chronometer::menuaccion_Click(int action) {
  if (helpInstead(kHelpTopic) || action < 0 || action > 2) return;
  program().accion = static_cast<std::int16_t>(action == kShutdown ? 0 : action);
  updateLabels();
}

QStringList Chronometer::alarfavItems() const {
  QStringList items;
  const auto& presets = program().AlarmTimes;
  for (size_t i = 0; i < presets.size(); ++i) {
    const int t = timeOfDay(presets[i]);
    if (t < 0) continue;
    items << QStringLiteral("%1 %2 (%3):").arg(Res(430)).arg(i + 1).arg(hms(t));
  }
  return items;
}

void Chronometer::alarfav_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  int n = 0;
  for (const QString& preset : program().AlarmTimes) {
    const int t = timeOfDay(preset);
    if (t < 0) continue;
    if (n++ == index) {
      Text1 = {twoDigits(t / 3600), twoDigits(t / 60 % 60), twoDigits(t % 60)};
      return;
    }
  }
}

void Chronometer::updateLabels() {
  const int action = actionOf(program().accion);
  Label15 = Res(action == kSuspend ? 428 : action == kScreenSaver ? 439 : 427);
  Label18 = armedState() > 0 ? Res(414) + u' ' + hms(Alarmacalc) : Res(415);
  QVariantMap& r = program().AlarmRegistry;
  r.insert(QStringLiteral("estado"), armedState());  // the alarm icon of the other windows
}

void Chronometer::Timer1_Timer() {
  const QDateTime now = clock_.now();
  lblTime = hms(plainSeconds(now) % kDay);
  updateWarning(now);
  checkAlarm(now);
  notify();
}

// Rings when this tick passed over the alarm's second since the last check.
void Chronometer::checkAlarm(const QDateTime& now) {
  const qint64 nowSeconds = plainSeconds(now);
  const qint64 last = lastCheck_;
  lastCheck_ = std::max(lastCheck_, nowSeconds);
  if (Alarmacalc < 0 || (Check1 == 0 && Check3 == 0) || nowSeconds <= last) return;
  // The first second after the last check that has the alarm's time of day.
  const qint64 due = last + 1 + ((Alarmacalc - (last + 1)) % kDay + kDay) % kDay;
  if (due > nowSeconds) return;
  const bool power = Check3 != 0;
  if (power) openWarning(now);
  if (Check1 != 0) ring(now);
  updateLabels();
}

void Chronometer::ring(const QDateTime& now) {
  ProgramState& p = program();
  platform().beep();
  if (p.SoundOn == 1) platform().playSound(soundPath(p.AlarmSoundFile), true);
  rings << now;
  QString text = Res(454) + u'\n' + Res(455);
  const int minutes = Text2.trimmed().toInt();
  if (Check2 != 0 && minutes > 0) {
    Alarmacalc = static_cast<int>((Alarmacalc + static_cast<qint64>(minutes) * 60) % kDay);
    Text1 = {twoDigits(Alarmacalc / 3600), twoDigits(Alarmacalc / 60 % 60), twoDigits(Alarmacalc % 60)};
    text += u'\n' + Res(456) + u' ' + hms(Alarmacalc);
  } else {
    hasonado = true;
    Check1 = 0;
  }
  updateLabels();
  notify();
  // The message closes by itself after 15 seconds (the title tells the box).
  p.MessageSound = 0;
  MBoxShow(0, text, 7, 0, 0, Res(441));
}

// ---- Power action -------------------------------------------------------------

void Chronometer::openWarning(const QDateTime& now) {
  Check3 = 0;
  warning.open = true;
  warning.action = actionOf(program().accion);
  warning.deadline = now.addSecs(kWarningSeconds[warning.action]);
  warning.title = Res(421);
  updateWarning(now);
}

void Chronometer::updateWarning(const QDateTime& now) {
  if (!warning.open) return;
  const qint64 leftMs = now.msecsTo(warning.deadline);
  if (leftMs <= 0) {
    warning.open = false;
    performPowerAction(warning.action);
    return;
  }
  const qint64 left = (leftMs + 999) / 1000;
  warning.seconds = QString::number(left);
  warning.secondsLabel = Res(419);
  if (warning.action == kSuspend) {
    warning.heading = Res(452);
  } else if (warning.action == kScreenSaver) {
    warning.heading = Res(453);
  } else {
    warning.heading = Res(418);
  }
  warning.footer = warning.action == kShutdown && left < 60 ? Res(451) : Res(420);
}

void Chronometer::warning_Close() {
  if (!warning.open) return;
  warning.open = false;
  notify();
}

// Through the shared SystemAction, on the family the user chose; a family
// not chosen yet powers off as family 1 does, at once.
void Chronometer::performPowerAction(int action) {
  const int family = program().OsFamily == 2 ? 2 : 1;
  if (action == kSuspend) SystemAction(2, family);
  else if (action == kScreenSaver) SystemAction(1, family);
  else SystemAction(0, family);
}

// ---- Files and printing -----------------------------------------------------

void Chronometer::GuardaTiempos_Click() {
  if (helpInstead(kHelpTopic) || !hooks.fileDialog) return;
  const QString path =
      hooks.fileDialog({Res(443), Res(444), program().AppFolder.toText() + QStringLiteral("datos/"), true});
  if (!path.isEmpty()) saveTimes(path);
}

bool Chronometer::saveTimes(const QString& path) {
  if (!hasCroExtension(QFileInfo(path).fileName())) {
    report(900);
    return false;
  }
  try {
    rt::writeWholeFile(path, writeCro(List1));
  } catch (const rt::RuntimeError&) {
    report(907);
    return false;
  }
  return true;
}

PrintDocument Chronometer::timesDocument() const {
  PrintDocument doc(Res(447));
  constexpr int kLinesPerPage = 50;
  int page = 0;
  for (qsizetype i = 0; i == 0 || i < List1.size(); i += kLinesPerPage) {
    if (page > 0) doc.newPage();
    ++page;
    doc.setFont(QStringLiteral("Arial"), 12, true);
    doc.emptyLines(2);
    doc.line(6, Res(445));
    doc.setFont(QStringLiteral("Arial"), 10, false);
    doc.line(6, Res(447) + QStringLiteral("    ") + Res(446) + u' ' + QString::number(page));
    doc.emptyLines(1);
    for (qsizetype j = i; j < std::min(i + kLinesPerPage, List1.size()); ++j) {
      doc.line(9, QStringLiteral("%1.  %2").arg(j + 1, 3).arg(List1[j]));
    }
  }
  return doc;
}

void Chronometer::ImprimeTiempos_Click() {
  if (helpInstead(kHelpTopic)) return;
  printDocument(timesDocument());
}
