// The Preferences model: the private copy and Command2, "Originales", the
// key filters of the boxes, alarm times and sounds, the events file, the
// language shown and the hidden command box.
#include <QDir>
#include <QFile>

#include "shell/LanguageService.h"
#include "shell/Platform.h"
#include "shell/Preferences.h"
#include "shell/Services.h"
#include "shell/Settings.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

QString labels(const Preferences& m) { return m.Label4 + QLatin1Char('|') + m.Label5; }

class PreferencesTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    setPlatform(&system);
    m.hooks.fileDialog = [this](const Preferences::FileDialogRequest& r) {
      dialogs << r;
      return chosen;
    };
    m.hooks.close = [this] { ++closed; };
  }
  void TearDown() override {
    setPlatform(nullptr);
    CalvixTest::TearDown();
  }
  // A file in the program folder (created with some bytes).
  QString makeFile(const QString& relative) {
    const QString path = appFolder.filePath(relative);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    EXPECT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("RIFF");
    return path;
  }

  RecordingPlatform system;
  Preferences m;
  QList<Preferences::FileDialogRequest> dialogs;
  QString chosen;
  int closed = 0;
};

TEST_F(PreferencesTest, LoadCopiesTheSettingsAndOnlyCommand2HandsThemBack) {
  ProgramState& p = program();
  p.Currency1 = rt::Variant::text(QStringLiteral("dolar"));
  p.OsFamily = 2;
  p.AlarmSoundFile = QStringLiteral("alarma3.wav");
  p.CalculatorMode = rt::Variant::text(QStringLiteral("normalita"));
  m.Form_Load();
  EXPECT_EQ(m.Caption, QStringLiteral("Calvix Premium  -  Preferencias"));
  EXPECT_EQ(m.Text1, QStringLiteral("dolar"));
  EXPECT_EQ(m.Label4, QStringLiteral("1 dolar ="));
  EXPECT_EQ(m.valor, QStringLiteral("166.386"));
  EXPECT_EQ(m.Option1, 2);
  EXPECT_EQ(m.List3, 0);
  EXPECT_EQ(m.List4, 1);
  EXPECT_EQ(m.Check3, 4);
  EXPECT_EQ(m.Text4[1], QStringLiteral("22:30:40"));

  m.typeInto(Preferences::Box::Text1, QStringLiteral("yen"));
  m.typeInto(Preferences::Box::valor, QStringLiteral("2.5"));
  m.Check1_Click();
  m.Check7_Click();
  m.List1_Click(3);
  m.List3_Click(1);
  m.typeInto(Preferences::Box::Text3, QStringLiteral("42"));
  m.typeInto(Preferences::Box::Text5, QStringLiteral("http://x.example/"));
  // Nothing reaches the program before Command2.
  EXPECT_EQ(p.Currency1.toText(), QStringLiteral("dolar"));
  EXPECT_EQ(p.SoundOn, 1);

  m.Command2_Click();
  EXPECT_EQ(p.Currency1.toText(), QStringLiteral("yen"));
  EXPECT_EQ(p.ExchangeRate.type(), rt::VType::Double);
  EXPECT_DOUBLE_EQ(p.ExchangeRate.toDouble(), 2.5);
  EXPECT_EQ(p.SoundOn, 0);
  EXPECT_TRUE(p.ExtendedDisplay);
  EXPECT_EQ(p.AutoCloseMessages.toDouble(), 3);
  EXPECT_EQ(p.CalculatorMode.toText(), QStringLiteral("avanzada"));
  EXPECT_EQ(p.SessionCounter, 42.0f);
  EXPECT_EQ(p.WebAddress, QStringLiteral("http://x.example/"));
  EXPECT_EQ(p.AlarmSoundFile, QStringLiteral("alarma3.wav"));
  // It closes the window and writes no file.
  EXPECT_FALSE(m.loaded);
  EXPECT_EQ(closed, 1);
  EXPECT_FALSE(QFile::exists(appFolder.filePath(QStringLiteral("cvdata.txt"))));
}

