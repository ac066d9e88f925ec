// calvix-cli bank: the wiring of the contract (boxes typed, Cálculo, the
// steps after it, output forms, exit codes). The rules themselves are tested
// on the model.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include "tests/support/TestSupport.h"

namespace {
CliRun bank(QStringList args, const QString& decimal = QStringLiteral(".")) {
  args.prepend(QStringLiteral("bank"));
  args.prepend(decimal);
  args.prepend(QStringLiteral("--decimal"));
  return runCli(args);
}
QStringList lines(const CliRun& r) { return r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts); }
QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }
const QStringList kLoan{"loan", "--capital", "10000", "--interest", "8", "--time", "10", "--months"};
}  // namespace

TEST(BankCommand, LoanPrintsResultsThenTheTable) {
  const CliRun r = bank(kLoan);
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList out = lines(r);
  ASSERT_EQ(out.size(), 3 + 11);
  EXPECT_EQ(out.at(0), QStringLiteral("mensual\tMensualidad: 1037.03"));
  EXPECT_EQ(out.at(1), QStringLiteral("total\t10370.32"));
  EXPECT_EQ(out.at(2), QStringLiteral("intereses\t370.32"));
  EXPECT_EQ(out.at(3), QStringLiteral("Mes\tPago\tNominal\tIntereses\tPendiente"));
  EXPECT_EQ(out.at(4), QStringLiteral("1\t1037.03\t970.37\t66.66\t9029.63"));
  // The end-of-month question was shown and answered with its first button.
  EXPECT_TRUE(r.err.contains(QStringLiteral("¿ Realiza los pagos al final del mes ?")));
}

TEST(BankCommand, BoxesAreTypedThroughTheKeyFilterAndReportedInJson) {
  CliRun r = bank({"--json", "savings", "--capital", "1x000", "--interest", "3.5", "--time", "1,5", "--years",
                   "--monthly", "100", "--increase", "2", "--decimals", "0"},
                  QStringLiteral(","));
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value("capital").toString(), QStringLiteral("1000"));
  EXPECT_EQ(o.value("interes").toString(), QStringLiteral("3,5"));
  EXPECT_EQ(o.value("tiempo").toString(), QStringLiteral("1,5"));
  EXPECT_EQ(o.value("tipo").toInt(), 2);
  EXPECT_TRUE(o.value("Option2").toBool());
  const QJsonArray table = o.value("Bancolist").toArray();
  ASSERT_EQ(table.size(), 3);  // heads, one year, the six months left
  EXPECT_EQ(table.at(2).toArray().at(2).toString(), QStringLiteral("102"));
  EXPECT_EQ(o.value("report").toString(), QString());
  EXPECT_EQ(o.value("messages").toArray().size(), 1);
  // --answer 1 answers the question "No": payments at the start of the month.
  r = bank(QStringList{"--answer", "1", "--json"} + kLoan);
  EXPECT_EQ(json(r).value("mensual").toString(), QStringLiteral("Mensualidad: 1030.16"));
}

TEST(BankCommand, StepsAfterTheCalculation) {
  QTemporaryDir dir;
  const QString file = dir.filePath(QStringLiteral("prestamo.ban"));
  CliRun r = bank(QStringList{"--answer", "0", "--answer", "0", "--answer", "3000"} + kLoan +
                  QStringList{"--dates", "31/01/2024", "--repay", "4", "--sum", "2:1-10", "--save", file});
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList out = lines(r);
  EXPECT_EQ(out.at(4).section(QLatin1Char('\t'), 0, 0), QStringLiteral("31/01/2024"));
  EXPECT_EQ(out.at(5).section(QLatin1Char('\t'), 0, 0), QStringLiteral("29/02/2024"));
  EXPECT_EQ(out.at(14), QStringLiteral("Periodo Amortizado: 30/04/2024 - 30/06/2024"));
  EXPECT_TRUE(r.err.contains(QStringLiteral("SUMA =")));
  QFile saved(file);
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  EXPECT_EQ(saved.readAll(), QByteArray("3\r\n\"10000\",\"8\",\"10\",#FALSE#,\"\",\"\"\r\n"));
  // The file reopens to the same operation.
  r = bank({"file", file});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(lines(r).at(4), QStringLiteral("1\t1037.03\t970.37\t66.66\t9029.63"));
}

