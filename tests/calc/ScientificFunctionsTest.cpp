// The scientific keys driven as a user drives them: each row types a key
// sequence and checks numero (and result). Every row runs on a "." system and
// on a "," system; expected texts are written with a point. "<E18>" stands for
// the text of error code 18. Then the functions are compared with the C++
// library to the last digit the display shows.
#include <cmath>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "calc/PhysicalConstants.h"
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
};

// "<E12>" is the text of code 12; otherwise the system's decimal separator.
QString expected(const char* text, bool comma) {
  QString s = QString::fromUtf8(text);
  if (s.startsWith(QLatin1String("<E")) && s.endsWith(QLatin1Char('>'))) return ErrorText(s.mid(2).chopped(1).toInt());
  if (comma) s.replace(QLatin1Char('.'), QLatin1Char(','));
  return s;
}

const Row kRows[] = {
    // Powers and logarithms, with a value on each side of every limit.
    {"LogOfZero", "0 F1", "0", "<E18>"},
    {"LogOfPowerOfTen", "1000 F1", "3"},
    {"LogOfTiny", "1E<300 F1", "-300"},
    {"TenToThe308", "308 F2", "1E+308"},
    {"TenAbove308", "308.001 F2", "0", "<E8>"},
    {"TenToNegativeUnderflowsToZero", "400< F2", "0"},
    {"ExpAt709", "709 F4", "8.21840746155497E+307"},
    {"ExpAbove709", "709.01 F4", "0", "<E8>"},
    {"ExpOfLargeNegativeIsZero", "746< F4", "0"},
    {"InverseOfZeroIsCode19", "0 I", "0", "<E19>"},
    {"InverseOverflowIsUnexpected", "1E<320 I", "0", "<E31>"},
    {"RootOfNegative", "1< F5", "0", "<E7>"},
    {"SquareAtLimit", "1E154 F6", "1E+308"},
    {"SquareAboveLimit", "1.0001E154 F6", "0", "<E8>"},
    {"SquareOfNegativeAboveLimit", "2E154< F6", "0", "<E8>"},
    {"CubeRootOfNegative", "27< F7", "-3"},
    {"CubeAtLimit", "5E102 F8", "1.25E+308"},
    {"CubeOfNegativeAboveLimit", "5.1E102< F8", "0", "<E8>"},
    {"CubeOfNegative", "2< F8", "-8"},
    {"TwoPi", "Command10(9)", "6.28318530717959"},
    {"PiIgnoresAnUnfinishedEntry", "1E P", "3.14159265358979"},
    {"PiIsNotReformatted", "2 Command61 P", "3.14159265358979"},
    {"SquareRootIsReformatted", "2 Command61 2 F5", "1.41"},
    {"UnaryKeyActsOnTheRightOperand", "2 + 9 F5 =", "5"},
    {"DegreeTextIsNotANumberForLog", "12º F1", "0", "<E31>"},
    {"HexInputToRoot", "Command22 Command30(5) Command30(5) F5", "15.9687194226713"},
    {"HexFFFFIsMinusOne", "Command22 Command30(5) Command30(5) Command30(5) Command30(5) F5", "0", "<E7>"},
    {"HexInputToLog", "Command22 100 F1", "2.40823996531185"},
    // Trigonometry: the 1e15 and 1e-15 rules in every angle mode.
    {"Sin180DegIsExactlyZero", "180 F9", "0", "0"},
    {"Cos90DegIsExactlyZero", "90 F11", "0"},
    {"Tan180DegIsExactlyZero", "180 F12", "0"},
    {"Tan45Deg", "45 F12", "1"},
    {"Tan90DegIsCode12", "90 F12", "0", "<E12>"},
    {"Tan270DegIsCode12", "270 F12", "0", "<E12>"},
    {"Sin200GraIsZero", "Command50 200 F9", "0"},
    {"Tan100GraIsCode12", "Command50 100 F12", "0", "<E12>"},
    {"SinOfTypedPiInRadKeepsItsDust", "Command50 Command50 3.14159265358979 F9", "3.23108914886517E-15"},
    {"SinOfFullPiInRadIsZero", "Command50 Command50 3.141592653589793 F9", "0"},
    {"TanOfFullRightAngleInRadIsCode12", "Command50 Command50 1.5707963267948966 F12", "0", "<E12>"},
    {"TanJustPastRightAngleInRadBelowTheLimit", "Command50 Command50 1.5707963267949 F12", "-286411383293069"},
    {"ArcsinOfOneByMode", "1 Shift+F9", "90"},
    {"ArcsinOfMinusOneDeg", "1< Shift+F9", "-90"},
    {"ArcsinOfOneGra", "Command50 1 Shift+F9", "100"},
    {"ArcsinOfOneRad", "Command50 Command50 1 Shift+F9", "1.5707963267949"},
    {"ArcsinAboveOne", "1.0001 Shift+F9", "0", "<E33>"},
    {"ArccosOfMinusOneDeg", "1< Shift+F11", "180"},
    {"ArccosOfMinusOneGra", "Command50 1< Shift+F11", "200"},
    {"ArccosOfMinusOneRad", "Command50 Command50 1< Shift+F11", "3.14159265358979"},
    {"ArccosOfOne", "1 Shift+F11", "0"},
    {"ArccosOfZero", "0 Shift+F11", "90"},
    {"ArccosBelowMinusOne", "1.5< Shift+F11", "0", "<E33>"},
    {"ArctanOfOneGra", "Command50 1 Shift+F12", "50"},
    // Hyperbolic functions: their own limits and the overflow of e^-x.
    {"SinhAt705", "Command43 705 F9", "7.52626916531597E+305"},
    {"SinhAbove705", "Command43 705.5 F9", "0", "<E12>"},
    {"SinhOfLargeNegativeOverflows", "Command43 710< F9", "0", "<E31>"},
    {"SinhOfNegativeBelowTheLimit", "Command43 706< F9", "-2.045852070817E+306"},
    {"CoshAbove705", "Command43 706 F11", "0", "<E12>"},
    {"TanhAbove700IsOne", "Command43 700.5 F12", "1"},
    {"TanhOfLargeNegativeOverflows", "Command43 710< F12", "0", "<E31>"},
    {"AcoshBelowOne", "Command43 0.5 Shift+F11", "0", "<E34>"},
    {"AtanhOfOne", "Command43 1 Shift+F12", "0", "<E35>"},
    {"AtanhOfMinusOne", "Command43 1< Shift+F12", "0", "<E35>"},
    {"HypLastsOneKey", "Command43 1 F9 90 F9", "1"},
    {"HypIsClearedByAFailure", "Command43 706 F9 90 F9", "1"},
    // Degree texts on the trigonometric keys.
    {"SinOfDegreeText", "30º F9", "0.5"},
    {"SinOfDegreeTextWithMinutes", "29º60º F9", "0.5"},
    {"CosOfGradeText", "Command50 100º F11", "0"},
    {"InverseKeyRefusesDegreeText", "30º Shift+F9", "0", "<E32>"},
    {"DegreeTextWithSeparatorIsCode1", "1.5º F9", "0", "<E1>"},
    // Integer parts, percent, factorial.
    {"IntOfNegative", "2.5< Command36(0)", "-3"},
    {"FixOfNegative", "2.5< Command36(1)", "-2"},
    {"FixOfSmallNegativeIsPlainZero", "0.5< Command36(1)", "0"},
    {"FractionOfNegativeIsPositive", "2.5< Command36(2)", "0.5"},
    {"FractionOfPositive", "2.75 Command36(2)", "0.75"},
    {"Percent", "50 Command52", "0.5"},
    {"FactorialOf170", "170 N", "7.25741561530799E+306"},
    {"FactorialOf171IsCode8", "171 N", "0", "<E8>"},
    {"FactorialOfNegativeIsCode7", "1< N", "0", "<E7>"},
    {"FactorialOfFractionIsCode6", "2.5 N", "0", "<E6>"},
    {"FactorialFractionTestComesFirst", "2.5< N", "0", "<E6>"},
    // Constants: the value in numero, name and unit in result.
    {"ConstantFaraday", "Command4(0)", "96485.309", "Constante de Faraday\n(C\u00B7mol\u00AD\u00B9)"},
    {"ConstantVacuumPermeability", "Command4(22)", "1.25663706143592E-06"},
    {"ConstantFineStructureHasNoUnit", "Command4(16)", "0.00729735308", "Constante de estructura fina\n"},
    {"ConstantThenDigitStartsANewNumber", "Command4(6) 5", "5"},
    {"ConstantAsRightOperand", "2 * Command4(7) =", "19.6133"},
};

