// The complex-number keys and the number tools of the calculator. Each key
// shows its name in func, writes a history line, checks the value of numero
// (reported failures with their own codes) and leaves its answer in result,
// and in numero where the answer is one number. The arithmetic is in
// NumberTools.h and ComplexNumbers.h; the texts and the dialogues are here.
//
// Two-press dialogues (complex entry, quotient and remainder) keep their step
// and first value in `dialogue`: each press takes the value of numero; a
// press of another dialogue key starts afresh, and the clear key ends any.
#include <QStringList>
#include <cmath>
#include <memory>

#include "calc/CalculatorEngine.h"
#include "calc/ComplexNumbers.h"
#include "calc/NumberTools.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/Random.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

const QString kEightDecimals = QStringLiteral("0.00000000");

// Whole numbers are shown by the runtime's number-to-text rule, like any
// other answer (15 significant digits, exponent form from 10^15).
QString whole(std::int64_t n) { return rt::NumberToText(static_cast<double>(n)); }

QString eightDecimals(double v) { return rt::Format(rt::Variant::dbl(v), kEightDecimals); }

// A digit string, with one leading "-" allowed when signed.
bool plainDigits(const QString& text, bool allowSign) {
  if (text.isEmpty()) return false;
  qsizetype i = allowSign && text.startsWith(QLatin1Char('-')) ? 1 : 0;
  if (i == text.size()) return false;
  for (; i < text.size(); ++i) {
    if (!text.at(i).isDigit()) return false;
  }
  return true;
}

// A digit string read as a whole number; more digits than 64 bits hold is an
// overflow, as it was when the digits were read as one number.
std::int64_t digitsNumber(const QString& text) {
  bool ok = false;
  const qlonglong v = text.toLongLong(&ok);
  if (!ok) throw rt::RuntimeError(6);
  return v;
}

// The bound typed into a box of the listing; false when it is not a whole
// number from 0 up.
bool listingBound(const QString& text, std::int64_t& n) {
  const QString trimmed = text.trimmed();
  if (!plainDigits(trimmed, false) || trimmed.size() > 15) return false;
  n = trimmed.toLongLong();
  return true;
}

// Asks one box of the dialogue; false when it was cancelled.
bool askDigits(int promptId, int titleId, QString& answer) {
  ProgramState& p = program();
  p.MessageDefault = QString();
  MBoxShow(0, Res(promptId) + QStringLiteral("\r\n") + Res(4444), 5, 3, 0, QStringLiteral("Calvix  -  ") + Res(titleId));
  if (p.MessageResult != 0) return false;
  answer = p.MessageValue.toText().trimmed();
  return true;
}

}  // namespace

// ---- Shared checks ---------------------------------------------------------------

bool CalculatorEngine::readWholeNumber(std::int64_t& n, bool zeroAllowed) {
  const QString text = numero.text();
  double v = 0;
  try {
    v = rt::TextToDouble(text);
  } catch (const rt::RuntimeError&) {
    reportFailure(29);
    return false;
  }
  if (v < 0 || (v == 0 && !zeroAllowed)) {
    reportFailure(18);
    return false;
  }
  if (text.contains(QLatin1Char('E'), Qt::CaseInsensitive)) {
    reportFailure(30);
    return false;
  }
  if (v != rt::Int(v)) {
    reportFailure(6);
    return false;
  }
  if (v > static_cast<double>(numtools::kLargestWhole)) {
    reportFailure(8);
    return false;
  }
  n = static_cast<std::int64_t>(v);
  return true;
}

bool CalculatorEngine::readNumberPair(std::int64_t& a, std::int64_t& b, int noSeparatorCode) {
  const QString text = numero.text();
  const QString separator = program().DecimalSymbol.toText();
  const qsizetype at = text.indexOf(separator);
  if (noSeparatorCode != 0 && at < 0) {
    reportFailure(noSeparatorCode);
    return false;
  }
  if (text.contains(QLatin1Char('E'), Qt::CaseInsensitive)) {
    reportFailure(30);
    return false;
  }
  const QString left = at < 0 ? text : text.left(at);
  const QString right = at < 0 ? QStringLiteral("0") : text.mid(at + separator.size());
  if (!plainDigits(left, true) || !plainDigits(right, false)) {
    reportFailure(29);
    return false;
  }
  a = digitsNumber(left);
  b = digitsNumber(right);
  return true;
}

