// calvix-cli chart: the refusal, the data choice, the kinds, the boxes, the
// sounds, the picture and bad usage.
#include <QFile>
#include <QtEndian>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

const QString kPairs = QStringLiteral("1 X 2 X 3 X 3 Y 5 Y 7 Y");

class ChartCommand : public CalvixTest {};

TEST_F(ChartCommand, AnEmptyStoreIsRefusedOnStderr) {
  const CliRun r = runCli({QStringLiteral("chart")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.out.isEmpty());
  EXPECT_TRUE(r.err.contains(Res(3412))) << r.err.toStdString();
}

TEST_F(ChartCommand, PairsGiveTheXYKindAndTheRegressionBoxes) {
  const CliRun r = runCli({QStringLiteral("chart"), QStringLiteral("--keys"), kPairs});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const auto f = outputFields(r.out);
  EXPECT_EQ(f.value(QStringLiteral("Label1")), QStringLiteral("XY 2D  -  "));
  EXPECT_EQ(f.value(QStringLiteral("tipo")), QStringLiteral("7"));
  EXPECT_EQ(f.value(QStringLiteral("series")), QStringLiteral("X\tY"));
  EXPECT_EQ(f.value(QStringLiteral("a")), QStringLiteral("a = 2"));
  EXPECT_EQ(f.value(QStringLiteral("b")), QStringLiteral("b = 1"));
  EXPECT_EQ(f.value(QStringLiteral("r2")), QStringLiteral("r\u00B2 = 1"));
  EXPECT_EQ(f.value(QStringLiteral("sounds")), QString());
}

TEST_F(ChartCommand, ARefusedChoiceKeepsTheLineAndPlaysTheSound) {
  const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("chart"), QStringLiteral("--keys"),
                           QStringLiteral("1 X 2 X 5 Y")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("Label1")).toString(), Res(3414));
  EXPECT_EQ(o.value(QStringLiteral("sounds")).toArray().size(), 1);
  EXPECT_EQ(o.value(QStringLiteral("series")).toArray().size(), 2);
}

TEST_F(ChartCommand, OneSeriesAndAKindSaveAPictureOfTheSizeAsked) {
  const QString png = appFolder.filePath(QStringLiteral("x.png"));
  const CliRun r = runCli({QStringLiteral("chart"), QStringLiteral("--keys"), kPairs, QStringLiteral("--series"),
                           QStringLiteral("x"), QStringLiteral("--kind"), QStringLiteral("2"), QStringLiteral("--png"),
                           png, QStringLiteral("--width"), QStringLiteral("320"), QStringLiteral("--height"),
                           QStringLiteral("200")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const auto f = outputFields(r.out);
  EXPECT_EQ(f.value(QStringLiteral("tipo")), QStringLiteral("2"));
  EXPECT_EQ(f.value(QStringLiteral("series")), QStringLiteral("X"));
  // The PNG header: signature, then the IHDR chunk with width and height.
  QFile picture(png);
  ASSERT_TRUE(picture.open(QIODevice::ReadOnly));
  const QByteArray head = picture.read(24);
  ASSERT_EQ(head.size(), 24);
  EXPECT_TRUE(head.startsWith("\x89PNG"));
  EXPECT_EQ(qFromBigEndian<quint32>(head.constData() + 16), 320u);
  EXPECT_EQ(qFromBigEndian<quint32>(head.constData() + 20), 200u);
}

TEST_F(ChartCommand, BadUsageExitsWithTwo) {
  const QStringList bad[] = {
      {QStringLiteral("--kind"), QStringLiteral("8")},
      {QStringLiteral("--kind"), QStringLiteral("x")},
      {QStringLiteral("--series"), QStringLiteral("z")},
      {QStringLiteral("--width"), QStringLiteral("100")},
      {QStringLiteral("--colour")},
  };
  for (const QStringList& args : bad) {
    const CliRun r = runCli(QStringList{QStringLiteral("chart"), QStringLiteral("--keys"), kPairs} + args);
    EXPECT_EQ(r.exitCode, 2) << args.join(u' ').toStdString();
  }
}

}  // namespace
