// Randomised runs of the compiler and both machines, seeded so that a
// failure can be replayed. Each test runs for a few seconds; set
// CALVIX_FUZZ_SECONDS (for example 60) for a long run, and CALVIX_FUZZ_SEED
// to replay or vary the inputs.
//
//   - Formulas built from the grammar give the same value, the same failure
//     and the same messages on the fast path and on the variant path.
//   - Literal statements assigned without compiling equal the compiled ones.
//   - Random and mangled texts never do anything but evaluate or fail with
//     an EvalError.
#include <QElapsedTimer>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <random>
#include <string>

#include "funcs/ExprCompiler.h"
#include "funcs/ExprLexer.h"
#include "funcs/ExprMachine.h"
#include "shell/runtime/NumberText.h"
#include "tests/funcs/EvalTestSupport.h"

namespace {

qint64 budgetMs() {
  bool ok = false;
  const int s = qEnvironmentVariableIntValue("CALVIX_FUZZ_SECONDS", &ok);
  return ok && s > 0 ? s * 1000LL : 2000LL;
}

std::uint64_t seed() {
  bool ok = false;
  const int s = qEnvironmentVariableIntValue("CALVIX_FUZZ_SEED", &ok);
  return ok ? static_cast<std::uint64_t>(s) : 20240611u;
}

class Generator {
 public:
  explicit Generator(std::uint64_t seed) : rng_(seed) {}

  int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
  bool chance(double p) { return std::uniform_real_distribution<double>(0, 1)(rng_) < p; }
  template <size_t N>
  QString oneOf(const char* const (&items)[N]) {
    return QString::fromUtf8(items[pick(static_cast<int>(N))]);
  }

  double value() {
    switch (pick(6)) {
      case 0: return pick(7) - 3;
      case 1: return std::uniform_real_distribution<double>(-10, 10)(rng_);
      case 2: return std::ldexp(std::uniform_real_distribution<double>(-1, 1)(rng_), pick(2100) - 1050);
      case 3: return pick(2) ? 32767.5 : -2147483648.5;
      case 4: return std::uniform_int_distribution<int>(-40000, 40000)(rng_);
      default: return 0.5 * (pick(9) - 4);
    }
  }

  QString atom() {
    static const char* const literals[] = {"0", "1", "2", "0.5", "3.25", "1E+300", "1e-300", "32767", "32768",
                                           "2147483647", "-1", ".5", "&HFFFF", "True", "False", "170"};
    static const char* const names[] = {"x", "y", "n", "X", "N", "Pi"};
    return pick(3) == 0 ? oneOf(literals) : oneOf(names);
  }

  QString expression(int depth) {
    if (depth <= 0 || chance(0.25)) return atom();
    static const char* const ops[] = {"+", "-", "*", "/", "^", "\\", " Mod ", "=", "<>", "<", ">=", " And ",
                                      " Or ", " Xor ", " Eqv ", " Imp "};
    static const char* const unary[] = {"Abs", "Sin", "Cos", "Tan", "Atn", "Exp", "Log", "Sqr", "Int", "Fix",
                                        "Sgn", "Round", "CInt", "CLng", "CDbl", "Sec", "Csc", "Cot", "ln", "lg",
                                        "asin", "acos", "atan", "hsin", "hcos", "htan", "asinh", "acosh", "atanh",
                                        "sinf", "cosf", "tanf", "fac"};
    static const char* const binary[] = {"pow", "Round", "Suma", "Producto"};
    switch (pick(8)) {
      case 0:
      case 1:
      case 2: return expression(depth - 1) + oneOf(ops) + expression(depth - 1);
      case 3: return QLatin1Char('(') + expression(depth - 1) + QLatin1Char(')');
      case 4: return QLatin1Char('-') + expression(depth - 1);
      case 5: return oneOf(unary) + QLatin1Char('(') + expression(depth - 1) + QLatin1Char(')');
      case 6:
        return oneOf(binary) + QLatin1Char('(') + expression(depth - 1) + QLatin1Char(',') + expression(depth - 1) +
               QLatin1Char(')');
      default: return QStringLiteral("Not ") + expression(depth - 1);
    }
  }

  // Texts made of pieces of the language, some of them broken.
  QString soup() {
    static const char* const pieces[] = {"x", "1", "2.5", "e", "E+", ".", "(", ")", ",", "+", "-", "*", "/", "^",
                                         "\\", "&", "&H", "&O7", "=", "<", ">", ":", " ", "\t", "\n", "\"", "'",
                                         "Mod", "Not", "And", "Is", "sin", "sinf(", "fac(", "BIN(", "BTD(", "Suma(",
                                         "Division(", "MathFunction.", "Pi", "Rnd", "1e400", "é", "€", "#", "$",
                                         "_", "9999999999999999999999", "0.000000000000000000001"};
    QString s;
    const int n = pick(25);
    for (int i = 0; i < n; ++i) s += oneOf(pieces);
    return s;
  }