// One press of a two-value dialogue: func shows the title and the prompt of
// the value taken, result echoes it. True once the last value is in.
bool CalculatorEngine::dialoguePress(const QString& key, const QString& title, const QStringList& prompts,
                                     const QStringList& echoes, const QString& unit) {
  if (dialogue.key != key) dialogue = {key, 0, {}};
  const int step = dialogue.step;
  func = title + prompts.at(step);
  Command69_Click();
  const double v = value();
  dialogue.values[static_cast<size_t>(step)] = v;
  result = echoes.at(step) + rt::NumberToText(v) + unit;
  entryActive = 0;
  if (step + 1 < prompts.size()) {
    dialogue.step = step + 1;
    return false;
  }
  dialogue = {};
  return true;
}

void CalculatorEngine::endDialogue() { dialogue = {}; }

// ---- Complex numbers ---------------------------------------------------------------

void CalculatorEngine::Command73_Click() {
  guarded(73, [&] {
    const QStringList prompts{QStringLiteral(": m   (^)"), QStringLiteral(": \u00D8   (^)")};
    const QStringList echoes{QStringLiteral("m = "), QStringLiteral("\u00D8 = ")};
    const int step = dialogue.key == QLatin1String("Command73") ? dialogue.step : 0;
    // The angle is echoed with its degree sign; m has no unit.
    const QString unit = step == 1 ? QStringLiteral(" \u00B0") : QString();
    const double m = dialogue.values[0];
    if (!dialoguePress(QStringLiteral("Command73"), Res(4582), prompts, echoes, unit)) return;
    const complexnum::Rectangular r = complexnum::toRectangular({m, value()});
    addViewerLine(Res(4521), QString());
    addViewerLine(Res(4582) + QStringLiteral(": x"), QStringLiteral("x = ") + eightDecimals(r.x));
    addViewerLine(Res(4582) + QStringLiteral(": y"), QStringLiteral("y = ") + eightDecimals(r.y) + QStringLiteral(" i"));
    viewerPanelRequested = true;
    result = QStringLiteral("x = ") + rt::NumberToText(r.x) + QStringLiteral(";  y = ") + rt::NumberToText(r.y) +
             QStringLiteral(" i");
    numero = rt::NumberToText(r.x);
    entryActive = 0;
  });
}

void CalculatorEngine::Command98_Click() {
  guarded(98, [&] {
    const QStringList prompts{QStringLiteral(": x   (^)"), QStringLiteral(": y   (^)")};
    const QStringList echoes{QStringLiteral("x = "), QStringLiteral("y = ")};
    const double x = dialogue.values[0];
    if (!dialoguePress(QStringLiteral("Command98"), Res(4582), prompts, echoes, QString())) return;
    const complexnum::Polar p = complexnum::toPolar({x, value()});
    addViewerLine(Res(4522), QString());
    addViewerLine(Res(4582) + QStringLiteral(": m"), QStringLiteral("m = ") + eightDecimals(p.m));
    addViewerLine(Res(4582) + QStringLiteral(": \u00D8"),
                  QStringLiteral("\u00D8 = ") + eightDecimals(p.angle) + QStringLiteral(" \u00B0"));
    viewerPanelRequested = true;
    result = QStringLiteral("m = ") + rt::NumberToText(p.m) + QStringLiteral(";  \u00D8 = ") +
             rt::NumberToText(p.angle) + QStringLiteral(" \u00B0");
    numero = rt::NumberToText(p.m);
    entryActive = 0;
  });
}

// ---- Primes ----------------------------------------------------------------------------

