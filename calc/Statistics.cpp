// The statistics keys of the calculator over the program-wide store: entry
// of X and Y, the measures of each list, the pair keys and estimates through
// the shared regression pass, deleting, replacing, sorting and erasing data,
// the *.dat files, the CSV export and the printout of the data.
#include <algorithm>

#include "calc/CalculatorEngine.h"
#include "calc/CalculatorMenus.h"
#include "calc/StatisticsFile.h"
#include "shell/runtime/DateTime.h"
#include "shell/ErrorReport.h"
#include "shell/runtime/Format.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

constexpr int kGridTopic = 240;  // the grids and their menu items
constexpr int kFileTopic = 241;  // abrirest, guardarest, exporcsv, estadística

StatisticsStore& store() { return program().stats; }

QString letter(int list) { return list == 0 ? QStringLiteral("X") : QStringLiteral("Y"); }

// The names the measures show in func: "Sum X", "STD X n-1", "MaxMin Y".
QString measureName(int list, int index) {
  const QString l = letter(list);
  switch (index) {
    case 0: return QStringLiteral("Sum ") + l;
    case 1: return QStringLiteral("Sum ") + l + QStringLiteral("\u00B2");
    case 2: return Res(4204) + QLatin1Char(' ') + l;
    case 3: return Res(4205) + QLatin1Char(' ') + l;
    case 4: return QStringLiteral("STD ") + l + QStringLiteral(" n");
    case 5: return QStringLiteral("STD ") + l + QStringLiteral(" n-1");
    default: return QStringLiteral("MaxMin ") + l;
  }
}

// The message of a code in a box titled "Estadísticas X" (or Y, or none).
void statisticsMessage(int code, const QString& suffix) {
  program().MessageSound = 3;
  PlayMessageSound();
  MBoxShow(3, ErrorText(code), 3, 0, 0, Res(4007) + suffix);
}

// A file refused or failing: code 1 under the statistics title.
void fileFailure() {
  program().SectionTitle = Res(4007);
  ReportError(1, 3, 3, 0);
}

}  // namespace

QString CalculatorEngine::numnx() const { return QStringLiteral("n = ") + QString::number(store().nx); }
QString CalculatorEngine::numny() const { return QStringLiteral("n = ") + QString::number(store().ny); }

QString CalculatorEngine::statisticsFolder() const { return program().AppFolder.toText() + QStringLiteral("datos/"); }

// ---- Entry ----------------------------------------------------------------------

void CalculatorEngine::enterDatum(int list, double v) {
  StatisticsStore& s = store();
  func = letter(list) + QStringLiteral("  ") + Res(4402) + QLatin1Char(' ') + QString::number(s.count(list) + 1) +
         QStringLiteral("   (^)");
  Command69_Click();
  if (!s.add(list, v)) {
    statisticsMessage(2, QLatin1Char(' ') + letter(list));
    entryActive = 0;
    return;
  }
  scrollToLast[static_cast<std::size_t>(list)] = true;
  entryActive = 0;
}

void CalculatorEngine::Command76_Click(int index) {
  if (index != 0 && index != 1) return;
  guarded(76, [&] {
    statisticsPanelRequested = true;
    enterDatum(index, value());
  });
}

// ---- Measures ---------------------------------------------------------------------

void CalculatorEngine::measureKey(int list, int index) {
  if (index < 0 || index > 6) return;
  guarded(list == 0 ? 15 : 2, [&] {
    statisticsPanelRequested = true;
    func = measureName(list, index);
    Command69_Click();
    const StatisticsStore& s = store();
    if (s.count(list) < 1) {
      reportFailure(16);
      return;
    }
    if (index == 6) {
      double max = 0, min = 0;
      s.extremes(list, max, min);
      result = rt::NumberToText(max) + QStringLiteral(" (Max)\n") + rt::NumberToText(min) + QStringLiteral(" (Min)");
      numero = rt::NumberToText(max);
    } else {
      result = rt::NumberToText(s.measure(list, static_cast<StatisticsStore::Measure>(index)));
      numero = result.text();
    }
    Command90_Click();
    entryActive = 0;
  });
}

void CalculatorEngine::Command15_Click(int index) { measureKey(0, index); }
void CalculatorEngine::Command2_Click(int index) { measureKey(1, index); }

