// calvix-cli stats: the measures and the regression of a statistics file.
//
//   calvix-cli stats --dat FILE [--type linear|power|exponential]
//
// The file is opened as the calculator's abrirest opens it (the extension
// rule, the 6000 limit, a damaged file refused with the message of code 1:
// exit code 1). Then, for X and for Y: the count, Sum, Sum², mean, geometric
// mean, deviations n and n-1, maximum and minimum; for the pairs: population,
// Sum XY and the regression of the type asked (linear by default) with the
// mean and deviation of X with Y as frequencies, a, b, r² and the pairs kept.
// A measure that fails shows the calculator's error text in its place. The
// question about discarded pairs takes the next --answer (0 yes, 1 no).
// Plain output: one "group.name<TAB>value" line each (groups X, Y, pairs,
// regression); --json: an object of the same groups.
#include <QJsonObject>
#include <QJsonValue>
#include <functional>

#include "calc/CalculatorEngine.h"
#include "cli/CliCommand.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/StatisticsStore.h"
#include "shell/Strings.h"

namespace {

// A value, or the text of the failure that took its place.
struct Answer {
  double value = 0;
  QString error;
};

Answer attempt(const std::function<double()>& compute) {
  try {
    return {compute(), {}};
  } catch (const rt::RuntimeError&) {
    return {0, ErrorText(31)};
  }
}

// "group.name<TAB>value" lines, or {"group": {"name": value}} in JSON.
class Output {
 public:
  explicit Output(CliContext& ctx) : ctx_(ctx) {}
  void add(const QString& name, const Answer& a) {
    if (a.error.isEmpty()) put(name, a.value, rt::NumberToText(a.value));
    else put(name, a.error, a.error);
  }
  void addText(const QString& name, const QString& text) { put(name, text, text); }
  void addCount(const QString& name, int n) { put(name, n, QString::number(n)); }

 private:
  void put(const QString& name, const QJsonValue& value, QString text) {
    if (!ctx_.jsonOutput) {
      text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
      ctx_.out << name << '\t' << text << '\n';
      return;
    }
    const QString group = name.section(QLatin1Char('.'), 0, 0);
    QJsonObject inner = ctx_.json.value(group).toObject();
    inner.insert(name.section(QLatin1Char('.'), 1), value);
    ctx_.json.insert(group, inner);
  }

  CliContext& ctx_;
};

void listMeasures(Output& o, int list) {
  const StatisticsStore& s = program().stats;
  const QString l = list == 0 ? QStringLiteral("X.") : QStringLiteral("Y.");
  o.addCount(l + QStringLiteral("n"), s.count(list));
  static const char* const kNames[] = {"sum", "sum2", "mean", "geometricMean", "stdN", "stdN1"};
  for (int m = 0; m < 6; ++m) {
    const Answer a = s.count(list) < 1 ? Answer{0, ErrorText(16)} : attempt([&] {
      return s.measure(list, static_cast<StatisticsStore::Measure>(m));
    });
    o.add(l + QString::fromLatin1(kNames[m]), a);
  }
  double max = 0, min = 0;
  if (s.count(list) >= 1) s.extremes(list, max, min);
  const Answer none{0, ErrorText(16)};
  o.add(l + QStringLiteral("max"), s.count(list) < 1 ? none : Answer{max, {}});
  o.add(l + QStringLiteral("min"), s.count(list) < 1 ? none : Answer{min, {}});
}

void pairMeasures(Output& o, int type) {
  StatisticsStore& s = program().stats;
  static const int kTypeNames[] = {4201, 4202, 4203};
  o.addText(QStringLiteral("regression.type"), Res(kTypeNames[type]));
  if (s.nx != s.ny || s.nx < 1) {
    o.addText(QStringLiteral("pairs.error"), ErrorText(s.nx != s.ny ? 5 : 16));
    return;
  }
  o.add(QStringLiteral("pairs.population"), {s.sumY, {}});
  o.add(QStringLiteral("pairs.sumXY"), {s.sumXY, {}});
  const RegressionResult r = RegressionPass(s.X.data(), s.Y.data(), s.nx, static_cast<RegressionType>(type),
                                            s.regAskedOnce, s.regAbort, Res(4007));
  if (r.code != 0) {
    o.addText(QStringLiteral("regression.error"), ErrorText(r.code));
    return;
  }
  const Answer noFrequencies{0, ErrorText(53)};
  o.add(QStringLiteral("pairs.meanFreq"), r.freqValid ? Answer{r.meanFreq, {}} : noFrequencies);
  o.add(QStringLiteral("pairs.stdFreq"), r.freqValid ? Answer{r.stdFreq, {}} : noFrequencies);
  o.add(QStringLiteral("regression.a"), {r.a, {}});
  o.add(QStringLiteral("regression.b"), {r.b, {}});
  o.add(QStringLiteral("regression.r2"), {r.r2, {}});
  o.addCount(QStringLiteral("regression.used"), r.used);
  o.addCount(QStringLiteral("regression.discarded"), s.nx - r.used);
}

int runStats(CliContext& ctx) {
  QString path, typeName;
  const bool hasDat = ctx.takeOption(QStringLiteral("--dat"), path);
  ctx.takeOption(QStringLiteral("--type"), typeName);
  if (const int code = ctx.refuseOptions()) return code;
  if (!hasDat || path.isEmpty()) return ctx.usage(QStringLiteral("stats takes --dat FILE"));
  const QStringList types{QStringLiteral("linear"), QStringLiteral("power"), QStringLiteral("exponential")};
  const int type = typeName.isEmpty() ? 0 : static_cast<int>(types.indexOf(typeName));
  if (type < 0) return ctx.usage(QStringLiteral("stats --type takes linear, power or exponential"));
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("stats: unexpected argument ") + ctx.args.first());

  auto* recorder = dynamic_cast<ScriptedPresenter*>(messagePresenter());
  const std::size_t before = recorder ? recorder->shown().size() : 0;
  CalculatorEngine engine;
  engine.fileDialog = [&path](const CalculatorEngine::FileDialogRequest&) { return path; };
  engine.abrirest_Click();
  if (recorder && recorder->shown().size() > before) {
    // Refused: the message is already on stderr (or in the JSON messages).
    if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("error"), recorder->shown().back().text);
    return 1;
  }
  Output out(ctx);
  listMeasures(out, 0);
  listMeasures(out, 1);
  pairMeasures(out, type);
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("stats",
                   "the measures and regression of a statistics file: stats --dat FILE\n"
                   "            [--type linear|power|exponential]",
                   runStats);
