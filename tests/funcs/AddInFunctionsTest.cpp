// The math library: its numeric rules (32-bit narrowing, guards, the angle
// mode), its domain-failure procedure (message, X cell, value 0) and the
// failures it leaves to the engine.
#include <cmath>

#include "shell/runtime/NumberText.h"
#include "shell/Strings.h"
#include "tests/funcs/EvalTestSupport.h"

namespace {
const double kPi = 4 * std::atan(1.0);
}

class MathLibrary : public EvalTest {
 protected:
  void SetUp() override {
    EvalTest::SetUp();
    program().MainMenuTitle = QStringLiteral("Evaluador");
    library.setXCellHook([this](const QString& text) { xCells << text; });
  }
  void deg() { program().angleFactor = kPi / 180; }
  void gra() { program().angleFactor = kPi / 200; }
  void rad() { program().angleFactor = 1.0; }
  // Evaluates and expects exactly one domain failure with message n.
  double domainFailure(const QString& text, int n) {
    const size_t before = messages.shown().size();
    const double v = num(text);
    EXPECT_EQ(messages.shown().size(), before + 1) << text.toStdString();
    if (messages.shown().size() == before + 1) {
      EXPECT_EQ(messages.shown().back().text, QStringLiteral("Error:  ") + Res(2000 + n)) << text.toStdString();
    }
    return v;
  }
  QStringList xCells;
};

