// The expression language: precedence and associativity, literals, names,
// the language's functions, failures with their numbers and texts, and the
// namespace that AddCode fills and Eval reads.
#include <charconv>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "shell/runtime/NumberText.h"
#include "shell/Strings.h"
#include "tests/funcs/EvalTestSupport.h"

TEST_F(EvalTest, PrecedenceAndAssociativityFollowTheScriptingLanguage) {
  expectValues({
      {"-2^2", 4},            // negation binds tighter than ^
      {"2^-1", 0.5},          // a sign after ^ belongs to the exponent
      {"2^3^2", 64},          // ^ associates to the left
      {"3^3^3", 19683},
      {"2^-1^2", 0.25},
      {"7 \\ 2 * 2", 1},      // * before \ .
      {"5 Mod 3 ^ 2", 5},     // ^ before Mod
      {"10 Mod 4 \\ 2", 0},   // \ before Mod: 10 Mod 2
      {"2 + 3 * 4", 14},
      {"(2 + 3) * 4", 20},
      {"10 - 4 - 3", 3},
      {"8 / 4 / 2", 1},
      {"2 * 3 ^ 2", 18},
      {"-3 ^ 2 * 2", 18},
      {"2 - -3", 5},
      {"1 Or 2 And 0", 1},    // And before Or
      {"5 Xor 3", 6},
      {"0 Eqv 0", -1},
      {"-1 Imp 0", 0},
      {"0 Imp 0", -1},
      {"(1 < 2) * 5", -5},    // True is -1 as a number
      {"(1 > 2) + 1", 1},
      {"True + True", -2},
      {"Not 1 = 2", -1},      // Not takes the comparison
      {"Not 0", -1},
      {"Not 5", -6},
      {"1 + 2 = 3", -1},
      {"1 < 2 = True", -1},   // comparisons chain to the left
  });
  EXPECT_EQ(txt(QStringLiteral("1 & 2 + 3")), QStringLiteral("15"));  // & is below +
}

TEST_F(EvalTest, IntegerDivisionAndModRoundTheirOperandsHalfToEven) {
  expectValues({
      {"7.5 \\ 2", 4}, {"6.5 \\ 2", 3}, {"-7 \\ 2", -3}, {"7 \\ 2.5", 3},
      {"-7 Mod 3", -1}, {"7 Mod -3", 1}, {"7.5 Mod 2", 0}, {"6.5 Mod 4", 2},
  });
  expectFailures({{"5 \\ 0.4", 11}, {"5 Mod 0", 11}, {"3e9 \\ 2", 6}});  // 0.4 rounds to 0; 3e9 is beyond 32 bits
}

TEST_F(EvalTest, ComparisonsGiveBooleansAndLogicalOperatorsKeepThem) {
  EXPECT_EQ(engine.Eval(QStringLiteral("1 < 2")), rt::Variant::boolean(true));
  EXPECT_EQ(engine.Eval(QStringLiteral("2 <= 1")), rt::Variant::boolean(false));
  EXPECT_EQ(engine.Eval(QStringLiteral("1 <> 1 Or 2 >= 2")), rt::Variant::boolean(true));
  EXPECT_EQ(engine.Eval(QStringLiteral("Not (1 = 1)")), rt::Variant::boolean(false));
  EXPECT_EQ(txt(QStringLiteral("3 > 2")), QStringLiteral("True"));
  // On numbers the logical operators work bit by bit and give numbers.
  EXPECT_EQ(num(QStringLiteral("12 And 10")), 8);
  EXPECT_EQ(num(QStringLiteral("2.5 Or 0")), 2);  // operands rounded half to even
  // Texts compare as texts, case-sensitively.
  EXPECT_EQ(num(QStringLiteral("\"abc\" < \"abd\"")), -1);
  EXPECT_EQ(num(QStringLiteral("\"a\" = \"A\"")), 0);
}

