// calvix-cli chrono: the options and events reach the chronometer's model,
// the output carries its fields, and errors and bad usage give their codes.
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

const QString kNow = QStringLiteral("--now=2026-01-12 10:00:00");

// Plain output: "key<TAB>value" lines; a list key repeats, one line per item.
QMultiMap<QString, QString> fields(const QString& out) {
  QMultiMap<QString, QString> map;
  const QStringList lines = out.split(u'\n', Qt::SkipEmptyParts);
  for (auto it = lines.crbegin(); it != lines.crend(); ++it) map.insert(it->section(u'\t', 0, 0), it->section(u'\t', 1));
  return map;
}

QStringList strings(const QJsonObject& o, const char* key) {
  QStringList out;
  for (const QJsonValue& v : o.value(QLatin1String(key)).toArray()) out << v.toString();
  return out;
}

class ChronoCommand : public CalvixTest {};

TEST_F(ChronoCommand, LapsAndStopInPlainText) {
  const CliRun r = runCli({QStringLiteral("chrono"), kNow, QStringLiteral("start@0 pause@7.25 pause@8 stop@10 look@65")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const auto f = fields(r.out);
  EXPECT_EQ(f.value(QStringLiteral("Label2")), Res(401));
  EXPECT_EQ(f.value(QStringLiteral("lblTime")), QStringLiteral("10:01:05"));
  EXPECT_EQ(f.value(QStringLiteral("lblAux")), QStringLiteral("00:00:10"));
  EXPECT_EQ(f.value(QStringLiteral("Label19")), QStringLiteral("00"));
  EXPECT_EQ(f.value(QStringLiteral("Timer2")), QStringLiteral("false"));
  EXPECT_EQ(f.values(QStringLiteral("List1")), QStringList({"00:00:07", "00:00:10"}));
  EXPECT_EQ(f.value(QStringLiteral("Text1")), QStringLiteral("00:00:00"));
  EXPECT_EQ(f.value(QStringLiteral("Check1")), QStringLiteral("0"));
  EXPECT_EQ(f.value(QStringLiteral("Label15")), Res(427));
  EXPECT_FALSE(f.contains(QStringLiteral("rings")));
}

TEST_F(ChronoCommand, AlarmRingsThenThePowerActionIsRecorded) {
  const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("chrono"), kNow, QStringLiteral("--alarm"),
                           QStringLiteral("10:00:05"), QStringLiteral("--power"), QStringLiteral("1"),
                           QStringLiteral("arm@0 look@70")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(strings(o, "rings"), QStringList({"2026-01-12 10:00:05"}));
  EXPECT_EQ(strings(o, "sounds"), QStringList({"beep", "alarma1.wav"}));
  EXPECT_EQ(strings(o, "power"), QStringList({"Suspender"}));
  EXPECT_EQ(o.value(QStringLiteral("Check1")).toInt(), 0);
  EXPECT_EQ(o.value(QStringLiteral("Label15")).toString(), Res(428));
  EXPECT_EQ(o.value(QStringLiteral("messages")).toArray().first().toObject().value(QStringLiteral("title")).toString(),
            Res(441));
}

TEST_F(ChronoCommand, ClosingTheWarningCancelsTheShutdown) {
  const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("chrono"), kNow, QStringLiteral("--alarm"),
                           QStringLiteral("10:00:05"), QStringLiteral("--power"), QStringLiteral("0"),
                           QStringLiteral("arm@0 cancel@30 look@600")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_TRUE(strings(QJsonDocument::fromJson(r.out.toUtf8()).object(), "power").isEmpty());
}

TEST_F(ChronoCommand, CountdownAnsweredAndRepeatedAlarm) {
  const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("--answer"), QStringLiteral("00:00:03"),
                           QStringLiteral("chrono"), kNow, QStringLiteral("--mode"), QStringLiteral("4"),
                           QStringLiteral("--alarm"), QStringLiteral("10:00:02"), QStringLiteral("--repeat"),
                           QStringLiteral("1"), QStringLiteral("arm@0 start@1 look@125")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("Label2")).toString(), Res(404));
  EXPECT_EQ(o.value(QStringLiteral("lblAux")).toString(), QStringLiteral("00:00:00"));
  EXPECT_FALSE(o.value(QStringLiteral("Timer2")).toBool());
  EXPECT_EQ(strings(o, "rings"), QStringList({"2026-01-12 10:00:02", "2026-01-12 10:01:02", "2026-01-12 10:02:02"}));
  EXPECT_EQ(o.value(QStringLiteral("Text1")).toString(), QStringLiteral("10:03:02"));
  EXPECT_EQ(o.value(QStringLiteral("Check1")).toInt(), 1);
  // The alarm at 2 s, the countdown's end at 4 s, then the two repeats.
  EXPECT_EQ(strings(o, "sounds").mid(0, 4), QStringList({"beep", "alarma1.wav", "beep", "alarma1.wav"}));
}

