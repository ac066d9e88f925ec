// The chronometer's model on the simulated clock: the five modes, laps,
// stop and continue, the countdown, the alarm with its repeat and the power
// action with its warning; the power actions reach only the recording
// platform.
#include <QFile>
#include <cmath>

#include "chrono/Chronometer.h"
#include "shell/Clock.h"
#include "shell/Platform.h"
#include "shell/Printing.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

const QDateTime kStart(QDate(2026, 1, 12), QTime(10, 0, 0));

class ChronometerTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    setPlatform(&platform);
    fresh();
  }
  // A new clock at kStart and the window opened for the first time on it.
  void fresh() {
    m.reset();
    clock = std::make_unique<SimulatedClock>(kStart);
    program().AlarmRegistry.clear();
    program().accion = 0;
    platform.calls.clear();
    m = std::make_unique<Chronometer>(*clock);
    m->Form_Load();
  }
  void TearDown() override {
    m.reset();
    setPlatform(nullptr);
    CalvixTest::TearDown();
  }
  // Runs the clock to t seconds after the start, then the running timers
  // tick at that instant, as they would just before a click.
  void at(double seconds) {
    clock->advanceTo(kStart.addMSecs(std::llround(seconds * 1000)));
    clock->tickRunningTimers();
  }
  void reopen() {
    m->Form_Unload();
    m = std::make_unique<Chronometer>(*clock);
    m->Form_Load();
  }
  void armAlarm(const char* hh, const char* mm, const char* ss) {
    m->Text1 = {QString::fromLatin1(hh), QString::fromLatin1(mm), QString::fromLatin1(ss)};
    m->Command4_Click();
  }
  QStringList ringTimes() const {
    QStringList out;
    for (const QDateTime& r : m->rings) out << r.toString(QStringLiteral("dd HH:mm:ss"));
    return out;
  }
  // Enters a countdown mode, answering its question with text.
  void countdown(int mode, const QString& text) {
    messages.queueText(text);
    m->menutiempo1_Click(mode);
  }

  std::unique_ptr<SimulatedClock> clock;
  RecordingPlatform platform;
  std::unique_ptr<Chronometer> m;
};

TEST_F(ChronometerTest, OpensAsAStoppedChronometerWithTheTimeOfDay) {
  EXPECT_EQ(m->Label2, Res(401));
  EXPECT_EQ(m->caption, Res(8) + QStringLiteral("  -  ") + Res(401));
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:00"));
  EXPECT_EQ(m->lblTime, QStringLiteral("10:00:00"));
  EXPECT_TRUE(m->Timer1Enabled());
  EXPECT_FALSE(m->Timer2Enabled());
  EXPECT_EQ(m->Label15, Res(427));
  at(61.5);
  EXPECT_EQ(m->lblTime, QStringLiteral("10:01:01"));
}

// 25 simulated hours: each reading is now - origin, so nothing drifts and
// "hh" wraps after 24 hours.
TEST_F(ChronometerTest, TwentyFiveHoursWithoutDrift) {
  m->crono1_Click(0);
  at(3600 - 0.001);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:59:59"));
  at(3600);
  EXPECT_EQ(m->lblAux, QStringLiteral("01:00:00"));
  at(25 * 3600 + 7.75);
  EXPECT_EQ(m->lblAux, QStringLiteral("01:00:07"));
  EXPECT_EQ(m->lblTime, QStringLiteral("11:00:07"));
  EXPECT_GT(clock->ticksDelivered(), 25 * 3600 * 4);  // Timer2 really ran all along
}

