#include "funcs/ExprMachine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <memory>

#include "funcs/EvalError.h"
#include "funcs/ExprNative.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace {

// A 64-bit result that overflows is a failure, never an infinity.
inline double checked(double r) {
  if (!std::isfinite(r)) [[unlikely]]
    rt::raise(rt::kOverflow);
  return r;
}

// The rules of "^" on two numbers, as the variant arithmetic has them.
inline double power(double x, double y) {
  if (x < 0 && y != std::floor(y)) rt::raise(rt::kInvalidProcedureCall);
  if (x == 0 && y < 0) rt::raise(rt::kInvalidProcedureCall);
  return checked(y == 2 ? x * x : std::pow(x, y));
}

inline double divide(double x, double y) {
  if (y == 0) [[unlikely]]
    rt::raise(x == 0 ? rt::kOverflow : rt::kDivisionByZero);
  return checked(x / y);
}

inline double truth(bool b) { return b ? -1.0 : 0.0; }

double logicalNumber(Op op, double x, double y) {
  const std::int32_t a = rt::CLng(x);
  const std::int32_t b = rt::CLng(y);
  switch (op) {
    case Op::And: return a & b;
    case Op::Or: return a | b;
    case Op::Xor: return a ^ b;
    case Op::Eqv: return ~(a ^ b);
    default: return ~a | b;  // Imp
  }
}

// Integer, Empty and Boolean are the 16-bit family in the logical operators.
bool isSmall(const rt::Variant& v) {
  return v.type() == rt::VType::Integer || v.type() == rt::VType::Empty || v.type() == rt::VType::Boolean;
}

rt::Variant logicalVariant(Op op, const rt::Variant& a, const rt::Variant& b) {
  const auto r = static_cast<std::int32_t>(logicalNumber(op, a.toDouble(), b.toDouble()));
  if (a.type() == rt::VType::Boolean && b.type() == rt::VType::Boolean) return rt::Variant::boolean(r != 0);
  if (isSmall(a) && isSmall(b)) return rt::Variant::integer(static_cast<std::int16_t>(r));
  return rt::Variant::longValue(r);
}

rt::Variant notVariant(const rt::Variant& a) {
  if (a.type() == rt::VType::Boolean) return rt::Variant::boolean(!a.toBool());
  const std::int32_t r = ~rt::CLng(a.toDouble());
  if (isSmall(a)) return rt::Variant::integer(static_cast<std::int16_t>(r));
  return rt::Variant::longValue(r);
}

// A call in the variant machine: the general form when the function has one,
// otherwise the numeric form on the arguments read as 64-bit floats.
rt::Variant callExact(const ExprProgram::Call& call, const rt::Variant* args, int n) {
  const FunctionDef& def = *call.def;
  if (def.general) return def.general(*call.library, args, n);
  double small[8];
  std::unique_ptr<double[]> big;
  double* x = small;
  if (n > 8) {
    big = std::make_unique<double[]>(static_cast<size_t>(n));
    x = big.get();
  }
  for (int i = 0; i < n; ++i) x[i] = args[i].toDouble();
  if (n == 0 && def.f0) return rt::Variant(def.f0(*call.library));
  if (n == 1 && def.f1) return rt::Variant(def.f1(*call.library, x[0]));
  if (n == 2 && def.f2) return rt::Variant(def.f2(*call.library, x[0], x[1]));
  return rt::Variant(def.fn(*call.library, x, n));
}

using F0 = double (*)(FunctionLibrary&);
using F1 = double (*)(FunctionLibrary&, double);
using F2 = double (*)(FunctionLibrary&, double, double);
using FN = double (*)(FunctionLibrary&, const double*, int);

// A call with more than two arguments: they are gathered from their places.
double callMany(const FastInstr& i) {
  std::vector<double> x(i.count);
  for (std::uint32_t k = 0; k < i.count; ++k) x[k] = *i.args[k];
  return reinterpret_cast<FN>(i.function)(*i.library, x.data(), static_cast<int>(i.count));
}

