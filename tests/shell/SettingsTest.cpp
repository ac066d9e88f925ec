// The settings file: the layout byte for byte, round trips, purely positional
// reading, files cut short, damaged or foreign, restore, the events-file rule,
// and the settings surviving two runs of the control centre.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include "shell/ControlCentre.h"
#include "shell/runtime/DateTime.h"
#include "shell/ProgramState.h"
#include "shell/runtime/SequentialFile.h"
#include "shell/Settings.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class SettingsTest : public CalvixTest {
 protected:
  QString settingsPath() const { return program().AppFolder.toText() + QStringLiteral("cvdata.txt"); }
  void writeBytes(const QByteArray& bytes) {
    QFile f(settingsPath());
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  // A state whose settings differ from the defaults in every record.
  static void fillUnusual(ProgramState& s, const QString& eventsFile) {
    s.VatRate = 21.5;
    s.Memories = {-1.25e-300, 0.1, 7.0, -99.5};
    s.Registers = {1.5e300, -2.25, 1e-5, 123456789012345.0};
    for (int i = 0; i < 4; ++i) {
      s.RegisterLabels[static_cast<size_t>(i)] = QStringLiteral("Región %1, ñ").arg(i);
      s.Programs[static_cast<size_t>(i + 1)] = QStringLiteral("x^2 + %1, y\r\nsecond line").arg(i);
      s.AlarmTimes[static_cast<size_t>(i)] = QStringLiteral("0%1:15:00").arg(i);
    }
    s.DisplayColour = 16777215;
    s.TextColour = 11902587;
    s.BackgroundColour = 1;
    s.ColourMenu = 1;
    s.Currency1 = QStringLiteral("€uro");
    s.Currency2 = QStringLiteral("$");
    s.ExchangeRate = 0.000123456789012345;
    s.EquationMethod = 2;
    s.AutoCloseMessages = rt::Variant::integer(3);
    s.CalculatorMode = QStringLiteral("normalita");
    s.SoundOn = 0;
    s.AlarmSoundFile = QStringLiteral("alarma6.wav");
    s.DefaultAlarm = 2;
    s.AlarmDuration = 3;
    s.PreferencesSound = false;
    s.ExtendedDisplay = true;
    s.SlowComputer = 1;
    s.SessionCounter = 99998;
    s.UserName = QStringLiteral("ana");
    s.OsFamily = 2;
    s.WebAddress = QStringLiteral("https://example.net/a?b=c&d=e");
    s.Language = 3;
    s.CalendarDates = {rt::DateSerial(2024, 2, 29), rt::DateSerial(1850, 1, 2)};
    for (int set = 0; set < 3; ++set) {
      for (int j = 0; j < 49; ++j) s.LotteryFavourites[static_cast<size_t>(set)][static_cast<size_t>(j)] = static_cast<std::int16_t>((set + j) % 3);
    }
    for (int i = 1; i <= 10; ++i) s.ChartColours[static_cast<size_t>(i)] = rt::Variant::longValue(0x010203 * i);
    for (int i = 1; i <= 14; ++i) s.PlotColours[static_cast<size_t>(i)] = rt::Variant::integer(static_cast<std::int16_t>(i));
    for (int i = 1; i <= 6; ++i) s.CalendarColours[static_cast<size_t>(i)] = QStringLiteral("&H%1").arg(i);
    for (int i = 1; i <= 5; ++i) s.CalendarInfo[static_cast<size_t>(i)] = !s.CalendarInfo[static_cast<size_t>(i)];
    s.EventsFile = eventsFile;
    s.LoadEventsFile = 1;
  }
  // Reads the settings into a state cleared as a new run starts it.
  static bool reread() {
    clearSettings(program());
    return ReadSettings();
  }
  static bool writeAndReread() { return WriteSettings() && reread(); }
  struct Host : ControlCentreHost {
    QString applicationPath() override { return path; }
    void waitWithEvents(float) override {}
    QString path;
  };
  static void expectSameSettings(const ProgramState& a, const ProgramState& b) {
    const auto va = settingsValues(a);
    const auto vb = settingsValues(b);
    ASSERT_EQ(va.size(), vb.size());
    for (size_t i = 0; i < va.size(); ++i) {
      EXPECT_TRUE(va[i].value == vb[i].value)
          << va[i].name.toStdString() << ": " << rt::SequentialWriter::encode(va[i].value).toStdString() << " vs "
          << rt::SequentialWriter::encode(vb[i].value).toStdString();
    }
  }
};

}  // namespace

