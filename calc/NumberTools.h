#pragma once
// The arithmetic behind the calculator's number tools, free of any display:
// primes (test, factorisation, a segmented sieve for listings), gcd and lcm,
// fractions from digit strings, variations and combinations, the Tartaglia
// line, the NIF letter, the card check, the random format, the polygon area,
// the magnetic moment and the ASCII table. The keys that use them, with their
// texts and failures, are in NumberToolKeys.cpp.
//
// Whole numbers are 64-bit integers; the tools refuse values above
// kLargestWhole, where a double no longer holds every integer. An operation
// that would leave 64 bits fails with run-time error 6 (overflow).
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace numtools {

inline constexpr std::int64_t kLargestWhole = 9007199254740992;  // 2^53

// Trial division by 2, 3 and then 6k-1, 6k+1 up to and including the square
// root: 10007^2 is caught by its own root.
bool isPrime(std::int64_t n);

// Prime factors in ascending order with their exponents; 1 and below give none.
std::vector<std::pair<std::int64_t, int>> factorise(std::int64_t n);

// Euclid by remainders; gcd(a, 0) is a.
std::int64_t gcd(std::int64_t a, std::int64_t b);

// The primes from `from` to `to` (both included), in order, by a segmented
// sieve over blocks of kSieveBlock numbers. `take` gets each prime and answers
// false to stop; `block` runs after each block with the numbers done so far and
// answers false to stop (the listing's yield and stop test). Returns the count
// of primes handed over.
inline constexpr std::int64_t kSieveBlock = 32768;
std::int64_t segmentedPrimes(std::int64_t from, std::int64_t to, const std::function<bool(std::int64_t)>& take,
                             const std::function<bool(std::int64_t done)>& block = {});

struct Fraction {
  std::int64_t numerator = 0;
  std::int64_t denominator = 1;
  friend bool operator==(const Fraction&, const Fraction&) = default;
};

// Divides both terms by their gcd; the denominator must not be 0.
Fraction reduce(Fraction f);

// The generating fraction of a decimal given as digit strings, reduced:
//   exact:          I.D      -> (ID) / 10^len(D)
//   pure periodic:  I.PPP... -> (IP - I) / (len(P) nines)
//   mixed periodic: I.NPPP...-> (INP - IN) / (len(P) nines, len(N) zeros)
// Empty strings read as 0 digits; a string with anything but digits, an empty
// decimal part or period, or more digits than 64 bits hold, fail (error 13 and
// 6). The mixed example 13.12464646... gives 64967/4950: (131246 - 1312) /
// 9900 reduced. (129933/9900, sometimes given for this example, is not
// the same number: it is 13.1245454...)
enum class DecimalType { Exact = 1, PurePeriodic = 2, MixedPeriodic = 3 };
Fraction generatingFraction(DecimalType type, const QString& integerDigits, const QString& nonPeriodicDigits,
                            const QString& periodDigits);

// Variations and combinations of m things n at a time, index as the keys:
// 0 V(m,n) = m!/(m-n)!, 1 VR = m^n, 2 C = m!/(n!(m-n)!), 3 CR = (m+n-1)!/(n!(m-1)!).
// Computed as running products, exact while the value fits a double's
// integers; an overflow is error 6.
double variationsOrCombinations(int index, std::int64_t m, std::int64_t n);

// C(n, k) for k = 0..n, by the running product of the triangle; n up to
// kTartagliaMax, the largest factorial a double holds.
std::vector<double> tartagliaLine(int n);
inline constexpr int kTartagliaMax = 170;

// The NIF check letter: "TRWAGMYFPDXBNJZSQVHLCKE" at number mod 23.
QChar nifLetter(std::int64_t number);

// Card check by length and prefix, then Luhn's sum.
struct CardCheck {
  int nameId = 0;     // 4590 VISA ... 4591 unknown
  bool valid = false; // Luhn sum divisible by 10
};
CardCheck checkCard(const QString& digits);  // digits only, not empty
bool luhnValid(const QString& digits);

// The format of a random draw up to base B: "0." and 10*(B - Fix(B)) zeros,
// or "0" when that gives none.
QString randomFormat(float base);

// Shoelace formula over the vertices (x(i), y(i)), closing on the first.
double polygonArea(const std::vector<double>& x, const std::vector<double>& y);

// sqrt(n*(n+2)) Bohr magnetons for n unpaired electrons.
double magneticMoment(double n);

// The ASCII table's printable rows, codes 33 to 255, each with the character
// of the classic Western code page (empty where the page has none). Codes 0
// to 32 are shown by name, which the key takes from the string table.
struct AsciiRow {
  int code = 0;
  QString shown;
};
std::vector<AsciiRow> asciiTable();

}  // namespace numtools
