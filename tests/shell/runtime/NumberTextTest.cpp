// Str, the default number text, Val and the locale-aware reading: what every
// calculator display shows and reads back, digit by digit. Each test pins the
// decimal symbol it runs with.
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "shell/runtime/NumberText.h"
#include "shell/runtime/RuntimeError.h"
#include "tests/support/TestSupport.h"

using namespace rt;

class NumberText : public CalvixTest {};

TEST_F(NumberText, StrPutsABlankBeforeNonNegativeNumbersAndExponentsOnHugeAndTinyOnes) {
  const struct {
    double x;
    const char* text;
  } rows[] = {
      {5, " 5"}, {-5, "-5"}, {0, " 0"}, {-0.0, " 0"},  // negative zero shows as zero
      {1.5, " 1.5"}, {-1.5, "-1.5"}, {0.5, " 0.5"}, {-0.25, "-0.25"}, {0.0001, " 0.0001"},
      {0.00012345, " 0.00012345"}, {123456789012345.0, " 123456789012345"},
      {0.1 + 0.2, " 0.3"},  // 15 significant digits hide the binary tail
      {1.0 / 3.0, " 0.333333333333333"}, {2.0 / 3.0, " 0.666666666666667"}, {100, " 100"},
      {1e14, " 100000000000000"}, {1e15, " 1E+15"}, {1e18, " 1E+18"}, {-1e18, "-1E+18"}, {1.5e18, " 1.5E+18"},
      {1234567890123456.0, " 1.23456789012346E+15"}, {1e100, " 1E+100"}, {1e-5, " 1E-05"},
      {-1.5e-7, "-1.5E-07"}, {1e-300, " 1E-300"}, {std::numeric_limits<double>::max(), " 1.79769313486232E+308"},
      {std::numeric_limits<double>::denorm_min(), " 4.94065645841247E-324"},
      {999999999999999.5, " 1E+15"},  // rounding to 15 digits carries into the exponent
  };
  for (const auto& r : rows) EXPECT_EQ(Str(r.x), QString::fromLatin1(r.text)) << r.x;
}

TEST_F(NumberText, SingleFloatsShowSevenDigits) {
  EXPECT_EQ(StrSingle(1.5f), QStringLiteral(" 1.5"));
  EXPECT_EQ(StrSingle(0.1f), QStringLiteral(" 0.1"));
  EXPECT_EQ(StrSingle(1.0f / 3.0f), QStringLiteral(" 0.3333333"));
  EXPECT_EQ(StrSingle(12345678.0f), QStringLiteral(" 1.234568E+07"));
  EXPECT_EQ(StrSingle(-2.5f), QStringLiteral("-2.5"));
  EXPECT_EQ(NumberToTextSingle(15708820.0f), QStringLiteral("1.570882E+07"));
}

TEST_F(NumberText, DefaultTextDropsTheBlankAndUsesTheSystemSeparator) {
  usePoint();
  EXPECT_EQ(NumberToText(5), QStringLiteral("5"));
  EXPECT_EQ(NumberToText(-2.75), QStringLiteral("-2.75"));
  EXPECT_EQ(NumberToText(1.5e18), QStringLiteral("1.5E+18"));
  EXPECT_EQ(NumberToText(12345.678), QStringLiteral("12345.678"));  // no group marks
  useComma();
  EXPECT_EQ(NumberToText(5), QStringLiteral("5"));
  EXPECT_EQ(NumberToText(-2.75), QStringLiteral("-2,75"));
  EXPECT_EQ(NumberToText(1.5e18), QStringLiteral("1,5E+18"));
  EXPECT_EQ(NumberToText(1.25e-7), QStringLiteral("1,25E-07"));
  EXPECT_EQ(NumberToText(12345.678), QStringLiteral("12345,678"));
  // Str is not locale-aware.
  EXPECT_EQ(Str(-2.75), QStringLiteral("-2.75"));
}

