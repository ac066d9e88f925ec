#include "calc/CalculatorEngine.h"

#include <cmath>
#include <QRegularExpression>
#include <exception>

#include "calc/CalculatorKeyMap.h"
#include "calc/CalculatorKeypad.h"
#include "calc/CalculatorMenus.h"
#include "shell/ErrorReport.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

const QString kGeneralNumber = QStringLiteral("General Number");
const QString kZero = QStringLiteral("0");

// The failure sounds of the error cycle.
void playSound(int sound) {
  program().MessageSound = static_cast<std::int16_t>(sound);
  PlayMessageSound();
}

}  // namespace

const QString CalculatorEngine::kPower = QStringLiteral("x^y");

CalculatorEngine::CalculatorEngine() : CalculatorEngine(HistoryPadding{32, 32}) {}

CalculatorEngine::CalculatorEngine(HistoryPadding padding) : padding_(padding) {
  numero.onChange([this] { numero_Change(); });
  Form_Load();
}

QString CalculatorEngine::operatorName(int index) {
  switch (index) {
    case 0: return QStringLiteral("x");
    case 1: return QStringLiteral("+");
    case 2: return QStringLiteral("--");
    case 3: return QStringLiteral("/");
    default: return {};
  }
}

int CalculatorEngine::helpTopic(int controlNumber) { return 20000 + controlNumber; }

// ---- Window events -----------------------------------------------------------

void CalculatorEngine::Form_Load() {
  ProgramState& p = program();
  errorPrefix = Res(2800).left(3);
  p.MainMenuTitle = QStringLiteral("VelozCalc");
  angulo = QStringLiteral("deg");
  p.angleFactor = rt::Atn(1) * 4 / 180;
  temperat = QStringLiteral("Celsius");
  displayFormat = kGeneralNumber;
  notationFormat.clear();
  numberPrefix.clear();
  hypFlag.clear();
  dcm = QStringLiteral("15");
  redond = QStringLiteral("2");
  numero = kZero;
  accumulator = rt::Variant::integer(0);
  result = kZero;
  entryActive = 0;
  errorState = 0;
  HexDec = QStringLiteral("DEC");
  p.CalculatorMode = QStringLiteral("avanzada");
  if (p.VatRate.isEmpty()) p.VatRate = 16.0;
  ivas = p.VatRate.toText() + QStringLiteral(" %");
  p.randomBase = 100;
  hexKeysVisible = false;
  image3Failure = false;
  Frame2Visible = false;
  numeroTag = 0;
  writeCurrencyCaptions();
  loadMemories();
  writeRegisterTooltips();
  // Linear again: the question about discarded pairs comes back.
  regType = 0;
  p.stats.regAskedOnce = 0;
  regTypeNames = {Res(4201), Res(4202), Res(4203)};
}

void CalculatorEngine::Form_Activate() {
  angulo = QStringLiteral("deg");
  program().angleFactor = rt::Atn(1) * 4 / 180;
  writeCurrencyCaptions();
  writeRegisterTooltips();
}

void CalculatorEngine::Form_Unload() {
  program().helpCursor = false;
  program().stats.clearAll();
}

QString CalculatorEngine::historyStatus() const {
  return QString::number(Combo1.count()) + QLatin1Char(' ') + Res(4586);
}

QString CalculatorEngine::currencyStatus() const {
  const ProgramState& p = program();
  return QStringLiteral("1 ") + p.Currency1.toText() + QStringLiteral(" = ") + p.ExchangeRate.toText() +
         QLatin1Char(' ') + p.Currency2.toText();
}

// ---- Shared pieces -------------------------------------------------------------

void CalculatorEngine::guarded(int controlNumber, const std::function<void()>& body) {
  if (helpInstead(helpTopic(controlNumber))) return;
  try {
    body();
  } catch (const rt::RuntimeError&) {
    unexpectedFailure();
  } catch (const std::exception&) {
    unexpectedFailure();
  }
}

double CalculatorEngine::value() const { return rt::TextToDouble(numero); }