void CalculatorEngine::Command93_Click(int index) {
  if (index == 1) {
    guarded(93, [&] { listPrimes(); });
    return;
  }
  guarded(93, [&] {
    func = Res(4296);
    Command69_Click();
    std::int64_t n = 0;
    if (!readWholeNumber(n, false)) return;
    result = whole(n) + QStringLiteral("   ") + Res(4532) + QStringLiteral("  ") + Res(numtools::isPrime(n) ? 57 : 58);
    entryActive = 0;
  });
}

void CalculatorEngine::listPrimes() {
  func = Res(4297);
  Command69_Click();
  ProgramState& p = program();
  p.MessageDefault = numero.text();
  MBoxShow(0, Res(4533) + QStringLiteral("\r\n") + Res(4535), 5, 3, 0, Res(4534));
  if (p.MessageResult != 0) return;
  const QString first = p.MessageValue.toText();
  p.MessageDefault = QStringLiteral("1000");
  MBoxShow(0, Res(4537) + QStringLiteral("\r\n") + Res(4535), 5, 3, 0, Res(4536));
  if (p.MessageResult != 0) return;
  const QString last = p.MessageValue.toText();
  std::int64_t from = 0;
  std::int64_t to = 0;
  if (!listingBound(first, from) || !listingBound(last, to) || from > to) {
    reportFailure(28);
    return;
  }
  if (to > kPrimeListLimit) {
    reportFailure(8);
    return;
  }
  if (to - from > kPrimeListWarning) {
    MBoxShow(3, Res(4538) + QStringLiteral("\r\n") + Res(4539), 3, 6, 0, Res(4297));
    if (p.MessageResult != 0) return;
  }
  stopRequested = false;
  listingRunning = true;
  // Cleared however the listing ends.
  const std::unique_ptr<bool, void (*)(bool*)> running(&listingRunning, [](bool* b) { *b = false; });
  viewerPanelRequested = true;
  addViewerLine(Res(4540), QString());
  addViewerLine(Res(4541), whole(from));
  addViewerLine(Res(4542), whole(to));
  bool full = false;
  std::int64_t count = 0;
  const std::int64_t span = to - from + 1;
  numtools::segmentedPrimes(
      from, to,
      [&](std::int64_t prime) {
        if (List3.size() >= kViewerCapacity) {
          full = true;
          return false;
        }
        ++count;
        addViewerLine(whole(count), whole(prime));
        return true;
      },
      [&](std::int64_t done) {
        if (listingProgress) listingProgress(static_cast<int>(done * 100 / span));
        return !stopRequested;
      });
  if (full) MBoxShow(0, Res(4545), 2, 0, 0, Res(4297));
  addViewerLine(Res(4544), whole(count));
  result = Res(4544) + QLatin1Char(' ') + whole(count);
  entryActive = 0;
}

void CalculatorEngine::Command45_Click() {
  guarded(45, [&] {
    func = Res(4241);
    Command69_Click();
    std::int64_t n = 0;
    if (!readWholeNumber(n, false)) return;
    addViewerLine(Res(4467), whole(n));
    QStringList terms;
    const auto factors = numtools::factorise(n);
    for (const auto& [factor, exponent] : factors) {
      addViewerLine(whole(factor), QStringLiteral("(^) ") + QString::number(exponent));
      terms << (exponent > 1 ? whole(factor) + QLatin1Char('^') + QString::number(exponent) : whole(factor));
    }
    if (factors.empty()) {
      addViewerLine(QStringLiteral("1"), QStringLiteral("(^) 1"));
      terms << QStringLiteral("1");
    }
    viewerPanelRequested = true;
    result = whole(n) + QStringLiteral(" = ") + terms.join(QStringLiteral(" x "));
    entryActive = 0;
  });
}

// ---- Two numbers in one entry ------------------------------------------------------