using KeyRun = SeparatorRun<Row>;

class ScientificKeys : public CalvixTest, public ::testing::WithParamInterface<KeyRun> {};

TEST_P(ScientificKeys, ShowTheExpectedTexts) {
  const KeyRun& run = GetParam();
  if (run.comma) useComma();
  CalculatorEngine engine;
  QString error;
  ASSERT_TRUE(runKeySequence(engine, QString::fromUtf8(run.row.keys), &error)) << error.toStdString();
  EXPECT_EQ(engine.numero.text(), expected(run.row.numero, run.comma));
  if (run.row.result) {
    EXPECT_EQ(engine.result.text(), expected(run.row.result, run.comma));
  }
  EXPECT_TRUE(engine.hypFlag.isEmpty()) << "the hyperbolic switch outlived its key";
}

INSTANTIATE_TEST_SUITE_P(BothSeparators, ScientificKeys, ::testing::ValuesIn(onBothSeparators(kRows)),
                         separatorRunName<Row>);

// ---- The functions against the C++ library ------------------------------------

struct Function {
  const char* name;
  const char* keys;   // the key sequence after the value
  const char* angle;  // angle mode: "deg", "rad" or "gra"
  double (*library)(double);
  std::vector<double> arguments;
};

constexpr double kDeg = 3.14159265358979323846 / 180;
constexpr double kGra = 3.14159265358979323846 / 200;