TEST_F(ChronometerTest, StopContinueAndPauseKeepTheMeasureAndWriteLaps) {
  m->crono1_Click(0);
  at(7);
  m->crono1_Click(2);  // pause: the display stands, the measure runs on
  at(9);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:07"));
  EXPECT_TRUE(m->Timer2Enabled());
  m->crono1_Click(2);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:09"));
  at(10);
  m->crono1_Click(1);  // stop
  at(40);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:10"));
  EXPECT_FALSE(m->Timer2Enabled());
  m->crono1_Click(1);  // continue where it stood
  at(45);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:15"));
  EXPECT_EQ(m->List1, QStringList({"00:00:07", "00:00:10"}));
  m->crono1_Click(0);  // start again from 0
  at(46);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:01"));
}

TEST_F(ChronometerTest, PowerCronoShowsHundredthsAndWritesThemWithTheLap) {
  m->menutiempo1_Click(2);
  m->crono1_Click(0);
  at(3.52);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:03"));
  EXPECT_EQ(m->Label19, QStringLiteral("52"));
  m->crono1_Click(2);
  EXPECT_EQ(m->List1, QStringList({"00:00:03  52"}));
  // A lap taken between two ticks reads the clock, not the last tick.
  at(3.6);
  m->crono1_Click(2);
  clock->advanceTo(kStart.addMSecs(4217));
  m->crono1_Click(1);
  EXPECT_EQ(m->List1.last(), QStringLiteral("00:00:04  21"));
}

TEST_F(ChronometerTest, WorkTimeIsTheProgramsAndGoesOnWithTheWindowClosed) {
  at(3600);
  m->menutiempo1_Click(0);
  EXPECT_EQ(m->lblAux, QStringLiteral("01:00:00"));
  EXPECT_TRUE(m->Timer2Enabled());
  m->Form_Unload();
  m.reset();
  at(5400);
  m = std::make_unique<Chronometer>(*clock);
  m->Form_Load();
  EXPECT_EQ(m->Label2, Res(400));
  EXPECT_EQ(m->lblAux, QStringLiteral("01:30:00"));
}

TEST_F(ChronometerTest, CountdownStopsAtZeroAndStartRestartsIt) {
  countdown(3, QStringLiteral("00:00:05"));
  EXPECT_EQ(messages.shown().back().text, Res(449));
  EXPECT_EQ(messages.shown().back().title, Res(450));
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:05"));
  EXPECT_FALSE(m->Timer2Enabled());
  m->crono1_Click(0);
  at(4.999);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:01"));
  at(5);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:00"));
  EXPECT_FALSE(m->Timer2Enabled());
  EXPECT_EQ(platform.calls, QStringList({"beep"}));
  at(60);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:00"));
  m->crono1_Click(0);
  at(62);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:03"));
}

TEST_F(ChronometerTest, CountdownWithAlarmPlaysTheAlarmSoundAtZero) {
  program().AlarmSoundFile = QStringLiteral("alarma2.wav");
  countdown(4, QStringLiteral("00:00:02"));
  m->crono1_Click(0);
  at(3);
  ASSERT_EQ(platform.calls.size(), 2);
  EXPECT_EQ(platform.calls[0], QStringLiteral("beep"));
  EXPECT_TRUE(platform.calls[1].endsWith(QStringLiteral("mmedia/alarma2.wav async"))) << platform.calls[1].toStdString();
}

TEST_F(ChronometerTest, CountdownContinuesFromTheTimeItHadRun) {
  countdown(3, QStringLiteral("00:01:00"));
  m->crono1_Click(0);
  at(10);
  m->crono1_Click(1);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:50"));
  at(40);
  m->crono1_Click(1);
  at(45);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:45"));
  m->crono1_Click(3);  // zero: back to the value entered
  EXPECT_EQ(m->lblAux, QStringLiteral("00:01:00"));
  EXPECT_FALSE(m->Timer2Enabled());
}

