// calvix-cli geometry: the list, a figure with its boxes, moves, decimals and
// copy, a refused figure, bad usage, and the inline calculator.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {
CliRun geometry(QStringList args, const QString& decimal = QStringLiteral(".")) {
  args.prepend(QStringLiteral("geometry"));
  args.prepend(decimal);
  args.prepend(QStringLiteral("--decimal"));
  return runCli(args);
}
QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }
}  // namespace

TEST(GeometryCommand, ListsEveryRowInOrder) {
  const CliRun r = geometry({QStringLiteral("--list")});
  EXPECT_EQ(r.exitCode, 0);
  const QStringList lines = r.out.split(u'\n', Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 54);
  EXPECT_EQ(lines.first(), QStringLiteral("1\tCírculo"));
  EXPECT_EQ(lines.at(5), QStringLiteral("6\tCono 2"));
  EXPECT_EQ(lines.last(), QStringLiteral("54\tZona Esférica"));
}

TEST(GeometryCommand, PrintsTitleResultAndFormulaOfEachShownLine) {
  CliRun r = geometry({QStringLiteral("Cono 1"), QStringLiteral("r=3"), QStringLiteral("h=4")});
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("Area Lateral\t47.1238898038469\t ¶ r g ; g = Sqr(h² + r²)\n"
                                  "Área Total\t75.398223686155\t ¶ r (r + g)\n"
                                  "Volumen\t37.6991118430775\t (1/3) ¶ r² h\n"));
  // Without a value nothing is calculated: the last two columns are empty.
  r = geometry({QStringLiteral("Esfera")});
  EXPECT_EQ(r.out, QStringLiteral("Área\t\t\nVolumen\t\t\n"));
  // Decimals, a comma system, and "," typed as the decimal symbol.
  r = geometry({QStringLiteral("--decimals"), QStringLiteral("2"), QStringLiteral("Cuadrado"), QStringLiteral("a=1.5")},
               QStringLiteral(","));
  EXPECT_EQ(r.out, QStringLiteral("Perímetro\t6,00\t 4 a\nÁrea\t2,25\t a²\n"));
}

TEST(GeometryCommand, MovesFromTheChosenRowWithWrapAround) {
  const CliRun r = geometry({QStringLiteral("--json"), QStringLiteral("--prev"), QStringLiteral("--prev"),
                             QStringLiteral("--next"), QStringLiteral("Círculo"), QStringLiteral("R=5"),
                             QStringLiteral("r1=4"), QStringLiteral("r2=3"), QStringLiteral("h=1")});
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value(QStringLiteral("Label4")).toString(), QStringLiteral("Zona Esférica"));
  EXPECT_EQ(o.value(QStringLiteral("FigureIndex")).toInt(), 54);
  EXPECT_EQ(o.value(QStringLiteral("Label1")).toArray(), QJsonArray({"R", "r1", "r2", "h"}));
  EXPECT_EQ(o.value(QStringLiteral("Text1")).toArray(), QJsonArray({"5", "4", "3", "1"}));
  EXPECT_EQ(o.value(QStringLiteral("Label2")).toArray(), QJsonArray({"Área", "Volumen"}));
  EXPECT_EQ(o.value(QStringLiteral("Picture3")).toArray().at(0).toString(), QStringLiteral(" 2 ¶ R h"));
  EXPECT_EQ(o.value(QStringLiteral("notes")).toArray(), QJsonArray());
}

