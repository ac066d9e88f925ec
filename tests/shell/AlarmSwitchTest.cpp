// A new processor mark saved in Preferences switches a running alarm off,
// in an open chronometer and in the one kept while its window is closed.
#include "chrono/Chronometer.h"
#include "shell/AlarmSwitch.h"
#include "shell/Clock.h"
#include "shell/Platform.h"
#include "shell/Preferences.h"
#include "shell/ProgramState.h"
#include "tests/support/TestSupport.h"

namespace {

class AlarmSwitchTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    setPlatform(&system);
    program().AlarmRegistry.clear();
    chrono = std::make_unique<Chronometer>(clock);
    chrono->Form_Load();
    chrono->Text1 = {QStringLiteral("11"), QStringLiteral("30"), QStringLiteral("00")};
    chrono->Command4_Click();
    chrono->Check1_Click(1);
  }
  void TearDown() override {
    chrono.reset();
    setPlatform(nullptr);
    CalvixTest::TearDown();
  }
  // Preferences opened, the processor box clicked `clicks` times, saved.
  static void savePreferences(int clicks) {
    Preferences prefs;
    prefs.Form_Load();
    for (int i = 0; i < clicks; ++i) prefs.Check2_Click();
    prefs.Command2_Click();
  }
  RecordingPlatform system;
  SimulatedClock clock{QDateTime(QDate(2026, 1, 12), QTime(10, 0, 0))};
  std::unique_ptr<Chronometer> chrono;
};

TEST_F(AlarmSwitchTest, NewProcessorMarkSwitchesTheOpenChronometersAlarmOff) {
  ASSERT_EQ(chrono->armedState(), 1);
  savePreferences(1);
  EXPECT_EQ(chrono->Check1, 0);
  EXPECT_EQ(chrono->armedState(), 0);
  EXPECT_EQ(program().AlarmRegistry.value(QStringLiteral("estado")).toInt(), 0);
}

TEST_F(AlarmSwitchTest, SameProcessorMarkLeavesTheAlarmArmed) {
  savePreferences(2);
  EXPECT_EQ(chrono->Check1, 1);
  EXPECT_EQ(chrono->armedState(), 1);
}

TEST_F(AlarmSwitchTest, AlarmKeptWhileTheWindowIsClosedComesBackSwitchedOff) {
  chrono->Form_Unload();
  chrono.reset();
  ASSERT_EQ(program().AlarmRegistry.value(QStringLiteral("Check1")).toInt(), 1);
  savePreferences(1);
  Chronometer reopened(clock);
  reopened.Form_Load();
  EXPECT_EQ(reopened.Check1, 0);
  EXPECT_EQ(reopened.armedState(), 0);
}

}  // namespace
