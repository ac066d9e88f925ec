// The colour viewer: the classic 0-240 HLS, the byte orders of the notations,
// the fields kept in step through typed keys, and the copy to the registers.
#include "calc/ColourModel.h"
#include "shell/Registers.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class ColourModelTest : public CalvixTest {};

void type(ColourModel& m, ColourModel::Field f, int index, const QString& keys) {
  m.clearField(f, index);
  for (QChar c : keys) m.typeKey(f, index, c);
}

struct HlsRow {
  const char* name;
  Rgb rgb;
  Hls hls;
};

// Hue 0 red, 80 green, 160 blue; a grey has no hue and shows 160.
const HlsRow kHlsRows[] = {
    {"Red", {255, 0, 0}, {0, 120, 240}},       {"Green", {0, 255, 0}, {80, 120, 240}},
    {"Blue", {0, 0, 255}, {160, 120, 240}},    {"Yellow", {255, 255, 0}, {40, 120, 240}},
    {"Magenta", {255, 0, 255}, {200, 120, 240}}, {"White", {255, 255, 255}, {160, 240, 0}},
    {"Black", {0, 0, 0}, {160, 0, 0}},         {"OpeningGrey", {131, 131, 131}, {160, 123, 0}},
    {"DarkTeal", {0, 128, 128}, {120, 60, 240}}, {"PaleOrange", {255, 200, 150}, {19, 191, 240}},
};

TEST_F(ColourModelTest, HlsOnTheClassicScale) {
  for (const HlsRow& row : kHlsRows) {
    SCOPED_TRACE(row.name);
    const Hls h = rgbToHls(row.rgb);
    EXPECT_EQ(h.hue, row.hls.hue);
    EXPECT_EQ(h.luminosity, row.hls.luminosity);
    EXPECT_EQ(h.saturation, row.hls.saturation);
  }
}

TEST_F(ColourModelTest, HlsToRgbGivesThePureColoursBack) {
  for (const HlsRow& row : kHlsRows) {
    const bool pure = (row.rgb.red % 255 == 0 && row.rgb.green % 255 == 0 && row.rgb.blue % 255 == 0);
    if (!pure) continue;  // the 0-240 scale cannot hold every colour exactly
    SCOPED_TRACE(row.name);
    const Rgb c = hlsToRgb(row.hls);
    EXPECT_EQ(c.red, row.rgb.red);
    EXPECT_EQ(c.green, row.rgb.green);
    EXPECT_EQ(c.blue, row.rgb.blue);
  }
  // Out-of-scale values are held at 240.
  const Rgb white = hlsToRgb({999, 999, 0});
  EXPECT_EQ(white.red, 255);
}

// Every colour through its HLS and back: the luminosity comes back within
// one unit; each channel within the resolution of the scale (240 steps for
// 256 values, the hue split in six sextants of 40).
TEST_F(ColourModelTest, HlsRoundTripsForEveryColour) {
  int worstRgb = 0, worstLuminosity = 0;
  for (int r = 0; r < 256; ++r) {
    for (int g = 0; g < 256; ++g) {
      for (int b = 0; b < 256; ++b) {
        const Hls h = rgbToHls({r, g, b});
        const Rgb back = hlsToRgb(h);
        worstRgb = std::max({worstRgb, std::abs(back.red - r), std::abs(back.green - g), std::abs(back.blue - b)});
        worstLuminosity = std::max(worstLuminosity, std::abs(rgbToHls(back).luminosity - h.luminosity));
      }
    }
  }
  EXPECT_LE(worstLuminosity, 1);
  EXPECT_LE(worstRgb, 5);
}

TEST_F(ColourModelTest, TextNotationsRoundTripForEveryColour) {
  for (std::uint32_t v = 0; v <= 0xFFFFFF; ++v) {
    const Rgb c = colourFromValue(v);
    if (colourValue(c) != v) FAIL() << "decimal " << v;
    const Rgb hex = colourFromHexText(hexText(c));
    const Rgb html = colourFromHtmlText(htmlText(c));
    if (colourValue(hex) != v || colourValue(html) != v) FAIL() << "text " << v;
  }
}

TEST_F(ColourModelTest, NotationsOfPureRed) {
  ColourModel m;
  type(m, ColourModel::Field::Txt1, 0, QStringLiteral("255"));
  type(m, ColourModel::Field::Txt1, 1, QStringLiteral("0"));
  type(m, ColourModel::Field::Txt1, 2, QStringLiteral("0"));
  EXPECT_EQ(m.scrl, (std::array<int, 3>{255, 0, 0}));
  EXPECT_EQ(m.txtDEC, QStringLiteral("255"));
  EXPECT_EQ(m.txtHEX, QStringLiteral("&h0000FF"));  // the platform's order: blue first
  EXPECT_EQ(m.txtHTML, QStringLiteral("#FF0000"));  // the web's order: red first
  EXPECT_EQ(m.txtRGB, QStringLiteral("RGB(255,0,0)"));
  EXPECT_EQ(m.txt2, (std::array<QString, 3>{QStringLiteral("0"), QStringLiteral("120"), QStringLiteral("240")}));
}

