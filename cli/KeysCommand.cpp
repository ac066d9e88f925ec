// calvix-cli keys: the scientific calculator driven by a key sequence.
//
//   calvix-cli keys [--answer TEXT]... "<sequence>"
//
// A fresh calculator, as the window has it on load, takes the keys of the
// sequence (see calc/KeySequence.h for the tokens); then its state is printed:
// numero, result, func, errorState, pendingOp, entryActive and the history.
// Messages the keys show are answered by the --answer values, in order.
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
    ctx.json.insert(QStringLiteral("history"), QJsonArray::fromStringList(engine.Combo1.lines()));
    return 0;
  }
  ctx.out << "numero\t" << engine.numero.text() << '\n'
          << "result\t" << engine.result.text() << '\n'
          << "func\t" << engine.func << '\n'
          << "errorState\t" << engine.errorState << '\n'
          << "pendingOp\t" << engine.pendingOp << '\n'
          << "entryActive\t" << engine.entryActive << '\n';
  for (const QString& line : engine.Combo1.lines()) ctx.out << "history\t" << line << '\n';
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("keys", "the scientific calculator after a key sequence: keys [--answer T]... \"12 + 3 =\"",
                   runKeys);
