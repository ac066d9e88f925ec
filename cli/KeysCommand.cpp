// calvix-cli keys: the scientific calculator driven by a key sequence.
//
//   calvix-cli keys [--answer TEXT]... "<sequence>"
//
// A fresh calculator, as the window has it on load, takes the keys of the
// sequence (see calc/KeySequence.h for the tokens); then its state is printed:
// numero, result, func, errorState, pendingOp, entryActive, the modes
// (angulo, temperat, ivas, HexDec, hypFlag) and the history.
// Each --answer is taken by the next message the keys show: typed into an
// input box (the bases of Command91 and Command92) and its first button
// pressed, or the index of the button pressed in a plain message;
// "--answer button:N" presses button N of either (button:1 cancels a box).
// In the plain output a line break inside result is written as "\n".
#include <QJsonArray>
#include <QJsonObject>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "cli/CliCommand.h"

namespace {

int runKeys(CliContext& ctx) {
  if (ctx.args.isEmpty()) return ctx.usage(QStringLiteral("keys takes a key sequence: keys \"12 + 3 =\""));
  const QString sequence = ctx.args.join(QLatin1Char(' '));
  QList<KeyStep> steps;
  QString error;
  if (!parseKeySequence(sequence, steps, error)) return ctx.usage(QStringLiteral("keys: ") + error);

  CalculatorEngine engine;
  engine.Form_Activate();
  runKeySteps(engine, steps);

  if (ctx.jsonOutput) {
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
    ctx.json.insert(QStringLiteral("history"), QJsonArray::fromStringList(engine.Combo1.lines()));
    return 0;
  }
  // One line per field: a line break inside result is written as "\n".
  QString resultLine = engine.result.text();
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
          << "hypFlag\t" << engine.hypFlag << '\n';
  for (const QString& line : engine.Combo1.lines()) ctx.out << "history\t" << line << '\n';
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("keys",
                   "the scientific calculator after a key sequence: keys [--answer T|button:N]... \"12 + 3 =\"",
                   runKeys);
