// Memories, register recall, the history's line rules and taking numbers
// back from the history and the auxiliary viewer, driven by keys. Rows run on
// a "." system and on a "," system; expected texts are written with a point.
#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "calc/ListNumber.h"
#include "shell/ErrorReport.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

QString local(const char* text, bool comma) {
  QString s = QString::fromUtf8(text);
  if (comma) s.replace(QLatin1Char('.'), QLatin1Char(','));
  return s;
}

void keys(CalculatorEngine& e, const QString& sequence) {
  QString error;
  ASSERT_TRUE(runKeySequence(e, sequence, &error)) << error.toStdString();
}

// ---- Memories ---------------------------------------------------------------------

struct MemoryRow {
  const char* name;
  double start;        // memory 1 (index 0) before the keys
  const char* keys;
  const char* field;   // m1(0) afterwards
  double value;        // the program-wide memory afterwards
  const char* numero;
};

const MemoryRow kMemoryRows[] = {
    {"AddTwice", 0, "2.5 Shift+1 Shift+1", "5", 5, "2.5"},
    {"AddZeroLeavesTheMemory", 7.25, "0 Shift+1", "7.25", 7.25, "0"},
    {"AZeroEntryIsWrittenZero", 7.25, "0.000 Shift+1", "7.25", 7.25, "0"},
    {"AddNegative", 1, "3< Shift+1", "-2", -2, "-3"},
    {"AddTheHexadecimalValue", 1, "Command22 Command30(5) Shift+1", "16", 16, "&hF"},
    {"FieldKeepsFifteenDigits", 0.1, "0.2 Shift+1 Command24(0)", "0.3", 0.30000000000000004, "0.3"},
    {"RecallWritesTheMemoryAsANumber", -1.5, "9 Command24(0)", "-1.5", -1.5, "-1.5"},
    {"DoubleClickRecallsToo", 42, "m1(0)", "42", 42, "42"},
    {"ClearSetsZero", 42, "Command29(0) Command24(0)", "0", 0, "0"},
    {"OverflowIsCode31AndKeepsTheMemory", 1e308, "1E308 Shift+1", "1E+308", 1e308, "0"},
};

class MemoryKeys : public CalvixTest, public ::testing::WithParamInterface<std::tuple<MemoryRow, bool>> {};

TEST_P(MemoryKeys, FieldValueAndDisplay) {
  const auto& [row, comma] = GetParam();
  if (comma) useComma();
  program().Memories[0] = row.start;
  CalculatorEngine e;
  const QString sequence = QString::fromUtf8(row.keys);
  if (sequence == QLatin1String("m1(0)")) e.m1_DblClick(0);
  else keys(e, sequence);
  EXPECT_EQ(e.m1[0], local(row.field, comma));
  EXPECT_EQ(program().Memories[0], row.value);
  EXPECT_EQ(e.numero.text(), local(row.numero, comma));
  EXPECT_EQ(program().Memories[1], 0);  // the others stay
}

INSTANTIATE_TEST_SUITE_P(Rows, MemoryKeys, ::testing::Combine(::testing::ValuesIn(kMemoryRows), ::testing::Bool()),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param).name) +
                                  (std::get<1>(info.param) ? "_Comma" : "_Point");
                         });

class MemoriesAndHistoryTest : public CalvixTest {};

TEST_F(MemoriesAndHistoryTest, MemoryKeysNameThemselvesWriteHistoryAndEndTheEntry) {
  CalculatorEngine e;
  keys(e, QStringLiteral("12 Shift+3"));
  EXPECT_EQ(e.func, Res(4220) + QStringLiteral(" 3"));
  EXPECT_EQ(e.Combo1.text().trimmed(), e.func);
  EXPECT_EQ(e.entryActive, 0);
  EXPECT_EQ(e.focusRequest, QStringLiteral("Command19"));
  keys(e, QStringLiteral("4 Command24(2)"));  // a digit replaces, then the recall
  EXPECT_EQ(e.func, Res(4216) + QStringLiteral(" 3"));
  EXPECT_EQ(e.numero.text(), QStringLiteral("12"));
  keys(e, QStringLiteral("Command29(2)"));
  EXPECT_EQ(e.func, Res(4221) + QStringLiteral(" 3"));
  EXPECT_EQ(e.m1[2], QStringLiteral("0"));
}

