#pragma once
// Splits the text of a formula or of a run of statements into tokens.
// Names and keywords are case-insensitive; numbers use the point as decimal
// separator and may carry an exponent ("1.5E-05", ".5", "5."); "&H1F" and
// "&O17" are hexadecimal and octal integers; texts are in double quotes with
// "" for a quote; ' starts a comment; a line break or ":" ends a statement.
#include <QString>
#include <QStringView>

#include "shell/runtime/Variant.h"

enum class Tok : unsigned char {
  End,
  EndOfStatement,  // ":" or a line break
  Number,
  Text,
  Name,
  LParen,
  RParen,
  Comma,
  Dot,
  Plus,
  Minus,
  Star,
  Slash,
  Backslash,
  Caret,
  Amp,
  Eq,
  Ne,
  Lt,
  Gt,
  Le,
  Ge,
  Is,
  Mod,
  Not,
  And,
  Or,
  Xor,
  Eqv,
  Imp,
  True,
  False,
};

struct Token {
  Tok type = Tok::End;
  int pos = 0;      // offset of the first character in the text
  int length = 0;
  rt::Variant value;  // Number and Text
};

// A number literal: its type (Integer, Long or Double, as the language types
// it: the smallest integer type that holds a whole literal) and its value.
struct NumberLiteral {
  rt::VType type = rt::VType::Integer;
  double value = 0;
};

// Reads the numeric literal that starts at text[pos] (a digit, or a point
// followed by a digit); end receives the offset after it. The value is the
// double nearest the decimal text. Returns 0, or EvalError::kOverflow for a
// literal beyond the range of a 64-bit float.
int scanNumber(QStringView text, int pos, int& end, NumberLiteral& literal);
int scanNumber(QStringView text, int pos, int& end, rt::Variant& value);
rt::Variant literalValue(const NumberLiteral& literal);

// True for the characters that may start a name, and continue one.
inline bool isNameStart(QChar c) {
  const char16_t u = c.unicode();
  if (u < 128) return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z');
  return c.isLetter();
}
inline bool isNamePart(QChar c) {
  const char16_t u = c.unicode();
  if (u < 128) return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z') || (u >= '0' && u <= '9') || u == '_';
  return c.isLetterOrNumber();
}

// The keyword token of a word (Mod, Not, And, Or, Xor, Eqv, Imp, Is, True,
// False, any case), or Tok::Name for an ordinary name.
Tok keywordOf(QStringView word);

class ExprLexer {
 public:
  explicit ExprLexer(QStringView text) : text_(text) {}
  // The next token; throws EvalError on an invalid character, an unfinished
  // text or a number out of range.
  Token next();
  QStringView text() const { return text_; }

 private:
  QStringView text_;
  int pos_ = 0;
};
