#include "funcs/TableCsv.h"

#include <QFile>
#include <QSaveFile>
#include <algorithm>
#include <cmath>

#include "funcs/FunctionTable.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

namespace {

constexpr int kColumnWidth = 1450;  // twips, as the evaluation leaves the columns

QStringList linesOf(const QString& text) {
  QString t = text;
  t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  QStringList lines = t.split(QLatin1Char('\n'));
  if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  return lines;
}

bool blank(const QString& line) { return line.trimmed().isEmpty(); }

}  // namespace

void TableCsv::followSystem() {
  const bool comma = program().DecimalSymbol.toText() == QLatin1String(",");
  separator = comma ? QLatin1Char(';') : QLatin1Char(',');
  decimal = comma ? QLatin1Char(',') : QLatin1Char('.');
}

void TableCsv::detect(const QString& text) {
  const bool semicolon = text.contains(QLatin1Char(';'));
  separator = semicolon ? QLatin1Char(';') : QLatin1Char(',');
  decimal = semicolon ? QLatin1Char(',') : QLatin1Char('.');
}

QStringList TableCsv::fields(const QString& line) const {
  QStringList out = line.split(separator);
  for (QString& f : out) {
    f = f.trimmed();
    // Spreadsheets quote texts; a quoted number is still a number.
    if (f.size() >= 2 && f.startsWith(QLatin1Char('"')) && f.endsWith(QLatin1Char('"'))) f = f.mid(1, f.size() - 2).trimmed();
  }
  return out;
}

QList<QStringList> TableCsv::preview(const QString& text) const {
  QList<QStringList> rows;
  for (const QString& line : linesOf(text)) {
    if (rows.size() == kPreviewLines) break;
    rows.append(fields(line));
  }
  return rows;
}

int TableCsv::fieldCount(const QString& text) const {
  int n = 0;
  for (const QStringList& row : preview(text)) n = std::max(n, static_cast<int>(row.size()));
  return n;
}

bool TableCsv::number(QString field, double& value) const {
  if (field.isEmpty()) return false;
  // The other mark has no place in a number of this file: "1.5" in a
  // decimal-comma file would otherwise read as a thousands group.
  const QChar other = decimal == QLatin1Char(',') ? QLatin1Char('.') : QLatin1Char(',');
  if (field.contains(other)) return false;
  field.replace(decimal, program().DecimalSymbol.toText());
  return rt::tryTextToDouble(field, value) && std::isfinite(value);
}

TableCsv::Result TableCsv::read(const QString& text) const {
  Result r;
  const QStringList lines = linesOf(text);
  const std::vector<int> chosen = columnG >= 0 ? std::vector<int>{columnX, columnF, columnG}
                                               : std::vector<int>{columnX, columnF};
  bool first = true;
  for (int i = 0; i < lines.size(); ++i) {
    if (blank(lines.at(i))) continue;
    const QStringList f = fields(lines.at(i));
    double v[3] = {0, 0, 0};
    int numbers = 0;
    for (size_t k = 0; k < chosen.size(); ++k) {
      const int c = chosen[k];
      if (c >= 0 && c < f.size() && number(f.at(c), v[k])) ++numbers;
    }
    const bool heading = first && numbers == 0;
    first = false;
    if (heading) continue;
    if (numbers != static_cast<int>(chosen.size())) {
      r.badLine = i + 1;
      r.data = {};
      return r;
    }
    if (static_cast<int>(r.data.x.size()) == kMaxRows) {
      r.tooLong = true;
      r.badLine = i + 1;
      r.data = {};
      return r;
    }
    r.data.x.push_back(v[0]);
    r.data.f.push_back(v[1]);
    if (columnG >= 0) r.data.g.push_back(v[2]);
  }
  return r;
}

QString TableCsv::write(const FunctionTable& table) const {
  const ProgramState& p = program();
  const QString symbol = p.DecimalSymbol.toText();
  const bool withG = p.hasG != 0;
  const QString eol = QStringLiteral("\r\n");
  QString out = QStringLiteral("X") + separator + QStringLiteral("F(x)");
  if (withG) out += separator + QStringLiteral("G(x)");
  out += eol;
  QString t;  // one buffer for every cell
  auto cell = [&](int row, int col) -> const QString& {
    t.resize(0);  // keeps its room
    table.appendTextMatrix(row, col, t);
    return t.replace(symbol, QString(decimal));
  };
  for (int row = 1; row <= p.pointCount; ++row) {
    out += cell(row, FunctionTable::kX);
    out += separator;
    out += cell(row, FunctionTable::kF);
    if (withG) {
      out += separator;
      out += cell(row, FunctionTable::kG);
    }
    out += eol;
  }
  return out;
}

