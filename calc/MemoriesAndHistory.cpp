// What the calculator remembers beyond the number on screen: the memories,
// the recall of the intermodular registers, the history list with its line
// rules, the auxiliary viewer, taking a number back from either list, and
// their printouts.
#include "calc/CalculatorEngine.h"
#include "calc/ListNumber.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

const QString kZero = QStringLiteral("0");

// Help topics of the controls that are not numbered keys.
constexpr int kCombo1Topic = 201;
constexpr int kViewerTopic = 203;  // List3 and List4
constexpr int kRegistrosTopic = 210;
constexpr int kImprimeAuxTopic = 211;

bool validSlot(int index) { return index >= 0 && index < 4; }

std::size_t at(int index) { return static_cast<std::size_t>(index); }

// The name of a memory key, a blank and the memory's number: "Memoria 1".
QString memoryFunc(int nameId, int index) { return Res(nameId) + QLatin1Char(' ') + QString::number(index + 1); }

// The head of both printouts: the program's line small, the title larger.
void printoutHead(PrintDocument& doc, int titleId) {
  doc.setFont(QStringLiteral("Arial"), 7);
  doc.emptyLines(2);
  doc.line(8, Res(4423));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 10, true);
  doc.line(8, Res(titleId));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 9);
}

void printoutEnd(PrintDocument& doc) {
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 7);
  doc.line(8, QStringLiteral("Calvix Premium  -  VelozCalc.  ") + rt::FormatDate(rt::Now(), QStringLiteral("Short Date")));
}

// The part of a line before its "(", blanks removed. The digits of a
// conversion to hexadecimal get their "&h", so that the keys read them as the
// number they show ("1E5" is 485, not 100000).
QString digitsBeforeUnit(const QString& line) {
  const qsizetype open = line.indexOf(QLatin1Char('('));
  QString digits = line.left(open).remove(QLatin1Char(' '));
  const QString unit = line.mid(open + 1).section(QLatin1Char(')'), 0, 0);
  if (!digits.isEmpty() && unit == Res(4525)) digits.prepend(QStringLiteral("&h"));
  return digits;
}

QString withoutTrailingBlanks(QString text) {
  while (text.endsWith(QLatin1Char(' '))) text.chop(1);
  return text;
}

}  // namespace

// ---- Memories ------------------------------------------------------------------

void CalculatorEngine::loadMemories() {
  for (int i = 0; i < 4; ++i) m1[at(i)] = rt::NumberToText(program().Memories[at(i)]);
}

void CalculatorEngine::Command24_Click(int index) {
  if (!validSlot(index)) return;
  guarded(24, [&] {
    func = memoryFunc(4216, index);
    Command69_Click();
    numero = rt::NumberToText(rt::TextToDouble(m1[at(index)]));
    entryActive = 0;
    focusRequest = QStringLiteral("Command19");
  });
}

void CalculatorEngine::Command28_Click(int index) {
  if (!validSlot(index)) return;
  guarded(28, [&] {
    func = memoryFunc(4220, index);
    Command69_Click();
    const double x = value();
    if (x == 0) numero = kZero;
    // The field and the program-wide value each take the sum; the field
    // keeps 15 digits, the value all of them.
    m1[at(index)] = rt::NumberToText(rt::checkFinite(rt::TextToDouble(m1[at(index)]) + x));
    double& memory = program().Memories[at(index)];
    memory = rt::checkFinite(memory + x);
    entryActive = 0;
    focusRequest = QStringLiteral("Command19");
  });
}

void CalculatorEngine::Command29_Click(int index) {
  if (!validSlot(index)) return;
  guarded(29, [&] {
    func = memoryFunc(4221, index);
    Command69_Click();
    m1[at(index)] = kZero;
    program().Memories[at(index)] = 0;
  });
}

void CalculatorEngine::m1_DblClick(int index) { Command24_Click(index); }

// ---- Registers --------------------------------------------------------------------

void CalculatorEngine::writeRegisterTooltips() {
  for (int i = 0; i < 4; ++i) Command74Tooltip[at(i)] = RegisterLabel(i);
}

void CalculatorEngine::Command74_Click(int index) {
  if (!validSlot(index)) return;
  guarded(74, [&] {
    const QString label = RegisterLabel(index);
    func = Res(4275) + QString::number(index + 1) + QStringLiteral(": ") + label;
    result = label;
    numero = rt::NumberToText(RegisterValue(index));
    entryActive = 0;
  });
}

// ---- History ------------------------------------------------------------------------