TEST_F(EvalTest, NamesAndKeywordsIgnoreCaseAndBlanksAreFree) {
  engine.AddCode(QStringLiteral("Alpha=2"));
  expectValues({{"ALPHA * alpha", 4}, {"SIN(0) + sIn(0) + COSF(0)", 0}, {"7 MOD 4 + 1 mod 1", 3},
                {"  \t2 *\t3   ", 6}, {"2*3", 6}, {"pi", 4 * std::atan(1.0)}, {"Pi()", 4 * std::atan(1.0)}});
}

TEST_F(EvalTest, NumberLiteralsTakeThePointAndAnExponent) {
  // 0.1 is the nearest double, as the compiler of C++ reads it; &HFFFF is 16 bits in two's complement.
  expectValues({{".5", 0.5}, {"5.", 5}, {"1.5E+3", 1500}, {"2e-3", 0.002}, {"1e-400", 0}, {"0.1", 0.1},
                {"123456789012345678901234567890", 123456789012345678901234567890.0}, {"&H10 + &o10", 24},
                {"&HFFFF", -1}, {"&H10000", 65536}, {"32767 + 1", 32768}, {"2147483647 * 2", 4294967294.0}});
  expectFailures({{"1e400", 6}, {"&H100000000", 6}});
  // Literal types: 16-bit, 32-bit, then 64-bit float; arithmetic widens.
  EXPECT_EQ(engine.Eval(QStringLiteral("32767")).type(), rt::VType::Integer);
  EXPECT_EQ(engine.Eval(QStringLiteral("32768")).type(), rt::VType::Long);
  EXPECT_EQ(engine.Eval(QStringLiteral("-32768")).type(), rt::VType::Long);
  EXPECT_EQ(engine.Eval(QStringLiteral("2147483648")).type(), rt::VType::Double);
  // The variant machine keeps the integer types through the arithmetic.
  engine.setFastPath(false);
  EXPECT_EQ(engine.Eval(QStringLiteral("32767 + 1")).type(), rt::VType::Long);
  EXPECT_EQ(engine.Eval(QStringLiteral("100 * 100")).type(), rt::VType::Integer);
  EXPECT_EQ(engine.Eval(QStringLiteral("12 And 10")).type(), rt::VType::Integer);
  EXPECT_EQ(engine.Eval(QStringLiteral("2147483647 * 2")).type(), rt::VType::Double);
}

TEST_F(EvalTest, NumberTextsReadAsTheNearestDouble) {
  // The texts Str writes, and their near relatives, read exactly as the
  // standard reading of the same characters: the short forms and the long.
  std::mt19937_64 gen(3);
  std::uniform_real_distribution<double> unit(0, 1);
  std::vector<std::string> texts = {"0.000", "0.0000001234", "123456789012345.", "1234567890123456.5",
                                    ".123456789012345", "0.1234567890123456", "9007199254740993.0", "00012.5"};
  for (int i = 0; i < 20000; ++i) {
    const double x = unit(gen) * std::pow(10.0, static_cast<int>(gen() % 30) - 15);
    texts.push_back(rt::Str(x).trimmed().toStdString());
  }
  for (const std::string& text : texts) {
    if (text.find('E') != std::string::npos) continue;
    double want = 0;
    std::from_chars(text.data(), text.data() + text.size(), want);
    ASSERT_EQ(engine.Eval(QString::fromStdString(text)).toDouble(), want) << text;
  }
}

TEST_F(EvalTest, TextsJoinAndConvertLikeVariants) {
  EXPECT_EQ(txt(QStringLiteral("\"say \"\"hi\"\"\" & 1")), QStringLiteral("say \"hi\"1"));
  EXPECT_EQ(engine.Eval(QStringLiteral("\"ab\" + \"cd\"")), rt::Variant(QStringLiteral("abcd")));
  EXPECT_EQ(num(QStringLiteral("\"2.5\" * 2")), 5);  // a numeric text is read in the system's form
  EXPECT_EQ(failure(QStringLiteral("\"ab\" * 2")), 13);
  EXPECT_EQ(txt(QStringLiteral("1.5 & \"\"")), QStringLiteral("1.5"));
  useComma();
  EXPECT_EQ(txt(QStringLiteral("1.5 & \"\"")), QStringLiteral("1,5"));
  EXPECT_EQ(num(QStringLiteral("\"2,5\" * 2")), 5);
}

