#pragma once
// The expression engine of the function table, the calculator's expression
// viewer and the geometry module, with the four operations its callers use.
//
//   AddObject(name, object, addMembers)  publishes a FunctionLibrary (the math
//       library "MathFunction"); with addMembers its functions are global names.
//   AddCode(text)   runs statements "name=value" separated by ":" or line
//       breaks; a variable is created on its first assignment; the value side
//       is an expression. Nothing runs when the text has a syntax error.
//   Eval(text)      the value of an expression in the current namespace: a
//       number, a Boolean, or a text (BIN, BTD, "&"). A number computed on
//       the fast path comes back as a 64-bit float even where the variant
//       rules would type it as an integer; the value, and so its text, is
//       the same.
//   Failures        every syntax or run-time failure is thrown as EvalError,
//       with the classic number and a description in the user's language.
//
// Variables persist between calls for the life of the Evaluator: a constant
// or x once assigned stays until overwritten, also from one formula to the
// next.
//
// Speed: each formula is compiled once (ExprCompiler) and kept; Eval of the
// same text again runs the compiled form directly, on doubles when the values
// allow (ExprMachine). AddCode recognises the usual "A=2:B=3: x= 0.25" shape
// (names and number literals) and assigns without compiling; other
// statements are compiled. Callers that evaluate in a loop can also hold an
// Expression and a variable slot and skip the texts altogether.
#include <QHash>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "funcs/EvalError.h"
#include "funcs/ExprMachine.h"
#include "funcs/ExprProgram.h"
#include "funcs/ExprSymbols.h"
#include "funcs/LanguageFunctions.h"
#include "shell/runtime/Variant.h"

class Evaluator {
 public:
  // A compiled formula, valid for the Evaluator that compiled it.
  class Expression {
   public:
    Expression() = default;
    bool isValid() const { return program_ != nullptr; }

   private:
    friend class Evaluator;
    explicit Expression(std::shared_ptr<const ExprProgram> p) : program_(std::move(p)) {}
    std::shared_ptr<const ExprProgram> program_;
  };

  Evaluator();
  Evaluator(const Evaluator&) = delete;
  Evaluator& operator=(const Evaluator&) = delete;

  // The object is not owned and must outlive the Evaluator.
  void AddObject(const QString& name, FunctionLibrary* object, bool addMembers);
  void AddCode(const QString& text);
  rt::Variant Eval(const QString& text);

  Expression compile(const QString& text);
  rt::Variant evaluate(const Expression& expression);
  // The value as a 64-bit float (a Boolean is -1 or 0, a text is read as a
  // number), for callers that tabulate or plot.
  // Inline: in a loop the usual run costs the tree's nodes and a few checks.
  double evaluateNumber(const Expression& expression) {
    const ExprProgram* p = expression.program_.get();
    if (treeRuns(p)) [[likely]]
      return runTree(*p);
    return evaluateNumberSlowly(expression);
  }

  // evaluate(expression) where its value is sure to be a plain 64-bit float
  // (the formula runs on numbers now, and is neither a comparison nor a lone
  // name): true with the value, without making a variant. False, having done
  // nothing, where evaluate must run.
  bool evaluatePlainNumber(const Expression& expression, double& value) {
    const ExprProgram* p = expression.program_.get();
    if (!treeRuns(p) || p->resultIsBoolean || p->code.empty()) [[unlikely]]
      return false;
    value = runTree(*p);
    return true;
  }

  // Direct access to variables, for callers that hold numbers, not texts.
  // variableSlot creates the variable (undefined) when it is new; it throws
  // EvalError when the name belongs to a function.
  int variableSlot(const QString& name);
  void setVariable(int slot, const rt::Variant& value);
  void setNumber(int slot, double value) { symbols_.assignNumber(slot, value); }
  // The value of a variable; Empty when it has none.
  rt::Variant variable(const QString& name) const;
  bool isDefined(const QString& name) const;

  // Forgets every variable's value (the functions stay published).
  void clearVariables() { symbols_.clearVariables(); }

  // Off: every formula runs on variants. For tests that compare the two paths.
  void setFastPath(bool on) { fastPath_ = on; }

 private:
  double evaluateNumberSlowly(const Expression& expression);
  // True when the program's tree of nodes can run now on the numbers held.
  bool treeRuns(const ExprProgram* p) const {
    return p && p->fastRoot && fastPath_ && !p->busy && p->checkedEpoch == symbols_.epoch();
  }
  double runTree(const ExprProgram& p) {
    p.busy = true;  // a run from inside a message box takes the variant machine
    double value;
    try {
      value = runFastCode(p);
    } catch (...) {
      p.busy = false;
      rethrowAsEvalError();
    }
    p.busy = false;
    return value;
  }
  // Within a catch block: throws the failure in flight, a runtime one as EvalError.
  [[noreturn]] static void rethrowAsEvalError();
  const ExprProgram& programFor(const QString& text);
  rt::Variant run(const ExprProgram& program);
  bool assignLiterals(const QString& text);
  void dropCompiled();

  ExprSymbols symbols_;
  LanguageFunctions language_;
  QHash<QString, std::shared_ptr<const ExprProgram>> cache_;
  std::vector<std::shared_ptr<const ExprProgram>> retired_;  // dropped while a run was in progress
  QString lastText_;
  const ExprProgram* lastProgram_ = nullptr;  // owned by cache_
  // The literal statements of the last AddCode text read without compiling.
  struct LiteralAssignment {
    int slot;
    int valueStart;  // offset of the sign or number after "="
    int end;         // offset just after the number
    ExprSymbols::SlotState type;
    double value;
  };
  std::u16string literalText_;  // a plain copy: no shared data to count
  std::vector<LiteralAssignment> literals_;
  int running_ = 0;
  bool fastPath_ = true;
};
