// libFuzzer target: the compiler and both machines of the evaluator on
// arbitrary input. Build with clang:
//
//   cmake -S . -B build-fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ -DCALVIX_FUZZ=ON \
//         -DCALVIX_BENCH=OFF -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link,address,undefined"
//   cmake --build build-fuzz --target calvix_eval_fuzzer
//   build-fuzz/bin/calvix_eval_fuzzer -max_total_time=60 -max_len=256
//
// The first byte picks what to do with the rest: evaluate it on both paths
// and compare, run it as statements, or both. Anything but an EvalError, a
// disagreement between the paths, a crash or a sanitizer report is a finding.
#include <QLocale>
#include <cstdint>
#include <cstdlib>

#include "funcs/AddInFunctions.h"
#include "funcs/Evaluator.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"

namespace {

struct Engines {
  ScriptedPresenter messages;
  AddInFunctions library;
  Evaluator fast;
  Evaluator exact;
  Engines() {
    resetProgram(QLocale::c());
    setMessagePresenter(&messages);
    fast.AddObject(QStringLiteral("MathFunction"), &library, true);
    exact.AddObject(QStringLiteral("MathFunction"), &library, true);
    exact.setFastPath(false);
    for (Evaluator* e : {&fast, &exact}) e->AddCode(QStringLiteral("A=2:B=3: x= 0.5: n= 7"));
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

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
  static Engines engines;
  if (size == 0) return 0;
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
  if (mode != 1) {
    const Outcome a = evaluate(engines.fast, text);
    const Outcome b = evaluate(engines.exact, text);
    const bool same = a.error == b.error &&
                      (a.error != 0 || (a.value.isText() ? a.value.rawText() == b.value.rawText()
                                                         : a.value.toDouble() == b.value.toDouble()));
    if (!same) std::abort();
  }
  engines.messages.clear();
  return 0;
}