void CalculatorEngine::clearErrorLine() {
  if (result.text().left(3) == errorPrefix) result = kZero;
}

void CalculatorEngine::enterDigit(const QString& digit) {
  clearErrorLine();
  if (entryActive != 0 && numero.text() != kZero) {
    numero = numero.text() + digit;
  } else {
    numero = numberPrefix + digit;
    entryActive = 1;
  }
}

bool CalculatorEngine::isPendingOperator() const {
  for (int i = 0; i < 4; ++i) {
    if (pendingOp == operatorName(i)) return true;
  }
  return pendingOp == kPower;
}

// value(numero) op accumulator: the right operand is always a 64-bit float, the
// accumulator stands on the left of quotient, difference and power.
rt::Variant CalculatorEngine::applyPending(double right) const {
  const rt::Variant r = rt::Variant::dbl(right);
  if (pendingOp == operatorName(0)) return r * accumulator;
  if (pendingOp == operatorName(1)) return r + accumulator;
  if (pendingOp == operatorName(2)) return accumulator - r;
  if (pendingOp == operatorName(3)) return accumulator / r;
  return rt::power(accumulator, r);
}

// The common steps of the operator keys. chainAny: every pending operator
// evaluates first (Command13); otherwise only a pending power does and any
// other is dropped (Command14).
void CalculatorEngine::chainOperator(const QString& name, bool chainAny) {
  clearErrorLine();
  const bool evaluate = chainAny ? isPendingOperator() : pendingOp == kPower;
  if (evaluate) {
    const rt::Variant answer = applyPending(value());
    result = rt::NumberToText(answer.toDouble());
    accumulator = answer;
    numero = result.text();
    Command90_Click();
  } else {
    accumulator = rt::Variant(numero.text());  // the text as it stands
    numero = kZero;
  }
  pendingOp = name;
  func = pendingOp;
  Command69_Click();
  entryActive = 0;
}

bool CalculatorEngine::smallWholeNumber(double v) { return v == rt::Int(v) && v >= 0 && v <= 15; }

// ---- Entry keys ------------------------------------------------------------------

void CalculatorEngine::Command1_Click(int index) {
  guarded(1, [&] {
    enterDigit(QString::number(index));
    focusRequest = QStringLiteral("Command19");
  });
}

void CalculatorEngine::Command30_Click(int index) {
  guarded(30, [&] {
    if (numberPrefix.isEmpty() || index < 0 || index > 5) return;
    enterDigit(QString(QChar(u'A' + index)));
    focusRequest = QStringLiteral("Command19");
  });
}

void CalculatorEngine::Command11_Click() {
  guarded(11, [&] {
    clearErrorLine();
    const QString separator = program().DecimalSymbol.toText();
    if (numero.text().contains(separator)) return;
    if (entryActive == 0) {
      numero = kZero;
      entryActive = 1;
    }
    numero = numero.text() + separator;
  });
}

void CalculatorEngine::Command12_Click() {
  guarded(12, [&] {
    func = QStringLiteral("\u00B1");
    Command69_Click();
    clearErrorLine();
    if (numero.text().endsWith(QLatin1Char('E'))) {
      numero = numero.text() + QLatin1Char('-');
      return;
    }
    // Written back as a number: the sign key normalises the entry.
    const double x = value();
    if (x > 0) numero = rt::NumberToText(-x);
    else if (x < 0) numero = rt::NumberToText(rt::Abs(x));
  });
}

void CalculatorEngine::Command47_Click() {
  guarded(47, [&] {
    if (numero.text().contains(QLatin1Char('E'))) return;
    if (entryActive == 0) numero = kZero;
    if (value() != 0) numero = numero.text() + QLatin1Char('E');
    else numero = kZero;
  });
}

void CalculatorEngine::Command31_Click() {
  guarded(31, [&] {
    if (numero.text().size() == 1) {
      numero = kZero;
    } else {
      func = Res(4602);
      Command69_Click();
      numero = numero.text().chopped(1);
    }
    entryActive = 1;
  });
}

