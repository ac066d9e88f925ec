#include "funcs/ExprMachine.h"

#include <cmath>
#include <memory>

#include "funcs/EvalError.h"
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

}  // namespace

double executeFast(const ExprProgram& p) {
  double last = 0;  // the value of the instruction just run
  for (const FastInstr& i : p.fastCode) {
    auto A = [&] { return (i.fromPrevious & 1) ? last : *i.a; };
    auto B = [&] { return (i.fromPrevious & 2) ? last : *i.b; };
    double r;
    switch (i.op) {
      case FastOp::Add: r = checked(A() + B()); break;
      case FastOp::Sub: r = checked(A() - B()); break;
      case FastOp::Mul: r = checked(A() * B()); break;
      case FastOp::Div: r = divide(A(), B()); break;
      case FastOp::Pow: r = power(A(), B()); break;
      case FastOp::Square: {
        const double a = A();
        r = checked(a * a);
        break;
      }
      case FastOp::AddK: r = checked(A() + i.k); break;
      case FastOp::SubK: r = checked(A() - i.k); break;
      case FastOp::KSub: r = checked(i.k - A()); break;
      case FastOp::MulK: r = checked(A() * i.k); break;
      case FastOp::DivK: r = divide(A(), i.k); break;
      case FastOp::KDiv: r = divide(i.k, A()); break;
      case FastOp::PowK: r = power(A(), i.k); break;
      case FastOp::IntDiv: r = rt::IntDiv(A(), B()); break;
      case FastOp::Mod: r = rt::Mod(A(), B()); break;
      case FastOp::Eq: r = truth(A() == B()); break;
      case FastOp::Ne: r = truth(A() != B()); break;
      case FastOp::Lt: r = truth(A() < B()); break;
      case FastOp::Gt: r = truth(A() > B()); break;
      case FastOp::Le: r = truth(A() <= B()); break;
      case FastOp::Ge: r = truth(A() >= B()); break;
      case FastOp::And: r = logicalNumber(Op::And, A(), B()); break;
      case FastOp::Or: r = logicalNumber(Op::Or, A(), B()); break;
      case FastOp::Xor: r = logicalNumber(Op::Xor, A(), B()); break;
      case FastOp::Eqv: r = logicalNumber(Op::Eqv, A(), B()); break;
      case FastOp::Imp: r = logicalNumber(Op::Imp, A(), B()); break;
      case FastOp::Neg: r = -A(); break;
      case FastOp::Not: r = ~rt::CLng(A()); break;
      case FastOp::Call0: r = reinterpret_cast<F0>(i.function)(*i.library); break;
      case FastOp::Call1: r = reinterpret_cast<F1>(i.function)(*i.library, A()); break;
      case FastOp::Call2: r = reinterpret_cast<F2>(i.function)(*i.library, A(), B()); break;
      case FastOp::CallN: r = callMany(i); break;
      // The runtime's Sin, Cos, Tan, Atn, Exp, Log, Sqr and Abs, in place.
      case FastOp::Sin: r = checked(std::sin(A())); break;
      case FastOp::Cos: r = checked(std::cos(A())); break;
      case FastOp::Tan: r = checked(std::tan(A())); break;
      case FastOp::Atn: r = std::atan(A()); break;
      case FastOp::Exp: r = checked(std::exp(A())); break;
      case FastOp::Log: {
        const double a = A();
        if (!(a > 0)) [[unlikely]]
          rt::raise(rt::kInvalidProcedureCall);
        r = std::log(a);
        break;
      }
      case FastOp::Sqr: {
        const double a = A();
        if (a < 0) [[unlikely]]
          rt::raise(rt::kInvalidProcedureCall);
        r = std::sqrt(a);
        break;
      }
      case FastOp::Abs: r = std::fabs(A()); break;
      default: __builtin_unreachable();
    }
    *i.dst = r;
    last = r;
  }
  return *p.fastResult;
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
