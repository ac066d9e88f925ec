#pragma once
// The geometry window's one-line calculator (Text3): a second expression
// engine, without the math library, so only the language's own functions
// (sin, cos, tan, sqr, log, exp...) and the variable pi exist. pi is set once
// from the 15-digit text of 4*Atn(1), as any other constant would be, so
// sin(pi) is not 0 but 3.23108914886517E-15.
//
// Before evaluating, the line is rewritten: every "lg" becomes
// "(1/log(10))*log" (a plain text rewrite, so any name holding "lg" changes
// too), then every "," becomes "." (either decimal sign is accepted, and a
// comma never separates arguments). The value comes back in "General
// Number" form with the system's decimal symbol.
#include <QString>

#include "funcs/Evaluator.h"

class InlineCalculator {
 public:
  InlineCalculator();

  // The line as the engine receives it.
  static QString rewrite(const QString& line);
  // Evaluates the line: true with the new text in result; false with the
  // engine's description in error.
  bool evaluate(const QString& line, QString& result, QString& error);

 private:
  Evaluator CalcEval;
};
