// calvix-cli settings: writing the defaults, reading a file back with every
// value it filled, and a damaged file's message and exit code.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "shell/runtime/SequentialFile.h"
#include "tests/support/TestSupport.h"

namespace {
QString path(const QTemporaryDir& dir, const char* name) { return dir.filePath(QString::fromLatin1(name)); }
}  // namespace

TEST(SettingsCommand, WritesTheDefaultsAndReadsThemBack) {
  QTemporaryDir dir;
  const QString file = path(dir, "cvdata.txt");
  CliRun w = runCli({QStringLiteral("settings"), QStringLiteral("--restore"), QStringLiteral("--write"), file});
  ASSERT_EQ(w.exitCode, 0) << w.err.toStdString();
  EXPECT_TRUE(rt::readWholeFile(file).startsWith("\"TIPO IVA\",16,\"\n\""));

  const CliRun r = runCli({QStringLiteral("settings"), QStringLiteral("--file"), file});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_TRUE(r.err.isEmpty());
  const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  EXPECT_EQ(lines.first(), QStringLiteral("TIPO IVA\t16"));
  EXPECT_TRUE(lines.contains(QStringLiteral("MONEDA 2\t\"pts\"")));
  EXPECT_TRUE(lines.contains(QStringLiteral("PREFENCIAS-SOUND\t#TRUE#")));
  EXPECT_TRUE(lines.contains(QStringLiteral("Loto Preferidos3 #49\t0")));
  EXPECT_EQ(lines.last(), QStringLiteral("Carga File\t0"));

  // Read and written again, the bytes do not change.
  const QString again = path(dir, "again.txt");
  ASSERT_EQ(runCli({QStringLiteral("settings"), QStringLiteral("--file"), file, QStringLiteral("--write"), again}).exitCode, 0);
  EXPECT_EQ(rt::readWholeFile(again), rt::readWholeFile(file));
}

TEST(SettingsCommand, ADamagedFileGivesTheMessageWhatWasReadAndExitCodeOne) {
  QTemporaryDir dir;
  const QString file = path(dir, "cvdata.txt");
  ASSERT_EQ(runCli({QStringLiteral("settings"), QStringLiteral("--restore"), QStringLiteral("--write"), file}).exitCode, 0);
  const QByteArray bytes = rt::readWholeFile(file);
  QFile f(file);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write(bytes.left(bytes.indexOf("\"MONEDA 2\"")));
  f.close();

  const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("--lang"), QStringLiteral("en"),
                           QStringLiteral("settings"), QStringLiteral("--file"), file});
  EXPECT_EQ(r.exitCode, 1);
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("error")).toInt(), 62);
  const QJsonArray vars = o.value(QStringLiteral("variables")).toArray();
  ASSERT_FALSE(vars.isEmpty());
  EXPECT_EQ(vars.last().toObject().value(QStringLiteral("name")).toString(), QStringLiteral("MONEDA 1"));
  EXPECT_EQ(vars.last().toObject().value(QStringLiteral("value")).toString(), QStringLiteral("euro"));
  const QJsonArray messages = o.value(QStringLiteral("messages")).toArray();
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages[0].toObject().value(QStringLiteral("title")).toString().startsWith(QStringLiteral("Calvix Premium  -  ")));
}

TEST(SettingsCommand, UsageErrors) {
  EXPECT_EQ(runCli({QStringLiteral("settings")}).exitCode, 2);
  EXPECT_EQ(runCli({QStringLiteral("settings"), QStringLiteral("--file")}).exitCode, 2);
  const CliRun missing = runCli({QStringLiteral("settings"), QStringLiteral("--file"), QStringLiteral("/nonexistent/cvdata.txt")});
  EXPECT_EQ(missing.exitCode, 1);
  EXPECT_TRUE(missing.err.contains(QStringLiteral("Parece que existe un problema")));
}
