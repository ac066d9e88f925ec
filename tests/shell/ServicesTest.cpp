// The shared services: key filters, number and text helpers, system
// information through the recording platform, sounds, waits, power actions
// and context help. Numeric cases pin the decimal symbol they run with.
#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QTimer>
#include <pwd.h>
#include <unistd.h>

#include "shell/runtime/DateTime.h"
#include "shell/ErrorReport.h"
#include "shell/Platform.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

// Delay and the events it runs need an application object.
QCoreApplication& app() {
  static int argc = 1;
  static char name[] = "ServicesTest";
  static char* argv[] = {name, nullptr};
  static QCoreApplication instance(argc, argv);
  return instance;
}

class ServicesTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    setPlatform(&recording);
  }
  void TearDown() override {
    setPlatform(nullptr);
    rt::setClockForTesting(QDateTime());
    CalvixTest::TearDown();
  }
  RecordingPlatform recording;
};

}  // namespace

// ---- FilterKey ----------------------------------------------------------------

TEST_F(ServicesTest, EachFilterKeepsItsOwnKeyClasses) {
  // Key classes: digit, minus, e, E, comma, point, backspace, enter, letter, blank.
  const int keys[] = {'7', '-', 'e', 'E', ',', '.', kKeyBackspace, kKeyEnter, 'x', ' '};
  struct Row {
    const char* filter;
    int kept[10];  // what comes back on a "." system
  };
  const Row rows[] = {
      {"T", {'7', '-', 'e', 'E', '.', '.', 8, 13, 0, 0}},
      {"T+", {'7', 0, 'e', 'E', '.', '.', 8, 0, 0, 0}},
      {"D", {'7', '-', 0, 0, '.', '.', 8, 0, 0, 0}},
      {"N", {'7', 0, 0, 0, 0, 0, 8, 0, 0, 0}},
      {"N1", {'7', 0, 0, 0, 0, 0, 0, 0, 0, 0}},
      {"other", {'7', '-', 'e', 'E', ',', '.', 8, 13, 'x', ' '}},
  };
  for (const Row& row : rows) {
    for (int i = 0; i < 10; ++i) {
      EXPECT_EQ(FilterKey(keys[i], QString::fromLatin1(row.filter)), row.kept[i])
          << "filter " << row.filter << ", key " << keys[i];
    }
  }
}

TEST_F(ServicesTest, NumberFiltersTurnCommaAndPointIntoTheDecimalSymbol) {
  useComma();
  for (const char* f : {"T", "T+", "D"}) {
    EXPECT_EQ(FilterKey('.', QString::fromLatin1(f)), ',') << f;
    EXPECT_EQ(FilterKey(',', QString::fromLatin1(f)), ',') << f;
  }
  // "N" refuses a comma rather than turning it into anything.
  EXPECT_EQ(FilterKey(',', QStringLiteral("N")), 0);
  EXPECT_EQ(FilterKey('.', QStringLiteral("N")), 0);
  // An unknown filter leaves the key as typed, point included.
  EXPECT_EQ(FilterKey('.', QStringLiteral("X")), '.');
}

// ---- NumericEnd, RomanNumeral, binary --------------------------------------------

TEST_F(ServicesTest, NumericEndFindsTheNumberAtEitherSide) {
  // The leading "-" set aside comes back even when nothing numeric follows.
  const struct {
    const char* text;
    int side;
    const char* number;
  } rows[] = {{"-12abc", 0, "-12"}, {"abc-12", 1, "-12"}, {"abc-12", 0, ""},  {"  ", 0, ""},   {"  ", 1, ""},
              {"12.5 kg", 0, "12.5"}, {"total 42 ", 1, "42"}, {"", 0, ""}, {"-abc", 0, "-"}};
  for (const auto& r : rows) {
    EXPECT_EQ(NumericEnd(QString::fromLatin1(r.text), r.side), QString::fromLatin1(r.number)) << r.text << r.side;
  }
}

namespace {
// Roman numerals by subtraction from a table of values, the usual way; 4000
// is written M before Q (5000) in this program's alphabet.
QString referenceRoman(int n) {
  static const std::pair<int, const char*> table[] = {
      {4000, "MQ"}, {1000, "M"}, {900, "CM"}, {500, "D"}, {400, "CD"}, {100, "C"}, {90, "XC"},
      {50, "L"},    {40, "XL"},  {10, "X"},   {9, "IX"},  {5, "V"},    {4, "IV"},  {1, "I"}};
  QString out;
  for (const auto& [value, letters] : table) {
    while (n >= value) {
      out += QString::fromLatin1(letters);
      n -= value;
    }
  }
  return out;
}
}  // namespace

