// calvix-cli matrix: one operation of the calculator's matrix panel.
//
//   calvix-cli matrix OP [--a M] [--b M] [--c M] [--on A|B|C]
//
// M gives a matrix as the grid holds it: rows separated by ";", cell texts
// by blanks ("1 2;3 4"); a matrix not given stays undefined. OP is one of
//   sum difference product divide        (Command75(0..3): A+B, A-B, A*B, A*inverse(B))
//   scalar opposite transpose adjoint inverse det rank dependence
//                                        (MatrizOp(0..7) on the grid --on, A by default)
//   copy                                 (MatrizCcopia: C into --on)
//   exchange                             (ChangeMatriz: A and B)
//   random                               (Command77 on --on)
// The scalar product takes its factor from the next --answer.
// Plain output: C, a row per line, cells separated by tabs. --json: A, B and
// C as rows of cell texts, result, numero and dependentRows. A failure
// prints its message on stderr and exits with 1 (--json adds error and
// errorCode, the n of string 2000 + n; 31 an unexpected failure).
#include <QJsonArray>
#include <QJsonObject>

#include "calc/CalculatorEngine.h"
#include "cli/CliCommand.h"

namespace {

QList<QStringList> parseMatrix(const QString& text) {
  QList<QStringList> rows;
  for (const QString& row : text.split(QLatin1Char(';'))) {
    const QStringList cells = row.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (!cells.isEmpty()) rows << cells;
  }
  return rows;
}

QJsonArray gridJson(const MatrixModel::Grid& g) {
  QJsonArray rows;
  for (int r = 0; r < g.rows; ++r) {
    QJsonArray cells;
    for (int c = 0; c < g.cols; ++c) cells.append(g.cell(r, c));
    rows.append(cells);
  }
  return rows;
}

int runMatrix(CliContext& ctx) {
  QString texts[3], on = QStringLiteral("A");
  const bool given[3] = {ctx.takeOption(QStringLiteral("--a"), texts[0]), ctx.takeOption(QStringLiteral("--b"), texts[1]),
                         ctx.takeOption(QStringLiteral("--c"), texts[2])};
  ctx.takeOption(QStringLiteral("--on"), on);
  if (const int code = ctx.refuseOptions()) return code;
  if (ctx.args.size() != 1) return ctx.usage(QStringLiteral("matrix takes one operation: matrix det --a \"1 2;3 4\""));
  const int target = QStringList{"A", "B", "C"}.indexOf(on.toUpper());
  if (target < 0) return ctx.usage(QStringLiteral("matrix --on takes A, B or C"));

  static const QStringList kPairs{"sum", "difference", "product", "divide"};
  static const QStringList kOps{"scalar", "opposite", "transpose", "adjoint", "inverse", "det", "rank", "dependence"};
  const QString op = ctx.args.first();
  if (!kPairs.contains(op) && !kOps.contains(op) && op != QLatin1String("copy") && op != QLatin1String("exchange") &&
      op != QLatin1String("random")) {
    return ctx.usage(QStringLiteral("unknown matrix operation: ") + op);
  }

  CalculatorEngine engine;
  MatrixModel& m = engine.matrices;
  for (int i = 0; i < 3; ++i) {
    if (given[i]) m.setGrid(i, parseMatrix(texts[i]));
  }
  m.clickedGrid = target;
  if (kPairs.contains(op)) m.Command75_Click(static_cast<int>(kPairs.indexOf(op)));
  else if (kOps.contains(op)) m.MatrizOp_Click(static_cast<int>(kOps.indexOf(op)));
  else if (op == QLatin1String("copy")) m.MatrizCcopia_Click();
  else if (op == QLatin1String("exchange")) m.ChangeMatriz_Click();
  else m.Command77_Click(target);

  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("A"), gridJson(m.MSFlexGrid2[0]));
    ctx.json.insert(QStringLiteral("B"), gridJson(m.MSFlexGrid2[1]));
    ctx.json.insert(QStringLiteral("C"), gridJson(m.MSFlexGrid2[2]));
    ctx.json.insert(QStringLiteral("result"), engine.result.text());
    ctx.json.insert(QStringLiteral("numero"), engine.numero.text());
    QJsonArray dependent;
    for (int row : m.dependentRows) dependent.append(row);
    ctx.json.insert(QStringLiteral("dependentRows"), dependent);
    if (m.errorCode != 0) {
      ctx.json.insert(QStringLiteral("error"), m.errorText);
      ctx.json.insert(QStringLiteral("errorCode"), m.errorCode);
    }
  }
  if (m.errorCode != 0) return ctx.jsonOutput ? 1 : ctx.fail(m.errorText);
  if (!ctx.jsonOutput) {
    const MatrixModel::Grid& c = m.MSFlexGrid2[2];
    for (int r = 0; r < c.rows; ++r) {
      QStringList cells;
      for (int col = 0; col < c.cols; ++col) cells << c.cell(r, col);
      ctx.out << cells.join(QLatin1Char('\t')) << '\n';
    }
  }
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("matrix",
                   "one operation of the matrix panel: matrix OP [--a M] [--b M] [--c M] [--on A|B|C]\n"
                   "            M is \"1 2;3 4\" (rows by ';', cells by blanks); OP: sum difference product\n"
                   "            divide scalar opposite transpose adjoint inverse det rank dependence copy\n"
                   "            exchange random; prints C, a row per line, cells separated by tabs",
                   runMatrix);
