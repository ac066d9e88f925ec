// The control centre's start order, session counter, keys, command row and
// shut-down order. A fake host and the recording platform write into one log,
// so the order of what reaches the system is visible.
#include "shell/ControlCentre.h"

#include "shell/ErrorReport.h"
#include "shell/Platform.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class FakeHost : public ControlCentreHost {
 public:
  explicit FakeHost(QStringList& log) : log_(log) {}
  bool moduleAvailable(CentreModule m) override { return available.contains(m); }
  void openModule(CentreModule m) override { log_ << QStringLiteral("open ") + ControlCentre::controlOf(m); }
  void setBusyCursor(bool on) override { log_ << (on ? QStringLiteral("busy") : QStringLiteral("idle")); }
  void unloadAllWindows() override { log_ << QStringLiteral("unloadAll"); }
  void waitWithEvents(float s) override { log_ << QStringLiteral("wait %1").arg(s); }
  void endProcess() override { log_ << QStringLiteral("end"); }
  bool readSettings() override {
    log_ << QStringLiteral("readSettings");
    if (readThrows) throw rt::RuntimeError(rt::kInputPastEndOfFile);
    return readResult;
  }
  void writeSettings() override {
    log_ << QStringLiteral("writeSettings language %1").arg(program().Language);
    if (writeThrows) throw std::runtime_error("disk full");
  }
  void restoreSettings(const QString& command) override {
    log_ << QStringLiteral("restore ") + command;
    ControlCentreHost::restoreSettings(command);
  }
  QString applicationPath() override { return appPath; }

  QList<CentreModule> available;
  bool readThrows = false;
  bool readResult = true;
  bool writeThrows = false;
  QString appPath;

 private:
  QStringList& log_;
};

class ControlCentreTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    setPlatform(&system);
    host.appPath = appFolder.path();
  }
  void TearDown() override {
    setPlatform(nullptr);
    CalvixTest::TearDown();
  }
  // The lines of the log that reach the system or the host, in order.
  QStringList log() const { return system.calls; }
  bool shown(int stringId) const {
    for (const MessageRequest& m : messages.shown()) {
      if (m.text.contains(Res(stringId))) return true;
    }
    return false;
  }

  RecordingPlatform system;
  FakeHost host{system.calls};
};

TEST_F(ControlCentreTest, FirstStartRunsEveryStepInOrder) {
  ControlCentre centre(host);
  centre.Form_Load();
  const QString fonts = appFolder.path() + QStringLiteral("/fonts/");
  ASSERT_EQ(log().size(), 5) << log().join(QLatin1Char('|')).toStdString();
  EXPECT_EQ(log()[0], QStringLiteral("readSettings"));
  EXPECT_EQ(log()[1], "playSound " + appFolder.path() + "/mmedia/manager.wav async");
  EXPECT_EQ(log().mid(2), QStringList({"registerFont " + fonts + "Bede.ttf", "registerFont " + fonts + "LCDfont.ttf",
                                        "registerFont " + fonts + "webdings.ttf"}));

  // The operating-system question, then the installation notice.
  ASSERT_EQ(messages.shown().size(), 2u);
  const MessageRequest& os = messages.shown()[0];
  const MessageRequest& notice = messages.shown()[1];
  EXPECT_EQ(QList<int>({os.kind, os.buttonSet, notice.kind, notice.buttonSet}), QList<int>({1, 3, 2, 0}));
  EXPECT_EQ(QStringList({os.text, os.title, os.listText, notice.text, notice.title}),
            QStringList({Res(22), Res(23), Res(24), Res(25), Res(26)}));
  EXPECT_EQ(os.listEntries, (QStringList{QStringLiteral("Windows 9x/ME/NT"), QStringLiteral("Windows 2000/XP/Vista")}));

  const ProgramState& p = program();
  EXPECT_TRUE(centre.loaded);
  EXPECT_TRUE(centre.failedSteps.isEmpty());
  EXPECT_EQ(p.SessionCounter, 1.0F);
  EXPECT_EQ(p.AppFolder.toText(), appFolder.path() + QLatin1Char('/'));
  EXPECT_EQ(p.UserName.toText(), QStringLiteral("tester"));
  EXPECT_EQ(p.MainMenuTitle, Res(27));
  EXPECT_EQ(centre.Caption, Res(21) + QLatin1Char(' '));
  EXPECT_EQ(p.fontPaths.size(), 3);
}