void CalculatorEngine::Command69_Click() {
  QString pad(padding_.plain, QLatin1Char(' '));
  if (func == QLatin1String("=")) pad = Res(4581) + QString(padding_.total, QLatin1Char(' '));
  if (Combo1.full()) Combo1.clear();
  // The answer line is written once between two function lines, and always
  // for the clear key's own line.
  if (Command69Tag != 1 && (result.text().left(3) != errorPrefix || func == Res(4573))) {
    Command69Tag = 1;
    Combo1.add(result.text() + pad);
  } else {
    Command69Tag = 0;
  }
  Combo1.add(func + pad);
}

void CalculatorEngine::addHistoryValue(const QString& text) { Combo1.add(text); }

void CalculatorEngine::numero_Change() {
  if (errorState == 3) {
    image3Failure = false;
    result = kZero;
    errorState = 0;
  }
  // Plain typing (a new entry while result rests at "0") is not history.
  if (numero.text() != kZero && result.text() == kZero) return;
  addHistoryValue(numero);
}

void CalculatorEngine::Command62_Click() {
  guarded(62, [&] { historyPanelVisible = !historyPanelVisible; });
}

void CalculatorEngine::Command63_Click() {
  guarded(63, [&] { Combo1.clear(); });
}

// A line of the history back into numero. Degree texts go back as they are
// (one that ends in ")" as the part before its unit), base conversions as
// their digits, any other line as the number it holds.
void CalculatorEngine::Combo1_DblClick() {
  guarded(kCombo1Topic, [&] {
    QString line = withoutTrailingBlanks(Combo1.text());
    if (line.startsWith(QLatin1Char(' '))) line.remove(0, 1);
    if (line.contains(QChar(0xB0)) && !line.endsWith(QLatin1Char(')'))) {
      numero = line;
    } else if (line.contains(QLatin1Char('('))) {
      const QString digits = digitsBeforeUnit(line);
      if (digits.isEmpty()) return;
      numero = digits;
    } else {
      const QString number = NumberInLine(line);
      if (number.isEmpty()) return;
      func = Res(4418);
      Command69_Click();
      numero = rt::NumberToText(rt::TextToDouble(number));
    }
    entryActive = 0;
  });
}

// ---- Auxiliary viewer ------------------------------------------------------------------

void CalculatorEngine::addViewerLine(const QString& left, const QString& right) {
  List3 << left;
  List4 << right;
}

void CalculatorEngine::Command64_Click() {
  guarded(64, [&] {
    func = Res(4788);
    Command69_Click();
    viewerPanelRequested = true;
    List3.clear();
    List4.clear();
    toolRegisters.fill(0);
  });
}

void CalculatorEngine::takeFromViewer(const QStringList& list, int index) {
  if (index < 0 || index >= list.size()) return;
  const QString number = NumberInLine(list.at(index));
  if (number.isEmpty()) return;
  numero = rt::NumberToText(rt::TextToDouble(number));
  entryActive = 0;
}

void CalculatorEngine::List3_DblClick(int index) {
  guarded(kViewerTopic, [&] { takeFromViewer(List3, index); });
}

void CalculatorEngine::List4_DblClick(int index) {
  guarded(kViewerTopic, [&] { takeFromViewer(List4, index); });
}

// ---- Printouts ------------------------------------------------------------------------------

// Each line numbered "0001", its text and, when it holds one, its value.
PrintDocument CalculatorEngine::historyDocument() const {
  PrintDocument doc(Res(1297));
  printoutHead(doc, historyHeadingId);
  const QStringList& lines = Combo1.lines();
  for (qsizetype i = 0; i < lines.size(); ++i) {
    const QString text = withoutTrailingBlanks(lines.at(i));
    const QString number = NumberInLine(text);
    doc.printAt(8, rt::Format(static_cast<double>(i + 1), QStringLiteral("0000")));
    doc.printAt(15, number.isEmpty() ? text : text + QStringLiteral(" ....        ") + number);
    doc.endLine();
  }
  printoutEnd(doc);
  return doc;
}

// The two lists side by side, a pair to a line.
PrintDocument CalculatorEngine::viewerDocument() const {
  PrintDocument doc(Res(4543));
  printoutHead(doc, 4543);
  const qsizetype n = std::max(List3.size(), List4.size());
  for (qsizetype i = 0; i < n; ++i) {
    doc.printAt(8, i < List3.size() ? List3.at(i) : QString());
    doc.printAt(50, i < List4.size() ? List4.at(i) : QString());
    doc.endLine();
  }
  printoutEnd(doc);
  return doc;
}

void CalculatorEngine::registros_Click() {
  if (helpInstead(helpTopic(kRegistrosTopic))) return;
  if (Combo1.count() == 0) return;
  printDocument(historyDocument());
}

void CalculatorEngine::imprimeAux_Click() {
  if (helpInstead(helpTopic(kImprimeAuxTopic))) return;
  if (List3.isEmpty() && List4.isEmpty()) return;
  printDocument(viewerDocument());
}