TEST_F(PreferencesTest, OriginalesThenExitChangesNothingButTheLanguageShown) {
  ProgramState& p = program();
  p.LanguageOffset = 10000;
  p.Language = 2;
  p.Currency1 = rt::Variant::text(QStringLiteral("usd"));
  p.SoundOn = 0;
  p.ExtendedDisplay = true;
  p.SessionCounter = 77;
  p.SlowComputer = 1;
  const QByteArray before = settingsBytes(p);
  m.Form_Load();
  EXPECT_EQ(m.Caption, QStringLiteral("Calvix Premium  -  Preferences"));

  m.Command1_Click();
  EXPECT_EQ(m.Caption, QStringLiteral("Calvix Premium  -  Preferencias"));
  EXPECT_EQ(m.List5, 0);
  EXPECT_EQ(m.Text1, QStringLiteral("euro"));
  EXPECT_EQ(labels(m), QStringLiteral("1 euro =|pts"));
  EXPECT_EQ(m.valor, QStringLiteral("166.386"));
  EXPECT_EQ(m.Check1, 1);
  EXPECT_EQ(m.Check5, 1);
  EXPECT_EQ(m.Check7, 0);
  EXPECT_EQ(m.Check2, 1);  // the processor mark is not a default
  EXPECT_EQ(m.Text3, QStringLiteral("77"));
  EXPECT_EQ(m.Option1, 0);
  EXPECT_EQ(p.LanguageOffset, 10000);

  m.Command3_Click();
  EXPECT_FALSE(m.loaded);
  EXPECT_EQ(settingsBytes(p), before);
  EXPECT_EQ(p.LanguageOffset, 10000);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(PreferencesTest, TheRateBoxKeepsOneSeparatorOfTheSystem) {
  const struct {
    const char* typed;
    bool comma;
    const char* shown;
  } rows[] = {
      {"1.2.3", true, "1,23"},   {"1.2.3", false, "1.23"}, {"1,5", false, "1.5"},   {"-12a3", true, "123"},
      {"2e3", false, "2e3"},     {"..5", true, ",5"},      {"166,386", true, "166,386"},
  };
  for (const auto& r : rows) {
    if (r.comma) useComma();
    else usePoint();
    m.Form_Load();
    m.typeInto(Preferences::Box::valor, QLatin1String(r.typed));
    EXPECT_EQ(m.valor, QLatin1String(r.shown)) << r.typed << (r.comma ? " comma" : " point");
  }
  // On a comma system the saved rate is the number, not its text.
  useComma();
  m.Form_Load();
  m.typeInto(Preferences::Box::valor, QStringLiteral("1.2.3"));
  m.Command2_Click();
  EXPECT_DOUBLE_EQ(program().ExchangeRate.toDouble(), 1.23);
}

TEST_F(PreferencesTest, CurrencyNamesAndCounterHaveTheirLimitsAndFilters) {
  m.Form_Load();
  m.typeInto(Preferences::Box::Text1, QStringLiteral("pesetas"));
  m.typeInto(Preferences::Box::Text2, QStringLiteral("libras"));
  EXPECT_EQ(m.Text1, QStringLiteral("peset"));
  EXPECT_EQ(labels(m), QStringLiteral("1 peset =|libra"));
  m.typeInto(Preferences::Box::Text3, QStringLiteral("12,5a6789"));
  EXPECT_EQ(m.Text3, QStringLiteral("12567"));
  // Backspace takes the last character back.
  m.keyPress(Preferences::Box::Text1, kKeyBackspace);
  EXPECT_EQ(m.Label4, QStringLiteral("1 pese ="));
}

TEST_F(PreferencesTest, PresetAlarmTakesOnlyATime) {
  m.Form_Load();
  messages.queueText(QStringLiteral("7:5"));
  m.Text4_Click(2);
  EXPECT_EQ(m.Text4[2], QStringLiteral("07:05:00"));
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].kind, 5);
  EXPECT_EQ(messages.shown()[0].title, QStringLiteral("Preferencias  -  Alarmas Preprogramadas"));
  EXPECT_TRUE(messages.shown()[0].text.endsWith(QStringLiteral(" (hh:mm:ss)")));

  for (const char* bad : {"25:00", "12:60:00", "mañana", ""}) {
    messages.queueText(QLatin1String(bad));
    m.Text4_Click(2);
    EXPECT_EQ(m.Text4[2], QStringLiteral("07:05:00")) << bad;
    EXPECT_EQ(messages.shown().back().sound, 1) << bad;
  }
  EXPECT_EQ(m.failures, 4);
  // Cancelled: nothing asked is kept.
  messages.queueButton(1);
  m.Text4_Click(1);
  EXPECT_EQ(m.Text4[1], QStringLiteral("22:30:40"));
}

