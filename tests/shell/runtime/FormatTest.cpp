// Format: the named number forms, digit patterns with their rounding (half
// away from zero), group marks, exponent parts and sections, and the date
// patterns. Each case says which decimal symbol it runs with.
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/Variant.h"
#include "tests/support/TestSupport.h"

using namespace rt;

class FormatTest : public CalvixTest {};

struct Row {
  double x;
  const char* pattern;
  const char* point;  // on a "." system
  const char* comma;  // on a "," system
};

// Runs every row on a "." system and then on a "," system.
class FormatRows : public FormatTest {
 protected:
  void check(const std::initializer_list<Row>& rows) {
    for (bool comma : {false, true}) {
      comma ? useComma() : usePoint();
      for (const Row& r : rows) {
        EXPECT_EQ(Format(r.x, QString::fromLatin1(r.pattern)), QString::fromUtf8(comma ? r.comma : r.point))
            << "Format(" << r.x << ", \"" << r.pattern << "\") on a " << (comma ? "comma" : "point") << " system";
      }
    }
  }
};

TEST_F(FormatRows, DigitExponentAndNamedPatterns) {
  const std::initializer_list<Row> rows = {
      {1.5, "#.#", "1.5", "1,5"}, {0, "0", "0", "0"}, {0, "0.00", "0.00", "0,00"}, {0, "#.##", ".", ","},
      {0.5, "#.##", ".5", ",5"},
      {3, "0.##", "3.", "3,"},  // the dangling separator the calculator removes afterwards
      {3.14159, "0.##", "3.14", "3,14"},
      {2.5, "0", "3", "3"},  // Format rounds half away from zero
      {-2.5, "0", "-3", "-3"}, {0.125, "0.00", "0.13", "0,13"}, {2.345, "0.00", "2.35", "2,35"},
      {-1234.565, "0.00", "-1234.57", "-1234,57"}, {9.996, "0.00", "10.00", "10,00"}, {5, "000", "005", "005"},
      {12345, "00", "12345", "12345"}, {0.05, "0.0#", "0.05", "0,05"}, {0.5, "0.0#", "0.5", "0,5"},
      {1234567.891, "#,##0.00", "1,234,567.89", "1.234.567,89"}, {-1234567.891, "#,##0", "-1,234,568", "-1.234.568"},
      {123, "#,##0", "123", "123"}, {0.256, "0.0%", "25.6%", "25,6%"},
      {1234567, "#,##0,", "1,235", "1.235"},  // a comma before the end scales by 1000
      {1234567, "0,.00", "1234.57", "1234,57"}, {-0.001, "0.00", "-0.00", "-0,00"},
      {5551234, "000-0000", "555-1234", "555-1234"}, {42, "\"N=\"0", "N=42", "N=42"}, {42, "\\#0", "#42", "#42"},
      // Exponent parts.
      {12345, "0.00E+00", "1.23E+04", "1,23E+04"}, {12345, "0.00e-00", "1.23e04", "1,23e04"},
      {0.00012, "0.00E+00", "1.20E-04", "1,20E-04"}, {0.00012, "0.##E-###", "1.2E-4", "1,2E-4"},
      {12345.678, "0.##E+###", "1.23E+4", "1,23E+4"}, {0.0000012345, "0.###E-###", "1.235E-6", "1,235E-6"},
      {-12345, "0.0E+00", "-1.2E+04", "-1,2E+04"}, {0, "0.00E+00", "0.00E+00", "0,00E+00"},
      {999.96, "0.00E+00", "1.00E+03", "1,00E+03"}, {123456, "00.0E+0", "12.3E+4", "12,3E+4"},
      {12345.678, "0.E+###", "1.E+4", "1,E+4"}, {1e300, "0.00E+000", "1.00E+300", "1,00E+300"},
      // Named forms and sections.
      {1.5, "General Number", "1.5", "1,5"}, {1.5e20, "general number", "1.5E+20", "1,5E+20"},
      {1234.5, "Fixed", "1234.50", "1234,50"}, {1234.5, "Standard", "1,234.50", "1.234,50"},
      {0.1234, "Percent", "12.34%", "12,34%"}, {1234.5, "Scientific", "1.23E+03", "1,23E+03"}, {0, "Yes/No", "No", "No"},
      {-1, "True/False", "True", "True"}, {5, "0.0;(0.0)", "5.0", "5,0"}, {-5, "0.0;(0.0)", "(5.0)", "(5,0)"},
      {0, "0.0;(0.0);\"zero\"", "zero", "zero"}, {-5, "0.0;;\"zero\"", "-5.0", "-5,0"},
  };
  check(rows);
}

TEST_F(FormatTest, TextsAreReadAsNumbersWhenTheyAreOne) {
  useComma();
  // The calculator's second pass: "3," read back and shown without the separator.
  EXPECT_EQ(Format(Variant("3,"), QStringLiteral("General Number")), QStringLiteral("3"));
  EXPECT_EQ(Format(Variant("2,50"), QStringLiteral("General Number")), QStringLiteral("2,5"));
  EXPECT_EQ(Format(Variant("abc"), QStringLiteral("0.00")), QStringLiteral("abc"));
  EXPECT_EQ(Format(Variant(), QStringLiteral("0.00")), QString());
  EXPECT_EQ(Format(Variant::single(0.1f), QStringLiteral("General Number")), QStringLiteral("0,1"));
}

TEST_F(FormatTest, DatePatterns) {
  usePoint();
  const double d = DateSerial(2024, 3, 7) + TimeSerial(14, 5, 9);
  EXPECT_EQ(Format(d, QStringLiteral("dd/mm/yyyy")), QStringLiteral("07/03/2024"));
  EXPECT_EQ(Format(d, QStringLiteral("d/m/yy")), QStringLiteral("7/3/24"));
  EXPECT_EQ(Format(d, QStringLiteral("hh:mm:ss")), QStringLiteral("14:05:09"));  // mm after hh is minutes
  EXPECT_EQ(Format(d, QStringLiteral("hh:nn")), QStringLiteral("14:05"));
  EXPECT_EQ(Format(d, QStringLiteral("yyyy-mm-dd")), QStringLiteral("2024-03-07"));
  EXPECT_EQ(Format(d, QStringLiteral("mmmm")), QStringLiteral("March"));
  EXPECT_EQ(Format(d, QStringLiteral("dddd")), QStringLiteral("Thursday"));
  EXPECT_EQ(Format(d, QStringLiteral("h:nn AM/PM")), QStringLiteral("2:05 PM"));
  EXPECT_EQ(FormatDate(d, QStringLiteral("q")), QStringLiteral("1"));
  useComma();
  EXPECT_EQ(Format(d, QStringLiteral("mmmm")), QStringLiteral("marzo"));
  EXPECT_EQ(Format(d, QStringLiteral("dd/mm/yyyy")), QStringLiteral("07/03/2024"));
  EXPECT_FALSE(Format(d, QStringLiteral("Long Date")).isEmpty());
  EXPECT_TRUE(Format(d, QStringLiteral("Long Time")).contains(QLatin1String("14:05:09")));
}

TEST_F(FormatTest, GeneralDateShowsOnlyThePartsThatAreThere) {
  useComma();
  EXPECT_EQ(FormatDate(DateSerial(2024, 3, 7), QStringLiteral("General Date")), QStringLiteral("07/03/2024"));
  EXPECT_EQ(FormatDate(TimeSerial(6, 0, 0), QStringLiteral("General Date")), QStringLiteral("6:00:00"));
}
