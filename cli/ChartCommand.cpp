// calvix-cli chart: the statistics chart window over the statistics store.
//
//   calvix-cli chart [--keys SEQ] [--series xy|x|y] [--kind N] [--png FILE [--width W --height H]]
//
// --keys first runs the scientific calculator on SEQ (as `keys` does), so
// its X and Y keys fill the store. graficoest then tests the store: refused,
// its message goes to stderr and the exit code is 1. Otherwise the window's
// model loads, seriesdata (0 xy, 1 x, 2 y; default xy) is clicked, then
// tipo(N) when given (1-7, 9-13), and --png saves the chart as drawn, W by H
// pixels (800 by 600 by default). Output: Label1, tipo, series (the series
// included), a, b, r2 (the regression boxes as shown) and sounds (the sound
// files played), one "NAME<TAB>value" line each; --json the same keys.
#include <QFileInfo>
#include <QJsonArray>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "cli/CliCommand.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "stats/ChartDrawingView.h"
#include "stats/ChartModel.h"

namespace {

bool wholeNumber(const QString& text, int low, int high, int& value) {
  bool ok = false;
  value = text.toInt(&ok);
  return ok && value >= low && value <= high;
}

QStringList soundFiles(const QStringList& calls) {
  QStringList out;
  const QString play = QStringLiteral("playSound ");
  for (const QString& c : calls) {
    if (c.startsWith(play)) out << QFileInfo(c.mid(play.size()).section(u' ', 0, -2)).fileName();
  }
  return out;
}

int runChart(CliContext& ctx) {
  QString keys, series = QStringLiteral("xy"), kindText, png, widthText, heightText;
  ctx.takeOption(QStringLiteral("--keys"), keys);
  ctx.takeOption(QStringLiteral("--series"), series);
  const bool hasKind = ctx.takeOption(QStringLiteral("--kind"), kindText);
  ctx.takeOption(QStringLiteral("--png"), png);
  const bool hasWidth = ctx.takeOption(QStringLiteral("--width"), widthText);
  const bool hasHeight = ctx.takeOption(QStringLiteral("--height"), heightText);
  if (const int code = ctx.refuseOptions()) return code;
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("chart takes no arguments: ") + ctx.args.join(u' '));
  const QStringList seriesNames{QStringLiteral("xy"), QStringLiteral("x"), QStringLiteral("y")};
  const int seriesIndex = static_cast<int>(seriesNames.indexOf(series));
  if (seriesIndex < 0) return ctx.usage(QStringLiteral("chart --series takes xy, x or y"));
  int kind = 0, width = 800, height = 600;
  if (hasKind && (!wholeNumber(kindText, 1, 13, kind) || !isChartKind(kind))) {
    return ctx.usage(QStringLiteral("chart --kind takes 1 to 7 or 9 to 13"));
  }
  if ((hasWidth && !wholeNumber(widthText, 1, 10000, width)) || (hasHeight && !wholeNumber(heightText, 1, 10000, height))) {
    return ctx.usage(QStringLiteral("chart --width and --height take a whole number from 1 to 10000"));
  }
  if ((hasWidth || hasHeight) && png.isEmpty()) return ctx.usage(QStringLiteral("chart --width and --height go with --png"));

  // Sounds are recorded, never played: the calculator's own before the
  // chart's are forgotten.
  RecordingPlatform recorder;
  setPlatform(&recorder);
  CalculatorEngine engine;
  engine.Form_Activate();
  if (!keys.isEmpty()) {
    QString error;
    if (!runKeySequence(engine, keys, &error)) {
      setPlatform(nullptr);
      return ctx.usage(QStringLiteral("chart --keys: ") + error);
    }
  }
  recorder.calls.clear();
  const ScriptedPresenter* presenter = dynamic_cast<ScriptedPresenter*>(messagePresenter());
  const std::size_t shownBefore = presenter ? presenter->shown().size() : 0;
  const StatisticsStore& store = program().stats;
  if (!chartStoreAllowed(store)) {
    setPlatform(nullptr);
    if (presenter && presenter->shown().size() > shownBefore) {
      return 1;  // the message is already on stderr
    }
    return ctx.fail(QStringLiteral("chart refused"));
  }
  ChartModel model;
  model.Form_Load();
  model.loadStore(store, engine.regType);
  model.seriesdata_Click(seriesIndex);
  if (hasKind) model.tipo_Click(kind);
  if (!png.isEmpty()) {
    const QImage image = charts::renderChart(model, QSize(width, height));
    if (!image.save(png, "PNG")) {
      setPlatform(nullptr);
      return ctx.fail(QStringLiteral("chart: cannot write ") + png);
    }
  }
  setPlatform(nullptr);

  const QStringList sounds = soundFiles(recorder.calls);
  const QStringList included = model.includedNames();
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("Label1"), model.Label1);
    ctx.json.insert(QStringLiteral("tipo"), model.tipo);
    ctx.json.insert(QStringLiteral("series"), QJsonArray::fromStringList(included));
    ctx.json.insert(QStringLiteral("a"), model.Text1[0]);
    ctx.json.insert(QStringLiteral("b"), model.Text1[1]);
    ctx.json.insert(QStringLiteral("r2"), model.Text1[2]);
    ctx.json.insert(QStringLiteral("sounds"), QJsonArray::fromStringList(sounds));
    return 0;
  }
  ctx.out << "Label1\t" << model.Label1 << '\n'
          << "tipo\t" << model.tipo << '\n'
          << "series\t" << included.join(u'\t') << '\n'
          << "a\t" << model.Text1[0] << '\n'
          << "b\t" << model.Text1[1] << '\n'
          << "r2\t" << model.Text1[2] << '\n'
          << "sounds\t" << sounds.join(u'\t') << '\n';
  return 0;
}

}  // namespace

CALVIX_CLI_GUI_COMMAND("chart",
                       "the statistics chart of the store: chart [--keys SEQ] [--series xy|x|y] [--kind N]\n"
                       "            [--png FILE [--width W --height H]]; N 1-7 or 9-13",
                       runChart);
