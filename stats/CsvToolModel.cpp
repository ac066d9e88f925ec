#include "stats/CsvToolModel.h"


#include <QFileInfo>
#include <optional>

#include "shell/ErrorReport.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/StatisticsStore.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"

namespace {

constexpr int kHelpTopic = 40100;
constexpr int kHeadLines = 10;

// A message of the tool: the code's text in the box, with the section title.
void report(int code, int section) {
  program().SectionTitle = Res(section);
  ReportError(code, 3, 3, 0);
}

// The lines of a text file; a binary file (904) or one that cannot be read
// (906) is refused whole with its message.
std::optional<QStringList> readCsvLines(const QString& path) {
  try {
    const QByteArray bytes = rt::readWholeFile(path);
    if (bytes.contains('\0')) {
      report(904, 715);
      return std::nullopt;
    }
    return csvLines(rt::fromCodePage(bytes));
  } catch (const rt::RuntimeError&) {
    report(906, 715);
    return std::nullopt;
  }
}

QChar firstChar(const QString& s) { return s.isEmpty() ? QChar() : s.at(0); }

}  // namespace

bool csvNameAccepted(const QString& fileName) { return fileName.right(3).toLower() == QLatin1String("csv"); }

QString csvOutputName(const QString& fileName) {
  QString name = fileName.toLower();
  name.replace(QLatin1String(".csv"), QLatin1String("Cvx.csv"));
  return name;
}

QString convertCsvLine(const QString& line, QChar in, QChar out, QChar& workingSeparator) {
  QString s = line;
  if (in == u',' && out == u';') {
    s.replace(u',', u';');
    s.replace(u'.', u',');
    workingSeparator = u';';
  } else if (in == u';' && out == u',') {
    s.replace(u',', u'.');
    s.replace(u';', u',');
    workingSeparator = u',';
  } else {
    workingSeparator = in;
  }
  return s;
}

QStringList csvLines(const QString& text) {
  QString t = text;
  t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  t.replace(u'\r', u'\n');
  QStringList lines = t.split(u'\n');
  // The end of the last line is no further line.
  if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  return lines;
}

QStringList CsvToolModel::comboItems() { return {Res(1903), Res(1904), Res(1905)}; }

QString CsvToolModel::comboItem(QChar c) {
  for (const QString& item : comboItems()) {
    if (firstChar(item) == c) return item;
  }
  return {};
}

void CsvToolModel::Form_Load() {
  const bool comma = program().DecimalSymbol.toText() == QLatin1String(",");
  Combo2[0] = comboItem(comma ? u';' : u',');
  Combo2[1] = comboItem(comma ? u',' : u'.');
  workingSeparator = comma ? u';' : u',';
  Label5 = {QStringLiteral("0"), QStringLiteral("0")};
}

QString CsvToolModel::outputPath() const {
  if (Label1.isEmpty()) return {};
  return QFileInfo(Label1).absolutePath() + u'/' + Label3;
}

void CsvToolModel::clearGrid() {
  MSFlexGrid1.clear();
  gridCols = 0;
}

// A row of the grid; the heading row grows with the widest row.
void CsvToolModel::addGridRow(const QStringList& cells) {
  if (MSFlexGrid1.isEmpty()) MSFlexGrid1.append(QStringList());
  MSFlexGrid1.append(cells);
  if (cells.size() > gridCols) {
    QStringList& heading = MSFlexGrid1[0];
    for (int c = gridCols; c < cells.size(); ++c) heading << Res(1901) + u' ' + QString::number(c + 1);
    gridCols = static_cast<int>(cells.size());
  }
}

void CsvToolModel::Command1_Click() {
  if (helpInstead(kHelpTopic) || !fileDialog) return;
  const QString path =
      fileDialog(Res(1935), Res(1936), program().AppFolder.toText() + QStringLiteral("datos/"));
  if (path.isEmpty()) return;
  const QString name = QFileInfo(path).fileName();
  if (!csvNameAccepted(name)) {
    report(901, 715);
    return;
  }
  const auto lines = readCsvLines(path);
  if (!lines) return;
  Label1 = path;
  Label4 = name;
  Label3 = csvOutputName(name);
  Text1 = lines->mid(0, kHeadLines).join(QLatin1String("\r\n"));
  clearGrid();
}

void CsvToolModel::Command4_Click() {
  if (helpInstead(kHelpTopic)) return;
  Combo1 = {comboItem(u','), comboItem(u'.')};
  Combo2 = {comboItem(u';'), comboItem(u',')};
  Image3 = 1;
}

void CsvToolModel::Command5_Click() {
  if (helpInstead(kHelpTopic)) return;
  Combo1 = {comboItem(u';'), comboItem(u',')};
  Combo2 = {comboItem(u','), comboItem(u'.')};
  Image3 = 0;
}

void CsvToolModel::Command6_Click() {
  if (helpInstead(kHelpTopic)) return;
  if (Text1.isEmpty()) {
    report(916, 2915);
    return;
  }
  if (Text1.contains(u';')) {
    Combo1 = {comboItem(u';'), comboItem(u',')};
    Image3 = 0;
  } else {
    Combo1 = {comboItem(u','), comboItem(u'.')};
    Image3 = 1;
  }
}

void CsvToolModel::Command2_Click() {
  if (helpInstead(kHelpTopic)) return;
  if (Label1.isEmpty()) {
    report(916, 2915);
    return;
  }
  const auto read = readCsvLines(Label1);
  if (!read) return;
  const QStringList& lines = *read;
  const QChar in = firstChar(Combo1[0]);
  const QChar out = firstChar(Combo2[0]);
  QList<QStringList> rows;
  rows.reserve(lines.size());
  QByteArray written;
  for (const QString& line : lines) {
    const QString converted = convertCsvLine(line, in, out, workingSeparator);
    if (Check1) written += rt::toCodePage(converted) + "\r\n";
    rows.append(workingSeparator.isNull() ? QStringList{converted} : converted.split(workingSeparator));
  }
  if (Check1) {
    try {
      rt::writeWholeFile(outputPath(), written);
    } catch (const rt::RuntimeError&) {
      report(905, 715);
      return;
    }
  }
  clearGrid();
  for (const QStringList& r : rows) addGridRow(r);
}

void CsvToolModel::flexcolX_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  if (index == 2) {
    Label5 = {QStringLiteral("0"), QStringLiteral("0")};
  } else if (index == 0 || index == 1) {
    Label5[static_cast<std::size_t>(index)] = QString::number(selectedColumn);
  }
}

void CsvToolModel::Command3_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  program().SectionTitle = Res(1932);
  if (MSFlexGrid1.size() < 2) {
    report(916, 1932);
    return;
  }
  if (Label5[0] == QLatin1String("0") && Label5[1] == QLatin1String("0")) {
    report(300, 1932);
    return;
  }
  StatisticsStore& store = program().stats;
  const std::array<int, 2> column{Label5[0].toInt(), Label5[1].toInt()};
  for (int list = 0; list < 2; ++list) {
    if (column[static_cast<std::size_t>(list)] > 0) store.clearList(list);
  }
  bool overflow = false;
  for (const QStringList& row : previewRows()) {
    for (int list = 0; list < 2; ++list) {
      const int c = column[static_cast<std::size_t>(list)];
      if (c <= 0 || c > row.size()) continue;
      double v = 0;
      if (!rt::tryTextToDouble(row.at(c - 1), v)) continue;
      if (!store.add(list, v)) overflow = true;
    }
  }
  if (overflow) report(301, 1932);
  if (index == 0) closeRequested = true;
  else minimizeRequested = true;
}
