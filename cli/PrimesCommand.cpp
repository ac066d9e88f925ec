// calvix-cli primes: the prime listing of the scientific calculator.
//
//   calvix-cli primes --from A [--to B]
//
// A fresh calculator presses Command93(1); its two boxes are answered A and B
// (without --to the second box keeps its default, 1000) and a large interval's
// question is answered "yes". The primes listed in the viewer are printed one
// per line; --json gives "primes" and "count", the count of the viewer's
// closing line. A refused interval prints the calculator's message on stderr
// and exits 1 (--json adds "error" and "errorCode").
#include <QJsonArray>

#include "calc/CalculatorEngine.h"
#include "cli/CliCommand.h"
#include "shell/MessageService.h"
#include "shell/Strings.h"

namespace {

int runPrimes(CliContext& ctx) {
  QString from, to;
  const bool hasFrom = ctx.takeOption(QStringLiteral("--from"), from);
  const bool hasTo = ctx.takeOption(QStringLiteral("--to"), to);
  if (const int code = ctx.refuseOptions()) return code;
  if (!hasFrom || !ctx.args.isEmpty()) return ctx.usage(QStringLiteral("primes takes --from A [--to B]"));

  auto* presenter = dynamic_cast<ScriptedPresenter*>(messagePresenter());
  if (!presenter) return ctx.fail(QStringLiteral("primes: no message presenter"));
  // The listing's own answers: the two bounds, then "yes" to a large interval.
  presenter->clear();
  presenter->queueAnswer(from);
  presenter->queueAnswer(hasTo ? to : QStringLiteral("button:0"));
  presenter->queueAnswer(QStringLiteral("0"));

  CalculatorEngine engine;
  engine.Form_Activate();
  engine.Command93_Click(1);

  if (engine.errorCode != 0) {
    if (ctx.jsonOutput) {
      ctx.json.insert(QStringLiteral("error"), engine.result.text());
      ctx.json.insert(QStringLiteral("errorCode"), engine.errorCode);
    }
    return ctx.fail(engine.result.text());
  }
  // The viewer: three heading lines, a line per prime, the closing count.
  QJsonArray primes;
  const qsizetype last = engine.List4.size() - 1;
  for (qsizetype i = 3; i < last; ++i) {
    if (ctx.jsonOutput) primes.append(engine.List4.at(i).toLongLong());
    else ctx.out << engine.List4.at(i) << '\n';
  }
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("primes"), primes);
    ctx.json.insert(QStringLiteral("count"), last >= 0 ? engine.List4.at(last).toLongLong() : 0);
  }
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("primes",
                   "the calculator's prime listing: primes --from A [--to B] (B defaults to 1000;\n"
                   "            a prime per line, at most the viewer's capacity)",
                   runPrimes);
