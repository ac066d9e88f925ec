// The calculator engine driven as a user drives it: key sequences in, display
// texts out. Each row of the table runs twice, on a system that writes 1.5
// as "1.5" and on one that writes it as "1,5"; expected texts are written with
// a point and turned into the system's form. "<E31>" stands for the text of
// error code 31.
#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "shell/ErrorReport.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

struct KeyCase {
  const char* name;
  const char* keys;
  const char* numero;
  const char* result = nullptr;     // not checked when null
  const char* pendingOp = nullptr;  // not checked when null
  int errorState = -1;              // not checked when -1
};

const KeyCase kCases[] = {
    // Entry: digits, separator, exponent, sign, backspace, corrector.
    {"ZeroThenZeroStaysZero", "0 0", "0"},
    {"DigitReplacesLeadingZero", "0 0 7", "7"},
    {"DigitsAppend", "1 2 3", "123"},
    {"SecondSeparatorIgnored", "1.5.2", "1.52"},
    {"SeparatorFirstGivesLeadingZero", ".5", "0.5"},
    {"SeparatorAfterOperatorStartsNewEntry", "5 + .5", "0.5", nullptr, "+"},
    {"DigitAfterEqualsStartsNewNumber", "12 = 3", "3"},
    {"SecondExponentIgnored", "1EE5", "1E5"},
    {"SignOnDanglingExponent", "1E<", "1E-"},
    {"NegativeExponentEntry", "1E<5", "1E-5"},
    {"ExponentOnZeroGivesZero", "0E", "0"},
    {"ExponentAfterEqualsRestartsAtZero", "5 = E", "0"},
    {"BackspaceOnSingleDigitGivesZero", "7 Backspace", "0"},
    {"DigitAfterBackspaceToZeroReplacesIt", "7 Backspace 5", "5"},
    {"BackspaceDropsLastCharacter", "123 Backspace", "12"},
    {"CorrectorKeepsPendingOperator", "12 + 5 C 3 =", "15"},
    {"SignNegates", "5<", "-5"},
    {"SignTwiceRestores", "5<>", "5"},
    {"SignOnZeroKeepsZero", "0<", "0"},
    {"SignNormalisesTrailingZeros", "1.50<", "-1.5"},
    // The chain: strictly left to right, the power with its own rule.
    {"ChainEvaluatesOnNextOperator", "2 + 3 +", "5", "5", "+"},
    {"ChainThenEquals", "2 + 3 + 4 =", "9", "9", ""},
    {"NoPrecedenceLeftToRight", "2 + 3 * 4 =", "20"},
    {"DifferenceKeepsAccumulatorOnLeft", "10 - 4 - 3 =", "3"},
    {"QuotientKeepsAccumulatorOnLeft", "100 / 4 / 5 =", "5"},
    {"NegativeAnswer", "7 - 10 =", "-3"},
    {"SecondOperatorRunsOnTheZeroEntry", "2 + * 3 =", "6"},
    {"DecimalSum", "1.5 + 1.25 =", "2.75"},
    {"PowerKey", "2 Command14 10 =", "1024"},
    {"PowerChainsOnlyAfterPower", "2 Command14 3 Command14 2 =", "64"},
    {"PowerDropsAnotherPendingOperator", "2 + 3 Command14 2 =", "9"},
    {"OperatorChainsAfterPower", "2 Command14 3 + 1 =", "9"},
    {"RepeatedEqualsKeepsValue", "2 + 3 = =", "5"},
    // Equals: a positive previous answer is dropped, a negative one stays.
    {"PositivePreviousAnswerIsDropped", "5 + 3 = 7 =", "7", "7"},
    {"NegativePreviousAnswerStays", "5< + 3 = 7 =", "-2", "-2"},
    {"ClearDropsPendingOperator", "12 + 3 A 4 =", "4", "4", ""},
    // Unexpected failures: code 31, whatever the runtime's own number.
    {"DivisionByZeroShowsCode31", "8 / 0 =", "0", "<E31>", "", 3},
    {"DivisionByZeroInChain", "8 / 0 +", "0", "<E31>", "", 3},
    {"OverflowIsUnexpectedFailure", "1E300 * 1E300 =", "0", "<E31>", "", 3},
    {"TextThatIsNotANumber", "1E + 2 =", "0", "<E31>", "", 3},
    {"UnreadableEntryForSet", "1E Command61", "0", "<E31>", "", 3},
    {"DigitAfterErrorEndsTheCycle", "8 / 0 = 5", "5", "0", "", 0},
    {"OperatorAfterErrorClearsTheLine", "8 / 0 = 4 + 1 =", "5", "5", "", 0},
    // Display formats after SET.
    {"SetTwoDecimals", "2 Command61 1 / 3 =", "0.33"},
    {"SetDropsDanglingSeparator", "2 Command61 1 =", "1"},
    {"SetFourDecimals", "4 Command61 2 / 3 =", "0.6667"},
    {"SetNegative", "2 Command61 1< / 3 =", "-0.33"},
    {"SetLargeUsesExponent", "2 Command61 12345.678 =", "1.23E+4"},
    {"SetSmallUsesExponent", "2 Command61 0.0000012345 =", "1.23E-6"},
    {"SetRoundsUpToTheExponentLimit", "2 Command61 9999.999 =", "10000"},
    {"SetZeroShowsZero", "2 Command61 0 =", "0"},
    {"SetZeroDecimals", "0 Command61 2.6 =", "3"},
    {"SetFifteenKeepsAllDigits", "15 Command61 1 / 3 =", "0.333333333333333"},
    {"SetIgnoresFraction", "2.5 Command61 1 / 3 =", "0.333333333333333"},
    {"SetIgnoresSixteen", "16 Command61 1 / 3 =", "0.333333333333333"},
    {"SetIgnoresNegative", "1< Command61 1 / 3 =", "0.333333333333333"},
    // Rounding: halves to the even neighbour.
    {"RoundHalfToEvenDown", "0 Command32 2.5 Command35", "2", "2"},
    {"RoundHalfToEvenUp", "0 Command32 3.5 Command35", "4", "4"},
    {"RoundTwoDigitsByDefault", "2.345 Command35", "2.34"},
    {"RoundTieOnDecimalText", "0.125 Command35", "0.12"},
    {"RoundingDigitsIgnoreSixteen", "16 Command32 0.125 Command35", "0.12"},
    {"RoundThenFormat", "1 Command61 2 Command32 2.345 Command35", "2.3"},
    // Scientific notation goes to result; numero keeps its value.
    {"ScientificWholeNumber", "1200 Command20", "1200", "1.20e+03"},
    {"ScientificDecimal", "123.45 Command20", "123.45", "1.23450e+02"},
    {"ScientificSmall", "0.00125 Command20", "0.00125", "1.250e-03"},
    {"ScientificLongMantissaCapped", "1234567890123 Command20", "1234567890123", "1.2345678901e+12"},
    {"ScientificSingleDigit", "5 Command20", "5", "5.00e+00"},
    {"ScientificNegative", "12345< Command20", "-12345", "-1.2345e+04"},
    // Hexadecimal entry.
    {"HexModeStartsAtZero", "5 Command22", "0"},
    {"HexDigitsTakePrefix", "Command22 Command30(0) 1", "&hA1"},
    {"HexArithmetic", "Command22 Command30(5) Command30(5) + 1 =", "256"},
    {"HexKeysIgnoredInDecimalMode", "Command30(0)", "0"},
    {"BackToDecimal", "Command22 Command22 5", "5"},
};

