// calvix-cli eval: evaluates a formula with the function table's engine and
// math library, fed as the table feeds it.
//
//   calvix-cli eval [--x VALUE] [--vars "A=2:B=3"] [--angle deg|gra|rad] "<expression>"
//
// The constants are typed as into the table's constants box (a comma becomes
// a point, so "A=2,5" is 2.5). With --x the constants and x go in as one statement text, "<vars>: x= <Str(x)>",
// so x is rounded to the 15 digits of its text as in the table; without it
// the constants alone. Prints the value as the table stores it (the default
// text in the system's form, or the text of BIN/BTD). A domain failure shows
// its message (on stderr, or in the JSON "messages") and the value returned;
// an engine failure prints "Error:  " and the description and exits 1.
#include <QJsonObject>

#include "cli/CliCommand.h"
#include "cli/TableOptions.h"
#include "funcs/AddInFunctions.h"
#include "funcs/Evaluator.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"

namespace {

QString typeName(const rt::Variant& v) {
  switch (v.type()) {
    case rt::VType::String: return QStringLiteral("text");
    case rt::VType::Boolean: return QStringLiteral("boolean");
    case rt::VType::Empty: return QStringLiteral("empty");
    default: return QStringLiteral("number");
  }
}

int runEval(CliContext& ctx) {
  QString xText;
  QString vars;
  QString angle = QStringLiteral("deg");
  const bool hasX = ctx.takeOption(QStringLiteral("--x"), xText);
  if (ctx.takeOption(QStringLiteral("--vars"), vars)) vars = typedConstants(vars);
  ctx.takeOption(QStringLiteral("--angle"), angle);
  if (const int code = ctx.refuseOptions()) return code;
  if (ctx.args.size() != 1) {
    return ctx.usage(QStringLiteral("eval takes one expression: eval [--x V] [--vars \"A=2:B=3\"] [--angle deg|gra|rad] EXPR"));
  }
  ProgramState& p = program();
  if (angle == QLatin1String("deg")) p.angleFactor = 4 * rt::Atn(1) / 180;
  else if (angle == QLatin1String("gra")) p.angleFactor = 4 * rt::Atn(1) / 200;
  else if (angle == QLatin1String("rad")) p.angleFactor = 1.0;
  else return ctx.usage(QStringLiteral("--angle takes deg, gra or rad"));
  double x = 0;
  if (hasX && !rt::tryTextToDouble(xText, x)) return ctx.usage(QStringLiteral("--x takes a number"));

  // The evaluator's module, as the function table names itself in error titles.
  p.MainMenuTitle = Res(3);
  QString xCell = hasX ? rt::NumberToText(x) : QString();
  AddInFunctions library;
  library.setXCellHook([&xCell](const QString& text) { xCell = text; });
  Evaluator engine;
  engine.AddObject(QStringLiteral("MathFunction"), &library, true);

  rt::Variant value;
  try {
    if (hasX) engine.AddCode(vars + QStringLiteral(": x= ") + rt::Str(x));
    else if (!vars.isEmpty()) engine.AddCode(vars);
    value = engine.Eval(ctx.args.first());
  } catch (const EvalError& e) {
    const QString message = Res(2800) + QStringLiteral(":  ") + e.description();
    if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("error"), message);
    return ctx.fail(message);
  }
  const QString text = value.toText();
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("value"), text);
    ctx.json.insert(QStringLiteral("type"), typeName(value));
    if (hasX) ctx.json.insert(QStringLiteral("xCell"), xCell);
  } else {
    ctx.out << text << '\n';
  }
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("eval", "evaluate a formula: eval [--x V] [--vars \"A=2:B=3\"] [--angle deg|gra|rad] EXPR", runEval);