// ---- Registers ---------------------------------------------------------------------

TEST_F(MemoriesAndHistoryTest, RegisterRecallShowsValueAndLabelAndTooltipsFollowActivation) {
  clearSettings(program());  // as before any settings file was read
  CalculatorEngine e;
  e.Command74_Click(1);  // never written
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  EXPECT_EQ(e.result.text(), QString());
  EXPECT_EQ(e.func, Res(4275) + QStringLiteral("2: "));

  WriteRegister(3, -2.5, QStringLiteral("Área del círculo"));
  EXPECT_EQ(e.Command74Tooltip[3], QString());  // until the window is activated again
  e.Form_Activate();
  EXPECT_EQ(e.Command74Tooltip[3], QStringLiteral("Área del círculo"));
  keys(e, QStringLiteral("7 Command74(3)"));
  EXPECT_EQ(e.numero.text(), QStringLiteral("-2.5"));
  EXPECT_EQ(e.result.text(), QStringLiteral("Área del círculo"));
  EXPECT_EQ(e.func, Res(4275) + QStringLiteral("4: Área del círculo"));
  EXPECT_EQ(e.entryActive, 0);
}

// ---- History ---------------------------------------------------------------------

TEST_F(MemoriesAndHistoryTest, Line4001OfAnyKindClearsTheWholeList) {
  CalculatorEngine e;
  for (int i = 0; i < 3999; ++i) e.addHistoryValue(QString::number(i));
  const int clears = e.Combo1.clears();
  // A function key after a value writes two lines: the answer as line 4000,
  // then its name, which starts a new list.
  keys(e, QStringLiteral("C"));
  EXPECT_EQ(e.Combo1.count(), 1);
  EXPECT_EQ(e.Combo1.lines().first().trimmed(), Res(4572));
  EXPECT_EQ(e.Combo1.clears(), clears + 1);
  EXPECT_EQ(e.Combo1.ListIndex(), 0);
  EXPECT_DOUBLE_EQ(e.Combo1.fill(), 1.0 / 4000);
  keys(e, QStringLiteral("Command63"));
  EXPECT_EQ(e.Combo1.count(), 0);
  EXPECT_EQ(e.Combo1.ListIndex(), -1);
  EXPECT_EQ(e.historyStatus(), QStringLiteral("0 ") + Res(4586));
}

TEST_F(MemoriesAndHistoryTest, PanelKeysAndTheViewerClear) {
  CalculatorEngine e;
  keys(e, QStringLiteral("Command62"));
  EXPECT_TRUE(e.historyPanelVisible);
  keys(e, QStringLiteral("Command62"));
  EXPECT_FALSE(e.historyPanelVisible);
  e.addViewerLine(QStringLiteral(":   X1 ="), QStringLiteral("1.5e+00"));
  e.toolRegisters[7] = 3;
  keys(e, QStringLiteral("Command64"));
  EXPECT_TRUE(e.List3.isEmpty() && e.List4.isEmpty());
  EXPECT_EQ(e.toolRegisters[7], 0);
  EXPECT_TRUE(e.viewerPanelRequested);
  EXPECT_EQ(e.func, Res(4788));
}

// ---- Taking a number back -------------------------------------------------------------

struct TakeRow {
  const char* name;
  const char* keys;    // run first; a "|" separates an --answer for an input box
  const char* line;    // the last history line that starts with this text is taken
  const char* numero;  // afterwards; nullptr: the line holds nothing and numero stays
};