  QString mangle(QString s) {
    const int edits = 1 + pick(3);
    for (int k = 0; k < edits && !s.isEmpty(); ++k) {
      const int at = pick(static_cast<int>(s.size()));
      switch (pick(3)) {
        case 0: s.remove(at, 1); break;
        case 1: s.insert(at, QChar(static_cast<char16_t>(pick(3) == 0 ? pick(0x3000) : 32 + pick(95)))); break;
        default: s[at] = QChar(static_cast<char16_t>(32 + pick(95))); break;
      }
    }
    return s;
  }

 private:
  std::mt19937_64 rng_;
};

struct Outcome {
  int error = 0;
  double value = 0;
  bool boolean = false;
  bool text = false;
  QString shown;

  bool operator==(const Outcome& o) const {
    if (error != o.error || boolean != o.boolean || text != o.text) return false;
    return error != 0 || (text ? shown == o.shown : value == o.value);
  }
};

Outcome evaluate(Evaluator& e, const QString& formula) {
  Outcome o;
  try {
    const rt::Variant v = e.Eval(formula);
    o.text = v.isText();
    o.boolean = v.type() == rt::VType::Boolean;
    if (o.text) o.shown = v.toText();
    else o.value = v.toDouble();
  } catch (const EvalError& err) {
    o.error = err.number();
  }
  return o;
}

}  // namespace

TEST_F(EvalTest, FastAndVariantPathsAgreeOnRandomFormulas) {
  Generator gen(seed());
  Evaluator exact;
  exact.AddObject(QStringLiteral("MathFunction"), &library, true);
  exact.setFastPath(false);
  QElapsedTimer clock;
  clock.start();
  int formulas = 0;
  int failures = 0;
  while (clock.elapsed() < budgetMs()) {
    // New values for the variables, fed as the function table feeds them.
    const QString feed = QStringLiteral("n= %1: y= %2: x= %3")
                             .arg(gen.pick(7) - 3)
                             .arg(rt::Str(gen.value()), rt::Str(gen.value()));
    engine.AddCode(feed);
    exact.AddCode(feed);
    for (int k = 0; k < 20; ++k) {
      const QString formula = gen.expression(1 + gen.pick(5));
      const size_t shownBefore = messages.shown().size();
      const Outcome fast = evaluate(engine, formula);
      const size_t shownFast = messages.shown().size() - shownBefore;
      const Outcome slow = evaluate(exact, formula);
      const size_t shownSlow = messages.shown().size() - shownBefore - shownFast;
      ASSERT_TRUE(fast == slow) << formula.toStdString() << " with " << feed.toStdString() << ": fast "
                                << fast.error << "/" << fast.value << ", variant " << slow.error << "/"
                                << slow.value;
      ASSERT_EQ(shownFast, shownSlow) << formula.toStdString();
      ++formulas;
      failures += fast.error != 0;
    }
    messages.clear();
  }
  // Both outcomes must have been met, or the comparison proved little.
  EXPECT_GT(formulas, 1000);
  EXPECT_GT(failures, formulas / 50);
  EXPECT_LT(failures, formulas * 9 / 10);
}

