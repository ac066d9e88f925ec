// The program-wide variables start as a fresh installation has them, and
// resetProgram gives every test and every calvix-cli run that same start.
#include "shell/ProgramState.h"
#include "shell/runtime/SystemLocale.h"
#include "tests/support/TestSupport.h"

class ProgramStateTest : public CalvixTest {};

TEST_F(ProgramStateTest, FreshStateHasTheRestoreDefaults) {
  const ProgramState& p = program();
  EXPECT_EQ(p.VatRate.toDouble(), 16);
  EXPECT_EQ(p.Currency1.toText(), QStringLiteral("euro"));
  EXPECT_EQ(p.Currency2.toText(), QStringLiteral("pts"));
  EXPECT_DOUBLE_EQ(p.ExchangeRate.toDouble(), 166.386);
  EXPECT_EQ(p.CalculatorMode.toText(), QStringLiteral("avanzada"));
  EXPECT_EQ(p.AlarmTimes[0], QStringLiteral("22:30:40"));
  EXPECT_EQ(p.LanguageOffset, 0);
  EXPECT_EQ(p.SoundOn, 1);
  EXPECT_FALSE(p.WebAddress.isEmpty());
  EXPECT_EQ(p.RegisterLabels[3].toText(), QStringLiteral("Memoria Intermodular: R 4"));
}

TEST_F(ProgramStateTest, ColoursAreStoredBlueByteFirst) {
  // 0000FF written blue first is pure red: 255 with red in the low byte.
  EXPECT_EQ(program().ChartColours[1].toLong(), 0x0000FF);
  EXPECT_EQ(program().PlotColours[0].toLong(), 0xC6C2C6);
  EXPECT_EQ(program().CalendarColours[0].toLong(), 0xFFFF00);
  // Colours kept in 32-bit floats survive exactly for 24-bit values.
  EXPECT_EQ(static_cast<long>(program().DisplayColour), 15708820L);
}

TEST_F(ProgramStateTest, ResetForgetsChangesAndKeepsTheLocaleAsked) {
  program().LanguageOffset = 20000;
  program().Memories[2] = 5;
  program().VatRate = 21.0;
  resetProgram(commaLocale());
  EXPECT_EQ(program().LanguageOffset, 0);
  EXPECT_EQ(program().Memories[2], 0);
  EXPECT_EQ(program().VatRate.toDouble(), 16);
  EXPECT_EQ(rt::systemConventions().decimal, QLatin1Char(','));
  EXPECT_EQ(rt::systemConventions().group, QLatin1Char('.'));
  EXPECT_EQ(program().DecimalSymbol.toText(), QStringLiteral(","));
}
