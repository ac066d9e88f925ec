// The scientific keys of the calculator: powers and logarithms, the
// trigonometric and hyperbolic functions, integer parts, percent, factorial
// and the physical constants. Each key follows the unary pattern (unaryKey):
// its domain tests run before any computing, each with its own error code,
// and a run-time failure inside (an overflow) takes the unexpected path.
#include <cmath>

#include "calc/CalculatorEngine.h"
#include "calc/CalculatorKeypad.h"
#include "calc/PhysicalConstants.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Strings.h"
#include "shell/runtime/Variant.h"

namespace {

// pi as the program computes it everywhere.
double pi() { return rt::Atn(1) * 4; }

// x ^ y with the runtime's power (overflow is a run-time failure).
double power(double x, double y) { return rt::power(rt::Variant::dbl(x), rt::Variant::dbl(y)).toDouble(); }

// The trigonometric keys' own limits: tan near a right angle is "infinite",
// and the rounding dust of sin 180 or cos 90 is an exact zero.
constexpr double kInfiniteTrig = 1e15;
constexpr double kZeroTrig = 1e-15;

}  // namespace

// ---- The unary pattern ---------------------------------------------------------

void CalculatorEngine::unaryKey(const QString& name, const std::function<Outcome(double)>& compute,
                                bool reformat) {
  func = name;
  Command69_Click();
  const Outcome o = compute(value());
  if (o.code != 0) {
    reportFailure(o.code);
    return;
  }
  showAnswer(o.value, reformat);
}

void CalculatorEngine::showAnswer(double answer, bool reformat) {
  // A run-time result never shows as infinity: it is an overflow.
  result = rt::NumberToText(rt::checkFinite(answer));
  numero = result.text();
  if (reformat) Command90_Click();
  entryActive = 0;
}

// ---- Powers and logarithms -------------------------------------------------------

void CalculatorEngine::Command10_Click(int index) {
  powerKey(10, index, keyCaption(QStringLiteral("Command10"), index));
}

void CalculatorEngine::powerKey(int controlNumber, int index, const QString& name) {
  guarded(controlNumber, [&] {
    switch (index) {
      case 0:
        unaryKey(name, [](double x) { return x <= 0 ? failure(18) : Outcome{rt::Log(x) / rt::Log(10)}; });
        break;
      case 1: unaryKey(name, [](double x) { return x > 308 ? failure(8) : Outcome{power(10, x)}; }); break;
      case 2: unaryKey(name, [](double x) { return x <= 0 ? failure(18) : Outcome{rt::Log(x)}; }); break;
      case 3: unaryKey(name, [](double x) { return x > 709 ? failure(8) : Outcome{rt::Exp(x)}; }); break;
      case 4: unaryKey(name, [](double x) { return x == 0 ? failure(19) : Outcome{1 / x}; }); break;
      case 5: unaryKey(name, [](double x) { return x < 0 ? failure(7) : Outcome{rt::Sqr(x)}; }); break;
      case 6:
        unaryKey(name, [](double x) { return rt::Abs(x) > 1e154 ? failure(8) : Outcome{power(x, 2)}; });
        break;
      case 7:
        unaryKey(name, [](double x) {
          return Outcome{x < 0 ? -power(rt::Abs(x), 1.0 / 3) : power(x, 1.0 / 3)};
        });
        break;
      case 8:
        unaryKey(name, [](double x) { return rt::Abs(x) > 5e102 ? failure(8) : Outcome{power(x, 3)}; });
        break;
      // The two pi keys do not read the display, and put their value in place
      // without the display format.
      case 9:
      case 10:
        func = name;
        Command69_Click();
        showAnswer(index == 9 ? rt::Atn(1) * 8 : pi(), false);
        break;
      default: break;
    }
  });
}

// ---- Trigonometry ------------------------------------------------------------------

namespace {

// The circular functions, by angle mode (angulo) and its factor.
struct Circular {
  QString mode;
  double factor;

  // sin, cos, tan of an angle; r beyond 1e15 has no finite value (code 12).
  CalculatorEngine::Outcome direct(int index, double x) const {
    const double a = x * factor;
    const double r = index == 0 ? rt::Sin(a) : index == 1 ? rt::Cos(a) : rt::Tan(a);
    if (rt::Abs(r) > kInfiniteTrig) return {0, 12};
    return {rt::Abs(r) < kZeroTrig ? 0.0 : r};
  }

  // The value of a right angle (sign of x) or a straight angle in this mode.
  double rightAngle() const {
    if (mode == QLatin1String("rad")) return rt::Atn(1) * 2;
    return mode == QLatin1String("gra") ? 100 : 90;
  }

