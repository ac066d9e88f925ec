// calvix-cli lottery: the wiring of the contract (label order and fields,
// actions in order, refusals with exit 1, usage with exit 2, JSON fields).
// The rules themselves are tested on the model.
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "tests/support/TestSupport.h"

namespace {
CliRun lottery(QStringList args, const QString& decimal = QStringLiteral(".")) {
  args.prepend(QStringLiteral("lottery"));
  args.prepend(decimal);
  args.prepend(QStringLiteral("--decimal"));
  return runCli(args);
}
QStringList lines(const CliRun& r) { return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }
}  // namespace

TEST(LotteryCommand, ProbsPrintsTheLabelsInTableOrderThenLabel7AndLabel1) {
  const CliRun r = lottery({"probs", "5"}, QStringLiteral(","));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList out = lines(r);
  ASSERT_EQ(out.size(), 10);
  const char* names[] = {"Label12", "Label11", "Label13", "Label14", "Label15", "Label17", "Label18", "Label19"};
  for (int i = 0; i < 8; ++i) EXPECT_TRUE(out.at(i).startsWith(QLatin1String(names[i]) + '\t')) << i;
  EXPECT_EQ(out.at(5), QStringLiteral("Label17\t49,52 %\tProbabilidad de 2 aciertos: 1 / 2"));
  EXPECT_EQ(out.at(7), QStringLiteral("Label19\t0,00 %\tProbabilidad de ningún acierto: --"));
  EXPECT_EQ(out.at(8), QStringLiteral("Label7\t 1 Apuesta Múltiple equivale a 44 Apuestas Sencillas"));
  EXPECT_EQ(out.at(9), QStringLiteral("Label1\tMúltiple"));
}

TEST(LotteryCommand, ProbsJsonAndItsLimits) {
  const QJsonObject o = json(lottery({"--json", "probs", "6"}));
  EXPECT_EQ(o.value("Label12").toObject().value("tooltip").toString(),
            QStringLiteral("Probabilidad de 6 aciertos:  1 / 13,983,816"));
  EXPECT_EQ(o.value("Label1").toObject().value("text").toString(), QStringLiteral("Sencilla"));
  EXPECT_EQ(lines(lottery({"probs", "12"})).at(0), QStringLiteral("Label12\t\tProbabilidad de 6 aciertos"));
  EXPECT_EQ(lottery({"probs", "50"}).exitCode, 2);
  EXPECT_EQ(lottery({"probs"}).exitCode, 2);
}

TEST(LotteryCommand, BetsRunInOrderAndSurviveASaveAndOpen) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("a.lot"));
  CliRun r = lottery({"bets", "--bet", "6 1 2 3 4 5", "--random", "8", "--bet", "10 11 12 13 14 15 16 17 18 19 20",
                      "--save", file});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  QStringList out = lines(r);
  ASSERT_EQ(out.size(), 3);
  EXPECT_TRUE(out.at(0).startsWith(QStringLiteral("1\t")));
  EXPECT_TRUE(out.at(0).endsWith(QStringLiteral("\t1 2 3 4 5 6")));
  EXPECT_EQ(out.at(1).section('\t', 2).split(' ').size(), 8);
  r = lottery({"--json", "bets", "--open", file, "--delete", "2-2"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value("apuestasSel").toInt(), 2);
  ASSERT_EQ(o.value("apuestas").toArray().size(), 2);
  EXPECT_EQ(o.value("apuestas").toArray().at(1).toArray().size(), 13);
  EXPECT_EQ(o.value("apuestas").toArray().at(1).toArray().at(12).toString(), QStringLiteral("20"));
  EXPECT_EQ(o.value("frecSel").toArray().size(), 49);
  EXPECT_EQ(o.value("frecSel").toArray().at(0).toDouble(), 1);  // number 1, the random bet deleted
  EXPECT_EQ(o.value("frecTodas").toArray().size(), 49);
  EXPECT_TRUE(o.value("apuestasCambiadas").toBool());
  r = lottery({"bets", "--open", file, "--delete", "all"});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_TRUE(r.out.isEmpty());
}

