// The calculator's modes and conversions driven by keys: VAT and currency
// chains, the six temperature pairs, angle modes and units, degree entry and
// parsing, reduction to the first turn, and the number bases with their input
// box. Each row runs on a "." system and on a "," system; expected texts are
// written with a point. "<E26>" stands for the text of error code 26, and a
// text after it is appended as written.
#include <cstdint>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "shell/ErrorReport.h"
#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

struct Row {
  const char* name;
  const char* keys;
  const char* numero;
  const char* result = nullptr;  // not checked when null
  const char* answer = nullptr;  // typed into the input box, when one opens
};

QString expected(const char* text, bool comma) {
  QString s = QString::fromUtf8(text);
  if (s.startsWith(QLatin1String("<E"))) {
    const qsizetype close = s.indexOf(QLatin1Char('>'));
    return ErrorText(s.mid(2, close - 2).toInt()) + s.mid(close + 1);
  }
  if (comma) s.replace(QLatin1Char('.'), QLatin1Char(','));
  return s;
}

const Row kRows[] = {
    // VAT at the default 16 %, a new rate, and chains.
    {"VatAmount", "100 V", "16"},
    {"AddVat", "100 Shift+V", "116"},
    {"AddThenRemoveVat", "123.45 Shift+V Ctrl+V", "123.45"},
    {"NewRateApplies", "7.5 Command60 200 V", "15"},
    {"RateAbove100IsIgnored", "101 Command60 100 V", "16"},
    {"NegativeRateOf100MakesRemovalFail", "100< Command60 50 Ctrl+V", "0", "<E31>"},
    {"VatOnTheRightOperand", "10 + 100 Shift+V =", "126"},
    // Currencies: 1 euro = 166.386 pts.
    {"EurosToPesetas", "10 Q", "1663.86"},
    {"PesetasToEuros", "1663.86 W", "10"},
    {"CurrencyInAChain", "2 * 10 Q =", "3327.72"},
    // Temperature: every pair, and a scale to itself.
    {"CelsiusToKelvin", "25 Command5(1)", "25", "298.15 Kelvin"},
    {"CelsiusToFahrenheit", "100 Command5(2)", "100", "212 Fahrenheit"},
    {"KelvinToCelsius", "Command48 0 Command5(0)", "0", "-273.15 Celsius"},
    {"KelvinToFahrenheit", "Command48 0 Command5(2)", "0", "-459.67 Fahrenheit"},
    {"FahrenheitToCelsius", "Command48 Command48 212 Command5(0)", "212", "100 Celsius"},
    {"FahrenheitToKelvin", "Command48 Command48 32 Command5(1)", "32", "273.15 Kelvin"},
    {"KelvinToKelvinReturnsTheInput", "Command48 12.50 Command5(1)", "12.50", "12.50 Kelvin"},
    // Angle units: the value goes to result, numero keeps the entry.
    {"DegreesToRadians", "180 Command59(1)", "180", "3.14159265358979 rad"},
    {"DegreesToGrads", "90 Command59(2)", "90", "100 gra"},
    {"RadiansToDegrees", "Command50 Command50 3.14159265358979 Command59(0)", "3.14159265358979", "180 deg"},
    {"RadiansToGrads", "Command50 Command50 3.14159265358979 Command59(2)", nullptr, "200 gra"},
    {"GradsToDegrees", "Command50 200 Command59(0)", "200", "180 deg"},
    {"DegreeTextToRadians", "90º Command59(1)", "90", "1.5707963267949 rad"},
    // Degree entry: one mark per press, in order; nothing after the seconds.
    {"DegreeMarks", "12º34º56º", "12°34'56''"},
    {"MinuteMarkWaitsForDigits", "12ºº", "12°"},
    {"SecondMarkWaitsForDigits", "12º34ºº", "12°34'"},
    {"NothingAfterTheSeconds", "12º34º56º7º", "12°34'56''"},
    {"NoMarkOnAFinishedNumber", "5 = º", "5"},
    {"NoDegreesInRadians", "Command50 Command50 12 º", "0", "<E25>"},
    // Degree text to number.
    {"DegreesAndMinutes", "12º30º Command65", "12.5", "12°30'  (deg)"},
    {"DegreesMinutesSeconds", "12º34º56º Command65", "12.5822222222222"},
    {"GradeMinutesAreHundredths", "Command50 12º30º50º Command65", "12.305", "12°30'50''  (gra)"},
    {"SeparatorIsCode1", "1.5º Command65", "0", "<E1>"},
    {"ParsingInRadiansIsCode25", "30º Command50 Command50 Command65", "0", "<E25>"},
    {"MinutesAddToANegativeDegree", "5< º 30 º Command65", "-4.5"},
    // Number to degrees, minutes, seconds.
    {"ToDegreesMinutesSeconds", "10.5 Command66", "10.5", "10°  30'  00''  (deg)"},
    {"DegreeTextRoundTrip", "12º34º56º Command66", "12.5822222222222", "12°  34'  56''  (deg)"},
    {"GradsToDegreesMinutesSeconds", "Command50 100 Command66", "100", "90°  0'  00''  (deg)"},
    {"RadiansToDegreesMinutesSeconds", "Command50 Command50 1 Command66", "1", "57°  17'  45''  (deg)"},
    // Reduction to the first turn.
    {"ReductionBelow360IsCode39", "359 Command67", "0", "<E39>"},
    {"ReductionOf725", "725 Command67", "725", "5° (deg)"},
    {"ReductionOf360", "360 Command67", nullptr, "0° (deg)"},
    {"ReductionCountsTurnsOnTheRoundedAngle", "719.5 Command67", nullptr, "-0.5° (deg)"},
    {"ReductionRoundsHalfToEven", "720.5 Command67", nullptr, "0.5° (deg)"},
    {"ReductionOfDegreeText", "725º30º Command67", "725.5", "5.5° (deg)"},
    {"ReductionInGrads", "Command50 900 Command67", nullptr, "90° (deg)"},
    {"ReductionOfNegativeIsCode39", "725< Command67", "0", "<E39>"},
    {"ReductionBeyond32BitsIsUnexpected", "3E9 Command67", "0", "<E31>"},
    // Number bases: the runtime's Hex and Oct; binary by halving with integer division.
    {"ToHexadecimal", "255 H", "255", "FF  (Hexadecimal)"},
    {"ToBinary", "5 B", "5", "101  (Binario)"},
    {"ZeroToBinary", "0 B", "0", "0000  (Binario)"},
    {"HexRoundsHalfToEven", "12.5 H", nullptr, "C  (Hexadecimal)"},
    {"MinusOneToHexIsSixteenBit", "1< H", nullptr, "FFFF  (Hexadecimal)"},
    {"MinusOneToBinary", "1< B", nullptr, "1  (Binario)"},
    {"NegativeToBinaryGivesTheMagnitudesDigits", "5< B", nullptr, "101  (Binario)"},
    {"SmallestLongToBinary", "2147483648< B", nullptr, "10000000000000000000000000000000  (Binario)"},
    {"LargeNegativeToHex", "40000< H", nullptr, "FFFF63C0  (Hexadecimal)"},
    {"LargeNegativeToOctal", "40000< O", nullptr, "37777661700  (Octal)"},
    {"Largest32BitToBinary", "2147483647 B", nullptr, "1111111111111111111111111111111  (Binario)"},
    {"Beyond32BitsToHexIsUnexpected", "2147483648 H", "0", "<E31>"},
    {"Beyond32BitsToBinaryIsUnexpected", "2147483649< B", "0", "<E31>"},
    {"HexModeToDecimal", "Command22 Command30(5) Command30(5) D", "&hFF", "255  (Decimal)"},
    {"HexModeFourDigitsAreSixteenBit", "Command22 Command30(5) Command30(5) Command30(5) Command30(5) D", nullptr,
     "-1  (Decimal)"},
    {"HexModeToBinary", "Command22 Command30(0) 5 B", nullptr, "10100101  (Binario)"},
    // Decimal to base N and back, through the input box.
    {"FiveToBaseEightKeepsLeadingZero", "5 Command91", "5", "05  (Base 8)", "8"},
    {"BaseTenIsCode26", "5 Command91", "0", "<E26>", "10"},
    {"BaseWithSeparatorIsCode26", "5 Command91", "0", "<E26>", "2.0"},
    {"BaseThatIsNotANumberIsCode26", "5 Command91", "0", "<E26>", "ocho"},
    {"ToBaseTwo", "13 Command91", nullptr, "1101  (Base 2)", "2"},
    {"ToBaseDropsSignAndFraction", "13.7< Command91", nullptr, "1101  (Base 2)", "2"},
    {"FromBaseTwo", "101 Command92", "101", "101  (Base2)  en base 10 =  5", "2"},
    {"DigitAtTheBaseIsCode27", "19 Command92", "0", "<E27> 8", "8"},
    {"FromBaseTenIsCode26", "19 Command92", "0", "<E26>", "10"},
};