  CalculatorEngine::Outcome arcsin(double x) const {
    if (rt::Abs(x) > 1) return {0, 33};
    if (x == 1 || x == -1) return {x * rightAngle()};
    return {rt::Atn(x / rt::Sqr(1 - x * x)) / factor};
  }

  CalculatorEngine::Outcome arccos(double x) const {
    if (rt::Abs(x) > 1) return {0, 33};
    if (x == 1) return {0};
    if (x == -1) return {2 * rightAngle()};
    return {(rt::Atn(-x / rt::Sqr(1 - x * x)) + rt::Atn(1) * 2) / factor};
  }
};

CalculatorEngine::Outcome hyperbolic(int index, double x) {
  switch (index) {
    case 0:
      if (x > 705) return {0, 12};
      return {(rt::Exp(x) - rt::Exp(-x)) / 2};
    case 1:
      if (x > 705) return {0, 12};
      return {(rt::Exp(x) + rt::Exp(-x)) / 2};
    case 2:
      if (x > 700) return {1};
      return {(rt::Exp(x) - rt::Exp(-x)) / (rt::Exp(x) + rt::Exp(-x))};
    case 3: return {rt::Log(x + rt::Sqr(rt::checkFinite(x * x) + 1))};
    case 4:
      if (x < 1) return {0, 34};
      return {rt::Log(x + rt::Sqr(rt::checkFinite(x * x) - 1))};
    default:
      if (rt::Abs(x) >= 1) return {0, 35};
      return {0.5 * rt::Log((1 + x) / (1 - x))};
  }
}

}  // namespace

bool CalculatorEngine::holdsDegreeText() const { return numero.text().contains(QChar(0x00B0)); }

void CalculatorEngine::Command21_Click(int index) {
  if (index < 0 || index > 5) return;
  guarded(21, [&] {
    // The hyperbolic switch lasts one key, whatever happens in it.
    struct HypReset {
      QString& flag;
      ~HypReset() { flag.clear(); }
    } reset{hypFlag};
    if (holdsDegreeText()) {
      if (index >= 3) {
        reportFailure(32);
        return;
      }
      if (!parseDegreeText()) return;
    }
    const bool hyp = hypFlag == QLatin1String("H");
    const QString name = keyCaption(QStringLiteral("Command21"), index) + (hyp ? QStringLiteral(" H") : QString());
    const Circular circular{angulo, program().angleFactor};
    unaryKey(name, [&](double x) -> Outcome {
      if (hyp) return hyperbolic(index, x);
      if (index <= 2) return circular.direct(index, x);
      if (index == 3) return circular.arcsin(x);
      if (index == 4) return circular.arccos(x);
      return {rt::Atn(x) / circular.factor};
    });
  });
}

void CalculatorEngine::Command43_Click() {
  guarded(43, [&] {
    if (hypFlag == QLatin1String("H")) hypFlag.clear();
    else hypFlag = QStringLiteral("H");
  });
}

// ---- Integer parts, percent, factorial --------------------------------------------------

void CalculatorEngine::Command36_Click(int index) {
  if (index < 0 || index > 2) return;
  guarded(36, [&] {
    unaryKey(keyCaption(QStringLiteral("Command36"), index), [&](double x) -> Outcome {
      // "+ 0.0" keeps a negative zero (Fix(-0.5)) from reaching the display.
      if (index == 0) return {rt::Int(x) + 0.0};
      if (index == 1) return {rt::Fix(x) + 0.0};
      return {rt::Abs(x - rt::Fix(x))};
    });
  });
}

void CalculatorEngine::Command52_Click() {
  guarded(52, [&] { unaryKey(keyCaption(QStringLiteral("Command52")), [](double x) { return Outcome{x / 100}; }); });
}

void CalculatorEngine::Command46_Click() {
  guarded(46, [&] {
    unaryKey(keyCaption(QStringLiteral("Command46")), [](double x) -> Outcome {
      if (x != rt::Fix(x)) return failure(6);
      if (x < 0) return failure(7);
      if (x > 170) return failure(8);
      double product = 1;
      for (int i = 2; i <= static_cast<int>(x); ++i) product *= i;
      return {product};
    });
  });
}

// ---- Constants ------------------------------------------------------------------------------

void CalculatorEngine::Command4_Click(int index) {
  const auto& table = physicalConstants();
  if (index < 0 || index >= table.size()) return;
  guarded(4, [&] {
    const PhysicalConstant& c = table.at(index);
    numero = rt::NumberToText(c.value);
    entryActive = 0;
    func = Res(4114 + index);
    result = func + QLatin1Char('\n') + QString::fromUtf8(c.unit);
  });
}

void CalculatorEngine::Command8_Click() {
  guarded(8, [&] { Frame2Visible = !Frame2Visible; });
}
