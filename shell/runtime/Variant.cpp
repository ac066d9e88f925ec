#include "shell/runtime/Variant.h"

#include <cmath>
#include <limits>

#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace rt {

Variant Variant::integer(std::int16_t v) {
  Variant r;
  r.type_ = VType::Integer;
  r.d_ = v;
  return r;
}

Variant Variant::longValue(std::int32_t v) {
  Variant r;
  r.type_ = VType::Long;
  r.d_ = v;
  return r;
}

Variant Variant::single(float v) {
  Variant r;
  r.type_ = VType::Single;
  r.d_ = v;
  return r;
}

Variant Variant::dbl(double v) { return Variant(v); }

Variant Variant::date(double v) {
  Variant r;
  r.type_ = VType::Date;
  r.d_ = v;
  return r;
}

Variant Variant::boolean(bool v) {
  Variant r;
  r.type_ = VType::Boolean;
  r.d_ = v ? -1 : 0;
  return r;
}

Variant Variant::text(const QString& v) { return Variant(v); }

bool Variant::isNumeric() const { return type_ != VType::String && type_ != VType::Date; }

double Variant::toDouble() const {
  if (type_ == VType::String) return TextToDouble(s_);
  return d_;
}

std::int16_t Variant::toInteger() const { return CInt(toDouble()); }
std::int32_t Variant::toLong() const { return CLng(toDouble()); }

float Variant::toSingle() const {
  const double v = toDouble();
  if (std::fabs(v) > std::numeric_limits<float>::max()) raise(kOverflow);
  return static_cast<float>(v);
}

QString Variant::toText() const {
  switch (type_) {
    case VType::Empty: return {};
    case VType::Integer:
    case VType::Long: return QString::number(static_cast<qint64>(d_));
    case VType::Single: return NumberToTextSingle(static_cast<float>(d_));
    case VType::Double: return NumberToText(d_);
    case VType::Date: return FormatDate(d_, QStringLiteral("General Date"));
    case VType::String: return s_;
    case VType::Boolean: return d_ != 0 ? QStringLiteral("True") : QStringLiteral("False");
  }
  return {};
}

bool Variant::toBool() const { return toDouble() != 0; }

double Variant::rawNumber() const { return d_; }

bool Variant::operator==(const Variant& o) const {
  if (type_ != o.type_) return false;
  if (type_ == VType::String) return s_ == o.s_;
  return d_ == o.d_;
}

namespace {

// The numeric rank of a variant in arithmetic: 0 Integer (Empty and Boolean
// count as 16-bit), 1 Long, 2 Single, 3 Double, 4 Date.
int rank(const Variant& v) {
  switch (v.type()) {
    case VType::Empty:
    case VType::Boolean:
    case VType::Integer: return 0;
    case VType::Long: return 1;
    case VType::Single: return 2;
    case VType::Double:
    case VType::String: return 3;  // a text met by a number is read as a 64-bit float
    case VType::Date: return 4;
  }
  return 3;
}

// A result of the given rank; an integer that leaves its range widens to the
// next type, a float that leaves the 64-bit range is an overflow.
Variant numberOfRank(double v, int r) {
  if (!std::isfinite(v)) raise(kOverflow);
  if (r == 0) {
    if (v >= -32768 && v <= 32767) return Variant::integer(static_cast<std::int16_t>(v));
    r = 1;
  }
  if (r == 1) {
    if (v >= -2147483648.0 && v <= 2147483647.0) return Variant::longValue(static_cast<std::int32_t>(v));
    return Variant(v);
  }
  if (r == 2) {
    if (std::fabs(v) <= std::numeric_limits<float>::max()) return Variant::single(static_cast<float>(v));
    return Variant(v);
  }
  if (r == 4) return Variant::date(v);
  return Variant(v);
}

// Single-precision results are computed in single precision, as the runtime does.
double combine(double a, double b, int r, double (*op)(double, double)) {
  if (r == 2) return static_cast<float>(op(static_cast<float>(a), static_cast<float>(b)));
  return op(a, b);
}

}  // namespace

Variant operator+(const Variant& a, const Variant& b) {
  if (a.isText() && (b.isText() || b.isEmpty())) return Variant(a.rawText() + b.toText());
  if (b.isText() && a.isEmpty()) return Variant(b.rawText());
  const int r = std::max(rank(a), rank(b));
  return numberOfRank(combine(a.toDouble(), b.toDouble(), r, [](double x, double y) { return x + y; }), r);
}

Variant operator-(const Variant& a, const Variant& b) {
  int r = std::max(rank(a), rank(b));
  // The difference of two dates is a number of days.
  if (a.type() == VType::Date && b.type() == VType::Date) r = 3;
  return numberOfRank(combine(a.toDouble(), b.toDouble(), r, [](double x, double y) { return x - y; }), r);
}

Variant operator*(const Variant& a, const Variant& b) {
  int r = std::max(rank(a), rank(b));
  if (r == 4) r = 3;
  return numberOfRank(combine(a.toDouble(), b.toDouble(), r, [](double x, double y) { return x * y; }), r);
}

Variant operator/(const Variant& a, const Variant& b) {
  const double x = a.toDouble();
  const double y = b.toDouble();
  if (y == 0) raise(x == 0 ? kOverflow : kDivisionByZero);
  return Variant(checkFinite(x / y));
}

Variant operator-(const Variant& a) {
  if (a.isEmpty()) return Variant::integer(0);
  int r = rank(a);
  if (a.type() == VType::Boolean) r = 0;
  return numberOfRank(-a.toDouble(), r);
}

Variant power(const Variant& a, const Variant& b) {
  const double x = a.toDouble();
  const double y = b.toDouble();
  if (x < 0 && y != std::floor(y)) raise(kInvalidProcedureCall);
  if (x == 0 && y < 0) raise(kInvalidProcedureCall);
  // A square is the one product that x * x gives correctly rounded; the C
  // library's pow rounds exact ties away from even, and is slower.
  return Variant(checkFinite(y == 2 ? x * x : std::pow(x, y)));
}

namespace {
// \ and Mod give a 16-bit result when both operands are 16-bit (or Empty or
// Boolean), otherwise a 32-bit one.
Variant integerResult(std::int32_t v, const Variant& a, const Variant& b) {
  if (rank(a) == 0 && rank(b) == 0 && v >= -32768 && v <= 32767) return Variant::integer(static_cast<std::int16_t>(v));
  return Variant::longValue(v);
}
}  // namespace

Variant intDivide(const Variant& a, const Variant& b) {
  return integerResult(IntDiv(a.toDouble(), b.toDouble()), a, b);
}

Variant modulo(const Variant& a, const Variant& b) { return integerResult(Mod(a.toDouble(), b.toDouble()), a, b); }

Variant concat(const Variant& a, const Variant& b) { return Variant(a.toText() + b.toText()); }

int compare(const Variant& a, const Variant& b) {
  if (a.isText() && b.isText()) {
    const int c = QString::compare(a.rawText(), b.rawText(), Qt::CaseSensitive);
    return c < 0 ? -1 : (c > 0 ? 1 : 0);
  }
  if (a.isText() && b.isEmpty()) return a.rawText().isEmpty() ? 0 : 1;
  if (b.isText() && a.isEmpty()) return b.rawText().isEmpty() ? 0 : -1;
  // A number against a text: the text must be numeric, and then compares as a number.
  const double x = a.toDouble();
  const double y = b.toDouble();
  return x < y ? -1 : (x > y ? 1 : 0);
}

}  // namespace rt