TEST_F(ColourModelTest, EachFieldDrivesTheOthers) {
  struct Row {
    const char* name;
    ColourModel::Field field;
    int index;
    const char* keys;
    std::array<int, 3> rgb;
  };
  const Row rows[] = {
      {"Decimal", ColourModel::Field::TxtDEC, 0, "65280", {0, 255, 0}},
      {"HexIsBlueGreenRed", ColourModel::Field::TxtHEX, 0, "FF0000", {0, 0, 255}},
      {"HtmlIsRedGreenBlue", ColourModel::Field::TxtHTML, 0, "ff0000", {255, 0, 0}},
      {"ShortHtmlCountsFromTheRight", ColourModel::Field::TxtHTML, 0, "FF", {0, 0, 255}},
      {"DecimalOverTheTopIsWhite", ColourModel::Field::TxtDEC, 0, "99999999", {255, 255, 255}},
      {"RedOverTheTopIs255", ColourModel::Field::Txt1, 0, "999", {255, 131, 131}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    ColourModel m;
    type(m, row.field, row.index, QString::fromLatin1(row.keys));
    EXPECT_EQ(m.scrl, row.rgb);
    EXPECT_EQ(m.txtRGB, QStringLiteral("RGB(%1,%2,%3)").arg(row.rgb[0]).arg(row.rgb[1]).arg(row.rgb[2]));
  }
  // The three HLS fields together make the colour.
  ColourModel m;
  type(m, ColourModel::Field::Txt2, 0, QStringLiteral("80"));
  type(m, ColourModel::Field::Txt2, 1, QStringLiteral("120"));
  type(m, ColourModel::Field::Txt2, 2, QStringLiteral("240"));
  EXPECT_EQ(m.scrl, (std::array<int, 3>{0, 255, 0}));
  EXPECT_EQ(m.txt2[0], QStringLiteral("80"));  // the edited field keeps its text
  EXPECT_EQ(m.txtHTML, QStringLiteral("#00FF00"));
}

TEST_F(ColourModelTest, KeyFiltersAndLengths) {
  ColourModel m;
  m.clearField(ColourModel::Field::TxtHEX);
  EXPECT_FALSE(m.typeKey(ColourModel::Field::TxtHEX, 0, QLatin1Char('g')));
  EXPECT_FALSE(m.typeKey(ColourModel::Field::TxtHEX, 0, QLatin1Char('&')));
  EXPECT_TRUE(m.typeKey(ColourModel::Field::TxtHEX, 0, QLatin1Char('a')));
  m.clearField(ColourModel::Field::TxtDEC);
  EXPECT_FALSE(m.typeKey(ColourModel::Field::TxtDEC, 0, QLatin1Char('A')));
  EXPECT_FALSE(m.typeKey(ColourModel::Field::TxtDEC, 0, QLatin1Char(',')));
  EXPECT_FALSE(m.typeKey(ColourModel::Field::TxtDEC, 0, QLatin1Char('-')));
  type(m, ColourModel::Field::TxtHTML, 0, QStringLiteral("1234567"));
  EXPECT_EQ(m.txtHTML, QStringLiteral("123456"));
  type(m, ColourModel::Field::Txt1, 1, QStringLiteral("1234"));
  EXPECT_EQ(m.txt1[1], QStringLiteral("123"));
  EXPECT_TRUE(m.typeKey(ColourModel::Field::Txt1, 1, QChar(8)));
  EXPECT_EQ(m.txt1[1], QStringLiteral("12"));
  EXPECT_EQ(m.scrl[1], 12);
}

TEST_F(ColourModelTest, OpensAt131AndSlidersUpdateEveryField) {
  ColourModel m;
  EXPECT_EQ(m.txtDEC, QString::number(131 + 131 * 256 + 131 * 65536));
  m.scrl_Change(2, 16);
  EXPECT_EQ(m.txt1[2], QStringLiteral("16"));
  EXPECT_EQ(m.txtHEX, QStringLiteral("&h108383"));
  EXPECT_EQ(m.txtHTML, QStringLiteral("#838310"));
}

TEST_F(ColourModelTest, CopyFillsTheFourRegisters) {
  ColourModel m;
  m.setColour({10, 20, 30});
  m.botoncopia_Click();
  EXPECT_EQ(RegisterValue(0), 10);
  EXPECT_EQ(RegisterValue(1), 20);
  EXPECT_EQ(RegisterValue(2), 30);
  EXPECT_EQ(RegisterValue(3), 10 + 20 * 256 + 30 * 65536);
  EXPECT_EQ(RegisterLabel(0), Res(4403));
  EXPECT_EQ(RegisterLabel(3), Res(4340));
}

}  // namespace
