// The resistor colour code both ways: values from painted bands, bands from
// a value (rounded to the bands' digits), IEC tolerances and coefficients.
#include <cmath>

#include "calc/ResistorCode.h"
#include "shell/Printing.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"
#include "tests/support/TestSupport.h"

namespace {

class ResistorCodeTest : public CalvixTest {};

void paint(ResistorCode& r, int bandCount, const QString& words) {
  r.Option1_Click(bandCount - 3);
  r.Command89_Click();
  for (const QString& w : words.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    if (w != QLatin1String("x")) r.bands.at(static_cast<size_t>(r.Check2)) = colourFromWord(w);
    r.Check2 = (r.Check2 + 1) % r.bandCount;
  }
}

struct ReadRow {
  const char* name;
  int bandCount;
  const char* bands;
  const char* value;  // with a point
  const char* tolerance;
  const char* coefficient;
};

const ReadRow kReadRows[] = {
    {"FourBandThousand", 4, "brown black red gold", "1000", "5", ""},
    {"ThreeBandsHaveTwentyPercent", 3, "brown black red", "1000", "20", ""},
    {"NoneBandIsTwentyPercent", 4, "red red brown none", "220", "20", ""},
    {"GoldMultiplierIsATenth", 4, "yellow violet gold gold", "4.7", "5", ""},
    {"SilverMultiplierIsAHundredth", 4, "green blue silver silver", "0.56", "10", ""},
    {"WhiteMultiplier", 4, "white white white brown", "99000000000", "1", ""},
    {"FiveBands", 5, "brown black black brown brown", "1000", "1", ""},
    {"IecSmallTolerances", 5, "orange orange black black violet", "330", "0.1", ""},
    {"OrangeIsFivehundredths", 5, "red red black red orange", "22000", "0.05", ""},
    {"BlackMarksNoTolerance", 4, "red red red black", "2200", "", ""},
    {"SixBandsCoefficient", 6, "brown black black red brown red", "10000", "1", "(C) 50 ppm/ºC"},
    {"SixBandsYellowIs25", 6, "brown black black red brown yellow", "10000", "1", "(D) 25 ppm/ºC"},
    {"UnpaintedDigitStops", 4, "brown x red gold", "", "5", ""},
    {"UnpaintedMultiplierStops", 5, "brown black black x brown", "", "1", ""},
    {"GoldAsDigitStops", 4, "gold black red gold", "", "5", ""},
};

TEST_F(ResistorCodeTest, ValueFromTheBands) {
  for (bool comma : {false, true}) {
    if (comma) useComma();
    for (const ReadRow& row : kReadRows) {
      SCOPED_TRACE(std::string(row.name) + (comma ? " comma" : " point"));
      ResistorCode r;
      paint(r, row.bandCount, QString::fromUtf8(row.bands));
      r.Command87_Click();
      QString value = QString::fromLatin1(row.value), tolerance = QString::fromLatin1(row.tolerance);
      if (comma) {
        value.replace(QLatin1Char('.'), QLatin1Char(','));
        tolerance.replace(QLatin1Char('.'), QLatin1Char(','));
      }
      EXPECT_EQ(r.Text8, value);
      EXPECT_EQ(r.tolerance, tolerance);
      EXPECT_EQ(r.Combo3Text(), QString::fromUtf8(row.coefficient));
    }
  }
}

TEST_F(ResistorCodeTest, PaintingMovesToTheNextBand) {
  ResistorCode r;
  r.Option1_Click(0);
  for (int c : {1, 0, 2, 5}) r.Command86_Click(c);  // the fourth wraps onto band 1
  EXPECT_EQ(r.bandWords(), QStringLiteral("green black red"));
  r.Check2_Click(1);
  r.Command86_Click(kNoColour);
  EXPECT_EQ(r.bandWords(), QStringLiteral("green none red"));
}

struct ReverseRow {
  const char* name;
  int bandCount;
  const char* value;
  const char* bands;
};

const ReverseRow kReverseRows[] = {
    {"RoundsToTwoDigits", 4, "4732", "yellow violet red gold"},
    {"RoundsToThreeDigits", 5, "4732", "yellow violet orange brown gold"},
    {"RoundingCarriesIntoTheExponent", 4, "9960", "brown black orange gold"},
    {"BelowOneIsGold", 4, "4.7", "yellow violet gold gold"},
    {"BelowOneIsSilver", 3, "0.33", "orange orange silver"},
    {"Zero", 4, "0", "black black black gold"},
    {"SixBandsTakeTheCoefficient", 6, "100", "brown black black black gold brown"},
};

TEST_F(ResistorCodeTest, BandsFromAValue) {
  for (const ReverseRow& row : kReverseRows) {
    SCOPED_TRACE(row.name);
    ResistorCode r;
    r.Option1_Click(row.bandCount - 3);
    r.Text9 = QString::fromLatin1(row.value);
    ASSERT_TRUE(r.Command97_Click());
    EXPECT_EQ(r.bandWords(), QString::fromLatin1(row.bands));
    EXPECT_TRUE(messages.shown().empty());
  }
}

TEST_F(ResistorCodeTest, ValuesOutOfTheMultipliersAreRefused) {
  for (const char* value : {"0.047", "1e11", "-5", "abc"}) {
    SCOPED_TRACE(value);
    ResistorCode r;
    r.Option1_Click(1);
    paint(r, 4, QStringLiteral("red red red gold"));
    r.Text9 = QString::fromLatin1(value);
    EXPECT_FALSE(r.Command97_Click());
    EXPECT_EQ(r.bandWords(), QStringLiteral("red red red gold"));  // the bands stay
  }
  ASSERT_EQ(messages.shown().size(), 4u);
  EXPECT_TRUE(messages.shown().back().text.contains(QStringLiteral("Fuera de Rango")));
}

// Every E24 value in every decade the multiplier colours reach goes to bands
// and back to itself, for three to six bands.
TEST_F(ResistorCodeTest, E24SeriesRoundTripsForEveryBandCount) {
  const int e24[] = {10, 11, 12, 13, 15, 16, 18, 20, 22, 24, 27, 30, 33, 36, 39, 43, 47, 51, 56, 62, 68, 75, 82, 91};
  for (int bandCount = 3; bandCount <= 6; ++bandCount) {
    const int digits = bandCount <= 4 ? 2 : 3;
    for (int exponent = -2; exponent <= 9; ++exponent) {
      for (int m : e24) {
        const int mantissa = digits == 2 ? m : m * 10;
        const double value = exponent >= 0 ? mantissa * std::pow(10.0, exponent) : mantissa / std::pow(10.0, -exponent);
        ResistorCode r;
        r.Option1_Click(bandCount - 3);
        r.Text9 = rt::NumberToText(value);
        ASSERT_TRUE(r.Command97_Click()) << bandCount << " bands, " << value;
        ASSERT_EQ(rt::TextToDouble(r.Text8), value) << bandCount << " bands, " << r.bandWords().toStdString();
      }
    }
  }
}

TEST_F(ResistorCodeTest, SheetListsTheBandsAndTheReading) {
  ResistorCode r;
  paint(r, 6, QStringLiteral("brown black x red brown red"));
  r.Command87_Click();
  QStringList lines;
  const PrintDocument sheet = r.sheet();
  for (const PrintLine& line : sheet.lines()) {
    QString text;
    for (const PrintSpan& span : line.spans) text += span.text;
    lines << text;
  }
  EXPECT_TRUE(lines.contains(QStringLiteral(" 1. ") + Res(4348) + QLatin1Char(' ') + Res(4373))) << lines.join('|').toStdString();
  EXPECT_TRUE(lines.contains(QStringLiteral(" 3. x ") + Res(4373)));
  EXPECT_TRUE(lines.contains(QStringLiteral(" 4. ") + Res(4349) + QLatin1Char(' ') + Res(4374)));
  EXPECT_TRUE(lines.contains(Res(4361) + QStringLiteral(": ")));  // the value needs band 3
  EXPECT_TRUE(lines.contains(Res(4363) + QStringLiteral(": (C) 50 ppm/ºC")));
}

}  // namespace
