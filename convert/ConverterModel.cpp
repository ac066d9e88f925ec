#include "convert/ConverterModel.h"

#include <cmath>

#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace {
constexpr int kErrorTitle = 1342;
constexpr int kNoteLead = 1247;
constexpr int kFactorOf = 1292;
constexpr int kTo = 1293;
constexpr int kAskCloseNormal = 1294;
constexpr int kAskCloseNormalTitle = 1295;
constexpr int kPrintHeading = 1296;
constexpr int kRegistersHeading = 1297;
constexpr int kHistoryTitle = 1291;
constexpr int kPrefixesTitle = 1248;
constexpr int kFirstPrefix = 1249;
constexpr int kLastPrefix = 1268;
constexpr int kAcceptCancel = 3;
}  // namespace

ConverterModel::ConverterModel(const UnitTables& tables) : tables_(tables) {
  Command1Colour.fill(kButtonColour);
}

void ConverterModel::Form_Load() { magnitud_Click(QStringLiteral("Longitud")); }

bool ConverterModel::magnitud_Click(const QString& name) {
  if (helpInstead(kHelpTopic)) return true;
  const UnitTable* table = tables_.find(name);
  if (!table) return false;
  item = name;
  Label11 = Res(table->labelId);
  Label9 = table->noteId ? Res(kNoteLead) + QLatin1Char(' ') + Res(table->noteId) : QString();
  reset();
  Command1Caption.fill(QString());
  factor.fill(0);
  for (qsizetype i = 0; i < table->rows.size(); ++i) {
    Command1Caption[static_cast<size_t>(i)] = table->rows.at(i).caption;
    factor[static_cast<size_t>(i)] = table->rows.at(i).factor;
  }
  return true;
}

void ConverterModel::reset() {
  etapa = 0;
  Label12 = {};
  Label3.clear();
  Text2.clear();
  Text4.clear();
  Command1Colour.fill(kButtonColour);
  factorConv = 0;
  resultValue_ = 0;
}

void ConverterModel::Command2_Click() {
  if (helpInstead(kHelpTopic)) return;
  reset();
}

void ConverterModel::releaseUnit(int index) { Command1Colour[static_cast<size_t>(index)] = kButtonColour; }

void ConverterModel::Command1_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  if (index < 0 || index >= kUnitButtons || Command1Caption[static_cast<size_t>(index)].isEmpty()) return;
  if (etapa == 1 && index == unidad[0]) {
    releaseUnit(index);
    Label12[0].clear();
    etapa = 0;
    Label3.clear();
    return;
  }
  if (etapa == 2 && index == unidad[1]) {
    releaseUnit(index);
    Label12[1].clear();
    etapa = 1;
    Label3.clear();
    Text2.clear();
    Text4.clear();
    return;
  }
  if (etapa == 2 && index == unidad[0]) {
    releaseUnit(index);
    Label12[0] = Label12[1];
    Label12[1].clear();
    etapa = 1;
    unidad[0] = unidad[1];
    Label3.clear();
    return;
  }
  if (etapa == 2) {
    releaseUnit(unidad[0]);
    releaseUnit(unidad[1]);
    Label12 = {};
    Label3.clear();
    Text2.clear();
    Text4.clear();
    etapa = 0;
  }
  Command1Colour[static_cast<size_t>(index)] = kChosenColour;
  unidad[static_cast<size_t>(etapa)] = static_cast<std::int16_t>(index);
  Label12[static_cast<size_t>(etapa)] = Command1Caption[static_cast<size_t>(index)];
  ++etapa;
  if (etapa == 2) convert();
}

bool ConverterModel::readNumber(const QString& text, double& value) {
  return !text.trimmed().isEmpty() && rt::tryTextToDouble(text, value) && std::isfinite(value);
}

bool ConverterModel::computeResult(double value) {
  try {
    resultValue_ = rt::checkFinite(value * factorConv);
    Text4 = rt::NumberToText(resultValue_);
    return true;
  } catch (const rt::RuntimeError& e) {
    Text4.clear();
    ProgramState& p = program();
    p.MainMenuTitle = Res(kErrorTitle);
    p.SectionTitle = Label11;
    ReportError(e.number(), 3, 3, 0);
    return false;
  }
}

void ConverterModel::convert() {
  factorConv = factor[static_cast<size_t>(unidad[0])] / factor[static_cast<size_t>(unidad[1])];
  Label3 = rt::NumberToText(factorConv);
  const QString display = calculatorDisplay ? calculatorDisplay() : QStringLiteral("0");
  double value = 0;
  if (readNumber(display, value) && value != 0 && value != 1) {
    Text2 = display;
    if (!computeResult(value)) return;
  }
  addHistory();
}

QString ConverterModel::pairLabel() const {
  return Res(kFactorOf) + QLatin1Char(' ') + Label12[0] + QLatin1Char(' ') + Res(kTo) + QLatin1Char(' ') + Label12[1];
}

QString ConverterModel::factorLine() const { return pairLabel() + QStringLiteral(" = ") + Label3; }

void ConverterModel::addHistory() {
  List1 << factorLine();
  if (!Text4.isEmpty()) {
    List1 << Text2 + QLatin1Char(' ') + Label12[0] + QStringLiteral(" = ") + Text4 + QLatin1Char(' ') + Label12[1];
  }
  List1 << QStringLiteral(" ");
  ListIndex = static_cast<int>(List1.size()) - 2;
}

int ConverterModel::Text2_KeyPress(int key) {
  const int kept = FilterKey(key, QStringLiteral("T"));
  if (kept == kKeyEnter) {
    Text2_Enter();
    return 0;
  }
  if (kept == kKeyBackspace) {
    Text2.chop(1);
  } else if (kept != 0) {
    Text2 += QChar(kept);
  }
  return kept;
}

