#pragma once
// A set of functions that an Evaluator can call by name: the language's own
// numeric functions, and any object published with AddObject (the math
// library). Each function has a numeric form working on doubles, used by the
// compiled fast path, and/or a general form working on variants, used when a
// value is a text, a 32-bit float or anything but a plain number.
#include <QString>
#include <vector>

#include "shell/runtime/Variant.h"

class FunctionLibrary;

// What a function gives back, as the compiler needs to know it in advance.
enum class ResultKind : unsigned char {
  Number,  // always a 64-bit float (or an integer of the same value)
  Other,   // a text, a 32-bit float or a variant: only the general form is exact
};

// Functions whose numeric form the compiled fast path may run in place,
// without the call, because it does exactly what the machine's own code for
// them does (the runtime's Sin, Cos, Tan, Atn, Exp, Log, Sqr and Abs).
enum class InlineMath : unsigned char { None, Sin, Cos, Tan, Atn, Exp, Log, Sqr, Abs };

struct FunctionDef {
  const char* name = "";
  int minArgs = 0;
  int maxArgs = 0;  // -1: any number
  ResultKind result = ResultKind::Number;
  // Numeric forms by argument count; fn takes any count. At least one of the
  // numeric forms or the general form is set.
  double (*f0)(FunctionLibrary&) = nullptr;
  double (*f1)(FunctionLibrary&, double) = nullptr;
  double (*f2)(FunctionLibrary&, double, double) = nullptr;
  double (*fn)(FunctionLibrary&, const double*, int) = nullptr;
  rt::Variant (*general)(FunctionLibrary&, const rt::Variant*, int) = nullptr;
  InlineMath inlineMath = InlineMath::None;
};

class FunctionLibrary {
 public:
  virtual ~FunctionLibrary() = default;
  virtual const std::vector<FunctionDef>& functions() const = 0;
};
