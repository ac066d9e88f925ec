// The number tools' arithmetic: primes against a plain sieve, factorisations
// multiplied back, fractions checked with integer cross products, and the
// tables of the card check, the combinatorics and the random format.
#include <cmath>
#include <cstring>
#include <numeric>

#include "calc/NumberTools.h"
#include "tests/support/TestSupport.h"

namespace {

using namespace numtools;

std::vector<bool> plainSieve(std::int64_t limit) {
  std::vector<bool> prime(static_cast<size_t>(limit + 1), true);
  prime[0] = false;
  if (limit >= 1) prime[1] = false;
  for (std::int64_t i = 2; i * i <= limit; ++i) {
    if (!prime[static_cast<size_t>(i)]) continue;
    for (std::int64_t j = i * i; j <= limit; j += i) prime[static_cast<size_t>(j)] = false;
  }
  return prime;
}

TEST(NumberTools, PrimeTestAgreesWithASieve) {
  const std::int64_t limit = 200000;
  const auto sieve = plainSieve(limit);
  for (std::int64_t n = 0; n <= limit; ++n) ASSERT_EQ(isPrime(n), sieve[static_cast<size_t>(n)]) << n;
}

TEST(NumberTools, PrimeTestIncludesTheSquareRoot) {
  struct Row {
    std::int64_t n;
    bool prime;
  } rows[] = {{25, false},           {49, false},         {10007LL * 10007, false}, {10007, true},
              {999999999989, true},  {999999999989LL * 3, false}, {-7, false}, {kLargestWhole, false}};
  for (const Row& r : rows) EXPECT_EQ(isPrime(r.n), r.prime) << r.n;
}

TEST(NumberTools, FactorisationsMultiplyBackInPrimes) {
  std::vector<std::int64_t> values;
  for (std::int64_t n = 2; n <= 5000; ++n) values.push_back(n);
  values.insert(values.end(), {10007LL * 10007, 999999999989, 1LL << 52, 600851475143, kLargestWhole - 1});
  for (const std::int64_t n : values) {
    std::int64_t product = 1;
    std::int64_t previous = 1;
    for (const auto& [factor, exponent] : factorise(n)) {
      ASSERT_GT(factor, previous) << n;
      ASSERT_TRUE(isPrime(factor)) << n;
      for (int i = 0; i < exponent; ++i) product *= factor;
      previous = factor;
    }
    ASSERT_EQ(product, n);
  }
  EXPECT_TRUE(factorise(1).empty());
  const auto f = factorise(360);
  ASSERT_EQ(f.size(), 3u);
  EXPECT_EQ(f[0], std::make_pair(std::int64_t{2}, 3));
  EXPECT_EQ(f[1], std::make_pair(std::int64_t{3}, 2));
  EXPECT_EQ(f[2], std::make_pair(std::int64_t{5}, 1));
}

TEST(NumberTools, SegmentedSieveListsTheSamePrimesAsAPlainSieve) {
  const auto sieve = plainSieve(300000);
  // Ranges across block edges, starting below 2, and of one number.
  const std::pair<std::int64_t, std::int64_t> ranges[] = {
      {0, 1000}, {1, 2}, {2, 2}, {kSieveBlock - 10, 2 * kSieveBlock + 10}, {3, 3 * kSieveBlock + 3},
      {7919, 7919}, {7920, 7920}, {250000, 300000}};
  for (const auto& [from, to] : ranges) {
    std::vector<std::int64_t> listed;
    const std::int64_t count = segmentedPrimes(from, to, [&](std::int64_t p) {
      listed.push_back(p);
      return true;
    });
    std::vector<std::int64_t> expected;
    for (std::int64_t n = from; n <= to; ++n) {
      if (sieve[static_cast<size_t>(n)]) expected.push_back(n);
    }
    EXPECT_EQ(listed, expected) << from << ".." << to;
    EXPECT_EQ(count, static_cast<std::int64_t>(expected.size()));
  }
  EXPECT_EQ(segmentedPrimes(10, 5, {}), 0);
  // Up to 10^6 there are 78498 primes; the last below 10^8 is 99999989.
  EXPECT_EQ(segmentedPrimes(1, 1000000, {}), 78498);
  std::int64_t last = 0;
  segmentedPrimes(99999900, 99999999, [&](std::int64_t p) {
    last = p;
    return true;
  });
  EXPECT_EQ(last, 99999989);
}

TEST(NumberTools, SegmentedSieveStopsWhenAskedTo) {
  int taken = 0;
  EXPECT_EQ(segmentedPrimes(1, 1000, [&](std::int64_t) { return ++taken < 5; }), 5);
  int blocks = 0;
  const std::int64_t count = segmentedPrimes(1, 10 * kSieveBlock, {}, [&](std::int64_t done) {
    EXPECT_EQ(done, (blocks + 1) * kSieveBlock);  // numbers from 2 done so far
    return ++blocks < 2;
  });
  EXPECT_EQ(blocks, 2);
  EXPECT_EQ(count, segmentedPrimes(2, 2 * kSieveBlock + 1, {}));
}

TEST(NumberTools, GeneratingFractionsAreExactAndReduced) {
  struct Row {
    DecimalType type;
    const char* integer;
    const char* nonPeriodic;
    const char* period;
    std::int64_t numerator, denominator;
    // The decimal as digits over a power of ten, and its period repeated.
    std::int64_t headValue, headScale;  // I.N as headValue / headScale
  } rows[] = {
      {DecimalType::Exact, "12", "363", "", 12363, 1000, 12363, 1000},
      {DecimalType::Exact, "0", "5", "", 1, 2, 5, 10},
      {DecimalType::PurePeriodic, "365", "", "2", 3287, 9, 365, 1},
      {DecimalType::PurePeriodic, "0", "", "142857", 1, 7, 0, 1},
      {DecimalType::MixedPeriodic, "13", "12", "46", 64967, 4950, 1312, 100},
      {DecimalType::MixedPeriodic, "0", "1", "6", 1, 6, 1, 10},
  };
  for (const Row& r : rows) {
    const Fraction f = generatingFraction(r.type, QString::fromLatin1(r.integer), QString::fromLatin1(r.nonPeriodic),
                                          QString::fromLatin1(r.period));
    EXPECT_EQ(f, (Fraction{r.numerator, r.denominator})) << r.integer << "." << r.nonPeriodic << r.period;
    EXPECT_EQ(std::gcd(f.numerator, f.denominator), 1);
    if (r.type == DecimalType::Exact) continue;
    // x = head + period / ((10^len(P) - 1) * scale): check n/d == x by cross products.
    const auto p = static_cast<std::int64_t>(std::strlen(r.period));
    std::int64_t nines = 1;
    for (int i = 0; i < p; ++i) nines *= 10;
    nines -= 1;
    const std::int64_t period = QString::fromLatin1(r.period).toLongLong();
    EXPECT_EQ(f.numerator * nines * r.headScale, f.denominator * (r.headValue * nines + period));
  }
  // 129933/9900 is 13.1245454..., a different number.
  EXPECT_NE(generatingFraction(DecimalType::MixedPeriodic, QStringLiteral("13"), QStringLiteral("12"),
                               QStringLiteral("46")),
            reduce({129933, 9900}));
}

TEST(NumberTools, GeneratingFractionFailures) {
  const QString nineteen(19, QLatin1Char('9'));
  EXPECT_EQ(errorOf([&] { generatingFraction(DecimalType::Exact, nineteen, QStringLiteral("1"), {}); }), 6);
  EXPECT_EQ(errorOf([&] { generatingFraction(DecimalType::PurePeriodic, QStringLiteral("1"), {}, nineteen); }), 6);
  EXPECT_EQ(errorOf([] { generatingFraction(DecimalType::Exact, QStringLiteral("1a"), QStringLiteral("1"), {}); }), 13);
  EXPECT_EQ(errorOf([] { generatingFraction(DecimalType::Exact, QStringLiteral("1"), {}, {}); }), 13);
  EXPECT_EQ(errorOf([] { generatingFraction(DecimalType::MixedPeriodic, QStringLiteral("1"), {}, QStringLiteral("3")); }),
            13);
}

TEST(NumberTools, VariationsAndCombinations) {
  struct Row {
    int index;
    std::int64_t m, n;
    double expected;
  } rows[] = {{0, 5, 2, 20},  {1, 5, 2, 25},  {2, 5, 2, 10},          {3, 5, 2, 15},
              {0, 5, 0, 1},   {2, 5, 5, 1},   {2, 52, 6, 20358520},    {3, 1, 4, 1},
              {0, 10, 10, 3628800}, {2, 50, 25, 126410606437752}};
  for (const Row& r : rows) EXPECT_EQ(variationsOrCombinations(r.index, r.m, r.n), r.expected) << r.index;
  EXPECT_EQ(errorOf([] { variationsOrCombinations(0, 200, 200); }), 6);
  EXPECT_EQ(errorOf([] { variationsOrCombinations(1, 1000, 200); }), 6);
}

TEST(NumberTools, TartagliaLines) {
  EXPECT_EQ(tartagliaLine(0), std::vector<double>{1});
  EXPECT_EQ(tartagliaLine(5), (std::vector<double>{1, 5, 10, 10, 5, 1}));
  for (int n = 1; n <= 50; ++n) {
    const auto line = tartagliaLine(n);
    EXPECT_EQ(std::accumulate(line.begin(), line.end(), 0.0), std::ldexp(1.0, n)) << n;
  }
  const auto top = tartagliaLine(kTartagliaMax);
  EXPECT_TRUE(std::isfinite(top[kTartagliaMax / 2]));
  EXPECT_EQ(top.front(), 1);
  EXPECT_EQ(top.back(), 1);
}

TEST(NumberTools, NifLetters) {
  EXPECT_EQ(nifLetter(0), QLatin1Char('T'));
  EXPECT_EQ(nifLetter(12345678), QLatin1Char('Z'));
  EXPECT_EQ(nifLetter(22), QLatin1Char('E'));
  EXPECT_EQ(nifLetter(23), QLatin1Char('T'));
}

TEST(NumberTools, CardNamesAndLuhnSums) {
  struct Row {
    const char* digits;
    int nameId;
    bool valid;
  } rows[] = {
      {"4111111111111111", 4590, true},  {"4222222222222", 4590, true},    {"4111111111111112", 4590, false},
      {"378282246310005", 4593, true},   {"341111111111111", 4593, true},  {"5555555555554444", 4594, true},
      {"5105105105105100", 4594, true},  {"30569309025904", 4592, true},   {"38520000023237", 4592, true},
      {"36111111111112", 4592, false},   {"6011111111111117", 4591, true}, {"4111111111111", 4590, false},
      {"306", 4591, false},              {"0", 4591, true},
  };
  for (const Row& r : rows) {
    const CardCheck c = checkCard(QString::fromLatin1(r.digits));
    EXPECT_EQ(c.nameId, r.nameId) << r.digits;
    EXPECT_EQ(c.valid, r.valid) << r.digits;
  }
}

TEST(NumberTools, RandomFormatFollowsTheFirstDecimalOfTheBase) {
  EXPECT_EQ(randomFormat(100.0f), QStringLiteral("0"));
  EXPECT_EQ(randomFormat(100.3f), QStringLiteral("0.000"));
  EXPECT_EQ(randomFormat(1.5f), QStringLiteral("0.00000"));
  EXPECT_EQ(randomFormat(0.25f), QStringLiteral("0.00"));  // 2.5 zeros round to even
  EXPECT_EQ(randomFormat(0.04f), QStringLiteral("0"));
}

TEST(NumberTools, PolygonAreaByTheShoelace) {
  EXPECT_EQ(polygonArea({0, 1, 1, 0}, {0, 0, 1, 1}), 1);
  EXPECT_EQ(polygonArea({0, 4, 0}, {0, 0, 3}), 6);
  EXPECT_EQ(polygonArea({0, 0, 4}, {0, 3, 0}), 6);  // clockwise
  EXPECT_EQ(polygonArea({0, 2, 4}, {0, 2, 4}), 0);  // collinear
}

TEST(NumberTools, MagneticMomentAndAsciiRows) {
  EXPECT_DOUBLE_EQ(magneticMoment(1), std::sqrt(3.0));
  EXPECT_DOUBLE_EQ(magneticMoment(5), std::sqrt(35.0));
  const auto rows = asciiTable();
  ASSERT_EQ(rows.size(), 223u);
  auto shown = [&rows](int code) { return rows[static_cast<size_t>(code - 33)].shown; };
  EXPECT_EQ(rows.front().code, 33);
  EXPECT_EQ(shown(65), QStringLiteral("A"));
  EXPECT_EQ(shown(127), QString());
  EXPECT_EQ(shown(128), QStringLiteral("\u20AC"));
  EXPECT_EQ(shown(129), QString());
  EXPECT_EQ(shown(241), QStringLiteral("\u00F1"));
}

}  // namespace
