// The number rules worked out by arithmetic (the rounding of a 64-bit float
// to its 15-digit text and of a 32-bit float to its 7-digit text, their
// digits and the values those texts read back as) against the plain text
// route: to_chars with the precision, then from_chars; and Str's text against
// those digits laid out. Millions of values, random and chosen near the places
// where rounding can go wrong: halves of the last digit, powers of ten, the
// ends of the exactly scaled range.
// A few seconds by default; CALVIX_FUZZ_SECONDS (for example 60) runs longer,
// CALVIX_FUZZ_SEED varies the values.
#include <QElapsedTimer>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "shell/runtime/NumberText.h"
#include "tests/support/TestSupport.h"

namespace {

qint64 budgetMs() {
  bool ok = false;
  const int s = qEnvironmentVariableIntValue("CALVIX_FUZZ_SECONDS", &ok);
  return ok && s > 0 ? s * 1000LL : 0;
}

std::uint64_t seed() {
  bool ok = false;
  const int s = qEnvironmentVariableIntValue("CALVIX_FUZZ_SEED", &ok);
  return ok ? static_cast<std::uint64_t>(s) : 20261123u;
}

// The text route: x rounded to `precision` digits as text, its digits
// (without trailing zeros) and exponent, and the value the text reads back as.
struct TextRoute {
  std::string digits;
  int exponent = 0;
  double value = 0;
  bool finite = true;
};

TextRoute byText(double x, int precision) {
  TextRoute t;
  char buf[64];
  const auto end = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific, precision - 1).ptr;
  const auto read = std::from_chars(buf, end, t.value);
  t.finite = read.ec == std::errc() && std::isfinite(t.value);
  const char* p = buf + (buf[0] == '-' ? 1 : 0);
  for (; *p != 'e'; ++p) {
    if (*p != '.') t.digits += *p;
  }
  while (t.digits.size() > 1 && t.digits.back() == '0') t.digits.pop_back();
  std::from_chars(p + (p[1] == '+' ? 2 : 1), end, t.exponent);
  return t;
}

// Values of every kind, one per call: random bits, random magnitudes, values
// a hair from a half of the last kept digit, integers of 15 to 17 digits,
// neighbours of powers of ten.
class Values {
 public:
  explicit Values(std::uint64_t s) : gen_(s) {}

  double nextDouble() { return pick(15); }
  float nextFloat() {
    if (kind_ % 7 == 0) {
      ++kind_;
      const auto bits = static_cast<std::uint32_t>(gen_());
      float f = 0;
      std::memcpy(&f, &bits, sizeof f);
      return std::isfinite(f) ? f : 1.5f;
    }
    const auto f = static_cast<float>(pick(7));
    return std::isfinite(f) ? f : 2.5e-7f;  // past the float range
  }

 private:
  double pick(int precision) {
    const double sign = gen_() & 1 ? -1.0 : 1.0;
    switch (kind_++ % 6) {
      case 0: {
        const std::uint64_t bits = gen_();
        double x = 0;
        std::memcpy(&x, &bits, sizeof x);
        return std::isfinite(x) ? x : 0.5;
      }
      case 1: return sign * unit_(gen_) * std::pow(10.0, exponent_(gen_));
      case 2: {
        // d.ddd...d5 x 10^e with `precision` digits before the 5, then a
        // few ulps either way: the ties and near-ties of the rounding.
        std::uniform_int_distribution<std::uint64_t> m(kPow[precision - 1], kPow[precision] - 1);
        const double half = (static_cast<double>(m(gen_)) * 10 + 5) * std::pow(10.0, exponent_(gen_) - precision);
        double x = half;
        const int steps = static_cast<int>(gen_() % 7) - 3;
        for (int i = 0; i < std::abs(steps); ++i) x = std::nextafter(x, steps > 0 ? HUGE_VAL : 0.0);
        return sign * x;
      }
      case 3: return sign * static_cast<double>(gen_() >> (gen_() % 16 + 8));  // 15 to 17 digits and fewer
      case 4: {
        double x = std::pow(10.0, exponent_(gen_));
        const int steps = static_cast<int>(gen_() % 9) - 4;
        for (int i = 0; i < std::abs(steps); ++i) x = std::nextafter(x, steps > 0 ? HUGE_VAL : 0.0);
        return sign * x;
      }
      default: return sign * std::round(unit_(gen_) * 1e9) / std::pow(10.0, static_cast<int>(gen_() % 12));
    }
  }

