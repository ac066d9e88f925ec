// The calculator's modes and conversions: VAT and currencies, temperature
// scales, angle modes and units, degree texts (12°34'56''), reduction to the
// first turn, and number bases. The angle and temperature modes live in the
// display texts angulo and temperat; the conversions read them from there.
#include <QStringList>

#include "calc/CalculatorEngine.h"
#include "calc/CalculatorKeypad.h"
#include "shell/runtime/Format.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/runtime/Variant.h"

namespace {

const QChar kDegree(0x00B0);
const QString kMinute = QStringLiteral("'");
const QString kSecond = QStringLiteral("''");
const QString kDeg = QStringLiteral("deg");
const QString kRad = QStringLiteral("rad");
const QString kGra = QStringLiteral("gra");

double pi() { return rt::Atn(1) * 4; }

// The binary digits of a 32-bit value: the lowest bit goes in front, then the
// value is halved with the runtime's integer division, which truncates, so a
// negative value gives the digits of its magnitude (-5 is "101"), as the
// evaluator's BIN does.
QString binaryText(std::int32_t v) {
  if (v == 0) return QStringLiteral("0000");
  QString text;
  while (v != 0) {
    text.prepend((v & 1) != 0 ? QLatin1Char('1') : QLatin1Char('0'));
    v = rt::IntDiv(v, 2);
  }
  return text;
}

// x (a whole number, not negative) in base 2 to 9. A number below the base
// keeps a leading "0": the loop always writes one digit before the last
// quotient.
QString toBase(double x, int base) {
  QStringList digits;  // lowest first
  double q = 0;
  do {
    q = rt::Int(x / base);
    digits << rt::NumberToText(rt::Fix(x - q * base));
    x = q;
  } while (q >= base);
  digits << rt::NumberToText(q);
  QString text;
  for (auto it = digits.crbegin(); it != digits.crend(); ++it) text += *it;
  return text;
}

double power(double x, double y) { return rt::power(rt::Variant::dbl(x), rt::Variant::dbl(y)).toDouble(); }

}  // namespace

// ---- VAT and currencies ------------------------------------------------------

void CalculatorEngine::Command6_Click(int index) {
  if (index < 0 || index > 2) return;
  guarded(6, [&] {
    const double p = program().VatRate.toDouble();
    unaryKey(keyCaption(QStringLiteral("Command6"), index), [&](double x) -> Outcome {
      if (index == 0) return {x * p / 100};
      if (index == 1) return {x * (1 + p / 100)};
      return {x / (1 + p / 100)};
    });
  });
}

void CalculatorEngine::Command60_Click() {
  guarded(60, [&] {
    func = keyCaption(QStringLiteral("Command60"));
    Command69_Click();
    const double v = value();
    if (rt::Abs(v) <= 100) {
      program().VatRate = rt::Variant::dbl(v);
      ivas = rt::NumberToText(v) + QStringLiteral(" %");
    }
    entryActive = 0;
  });
}

void CalculatorEngine::Command33_Click() {
  guarded(33, [&] {
    const ProgramState& p = program();
    const double rate = p.ExchangeRate.toDouble();
    unaryKey(Res(4446) + QLatin1Char(' ') + p.Currency2.toText(), [rate](double x) { return Outcome{x * rate}; });
  });
}

void CalculatorEngine::Command34_Click() {
  guarded(34, [&] {
    const ProgramState& p = program();
    const double rate = p.ExchangeRate.toDouble();
    unaryKey(Res(4446) + QLatin1Char(' ') + p.Currency1.toText(), [rate](double x) { return Outcome{x / rate}; });
  });
}

void CalculatorEngine::writeCurrencyCaptions() {
  const ProgramState& p = program();
  const QString one = p.Currency1.toText();
  const QString two = p.Currency2.toText();
  const QString arrow = QStringLiteral("\u2192");
  Command33Caption = one + arrow + two;
  Command34Caption = two + arrow + one;
  Command33Tooltip = one + QLatin1Char(' ') + arrow + QLatin1Char(' ') + two + QStringLiteral(".  {Q}");
  Command34Tooltip = two + QLatin1Char(' ') + arrow + QLatin1Char(' ') + one + QStringLiteral(".  {W}");
}

// ---- Temperature ---------------------------------------------------------------