const Function kFunctions[] = {
    {"log10", "F1", "deg", [](double x) { return std::log10(x); }, {2, 3, 0.5, 7e-8, 123456.789, 1e300}},
    {"exp10", "F2", "deg", [](double x) { return std::pow(10.0, x); }, {0.5, 2.25, -3.7, 307.9}},
    {"ln", "F3", "deg", [](double x) { return std::log(x); }, {2, 10, 0.001, 1e-300, 9.87654321e200}},
    {"exp", "F4", "deg", [](double x) { return std::exp(x); }, {1, -1, 0.001, 12.5, 708.9, -700}},
    {"reciprocal", "I", "deg", [](double x) { return 1 / x; }, {3, -7, 1e-300, 6.02e23}},
    {"sqrt", "F5", "deg", [](double x) { return std::sqrt(x); }, {2, 3, 1e-9, 1e300, 0.5}},
    {"square", "F6", "deg", [](double x) { return x * x; }, {1.1, -3.3, 1e150, 1.23456789e-100}},
    {"cbrt", "F7", "deg", [](double x) { return std::cbrt(x); }, {2, -2, 1e-9, 27e30, -0.001}},
    {"cube", "F8", "deg", [](double x) { return x * x * x; }, {1.1, -2.5, 4e102, 1e-100}},
    {"sinDeg", "F9", "deg", [](double x) { return std::sin(x * kDeg); }, {1, 45, 60, 89, 123.4, -500}},
    {"cosDeg", "F11", "deg", [](double x) { return std::cos(x * kDeg); }, {1, 45, 60, 89, 123.4, -500}},
    {"tanDeg", "F12", "deg", [](double x) { return std::tan(x * kDeg); }, {1, 30, 60, 89, 89.999, -123.4}},
    {"sinGra", "F9", "gra", [](double x) { return std::sin(x * kGra); }, {1, 50, 150, 399}},
    {"tanRad", "F12", "rad", [](double x) { return std::tan(x); }, {0.5, 1, 1.5, -2, 100}},
    {"asinRad", "Shift+F9", "rad", [](double x) { return std::asin(x); }, {0.1, 0.5, -0.75, 0.999}},
    {"acosRad", "Shift+F11", "rad", [](double x) { return std::acos(x); }, {0.1, 0.5, -0.75, 0.9}},
    {"atanRad", "Shift+F12", "rad", [](double x) { return std::atan(x); }, {0.1, 1, -5, 1e10}},
    {"asinDeg", "Shift+F9", "deg", [](double x) { return std::asin(x) / kDeg; }, {0.25, -0.6}},
    {"sinh", "Command43 F9", "deg", [](double x) { return std::sinh(x); }, {0.5, 1, -2, 10, 700}},
    {"cosh", "Command43 F11", "deg", [](double x) { return std::cosh(x); }, {0, 0.5, -3, 20, 704}},
    {"tanh", "Command43 F12", "deg", [](double x) { return std::tanh(x); }, {0.5, 1, -2, 5}},
    {"asinh", "Command43 Shift+F9", "deg", [](double x) { return std::asinh(x); }, {0.5, 2, 100, 1e100}},
    {"acosh", "Command43 Shift+F11", "deg", [](double x) { return std::acosh(x); }, {1.5, 2, 100, 1e100}},
    {"atanh", "Command43 Shift+F12", "deg", [](double x) { return std::atanh(x); }, {0.5, -0.25, 0.9}},
};

