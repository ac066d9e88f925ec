// calvix-cli keys with the evaluation panel: Text4=, the program keys, the
// settings file they persist in, errorCode and the recorded system actions.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {

class KeysProgramsCommand : public CalvixTest {};

QJsonObject keysJson(const QStringList& args, CliRun* run = nullptr) {
  const CliRun r = runCli(QStringList{QStringLiteral("--json"), QStringLiteral("--decimal"), QStringLiteral(".")} +
                          QStringList{QStringLiteral("keys")} + args);
  if (run) *run = r;
  return QJsonDocument::fromJson(r.out.toUtf8()).object();
}

TEST_F(KeysProgramsCommand, EvaluatesAndKeepsProgramsInTheSettingsFile) {
  const QString file = appFolder.filePath(QStringLiteral("cvdata.txt"));
  CliRun r;
  QJsonObject o = keysJson({QStringLiteral("--save-settings"), file, QStringLiteral("3 Text4=x*x+1 Command80(1) Command83")}, &r);
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(o.value("numero").toString(), QStringLiteral("10."));
  EXPECT_EQ(o.value("Text4").toString(), QStringLiteral("x*x+1"));
  EXPECT_EQ(o.value("errorCode").toInt(), 0);

  o = keysJson({QStringLiteral("--settings"), file, QStringLiteral("5 Command79(1)")}, &r);
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(o.value("numero").toString(), QStringLiteral("26."));
}

TEST_F(KeysProgramsCommand, FailuresAndCommandWords) {
  CliRun r;
  QJsonObject o = keysJson({QStringLiteral("7 Text4= Command83")}, &r);
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(o.value("errorCode").toInt(), 105);
  EXPECT_EQ(o.value("numero").toString(), QStringLiteral("7"));

  o = keysJson({QStringLiteral("Text4=salvapantallas Command83 right:Command83")}, &r);
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(o.value("platform").toArray(), QJsonArray{QStringLiteral("screensaver")});
  EXPECT_FALSE(o.value("result").toString().isEmpty());

  // The plain output has the new lines too.
  r = runCli({QStringLiteral("keys"), QStringLiteral("Text4=remoto Command83")});
  EXPECT_TRUE(r.out.contains(QLatin1String("\nplatform\tshutdown.exe -i\n"))) << r.out.toStdString();
  EXPECT_TRUE(r.out.contains(QLatin1String("\nText4\tremoto\n")));
  EXPECT_TRUE(r.out.contains(QLatin1String("\nerrorCode\t0\n")));
}

}  // namespace