TEST_F(EvalTest, LanguageFunctionsWorkInRadiansWhateverTheAngleMode) {
  program().angleFactor = 4 * std::atan(1.0) / 180;
  EXPECT_EQ(num(QStringLiteral("sin(90)")), std::sin(90.0));
  EXPECT_EQ(num(QStringLiteral("Atn(1)")), std::atan(1.0));
  EXPECT_EQ(num(QStringLiteral("Abs(-2) + Sgn(-3) + Int(-2.5) + Fix(-2.5)")), 2 - 1 - 3 - 2);
  EXPECT_EQ(num(QStringLiteral("Sqr(16) + Exp(0) + Log(1)")), 5);
  EXPECT_EQ(num(QStringLiteral("Round(2.5) + Round(3.5) + Round(2.345, 2)")), 2 + 4 + 2.34);
  EXPECT_EQ(num(QStringLiteral("CInt(2.5) + CLng(3.5) + CDbl(\"1.25\")")), 2 + 4 + 1.25);
  expectFailures({{"Sqr(-1)", 5}, {"Log(0)", 5}, {"Exp(710)", 6}, {"CInt(32767.5)", 6}, {"Round(1, -1)", 5}});
  EXPECT_EQ(num(QStringLiteral("Round(1.25, 2147483647)")), 1.25);  // any number of decimals
  const double r = num(QStringLiteral("Rnd"));
  EXPECT_TRUE(r >= 0 && r < 1);
  EXPECT_EQ(engine.Eval(QStringLiteral("Rnd(1)")).type(), rt::VType::Single);
  EXPECT_EQ(num(QStringLiteral("Rnd(0)")), num(QStringLiteral("Rnd(0)")));       // repeats the last
  EXPECT_EQ(num(QStringLiteral("Rnd(-3)")), num(QStringLiteral("Rnd(-3)")));     // same seed, same number
}

TEST_F(EvalTest, ArithmeticFailuresAreEngineFailuresWithTheirNumbers) {
  expectFailures({{"1/0", 11}, {"0/0", 6}, {"1e308*10", 6}, {"-1e308-1e308", 6}, {"(-8)^(1/3)", 5}, {"0^-1", 5},
                  {"10^400", 6}, {"1/(1e308*10)", 6}, {"pow(-8,1/3)", 5}, {"pow(0,2)", 5}, {"\"x\" Is 1", 424}});
  EXPECT_EQ(num(QStringLiteral("(-8)^3")), -512);  // a negative base with a whole exponent is fine
}

TEST_F(EvalTest, SyntaxErrorsNameWhatWasExpected) {
  expectFailures({
      {"", EvalError::kExpectedExpression},       {"   ", EvalError::kExpectedExpression},
      {"1+", EvalError::kExpectedExpression},     {"*2", EvalError::kExpectedExpression},
      {"(1", EvalError::kExpectedCloseParen},     {"sin(1", EvalError::kExpectedCloseParen},
      {"1)", EvalError::kExpectedEndOfStatement}, {"1 2", EvalError::kExpectedEndOfStatement},
      {"2x", EvalError::kExpectedEndOfStatement}, {"1,2", EvalError::kExpectedEndOfStatement},
      {"1:2", EvalError::kExpectedEndOfStatement}, {"x=1\ny", EvalError::kExpectedEndOfStatement},
      {"sin(1,)", EvalError::kExpectedExpression}, {"1 # 2", EvalError::kInvalidCharacter},
      {"\"abc", EvalError::kUnterminatedString},  {"1.2.3", EvalError::kExpectedEndOfStatement},
      {"a.b", EvalError::kObjectRequired},        {"MathFunction.nothing(1)", EvalError::kObjectMember},
      {"Mod", EvalError::kExpectedExpression},    {"2e", EvalError::kExpectedEndOfStatement},
  });
  try {
    engine.Eval(QStringLiteral("1 + $"));
    FAIL() << "no failure";
  } catch (const EvalError& e) {
    EXPECT_EQ(e.description(), QStringLiteral("Carácter no válido: '$'"));
    EXPECT_EQ(e.position(), 4);
  }
}

