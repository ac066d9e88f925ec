// calvix-cli keys: the calculators driven by a key sequence.
//
//   calvix-cli keys [--normal] [--answer TEXT]... [--memories LIST] [--registers LIST] "<sequence>"
//
// A fresh calculator, as the window has it on load (the scientific comand1,
// or the normal comand2 with --normal), takes the keys of the sequence (see
// calc/KeySequence.h for the tokens; normalcalc and cientificacalc trade one
// window for the other, calc/CalculatorSession.h); then the state of the
// window shown at the end is printed (--json adds window and mode):
// numero, result, func, errorState, pendingOp, entryActive, the modes
// (angulo, temperat, ivas, HexDec, hypFlag), the four memories (the texts of
// the fields m1), the four registers (value and label) and the history.
// --memories "1.5,2,,-3" and --registers "42.5:Área,,7" start from those
// values instead of the fresh installation's: up to four items, numbers with
// a point, an empty item keeps its default; a register item may add ":LABEL",
// otherwise it keeps its label.
// Each --answer is taken by the next message the keys show: typed into an
// input box (the bases of Command91 and Command92) and its first button
// pressed, or the index of the button pressed in a plain message;
// "--answer button:N" presses button N of either (button:1 cancels a box).
// Each --file PATH answers the next file dialog (abrirest, guardarest,
// exporcsv); a dialog with none left is cancelled. The statistics store
// follows the history: counts, sums, the regression type and the data.
// --settings F reads the settings file F before the keys, --save-settings F
// writes the settings to F at the end (the programs among them). Tokens
// Text4=TEXT set the expression field and right:CONTROL right-clicks. System
// actions the keys ask for (screen saver, shutdown) are recorded, never done,
// and listed as platform; errorCode is the code of the last failure shown
// (0 none); viewer lists the auxiliary viewer's pairs.
// In the plain output a line break inside result (LF or CR LF) is written as "\n".
#include <QJsonArray>
#include <QJsonObject>
#include <cmath>
#include <functional>

#include "calc/CalculatorEngine.h"
#include "calc/CalculatorSession.h"
#include "calc/KeySequence.h"
#include "cli/CliCommand.h"
#include "shell/runtime/NumberText.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Settings.h"

