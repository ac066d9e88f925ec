// calvix-cli matrix and system: the contract (names, fields, texts, exit
// codes) over the calculator's matrix panel and linear system tool, and the
// equation dialogues through calvix-cli keys.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/ErrorReport.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }

class MatrixCommand : public CalvixTest {};

TEST_F(MatrixCommand, PrintsCARowPerLine) {
  const CliRun r = runCli({"matrix", "product", "--a", "1 2;3 4", "--b", "0 1;1 0"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("2\t1\n4\t3\n"));
}

TEST_F(MatrixCommand, DeterminantAndRankInJson) {
  CliRun r = runCli({"--json", "matrix", "det", "--b", "0.1 0.3;0.3 0.9", "--on", "B"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  QJsonObject o = json(r);
  EXPECT_EQ(o.value("numero").toString(), QStringLiteral("2.22044604925031E-17"));
  EXPECT_EQ(o.value("result").toString(), QStringLiteral("|B|  =  (2.22044604925031E-17)"));
  EXPECT_EQ(o.value("C").toArray(), (QJsonArray{QJsonArray{"2.22044604925031E-17"}}));
  EXPECT_EQ(o.value("A").toArray(), QJsonArray{});
  r = runCli({"--json", "matrix", "rank", "--a", "1 2 3;4 5 6;7 8 9"});
  o = json(r);
  EXPECT_EQ(o.value("result").toString(), Res(4557) + QStringLiteral("2"));
  r = runCli({"--json", "matrix", "dependence", "--a", "1 2;2 4;0 1"});
  EXPECT_EQ(json(r).value("dependentRows").toArray(), QJsonArray{2});
}

TEST_F(MatrixCommand, FailuresExitWithOneAndTheirCode) {
  CliRun r = runCli({"matrix", "product", "--a", "1 2 3;4 5 6", "--b", "1 2 3;4 5 6"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(ErrorText(44))) << r.err.toStdString();
  r = runCli({"--json", "matrix", "inverse", "--a", "0"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(json(r).value("errorCode").toInt(), 31);
  EXPECT_EQ(json(r).value("error").toString(), ErrorText(31));
  r = runCli({"matrix", "bogus"});
  EXPECT_EQ(r.exitCode, 2);
}

TEST_F(MatrixCommand, ScalarTakesTheAnswerAndCopyFillsTheTarget) {
  CliRun r = runCli({"--decimal", ",", "--answer", "0,5", "matrix", "scalar", "--a", "2 4"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("1\t2\n"));
  r = runCli({"--json", "matrix", "copy", "--c", "9 8", "--on", "B"});
  EXPECT_EQ(json(r).value("B").toArray(), (QJsonArray{QJsonArray{"9", "8"}}));
}

TEST_F(MatrixCommand, SystemSolvesOrShowsItsMessage) {
  CliRun r = runCli({"system", "1 1 30;1 -1 -10"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("X1 = 1.e+1\nX2 = 2.e+1\n"));
  r = runCli({"--json", "system", "1 2 3;2 4 7"});
  EXPECT_EQ(r.exitCode, 0);
  QJsonObject o = json(r);
  EXPECT_EQ(o.value("X").toArray(), QJsonArray{});
  EXPECT_EQ(o.value("rankA").toInt(), 1);
  EXPECT_EQ(o.value("rankAK").toInt(), 2);
  EXPECT_TRUE(o.value("messages").toArray().last().toObject().value("text").toString().endsWith(Res(4420)));
  r = runCli({"--json", "system", "--n", "51", "1 1"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(json(r).value("errorCode").toInt(), 17);
}

TEST_F(MatrixCommand, KeysRunTheDialogues) {
  const CliRun r = runCli({"--json", "keys", "1 Command68 3 < Command68 2 Command68"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(json(r).value("result").toString(), Res(4462) + QStringLiteral(":  2,  1"));
  EXPECT_EQ(json(r).value("numero").toString(), QStringLiteral("2"));
  EXPECT_EQ(json(r).value("errorCode").toInt(), 0);
  EXPECT_EQ(json(r).value("viewer").toArray().at(1).toArray(), (QJsonArray{"x0 = ", "2.00000000"}));
  const CliRun failed = runCli({"keys", "0 Command68 1 Command68 1 Command68"});
  EXPECT_TRUE(failed.out.contains(QStringLiteral("\nerrorCode\t40\n"))) << failed.out.toStdString();
}

}  // namespace