TEST(GeometryCommand, CopyFillsRegistersAndEmptyBoxesAreReported) {
  CliRun r = geometry({QStringLiteral("--json"), QStringLiteral("--copy"), QStringLiteral("Tronco de Pirámide"),
                       QStringLiteral("B=9"), QStringLiteral("b=4"), QStringLiteral("P=12"), QStringLiteral("p=8"),
                       QStringLiteral("a=2")});
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
  QJsonObject o = json(r);
  const QJsonArray messages = o.value(QStringLiteral("messages")).toArray();
  ASSERT_EQ(messages.size(), 1);
  EXPECT_EQ(messages.at(0)[QStringLiteral("title")].toString(), QStringLiteral("GeoKORD  -  Error"));
  EXPECT_TRUE(messages.at(0)[QStringLiteral("text")].toString().contains(QStringLiteral("Parámetro No Definido")));
  EXPECT_EQ(o.value(QStringLiteral("Text1")).toArray().last().toString(), QStringLiteral("0"));
  EXPECT_EQ(o.value(QStringLiteral("notes")).toArray(),
            QJsonArray({"B, b = Áreas de las Bases", "P, p = Perímetros de las Bases"}));
  const QJsonArray regs = o.value(QStringLiteral("registers")).toArray();
  EXPECT_EQ(regs.at(0)[QStringLiteral("value")].toDouble(), 20);
  EXPECT_EQ(regs.at(0)[QStringLiteral("label")].toString(), QStringLiteral("Tronco de Pirámide - Area Lateral"));
  EXPECT_EQ(regs.at(1)[QStringLiteral("value")].toDouble(), 33);
  EXPECT_EQ(regs.at(2)[QStringLiteral("value")].toDouble(), 0);
  // Copy with nothing calculated.
  r = geometry({QStringLiteral("--json"), QStringLiteral("--copy"), QStringLiteral("Esfera")});
  o = json(r);
  EXPECT_EQ(o.value(QStringLiteral("messages")).toArray().at(0)[QStringLiteral("text")].toString(),
            QStringLiteral("No hay Resultados para copiar."));
}

TEST(GeometryCommand, RefusedFigureExitsOneWithItsReason) {
  CliRun r = geometry({QStringLiteral("Cono 2"), QStringLiteral("r=3"), QStringLiteral("g=3")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.out.isEmpty());
  EXPECT_TRUE(r.err.contains(QStringLiteral("Error:  g <= r"))) << r.err.toStdString();
  r = geometry({QStringLiteral("--json"), QStringLiteral("Polígono Regular (n lados)"), QStringLiteral("n=3,5"),
                QStringLiteral("a=1"), QStringLiteral("b=1")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(QStringLiteral("Error:  Número Decimal.")));
  EXPECT_EQ(json(r).value(QStringLiteral("Text2")).toArray(), QJsonArray({"", ""}));
}

TEST(GeometryCommand, BadUsageExitsTwo) {
  EXPECT_EQ(geometry({QStringLiteral("Hexágono")}).exitCode, 2);
  EXPECT_EQ(geometry({QStringLiteral("Tronco Cilíndrico"), QStringLiteral("h=1"), QStringLiteral("R=1")}).exitCode, 2);
  EXPECT_EQ(geometry({QStringLiteral("Huso - Cuña Esférica"), QStringLiteral("n=1")}).exitCode, 2);  // its box reads "nº"
  EXPECT_EQ(geometry({QStringLiteral("--decimals"), QStringLiteral("16"), QStringLiteral("Esfera")}).exitCode, 2);
  EXPECT_EQ(geometry({}).exitCode, 2);
}

TEST(GeometryCommand, CalcEvaluatesTheInlineLine) {
  CliRun r = geometry({QStringLiteral("--calc"), QStringLiteral("lg(1000)+1,5")}, QStringLiteral(","));
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_EQ(r.out, QStringLiteral("4,5\n"));
  r = geometry({QStringLiteral("--calc"), QStringLiteral("sin(pi)")});
  EXPECT_EQ(r.out, QStringLiteral("3.23108914886517E-15\n"));
  r = geometry({QStringLiteral("--json"), QStringLiteral("--calc"), QStringLiteral("fac(3)")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_FALSE(r.err.trimmed().isEmpty());
  EXPECT_EQ(json(r).value(QStringLiteral("Text3")).toString(), QStringLiteral("fac(3)"));
}