// One operation of the fast path on its operand values: the rules of both
// fast machines, in one place. k, function and library are the
// instruction's; b is unused by the operations of one operand.
template <FastOp O>
inline double apply(double k, void (*function)(), FunctionLibrary* library, double a, double b) {
  using enum FastOp;
  if constexpr (O == Add) return checked(a + b);
  else if constexpr (O == Sub) return checked(a - b);
  else if constexpr (O == Mul) return checked(a * b);
  else if constexpr (O == Div) return divide(a, b);
  else if constexpr (O == Pow) return power(a, b);
  else if constexpr (O == Square) return checked(a * a);
  else if constexpr (O == AddK) return checked(a + k);
  else if constexpr (O == SubK) return checked(a - k);
  else if constexpr (O == KSub) return checked(k - a);
  else if constexpr (O == MulK) return checked(a * k);
  else if constexpr (O == DivK) return divide(a, k);
  else if constexpr (O == KDiv) return divide(k, a);
  else if constexpr (O == PowK) return power(a, k);
  else if constexpr (O == IntDiv) return rt::IntDiv(a, b);
  else if constexpr (O == Mod) return rt::Mod(a, b);
  else if constexpr (O == Eq) return truth(a == b);
  else if constexpr (O == Ne) return truth(a != b);
  else if constexpr (O == Lt) return truth(a < b);
  else if constexpr (O == Gt) return truth(a > b);
  else if constexpr (O == Le) return truth(a <= b);
  else if constexpr (O == Ge) return truth(a >= b);
  else if constexpr (O == And) return logicalNumber(Op::And, a, b);
  else if constexpr (O == Or) return logicalNumber(Op::Or, a, b);
  else if constexpr (O == Xor) return logicalNumber(Op::Xor, a, b);
  else if constexpr (O == Eqv) return logicalNumber(Op::Eqv, a, b);
  else if constexpr (O == Imp) return logicalNumber(Op::Imp, a, b);
  else if constexpr (O == Neg) return -a;
  else if constexpr (O == Not) return ~rt::CLng(a);
  else if constexpr (O == Call0) return reinterpret_cast<F0>(function)(*library);
  else if constexpr (O == Call1) return reinterpret_cast<F1>(function)(*library, a);
  else if constexpr (O == Call2) return reinterpret_cast<F2>(function)(*library, a, b);
  // The runtime's Sin, Cos, Tan, Atn, Exp, Log, Sqr and Abs, in place.
  else if constexpr (O == Sin) return checked(std::sin(a));
  else if constexpr (O == Cos) return checked(std::cos(a));
  else if constexpr (O == Tan) return checked(std::tan(a));
  else if constexpr (O == Atn) return std::atan(a);
  else if constexpr (O == Exp) return checked(std::exp(a));
  else if constexpr (O == Log) {
    if (!(a > 0)) [[unlikely]]
      rt::raise(rt::kInvalidProcedureCall);
    return std::log(a);
  } else if constexpr (O == Sqr) {
    if (a < 0) [[unlikely]]
      rt::raise(rt::kInvalidProcedureCall);
    return std::sqrt(a);
  } else if constexpr (O == Abs) return std::fabs(a);
  else return 0;  // CallN runs apart
}

constexpr int kFastOps = static_cast<int>(FastOp::Abs) + 1;

// How many operands an operation reads: Call0 none, the two-operand
// operations two, the rest (the ...K forms included) one.
constexpr int operandCount(FastOp op) {
  using enum FastOp;
  if (op == Call0) return 0;
  if ((op >= Add && op <= Imp && op != Square) || op == Call2) return 2;
  return 1;
}

// Where an operand of a tree node comes from.
enum Source : int { kAddress = 0, kNode = 1 };

template <int S>
inline double operand(const double* address, const FastNode* node) {
  if constexpr (S == kNode) return node->eval(*node);
  else return *address;
}

// A node: its first operand, then its second (the order of the code), then
// the operation.
template <FastOp O, int SA, int SB>
double runNode(const FastNode& n) {
  constexpr int count = operandCount(O);
  double a = 0, b = 0;
  if constexpr (count >= 1) a = operand<SA>(n.a, n.na);
  if constexpr (count == 2) b = operand<SB>(n.b, n.nb);
  return apply<O>(n.k, n.function, n.library, a, b);
}

double runLeaf(const FastNode& n) { return *n.a; }

using NodeRun = double (*)(const FastNode&);

template <int... I>
constexpr std::array<NodeRun, kFastOps * 4> nodeRuns(std::integer_sequence<int, I...>) {
  return {&runNode<static_cast<FastOp>(I / 4), (I % 4) / 2, I % 2>...};
}
constexpr auto kNodeRuns = nodeRuns(std::make_integer_sequence<int, kFastOps * 4>());

template <FastOp O>
double operationOf(double a, double b, const FastNode& n) {
  return apply<O>(n.k, n.function, n.library, a, b);
}

template <int... I>
constexpr std::array<FastOperation, kFastOps> operations(std::integer_sequence<int, I...>) {
  return {&operationOf<static_cast<FastOp>(I)>...};
}
constexpr auto kOperations = operations(std::make_integer_sequence<int, kFastOps>());

}  // namespace

int fastOperandCount(FastOp op) { return operandCount(op); }

FastOperation fastOperation(FastOp op) { return kOperations[static_cast<size_t>(op)]; }