// ---- Pairs and regression -------------------------------------------------------------

bool CalculatorEngine::pairKeyAllowed() {
  const StatisticsStore& s = store();
  if (s.nx != s.ny) {
    reportFailure(5);
    return false;
  }
  if (s.nx < 1) {
    reportFailure(16);
    return false;
  }
  return true;
}

bool CalculatorEngine::runRegression(bool needFrequencies) {
  StatisticsStore& s = store();
  const auto type = static_cast<RegressionType>(regType);
  const RegressionResult r =
      RegressionPass(s.X.data(), s.Y.data(), s.nx, type, s.regAskedOnce, s.regAbort, Res(4007));
  if (r.code == 50 || r.code == 51) {
    // The user gave up: nothing more.
    entryActive = 0;
    return false;
  }
  if (r.code != 0) {
    reportFailure(r.code);
    return false;
  }
  s.regA = r.a;
  s.regB = r.b;
  s.regR2 = r.r2;
  s.stdFreq = r.stdFreq;
  s.meanFreq = r.meanFreq;
  s.regUsed = static_cast<std::int16_t>(r.used);
  if (needFrequencies && !r.freqValid) {
    reportFailure(53);
    return false;
  }
  return true;
}

void CalculatorEngine::Command16_Click(int index) {
  if (index < 0 || index > 6) return;
  guarded(16, [&] {
    statisticsPanelRequested = true;
    static const char* const kCoefficients[] = {"a", "b", "r\xC2\xB2"};
    switch (index) {
      case 0: func = Res(4197); break;
      case 1: func = Res(4198); break;
      case 2: func = Res(4199); break;
      case 3: func = Res(4200); break;
      default:
        func = QString::fromUtf8(kCoefficients[index - 4]) + QStringLiteral("  (") +
               regTypeNames[static_cast<std::size_t>(regType)] + QLatin1Char(')');
        break;
    }
    Command69_Click();
    if (!pairKeyAllowed()) return;
    const StatisticsStore& s = store();
    double v = 0;
    if (index == 0) {
      v = s.sumY;
    } else if (index == 1) {
      v = s.sumXY;
    } else {
      if (!runRegression(index <= 3)) return;
      const double values[] = {s.meanFreq, s.stdFreq, s.regA, s.regB, s.regR2};
      v = values[index - 2];
    }
    QString text = rt::NumberToText(v);
    const int discarded = index >= 2 ? s.nx - s.regUsed : 0;
    result = text;
    numero = text;
    if (discarded > 0) {
      const QString line = Res(4426) + QLatin1Char(' ') + QString::number(discarded);
      result = text + QLatin1Char('\n') + line;
      addHistoryValue(line);
    }
    Command90_Click();
    entryActive = 0;
  });
}

void CalculatorEngine::Command84_Click(int index) {
  if (index != 0 && index != 1) return;
  guarded(84, [&] {
    statisticsPanelRequested = true;
    const double x = value();
    func = Res(4206) + QLatin1Char(' ') + letter(index) + QStringLiteral("  (") +
           regTypeNames[static_cast<std::size_t>(regType)] + QLatin1Char(')');
    Command69_Click();
    if (!pairKeyAllowed() || !runRegression(false)) return;
    const StatisticsStore& s = store();
    const auto type = static_cast<RegressionType>(regType);
    const double v = index == 0 ? regressionEstimateX(type, s.regA, s.regB, x)
                                : regressionEstimateY(type, s.regA, s.regB, x);
    result = rt::NumberToText(v);
    numero = result.text();
    Command90_Click();
    entryActive = 0;
  });
}

void CalculatorEngine::Command78_Click() {
  guarded(78, [&] { menuRequest = QStringLiteral("TipoRegresion"); });
}

void CalculatorEngine::Regresion_Click(int index) {
  if (index < 0 || index > 2) return;
  guarded(78, [&] {
    if (regType != index) store().regAskedOnce = 0;
    regType = static_cast<std::int16_t>(index);
    func = Res(4571) + QLatin1Char(' ') + regTypeNames[static_cast<std::size_t>(index)];
  });
}

// ---- Editing the data ---------------------------------------------------------------------

