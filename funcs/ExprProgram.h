#pragma once
// The compiled form of an expression: three-address instructions over one
// frame of values laid out as [constants | variables | temporaries]. A
// formula is compiled once and run many times, either on doubles (the fast
// path) or on variants (the exact path, for texts, 32-bit floats, Booleans
// held in variables and every failure that needs the variant rules).
#include <QString>
#include <cstdint>
#include <memory>
#include <vector>

#include "funcs/FunctionLibrary.h"
#include "shell/Variant.h"

enum class Op : unsigned char {
  Add, Sub, Mul, Div, Pow, IntDiv, Mod, Concat,
  Eq, Ne, Lt, Gt, Le, Ge, Is,
  And, Or, Xor, Eqv, Imp,
  Neg, Not,
  Call0, Call1, Call2, CallN,
};

struct Instr {
  Op op;
  std::uint32_t dst;
  std::uint32_t a;   // first operand; CallN: offset of the arguments in ExprProgram::args
  std::uint32_t b;   // second operand; CallN: number of arguments
  std::uint32_t fn;  // function number (calls)
};

struct ExprProgram {
  std::vector<Instr> code;
  std::vector<rt::Variant> constants;  // frame [0, constants)
  std::vector<double> numbers;         // the constants as doubles, for the fast path
  std::vector<int> variables;          // namespace slot of each frame entry after the constants
  std::vector<std::uint32_t> args;     // frame entries of CallN arguments
  struct Call {
    const FunctionDef* def;
    FunctionLibrary* library;
  };
  std::vector<Call> calls;
  std::uint32_t temps = 0;
  std::uint32_t result = 0;     // frame entry of the value
  bool fast = true;             // every value is a plain number or a Boolean
  bool resultIsBoolean = false;  // the fast path's value stands for a Boolean

  std::uint32_t variableBase() const { return static_cast<std::uint32_t>(constants.size()); }
  std::uint32_t tempBase() const { return static_cast<std::uint32_t>(constants.size() + variables.size()); }
  std::uint32_t frameSize() const { return tempBase() + temps; }
};

// One "name = expression" of a run of statements.
struct ExprStatement {
  int slot = -1;
  ExprProgram value;
};