TEST_F(EvalTest, TheFastTreeRunsAsTheFastCodeBitForBit) {
  // The same compiled program run by its tree, by its plain instruction list
  // and by its machine code: the same value to the last bit, the same
  // failure, the same messages of the library in the same order.
  Generator gen(seed() + 5);
  LanguageFunctions language;
  ExprSymbols symbols;
  symbols.addFunctions(&language);
  symbols.addFunctions(&library);
  const int slots[] = {symbols.variableSlot(u"x"), symbols.variableSlot(u"y"), symbols.variableSlot(u"n")};
  QElapsedTimer clock;
  clock.start();
  int trees = 0;
  int natives = 0;
  int failures = 0;
  while (clock.elapsed() < budgetMs() / 2) {
    for (int slot : slots) symbols.assignNumber(slot, gen.value());
    const QString formula = gen.expression(1 + gen.pick(6));
    ExprProgram program;
    try {
      program = ExprCompiler(symbols).compileExpression(formula);
    } catch (const EvalError&) {
      continue;
    }
    if (!program.fastRoot) continue;  // no fast code, or a call of many arguments
    ++trees;
    makeNativeCode(program);
    enum Machine { kList, kTree, kNative };
    auto run = [&](Machine machine, double& value, std::vector<QString>& shown) {
      const size_t before = messages.shown().size();
      int error = 0;
      try {
        value = machine == kNative ? program.native()
                : machine == kTree ? program.fastRoot->eval(*program.fastRoot)
                                   : executeFast(program);
      } catch (const rt::RuntimeError& e) {
        error = e.number();
      }
      for (size_t i = before; i < messages.shown().size(); ++i) shown.push_back(messages.shown()[i].text);
      return error;
    };
    double byTree = 0, byList = 0;
    std::vector<QString> treeMessages, listMessages;
    const int treeError = run(kTree, byTree, treeMessages);
    const int listError = run(kList, byList, listMessages);
    ASSERT_EQ(treeError, listError) << formula.toStdString();
    if (treeError == 0) {
      ASSERT_EQ(std::bit_cast<std::uint64_t>(byTree), std::bit_cast<std::uint64_t>(byList)) << formula.toStdString();
    }
    ASSERT_EQ(treeMessages, listMessages) << formula.toStdString();
    // The machine code where the system gives it, failures thrown through it.
    if (program.native) {
      ++natives;
      double byNative = 0;
      std::vector<QString> nativeMessages;
      ASSERT_EQ(run(kNative, byNative, nativeMessages), treeError) << formula.toStdString();
      if (treeError == 0) {
        ASSERT_EQ(std::bit_cast<std::uint64_t>(byNative), std::bit_cast<std::uint64_t>(byTree)) << formula.toStdString();
      }
      ASSERT_EQ(nativeMessages, treeMessages) << formula.toStdString();
    }
    failures += treeError != 0;
    messages.clear();
  }
  EXPECT_GT(trees, 1000);
  EXPECT_GT(failures, trees / 50);
#if defined(__x86_64__) && defined(__linux__)
  EXPECT_EQ(natives, trees);
#endif
}

TEST_F(EvalTest, CompiledNumbersAgreeWithTheVariantPath) {
  // evaluateNumber of a held expression, run again and again as a plot runs
  // it, against the engine that runs everything on variants.
  Generator gen(seed() + 6);
  Evaluator exact;
  exact.AddObject(QStringLiteral("MathFunction"), &library, true);
  exact.setFastPath(false);
  QElapsedTimer clock;
  clock.start();
  int runs = 0;
  while (clock.elapsed() < budgetMs() / 2) {
    const QString formula = gen.expression(1 + gen.pick(5));
    Evaluator::Expression fast, slow;
    try {
      fast = engine.compile(formula);
      slow = exact.compile(formula);
    } catch (const EvalError&) {
      continue;
    }
    const int fastX = engine.variableSlot(QStringLiteral("x"));
    const int slowX = exact.variableSlot(QStringLiteral("x"));
    const QString feed = QStringLiteral("n= %1: y= %2").arg(gen.pick(7) - 3).arg(rt::Str(gen.value()));
    engine.AddCode(feed);
    exact.AddCode(feed);
    for (int k = 0; k < 5; ++k) {
      const double x = gen.value();
      if (!std::isfinite(x)) continue;  // no text gives a variable an infinity
      engine.setNumber(fastX, x);
      exact.setNumber(slowX, x);
      auto number = [](Evaluator& e, const Evaluator::Expression& f, double& v) {
        try {
          v = e.evaluateNumber(f);
        } catch (const EvalError& err) {
          return err.number();
        }
        return 0;
      };
      double a = 0, b = 0;
      const int fastError = number(engine, fast, a);
      const int slowError = number(exact, slow, b);
      ASSERT_EQ(fastError, slowError) << formula.toStdString() << " x=" << x;
      if (fastError == 0) {
        ASSERT_EQ(a, b) << formula.toStdString() << " x=" << x;
      }
      ++runs;
    }
    messages.clear();
  }
  EXPECT_GT(runs, 1000);
}

TEST_F(EvalTest, LiteralStatementsEqualTheCompiledOnes) {
  Generator gen(seed() + 1);
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < budgetMs() / 4) {
    QString number;
    switch (gen.pick(4)) {
      case 0: number = rt::Str(gen.value()); break;
      case 1: number = QString::number(gen.pick(100000) - 50000); break;
      case 2: number = QStringLiteral("%1.%2E%3%4").arg(gen.pick(10)).arg(gen.pick(1000)).arg(gen.pick(2) ? "+" : "-").arg(gen.pick(320)); break;
      default: number = QStringLiteral("  -  %1").arg(gen.pick(40000)); break;
    }
    const QString statement = QStringLiteral("v= ") + number;
    const QString compiled = QStringLiteral("v= (") + number + QLatin1Char(')');
    int fastError = 0;
    int compiledError = 0;
    rt::Variant fastValue;
    try {
      engine.AddCode(statement);
      fastValue = engine.variable(QStringLiteral("v"));
    } catch (const EvalError& e) {
      fastError = e.number();
    }
    try {
      engine.AddCode(compiled);
    } catch (const EvalError& e) {
      compiledError = e.number();
    }
    ASSERT_EQ(fastError, compiledError) << statement.toStdString();
    if (fastError != 0) continue;
    const rt::Variant compiledValue = engine.variable(QStringLiteral("v"));
    ASSERT_EQ(fastValue.type(), compiledValue.type()) << statement.toStdString();
    ASSERT_EQ(fastValue.rawNumber(), compiledValue.rawNumber()) << statement.toStdString();
  }
}