void CalculatorEngine::Command17_Click() {
  guarded(17, [&] {
    numero = kZero;
    func = Res(4572);
    Command69_Click();
  });
}

void CalculatorEngine::Command18_Click() {
  if (helpInstead(helpTopic(18))) return;
  func = Res(4573);
  Command69_Click();
  pendingOp.clear();
  numero = kZero;
  switch (errorState) {
    case 1:
      image3Failure = true;
      result = ErrorText(31);
      playSound(1);
      break;
    case 2:
      image3Failure = true;
      playSound(3);
      break;
    default:  // 0, and 3 once the message has been read
      image3Failure = false;
      result = kZero;
      break;
  }
  if (errorState != 0) errorState = 3;
}

// ---- Operators and equals ---------------------------------------------------------

void CalculatorEngine::Command13_Click(int index) {
  guarded(13, [&] { chainOperator(operatorName(index), true); });
}

void CalculatorEngine::Command14_Click() {
  guarded(14, [&] { chainOperator(kPower, false); });
}

void CalculatorEngine::Command19_Click() {
  guarded(19, [&] {
    // A previous answer survives only when its text is exactly what Str makes
    // of it: a negative answer stays, a positive one (no leading blank) goes.
    const double r = rt::Val(result);
    if (rt::Str(r) != result.text()) result = kZero;
    if (rt::Val(result) == 0) result = numero.text();
    clearErrorLine();
    if (isPendingOperator()) result = rt::NumberToText(applyPending(value()).toDouble());
    func = QStringLiteral("=");
    Command69_Click();
    numero = result.text();
    entryActive = 0;
    Command90_Click();
    pendingOp.clear();
  });
}

// ---- Display formats ----------------------------------------------------------------

void CalculatorEngine::Command90_Click() {
  if (displayFormat != kGeneralNumber) {
    const double x = value();
    const double a = rt::Abs(x);
    if (x == 0) {
      numero = kZero;
    } else if (a < 10000 && a >= 1e-5) {
      // Formatting the outcome again drops a dangling separator ("3." -> "3").
      const QString shown = rt::Format(rt::Variant(numero.text()), displayFormat);
      numero = rt::Format(rt::Variant(shown), kGeneralNumber);
    } else {
      notationFormat = displayFormat + (a < 1e-5 ? QStringLiteral("E-###") : QStringLiteral("E+###"));
      numero = rt::Format(rt::Variant(numero.text()), notationFormat);
    }
  }
  focusRequest = QStringLiteral("Command19");
}

void CalculatorEngine::Command61_Click() {
  guarded(61, [&] {
    func = QStringLiteral("SET");
    Command69_Click();
    const double v = value();
    if (smallWholeNumber(v)) {
      const int n = static_cast<int>(v);
      dcm = QString::number(n);
      displayFormat = QStringLiteral("0.") + QString(n, QLatin1Char('#'));
    }
    entryActive = 0;
  });
}

void CalculatorEngine::Command32_Click() {
  guarded(32, [&] {
    func = Res(4224);
    Command69_Click();
    const double v = value();
    if (smallWholeNumber(v)) redond = QString::number(static_cast<int>(v));
    entryActive = 0;
  });
}

void CalculatorEngine::Command35_Click() {
  guarded(35, [&] {
    func = Res(4228);
    Command69_Click();
    const double rounded = rt::Round(value(), rt::CInt(rt::TextToDouble(redond)));
    result = rt::NumberToText(rounded);
    numero = result.text();
    Command90_Click();
    entryActive = 0;
  });
}

