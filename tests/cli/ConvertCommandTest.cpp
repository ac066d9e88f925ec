// calvix-cli convert: the converter's model driven by options and events.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {

class ConvertCommand : public CalvixTest {
 protected:
  static CliRun convert(const QStringList& args, const QStringList& common = {}) {
    return runCli(common + QStringList{QStringLiteral("convert")} + args);
  }
  static QJsonObject json(const QStringList& args, const QStringList& common = {}) {
    const CliRun r = convert(args, common + QStringList{QStringLiteral("--json")});
    return QJsonDocument::fromJson(r.out.toUtf8()).object();
  }
};

}  // namespace

TEST_F(ConvertCommand, PrintsFactorAndResult) {
  const struct {
    QStringList args;
    QStringList common;
    const char* out;
  } rows[] = {
      {{"--table", "presion", "--from", "Bares {bar}", "--to", "#19", "--value", "2"}, {}, "100000\t200000\n"},
      {{"--from", "  Kilómetros ", "--to", "¤ Metros {m}"}, {}, "1000\t\n"},
      {{"--from", "#6", "--to", "#3", "--value", "2.5"}, {"--decimal", ","}, "0,001\t0,0025\n"},
      {{"--from", "#3", "--to", "#6", "Command6"}, {}, "1.00e+03\t\n"},
      {{"--from", "#3", "--to", "#6", "--keys", "2.5 * 2 ="}, {}, "1000\t5000\n"},
      {{"--table", "informat", "--from", "Kilobytes", "--to", "Bits"}, {}, "8192\t\n"},
  };
  for (const auto& row : rows) {
    const CliRun r = convert(row.args, row.common);
    EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(r.out, QString::fromUtf8(row.out)) << row.args.join(' ').toStdString();
  }
}

TEST_F(ConvertCommand, JsonHoldsTheWindowFields) {
  const QJsonObject o = json({"--keys", "3", "--from", "#3", "--to", "#6", "Command3(2)"});
  EXPECT_EQ(o.value("Label11").toString(), QStringLiteral("Longitud (S.I. y comunes)"));
  EXPECT_EQ(o.value("Label12").toArray(), QJsonArray({"Kilómetros", "¤ Metros {m}"}));
  EXPECT_EQ(o.value("Label3").toString(), QStringLiteral("1000"));
  EXPECT_EQ(o.value("Text2").toString(), QStringLiteral("3"));
  EXPECT_EQ(o.value("Text4").toString(), QStringLiteral("3000"));
  EXPECT_EQ(o.value("Label9").toString(), QString());
  EXPECT_EQ(o.value("etapa").toInt(), 2);
  EXPECT_EQ(o.value("unidad").toArray(), QJsonArray({3, 6}));
  EXPECT_EQ(o.value("factorConv").toDouble(), 1000);
  EXPECT_EQ(o.value("selected").toArray(), QJsonArray({3, 6}));
  EXPECT_EQ(o.value("List1").toArray(),
            QJsonArray({"Factor de Conversión de Kilómetros a ¤ Metros {m} = 1000", "3 Kilómetros = 3000 ¤ Metros {m}", " "}));
  EXPECT_EQ(o.value("ListIndex").toInt(), 1);
  const QJsonObject r3 = o.value("registers").toArray().at(2).toObject();
  EXPECT_EQ(r3.value("value").toDouble(), 1000);
  EXPECT_EQ(r3.value("label").toString(), QStringLiteral("Factor de Conversión de Kilómetros a ¤ Metros {m}"));
  EXPECT_TRUE(o.value("messages").toArray().isEmpty());
}

