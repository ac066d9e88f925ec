#pragma once
// Number <-> text rules of the classic runtime.
//
//   Str(x)           " 5", "-5", " 1.5", " 1E+18", " 1E-05": point as decimal
//                    separator, leading blank when not negative, 15 significant
//                    digits for a 64-bit float, 7 for a 32-bit float.
//   NumberToText(x)  the same digits without the blank and with the system's
//                    decimal separator (the default float-to-text conversion).
//   Val(text)        reads from the left, skips blanks, tabs and line feeds
//                    anywhere, point only, exponent, "&h"/"&o"; never fails.
//   TextToDouble     locale-aware reading (CDbl of a text): system decimal and
//                    group separators, blanks around, sign, exponent, "&h";
//                    a text that is not a number is error 13.
//
// The system separators come from rt::systemConventions() (SystemLocale.h), so
// tests can run as on a "," system and as on a "." system.
#include <QString>
#include <cstdint>

namespace rt {

QString Str(double x);
QString StrSingle(float x);
QString NumberToText(double x);
QString NumberToTextSingle(float x);
// NumberToText(x) added at the end of out, with no text of its own: for
// readers that write many numbers into one text (copies, files, listings).
void appendNumberText(QString& out, double x);
// Str(x) added at the end of out, likewise: a statement such as "x= " and a
// number can be fed again and again from one text kept by the caller.
void appendStr(QString& out, double x);

double Val(const QString& text);
double TextToDouble(const QString& text);
// True when TextToDouble would succeed; stores the value.
bool tryTextToDouble(const QString& text, double& value);

// Hex/Oct: x through CLng first; a negative value within 16 bits shows as
// 4 hexadecimal (6 octal) digits of two's complement, otherwise 8 (11).
QString Hex(double x);
QString Oct(double x);

// Digits of x to 15 (or 7) significant digits: the sign, the digit string with
// no trailing zeros and the decimal exponent of its first digit. The shared
// core of Str, NumberToText and Format.
struct DecimalDigits {
  bool negative = false;
  QString digits;  // "0" for zero
  int exponent = 0;  // value = 0.d1d2d3... * 10^(exponent+1), i.e. d1 has weight 10^exponent
};
DecimalDigits significantDigits(double x, int precision);

// The value of x's 15-digit text (what reading NumberToText(x) back gives),
// worked out without the text. False when that value is no finite double
// (the text of a number next to the largest double rounds beyond it).
bool textValue(double x, double& value);
// The value of the 7-digit text of a 32-bit float, as a 64-bit float.
double singleTextValue(float f);

}  // namespace rt