class FunctionsAgainstLibrary : public CalvixTest {};

TEST_F(FunctionsAgainstLibrary, AgreeToTheLastDigitShown) {
  for (const Function& f : kFunctions) {
    for (const double x : f.arguments) {
      CalculatorEngine engine;
      const QString mode = QString::fromLatin1(f.angle);
      while (engine.angulo != mode) engine.Command50_Click();
      engine.numero = rt::NumberToText(x);
      ASSERT_TRUE(runKeySequence(engine, QString::fromLatin1(f.keys)));
      EXPECT_EQ(engine.numero.text(), rt::NumberToText(f.library(x))) << f.name << "(" << x << ")";
    }
  }
}

// Results that cancel digits: sinh close to 0 follows its exponential
// formula, which keeps only a few digits there.
TEST_F(FunctionsAgainstLibrary, HyperbolicFormulasLoseDigitsNearZero) {
  CalculatorEngine engine;
  engine.numero = QStringLiteral("1E-10");
  engine.Command43_Click();
  engine.Command21_Click(0);
  const double shown = rt::TextToDouble(engine.numero);
  EXPECT_NE(engine.numero.text(), rt::NumberToText(std::sinh(1e-10)));
  EXPECT_NEAR(shown, 1e-10, 1e-16);
}

// ---- Messages and the history ----------------------------------------------------

class ScientificMessages : public CalvixTest {};

TEST_F(ScientificMessages, FunctionKeysNameThemselvesAndWriteHistory) {
  CalculatorEngine engine;
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("Command43 2 F9")));
  EXPECT_EQ(engine.func, QStringLiteral("sin H"));
  EXPECT_TRUE(engine.Combo1.lines().last().startsWith(engine.numero.text())) << "answer not in the history";
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("2.5 Command36(0)")));
  EXPECT_EQ(engine.func, Res(4229));
  EXPECT_EQ(engine.entryActive, 0);
  // A failed domain test keeps the function's line and drops the pending operator.
  ASSERT_TRUE(runKeySequence(engine, QStringLiteral("5 + 0 F1")));
  EXPECT_TRUE(engine.pendingOp.isEmpty());
  EXPECT_TRUE(engine.Combo1.lines().join(QLatin1Char('|')).contains(QLatin1String("log")));
}

TEST_F(ScientificMessages, ConstantsPanelTogglesAndEveryConstantIsNamed) {
  CalculatorEngine engine;
  EXPECT_FALSE(engine.Frame2Visible);
  engine.Command8_Click();
  EXPECT_TRUE(engine.Frame2Visible);
  engine.Command8_Click();
  EXPECT_FALSE(engine.Frame2Visible);
  ASSERT_EQ(physicalConstants().size(), 40);
  for (int i = 0; i < 40; ++i) {
    EXPECT_EQ(physicalConstants().at(i).nameId, 4114 + i);
    EXPECT_TRUE(strings::hasAllLanguages(4114 + i)) << i;
    engine.Command4_Click(i);
    EXPECT_EQ(engine.numero.text(), rt::NumberToText(physicalConstants().at(i).value)) << i;
    EXPECT_TRUE(engine.result.text().startsWith(Res(4114 + i) + QLatin1Char('\n'))) << i;
  }
}

TEST_F(ScientificMessages, HelpCursorShowsTheTopicInsteadOfComputing) {
  CalculatorEngine engine;
  engine.numero = QStringLiteral("4");
  program().helpCursor = true;
  engine.Command10_Click(5);
  EXPECT_EQ(engine.numero.text(), QStringLiteral("4"));
  EXPECT_FALSE(program().helpCursor);
  engine.Command10_Click(5);
  EXPECT_EQ(engine.numero.text(), QStringLiteral("2"));
}

}  // namespace