TEST_F(NumberText, ValReadsFromTheLeftAndNeverFails) {
  const struct {
    const char* text;
    double value;
  } rows[] = {
      {"", 0}, {"abc", 0}, {"12,5", 12},  // the comma is never a decimal separator for Val
      {"  34  56  78", 345678}, {"12  3.4  5.6", 123.45},  // the second point ends the number
      {" 12 34", 1234}, {"1e3x", 1000}, {"1E+3", 1000}, {"2.5e-2", 0.025}, {"1e", 1}, {"1e+", 1}, {"1d2", 100},
      {".5", 0.5}, {"-.5", -0.5}, {"- 5", -5}, {"+7", 7}, {"\t3\n4", 34}, {"&hFF", 255},
      {"&HFFFF", -1},  // four hex digits are a 16-bit value
      {"&h7FFF", 32767}, {"&h10000", 65536}, {"&hFFFFFFFF", -1}, {"&o17", 15}, {"&hZZ", 0}, {"&", 0}, {"-", 0},
      {".", 0}, {"1.2.3", 1.2}, {"12abc", 12}, {" -3.25E2 rest", -325},
  };
  for (const auto& r : rows) {
    EXPECT_DOUBLE_EQ(Val(QString::fromLatin1(r.text)), r.value) << '"' << r.text << '"';
  }
  // Past the double range Val holds at the largest number instead of failing.
  EXPECT_EQ(Val(QStringLiteral("1e400")), std::numeric_limits<double>::max());
  EXPECT_EQ(Val(QStringLiteral("-1e400")), -std::numeric_limits<double>::max());
  EXPECT_EQ(Val(QStringLiteral(".5e400")), std::numeric_limits<double>::max());
  EXPECT_EQ(Val(QStringLiteral("1e-400")), 0);
  // Nor does the system's separator change it.
  useComma();
  EXPECT_DOUBLE_EQ(Val(QStringLiteral("12,5")), 12);
  EXPECT_DOUBLE_EQ(Val(QStringLiteral("12.5")), 12.5);
}

TEST_F(NumberText, LocaleReadingTakesTheSystemSeparatorAndGroupsWithTheOther) {
  const struct {
    bool comma;
    const char* text;
    double value;
  } rows[] = {
      {false, "12.5", 12.5}, {false, "12,5", 125}, {false, "1,234,567.5", 1234567.5}, {false, "  -3.5  ", -3.5},
      {false, "+3", 3}, {false, "1E+18", 1e18}, {false, "1.5e-7", 1.5e-7}, {false, "&hFF", 255},
      {false, "&hFFFF", -1}, {false, ".5", 0.5}, {false, "5.", 5}, {true, "12,5", 12.5}, {true, "12.5", 125},
      {true, "-1,5E+18", -1.5e18}, {true, "0,", 0},
  };
  for (const auto& r : rows) {
    r.comma ? useComma() : usePoint();
    EXPECT_DOUBLE_EQ(TextToDouble(QString::fromLatin1(r.text)), r.value) << r.text << (r.comma ? " (comma)" : "");
  }
  double v = 0;
  EXPECT_FALSE(tryTextToDouble(QStringLiteral("1,2,3"), v));  // one decimal separator only
}

TEST_F(NumberText, LocaleReadingRefusesTextsThatAreNoNumbers) {
  usePoint();
  for (const char* bad : {"", "  ", "abc", "1e", "1e+", "-", ".", "12abc", "1 2", "&h", "&hXY", "--5", "1.2.3", "E5"}) {
    try {
      TextToDouble(QString::fromLatin1(bad));
      ADD_FAILURE() << '"' << bad << "\" was read as a number";
    } catch (const RuntimeError& e) {
      EXPECT_EQ(e.number(), kTypeMismatch) << bad;
    }
  }
  try {
    TextToDouble(QStringLiteral("1e400"));
    ADD_FAILURE() << "1e400 was read";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), kOverflow);
  }
}

TEST_F(NumberText, EveryDefaultTextReadsBackToTheSameDigits) {
  // What the display shows must read back through the locale-aware reading
  // to a number that shows the same again, on both systems.
  const double values[] = {0, 1, -1, 0.1, 1.0 / 7, -123.456, 1e15, 1.5e-7, 9.87654321e200, 6.02214076e23,
                           0.000123, 32767.5, -2147483648.0};
  for (bool comma : {false, true}) {
    comma ? useComma() : usePoint();
    for (double x : values) {
      const QString shown = NumberToText(x);
      EXPECT_EQ(NumberToText(TextToDouble(shown)), shown) << shown.toStdString();
    }
  }
}