TEST(BankCommand, ExitCodes) {
  struct Row {
    const char* name;
    QStringList args;
    int code;
    bool stdoutEmpty;
  };
  QTemporaryDir dir;
  const QString damaged = dir.filePath(QStringLiteral("roto.ban"));
  QFile f(damaged);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write("3\r\n\"10000\",\"8");
  f.close();
  const Row rows[] = {
      {"no capital", {"deposit", "--interest", "5", "--time", "1", "--years"}, 1, true},
      {"neither capital nor contribution",
       {"savings", "--capital", "0", "--interest", "5", "--time", "12", "--months"}, 1, true},
      {"payment too low for a repayment", QStringList{"--answer", "0", "--answer", "0", "--answer", "10"} + kLoan +
                                               QStringList{"--repay", "1"}, 1, false},
      {"money not a number", QStringList{"--answer", "0", "--answer", "0", "--answer", "abc"} + kLoan +
                                 QStringList{"--repay", "1"}, 0, false},
      {"damaged file", {"file", damaged}, 1, true},
      {"foreign file", {"file", dir.filePath(QStringLiteral("x.evl"))}, 1, true},
      {"save under another extension", kLoan + QStringList{"--save", dir.filePath(QStringLiteral("x.txt"))}, 1, false},
      {"no contribution only warns", {"savings", "--capital", "100", "--interest", "5", "--time", "12"}, 0, false},
      {"unknown operation", {"mortgage"}, 2, true},
      {"unknown word", kLoan + QStringList{"--colour"}, 2, true},
      {"row outside the table", kLoan + QStringList{"--repay", "11"}, 2, true},
      {"column outside the table", kLoan + QStringList{"--sum", "5:1-2"}, 2, true},
  };
  for (const Row& row : rows) {
    const CliRun r = bank(row.args);
    EXPECT_EQ(r.exitCode, row.code) << row.name << ": " << r.err.toStdString();
    EXPECT_EQ(r.out.isEmpty(), row.stdoutEmpty) << row.name;
    if (row.code != 0) {
      EXPECT_FALSE(r.err.isEmpty()) << row.name;
    }
  }
  // With --json the object is printed even when nothing was computed.
  const CliRun r = bank({"--json", "deposit", "--interest", "5", "--time", "1"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(json(r).value("numero").toString(), QStringLiteral("Error"));
  EXPECT_EQ(r.err.trimmed(), QStringLiteral("Error"));
}

TEST(BankCommand, RateAndDuration) {
  CliRun r = bank({"--json", "--answer", "10000", "--answer", "869.8843", "--answer", "1", "rate"});
  EXPECT_EQ(r.exitCode, 0);
  QJsonObject o = json(r);
  EXPECT_NEAR(o.value("result").toDouble(), 8.0, 0.001);
  EXPECT_TRUE(o.value("report").toString().contains(QStringLiteral("INTERÉS CALCULADO:")));
  EXPECT_EQ(o.value("messages").toArray().size(), 5);  // three prompts, the question, the report

  r = bank({"--json", "--answer", "1200.01", "--answer", "0", "--answer", "100", "duration"});
  o = json(r);
  EXPECT_NEAR(o.value("x").toDouble(), 12.0001, 1e-9);
  EXPECT_EQ(o.value("months").toDouble(), 13);

  r = bank({"--answer", "1200", "--answer", "button:1", "duration"});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_TRUE(r.out.isEmpty());

  r = bank({"--answer", "10000", "--answer", "12", "--answer", "50", "duration"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.out.isEmpty());
  EXPECT_TRUE(r.err.trimmed().endsWith(QStringLiteral("Invalid procedure call or argument")));

  r = bank({"--answer", "10000", "--answer", "12", "--answer", "500", "duration"});
  EXPECT_TRUE(r.out.contains(QStringLiteral("TIEMPO CALCULADO: 1 Años  11 Meses"))) << r.out.toStdString();
}
