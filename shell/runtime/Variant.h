#pragma once
// The runtime's tagged value and its arithmetic.
//
// Integer results that leave their range widen (16-bit -> 32-bit -> 64-bit
// float); "/" and "^" always give a 64-bit float; a 64-bit overflow and any
// division by zero throw RuntimeError (6, 11) and never yield an infinity.
// "+" on two texts joins them; a text met by a number is read with the
// locale-aware conversion (error 13 when it is not a number). Empty counts
// as 0 (or "" beside a text). Booleans are -1 and 0 as numbers.
#include <QString>
#include <cstdint>

namespace rt {

enum class VType { Empty, Integer, Long, Single, Double, Date, String, Boolean };

class Variant {
 public:
  Variant() = default;
  static Variant integer(std::int16_t v);
  static Variant longValue(std::int32_t v);
  static Variant single(float v);
  static Variant dbl(double v);
  static Variant date(double v);
  static Variant boolean(bool v);
  static Variant text(const QString& v);
  // Convenience constructors picking the natural type.
  Variant(double v) : type_(VType::Double), d_(v) {}  // NOLINT: implicit on purpose
  Variant(const QString& v) : type_(VType::String), s_(v) {}  // NOLINT
  Variant(const char* v) : type_(VType::String), s_(QString::fromUtf8(v)) {}  // NOLINT

  VType type() const { return type_; }
  bool isEmpty() const { return type_ == VType::Empty; }
  bool isText() const { return type_ == VType::String; }
  bool isNumeric() const;  // Integer, Long, Single, Double, Boolean, Empty

  // Conversions with the runtime's rules (CDbl, CInt, CLng, CStr, CBool).
  double toDouble() const;
  std::int16_t toInteger() const;
  std::int32_t toLong() const;
  float toSingle() const;
  QString toText() const;  // numbers: default text; Boolean: "True"/"False" (Verdadero/Falso by locale is not used)
  bool toBool() const;

  // Raw payload, for writers and tests.
  double rawNumber() const;  // numeric payload as double (Date: the serial)
  const QString& rawText() const { return s_; }

  bool operator==(const Variant& o) const;  // same type and payload (not the language's "=")

 private:
  VType type_ = VType::Empty;
  double d_ = 0;  // holds every numeric payload exactly (int16, int32, float fit)
  QString s_;
};

Variant operator+(const Variant& a, const Variant& b);
Variant operator-(const Variant& a, const Variant& b);
Variant operator*(const Variant& a, const Variant& b);
Variant operator/(const Variant& a, const Variant& b);
Variant operator-(const Variant& a);
Variant power(const Variant& a, const Variant& b);     // a ^ b
Variant intDivide(const Variant& a, const Variant& b); // a \ b
Variant modulo(const Variant& a, const Variant& b);    // a Mod b
Variant concat(const Variant& a, const Variant& b);    // a & b
// Comparison as the language does it: -1, 0, 1 (numbers numerically, texts
// binary, a number against a numeric text numerically).
int compare(const Variant& a, const Variant& b);

}  // namespace rt
