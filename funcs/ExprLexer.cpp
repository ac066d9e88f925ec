#include "funcs/ExprLexer.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "funcs/EvalError.h"

namespace {

bool isDigit(QChar c) { return c.unicode() >= '0' && c.unicode() <= '9'; }

// "&H" and "&O" literals: up to 16 bits they are a 16-bit integer (so &HFFFF
// is -1), up to 32 bits a 32-bit one; beyond is an overflow.
int scanRadix(QStringView text, int pos, int& end, rt::Variant& value) {
  const int base = (text[pos + 1].unicode() | 0x20) == 'h' ? 16 : 8;
  std::uint64_t v = 0;
  int i = pos + 2;
  bool overflow = false;
  for (; i < text.size(); ++i) {
    const char16_t u = text[i].unicode();
    int d = -1;
    if (u >= '0' && u <= '9') d = u - '0';
    else if ((u | 0x20) >= 'a' && (u | 0x20) <= 'f') d = (u | 0x20) - 'a' + 10;
    if (d < 0 || d >= base) break;
    v = v * static_cast<unsigned>(base) + static_cast<unsigned>(d);
    if (v > 0xFFFFFFFFu) overflow = true;
  }
  end = i;
  if (overflow) return EvalError::kOverflow;
  if (v <= 0xFFFFu) value = rt::Variant::integer(static_cast<std::int16_t>(static_cast<std::uint16_t>(v)));
  else value = rt::Variant::longValue(static_cast<std::int32_t>(static_cast<std::uint32_t>(v)));
  return 0;
}

}  // namespace

