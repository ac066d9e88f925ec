// calvix-cli element and molweight: the sheet in field order with the
// language and decimal symbol of the run, the builder's tokens and formulas,
// JSON, and bad usage.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {

QStringList names(const QString& out) {
  QStringList n;
  for (const QString& line : out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) n << line.section(QLatin1Char('\t'), 0, 0);
  return n;
}

QString value(const QString& out, const QString& name) {
  for (const QString& line : out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
    if (line.section(QLatin1Char('\t'), 0, 0) == name) return line.section(QLatin1Char('\t'), 1);
  }
  return QStringLiteral("<missing>");
}

QStringList args(std::initializer_list<const char*> words) {
  QStringList l;
  for (const char* w : words) l << QString::fromUtf8(w);
  return l;
}

}  // namespace

TEST(ElementCommand, PrintsEveryLabelInFieldOrder) {
  const CliRun r = runCli(args({"--decimal", ",", "element", "Au"}));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(names(r.out), args({"numat", "nombres", "ebulliciones", "fusiones", "densidades", "simbolos", "pesos",
                                "volumenes", "radioas", "radiocs", "radiois", "electronegs", "electronegs1", "calores",
                                "calorfs", "calorvs", "energias", "condutes", "caracteres", "estructura", "valencias",
                                "cristal", "simbolosColor"}));
  EXPECT_EQ(value(r.out, QStringLiteral("nombres")), QStringLiteral("Oro"));
  EXPECT_EQ(value(r.out, QStringLiteral("pesos")), QStringLiteral("196,97"));
  EXPECT_EQ(value(r.out, QStringLiteral("caracteres")), QStringLiteral("Carácter ácido-base: Anfótero"));
  EXPECT_EQ(value(r.out, QStringLiteral("simbolosColor")), QStringLiteral("0"));
}

TEST(ElementCommand, NumberAndLanguageChooseTheSheet) {
  const CliRun r = runCli(args({"--lang", "en", "--decimal", ".", "element", "80"}));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(value(r.out, QStringLiteral("nombres")), QStringLiteral("Mercury"));
  EXPECT_EQ(value(r.out, QStringLiteral("simbolos")), QStringLiteral("Hg"));
  EXPECT_EQ(value(r.out, QStringLiteral("pesos")), QStringLiteral("200.59"));
  EXPECT_EQ(value(r.out, QStringLiteral("cristal")), QStringLiteral("Rhombohedral"));
  EXPECT_EQ(value(r.out, QStringLiteral("simbolosColor")), QStringLiteral("16744576"));
}

TEST(ElementCommand, JsonHasTheSameKeysAndANumericColour) {
  const CliRun r = runCli(args({"--json", "element", "Tc"}));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("numat")).toString(), QStringLiteral("43"));
  EXPECT_EQ(o.value(QStringLiteral("simbolosColor")).toDouble(), 50450);
  EXPECT_EQ(o.value(QStringLiteral("calores")).toString(), QStringLiteral("--"));
  EXPECT_TRUE(o.value(QStringLiteral("messages")).isArray());
  EXPECT_EQ(o.size(), 22 + 2);
}

TEST(ElementCommand, UnknownElementIsBadUsage) {
  for (const char* bad : {"0", "112", "au", "Xx", "-1"}) {
    const CliRun r = runCli(args({"element", bad}));
    EXPECT_EQ(r.exitCode, 2) << bad;
    EXPECT_TRUE(r.err.contains(QStringLiteral("usage"))) << bad;
  }
  EXPECT_EQ(runCli(args({"element"})).exitCode, 2);
}

TEST(MolweightCommand, TokensAndFormulaGiveTheSameWater) {
  const CliRun byClicks = runCli(args({"--decimal", ",", "molweight", "H", "O", "H"}));
  const CliRun bySubscript = runCli(args({"--decimal", ",", "molweight", "H 2 Command123 O"}));
  const CliRun byFormula = runCli(args({"--decimal", ",", "molweight", "--formula", "H2O"}));
  for (const CliRun* r : {&byClicks, &bySubscript, &byFormula}) {
    ASSERT_EQ(r->exitCode, 0) << r->err.toStdString();
    EXPECT_EQ(r->out, QStringLiteral("H2O\n18,015\n"));
  }
}

TEST(MolweightCommand, JsonCarriesTheBuilderState) {
  const CliRun r = runCli(args({"--json", "--decimal", ".", "molweight", "O", "2", "Command123", "3", "Command123",
                                "Na", "Command112", "C", "7"}));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("formula")).toString(), QStringLiteral("C"));
  EXPECT_EQ(o.value(QStringLiteral("masa")).toString(), QStringLiteral("12.011"));
  EXPECT_EQ(o.value(QStringLiteral("nn")).toString(), QStringLiteral("7"));
  EXPECT_DOUBLE_EQ(o.value(QStringLiteral("pesoMol")).toDouble(), 12.011);
  EXPECT_EQ(o.value(QStringLiteral("ultimo")).toInt(), 0);
  EXPECT_TRUE(o.value(QStringLiteral("messages")).toArray().isEmpty());
}

TEST(MolweightCommand, GlucoseByFormula) {
  const CliRun r = runCli(args({"--decimal", ".", "molweight", "--formula", "C6H12O6"}));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("C6H12O6\n180.156\n"));
}

TEST(MolweightCommand, UnknownTokenOrFormulaIsBadUsage) {
  for (const QStringList& a : {args({"molweight", "H", "Xy"}), args({"molweight", "Command124"}),
                               args({"molweight", "--formula", "h2o"}), args({"molweight", "--formula", "(OH)2"}),
                               args({"molweight", "--formula", "H2O", "O"})}) {
    const CliRun r = runCli(a);
    EXPECT_EQ(r.exitCode, 2) << a.join(u' ').toStdString();
    EXPECT_TRUE(r.err.contains(QStringLiteral("usage")));
  }
}