void CalculatorEngine::selectCell(int grid, int row) {
  if (grid != 0 && grid != 1) return;
  activeGrid = grid;
  MSFlexGrid1Row[static_cast<std::size_t>(grid)] = row;
}

void CalculatorEngine::Command3_Click(int index) {
  if (index != 0 && index != 1) return;
  guarded(3, [&] {
    StatisticsStore& s = store();
    int& row = MSFlexGrid1Row[static_cast<std::size_t>(index)];
    if (row < 1 || row > s.count(index)) return;
    func = Res(4574) + QLatin1Char(' ') + letter(index);
    Command69_Click();
    s.removeAt(index, row);
    row = std::min(row, static_cast<int>(s.count(index)));
  });
}

void CalculatorEngine::Command23_Click() {
  guarded(23, [&] {
    statisticsPanelRequested = true;
    gridsSwapped = !gridsSwapped;
  });
}

void CalculatorEngine::Command82_Click() {
  guarded(82, [&] { menuRequest = QStringLiteral("MnuClrSTD"); });
}

void CalculatorEngine::MnuClrSTD_Click(int index) {
  if (index < 0 || index > 2) return;
  guarded(82, [&] {
    func = Res(4566) + QStringLiteral(": ") + menuCaption(*findMenuItem(QStringLiteral("MnuClrSTD"), index));
    StatisticsStore& s = store();
    if (index != 1) s.clearList(0);
    if (index != 0) s.clearList(1);
    if (index != 1) MSFlexGrid1Row[0] = 0;
    if (index != 0) MSFlexGrid1Row[1] = 0;
  });
}

void CalculatorEngine::changecell_Click() {
  guarded(kGridTopic, [&] {
    double v = 0;
    if (!rt::tryTextToDouble(numero, v)) return;
    StatisticsStore& s = store();
    const int row = MSFlexGrid1Row[static_cast<std::size_t>(activeGrid)];
    if (row < 1 || row > s.count(activeGrid)) return;
    s.replaceAt(activeGrid, row, v);
    func = Res(4417) + QLatin1Char(' ') + letter(activeGrid);
    Command69_Click();
  });
}

void CalculatorEngine::borracell_Click() { Command3_Click(activeGrid); }

void CalculatorEngine::ordenaEstad_Click(int index) {
  if (index != 0 && index != 1) return;
  guarded(kGridTopic, [&] {
    StatisticsStore& s = store();
    const int list = activeGrid;
    const int n = s.count(list);
    if (n < 1) return;
    const QString sortName = menuCaption(*findMenuItem(QStringLiteral("ordenaEstad"), index));
    bool pairs = false;
    if (s.nx == s.ny) {
      MBoxShow(3, Res(4568) + QLatin1Char(' ') + sortName + QLatin1Char('\n') + Res(4569), 3, 7, 0, Res(4567));
      if (program().MessageResult == 2) return;
      pairs = program().MessageResult == 0;
    } else {
      MBoxShow(3, Res(4568) + QLatin1Char(' ') + sortName + QLatin1Char('\n') + Res(4570) + QLatin1Char('\n') + Res(4539),
               3, 3, 0, Res(4567));
      if (program().MessageResult == 1) return;
    }
    // Rows as the grid holds them: the value, and the other list's value
    // carried along when the pairs stay together. Equal values keep their order.
    std::vector<std::pair<double, double>> rows;
    rows.reserve(static_cast<std::size_t>(n));
    for (int i = 1; i <= n; ++i) rows.emplace_back(s.at(list, i), pairs ? s.at(1 - list, i) : 0.0);
    if (index == 0) {
      std::stable_sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    } else {
      std::stable_sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.first > b.first; });
    }
    // The sums stay; sumXY too, which is stale when the pairs were split.
    const double sums[] = {s.sumX, s.sumX2, s.sumY, s.sumY2, s.sumXY};
    std::vector<double> mine, other;
    for (const auto& r : rows) {
      mine.push_back(r.first);
      other.push_back(r.second);
    }
    s.setList(list, mine);
    if (pairs) s.setList(1 - list, other);
    s.sumX = sums[0];
    s.sumX2 = sums[1];
    s.sumY = sums[2];
    s.sumY2 = sums[3];
    s.sumXY = sums[4];
  });
}

