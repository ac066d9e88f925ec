#include "shell/NumberText.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

#include "shell/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/RuntimeError.h"

namespace rt {

DecimalDigits significantDigits(double x, int precision) {
  DecimalDigits d;
  if (x == 0 || !std::isfinite(x)) {
    d.digits = QStringLiteral("0");
    return d;
  }
  // printf rounds correctly to the digits asked for; we only reshape its text.
  char buf[64];
  std::snprintf(buf, sizeof buf, "%.*e", precision - 1, x);
  const char* p = buf;
  if (*p == '-') {
    d.negative = true;
    ++p;
  }
  QString digits;
  digits.reserve(precision);
  for (; *p && *p != 'e'; ++p) {
    if (*p != '.') digits += QLatin1Char(*p);
  }
  if (*p == 'e') d.exponent = std::atoi(p + 1);
  while (digits.size() > 1 && digits.endsWith(QLatin1Char('0'))) digits.chop(1);
  d.digits = digits;
  return d;
}

namespace {

// Plain digits when the first digit's weight lies from 10^-4 up to below
// 10^precision; the exponent form outside, as the classic runtime writes
// "1E+15" and "1E-05".
QString layoutDigits(const DecimalDigits& d, int precision, QChar point) {
  QString out;
  if (d.negative) out += QLatin1Char('-');
  const int n = static_cast<int>(d.digits.size());
  if (d.exponent >= precision || d.exponent < -4) {
    out += d.digits.at(0);
    if (n > 1) {
      out += point;
      out += QStringView(d.digits).mid(1);
    }
    out += QLatin1Char('E');
    out += d.exponent < 0 ? QLatin1Char('-') : QLatin1Char('+');
    const int e = std::abs(d.exponent);
    if (e < 10) out += QLatin1Char('0');
    out += QString::number(e);
  } else if (d.exponent < 0) {
    out += QLatin1Char('0');
    out += point;
    for (int i = -1; i > d.exponent; --i) out += QLatin1Char('0');
    out += d.digits;
  } else if (n <= d.exponent + 1) {
    out += d.digits;
    for (int i = n; i <= d.exponent; ++i) out += QLatin1Char('0');
  } else {
    out += QStringView(d.digits).left(d.exponent + 1);
    out += point;
    out += QStringView(d.digits).mid(d.exponent + 1);
  }
  return out;
}

QString withBlank(QString s) {
  if (!s.startsWith(QLatin1Char('-'))) s.prepend(QLatin1Char(' '));
  return s;
}

}  // namespace

QString Str(double x) { return withBlank(layoutDigits(significantDigits(x, 15), 15, QLatin1Char('.'))); }

QString StrSingle(float x) { return withBlank(layoutDigits(significantDigits(x, 7), 7, QLatin1Char('.'))); }

QString NumberToText(double x) { return layoutDigits(significantDigits(x, 15), 15, program().systemDecimal); }

QString NumberToTextSingle(float x) { return layoutDigits(significantDigits(x, 7), 7, program().systemDecimal); }

namespace {

bool isBlank(QChar c) { return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n'); }

// "&h" and "&o" literals as the runtime reads them: up to 4 hexadecimal digits
// (6 octal) are a 16-bit value, so "&hFFFF" is -1; up to 8 (11) a 32-bit one.
// Returns false when there are no digits or too many.
bool radixValue(const QString& digits, int base, double& value) {
  if (digits.isEmpty()) return false;
  bool ok = false;
  const qulonglong u = digits.toULongLong(&ok, base);
  if (!ok) return false;
  const int shortLimit = base == 16 ? 4 : 6;
  if (digits.size() <= shortLimit && u <= 0xFFFF) {
    value = static_cast<std::int16_t>(static_cast<std::uint16_t>(u));
  } else if (u <= 0xFFFFFFFFULL) {
    value = static_cast<std::int32_t>(static_cast<std::uint32_t>(u));
  } else {
    return false;
  }
  return true;
}

int digitOf(QChar c, int base) {
  const int v = c.isDigit() ? c.digitValue()
                : (c.toLower() >= QLatin1Char('a') && c.toLower() <= QLatin1Char('f'))
                    ? c.toLower().unicode() - 'a' + 10
                    : -1;
  return v >= 0 && v < base ? v : -1;
}

double clampHuge(double v) {
  if (std::isinf(v)) return std::copysign(std::numeric_limits<double>::max(), v);
  return v;
}

}  // namespace

double Val(const QString& text) {
  // First drop every blank, tab and line feed: the runtime skips them anywhere.
  QString s;
  s.reserve(text.size());
  for (QChar c : text) {
    if (!isBlank(c)) s += c;
  }
  qsizetype i = 0;
  const qsizetype n = s.size();
  if (n >= 2 && s.at(0) == QLatin1Char('&')) {
    const QChar k = s.at(1).toLower();
    const int base = k == QLatin1Char('h') ? 16 : (k == QLatin1Char('o') ? 8 : 0);
    if (base == 0) return 0;
    QString digits;
    for (i = 2; i < n && digitOf(s.at(i), base) >= 0; ++i) digits += s.at(i);
    double v = 0;
    return radixValue(digits, base, v) ? v : 0;
  }
  QByteArray number;
  if (i < n && (s.at(i) == QLatin1Char('-') || s.at(i) == QLatin1Char('+'))) number += static_cast<char>(s.at(i++).unicode());
  bool anyDigit = false;
  while (i < n && s.at(i).isDigit() && s.at(i).unicode() < 128) {
    number += static_cast<char>(s.at(i++).unicode());
    anyDigit = true;
  }
  if (i < n && s.at(i) == QLatin1Char('.')) {
    number += '.';
    ++i;
    while (i < n && s.at(i).isDigit() && s.at(i).unicode() < 128) {
      number += static_cast<char>(s.at(i++).unicode());
      anyDigit = true;
    }
  }
  if (!anyDigit) return 0;
  if (i < n) {
    const QChar e = s.at(i).toLower();
    if (e == QLatin1Char('e') || e == QLatin1Char('d')) {
      qsizetype j = i + 1;
      QByteArray exp = "e";
      if (j < n && (s.at(j) == QLatin1Char('-') || s.at(j) == QLatin1Char('+'))) exp += static_cast<char>(s.at(j++).unicode());
      bool expDigit = false;
      while (j < n && s.at(j).isDigit() && s.at(j).unicode() < 128) {
        exp += static_cast<char>(s.at(j++).unicode());
        expDigit = true;
      }
      if (expDigit) number += exp;
    }
  }
  // Val never fails: a number past the double range is held at the largest one.
  return clampHuge(std::strtod(number.constData(), nullptr));
}

namespace {

// The locale-aware reading; answers 0 when the text is a number, else the
// error it raises: 13 for a text that is no number, 6 for one past the range.
int parseLocaleNumber(const QString& text, double& value) {
  const ProgramState& p = program();
  const QChar point = p.systemDecimal;
  const QChar group = p.systemGroup;
  const bool spaceGroup = group == QChar(0x00A0) || group == QChar(0x202F) || group == QLatin1Char(' ');
  const QString s = text.trimmed();
  if (s.isEmpty()) return kTypeMismatch;
  if (s.size() >= 2 && s.at(0) == QLatin1Char('&')) {
    const QChar k = s.at(1).toLower();
    const int base = k == QLatin1Char('h') ? 16 : (k == QLatin1Char('o') ? 8 : 0);
    if (base == 0) return kTypeMismatch;
    const QString digits = s.mid(2);
    for (QChar c : digits) {
      if (digitOf(c, base) < 0) return kTypeMismatch;
    }
    if (digits.isEmpty()) return kTypeMismatch;
    return radixValue(digits, base, value) ? 0 : kOverflow;
  }
  QByteArray number;
  qsizetype i = 0;
  const qsizetype n = s.size();
  if (s.at(i) == QLatin1Char('-') || s.at(i) == QLatin1Char('+')) {
    number += static_cast<char>(s.at(i++).unicode());
    while (i < n && s.at(i) == QLatin1Char(' ')) ++i;  // "- 5" is -5
  }
  bool anyDigit = false;
  bool seenPoint = false;
  for (; i < n; ++i) {
    const QChar c = s.at(i);
    if (c.isDigit() && c.unicode() < 128) {
      number += static_cast<char>(c.unicode());
      anyDigit = true;
    } else if (c == point && !seenPoint) {
      number += '.';
      seenPoint = true;
    } else if (!seenPoint && anyDigit && (c == group || (spaceGroup && (c == QChar(0x00A0) || c == QChar(0x202F) || c == QLatin1Char(' '))))) {
      // Group marks are taken anywhere in the integer part, as the runtime does.
    } else {
      break;
    }
  }
  if (!anyDigit) return kTypeMismatch;
  if (i < n && (s.at(i).toLower() == QLatin1Char('e') || s.at(i).toLower() == QLatin1Char('d'))) {
    number += 'e';
    ++i;
    if (i < n && (s.at(i) == QLatin1Char('-') || s.at(i) == QLatin1Char('+'))) number += static_cast<char>(s.at(i++).unicode());
    bool expDigit = false;
    while (i < n && s.at(i).isDigit() && s.at(i).unicode() < 128) {
      number += static_cast<char>(s.at(i++).unicode());
      expDigit = true;
    }
    if (!expDigit) return kTypeMismatch;
  }
  if (i != n) return kTypeMismatch;
  const double v = std::strtod(number.constData(), nullptr);
  if (!std::isfinite(v)) return kOverflow;
  value = v;
  return 0;
}

}  // namespace

bool tryTextToDouble(const QString& text, double& value) { return parseLocaleNumber(text, value) == 0; }

double TextToDouble(const QString& text) {
  double v = 0;
  if (const int error = parseLocaleNumber(text, v)) raise(error);
  return v;
}


namespace {

QString radixText(double x, int base) {
  const std::int32_t v = CLng(x);
  if (v >= 0) return QString::number(v, base).toUpper();
  if (v >= -32768) return QString::number(static_cast<std::uint16_t>(v), base).toUpper();
  return QString::number(static_cast<std::uint32_t>(v), base).toUpper();
}

}  // namespace

QString Hex(double x) { return radixText(x, 16); }
QString Oct(double x) { return radixText(x, 8); }

}  // namespace rt