void CalculatorEngine::Command95_Click() {
  guarded(95, [&] {
    func = Res(4299);
    Command69_Click();
    std::int64_t a = 0;
    std::int64_t b = 0;
    if (!readNumberPair(a, b, 0)) return;
    if (a <= 0 || b <= 0) {
      reportFailure(18);
      return;
    }
    const std::int64_t g = numtools::gcd(a, b);
    // a*b/gcd as a double: the lcm of two large numbers may leave 64 bits.
    const double lcm = rt::checkFinite(static_cast<double>(a / g) * static_cast<double>(b));
    const QString pair = whole(a) + QStringLiteral(", ") + whole(b);
    result = QStringLiteral("M.C.D. (") + pair + QStringLiteral(") = ") + whole(g) + QStringLiteral("\r\n") +
             QStringLiteral("m.c.m. (") + pair + QStringLiteral(") = ") + rt::NumberToText(lcm);
    addHistoryValue(whole(g) + QStringLiteral(" (M.C.D)"));
    addHistoryValue(rt::NumberToText(lcm) + QStringLiteral(" (m.c.m)"));
    entryActive = 0;
  });
}

void CalculatorEngine::Command96_Click() {
  guarded(96, [&] {
    func = Res(4300);
    Command69_Click();
    std::int64_t a = 0;
    std::int64_t b = 0;
    if (!readNumberPair(a, b, 0)) return;
    if (b == 0) {
      reportFailure(18);
      return;
    }
    const numtools::Fraction f = numtools::reduce({a, b});
    result = Res(4546) + QStringLiteral("\r\n(") + whole(a) + QStringLiteral(" / ") + whole(b) +
             QStringLiteral(") = (") + whole(f.numerator) + QStringLiteral(" / ") + whole(f.denominator) +
             QLatin1Char(')');
    addHistoryValue(whole(f.numerator) + QStringLiteral(" / ") + whole(f.denominator));
    entryActive = 0;
  });
}

void CalculatorEngine::Command56_Click(int index) {
  guarded(56, [&] {
    if (index < 0 || index > 3) return;
    func = Res(4253 + index);
    Command69_Click();
    std::int64_t m = 0;
    std::int64_t n = 0;
    if (!readNumberPair(m, n, 55)) return;
    if (m <= 0) {
      reportFailure(37);
      return;
    }
    if (n > m) {
      reportFailure(38);
      return;
    }
    showAnswer(numtools::variationsOrCombinations(index, m, n), true);
  });
}

// ---- Generating fraction ---------------------------------------------------------------

void CalculatorEngine::Command27_Click() {
  guarded(27, [&] {
    func = Res(4219);
    Command69_Click();
    ProgramState& p = program();
    p.MessageDefault = QStringLiteral("1");
    MBoxShow(0,
             Res(4436) + QStringLiteral("\r\n") + Res(4437) + QStringLiteral("\r\n") + Res(4438) +
                 QStringLiteral("\r\n") + Res(4439),
             5, 3, 0, QStringLiteral("Calvix  -  ") + Res(4219));
    if (p.MessageResult != 0) return;
    const QString typeText = p.MessageValue.toText().trimmed();
    if (typeText != QLatin1String("1") && typeText != QLatin1String("2") && typeText != QLatin1String("3")) {
      reportFailure(8);
      return;
    }
    const auto type = static_cast<numtools::DecimalType>(typeText.toInt());
    QString integer, decimals, period;
    if (!askDigits(4440, 4219, integer)) return;
    switch (type) {
      case numtools::DecimalType::Exact:
        if (!askDigits(4441, 4431, decimals)) return;
        break;
      case numtools::DecimalType::PurePeriodic:
        if (!askDigits(4442, 4432, period)) return;
        break;
      case numtools::DecimalType::MixedPeriodic:
        if (!askDigits(4443, 4433, decimals) || !askDigits(4442, 4433, period)) return;
        break;
    }
    const bool digitsOnly = plainDigits(integer, false) &&
                            (decimals.isEmpty() || plainDigits(decimals, false)) &&
                            (period.isEmpty() || plainDigits(period, false)) &&
                            (type == numtools::DecimalType::PurePeriodic || !decimals.isEmpty()) &&
                            (type == numtools::DecimalType::Exact || !period.isEmpty());
    if (!digitsOnly) {
      reportFailure(29);
      return;
    }
    const numtools::Fraction f = numtools::generatingFraction(type, integer, decimals, period);
    // The decimal as the user gave it: the period written three times.
    QString shown = integer + program().DecimalSymbol.toText() + decimals;
    if (!period.isEmpty()) shown += period.repeated(3) + QStringLiteral("...");
    result = shown + QStringLiteral("  =  ") + whole(f.numerator) + QStringLiteral(" / ") + whole(f.denominator);
    addHistoryValue(whole(f.numerator) + QStringLiteral(" / ") + whole(f.denominator));
    entryActive = 0;
  });
}