TEST_F(ServicesTest, RomanNumeralsFrom1To4999MatchTheSubtractionTable) {
  for (int n = 1; n <= 4999; ++n) {
    ASSERT_EQ(RomanNumeral(n), referenceRoman(n)) << n;
  }
}

TEST_F(ServicesTest, RomanNumeralsBeyondUseTheLastLettersAndDropTheFraction) {
  const std::pair<double, const char*> rows[] = {{5000, "Q"},  {9000, "MH"},  {10000, "H"}, {24000, "HHMQ"},
                                                  {14.9, "XIV"}, {-14, "XIV"},  {0, ""}};
  for (const auto& [n, text] : rows) EXPECT_EQ(RomanNumeral(n), QString::fromLatin1(text)) << n;
}

TEST_F(ServicesTest, BinaryConversionsGoBothWays) {
  EXPECT_EQ(DecimalToBinary(0), QStringLiteral("0000"));
  EXPECT_EQ(DecimalToBinary(5), QStringLiteral("101"));
  EXPECT_EQ(DecimalToBinary(5.9), QStringLiteral("101"));
  EXPECT_EQ(DecimalToBinary(1099511627776.0), QStringLiteral("1") + QString(40, QLatin1Char('0')));
  EXPECT_EQ(BinaryToDecimal(QStringLiteral("101")), 5);
  EXPECT_EQ(BinaryToDecimal(QStringLiteral("1x1")), 5);  // other characters still take a place
  EXPECT_EQ(BinaryToDecimal(QString()), 0);
  for (double v : {1.0, 2.0, 255.0, 1023.0, 4294967297.0}) EXPECT_EQ(BinaryToDecimal(DecimalToBinary(v)), v);
}

// ---- Factorial, fractions, divisors, primes, extremes -------------------------

TEST_F(ServicesTest, FactorialWorksUpTo170AndReportsBeyond) {
  EXPECT_EQ(Factorial(0), 1);
  EXPECT_EQ(Factorial(5), 120);
  const double f170 = Factorial(170);
  EXPECT_TRUE(std::isfinite(f170));
  EXPECT_NEAR(f170 / 7.257415615307994e306, 1.0, 1e-12);
  EXPECT_TRUE(messages.shown().empty());

  EXPECT_EQ(Factorial(171), 1);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].title, QStringLiteral("Factorial"));
  EXPECT_EQ(messages.shown()[0].text, ErrorText(8));
  EXPECT_EQ(Factorial(-1), 1);
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_EQ(messages.shown()[1].text, QStringLiteral("Error:  Número Negativo."));
}

TEST_F(ServicesTest, FractionalPartReadsTheDigitsBehindTheIntegerPart) {
  EXPECT_DOUBLE_EQ(FractionalPart(3.25), 0.25);
  EXPECT_DOUBLE_EQ(FractionalPart(-3.25), 0.25);
  EXPECT_DOUBLE_EQ(FractionalPart(7.0), 0);
  useComma();
  EXPECT_DOUBLE_EQ(FractionalPart(3.25), 0.25);
  EXPECT_DOUBLE_EQ(FractionalPart(rt::Variant(QStringLiteral("12,5"))), 0.5);
}

TEST_F(ServicesTest, GreatestCommonDivisorOfTheTwoHalvesOfAnEntry) {
  EXPECT_EQ(GreatestCommonDivisor(12.18).toDouble(), 6);
  EXPECT_EQ(GreatestCommonDivisor(7.0).toDouble(), 7);  // no second number: the first itself
  useComma();
  EXPECT_EQ(GreatestCommonDivisor(rt::Variant(QStringLiteral("84,36"))).toDouble(), 12);
  EXPECT_EQ(GreatestCommonDivisor(rt::Variant(QStringLiteral("17,5"))).toDouble(), 1);
}

TEST_F(ServicesTest, PrimeTextAnswersInTheCurrentLanguage) {
  for (double p : {2.0, 3.0, 5.0, 97.0, 7919.0, 2147483647.0}) EXPECT_EQ(PrimeText(p), QStringLiteral("Si")) << p;
  for (double c : {-7.0, 0.0, 1.0, 4.0, 9.0, 25.0, 49.0, 7917.0, 2147483646.0}) {
    EXPECT_EQ(PrimeText(c), QStringLiteral("No")) << c;
  }
  program().LanguageOffset = 10000;
  EXPECT_EQ(PrimeText(7), Res(57));
  EXPECT_NE(Res(57), QStringLiteral("Si"));
  // Beyond 32 bits the runtime's Mod overflows.
  EXPECT_THROW(PrimeText(2147483648.0), rt::RuntimeError);
}

