#pragma once
// An evaluator with the math library published, as the function table has it,
// on a fresh program state (decimal point, Spanish texts, scripted messages).
#include <initializer_list>
#include <utility>

#include "funcs/AddInFunctions.h"
#include "funcs/Evaluator.h"
#include "tests/support/TestSupport.h"

inline void PrintTo(const rt::Variant& v, std::ostream* os) { *os << v.toText().toStdString(); }

class EvalTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    engine.AddObject(QStringLiteral("MathFunction"), &library, true);
  }

  double num(const QString& text) { return engine.Eval(text).toDouble(); }
  QString txt(const QString& text) { return engine.Eval(text).toText(); }
  // The error number of the failure, 0 when the text evaluates.
  int failure(const QString& text) {
    try {
      engine.Eval(text);
    } catch (const EvalError& e) {
      return e.number();
    }
    return 0;
  }
  int addCodeFailure(const QString& text) {
    try {
      engine.AddCode(text);
    } catch (const EvalError& e) {
      return e.number();
    }
    return 0;
  }

  struct Value {
    const char* text;
    double value;
  };
  // Each text evaluates to exactly its value.
  void expectValues(std::initializer_list<Value> rows) {
    for (const Value& r : rows) EXPECT_EQ(num(QString::fromUtf8(r.text)), r.value) << r.text;
  }
  // Each text fails in the engine with its number.
  void expectFailures(std::initializer_list<std::pair<const char*, int>> rows) {
    for (const auto& [text, number] : rows) EXPECT_EQ(failure(QString::fromUtf8(text)), number) << text;
  }

  AddInFunctions library;
  Evaluator engine;
};