  static constexpr std::uint64_t kPow[] = {1,      10,      100,      1000,      10000,      100000,     1000000,
                                           10000000, 100000000, 1000000000, 10000000000, 100000000000,
                                           1000000000000, 10000000000000, 100000000000000, 1000000000000000};
  std::mt19937_64 gen_;
  std::uniform_real_distribution<double> unit_{1, 10};
  std::uniform_int_distribution<int> exponent_{-40, 45};
  unsigned kind_ = 0;
};

// Str's layout of the text route's digits: plain from 1E-04 up to below
// 1E+15, the exponent form outside.
std::string strByText(double x, const TextRoute& t) {
  std::string s = x < 0 ? "-" : " ";
  if (x == 0) return " 0";
  const std::string& d = t.digits;
  const int e = t.exponent;
  if (e >= 15 || e < -4) {
    s += d.substr(0, 1);
    if (d.size() > 1) s += "." + d.substr(1);
    const std::string digits = std::to_string(std::abs(e));
    return s + (e < 0 ? "E-" : "E+") + (digits.size() < 2 ? "0" : "") + digits;
  }
  if (e < 0) return s + "0." + std::string(static_cast<size_t>(-e - 1), '0') + d;
  const auto whole = static_cast<size_t>(e + 1);
  if (d.size() <= whole) return s + d + std::string(whole - d.size(), '0');
  return s + d.substr(0, whole) + "." + d.substr(whole);
}

void checkDouble(double x) {
  const TextRoute want = byText(x, 15);
  ASSERT_EQ(rt::Str(x).toStdString(), strByText(x, want)) << std::hexfloat << x;
  double value = 0;
  const bool finite = rt::textValue(x, value);
  ASSERT_EQ(finite, want.finite) << std::hexfloat << x;
  if (finite) {
    ASSERT_EQ(value, x == 0 ? 0.0 : want.value) << std::hexfloat << x;
  }
  const rt::DecimalDigits got = rt::significantDigits(x, 15);
  ASSERT_EQ(got.digits.toStdString(), x == 0 ? "0" : want.digits) << std::hexfloat << x;
  if (x != 0) {
    ASSERT_EQ(got.exponent, want.exponent) << std::hexfloat << x;
  }
  ASSERT_EQ(got.negative, x < 0) << std::hexfloat << x;
}

void checkFloat(float f) {
  const TextRoute want = byText(f, 7);
  ASSERT_EQ(rt::singleTextValue(f), f == 0 ? 0.0 : want.value) << std::hexfloat << f;
  const rt::DecimalDigits got = rt::significantDigits(f, 7);
  ASSERT_EQ(got.digits.toStdString(), f == 0 ? "0" : want.digits) << std::hexfloat << f;
  if (f != 0) {
    ASSERT_EQ(got.exponent, want.exponent) << std::hexfloat << f;
  }
}

}  // namespace

class NumberRounding : public CalvixTest {};

TEST_F(NumberRounding, ChosenEdgesRoundAsTheirTexts) {
  const double max = std::numeric_limits<double>::max();
  for (double x : {0.0, -0.0, 5e-324, 2.2250738585072014e-308, max, -max, 9.99999999999999e307, 1e-8, 9.9999999e-9,
                   1e36, 9.99999999999999e36, 999999999999999.5, 999999999999999.4, 1000000000000000.5,
                   0.30000000000000004, 0.1, 1.0 / 3, 123456.78901234549, 1e22, 1e23, 5e-7, 0.00705}) {
    checkDouble(x);
    checkDouble(-x);
  }
  for (float f : {0.0f, 1e-45f, 1.1754944e-38f, 3.4028235e38f, 0.1f, 1.0f / 3, 9999999.5f, 9999999.0f, 16777216.0f,
                  1e-16f, 1e28f, 1e29f, 0.3f, 1e-5f}) {
    checkFloat(f);
    checkFloat(-f);
  }
  // Every exact half at the 16th digit between 1e15 and 1e15 + 400 goes to even.
  for (double v = 1000000000000005.0; v < 1000000000000400.0; v += 10) {
    checkDouble(v);
    checkDouble(v / 1024);
  }
}

TEST_F(NumberRounding, MillionsOfValuesRoundAsTheirTexts) {
  Values values(seed());
  const qint64 budget = budgetMs();
  QElapsedTimer timer;
  timer.start();
  long long checked = 0;
  do {
    for (int i = 0; i < 1'500'000; ++i) {
      checkDouble(values.nextDouble());
      checkFloat(values.nextFloat());
      if (HasFatalFailure()) return;
    }
    checked += 1'500'000;
  } while (timer.elapsed() < budget);
  RecordProperty("values", static_cast<int>(std::min<long long>(checked, INT32_MAX)));
}