void ConverterModel::typeText2(const QString& text) {
  Text2.clear();
  for (const QChar c : text) Text2_KeyPress(c.unicode());
}

void ConverterModel::Text2_Enter() {
  double value = 0;
  if (etapa != 2 || !readNumber(Text2, value)) return;
  factorConv = factor[static_cast<size_t>(unidad[0])] / factor[static_cast<size_t>(unidad[1])];
  Label3 = rt::NumberToText(factorConv);
  if (!computeResult(value)) return;
  addHistory();
  selectText2 = true;
}

void ConverterModel::Command9_Click() {
  if (helpInstead(kHelpTopic)) return;
  Text2.clear();
  Text4.clear();
}

void ConverterModel::Command4_Click() {
  if (helpInstead(kHelpTopic)) return;
  if (etapa != 2) return;
  const int first = unidad[0];
  Command1_Click(first);  // the final unit moves to the first place
  Text2.clear();
  Text4.clear();
  Command1_Click(first);  // the old first unit becomes the final one
}

QString ConverterModel::exponentialText(double value) {
  const QString s = rt::NumberToText(std::fabs(value));
  const int length = static_cast<int>(s.size());
  int n = length;
  const qsizetype e = s.indexOf(QLatin1Char('E'), 0, Qt::CaseInsensitive);
  if (e >= 0) n = static_cast<int>(e);
  const QString separator = program().DecimalSymbol.toText();
  if (s.startsWith(QLatin1Char('0') + separator)) {
    n -= 2;
    for (qsizetype i = 2; i < s.size() && s.at(i) == QLatin1Char('0'); ++i) --n;
  }
  const double magnitude = std::fabs(value);
  int whole = 0;
  for (int i = 1; i <= length; ++i) {
    const double q = std::pow(10.0, i) / magnitude;
    if (std::floor(q) == q) ++whole;
  }
  n -= whole;
  QString mantissa;
  if (n < 3) mantissa = QStringLiteral("00");
  else mantissa = QString(n - 1, QLatin1Char('0'));
  if (n > 9) mantissa = QStringLiteral("0000000000");
  return rt::Format(value, QStringLiteral("0.") + mantissa + QStringLiteral("e+00"));
}

void ConverterModel::Command6_Click() {
  if (helpInstead(kHelpTopic)) return;
  if (Label3.isEmpty()) return;
  Label3 = exponentialText(factorConv);
  if (!Text4.isEmpty()) Text4 = exponentialText(resultValue_);
  addHistory();
}

void ConverterModel::Command3_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  if (etapa != 2 || index < 0 || index >= kRegisterCount) return;
  WriteRegister(index, factorConv, pairLabel());
}

void ConverterModel::Command7_Click() {
  if (helpInstead(kHelpTopic)) return;
  ProgramState& p = program();
  if (p.CalculatorMode.toText() == QLatin1String("normalita")) {
    MBoxShow(4, Res(kAskCloseNormal), 4, kAcceptCancel, 0, Res(kAskCloseNormalTitle));
    if (p.MessageResult != 0) return;
    if (closeNormalCalculator) closeNormalCalculator();
    p.CalculatorMode = QStringLiteral("avanzada");
  }
  if (openScientificCalculator) openScientificCalculator();
}

void ConverterModel::Command8_Click() {
  if (helpInstead(kHelpTopic)) return;
  List1Visible = !List1Visible;
  if (List1Visible && List1.size() >= 2) ListIndex = static_cast<int>(List1.size()) - 2;
}

void ConverterModel::borrhis_Click() {
  if (helpInstead(kHelpTopic)) return;
  List1.clear();
  ListIndex = -1;
}

PrintDocument ConverterModel::historyDocument() const {
  PrintDocument doc(Res(kHistoryTitle));
  printHeader(doc, Res(kHistoryTitle));
  doc.setFont(QStringLiteral("Arial"), 10, true);
  doc.line(6, Res(kPrintHeading) + QStringLiteral("  ") + rt::FormatDate(rt::Today(), QStringLiteral("Short Date")));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Courier New"), 9);
  for (const QString& line : List1) doc.line(6, line);
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 10, true);
  doc.line(6, Res(kRegistersHeading));
  doc.setFont(QStringLiteral("Courier New"), 9);
  for (int i = 0; i < kRegisterCount; ++i) {
    doc.line(6, QStringLiteral("R%1 = ").arg(i + 1) + rt::NumberToText(RegisterValue(i)) + QStringLiteral("   ") +
                    RegisterLabel(i));
  }
  return doc;
}

bool ConverterModel::hisimp_Click() {
  if (helpInstead(kHelpTopic)) return false;
  if (List1.isEmpty()) return false;
  return printDocument(historyDocument());
}

void ConverterModel::Prefijos_Click() {
  if (helpInstead(kHelpTopic)) return;
  QStringList lines;
  for (int id = kFirstPrefix; id <= kLastPrefix; ++id) lines << Res(id);
  MBoxShow(0, lines.join(QLatin1Char('\n')), 2, 0, 0, Res(kPrefixesTitle));
}

QList<int> ConverterModel::selected() const {
  QList<int> chosen;
  for (int i = 0; i < kUnitButtons; ++i) {
    if (Command1Colour[static_cast<size_t>(i)] == kChosenColour) chosen << i;
  }
  return chosen;
}

int ConverterModel::unitIndex(const QString& caption) const {
  const QString wanted = caption.trimmed();
  if (wanted.isEmpty()) return -1;
  for (int i = 0; i < kUnitButtons; ++i) {
    if (Command1Caption[static_cast<size_t>(i)].trimmed() == wanted) return i;
  }
  return -1;
}
