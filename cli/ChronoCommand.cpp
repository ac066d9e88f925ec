// calvix-cli chrono: the chronometer window's model on a simulated clock.
//
//   calvix-cli chrono [--now "YYYY-MM-DD hh:mm:ss"] [--mode N]
//                     [--alarm hh:mm:ss [--repeat MIN]] [--power A] [--file F] "EVENTS"
//
// The window opens at t = 0, which is --now (default: the real time, to the
// second). Nothing waits in real time: before each event the clock runs to
// the event's time T delivering every tick of Timer1 and Timer2 on the way,
// and each running timer also ticks at T itself, before the event.
// Before the events, --mode clicks menutiempo1(N) (a countdown asks for its
// value: the --answer values, or "00:02:00"), --alarm fills Text1(0..2) and
// checks Check1, --repeat fills Text2 and checks Check2, --power sets accion
// and checks Check3.
// EVENTS, separated by blanks, are ACTION@T with T in seconds from t = 0
// (decimals allowed, never decreasing): start, stop, pause, zero, info are
// crono1(0..4); arm is Command4; cancel closes the power warning if open;
// save is GuardaTiempos with F as the chosen file; close and open unload
// and load the window; look does nothing but let the clock run to T.
// Then: Label2, lblTime, lblAux, Label19, Timer2, List1, Text1, Check1,
// Label15, rings (each alarm message), sounds ("beep" or the sound file's
// name) and power (the power actions the platform was asked for, which a
// recording double takes: "Apagar", "Suspender", "SalvaPant.").
// Errors the window reports (2701, 2900) go to stderr and exit 1; bad
// usage exits 2.
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <cmath>
#include <memory>

#include "chrono/Chronometer.h"
#include "cli/CliCommand.h"
#include "shell/Clock.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"

namespace {

struct Event {
  QString action;
  qint64 ms = 0;
};

// What the output shows of the window, taken when it closes and at the end.
struct Snapshot {
  QString Label2, lblTime, lblAux, Label19, Text1, Label15;
  bool Timer2 = false;
  QStringList List1;
  int Check1 = 0;
};

Snapshot snapshotOf(const Chronometer& m) {
  return {m.Label2, m.lblTime, m.lblAux, m.Label19, m.alarmText(), m.Label15, m.Timer2Enabled(), m.List1, m.Check1};
}

const QStringList kActions{QStringLiteral("start"), QStringLiteral("stop"),  QStringLiteral("pause"),
                           QStringLiteral("zero"),  QStringLiteral("info"),  QStringLiteral("arm"),
                           QStringLiteral("cancel"), QStringLiteral("save"), QStringLiteral("close"),
                           QStringLiteral("open"),  QStringLiteral("look")};

bool parseEvents(const QStringList& words, QList<Event>& events, QString& error) {
  qint64 last = 0;
  for (const QString& word : words) {
    const qsizetype at = word.lastIndexOf(u'@');
    const QString action = word.left(at);
    bool ok = at > 0;
    const double seconds = ok ? word.mid(at + 1).toDouble(&ok) : 0;
    if (!ok || !kActions.contains(action)) {
      error = QStringLiteral("chrono: unknown event ") + word;
      return false;
    }
    if (!std::isfinite(seconds) || seconds < 0 || seconds > 1e9) {
      error = QStringLiteral("chrono: bad time in ") + word;
      return false;
    }
    const qint64 ms = std::llround(seconds * 1000);
    if (ms < last) {
      error = QStringLiteral("chrono: time goes back at ") + word;
      return false;
    }
    last = ms;
    events.append({action, ms});
  }
  return true;
}

// The platform calls as the output names them.
void platformLists(const QStringList& calls, QStringList& sounds, QStringList& power) {
  const QString play = QStringLiteral("playSound ");
  for (const QString& call : calls) {
    if (call == QLatin1String("beep")) {
      sounds << call;
    } else if (call.startsWith(play)) {
      const QString path = call.mid(play.size()).section(u' ', 0, -2);
      sounds << QFileInfo(path).fileName();
    } else if (call == QLatin1String("powerAction shutdown") || call == QLatin1String("powerAction shutdown-delayed")) {
      power << QStringLiteral("Apagar");
    } else if (call == QLatin1String("powerAction suspend")) {
      power << QStringLiteral("Suspender");
    } else if (call == QLatin1String("powerAction screensaver")) {
      power << QStringLiteral("SalvaPant.");
    }
  }
}

struct Options {
  QDateTime start;
  int mode = -1;
  QStringList alarm;
  QString repeat;
  bool hasRepeat = false;
  int power = 0;
  bool hasPower = false;
  QString file;
};

int takeOptions(CliContext& ctx, Options& o) {
  QString v;
  if (ctx.takeOption(QStringLiteral("--now"), v)) {
    o.start = QDateTime::fromString(v, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    if (!o.start.isValid()) return ctx.usage(QStringLiteral("chrono: --now takes \"YYYY-MM-DD hh:mm:ss\""));
  } else {
    const QDateTime now = QDateTime::currentDateTime();
    o.start = QDateTime(now.date(), QTime(now.time().hour(), now.time().minute(), now.time().second()));
  }
  if (ctx.takeOption(QStringLiteral("--mode"), v)) {
    bool ok = false;
    o.mode = v.toInt(&ok);
    if (!ok || o.mode < 0 || o.mode > 4) return ctx.usage(QStringLiteral("chrono: --mode takes 0 to 4"));
  }
  if (ctx.takeOption(QStringLiteral("--alarm"), v)) {
    o.alarm = v.split(u':');
    if (o.alarm.size() != 3) return ctx.usage(QStringLiteral("chrono: --alarm takes hh:mm:ss"));
  }
  if (ctx.takeOption(QStringLiteral("--repeat"), o.repeat)) {
    if (o.alarm.isEmpty()) return ctx.usage(QStringLiteral("chrono: --repeat goes with --alarm"));
    o.hasRepeat = true;
  }
  if (ctx.takeOption(QStringLiteral("--power"), v)) {
    bool ok = false;
    o.power = v.toInt(&ok);
    if (!ok || o.power < -32768 || o.power > 32767) return ctx.usage(QStringLiteral("chrono: --power takes a whole number"));
    o.hasPower = true;
  }
  ctx.takeOption(QStringLiteral("--file"), o.file);
  for (const QString& a : std::as_const(ctx.args)) {
    if (a.startsWith(QLatin1String("--"))) return ctx.usage(QStringLiteral("chrono: unknown option ") + a);
  }
  return 0;
}

void print(CliContext& ctx, const Snapshot& s, const QStringList& rings, const QStringList& sounds,
           const QStringList& power) {
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("Label2"), s.Label2);
    ctx.json.insert(QStringLiteral("lblTime"), s.lblTime);
    ctx.json.insert(QStringLiteral("lblAux"), s.lblAux);
    ctx.json.insert(QStringLiteral("Label19"), s.Label19);
    ctx.json.insert(QStringLiteral("Timer2"), s.Timer2);
    ctx.json.insert(QStringLiteral("List1"), QJsonArray::fromStringList(s.List1));
    ctx.json.insert(QStringLiteral("Text1"), s.Text1);
    ctx.json.insert(QStringLiteral("Check1"), s.Check1);
    ctx.json.insert(QStringLiteral("Label15"), s.Label15);
    ctx.json.insert(QStringLiteral("rings"), QJsonArray::fromStringList(rings));
    ctx.json.insert(QStringLiteral("sounds"), QJsonArray::fromStringList(sounds));
    ctx.json.insert(QStringLiteral("power"), QJsonArray::fromStringList(power));
    return;
  }
  QTextStream& out = ctx.out;
  out << "Label2\t" << s.Label2 << '\n'
      << "lblTime\t" << s.lblTime << '\n'
      << "lblAux\t" << s.lblAux << '\n'
      << "Label19\t" << s.Label19 << '\n'
      << "Timer2\t" << (s.Timer2 ? "true" : "false") << '\n';
  for (const QString& line : s.List1) out << "List1\t" << line << '\n';
  out << "Text1\t" << s.Text1 << '\n' << "Check1\t" << s.Check1 << '\n' << "Label15\t" << s.Label15 << '\n';
  for (const QString& r : rings) out << "rings\t" << r << '\n';
  for (const QString& r : sounds) out << "sounds\t" << r << '\n';
  for (const QString& r : power) out << "power\t" << r << '\n';
}