TEST_F(EvalTest, UnknownNamesFunctionsAndArgumentCountsAreFailures) {
  try {
    engine.Eval(QStringLiteral("y + 1"));
    FAIL() << "no failure";
  } catch (const EvalError& e) {
    EXPECT_EQ(e.number(), EvalError::kUndefinedVariable);
    EXPECT_EQ(e.description(), QStringLiteral("Variable no definida: 'y'"));
  }
  EXPECT_EQ(failure(QStringLiteral("foo(1)")), EvalError::kUnknownFunction);
  const char* wrongCounts[] = {"sin()", "sin(1, 2)", "sin", "fac", "Round(1, 2, 3)", "pow(1)", "Pi(1)", "BIN()"};
  for (const char* t : wrongCounts) EXPECT_EQ(failure(QString::fromUtf8(t)), EvalError::kWrongArgumentCount) << t;
  EXPECT_EQ(num(QStringLiteral("Suma() + Suma(1, 2, 3.5) + Producto()")), 7.5);  // any number of values
  // The description follows the language.
  program().LanguageOffset = 10000;
  try {
    engine.Eval(QStringLiteral("1/0"));
  } catch (const EvalError& e) {
    EXPECT_EQ(e.description(), QStringLiteral("Division by zero"));
  }
}

TEST_F(EvalTest, VeryLongExpressionsCompileAndRun) {
  QString sum = QStringLiteral("1");
  for (int i = 1; i < 100000; ++i) sum += QStringLiteral("+1");
  EXPECT_EQ(num(sum), 100000);
  QString product = QStringLiteral("x");
  engine.AddCode(QStringLiteral("x=1.0001"));
  for (int i = 1; i < 20000; ++i) product += QStringLiteral("*x");
  EXPECT_NEAR(num(product), std::pow(1.0001, 20000), 1e-6 * std::pow(1.0001, 20000));
  QString calls;
  for (int i = 0; i < 2000; ++i) calls += QStringLiteral("sin(%1)+").arg(i);
  calls += QStringLiteral("0");
  double expected = 0;
  for (int i = 0; i < 2000; ++i) expected += std::sin(i);
  EXPECT_NEAR(num(calls), expected, 1e-9);
}

TEST_F(EvalTest, DeepNestingFailsClearlyInsteadOfOverflowingTheStack) {
  auto nested = [](int depth, const QString& open, const QString& close) -> QString {
    return open.repeated(depth) + QStringLiteral("1") + close.repeated(depth);
  };
  EXPECT_EQ(num(nested(100, QStringLiteral("("), QStringLiteral(")"))), 1);
  EXPECT_EQ(num(nested(50, QStringLiteral("Abs("), QStringLiteral(")"))), 1);
  const QString deep[] = {
      nested(10000, QStringLiteral("("), QStringLiteral(")")),
      nested(10000, QStringLiteral("-"), QString()),
      nested(10000, QStringLiteral("Not "), QString()),
      nested(10000, QStringLiteral("sin("), QStringLiteral(")")),
      nested(10000, QStringLiteral("2^("), QStringLiteral(")")),
      QStringLiteral("(").repeated(100000),
  };
  for (const QString& t : deep) {
    try {
      engine.Eval(t);
      ADD_FAILURE() << "no failure at depth 10000";
    } catch (const EvalError& e) {
      EXPECT_EQ(e.number(), EvalError::kExpressionTooComplex);
      EXPECT_FALSE(e.description().isEmpty());
    }
  }
  // The engine is still usable afterwards.
  EXPECT_EQ(num(QStringLiteral("(1+2)")), 3);
}