TEST_F(ChronoCommand, ADayAndAnHourRunInWellUnderASecond) {
  QElapsedTimer t;
  t.start();
  const CliRun r = runCli({QStringLiteral("chrono"), kNow, QStringLiteral("--mode"), QStringLiteral("2"),
                           QStringLiteral("start@0 look@90000.5")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
#ifndef __SANITIZE_ADDRESS__  // a sanitized debug build is several times slower: the bound is for real builds
  EXPECT_LT(t.elapsed(), 5000);  // generous on a loaded machine; typically a few hundred ms
#endif
  const auto f = fields(r.out);
  EXPECT_EQ(f.value(QStringLiteral("lblAux")), QStringLiteral("01:00:00"));
  EXPECT_EQ(f.value(QStringLiteral("Label19")), QStringLiteral("50"));
  EXPECT_EQ(f.value(QStringLiteral("lblTime")), QStringLiteral("11:00:00"));
}

TEST_F(ChronoCommand, ErrorsOfTheWindowExitOneAndTheRunGoesOn) {
  const QString bad = appFolder.filePath(QStringLiteral("laps.txt"));
  const CliRun r = runCli({QStringLiteral("chrono"), kNow, QStringLiteral("--alarm"), QStringLiteral("25:00:00"),
                           QStringLiteral("--file"), bad, QStringLiteral("arm@0 start@1 stop@3 save@4")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(Res(2701))) << r.err.toStdString();
  EXPECT_TRUE(r.err.contains(Res(2900))) << r.err.toStdString();
  EXPECT_EQ(fields(r.out).value(QStringLiteral("lblAux")), QStringLiteral("00:00:02"));
  EXPECT_FALSE(QFile::exists(bad));

  const QString good = appFolder.filePath(QStringLiteral("laps.cro"));
  const CliRun saved = runCli({QStringLiteral("chrono"), kNow, QStringLiteral("--file"), good,
                               QStringLiteral("start@1 stop@3 close@4 open@5 save@6")});
  EXPECT_EQ(saved.exitCode, 0) << saved.err.toStdString();
  QFile f(good);
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  EXPECT_EQ(f.readAll(), QByteArray("\"00:00:02\"\r\n"));
}

TEST_F(ChronoCommand, BadUsageExitsTwo) {
  const QStringList cases[] = {
      {QStringLiteral("chrono"), QStringLiteral("start@0 jump@1")},
      {QStringLiteral("chrono"), QStringLiteral("start@5 stop@4")},
      {QStringLiteral("chrono"), QStringLiteral("start")},
      {QStringLiteral("chrono"), QStringLiteral("--mode"), QStringLiteral("5"), QStringLiteral("look@1")},
      {QStringLiteral("chrono"), QStringLiteral("--now"), QStringLiteral("yesterday"), QStringLiteral("look@1")},
  };
  for (const QStringList& args : cases) EXPECT_EQ(runCli(args).exitCode, 2) << args.join(u' ').toStdString();
}

}  // namespace