TEST_F(ControlCentreTest, MissingFontsAndSoundsShowNothingAndStopNothing) {
  system.soundsExist = false;
  system.fontsExist = false;
  program().OsFamily = 2;
  program().SessionCounter = 5;
  ControlCentre centre(host);
  centre.Form_Load();
  centre.Form_Activate();
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_TRUE(centre.loaded);
  EXPECT_TRUE(centre.failedSteps.isEmpty());
  EXPECT_EQ(program().SessionCounter, 6.0F);
  EXPECT_EQ(log().filter(QStringLiteral("registerFont")).size(), 3);
  // The paths are kept all the same, so that the end tries to remove them.
  system.calls.clear();
  centre.Form_Unload();
  EXPECT_EQ(log().filter(QStringLiteral("removeFont")).size(), 3);
  EXPECT_TRUE(log().contains(QStringLiteral("end")));
}

TEST_F(ControlCentreTest, FailingSettingsReadIsSkippedAndTheRestRuns) {
  host.readThrows = true;
  program().OsFamily = 1;
  ControlCentre centre(host);
  centre.Form_Load();
  EXPECT_EQ(centre.failedSteps, QList<int>{4});
  EXPECT_EQ(centre.Caption, Res(21) + QLatin1Char(' '));
  EXPECT_EQ(program().SessionCounter, 1.0F);
  EXPECT_EQ(log().filter(QStringLiteral("registerFont")).size(), 3);
  EXPECT_TRUE(centre.loaded);
}

TEST_F(ControlCentreTest, DamagedSettingsShowTheCommandRow) {
  host.readResult = false;
  ControlCentre centre(host);
  centre.loadBeforeShow();
  EXPECT_TRUE(centre.commandRowVisible);
  EXPECT_TRUE(centre.failedSteps.isEmpty());
}

TEST_F(ControlCentreTest, CounterShowsItsDigitsUnitsLast) {
  const struct {
    float stored;
    std::array<int, 5> digits;
  } rows[] = {
      {122, {0, 0, 1, 2, 3}}, {0, {0, 0, 0, 0, 1}}, {9, {0, 0, 0, 1, 0}}, {54320, {5, 4, 3, 2, 1}},
      {123456, {0, 0, 0, 0, 1}},  // edited above 99999: one, without the farewell
  };
  for (const auto& r : rows) {
    resetProgram(pointLocale());
    program().SessionCounter = r.stored;
    program().OsFamily = 1;
    ControlCentre centre(host);
    centre.Form_Load();
    centre.Form_Activate();
    EXPECT_EQ(centre.Image1, r.digits) << "stored " << r.stored;
  }
  EXPECT_FALSE(shown(2978));
}

TEST_F(ControlCentreTest, FarewellAt99999ShowsOnceAndTheNextRunStartsAtOne) {
  program().SessionCounter = 99998;
  program().OsFamily = 1;
  {
    ControlCentre centre(host);
    centre.Form_Load();
    centre.Form_Activate();
    EXPECT_EQ(centre.Image1, (std::array<int, 5>{9, 9, 9, 9, 9}));
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_EQ(messages.shown()[0].text, ErrorText(925));
    EXPECT_TRUE(shown(2978));
    EXPECT_TRUE(shown(2979));
    EXPECT_EQ(messages.shown()[0].sound, 5);
    EXPECT_EQ(program().SessionCounter, 0.0F);
    centre.Form_Activate();  // coming to the front again: no second farewell
    EXPECT_EQ(messages.shown().size(), 1u);
    EXPECT_EQ(centre.Image1, (std::array<int, 5>{0, 0, 0, 0, 0}));
  }
  ControlCentre next(host);
  next.Form_Load();
  EXPECT_EQ(program().SessionCounter, 1.0F);
}