const TakeRow kTakeRows[] = {
    {"PlainValue", "2 + 3.5 =", "5.5", "5.5"},
    {"AnswerLineOfAnEquals", "2.5 =", "2.5TOTAL", "2.5"},
    {"TheEqualsSignLineHoldsNothing", "2.5 =", "=", nullptr},
    {"ExponentValue", "1E20 * 1E5 =", "1E+25", "1E+25"},
    {"NegativeValue", "2 - 7.5 =", "-5.5", "-5.5"},
    {"ScientificNotation", "1200 Command20", "1.20e+03", "1200"},
    {"TemperatureLine", "20 Command5(1)", "293.15", "293.15"},
    {"AngleLine", "180 Command59(1)", "3.14", "3.14159265358979"},
    {"DegreeTextEndingInItsUnit", "12.5 Command66", "12\u00B0", "12\u00B030'00''"},
    {"DegreeTextOfAnAnswerLine", "12\u00BA34\u00BA56\u00BA Command65 C", "12\u00B034", "12\u00B034'56''"},
    {"ReductionLine", "725 Command67", "5\u00B0", "5\u00B0"},
    {"HexadecimalConversion", "485 H C C", "1E5", "&h1E5"},
    {"BinaryConversionKeepsItsDigits", "5 B C C", "101", "101"},
    {"BaseNConversion", "255 Command91|5", "2010", "2010"},
    {"HexDigitsAloneAreNoNumber", "255 H", "FF", nullptr},
    {"FunctionNameHoldsNothing", "2 Command10(4)", "1/x", nullptr},
    {"MemoryKeyLineHoldsNothing", "2 Shift+1", "Sumar", nullptr},
};

class TakeFromHistory : public CalvixTest, public ::testing::WithParamInterface<std::tuple<TakeRow, bool>> {};

TEST_P(TakeFromHistory, NumeroTakesWhatTheLineHolds) {
  const auto& [row, comma] = GetParam();
  if (comma) useComma();
  CalculatorEngine e;
  const QStringList parts = QString::fromUtf8(row.keys).split(QLatin1Char('|'));
  if (parts.size() > 1) messages.queueText(parts.at(1));
  keys(e, local(row.keys, comma).section(QLatin1Char('|'), 0, 0));
  const QString start = local(row.line, comma);
  int found = -1;
  for (int i = 0; i < e.Combo1.count(); ++i) {
    if (e.Combo1.lines().at(i).startsWith(start)) found = i;
  }
  ASSERT_GE(found, 0) << "no line " << start.toStdString() << " in " << e.Combo1.lines().join(QLatin1Char('|')).toStdString();
  keys(e, QStringLiteral("9"));  // an entry the take replaces
  const QString before = e.numero.text();
  ASSERT_TRUE(e.Combo1.select(found));
  e.Combo1_DblClick();
  EXPECT_EQ(e.numero.text(), row.numero ? local(row.numero, comma) : before);
  if (row.numero) {
    EXPECT_EQ(e.entryActive, 0);
    // The number works in the next key: a degree text in the degree parser,
    // any other in a sum.
    const bool degrees = e.numero.text().contains(QChar(0xB0));
    keys(e, degrees ? QStringLiteral("Command65") : QStringLiteral("+ 0 ="));
    EXPECT_EQ(e.errorState, 0) << e.result.text().toStdString();
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, TakeFromHistory, ::testing::Combine(::testing::ValuesIn(kTakeRows), ::testing::Bool()),
                         [](const auto& info) {
                           return std::string(std::get<0>(info.param).name) +
                                  (std::get<1>(info.param) ? "_Comma" : "_Point");
                         });

TEST_F(MemoriesAndHistoryTest, ATakenValueIsNamedInTheHistory) {
  CalculatorEngine e;
  e.addHistoryValue(QStringLiteral("293.15 Kelvin"));
  e.Combo1_DblClick();
  EXPECT_EQ(e.func, Res(4418));
  EXPECT_EQ(e.numero.text(), QStringLiteral("293.15"));
}

TEST_F(MemoriesAndHistoryTest, ViewerLinesGiveTheirValue) {
  const struct {
    const char* line;
    const char* number;
  } rows[] = {
      {":   X1 =   1.5e+00", "1.5e+00"},
      {":   X2 =  -2.25e-03", "-2.25e-03"},
      {"Discriminante  -4", "-4"},
      {" 12.5", "12.5"},
      {":   X1 =", ""},
      {"Raíz  x2", ""},
      {"", ""},
  };
  for (const auto& r : rows) EXPECT_EQ(NumberInLine(QString::fromUtf8(r.line)), QString::fromUtf8(r.number)) << r.line;

  CalculatorEngine e;
  e.addViewerLine(QStringLiteral(":   X1 ="), QStringLiteral(":   X1 =   1.5e+00"));
  e.List3_DblClick(0);
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  e.List4_DblClick(0);
  EXPECT_EQ(e.numero.text(), QStringLiteral("1.5"));
  e.List4_DblClick(5);  // no such line
  EXPECT_EQ(e.numero.text(), QStringLiteral("1.5"));
}

}  // namespace