TEST(LotteryCommand, RefusalsStopWithTheirMessageAndExit1) {
  QTemporaryDir dir;
  const struct {
    QStringList args;
    const char* message;
  } rows[] = {
      {{"bets", "--bet", "1 2 3"}, "Apuesta No Válida. Debe seleccionar al menos 5 Números"},
      {{"bets", "--save", dir.filePath("x.lot")}, "No hay Apuestas Seleccionadas"},
      {{"bets", "--bet", "1 2 3 4 5", "--save", dir.filePath("x.txt")}, "Guardar un Fichero de un tipo Diferente"},
      {{"bets", "--open", dir.filePath("x.ban")}, "Abrir un Fichero de un tipo Diferente"},
      {{"bets", "--pref", "1", "1 2 3"}, "Debe seleccionar al menos 12 números."},
  };
  for (const auto& row : rows) {
    const CliRun r = lottery(row.args);
    EXPECT_EQ(r.exitCode, 1) << row.message;
    EXPECT_TRUE(r.err.contains(QString::fromUtf8(row.message))) << r.err.toStdString();
  }
  const CliRun r = lottery({"--json", "bets", "--bet", "1 2 3"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(json(r).value("apuestasSel").toInt(), 0);
}

TEST(LotteryCommand, PreferredListRestrictsLaterRandomBets) {
  const CliRun r = lottery({"bets", "--pref", "2", "1 2 3 4 5 6 7 8 9 10 11 12", "--random", "11"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  for (const QString& x : lines(r).at(0).section('\t', 2).split(' ')) EXPECT_LE(x.toInt(), 12);
}

TEST(LotteryCommand, BadUsageExits2) {
  const QStringList rows[] = {{"bets", "--random", "4"},        {"bets", "--bet", "0 50"},
                              {"bets", "--delete", "1-2"},      {"bets", "--reduce", "5", "1 2 3 4 5 6 7 8"},
                              {"bets", "--reduce", "0"},        {"stats", "--type", "X"},
                              {"stats", "--frobnicate"},        {"bets", "--frobnicate"}};
  for (const QStringList& args : rows) EXPECT_EQ(lottery(args).exitCode, 2) << args.join(' ').toStdString();
}

TEST(LotteryCommand, ReduceReplacesTheListAfterItsQuestion) {
  CliRun r = lottery({"bets", "--reduce", "0", "8 1 2 3 4 5 6 7"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  QStringList out = lines(r);
  ASSERT_EQ(out.size(), 4);
  EXPECT_EQ(out.at(0).section('\t', 2), QStringLiteral("2 3 4 5 6 7"));
  EXPECT_EQ(out.at(3).section('\t', 2), QStringLiteral("1 2 3 6 7 8"));
  // With a bet in the list the question takes the first answer: 1 cancels.
  r = runCli({"--decimal", ".", "--answer", "1", "lottery", "bets", "--bet", "40 41 42 43 44 45", "--reduce", "0",
              "1 2 3 4 5 6 7 8"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  ASSERT_EQ(lines(r).size(), 1);
  r = runCli({"--decimal", ".", "--answer", "0", "lottery", "bets", "--bet", "40 41 42 43 44 45", "--reduce", "1",
              "1 2 3 4 5 6 7 8 9", "--random", "6"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  ASSERT_EQ(lines(r).size(), 8);
  EXPECT_EQ(lines(r).at(0).section('\t', 2), QStringLiteral("1 2 3 4 5 6"));
  r = lottery({"bets", "--reduce", "1", "1 2 3"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(QStringLiteral("3 Números."))) << r.err.toStdString();
}

TEST(LotteryCommand, AutoTakesItsCountFromTheAnswer) {
  CliRun r = runCli({"--decimal", ".", "--json", "--answer", "7", "lottery", "bets", "--auto"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value("apuestasSel").toInt(), 7);
  double made = 0;
  for (const auto& v : o.value("frecTodas").toArray()) made += v.toDouble();
  EXPECT_EQ(made, 42);
  r = runCli({"--decimal", ".", "--answer", "0", "lottery", "bets", "--auto"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(QStringLiteral("Número de Apuestas No Válido"))) << r.err.toStdString();
}

TEST(LotteryCommand, StatsPrintsFrecDBByTypeFromTheDatabase) {
  QTemporaryDir dir;
  const QString csv = dir.filePath(QStringLiteral("d.csv"));
  const QString db = dir.filePath(QStringLiteral("d.dlj"));
  QFile f(csv);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("06/01/2000,1,2,3,4,20,30,5,1,P\n09/01/2000,1,2,3,4,5,6,7,,B\n13/01/2000,1,9,10,11,12,13,2,3,P\n");
  f.close();
  ASSERT_EQ(lottery({"import", "--csv", csv, "--db", db}).exitCode, 0);
  CliRun r = lottery({"stats", "--db", db}, QStringLiteral(","));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList out = lines(r);
  ASSERT_EQ(out.size(), 49);
  EXPECT_EQ(out.at(0), QStringLiteral("1\t2\t2\t0\t100,00"));
  EXPECT_EQ(out.at(1), QStringLiteral("2\t1\t2\t1\t50,00"));
  EXPECT_EQ(out.at(4), QStringLiteral("5\t0\t1\t1\t0,00"));
  EXPECT_EQ(out.at(48), QStringLiteral("49\t0\t0\t0\t0,00"));
  const QJsonObject o = json(lottery({"--json", "stats", "--db", db, "--type", "all"}));
  EXPECT_EQ(o.value("sorteosBase").toInt(), 3);
  const QJsonArray lists = o.value("frecDB").toArray();
  ASSERT_EQ(lists.size(), 4);
  for (const auto& list : lists) EXPECT_EQ(list.toArray().size(), 50);
  EXPECT_EQ(lists.at(0).toArray().at(1).toInt(), 3);
  EXPECT_EQ(lists.at(3).toArray().at(1).toInt(), 1);  // reintegros 1 and 3; the empty one is not counted
  EXPECT_EQ(lists.at(3).toArray().at(0).toInt(), 0);
  EXPECT_EQ(lottery({"stats", "--db", dir.filePath("none.dlj")}).exitCode, 1);
}

TEST(LotteryCommand, ImportReplacesOrAppendsAndRefusesABadLine) {
  QTemporaryDir dir;
  const QString csv = dir.filePath(QStringLiteral("d.csv"));
  const QString db = dir.filePath(QStringLiteral("d.dlj"));
  QFile f(csv);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("06/01/2000,1,2,3,4,20,30,5,1,P\n13/01/2000,1,2,3,4,5,6,7,,P\n");
  f.close();
  CliRun r = lottery({"import", "--csv", csv, "--db", db});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("2\n"));
  EXPECT_EQ(json(lottery({"--json", "import", "--csv", csv, "--db", db, "--append"})).value("draws").toInt(), 4);
  ASSERT_TRUE(f.open(QIODevice::Append));
  f.write("20/01/2000,1,2,3,4,5,6,6,,P\n");
  f.close();
  r = lottery({"import", "--csv", csv, "--db", db});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(QStringLiteral("line 3"))) << r.err.toStdString();
  EXPECT_EQ(lottery({"import", "--csv", csv}).exitCode, 2);
}

TEST(LotteryCommand, AnalyseReportsTheBetOrEveryRowOfAFile) {
  QTemporaryDir dir;
  const QString csv = dir.filePath(QStringLiteral("d.csv"));
  const QString db = dir.filePath(QStringLiteral("d.dlj"));
  QFile f(csv);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("06/01/2000,1,2,3,4,20,30,5,1,P\n09/01/2000,1,2,3,4,5,6,7,,B\n");
  f.close();
  ASSERT_EQ(lottery({"import", "--csv", csv, "--db", db}).exitCode, 0);
  CliRun r = lottery({"--json", "analyse", "--bet", "1 2 3 4 5", "--db", db});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  QJsonObject o = json(r);
  EXPECT_EQ(o.value("sorteosBase").toInt(), 1);  // Primitiva only by default
  EXPECT_EQ(o.value("premios").toArray().at(9).toInt(), 1);
  EXPECT_TRUE(o.value("report").toString().contains(QStringLiteral("4C aciertos: 1 veces.\r\n")));
  r = lottery({"analyse", "--bet", "1 2 3 4 5 6", "--db", db, "--type", "all"});
  EXPECT_TRUE(r.out.startsWith(QStringLiteral("Sorteos de Todos los Sorteos \r\n2 sorteos analizados\r\n")));
  const QString lot = dir.filePath(QStringLiteral("a.lot"));
  ASSERT_EQ(lottery({"bets", "--bet", "1 2 3 4 5 6", "--bet", "1 2 3 4 5", "--save", lot}).exitCode, 0);
  o = json(lottery({"--json", "analyse", "--lot", lot, "--db", db, "--type", "B"}));
  EXPECT_EQ(o.value("premiados").toInt(), 2);
  EXPECT_EQ(o.value("report").toString().count(QStringLiteral("Sorteos de Bonoloto")), 2);
  EXPECT_EQ(lottery({"analyse", "--bet", "1 2 3", "--db", db}).exitCode, 2);
  EXPECT_EQ(lottery({"analyse", "--bet", "1 2 3 4 5", "--db", dir.filePath("none.dlj")}).exitCode, 1);
}
