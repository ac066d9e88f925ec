// Conversions to the integer types, Int/Fix/Round, \ and Mod, and the math
// functions with their failures.
#include <cmath>
#include <limits>
#include <utility>

#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"
#include "tests/support/TestSupport.h"

using namespace rt;

TEST(Numeric, ConversionsRoundHalvesToEvenAndFailOutOfRange) {
  // -32768.5 rounds to the even -32768, inside the range; 32767.5 to 32768, outside.
  const std::pair<double, int> sixteen[] = {{2.5, 2},     {3.5, 4},       {-2.5, -2},       {-3.5, -4}, {2.4999, 2},
                                            {2.5001, 3},  {32767, 32767}, {32767.4, 32767}, {-32768.5, -32768}};
  for (const auto& [x, n] : sixteen) EXPECT_EQ(CInt(x), n) << x;
  for (double x : {32767.5, -32769.0, -32768.51, std::nan(""), 1e300}) {
    EXPECT_EQ(errorOf([x] { CInt(x); }), kOverflow) << x;
  }
  const std::pair<double, std::int32_t> thirtyTwo[] = {
      {2147483647.4, 2147483647}, {-2147483648.5, std::numeric_limits<std::int32_t>::min()}, {0.5, 0}, {1.5, 2}};
  for (const auto& [x, n] : thirtyTwo) EXPECT_EQ(CLng(x), n) << x;
  for (double x : {2147483647.5, -2147483649.0}) EXPECT_EQ(errorOf([x] { CLng(x); }), kOverflow) << x;
}

TEST(Numeric, IntGoesDownAndFixGoesTowardsZero) {
  const double rows[][3] = {{-2.5, -3, -2}, {2.5, 2, 2}, {-0.1, -1, 0}, {7, 7, 7}};  // x, Int, Fix
  for (const auto& r : rows) {
    EXPECT_EQ(Int(r[0]), r[1]) << r[0];
    EXPECT_EQ(Fix(r[0]), r[2]) << r[0];
  }
}

TEST(Numeric, RoundGoesToTheEvenNeighbourOnTheShownDigits) {
  const struct {
    double x;
    int n;
    double expected;
  } rows[] = {
      {2.5, 0, 2},       {3.5, 0, 4},      {-2.5, 0, -2},    {-3.5, 0, -4},     {0.5, 0, 0},
      {1.5, 0, 2},       {2.345, 2, 2.34}, {2.355, 2, 2.36}, {-2.345, 2, -2.34}, {-2.355, 2, -2.36},
      {2.3451, 2, 2.35}, {1.005, 2, 1.0},  {0.125, 2, 0.12}, {0.375, 2, 0.38},  {9.995, 2, 10.0},
      {99.5, 0, 100},    {0.05, 1, 0.0},   {0.15, 1, 0.2},   {0.004, 2, 0},     {0.006, 2, 0.01},
      {0.0006, 2, 0},    {123.456, 5, 123.456}, {1e20, 2, 1e20}, {0, 3, 0}, {-0.5, 0, 0},
      {0.51, 0, 1},
  };
  for (const auto& r : rows) {
    EXPECT_DOUBLE_EQ(Round(r.x, r.n), r.expected) << "Round(" << r.x << ", " << r.n << ")";
  }
  EXPECT_EQ(errorOf([] { Round(1.5, -1); }), kInvalidProcedureCall);
}

TEST(Numeric, IntegerDivisionAndModRoundOperandsFirst) {
  EXPECT_EQ(IntDiv(7, 2), 3);
  EXPECT_EQ(IntDiv(-7, 2), -3);  // truncated
  EXPECT_EQ(IntDiv(7.5, 2), 4);  // 7.5 rounds to 8
  EXPECT_EQ(IntDiv(6.5, 2), 3);  // 6.5 rounds to 6
  EXPECT_EQ(IntDiv(7, 2.5), 3);  // 2.5 rounds to 2
  EXPECT_EQ(Mod(-7, 3), -1);     // sign of the dividend
  EXPECT_EQ(Mod(7, -3), 1);
  EXPECT_EQ(Mod(10.5, 3), 1);    // 10.5 rounds to 10
  EXPECT_EQ(errorOf([] { Mod(5, 0.4999); }), kDivisionByZero);  // rounds to 0
  EXPECT_EQ(errorOf([] { IntDiv(5, 0); }), kDivisionByZero);
  EXPECT_EQ(errorOf([] { Mod(3e10, 7); }), kOverflow);
  EXPECT_EQ(Mod(-2147483648.0, -1), 0);
  EXPECT_EQ(errorOf([] { IntDiv(-2147483648.0, -1); }), kOverflow);
}

TEST(Numeric, MathFunctionsFailOutsideTheirDomain) {
  EXPECT_DOUBLE_EQ(Sqr(16), 4);
  EXPECT_EQ(Sqr(0), 0);
  EXPECT_EQ(errorOf([] { Sqr(-1); }), kInvalidProcedureCall);
  EXPECT_DOUBLE_EQ(Log(std::exp(2.0)), 2);
  EXPECT_EQ(errorOf([] { Log(0); }), kInvalidProcedureCall);
  EXPECT_EQ(errorOf([] { Log(-3); }), kInvalidProcedureCall);
  EXPECT_EQ(errorOf([] { Exp(710); }), kOverflow);
  EXPECT_DOUBLE_EQ(Exp(0), 1);
  EXPECT_EQ(Sgn(-0.001), -1);
  EXPECT_EQ(Sgn(0), 0);
  EXPECT_EQ(Sgn(1e-300), 1);
  EXPECT_DOUBLE_EQ(Abs(-2.5), 2.5);
  EXPECT_DOUBLE_EQ(Atn(1) * 4, M_PI);
  EXPECT_NEAR(Tan(M_PI / 4), 1, 1e-15);
  EXPECT_EQ(errorOf([] { checkFinite(std::numeric_limits<double>::infinity()); }), kOverflow);
}
