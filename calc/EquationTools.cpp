#include "calc/EquationTools.h"

#include <cmath>
#include <exception>

#include "calc/CalculatorEngine.h"
#include "calc/CalculatorKeypad.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace {

const QString kViewerFormat = QStringLiteral("0.00000000");

QString shown(double x) { return rt::Format(x + 0.0, kViewerFormat); }
// A root as the result line shows it; a negative zero is plain 0.
QString text(double x) { return rt::NumberToText(x + 0.0); }

// The real cube root: a negative base is taken by its absolute value and
// the sign put back.
double cubeRoot(double x) { return x < 0 ? -std::pow(-x, 1.0 / 3) : std::pow(x, 1.0 / 3); }

double pi() { return rt::Atn(1) * 4; }

// arccos through the arctangent identity, as the calculator's own key does.
double arcCos(double x) {
  if (x == 1) return 0;
  if (x == -1) return pi();
  return rt::Atn(-x / std::sqrt(-x * x + 1)) + 2 * rt::Atn(1);
}

}  // namespace

void EquationTools::guarded(int topic, const std::function<void()>& body) {
  if (helpInstead(CalculatorEngine::helpTopic(topic))) return;
  try {
    body();
  } catch (const rt::RuntimeError&) {
    resetSteps();
    engine_.unexpectedFailure();
  } catch (const std::exception&) {
    resetSteps();
    engine_.unexpectedFailure();
  }
}

void EquationTools::resetSteps() {
  stepQuadratic = stepCubic = stepDistance = 0;
  coefficients.fill(0);
}

void EquationTools::fail(int code) {
  resetSteps();
  engine_.reportFailure(code);
}

bool EquationTools::takeValue(std::int16_t& step, int count, const QString& prompt) {
  const double v = rt::TextToDouble(engine_.numero.text());
  coefficients[static_cast<std::size_t>(step)] = v;
  ++step;
  engine_.func = prompt;
  engine_.Command69_Click();
  engine_.entryActive = 0;
  return step == count;
}

// ---- Quadratic -----------------------------------------------------------------

void EquationTools::Command68_Click() {
  guarded(68, [&] {
    static const char* const kNext[] = {"abc:  b   (^)", "abc:  c   (^)", "abc"};
    stepCubic = stepDistance = 0;
    if (takeValue(stepQuadratic, 3, QString::fromLatin1(kNext[stepQuadratic]))) solveQuadratic();
  });
}

void EquationTools::solveQuadratic() {
  const double a = coefficients[0], b = coefficients[1], c = coefficients[2];
  resetSteps();
  if (a == 0) return fail(40);
  const double d = rt::checkFinite(b * b - 4 * a * c);
  engine_.addViewerLine(QStringLiteral("ax\u00B2 + bx + c = 0"), QString());
  double x0 = 0;
  if (d < 0) {
    const double re = -b / (2 * a);
    const double im = std::sqrt(4 * a * c - b * b) / (2 * a);
    engine_.result = Res(4580) + QStringLiteral(":  ") + text(re) + QStringLiteral(" \u00B1 ") + text(rt::Abs(im)) +
                     QStringLiteral("i");
    engine_.addViewerLine(QStringLiteral("x0 = "), shown(re) + QStringLiteral(" + ") + shown(rt::Abs(im)) + QStringLiteral(" i"));
    engine_.addViewerLine(QStringLiteral("x1 = "), shown(re) + QStringLiteral(" - ") + shown(rt::Abs(im)) + QStringLiteral(" i"));
    x0 = re;
  } else {
    x0 = (-b + std::sqrt(d)) / (2 * a);
    const double x1 = (-b - std::sqrt(d)) / (2 * a);
    engine_.result = Res(4462) + QStringLiteral(":  ") + text(x0) + QStringLiteral(",  ") + text(x1);
    engine_.addViewerLine(QStringLiteral("x0 = "), shown(x0));
    engine_.addViewerLine(QStringLiteral("x1 = "), shown(x1));
  }
  engine_.numero = text(x0);
  engine_.viewerPanelRequested = true;
}

// ---- Cubic ---------------------------------------------------------------------

