#include "calc/ExpressionPanel.h"

#include "funcs/AddInFunctions.h"
#include "funcs/Evaluator.h"

ExpressionPanel::ExpressionPanel()
    : library_(std::make_unique<AddInFunctions>()), engine_(std::make_unique<Evaluator>()) {
  engine_->AddObject(QStringLiteral("MathFunction"), library_.get(), true);
}

ExpressionPanel::~ExpressionPanel() = default;

rt::Variant ExpressionPanel::evaluate(const QString& displayText, const QString& expression) {
  QString x = displayText;
  x.replace(QLatin1Char(','), QLatin1Char('.'));
  engine_->AddCode(QStringLiteral(" x= ") + x);
  return engine_->Eval(expression);
}

int ExpressionPanel::messageCode(int evalErrorNumber) {
  switch (evalErrorNumber) {
    case EvalError::kUndefinedVariable:
    case EvalError::kUnknownFunction:
    case EvalError::kObjectMember:
    case EvalError::kObjectRequired: return 120;
    default: break;
  }
  return evalErrorNumber >= 1000 ? 101 : 104;
}