// ---- Files --------------------------------------------------------------------------------

bool CalculatorEngine::loadStatisticsFile(const QString& path) {
  DatContents contents;
  DatRead outcome = DatRead::Damaged;
  try {
    outcome = readDat(rt::readWholeFile(path), contents);
  } catch (const rt::RuntimeError&) {
    outcome = DatRead::Damaged;
  }
  if (outcome == DatRead::Damaged) {
    fileFailure();
    return false;
  }
  if (outcome == DatRead::TooMany) {
    statisticsMessage(2, QString());
    return false;
  }
  store().clearAll();
  MSFlexGrid1Row = {0, 0};
  // Each datum comes in as if typed and entered, so the history shows them.
  for (int list = 0; list < 2; ++list) {
    for (double v : list == 0 ? contents.x : contents.y) {
      numero = rt::NumberToText(v);
      enterDatum(list, v);
    }
  }
  return true;
}

void CalculatorEngine::abrirest_Click() {
  if (helpInstead(helpTopic(kFileTopic)) || !fileDialog) return;
  const QString path = fileDialog({Res(4400), Res(4401), statisticsFolder(), false});
  if (path.isEmpty()) return;
  abrirestFile(path);
}

bool CalculatorEngine::abrirestFile(const QString& path) {
  if (!hasExtension(path, QStringLiteral("dat"))) {
    fileFailure();
    return false;
  }
  statisticsPanelRequested = true;
  return loadStatisticsFile(path);
}

void CalculatorEngine::guardarest_Click() {
  if (helpInstead(helpTopic(kFileTopic)) || !fileDialog) return;
  const QString path = fileDialog({Res(4588), Res(4401), statisticsFolder(), true});
  if (path.isEmpty()) return;
  if (!hasExtension(path, QStringLiteral("dat"))) {
    fileFailure();
    return;
  }
  try {
    rt::writeWholeFile(path, writeDat(store()));
  } catch (const rt::RuntimeError&) {
    fileFailure();
  }
}

void CalculatorEngine::exporcsv_Click() {
  if (helpInstead(helpTopic(kFileTopic)) || !fileDialog) return;
  const QString path = fileDialog({Res(4547), Res(1936), statisticsFolder(), true});
  if (path.isEmpty()) return;
  if (!hasExtension(path, QStringLiteral("csv"))) {
    fileFailure();
    return;
  }
  try {
    rt::writeWholeFile(path, csvExport(store(), program().DecimalSymbol.toText()));
  } catch (const rt::RuntimeError&) {
    fileFailure();
  }
}

// ---- Printout --------------------------------------------------------------------------------

// The title, the counts, then a row per index: the number, X and Y.
PrintDocument CalculatorEngine::statisticsDocument() const {
  const StatisticsStore& s = store();
  PrintDocument doc(Res(4584));
  doc.setFont(QStringLiteral("Arial"), 7);
  doc.emptyLines(2);
  doc.line(8, Res(4423));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 10, true);
  doc.line(8, Res(4584));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 9);
  doc.printAt(8, Res(4583) + QStringLiteral("  X: ") + QString::number(s.nx));
  doc.printAt(40, Res(4583) + QStringLiteral("  Y: ") + QString::number(s.ny));
  doc.endLine();
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Courier New"), 9);
  const int rows = std::max<int>(s.nx, s.ny);
  for (int i = 1; i <= rows; ++i) {
    doc.printAt(8, rt::Format(static_cast<double>(i), QStringLiteral("0000")));
    if (i <= s.nx) doc.printAt(15, rt::NumberToText(s.at(0, i)));
    if (i <= s.ny) doc.printAt(40, rt::NumberToText(s.at(1, i)));
    doc.endLine();
  }
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 7);
  doc.line(8, QStringLiteral("Calvix Premium  -  VelozCalc.  ") + rt::FormatDate(rt::Now(), QStringLiteral("Short Date")));
  return doc;
}

void CalculatorEngine::estadistica_Click() {
  if (helpInstead(helpTopic(kFileTopic))) return;
  if (store().nx == 0 && store().ny == 0) return;
  printDocument(statisticsDocument());
}