namespace {

// Reads "v1,v2,..." (at most four, point as decimal mark, empty items
// skipped) and hands each item to take(index, value, label); labels after a
// ":" only where labels are allowed. False with a reason on a bad item.
bool readStartValues(const QString& list, bool labels, QString& error,
                     const std::function<void(int, double, const QString*)>& take) {
  const QStringList items = list.split(QLatin1Char(','));
  if (items.size() > 4) {
    error = QStringLiteral("at most four values: %1").arg(list);
    return false;
  }
  for (int i = 0; i < items.size(); ++i) {
    QString item = items.at(i).trimmed();
    if (item.isEmpty()) continue;
    QString label;
    const qsizetype colon = labels ? item.indexOf(QLatin1Char(':')) : -1;
    if (colon >= 0) {
      label = item.mid(colon + 1);
      item = item.left(colon).trimmed();
    }
    bool ok = false;
    const double v = item.toDouble(&ok);
    if (!ok || !std::isfinite(v)) {
      error = QStringLiteral("not a number: %1").arg(item);
      return false;
    }
    take(i, v, colon >= 0 ? &label : nullptr);
  }
  return true;
}

QJsonObject statisticsJson(const CalculatorEngine& engine) {
  const StatisticsStore& st = program().stats;
  QJsonArray x, y;
  for (int i = 1; i <= st.nx; ++i) x.append(st.at(0, i));
  for (int i = 1; i <= st.ny; ++i) y.append(st.at(1, i));
  return {{QStringLiteral("nx"), st.nx},       {QStringLiteral("ny"), st.ny},
          {QStringLiteral("sumX"), st.sumX},   {QStringLiteral("sumY"), st.sumY},
          {QStringLiteral("sumX2"), st.sumX2}, {QStringLiteral("sumY2"), st.sumY2},
          {QStringLiteral("sumXY"), st.sumXY}, {QStringLiteral("regType"), engine.regType},
          {QStringLiteral("X"), x},            {QStringLiteral("Y"), y}};
}

// The system actions asked, without the recorder's verbs.
QStringList platformActions(const RecordingPlatform& recorder) {
  QStringList actions;
  for (QString call : recorder.calls) {
    for (const char* verb : {"powerAction ", "runCommand "}) {
      if (call.startsWith(QLatin1String(verb))) call.remove(0, static_cast<qsizetype>(qstrlen(verb)));
    }
    actions << call;
  }
  return actions;
}

int runKeys(CliContext& ctx) {
  QString memories, registers, settingsIn, settingsOut;
  ctx.takeOption(QStringLiteral("--settings"), settingsIn);
  ctx.takeOption(QStringLiteral("--save-settings"), settingsOut);
  ctx.takeOption(QStringLiteral("--memories"), memories);
  ctx.takeOption(QStringLiteral("--registers"), registers);
  QStringList files = ctx.takeOptions(QStringLiteral("--file"));
  const CalculatorKind first = ctx.takeFlag(QStringLiteral("--normal")) ? CalculatorKind::Normal : CalculatorKind::Scientific;
  if (const int code = ctx.refuseOptions()) return code;
  if (ctx.args.isEmpty()) return ctx.usage(QStringLiteral("keys takes a key sequence: keys \"12 + 3 =\""));
  const QString sequence = ctx.args.join(QLatin1Char(' '));
  QList<SessionStep> steps;
  QString error;
  if (!parseSessionSequence(sequence, first, steps, error)) return ctx.usage(QStringLiteral("keys: ") + error);
  if (!memories.isEmpty() &&
      !readStartValues(memories, false, error,
                       [](int i, double v, const QString*) { program().Memories[static_cast<size_t>(i)] = v; })) {
    return ctx.usage(QStringLiteral("keys --memories: ") + error);
  }
  if (!registers.isEmpty() &&
      !readStartValues(registers, true, error, [](int i, double v, const QString* label) {
        WriteRegister(i, v, label ? *label : RegisterLabel(i));
      })) {
    return ctx.usage(QStringLiteral("keys --registers: ") + error);
  }

  if (!settingsIn.isEmpty()) {
    if (const int error = readSettingsFile(settingsIn, program()).error) {
      return ctx.fail(QStringLiteral("keys --settings: cannot read %1 (error %2)").arg(settingsIn).arg(error));
    }
  }
  RecordingPlatform recorder;
  setPlatform(&recorder);
  struct PlatformBack {
    ~PlatformBack() { setPlatform(nullptr); }
  } platformBack;

  CalculatorSession session(first);
  session.fileDialog = [&files](const CalculatorEngine::FileDialogRequest&) {
    return files.isEmpty() ? QString() : files.takeFirst();
  };
  runSessionSteps(session, steps);
  const CalculatorEngine& engine = session.engine();
  if (!settingsOut.isEmpty()) {
    if (const int error = writeSettingsFile(settingsOut, program())) {
      return ctx.fail(QStringLiteral("keys --save-settings: cannot write %1 (error %2)").arg(settingsOut).arg(error));
    }
  }
  const QStringList actions = platformActions(recorder);

  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("window"), calculatorWindowName(session.shown()));
    ctx.json.insert(QStringLiteral("mode"), program().CalculatorMode.toText());
    ctx.json.insert(QStringLiteral("numero"), engine.numero.text());
    ctx.json.insert(QStringLiteral("result"), engine.result.text());
    ctx.json.insert(QStringLiteral("func"), engine.func);
    ctx.json.insert(QStringLiteral("errorState"), engine.errorState);
    ctx.json.insert(QStringLiteral("pendingOp"), engine.pendingOp);
    ctx.json.insert(QStringLiteral("entryActive"), engine.entryActive);
    ctx.json.insert(QStringLiteral("angulo"), engine.angulo);
    ctx.json.insert(QStringLiteral("temperat"), engine.temperat);
    ctx.json.insert(QStringLiteral("ivas"), engine.ivas);
    ctx.json.insert(QStringLiteral("HexDec"), engine.HexDec);
    ctx.json.insert(QStringLiteral("hypFlag"), engine.hypFlag);
    ctx.json.insert(QStringLiteral("errorCode"), engine.errorCode);
    QJsonArray viewer;
    for (qsizetype i = 0; i < engine.List3.size(); ++i) viewer.append(QJsonArray{engine.List3.at(i), engine.List4.value(i)});
    ctx.json.insert(QStringLiteral("viewer"), viewer);
    QJsonArray m, r;
    for (const QString& text : engine.m1) m.append(text);
    for (int i = 0; i < kRegisterCount; ++i) {
      r.append(QJsonObject{{QStringLiteral("value"), RegisterValue(i)}, {QStringLiteral("label"), RegisterLabel(i)}});
    }
    ctx.json.insert(QStringLiteral("memories"), m);
    ctx.json.insert(QStringLiteral("registers"), r);
    ctx.json.insert(QStringLiteral("history"), QJsonArray::fromStringList(engine.Combo1.lines()));
    ctx.json.insert(QStringLiteral("statistics"), statisticsJson(engine));
    ctx.json.insert(QStringLiteral("Text4"), engine.Text4);
    ctx.json.insert(QStringLiteral("platform"), QJsonArray::fromStringList(actions));
    return 0;
  }
  // One line per field: a line break inside result is written as "\n".
  QString resultLine = engine.result.text();
  resultLine.replace(QLatin1String("\r\n"), QLatin1String("\\n"));
  resultLine.replace(QLatin1Char('\n'), QLatin1String("\\n"));
  ctx.out << "numero\t" << engine.numero.text() << '\n'
          << "result\t" << resultLine << '\n'
          << "func\t" << engine.func << '\n'
          << "errorState\t" << engine.errorState << '\n'
          << "pendingOp\t" << engine.pendingOp << '\n'
          << "entryActive\t" << engine.entryActive << '\n'
          << "angulo\t" << engine.angulo << '\n'
          << "temperat\t" << engine.temperat << '\n'
          << "ivas\t" << engine.ivas << '\n'
          << "HexDec\t" << engine.HexDec << '\n'
          << "hypFlag\t" << engine.hypFlag << '\n'
          << "errorCode\t" << engine.errorCode << '\n';
  for (qsizetype i = 0; i < engine.List3.size(); ++i) ctx.out << "viewer\t" << engine.List3.at(i) << '\t' << engine.List4.value(i) << '\n';
  for (int i = 0; i < 4; ++i) ctx.out << "memory" << i + 1 << '\t' << engine.m1[static_cast<size_t>(i)] << '\n';
  for (int i = 0; i < kRegisterCount; ++i) {
    ctx.out << "register" << i + 1 << '\t' << rt::NumberToText(RegisterValue(i)) << '\t' << RegisterLabel(i) << '\n';
  }
  for (const QString& line : engine.Combo1.lines()) ctx.out << "history\t" << line << '\n';
  const StatisticsStore& st = program().stats;
  ctx.out << "nx\t" << st.nx << '\n' << "ny\t" << st.ny << '\n' << "regType\t" << engine.regType << '\n';
  for (int list = 0; list < 2; ++list) {
    for (int i = 1; i <= st.count(list); ++i) {
      ctx.out << (list == 0 ? "X\t" : "Y\t") << i << '\t' << rt::NumberToText(st.at(list, i)) << '\n';
    }
  }
  ctx.out << "Text4\t" << engine.Text4 << '\n';
  for (const QString& action : actions) ctx.out << "platform\t" << action << '\n';
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("keys",
                   "the calculator after a key sequence: keys [--normal] [--answer T|button:N]...\n"
                   "            [--memories M1,M2,M3,M4] [--registers R1[:LABEL],R2,...] \"12 + 3 =\"\n"
                   "            memories and registers start from the values given (point as decimal mark;\n"
                   "            an empty item keeps the default, a register without :LABEL keeps its label)\n"
                   "            [--file PATH]... answers the file dialogs of abrirest, guardarest, exporcsv;\n"
                   "            statistics tokens: X Y Command15(i) Command2(i) Command16(i) Command84(i)\n"
                   "            Regresion(i) MnuClrSTD(i) ordenaEstad(i) MSFlexGrid1(g)=row changecell borracell\n"
                   "            right:CONTROL is a right click (right:Command51 asks the random base)\n"
                   "            --normal starts in the normal calculator (comand2); normalcalc and cientificacalc\n"
                   "            switch windows (the tokens after them go to the window shown)\n"
                   "            Text4=TEXT right:CONTROL; --settings F reads F first, --save-settings F writes F",
                   runKeys);
