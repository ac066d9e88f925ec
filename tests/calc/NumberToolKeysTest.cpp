// The complex-number keys and the number tools driven as a user drives them:
// each row types a key sequence (answering the boxes it opens) and checks
// numero and result. Every row runs on a "." and on a "," system; expected
// texts are written with a point between digits. "<E18>" stands for the text
// of error code 18. Then the viewer lines, the prime listing's boxes, stop
// and capacity, and the dialogues' reset.
#include <QRegularExpression>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "shell/ErrorReport.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

struct Row {
  const char* name;
  const char* keys;
  const char* numero;
  const char* result = nullptr;  // not checked when null
  const char* answers = nullptr; // "|"-separated answers to the boxes
};

QString expected(const char* text, bool comma) {
  QString s = QString::fromUtf8(text);
  if (s.startsWith(QLatin1String("<E")) && s.endsWith(QLatin1Char('>'))) return ErrorText(s.mid(2).chopped(1).toInt());
  if (comma) s.replace(QRegularExpression(QStringLiteral("(\\d)\\.(\\d)")), QStringLiteral("\\1,\\2"));
  return s;
}

const Row kRows[] = {
    // The prime test's checks, in their order: 29, 18, 30, 6.
    {"PrimeOfDegreeTextIsCode29", "12\u00BA Command93(0)", "0", "<E29>"},
    {"PrimeOfNegativeIsCode18", "5< Command93(0)", "0", "<E18>"},
    {"PrimeOfSmallExponentFormIsCode30", "1E<3 Command93(0)", "0", "<E30>"},
    {"PrimeOfExponentFormIsCode30", "1E3 Command93(0)", "0", "<E30>"},
    {"PrimeOfFractionIsCode6", "2.5 Command93(0)", "0", "<E6>"},
    {"PrimeOfZeroIsCode18", "0 Command93(0)", "0", "<E18>"},
    {"PrimeOfTooLargeIsCode8", "10000000000000000 Command93(0)", "0", "<E8>"},
    {"PrimeYes", "10007 Command93(0)", "10007", "10007   Primo:  Si"},
    {"PrimeSquareOfPrimeIsNot", "100140049 Command93(0)", "100140049", "100140049   Primo:  No"},
    // Sixteen digits show by the runtime's rule, in exponent form.
    {"PrimeNearTheLimit", "9007199254740881 Command93(0)", "9007199254740881", "9.00719925474088E+15   Primo:  Si"},
    {"Factorisation", "360 Command45", "360", "360 = 2^3 x 3^2 x 5"},
    {"FactorisationOfAFraction", "3.5 Command45", "0", "<E6>"},
    // Two numbers on either side of the separator.
    {"GcdAndLcm", "12.18 Command95", "12.18", "M.C.D. (12, 18) = 6\r\nm.c.m. (12, 18) = 36"},
    {"GcdWithoutSecondNumber", "12 Command95", "0", "<E18>"},
    {"GcdOfZero", "0.5 Command95", "0", "<E18>"},
    {"GcdOfExponentForm", "1E5 Command95", "0", "<E30>"},
    {"IrreducibleFraction", "12.18 Command96", "12.18", "Fracci\u00F3n irreducible\r\n(12 / 18) = (2 / 3)"},
    {"FractionOfZeroDenominator", "12 Command96", "0", "<E18>"},
    {"Variations", "5.2 Command56(0)", "20", "20"},
    {"CombinatoricsNeedsTheSeparator", "5 Command56(0)", "0", "<E55>"},
    {"CombinatoricsOfExponentForm", "5.1E2 Command56(0)", "0", "<E30>"},
    {"CombinatoricsWithMZero", "0.2 Command56(2)", "0", "<E37>"},
    {"CombinatoricsWithNAboveM", "3.5 Command56(2)", "0", "<E38>"},
    // Quotient by Int, the floor.
    {"QuotientOfNegative", "7< Command44 2 Command44", "2", "Cociente:  Int(x / y) = -4\r\nResto:  x - q*y = 1"},
    {"QuotientOfFractions", "7.5 Command44 2 Command44", "2", "Cociente:  Int(x / y) = 3\r\nResto:  x - q*y = 1.5"},
    {"QuotientFirstPressEchoes", "7 Command44", "7", "x = 7"},
    {"QuotientByZeroIsUnexpected", "7 Command44 0 Command44", "0", "<E31>"},
    {"TartagliaLine", "5 Command38", "5", "(1,  5,  10,  10,  5,  1)"},
    {"TartagliaOfZero", "0 Command38", "0", "(1)"},
    {"TartagliaTooLarge", "171 Command38", "0", "<E8>"},
    {"NifLetterOfZero", "0 Command94", "0", "0 T (NIF)"},
    {"NifLetter", "12345678 Command94", "12345678", "12345678 Z (NIF)"},
    {"RomanNumerals", "4999 Command53", "4999", "4999  =  MQCMXCIX (N\u00FAmeros romanos)"},
    {"RomanOfExponentForm", "1E3 Command53", "0", "<E30>"},
    {"MagneticMoment", "1 Command41", "1.73205080756888", "1.73205080756888   (BM)"},
    {"MagneticMomentOfNegative", "1< Command41", "0", "<E18>"},
    // Complex numbers: degrees always, whatever the angle mode.
    {"PolarToRectangular", "2 Command73 90 Command73", "1.22464679914735E-16",
     "x = 1.22464679914735E-16;  y = 2 i"},
    {"PolarIgnoresTheAngleMode", "Command50 Command50 2 Command73 180 Command73", "-2"},
    {"PolarFirstPressEchoes", "2 Command73", "2", "m = 2"},
    {"RectangularOriginIsZero", "0 Command98 0 Command98", "0", "m = 0;  \u00D8 = 0 \u00B0"},
    {"ClearEndsTheDialogue", "2 Command73 A 3 Command73", "3", "m = 3"},
    {"AnotherDialogueStartsAfresh", "2 Command73 5 Command98", "5", "x = 5"},
    // Generating fractions from digit strings.
    {"GeneratingExact", "Command27", "0", "12.363  =  12363 / 1000", "1|12|363"},
    {"GeneratingPure", "Command27", "0", "365.222...  =  3287 / 9", "2|365|2"},
    {"GeneratingMixed", "Command27", "0", "13.12464646...  =  64967 / 4950", "3|13|12|46"},
    {"GeneratingBadType", "Command27", "0", "<E8>", "4"},
    {"GeneratingNotDigits", "Command27", "0", "<E29>", "1|1a|5"},
    {"GeneratingOverflowIsUnexpected", "Command27", "0", "<E31>", "1|99999999999999999999|5"},
    {"GeneratingCancelled", "5 Command27", "5", nullptr, "button:1"},
};