bool TableCsv::askSeparators() {
  ProgramState& p = program();
  followSystem();
  const QStringList dialects{Res(1880) + QStringLiteral("   ") + Res(1881), Res(1881) + QStringLiteral("   ") + Res(1882)};
  const bool pointSystem = separator == QLatin1Char(',');
  setMessageList(pointSystem ? QStringList{dialects[1], dialects[0]} : dialects, Res(1890));
  MBoxShow(0, Res(1868).remove(QStringLiteral("...")), 1, 3, 0, QStringLiteral("Calvix  -  VelozEvaluator  -  CSV"));
  if (p.MessageResult == 1) return false;
  // Nothing chosen keeps the system's, which heads the list.
  const int chosen = p.MessageValue.isEmpty() ? 0 : p.MessageValue.toInteger();
  if (chosen == 2) {
    const bool semicolon = separator == QLatin1Char(',');
    separator = semicolon ? QLatin1Char(';') : QLatin1Char(',');
    decimal = semicolon ? QLatin1Char(',') : QLatin1Char('.');
  }
  return true;
}

QString TableCsv::failureText(const Result& r) {
  if (r.tooLong) return Res(1888) + QStringLiteral(" (") + QString::number(kMaxRows) + QLatin1Char(')');
  if (r.badLine > 0) return Res(1883) + QLatin1Char(' ') + QString::number(r.badLine) + QStringLiteral(": ") + Res(1884);
  if (r.data.x.empty()) return Res(1885);
  return {};
}

bool TableCsv::import(FunctionTable& table, const QString& text) const {
  const Result r = read(text);
  const QString failure = failureText(r);
  if (!failure.isEmpty()) {
    program().MessageSound = 2;
    MBoxShow(3, failure, 3, 0, 0, QStringLiteral("Calvix  -  VelozEvaluator  -  CSV"));
    return false;
  }
  fill(table, r.data);
  return true;
}

void TableCsv::fill(FunctionTable& table, const Data& data) {
  ProgramState& p = program();
  if (table.operationMode != 0) table.mnufunc_Click();
  const int n = static_cast<int>(data.x.size());
  const bool withG = !data.g.empty();
  CellGrid& grid = table.MSFlexGrid1;
  for (int r = 1; r < grid.rowCount(); ++r) grid.clearRow(r, 0, FunctionTable::kColumns - 1);
  grid.setRowCount(std::max(FunctionTable::kMinimumRows, n + 2));
  for (int i = 0; i < n; ++i) {
    grid.setNumber(i + 1, FunctionTable::kX, data.x[static_cast<size_t>(i)]);
    grid.setNumber(i + 1, FunctionTable::kF, data.f[static_cast<size_t>(i)]);
    if (withG) grid.setNumber(i + 1, FunctionTable::kG, data.g[static_cast<size_t>(i)]);
  }
  p.pointCount = n;
  p.hasG = withG ? -1 : 0;
  p.sourceColumn = FunctionTable::kF;
  table.xCellCount = table.yCellCount = n;
  table.expressionRow = 0;
  // As typed in edit mode: the table no longer shows a calculation.
  table.Image4 = {true, false};
  table.Row = 1;
  table.TopRow = 1;
  table.scrollBars = withG ? FunctionTable::ScrollBars::Both : FunctionTable::ScrollBars::Vertical;
  for (int c = FunctionTable::kDerivative1; c <= FunctionTable::kSmoothed; ++c) {
    table.colWidth[static_cast<size_t>(c)] = (withG || table.editMode) ? 0 : kColumnWidth;
  }
  p.titleF = QStringLiteral("F(x)");
  p.titleG = withG ? QStringLiteral("G(x)") : QString();
  p.titleX = QStringLiteral("X");
  p.titleY = QStringLiteral("  Y");
  if (table.hooks.computeDerivatives) table.hooks.computeDerivatives();
}

bool TableCsv::readFile(const QString& path, QString& text) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return false;
  text = QString::fromUtf8(file.readAll());
  return true;
}

bool TableCsv::writeFile(const QString& path, const QString& text) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  file.write(text.toUtf8());
  return file.commit();
}
