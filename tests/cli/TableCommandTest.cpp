// calvix-cli table: the boxes filled as a user fills them, each checked on
// leaving, the rows printed as the table holds them, messages on stderr.
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "tests/support/TestSupport.h"

namespace {
CliRun table(QStringList args) {
  args.prepend(QStringLiteral("table"));
  args.prepend(QStringLiteral("."));
  args.prepend(QStringLiteral("--decimal"));
  return runCli(args);
}
QStringList lines(const CliRun& r) { return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
QStringList columnOf(const CliRun& r, int col) {
  QStringList cells;
  for (const QString& l : lines(r)) cells << l.split(QLatin1Char('\t')).value(col);
  return cells;
}
QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }
}  // namespace

TEST(TableCommand, PrintsSevenCellsPerRowWithTheEndCorrected) {
  CliRun r = table({"--f", "x*x", "--start", "0", "--end", "10", "--step", "3"});
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  // Columns 2 to 4: the forward differences, the first two in 32-bit floats, the third in 64-bit.
  EXPECT_EQ(r.out, QStringLiteral("0\t0\t3\t2\t0\t\t\n3\t9\t9\t2\t-0.222222333333333\t\t\n6\t36\t15\t1.333333\t\t\t\n"
                                  "9\t81\t19\t\t\t\t\n10\t100\t\t\t\t\t\n"));
  EXPECT_TRUE(r.err.isEmpty());
  r = table({"--f", "x", "--start", "0", "--end", "1", "--points", "3"});
  EXPECT_EQ(columnOf(r, 0), QStringList({"0", "0.5", "1"}));
  r = table({"--f", "x", "--start", "10", "--end", "0", "--step", "3"});
  EXPECT_EQ(columnOf(r, 0), QStringList({"10", "7", "4", "1", "0"}));
}

TEST(TableCommand, BoxesAreCheckedAsTheUserLeavesThem) {
  CliRun r = table({"--f", "x", "--start", "0", "--end", "1", "--points", "1001"});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(lines(r).size(), 200);
  EXPECT_TRUE(r.err.contains(QStringLiteral("El máximo Número de Puntos de\nla Función no puede ser superior a 1000.")))
      << r.err.toStdString();
  // Letters typed into the interval are dropped by the key filter; a comma is the decimal symbol.
  r = runCli({"--decimal", ",", "table", "--f", "x/4", "--start", "0.5", "--end", "1a,5", "--points", "3"});
  EXPECT_EQ(columnOf(r, 0), QStringList({"0,5", "1", "1,5"}));
  EXPECT_EQ(columnOf(r, 1), QStringList({"0,125", "0,25", "0,375"}));
  // An increment larger than the interval is refused and nothing is tabulated from it.
  r = table({"--json", "--f", "x", "--start", "0", "--end", "1", "--step", "5"});
  EXPECT_EQ(json(r).value("boxes").toObject().value("Text1").toString(), QStringLiteral("0"));
  EXPECT_EQ(table({"--f", "x", "--points", "3", "--step", "1"}).exitCode, 2);
  EXPECT_EQ(table({"--f", "x", "--angle", "turns"}).exitCode, 2);
}

TEST(TableCommand, FailuresKeepTheRowsBeforeThemAndSaySo) {
  CliRun r = table({"--json", "--f", "1/(x-8)", "--g", "x*2", "--start", "0", "--end", "10", "--step", "1"});
  EXPECT_EQ(r.exitCode, 0);
  QJsonObject o = json(r);
  EXPECT_EQ(o.value("rows").toArray().size(), 8);
  EXPECT_EQ(o.value("rows").toArray().last().toArray().at(6).toString(), QStringLiteral("14"));
  EXPECT_EQ(o.value("boxes").toObject().value("txtEnd").toString(), QStringLiteral("7"));
  const QString message = o.value("messages").toArray().at(0).toObject().value("text").toString();
  EXPECT_TRUE(message.contains(QStringLiteral("F(x): 1/(x-8) - La Tabla conserva 8 Puntos."))) << message.toStdString();

  r = table({"--json", "--f", "Sqr(x-1)", "--start", "0", "--end", "5"});
  EXPECT_EQ(r.exitCode, 1);
  o = json(r);
  EXPECT_TRUE(o.value("rows").toArray().isEmpty());
  EXPECT_EQ(o.value("boxes").toObject().value("txtStart").toString(), QStringLiteral("Error"));
}

TEST(TableCommand, DomainFailuresFollowTheAnswers) {
  const QStringList ln{"--f", "ln(x)", "--start", "-1", "--end", "1", "--points", "5"};
  CliRun r = table(QStringList{"--answer", "1"} + ln);
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.out.isEmpty());
  EXPECT_EQ(r.err.count(QStringLiteral("Logaritmo")), 1);
  r = table(ln);
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(columnOf(r, 0), QStringList({"", "", "", "0.5", "1"}));
  EXPECT_EQ(r.err.count(QStringLiteral("Logaritmo")), 3);
}

TEST(TableCommand, AngleAndConstantsReachTheFormula) {
  CliRun r = table({"--f", "sinf(x)+A", "--vars", "A=1,5", "--start", "0", "--end", "100", "--points", "3",
                    "--angle", "gra"});
  EXPECT_EQ(columnOf(r, 1), QStringList({"1.5", "2.20710678118655", "2.5"}));
}

TEST(TableCommand, AnEvlFileFillsTheBoxesAndAnotherExtensionIsRefusedUnread) {
  QTemporaryDir dir;
  const QString good = QDir(dir.path()).filePath(QStringLiteral("sq.evl"));
  QFile f(good);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("0\r\n\"1\",\"3\",\"3\",\"1\",#TRUE#,\"K=10\",\"x*K\",\"x\"\r\n");
  f.close();
  CliRun r = table({"--evl", good});
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(columnOf(r, 1), QStringList({"10", "20", "30"}));
  // Options given beside the file change what it set.
  r = table({"--evl", good, "--f", "x+K"});
  EXPECT_EQ(columnOf(r, 1), QStringList({"11", "12", "13"}));
  // The name decides before the file is looked for.
  r = table({"--evl", QDir(dir.path()).filePath(QStringLiteral("missing.txt"))});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(QStringLiteral("Está intentando Abrir un Fichero de un tipo Diferente."))) << r.err.toStdString();
  QFile bad(QDir(dir.path()).filePath(QStringLiteral("bad.evl")));
  ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
  bad.write("0\r\n\"1\",\"3\"");
  bad.close();
  r = table({"--evl", bad.fileName()});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(QStringLiteral("El Fichero está dañado"))) << r.err.toStdString();
}