void EquationTools::Command42_Click() {
  guarded(42, [&] {
    static const char* const kNext[] = {"abcd:  b   (^)", "abcd:  c   (^)", "abcd:  d   (^)", "abcd"};
    stepQuadratic = stepDistance = 0;
    if (takeValue(stepCubic, 4, QString::fromLatin1(kNext[stepCubic]))) solveCubic();
  });
}

void EquationTools::solveCubic() {
  const double a = coefficients[0], b = coefficients[1], c = coefficients[2], d = coefficients[3];
  resetSteps();
  if (a == 0) return fail(24);
  const double p = c / a - b * b / (3 * a * a);
  const double q = 2 * b * b * b / (27 * a * a * a) - b * c / (3 * a * a) + d / a;
  const double disc = rt::checkFinite(q * q / 4 + p * p * p / 27);
  const double shift = b / (3 * a);
  engine_.addViewerLine(QStringLiteral("ax\u00B3 + bx\u00B2 + cx + d = 0"), QString());
  double x0 = 0;
  if (disc > 0) {
    const double u = cubeRoot(-q / 2 + std::sqrt(disc));
    const double v = cubeRoot(-q / 2 - std::sqrt(disc));
    x0 = u + v - shift;
    const double re = -(u + v) / 2 - shift;
    const double im = std::sqrt(3.0) * (u - v) / 2;
    engine_.result = Res(4460) + QStringLiteral(":  ") + text(x0) + QLatin1Char('\n') + Res(4461) +
                     QStringLiteral(":  ") + text(re) + QStringLiteral(" \u00B1 ") + text(rt::Abs(im)) + QStringLiteral("i");
    engine_.addViewerLine(QStringLiteral("x0 = "), shown(x0));
    engine_.addViewerLine(QStringLiteral("x1 = "), shown(re) + QStringLiteral(" + ") + shown(rt::Abs(im)) + QStringLiteral(" i"));
    engine_.addViewerLine(QStringLiteral("x2 = "), shown(re) + QStringLiteral(" - ") + shown(rt::Abs(im)) + QStringLiteral(" i"));
  } else if (disc == 0) {
    const double u = cubeRoot(-q / 2);
    x0 = 2 * u - shift;
    const double x1 = -u - shift;
    engine_.result = Res(4462) + QStringLiteral(":  ") + text(x0) + QStringLiteral(",  ") + text(x1);
    engine_.addViewerLine(QStringLiteral("x0 = "), shown(x0));
    engine_.addViewerLine(QStringLiteral("x1 = "), shown(x1));
  } else {
    const double r = std::sqrt(-p * p * p / 27);
    const double angle = arcCos(-q / (2 * r));
    const double scale = 2 * std::pow(r, 1.0 / 3);
    QStringList roots;
    for (int k = 0; k < 3; ++k) {
      const double x = scale * std::cos((angle + 2 * k * pi()) / 3) - shift;
      if (k == 0) x0 = x;
      roots << text(x);
      engine_.addViewerLine(QStringLiteral("x%1 = ").arg(k), shown(x));
    }
    engine_.result = Res(4462) + QStringLiteral(":  ") + roots.join(QStringLiteral(",  "));
  }
  engine_.numero = text(x0);
  engine_.viewerPanelRequested = true;
}

// ---- Lagrange ------------------------------------------------------------------

void EquationTools::Command40_Click() {
  guarded(40, [&] {
    resetSteps();
    engine_.func = Res(4236);
    engine_.Command69_Click();
    const StatisticsStore& s = program().stats;
    if (s.nx < 1 || s.nx != s.ny) return fail(22);
    const double x = rt::TextToDouble(engine_.numero.text());
    double y = 0;
    for (int i = 1; i <= s.nx; ++i) {
      double term = s.Y[static_cast<std::size_t>(i)];
      for (int j = 1; j <= s.nx; ++j) {
        if (j == i) continue;
        const double gap = s.X[static_cast<std::size_t>(i)] - s.X[static_cast<std::size_t>(j)];
        if (gap == 0) throw rt::RuntimeError(rt::kDivisionByZero);
        term *= (x - s.X[static_cast<std::size_t>(j)]) / gap;
      }
      y += term;
    }
    y = rt::checkFinite(y);
    engine_.result = Res(4458) + QLatin1Char(' ') + text(y);
    engine_.numero = text(y);
    engine_.entryActive = 0;
  });
}