TEST_F(ChronometerTest, CountdownTextThatIsNotATimeTakesTheDefault) {
  struct Row {
    const char* answer;
    const char* shown;
    int errors;
  };
  const Row rows[] = {{"01:30:00", "01:30:00", 0}, {"abc", "00:02:00", 1}, {"00:61:00", "00:02:00", 1},
                      {"button:1", "00:02:00", 0}};
  for (const Row& r : rows) {
    messages.clear();
    m->errorsReported = 0;
    messages.queueAnswer(QString::fromLatin1(r.answer));
    m->menutiempo1_Click(3);
    EXPECT_EQ(m->lblAux, QString::fromLatin1(r.shown)) << r.answer;
    EXPECT_EQ(m->errorsReported, r.errors) << r.answer;
    if (r.errors) {
      EXPECT_TRUE(messages.shown().back().text.contains(Res(2701))) << r.answer;
    }
  }
}

TEST_F(ChronometerTest, ZeroClearsTheListOnlyWhenConfirmed) {
  m->crono1_Click(0);
  at(3);
  m->crono1_Click(1);
  messages.queueButton(1);  // "No"
  m->crono1_Click(3);
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:00"));
  EXPECT_EQ(m->List1.size(), 1);
  EXPECT_EQ(messages.shown().back().buttons, QStringList({Res(57), Res(58)}));
  m->crono1_Click(3);  // no answer left: the first button, "Si"
  EXPECT_TRUE(m->List1.isEmpty());
  m->crono1_Click(4);
  EXPECT_TRUE(m->List1Visible);
}

TEST_F(ChronometerTest, AlarmRingsOnceAtItsSecondAndTurnsItselfOff) {
  armAlarm("10", "00", "05");
  EXPECT_EQ(m->Check1, 1);
  at(4);
  EXPECT_TRUE(m->rings.isEmpty());
  at(100);
  EXPECT_EQ(ringTimes(), QStringList({"12 10:00:05"}));
  EXPECT_EQ(m->Check1, 0);
  EXPECT_TRUE(m->hasonado);
  const MessageRequest& msg = messages.shown().back();
  EXPECT_EQ(msg.title, Res(441));  // the box closes this one after 15 seconds
  EXPECT_EQ(msg.text, Res(454) + u'\n' + Res(455));
  EXPECT_EQ(platform.calls.first(), QStringLiteral("beep"));
  EXPECT_TRUE(platform.calls.last().endsWith(QStringLiteral("alarma1.wav async")));
  at(2 * 86400);
  EXPECT_EQ(m->rings.size(), 1);
}

TEST_F(ChronometerTest, AlarmSetASecondAgoRingsTomorrow) {
  at(1);
  armAlarm("10", "00", "00");
  at(86399);
  EXPECT_TRUE(m->rings.isEmpty());
  at(86400);
  EXPECT_EQ(ringTimes(), QStringList({"13 10:00:00"}));
}

TEST_F(ChronometerTest, RepeatComesBackEveryIntervalAndZeroRingsOnce) {
  struct Row {
    const char* minutes;
    QStringList rings;
    int check1;
  };
  const Row rows[] = {{"2", {"12 10:00:05", "12 10:02:05", "12 10:04:05"}, 1}, {"0", {"12 10:00:05"}, 0},
                      {"", {"12 10:00:05"}, 0}};
  for (const Row& r : rows) {
    fresh();
    m->Text2 = QString::fromLatin1(r.minutes);
    m->Check2_Click(1);
    armAlarm("10", "00", "05");
    at(0);
    clock->advanceTo(kStart.addSecs(5 * 60));
    EXPECT_EQ(ringTimes(), r.rings) << r.minutes;
    EXPECT_EQ(m->Check1, r.check1) << r.minutes;
  }
}

TEST_F(ChronometerTest, RepeatTellsTheNextReminderAndRefreshesTheBoxes) {
  m->Text2 = QStringLiteral("90");
  m->Check2_Click(1);
  armAlarm("23", "30", "00");
  clock->advanceTo(QDateTime(kStart.date(), QTime(23, 30, 0)));
  EXPECT_EQ(m->alarmText(), QStringLiteral("01:00:00"));
  EXPECT_EQ(messages.shown().back().text, Res(454) + u'\n' + Res(455) + u'\n' + Res(456) + QStringLiteral(" 01:00:00"));
  clock->advanceTo(QDateTime(kStart.date().addDays(1), QTime(1, 0, 0)));
  EXPECT_EQ(m->rings.size(), 2);
}