void CalculatorEngine::Command5_Click(int index) {
  if (index < 0 || index > 2) return;
  guarded(5, [&] {
    const QString target = keyCaption(QStringLiteral("Command5"), index);
    func = target;
    Command69_Click();
    // The scales are told apart by their first letter: C, K, F.
    const QChar from = temperat.isEmpty() ? QChar() : temperat.at(0);
    const QChar to = target.at(0);
    QString shown;
    if (from == to) {
      shown = numero.text();
    } else {
      const double x = value();
      double v = 0;
      if (to == QLatin1Char('C')) v = from == QLatin1Char('K') ? x - 273.15 : (x - 32) * 5 / 9;
      else if (to == QLatin1Char('K')) v = from == QLatin1Char('C') ? x + 273.15 : (x + 459.67) * 5 / 9;
      else v = from == QLatin1Char('K') ? x * 9 / 5 - 459.67 : x * 9 / 5 + 32;
      shown = rt::NumberToText(rt::checkFinite(v));
    }
    result = shown + QLatin1Char(' ') + target;
    addHistoryValue(result);
    Command90_Click();
    entryActive = 0;
  });
}

void CalculatorEngine::Command48_Click() {
  guarded(48, [&] {
    if (temperat == QLatin1String("Celsius")) temperat = QStringLiteral("Kelvin");
    else if (temperat == QLatin1String("Kelvin")) temperat = QStringLiteral("Fahrenheit");
    else temperat = QStringLiteral("Celsius");
    func = Res(4575) + QLatin1Char(' ') + temperat;
    Command69_Click();
  });
}

// ---- Angle modes and units ---------------------------------------------------------

void CalculatorEngine::setAngleMode(const QString& mode) {
  angulo = mode;
  double& factor = program().angleFactor;
  if (mode == kRad) factor = 1;
  else if (mode == kGra) factor = rt::Atn(1) * 4 / 200;
  else factor = rt::Atn(1) * 4 / 180;
}

void CalculatorEngine::Command50_Click() {
  guarded(50, [&] {
    if (angulo == kDeg) setAngleMode(kGra);
    else if (angulo == kGra) setAngleMode(kRad);
    else setAngleMode(kDeg);
    func = Res(4577) + QLatin1Char(' ') + angulo;
    Command69_Click();
  });
}

bool CalculatorEngine::toAngleUnit(int index) {
  if (holdsDegreeText() && !parseDegreeText()) return false;
  double t = value();
  numeroTag = t;
  const QString target = keyCaption(QStringLiteral("Command59"), index);
  if (target != angulo) {
    const double p = pi();
    if (target == kDeg) t = angulo == kRad ? t * 180 / p : t * 180 / 200;
    else if (target == kRad) t = angulo == kDeg ? t * p / 180 : t * p / 200;
    else t = angulo == kRad ? t * 200 / p : t * 200 / 180;
  }
  numeroTag = rt::checkFinite(t);
  result = rt::NumberToText(numeroTag) + QLatin1Char(' ') + target;
  addHistoryValue(result);
  return true;
}

void CalculatorEngine::Command59_Click(int index) {
  if (index < 0 || index > 2) return;
  guarded(59, [&] {
    if (toAngleUnit(index)) entryActive = 0;
  });
}

// ---- Degree texts ----------------------------------------------------------------------

void CalculatorEngine::Command58_Click() {
  guarded(58, [&] {
    if (angulo == kRad) {
      reportFailure(25);
      return;
    }
    if (entryActive == 0) return;
    const QString s = numero;
    if (const qsizetype at = s.indexOf(kSecond); at >= 0) {
      numero = s.left(at + kSecond.size());  // nothing follows the seconds
    } else if (!s.contains(kDegree)) {
      numero = s + kDegree;
    } else if (!s.contains(kMinute)) {
      if (!s.endsWith(kDegree)) numero = s + kMinute;
    } else if (!s.endsWith(kMinute)) {
      numero = s + kSecond;
    }
  });
}

bool CalculatorEngine::parseDegreeText() {
  const QString s = numero;
  if (s.contains(program().DecimalSymbol.toText())) {
    reportFailure(1);
    return false;
  }
  if (angulo == kRad) {
    reportFailure(25);
    return false;
  }
  // Degrees, minutes and seconds are read one after the other; each part
  // starts one character (its mark) after the digits of the one before.
  const double a = rt::Val(s);
  const QString afterDegrees = s.mid(rt::NumberToText(a).size() + 1);
  const double b = rt::Val(afterDegrees);
  const QString afterMinutes = afterDegrees.mid(rt::NumberToText(b).size() + 1);
  const double c = rt::Val(afterMinutes);
  const bool gra = angulo == kGra;
  const double v = gra ? a + (b + c / 100) / 100 : a + (b + c / 60) / 60;
  result = rt::NumberToText(v);
  numero = result.text();
  result = s + (gra ? QStringLiteral("  (gra)") : QStringLiteral("  (deg)"));
  entryActive = 0;
  return true;
}

