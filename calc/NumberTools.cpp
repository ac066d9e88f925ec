#include "calc/NumberTools.h"

#include <algorithm>
#include <cmath>

#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace numtools {

namespace {

constexpr int kOverflow = 6;
constexpr int kTypeMismatch = 13;

// The largest d with d*d <= n.
std::int64_t isqrt(std::int64_t n) {
  auto r = static_cast<std::int64_t>(std::sqrt(static_cast<double>(n)));
  while (r > 0 && r * r > n) --r;
  while ((r + 1) * (r + 1) <= n) ++r;
  return r;
}

std::int64_t checkedMul(std::int64_t a, std::int64_t b) {
  std::int64_t r = 0;
  if (__builtin_mul_overflow(a, b, &r)) throw rt::RuntimeError(kOverflow);
  return r;
}

std::int64_t checkedSub(std::int64_t a, std::int64_t b) {
  std::int64_t r = 0;
  if (__builtin_sub_overflow(a, b, &r)) throw rt::RuntimeError(kOverflow);
  return r;
}

// A digit string read as a number; empty is 0.
std::int64_t digitsValue(const QString& digits) {
  std::int64_t v = 0;
  for (QChar c : digits) {
    if (c < QLatin1Char('0') || c > QLatin1Char('9')) throw rt::RuntimeError(kTypeMismatch);
    v = checkedMul(v, 10);
    if (__builtin_add_overflow(v, c.unicode() - u'0', &v)) throw rt::RuntimeError(kOverflow);
  }
  return v;
}

std::int64_t powerOfTen(qsizetype n) {
  std::int64_t v = 1;
  for (qsizetype i = 0; i < n; ++i) v = checkedMul(v, 10);
  return v;
}

// The primes up to limit, by a plain sieve (the base primes of the segments).
std::vector<std::int64_t> smallPrimes(std::int64_t limit) {
  std::vector<bool> composite(static_cast<size_t>(limit + 1), false);
  std::vector<std::int64_t> primes;
  for (std::int64_t i = 2; i <= limit; ++i) {
    if (composite[static_cast<size_t>(i)]) continue;
    primes.push_back(i);
    for (std::int64_t j = i * i; j <= limit; j += i) composite[static_cast<size_t>(j)] = true;
  }
  return primes;
}

}  // namespace

bool isPrime(std::int64_t n) {
  if (n < 2) return false;
  if (n < 4) return true;
  if (n % 2 == 0 || n % 3 == 0) return false;
  const std::int64_t root = isqrt(n);
  for (std::int64_t d = 5; d <= root; d += 6) {
    if (n % d == 0 || n % (d + 2) == 0) return false;
  }
  return true;
}

std::vector<std::pair<std::int64_t, int>> factorise(std::int64_t n) {
  std::vector<std::pair<std::int64_t, int>> factors;
  auto divideOut = [&](std::int64_t d) {
    int count = 0;
    while (n % d == 0) {
      n /= d;
      ++count;
    }
    if (count > 0) factors.emplace_back(d, count);
  };
  if (n < 2) return factors;
  divideOut(2);
  divideOut(3);
  for (std::int64_t d = 5; d <= isqrt(n); d += 6) {
    divideOut(d);
    divideOut(d + 2);
  }
  if (n > 1) factors.emplace_back(n, 1);
  return factors;
}

std::int64_t gcd(std::int64_t a, std::int64_t b) {
  a = a < 0 ? -a : a;
  b = b < 0 ? -b : b;
  while (b != 0) {
    const std::int64_t r = a % b;
    a = b;
    b = r;
  }
  return a;
}

