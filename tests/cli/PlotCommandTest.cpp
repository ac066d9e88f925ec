// calvix-cli plot: the table options of "table", the menus as options, the
// limit boxes, lists, readouts and messages as text or JSON, the picture as
// a PNG file.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "tests/support/TestSupport.h"

namespace {
CliRun plot(QStringList args) {
  args = QStringList{"--decimal", ".", "plot", "--angle", "rad"} + args;
  return runCli(args);
}
QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }
}  // namespace

TEST(PlotCommand, PrintsTheLimitsAndTheListsAsText) {
  const CliRun r = plot({"--f", "sin(x)", "--start", "0", "--end", "6.28", "--points", "100", "--extrema", "F"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  // The six boxes in index order; those of the derivative are empty while it is off.
  EXPECT_EQ(lines.value(0), QStringLiteral("limits\t\t0\t6.3\t-1\t1\t"));
  EXPECT_TRUE(lines.value(1).startsWith(QStringLiteral("maximum\t1.5")));
  EXPECT_EQ(lines.value(2), QStringLiteral("maximum\t6.28\t-0.00318530179313799"));
  EXPECT_EQ(lines.value(3), QStringLiteral("minimum\t0\t0"));
  ASSERT_TRUE(lines.value(4).startsWith(QStringLiteral("minimum\t")));
  EXPECT_NEAR(lines.value(4).section(QLatin1Char('\t'), 1, 1).toDouble(), 4.712, 0.04);
}

TEST(PlotCommand, JsonCarriesLimitsListsReadoutsAndMessages) {
  CliRun r = plot({"--json", "--f", "x", "--start", "-1", "--end", "1", "--points", "21", "--deriv", "1"});
  QJsonObject o = json(r);
  // F' is 1 everywhere: its axis runs from 0 to 2.
  EXPECT_EQ(o.value("limits").toArray().toVariantList(), QVariantList({"0", "-1", "1", "-1", "1", "2"}));

  // The integral turns the derivative off: its boxes are empty again.
  r = plot({"--json", "--f", "x", "--start", "-1", "--end", "1", "--points", "21", "--deriv", "1", "--zeros", "F",
            "--integral", "-1", "1", "--theory", "-1", "1"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  o = json(r);
  EXPECT_EQ(o.value("limits").toArray().toVariantList(), QVariantList({"", "-1", "1", "-1", "1", ""}));
  EXPECT_EQ(o.value("zeros").toArray().size(), 1);
  const QJsonArray integral = o.value("integral").toArray();
  ASSERT_EQ(integral.size(), 3);
  EXPECT_EQ(integral.at(1).toString(), QStringLiteral("Área + = 0.5    - = -0.5"));
  EXPECT_TRUE(o.value("theory").toString().contains(QStringLiteral("Regla de Simpson = ")));
  EXPECT_TRUE(o.value("minima").toArray().isEmpty());

  // A refusal is a message of the run, with the curve's points it lacks.
  r = plot({"--json", "--f", "x", "--start", "0", "--end", "1", "--points", "3", "--deriv", "3"});
  o = json(r);
  const QJsonArray messages = o.value("messages").toArray();
  ASSERT_EQ(messages.size(), 1);
  EXPECT_TRUE(messages.at(0).toObject().value("text").toString().contains(QStringLiteral("al menos 4 Puntos")));
  EXPECT_EQ(o.value("limits").toArray().at(0).toString(), QString());
}

TEST(PlotCommand, WritesThePictureAndRefusesBadOptions) {
  QTemporaryDir dir;
  const QString png = dir.filePath(QStringLiteral("bars.png"));
  CliRun r = plot({"--f", "x", "--start", "1", "--end", "5", "--points", "5", "--bars", "--grid", "--png", png,
                   "--width", "400", "--height", "300"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_TRUE(r.out.startsWith(QStringLiteral("limits\t\t1\t5\t0\t5\t")));  // the bars stand on 0
  QFile file(png);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.read(8), QByteArray("\x89PNG\r\n\x1a\n"));

  for (const QStringList& bad : {QStringList{"--extrema", "X"}, QStringList{"--depth", "5", "--extrema", "F"},
                                 QStringList{"--integral", "0"}, QStringList{"--corrected"},
                                 QStringList{"--decimals", "7"}}) {
    r = plot(QStringList{"--f", "x", "--start", "0", "--end", "1"} + bad);
    EXPECT_NE(r.exitCode, 0) << bad.join(' ').toStdString();
    EXPECT_FALSE(r.err.isEmpty());
  }
}