int scanNumber(QStringView text, int pos, int& end, NumberLiteral& out) {
  const int n = static_cast<int>(text.size());
  int i = pos;
  {
    // The usual shape first, as Str writes it: digits, a point, digits, no
    // exponent, the digits together below 2^53. The mantissa is then exact,
    // and one division by an exact power of ten gives the nearest double, as
    // below. The digits are gathered first and combined four at a time, so
    // that the multiplications do not wait on each other digit by digit.
    const char16_t* t = text.utf16();
    unsigned char d[20];
    int count = 0, fraction = 0, j = pos;
    bool point = false;
    for (; j < n; ++j) {
      const unsigned c = static_cast<unsigned>(t[j]) - u'0';
      if (c <= 9) {
        if (count == 19) break;
        d[count++] = static_cast<unsigned char>(c);
        fraction += point ? 1 : 0;
      } else if (t[j] == u'.' && !point) {
        point = true;
      } else {
        break;
      }
    }
    std::uint64_t m = 0;
    int k = 0;
    for (; k + 4 <= count; k += 4) m = m * 10000 + (d[k] * 1000u + d[k + 1] * 100u + d[k + 2] * 10u + d[k + 3]);
    for (; k < count; ++k) m = m * 10 + d[k];
    const bool moreDigits = j < n && t[j] >= u'0' && t[j] <= u'9';
    static constexpr double kFractionPowers[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,
                                                 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17,
                                                 1e18, 1e19, 1e20, 1e21, 1e22};
    const bool exponentFollows = j < n && (t[j] | 0x20) == u'e';
    if (point && !moreDigits && m <= (std::uint64_t{1} << 53) && fraction <= 22 && !exponentFollows &&
        j > pos + 1) {
      out.type = rt::VType::Double;
      out.value = static_cast<double>(m) / kFractionPowers[fraction];
      end = j;
      return 0;
    }
  }
  // The significant digits as an integer while they fit 19 digits, and the
  // power of ten that scales them.
  std::uint64_t mantissa = 0;
  int digits = 0;     // significant digits taken into the mantissa
  int dropped = 0;    // whole-part digits beyond them
  int scale = 0;      // decimal exponent of the mantissa's last digit
  auto take = [&](char16_t c, bool fraction) {
    if (digits == 0 && c == '0') {
      if (fraction) --scale;
      return;
    }
    if (digits < 19) {
      mantissa = mantissa * 10 + (c - '0');
      ++digits;
      if (fraction) --scale;
    } else if (!fraction) {
      ++dropped;
    }
  };
  while (i < n && isDigit(text[i])) {
    take(text[i].unicode(), false);
    ++i;
  }
  bool isFloat = false;
  bool inexact = false;  // digits beyond the 19th were left out of the mantissa
  if (i < n && text[i] == u'.') {
    isFloat = true;
    ++i;
    while (i < n && isDigit(text[i])) {
      if (digits >= 19 && text[i] != u'0') inexact = true;
      take(text[i].unicode(), true);
      ++i;
    }
  }
  int exponent = 0;
  // An exponent only when a digit follows the letter (and its sign).
  if (i < n && (text[i].unicode() | 0x20) == 'e') {
    int j = i + 1;
    bool negative = false;
    if (j < n && (text[j] == u'+' || text[j] == u'-')) negative = text[j++] == u'-';
    if (j < n && isDigit(text[j])) {
      isFloat = true;
      i = j;
      while (i < n && isDigit(text[i])) {
        if (exponent < 100000) exponent = exponent * 10 + (text[i].unicode() - '0');
        ++i;
      }
      if (negative) exponent = -exponent;
    }
  }
  end = i;
  if (!isFloat && digits + dropped <= 18) {
    const auto v = static_cast<std::int64_t>(mantissa);
    out.type = v <= 32767 ? rt::VType::Integer : (v <= 2147483647 ? rt::VType::Long : rt::VType::Double);
    out.value = static_cast<double>(v);
    return 0;
  }
  out.type = rt::VType::Double;
  // Up to 15 digits and a power of ten that a double holds exactly, one
  // multiplication or division rounds correctly: the usual case, texts of Str.
  static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                       1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  const int e = scale + dropped + exponent;
  if (digits <= 15 && !inexact && dropped == 0 && e >= -22 && e <= 22) {
    const auto m = static_cast<double>(mantissa);
    out.value = e >= 0 ? m * kPowers[e] : m / kPowers[-e];
    return 0;
  }
  // Otherwise from_chars on a narrow copy (the digits are ASCII), which also
  // rounds correctly.
  const int len = i - pos;
  char small[64];
  std::string big;
  char* buf = small;
  if (len >= static_cast<int>(sizeof small)) {
    big.resize(static_cast<size_t>(len) + 1);
    buf = big.data();
  }
  for (int k = 0; k < len; ++k) buf[k] = static_cast<char>(text[pos + k].unicode());
  buf[len] = '\0';
  double d = 0;
  const auto res = std::from_chars(buf, buf + len, d);
  if (res.ec == std::errc::result_out_of_range) {
    // Too small gives 0 (or a subnormal), too large is an overflow.
    d = std::strtod(buf, nullptr);
    if (std::isinf(d)) return EvalError::kOverflow;
  } else if (res.ec != std::errc()) {
    d = std::strtod(buf, nullptr);
  }
  out.value = d;
  return 0;
}

int scanNumber(QStringView text, int pos, int& end, rt::Variant& value) {
  NumberLiteral literal;
  if (const int err = scanNumber(text, pos, end, literal)) return err;
  value = literalValue(literal);
  return 0;
}

rt::Variant literalValue(const NumberLiteral& literal) {
  switch (literal.type) {
    case rt::VType::Integer: return rt::Variant::integer(static_cast<std::int16_t>(literal.value));
    case rt::VType::Long: return rt::Variant::longValue(static_cast<std::int32_t>(literal.value));
    default: return rt::Variant(literal.value);
  }
}

Tok keywordOf(QStringView w) {
  switch (w.size()) {
    case 2:
      if (w.compare(u"Is", Qt::CaseInsensitive) == 0) return Tok::Is;
      if (w.compare(u"Or", Qt::CaseInsensitive) == 0) return Tok::Or;
      break;
    case 3:
      if (w.compare(u"Mod", Qt::CaseInsensitive) == 0) return Tok::Mod;
      if (w.compare(u"Not", Qt::CaseInsensitive) == 0) return Tok::Not;
      if (w.compare(u"And", Qt::CaseInsensitive) == 0) return Tok::And;
      if (w.compare(u"Xor", Qt::CaseInsensitive) == 0) return Tok::Xor;
      if (w.compare(u"Eqv", Qt::CaseInsensitive) == 0) return Tok::Eqv;
      if (w.compare(u"Imp", Qt::CaseInsensitive) == 0) return Tok::Imp;
      break;
    case 4:
      if (w.compare(u"True", Qt::CaseInsensitive) == 0) return Tok::True;
      break;
    case 5:
      if (w.compare(u"False", Qt::CaseInsensitive) == 0) return Tok::False;
      break;
    default: break;
  }
  return Tok::Name;
}