void CalculatorEngine::Command65_Click() {
  guarded(65, [&] { parseDegreeText(); });
}

void CalculatorEngine::Command66_Click() {
  guarded(66, [&] {
    func = keyCaption(QStringLiteral("Command66"));
    Command69_Click();
    if (!toAngleUnit(0)) return;
    const double t = numeroTag;
    const double degrees = rt::Fix(t);
    const double minutes = rt::Fix(60 * (t - degrees));
    const double seconds = 60 * (60 * (t - degrees) - minutes);
    result = rt::NumberToText(degrees) + kDegree + QStringLiteral("  ") + rt::NumberToText(minutes) +
             QStringLiteral("'  ") + rt::Format(seconds, QStringLiteral("00")) + QStringLiteral("''  (deg)");
    addHistoryValue(result);
    entryActive = 0;
  });
}

void CalculatorEngine::Command67_Click() {
  guarded(67, [&] {
    if (holdsDegreeText() && !parseDegreeText()) return;
    func = Res(4578);
    Command69_Click();
    if (!toAngleUnit(0)) return;
    const double t = numeroTag;
    if (t < 360) {
      reportFailure(39);
      return;
    }
    // Whole turns are counted on the angle rounded to a 32-bit integer, so
    // 719.5 (rounded to 720) gives -0.5.
    const double turns = rt::IntDiv(rt::CLng(t), 360);
    result = rt::NumberToText(t - 360 * turns) + kDegree + QStringLiteral(" (deg)");
    addHistoryValue(result);
    entryActive = 0;
  });
}

// ---- Number bases ------------------------------------------------------------------------

void CalculatorEngine::Command9_Click(int index) {
  if (index < 0 || index > 3) return;
  guarded(9, [&] {
    func = keyCaption(QStringLiteral("Command9"), index);
    Command69_Click();
    const double x = value();
    QString digits;
    switch (index) {
      case 0: digits = rt::NumberToText(x); break;
      case 1: digits = rt::Hex(x); break;
      case 2: digits = rt::Oct(x); break;
      default: digits = binaryText(rt::CLng(x)); break;
    }
    static const int kNames[] = {4524, 4525, 4526, 4527};
    result = digits + QStringLiteral("  (") + Res(kNames[index]) + QLatin1Char(')');
    addHistoryValue(digits);
    entryActive = 0;
  });
}

int CalculatorEngine::askBase(int textId, int tooltipId) {
  MBoxShow(0, Res(textId), 5, 3, 0, QStringLiteral("Calvix  -  ") + Res(tooltipId));
  const ProgramState& p = program();
  if (p.MessageResult != 0) return 0;  // cancelled: nothing changes
  const QString answer = p.MessageValue.toText();
  const double base = rt::Val(answer);
  if (answer.contains(QLatin1Char('.')) || answer.contains(QLatin1Char(',')) || base < 2 || base > 9) {
    reportFailure(26);
    return -1;
  }
  return static_cast<int>(base);
}

void CalculatorEngine::Command91_Click() {
  guarded(91, [&] {
    func = keyCaption(QStringLiteral("Command91"));
    Command69_Click();
    const double x = rt::Abs(rt::Fix(value()));
    program().MessageDefault = rt::Variant::dbl(x);
    const int base = askBase(4528, keyTooltipId(QStringLiteral("Command91")));
    if (base <= 0) return;
    result = toBase(x, base) + QStringLiteral("  (") + Res(4530) + QLatin1Char(' ') + QString::number(base) +
             QLatin1Char(')');
    addHistoryValue(result);
    entryActive = 0;
  });
}

void CalculatorEngine::Command92_Click() {
  guarded(92, [&] {
    func = keyCaption(QStringLiteral("Command92"));
    Command69_Click();
    const int base = askBase(4529, keyTooltipId(QStringLiteral("Command92")));
    if (base <= 0) return;
    const QString source = numero;
    const auto length = static_cast<double>(source.size());
    double sum = 0;
    for (qsizetype i = 0; i < source.size(); ++i) {
      // Each character is read as a digit; signs and marks count as 0.
      const QChar c = source.at(i);
      const int digit = c.isDigit() ? c.digitValue() : 0;
      if (digit >= base) {
        reportFailure(27);
        result = result.text() + QLatin1Char(' ') + QString::number(base);
        return;
      }
      sum += digit * power(base, length - static_cast<double>(i + 1));
    }
    result = source + QStringLiteral("  (") + Res(4530) + QString::number(base) + QLatin1Char(')') + Res(4531) +
             rt::NumberToText(rt::checkFinite(sum));
    addHistoryValue(result);
    entryActive = 0;
  });
}
