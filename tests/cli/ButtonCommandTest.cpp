// calvix-cli button: the properties in stored order, the events raised by
// pointer moves, timer ticks and clicks, and the picture of the button.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "tests/support/TestSupport.h"

namespace {
QStringList lines(const CliRun& r) { return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
QString field(const CliRun& r, const QString& name) {
  for (const QString& l : lines(r)) {
    if (l.section(QLatin1Char('\t'), 0, 0) == name) return l.section(QLatin1Char('\t'), 1);
  }
  return QStringLiteral("<missing>");
}
}  // namespace

TEST(ButtonCommand, PrintsThePropertiesInStoredOrderThenEventsAndTimer) {
  const CliRun r = runCli({QStringLiteral("button"), QStringLiteral("--set"), QStringLiteral("TX=Ok")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList l = lines(r);
  ASSERT_EQ(l.size(), 25);
  EXPECT_EQ(l[0], QStringLiteral("BTYPE\t2"));
  EXPECT_EQ(l[1], QStringLiteral("TX\tOk"));
  EXPECT_NE(l[3], QStringLiteral("FONT\t"));  // the container's family
  EXPECT_EQ(l[10], QStringLiteral("MCOL\t12632256"));
  EXPECT_EQ(l[22], QStringLiteral("VALUE\tFalse"));
  EXPECT_EQ(l[23], QStringLiteral("events\t"));
  EXPECT_EQ(l[24], QStringLiteral("OverTimer\tFalse"));
}

TEST(ButtonCommand, HoverLeaveAndClickSequences) {
  const struct {
    QStringList args;
    const char* events;
    const char* timer;
  } rows[] = {
      {{"move:10,10"}, "MouseMove\tMouseEnter", "True"},
      {{"move:10,10", "pointer:300,300", "tick"}, "MouseMove\tMouseEnter\tMouseLeave", "False"},
      {{"move:200,10", "tick"}, "", "False"},
      {{"move:10,10", "down:10,10", "up:10,10"}, "MouseMove\tMouseEnter\tMouseDown\tMouseUp\tClick", "True"},
      {{"down:10,10", "move:500,10", "up:500,10"}, "MouseDown\tMouseMove\tMouseUp", "False"},
  };
  for (const auto& row : rows) {
    const CliRun r = runCli(QStringList{QStringLiteral("button")} + row.args);
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(field(r, QStringLiteral("events")), QLatin1String(row.events)) << row.args.join(' ').toStdString();
    EXPECT_EQ(field(r, QStringLiteral("OverTimer")), QLatin1String(row.timer)) << row.args.join(' ').toStdString();
  }
}

TEST(ButtonCommand, CheckModeJsonAndPicture) {
  QTemporaryDir dir;
  const QString png = dir.filePath(QStringLiteral("b.png"));
  const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("button"), QStringLiteral("--set"),
                           QStringLiteral("BTYPE=7"), QStringLiteral("--set"), QStringLiteral("CHECK=True"),
                           QStringLiteral("--png"), png, QStringLiteral("down:5,5"), QStringLiteral("up:5,5")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("VALUE")).toString(), QStringLiteral("True"));
  EXPECT_EQ(o.value(QStringLiteral("BTYPE")).toString(), QStringLiteral("7"));
  EXPECT_EQ(o.value(QStringLiteral("events")).toArray().last().toString(), QStringLiteral("Click"));
  // The PNG header gives the size: width and height, big-endian, at bytes 16 and 20.
  QFile f(png);
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  const QByteArray head = f.read(24);
  ASSERT_EQ(head.size(), 24);
  auto be32 = [&head](int at) {
    return (uchar(head[at]) << 24) | (uchar(head[at + 1]) << 16) | (uchar(head[at + 2]) << 8) | uchar(head[at + 3]);
  };
  EXPECT_EQ(be32(16), 120u);
  EXPECT_EQ(be32(20), 40u);
}

TEST(ButtonCommand, BadPropertiesAndEventsAreUsageErrors) {
  for (const QStringList& args : {QStringList{"--set", "BTYPE=15"}, QStringList{"--set", "COLOUR=1"},
                                  QStringList{"jump:1,1"}, QStringList{"move:1"}}) {
    EXPECT_EQ(runCli(QStringList{QStringLiteral("button")} + args).exitCode, 2) << args.join(' ').toStdString();
  }
}
