#include "funcs/LanguageFunctions.h"

#include <bit>

#include "shell/runtime/Numeric.h"
#include "shell/runtime/Random.h"

// The runtime's 24-bit linear congruential step.
float LanguageFunctions::next() {
  if (!seeded_) {
    seed_ = static_cast<std::uint32_t>(rt::Rnd() * 16777216.0f) & 0xFFFFFFu;
    seeded_ = true;
  }
  seed_ = (seed_ * 0x43FD43FDu + 0xC39EC3u) & 0xFFFFFFu;
  return static_cast<float>(seed_) / 16777216.0f;
}

rt::Variant LanguageFunctions::Rnd(const rt::Variant* args, int n) {
  if (n == 1) {
    const float v = args[0].toSingle();
    if (v == 0) return rt::Variant::single(lastRnd_);
    if (v < 0) {
      // The seed is made of the bits of the 32-bit float.
      const auto bits = std::bit_cast<std::uint32_t>(v);
      seed_ = (bits + (bits >> 24)) & 0xFFFFFFu;
      seeded_ = true;
    }
  }
  lastRnd_ = next();
  return rt::Variant::single(lastRnd_);
}

namespace {

using L = FunctionLibrary;

FunctionDef unary(const char* name, double (*f)(L&, double), InlineMath inlineMath = InlineMath::None) {
  FunctionDef d;
  d.name = name;
  d.minArgs = 1;
  d.maxArgs = 1;
  d.f1 = f;
  d.inlineMath = inlineMath;
  return d;
}

}  // namespace

const std::vector<FunctionDef>& LanguageFunctions::functions() const {
  static const std::vector<FunctionDef> defs = [] {
    std::vector<FunctionDef> v;
    v.push_back(unary("Abs", [](L&, double x) { return rt::Abs(x); }, InlineMath::Abs));
    v.push_back(unary("Atn", [](L&, double x) { return rt::Atn(x); }, InlineMath::Atn));
    v.push_back(unary("Cos", [](L&, double x) { return rt::Cos(x); }, InlineMath::Cos));
    v.push_back(unary("Exp", [](L&, double x) { return rt::Exp(x); }, InlineMath::Exp));
    v.push_back(unary("Fix", [](L&, double x) { return rt::Fix(x); }));
    v.push_back(unary("Int", [](L&, double x) { return rt::Int(x); }));
    v.push_back(unary("Log", [](L&, double x) { return rt::Log(x); }, InlineMath::Log));
    v.push_back(unary("Sgn", [](L&, double x) { return static_cast<double>(rt::Sgn(x)); }));
    v.push_back(unary("Sin", [](L&, double x) { return rt::Sin(x); }, InlineMath::Sin));
    v.push_back(unary("Sqr", [](L&, double x) { return rt::Sqr(x); }, InlineMath::Sqr));
    v.push_back(unary("Tan", [](L&, double x) { return rt::Tan(x); }, InlineMath::Tan));
    v.push_back(unary("CDbl", [](L&, double x) { return x; }));
    v.push_back(unary("CInt", [](L&, double x) { return static_cast<double>(rt::CInt(x)); }));
    v.push_back(unary("CLng", [](L&, double x) { return static_cast<double>(rt::CLng(x)); }));

    FunctionDef round = unary("Round", [](L&, double x) { return rt::Round(x, 0); });
    round.maxArgs = 2;
    round.f2 = [](L&, double x, double n) { return rt::Round(x, rt::CLng(n)); };
    v.push_back(round);

    FunctionDef rnd;
    rnd.name = "Rnd";
    rnd.minArgs = 0;
    rnd.maxArgs = 1;
    rnd.result = ResultKind::Other;
    rnd.general = [](L& lib, const rt::Variant* a, int n) { return static_cast<LanguageFunctions&>(lib).Rnd(a, n); };
    v.push_back(rnd);
    return v;
  }();
  return defs;
}