TEST_F(PreferencesTest, AlarmSoundsPlayWithSoundOnAndAMissingOneIsCode903) {
  program().PreferencesSound = false;
  m.Form_Load();
  m.Option1_Click(3);
  EXPECT_EQ(m.alarmFile, QStringLiteral("alarma4.wav"));
  EXPECT_EQ(system.calls, QStringList{QStringLiteral("playSound ") + appFolder.path() + QStringLiteral("/mmedia/alarma4.wav async")});

  system.soundsExist = false;
  m.Option1_Click(1);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_TRUE(messages.shown()[0].text.contains(Res(2903)));

  m.Check1_Click();  // sound off: nothing plays, nothing fails
  system.calls.clear();
  m.Option1_Click(0);
  EXPECT_TRUE(system.calls.isEmpty());
  EXPECT_EQ(messages.shown().size(), 1u);
}

TEST_F(PreferencesTest, UserAlarmComesFromTheSoundFolderByName) {
  m.Form_Load();
  EXPECT_EQ(m.userAlarmName, QStringLiteral("alarma6.wav"));
  chosen.clear();
  m.Option1_Click(5);  // cancelled
  EXPECT_EQ(m.Option1, 0);
  ASSERT_EQ(dialogs.size(), 1);
  EXPECT_EQ(dialogs[0].folder, appFolder.path() + QStringLiteral("/mmedia"));
  EXPECT_EQ(dialogs[0].title, Res(171));

  chosen = makeFile(QStringLiteral("mmedia/gong.wav"));
  m.Command4_Click();
  EXPECT_EQ(m.Option1, 5);
  EXPECT_EQ(m.alarmFile, QStringLiteral("gong.wav"));
  EXPECT_EQ(m.userAlarmName, QStringLiteral("gong.wav"));

  chosen = appFolder.filePath(QStringLiteral("nowhere.wav"));
  m.Command4_Click();
  EXPECT_EQ(m.alarmFile, QStringLiteral("gong.wav"));
  EXPECT_EQ(m.failures, 1);
}

TEST_F(PreferencesTest, EventsFileMustBeAnAgeFileAndEnablesItsCheckBox) {
  m.Form_Load();
  EXPECT_EQ(m.disabledControls(), QStringList{QStringLiteral("Check6")});
  m.Check6_Click();
  EXPECT_EQ(m.Check6, 0);  // disabled: the click does nothing

  chosen = makeFile(QStringLiteral("datos/notas.txt"));
  m.Command5_Click();
  EXPECT_TRUE(m.Label2.isEmpty());
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_TRUE(messages.shown()[0].text.contains(Res(2901)));

  chosen = makeFile(QStringLiteral("datos/agenda.AGE"));
  m.Command5_Click();
  EXPECT_EQ(m.Label2, chosen);
  EXPECT_TRUE(m.disabledControls().isEmpty());
  m.Check6_Click();
  m.Command2_Click();
  EXPECT_EQ(program().EventsFile, chosen);
  EXPECT_EQ(program().LoadEventsFile, 1);
}

TEST_F(PreferencesTest, PreferencesSoundNeedsSoundOnAndPlaysOnOpening) {
  m.Form_Load();
  EXPECT_EQ(system.calls.size(), 1);  // the greeting
  m.Check1_Click();
  EXPECT_EQ(m.disabledControls(), (QStringList{QStringLiteral("Check5"), QStringLiteral("Check6")}));
  m.Check5_Click();
  EXPECT_EQ(m.Check5, 1);

  program().SoundOn = 0;
  system.calls.clear();
  m.Form_Load();
  EXPECT_TRUE(system.calls.isEmpty());
}

