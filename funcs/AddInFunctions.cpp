#include "funcs/AddInFunctions.h"

#include <cmath>
#include <limits>

#include "shell/ErrorReport.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Strings.h"

namespace {

constexpr double kGuardValue = 9999.999999;  // Sec, Csc and Cot where the divisor vanishes
constexpr int kMessageSound = 2;
constexpr int kMessageStyle = 3;
constexpr int kAcceptCancel = 3;  // button set "Aceptar", "Cancelar"

// Floating-point results of the library fail as the runtime does: an
// overflow or a division by zero is an error, never an infinity.
inline double checked(double r) {
  if (!std::isfinite(r)) [[unlikely]]
    rt::raise(rt::kOverflow);
  return r;
}
double quotient(double a, double b) {
  if (b == 0) rt::raise(a == 0 ? rt::kOverflow : rt::kDivisionByZero);
  return checked(a / b);
}
double square(double x) { return checked(x * x); }
const double kLn10 = std::log(10.0);  // Log(10), the same double every time

}  // namespace

QString& calcContext() { return program().SectionTitle; }

// The program state lives as long as the process and keeps its address
// through resets: the library holds on to it instead of asking at each call.
AddInFunctions::AddInFunctions() : state_(program()) {}

// Comparing the text's storage keeps the common case, the context already
// set, down to two comparisons.
inline void AddInFunctions::enterCalculation() {
  if (contextOffset_ == state_.LanguageOffset && state_.SectionTitle.constData() == contextText_.constData()) return;
  setCalculationContext();
}

void AddInFunctions::setCalculationContext() {
  if (contextOffset_ != state_.LanguageOffset) {
    contextText_ = Res(726);
    contextOffset_ = state_.LanguageOffset;
  }
  state_.SectionTitle = contextText_;
}

double AddInFunctions::domainFailure(int n) {
  ReportError(n, kMessageSound, kMessageStyle, kAcceptCancel);
  if (xCell_) {
    xCell_(QString());
    if (state_.MessageResult == 1) xCell_(Res(2800));
  }
  return 0;
}

double AddInFunctions::Pi() const { return 4 * rt::Atn(1); }

double AddInFunctions::Sec(double x) const {
  const auto c = static_cast<float>(rt::Cos(x));
  return std::fabs(c) > 0.001f ? 1.0 / c : kGuardValue;
}

double AddInFunctions::Csc(double x) const {
  const auto s = static_cast<float>(rt::Sin(x));
  return std::fabs(s) > 0.001f ? 1.0 / s : kGuardValue;
}

double AddInFunctions::Cot(double x) const {
  const auto s = static_cast<float>(rt::Sin(x));
  return std::fabs(s) > 0.001f ? rt::Cos(x) / s : kGuardValue;
}

double AddInFunctions::pow(double a, double b) const { return rt::Exp(checked(rt::Log(a) * b)); }

rt::Variant AddInFunctions::Suma(const rt::Variant* values, int n) const {
  rt::Variant sum = rt::Variant::integer(0);
  for (int i = 0; i < n; ++i) sum = rt::Variant((sum + values[i]).toDouble());
  return sum;
}

rt::Variant AddInFunctions::Producto(const rt::Variant* values, int n) const {
  rt::Variant product = rt::Variant(1.0);
  for (int i = 0; i < n; ++i) product = rt::Variant((product * values[i]).toDouble());
  return product;
}

rt::Variant AddInFunctions::Division(const rt::Variant& a, const rt::Variant& b) const {
  const float x = a.toSingle();
  const float y = b.toSingle();
  if (y == 0) rt::raise(x == 0 ? rt::kOverflow : rt::kDivisionByZero);
  const float r = x / y;
  if (!std::isfinite(r)) rt::raise(rt::kOverflow);
  return rt::Variant::single(r);
}

rt::Variant AddInFunctions::Resta(const rt::Variant& a, const rt::Variant& b) const {
  const float r = a.toSingle() - b.toSingle();
  if (!std::isfinite(r)) rt::raise(rt::kOverflow);
  return rt::Variant::single(r);
}

// Past their guards ln, lg, sinf, cosf and tanf cannot fail, so they call
// the C library directly: the runtime's Log, Sin, Cos and Tan add nothing
// but a check there.
double AddInFunctions::ln(double x) {
  enterCalculation();
  if (x <= 0) return domainFailure(3);
  return std::log(x);
}