std::int64_t segmentedPrimes(std::int64_t from, std::int64_t to, const std::function<bool(std::int64_t)>& take,
                             const std::function<bool(std::int64_t)>& block) {
  from = std::max<std::int64_t>(from, 2);
  if (to < from) return 0;
  // Odd numbers only, 2 handed over on its own: entry i of a block stands
  // for first + 2i. Each odd base prime keeps the next odd multiple it
  // strikes from one block to the next, so that no block divides.
  const std::vector<std::int64_t> base = smallPrimes(isqrt(to));
  std::vector<std::int64_t> next(base.size(), 0);
  std::vector<char> composite(static_cast<size_t>(kSieveBlock / 2 + 1));
  std::int64_t count = 0;
  for (std::int64_t low = from; low <= to; low += kSieveBlock) {
    const std::int64_t high = std::min(to, low + kSieveBlock - 1);
    if (low == 2) {
      ++count;
      if (take && !take(2)) return count;
    }
    const std::int64_t first = low | 1;
    if (first <= high) {
      const auto odds = static_cast<size_t>((high - first) / 2 + 1);
      std::fill_n(composite.begin(), odds, 0);
      for (size_t k = 1; k < base.size(); ++k) {
        const std::int64_t p = base[k];
        if (p * p > high) break;
        std::int64_t j = next[k];
        if (j == 0) {  // the first block that reaches p * p: the first odd multiple in it, not p itself
          j = std::max(p * p, (first + p - 1) / p * p);
          if (j % 2 == 0) j += p;
        }
        for (; j <= high; j += 2 * p) composite[static_cast<size_t>((j - first) / 2)] = 1;
        next[k] = j;
      }
      for (size_t i = 0; i < odds; ++i) {
        if (composite[i]) continue;
        ++count;
        if (take && !take(first + 2 * static_cast<std::int64_t>(i))) return count;
      }
    }
    if (block && !block(high - from + 1)) return count;
  }
  return count;
}

Fraction reduce(Fraction f) {
  const std::int64_t g = gcd(f.numerator, f.denominator);
  if (g > 1) {
    f.numerator /= g;
    f.denominator /= g;
  }
  return f;
}

Fraction generatingFraction(DecimalType type, const QString& integerDigits, const QString& nonPeriodicDigits,
                            const QString& periodDigits) {
  const std::int64_t whole = digitsValue(integerDigits);
  Fraction f;
  switch (type) {
    case DecimalType::Exact: {
      // nonPeriodicDigits holds the decimal digits D.
      if (nonPeriodicDigits.isEmpty()) throw rt::RuntimeError(kTypeMismatch);
      f.numerator = digitsValue(integerDigits + nonPeriodicDigits);
      f.denominator = powerOfTen(nonPeriodicDigits.size());
      break;
    }
    case DecimalType::PurePeriodic: {
      if (periodDigits.isEmpty()) throw rt::RuntimeError(kTypeMismatch);
      f.numerator = checkedSub(digitsValue(integerDigits + periodDigits), whole);
      f.denominator = powerOfTen(periodDigits.size()) - 1;
      break;
    }
    case DecimalType::MixedPeriodic: {
      if (periodDigits.isEmpty() || nonPeriodicDigits.isEmpty()) throw rt::RuntimeError(kTypeMismatch);
      const QString head = integerDigits + nonPeriodicDigits;
      f.numerator = checkedSub(digitsValue(head + periodDigits), digitsValue(head));
      f.denominator = checkedMul(powerOfTen(periodDigits.size()) - 1, powerOfTen(nonPeriodicDigits.size()));
      break;
    }
  }
  return reduce(f);
}

double variationsOrCombinations(int index, std::int64_t m, std::int64_t n) {
  const auto dm = static_cast<double>(m);
  const auto dn = static_cast<double>(n);
  // The running product k+1 .. top divided by 1 .. n: exact at every step
  // because each partial product is itself a binomial coefficient.
  auto choose = [](double top, double k) {
    double c = 1;
    for (double i = 1; i <= k; ++i) c = rt::checkFinite(c * (top - k + i) / i);
    return c;
  };
  switch (index) {
    case 0: {
      double v = 1;
      for (double i = dm - dn + 1; i <= dm; ++i) v = rt::checkFinite(v * i);
      return v;
    }
    case 1: return rt::checkFinite(std::pow(dm, dn));
    case 2: return choose(dm, dn);
    case 3: return choose(dm + dn - 1, dn);
    default: return 0;
  }
}