// ---- Quotient and remainder, Tartaglia ------------------------------------------------

void CalculatorEngine::Command44_Click() {
  guarded(44, [&] {
    const QStringList prompts{QStringLiteral(":  x   (^)"), QStringLiteral(":  y   (^)")};
    const QStringList echoes{QStringLiteral("x = "), QStringLiteral("y = ")};
    const int step = dialogue.key == QLatin1String("Command44") ? dialogue.step : 0;
    const double x = dialogue.values[0];
    if (!dialoguePress(QStringLiteral("Command44"), Res(step == 0 ? 4463 : 4464), prompts, echoes, QString())) return;
    const double y = value();
    // Int is the floor: -7 / 2 gives -4, remainder 1. A zero divisor is a
    // run-time failure.
    if (y == 0) throw rt::RuntimeError(11);
    const double q = rt::checkFinite(rt::Int(x / y));
    const double r = rt::checkFinite(x - q * y);
    func = Res(4240);
    result = Res(4465) + QStringLiteral(":  ") + QStringLiteral("Int(x / y) = ") + rt::NumberToText(q) +
             QStringLiteral("\r\n") + Res(4466) + QStringLiteral(":  ") + QStringLiteral("x - q*y = ") +
             rt::NumberToText(r);
    addHistoryValue(rt::NumberToText(q) + QStringLiteral(" (q)"));
    addHistoryValue(rt::NumberToText(r) + QStringLiteral(" (r)"));
    entryActive = 0;
  });
}

void CalculatorEngine::Command38_Click() {
  guarded(38, [&] {
    func = Res(4233) + QStringLiteral("   (^)");
    Command69_Click();
    std::int64_t n = 0;
    if (!readWholeNumber(n, true)) return;
    if (n > numtools::kTartagliaMax) {
      reportFailure(8);
      return;
    }
    const std::vector<double> line = numtools::tartagliaLine(static_cast<int>(n));
    QStringList numbers;
    for (double c : line) numbers << rt::NumberToText(c);
    const QString row = QLatin1Char('(') + numbers.join(QStringLiteral(",  ")) + QLatin1Char(')');
    addViewerLine(Res(4233), QStringLiteral("(a+b)^n         n = ") + whole(n));
    addViewerLine(Res(4449), row);
    for (size_t k = 0; k < line.size(); ++k) {
      const auto kk = static_cast<std::int64_t>(k);
      addViewerLine(Res(4450) + QLatin1Char(' ') + whole(kk + 1),
                    numbers.at(static_cast<qsizetype>(k)) + QStringLiteral(" a^") + whole(n - kk) +
                        QStringLiteral(" b^") + whole(kk));
    }
    addViewerLine(Res(4451), whole(static_cast<std::int64_t>(line.size())));
    viewerPanelRequested = true;
    result = row;
    entryActive = 0;
  });
}

// ---- Letters and codes ----------------------------------------------------------------

void CalculatorEngine::Command94_Click() {
  guarded(94, [&] {
    func = Res(4298);
    Command69_Click();
    std::int64_t n = 0;
    if (!readWholeNumber(n, true)) return;
    result = numero.text() + QLatin1Char(' ') + numtools::nifLetter(n) + QStringLiteral(" (NIF)");
    entryActive = 0;
  });
}