// ---- Layout and round trips ----------------------------------------------------------

TEST_F(SettingsTest, DefaultsBeginWithTheVatRecordAndHaveOneLinePerStatement) {
  program().Language = 1;
  const QByteArray bytes = settingsBytes(program());
  EXPECT_TRUE(bytes.startsWith("\"TIPO IVA\",16,\"\n\",\"MEMORIA 1\",0,\"\n\"")) << bytes.left(60).toStdString();
  // 13 + 4 + 1... statements: first, four programs, second, four alarms, third,
  // dates, three favourite sets of 1 + 49, the 35 list entries, the last.
  EXPECT_EQ(bytes.count("\r\n"), 1 + 4 + 1 + 4 + 1 + 1 + 3 * 50 + 35 + 1);
  for (const char* key : {"\"PREFENCIAS-SOUND\",#TRUE#,\"\n\"", "\"CALENDA DATA FILE\",\"\",\"\n\",\"Carga File\",0,\"\n\"\r\n",
                          "\"Programa  1\",\"\",\"\n\"\r\n", "\"Alarma 1\",\"22:30:40\",\"\n\"\r\n",
                          "\"Loto Preferidos1\"\r\n0\r\n0\r\n", "\"FECHAS CALENDARIO\",\"\n\",#",
                          "\"COLOR FONDO\",11902587,\"\n\"", "\"Color Graf15 10\",", "\"CALENDARIO info 5\",#FALSE#,"}) {
    EXPECT_TRUE(bytes.contains(key)) << key;
  }
  // Keys with accents are in the files' code page.
  EXPECT_TRUE(bytes.contains("\"MODO RESOLUCI\xd3N SISTEMAS DE ECUACIONES\",1,"));
  EXPECT_TRUE(bytes.endsWith("\"Carga File\",0,\"\n\"\r\n"));
}

TEST_F(SettingsTest, DefaultsReadBackToTheSameVariablesAndWriteIdentically) {
  program().Language = 1;
  ASSERT_EQ(writeSettingsFile(settingsPath(), program()), 0);
  ProgramState copy = program();
  ASSERT_TRUE(reread());
  EXPECT_TRUE(messages.shown().empty());
  expectSameSettings(program(), copy);
  EXPECT_EQ(settingsBytes(program()), settingsBytes(copy));
  // "IDIOMA" 0 is written as 1.
  program().Language = 0;
  ASSERT_TRUE(writeAndReread());
  EXPECT_EQ(program().Language, 1);
}

TEST_F(SettingsTest, EveryKindOfValueSurvivesARoundTrip) {
  const QString events = appFolder.filePath(QStringLiteral("agenda.age"));
  QFile(events).open(QIODevice::WriteOnly);
  fillUnusual(program(), events);
  program().WebAddress += QString(20000, QLatin1Char('a'));
  program().CalendarDates[0] += 0.75;  // the time part does not survive reading
  ASSERT_TRUE(WriteSettings());
  ProgramState expected = program();
  expected.CalendarDates[0] = rt::DateSerial(2024, 2, 29);
  ASSERT_TRUE(reread());
  expectSameSettings(program(), expected);
  EXPECT_EQ(program().TextColour, 11902587.0f);
  EXPECT_EQ(program().Currency1.toText(), QStringLiteral("€uro"));
  EXPECT_EQ(program().Programs[3], QStringLiteral("x^2 + 2, y\r\nsecond line"));
}

TEST_F(SettingsTest, A64BitFloatKeepsFifteenDigitsAsTheClassicFormWritesThem) {
  program().Memories[0] = 1.0 / 3.0;
  ASSERT_TRUE(writeAndReread());
  EXPECT_EQ(program().Memories[0], 0.333333333333333);
  // From there on the value is stable.
  const QByteArray once = settingsBytes(program());
  ASSERT_TRUE(writeAndReread());
  EXPECT_EQ(settingsBytes(program()), once);
}