TEST_F(ChronometerTest, ArmingRefusesATextThatIsNotATime) {
  armAlarm("10", "00", "05");
  m->Check1_Click(0);
  armAlarm("25", "00", "00");
  EXPECT_EQ(m->errorsReported, 1);
  EXPECT_EQ(messages.shown().back().text, Res(2800) + QStringLiteral(":  ") + Res(2701));
  EXPECT_EQ(m->Alarmacalc, 10 * 3600 + 5);
  EXPECT_EQ(m->Check1, 0);
}

// The power action starts with the alarm's time, counts down in its warning
// window and then goes to the platform (the recording one here).
TEST_F(ChronometerTest, PowerActionRunsAfterItsWarningThroughThePlatform) {
  struct Row {
    int accion;
    int osFamily;
    int seconds;
    QStringList calls;
    int nameId;
  };
  const Row rows[] = {
      {0, 0, 120, {"powerAction shutdown", "endProgram"}, 427},
      {5, 2, 120, {"powerAction shutdown-delayed", "endProgram"}, 427},
      {1, 1, 60, {"powerAction suspend"}, 428},
      {2, 2, 60, {"powerAction screensaver"}, 439},
  };
  for (const Row& r : rows) {
    fresh();
    program().OsFamily = static_cast<std::int16_t>(r.osFamily);
    m->menuaccion_Click(Chronometer::actionOf(r.accion));
    EXPECT_EQ(m->Label15, Res(r.nameId)) << r.accion;
    program().accion = static_cast<std::int16_t>(r.accion);
    m->Check3_Click(1);
    armAlarm("10", "00", "05");
    m->Check1_Click(0);  // the power action alone, no alarm message
    clock->advanceBy(5000);
    EXPECT_TRUE(m->warning.open) << r.accion;
    EXPECT_EQ(m->warning.seconds, QString::number(r.seconds)) << r.accion;
    EXPECT_EQ(m->Check3, 0);
    EXPECT_TRUE(m->rings.isEmpty());
    platform.calls.clear();
    clock->advanceBy(r.seconds * 1000 - 1000);
    EXPECT_EQ(m->warning.seconds, QStringLiteral("1")) << r.accion;
    EXPECT_TRUE(platform.calls.isEmpty()) << r.accion;
    clock->advanceBy(1000);
    EXPECT_FALSE(m->warning.open);
    EXPECT_EQ(platform.calls, r.calls) << r.accion;
  }
}

TEST_F(ChronometerTest, ShutdownWarningSaysWhenUnderAMinuteAndClosingItCancels) {
  program().accion = 0;
  m->Check3_Click(1);
  armAlarm("10", "00", "05");
  at(5);
  EXPECT_TRUE(m->warning.open);
  EXPECT_EQ(m->warning.heading, Res(418));
  EXPECT_EQ(m->warning.footer, Res(420));
  at(66);
  EXPECT_EQ(m->warning.seconds, QStringLiteral("59"));
  EXPECT_EQ(m->warning.footer, Res(451));
  m->warning_Close();
  at(86400);
  EXPECT_FALSE(m->warning.open);
  EXPECT_FALSE(platform.calls.join(u' ').contains(QStringLiteral("powerAction")));
}

TEST_F(ChronometerTest, ClosingTheChronometerTakesThePendingActionWithIt) {
  program().accion = 2;
  m->Check3_Click(1);
  armAlarm("10", "00", "05");
  m->Check1_Click(0);
  at(6);
  ASSERT_TRUE(m->warning.open);
  reopen();
  at(600);
  EXPECT_FALSE(m->warning.open);
  EXPECT_EQ(m->Check3, 0);
  EXPECT_FALSE(platform.calls.join(u' ').contains(QStringLiteral("powerAction")));
}