// --- AddCode and the namespace --------------------------------------------

TEST_F(EvalTest, AddCodeAssignsConstantsThatPersistBetweenCalls) {
  engine.AddCode(QStringLiteral("A=2:B=3"));
  EXPECT_EQ(num(QStringLiteral("A*B")), 6);
  engine.AddCode(QStringLiteral(": x= 0.5"));  // an empty constants box leaves a leading ":"
  EXPECT_EQ(num(QStringLiteral("A*B*x")), 3);
  EXPECT_EQ(num(QStringLiteral("A")), 2);  // still there
  engine.AddCode(QStringLiteral("A = 2*B : C=A+1\r\nD = -C"));
  EXPECT_EQ(num(QStringLiteral("D")), -7);
  engine.AddCode(QStringLiteral(""));
  engine.AddCode(QStringLiteral(":::"));
  EXPECT_EQ(num(QStringLiteral("C")), 7);
}

TEST_F(EvalTest, AddCodeFeedsXThroughItsTextRoundedToFifteenDigits) {
  const double x = 1.0 / 3;
  engine.AddCode(QStringLiteral("A=2:B=3: x= ") + rt::Str(x));
  EXPECT_EQ(num(QStringLiteral("x")), 0.333333333333333);
  EXPECT_NE(num(QStringLiteral("x")), x);
  engine.AddCode(QStringLiteral(": x= ") + rt::Str(-1e-20));
  EXPECT_EQ(num(QStringLiteral("x")), -1e-20);
  engine.AddCode(QStringLiteral(": x= ") + rt::Str(123456789012345678.0));
  EXPECT_EQ(num(QStringLiteral("x")), 1.23456789012346e17);
}

TEST_F(EvalTest, AddCodeReadsEachNewTextWhollyEvenWhenItRepeatsThePrevious) {
  // Consecutive texts share most of their characters; what changed, and
  // what was changed in between, must still count.
  const struct {
    const char* code;
    const char* check;
    double value;
  } steps[] = {
      {"A=2:B=3: x= 0.5", "A*100+B*10+x", 230.5},
      {"A=2:B=3: x= 0.55", "x", 0.55},           // the number grew
      {"A=2:B=3: x= 0.5", "x", 0.5},             // and shrank
      {"A=2:B=4: x= 0.5", "B", 4},               // a constant before x changed
      {"A=7", "A", 7},                           // another text in between...
      {"A=2:B=4: x= 0.5", "A", 2},               // ...and the repeated one assigns A again
      {"A=2:B=4: x= -0.5", "x", -0.5},
      {"A=2:B=4: x=  -1.5E-05", "x", -1.5e-5},
      {"A=2:B=4: y= 1", "y*10+x", 10 - 1.5e-5},  // same length, another name
      {"A=2:B=4: y= 1: z=3", "z", 3},
      {"A=2:B=4: y= 1", "z", 3},
      {"A=2:B=4: y= 1", "y", 1},                 // identical text
  };
  for (const auto& s : steps) {
    engine.AddCode(QString::fromUtf8(s.code));
    EXPECT_EQ(num(QString::fromUtf8(s.check)), s.value) << s.code;
  }
  engine.AddCode(QStringLiteral("A=2:B=4: y= 1"));
  engine.setNumber(engine.variableSlot(QStringLiteral("y")), 9);
  engine.AddCode(QStringLiteral("A=2:B=4: y= 1"));
  EXPECT_EQ(num(QStringLiteral("y")), 1);
}

