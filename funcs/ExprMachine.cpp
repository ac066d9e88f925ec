#include "funcs/ExprMachine.h"

#include <cmath>
#include <memory>

#include "funcs/EvalError.h"
#include "shell/Numeric.h"
#include "shell/RuntimeError.h"

namespace {

inline double checked(double r) {
  if (!std::isfinite(r)) [[unlikely]]
    rt::raise(rt::kOverflow);
  return r;
}

// The rules of "^" on two numbers, as the variant arithmetic has them.
inline double power(double x, double y) {
  if (x < 0 && y != std::floor(y)) rt::raise(rt::kInvalidProcedureCall);
  if (x == 0 && y < 0) rt::raise(rt::kInvalidProcedureCall);
  return checked(std::pow(x, y));
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

}  // namespace

bool runFast(const ExprProgram& p, const ExprSymbols& symbols, double& result) {
  const unsigned char* states = symbols.states();
  const double* numbers = symbols.numbers();
  for (int slot : p.variables) {
    if (states[slot] != ExprSymbols::kPlainNumber) return false;
  }
  constexpr std::uint32_t kLocal = 48;
  double local[kLocal];
  std::unique_ptr<double[]> heap;
  double* f = local;
  if (p.frameSize() > kLocal) {
    heap = std::make_unique<double[]>(p.frameSize());
    f = heap.get();
  }
  const size_t nc = p.numbers.size();
  for (size_t i = 0; i < nc; ++i) f[i] = p.numbers[i];
  for (size_t i = 0; i < p.variables.size(); ++i) f[nc + i] = numbers[p.variables[i]];

  for (const Instr& i : p.code) {
    switch (i.op) {
      case Op::Add: f[i.dst] = checked(f[i.a] + f[i.b]); break;
      case Op::Sub: f[i.dst] = checked(f[i.a] - f[i.b]); break;
      case Op::Mul: f[i.dst] = checked(f[i.a] * f[i.b]); break;
      case Op::Div: f[i.dst] = divide(f[i.a], f[i.b]); break;
      case Op::Pow: f[i.dst] = power(f[i.a], f[i.b]); break;
      case Op::IntDiv: f[i.dst] = rt::IntDiv(f[i.a], f[i.b]); break;
      case Op::Mod: f[i.dst] = rt::Mod(f[i.a], f[i.b]); break;
      case Op::Eq: f[i.dst] = truth(f[i.a] == f[i.b]); break;
      case Op::Ne: f[i.dst] = truth(f[i.a] != f[i.b]); break;
      case Op::Lt: f[i.dst] = truth(f[i.a] < f[i.b]); break;
      case Op::Gt: f[i.dst] = truth(f[i.a] > f[i.b]); break;
      case Op::Le: f[i.dst] = truth(f[i.a] <= f[i.b]); break;
      case Op::Ge: f[i.dst] = truth(f[i.a] >= f[i.b]); break;
      case Op::And:
      case Op::Or:
      case Op::Xor:
      case Op::Eqv:
      case Op::Imp: f[i.dst] = logicalNumber(i.op, f[i.a], f[i.b]); break;
      case Op::Neg: f[i.dst] = -f[i.a]; break;
      case Op::Not: f[i.dst] = ~rt::CLng(f[i.a]); break;
      case Op::Call0: {
        const ExprProgram::Call& c = p.calls[i.fn];
        f[i.dst] = c.def->f0(*c.library);
        break;
      }
      case Op::Call1: {
        const ExprProgram::Call& c = p.calls[i.fn];
        f[i.dst] = c.def->f1(*c.library, f[i.a]);
        break;
      }
      case Op::Call2: {
        const ExprProgram::Call& c = p.calls[i.fn];
        f[i.dst] = c.def->f2(*c.library, f[i.a], f[i.b]);
        break;
      }
      case Op::CallN: {
        const ExprProgram::Call& c = p.calls[i.fn];
        double small[8];
        std::unique_ptr<double[]> big;
        double* x = small;
        if (i.b > 8) {
          big = std::make_unique<double[]>(i.b);
          x = big.get();
        }
        for (std::uint32_t k = 0; k < i.b; ++k) x[k] = f[p.args[i.a + k]];
        f[i.dst] = c.def->fn(*c.library, x, static_cast<int>(i.b));
        break;
      }
      case Op::Concat:
      case Op::Is: rt::raise(rt::kTypeMismatch);  // never compiled as fast
    }
  }
  result = f[p.result];
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
      case Op::Pow: r = rt::power(get(i.a), get(i.b)); break;
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
