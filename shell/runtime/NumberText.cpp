#include "shell/runtime/NumberText.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cmath>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "shell/runtime/Numeric.h"
#include "shell/runtime/SystemLocale.h"
#include "shell/runtime/VectorState.h"
#include "shell/runtime/RuntimeError.h"

namespace rt {

namespace {

// The rounded significant digits of x in a fixed buffer: the shared fast core
// of Str and the default text.
struct RawDigits {
  bool negative = false;
  char digits[24] = {'0'};
  int count = 1;      // no trailing zeros
  int exponent = 0;   // weight of the first digit
};

// Splits the scientific text of to_chars into sign, digits and exponent.
void readScientific(const char* p, const char* end, RawDigits& d, int& n) {
  if (*p == '-') {
    d.negative = true;
    ++p;
  }
  n = 0;
  for (; p < end && *p != 'e'; ++p) {
    if (*p != '.') d.digits[n++] = *p;
  }
  if (p < end) std::from_chars(*(p + 1) == '+' ? p + 2 : p + 1, end, d.exponent);
}

// 10^k for the exponents a double's digits can have, near enough for
// estimating a rounding margin.
double powerOfTen(int k) {
  static const std::vector<double> table = [] {
    std::vector<double> t;
    for (int e = -345; e <= 310; ++e) t.push_back(std::pow(10.0, e));
    return t;
  }();
  return table[static_cast<size_t>(std::clamp(k, -345, 310) + 345)];
}

// Powers of ten that doubles hold exactly.
constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kMaxExactPower = 22;

// a (positive, normal) rounded to `precision` significant digits (at most
// 15) by arithmetic alone, to the whole m nearest a * 10^k (k = precision -
// 1 - e), half to even as the exact value decides: m is the correctly
// rounded digit string of a, as to_chars gives it, and m * 10^-k (one
// correctly rounded operation) the value of that text. Where k >= 0 the
// product is worked out exactly in 128-bit whole numbers; where k < 0 the
// quotient p = a / 10^k is rounded and fma gives the sign of its error.
// Only where 10^|k| is an exact double (for 15 digits, a from about 1e-8 to
// 1e36); false elsewhere. m can come out as 10^precision when a rounds up
// to the next power of ten; exponent is then one less than the text's.
struct Scaled {
  double m = 0;      // whole, from 10^(precision-1) to 10^precision
  int k = 0;         // m * 10^-k is the rounded value
  int exponent = 0;  // weight of m's first digit, 10^(precision-1)
};

// 10^-30 to 10^46, each the double nearest to it: only for estimating the
// decimal exponent, which the rounding below checks again.
constexpr double kRoughPowers[] = {
    1e-30, 1e-29, 1e-28, 1e-27, 1e-26, 1e-25, 1e-24, 1e-23, 1e-22, 1e-21, 1e-20, 1e-19, 1e-18, 1e-17, 1e-16,
    1e-15, 1e-14, 1e-13, 1e-12, 1e-11, 1e-10, 1e-9, 1e-8, 1e-7, 1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 1e-1, 1e0, 1e1,
    1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20,
    1e21, 1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28, 1e29, 1e30, 1e31, 1e32, 1e33, 1e34, 1e35, 1e36, 1e37,
    1e38, 1e39, 1e40, 1e41, 1e42, 1e43, 1e44, 1e45, 1e46};
constexpr int kRoughLow = -30, kRoughHigh = 46;

// floor(log10(a)) for a positive normal double, or a value one off it
// (the caller checks): from the binary exponent, then one comparison.
inline int decimalExponent(double a) {
  const int b = static_cast<int>((std::bit_cast<std::uint64_t>(a) >> 52) & 0x7FF) - 1023;
  int e = (b * 78913) >> 18;  // floor(b * log10(2)), an arithmetic shift
  if (e + 1 >= kRoughLow && e + 1 <= kRoughHigh && a >= kRoughPowers[e + 1 - kRoughLow]) ++e;
  return e;
}

// Round to nearest, half to even, for 0 <= p < 2^52, without a library call.
inline double nearestWhole(double p) {
  constexpr double kShift = 4503599627370496.0;  // 2^52
  return (p + kShift) - kShift;
}

__extension__ typedef unsigned __int128 Wide;

constexpr Wide wideTen(int k) {
  Wide w = 1;
  for (int i = 0; i < k; ++i) w *= 10;
  return w;
}
constexpr Wide kWidePowers[] = {
    wideTen(0),  wideTen(1),  wideTen(2),  wideTen(3),  wideTen(4),  wideTen(5),  wideTen(6),  wideTen(7),
    wideTen(8),  wideTen(9),  wideTen(10), wideTen(11), wideTen(12), wideTen(13), wideTen(14), wideTen(15),
    wideTen(16), wideTen(17), wideTen(18), wideTen(19), wideTen(20), wideTen(21), wideTen(22)};

// The common case by one rounded operation: p = a * 10^k lies within half an
// ulp of the exact product (or quotient), so when p is farther than that from
// a half and strictly inside the digit range, p's nearest whole is the exact
// value's. Below 2^52 (p < 10^15) that ulp is a power of two from p's own
// exponent, and halves are exact doubles. Small enough to inline into every
// caller; the rest waits for the full routine below.
inline bool roundedQuickly(double a, int precision, Scaled& out) {
  const int e = decimalExponent(a);
  const int k = precision - 1 - e;
  if (k < -kMaxExactPower || k > kMaxExactPower) return false;
  const double scale = kExactPowers[k >= 0 ? k : -k];
  const double p = k >= 0 ? a * scale : a / scale;
  const double m = nearestWhole(p);
  const double margin = 0.5 - std::fabs(p - m);  // exact: both terms are multiples of p's ulp
  const double halfUlp =
      std::bit_cast<double>((std::bit_cast<std::uint64_t>(p) & 0x7FF0'0000'0000'0000ULL) - (53ULL << 52));
  if (p > kExactPowers[precision - 1] && m < kExactPowers[precision] && margin > halfUlp) {
    out.m = m;
    out.k = k;
    out.exponent = e;
    return true;
  }
  return false;
}

// Every case the quick one leaves, as exactly.
[[gnu::noinline]] bool roundedSlowly(double a, int precision, Scaled& out) {
  const double top = kExactPowers[precision];
  const double bottom = kExactPowers[precision - 1];
  int e = decimalExponent(a);
  // a = mantissa * 2^-shift exactly (a normal double).
  const std::uint64_t bits = std::bit_cast<std::uint64_t>(a);
  const std::uint64_t mantissa = (bits & ((std::uint64_t{1} << 52) - 1)) | (std::uint64_t{1} << 52);
  const int shift = 1075 - static_cast<int>(bits >> 52);
  for (int tries = 0; tries < 3; ++tries) {
    const int k = precision - 1 - e;
    if (k < -kMaxExactPower || k > kMaxExactPower) return false;
    if (k >= 0 && shift >= 1 && shift <= 127) {
      // a * 10^k exactly, in whole numbers: mantissa * 10^k (below 2^127)
      // over 2^shift; the quotient rounded half to even by the remainder.
      const Wide product = static_cast<Wide>(mantissa) * kWidePowers[k];
      const Wide whole = product >> shift;
      if (whole >= static_cast<Wide>(kWidePowers[precision])) {
        ++e;
        continue;
      }
      if (whole < static_cast<Wide>(kWidePowers[precision - 1])) {
        --e;
        continue;
      }
      const Wide rest = product & ((Wide{1} << shift) - 1);
      const Wide half = Wide{1} << (shift - 1);
      auto m = static_cast<std::uint64_t>(whole);
      if (rest > half || (rest == half && (m & 1))) ++m;
      out.m = static_cast<double>(m);
      out.k = k;
      out.exponent = e;
      return true;
    }
    const double scale = kExactPowers[std::abs(k)];
    const double p = k >= 0 ? a * scale : a / scale;
    // Only the sign of the exact value's distance from p matters: for the
    // product it is the product's error, for the quotient the remainder's.
    const double err = k >= 0 ? std::fma(a, scale, -p) : std::fma(-p, scale, a);
    if (p > top || (p == top && err >= 0)) {
      ++e;
      continue;
    }
    if (p < bottom || (p == bottom && err < 0)) {
      --e;
      continue;
    }
    double m = nearestWhole(p);  // half to even, on p alone
    // p - m is exact. A half in p that is no half in the exact value goes
    // the exact value's way (p + 0.5 and p - 0.5 are whole and exact).
    if (std::fabs(p - m) == 0.5 && err != 0) m = err > 0 ? p + 0.5 : p - 0.5;
    out.m = m;
    out.k = k;
    out.exponent = e;
    return true;
  }
  return false;
}

inline bool roundedBySums(double a, int precision, Scaled& out) {
  return roundedQuickly(a, precision, out) || roundedSlowly(a, precision, out);
}

inline double scaledValue(const Scaled& s) {
  return s.k >= 0 ? s.m / kExactPowers[s.k] : s.m * kExactPowers[-s.k];
}

// The digits of a rounded mantissa, without trailing zeros.
void writeScaled(const Scaled& s, int precision, RawDigits& d) {
  auto m = static_cast<std::uint64_t>(s.m);
  d.exponent = s.exponent;
  if (m == static_cast<std::uint64_t>(kExactPowers[precision])) {
    m /= 10;
    ++d.exponent;
  }
  // Two digits at a time, from the last; the last eight apart, so that the
  // two halves work on 32 bits and do not wait on each other.
  auto put = [&d](std::uint32_t v, int from, int count) {
    static constexpr char kPairs[] =
        "00010203040506070809101112131415161718192021222324252627282930313233343536373839"
        "40414243444546474849505152535455565758596061626364656667686970717273747576777879"
        "8081828384858687888990919293949596979899";
    int i = from + count;
    while (i - from >= 2) {
      const std::uint32_t r = v % 100;
      v /= 100;
      i -= 2;
      d.digits[i] = kPairs[2 * r];
      d.digits[i + 1] = kPairs[2 * r + 1];
    }
    if (i > from) d.digits[from] = static_cast<char>('0' + v);
  };
  if (precision > 8) {
    put(static_cast<std::uint32_t>(m % 100000000), precision - 8, 8);
    put(static_cast<std::uint32_t>(m / 100000000), 0, precision - 8);
  } else {
    put(static_cast<std::uint32_t>(m), 0, precision);
  }
  int n = precision;
  while (n > 1 && d.digits[n - 1] == '0') --n;
  d.count = n;
}

RawDigits rawDigits(double x, int precision) {
  RawDigits d;
  if (x == 0 || !std::isfinite(x)) return d;
  const bool normal = std::fabs(x) >= std::numeric_limits<double>::min();
  Scaled s;
  if (normal && precision <= 15 && roundedBySums(std::fabs(x), precision, s)) {
    d.negative = x < 0;
    writeScaled(s, precision, d);
    return d;
  }
  char buf[64];
  int n = 0;
  // First the shortest digits that read back as x (to_chars without a
  // precision is faster than with one). x lies within half an ulp of them:
  // with no more digits than asked, they are the rounded digits; with more,
  // rounding them gives the digits of x unless their tail lies within half an
  // ulp of a half unit: then to_chars with the precision decides, exactly.
  // Subnormal numbers have a wider ulp: they take the exact route.
  auto res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific);
  readScientific(buf, res.ptr, d, n);
  bool exact = normal && n <= precision;
  if (normal && !exact) {
    // The tail in hundredths of a unit of the last digit kept (digits beyond
    // its second raise it by less than one), and half an ulp in the same
    // hundredths, rounded up.
    const int tail = (d.digits[precision] - '0') * 10 + (n > precision + 1 ? d.digits[precision + 1] - '0' : 0);
    const double halfUlp = std::ldexp(1.0, std::ilogb(x) - 53);
    const int band = static_cast<int>(halfUlp / powerOfTen(d.exponent - precision + 1) * 100) + 1;
    if (tail <= 49 - band || tail >= 51 + band) {
      exact = true;
      n = precision;
      if (tail >= 51 + band) {
        int k = n - 1;
        while (k >= 0 && d.digits[k] == '9') d.digits[k--] = '0';
        if (k < 0) {
          d.digits[0] = '1';
          ++d.exponent;
        } else {
          ++d.digits[k];
        }
      }
    }
  }
  if (!exact) {
    d = RawDigits();
    res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific, precision - 1);
    readScientific(buf, res.ptr, d, n);
  }
  while (n > 1 && d.digits[n - 1] == '0') --n;
  d.count = n;
  return d;
}

// Plain digits when the first digit's weight lies from 10^-4 up to below
// 10^precision; the exponent form outside, as the classic runtime writes
// "1E+15" and "1E-05". Writes into out (at least 40 units) and returns the length.
int layoutDigits(const RawDigits& d, int precision, char16_t point, bool blank, char16_t* out) {
  int k = 0;
  if (d.negative) out[k++] = u'-';
  else if (blank) out[k++] = u' ';
  const int n = d.count;
  if (d.exponent >= precision || d.exponent < -4) {
    out[k++] = static_cast<char16_t>(d.digits[0]);
    if (n > 1) {
      out[k++] = point;
      for (int i = 1; i < n; ++i) out[k++] = static_cast<char16_t>(d.digits[i]);
    }
    out[k++] = u'E';
    out[k++] = d.exponent < 0 ? u'-' : u'+';
    const int e = std::abs(d.exponent);
    if (e >= 100) out[k++] = static_cast<char16_t>(u'0' + e / 100);
    out[k++] = static_cast<char16_t>(u'0' + (e / 10) % 10);
    out[k++] = static_cast<char16_t>(u'0' + e % 10);
  } else if (d.exponent < 0) {
    out[k++] = u'0';
    out[k++] = point;
    for (int i = -1; i > d.exponent; --i) out[k++] = u'0';
    for (int i = 0; i < n; ++i) out[k++] = static_cast<char16_t>(d.digits[i]);
  } else {
    for (int i = 0; i <= d.exponent || i < n; ++i) {
      if (i == d.exponent + 1) out[k++] = point;
      out[k++] = i < n ? static_cast<char16_t>(d.digits[i]) : u'0';
    }
  }
  return k;
}

#if defined(__SSE2__)
// The eight decimal digits of v < 10^8 as numbers 0-9, one per 16-bit lane,
// the first in lane 0: v split by 10^4, each half divided by 1000, 100, 10
// and 1 at once by multiplications, then each quotient less ten times the
// one before it.
inline __m128i eightDigits(std::uint32_t v) {
  const __m128i x = _mm_cvtsi32_si128(static_cast<int>(v));
  const __m128i high = _mm_srli_epi64(_mm_mul_epu32(x, _mm_set1_epi32(static_cast<int>(0xD1B71759u))), 45);
  const __m128i low = _mm_sub_epi32(x, _mm_mul_epu32(high, _mm_set1_epi32(10000)));
  const __m128i both = _mm_slli_epi64(_mm_unpacklo_epi16(high, low), 2);
  const __m128i pairs = _mm_unpacklo_epi16(both, both);
  const __m128i spread = _mm_unpacklo_epi32(pairs, pairs);  // high four times, then low
  const __m128i q = _mm_mulhi_epu16(
      _mm_mulhi_epu16(spread, _mm_setr_epi16(8389, 5243, 13108, -32768, 8389, 5243, 13108, -32768)),
      _mm_setr_epi16(1 << 7, 1 << 11, 1 << 13, -32768, 1 << 7, 1 << 11, 1 << 13, -32768));
  return _mm_sub_epi16(q, _mm_slli_epi64(_mm_mullo_epi16(q, _mm_set1_epi16(10)), 16));
}
#endif

// The 15-digit text of x in one go, for the values a table is made of: the
// quick rounding holds and the first digit's weight lies from 10^-4 to 10^14
// (the plain layout). Writes into out (at least 40 units) and returns the
// length; 0 where it does not apply, for layoutDigits to do.
int quickText15(double x, char16_t point, bool blank, char16_t* out) {
  const double a = std::fabs(x);
  if (!(a >= 1e-4 && a < 1e15)) return 0;  // zero, a NaN and the exponent forms too
  Scaled s;
  if (!roundedQuickly(a, 15, s)) return 0;
  auto m = static_cast<std::uint64_t>(s.m);
  int e = s.exponent;
  if (m == 1'000'000'000'000'000ULL) {  // rounded up to the next power of ten
    m /= 10;
    ++e;
  }
  if (e >= 15) return 0;
  int k = 0;
  if (x < 0) out[k++] = u'-';
  else if (blank) out[k++] = u' ';
#if defined(__SSE2__)
  const auto high = static_cast<std::uint32_t>(m / 100'000'000);  // the first 7 digits
  const auto low = static_cast<std::uint32_t>(m % 100'000'000);   // the last 8
  // The digits stay in two registers, lanes 0-7 and 8-14, and the text is
  // put together there: written digits read back at once would wait on the
  // writes.
  const __m128i h = eightDigits(high);  // lane 0 is a leading zero
  const __m128i l = eightDigits(low);
  const __m128i d0 = _mm_or_si128(_mm_srli_si128(h, 2), _mm_slli_si128(l, 14));
  const __m128i d1 = _mm_srli_si128(l, 2);  // lane 15 is 0, never counted
  // The last digit that is not 0; the first digit never is.
  const __m128i zero = _mm_setzero_si128();
  const auto zeros = static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi16(d0, zero))) |
                     (static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_cmpeq_epi16(d1, zero))) << 16);
  const int n = (31 - std::countl_zero(~zeros & 0x3FFF'FFFFu)) / 2 + 1;
  const __m128i ascii = _mm_set1_epi16(static_cast<short>(u'0'));
  const __m128i c0 = _mm_add_epi16(d0, ascii);
  const __m128i c1 = _mm_add_epi16(d1, ascii);
  auto* at = reinterpret_cast<__m128i*>(out + k);
  if (e >= 0) {
    if (n <= e + 1) {  // a whole number: its digits, zeros included
      _mm_storeu_si128(at, c0);
      _mm_storeu_si128(at + 1, c1);
      return k + e + 1;
    }
    // Lanes before the point keep their digit, the point's lane takes the
    // point, the lanes after it the digit one lane before.
    const __m128i s0 = _mm_slli_si128(c0, 2);
    const __m128i s1 = _mm_or_si128(_mm_slli_si128(c1, 2), _mm_srli_si128(c0, 14));
    const __m128i where = _mm_set1_epi16(static_cast<short>(e + 1));
    const __m128i dot = _mm_set1_epi16(static_cast<short>(point));
    auto place = [&](__m128i digits, __m128i shifted, __m128i lane) {
      const __m128i before = _mm_cmplt_epi16(lane, where);
      const __m128i isPoint = _mm_cmpeq_epi16(lane, where);
      const __m128i r = _mm_or_si128(_mm_and_si128(before, digits), _mm_andnot_si128(before, shifted));
      return _mm_or_si128(_mm_andnot_si128(isPoint, r), _mm_and_si128(isPoint, dot));
    };
    _mm_storeu_si128(at, place(c0, s0, _mm_setr_epi16(0, 1, 2, 3, 4, 5, 6, 7)));
    _mm_storeu_si128(at + 1, place(c1, s1, _mm_setr_epi16(8, 9, 10, 11, 12, 13, 14, 15)));
    return k + n + 1;
  }
  // "0", the point and up to three zeros, then the digits written over the
  // zeros not kept.
  out[k] = u'0';
  out[k + 1] = point;
  out[k + 2] = out[k + 3] = out[k + 4] = u'0';
  k += 2 - e - 1;
  at = reinterpret_cast<__m128i*>(out + k);
  _mm_storeu_si128(at, c0);
  _mm_storeu_si128(at + 1, c1);
  return k + n;
#else
  char16_t digits[16];
  std::uint64_t rest = m;
  for (int i = 14; i >= 0; --i) {
    digits[i] = static_cast<char16_t>(u'0' + rest % 10);
    rest /= 10;
  }
  int n = 15;
  while (n > 1 && digits[n - 1] == u'0') --n;
  if (e >= 0) {
    for (int i = 0; i <= e; ++i) out[k++] = digits[i];
    if (n <= e + 1) return k;
    out[k++] = point;
    for (int i = e + 1; i < n; ++i) out[k++] = digits[i];
    return k;
  }
  out[k++] = u'0';
  out[k++] = point;
  for (int i = -1; i > e; --i) out[k++] = u'0';
  for (int i = 0; i < n; ++i) out[k++] = digits[i];
  return k;
#endif
}

int writeText(double x, int precision, char16_t point, bool blank, char16_t* out) {
  const int n = precision == 15 ? quickText15(x, point, blank, out) : 0;
  return n > 0 ? n : layoutDigits(rawDigits(x, precision), precision, point, blank, out);
}

QString numberText(double x, int precision, char16_t point, bool blank) {
  char16_t buf[48];
  const int n = writeText(x, precision, point, blank, buf);
  return QString(reinterpret_cast<const QChar*>(buf), n);
}

}  // namespace