TEST_F(ConvertCommand, EventsRunInOrder) {
  const QJsonObject o = json({"frecuencia", "Command1(1)", "Command1(2)", "Text2=3x", "Enter", "Command4", "borrhis",
                              "Command1(2)", "Command9", "Command2", "Command1(0)"},
                             {"--lang", "en"});
  EXPECT_EQ(o.value("Label11").toString(), QStringLiteral("Frequency"));
  EXPECT_EQ(o.value("Label9").toString(), QStringLiteral("Also applies to: radioactivity (becquerel)."));
  EXPECT_EQ(o.value("selected").toArray(), QJsonArray({0}));
  EXPECT_EQ(o.value("etapa").toInt(), 1);
  EXPECT_TRUE(o.value("List1").toArray().isEmpty());
  const QJsonObject history = json({"frecuencia", "Command1(1)", "Command1(2)", "Text2=3x", "Enter"}, {"--lang", "en"});
  EXPECT_EQ(history.value("List1").toArray().at(3).toString(),
            QStringLiteral("3 Exahercios {EHz} = 3000 Petahercios {PHz}"));
  EXPECT_TRUE(history.value("List1").toArray().at(2).toString().startsWith(QStringLiteral("Conversion factor from")));
}

TEST_F(ConvertCommand, OverflowIsReportedAndTheRestRuns) {
  const CliRun r = convert({"--table", "tiempo", "--from", "#0", "--to", "#32", "--value", "1e300", "Command3(0)"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_FALSE(r.err.isEmpty());
  EXPECT_EQ(r.out, QStringLiteral("3.1556952E+34\t\n"));
  const QJsonObject o = json({"--table", "tiempo", "--from", "#0", "--to", "#32", "--value", "1e300", "Command3(0)"});
  EXPECT_EQ(o.value("messages").toArray().size(), 1);
  EXPECT_DOUBLE_EQ(o.value("registers").toArray().at(0).toObject().value("value").toDouble(), 3.1556952e34);
}

TEST_F(ConvertCommand, BadUsageExitsWithTwo) {
  const QStringList rows[] = {
      {"--table", "temperatura"}, {"--from", "Leguas"},   {"--from", "#39"},
      {"Command1(39)"},           {"Command3(4)"},       {"Command5"},
      {"--table", "Longitud2", "--from", "#16"},
  };
  for (const QStringList& args : rows) {
    const CliRun r = convert(args);
    EXPECT_EQ(r.exitCode, 2) << args.join(' ').toStdString();
    EXPECT_TRUE(r.err.startsWith(QStringLiteral("calvix-cli: "))) << r.err.toStdString();
    EXPECT_TRUE(r.out.isEmpty());
  }
}

TEST_F(ConvertCommand, ListsTablesAndUnits) {
  CliRun r = convert({"--list"});
  ASSERT_EQ(r.exitCode, 0);
  QStringList lines = r.out.split('\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 48);
  EXPECT_EQ(lines.first(), QStringLiteral("aceleracionlinear\t33\tAceleración lineal"));
  EXPECT_EQ(lines.last(), QStringLiteral("Volumen2\t13\tVolumen (Antiguo Egipto)"));
  r = convert({"--list", "--table", "energia"});
  lines = r.out.split('\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 39);
  EXPECT_EQ(lines.at(1), QStringLiteral("1\t¤ Julios  {J} (N·m)\t1"));
  EXPECT_EQ(lines.at(3), QStringLiteral("3\tMicrojulios\t1e-06"));
  EXPECT_EQ(lines.at(4), QStringLiteral("4\tQuads\t1.055e+18"));
  EXPECT_EQ(lines.at(5), QStringLiteral("5\tMegatones\t4184000000000000.0"));
  EXPECT_EQ(lines.at(10), QStringLiteral("10\tTonelada de Refrigeración\t12670439.999999998"));
  EXPECT_EQ(lines.at(25), QStringLiteral("25\tCalorías  {cal}\t4.1868"));
  const QJsonObject units = json({"--list", "--table", "informat"});
  EXPECT_EQ(units.value("units").toArray().at(6).toObject().value("factor").toDouble(), 8192);
  EXPECT_EQ(json({"--list"}).value("tables").toArray().size(), 48);
  r = convert({"--list", "--table", "aceleracionangular"}, {"--decimal", ","});
  EXPECT_TRUE(r.out.startsWith(QStringLiteral("0\tDegrees/h²\t1.346704669748711e-09\n"))) << r.out.toStdString();
}
