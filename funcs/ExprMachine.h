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
#include "shell/runtime/Variant.h"

// The instruction loop of the fast path, and the check that every variable
// the program reads holds a plain number (which records the symbols' epoch).
double executeFast(const ExprProgram& program);
// Builds program.fastTree from its fast code, where the code has that shape.
void bindFastTree(ExprProgram& program);
bool checkVariables(const ExprProgram& program, const ExprSymbols& symbols);
// How many operands an operation reads, and the routine that applies it to
// them as a tree node does (b unused below two operands).
int fastOperandCount(FastOp op);
using FastOperation = double (*)(double a, double b, const FastNode& node);
FastOperation fastOperation(FastOp op);
// Gives a program with a tree its machine code, where the system allows it.
void makeNativeCode(const ExprProgram& program);
// The program's value by the quickest of its machines. Making machine code
// takes about ten microseconds, what a few hundred to a thousand runs of
// the tree save: a formula gets it at its 200th run (a table or a plot runs
// it thousands of times), never at its compiling (a single value, a
// solver's few runs).
inline double runFastCode(const ExprProgram& program) {
  if (program.native) return program.native();
  if (!program.fastRoot) return executeFast(program);
  if (++program.treeRuns == 200) makeNativeCode(program);
  return program.fastRoot->eval(*program.fastRoot);
}

// Returns false, having done nothing, when a variable is not a plain number,
// or when the program is already running further up the stack (the variant
// machine then takes it, with frames of its own). Throws rt::RuntimeError on
// a failure. Inline: this is the whole cost of a run beside the loop.
inline bool runFast(const ExprProgram& program, const ExprSymbols& symbols, double& result) {
  if (program.busy || !program.fastResult) [[unlikely]]
    return false;
  if (program.checkedEpoch != symbols.epoch() && !checkVariables(program, symbols)) return false;
  struct Busy {
    bool& flag;
    explicit Busy(bool& f) : flag(f) { flag = true; }
    ~Busy() { flag = false; }
  } busy(program.busy);
  result = runFastCode(program);
  return true;
}

// Throws rt::RuntimeError, or EvalError for an undefined variable.
rt::Variant runExact(const ExprProgram& program, const ExprSymbols& symbols);
