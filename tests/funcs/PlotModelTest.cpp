// The plot's model driven through its handlers over a real function table:
// limits (autoscale, repairs, bars, forced origin, typed limits), the scale
// and its margins, the asymptote rule as the drawing issues it, printing
// the same picture, derivatives, lists, integrals and their messages.
#include <cmath>

#include "funcs/FunctionTable.h"
#include "funcs/PlotModel.h"
#include "shell/Strings.h"
#include "tests/funcs/TableTestSupport.h"
#include "tests/support/TestSupport.h"

namespace {

// Records the drawing calls in picture units.
class RecordingCanvas : public plot::PlotCanvas {
 public:
  explicit RecordingCanvas(Target t) : target_(t) {}
  struct Segment {
    double x1, y1, x2, y2;
    std::uint32_t colour;
    bool operator==(const Segment&) const = default;
  };
  Target target() const override { return target_; }
  int width() const override { return 760; }
  int height() const override { return 520; }
  void Cls(std::uint32_t) override {}
  void Line(double x1, double y1, double x2, double y2) override {
    lines.push_back({x1, y1, x2, y2, ForeColor});
  }
  void Box(double, double, double, double, bool) override { ++boxes; }
  void PSet(double, double) override {}
  void Circle(double x, double y, double) override { circles.push_back({x, y}); }
  void Print(const QString& text) override { texts << text; }
  double TextWidth(const QString& text) override { return text.size() * 6.0 * std::fabs(ScaleWidth) / width(); }
  double TextHeight(const QString&) override { return 12.0 * std::fabs(ScaleHeight) / height(); }

  std::vector<Segment> lines;
  std::vector<plot::Point> circles;
  QStringList texts;
  int boxes = 0;

 private:
  Target target_;
};

}  // namespace

class PlotModelTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    openInRadians(t);
  }
  // Tabulates F over an interval and opens the plot on it.
  void plotOf(const QString& f, const QString& start, const QString& end, int points) {
    tabulateAtOnce(t, f, start, end, points);
    m.Form_Resize(760, 520);
    m.Form_Load();
  }
  // Typed data, as edit mode leaves it.
  void plotData(const std::vector<double>& x, const std::vector<double>& y) {
    t.MSFlexGrid1.setRowCount(static_cast<int>(x.size()) + 2);
    for (size_t i = 0; i < x.size(); ++i) {
      t.MSFlexGrid1.setNumber(static_cast<int>(i) + 1, 0, x[i]);
      t.MSFlexGrid1.setNumber(static_cast<int>(i) + 1, 1, y[i]);
    }
    program().pointCount = static_cast<int>(x.size());
    m.Form_Resize(760, 520);
    m.Form_Load();
  }
  QString lastMessage() const { return messages.shown().empty() ? QString() : messages.shown().back().text; }
  QStringList limits(size_t a, size_t b) const { return {m.Text1[a], m.Text1[b]}; }

  FunctionTable t;
  PlotModel m{t};
};

TEST_F(PlotModelTest, FormatAxisNumberSwitchesToExponentsAtTheEdges) {
  const struct {
    int decimals;
    double x;
    const char* text;
  } rows[] = {{2, 12345.678, "1.23e+04"}, {2, 0.00005, "5.00e-05"}, {2, 0.0001, "1.00e-04"}, {2, -3.14159, "-3.14"},
              {2, 0, "0"},              {0, 2.5, "2"},             {0, 3.5, "4"}};
  for (const auto& r : rows) {
    m.decimals = r.decimals;
    EXPECT_EQ(m.formatAxisNumber(r.x), QString::fromLatin1(r.text)) << r.x;
  }
  useComma();
  m.decimals = 1;
  EXPECT_EQ(m.formatAxisNumber(2.25), QStringLiteral("2,2"));
}