using KeyRun = SeparatorRun<KeyCase>;

class CalculatorKeys : public CalvixTest, public ::testing::WithParamInterface<KeyRun> {};

QString localised(const char* text, bool comma) {
  QString s = QString::fromUtf8(text);
  if (s == QLatin1String("<E31>")) return ErrorText(31);
  if (comma) s.replace(QLatin1Char('.'), QLatin1Char(','));
  return s;
}

TEST_P(CalculatorKeys, DisplayAfterSequence) {
  const KeyRun& run = GetParam();
  if (run.comma) useComma();
  CalculatorEngine e;
  QString error;
  ASSERT_TRUE(runKeySequence(e, QString::fromUtf8(run.row.keys), &error)) << error.toStdString();
  EXPECT_EQ(e.numero.text(), localised(run.row.numero, run.comma));
  if (run.row.result) {
    EXPECT_EQ(e.result.text(), localised(run.row.result, run.comma));
  }
  if (run.row.pendingOp) {
    EXPECT_EQ(e.pendingOp, QString::fromUtf8(run.row.pendingOp));
  }
  if (run.row.errorState >= 0) {
    EXPECT_EQ(e.errorState, run.row.errorState);
  }
}

INSTANTIATE_TEST_SUITE_P(Table, CalculatorKeys, ::testing::ValuesIn(onBothSeparators(kCases)),
                         separatorRunName<KeyCase>);

class CalculatorEngineTest : public CalvixTest {
 protected:
  static void keys(CalculatorEngine& e, const char* sequence) {
    QString error;
    ASSERT_TRUE(runKeySequence(e, QString::fromUtf8(sequence), &error)) << error.toStdString();
  }
};