void CalculatorEngine::Command20_Click() {
  guarded(20, [&] {
    func = Res(4716);
    Command69_Click();
    const double x = value();
    const QString t = rt::NumberToText(rt::Abs(x));
    const QString separator = program().DecimalSymbol.toText();
    const qsizetype e = t.indexOf(QLatin1Char('E'));
    qsizetype n = e < 0 ? t.size() : e;
    if (t.startsWith(QStringLiteral("0") + separator)) {
      --n;
      for (qsizetype i = 1 + separator.size(); i < t.size() && t.at(i) == QLatin1Char('0'); ++i) --n;
    }
    // Trailing zeros of a whole number carry no digits of their own.
    const double a = rt::TextToDouble(t);
    for (qsizetype i = 1; i <= t.size(); ++i) {
      const double q = a / std::pow(10.0, static_cast<double>(i));
      if (q == rt::Int(q)) --n;
    }
    QString pattern;
    if (n < 3) pattern = QStringLiteral("00");
    else if (n > 9) pattern = QString(10, QLatin1Char('0'));
    else pattern = QString(n - 1, QLatin1Char('0'));
    result = rt::Format(x, QStringLiteral("0.") + pattern + QStringLiteral("e+00"));
    addHistoryValue(result);
    entryActive = 0;
  });
}

void CalculatorEngine::Command22_Click() {
  guarded(22, [&] {
    if (HexDec == QLatin1String("DEC")) {
      HexDec = QStringLiteral("HEX");
      func = Res(4428);
      numberPrefix = QStringLiteral("&h");
      hexKeysVisible = true;
    } else {
      HexDec = QStringLiteral("DEC");
      func = Res(4429);
      numberPrefix.clear();
      hexKeysVisible = false;
    }
    numero = kZero;
    entryActive = 0;
  });
}

// ---- Failure paths -------------------------------------------------------------------

void CalculatorEngine::reportFailure(int code) {
  errorCode = code;
  result = ErrorText(code);
  numero = kZero;
  errorState = 2;
  Command18_Click();
}

void CalculatorEngine::unexpectedFailure() {
  errorCode = 31;
  result = kZero;
  numero = kZero;
  errorState = 1;
  Command18_Click();
}

// ---- Entry points ------------------------------------------------------------------------

bool CalculatorEngine::click(const QString& control, int index) {
  if (const KeypadKey* key = findKey(control, index)) {
    key->press(*this, index);
    return true;
  }
  if (const MenuItem* item = findMenuItem(control, index)) {
    item->press(*this, index);
    return true;
  }
  return false;
}

bool CalculatorEngine::keyPress(QChar c) {
  const KeyAction a = typedKeyAction(c);
  switch (a.kind) {
    case KeyAction::Kind::KeyboardDigit:
      // The keyboard's digit path: the digit rule, the focus stays where it is.
      guarded(1, [&] { enterDigit(QString::number(a.digit)); });
      return true;
    case KeyAction::Kind::Click: return click(a.control, a.index);
    default: return false;
  }
}

bool CalculatorEngine::keyDown(int key, Qt::KeyboardModifiers modifiers) {
  const KeyAction a = heldKeyAction(key, modifiers);
  switch (a.kind) {
    case KeyAction::Kind::Stop: stopRequested = true; return true;
    case KeyAction::Kind::ContextMenu: contextMenuRequested = true; return true;
    case KeyAction::Kind::Click: return click(a.control, a.index);
    default: return false;
  }
}

bool CalculatorEngine::pasteNumber(const QString& text) {
  static const QRegularExpression number(
      QStringLiteral("^\\s*([+-]?)(\\d*)(?:([.,])(\\d*))?(?:[eE]([+-]?)(\\d+))?\\s*$"));
  const QRegularExpressionMatch m = number.match(text);
  if (!m.hasMatch() || (m.captured(2).isEmpty() && m.captured(4).isEmpty())) return false;
  QString keys = m.captured(2);
  if (m.hasCaptured(3)) keys += QLatin1Char('.') + m.captured(4);
  if (m.hasCaptured(6)) {
    keys += QLatin1Char('E');
    if (m.captured(5) == QLatin1String("-")) keys += QLatin1Char('<');
    keys += m.captured(6);
  }
  // The sign last: the sign key writes the whole entry back as a number.
  if (m.captured(1) == QLatin1String("-")) keys += QLatin1Char('<');
  for (QChar c : std::as_const(keys)) typeCharacter(c);
  return true;
}

bool CalculatorEngine::typeCharacter(QChar c) {
  const bool held = keyDown(keyCodeOf(c));
  const bool typed = keyPress(c);
  return held || typed;
}