TEST_F(PreferencesTest, LanguageShowsAtOnceInTheWindowAndReachesTheProgramWithCommand2) {
  int changed = 0;
  const auto connection = QObject::connect(&languageNotifier(), &LanguageNotifier::languageChanged, &languageNotifier(), [&changed] { ++changed; });
  m.Form_Load();
  m.List5_Click(2);
  EXPECT_EQ(m.Caption, QStringLiteral("Calvix Premium  -  Préférences"));
  EXPECT_EQ(m.flag(), QStringLiteral("fr"));
  EXPECT_EQ(program().LanguageOffset, 0);
  EXPECT_EQ(changed, 0);
  m.Command2_Click();
  EXPECT_EQ(program().LanguageOffset, 20000);
  EXPECT_EQ(program().Language, 3);
  EXPECT_EQ(changed, 1);
  QObject::disconnect(connection);
}

TEST_F(PreferencesTest, ProcessorChangeWarnsOnSaveAndSystemChangeWarnsAtOnce) {
  m.Form_Load();
  m.List4_Click(1);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].text, Res(156));
  m.Check2_Click();
  m.Command2_Click();
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_EQ(messages.shown()[1].title, Res(151));
  EXPECT_EQ(messages.shown()[1].sound, 5);
  EXPECT_EQ(program().SlowComputer, 1);
  EXPECT_EQ(program().OsFamily, 2);
}

TEST_F(PreferencesTest, CommandBoxOpensWithCtrlAndRunsItsWords) {
  ProgramState& p = program();
  m.Form_Load();
  system.calls.clear();
  m.Label1_MouseDown(5, 0);
  m.Label1_MouseDown(4, 2);
  EXPECT_TRUE(messages.shown().empty());

  messages.queueButton(1);  // Cancelar
  m.Label1_MouseDown(5, 2);
  EXPECT_FALSE(m.commandBoxVisible);
  EXPECT_EQ(messages.shown()[0].title, QStringLiteral("Calvix Premium  -  Área Restringida"));

  const struct {
    const char* word;
    int osFamily;
    QStringList calls;
  } rows[] = {
      {"APAGAR", 2, {"powerAction shutdown-delayed", "endProgram"}},
      {"apagar", 1, {"powerAction shutdown", "endProgram"}},
      {"apagar", 0, {}},
      {"SalvaPantallas", 1, {"powerAction screensaver"}},
      {"remoto", 2, {"runCommand shutdown.exe -i"}},
      {"remoto", 1, {}},
      {"cvxinfousers", 2, {"runCommand control userpasswords2"}},
      {"format c:", 2, {}},
  };
  for (const auto& r : rows) {
    p.OsFamily = static_cast<std::int16_t>(r.osFamily);
    system.calls.clear();
    m.Label1_MouseDown(5, 2);
    ASSERT_TRUE(m.commandBoxVisible);
    m.typeInto(Preferences::Box::Text6, QLatin1String(r.word));
    m.Text6_Enter();
    EXPECT_EQ(system.calls, r.calls) << r.word;
    EXPECT_FALSE(m.commandBoxVisible);
    EXPECT_TRUE(m.Text6.isEmpty());
  }

  m.Label1_MouseDown(5, 2);
  m.typeInto(Preferences::Box::Text6, QStringLiteral("cvxinfo"));
  m.Text6_Enter();
  EXPECT_EQ(messages.shown().back().title, QStringLiteral("Info CALVIX"));
  EXPECT_EQ(messages.shown().back().sound, 4);
  EXPECT_TRUE(messages.shown().back().text.contains(QStringLiteral("salvapantallas")));

  m.Label1_MouseDown(5, 2);
  m.typeInto(Preferences::Box::Text6, QStringLiteral("cvxinfouser"));
  m.Text6_Enter();
  EXPECT_EQ(messages.shown().back().buttonSet, 4);
  EXPECT_TRUE(messages.shown().back().text.startsWith(QStringLiteral("S.O. del Sistema: Test OS\nwindir: ")));
  EXPECT_TRUE(messages.shown().back().text.contains(QStringLiteral("\nNombre User: tester\n")));
}

TEST(PreferencesTime, TimeTextReadsHoursMinutesAndSeconds) {
  const struct {
    const char* in;
    const char* out;
  } rows[] = {{"7:5", "07:05:00"}, {"23:59:59", "23:59:59"}, {" 0:00 ", "00:00:00"}, {"24:00", ""},
              {"10", ""},          {"1:2:3:4", ""},          {"a:b", ""}};
  for (const auto& r : rows) EXPECT_EQ(Preferences::timeText(QLatin1String(r.in)), QLatin1String(r.out)) << r.in;
}

}  // namespace
