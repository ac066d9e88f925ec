#pragma once
// Runs compiled expressions. Two machines share one instruction set:
//
//   runFast   works on doubles. Usable when the program was compiled as fast
//             (no texts, no 32-bit floats, no variant-only function) and
//             every variable it reads holds a plain number. It applies the
//             same failures as the variant rules (overflow, division by zero,
//             a negative base with a fractional exponent...), and gives the
//             same values: integer arithmetic of the runtime widens instead of
//             wrapping, so its values are those of double arithmetic.
//   runExact  works on variants with the runtime's rules, for everything else.
#include "funcs/ExprProgram.h"
#include "funcs/ExprSymbols.h"
#include "shell/Variant.h"

// Returns false, having done nothing, when a variable is not a plain number.
// Throws rt::RuntimeError on a failure.
bool runFast(const ExprProgram& program, const ExprSymbols& symbols, double& result);

// Throws rt::RuntimeError, or EvalError for an undefined variable.
rt::Variant runExact(const ExprProgram& program, const ExprSymbols& symbols);
