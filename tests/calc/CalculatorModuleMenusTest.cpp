// The scientific calculator's converter key and its three colours: the key
// takes only a number (on "." and "," systems), and the colours follow the
// dialog, come back to their defaults and survive the settings file.
#include "calc/CalculatorEngine.h"
#include "calc/CalculatorModuleMenus.h"
#include "shell/ErrorReport.h"
#include "shell/Settings.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class CalculatorModuleMenusTest : public CalvixTest {};

constexpr CalculatorColour kColours[] = {CalculatorColour::Background, CalculatorColour::Display,
                                         CalculatorColour::Text};

float setting(const ProgramState& s, CalculatorColour which) {
  switch (which) {
    case CalculatorColour::Background: return s.BackgroundColour;
    case CalculatorColour::Display: return s.DisplayColour;
    case CalculatorColour::Text: break;
  }
  return s.TextColour;
}

}  // namespace

TEST_F(CalculatorModuleMenusTest, ConverterKeyOpensTheConverterOnlyWithANumber) {
  struct Row {
    const char* numero;
    bool comma;
    bool opens;
  };
  const Row rows[] = {
      {"12.5", false, true},    {"12,5", true, true},   {"-0.001", false, true}, {" 7 ", false, true},
      {"1.5E+20", false, true}, {"&hFF", false, true},  {"12,5", false, true},   // a group mark on a "." system
      {"12.5.3", false, false}, {"FF", false, false},   {"", false, false},      {"12ab", false, false},
      {"1.5E+400", false, false},                                               // past the range of a double
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(std::string(r.numero) + (r.comma ? " on a comma system" : ""));
    if (r.comma) useComma();
    else usePoint();
    messages.clear();
    CalculatorEngine e;
    e.numero = QString::fromUtf8(r.numero);
    ASSERT_TRUE(e.click(QStringLiteral("Command7")));
    EXPECT_EQ(e.numero.text(), QString::fromUtf8(r.numero));  // the key never changes the display
    if (r.opens) {
      EXPECT_EQ(e.windowRequest, QStringLiteral("UnitConverter"));
      EXPECT_TRUE(messages.shown().empty());
    } else {
      EXPECT_TRUE(e.windowRequest.isEmpty());
      ASSERT_EQ(messages.shown().size(), 1u);
      EXPECT_EQ(messages.shown().front().text, ErrorText(1));
      EXPECT_TRUE(messages.shown().front().title.endsWith(Res(4)));
      EXPECT_EQ(e.errorCode, 1);
    }
  }
}

TEST_F(CalculatorModuleMenusTest, DefineKeepsTheChosenColourInItsOwnSettingOnly) {
  for (CalculatorColour which : kColours) {
    const float before[] = {program().BackgroundColour, program().DisplayColour, program().TextColour};
    const auto beforeOf = [&](CalculatorColour c) { return before[static_cast<int>(c)]; };
    std::uint32_t offered = 1;
    QString title;
    const bool kept = defineCalculatorColour(which, [&](std::uint32_t initial, const QString& t) {
      offered = initial;
      title = t;
      return std::optional<std::uint32_t>(0x123456);
    });
    EXPECT_TRUE(kept);
    EXPECT_EQ(offered, static_cast<std::uint32_t>(beforeOf(which)));  // the dialog starts at the colour in use
    EXPECT_EQ(title, Res(calculatorColourCaptionId(which)));
    for (CalculatorColour other : kColours) {
      EXPECT_EQ(setting(program(), other), other == which ? 0x123456 : beforeOf(other));
    }
  }
}

TEST_F(CalculatorModuleMenusTest, CancelKeepsAndDefaultRestoresTheFreshColour) {
  const ProgramState fresh;
  for (CalculatorColour which : kColours) {
    setCalculatorColour(which, 0x00FF00);
    EXPECT_FALSE(defineCalculatorColour(which, [](std::uint32_t, const QString&) { return std::nullopt; }));
    EXPECT_FALSE(defineCalculatorColour(which, ColourPicker()));
    EXPECT_EQ(calculatorColour(which), 0x00FF00u);
    restoreCalculatorColour(which);
    EXPECT_EQ(setting(program(), which), setting(fresh, which));
  }
}

// The colours live in the settings file as floats: the extremes of the 24-bit
// range must come back exact, and a damaged value reads as black.
TEST_F(CalculatorModuleMenusTest, ColoursSurviveTheSettingsFileAndDamagedValuesReadBlack) {
  const std::uint32_t chosen[] = {0xFFFFFF, 0x000001, 0xFEDCBA};
  for (size_t i = 0; i < 3; ++i) setCalculatorColour(kColours[i], chosen[i]);
  const QByteArray bytes = settingsBytes(program());
  resetProgram(pointLocale());
  readSettingsBytes(bytes, program());
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(calculatorColour(kColours[i]), chosen[i]);

  program().DisplayColour = -5;
  program().TextColour = 3e7F;
  EXPECT_EQ(calculatorColour(CalculatorColour::Display), 0u);
  EXPECT_EQ(calculatorColour(CalculatorColour::Text), 0u);
  setCalculatorColour(CalculatorColour::Background, 0x1FFFFFF);  // only the colour's three bytes are kept
  EXPECT_EQ(calculatorColour(CalculatorColour::Background), 0xFFFFFFu);
}