DecimalDigits significantDigits(double x, int precision) {
  const RawDigits r = rawDigits(x, precision);
  DecimalDigits d;
  d.negative = r.negative;
  d.digits = QString::fromLatin1(r.digits, r.count);
  d.exponent = r.exponent;
  return d;
}

bool textValue(double x, double& value) {
  if (x == 0) {
    value = 0;  // the text of -0 is "0"
    return true;
  }
  if (!std::isfinite(x)) return false;
  const double a = std::fabs(x);
  Scaled s;
  if (a >= std::numeric_limits<double>::min() && roundedBySums(a, 15, s)) {
    value = x < 0 ? -scaledValue(s) : scaledValue(s);
    return true;
  }
  // Elsewhere through the digits: the shortest digits that read back as x;
  // with 15 or fewer the text shows exactly them and x is its value. With
  // more, the text shows x rounded to 15 digits, read back here.
  char buf[40];
  auto res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific);
  int digits = 0;
  for (const char* p = buf; p < res.ptr && *p != 'e'; ++p) digits += (*p >= '0' && *p <= '9') ? 1 : 0;
  if (digits <= 15) {
    value = x;
    return true;
  }
  res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific, 14);
  const auto read = std::from_chars(buf, res.ptr, value);
  return read.ec == std::errc() && std::isfinite(value);
}