using KeyRun = SeparatorRun<Row>;

class NumberToolKeys : public CalvixTest, public ::testing::WithParamInterface<KeyRun> {};

TEST_P(NumberToolKeys, ShowTheExpectedTexts) {
  const KeyRun& run = GetParam();
  if (run.comma) useComma();
  if (run.row.answers) {
    for (const QString& a : QString::fromUtf8(run.row.answers).split(QLatin1Char('|'))) messages.queueAnswer(a);
  }
  CalculatorEngine engine;
  QString error;
  ASSERT_TRUE(runKeySequence(engine, QString::fromUtf8(run.row.keys), &error)) << error.toStdString();
  EXPECT_EQ(engine.numero.text(), expected(run.row.numero, run.comma));
  if (run.row.result) {
    EXPECT_EQ(engine.result.text(), expected(run.row.result, run.comma));
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, NumberToolKeys, ::testing::ValuesIn(onBothSeparators(kRows)), separatorRunName<Row>);

class NumberToolViewer : public CalvixTest {
 protected:
  // The viewer as "left|right" lines.
  QStringList viewer() const {
    QStringList lines;
    for (qsizetype i = 0; i < engine.List3.size(); ++i) lines << engine.List3.at(i) + QLatin1Char('|') + engine.List4.at(i);
    return lines;
  }
  void keys(const char* sequence) { ASSERT_TRUE(runKeySequence(engine, QString::fromUtf8(sequence))); }
  CalculatorEngine engine;
};

TEST_F(NumberToolViewer, ComplexPairsInEightDecimals) {
  keys("2 Command73 90 Command73 1 Command98 1 Command98");
  EXPECT_EQ(viewer(), (QStringList{
                          QStringLiteral("Complejo: de polar a rectangular|"),
                          QStringLiteral("Complejo: x|x = 0.00000000"),
                          QStringLiteral("Complejo: y|y = 2.00000000 i"),
                          QStringLiteral("Complejo: de rectangular a polar|"),
                          QStringLiteral("Complejo: m|m = 1.41421356"),
                          QStringLiteral("Complejo: \u00D8|\u00D8 = 45.00000000 \u00B0"),
                      }));
  EXPECT_TRUE(engine.viewerPanelRequested);
}

TEST_F(NumberToolViewer, FactorsWithTheirExponents) {
  keys("360 Command45");
  EXPECT_EQ(viewer(), (QStringList{QStringLiteral("Factores primos de|360"), QStringLiteral("2|(^) 3"),
                                   QStringLiteral("3|(^) 2"), QStringLiteral("5|(^) 1")}));
}

TEST_F(NumberToolViewer, TartagliaLineAndTerms) {
  keys("2 Command38");
  EXPECT_EQ(viewer(), (QStringList{QStringLiteral("Tartaglia|(a+b)^n         n = 2"),
                                   QStringLiteral("L\u00EDnea del tri\u00E1ngulo|(1,  2,  1)"),
                                   QStringLiteral("T\u00E9rmino 1|1 a^2 b^0"), QStringLiteral("T\u00E9rmino 2|2 a^1 b^1"),
                                   QStringLiteral("T\u00E9rmino 3|1 a^0 b^2"),
                                   QStringLiteral("N\u00FAmero de t\u00E9rminos|3")}));
}

TEST_F(NumberToolViewer, PrimeListingOfAnInterval) {
  messages.queueAnswer(QStringLiteral("1"));
  messages.queueAnswer(QStringLiteral("30"));
  keys("Command93(1)");
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_EQ(messages.shown()[1].defaultText, QStringLiteral("1000"));
  const QStringList lines = viewer();
  ASSERT_EQ(lines.size(), 3 + 10 + 1);
  EXPECT_EQ(lines.at(0), QStringLiteral("N\u00FAmeros primos|"));
  EXPECT_EQ(lines.at(1), QStringLiteral("Desde|1"));
  EXPECT_EQ(lines.at(2), QStringLiteral("Hasta|30"));
  EXPECT_EQ(lines.at(3), QStringLiteral("1|2"));
  EXPECT_EQ(lines.at(12), QStringLiteral("10|29"));
  EXPECT_EQ(lines.at(13), QStringLiteral("Total de primos:|10"));
  EXPECT_EQ(engine.result.text(), QStringLiteral("Total de primos: 10"));
}

TEST_F(NumberToolViewer, PrimeListingRefusesBadIntervals) {
  struct Case {
    const char* from;
    const char* to;
    int code;
  } cases[] = {{"10", "5", 28}, {"x", "5", 28}, {"1.5", "5", 28}, {"1", "100000000", 8}, {"99999999", "99999999", 0}};
  for (const Case& c : cases) {
    messages.clear();
    engine.errorCode = 0;
    messages.queueAnswer(QString::fromLatin1(c.from));
    messages.queueAnswer(QString::fromLatin1(c.to));
    keys("Command93(1)");
    EXPECT_EQ(engine.errorCode, c.code) << c.from << ".." << c.to;
  }
}

TEST_F(NumberToolViewer, LargeIntervalAsksFirstAndNoStops) {
  messages.queueAnswer(QStringLiteral("1"));
  messages.queueAnswer(QStringLiteral("30002"));
  messages.queueAnswer(QStringLiteral("1"));  // "No"
  keys("Command93(1)");
  ASSERT_EQ(messages.shown().size(), 3u);
  EXPECT_TRUE(messages.shown()[2].text.contains(Res(4538)));
  EXPECT_TRUE(engine.List3.isEmpty());
  // 30001 numbers from 1 do not ask.
  messages.clear();
  messages.queueAnswer(QStringLiteral("1"));
  messages.queueAnswer(QStringLiteral("30001"));
  keys("Command93(1)");
  EXPECT_EQ(messages.shown().size(), 2u);
  EXPECT_EQ(engine.List4.last(), QStringLiteral("3245"));
}

TEST_F(NumberToolViewer, EscStopsTheListingBetweenBlocks) {
  int calls = 0;
  engine.listingProgress = [&](int) {
    if (++calls == 2) engine.keyDown(Qt::Key_Escape);
  };
  messages.queueAnswer(QStringLiteral("1"));
  messages.queueAnswer(QStringLiteral("1000000"));
  messages.queueAnswer(QStringLiteral("0"));
  keys("Command93(1)");
  EXPECT_EQ(calls, 2);
  // Two blocks of the sieve: the primes up to 2 + 2*32768 - 1.
  EXPECT_EQ(engine.List4.last(), QStringLiteral("6543"));
  EXPECT_EQ(engine.List3.last(), QStringLiteral("Total de primos:"));
}

TEST_F(NumberToolViewer, FullViewerStopsTheListing) {
  messages.queueAnswer(QStringLiteral("1"));
  messages.queueAnswer(QStringLiteral("99999999"));
  messages.queueAnswer(QStringLiteral("0"));
  keys("Command93(1)");
  ASSERT_EQ(messages.shown().size(), 4u);
  EXPECT_EQ(messages.shown()[3].text, Res(4545));
  EXPECT_EQ(engine.List3.size(), CalculatorEngine::kViewerCapacity + 1);
  EXPECT_EQ(engine.List4.last(), QString::number(CalculatorEngine::kViewerCapacity - 3));
}

TEST_F(NumberToolViewer, PolygonAreaOfTheStatisticsPairs) {
  keys("Command55");
  EXPECT_EQ(engine.errorCode, 22);
  keys("0 X 0 Y 4 X 0 Y");
  keys("Command55");
  EXPECT_EQ(engine.errorCode, 36);
  keys("0 X 3 Y Command55");
  EXPECT_EQ(engine.numero.text(), QStringLiteral("6"));
  keys("1 X Command55");
  EXPECT_EQ(engine.errorCode, 22);
}

TEST_F(NumberToolViewer, RandomBaseByRightClick) {
  messages.queueAnswer(QStringLiteral("1.5"));
  EXPECT_TRUE(engine.rightClick(QStringLiteral("Command51")));
  EXPECT_FLOAT_EQ(program().randomBase, 1.5f);
  EXPECT_EQ(messages.shown().at(0).defaultText, QStringLiteral("0.0"));
  for (int i = 0; i < 20; ++i) {
    keys("Command51");
    const QString drawn = engine.numero.text();
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[01]\\.\\d{5}$")).match(drawn).hasMatch()) << drawn.toStdString();
    EXPECT_LE(drawn.toDouble(), 1.5);
  }
  messages.queueAnswer(QStringLiteral("0"));
  engine.rightClick(QStringLiteral("Command51"));
  EXPECT_EQ(engine.errorCode, 18);
  EXPECT_FLOAT_EQ(program().randomBase, 1.5f);
}

TEST_F(NumberToolViewer, CardCheckTexts) {
  engine.infoCard(QStringLiteral("4111111111111111"));
  EXPECT_EQ(engine.result.text(), QStringLiteral("VISA (n\u00FAmero v\u00E1lido)"));
  engine.infoCard(QStringLiteral("4111-1111"));
  EXPECT_EQ(engine.result.text(), Res(4589));
  engine.infoCard(QString());
  EXPECT_EQ(engine.errorCode, 1);
}

TEST_F(NumberToolViewer, AsciiTableInATextWindow) {
  keys("Command37");
  ASSERT_TRUE(engine.textWindowRequested);
  EXPECT_EQ(engine.textWindowTitle, Res(4515));
  const QStringList lines = engine.textWindowText.split(QStringLiteral("\r\n"));
  ASSERT_EQ(lines.size(), 1 + 256);
  EXPECT_EQ(lines.at(1), QStringLiteral("0\tNUL (nulo)"));
  EXPECT_EQ(lines.at(33), QStringLiteral("32\tSP (espacio)"));
  EXPECT_EQ(lines.at(66), QStringLiteral("65\tA"));
}

}  // namespace