void CalculatorEngine::infoCard(const QString& digits) {
  guarded(83, [&] {
    if (digits.isEmpty()) {
      reportFailure(1);
      return;
    }
    if (!plainDigits(digits, false)) {
      result = Res(4589);
      return;
    }
    const numtools::CardCheck c = numtools::checkCard(digits);
    result = Res(c.nameId) + QLatin1Char(' ') + Res(c.valid ? 4600 : 4601);
  });
}

void CalculatorEngine::Command53_Click() {
  guarded(53, [&] {
    func = Res(4249);
    Command69_Click();
    if (numero.text().contains(QLatin1Char('E'), Qt::CaseInsensitive)) {
      reportFailure(30);
      return;
    }
    result = numero.text() + QStringLiteral("  =  ") + RomanNumeral(value()) + QStringLiteral(" (") + Res(4519) +
             QLatin1Char(')');
    entryActive = 0;
  });
}

void CalculatorEngine::Command51_Click() {
  guarded(51, [&] {
    func = Res(4516);
    Command69_Click();
    const float base = program().randomBase;
    rt::Randomize();
    const double draw = static_cast<double>(rt::Rnd()) * static_cast<double>(base);
    result = rt::Format(rt::Variant::dbl(draw), numtools::randomFormat(base));
    numero = result.text();
    entryActive = 0;
  });
}

void CalculatorEngine::Command51_RightClick() {
  guarded(51, [&] {
    ProgramState& p = program();
    p.MessageDefault = QStringLiteral("0.0");
    MBoxShow(0, Res(4518), 5, 3, 0, QStringLiteral("Calvix Premium  -  ") + Res(4517));
    if (p.MessageResult != 0) return;
    const QString answer = p.MessageValue.toText().trimmed();
    double base = 0;
    try {
      base = rt::TextToDouble(answer);
    } catch (const rt::RuntimeError&) {
      reportFailure(29);
      return;
    }
    if (base <= 0) {
      reportFailure(18);
      return;
    }
    p.randomBase = static_cast<float>(rt::checkFinite(base));
  });
}

// ---- Area, magnetic moment, ASCII table -------------------------------------------------

void CalculatorEngine::Command55_Click() {
  guarded(55, [&] {
    func = Res(4252);
    Command69_Click();
    const StatisticsStore& st = program().stats;
    if (st.nx == 0 || st.nx != st.ny) {
      reportFailure(22);
      return;
    }
    if (st.nx < 3) {
      reportFailure(36);
      return;
    }
    std::vector<double> x, y;
    for (int i = 1; i <= st.nx; ++i) {
      x.push_back(st.at(0, i));
      y.push_back(st.at(1, i));
    }
    showAnswer(numtools::polygonArea(x, y), true);
  });
}

void CalculatorEngine::Command41_Click() {
  guarded(41, [&] {
    func = QStringLiteral("\u00B5eff");
    Command69_Click();
    const double n = value();
    if (n < 0) {
      reportFailure(18);
      return;
    }
    const QString moment = rt::NumberToText(rt::checkFinite(numtools::magneticMoment(n)));
    numero = moment;
    result = moment + QStringLiteral("   (BM)");
    entryActive = 0;
  });
}

void CalculatorEngine::Command37_Click() {
  guarded(37, [&] {
    func = Res(4232);
    Command69_Click();
    QStringList lines;
    lines << Res(4447) + QLatin1Char('\t') + Res(4448);
    for (int code = 0; code <= 32; ++code) lines << QString::number(code) + QLatin1Char('\t') + Res(4475 + code);
    for (const numtools::AsciiRow& row : numtools::asciiTable()) {
      lines << QString::number(row.code) + QLatin1Char('\t') + row.shown;
    }
    textWindowTitle = Res(4515);
    textWindowText = lines.join(QStringLiteral("\r\n"));
    textWindowRequested = true;
    entryActive = 0;
  });
}

bool CalculatorEngine::rightClick(const QString& control, int index) {
  if (control == QLatin1String("Command51") && index < 0) {
    Command51_RightClick();
    return true;
  }
  if (control == QLatin1String("Command83")) {  // the expression field's function list
    Command83_RightClick();
    return true;
  }
  return false;
}