TEST_F(EvalTest, AddCodeLiteralsKeepTheirTypes) {
  // The shape "name= number" is assigned without compiling; it must type the
  // literal exactly as the compiler does.
  const struct {
    const char* code;
    rt::VType type;
    double value;
  } rows[] = {
      {"v= 5", rt::VType::Integer, 5},          {"v= -5", rt::VType::Integer, -5},
      {"v= 32768", rt::VType::Long, 32768},     {"v=-32768", rt::VType::Long, -32768},
      {"v= 1.5", rt::VType::Double, 1.5},       {"v= -1.5E-05", rt::VType::Double, -1.5e-5},
      {"v= 3000000000", rt::VType::Double, 3e9}, {"v= +.5", rt::VType::Double, 0.5},
  };
  for (const auto& r : rows) {
    engine.AddCode(QString::fromUtf8(r.code));
    const rt::Variant fast = engine.variable(QStringLiteral("v"));
    engine.AddCode(QString::fromUtf8(r.code) + QStringLiteral(" + 0*1"));  // compiled
    const rt::Variant compiled = engine.variable(QStringLiteral("v"));
    EXPECT_EQ(fast.type(), r.type) << r.code;
    EXPECT_EQ(fast.rawNumber(), r.value) << r.code;
    EXPECT_EQ(compiled.rawNumber(), r.value) << r.code;
  }
}

TEST_F(EvalTest, AddCodeFailuresLeaveTheNamespaceAsTheyShould) {
  engine.AddCode(QStringLiteral("A=1"));
  // A syntax error anywhere: nothing runs.
  EXPECT_EQ(addCodeFailure(QStringLiteral("A=5: B=(")), EvalError::kExpectedExpression);
  EXPECT_EQ(num(QStringLiteral("A")), 1);
  EXPECT_FALSE(engine.isDefined(QStringLiteral("B")));
  // A run-time failure: the statements before it stand.
  EXPECT_EQ(addCodeFailure(QStringLiteral("A=7: B=1/0: C=1")), 11);
  EXPECT_EQ(num(QStringLiteral("A")), 7);
  EXPECT_FALSE(engine.isDefined(QStringLiteral("C")));
  const struct {
    const char* code;
    int number;
  } rows[] = {
      {"sin=2", EvalError::kIllegalAssignment}, {"Pi = 3", EvalError::kIllegalAssignment},
      {"Mod=2", EvalError::kExpectedIdentifier}, {"x=", EvalError::kExpectedExpression},
      {"x 5", EvalError::kExpectedEquals},      {"5=x", EvalError::kExpectedIdentifier},
      {"x=1 2", EvalError::kExpectedEndOfStatement}, {"x=y", EvalError::kUndefinedVariable},
      {"x= 1e999", EvalError::kOverflow},
  };
  for (const auto& r : rows) EXPECT_EQ(addCodeFailure(QString::fromUtf8(r.code)), r.number) << r.code;
}

TEST_F(EvalTest, VariablesHoldTextsBooleansAndThirtyTwoBitFloats) {
  engine.AddCode(QStringLiteral("s=\"ab\": b = 1 < 2: d = Division(1, 3): n = 2"));
  EXPECT_EQ(txt(QStringLiteral("s & s")), QStringLiteral("abab"));
  EXPECT_EQ(failure(QStringLiteral("s + 1")), 13);
  EXPECT_EQ(engine.Eval(QStringLiteral("b")), rt::Variant::boolean(true));
  EXPECT_EQ(num(QStringLiteral("b + 1")), 0);
  EXPECT_EQ(engine.Eval(QStringLiteral("b And b")), rt::Variant::boolean(true));
  // A 32-bit float times a 16-bit integer stays a 32-bit float.
  EXPECT_EQ(engine.Eval(QStringLiteral("d * n")).type(), rt::VType::Single);
  EXPECT_EQ(txt(QStringLiteral("d * n")), QStringLiteral("0.6666667"));
  EXPECT_EQ(engine.Eval(QStringLiteral("d * 2.0")).type(), rt::VType::Double);
  // The same formula follows the values it meets.
  engine.AddCode(QStringLiteral("n = 2.5"));
  EXPECT_EQ(num(QStringLiteral("n * 2")), 5);
  engine.AddCode(QStringLiteral("n = \"3\""));
  EXPECT_EQ(num(QStringLiteral("n * 2")), 6);
}