double AddInFunctions::lg(double x) {
  enterCalculation();
  if (x <= 0) return domainFailure(3);
  return std::log(x) / kLn10;
}

double AddInFunctions::asin(double x) {
  enterCalculation();
  if (std::fabs(x) > 1) return domainFailure(10);
  const double r = std::fabs(x) == 1 ? 2 * rt::Atn(1) * x : rt::Atn(quotient(x, rt::Sqr(1 - x * x)));
  return quotient(r, state_.angleFactor);
}

double AddInFunctions::acos(double x) {
  enterCalculation();
  if (std::fabs(x) > 1) return domainFailure(11);
  if (x == 1) return 0;  // not divided by the factor: 0 in every mode
  if (x == -1) return quotient(4 * rt::Atn(1), state_.angleFactor);
  return quotient(rt::Atn(quotient(-x, rt::Sqr(1 - x * x))) + 2 * rt::Atn(1), state_.angleFactor);
}

double AddInFunctions::atan(double x) const { return quotient(rt::Atn(x), state_.angleFactor); }

double AddInFunctions::hsin(double x) {
  enterCalculation();
  if (x > 705) return domainFailure(12);
  return (rt::Exp(x) - rt::Exp(-x)) / 2;
}

double AddInFunctions::hcos(double x) {
  enterCalculation();
  if (x > 705) return domainFailure(12);
  return checked(rt::Exp(x) + rt::Exp(-x)) / 2;
}

double AddInFunctions::htan(double x) const {
  if (x > 700) return 1.0;  // large negative x has no such rule and overflows
  const double p = rt::Exp(x);
  const double m = rt::Exp(-x);
  return quotient(p - m, checked(p + m));
}

double AddInFunctions::asinh(double x) const { return rt::Log(x + rt::Sqr(square(x) + 1)); }

double AddInFunctions::acosh(double x) {
  enterCalculation();
  if (x < 1) return domainFailure(13);
  return rt::Log(x + rt::Sqr(square(x) - 1));
}

double AddInFunctions::atanh(double x) {
  enterCalculation();
  if (!(std::fabs(x) < 1)) return domainFailure(14);
  return 0.5 * rt::Log(quotient(1 + x, 1 - x));
}

double AddInFunctions::sinf(double x) {
  enterCalculation();
  if (std::fabs(x) > 1e15) return domainFailure(104);
  if (std::fabs(x) < 1e-15) return 0;
  return std::sin(state_.angleFactor * x);
}

double AddInFunctions::cosf(double x) {
  enterCalculation();
  if (std::fabs(x) > 1e15) return domainFailure(104);
  if (std::fabs(x) < 1e-15) return 0;  // so cosf(0) is 0, as the library always gave
  return std::cos(state_.angleFactor * x);
}

double AddInFunctions::tanf(double x) {
  enterCalculation();
  if (std::fabs(x) > 1e15) return domainFailure(104);
  if (std::fabs(x) < 1e-15) return 0;
  return std::tan(state_.angleFactor * x);
}

QString AddInFunctions::BIN(double d) {
  enterCalculation();
  if (d == 0) return QStringLiteral("0000");
  try {
    QString digits;
    while (d != 0) {
      const std::int32_t n = rt::CLng(d);
      digits.prepend((n & 1) != 0 ? QLatin1Char('1') : QLatin1Char('0'));
      d = n / 2;  // truncates towards zero
    }
    return digits;
  } catch (const rt::RuntimeError&) {
    domainFailure(15);
    return {};
  }
}

QString AddInFunctions::BTD(double x) {
  enterCalculation();
  try {
    const QString text = rt::NumberToText(x);
    double sum = 0;
    double weight = 1;
    for (qsizetype i = text.size(); i-- > 0;) {
      if (text.at(i) == QLatin1Char('1')) sum += weight;
      weight *= 2;
    }
    return rt::NumberToText(sum);
  } catch (const rt::RuntimeError&) {
    domainFailure(104);
    return {};
  }
}

double AddInFunctions::fac(double x) {
  const std::int16_t n = rt::CInt(x);  // the argument is 16-bit: out of range fails before the call
  enterCalculation();
  if (n < 0) return domainFailure(7);
  if (n >= 171) return domainFailure(8);
  double product = 1;
  for (int i = 2; i <= n; ++i) product *= i;
  return product;
}