TEST_F(PlotModelTest, AutoscaleFollowsTheDataAndRepairsFlatOrReversedAxes) {
  // A constant: the Y limits become value -1 and value +1.
  plotOf(QStringLiteral("2"), QStringLiteral("0"), QStringLiteral("1"), 11);
  EXPECT_EQ(limits(3, 4), QStringList({"1", "3"}));

  // A descending table: X runs right to left, and every point is inside.
  plotOf(QStringLiteral("x*x"), QStringLiteral("10"), QStringLiteral("0"), 21);
  EXPECT_EQ(limits(1, 2), QStringList({"10", "0"}));
  EXPECT_LT(m.ScaleWidth, 0);
  EXPECT_EQ(m.xLow, 0);
  EXPECT_EQ(m.xHigh, 10);
  for (int r = 1; r <= program().pointCount; ++r) {
    double x = 0, y = 0;
    t.MSFlexGrid1.number(r, 0, x);
    t.MSFlexGrid1.number(r, 1, y);
    EXPECT_FALSE(m.isOutX(x) || m.isOutY(y)) << r;
  }

  // The limits are the extremes as formatAxisNumber shows them, never rounded
  // outwards: a point just past a rounded limit lies outside the frame.
  plotOf(QStringLiteral("sin(x)"), QStringLiteral("0"), QStringLiteral("1"), 11);
  EXPECT_EQ(m.Text1[4], QStringLiteral("0.8"));  // sin(1) = 0.84147
  EXPECT_TRUE(m.isOutY(std::sin(1.0)));
  plotOf(QStringLiteral("x"), QStringLiteral("0"), QStringLiteral("2.5"), 3);
  m.decimals = 0;
  m.autoscale(0);
  EXPECT_EQ(limits(1, 2), QStringList({"0", "2"}));
  EXPECT_EQ(limits(3, 4), QStringList({"0", "2"}));
  EXPECT_TRUE(m.isOutX(2.5));

  // A flat axis whose -1 and +1 format alike keeps the plain numbers apart.
  plotOf(QStringLiteral("20000"), QStringLiteral("0"), QStringLiteral("1"), 3);
  m.decimals = 0;
  m.autoscale(0);
  EXPECT_EQ(limits(3, 4), QStringList({"19999", "20001"}));
}

TEST_F(PlotModelTest, ScaleLeavesTheMarginsAndMapsTheDerivativeAxisOntoTheFrame) {
  plotOf(QStringLiteral("x"), QStringLiteral("0"), QStringLiteral("6"), 7);
  m.Text1 = {"-5", "0", "6", "-1", "1", "5"};
  m.applyScale();
  // 80 units free left and right, 70 above and below.
  EXPECT_DOUBLE_EQ((0 - m.ScaleLeft) / m.unitX, 80);
  EXPECT_DOUBLE_EQ((6 - m.ScaleLeft) / m.unitX, 680);
  EXPECT_DOUBLE_EQ((m.ScaleTop - 1) / m.unitY, 70);
  EXPECT_DOUBLE_EQ((m.ScaleTop + 1) / m.unitY, 450);
  EXPECT_DOUBLE_EQ(m.mapDerivative(5), 1);
  EXPECT_DOUBLE_EQ(m.mapDerivative(-5), -1);
  EXPECT_DOUBLE_EQ(m.mapDerivative(0), 0);
  // The mouse over the frame's corner reads the limits.
  m.Picture2_MouseMove(80, 450);
  EXPECT_EQ(m.Label1, QStringLiteral("x = 0\ny = -1"));
}

TEST_F(PlotModelTest, TypedLimitsAreRepairedOnEnterAndMenusMoveThem) {
  plotOf(QStringLiteral("x+2"), QStringLiteral("2"), QStringLiteral("5"), 4);
  m.Text1_GotFocus(1);
  EXPECT_EQ(m.Text2, Res(1749));
  m.Text1[1] = QStringLiteral("abc");
  m.Text1[3] = QStringLiteral("5");
  m.Text1[4] = QStringLiteral("5");
  m.Text1_Enter();
  EXPECT_EQ(limits(1, 3), QStringList({"0", "4"}));
  EXPECT_EQ(m.Text1[4], QStringLiteral("6"));

  // (0,0) forced, then back to the data.
  m.autoscale(0);
  EXPECT_EQ(m.Text1[1], QStringLiteral("2"));
  m.menucero1_Click();
  EXPECT_EQ(limits(1, 3), QStringList({"0", "0"}));
  EXPECT_EQ(m.Text1[4], QStringLiteral("7"));
  m.menucero1_Click();
  EXPECT_EQ(m.Text1[3], QStringLiteral("4"));

  // Bars stand on 0: the lower limit goes to 0, or, with a top of 0, the old bottom goes up.
  m.menubarras_Click();
  EXPECT_EQ(limits(3, 4), QStringList({"0", "7"}));
  m.menubarras_Click();
  plotData({1, 2, 3}, {-3, -1, -2});
  m.Text1[4] = QStringLiteral("0");
  m.menubarras_Click();
  EXPECT_EQ(limits(3, 4), QStringList({"0", "-3"}));
  m.menubarras_Click();
  EXPECT_EQ(limits(3, 4), QStringList({"-3", "-1"}));
}

