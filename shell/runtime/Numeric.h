#pragma once
// Numeric rules of the classic runtime on 64-bit floats: conversions to the
// 16-bit and 32-bit integer types (round half to even, overflow is a failure),
// Int/Fix/Round, the integer operators \ and Mod, and the math functions
// with their failures. Every failure throws rt::RuntimeError.
#include <cstdint>

namespace rt {

// Float to 16-bit / 32-bit: nearest integer, halves to the even neighbour;
// outside the range (after rounding) is error 6. NaN is error 6 too.
std::int16_t CInt(double x);
std::int32_t CLng(double x);

// Greatest integer not above x; integer part towards zero.
double Int(double x);
double Fix(double x);

// x to n decimals (n from 0 up), a half going to the even neighbour. The
// decision is made on the decimal text of x, so Round(2.345, 2) is 2.34 even
// though the double 2.345 is a hair below or above. n < 0 is error 5.
double Round(double x, int n = 0);

// x \ y and x Mod y: both operands through CLng first; y of 0 is error 11;
// the quotient is truncated and the remainder takes the sign of x.
std::int32_t IntDiv(double x, double y);
std::int32_t Mod(double x, double y);

double Abs(double x);
int Sgn(double x);          // -1, 0 or 1
double Sqr(double x);       // error 5 below 0
double Log(double x);       // natural logarithm; error 5 at or below 0
double Exp(double x);       // error 6 when the result overflows
double Sin(double x);
double Cos(double x);
double Tan(double x);
double Atn(double x);

// Checks a 64-bit result: infinity or NaN from a finite computation is error 6.
double checkFinite(double x);

}  // namespace rt
