#pragma once
// The closed-form solvers of the scientific calculator, used through the main
// display: the quadratic (Command68) and cubic (Command42) equations and the
// distance and line through two points (Command49) are dialogues, one press
// of the key per value, each press taking numero and ending the entry, with
// func prompting for the next value; Lagrange interpolation (Command40) is a
// single press over the statistics store. Results go to result, numero and
// the auxiliary viewer (List3/List4). The clear key and any failure send
// every step counter back to 0.
#include <QList>
#include <array>
#include <cstdint>
#include <functional>

class CalculatorEngine;
struct KeypadKey;

class EquationTools {
 public:
  explicit EquationTools(CalculatorEngine& engine) : engine_(engine) {}

  std::int16_t stepQuadratic = 0;
  std::int16_t stepCubic = 0;
  std::int16_t stepDistance = 0;
  // The values entered so far; back to 0 when the result shows.
  std::array<double, 4> coefficients{};

  void Command68_Click();  // quadratic: a, b, c
  void Command42_Click();  // cubic: a, b, c, d
  void Command40_Click();  // Lagrange: y at x = numero through the X, Y store
  void Command49_Click();  // distance and line: x0, y0, x1, y1
  void resetSteps();

 private:
  void guarded(int topic, const std::function<void()>& body);
  void fail(int code);
  // One press of a dialogue: stores numero as value `step`; true when it
  // was the last value.
  bool takeValue(std::int16_t& step, int count, const QString& prompt);
  void solveQuadratic();
  void solveCubic();
  void solveDistance();

  CalculatorEngine& engine_;
};

// The keys of the equation tools, added to the calculator's key table.
void addEquationKeys(QList<KeypadKey>& keys);