TEST_F(PlotModelTest, AsymptoteRuleLeavesThePolesOfTanUnjoined) {
  plotOf(QStringLiteral("tan(x)"), QStringLiteral("-3"), QStringLiteral("3"), 200);
  // Y limits typed one unit beyond the rounded extremes, so the points by the poles are inside.
  for (size_t i : {size_t{3}, size_t{4}}) m.Text1[i] = QString::number(m.Text1[i].toDouble() + (i == 3 ? -1 : 1));
  m.Text1_Enter();
  const std::uint32_t curve = m.colour(PlotModel::kCurveF);
  auto polesCrossed = [&] {
    RecordingCanvas c(plot::PlotCanvas::Target::Screen);
    m.drawPlot(c);
    int crossed = 0;
    for (const auto& s : c.lines) {
      if (s.colour != curve) continue;
      for (double pole : {-M_PI / 2, M_PI / 2}) {
        if ((s.x1 - pole) * (s.x2 - pole) < 0) ++crossed;
      }
    }
    return crossed;
  };
  EXPECT_EQ(polesCrossed(), 0);
  m.NoUnirPolos_Click();
  EXPECT_EQ(polesCrossed(), 2);

  // A steep but smooth curve stays joined: x^9 on -2..2 goes through the whole span.
  m.NoUnirPolos_Click();
  plotOf(QStringLiteral("x^9"), QStringLiteral("-2"), QStringLiteral("2"), 40);
  m.leyenda_Click();  // its sample line is in the curve's colour
  RecordingCanvas c(plot::PlotCanvas::Target::Screen);
  m.drawPlot(c);
  int joined = 0;
  for (const auto& s : c.lines) joined += s.colour == curve;
  EXPECT_EQ(joined, 39);  // every neighbouring pair
}

TEST_F(PlotModelTest, PrinterGetsTheScreenPictureWithTheLimitNumbers) {
  plotOf(QStringLiteral("x*x-1"), QStringLiteral("-2"), QStringLiteral("2"), 41);
  m.menureja_Click();
  RecordingCanvas screen(plot::PlotCanvas::Target::Screen), printer(plot::PlotCanvas::Target::Printer);
  m.drawPlot(screen);
  m.drawPlot(printer);
  EXPECT_EQ(screen.lines, printer.lines);
  // The boxes are not on paper: their numbers are printed instead.
  for (const QString& n : {QStringLiteral("-2"), QStringLiteral("2"), QStringLiteral("-1"), QStringLiteral("3")}) {
    EXPECT_TRUE(printer.texts.contains(n)) << n.toStdString();
  }
  EXPECT_GT(printer.texts.size(), screen.texts.size());
  // Semicolour: every line black.
  m.printcolor_Click(0);
  RecordingCanvas semi(plot::PlotCanvas::Target::Printer);
  m.drawPlot(semi);
  ASSERT_EQ(semi.lines.size(), screen.lines.size());
  for (const auto& s : semi.lines) EXPECT_EQ(s.colour, 0u);
}

TEST_F(PlotModelTest, DerivativeNeedsOneMorePointThanItsOrderAndHidesG) {
  plotOf(QStringLiteral("x"), QStringLiteral("0"), QStringLiteral("1"), 3);
  m.menumderiv_Click(3);
  EXPECT_EQ(lastMessage(), QStringLiteral("No se puede mostrar la 3ª Derivada. La Función debe contener al menos 4 Puntos."));
  EXPECT_EQ(messages.shown().back().title, QStringLiteral("Calvix Premium  -  VelozPlot"));
  EXPECT_FALSE(m.menumderiv[3]);
  EXPECT_FALSE(m.DerivON);

  plotOf(QStringLiteral("x*x*x"), QStringLiteral("0"), QStringLiteral("2"), 21);
  m.integralGRAF = true;
  m.menumderiv_Click(1);
  EXPECT_TRUE(m.DerivON);
  EXPECT_FALSE(m.integralGRAF);
  EXPECT_FALSE(m.mostrarGx);
  EXPECT_TRUE(m.Text1Visible[0] && m.Text1Visible[5]);
  EXPECT_EQ(m.derivativeLabel, QStringLiteral("F'(x)"));
  // The derivative axis: forward differences of x³ from 0.01 to 11.41.
  EXPECT_EQ(limits(0, 5), QStringList({"0", "11.4"}));
  m.Picture2_MouseMove(80, 70);
  EXPECT_TRUE(m.Label1.endsWith(QStringLiteral("\ny' = 11.4"))) << m.Label1.toStdString();
  m.menumderiv_Click(1);
  EXPECT_FALSE(m.DerivON);
  EXPECT_FALSE(m.Text1Visible[0]);
}