TEST_F(EvalTest, CompiledExpressionsAndSlotsSkipTheTexts) {
  const Evaluator::Expression e = engine.compile(QStringLiteral("2.23*sin(A*x)*(cos(B*x))^2"));
  const int a = engine.variableSlot(QStringLiteral("A"));
  const int b = engine.variableSlot(QStringLiteral("b"));
  const int x = engine.variableSlot(QStringLiteral("X"));
  EXPECT_EQ(failure(QStringLiteral("A")), EvalError::kUndefinedVariable);  // a slot is not a value
  engine.setNumber(a, 2);
  engine.setNumber(b, 3);
  for (double v : {0.0, 0.5, -1.25}) {
    engine.setNumber(x, v);
    EXPECT_EQ(engine.evaluate(e).toDouble(), 2.23 * std::sin(2 * v) * std::pow(std::cos(3 * v), 2));
  }
  EXPECT_THROW(engine.variableSlot(QStringLiteral("sinf")), EvalError);
  EXPECT_THROW(engine.variableSlot(QStringLiteral("and")), EvalError);
  EXPECT_THROW(engine.compile(QStringLiteral("1+")), EvalError);
}

TEST_F(EvalTest, PublishingFunctionsLaterChangesWhatCachedFormulasMean) {
  Evaluator plain;  // as the geometry module's own engine, without the math library
  EXPECT_THROW(plain.Eval(QStringLiteral("sinf(30)")), EvalError);
  try {
    plain.Eval(QStringLiteral("pi"));
  } catch (const EvalError& e) {
    EXPECT_EQ(e.number(), EvalError::kUndefinedVariable);
  }
  plain.AddCode(QStringLiteral(" pi= ") + rt::Str(4 * std::atan(1.0)));
  EXPECT_EQ(plain.Eval(QStringLiteral("pi")).toDouble(), 3.14159265358979);
  AddInFunctions lib;
  Evaluator late;
  EXPECT_EQ(late.Eval(QStringLiteral("1")).toDouble(), 1);
  EXPECT_THROW(late.Eval(QStringLiteral("sinf(30)")), EvalError);
  late.AddObject(QStringLiteral("MathFunction"), &lib, true);
  EXPECT_DOUBLE_EQ(late.Eval(QStringLiteral("sinf(30)")).toDouble(), 0.5);
  // Without add-members the object's functions are reached through its name only.
  Evaluator dotted;
  dotted.AddObject(QStringLiteral("MathFunction"), &lib, false);
  EXPECT_THROW(dotted.Eval(QStringLiteral("fac(3)")), EvalError);
  EXPECT_EQ(dotted.Eval(QStringLiteral("MathFunction.fac(3)")).toDouble(), 6);
}

TEST_F(EvalTest, AnEvaluationInsideADomainFailureMessageIsSafe) {
  // The message box runs inside Eval and keeps events going: another formula
  // may be evaluated meanwhile, even enough of them to renew the cache.
  class Reentrant : public MessagePresenter {
   public:
    explicit Reentrant(Evaluator& e) : engine(e) {}
    MessageReply present(const MessageRequest&) override {
      for (int i = 0; i < 600; ++i) sum += engine.Eval(QStringLiteral("%1 + x").arg(i)).toDouble();
      return {};
    }
    Evaluator& engine;
    double sum = 0;
  } presenter(engine);
  PresenterScope scope(&presenter);
  engine.AddCode(QStringLiteral("x=1"));
  EXPECT_EQ(num(QStringLiteral("ln(0) + x * 2")), 2);
  EXPECT_EQ(presenter.sum, 600 * 599 / 2 + 600);
}
