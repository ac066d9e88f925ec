// calvix-cli primes and the number tools through calvix-cli keys: the
// wiring of the listing's boxes, its output and failures, and the fields
// the keys command adds (errorCode, viewer, right clicks). The rules
// themselves are tested on the model.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/ErrorReport.h"
#include "tests/support/TestSupport.h"

namespace {

class PrimesCommand : public CalvixTest {};

TEST_F(PrimesCommand, PrintsAPrimePerLine) {
  const CliRun r = runCli({QStringLiteral("primes"), QStringLiteral("--from"), QStringLiteral("10"),
                           QStringLiteral("--to"), QStringLiteral("30")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("11\n13\n17\n19\n23\n29\n"));
}

TEST_F(PrimesCommand, JsonCountsToTheBoxDefaultAndAnswersTheQuestion) {
  CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("primes"), QStringLiteral("--from"), QStringLiteral("1")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("count")).toInt(), 168);  // primes up to 1000
  EXPECT_EQ(o.value(QStringLiteral("primes")).toArray().last().toInt(), 997);
  // A span above 30000 asks first; the command answers yes.
  r = runCli({QStringLiteral("--json"), QStringLiteral("primes"), QStringLiteral("--from"), QStringLiteral("0"),
              QStringLiteral("--to"), QStringLiteral("100000")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("count")).toInt(), 9592);
  EXPECT_EQ(o.value(QStringLiteral("messages")).toArray().size(), 3);
}

TEST_F(PrimesCommand, RefusedIntervalsFailWithTheirMessage) {
  CliRun r = runCli({QStringLiteral("primes"), QStringLiteral("--from"), QStringLiteral("50"), QStringLiteral("--to"),
                     QStringLiteral("10")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(ErrorText(28))) << r.err.toStdString();
  r = runCli({QStringLiteral("--json"), QStringLiteral("primes"), QStringLiteral("--from"), QStringLiteral("1"),
              QStringLiteral("--to"), QStringLiteral("100000000")});
  EXPECT_EQ(r.exitCode, 1);
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("errorCode")).toInt(), 8);
  EXPECT_EQ(o.value(QStringLiteral("error")).toString(), ErrorText(8));
  EXPECT_EQ(runCli({QStringLiteral("primes"), QStringLiteral("--to"), QStringLiteral("5")}).exitCode, 2);
}

TEST_F(PrimesCommand, KeysShowTheViewerAndTheLastErrorCode) {
  CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("keys"), QStringLiteral("12 Command45 2.5 Command93(0)")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("errorCode")).toInt(), 6);
  const QJsonArray viewer = o.value(QStringLiteral("viewer")).toArray();
  ASSERT_EQ(viewer.size(), 3);
  EXPECT_EQ(viewer.at(1).toArray(), (QJsonArray{QStringLiteral("2"), QStringLiteral("(^) 2")}));
  // Plain output; a right click asks the random base, answered by --answer.
  r = runCli({QStringLiteral("--answer"), QStringLiteral("2.5"), QStringLiteral("keys"),
              QStringLiteral("right:Command51 Command51 2 Command73 90 Command73")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_TRUE(r.out.contains(QStringLiteral("\nerrorCode\t0\n"))) << r.out.toStdString();
  EXPECT_TRUE(r.out.contains(QStringLiteral("\nviewer\tComplejo: y\ty = 2.00000000 i\n"))) << r.out.toStdString();
  EXPECT_TRUE(r.err.contains(QStringLiteral("Base de los n\u00FAmeros aleatorios"))) << r.err.toStdString();
  // A two-line result keeps to one output line.
  r = runCli({QStringLiteral("--decimal"), QStringLiteral("."), QStringLiteral("keys"), QStringLiteral("12.18 Command95")});
  EXPECT_TRUE(r.out.contains(QStringLiteral("\nresult\tM.C.D. (12, 18) = 6\\nm.c.m. (12, 18) = 36\n")))
      << r.out.toStdString();
}

}  // namespace
