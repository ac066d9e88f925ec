// The number tools' hot loops beside plain references in the same run:
//  - the segmented sieve of the prime listing against one plain sieve over
//    the same range (the listing's whole range, up to 99,999,999, and a
//    window of 10^6 near its top);
//  - the prime test and the factorisation (divisors 2, 3, then 6k-1 and
//    6k+1) over a range of large numbers against plain trial division by
//    every number up to the square root.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "calc/NumberTools.h"

namespace {

constexpr std::int64_t kTop = 99999999;

std::int64_t plainSieveCount(std::int64_t from, std::int64_t to) {
  std::vector<bool> composite(static_cast<size_t>(to + 1), false);
  std::int64_t count = 0;
  for (std::int64_t i = 2; i <= to; ++i) {
    if (composite[static_cast<size_t>(i)]) continue;
    if (i >= from) ++count;
    for (std::int64_t j = i * i; j <= to; j += i) composite[static_cast<size_t>(j)] = true;
  }
  return count;
}

void BM_SegmentedSieve(benchmark::State& state) {
  const std::int64_t from = state.range(0);
  std::int64_t count = 0;
  for (auto _ : state) {
    count = numtools::segmentedPrimes(from, kTop, [](std::int64_t) { return true; }, [](std::int64_t) { return true; });
    benchmark::DoNotOptimize(count);
  }
  state.counters["primes"] = static_cast<double>(count);
}
BENCHMARK(BM_SegmentedSieve)->Arg(1)->Arg(kTop - 999999)->Unit(benchmark::kMillisecond);

void BM_PlainSieveReference(benchmark::State& state) {
  const std::int64_t from = state.range(0);
  std::int64_t count = 0;
  for (auto _ : state) {
    count = plainSieveCount(from, kTop);
    benchmark::DoNotOptimize(count);
  }
  state.counters["primes"] = static_cast<double>(count);
}
BENCHMARK(BM_PlainSieveReference)->Arg(1)->Arg(kTop - 999999)->Unit(benchmark::kMillisecond);

// 500 numbers just above 10^12, where the divisor loop dominates.
constexpr std::int64_t kRangeStart = 1000000000000;
constexpr std::int64_t kRangeSize = 500;

bool plainIsPrime(std::int64_t n) {
  if (n < 2) return false;
  for (std::int64_t d = 2; d * d <= n; ++d) {
    if (n % d == 0) return false;
  }
  return true;
}

std::int64_t plainFactorCount(std::int64_t n) {
  std::int64_t factors = 0;
  for (std::int64_t d = 2; d * d <= n; ++d) {
    while (n % d == 0) {
      n /= d;
      ++factors;
    }
  }
  return factors + (n > 1 ? 1 : 0);
}

void BM_PrimeTestOverARange(benchmark::State& state) {
  for (auto _ : state) {
    int primes = 0;
    for (std::int64_t n = kRangeStart; n < kRangeStart + kRangeSize; ++n) primes += numtools::isPrime(n);
    benchmark::DoNotOptimize(primes);
  }
}
BENCHMARK(BM_PrimeTestOverARange)->Unit(benchmark::kMillisecond);

void BM_PlainTrialDivisionReference(benchmark::State& state) {
  for (auto _ : state) {
    int primes = 0;
    for (std::int64_t n = kRangeStart; n < kRangeStart + kRangeSize; ++n) primes += plainIsPrime(n);
    benchmark::DoNotOptimize(primes);
  }
}
BENCHMARK(BM_PlainTrialDivisionReference)->Unit(benchmark::kMillisecond);

void BM_FactorisationOverARange(benchmark::State& state) {
  for (auto _ : state) {
    std::int64_t factors = 0;
    for (std::int64_t n = kRangeStart; n < kRangeStart + kRangeSize; ++n) {
      for (const auto& f : numtools::factorise(n)) factors += f.second;
    }
    benchmark::DoNotOptimize(factors);
  }
}
BENCHMARK(BM_FactorisationOverARange)->Unit(benchmark::kMillisecond);

void BM_PlainFactorisationReference(benchmark::State& state) {
  for (auto _ : state) {
    std::int64_t factors = 0;
    for (std::int64_t n = kRangeStart; n < kRangeStart + kRangeSize; ++n) factors += plainFactorCount(n);
    benchmark::DoNotOptimize(factors);
  }
}
BENCHMARK(BM_PlainFactorisationReference)->Unit(benchmark::kMillisecond);

}  // namespace