Token ExprLexer::next() {
  const int n = static_cast<int>(text_.size());
  while (pos_ < n) {
    const char16_t c = text_[pos_].unicode();
    if (c == ' ' || c == '\t') {
      ++pos_;
    } else if (c == '\'') {  // a comment runs to the end of the line
      while (pos_ < n && text_[pos_] != u'\n' && text_[pos_] != u'\r') ++pos_;
    } else {
      break;
    }
  }
  Token t;
  t.pos = pos_;
  if (pos_ >= n) return t;
  const QChar c = text_[pos_];
  auto single = [&](Tok type, int len = 1) {
    t.type = type;
    t.length = len;
    pos_ += len;
    return t;
  };
  const bool nextIsDigit = pos_ + 1 < n && isDigit(text_[pos_ + 1]);
  if (isDigit(c) || (c == u'.' && nextIsDigit)) {
    int end = pos_;
    if (const int err = scanNumber(text_, pos_, end, t.value)) throw EvalError(err, {}, pos_);
    t.type = Tok::Number;
    t.length = end - pos_;
    pos_ = end;
    return t;
  }
  if (isNameStart(c)) {
    int end = pos_ + 1;
    while (end < n && isNamePart(text_[end])) ++end;
    t.type = keywordOf(text_.mid(pos_, end - pos_));
    t.length = end - pos_;
    pos_ = end;
    if (t.type == Tok::True || t.type == Tok::False) t.value = rt::Variant::boolean(t.type == Tok::True);
    return t;
  }
  switch (c.unicode()) {
    case ':':
    case '\n':
    case '\r': return single(Tok::EndOfStatement);
    case '(': return single(Tok::LParen);
    case ')': return single(Tok::RParen);
    case ',': return single(Tok::Comma);
    case '.': return single(Tok::Dot);
    case '+': return single(Tok::Plus);
    case '-': return single(Tok::Minus);
    case '*': return single(Tok::Star);
    case '/': return single(Tok::Slash);
    case '\\': return single(Tok::Backslash);
    case '^': return single(Tok::Caret);
    case '=': return single(Tok::Eq);
    case '<':
      if (pos_ + 1 < n && text_[pos_ + 1] == u'>') return single(Tok::Ne, 2);
      if (pos_ + 1 < n && text_[pos_ + 1] == u'=') return single(Tok::Le, 2);
      return single(Tok::Lt);
    case '>':
      if (pos_ + 1 < n && text_[pos_ + 1] == u'=') return single(Tok::Ge, 2);
      return single(Tok::Gt);
    case '&':
      if (pos_ + 2 < n && ((text_[pos_ + 1].unicode() | 0x20) == 'h' || (text_[pos_ + 1].unicode() | 0x20) == 'o')) {
        int end = pos_;
        const int start = pos_;
        if (const int err = scanRadix(text_, pos_, end, t.value)) throw EvalError(err, {}, start);
        if (end > start + 2) {
          t.type = Tok::Number;
          t.length = end - start;
          pos_ = end;
          return t;
        }
      }
      return single(Tok::Amp);
    case '"': {
      QString s;
      int i = pos_ + 1;
      for (;;) {
        if (i >= n || text_[i] == u'\n' || text_[i] == u'\r') throw EvalError(EvalError::kUnterminatedString, {}, pos_);
        if (text_[i] == u'"') {
          if (i + 1 < n && text_[i + 1] == u'"') {
            s += QLatin1Char('"');
            i += 2;
            continue;
          }
          break;
        }
        s += text_[i];
        ++i;
      }
      t.type = Tok::Text;
      t.value = rt::Variant(s);
      t.length = i + 1 - pos_;
      pos_ = i + 1;
      return t;
    }
    default: break;
  }
  throw EvalError(EvalError::kInvalidCharacter, QString(c), pos_);
}