TEST_F(MathLibrary, SecantFamilyNarrowsToThirtyTwoBitsAndGuardsSmallDivisors) {
  EXPECT_EQ(num(QStringLiteral("Sec(1.5707963)")), 9999.999999);
  const double sec = num(QStringLiteral("Sec(1.56)"));
  EXPECT_EQ(sec, 1.0 / static_cast<float>(std::cos(1.56)));
  EXPECT_NE(sec, 1.0 / std::cos(1.56));  // the cosine kept only 32 bits
  EXPECT_EQ(num(QStringLiteral("Csc(0)")), 9999.999999);
  EXPECT_EQ(num(QStringLiteral("Csc(1)")), 1.0 / static_cast<float>(std::sin(1.0)));
  EXPECT_EQ(num(QStringLiteral("Cot(0.0005)")), 9999.999999);
  EXPECT_EQ(num(QStringLiteral("Cot(1)")), std::cos(1.0) / static_cast<float>(std::sin(1.0)));
  // The threshold is the 32-bit float nearest 0.001, compared strictly.
  EXPECT_EQ(library.Sec(std::acos(static_cast<double>(0.001f))), 9999.999999);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(MathLibrary, TrigonometryInTheAngleModeHasItsGuards) {
  deg();
  // The language's sine stays in radians; cosf(0) is 0 by the small-argument rule, kept on purpose.
  expectValues({{"sinf(90)", 1}, {"sin(90)", std::sin(90.0)}, {"cosf(0)", 0}, {"sinf(0)", 0}, {"tanf(1e-16)", 0}});
  EXPECT_DOUBLE_EQ(num(QStringLiteral("tanf(45)")), 1);
  EXPECT_DOUBLE_EQ(num(QStringLiteral("atan(1)")), 45);
  EXPECT_DOUBLE_EQ(num(QStringLiteral("asin(0.5)")), 30);
  expectValues({{"asin(1)", 90}, {"asin(-1)", -90}});
  gra();
  expectValues({{"sinf(100)", 1}, {"sin(90)", std::sin(90.0)}});
  rad();
  expectValues({{"sinf(2)", std::sin(2.0)}, {"cosf(1e15)", std::cos(1e15)}});  // the bound itself is allowed
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(domainFailure(QStringLiteral("cosf(1e16)"), 104), 0);
  EXPECT_EQ(domainFailure(QStringLiteral("sinf(-2e15)"), 104), 0);
  EXPECT_EQ(domainFailure(QStringLiteral("tanf(1e300)"), 104), 0);
}

TEST_F(MathLibrary, ArccosineOfOneIsZeroInEveryModeAndOfMinusOneIsHalfATurn) {
  for (double f : {kPi / 180, kPi / 200, 1.0}) {
    program().angleFactor = f;
    EXPECT_EQ(num(QStringLiteral("acos(1)")), 0);
  }
  deg();
  EXPECT_DOUBLE_EQ(num(QStringLiteral("acos(-1)")), 180);
  EXPECT_DOUBLE_EQ(num(QStringLiteral("acos(0.5)")), 60);
  gra();
  EXPECT_DOUBLE_EQ(num(QStringLiteral("acos(-1)")), 200);
  rad();
  EXPECT_EQ(num(QStringLiteral("acos(-1)")), kPi);
  EXPECT_EQ(domainFailure(QStringLiteral("acos(1.0000001)"), 11), 0);
  EXPECT_EQ(domainFailure(QStringLiteral("asin(-2)"), 10), 0);
}

TEST_F(MathLibrary, HyperbolicFunctionsHaveOneSidedGuards) {
  expectValues({{"htan(701)", 1}, {"htan(0)", 0}});
  EXPECT_DOUBLE_EQ(num(QStringLiteral("htan(1)")), std::tanh(1.0));
  EXPECT_TRUE(std::isfinite(num(QStringLiteral("hsin(705)"))));
  EXPECT_DOUBLE_EQ(num(QStringLiteral("hcos(1)")), std::cosh(1.0));
  EXPECT_EQ(domainFailure(QStringLiteral("hsin(706)"), 12), 0);
  EXPECT_EQ(domainFailure(QStringLiteral("hcos(800)"), 12), 0);
  // No mirror rule on the negative side: Exp(-x) overflows, an engine failure.
  expectFailures({{"hsin(-710)", 6}, {"htan(-710)", 6}});
  EXPECT_DOUBLE_EQ(num(QStringLiteral("asinh(1)")), std::asinh(1.0));
  EXPECT_DOUBLE_EQ(num(QStringLiteral("acosh(2)")), std::acosh(2.0));
  EXPECT_DOUBLE_EQ(num(QStringLiteral("atanh(0.5)")), std::atanh(0.5));
  EXPECT_EQ(domainFailure(QStringLiteral("acosh(0.5)"), 13), 0);
  EXPECT_EQ(domainFailure(QStringLiteral("atanh(1)"), 14), 0);
  EXPECT_EQ(domainFailure(QStringLiteral("atanh(-1.5)"), 14), 0);
}

TEST_F(MathLibrary, FactorialTakesASixteenBitArgument) {
  expectValues({{"fac(0)", 1}, {"fac(5)", 120}, {"fac(2.5)", 2}, {"fac(3.5)", 24}});  // rounded half to even
  const double f170 = num(QStringLiteral("fac(170)"));
  EXPECT_NEAR(f170, 7.2574e306, 0.0001e306);
  EXPECT_EQ(rt::Str(f170), QStringLiteral(" 7.25741561530799E+306"));
  EXPECT_EQ(domainFailure(QStringLiteral("fac(171)"), 8), 0);
  EXPECT_EQ(domainFailure(QStringLiteral("fac(-1)"), 7), 0);
  EXPECT_EQ(num(QStringLiteral("fac(170.5)")), f170);            // the half goes to the even 170
  EXPECT_EQ(domainFailure(QStringLiteral("fac(171.5)"), 8), 0);  // and here to 172
  EXPECT_EQ(failure(QStringLiteral("fac(40000)")), 6);           // the 16-bit conversion fails before the call
}

TEST_F(MathLibrary, LogarithmsAndPowerSeparateDomainAndEngineFailures) {
  EXPECT_EQ(num(QStringLiteral("ln(1)")), 0);
  EXPECT_DOUBLE_EQ(num(QStringLiteral("lg(1000)")), 3);
  EXPECT_EQ(domainFailure(QStringLiteral("ln(0)"), 3), 0);
  EXPECT_EQ(domainFailure(QStringLiteral("lg(-5)"), 3), 0);
  EXPECT_DOUBLE_EQ(num(QStringLiteral("pow(2, 10)")), 1024);
  EXPECT_EQ(num(QStringLiteral("pow(2, 10)")), std::exp(std::log(2.0) * 10));
  // pow has no guard: a base that is not positive fails in the engine.
  expectFailures({{"pow(-8, 1/3)", 5}, {"pow(0, 2)", 5}, {"pow(10, 400)", 6}});
  EXPECT_EQ(messages.shown().size(), 2u);  // only the two logarithms spoke
}

TEST_F(MathLibrary, BinaryTextsFollowTheirDigitRules) {
  EXPECT_EQ(engine.Eval(QStringLiteral("BIN(0)")), rt::Variant(QStringLiteral("0000")));
  // 5.5 rounds to 6, halving -5 truncates towards zero, and BTD counts the 2 as a zero.
  const char* const texts[][2] = {{"BIN(5)", "101"}, {"BIN(255)", "11111111"}, {"BIN(5.5)", "110"}, {"BIN(-5)", "101"},
                                  {"BTD(101)", "5"},  {"BTD(121)", "5"},       {"BTD(11111111)", "255"},
                                  {"BTD(BIN(77))", "77"}};
  for (const auto& r : texts) EXPECT_EQ(txt(QString::fromUtf8(r[0])), QString::fromUtf8(r[1])) << r[0];
  EXPECT_EQ(num(QStringLiteral("BIN(5) + 1")), 102);  // a numeric text met by a number
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(txt(QStringLiteral("BIN(3e9)")), QString());  // beyond 32 bits: domain failure 15
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown().back().text, QStringLiteral("Error:  ") + Res(2015));
}

