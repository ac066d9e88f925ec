// calvix-cli stats and the statistics tokens of calvix-cli keys.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/ErrorReport.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

QMap<QString, QString> fields(const QString& out) { return outputFields(out, QStringLiteral("history")); }

class StatsCommand : public CalvixTest {
 protected:
  QString write(const char* name, const QByteArray& bytes) {
    const QString path = appFolder.filePath(QString::fromLatin1(name));
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
    return path;
  }
};

TEST_F(StatsCommand, PrintsEveryMeasureAndTheRegression) {
  const QString path = write("pairs.dat", "3,3\r\n1\r\n2\r\n3\r\n2\r\n4\r\n6\r\n");
  const CliRun r = runCli({QStringLiteral("--decimal"), QStringLiteral(","), QStringLiteral("stats"),
                           QStringLiteral("--dat"), path});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const auto f = fields(r.out);
  const QStringList names{"X.n", "X.mean", "X.stdN", "Y.stdN1", "Y.max", "pairs.sumXY", "regression.type",
                          "regression.a", "regression.r2", "regression.used"};
  QStringList values;
  for (const QString& name : names) values << f.value(name);
  EXPECT_EQ(values, QStringList({"3", "2", "0,816496580927726", "2", "6", "28", Res(4201), "2", "1", "3"}));
}

TEST_F(StatsCommand, JsonWithFailuresInPlaceAndTheQuestionAnswered) {
  const QString path = write("one.dat", "2,2\r\n0\r\n2\r\n5\r\n8\r\n");
  const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("--answer"), QStringLiteral("0"),
                           QStringLiteral("stats"), QStringLiteral("--dat"), path, QStringLiteral("--type"),
                           QStringLiteral("power")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("X")).toObject().value(QStringLiteral("geometricMean")).toDouble(), 0);
  EXPECT_EQ(o.value(QStringLiteral("Y")).toObject().value(QStringLiteral("sum")).toDouble(), 13);
  EXPECT_EQ(o.value(QStringLiteral("messages")).toArray().size(), 1);  // the zero X
  // One good pair is not enough for a regression.
  EXPECT_EQ(o.value(QStringLiteral("regression")).toObject().value(QStringLiteral("error")).toString(), ErrorText(52));

  const QString single = write("single.dat", "1,0\r\n4\r\n");
  const CliRun one = runCli({QStringLiteral("--json"), QStringLiteral("stats"), QStringLiteral("--dat"), single});
  const QJsonObject p = QJsonDocument::fromJson(one.out.toUtf8()).object();
  auto field = [&p](const char* group, const char* name) {
    return p.value(QLatin1String(group)).toObject().value(QLatin1String(name)).toString();
  };
  EXPECT_EQ(field("X", "stdN1"), ErrorText(31));
  EXPECT_EQ(field("Y", "mean"), ErrorText(16));
  EXPECT_EQ(field("pairs", "error"), ErrorText(5));
}

TEST_F(StatsCommand, RefusedFilesAndBadOptions) {
  const QString bad = write("bad.dat", "2,0\r\n1\r\n");
  CliRun r = runCli({QStringLiteral("stats"), QStringLiteral("--dat"), bad});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(ErrorText(1))) << r.err.toStdString();
  EXPECT_TRUE(r.out.isEmpty());
  r = runCli({QStringLiteral("stats"), QStringLiteral("--dat"), write("x.csv", "1,0\r\n1\r\n")});
  EXPECT_EQ(r.exitCode, 1);
  r = runCli({QStringLiteral("stats"), QStringLiteral("--dat"), bad, QStringLiteral("--type"), QStringLiteral("cubic")});
  EXPECT_EQ(r.exitCode, 2);
  EXPECT_EQ(runCli({QStringLiteral("stats")}).exitCode, 2);
}

TEST_F(StatsCommand, KeysDriveTheStatisticsPanelAndItsFiles) {
  const QString saved = appFolder.filePath(QStringLiteral("saved.dat"));
  CliRun r = runCli({QStringLiteral("keys"), QStringLiteral("--file"), saved,
                     QStringLiteral("3 X 1 X 2 X MSFlexGrid1(0)=1 ordenaEstad(0) Command15(6) guardarest")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  auto f = fields(r.out);
  EXPECT_EQ(f.value(QStringLiteral("nx")), QStringLiteral("3"));
  EXPECT_TRUE(r.out.contains(QLatin1String("\nX\t1\t1\nX\t2\t2\nX\t3\t3\n"))) << r.out.toStdString();
  EXPECT_EQ(f.value(QStringLiteral("numero")), QStringLiteral("3"));
  QFile file(saved);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(), QByteArray("3,0\r\n1\r\n2\r\n3\r\n"));

  r = runCli({QStringLiteral("keys"), QStringLiteral("--file"), saved, QStringLiteral("abrirest Regresion(2)")});
  f = fields(r.out);
  EXPECT_EQ(f.value(QStringLiteral("nx")), QStringLiteral("3"));
  EXPECT_EQ(f.value(QStringLiteral("regType")), QStringLiteral("2"));
  EXPECT_NE(runCli({QStringLiteral("keys"), QStringLiteral("Regresion(7)")}).exitCode, 0);
}

}  // namespace