double executeFast(const ExprProgram& p) {
  double last = 0;  // the value of the instruction just run
  for (const FastInstr& i : p.fastCode) {
    double r;
    if (i.op == FastOp::CallN) {
      r = callMany(i);
    } else {
      const int count = operandCount(i.op);
      const double a = count >= 1 ? ((i.fromPrevious & 1) ? last : *i.a) : 0.0;
      const double b = count == 2 ? ((i.fromPrevious & 2) ? last : *i.b) : 0.0;
#define CALVIX_FAST_CASE(O) \
  case FastOp::O: r = apply<FastOp::O>(i.k, i.function, i.library, a, b); break;
      switch (i.op) {
        CALVIX_FAST_CASE(Add) CALVIX_FAST_CASE(Sub) CALVIX_FAST_CASE(Mul) CALVIX_FAST_CASE(Div)
        CALVIX_FAST_CASE(Pow) CALVIX_FAST_CASE(Square) CALVIX_FAST_CASE(IntDiv) CALVIX_FAST_CASE(Mod)
        CALVIX_FAST_CASE(Eq) CALVIX_FAST_CASE(Ne) CALVIX_FAST_CASE(Lt) CALVIX_FAST_CASE(Gt)
        CALVIX_FAST_CASE(Le) CALVIX_FAST_CASE(Ge) CALVIX_FAST_CASE(And) CALVIX_FAST_CASE(Or)
        CALVIX_FAST_CASE(Xor) CALVIX_FAST_CASE(Eqv) CALVIX_FAST_CASE(Imp) CALVIX_FAST_CASE(Neg)
        CALVIX_FAST_CASE(Not) CALVIX_FAST_CASE(Call0) CALVIX_FAST_CASE(Call1) CALVIX_FAST_CASE(Call2)
        CALVIX_FAST_CASE(AddK) CALVIX_FAST_CASE(SubK) CALVIX_FAST_CASE(KSub) CALVIX_FAST_CASE(MulK)
        CALVIX_FAST_CASE(DivK) CALVIX_FAST_CASE(KDiv) CALVIX_FAST_CASE(PowK) CALVIX_FAST_CASE(Sin)
        CALVIX_FAST_CASE(Cos) CALVIX_FAST_CASE(Tan) CALVIX_FAST_CASE(Atn) CALVIX_FAST_CASE(Exp)
        CALVIX_FAST_CASE(Log) CALVIX_FAST_CASE(Sqr) CALVIX_FAST_CASE(Abs)
        default: __builtin_unreachable();
      }
#undef CALVIX_FAST_CASE
    }
    *i.dst = r;
    last = r;
  }
  return *p.fastResult;
}

void bindFastTree(ExprProgram& p) {
  p.fastTree.clear();
  p.fastRoot = nullptr;
  p.native = nullptr;
  p.nativeMemory.reset();
  for (const FastInstr& i : p.fastCode) {
    if (i.op == FastOp::CallN) return;  // its arguments are gathered from the frame
  }
  const double* temps = p.frame.data() + p.tempBase();
  const double* tempsEnd = p.frame.data() + p.frameSize();
  auto isTemp = [&](const double* x) { return x >= temps && x < tempsEnd; };
  // The node whose value each temporary holds, until an instruction reads it.
  std::vector<const FastNode*> holder(p.temps, nullptr);
  p.fastTree.reserve(p.fastCode.size() + 1);  // no reallocation: nodes point at nodes
  // The tree runs by recursion: a very long expression (a sum of thousands of
  // terms) would nest too deep for the stack, and keeps the instruction list.
  constexpr int kDeepest = 200;
  std::vector<int> depth;
  depth.reserve(p.fastCode.size());
  auto depthOf = [&](const FastNode* node) { return node ? depth[static_cast<size_t>(node - p.fastTree.data())] : 0; };
  auto take = [&](const double* x, const FastNode*& node) -> bool {
    if (!isTemp(x)) return true;
    node = holder[static_cast<size_t>(x - temps)];
    holder[static_cast<size_t>(x - temps)] = nullptr;
    return node != nullptr;
  };
  for (const FastInstr& i : p.fastCode) {
    FastNode n;
    n.op = i.op;
    n.k = i.k;
    n.function = i.function;
    n.library = i.library;
    const int count = operandCount(i.op);
    int sa = kAddress, sb = kAddress;
    if (count >= 1) {
      n.a = i.a;
      if (!take(i.a, n.na)) return p.fastTree.clear();
      sa = n.na ? kNode : kAddress;
    }
    if (count == 2) {
      n.b = i.b;
      if (!take(i.b, n.nb)) return p.fastTree.clear();
      sb = n.nb ? kNode : kAddress;
    }
    n.eval = kNodeRuns[static_cast<size_t>(static_cast<int>(i.op) * 4 + sa * 2 + sb)];
    const int d = 1 + std::max(depthOf(n.na), depthOf(n.nb));
    if (d > kDeepest) return p.fastTree.clear();
    p.fastTree.push_back(n);
    depth.push_back(d);
    if (!isTemp(i.dst)) return p.fastTree.clear();
    holder[static_cast<size_t>(i.dst - temps)] = &p.fastTree.back();
  }
  // Every value made is read once, but the program's own value: otherwise
  // the tree would skip some of the code.
  const FastNode* root = nullptr;
  for (size_t t = 0; t < holder.size(); ++t) {
    if (!holder[t]) continue;
    if (temps + t != p.fastResult || root) return p.fastTree.clear();
    root = holder[t];
  }
  if (!root) {
    if (!p.fastCode.empty() || isTemp(p.fastResult)) return p.fastTree.clear();
    FastNode leaf;
    leaf.eval = &runLeaf;
    leaf.leaf = true;
    leaf.a = p.fastResult;
    p.fastTree.push_back(leaf);
    root = &p.fastTree.back();
  }
  p.fastRoot = root;
}