double singleTextValue(float f) {
  if (f == 0) return 0;
  const double x = f;
  Scaled s;
  if (roundedBySums(std::fabs(x), 7, s)) return x < 0 ? -scaledValue(s) : scaledValue(s);
  // Far from 1 (beyond about 1e-16 and 1e28): the 7-digit text read back.
  char buf[32];
  const auto end = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific, 6).ptr;
  double value = 0;
  std::from_chars(buf, end, value);
  return value;
}

QString Str(double x) { return numberText(x, 15, u'.', true); }

QString StrSingle(float x) { return numberText(x, 7, u'.', true); }

QString NumberToText(double x) { return numberText(x, 15, rt::systemConventions().decimal.unicode(), false); }

QString NumberToTextSingle(float x) { return numberText(x, 7, rt::systemConventions().decimal.unicode(), false); }

namespace {

// The text written straight into out's own room, then cut to its length: no
// copy from a buffer of ours.
void appendText(QString& out, double x, char16_t point, bool blank) {
  // Called in long loops after code of any kind (a hash lookup before it
  // leaves the vector registers slowing every step): about a nanosecond.
  clearUpperVectorState();
  constexpr int kRoom = 48;
  const qsizetype size = out.size();
  out.resize(size + kRoom);
  const int n = writeText(x, 15, point, blank, reinterpret_cast<char16_t*>(out.data()) + size);
  out.resize(size + n);
}

}  // namespace

