#include "shell/runtime/Random.h"

#include <QDateTime>
#include <cstdint>
#include <cstring>

#include "shell/runtime/DateTime.h"

namespace rt {

namespace {
// The runtime's 24-bit linear congruential generator.
std::uint32_t g_seed = 0x50000;
}  // namespace

float Rnd() {
  g_seed = (g_seed * 0x43FD43FDu + 0xC39EC3u) & 0xFFFFFFu;
  return static_cast<float>(g_seed) / 16777216.0f;
}

void Randomize(double seed) {
  // The upper half of the number's bits, folded to 16 bits, becomes the
  // middle bytes of the generator's state, so one seed gives one sequence.
  std::uint64_t bits = 0;
  std::memcpy(&bits, &seed, sizeof bits);
  const auto high = static_cast<std::uint32_t>(bits >> 32);
  const std::uint32_t folded = (high ^ (high >> 16)) & 0xFFFFu;
  g_seed = (folded << 8) & 0xFFFFFFu;
}

void Randomize() { Randomize(Timer() + static_cast<double>(QDateTime::currentMSecsSinceEpoch() % 1000003)); }

}  // namespace rt
