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
#include "shell/runtime/Variant.h"

enum class Op : unsigned char {
  Add, Sub, Mul, Div, Pow, Square, IntDiv, Mod, Concat,
  Eq, Ne, Lt, Gt, Le, Ge, Is,
  And, Or, Xor, Eqv, Imp,
  Neg, Not,
  Call0, Call1, Call2, CallN,
};

// Square is "^" with the literal 2 as exponent: b still names the literal,
// for the variant machine.
struct Instr {
  Op op;
  std::uint32_t dst;
  std::uint32_t a;   // first operand; CallN: offset of the arguments in ExprProgram::args
  std::uint32_t b;   // second operand; CallN: number of arguments
  std::uint32_t fn;  // function number (calls)
};

// The operations of the fast path: those of Instr that work on numbers, and
// forms made when the code is bound: an operation on a value and a constant
// held in the instruction itself (a op k, or k op a for the two that do not
// commute), and the language's math functions run in place of a call.
enum class FastOp : unsigned char {
  Add, Sub, Mul, Div, Pow, Square, IntDiv, Mod,
  Eq, Ne, Lt, Gt, Le, Ge,
  And, Or, Xor, Eqv, Imp,
  Neg, Not,
  Call0, Call1, Call2, CallN,
  AddK, SubK, KSub, MulK, DivK, KDiv, PowK,
  Sin, Cos, Tan, Atn, Exp, Log, Sqr, Abs,
};

// An instruction of the fast path: the operation with the addresses of its
// values (the kept frame for constants and temporaries, the symbols' own
// numbers for variables), so that nothing is copied in before a run.
struct FastInstr {
  FastOp op;
  // Operands that are the value of the instruction just before are passed
  // in a register instead of through memory: bit 0 for a, bit 1 for b.
  unsigned char fromPrevious;
  std::uint32_t count;  // CallN: number of arguments, whose addresses are at args
  double* dst;
  const double* a;
  const double* b;
  double k;  // the constant of the ...K and K... forms
  // Calls: the numeric form for the argument count and its library.
  void (*function)();
  FunctionLibrary* library;
  const double* const* args;
};

// The fast path as a tree, for the usual programs (no call with more than
// two arguments): each node runs its operands' nodes, in the order of the
// code, then its operation, and hands its value back in a register. eval is
// chosen when the code is bound, for the operation and for where each
// operand comes from (a value's address, or another node).
struct FastNode {
  double (*eval)(const FastNode&) = nullptr;
  FastOp op = FastOp::Add;
  bool leaf = false;  // the program is a lone value, at a
  const double* a = nullptr;
  const double* b = nullptr;
  const FastNode* na = nullptr;
  const FastNode* nb = nullptr;
  double k = 0;
  void (*function)() = nullptr;
  FunctionLibrary* library = nullptr;
};

// Holds addresses into itself: it can be moved, not copied.
struct ExprProgram {
  ExprProgram() = default;
  ExprProgram(ExprProgram&&) = default;
  ExprProgram& operator=(ExprProgram&&) = default;
  ExprProgram(const ExprProgram&) = delete;
  ExprProgram& operator=(const ExprProgram&) = delete;

  std::vector<Instr> code;
  std::vector<rt::Variant> constants;  // frame [0, constants)
  std::vector<double> numbers;         // the constants as doubles, for the fast path
  std::vector<int> variables;          // namespace slot of each frame entry after the constants
  std::vector<std::uint32_t> args;     // frame entries of CallN arguments
  struct Call {
    const FunctionDef* def;
    FunctionLibrary* library;
    // The numeric forms of def, copied here to save a load in the fast loop.
    double (*f0)(FunctionLibrary&);
    double (*f1)(FunctionLibrary&, double);
    double (*f2)(FunctionLibrary&, double, double);
    double (*fn)(FunctionLibrary&, const double*, int);
  };
  std::vector<Call> calls;
  std::uint32_t temps = 0;
  std::uint32_t result = 0;     // frame entry of the value
  bool fast = true;             // every value is a plain number or a Boolean
  bool resultIsBoolean = false;  // the fast path's value stands for a Boolean

  // The fast path: its code, the frame it works on (kept between runs, with
  // the constants in place), where the value ends up, and the states of the
  // variables it reads, checked again only when the symbols' epoch moves.
  // A run that starts while another run of the same program is under way
  // (from inside a message box) goes to the variant machine instead.
  std::vector<FastInstr> fastCode;
  std::vector<FastNode> fastTree;      // the same code as a tree, when it has one
  const FastNode* fastRoot = nullptr;  // in fastTree
  // The tree as machine code where there is any (see ExprNative.h), made
  // once the tree has run often enough to repay the making.
  mutable double (*native)() = nullptr;
  mutable std::shared_ptr<const void> nativeMemory;
  mutable std::uint32_t treeRuns = 0;
  std::vector<const double*> fastArgs;
  std::vector<const unsigned char*> variableStates;
  const double* fastResult = nullptr;
  mutable std::vector<double> frame;
  mutable std::uint64_t checkedEpoch = ~std::uint64_t{0};
  mutable bool busy = false;

  std::uint32_t variableBase() const { return static_cast<std::uint32_t>(constants.size()); }
  std::uint32_t tempBase() const { return static_cast<std::uint32_t>(constants.size() + variables.size()); }
  std::uint32_t frameSize() const { return tempBase() + temps; }
};

// One "name = expression" of a run of statements.
struct ExprStatement {
  int slot = -1;
  ExprProgram value;
};