TEST_F(CalculatorEngineTest, LoadSetsTheStartValues) {
  program().VatRate = 21.0;
  CalculatorEngine e;
  EXPECT_EQ(e.ivas, QStringLiteral("21 %"));
  EXPECT_EQ(QStringList({e.numero.text(), e.result.text(), e.dcm, e.redond, e.angulo, e.temperat, e.HexDec}),
            QStringList({"0", "0", "15", "2", "deg", "Celsius", "DEC"}));
  EXPECT_EQ(program().CalculatorMode.toText(), QStringLiteral("avanzada"));
  EXPECT_NEAR(program().angleFactor, 0.017453292519943295, 1e-17);
  EXPECT_EQ(e.currencyStatus(), QStringLiteral("1 euro = 166.386 pts"));
}

TEST_F(CalculatorEngineTest, EqualsKeepsANegativeAnswerOnlyWhenStrReproducesIt) {
  // -1.5 reads back through Str as "-1.5" on a point system, but the comma
  // system wrote "-1,5", which Val reads as -1: there the answer is dropped.
  CalculatorEngine point;
  keys(point, "1.5< + 0 = 7 =");
  EXPECT_EQ(point.numero.text(), QStringLiteral("-1.5"));
  useComma();
  CalculatorEngine comma;
  keys(comma, "1.5< + 0 = 7 =");
  EXPECT_EQ(comma.numero.text(), QStringLiteral("7"));
}

TEST_F(CalculatorEngineTest, EverySetValueFromZeroToFifteenGivesThatManyDecimals) {
  for (int n = 0; n <= 15; ++n) {
    CalculatorEngine e;
    keys(e, (std::to_string(n) + " Command61 2 / 3 =").c_str());
    const QString expected = n == 0 ? QStringLiteral("1") : QStringLiteral("0.") + QString(n - 1, QLatin1Char('6')) + QLatin1Char('7');
    EXPECT_EQ(e.numero.text(), expected) << "SET " << n;
    EXPECT_EQ(e.dcm, QString::number(n));
  }
}

TEST_F(CalculatorEngineTest, ErrorCycleRunsThroughItsStates) {
  CalculatorEngine e;
  keys(e, "8 / 0 =");
  EXPECT_EQ(e.errorState, 3);
  EXPECT_TRUE(e.image3Failure);
  EXPECT_EQ(e.func, Res(4573));
  // A clear in state 3 leaves the message state but shows the normal picture.
  e.Command18_Click();
  EXPECT_EQ(e.errorState, 3);
  EXPECT_FALSE(e.image3Failure);
  EXPECT_EQ(e.result.text(), QStringLiteral("0"));
  // The next change of numero ends the cycle.
  keys(e, "4");
  EXPECT_EQ(e.errorState, 0);
}

TEST_F(CalculatorEngineTest, ReportedFailureKeepsItsMessageAndDropsThePendingOperator) {
  CalculatorEngine e;
  keys(e, "9 + 5");
  e.reportFailure(18);
  EXPECT_EQ(e.result.text(), ErrorText(18));
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  EXPECT_EQ(e.errorState, 3);
  EXPECT_TRUE(e.image3Failure);
  EXPECT_TRUE(e.pendingOp.isEmpty());
  EXPECT_EQ(e.accumulator.toText(), QStringLiteral("9"));  // kept, but no longer read
  keys(e, "2 =");
  EXPECT_EQ(e.numero.text(), QStringLiteral("2"));
  EXPECT_FALSE(e.image3Failure);
}

TEST_F(CalculatorEngineTest, HelpCursorShowsHelpInsteadOfActing) {
  CalculatorEngine e;
  program().helpCursor = true;
  e.Command1_Click(5);
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  EXPECT_FALSE(program().helpCursor);
  e.Command1_Click(5);
  EXPECT_EQ(e.numero.text(), QStringLiteral("5"));
}

TEST_F(CalculatorEngineTest, DigitKeyMovesFocusToEqualsButTheKeyboardDoesNot) {
  CalculatorEngine e;
  e.keyPress(QLatin1Char('5'));
  EXPECT_TRUE(e.focusRequest.isEmpty());
  e.Command1_Click(6);
  EXPECT_EQ(e.focusRequest, QStringLiteral("Command19"));
  EXPECT_EQ(e.numero.text(), QStringLiteral("56"));
}

