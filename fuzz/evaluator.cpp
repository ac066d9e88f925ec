// The evaluator on arbitrary text: the compiler and both machines. The first
// byte picks what to do with the rest: run it as statements (AddCode),
// evaluate it on the fast path and on variants and compare, or both.
// Anything but a value or an EvalError, or the two paths disagreeing, is a
// finding. The language has no loops, so a hang is a real one; tools/fuzz
// gives each input a time limit.
#include <cmath>

#include "funcs/AddInFunctions.h"
#include "funcs/Evaluator.h"
#include "fuzz/FuzzSupport.h"

namespace {

struct Engines {
  fuzz::Session session;
  AddInFunctions library;
  Evaluator fast;
  Evaluator exact;
  Engines() {
    session.reset();
    fast.AddObject(QStringLiteral("MathFunction"), &library, true);
    exact.AddObject(QStringLiteral("MathFunction"), &library, true);
    exact.setFastPath(false);
  }
  // The constants the function table starts with, before each input, so
  // that one input's assignments do not leak into the next.
  void start() {
    for (Evaluator* e : {&fast, &exact}) {
      e->clearVariables();
      e->AddCode(QStringLiteral("A=2:B=3: x= 0.5: n= 7"));
    }
    session.messages.clear();
  }
};

struct Outcome {
  int error = 0;
  rt::Variant value;
};

Outcome evaluate(Evaluator& e, const QString& text) {
  Outcome o;
  try {
    o.value = e.Eval(text);
  } catch (const EvalError& err) {
    o.error = err.number();
  }
  return o;
}

bool sameNumber(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

bool same(const Outcome& a, const Outcome& b) {
  if (a.error != b.error) return false;
  if (a.error != 0) return true;
  if (a.value.isText() || b.value.isText()) return a.value.isText() && b.value.isText() && a.value.rawText() == b.value.rawText();
  return sameNumber(a.value.toDouble(), b.value.toDouble());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Engines engines;
  if (size == 0) return 0;
  engines.start();
  const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size - 1));
  const int mode = data[0] % 3;
  if (mode != 0) {
    for (Evaluator* e : {&engines.fast, &engines.exact}) {
      try {
        e->AddCode(text);
      } catch (const EvalError&) {
      }
    }
  }
  if (mode != 1 && !same(evaluate(engines.fast, text), evaluate(engines.exact, text))) fuzz::finding();
  return 0;
}