TEST_F(EvalTest, RunsOfSimilarStatementTextsEqualTheCompiledOnes) {
  // The literal reader reuses what the previous text had in common with the
  // new one; a second engine that compiles every text must agree throughout.
  Generator gen(seed() + 3);
  Evaluator compiled;
  static const char* const names[] = {"A", "B", "x", "y", "xx"};
  static const char* const numbers[] = {"0", "1", "-1", "0.5", "0.55", "-0.5", " 12", "1E+300", "2.5E-05", "32768",
                                        "-32768", ".5", "100000"};
  QElapsedTimer clock;
  clock.start();
  QString text = QStringLiteral("A=2:B=3: x= 0.5");
  while (clock.elapsed() < budgetMs() / 4) {
    // Change one statement, add one or drop the last.
    QStringList parts = text.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    const int k = gen.pick(static_cast<int>(parts.size()) + 1);
    const QString statement = gen.oneOf(names) + QStringLiteral("=") + (gen.pick(2) ? QStringLiteral(" ") : QString()) +
                              gen.oneOf(numbers);
    if (k == parts.size()) parts.append(statement);
    else if (gen.pick(4) == 0 && parts.size() > 1) parts.removeLast();
    else parts[k] = statement;
    text = parts.join(gen.pick(2) ? QStringLiteral(":") : QStringLiteral(": "));
    engine.AddCode(text);
    compiled.AddCode(text + QStringLiteral(": zz=(0)"));  // the parenthesis needs the compiler
    for (const char* name : names) {
      const QString n = QString::fromLatin1(name);
      ASSERT_EQ(engine.variable(n).type(), compiled.variable(n).type()) << text.toStdString() << " " << name;
      ASSERT_EQ(engine.variable(n).rawNumber(), compiled.variable(n).rawNumber()) << text.toStdString() << " " << name;
    }
  }
}

TEST_F(EvalTest, NumberLiteralsReadAsTheNearestDouble) {
  Generator gen(seed() + 4);
  for (int i = 0; i < 200000; ++i) {
    std::string digits;
    const int whole = gen.pick(20);
    for (int k = 0; k < whole; ++k) digits += static_cast<char>('0' + gen.pick(10));
    if (whole == 0 || gen.pick(2)) {
      digits += '.';
      const int fraction = 1 + gen.pick(20);
      for (int k = 0; k < fraction; ++k) digits += static_cast<char>('0' + gen.pick(10));
    }
    if (gen.pick(2)) {
      digits += 'E';
      digits += std::to_string(gen.pick(60) - 30);
    }
    NumberLiteral literal;
    int end = 0;
    const QString text = QString::fromStdString(digits);
    ASSERT_EQ(scanNumber(text, 0, end, literal), 0) << digits;
    ASSERT_EQ(end, text.size()) << digits;
    ASSERT_EQ(literal.value, std::strtod(digits.c_str(), nullptr)) << digits;
  }
}

TEST_F(EvalTest, RandomAndMangledTextsOnlyEvaluateOrFail) {
  Generator gen(seed() + 2);
  engine.AddCode(QStringLiteral("x= 0.5: y= 2"));
  QElapsedTimer clock;
  clock.start();
  int evaluated = 0;
  int refused = 0;
  while (clock.elapsed() < budgetMs()) {
    QString text;
    switch (gen.pick(3)) {
      case 0: text = gen.soup(); break;
      case 1: text = gen.mangle(gen.expression(4)); break;
      default: {
        const int n = gen.pick(30);
        for (int i = 0; i < n; ++i) text += QChar(static_cast<char16_t>(1 + gen.pick(0xFFFE)));
        break;
      }
    }
    try {
      if (gen.pick(4) == 0) engine.AddCode(text);
      else engine.Eval(text);
      ++evaluated;
    } catch (const EvalError& e) {
      ASSERT_FALSE(e.description().isEmpty()) << e.number() << " " << text.toStdString();
      ++refused;
    }
    messages.clear();
  }
  EXPECT_GT(evaluated, 100);
  EXPECT_GT(refused, 100);
}