TEST_F(ControlCentreTest, OperatingSystemQuestionKeepsOrTakesTheAnswer) {
  const struct {
    std::int16_t before;
    const char* answer;  // null: the box closes by itself
    std::int16_t after;
    bool asked;
  } rows[] = {
      {0, "Windows 2000/XP/Vista", 2, true}, {0, "Windows 9x/ME/NT", 1, true}, {7, "button:1", 7, true},
      {0, nullptr, 0, true},                {1, "Windows 2000/XP/Vista", 1, false}, {2, nullptr, 2, false},
  };
  for (const auto& r : rows) {
    resetProgram(pointLocale());
    messages.clear();
    program().OsFamily = r.before;
    program().SessionCounter = 10;
    if (r.answer) messages.queueAnswer(QString::fromUtf8(r.answer));
    ControlCentre centre(host);
    centre.Form_Load();
    EXPECT_EQ(program().OsFamily, r.after) << r.before << " " << (r.answer ? r.answer : "(timer)");
    EXPECT_EQ(messages.shown().size(), r.asked ? 1u : 0u) << r.before;
  }
}

TEST_F(ControlCentreTest, LanguageComesFromTheSettings) {
  program().Language = 2;
  program().OsFamily = 1;
  ControlCentre english(host);
  english.loadBeforeShow();
  EXPECT_EQ(program().LanguageOffset, 10000);
  EXPECT_EQ(english.Caption, QStringLiteral("Calvix Premium  -  Control Centre "));
  EXPECT_EQ(english.texts.value(QStringLiteral("Command8")).caption, QStringLiteral("Read me"));
  EXPECT_EQ(program().MainMenuTitle, QStringLiteral("Main Menu"));

  resetProgram(pointLocale());
  program().Language = 9;  // not a language: the offset stays as it was
  ControlCentre other(host);
  other.loadBeforeShow();
  EXPECT_EQ(program().LanguageOffset, 0);
  EXPECT_EQ(other.Caption, Res(21) + QLatin1Char(' '));
}

TEST_F(ControlCentreTest, DecimalSymbolIsDetectedFromTheSystem) {
  useComma();
  program().DecimalSymbol = QStringLiteral(".");
  ControlCentre centre(host);
  centre.loadBeforeShow();
  EXPECT_EQ(program().DecimalSymbol.toText(), QStringLiteral(","));
  usePoint();
  program().DecimalSymbol = QStringLiteral(",");
  centre.loadBeforeShow();
  EXPECT_EQ(program().DecimalSymbol.toText(), QStringLiteral("."));
}

TEST_F(ControlCentreTest, AppFolderAddsASlashUnlessThePathEndsInOne) {
  EXPECT_EQ(ControlCentre::appFolderFor(QStringLiteral("/")), QStringLiteral("/"));
  EXPECT_EQ(ControlCentre::appFolderFor(QStringLiteral("/opt/calvix")), QStringLiteral("/opt/calvix/"));
  EXPECT_EQ(ControlCentre::appFolderFor(QStringLiteral("/opt/calvix/")), QStringLiteral("/opt/calvix/"));
}

TEST_F(ControlCentreTest, ModuleButtonsOpenOnlyWhatExists) {
  host.available = {CentreModule::Calculator, CentreModule::Lottery};
  ControlCentre centre(host);
  centre.loadBeforeShow();
  EXPECT_TRUE(centre.texts.value(QStringLiteral("Command1")).tooltip.isEmpty());
  EXPECT_EQ(centre.texts.value(QStringLiteral("Command13")).tooltip, Res(28));
  EXPECT_EQ(centre.texts.value(QStringLiteral("Image4")).tooltip, Res(28));
  system.calls.clear();
  centre.Command1_Click();
  centre.Command13_Click();
  centre.Command4_Click();
  EXPECT_EQ(log(), (QStringList{QStringLiteral("open Command1"), QStringLiteral("busy"), QStringLiteral("open Command4"),
                                QStringLiteral("idle")}));
  system.calls.clear();
  program().helpCursor = true;
  centre.Command1_Click();
  EXPECT_TRUE(log().isEmpty());
  EXPECT_FALSE(program().helpCursor);
}