TEST_F(SettingsTest, KeysAreNeverComparedOnlyPositionsCount) {
  fillUnusual(program(), QString());
  ProgramState expected = program();
  QByteArray bytes = settingsBytes(program());
  for (const char* key : {"TIPO IVA", "MONEDA 1", "IDIOMA", "Loto Preferidos2", "Carga File", "FECHAS CALENDARIO"}) {
    bytes.replace(QByteArray(QByteArray("\"") + key + "\""), QByteArray("\"some other key\""));
  }
  writeBytes(bytes);
  ASSERT_TRUE(reread());
  expectSameSettings(program(), expected);
}

// ---- Damaged files -------------------------------------------------------------------

TEST_F(SettingsTest, AMissingFileShowsThePreparedMessage) {
  EXPECT_FALSE(reread());
  ASSERT_EQ(messages.shown().size(), 1u);
  const MessageRequest& m = messages.shown()[0];
  EXPECT_EQ(m.kind, 3);
  EXPECT_EQ(m.buttonSet, 0);
  EXPECT_EQ(m.sound, 1);
  EXPECT_EQ(m.title, QStringLiteral("Calvix Premium  -  Iniciación"));
  EXPECT_EQ(m.text, Res(2961) + QStringLiteral("\n\n") + Res(2962));
  EXPECT_TRUE(program().VatRate.isEmpty());  // nothing read: start values stay
}

TEST_F(SettingsTest, AFileShortByOneValueFailsAtItsEndAndKeepsWhatWasRead) {
  fillUnusual(program(), QString());
  ProgramState written = program();
  QByteArray bytes = settingsBytes(program());
  // Drop the mark of number 49 of the third favourite set: every later value shifts.
  const qsizetype set3 = bytes.indexOf("\"Loto Preferidos3\"\r\n");
  ASSERT_GT(set3, 0);
  qsizetype line = set3;
  for (int i = 0; i < 49; ++i) line = bytes.indexOf("\r\n", line) + 2;
  bytes.remove(line, bytes.indexOf("\r\n", line) + 2 - line);
  writeBytes(bytes);
  EXPECT_FALSE(reread());
  EXPECT_EQ(messages.shown().size(), 1u);
  // Everything before the gap holds its file value.
  EXPECT_EQ(program().WebAddress, written.WebAddress);
  EXPECT_EQ(program().LotteryFavourites[2][47], written.LotteryFavourites[2][47]);
  EXPECT_EQ(program().SessionCounter, written.SessionCounter);
}

TEST_F(SettingsTest, AFileCutAtAnyByteLeavesNoValueHalfRead) {
  fillUnusual(program(), QString());
  const ProgramState full = program();
  const QByteArray bytes = settingsBytes(full);
  ProgramState start;
  clearSettings(start);
  const auto fullValues = settingsValues(full);
  const auto startValues = settingsValues(start);
  for (qsizetype cut = 0; cut < bytes.size(); ++cut) {
    ProgramState s = start;
    const SettingsRead r = readSettingsBytes(bytes.left(cut), s);
    // Only the last line end may go missing without harm.
    if (cut < bytes.size() - 2) ASSERT_NE(r.error, 0) << "cut at " << cut;
    else ASSERT_EQ(r.error, 0) << "cut at " << cut;
    const auto values = settingsValues(s);
    // Each value is either the whole file value or still the start value.
    for (size_t i = 0; i < values.size(); ++i) {
      const bool read = i < r.filled.size();
      ASSERT_TRUE(values[i].value == (read ? fullValues[i].value : startValues[i].value))
          << "cut at " << cut << ", " << values[i].name.toStdString();
    }
  }
}

TEST_F(SettingsTest, AValueTheWriterCouldNotHaveWrittenStopsTheReadingBeforeItIsTaken) {
  ProgramState start;
  clearSettings(start);
  // An unquoted text holding a quote: taken, it would not survive the next save.
  ProgramState s = start;
  EXPECT_EQ(readSettingsBytes(QByteArray("\n\0\"\n", 4), s).error, rt::kTypeMismatch);
  EXPECT_TRUE(s.VatRate == start.VatRate);

  // A calendar date past what the runtime holds: taken, every save would fail.
  QByteArray bytes = settingsBytes(start);
  const qsizetype date = bytes.indexOf('#', bytes.indexOf("\"FECHAS CALENDARIO\""));
  ASSERT_GT(date, 0);
  bytes.replace(date, bytes.indexOf('#', date + 1) + 1 - date, "12345678");
  s = start;
  EXPECT_EQ(readSettingsBytes(bytes, s).error, rt::kOverflow);
  EXPECT_EQ(s.CalendarDates[0], start.CalendarDates[0]);
  EXPECT_NO_THROW(settingsBytes(s));
}