TEST_F(CalculatorEngineTest, HexModeShowsItsKeysAndSaysWhichMode) {
  CalculatorEngine e;
  keys(e, "Command22");
  EXPECT_EQ(e.HexDec, QStringLiteral("HEX"));
  EXPECT_EQ(e.numberPrefix, QStringLiteral("&h"));
  EXPECT_TRUE(e.hexKeysVisible);
  EXPECT_EQ(e.func, Res(4428));
  keys(e, "Command22");
  EXPECT_EQ(e.HexDec, QStringLiteral("DEC"));
  EXPECT_TRUE(e.numberPrefix.isEmpty());
  EXPECT_FALSE(e.hexKeysVisible);
  EXPECT_EQ(e.func, Res(4429));
}

TEST_F(CalculatorEngineTest, HistoryWritesTheAnswerLineEveryOtherFunctionLine) {
  CalculatorEngine e;
  keys(e, "C C");
  const QString pad(32, QLatin1Char(' '));
  EXPECT_EQ(e.Combo1.lines(), (QStringList{QStringLiteral("0") + pad, Res(4572) + pad, Res(4572) + pad}));
}

TEST_F(CalculatorEngineTest, HistoryHasTheTotalFormAndTheValuesButNotPlainTyping) {
  CalculatorEngine e;
  keys(e, "12");
  EXPECT_EQ(e.Combo1.count(), 0);  // plain typing is no history
  keys(e, "+ 3 =");
  const QStringList& lines = e.Combo1.lines();
  EXPECT_TRUE(lines.contains(QStringLiteral("=") + Res(4581) + QString(32, QLatin1Char(' '))));
  EXPECT_EQ(lines.last(), QStringLiteral("15"));
  EXPECT_EQ(e.historyStatus(), QString::number(lines.size()) + QLatin1Char(' ') + Res(4586));
}

TEST_F(CalculatorEngineTest, HeldKeysReachTheirTargets) {
  CalculatorEngine e;
  EXPECT_TRUE(e.keyDown(Qt::Key_Escape));
  EXPECT_TRUE(e.stopRequested);
  EXPECT_TRUE(e.keyDown(Qt::Key_F10, Qt::ShiftModifier));
  EXPECT_TRUE(e.contextMenuRequested);
  // X enters the number as a statistics datum.
  EXPECT_TRUE(e.keyPress(QLatin1Char('X')));
  EXPECT_EQ(program().stats.nx, 1);
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  // The function keys do.
  EXPECT_TRUE(e.keyDown(Qt::Key_F2));
  EXPECT_EQ(e.numero.text(), QStringLiteral("1"));
  EXPECT_TRUE(e.keyPress(QLatin1Char('P')));
  EXPECT_EQ(e.numero.text(), QStringLiteral("3.14159265358979"));
}

TEST_F(CalculatorEngineTest, PastedNumbersAreTypedThroughTheKeyMapAndOtherTextIsRefused) {
  const struct {
    const char* text;
    const char* point;  // numero on a "." system; nullptr: refused
    const char* comma;  // numero on a "," system
  } rows[] = {
      {"12.5", "12.5", "12,5"},     {" 42 ", "42", "42"},        {"2,75", "2.75", "2,75"},
      {"-3", "-3", "-3"},           {"1.5E-3", "1.5E-3", "1,5E-3"}, {"-2e2", "-200", "-200"},
      {".5", "0.5", "0,5"},         {"abc", nullptr, nullptr},   {"1.2.3", nullptr, nullptr},
      {"", nullptr, nullptr},       {"-", nullptr, nullptr},     {"1 000", nullptr, nullptr},
      {"3+4", nullptr, nullptr},
  };
  for (const bool comma : {false, true}) {
    if (comma) useComma();
    for (const auto& row : rows) {
      CalculatorEngine e;
      keys(e, "7 +");
      const bool taken = e.pasteNumber(QString::fromUtf8(row.text));
      EXPECT_EQ(taken, row.point != nullptr) << row.text;
      const char* expected = row.point ? (comma ? row.comma : row.point) : "0";  // refused: the entry as it was
      EXPECT_EQ(e.numero.text(), QString::fromUtf8(expected)) << row.text << (comma ? " comma" : " point");
      EXPECT_EQ(e.pendingOp, QStringLiteral("+")) << row.text;
    }
  }
}

TEST_F(CalculatorEngineTest, TypedLettersWorkInBothCases) {
  CalculatorEngine e;
  keys(e, "12 + 3");
  e.keyPress(QLatin1Char('c'));
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  EXPECT_EQ(e.pendingOp, QStringLiteral("+"));
  e.keyPress(QLatin1Char('a'));
  EXPECT_TRUE(e.pendingOp.isEmpty());
  keys(e, "2e3");
  EXPECT_EQ(e.numero.text(), QStringLiteral("2E3"));
}

}  // namespace