TEST_F(ServicesTest, ArrayExtremeLooksAtEntriesOneToCount) {
  const QList<rt::Variant> values{999.0, 3.0, -2.0, 8.5, 1.0, 100.0};
  EXPECT_EQ(ArrayExtreme(values, 4, 0), 8.5);   // entry 0 and entry 5 are not looked at
  EXPECT_EQ(ArrayExtreme(values, 4, 1), -2.0);
  EXPECT_EQ(ArrayExtreme(values, 1, 0), 3.0);
  EXPECT_EQ(ArrayExtreme(values, 0, 0), 0.0);
  EXPECT_EQ(ArrayExtreme(values, 50, 0), 100.0);  // a count beyond the list stops at its end
}

// ---- System information -------------------------------------------------------------

TEST_F(ServicesTest, UptimeWrapsLikeA32BitMillisecondCounter) {
  EXPECT_EQ(uptimeTextFromTicks(0), QStringLiteral("0 días  00:00:00"));
  EXPECT_EQ(uptimeTextFromTicks(90061000), QStringLiteral("1 días  01:01:01"));
  EXPECT_EQ(uptimeTextFromTicks(4294967295ULL), QStringLiteral("49 días  17:02:47"));
  EXPECT_EQ(uptimeTextFromTicks(4294967296ULL), QStringLiteral("0 días  00:00:00"));
  recording.uptime = 4294967296ULL + 3723000;
  EXPECT_EQ(UptimeText(), QStringLiteral("0 días  01:02:03"));
}

TEST_F(ServicesTest, SystemNamesComeFromThePlatform) {
  EXPECT_EQ(windowsVersionName(10, 0), QString());
  recording.system = QStringLiteral("Debian GNU/Linux 12 (bookworm)");
  EXPECT_EQ(WindowsName(), recording.system);
  recording.system.clear();
  EXPECT_EQ(WindowsName(), QStringLiteral("Indeterminada"));

  recording.user = QString(300, QLatin1Char('u'));
  EXPECT_EQ(SystemUserName(0).size(), 255);
  EXPECT_EQ(SystemUserName(1), QStringLiteral("testhost"));
  EXPECT_EQ(SystemUserName(2), QString());
}

TEST_F(ServicesTest, UserNameFallsBackToTheAccountDatabaseWithoutUser) {
  struct EnvironmentScope {
    QByteArray saved = qgetenv("USER");
    bool had = qEnvironmentVariableIsSet("USER");
    ~EnvironmentScope() { had ? qputenv("USER", saved) : qunsetenv("USER"); }
  } scope;
  const passwd* pw = getpwuid(getuid());
  ASSERT_NE(pw, nullptr);
  qunsetenv("USER");
  EXPECT_EQ(accountUserName(), QString::fromLocal8Bit(pw->pw_name));
  qputenv("USER", "somebody");
  EXPECT_EQ(accountUserName(), QStringLiteral("somebody"));
}

TEST_F(ServicesTest, FileDatesAndTextFiles) {
  const QString path = appFolder.filePath(QStringLiteral("note.txt"));
  QFile f(path);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("first\nsecond \xe9t\xe9\nthird\n");  // Windows-1252 accents, LF ends
  f.close();
  const QDateTime when(QDate(2021, 3, 4), QTime(5, 6, 7));
  ASSERT_TRUE(f.open(QIODevice::ReadWrite));
  ASSERT_TRUE(f.setFileTime(when, QFileDevice::FileModificationTime));
  f.close();

  EXPECT_EQ(ReadTextFile(path), QStringLiteral("first\r\nsecond été\r\nthird"));
  EXPECT_EQ(ReadTextFile(appFolder.filePath(QStringLiteral("missing.txt"))), QString());
  EXPECT_DOUBLE_EQ(FileDate(path, 1).toDouble(), rt::fromQDateTime(when));
  EXPECT_EQ(FileDate(path, 0).type(), rt::VType::Date);
  EXPECT_EQ(FileDate(appFolder.path(), 1).type(), rt::VType::Date);  // folders have dates too
  try {
    FileDate(appFolder.filePath(QStringLiteral("missing.txt")), 1);
    FAIL() << "a missing file has no date";
  } catch (const rt::RuntimeError& e) {
    EXPECT_EQ(e.number(), 53);
  }
}

// ---- Sounds, waits, power actions ----------------------------------------------------