TEST_F(SettingsTest, RandomBytesShowTheMessageAndTheCommandRow) {
  QRandomGenerator random(1234);
  for (int round = 0; round < 20; ++round) {
    QByteArray junk(static_cast<qsizetype>(random.bounded(1, 4000)), '\0');
    for (char& c : junk) c = static_cast<char>(random.bounded(256));
    writeBytes(junk);
    messages.clear();
    EXPECT_FALSE(ReadSettings()) << round;
    EXPECT_EQ(messages.shown().size(), 1u) << round;
  }
  // The control centre answers a damaged file with its command row.
  Host host;
  host.path = appFolder.path();
  ControlCentre centre(host);
  centre.loadBeforeShow();
  EXPECT_TRUE(centre.commandRowVisible);
}

TEST_F(SettingsTest, AQuoteInTheWebAddressDamagesOnlyWhatFollowsIt) {
  fillUnusual(program(), QString());
  const ProgramState written = program();
  // A quote alone cuts the address there; the reading goes on in step.
  program().WebAddress = QStringLiteral("http://a\"b");
  EXPECT_TRUE(writeAndReread());
  EXPECT_EQ(program().WebAddress, QStringLiteral("http://a"));
  EXPECT_EQ(program().Language, written.Language);
  EXPECT_EQ(program().LotteryFavourites[2][48], written.LotteryFavourites[2][48]);

  // A quote and a comma shift every later value: the reading stops, the
  // message comes, and what stood before the address is intact.
  fillUnusual(program(), QString());
  program().WebAddress = QStringLiteral("http://a\",b");
  ASSERT_TRUE(WriteSettings());
  messages.clear();
  EXPECT_FALSE(reread());
  EXPECT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(program().OsFamily, written.OsFamily);
  EXPECT_EQ(program().SessionCounter, written.SessionCounter);
  EXPECT_EQ(program().Currency1.toText(), written.Currency1.toText());
}

// ---- Restore and the events file --------------------------------------------------------

TEST_F(SettingsTest, RestoreSetsTheDefaultsButKeepsWhatItMustKeep) {
  fillUnusual(program(), QString());
  program().PlotColours[0] = rt::Variant();
  program().CalendarColours[0] = rt::Variant();
  const ProgramState before = program();
  RestoreSettings(QStringLiteral("Restore"));  // another case: nothing happens
  expectSameSettings(program(), before);

  RestoreSettings(QStringLiteral("restore"));
  ProgramState defaults;
  applyDefaultSettings(defaults);
  const ProgramState& p = program();
  EXPECT_EQ(p.SessionCounter, before.SessionCounter);
  EXPECT_EQ(p.Language, before.Language);
  EXPECT_EQ(p.SlowComputer, before.SlowComputer);
  EXPECT_EQ(p.OsFamily, before.OsFamily);
  EXPECT_TRUE(p.ChartColours[9] == before.ChartColours[9]);
  EXPECT_TRUE(p.ChartColours[10] == before.ChartColours[10]);
  EXPECT_EQ(p.CalendarDates, before.CalendarDates);
  EXPECT_TRUE(p.ChartColours[8] == defaults.ChartColours[8]);
  EXPECT_TRUE(p.VatRate == rt::Variant::integer(16));
  EXPECT_EQ(p.Currency1.toText(), QStringLiteral("euro"));
  EXPECT_EQ(p.AlarmTimes[0], QStringLiteral("22:30:40"));
  EXPECT_EQ(p.AlarmTimes[1], QString());
  EXPECT_EQ(p.WebAddress, defaultWebAddress());
  EXPECT_EQ(p.UserName.toText(), QString());
  EXPECT_EQ(p.LotteryFavourites[1][5], 0);
  EXPECT_TRUE(p.CalendarInfo[1] && !p.CalendarInfo[3]);
  EXPECT_TRUE(p.PlotColours[0] == defaults.PlotColours[0]);  // the unstored entries come back too
  EXPECT_TRUE(p.CalendarColours[0] == defaults.CalendarColours[0]);
  // The register labels come in the current language.
  program().LanguageOffset = 10000;
  RestoreSettings(QStringLiteral("restore"));
  EXPECT_EQ(program().RegisterLabels[1].toText(), Res(4275) + QStringLiteral(" 2"));
  EXPECT_NE(program().RegisterLabels[1].toText(), QStringLiteral("Memoria Intermodular: R 2"));
}

