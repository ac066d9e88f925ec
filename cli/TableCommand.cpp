// calvix-cli table: the function table without its window.
//
//   calvix-cli table --f "<F>" [--g "<G>"] --start A --end B (--points N | --step H)
//                    [--vars "A=2:B=3"] [--angle deg|gra|rad] [--evl FILE]
//
// The boxes are filled as a user fills them: each character of the interval
// boxes goes through their key filter, each box is checked as the user
// leaves it (so --points 1001 becomes 200 with its message), then Evaluate.
// With --evl the file is opened first and the other options change what it
// set. Prints one line per data row, the seven cells separated by tabs, as
// the table holds them; messages go to stderr. Exit code 1 when the table
// ends up empty.
#include <QJsonArray>
#include <QJsonObject>

#include "cli/CliCommand.h"
#include "funcs/FunctionTable.h"
#include "shell/ProgramState.h"

namespace {

// Types a text into a box through its key filter.
QString typed(const QString& text, int (FunctionTable::*keyPress)(int), FunctionTable& t) {
  QString box;
  for (QChar c : text) {
    const int key = (t.*keyPress)(c.unicode());
    if (key != 0) box += QChar(key);
  }
  return box;
}

QJsonObject boxes(const FunctionTable& t) {
  QJsonObject o;
  o.insert(QStringLiteral("txtExpression"), t.txtExpression);
  o.insert(QStringLiteral("Text2"), t.Text2);
  o.insert(QStringLiteral("txtVariables"), t.txtVariables);
  o.insert(QStringLiteral("txtStart"), t.txtStart);
  o.insert(QStringLiteral("txtEnd"), t.txtEnd);
  o.insert(QStringLiteral("Combo2"), t.Combo2);
  o.insert(QStringLiteral("Text1"), t.Text1);
  o.insert(QStringLiteral("Check1"), t.Check1);
  o.insert(QStringLiteral("Label1"), t.Label1);
  return o;
}

int runTable(CliContext& ctx) {
  QString f, g, start, end, points, step, vars, angle, evl;
  const bool hasF = ctx.takeOption(QStringLiteral("--f"), f);
  const bool hasG = ctx.takeOption(QStringLiteral("--g"), g);
  const bool hasStart = ctx.takeOption(QStringLiteral("--start"), start);
  const bool hasEnd = ctx.takeOption(QStringLiteral("--end"), end);
  const bool hasPoints = ctx.takeOption(QStringLiteral("--points"), points);
  const bool hasStep = ctx.takeOption(QStringLiteral("--step"), step);
  const bool hasVars = ctx.takeOption(QStringLiteral("--vars"), vars);
  const bool hasAngle = ctx.takeOption(QStringLiteral("--angle"), angle);
  const bool hasEvl = ctx.takeOption(QStringLiteral("--evl"), evl);
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("table: unexpected argument ") + ctx.args.first());
  if (hasPoints && hasStep) return ctx.usage(QStringLiteral("table takes --points or --step, not both"));
  if (hasAngle && angle != QLatin1String("deg") && angle != QLatin1String("gra") && angle != QLatin1String("rad")) {
    return ctx.usage(QStringLiteral("--angle takes deg, gra or rad"));
  }

  FunctionTable t;
  t.Form_Load();
  t.Form_Activate();
  if (hasEvl && !t.openFile(evl)) return 1;
  while (hasAngle && t.Label1 != angle) t.Command2_Click();
  if (hasVars) t.txtVariables = typed(vars, &FunctionTable::txtVariables_KeyPress, t);
  if (hasF) t.txtExpression = f;
  if (hasG) {
    t.Text2 = g;
    if (t.Check1 == 0) t.Check1_Click();
  }
  if (hasStart) {
    t.txtStart = typed(start, &FunctionTable::txtStart_KeyPress, t);
    t.txtStart_LostFocus();
  }
  if (hasEnd) {
    t.txtEnd = typed(end, &FunctionTable::txtEnd_KeyPress, t);
    t.txtEnd_LostFocus();
  }
  if (hasPoints) {
    t.Option1_Click(0);
    t.Combo2 = points;
    t.Combo2_LostFocus();
  } else if (hasStep) {
    t.Option1_Click(1);
    t.Text1 = step;
    t.Text1_LostFocus();
  }
  t.cmdResult_Click();

  const int rows = t.operationMode == 1 ? t.expressionRow : program().pointCount;
  QJsonArray table;
  for (int r = 1; r <= rows; ++r) {
    QStringList cells;
    for (int c = 0; c < FunctionTable::kColumns; ++c) cells << t.TextMatrix(r, c);
    if (ctx.jsonOutput) table.append(QJsonArray::fromStringList(cells));
    else ctx.out << cells.join(QLatin1Char('\t')) << '\n';
  }
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("rows"), table);
    ctx.json.insert(QStringLiteral("pointCount"), program().pointCount);
    ctx.json.insert(QStringLiteral("hasG"), program().hasG);
    ctx.json.insert(QStringLiteral("boxes"), boxes(t));
  }
  return rows > 0 ? 0 : 1;
}

}  // namespace

CALVIX_CLI_COMMAND("table",
                   "tabulate F(x) [and G(x)]: table --f F [--g G] --start A --end B (--points N | --step H) "
                   "[--vars \"A=2:B=3\"] [--angle deg|gra|rad] [--evl FILE]",
                   runTable);