TEST_F(ControlCentreTest, InternetAndReadMeGoThroughThePlatform) {
  ControlCentre centre(host);
  centre.loadBeforeShow();
  system.calls.clear();
  centre.Command7_Click(Qt::RightButton);
  EXPECT_TRUE(log().isEmpty());
  centre.Command7_Click(Qt::LeftButton);
  centre.Command8_Click();
  EXPECT_EQ(log(), (QStringList{QStringLiteral("openUrl ") + program().WebAddress,
                                QStringLiteral("openFile ") + program().AppFolder.toText() +
                                    QStringLiteral("leeme.htm")}));
}

TEST_F(ControlCentreTest, ShiftF12TogglesTheCommandRowAndDeactivationHidesIt) {
  ControlCentre centre(host);
  centre.Form_Load();
  EXPECT_FALSE(centre.commandRowVisible);
  EXPECT_FALSE(centre.Form_KeyDown(Qt::Key_F12, Qt::NoModifier));
  EXPECT_TRUE(centre.Form_KeyDown(Qt::Key_F12, Qt::ShiftModifier));
  EXPECT_TRUE(centre.commandRowVisible);
  EXPECT_TRUE(centre.Form_KeyDown(Qt::Key_F12, Qt::ShiftModifier));
  EXPECT_FALSE(centre.commandRowVisible);
  centre.Form_KeyDown(Qt::Key_F12, Qt::ShiftModifier);
  centre.Form_Deactivate();
  EXPECT_FALSE(centre.commandRowVisible);
  // Shift+F10 asks for the screen saver and never for anything stronger.
  EXPECT_TRUE(centre.Form_KeyDown(Qt::Key_F10, Qt::ShiftModifier));
  for (const QString& call : log()) {
    if (call.startsWith(QStringLiteral("powerAction"))) {
      EXPECT_EQ(call, QStringLiteral("powerAction screensaver"));
    }
  }
}

TEST_F(ControlCentreTest, CommandRowRunsRestoreExactlyAsWritten) {
  ControlCentre centre(host);
  centre.loadBeforeShow();
  program().VatRate = 21.0;
  centre.commandRowVisible = true;
  centre.Combo1 = QStringLiteral("Restore");
  centre.Command11_Click();
  EXPECT_EQ(program().VatRate.toDouble(), 21.0);
  EXPECT_FALSE(centre.commandRowVisible);
  centre.Combo1 = QStringLiteral("restore");
  centre.Command11_Click();
  EXPECT_EQ(program().VatRate.toDouble(), 16.0);
}

TEST_F(ControlCentreTest, ShutDownOrder) {
  program().OsFamily = 1;
  program().Language = 0;
  ControlCentre centre(host);
  centre.Form_Load();
  system.calls.clear();
  centre.Form_Unload();
  const QString fonts = appFolder.path() + QStringLiteral("/fonts/");
  QStringList calls = log();
  ASSERT_EQ(calls.size(), 8) << calls.join(QLatin1Char('|')).toStdString();
  EXPECT_EQ(calls.takeAt(5), "playSound " + appFolder.path() + "/mmedia/exit.wav async");
  // "IDIOMA" 0 is saved as 1.
  EXPECT_EQ(calls, QStringList({"removeFont " + fonts + "Bede.ttf", "removeFont " + fonts + "LCDfont.ttf",
                                "removeFont " + fonts + "webdings.ttf", "writeSettings language 1", "unloadAll",
                                "wait 3.5", "end"}));
  EXPECT_TRUE(program().fontPaths.isEmpty());
}

TEST_F(ControlCentreTest, ShutDownWithoutSoundNeitherPlaysNorWaitsAndSurvivesAFailedWrite) {
  program().SoundOn = 0;
  host.writeThrows = true;
  ControlCentre centre(host);
  centre.Form_Unload();
  EXPECT_EQ(centre.failedSteps, QList<int>{102});
  EXPECT_EQ(log(), (QStringList{QStringLiteral("writeSettings language 1"), QStringLiteral("unloadAll"),
                                QStringLiteral("end")}));
}

}  // namespace