TEST_F(SettingsTest, ADeletedEventsFileIsForgottenAndTheForgettingReachesTheDisk) {
  const QString events = appFolder.filePath(QStringLiteral("agenda.age"));
  QFile(events).open(QIODevice::WriteOnly);
  program().EventsFile = events;
  program().LoadEventsFile = 1;
  ASSERT_TRUE(WriteSettings());
  QFile::remove(events);
  ASSERT_TRUE(reread());
  EXPECT_EQ(program().EventsFile, QString());
  EXPECT_EQ(program().LoadEventsFile, 0);
  ASSERT_TRUE(WriteSettings());
  EXPECT_TRUE(rt::readWholeFile(settingsPath()).endsWith("\"CALENDA DATA FILE\",\"\",\"\n\",\"Carga File\",0,\"\n\"\r\n"));
}

TEST_F(SettingsTest, AFailedWriteReportsNothingAndThrowsNothing) {
  program().AppFolder = appFolder.filePath(QStringLiteral("no/such/folder/"));
  EXPECT_FALSE(WriteSettings());
  EXPECT_TRUE(messages.shown().empty());
}

// ---- Two runs of the control centre ---------------------------------------------------------

TEST_F(SettingsTest, SettingsSurviveTwoRunsOfTheControlCentre) {
  Host host;
  host.path = appFolder.path();
  ASSERT_EQ(writeSettingsFile(settingsPath(), program()), 0);  // the installed defaults

  auto run = [&](const std::function<void(ProgramState&)>& change) {
    clearSettings(program());  // a new process
    ControlCentre centre(host);
    messages.queueText(QStringLiteral("2"));  // the system question, while it still comes
    centre.Form_Load();
    change(program());
    centre.Form_Unload();
  };
  run([](ProgramState& p) {
    p.Currency1 = QStringLiteral("dólar");
    p.ExchangeRate = 0.92;
    p.Memories = {1, 2, 3, 4};
    p.Registers[3] = 42.5;
    p.RegisterLabels[3] = QStringLiteral("Área del círculo");
    p.Programs[1] = QStringLiteral("sin(x)+1");
    p.CalculatorMode = QStringLiteral("normalita");
    p.ExtendedDisplay = true;
  });
  EXPECT_EQ(program().OsFamily, 2);
  run([](ProgramState& p) {
    EXPECT_EQ(p.Currency1.toText(), QStringLiteral("dólar"));
    EXPECT_EQ(p.ExchangeRate.toDouble(), 0.92);
    EXPECT_EQ(p.Memories[2], 3);
    EXPECT_EQ(p.Registers[3], 42.5);
    EXPECT_EQ(p.RegisterLabels[3].toText(), QStringLiteral("Área del círculo"));
    EXPECT_EQ(p.Programs[1], QStringLiteral("sin(x)+1"));
    EXPECT_TRUE(p.ExtendedDisplay);
    EXPECT_EQ(p.SessionCounter, 2);
    p.Memories[0] = -7;
  });
  ASSERT_TRUE(reread());
  EXPECT_EQ(program().Memories[0], -7);
  EXPECT_EQ(program().SessionCounter, 2);
  EXPECT_EQ(program().Language, 1);
  EXPECT_EQ(program().CalculatorMode.toText(), QStringLiteral("normalita"));
}

// ---- Program folder ----------------------------------------------------------------------------

TEST_F(SettingsTest, SeedingCopiesWhatIsMissingAndLeavesTheRest) {
  const QString from = appFolder.filePath(QStringLiteral("program"));
  const QString to = appFolder.filePath(QStringLiteral("user"));
  QDir().mkpath(from + QStringLiteral("/mmedia"));
  auto put = [](const QString& path, const QByteArray& bytes) {
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  };
  put(from + QStringLiteral("/cvdata.txt"), "defaults");
  put(from + QStringLiteral("/mmedia/hey.wav"), "RIFF");
  put(from + QStringLiteral("/calvix"), "binary");
  QFile(from + QStringLiteral("/calvix")).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  QDir().mkpath(to);
  put(to + QStringLiteral("/cvdata.txt"), "the user's own");

  EXPECT_TRUE(seedFolder(from, to));
  EXPECT_EQ(rt::readWholeFile(to + QStringLiteral("/cvdata.txt")), QByteArray("the user's own"));
  EXPECT_EQ(rt::readWholeFile(to + QStringLiteral("/mmedia/hey.wav")), QByteArray("RIFF"));
  EXPECT_FALSE(QFile::exists(to + QStringLiteral("/calvix")));
  EXPECT_EQ(programDataFolder(from), from);  // a writable program folder is its own data folder
  EXPECT_TRUE(QFileInfo(from + QStringLiteral("/datos")).isDir());  // where the file dialogs start
}