using KeyRun = SeparatorRun<Row>;

class ConversionKeys : public CalvixTest, public ::testing::WithParamInterface<KeyRun> {};

TEST_P(ConversionKeys, ShowTheExpectedTexts) {
  const KeyRun& run = GetParam();
  if (run.comma) useComma();
  if (run.row.answer) messages.queueText(QString::fromUtf8(run.row.answer));
  CalculatorEngine engine;
  QString error;
  ASSERT_TRUE(runKeySequence(engine, QString::fromUtf8(run.row.keys), &error)) << error.toStdString();
  if (run.row.numero) {
    EXPECT_EQ(engine.numero.text(), expected(run.row.numero, run.comma));
  }
  if (run.row.result) {
    EXPECT_EQ(engine.result.text(), expected(run.row.result, run.comma));
  }
  EXPECT_EQ(messages.shown().size(), run.row.answer ? 1U : 0U);
}

INSTANTIATE_TEST_SUITE_P(BothSeparators, ConversionKeys, ::testing::ValuesIn(onBothSeparators(kRows)),
                         separatorRunName<Row>);

// ---- Modes --------------------------------------------------------------------------

class CalculatorModes : public CalvixTest {};

TEST_F(CalculatorModes, AngleModeCyclesWithItsFactor) {
  CalculatorEngine engine;
  const double pi = 3.14159265358979323846;
  const struct {
    const char* mode;
    double factor;
  } cycle[] = {{"gra", pi / 200}, {"rad", 1}, {"deg", pi / 180}, {"gra", pi / 200}};
  for (const auto& step : cycle) {
    engine.Command50_Click();
    EXPECT_EQ(engine.angulo, QLatin1String(step.mode));
    EXPECT_DOUBLE_EQ(program().angleFactor, step.factor) << step.mode;
    EXPECT_EQ(engine.func, Res(4577) + QLatin1Char(' ') + QLatin1String(step.mode));
  }
  // Each activation of the window starts again in degrees.
  engine.Form_Activate();
  EXPECT_EQ(engine.angulo, QStringLiteral("deg"));
  EXPECT_DOUBLE_EQ(program().angleFactor, pi / 180);
}