TEST_F(PlotModelTest, ExtremaAndZerosListsFollowTheDataAndRefuseShortCurves) {
  plotOf(QStringLiteral("sin(x)"), QStringLiteral("0"), QStringLiteral("6.28"), 100);
  m.MaxyMin1_Click(0);
  ASSERT_TRUE(m.Picture1Visible);
  EXPECT_EQ(m.Label4, QStringLiteral("Función F(x) - Posibles Máximos y Mínimos - Nivel 1"));
  EXPECT_EQ(m.list.headings, QStringList({"X Max", "Y Max", "X min", "Y min"}));
  ASSERT_EQ(m.list.rows.size(), 2);
  EXPECT_NEAR(m.list.rows[0][0].toDouble(), 1.5708, 0.04);
  EXPECT_EQ(m.list.rows[1][0], QStringLiteral("6.28"));
  EXPECT_EQ(m.list.rows[0][2], QStringLiteral("0"));
  EXPECT_NEAR(m.list.rows[1][2].toDouble(), 4.7124, 0.04);
  // Each extremum is marked on the picture.
  RecordingCanvas c(plot::PlotCanvas::Target::Screen);
  m.drawPlot(c);
  EXPECT_EQ(c.circles.size(), 4u);

  // Zeros replace the extrema; a redraw recomputes the list from the table.
  m.cerosfunc1_Click(0);
  EXPECT_FALSE(m.MaxyMin1[0]);
  EXPECT_EQ(m.Label4, QStringLiteral("Posibles Ceros  -  Función F(x)"));
  ASSERT_EQ(m.list.rows.size(), 2);  // 0 and near pi
  EXPECT_EQ(m.list.rows[1][0], t.TextMatrix(51, 0));
  // An exact 0 typed next to the crossing: named by the change of sign and by itself.
  t.MSFlexGrid1.setNumber(50, 1, 0);
  m.Command2_Click();
  ASSERT_EQ(m.list.rows.size(), 3);
  EXPECT_EQ(m.list.rows[1], QStringList({t.TextMatrix(50, 0), QStringLiteral("0")}));
  EXPECT_EQ(m.list.rows[2], m.list.rows[1]);

  // G(x) without a G column, and a too short derivative, are refused with the curve named.
  m.MaxyMin1_Click(2);
  EXPECT_EQ(lastMessage(), Res(2207) + QStringLiteral(" ") + Res(1782) + QStringLiteral(" Función G(x)."));
  EXPECT_FALSE(m.Picture1Visible);
  EXPECT_FALSE(m.MaxyMin1[2]);
  plotData({0, 1, 2}, {1, 2, 1});
  m.menumderiv_Click(1);
  m.cerosfunc1_Click(1);
  EXPECT_TRUE(m.Picture1Visible);  // F' has 2 points, enough for zeros
  m.MaxyMin1_Click(1);
  EXPECT_EQ(lastMessage(), Res(2207) + QStringLiteral(" ") + Res(1782) + QStringLiteral(" 1ª Derivada de F(x)."));
}

TEST_F(PlotModelTest, DeeperVoteOnNoisyDataListsFewerExtrema) {
  std::vector<double> x, y;
  for (int i = 0; i < 60; ++i) {
    x.push_back(i);
    y.push_back(std::sin(i / 6.0) + ((i * 7919) % 13 - 6) / 60.0);
  }
  plotData(x, y);
  m.MaxyMin1_Click(0);
  const qsizetype shallow = m.list.rows.size();
  m.MymNivel_Click(4);
  EXPECT_EQ(m.Label4.right(7), QStringLiteral("Nivel 4"));
  EXPECT_LT(m.list.rows.size(), shallow);
}

