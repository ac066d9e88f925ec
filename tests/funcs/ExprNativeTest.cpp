// The machine code of a formula against its tree, on the values where the
// inline paths choose: zeros of both signs as divisors and roots, values
// whose sums and products overflow, arguments the library refuses. And when
// a formula gets it: from its 200th run, not before.
#include <bit>
#include <cmath>

#include "funcs/ExprCompiler.h"
#include "funcs/ExprMachine.h"
#include "funcs/LanguageFunctions.h"
#include "shell/runtime/RuntimeError.h"
#include "tests/funcs/EvalTestSupport.h"

namespace {

struct Outcome {
  double value = 0;
  int error = 0;
  std::vector<QString> shown;
};

}  // namespace

TEST_F(EvalTest, MachineCodeGivesTheTreesValuesFailuresAndMessages) {
#if !defined(__x86_64__) || !defined(__linux__)
  GTEST_SKIP() << "no machine code on this system";
#endif
  LanguageFunctions language;
  ExprSymbols symbols;
  symbols.addFunctions(&language);
  symbols.addFunctions(&library);
  const int x = symbols.variableSlot(u"x");
  const int y = symbols.variableSlot(u"y");
  const double values[] = {0.0, -0.0, 1.0, -1.0, 2.5, 1e-300, 1e308, -1e308, 1e15, 200};
  // Each operation the code does in place, each one it hands over, and
  // shapes that keep values below the frame while others run.
  const char* const formulas[] = {
      "x+y", "x-y", "x*y", "x/y", "x^2", "x+3", "x-3", "3-x", "x*3", "x/3", "3/x", "x^0.5", "x^y",
      "Sqr(x)", "Log(x)", "Sin(x)", "Cos(x)", "Tan(x)", "Exp(x)", "Atn(x)", "Abs(x)", "-x", "x\\y",
      "x Mod y", "x<y", "Not x", "lg(x)", "sinf(x)+lg(y+1)", "fac(x)", "asin(x)*acos(y)",
      "(x+y)*(x-y)/(x*y+1)", "Sqr(x*x+y*y)/(Abs(x)+Abs(y))", "2.23*Sin(2*x)*(Cos(3*y))^2",
      "((x+1)*(y+2)+(x+3)*(y+4))*((x+5)*(y+6)-(x+7)*(y+8))"};
  int compared = 0;
  for (const char* text : formulas) {
    const ExprProgram program = ExprCompiler(symbols).compileExpression(QString::fromLatin1(text));
    ASSERT_TRUE(program.fastRoot) << text;
    makeNativeCode(program);
    ASSERT_TRUE(program.native) << text;
    for (double a : values) {
      for (double b : values) {
        symbols.assignNumber(x, a);
        symbols.assignNumber(y, b);
        auto run = [&](bool native) {
          Outcome r;
          const size_t before = messages.shown().size();
          try {
            r.value = native ? program.native() : program.fastRoot->eval(*program.fastRoot);
          } catch (const rt::RuntimeError& e) {
            r.error = e.number();
          }
          for (size_t i = before; i < messages.shown().size(); ++i) r.shown.push_back(messages.shown()[i].text);
          return r;
        };
        const Outcome tree = run(false);
        const Outcome native = run(true);
        const std::string where = std::string(text) + " at x=" + std::to_string(a) + ", y=" + std::to_string(b);
        ASSERT_EQ(native.error, tree.error) << where;
        if (tree.error == 0) {
          ASSERT_EQ(std::bit_cast<std::uint64_t>(native.value), std::bit_cast<std::uint64_t>(tree.value)) << where;
        }
        ASSERT_EQ(native.shown, tree.shown) << where;
        ++compared;
        messages.clear();
      }
    }
  }
  // The failures the inline paths must meet, on their own.
  symbols.assignNumber(x, 1);
  symbols.assignNumber(y, -0.0);
  for (const auto& [text, number] : {std::pair{"x/y", rt::kDivisionByZero}, std::pair{"3/y", rt::kDivisionByZero},
                                     std::pair{"y/y", rt::kOverflow}, std::pair{"Sqr(y-1)", rt::kInvalidProcedureCall},
                                     std::pair{"Log(y)", rt::kInvalidProcedureCall}}) {
    const ExprProgram program = ExprCompiler(symbols).compileExpression(QString::fromLatin1(text));
    makeNativeCode(program);
    int error = 0;
    try {
      program.native();
    } catch (const rt::RuntimeError& e) {
      error = e.number();
    }
    EXPECT_EQ(error, number) << text;
  }
  EXPECT_EQ(compared, static_cast<int>(std::size(formulas) * std::size(values) * std::size(values)));
}

TEST_F(EvalTest, AFormulaGetsMachineCodeFromItsTwoHundredthRun) {
#if !defined(__x86_64__) || !defined(__linux__)
  GTEST_SKIP() << "no machine code on this system";
#endif
  ExprSymbols symbols;
  symbols.assignNumber(symbols.variableSlot(u"x"), 3);
  const ExprProgram program = ExprCompiler(symbols).compileExpression(QStringLiteral("x*x+1"));
  EXPECT_FALSE(program.native);
  for (int i = 0; i < 199; ++i) EXPECT_EQ(runFastCode(program), 10);
  EXPECT_FALSE(program.native);
  EXPECT_EQ(runFastCode(program), 10);
  EXPECT_TRUE(program.native);
  EXPECT_EQ(runFastCode(program), 10);
}