// ---- Distance and line -----------------------------------------------------------

void EquationTools::Command49_Click() {
  if (helpInstead(CalculatorEngine::helpTopic(49))) return;
  try {
    static const char* const kNames[] = {"x0", "y0", "x1", "y1"};
    stepQuadratic = stepCubic = 0;
    const QString name = QString::fromLatin1(kNames[stepDistance]);
    const QString entered = engine_.numero.text();
    const bool last = takeValue(stepDistance, 4, QStringLiteral("d, y(x):  ") + name + QStringLiteral("   (^)"));
    engine_.result = name + QStringLiteral(" = ") + entered;
    if (last) solveDistance();
  } catch (const std::exception&) {
    // No distance or line comes out of these values.
    resetSteps();
    engine_.result = Res(4468);
    engine_.numero = QStringLiteral("0");
  }
}

void EquationTools::solveDistance() {
  const double x0 = coefficients[0], y0 = coefficients[1], x1 = coefficients[2], y1 = coefficients[3];
  resetSteps();
  if (x0 == x1 && y0 == y1) {
    engine_.result = Res(4469);
    return;
  }
  const double d = rt::checkFinite(std::sqrt(rt::checkFinite((x1 - x0) * (x1 - x0) + (y1 - y0) * (y1 - y0))));
  engine_.addViewerLine(QStringLiteral("d, y(x)"), QString());
  engine_.addViewerLine(Res(4470), shown(d));
  QString line;
  if (x1 == x0) {
    engine_.addViewerLine(Res(4472), QString());
    engine_.addViewerLine(Res(4473), Res(4474));
    engine_.addViewerLine(QStringLiteral("x = "), shown(x0));
    line = QStringLiteral("x = ") + text(x0);
  } else {
    const double a = rt::checkFinite((y1 - y0) / (x1 - x0));
    const double b = rt::checkFinite(y0 - a * x0);
    engine_.addViewerLine(Res(4471), QString());
    engine_.addViewerLine(QStringLiteral("a = "), shown(a));
    engine_.addViewerLine(QStringLiteral("b = "), shown(b));
    line = QStringLiteral("y = ") + text(a) + QStringLiteral("x + ") + text(b);
  }
  engine_.result = Res(4470) + QLatin1Char(' ') + text(d) + QLatin1Char('\n') + line;
  engine_.numero = text(d);
  engine_.viewerPanelRequested = true;
}

// ---- Keys ------------------------------------------------------------------------

void addEquationKeys(QList<KeypadKey>& keys) {
  using E = CalculatorEngine;
  constexpr auto Q = KeypadPanel::Equations;
  const auto system = [](E& e, int i) { e.linearSystem.Command85_Click(i); };
  keys << KeypadKey{"Command68", -1, "abc", 4969, Q, 0, 0, 1, 1, [](E& e, int) { e.equations.Command68_Click(); }, 0}
       << KeypadKey{"Command42", -1, "abcd", 4970, Q, 0, 1, 1, 1, [](E& e, int) { e.equations.Command42_Click(); }, 0}
       << KeypadKey{"Command40", -1, "Lagr", 4971, Q, 0, 2, 1, 1, [](E& e, int) { e.equations.Command40_Click(); }, 0}
       << KeypadKey{"Command49", -1, "d, y(x)", 4972, Q, 0, 3, 1, 1, [](E& e, int) { e.equations.Command49_Click(); }, 0}
       << KeypadKey{"Command39", -1, "", 4973, Q, 1, 0, 1, 1, [](E& e, int) { e.linearSystem.Command39_Click(); }, 4944}
       << KeypadKey{"Command85", 0, "(^)", 4975, Q, 1, 1, 1, 1, system, 0}
       << KeypadKey{"Command85", 1, "", 4974, Q, 1, 2, 1, 1, system, 4945}
       << KeypadKey{"Command85", 2, "", 4976, Q, 1, 3, 1, 1, system, 4791};
}
