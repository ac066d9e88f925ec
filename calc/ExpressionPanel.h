#pragma once
// The calculator's expression viewer: an evaluator of its own with the math
// library published, fed with the value of the display as x before each
// expression. Variables assigned stay for the life of the viewer, as they do
// in the function table's evaluator.
#include <QString>
#include <memory>

#include "shell/runtime/Variant.h"

class Evaluator;
class AddInFunctions;

class ExpressionPanel {
 public:
  ExpressionPanel();
  ~ExpressionPanel();
  ExpressionPanel(const ExpressionPanel&) = delete;
  ExpressionPanel& operator=(const ExpressionPanel&) = delete;

  // Assigns x from the display text (a comma read as the point the
  // expression language wants), then evaluates the expression. Throws
  // EvalError on any failure of the evaluator.
  rt::Variant evaluate(const QString& displayText, const QString& expression);
  // The message code of an evaluator failure: 101 for a malformed
  // expression, 120 for a name it does not know, 104 for anything that
  // failed while computing.
  static int messageCode(int evalErrorNumber);

 private:
  std::unique_ptr<AddInFunctions> library_;
  std::unique_ptr<Evaluator> engine_;
};
