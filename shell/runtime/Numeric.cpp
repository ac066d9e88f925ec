#include "shell/runtime/Numeric.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include "shell/runtime/NumberText.h"
#include "shell/runtime/RuntimeError.h"

namespace rt {

namespace {

// Nearest integer with ties to the even neighbour, as every implicit
// float-to-integer conversion of the runtime does. std::nearbyint follows the
// current rounding mode, which the program never changes from to-nearest-even.
double roundHalfEven(double x) { return std::nearbyint(x); }

}  // namespace

std::int16_t CInt(double x) {
  if (std::isnan(x)) raise(kOverflow);
  const double r = roundHalfEven(x);
  if (r < -32768.0 || r > 32767.0) raise(kOverflow);
  return static_cast<std::int16_t>(r);
}

std::int32_t CLng(double x) {
  if (std::isnan(x)) raise(kOverflow);
  const double r = roundHalfEven(x);
  if (r < -2147483648.0 || r > 2147483647.0) raise(kOverflow);
  return static_cast<std::int32_t>(r);
}

double Int(double x) { return std::floor(x); }
double Fix(double x) { return std::trunc(x); }

double Round(double x, int n) {
  if (n < 0) raise(kInvalidProcedureCall);
  if (!std::isfinite(x)) raise(kOverflow);
  if (x == 0) return 0;
  // No double has a digit beyond the 340th decimal: more changes nothing
  // (and would overflow the count below).
  if (n > 340) return x;
  // Work on the 15 significant digits the user sees, so that 2.345 rounds as
  // the decimal 2.345 and not as the binary value just below it.
  const DecimalDigits d = significantDigits(x, 15);
  // Number of digits kept: those before the point plus n decimals.
  const int keep = d.exponent + 1 + n;
  const int len = static_cast<int>(d.digits.size());
  if (keep >= len) return x;  // nothing beyond the n-th decimal
  if (keep < 0) return 0;     // every digit lies beyond the n-th decimal, and below half of it
  QString kept = d.digits.left(keep);
  bool up = false;
  const QChar next = d.digits.at(keep);
  if (next > QLatin1Char('5')) {
    up = true;
  } else if (next == QLatin1Char('5')) {
    const bool moreAfter = keep + 1 < len;  // digits strings carry no trailing zeros
    if (moreAfter) {
      up = true;
    } else {
      const int last = keep == 0 ? 0 : kept.at(keep - 1).digitValue();
      up = (last % 2) == 1;
    }
  }
  const QString sign = d.negative ? QStringLiteral("-") : QString();
  if (keep == 0) {
    // Only the rounding digit itself: the answer is 0 or one unit of the n-th decimal.
    return up ? std::strtod((sign + QStringLiteral("1e-%1").arg(n)).toLatin1().constData(), nullptr) : 0.0;
  }
  int exponent = d.exponent;
  if (up) {
    int i = keep - 1;
    while (i >= 0 && kept.at(i) == QLatin1Char('9')) {
      kept[i] = QLatin1Char('0');
      --i;
    }
    if (i < 0) {
      kept.prepend(QLatin1Char('1'));
      ++exponent;
    } else {
      kept[i] = QChar(kept.at(i).unicode() + 1);
    }
  }
  const QString text = sign + kept.left(1) + QLatin1Char('.') + kept.mid(1) + QStringLiteral("0e%1").arg(exponent);
  return std::strtod(text.toLatin1().constData(), nullptr);
}

std::int32_t IntDiv(double x, double y) {
  const std::int32_t a = CLng(x);
  const std::int32_t b = CLng(y);
  if (b == 0) raise(kDivisionByZero);
  if (a == std::numeric_limits<std::int32_t>::min() && b == -1) raise(kOverflow);
  return a / b;  // C++ truncates towards zero
}

std::int32_t Mod(double x, double y) {
  const std::int32_t a = CLng(x);
  const std::int32_t b = CLng(y);
  if (b == 0) raise(kDivisionByZero);
  if (b == -1) return 0;
  return a % b;  // C++ gives the remainder the sign of the dividend
}

double Abs(double x) { return std::fabs(x); }

int Sgn(double x) { return x > 0 ? 1 : (x < 0 ? -1 : 0); }

double Sqr(double x) {
  if (x < 0) raise(kInvalidProcedureCall);
  return std::sqrt(x);
}

double Log(double x) {
  if (!(x > 0)) raise(kInvalidProcedureCall);
  return std::log(x);
}

double Exp(double x) { return checkFinite(std::exp(x)); }
double Sin(double x) { return checkFinite(std::sin(x)); }
double Cos(double x) { return checkFinite(std::cos(x)); }
double Tan(double x) { return checkFinite(std::tan(x)); }
double Atn(double x) { return std::atan(x); }

double checkFinite(double x) {
  if (!std::isfinite(x)) raise(kOverflow);
  return x;
}

}  // namespace rt
