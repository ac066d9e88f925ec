#include "funcs/EvalError.h"

#include "shell/runtime/RuntimeError.h"
#include "shell/Strings.h"

namespace {

// String id of each description; 0 when the runtime's own text is used.
int descriptionId(int number) {
  switch (number) {
    case EvalError::kSyntaxError: return 4950;
    case EvalError::kExpectedCloseParen: return 4951;
    case EvalError::kExpectedEquals: return 4952;
    case EvalError::kExpectedEndOfStatement: return 4953;
    case EvalError::kInvalidCharacter: return 4954;
    case EvalError::kUnterminatedString: return 4955;
    case EvalError::kExpressionTooComplex: return 4956;
    case EvalError::kWrongArgumentCount: return 4957;
    case EvalError::kUndefinedVariable: return 4958;
    case EvalError::kIllegalAssignment: return 4959;
    case EvalError::kUnknownFunction: return 4960;
    case EvalError::kInvalidProcedureCall: return 4961;
    case EvalError::kOverflow: return 4962;
    case EvalError::kDivisionByZero: return 4963;
    case EvalError::kTypeMismatch: return 4964;
    case EvalError::kObjectRequired: return 4965;
    case EvalError::kExpectedExpression: return 4966;
    case EvalError::kExpectedIdentifier: return 4967;
    case EvalError::kObjectMember: return 4968;
    default: return 0;
  }
}

}  // namespace

QString evalErrorDescription(int number, const QString& detail) {
  const int id = descriptionId(number);
  QString text = id != 0 ? Res(id) : rt::standardDescription(number);
  if (text.contains(QLatin1String("%1"))) text.replace(QLatin1String("%1"), detail);
  return text;
}

EvalError::EvalError(int number, const QString& detail, int position)
    : number_(number), description_(evalErrorDescription(number, detail)), position_(position) {
  what_ = description_.toStdString();
}

EvalError::EvalError(const rt::RuntimeError& e) : number_(e.number()), position_(-1) {
  // The runtime may carry a text of its own (a file name...); the numbers the
  // engine knows get their text in the user's language.
  description_ = descriptionId(number_) != 0 ? evalErrorDescription(number_) : e.description();
  what_ = description_.toStdString();
}