TEST_F(ChronometerTest, ReopeningKeepsThePendingAlarmButNotOneThatRang) {
  messages.queueText(QStringLiteral("00:00:30"));
  m->menutiempo1_Click(4);
  armAlarm("10", "00", "05");
  reopen();
  EXPECT_EQ(m->Label2, Res(404));
  EXPECT_EQ(m->lblAux, QStringLiteral("00:00:30"));
  EXPECT_EQ(m->Check1, 1);
  at(5);
  EXPECT_EQ(m->rings.size(), 1);
  reopen();
  EXPECT_EQ(m->Check1, 0);
  EXPECT_EQ(m->Alarmacalc, -1);
  EXPECT_EQ(m->alarmText(), QStringLiteral("10:00:05"));
}

TEST_F(ChronometerTest, PresetAlarmsFromTheSettings) {
  program().AlarmTimes = {QStringLiteral("22:30:40"), QString(), QStringLiteral("07:05:00"), QStringLiteral("x")};
  EXPECT_EQ(m->alarfavItems(), QStringList({Res(430) + QStringLiteral(" 1 (22:30:40):"), Res(430) + QStringLiteral(" 3 (07:05:00):")}));
  m->alarfav_Click(1);
  EXPECT_EQ(m->alarmText(), QStringLiteral("07:05:00"));
}

TEST_F(ChronometerTest, SavesTheLapsAsCroAndRefusesAnotherExtension) {
  m->crono1_Click(0);
  at(2);
  m->crono1_Click(2);
  at(5);
  m->crono1_Click(1);
  const QString good = appFolder.filePath(QStringLiteral("laps.CRO"));
  const QString bad = appFolder.filePath(QStringLiteral("laps.txt"));
  QString answer = good;
  m->hooks.fileDialog = [&answer](const Chronometer::FileDialogRequest& r) {
    EXPECT_TRUE(r.folder.endsWith(QStringLiteral("/datos/")));
    return answer;
  };
  m->GuardaTiempos_Click();
  QFile f(good);
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  EXPECT_EQ(f.readAll(), QByteArray("\"00:00:02\"\r\n\"00:00:05\"\r\n"));
  answer = bad;
  m->GuardaTiempos_Click();
  EXPECT_FALSE(QFile::exists(bad));
  EXPECT_EQ(messages.shown().back().text, Res(2800) + QStringLiteral(":  ") + Res(2900));
}

TEST_F(ChronometerTest, PrintsTheListWithItsHeaderAndPageNumbers) {
  for (int i = 0; i < 60; ++i) m->List1 << QStringLiteral("00:00:%1").arg(i, 2, 10, QLatin1Char('0'));
  QStringList texts;
  int pages = 1;
  const PrintDocument doc = m->timesDocument();
  for (const PrintLine& line : doc.lines()) {
    if (line.pageBreakBefore) ++pages;
    for (const PrintSpan& s : line.spans) texts << s.text;
  }
  EXPECT_EQ(pages, 2);
  EXPECT_TRUE(texts.contains(Res(447) + QStringLiteral("    ") + Res(446) + QStringLiteral(" 2")));
  EXPECT_TRUE(texts.contains(QStringLiteral(" 60.  00:00:59")));
}

TEST_F(ChronometerTest, LoadCaptionsRewritesTheModeAndAlarmTextsInTheLanguageInUse) {
  armAlarm("11", "00", "00");
  program().LanguageOffset = 20000;
  m->loadCaptions();
  EXPECT_EQ(m->caption, Res(8) + QStringLiteral("  -  ") + Res(400 + m->mode()));
  EXPECT_EQ(m->Label2, LoadResString(20400 + m->mode()));
  EXPECT_TRUE(m->Label18.startsWith(LoadResString(20414))) << m->Label18.toStdString();
}

}  // namespace