TEST_F(SettingsTest, AnInstalledProgramKeepsEachUsersFilesApartFromItsSharedData) {
  // <prefix>/bin/calvix with its data in <prefix>/share/calvix.
  const QString prefix = appFolder.filePath(QStringLiteral("usr"));
  const QString bin = prefix + QStringLiteral("/bin");
  const QString shared = prefix + QStringLiteral("/share/calvix");
  QDir().mkpath(bin);
  QDir().mkpath(shared + QStringLiteral("/mmedia"));
  for (const char* name : {"cvdata.txt", "cvxlp.dlj", "cvxtp.dlj", "mmedia/hey.wav"}) {
    QFile f(shared + QLatin1Char('/') + QLatin1String(name));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(name);
  }
  EXPECT_EQ(sharedDataFolder(bin), shared);
  EXPECT_EQ(sharedDataFolder(appFolder.path()), appFolder.path());  // the build tree is its own

  QTemporaryDir home;
  qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
  const QString user = programDataFolder(bin);
  qunsetenv("XDG_DATA_HOME");
  EXPECT_TRUE(user.startsWith(home.path())) << user.toStdString();
  EXPECT_TRUE(QFileInfo(user + QStringLiteral("/datos")).isDir());
  EXPECT_EQ(rt::readWholeFile(user + QStringLiteral("/cvxlp.dlj")), QByteArray("cvxlp.dlj"));  // draws a user updates
  EXPECT_FALSE(QFile::exists(user + QStringLiteral("/cvxtp.dlj")));  // read in place
  EXPECT_FALSE(QFile::exists(user + QStringLiteral("/mmedia/hey.wav")));
  EXPECT_FALSE(QFile::exists(user + QStringLiteral("/cvdata.txt")));  // written on leaving

  program().AppFolder = rt::Variant(user + QLatin1Char('/'));
  program().SharedFolder = shared + QLatin1Char('/');
  EXPECT_EQ(sharedFile(QStringLiteral("mmedia/hey.wav")), shared + QStringLiteral("/mmedia/hey.wav"));
  program().SharedFolder.clear();
  EXPECT_EQ(sharedFile(QStringLiteral("cvxtp.dlj")), user + QStringLiteral("/cvxtp.dlj"));
}

TEST_F(SettingsTest, AFirstStartTakesTheDefaultsInTheSystemsLanguage) {
  EXPECT_EQ(languageOfLocale(QLocale(QLocale::Spanish, QLocale::Mexico)), 1);
  EXPECT_EQ(languageOfLocale(QLocale(QLocale::English, QLocale::UnitedKingdom)), 2);
  EXPECT_EQ(languageOfLocale(QLocale(QLocale::French, QLocale::Canada)), 3);
  EXPECT_EQ(languageOfLocale(QLocale(QLocale::Catalan, QLocale::Spain)), 4);
  EXPECT_EQ(languageOfLocale(QLocale(QLocale::German, QLocale::Germany)), 2);

  // No file of the user's own: the shared defaults are read, nothing is shown.
  QFile::remove(appFolder.filePath(QStringLiteral("cvdata.txt")));
  QTemporaryDir shared;
  program().SharedFolder = shared.path() + QLatin1Char('/');
  ProgramState defaults;
  restoreDefaults(defaults);
  defaults.SessionCounter = 41;
  ASSERT_EQ(writeSettingsFile(shared.filePath(QStringLiteral("cvdata.txt")), defaults), 0);
  clearSettings(program());
  messages.clear();
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
  EXPECT_TRUE(ReadSettings());
  QLocale::setDefault(before);
  program().SharedFolder.clear();
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(program().SessionCounter, 41);
  EXPECT_EQ(program().Language, 3);
}
