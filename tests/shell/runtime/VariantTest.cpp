// Variant arithmetic: integer widening, "/" and "^" as 64-bit floats,
// overflow and division by zero as failures, texts joined or read as numbers.
#include <limits>

#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/Variant.h"
#include "tests/support/TestSupport.h"

using namespace rt;

namespace {
Variant I(std::int16_t v) { return Variant::integer(v); }
Variant L(std::int32_t v) { return Variant::longValue(v); }
#define EXPECT_VARIANT(v, t, x)      \
  do {                               \
    const Variant got = (v);         \
    EXPECT_EQ(got.type(), VType::t); \
    EXPECT_EQ(got.toDouble(), x);    \
  } while (false)
}  // namespace

class VariantArithmetic : public CalvixTest {};

TEST_F(VariantArithmetic, IntegerResultsWidenInsteadOfOverflowing) {
  EXPECT_VARIANT(I(32767) + I(1), Long, 32768);
  EXPECT_VARIANT(I(100) * I(100), Integer, 10000);
  EXPECT_VARIANT(I(200) * I(200), Long, 40000);
  EXPECT_VARIANT(L(2147483647) + I(1), Double, 2147483648.0);
  EXPECT_VARIANT(-I(-32768), Long, 32768);
  EXPECT_VARIANT(I(-32768) - I(1), Long, -32769);
}

TEST_F(VariantArithmetic, DivisionAndPowerAlwaysGiveDoubles) {
  EXPECT_VARIANT(I(6) / I(3), Double, 2);
  EXPECT_VARIANT(power(I(2), I(3)), Double, 8);
  EXPECT_DOUBLE_EQ(power(Variant(2.0), Variant(0.5)).toDouble(), std::sqrt(2.0));
  EXPECT_DOUBLE_EQ(power(Variant(-8.0), Variant(3.0)).toDouble(), -512);
}

TEST_F(VariantArithmetic, OverflowAndDivisionByZeroAreFailuresNotInfinities) {
  EXPECT_EQ(errorOf([] { return Variant(8.0) / Variant(0.0); }), kDivisionByZero);
  EXPECT_EQ(errorOf([] { return I(8) / I(0); }), kDivisionByZero);
  EXPECT_EQ(errorOf([] { return Variant(0.0) / Variant(0.0); }), kOverflow);
  EXPECT_EQ(errorOf([] { return Variant(1e308) * Variant(10.0); }), kOverflow);
  EXPECT_EQ(errorOf([] { return Variant(1e308) + Variant(1e308); }), kOverflow);
  EXPECT_EQ(errorOf([] { return Variant(1e300) / Variant(1e-10); }), kOverflow);
  EXPECT_EQ(errorOf([] { return power(Variant(10.0), Variant(400.0)); }), kOverflow);
  EXPECT_EQ(errorOf([] { return power(Variant(-8.0), Variant(1.0 / 3)); }), kInvalidProcedureCall);
  EXPECT_EQ(errorOf([] { return power(Variant(0.0), Variant(-1.0)); }), kInvalidProcedureCall);
  EXPECT_EQ(errorOf([] { return intDivide(I(5), I(0)); }), kDivisionByZero);
  EXPECT_EQ(errorOf([] { return modulo(Variant(5.0), Variant(0.2)); }), kDivisionByZero);
}

TEST_F(VariantArithmetic, IntegerDivisionAndModKeepTheNarrowType) {
  EXPECT_VARIANT(intDivide(I(7), I(2)), Integer, 3);
  EXPECT_VARIANT(intDivide(Variant(7.5), I(2)), Long, 4);
  EXPECT_VARIANT(modulo(I(-7), I(3)), Integer, -1);
}

TEST_F(VariantArithmetic, TextsJoinAndTextsMetByNumbersAreRead) {
  EXPECT_EQ((Variant("12") + Variant("3")).toText(), QStringLiteral("123"));
  EXPECT_EQ((Variant("ab") + Variant()).toText(), QStringLiteral("ab"));
  usePoint();
  EXPECT_VARIANT(Variant("12.5") + I(1), Double, 13.5);
  useComma();
  EXPECT_EQ((Variant("12,5") + I(1)).toDouble(), 13.5);
  EXPECT_EQ((Variant("12.5") * I(1)).toDouble(), 125);  // the point groups on a comma system
  EXPECT_EQ(errorOf([] { return Variant("abc") + I(1); }), kTypeMismatch);
  EXPECT_EQ(errorOf([] { return Variant("") * I(1); }), kTypeMismatch);
  EXPECT_EQ(concat(Variant(1.5), Variant("x")).toText(), QStringLiteral("1,5x"));
}

TEST_F(VariantArithmetic, EmptyAndBooleansCountAsSmallIntegers) {
  EXPECT_VARIANT(Variant() + I(5), Integer, 5);
  EXPECT_VARIANT(Variant::boolean(true) + Variant::boolean(true), Integer, -2);
  EXPECT_EQ((-Variant()).toDouble(), 0);
  EXPECT_EQ(Variant().toText(), QString());
}

TEST_F(VariantArithmetic, SingleResultsAreComputedInSinglePrecision) {
  Variant r = Variant::single(0.1f) + Variant::single(0.2f);
  EXPECT_EQ(r.type(), VType::Single);
  EXPECT_EQ(static_cast<float>(r.toDouble()), 0.1f + 0.2f);
  r = Variant::single(0.1f) + Variant(0.2);
  EXPECT_EQ(r.type(), VType::Double);
}

TEST_F(VariantArithmetic, DatesMoveByDaysAndTheirDifferenceIsANumber) {
  EXPECT_VARIANT(Variant::date(45000) + I(2), Date, 45002);
  EXPECT_VARIANT(Variant::date(45010) - Variant::date(45000), Double, 10);
}

TEST_F(VariantArithmetic, ComparisonIsNumericForNumbersAndBinaryForTexts) {
  EXPECT_EQ(compare(I(2), Variant(10.0)), -1);
  EXPECT_EQ(compare(Variant("2"), Variant("10")), 1);
  EXPECT_EQ(compare(Variant("a"), Variant("B")), 1);
  EXPECT_EQ(compare(Variant(), I(0)), 0);
  EXPECT_EQ(compare(Variant(), Variant("")), 0);
}

TEST_F(VariantArithmetic, ConversionsFollowTheRuntime) {
  EXPECT_EQ(Variant(2.5).toInteger(), 2);
  EXPECT_EQ(errorOf([] { return Variant(40000.0).toInteger(); }), kOverflow);
  EXPECT_EQ(errorOf([] { return Variant(1e40).toSingle(); }), kOverflow);
  EXPECT_EQ(Variant::boolean(true).toText(), QStringLiteral("True"));
  EXPECT_EQ(Variant::boolean(true).toDouble(), -1);
  EXPECT_EQ(I(-7).toText(), QStringLiteral("-7"));
  EXPECT_TRUE(Variant(" 3 ").toBool());
}
