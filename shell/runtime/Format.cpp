#include "shell/runtime/Format.h"

#include <QDate>
#include <QTime>
#include <cmath>

#include "shell/runtime/DateTime.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/SystemLocale.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/Variant.h"

namespace rt {

namespace {

// ---------------------------------------------------------------------------
// Decimal digits of a non-negative value, rounded half away from zero at a
// given decimal, as Format rounds (unlike Round, which goes to even).
struct FixedDigits {
  QString integer;   // no leading zeros; empty for a value below 1
  QString fraction;  // exactly the number of decimals asked for
};

FixedDigits fixedDigits(double v, int decimals) {
  const DecimalDigits d = significantDigits(v, 15);
  QString all;  // the digits of v written with `point` digits before the point
  int point = 0;
  if (d.digits != QLatin1String("0")) {
    if (d.exponent >= 0) {
      all = d.digits;
      point = d.exponent + 1;
      while (all.size() < point) all += QLatin1Char('0');
    } else {
      all = QString(-d.exponent - 1, QLatin1Char('0')) + d.digits;
      point = 0;
    }
  }
  const int wanted = point + decimals;
  while (all.size() < wanted + 1) all += QLatin1Char('0');
  QString kept = all.left(wanted);
  if (all.at(wanted) >= QLatin1Char('5')) {
    int i = wanted - 1;
    while (i >= 0 && kept.at(i) == QLatin1Char('9')) {
      kept[i] = QLatin1Char('0');
      --i;
    }
    if (i < 0) {
      kept.prepend(QLatin1Char('1'));
      ++point;
    } else {
      kept[i] = QChar(kept.at(i).unicode() + 1);
    }
  }
  FixedDigits f;
  f.integer = kept.left(point);
  f.fraction = kept.mid(point);
  while (f.integer.startsWith(QLatin1Char('0'))) f.integer.remove(0, 1);
  return f;
}

// The first `count` significant digits of a positive value, rounded half away
// from zero on its 15-digit decimal text; exponent is the weight of the first.
QString leadingDigits(double v, int count, int& exponent) {
  const DecimalDigits d = significantDigits(v, 15);
  exponent = d.exponent;
  QString digits = d.digits;
  while (digits.size() <= count) digits += QLatin1Char('0');
  QString kept = digits.left(count);
  if (digits.at(count) >= QLatin1Char('5')) {
    int i = count - 1;
    while (i >= 0 && kept.at(i) == QLatin1Char('9')) {
      kept[i] = QLatin1Char('0');
      --i;
    }
    if (i < 0) {
      kept = QLatin1Char('1') + kept.left(count - 1);
      ++exponent;
    } else {
      kept[i] = QChar(kept.at(i).unicode() + 1);
    }
  }
  return kept;
}

// ---------------------------------------------------------------------------
// A user number pattern, one section, taken apart.
struct Token {
  enum Kind { Digit0, DigitHash, Literal } kind;
  QString text;  // for literals
};

struct NumberPattern {
  QList<Token> prefix;       // literals before the first placeholder
  QList<Token> integer;      // placeholders and literals of the integer part
  bool hasPoint = false;
  QList<Token> fraction;     // placeholders and literals after the point
  bool grouping = false;
  int scaling = 0;           // commas just before the point: each divides by 1000
  bool percent = false;
  bool hasExponent = false;
  QString exponentLetter;    // "E" or "e"
  bool exponentPlus = false; // "E+" always shows the sign
  QList<Token> exponent;     // placeholders of the exponent
  QList<Token> suffix;       // literals after the last placeholder
};

bool isPlaceholder(const Token& t) { return t.kind != Token::Literal; }

int countPlaceholders(const QList<Token>& tokens) {
  int n = 0;
  for (const Token& t : tokens) n += isPlaceholder(t) ? 1 : 0;
  return n;
}

// Splits a pattern into sections at ";" outside quotes and escapes.
QStringList splitSections(const QString& pattern) {
  QStringList sections;
  QString current;
  bool quoted = false;
  for (qsizetype i = 0; i < pattern.size(); ++i) {
    const QChar c = pattern.at(i);
    if (c == QLatin1Char('"')) quoted = !quoted;
    if (!quoted && c == QLatin1Char('\\') && i + 1 < pattern.size()) {
      current += c;
      current += pattern.at(++i);
      continue;
    }
    if (!quoted && c == QLatin1Char(';')) {
      sections << current;
      current.clear();
    } else {
      current += c;
    }
  }
  sections << current;
  return sections;
}

NumberPattern parseNumberPattern(const QString& s) {
  NumberPattern p;
  enum Stage { Prefix, Integer, Fraction, Exponent } stage = Prefix;
  QList<Token> pendingLiterals;  // literals seen since the last placeholder
  bool commaPending = false;     // a comma seen in the integer part, not yet followed by a digit

  auto addPlaceholder = [&](Token::Kind kind) {
    QList<Token>* target = nullptr;
    if (stage == Prefix) {
      p.prefix += pendingLiterals;
      pendingLiterals.clear();
      stage = Integer;
    }
    if (stage == Integer) target = &p.integer;
    else if (stage == Fraction) target = &p.fraction;
    else target = &p.exponent;
    if (commaPending && stage == Integer) p.grouping = true;
    commaPending = false;
    *target += pendingLiterals;
    pendingLiterals.clear();
    target->append(Token{kind, {}});
  };
  auto addLiteral = [&](const QString& text) { pendingLiterals.append(Token{Token::Literal, text}); };

  for (qsizetype i = 0; i < s.size(); ++i) {
    const QChar c = s.at(i);
    if (c == QLatin1Char('0')) {
      addPlaceholder(Token::Digit0);
    } else if (c == QLatin1Char('#')) {
      addPlaceholder(Token::DigitHash);
    } else if (c == QLatin1Char('.') && !p.hasPoint && stage != Exponent) {
      if (stage == Prefix) {
        p.prefix += pendingLiterals;
        pendingLiterals.clear();
      } else {
        p.integer += pendingLiterals;
        pendingLiterals.clear();
      }
      if (commaPending) ++p.scaling;
      commaPending = false;
      p.hasPoint = true;
      stage = Fraction;
    } else if (c == QLatin1Char(',') && (stage == Integer || stage == Prefix)) {
      if (stage == Integer) {
        // Consecutive commas before the point scale; one between digits groups.
        if (commaPending) ++p.scaling;
        commaPending = true;
      }
    } else if ((c == QLatin1Char('E') || c == QLatin1Char('e')) && i + 1 < s.size() &&
               (s.at(i + 1) == QLatin1Char('+') || s.at(i + 1) == QLatin1Char('-')) && stage != Exponent &&
               stage != Prefix) {
      (stage == Integer ? p.integer : p.fraction) += pendingLiterals;
      pendingLiterals.clear();
      if (commaPending) ++p.scaling;
      commaPending = false;
      p.hasExponent = true;
      p.exponentLetter = c;
      p.exponentPlus = s.at(i + 1) == QLatin1Char('+');
      ++i;
      stage = Exponent;
    } else if (c == QLatin1Char('%')) {
      p.percent = true;
      addLiteral(QStringLiteral("%"));
    } else if (c == QLatin1Char('\\') && i + 1 < s.size()) {
      addLiteral(s.at(++i));
    } else if (c == QLatin1Char('"')) {
      const qsizetype end = s.indexOf(QLatin1Char('"'), i + 1);
      const qsizetype stop = end < 0 ? s.size() : end;
      addLiteral(s.mid(i + 1, stop - i - 1));
      i = stop;
    } else {
      addLiteral(c);
    }
  }
  if (commaPending && stage == Integer) ++p.scaling;
  if (stage == Prefix) p.prefix += pendingLiterals;
  else p.suffix += pendingLiterals;
  return p;
}

QString literalText(const QList<Token>& tokens) {
  QString out;
  for (const Token& t : tokens) out += t.text;
  return out;
}

// Inserts the system's group mark every three digits from the right.
QString groupDigits(const QString& digits) {
  const QChar mark = rt::systemConventions().group;
  if (mark.isNull()) return digits;
  QString out;
  const qsizetype n = digits.size();
  for (qsizetype i = 0; i < n; ++i) {
    if (i > 0 && (n - i) % 3 == 0) out += mark;
    out += digits.at(i);
  }
  return out;
}

// The integer part: placeholders filled from the right; the leftmost one
// takes every digit left over; "0" pads, "#" does not.
QString renderInteger(const NumberPattern& p, const QString& digitsIn) {
  const QList<Token>& tokens = p.integer;
  const int placeholders = countPlaceholders(tokens);
  if (placeholders == 0) return literalText(tokens);
  // Minimum digits: the placeholders from the leftmost "0" on.
  int minimum = 0;
  bool seenZero = false;
  for (const Token& t : tokens) {
    if (t.kind == Token::Digit0) seenZero = true;
    if (seenZero && isPlaceholder(t)) ++minimum;
  }
  QString digits = digitsIn;
  while (digits.size() < minimum) digits.prepend(QLatin1Char('0'));
  if (p.grouping) {
    // Literals between grouped placeholders would split the groups; they go in front.
    QString lead;
    for (const Token& t : tokens) {
      if (t.kind == Token::Literal) lead += t.text;
    }
    return lead + groupDigits(digits);
  }
  QString out;
  int seen = 0;
  qsizetype left = digits.size();
  for (qsizetype i = tokens.size() - 1; i >= 0; --i) {
    const Token& t = tokens.at(i);
    if (t.kind == Token::Literal) {
      out.prepend(t.text);
      continue;
    }
    ++seen;
    if (seen == placeholders) {
      out.prepend(digits.left(left));
      left = 0;
    } else if (left > 0) {
      out.prepend(digits.at(--left));
    }
  }
  return out;
}

// The fraction part: placeholders filled from the left; trailing zeros are
// dropped down to the last "0" placeholder.
QString renderFraction(const QList<Token>& tokens, QString digits) {
  int minimum = 0;
  int index = 0;
  for (const Token& t : tokens) {
    if (!isPlaceholder(t)) continue;
    ++index;
    if (t.kind == Token::Digit0) minimum = index;
  }
  while (digits.size() > minimum && digits.endsWith(QLatin1Char('0'))) digits.chop(1);
  QString out;
  qsizetype next = 0;
  for (const Token& t : tokens) {
    if (t.kind == Token::Literal) {
      out += t.text;
    } else if (next < digits.size()) {
      out += digits.at(next++);
    } else if (t.kind == Token::Digit0) {
      out += QLatin1Char('0');
    }
  }
  return out;
}

QString renderExponent(const NumberPattern& p, int exponent) {
  QString out = p.exponentLetter;
  if (exponent < 0) out += QLatin1Char('-');
  else if (p.exponentPlus) out += QLatin1Char('+');
  int minimum = 0;
  for (const Token& t : p.exponent) minimum += t.kind == Token::Digit0 ? 1 : 0;
  QString digits = QString::number(std::abs(exponent));
  if (digits == QLatin1String("0") && minimum == 0) digits.clear();
  while (digits.size() < minimum) digits.prepend(QLatin1Char('0'));
  return out + digits;
}

// One section applied to a non-negative value.
QString formatSection(const NumberPattern& p, double v) {
  if (p.percent) v *= 100;
  for (int i = 0; i < p.scaling; ++i) v /= 1000;
  const int decimals = countPlaceholders(p.fraction);
  QString integerDigits;
  QString fractionDigits;
  int exponent = 0;
  if (p.hasExponent) {
    const int intPlaces = std::max(1, countPlaceholders(p.integer));
    if (v != 0) {
      int first = 0;
      const QString digits = leadingDigits(v, std::min(15, intPlaces + decimals), first);
      exponent = first - (intPlaces - 1);
      integerDigits = digits.left(intPlaces);
      fractionDigits = digits.mid(intPlaces, decimals);
      while (integerDigits.startsWith(QLatin1Char('0'))) integerDigits.remove(0, 1);
    }
    while (fractionDigits.size() < decimals) fractionDigits += QLatin1Char('0');
  } else {
    const FixedDigits f = fixedDigits(v, decimals);
    integerDigits = f.integer;
    fractionDigits = f.fraction;
  }
  QString out = literalText(p.prefix) + renderInteger(p, integerDigits);
  if (p.hasPoint) out += rt::systemConventions().decimal + renderFraction(p.fraction, fractionDigits);
  if (p.hasExponent) out += renderExponent(p, exponent);
  out += literalText(p.suffix);
  return out;
}

QString formatUserNumber(double x, const QString& pattern) {
  const QStringList sections = splitSections(pattern);
  const bool negative = x < 0;
  QString section = sections.at(0);
  bool addMinus = negative;
  if (negative && sections.size() >= 2 && !sections.at(1).isEmpty()) {
    section = sections.at(1);
    addMinus = false;
  }
  if (x == 0 && sections.size() >= 3 && !sections.at(2).isEmpty()) {
    section = sections.at(2);
  }
  const NumberPattern p = parseNumberPattern(section);
  const QString body = formatSection(p, std::fabs(x));
  return addMinus ? QLatin1Char('-') + body : body;
}

bool sameWord(const QString& a, const char* b) { return a.compare(QLatin1String(b), Qt::CaseInsensitive) == 0; }

// A pattern with no digit placeholder but with date letters is a date pattern.
bool looksLikeDatePattern(const QString& pattern) {
  bool quoted = false;
  bool dateLetter = false;
  for (qsizetype i = 0; i < pattern.size(); ++i) {
    const QChar c = pattern.at(i);
    if (c == QLatin1Char('"')) quoted = !quoted;
    if (quoted) continue;
    if (c == QLatin1Char('\\')) {
      ++i;
      continue;
    }
    if (c == QLatin1Char('0') || c == QLatin1Char('#')) return false;
    const QChar l = c.toLower();
    if (l == QLatin1Char('d') || l == QLatin1Char('m') || l == QLatin1Char('y') || l == QLatin1Char('h') ||
        l == QLatin1Char('n') || l == QLatin1Char('s') || l == QLatin1Char('w') || l == QLatin1Char('q')) {
      dateLetter = true;
    }
  }
  return dateLetter;
}

bool isNamedDateFormat(const QString& pattern) {
  return sameWord(pattern, "General Date") || sameWord(pattern, "Long Date") || sameWord(pattern, "Medium Date") ||
         sameWord(pattern, "Short Date") || sameWord(pattern, "Long Time") || sameWord(pattern, "Medium Time") ||
         sameWord(pattern, "Short Time");
}

}  // namespace

QString Format(double x, const QString& pattern) {
  if (!std::isfinite(x)) raise(kOverflow);
  if (pattern.isEmpty() || sameWord(pattern, "General Number")) return NumberToText(x);
  if (sameWord(pattern, "Fixed")) return formatUserNumber(x, QStringLiteral("0.00"));
  if (sameWord(pattern, "Standard")) return formatUserNumber(x, QStringLiteral("#,##0.00"));
  if (sameWord(pattern, "Percent")) return formatUserNumber(x, QStringLiteral("0.00%"));
  if (sameWord(pattern, "Scientific")) return formatUserNumber(x, QStringLiteral("0.00E+00"));
  if (sameWord(pattern, "Currency")) {
    return rt::systemConventions().locale.toCurrencyString(x, QString(), 2);
  }
  if (sameWord(pattern, "Yes/No")) return x != 0 ? QStringLiteral("Yes") : QStringLiteral("No");
  if (sameWord(pattern, "True/False")) return x != 0 ? QStringLiteral("True") : QStringLiteral("False");
  if (sameWord(pattern, "On/Off")) return x != 0 ? QStringLiteral("On") : QStringLiteral("Off");
  if (isNamedDateFormat(pattern) || looksLikeDatePattern(pattern)) return FormatDate(x, pattern);
  return formatUserNumber(x, pattern);
}

namespace {

// The system's short date with two-digit day and month and a four-digit year.
QString shortDatePattern() {
  QString f = rt::systemConventions().locale.dateFormat(QLocale::ShortFormat);
  if (!f.contains(QLatin1String("yyyy"))) f.replace(QLatin1String("yy"), QLatin1String("yyyy"));
  if (!f.contains(QLatin1String("dd"))) f.replace(QLatin1Char('d'), QLatin1String("dd"));
  if (!f.contains(QLatin1String("MM"))) f.replace(QLatin1Char('M'), QLatin1String("MM"));
  return f;
}

// The system's short time with seconds added after the minutes.
QString longTimePattern() {
  QString f = rt::systemConventions().locale.timeFormat(QLocale::ShortFormat);
  const qsizetype m = f.indexOf(QLatin1String("mm"));
  if (m >= 0 && !f.contains(QLatin1Char('s'))) f.insert(m + 2, QLatin1String(":ss"));
  return f;
}

// Counts a run of the same letter (case-insensitive) at i.
int runLength(const QString& s, qsizetype i) {
  const QChar c = s.at(i).toLower();
  int n = 0;
  while (i + n < s.size() && s.at(i + n).toLower() == c) ++n;
  return n;
}

}  // namespace

QString FormatDate(double date, const QString& pattern) {
  const QLocale& loc = rt::systemConventions().locale;
  const QDateTime dt = toQDateTime(date);
  const QDate d = dt.date();
  const QTime t = dt.time();
  const bool hasTime = date != std::floor(date);
  if (pattern.isEmpty() || sameWord(pattern, "General Date")) {
    QString out;
    if (std::floor(date) != 0 || !hasTime) out = loc.toString(d, shortDatePattern());
    if (hasTime) {
      if (!out.isEmpty()) out += QLatin1Char(' ');
      out += loc.toString(t, longTimePattern());
    }
    return out;
  }
  if (sameWord(pattern, "Long Date")) return loc.toString(d, QLocale::LongFormat);
  if (sameWord(pattern, "Medium Date")) return loc.toString(d, QStringLiteral("dd-MMM-yy"));
  if (sameWord(pattern, "Short Date")) return loc.toString(d, shortDatePattern());
  if (sameWord(pattern, "Long Time")) return loc.toString(t, longTimePattern());
  if (sameWord(pattern, "Medium Time")) return loc.toString(t, QStringLiteral("hh:mm AP"));
  if (sameWord(pattern, "Short Time")) return loc.toString(t, QStringLiteral("HH:mm"));

  const bool twelveHour = pattern.contains(QLatin1String("AM/PM"), Qt::CaseInsensitive) ||
                          pattern.contains(QLatin1String("A/P"), Qt::CaseInsensitive);
  QString out;
  bool afterHour = false;
  for (qsizetype i = 0; i < pattern.size();) {
    const QChar c = pattern.at(i);
    const QChar l = c.toLower();
    const int n = runLength(pattern, i);
    auto two = [](int v) { return QStringLiteral("%1").arg(v, 2, 10, QLatin1Char('0')); };
    if (pattern.mid(i, 5).compare(QLatin1String("AM/PM"), Qt::CaseInsensitive) == 0) {
      const bool pm = t.hour() >= 12;
      QString s = pm ? QStringLiteral("PM") : QStringLiteral("AM");
      if (pattern.at(i).isLower()) s = s.toLower();
      out += s;
      i += 5;
      continue;
    }
    if (pattern.mid(i, 3).compare(QLatin1String("A/P"), Qt::CaseInsensitive) == 0) {
      QString s = t.hour() >= 12 ? QStringLiteral("P") : QStringLiteral("A");
      if (pattern.at(i).isLower()) s = s.toLower();
      out += s;
      i += 3;
      continue;
    }
    if (l == QLatin1Char('d')) {
      if (n == 1) out += QString::number(d.day());
      else if (n == 2) out += two(d.day());
      else if (n == 3) out += loc.dayName(d.dayOfWeek(), QLocale::ShortFormat);
      else if (n == 4) out += loc.dayName(d.dayOfWeek(), QLocale::LongFormat);
      else if (n == 5) out += loc.toString(d, shortDatePattern());
      else out += loc.toString(d, QLocale::LongFormat);
      afterHour = false;
    } else if (l == QLatin1Char('m')) {
      // "m"/"mm" right after an hour are minutes.
      if (afterHour && n <= 2) out += n == 1 ? QString::number(t.minute()) : two(t.minute());
      else if (n == 1) out += QString::number(d.month());
      else if (n == 2) out += two(d.month());
      else if (n == 3) out += loc.monthName(d.month(), QLocale::ShortFormat);
      else out += loc.monthName(d.month(), QLocale::LongFormat);
      afterHour = false;
    } else if (l == QLatin1Char('y')) {
      if (n == 1) out += QString::number(d.dayOfYear());
      else if (n <= 3) out += two(d.year() % 100);
      else out += QString::number(d.year());
      afterHour = false;
    } else if (l == QLatin1Char('h')) {
      int h = t.hour();
      if (twelveHour) {
        h %= 12;
        if (h == 0) h = 12;
      }
      out += n == 1 ? QString::number(h) : two(h);
      afterHour = true;
    } else if (l == QLatin1Char('n')) {
      out += n == 1 ? QString::number(t.minute()) : two(t.minute());
      afterHour = false;
    } else if (l == QLatin1Char('s')) {
      out += n == 1 ? QString::number(t.second()) : two(t.second());
      afterHour = false;
    } else if (l == QLatin1Char('w')) {
      if (n == 1) out += QString::number(d.dayOfWeek() % 7 + 1);
      else out += QString::number((d.dayOfYear() + QDate(d.year(), 1, 1).dayOfWeek() % 7 - 1) / 7 + 1);
    } else if (l == QLatin1Char('q')) {
      out += QString::number((d.month() - 1) / 3 + 1);
    } else if (c == QLatin1Char('/')) {
      const QString sep = loc.dateFormat(QLocale::ShortFormat).contains(QLatin1Char('.')) ? QStringLiteral(".")
                          : loc.dateFormat(QLocale::ShortFormat).contains(QLatin1Char('-'))
                              ? QStringLiteral("-")
                              : QStringLiteral("/");
      out += sep;
      i += 1;
      continue;
    } else if (c == QLatin1Char('\\') && i + 1 < pattern.size()) {
      out += pattern.at(i + 1);
      i += 2;
      continue;
    } else if (c == QLatin1Char('"')) {
      const qsizetype end = pattern.indexOf(QLatin1Char('"'), i + 1);
      const qsizetype stop = end < 0 ? pattern.size() : end;
      out += pattern.mid(i + 1, stop - i - 1);
      i = stop + 1;
      continue;
    } else {
      out += c;
      i += 1;
      continue;
    }
    i += n;
  }
  return out;
}

QString Format(const Variant& v, const QString& pattern) {
  switch (v.type()) {
    case VType::Empty: return {};
    case VType::Date:
      if (isNamedDateFormat(pattern) || looksLikeDatePattern(pattern) || pattern.isEmpty()) {
        return FormatDate(v.rawNumber(), pattern);
      }
      return Format(v.rawNumber(), pattern);
    case VType::String: {
      double x = 0;
      if (tryTextToDouble(v.rawText(), x)) return Format(x, pattern);
      return v.rawText();
    }
    case VType::Single:
      if (pattern.isEmpty() || sameWord(pattern, "General Number")) {
        return NumberToTextSingle(static_cast<float>(v.rawNumber()));
      }
      return Format(v.rawNumber(), pattern);
    default: return Format(v.rawNumber(), pattern);
  }
}

}  // namespace rt
