// calvix-cli csv: the CSV conversion tool.
//
//   calvix-cli csv [--keys SEQ] [--file F] [--preset ing|esp] [--detect] [--in DD] [--out DD]
//                  [--write] [--x N] [--y N] [--import]
//
// --keys first runs the scientific calculator on SEQ, as `keys` does. Then
// FormCSV loads (its output side follows --decimal); Command1 is pressed with
// F answering the file dialog; --preset presses Command4 (ing) or Command5
// (esp); --detect presses Command6; --in and --out choose Combo1 and Combo2:
// the first character of DD names the data separator, the second the decimal
// one, each ";", "," or "."; --write ticks Check1; with F, Command2 converts;
// --x N and --y N take grid column N (from 1) through flexcolX; --import
// presses Command3(0).
// Output: the preview grid, a line per row (heading row left out), the cells
// TAB-separated up to the grid's last column. --json: Label1, Label3, Label4,
// Text1, Combo1, Combo2, Label5, MSFlexGrid1 and the store (nx, ny, X, Y,
// sumX, sumY). A message the tool shows goes to stderr and exits 1.
#include <QJsonArray>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "cli/CliCommand.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/StatisticsStore.h"
#include "stats/CsvToolModel.h"

namespace {

bool separators(const QString& dd, std::array<QString, 2>& items) {
  const QString allowed = QStringLiteral(";,.");
  if (dd.size() != 2 || !allowed.contains(dd.at(0)) || !allowed.contains(dd.at(1))) return false;
  items = {CsvToolModel::comboItem(dd.at(0)), CsvToolModel::comboItem(dd.at(1))};
  return true;
}

bool columnNumber(const QString& text, int& n) {
  bool ok = false;
  n = text.toInt(&ok);
  return ok && n >= 1;
}

QStringList paddedRow(QStringList row, int cols) {
  while (row.size() < cols) row << QString();
  return row;
}

QJsonArray listJson(const StatisticsStore& s, int list) {
  QJsonArray a;
  for (int i = 1; i <= s.count(list); ++i) a.append(s.at(list, i));
  return a;
}

int runCsv(CliContext& ctx) {
  QString keys, file, preset, in, out, xText, yText;
  ctx.takeOption(QStringLiteral("--keys"), keys);
  const bool hasFile = ctx.takeOption(QStringLiteral("--file"), file);
  const bool hasPreset = ctx.takeOption(QStringLiteral("--preset"), preset);
  const bool detect = ctx.takeFlag(QStringLiteral("--detect"));
  const bool hasIn = ctx.takeOption(QStringLiteral("--in"), in);
  const bool hasOut = ctx.takeOption(QStringLiteral("--out"), out);
  const bool write = ctx.takeFlag(QStringLiteral("--write"));
  const bool hasX = ctx.takeOption(QStringLiteral("--x"), xText);
  const bool hasY = ctx.takeOption(QStringLiteral("--y"), yText);
  const bool import = ctx.takeFlag(QStringLiteral("--import"));
  if (const int code = ctx.refuseOptions()) return code;
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("csv takes no arguments: ") + ctx.args.join(u' '));
  if (hasPreset && preset != QLatin1String("ing") && preset != QLatin1String("esp")) {
    return ctx.usage(QStringLiteral("csv --preset takes ing or esp"));
  }
  std::array<QString, 2> inItems, outItems;
  if ((hasIn && !separators(in, inItems)) || (hasOut && !separators(out, outItems))) {
    return ctx.usage(QStringLiteral("csv --in and --out take two of ; , ."));
  }
  int x = 0, y = 0;
  if ((hasX && !columnNumber(xText, x)) || (hasY && !columnNumber(yText, y))) {
    return ctx.usage(QStringLiteral("csv --x and --y take a column number from 1"));
  }

  RecordingPlatform recorder;
  setPlatform(&recorder);
  CalculatorEngine engine;
  engine.Form_Activate();
  if (!keys.isEmpty()) {
    QString error;
    if (!runKeySequence(engine, keys, &error)) {
      setPlatform(nullptr);
      return ctx.usage(QStringLiteral("csv --keys: ") + error);
    }
  }
  const ScriptedPresenter* presenter = dynamic_cast<ScriptedPresenter*>(messagePresenter());
  const std::size_t shownBefore = presenter ? presenter->shown().size() : 0;

  CsvToolModel tool;
  tool.Form_Load();
  tool.fileDialog = [&](const QString&, const QString&, const QString&) { return hasFile ? file : QString(); };
  tool.Command1_Click();
  if (hasPreset) {
    if (preset == QLatin1String("ing")) tool.Command4_Click();
    else tool.Command5_Click();
  }
  if (detect) tool.Command6_Click();
  if (hasIn) tool.Combo1 = inItems;
  if (hasOut) tool.Combo2 = outItems;
  if (write) tool.Check1 = true;
  if (hasFile) tool.Command2_Click();
  if (hasX) {
    tool.selectedColumn = x;
    tool.flexcolX_Click(0);
  }
  if (hasY) {
    tool.selectedColumn = y;
    tool.flexcolX_Click(1);
  }
  if (import) tool.Command3_Click(0);
  setPlatform(nullptr);
  const bool messageShown = presenter && presenter->shown().size() > shownBefore;

  const QList<QStringList> rows = tool.previewRows();
  if (ctx.jsonOutput) {
    const StatisticsStore& s = program().stats;
    QJsonArray grid;
    for (const QStringList& r : rows) grid.append(QJsonArray::fromStringList(paddedRow(r, tool.gridCols)));
    ctx.json.insert(QStringLiteral("Label1"), tool.Label1);
    ctx.json.insert(QStringLiteral("Label3"), tool.Label3);
    ctx.json.insert(QStringLiteral("Label4"), tool.Label4);
    ctx.json.insert(QStringLiteral("Text1"), tool.Text1);
    ctx.json.insert(QStringLiteral("Combo1"), QJsonArray{tool.Combo1[0], tool.Combo1[1]});
    ctx.json.insert(QStringLiteral("Combo2"), QJsonArray{tool.Combo2[0], tool.Combo2[1]});
    ctx.json.insert(QStringLiteral("Label5"), QJsonArray{tool.Label5[0], tool.Label5[1]});
    ctx.json.insert(QStringLiteral("MSFlexGrid1"), grid);
    ctx.json.insert(QStringLiteral("nx"), s.nx);
    ctx.json.insert(QStringLiteral("ny"), s.ny);
    ctx.json.insert(QStringLiteral("X"), listJson(s, 0));
    ctx.json.insert(QStringLiteral("Y"), listJson(s, 1));
    ctx.json.insert(QStringLiteral("sumX"), s.sumX);
    ctx.json.insert(QStringLiteral("sumY"), s.sumY);
  } else {
    for (const QStringList& r : rows) ctx.out << paddedRow(r, tool.gridCols).join(u'\t') << '\n';
  }
  return messageShown ? 1 : 0;
}

}  // namespace

CALVIX_CLI_COMMAND("csv",
                   "the CSV conversion tool: csv [--keys SEQ] [--file F] [--preset ing|esp] [--detect]\n"
                   "            [--in DD] [--out DD] [--write] [--x N] [--y N] [--import]; DD two of ; , .",
                   runCsv);
