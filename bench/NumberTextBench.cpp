// Str, the default number text and Val on a million varied doubles, beside
// std::to_chars / std::from_chars on the same numbers in the same run: the
// ratio of the two is the figure to watch, whatever the machine's load.
#include <benchmark/benchmark.h>

#include <charconv>
#include <random>
#include <vector>

#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"

namespace {

constexpr int kCount = 1'000'000;

// Values a calculator meets: integers, short decimals, long fractions, tiny
// and huge magnitudes, both signs.
const std::vector<double>& values() {
  static const std::vector<double> v = [] {
    std::mt19937_64 gen(42);
    std::uniform_real_distribution<double> unit(0, 1);
    std::uniform_int_distribution<int> exponent(-30, 30);
    std::vector<double> out;
    out.reserve(kCount);
    for (int i = 0; i < kCount; ++i) {
      double x = 0;
      switch (i % 4) {
        case 0: x = std::floor(unit(gen) * 100000); break;
        case 1: x = std::round(unit(gen) * 100000) / 100; break;
        case 2: x = unit(gen); break;
        default: x = unit(gen) * std::pow(10.0, exponent(gen)); break;
      }
      out.push_back(i % 3 == 0 ? -x : x);
    }
    return out;
  }();
  return v;
}

const std::vector<QString>& texts() {
  static const std::vector<QString> t = [] {
    std::vector<QString> out;
    out.reserve(kCount);
    for (double x : values()) out.push_back(rt::Str(x));
    return out;
  }();
  return t;
}

const std::vector<std::string>& plainTexts() {
  static const std::vector<std::string> t = [] {
    std::vector<std::string> out;
    out.reserve(kCount);
    for (const QString& s : texts()) out.push_back(s.trimmed().toStdString());
    return out;
  }();
  return t;
}

void BM_Str(benchmark::State& state) {
  const auto& v = values();
  for (auto _ : state) {
    for (double x : v) benchmark::DoNotOptimize(rt::Str(x));
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_NumberToText(benchmark::State& state) {
  resetProgram(QLocale(QLocale::Spanish, QLocale::Spain));
  const auto& v = values();
  for (auto _ : state) {
    for (double x : v) benchmark::DoNotOptimize(rt::NumberToText(x));
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

// Reference: the shortest round-trip text, with 15 significant digits asked.
void BM_ToCharsReference(benchmark::State& state) {
  const auto& v = values();
  char buf[64];
  for (auto _ : state) {
    for (double x : v) {
      auto r = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::general, 15);
      benchmark::DoNotOptimize(r.ptr);
      benchmark::DoNotOptimize(QString::fromLatin1(buf, r.ptr - buf));
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_Val(benchmark::State& state) {
  const auto& t = texts();
  for (auto _ : state) {
    for (const QString& s : t) benchmark::DoNotOptimize(rt::Val(s));
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

void BM_FromCharsReference(benchmark::State& state) {
  const auto& t = plainTexts();
  for (auto _ : state) {
    for (const std::string& s : t) {
      double x = 0;
      std::from_chars(s.data(), s.data() + s.size(), x);
      benchmark::DoNotOptimize(x);
    }
  }
  state.SetItemsProcessed(state.iterations() * kCount);
}

}  // namespace

BENCHMARK(BM_Str)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_NumberToText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ToCharsReference)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Val)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FromCharsReference)->Unit(benchmark::kMillisecond);