TEST_F(CalculatorModes, TemperatureScaleCyclesAndConvertsFromTheSelectedScale) {
  CalculatorEngine engine;
  for (const char* scale : {"Kelvin", "Fahrenheit", "Celsius"}) {
    engine.Command48_Click();
    EXPECT_EQ(engine.temperat, QLatin1String(scale));
    EXPECT_EQ(engine.func, Res(4575) + QLatin1Char(' ') + QLatin1String(scale));
  }
  // The key converts; it never changes the selected scale.
  engine.numero = QStringLiteral("10");
  engine.Command5_Click(1);
  EXPECT_EQ(engine.temperat, QStringLiteral("Celsius"));
  EXPECT_EQ(engine.Combo1.lines().last(), QStringLiteral("283.15 Kelvin"));
}

TEST_F(CalculatorModes, VatRateReachesTheSettingsAndTheDisplay) {
  CalculatorEngine engine;
  EXPECT_EQ(engine.ivas, QStringLiteral("16 %"));
  useComma();
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("7.5 Command60")));
  EXPECT_EQ(engine.ivas, QStringLiteral("7,5 %"));
  EXPECT_DOUBLE_EQ(program().VatRate.toDouble(), 7.5);
  // A new calculator takes the stored rate.
  CalculatorEngine next;
  EXPECT_EQ(next.ivas, QStringLiteral("7,5 %"));
  ASSERT_TRUE(runKeySequence(next, QStringLiteral("200 V")));
  EXPECT_EQ(next.numero.text(), QStringLiteral("15"));
}

