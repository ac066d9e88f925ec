// calvix-cli table: the function table without its window.
//
//   calvix-cli table --f "<F>" [--g "<G>"] --start A --end B (--points N | --step H)
//                    [--vars "A=2:B=3"] [--angle deg|gra|rad] [--evl FILE]
//
// The boxes are filled as a user fills them (cli/TableOptions.h). Prints one
// line per data row, the seven cells separated by tabs, as
// the table holds them; messages go to stderr. Exit code 1 when the table
// ends up empty.
#include <QJsonArray>
#include <QJsonObject>

#include "cli/CliCommand.h"
#include "cli/TableOptions.h"
#include "funcs/FunctionTable.h"
#include "shell/ProgramState.h"

namespace {

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
  TableOptions options;
  if (const int code = takeTableOptions(ctx, options)) return code;
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("table: unexpected argument ") + ctx.args.first());
  FunctionTable t;
  if (!evaluateTable(options, t)) return 1;

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