int runChrono(CliContext& ctx) {
  Options o;
  if (const int code = takeOptions(ctx, o)) return code;
  QStringList words;
  for (const QString& a : std::as_const(ctx.args)) words << a.split(u' ', Qt::SkipEmptyParts);
  QList<Event> events;
  QString error;
  if (!parseEvents(words, events, error)) return ctx.usage(error);

  SimulatedClock clock(o.start);
  setProgramClock(&clock);
  RecordingPlatform recorder;
  setPlatform(&recorder);

  QStringList rings;
  int errors = 0;
  Snapshot last;
  std::unique_ptr<Chronometer> m;
  auto open = [&] {
    m = std::make_unique<Chronometer>(clock);
    m->hooks.fileDialog = [&o](const Chronometer::FileDialogRequest&) { return o.file; };
    m->Form_Load();
  };
  // The output shows the window as it stood before it unloaded.
  auto close = [&](bool unload) {
    last = snapshotOf(*m);
    if (unload) m->Form_Unload();
    for (const QDateTime& r : std::as_const(m->rings)) rings << r.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    errors += m->errorsReported;
    m.reset();
  };
  open();
  if (o.mode >= 0) m->menutiempo1_Click(o.mode);
  if (!o.alarm.isEmpty()) {
    m->Text1 = {o.alarm[0], o.alarm[1], o.alarm[2]};
    m->Check1_Click(1);
  }
  if (o.hasRepeat) {
    m->Text2 = o.repeat;
    m->Check2_Click(1);
  }
  if (o.hasPower) {
    program().accion = static_cast<std::int16_t>(o.power);
    m->Check3_Click(1);
  }

  for (const Event& e : std::as_const(events)) {
    clock.advanceTo(o.start.addMSecs(e.ms));
    clock.tickRunningTimers();
    if (e.action == QLatin1String("open")) {
      if (!m) open();
      continue;
    }
    if (!m) continue;  // the window is closed: its buttons are not there
    const qsizetype crono = kActions.indexOf(e.action);
    if (crono <= 4) m->crono1_Click(static_cast<int>(crono));
    else if (e.action == QLatin1String("arm")) m->Command4_Click();
    else if (e.action == QLatin1String("cancel")) m->warning_Close();
    else if (e.action == QLatin1String("save")) m->GuardaTiempos_Click();
    else if (e.action == QLatin1String("close")) close(true);
  }
  if (m) close(false);

  QStringList sounds, power;
  platformLists(recorder.calls, sounds, power);
  setPlatform(nullptr);
  setProgramClock(nullptr);
  print(ctx, last, rings, sounds, power);
  return errors > 0 ? 1 : 0;
}

}  // namespace

CALVIX_CLI_COMMAND("chrono",
                   "the chronometer on a simulated clock: chrono [--now \"YYYY-MM-DD hh:mm:ss\"] [--mode N] "
                   "[--alarm hh:mm:ss [--repeat MIN]] [--power A] [--file F] \"ACTION@T ...\"",
                   runChrono);