TEST_F(ServicesTest, MessageSoundsPlayFromTheSoundFolderWhenSoundIsOn) {
  const QString folder = program().AppFolder.toText() + QStringLiteral("mmedia/");
  const char* const names[] = {"hey.wav", "ooh.wav", "pato.wav", "tic.wav", "info.wav"};
  for (int i = 1; i <= 5; ++i) {
    program().MessageSound = static_cast<std::int16_t>(i);
    PlayMessageSound();
    EXPECT_EQ(recording.calls.last(), QStringLiteral("playSound ") + folder + QString::fromLatin1(names[i - 1]) +
                                          QStringLiteral(" sync"));
  }
  program().MessageSound = 6;
  program().AlarmSoundFile = QStringLiteral("alarma3.wav");
  PlayMessageSound();
  EXPECT_EQ(recording.calls.last(), QStringLiteral("playSound ") + folder + QStringLiteral("alarma3.wav sync"));

  recording.calls.clear();
  program().MessageSound = 0;
  PlayMessageSound();
  program().MessageSound = 1;
  program().SoundOn = 0;
  PlayMessageSound();
  EXPECT_TRUE(recording.calls.isEmpty());
}

TEST_F(ServicesTest, SystemActionMapsEachModeAndFamily) {
  SystemAction(0, 1);
  EXPECT_EQ(recording.calls, QStringList({QStringLiteral("powerAction shutdown"), QStringLiteral("endProgram")}));
  recording.calls.clear();
  SystemAction(0, 2);
  EXPECT_EQ(recording.calls,
            QStringList({QStringLiteral("powerAction shutdown-delayed"), QStringLiteral("endProgram")}));
  recording.calls.clear();
  SystemAction(0, 0);  // no family chosen yet: nothing happens
  EXPECT_TRUE(recording.calls.isEmpty());
  // Both forms of the screen-saver command start it.
  for (int family : {0, 1, 2}) {
    recording.calls.clear();
    SystemAction(1, family);
    EXPECT_EQ(recording.calls, QStringList(QStringLiteral("powerAction screensaver"))) << family;
    recording.calls.clear();
    SystemAction(2, family);  // suspend: the same call on every family
    EXPECT_EQ(recording.calls, QStringList(QStringLiteral("powerAction suspend"))) << family;
  }
}

TEST_F(ServicesTest, DelayWaitsWithEventsRunning) {
  app();
  bool served = false;
  QTimer::singleShot(10, &app(), [&] { served = true; });
  QElapsedTimer t;
  t.start();
  Delay(0.15f);
  EXPECT_GE(t.elapsed(), 140);
  EXPECT_LT(t.elapsed(), 2000);
  EXPECT_TRUE(served);
}

TEST_F(ServicesTest, DelayEndsWhenTheClockPassesMidnight) {
  app();
  rt::setClockForTesting(QDateTime(QDate(2024, 1, 1), QTime(23, 59, 59, 900)));
  QTimer::singleShot(20, &app(), [] { rt::setClockForTesting(QDateTime(QDate(2024, 1, 2), QTime(0, 0, 0, 100))); });
  QElapsedTimer t;
  t.start();
  Delay(30);
  EXPECT_LT(t.elapsed(), 3000);
}

// ---- Context help ---------------------------------------------------------------------

namespace {
struct RecordingHelp : HelpPresenter {
  void showTopic(int topic) override { topics.push_back(topic); }
  void helpCursorChanged(bool on) override { cursor.push_back(on); }
  std::vector<int> topics;
  std::vector<bool> cursor;
};
}  // namespace

TEST_F(ServicesTest, HelpCursorShowsOneTopicInsteadOfActing) {
  RecordingHelp help;
  setHelpPresenter(&help);
  EXPECT_FALSE(helpInstead(20003));
  EXPECT_TRUE(help.topics.empty());

  setHelpCursor(true);
  EXPECT_TRUE(helpInstead(20003));
  EXPECT_FALSE(program().helpCursor);
  EXPECT_FALSE(helpInstead(20004));  // the mode ends after one topic
  EXPECT_EQ(help.topics, std::vector<int>{20003});
  EXPECT_EQ(help.cursor, (std::vector<bool>{true, false}));
  setHelpPresenter(nullptr);

  EXPECT_EQ(helpPageOfTopic(10011), QStringLiteral("shell"));
  EXPECT_EQ(helpPageOfTopic(20003), QStringLiteral("calc"));
  EXPECT_EQ(helpPageOfTopic(119999), QStringLiteral("geometry"));
  EXPECT_EQ(helpPageOfTopic(120000), QStringLiteral("index"));
  EXPECT_EQ(helpPageOfTopic(5), QStringLiteral("index"));
}
