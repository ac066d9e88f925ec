#pragma once
// A failure of the expression engine: a syntax error found while compiling,
// or a run-time failure (overflow, division by zero, an undefined variable...)
// met while evaluating. It carries the classic error number and a description
// text in the user's language, which callers show after "Error:  ".
#include <QString>
#include <exception>
#include <string>

namespace rt {
class RuntimeError;
}

class EvalError : public std::exception {
 public:
  // Error numbers of the engine beyond those of the runtime (rt::ErrorNumber).
  enum Number : int {
    kInvalidProcedureCall = 5,
    kOverflow = 6,
    kDivisionByZero = 11,
    kTypeMismatch = 13,
    kExpressionTooComplex = 16,
    kObjectRequired = 424,
    kObjectMember = 438,
    kWrongArgumentCount = 450,
    kUndefinedVariable = 500,
    kIllegalAssignment = 501,
    kSyntaxError = 1002,
    kExpectedCloseParen = 1006,
    kExpectedIdentifier = 1010,
    kExpectedEquals = 1011,
    kExpectedExpression = 1015,
    kExpectedEndOfStatement = 1025,
    kInvalidCharacter = 1032,
    kUnterminatedString = 1033,
    kUnknownFunction = 1040,
  };

  // detail fills the "%1" of the description (a name, a character); position
  // is the offset in the text where the failure was found, -1 when unknown.
  explicit EvalError(int number, const QString& detail = {}, int position = -1);
  // A run-time failure of the runtime rules, with its number kept.
  explicit EvalError(const rt::RuntimeError& e);

  int number() const noexcept { return number_; }
  const QString& description() const noexcept { return description_; }
  int position() const noexcept { return position_; }
  const char* what() const noexcept override { return what_.c_str(); }

 private:
  int number_;
  QString description_;
  int position_;
  std::string what_;
};

// The description of an engine error number in the current language; "%1"
// is replaced by detail. An unknown number gives the runtime's own text.
QString evalErrorDescription(int number, const QString& detail = {});
