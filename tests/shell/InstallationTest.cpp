// The runtime folder is a working installation: the sounds and fonts the
// program asks for by name are there, and the sounds are real WAV files.
#include <QDir>
#include <QFile>

#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "tests/support/TestSupport.h"

namespace {
QString binPath(const QString& relative) { return QDir(QStringLiteral(CALVIX_BIN_DIR)).filePath(relative); }
}  // namespace

TEST(Installation, EverySoundTheProgramNamesIsAWaveFile) {
  for (const char* name : {"hey", "ooh", "pato", "tic", "info", "manager", "exit", "alarma1", "alarma2", "alarma3",
                           "alarma4", "alarma5"}) {
    QFile f(binPath(QStringLiteral("mmedia/%1.wav").arg(QLatin1String(name))));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    const QByteArray head = f.read(44);
    EXPECT_TRUE(head.startsWith("RIFF") && head.mid(8, 8) == "WAVEfmt ") << name;
    EXPECT_GT(f.size(), 1000) << name;
  }
}

TEST(Installation, TheThreeFontsAreInstalledUnderTheirNames) {
  for (const char* name : {"Bede.ttf", "LCDfont.ttf", "webdings.ttf"}) {
    QFile f(binPath(QStringLiteral("fonts/") + QLatin1String(name)));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << name;
    EXPECT_EQ(f.read(4), QByteArray("\x00\x01\x00\x00", 4)) << name << " is not a TrueType font";
  }
}

TEST(Installation, TheInstalledSettingsFileReadsWithoutAFailure) {
  ProgramState state;
  clearSettings(state);
  const SettingsRead r = readSettingsFile(binPath(QStringLiteral("cvdata.txt")), state);
  EXPECT_EQ(r.error, 0);
  EXPECT_EQ(state.Currency1.toText(), QStringLiteral("euro"));
}