TEST_F(CalculatorModes, CurrencyKeysFollowTheSettings) {
  ProgramState& p = program();
  p.Currency1 = QStringLiteral("usd");
  p.Currency2 = QStringLiteral("yen");
  p.ExchangeRate = 150.0;
  CalculatorEngine engine;
  engine.Form_Activate();
  EXPECT_EQ(engine.Command33Caption, QStringLiteral("usd\u2192yen"));
  EXPECT_EQ(engine.Command33Tooltip, QStringLiteral("usd \u2192 yen.  {Q}"));
  EXPECT_EQ(engine.Command34Tooltip, QStringLiteral("yen \u2192 usd.  {W}"));
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("3 Q")));
  EXPECT_EQ(engine.numero.text(), QStringLiteral("450"));
  EXPECT_EQ(engine.func, Res(4446) + QStringLiteral(" yen"));
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("W")));
  EXPECT_EQ(engine.numero.text(), QStringLiteral("3"));
  EXPECT_EQ(engine.func, Res(4446) + QStringLiteral(" usd"));
  // A rate of zero cannot divide: the unexpected-failure path.
  p.ExchangeRate = 0.0;
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("5 W")));
  EXPECT_EQ(engine.result.text(), ErrorText(31));
}

// ---- Bases ---------------------------------------------------------------------------

class BaseConversions : public CalvixTest {};

// The digits of a whole number in a base, by integer arithmetic.
QString referenceDigits(std::uint64_t x, unsigned base) {
  QString s;
  do {
    s.prepend(QChar(u'0' + static_cast<char16_t>(x % base)));
    x /= base;
  } while (x != 0);
  return s;
}

TEST_F(BaseConversions, InputBoxAsksWithTheValueAsDefault) {
  CalculatorEngine engine;
  messages.queueText(QStringLiteral("3"));
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("42.9 Command91")));
  ASSERT_EQ(messages.shown().size(), 1U);
  const MessageRequest& box = messages.shown().front();
  EXPECT_EQ(box.kind, 5);
  EXPECT_EQ(box.text, Res(4528));
  EXPECT_EQ(box.defaultText, QStringLiteral("42"));
  EXPECT_EQ(box.title, QStringLiteral("Calvix  -  ") + Res(4772));
  EXPECT_EQ(engine.result.text(), QStringLiteral("1120  (Base 3)"));
  EXPECT_EQ(engine.Combo1.lines().last(), engine.result.text());
}

TEST_F(BaseConversions, CancelledBoxChangesNothing) {
  CalculatorEngine engine;
  messages.queueButton(1);
  messages.queueButton(1);
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("77 Command91 Command92")));
  EXPECT_EQ(messages.shown().size(), 2U);
  EXPECT_EQ(engine.numero.text(), QStringLiteral("77"));
  EXPECT_EQ(engine.errorState, 0);
  EXPECT_EQ(engine.result.text(), QStringLiteral("0"));
}

TEST_F(BaseConversions, RoundTripThroughEveryBase) {
  for (unsigned base = 2; base <= 9; ++base) {
    for (const std::uint64_t x : {std::uint64_t{1}, std::uint64_t{base}, std::uint64_t{1234567},
                                  std::uint64_t{999999999999999}}) {
      CalculatorEngine engine;
      messages.queueText(QString::number(base));
      engine.numero = QString::number(x);
      engine.Command91_Click();
      QString digits = referenceDigits(x, base);
      if (x < base) digits.prepend(QLatin1Char('0'));
      ASSERT_EQ(engine.result.text(), digits + QStringLiteral("  (Base ") + QString::number(base) + QLatin1Char(')'))
          << x << " in base " << base;
      // And back: the digits typed into numero give the number again.
      messages.queueText(QString::number(base));
      engine.numero = digits;
      engine.Command92_Click();
      EXPECT_TRUE(engine.result.text().endsWith(Res(4531) + QString::number(x))) << engine.result.text().toStdString();
    }
  }
}

}  // namespace