namespace {

using L = FunctionLibrary;
AddInFunctions& self(L& lib) { return static_cast<AddInFunctions&>(lib); }

FunctionDef def(const char* name, int minArgs, int maxArgs, ResultKind result = ResultKind::Number) {
  FunctionDef d;
  d.name = name;
  d.minArgs = minArgs;
  d.maxArgs = maxArgs;
  d.result = result;
  return d;
}

FunctionDef unary(const char* name, double (*f)(L&, double)) {
  FunctionDef d = def(name, 1, 1);
  d.f1 = f;
  return d;
}

}  // namespace

const std::vector<FunctionDef>& AddInFunctions::functions() const {
  static const std::vector<FunctionDef> defs = [] {
    std::vector<FunctionDef> v;
    FunctionDef pi = def("Pi", 0, 0);
    pi.f0 = [](L& l) { return self(l).Pi(); };
    v.push_back(pi);
    v.push_back(unary("Sec", [](L& l, double x) { return self(l).Sec(x); }));
    v.push_back(unary("Csc", [](L& l, double x) { return self(l).Csc(x); }));
    v.push_back(unary("Cot", [](L& l, double x) { return self(l).Cot(x); }));
    FunctionDef pow = def("pow", 2, 2);
    pow.f2 = [](L& l, double a, double b) { return self(l).pow(a, b); };
    v.push_back(pow);

    FunctionDef suma = def("Suma", 0, -1);
    suma.fn = [](L&, const double* x, int n) {
      double s = 0;
      for (int i = 0; i < n; ++i) s = checked(s + x[i]);
      return s;
    };
    suma.general = [](L& l, const rt::Variant* a, int n) { return self(l).Suma(a, n); };
    v.push_back(suma);
    FunctionDef producto = def("Producto", 0, -1);
    producto.fn = [](L&, const double* x, int n) {
      double p = 1;
      for (int i = 0; i < n; ++i) p = checked(p * x[i]);
      return p;
    };
    producto.general = [](L& l, const rt::Variant* a, int n) { return self(l).Producto(a, n); };
    v.push_back(producto);
    FunctionDef division = def("Division", 2, 2, ResultKind::Other);
    division.general = [](L& l, const rt::Variant* a, int) { return self(l).Division(a[0], a[1]); };
    v.push_back(division);
    FunctionDef resta = def("Resta", 2, 2, ResultKind::Other);
    resta.general = [](L& l, const rt::Variant* a, int) { return self(l).Resta(a[0], a[1]); };
    v.push_back(resta);

    v.push_back(unary("ln", [](L& l, double x) { return self(l).ln(x); }));
    v.push_back(unary("lg", [](L& l, double x) { return self(l).lg(x); }));
    v.push_back(unary("asin", [](L& l, double x) { return self(l).asin(x); }));
    v.push_back(unary("acos", [](L& l, double x) { return self(l).acos(x); }));
    v.push_back(unary("atan", [](L& l, double x) { return self(l).atan(x); }));
    v.push_back(unary("hsin", [](L& l, double x) { return self(l).hsin(x); }));
    v.push_back(unary("hcos", [](L& l, double x) { return self(l).hcos(x); }));
    v.push_back(unary("htan", [](L& l, double x) { return self(l).htan(x); }));
    v.push_back(unary("asinh", [](L& l, double x) { return self(l).asinh(x); }));
    v.push_back(unary("acosh", [](L& l, double x) { return self(l).acosh(x); }));
    v.push_back(unary("atanh", [](L& l, double x) { return self(l).atanh(x); }));
    v.push_back(unary("sinf", [](L& l, double x) { return self(l).sinf(x); }));
    v.push_back(unary("cosf", [](L& l, double x) { return self(l).cosf(x); }));
    v.push_back(unary("tanf", [](L& l, double x) { return self(l).tanf(x); }));

    FunctionDef bin = def("BIN", 1, 1, ResultKind::Other);
    bin.general = [](L& l, const rt::Variant* a, int) { return rt::Variant(self(l).BIN(a[0].toDouble())); };
    v.push_back(bin);
    FunctionDef btd = def("BTD", 1, 1, ResultKind::Other);
    btd.general = [](L& l, const rt::Variant* a, int) { return rt::Variant(self(l).BTD(a[0].toDouble())); };
    v.push_back(btd);
    v.push_back(unary("fac", [](L& l, double x) { return self(l).fac(x); }));
    return v;
  }();
  return defs;
}
