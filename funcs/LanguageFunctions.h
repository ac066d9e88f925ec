#pragma once
// The language's own numeric functions, present in every Evaluator: Abs, Atn,
// Cos, Exp, Fix, Int, Log, Rnd, Round, Sgn, Sin, Sqr, Tan, and the
// conversions CDbl, CInt, CLng. They follow the runtime rules of shell/
// (Log and Sqr fail on their bad arguments; CInt rounds halves to even) and
// work in radians whatever the angle mode.
#include <cstdint>

#include "funcs/FunctionLibrary.h"

class LanguageFunctions : public FunctionLibrary {
 public:
  const std::vector<FunctionDef>& functions() const override;

  // Rnd: no argument or a positive one gives the next number; 0 repeats the
  // last one; a negative one reseeds with it, so the same negative argument
  // always gives the same number. The value is a 32-bit float. Formulas have
  // their own sequence, started from the runtime's generator.
  rt::Variant Rnd(const rt::Variant* args, int n);

 private:
  float next();
  std::uint32_t seed_ = 0;
  bool seeded_ = false;
  float lastRnd_ = 0;
};