TEST_F(PlotModelTest, GraphicIntegralReadoutAndItsChecks) {
  plotOf(QStringLiteral("x"), QStringLiteral("-1"), QStringLiteral("1"), 21);
  m.integRange_Click();
  EXPECT_TRUE(m.Picture5Visible);
  EXPECT_EQ(m.Text5[0], QStringLiteral("-1"));
  m.Command15_Click();
  ASSERT_TRUE(m.integralGRAF);
  QStringList readout = m.integralReadout();
  ASSERT_EQ(readout.size(), 3);
  EXPECT_TRUE(readout[0].startsWith(QStringLiteral("Integral = "))) << readout[0].toStdString();
  EXPECT_EQ(readout[1], QStringLiteral("Área + = 0.5    - = -0.5"));
  EXPECT_EQ(readout[2], QStringLiteral("aprox.  (21 Puntos)"));
  RecordingCanvas c(plot::PlotCanvas::Target::Screen);
  m.drawPlot(c);
  EXPECT_EQ(c.boxes, 20 + 2);  // the steps, and the legend's box twice
  EXPECT_TRUE(c.texts.contains(readout[1]));

  // Outside the picture, then one row only.
  m.Text5 = {QStringLiteral("-3"), QStringLiteral("0")};
  m.Command15_Click();
  EXPECT_TRUE(lastMessage().endsWith(Res(2200)));
  m.Text5 = {QStringLiteral("0.05"), QStringLiteral("0.15")};
  m.Command15_Click();
  EXPECT_TRUE(lastMessage().endsWith(Res(2206)));
  EXPECT_FALSE(m.integralGRAF);
  m.Text5 = {QStringLiteral("0.01"), QStringLiteral("0.09")};
  m.Command15_Click();
  EXPECT_TRUE(lastMessage().endsWith(Res(2205)));

  // The constant 1 with the baseline correction integrates to 0.
  plotOf(QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("4"), 9);
  m.integRange_Click();
  m.Command13_Click();
  m.Icorrection_Click();
  EXPECT_TRUE(m.integralReadout().value(0).startsWith(QStringLiteral("Integral Corr. = 0   X Ini = 0   X Fin = 4")))
      << m.integralReadout().value(0).toStdString();
}

TEST_F(PlotModelTest, TheoreticalIntegralMessageGivesTheThreeRulesAndTheNote) {
  plotOf(QStringLiteral("x*x"), QStringLiteral("0"), QStringLiteral("2"), 5);
  m.integralTEO_Click();
  const QStringList lines = lastMessage().split(QLatin1Char('\n'));
  EXPECT_EQ(messages.shown().back().title, QStringLiteral("Calvix  -  VelozPlot  -  ") + Res(1765));
  EXPECT_TRUE(lines.contains(Res(1767) + QStringLiteral(" = 5")));
  EXPECT_TRUE(lines.contains(Res(1770) + QStringLiteral(" = 2.75")));
  EXPECT_TRUE(lines.contains(Res(1771) + QStringLiteral(" = 2.75")));
  EXPECT_TRUE(lines.contains(Res(1772) + QStringLiteral(" = 2.66666666666667")));
  EXPECT_TRUE(lines.last().startsWith(QStringLiteral("NOTA: Los datos aquí mostrados")));
}

TEST_F(PlotModelTest, GraphicCursorMovesByPointsAndStepsWithinTheTable) {
  plotOf(QStringLiteral("x"), QStringLiteral("1"), QStringLiteral("15"), 15);
  m.croscursor_Click(0);
  EXPECT_EQ(m.FuncCursor, 1);
  EXPECT_EQ(m.Label1, QStringLiteral("x = 1\nYf = 1"));
  m.Form_KeyDown(Qt::Key_Right);
  m.Form_KeyDown(Qt::Key_PageUp);
  EXPECT_EQ(m.FuncCursor, 12);
  m.Form_KeyDown(Qt::Key_PageUp);  // past the end: refused
  EXPECT_EQ(m.FuncCursor, 12);
  messages.queueText(QStringLiteral("3"));
  m.crossincrem_Click();
  m.Form_KeyDown(Qt::Key_PageUp);
  EXPECT_EQ(m.FuncCursor, 15);
  double x = 0, y = 0;
  ASSERT_TRUE(m.cursorPoint(x, y));
  EXPECT_EQ(x, 15);
  m.croscursor_Click(0);
  EXPECT_EQ(m.FuncCursor, 0);
}

TEST_F(PlotModelTest, InnerTickNumbersKeepOnlyTheDecimalsTheSpacingNeeds) {
  plotData({-12000, 0.001}, {-1.002, 0});
  m.menuformatonumdec_Click(3);
  RecordingCanvas c(plot::PlotCanvas::Target::Image);
  m.drawPlot(c);
  EXPECT_TRUE(c.texts.contains(QStringLiteral("-4800"))) << c.texts.join(' ').toStdString();
  EXPECT_TRUE(c.texts.contains(QStringLiteral("-0.4")));
  EXPECT_TRUE(c.texts.contains(QStringLiteral("-1.200e+04")));  // the limits as the boxes write them
  EXPECT_TRUE(c.texts.contains(QStringLiteral("-1.002")));
}
