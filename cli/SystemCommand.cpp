// calvix-cli system: a linear system solved by the calculator's tool.
//
//   calvix-cli system [--n N] ROWS
//
// Command39 with N typed in its box (by default the count of rows of ROWS)
// and the fast mode chosen; the cells take ROWS ("1 1 3;1 -1 1": rows by
// ";", cells by blanks, each row A(i,1) ... A(i,n) K(i)); then Command85(1)
// solves. Plain output: the solution lines ("X1 = 2.e+0"); --json: X (the
// value texts), rankA and rankAK. An indeterminate or incompatible system
// shows its message, X stays empty and the exit code is 0; a failure (a
// bad N, a non-numeric cell) prints its message on stderr and exits with 1
// (--json adds error and errorCode).
#include <QJsonArray>
#include <QJsonObject>

#include "calc/CalculatorEngine.h"
#include "cli/CliCommand.h"
#include "shell/ErrorReport.h"

namespace {

int runSystem(CliContext& ctx) {
  QString n;
  const bool hasN = ctx.takeOption(QStringLiteral("--n"), n);
  if (const int code = ctx.refuseOptions()) return code;
  if (ctx.args.size() != 1) return ctx.usage(QStringLiteral("system takes the rows: system \"1 1 3;1 -1 1\""));
  QList<QStringList> rows;
  for (const QString& row : ctx.args.first().split(QLatin1Char(';'))) {
    const QStringList cells = row.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (!cells.isEmpty()) rows << cells;
  }
  if (!hasN) n = QString::number(rows.size());

  // The box of Command39 and the mode list come first; the user's answers
  // take the messages after them.
  if (auto* scripted = dynamic_cast<ScriptedPresenter*>(messagePresenter())) {
    scripted->clear();
    scripted->queueAnswer(n);
    scripted->queueAnswer(QStringLiteral("1"));
    for (const QString& a : ctx.answers) scripted->queueAnswer(a);
  }
  CalculatorEngine engine;
  LinearSystem& s = engine.linearSystem;
  s.Command39_Click();
  if (s.errorCode == 0) {
    for (int r = 0; r < rows.size() && r < s.n; ++r) {
      for (int c = 0; c < rows.at(r).size() && c <= s.n; ++c) s.setCell(r, c, rows.at(r).at(c));
    }
    s.Command85_Click(1);
  }
  const QString error = s.errorCode != 0 ? ErrorText(s.errorCode) : QString();
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("X"), QJsonArray::fromStringList(s.X));
    ctx.json.insert(QStringLiteral("rankA"), s.rankA);
    ctx.json.insert(QStringLiteral("rankAK"), s.rankAK);
    if (s.errorCode != 0) {
      ctx.json.insert(QStringLiteral("error"), error);
      ctx.json.insert(QStringLiteral("errorCode"), s.errorCode);
      return 1;
    }
    return 0;
  }
  if (s.errorCode != 0) return ctx.fail(error);
  if (!s.solutionText.isEmpty()) ctx.out << s.solutionText << '\n';
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("system",
                   "a linear system solved: system [--n N] \"A11 A12 K1;A21 A22 K2\"\n"
                   "            prints X1 = ..., one unknown per line",
                   runSystem);