std::vector<double> tartagliaLine(int n) {
  std::vector<double> line;
  if (n < 0) return line;
  line.reserve(static_cast<size_t>(n) + 1);
  double c = 1;
  for (int k = 0; k <= n; ++k) {
    line.push_back(c);
    c = c * (n - k) / (k + 1);
  }
  // The line is symmetric: the second half copies the first, exactly.
  for (int k = 0; k <= n / 2; ++k) line[static_cast<size_t>(n - k)] = line[static_cast<size_t>(k)];
  return line;
}

QChar nifLetter(std::int64_t number) {
  static const char kLetters[] = "TRWAGMYFPDXBNJZSQVHLCKE";
  return QLatin1Char(kLetters[((number % 23) + 23) % 23]);
}

bool luhnValid(const QString& digits) {
  int sum = 0;
  bool doubled = false;
  for (qsizetype i = digits.size() - 1; i >= 0; --i) {
    int d = digits.at(i).digitValue();
    if (doubled) {
      d *= 2;
      if (d > 9) d -= 9;  // the sum of the two digits of 10..18
    }
    sum += d;
    doubled = !doubled;
  }
  return sum % 10 == 0;
}

CardCheck checkCard(const QString& digits) {
  auto startsWithAny = [&digits](std::initializer_list<const char*> prefixes) {
    return std::any_of(prefixes.begin(), prefixes.end(),
                       [&digits](const char* p) { return digits.startsWith(QLatin1String(p)); });
  };
  CardCheck c;
  c.nameId = 4591;
  switch (digits.size()) {
    case 13:
      if (startsWithAny({"4"})) c.nameId = 4590;
      break;
    case 14:
      if (startsWithAny({"300", "301", "302", "303", "304", "305", "36", "38"})) c.nameId = 4592;
      break;
    case 15:
      if (startsWithAny({"34", "37"})) c.nameId = 4593;
      break;
    case 16:
      if (startsWithAny({"51", "52", "53", "54", "55"})) c.nameId = 4594;
      else if (startsWithAny({"4"})) c.nameId = 4590;
      break;
    default: break;
  }
  c.valid = luhnValid(digits);
  return c;
}

QString randomFormat(float base) {
  const float fraction = base - static_cast<float>(rt::Fix(base));
  const int zeros = rt::CInt(10.0 * static_cast<double>(fraction));
  return zeros > 0 ? QStringLiteral("0.") + QString(zeros, QLatin1Char('0')) : QStringLiteral("0");
}

double polygonArea(const std::vector<double>& x, const std::vector<double>& y) {
  const size_t n = std::min(x.size(), y.size());
  double sum = 0;
  for (size_t i = 0; i < n; ++i) {
    const size_t j = (i + 1) % n;
    sum += x[i] * y[j] - x[j] * y[i];
  }
  return rt::checkFinite(std::fabs(sum) / 2);
}

double magneticMoment(double n) { return std::sqrt(n * (n + 2)); }

std::vector<AsciiRow> asciiTable() {
  // The upper half of the classic Western code page (1252); 0 where the page
  // leaves a code without a character.
  static const char16_t kHigh[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                     0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};
  std::vector<AsciiRow> rows;
  rows.reserve(256);
  for (int code = 33; code <= 255; ++code) {
    char16_t ch = static_cast<char16_t>(code);
    if (code == 127) ch = 0;
    else if (code >= 128 && code < 160) ch = kHigh[code - 128];
    rows.push_back({code, ch ? QString(QChar(ch)) : QString()});
  }
  return rows;
}

}  // namespace numtools
