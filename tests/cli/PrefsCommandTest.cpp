// calvix-cli prefs: the output fields of a fresh window, saving and reading
// back across a restart, "Originales" left without saving, a refused time,
// the command box through the recorded platform, and bad usage.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "shell/runtime/SequentialFile.h"
#include "tests/support/TestSupport.h"

namespace {
QStringList lines(const CliRun& r) { return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
QString field(const CliRun& r, const QString& name) {
  for (const QString& l : lines(r)) {
    if (l.section(QLatin1Char('\t'), 0, 0) == name) return l.section(QLatin1Char('\t'), 1);
  }
  return QStringLiteral("<missing>");
}
CliRun prefs(const QStringList& args) { return runCli(QStringList{QStringLiteral("prefs")} + args); }
}  // namespace

TEST(PrefsCommand, AFreshWindowShowsTheDefaultsInOrder) {
  const CliRun r = prefs({});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  QStringList names;
  for (const QString& l : lines(r)) names << l.section(QLatin1Char('\t'), 0, 0);
  EXPECT_EQ(names, (QStringList{"Caption", "valor", "Text1", "Text2", "labels", "Check1", "Check2", "Check4", "Check5",
                                "Check6", "Check7", "Check3", "Option1", "List1", "List2", "List3", "List4", "List5",
                                "Text3", "Text4", "Text5", "Text6", "Label2", "disabled", "loaded", "sounds", "platform"}));
  EXPECT_EQ(field(r, "Caption"), QStringLiteral("Calvix Premium  -  Preferencias"));
  EXPECT_EQ(field(r, "labels"), QStringLiteral("1 euro =\tpts"));
  EXPECT_EQ(field(r, "Text4"), QStringLiteral("22:30:40\t\t\t"));
  EXPECT_EQ(field(r, "List4"), QStringLiteral("-1"));
  EXPECT_EQ(field(r, "disabled"), QStringLiteral("Check6"));
  EXPECT_EQ(field(r, "loaded"), QStringLiteral("true"));
  EXPECT_EQ(field(r, "sounds"), QStringLiteral("alarma1.wav"));
}

TEST(PrefsCommand, SavedPreferencesSurviveARestartExactly) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("cvdata.txt"));
  const CliRun save = prefs({"--write", file, "valor=1.2.3", "Text1=dolares", "List5=1", "Check7", "Command2"});
  ASSERT_EQ(save.exitCode, 0) << save.err.toStdString();
  EXPECT_EQ(field(save, "loaded"), QStringLiteral("false"));

  const CliRun again = runCli({"--decimal", ",", "prefs", "--settings", file});
  ASSERT_EQ(again.exitCode, 0) << again.err.toStdString();
  EXPECT_EQ(field(again, "Caption"), QStringLiteral("Calvix Premium  -  Preferences"));
  EXPECT_EQ(field(again, "valor"), QStringLiteral("1,23"));
  EXPECT_EQ(field(again, "labels"), QStringLiteral("1 dolar =\tpts"));
  EXPECT_EQ(field(again, "Check7"), QStringLiteral("1"));
  EXPECT_EQ(field(again, "List5"), QStringLiteral("1"));
}

TEST(PrefsCommand, OriginalesThenExitLeavesTheFileByteIdentical) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("cvdata.txt"));
  ASSERT_EQ(prefs({"--write", file, "Text2=yen", "List5=3", "Check1", "Command2"}).exitCode, 0);
  const QString out = dir.filePath(QStringLiteral("out.txt"));
  const CliRun r = prefs({"--settings", file, "--write", out, "Command1", "Command3"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(field(r, "Caption"), QStringLiteral("Calvix Premium  -  Preferencias"));
  EXPECT_EQ(field(r, "Text2"), QStringLiteral("pts"));
  EXPECT_EQ(rt::readWholeFile(out), rt::readWholeFile(file));
}

TEST(PrefsCommand, ARefusedTimeIsAFailureAndTheOldValueStays) {
  const CliRun r = runCli({"--json", "--answer", "25:61", "prefs", "Text4(1)"});
  EXPECT_EQ(r.exitCode, 1);
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value("Text4").toArray().first().toString(), QStringLiteral("22:30:40"));
  EXPECT_EQ(o.value("messages").toArray().size(), 2);
  EXPECT_EQ(o.value("Check1").toInt(), 1);
  EXPECT_TRUE(o.value("loaded").toBool());

  const CliRun ok = prefs({"--answer", "6:30", "Text4(3)"});
  EXPECT_EQ(ok.exitCode, 0);
  EXPECT_EQ(field(ok, "Text4"), QStringLiteral("22:30:40\t\t06:30:00\t"));
}

TEST(PrefsCommand, CommandBoxRunsThroughTheRecordedPlatform) {
  const CliRun r = prefs({"List4=1", "Command2", "Label1(5)", "Text6=APAGAR"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(field(r, "platform"), QStringLiteral("powerAction shutdown-delayed\tendProgram"));
  EXPECT_EQ(field(r, "Text6"), QString());

  // Without the Ctrl press the box stays hidden and takes nothing.
  const CliRun hidden = prefs({"List4=1", "Command2", "Text6=apagar"});
  EXPECT_EQ(field(hidden, "platform"), QString());
}

TEST(PrefsCommand, UnknownControlsAndIndexesAreUsageErrors) {
  for (const QStringList& args : {QStringList{"List5=4"}, QStringList{"Option1(6)"}, QStringList{"Text4(0)"},
                                  QStringList{"Check3"}, QStringList{"Check8"}, QStringList{"Text9=1"}}) {
    EXPECT_EQ(prefs(args).exitCode, 2) << args.join(' ').toStdString();
  }
}