TEST_F(NumberText, AppendedTextsAreTheTextsOfTheirOwn) {
  // The appending forms write into a text that already holds something, and
  // must give exactly Str and NumberToText: random bits, edges, both systems.
  std::mt19937_64 random(12345);
  std::vector<double> values = {0.0, -0.0, 1, -1, 0.5, 1e15, 1e16, 999999999999999.5, 1e-5, 1e-4, 5e-324,
                                std::numeric_limits<double>::max(), -std::numeric_limits<double>::min(),
                                32767, -32768, 2147483647.0, 0.1 + 0.2};
  for (int i = 0; i < 200000; ++i) {
    double x = 0;
    const std::uint64_t bits = random();
    std::memcpy(&x, &bits, sizeof x);
    if (std::isfinite(x)) values.push_back(x);
    values.push_back(static_cast<double>(static_cast<std::int64_t>(random() % 2000001) - 1000000) / 1000.0);
  }
  for (bool comma : {false, true}) {
    comma ? useComma() : usePoint();
    QString str = QStringLiteral("x= ");
    QString text = QStringLiteral("[");
    for (double x : values) {
      str.truncate(3);
      appendStr(str, x);
      text.truncate(1);
      appendNumberText(text, x);
      ASSERT_EQ(str, QStringLiteral("x= ") + Str(x)) << x;
      ASSERT_EQ(text, QStringLiteral("[") + NumberToText(x)) << x;
    }
  }
}

TEST_F(NumberText, HexAndOctRoundFirstAndUseTwosComplement) {
  EXPECT_EQ(Hex(255), QStringLiteral("FF"));
  EXPECT_EQ(Hex(0), QStringLiteral("0"));
  EXPECT_EQ(Hex(-1), QStringLiteral("FFFF"));
  EXPECT_EQ(Hex(-32768), QStringLiteral("8000"));
  EXPECT_EQ(Hex(-32769), QStringLiteral("FFFF7FFF"));
  EXPECT_EQ(Hex(65535), QStringLiteral("FFFF"));
  EXPECT_EQ(Hex(2.5), QStringLiteral("2"));  // half to even
  EXPECT_EQ(Hex(3.5), QStringLiteral("4"));
  EXPECT_EQ(Hex(2147483647), QStringLiteral("7FFFFFFF"));
  EXPECT_EQ(Oct(8), QStringLiteral("10"));
  EXPECT_EQ(Oct(-1), QStringLiteral("177777"));
  EXPECT_EQ(Oct(-100000), QStringLiteral("37777474540"));
  EXPECT_THROW(Hex(2147483648.0), RuntimeError);
}

namespace {
// The digits of x correctly rounded to `precision` significant digits, the
// slow and plain way, without trailing zeros.
DecimalDigits referenceDigits(double x, int precision) {
  DecimalDigits d;
  if (x == 0) return d;
  char buf[64];
  const auto res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific, precision - 1);
  const std::string text(buf, res.ptr);
  d.negative = text[0] == '-';
  const size_t e = text.find('e');
  for (size_t i = d.negative ? 1 : 0; i < e; ++i) {
    if (text[i] != '.') d.digits += QLatin1Char(text[i]);
  }
  while (d.digits.size() > 1 && d.digits.endsWith(QLatin1Char('0'))) d.digits.chop(1);
  d.exponent = std::stoi(text.substr(e + 1));
  return d;
}
}  // namespace

TEST_F(NumberText, SignificantDigitsAreTheCorrectlyRoundedDigits) {
  // The digits come from the shortest text first and fall back to exact
  // rounding near halves; both routes must give the exactly rounded digits.
  std::mt19937_64 gen(99);
  std::vector<double> values = {5e-324, 2.2250738585072014e-308, 1.7976931348623157e308, 1234567890123455.0,
                                1234567890123465.0, 0.1, 1.0 / 3, 2.0 / 3, 9.9999999999999995e22, 999999999999999.5,
                                0.30000000000000004, 123456.78901234549, 1e15, 1e16, 1e-5, -1234.5, 0.00705};
  EXPECT_EQ(significantDigits(0, 15).digits, QStringLiteral("0"));
  EXPECT_FALSE(significantDigits(0, 15).negative);
  for (int i = 0; i < 300000; ++i) {
    double x = 0;
    switch (i % 4) {
      case 0: {
        std::uint64_t bits = gen();
        std::memcpy(&x, &bits, sizeof x);
        break;
      }
      case 1: x = std::uniform_real_distribution<double>(0.1, 10)(gen); break;
      case 2: x = static_cast<double>(gen() >> (11 + gen() % 40)); break;  // integers, many with 16 digits
      default: x = std::round(std::uniform_real_distribution<double>(-1e6, 1e6)(gen) * 1e9) / 1e9; break;
    }
    if (std::isfinite(x)) values.push_back(x);
  }
  for (double x : values) {
    for (int precision : {15, 7}) {
      const DecimalDigits got = significantDigits(x, precision);
      const DecimalDigits want = referenceDigits(x, precision);
      ASSERT_EQ(got.digits, want.digits) << std::hexfloat << x << " at " << precision;
      ASSERT_EQ(got.exponent, want.exponent) << std::hexfloat << x;
      ASSERT_EQ(got.negative, want.negative) << std::hexfloat << x;
    }
  }
}