void makeNativeCode(const ExprProgram& p) {
  if (!p.fastRoot || p.native) return;
  NativeCode native = buildNativeCode(*p.fastRoot);
  p.native = native.run;
  p.nativeMemory = std::move(native.memory);
}

bool checkVariables(const ExprProgram& p, const ExprSymbols& symbols) {
  for (const unsigned char* state : p.variableStates) {
    if (*state > ExprSymbols::kLastPlain) return false;
  }
  p.checkedEpoch = symbols.epoch();
  return true;
}

rt::Variant runExact(const ExprProgram& p, const ExprSymbols& symbols) {
  const std::uint32_t vbase = p.variableBase();
  const std::uint32_t tbase = p.tempBase();
  std::vector<rt::Variant> temps(p.temps);
  auto get = [&](std::uint32_t i) -> const rt::Variant& {
    if (i < vbase) return p.constants[i];
    if (i < tbase) {
      const int slot = p.variables[i - vbase];
      if (!symbols.isDefined(slot)) throw EvalError(EvalError::kUndefinedVariable, symbols.variableName(slot));
      return symbols.value(slot);
    }
    return temps[i - tbase];
  };

  std::vector<rt::Variant> args;
  for (const Instr& i : p.code) {
    rt::Variant r;
    switch (i.op) {
      case Op::Add: r = get(i.a) + get(i.b); break;
      case Op::Sub: r = get(i.a) - get(i.b); break;
      case Op::Mul: r = get(i.a) * get(i.b); break;
      case Op::Div: r = get(i.a) / get(i.b); break;
      case Op::Pow:
      case Op::Square: r = rt::power(get(i.a), get(i.b)); break;
      case Op::IntDiv: r = rt::intDivide(get(i.a), get(i.b)); break;
      case Op::Mod: r = rt::modulo(get(i.a), get(i.b)); break;
      case Op::Concat: r = rt::concat(get(i.a), get(i.b)); break;
      case Op::Eq: r = rt::Variant::boolean(rt::compare(get(i.a), get(i.b)) == 0); break;
      case Op::Ne: r = rt::Variant::boolean(rt::compare(get(i.a), get(i.b)) != 0); break;
      case Op::Lt: r = rt::Variant::boolean(rt::compare(get(i.a), get(i.b)) < 0); break;
      case Op::Gt: r = rt::Variant::boolean(rt::compare(get(i.a), get(i.b)) > 0); break;
      case Op::Le: r = rt::Variant::boolean(rt::compare(get(i.a), get(i.b)) <= 0); break;
      case Op::Ge: r = rt::Variant::boolean(rt::compare(get(i.a), get(i.b)) >= 0); break;
      case Op::Is:
        get(i.a);
        get(i.b);
        throw EvalError(EvalError::kObjectRequired);  // numbers and texts are not objects
      case Op::And:
      case Op::Or:
      case Op::Xor:
      case Op::Eqv:
      case Op::Imp: r = logicalVariant(i.op, get(i.a), get(i.b)); break;
      case Op::Neg: r = -get(i.a); break;
      case Op::Not: r = notVariant(get(i.a)); break;
      case Op::Call0: r = callExact(p.calls[i.fn], nullptr, 0); break;
      case Op::Call1: {
        const rt::Variant a = get(i.a);
        r = callExact(p.calls[i.fn], &a, 1);
        break;
      }
      case Op::Call2: {
        const rt::Variant a[2] = {get(i.a), get(i.b)};
        r = callExact(p.calls[i.fn], a, 2);
        break;
      }
      case Op::CallN: {
        args.clear();
        for (std::uint32_t k = 0; k < i.b; ++k) args.push_back(get(p.args[i.a + k]));
        r = callExact(p.calls[i.fn], args.data(), static_cast<int>(i.b));
        break;
      }
    }
    temps[i.dst - tbase] = std::move(r);
  }
  return get(p.result);
}