TEST_F(MathLibrary, SumsProductsAndThirtyTwoBitOperations) {
  // Texts are read in the system's form.
  expectValues({{"Suma(1, 2, 3.5)", 6.5}, {"Producto(2, 3, 0.5)", 3}, {"Suma(\"1.5\", 1)", 2.5}});
  expectFailures({{"Suma(1e308, 1e308)", 6}, {"Producto(1e200, 1e200)", 6}});
  const rt::Variant third = engine.Eval(QStringLiteral("Division(1,3)"));
  EXPECT_EQ(third.type(), rt::VType::Single);
  EXPECT_EQ(third.toText(), QStringLiteral("0.3333333"));
  EXPECT_EQ(third.toDouble(), static_cast<double>(1.0f / 3.0f));
  EXPECT_EQ(engine.Eval(QStringLiteral("Resta(1, 0.9)")).toDouble(), static_cast<double>(1.0f - 0.9f));
  // 1e39 does not fit 32 bits.
  expectFailures({{"Division(1, 0)", 11}, {"Division(0, 0)", 6}, {"Division(1e39, 1)", 6}, {"Division(1e38, 1e-38)", 6}});
  useComma();
  EXPECT_EQ(num(QStringLiteral("Suma(\"1,5\", 1)")), 2.5);
}

TEST_F(MathLibrary, DomainFailureAsksAndMarksTheXCell) {
  EXPECT_EQ(num(QStringLiteral("ln(-1) + 5")), 5);  // 0 comes back, the engine goes on
  ASSERT_EQ(messages.shown().size(), 1u);
  const MessageRequest& m = messages.shown().front();
  EXPECT_EQ(m.title, QStringLiteral("Calvix  -  Evaluador  -  Cálculo"));
  EXPECT_EQ(m.text, QStringLiteral("Error:  Imposible calcular el Logaritmo de un número Negativo o Nulo."));
  EXPECT_EQ(m.buttons, (QStringList{QStringLiteral("Aceptar"), QStringLiteral("Cancelar")}));
  EXPECT_EQ(xCells, QStringList{QString()});  // "Aceptar": the X cell is only cleared
  xCells.clear();
  messages.queueButton(1);  // "Cancelar"
  EXPECT_EQ(num(QStringLiteral("fac(-3)")), 0);
  EXPECT_EQ(xCells, (QStringList{QString(), QStringLiteral("Error")}));
  // The texts in another language.
  program().LanguageOffset = 10000;
  program().MainMenuTitle = QStringLiteral("Evaluator");
  num(QStringLiteral("hsin(1000)"));
  EXPECT_EQ(messages.shown().back().title, QStringLiteral("Calvix  -  Evaluator  -  Calculation"));
  EXPECT_EQ(messages.shown().back().text, QStringLiteral("Error:  Infinite Result."));
  EXPECT_EQ(messages.shown().back().buttons, (QStringList{QStringLiteral("OK"), QStringLiteral("Cancel")}));
}

TEST_F(MathLibrary, OperationsThatCanFailSetTheCalculationContextOnEntry) {
  calcContext() = QStringLiteral("Funciones");
  num(QStringLiteral("sin(1) + atan(1) + Sec(1) + htan(1) + Suma(1)"));
  EXPECT_EQ(calcContext(), QStringLiteral("Funciones"));
  num(QStringLiteral("sinf(1)"));  // no failure, the context is set all the same
  EXPECT_EQ(calcContext(), QStringLiteral("Cálculo"));
  calcContext() = QStringLiteral("Funciones");
  program().LanguageOffset = 20000;
  num(QStringLiteral("ln(2)"));
  EXPECT_EQ(calcContext(), QStringLiteral("Calcul"));
}

TEST_F(MathLibrary, EveryDomainMessageExistsInEveryLanguage) {
  for (int n : {3, 7, 8, 10, 11, 12, 13, 14, 15, 104}) {
    EXPECT_TRUE(strings::hasAllLanguages(2000 + n)) << n;
  }
  for (int id = 4950; id <= 4968; ++id) EXPECT_TRUE(strings::hasAllLanguages(id)) << id;
  EXPECT_TRUE(strings::hasAllLanguages(726));
}
