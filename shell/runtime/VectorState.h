#pragma once
// Library code built for newer processors (Qt's hashing, for one) may leave
// the upper halves of the 256-bit vector registers in use. On some
// processors every plain SSE2 instruction that follows then waits on them,
// and number work runs several times slower until the halves are cleared.
// clearUpperVectorState() clears them where the processor has them: call it
// after such library code and before a long run of number work (it costs
// about a nanosecond).
namespace rt {

inline void clearUpperVectorState() {
#if defined(__x86_64__) && (defined(__GNUC__) || defined(__clang__))
  static const bool hasAvx = __builtin_cpu_supports("avx");
  if (hasAvx) __asm__ volatile("vzeroupper");
#endif
}

}  // namespace rt
