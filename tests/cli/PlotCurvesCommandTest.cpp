// calvix-cli plot with the derived curves: --smooth clicks in order (a
// second click toggles), answers to the prompt, the fit with the plot's a
// and b, the interpolated points, the difference of ordinates, their JSON
// fields, messages and bad usage.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {
CliRun plot(QStringList args) {
  args = QStringList{"--decimal", ".", "plot", "--angle", "rad"} + args;
  return runCli(args);
}
QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }
QStringList linesOf(const CliRun& r, const QString& word) {
  QStringList out;
  for (const QString& l : r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
    if (l.startsWith(word + QLatin1Char('\t'))) out << l;
  }
  return out;
}
// A spike of 3 at x = 3 over x = 1..5 (a true comparison is -1).
const QStringList kSpike{"--f", "-3*(x=3)", "--start", "1", "--end", "5", "--points", "5"};
}  // namespace

TEST(PlotCurvesCommand, SmoothingPrintsTitleAndColumn5AndASecondClickToggles) {
  CliRun r = plot(kSpike + QStringList{"--smooth", "A", "--answer", "1"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(linesOf(r, "title"), QStringList({"title\tF(x) = -3*(x=3)   (smooth A = 1)"}));
  const QStringList smoothed = linesOf(r, "smoothed");
  ASSERT_EQ(smoothed.size(), 5);
  EXPECT_EQ(smoothed.mid(0, 3), QStringList({"smoothed\t1\t0", "smoothed\t2\t1", "smoothed\t3\t1.33333333333333"}));

  // A then B: B alone, n = 3 taken as 4; B again: off.
  const QStringList ten{"--f", "x*x", "--start", "1", "--end", "10", "--points", "10"};
  r = plot(ten + QStringList{"--json", "--smooth", "A", "--smooth", "B", "--answer", "2", "--answer", "3"});
  QJsonObject o = json(r);
  EXPECT_EQ(o.value("titleF").toString(), QStringLiteral("F(x) = x*x   (smooth B = 4)"));
  EXPECT_EQ(o.value("suavePlot").toInt(), 1);
  EXPECT_EQ(o.value("sourceColumn").toInt(), 5);
  EXPECT_TRUE(o.value("muestrafxOrig").toBool());
  EXPECT_EQ(o.value("smoothed").toArray().size(), 10);
  r = plot(ten + QStringList{"--json", "--smooth", "B", "--smooth", "B"});
  o = json(r);
  EXPECT_EQ(o.value("titleF").toString(), QStringLiteral("F(x) = x*x"));
  EXPECT_EQ(o.value("suavePlot").toInt(), -1);
  EXPECT_EQ(o.value("sourceColumn").toInt(), 1);
  EXPECT_TRUE(o.value("smoothed").toArray().isEmpty());
}

TEST(PlotCurvesCommand, RegressionGivesTheCurveDrawnAndRefusalsAsMessages) {
  CliRun r = plot({"--f", "1+2*x", "--start", "0", "--end", "3", "--points", "4", "--regression", "linear"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  const qsizetype at = lines.indexOf(QStringLiteral("regression\tF(x)  -  Regresión  - Lineal"));
  ASSERT_GE(at, 0) << r.out.toStdString();
  EXPECT_EQ(lines.mid(at + 1, 4), QStringList({"a\t1", "b\t2", "r2\t1", "points\t4"}));

  r = plot({"--json", "--f", "x", "--start", "0", "--end", "4", "--points", "5", "--regression", "power", "--answer",
            "1"});
  EXPECT_EQ(r.exitCode, 0);
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value("PlotRegression").toInt(), -1);
  EXPECT_EQ(o.value("regression").toString(), QString());
  EXPECT_EQ(o.value("a").toString(), QString());
  const QJsonArray messages = o.value("messages").toArray();
  ASSERT_EQ(messages.size(), 2);
  EXPECT_TRUE(messages.at(1).toObject().value("text").toString().contains(QStringLiteral("Incompatible")));
}

TEST(PlotCurvesCommand, LagrangePrints301PointsUnder61AndNoneFrom61) {
  CliRun r = plot({"--f", "x*x", "--start", "0", "--end", "2", "--points", "5", "--lagrange"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList points = linesOf(r, "interpolation");
  ASSERT_EQ(points.size(), 301);
  EXPECT_EQ(points.front(), QStringLiteral("interpolation\t0\t0"));
  EXPECT_EQ(points.at(150), QStringLiteral("interpolation\t1\t1"));
  EXPECT_EQ(points.back(), QStringLiteral("interpolation\t2\t4"));

  r = plot({"--json", "--f", "x", "--start", "0", "--end", "60", "--points", "61", "--lagrange"});
  const QJsonObject o = json(r);
  EXPECT_TRUE(o.value("menuIPLA").toBool());
  EXPECT_TRUE(o.value("interpolation").toArray().isEmpty());
}

TEST(PlotCurvesCommand, DiffPrintsTheDifferenceOrNoExiste) {
  CliRun r = plot({"--f", "x*x", "--start", "0", "--end", "4", "--points", "5", "--diff", "1", "3"});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(linesOf(r, "DiffOrd"), QStringList({"DiffOrd\t8"}));
  r = plot({"--json", "--f", "x*x", "--start", "0", "--end", "4", "--points", "5", "--diff", "1", "9"});
  const QJsonObject o = json(r);
  EXPECT_EQ(o.value("DiffOrd").toString(), QStringLiteral("No Existe"));
  EXPECT_TRUE(o.value("messages").toArray().at(0).toObject().value("text").toString().contains(
      QStringLiteral("Valor Final")));
}

TEST(PlotCurvesCommand, BadUsageExitsWith2) {
  const QStringList cases[] = {{"--smooth", "C"}, {"--regression", "cubic"}, {"--diff", "1"}};
  for (const QStringList& c : cases) EXPECT_EQ(plot(kSpike + c).exitCode, 2) << c.join(' ').toStdString();
}