void appendNumberText(QString& out, double x) { appendText(out, x, rt::systemConventions().decimal.unicode(), false); }

void appendStr(QString& out, double x) { appendText(out, x, u'.', true); }

namespace {

bool isBlank(QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n'); }

// "&h" and "&o" literals as the runtime reads them: up to 4 hexadecimal digits
// (6 octal) are a 16-bit value, so "&hFFFF" is -1; up to 8 (11) a 32-bit one.
// Returns false when there are no digits or too many.
bool radixValue(const QString& digits, int base, double& value) {
  if (digits.isEmpty()) return false;
  bool ok = false;
  const qulonglong u = digits.toULongLong(&ok, base);
  if (!ok) return false;
  const int shortLimit = base == 16 ? 4 : 6;
  if (digits.size() <= shortLimit && u <= 0xFFFF) {
    value = static_cast<std::int16_t>(static_cast<std::uint16_t>(u));
  } else if (u <= 0xFFFFFFFFULL) {
    value = static_cast<std::int32_t>(static_cast<std::uint32_t>(u));
  } else {
    return false;
  }
  return true;
}

int digitOf(QChar c, int base) {
  const int v = c.isDigit() ? c.digitValue()
                : (c.toLower() >= QLatin1Char('a') && c.toLower() <= QLatin1Char('f'))
                    ? c.toLower().unicode() - 'a' + 10
                    : -1;
  return v >= 0 && v < base ? v : -1;
}

}  // namespace

double Val(const QString& text) {
  // Blanks, tabs and line feeds are skipped anywhere, so the scan works on a
  // copy of the significant characters only, kept in a small ASCII buffer.
  char buf[400];
  int n = 0;
  const QChar* p = text.constData();
  const QChar* end = p + text.size();
  auto next = [&]() -> char16_t {
    while (p < end && isBlank(*p)) ++p;
    return p < end ? p->unicode() : u'\0';
  };
  auto isDigit = [](char16_t c) { return c >= u'0' && c <= u'9'; };
  char16_t c = next();
  if (c == u'&') {
    ++p;
    const char16_t k = next();
    const int base = (k == u'h' || k == u'H') ? 16 : ((k == u'o' || k == u'O') ? 8 : 0);
    if (base == 0) return 0;
    ++p;
    QString digits;
    while (p < end) {
      const char16_t d = next();
      if (d == u'\0' || digitOf(QChar(d), base) < 0) break;
      digits += QChar(d);
      ++p;
    }
    double v = 0;
    return radixValue(digits, base, v) ? v : 0;
  }
  bool negative = false;
  if (c == u'-' || c == u'+') {
    negative = c == u'-';
    ++p;
    c = next();
  }
  bool anyDigit = false;
  auto take = [&](char ch) {
    if (n < static_cast<int>(sizeof buf) - 8) buf[n++] = ch;
  };
  while (isDigit(c)) {
    take(static_cast<char>(c));
    anyDigit = true;
    ++p;
    c = next();
  }
  if (c == u'.') {
    take('.');
    ++p;
    c = next();
    while (isDigit(c)) {
      take(static_cast<char>(c));
      anyDigit = true;
      ++p;
      c = next();
    }
  }
  if (!anyDigit) return 0;
  if (c == u'e' || c == u'E' || c == u'd' || c == u'D') {
    ++p;
    char16_t s = next();
    const int mark = n;
    take('e');
    if (s == u'-' || s == u'+') {
      take(static_cast<char>(s));
      ++p;
      s = next();
    }
    bool expDigit = false;
    while (isDigit(s)) {
      take(static_cast<char>(s));
      expDigit = true;
      ++p;
      s = next();
    }
    if (!expDigit) n = mark;  // "1e" is just 1
  }
  double v = 0;
  const auto res = std::from_chars(buf, buf + n, v);
  if (res.ec == std::errc::result_out_of_range) {
    // Val never fails: past the double range it holds at the largest number,
    // and below the smallest it gives zero.
    v = std::strtod(std::string(buf, static_cast<size_t>(n)).c_str(), nullptr);
    if (std::isinf(v)) v = std::numeric_limits<double>::max();
  }
  return negative ? -v : v;
}

namespace {

// The locale-aware reading; answers 0 when the text is a number, else the
// error it raises: 13 for a text that is no number, 6 for one past the range.
int parseLocaleNumber(const QString& text, double& value) {
  const rt::SystemConventions& p = rt::systemConventions();
  const QChar point = p.decimal;
  const QChar group = p.group;
  const bool spaceGroup = group == QChar(0x00A0) || group == QChar(0x202F) || group == QLatin1Char(' ');
  const QString s = text.trimmed();
  if (s.isEmpty()) return kTypeMismatch;
  if (s.size() >= 2 && s.at(0) == QLatin1Char('&')) {
    const QChar k = s.at(1).toLower();
    const int base = k == QLatin1Char('h') ? 16 : (k == QLatin1Char('o') ? 8 : 0);
    if (base == 0) return kTypeMismatch;
    const QString digits = s.mid(2);
    for (QChar c : digits) {
      if (digitOf(c, base) < 0) return kTypeMismatch;
    }
    if (digits.isEmpty()) return kTypeMismatch;
    return radixValue(digits, base, value) ? 0 : kOverflow;
  }
  QByteArray number;
  qsizetype i = 0;
  const qsizetype n = s.size();
  if (s.at(i) == QLatin1Char('-') || s.at(i) == QLatin1Char('+')) {
    number += static_cast<char>(s.at(i++).unicode());
    while (i < n && s.at(i) == QLatin1Char(' ')) ++i;  // "- 5" is -5
  }
  bool anyDigit = false;
  bool seenPoint = false;
  for (; i < n; ++i) {
    const QChar c = s.at(i);
    if (c.isDigit() && c.unicode() < 128) {
      number += static_cast<char>(c.unicode());
      anyDigit = true;
    } else if (c == point && !seenPoint) {
      number += '.';
      seenPoint = true;
    } else if (!seenPoint && anyDigit && (c == group || (spaceGroup && (c == QChar(0x00A0) || c == QChar(0x202F) || c == QLatin1Char(' '))))) {
      // Group marks are taken anywhere in the integer part, as the runtime does.
    } else {
      break;
    }
  }
  if (!anyDigit) return kTypeMismatch;
  if (i < n && (s.at(i).toLower() == QLatin1Char('e') || s.at(i).toLower() == QLatin1Char('d'))) {
    number += 'e';
    ++i;
    if (i < n && (s.at(i) == QLatin1Char('-') || s.at(i) == QLatin1Char('+'))) number += static_cast<char>(s.at(i++).unicode());
    bool expDigit = false;
    while (i < n && s.at(i).isDigit() && s.at(i).unicode() < 128) {
      number += static_cast<char>(s.at(i++).unicode());
      expDigit = true;
    }
    if (!expDigit) return kTypeMismatch;
  }
  if (i != n) return kTypeMismatch;
  const double v = std::strtod(number.constData(), nullptr);
  if (!std::isfinite(v)) return kOverflow;
  value = v;
  return 0;
}

}  // namespace

bool tryTextToDouble(const QString& text, double& value) { return parseLocaleNumber(text, value) == 0; }

double TextToDouble(const QString& text) {
  double v = 0;
  if (const int error = parseLocaleNumber(text, v)) raise(error);
  return v;
}


namespace {

QString radixText(double x, int base) {
  const std::int32_t v = CLng(x);
  if (v >= 0) return QString::number(v, base).toUpper();
  if (v >= -32768) return QString::number(static_cast<std::uint16_t>(v), base).toUpper();
  return QString::number(static_cast<std::uint32_t>(v), base).toUpper();
}

}  // namespace

QString Hex(double x) { return radixText(x, 16); }
QString Oct(double x) { return radixText(x, 8); }

}  // namespace rt
