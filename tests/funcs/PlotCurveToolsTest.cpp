// The plot's derived curves through the model's handlers, over a real table:
// the smoothing prompts, proposals, limits, title suffix and the way back to
// column 1; the fit's list with the plot's a and b and the routine's
// refusal; the 61-point rule of the interpolation; the difference of
// ordinates and its messages; a smoothing in slices with the menus and the
// interval panel refused and Esc stopping it.
#include <cmath>

#include "funcs/FunctionTable.h"
#include "funcs/PlotModel.h"
#include "shell/Strings.h"
#include "tests/funcs/TableTestSupport.h"
#include "tests/support/TestSupport.h"

namespace {

class CountingCanvas : public plot::PlotCanvas {
 public:
  Target target() const override { return Target::Image; }
  int width() const override { return 760; }
  int height() const override { return 520; }
  void Cls(std::uint32_t) override {}
  void Line(double x1, double y1, double x2, double y2) override { lines.push_back({x1, y1, x2, y2}); }
  void Box(double, double, double, double, bool) override {}
  void PSet(double x, double y) override {
    if (ForeColor == watched) dots.push_back({x, y});
  }
  void Circle(double, double, double) override {}
  void Print(const QString& text) override { texts << text; }
  double TextWidth(const QString& text) override { return text.size() * 6.0 * std::fabs(ScaleWidth) / width(); }
  double TextHeight(const QString&) override { return 12.0 * std::fabs(ScaleHeight) / height(); }

  std::uint32_t watched = 0;
  std::vector<plot::Point> dots;
  std::vector<std::array<double, 4>> lines;
  QStringList texts;
};

}  // namespace

class PlotCurveToolsTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    openInRadians(t);
  }
  // Typed data, as edit mode leaves it: X = 1, 2, 3, ...
  void plotData(const std::vector<double>& y) {
    std::vector<double> x;
    for (size_t i = 0; i < y.size(); ++i) x.push_back(static_cast<double>(i) + 1);
    plotData(x, y);
  }
  void plotData(const std::vector<double>& x, const std::vector<double>& y) {
    t.MSFlexGrid1.setRowCount(static_cast<int>(x.size()) + 2);
    for (size_t i = 0; i < x.size(); ++i) {
      t.MSFlexGrid1.setNumber(static_cast<int>(i) + 1, 0, x[i]);
      t.MSFlexGrid1.setNumber(static_cast<int>(i) + 1, 1, y[i]);
    }
    program().pointCount = static_cast<int>(x.size());
    program().titleF = QStringLiteral("F(x) = data");
    m.Form_Resize(760, 520);
    m.Form_Load();
    messages.clear();
  }
  std::vector<double> ramp(int n) {
    std::vector<double> y;
    for (int i = 0; i < n; ++i) y.push_back(std::sin(i * 0.1) + (i % 3) * 0.2);
    return y;
  }
  void smooth(int method, const QString& answer) {
    messages.queueAnswer(answer);
    tools.suavePlot_Click(method);
  }
  QString lastMessage() const { return messages.shown().empty() ? QString() : messages.shown().back().text; }
  const MessageRequest& prompt() const { return messages.shown().front(); }

  FunctionTable t;
  PlotModel m{t};
  PlotCurveTools& tools = m.tools;
};

TEST_F(PlotCurveToolsTest, MethodAOnASpikeWritesColumn5AndTakesItsPlace) {
  plotData({0, 0, 3, 0, 0});
  smooth(0, QStringLiteral("1"));
  EXPECT_EQ(prompt().defaultText, QStringLiteral("2"));
  EXPECT_EQ(prompt().title, QStringLiteral("Calvix  -  VelozPlot  -  Suavizado A"));
  EXPECT_EQ(t.TextMatrix(3, 5), QStringLiteral("1.33333333333333"));
  EXPECT_EQ(program().sourceColumn, 5);
  EXPECT_EQ(m.fColumn(), 5);
  EXPECT_EQ(program().titleF, QStringLiteral("F(x) = data   (smooth A = 1)"));
  EXPECT_TRUE(tools.muestrafxOrigEnabled);
  EXPECT_FALSE(tools.running());
  // Derivatives and scale follow column 5.
  EXPECT_EQ(t.TextMatrix(1, 2), QStringLiteral("1"));
  EXPECT_EQ(m.Text1[4], QStringLiteral("1.3"));
}

TEST_F(PlotCurveToolsTest, MethodBRaisesAnOddNAfterTheLimitAndProposesTwoPercent) {
  plotData(ramp(10));
  smooth(1, QStringLiteral("3"));
  EXPECT_TRUE(prompt().text.contains(QStringLiteral(" 5).")));
  EXPECT_EQ(prompt().defaultText, QStringLiteral("2"));
  EXPECT_TRUE(program().titleF.endsWith(QStringLiteral("   (smooth B = 4)")));
  // At the limit: 5 is taken, then raised to 6.
  smooth(1, QStringLiteral("5"));  // toggles off
  smooth(1, QStringLiteral("5"));
  EXPECT_TRUE(program().titleF.endsWith(QStringLiteral("(smooth B = 6)")));

  const struct {
    int points;
    const char* proposal;
  } proposals[] = {{100, "2"}, {1000, "20"}, {149, "2"}, {150, "3"}};
  for (const auto& p : proposals) {
    plotData(ramp(p.points));
    messages.queueButton(1);
    tools.suavePlot_Click(1);
    EXPECT_EQ(prompt().defaultText, QString::fromLatin1(p.proposal)) << p.points;
    EXPECT_EQ(tools.smoothingMethod(), -1);  // cancelled
  }
}

TEST_F(PlotCurveToolsTest, SmoothingRefusalsShowTheirMessagesAndLeaveColumn1) {
  const struct {
    const char* name;
    int method, points;
    const char* answer;
    int messageId;
    const char* tail;
  } rows[] = {
      {"too few for A", 0, 4, nullptr, 1785, "5 parejas"},
      {"too few for B", 1, 9, nullptr, 1785, "10 parejas"},
      {"A below 1", 0, 20, "0", 2203, ""},
      {"A above 10000", 0, 20, "10001", 2203, ""},
      {"decimal point", 0, 20, "2.0", 2001, ""},
      {"decimal comma", 1, 20, "4,0", 2001, ""},
      {"not a number", 1, 20, "many", 2001, ""},
      {"B above half", 1, 10, "6", 2209, "2 y 5."},
      {"B below 2", 1, 10, "1", 2209, "2 y 5."},
  };
  for (const auto& r : rows) {
    plotData(ramp(r.points));
    if (r.answer) messages.queueAnswer(QString::fromLatin1(r.answer));
    tools.suavePlot_Click(r.method);
    const QString text = lastMessage();
    EXPECT_TRUE(text.contains(Res(r.messageId).trimmed())) << r.name << ": " << text.toStdString();
    EXPECT_TRUE(text.contains(QString::fromUtf8(r.tail))) << r.name << ": " << text.toStdString();
    EXPECT_EQ(tools.smoothingMethod(), -1) << r.name;
    EXPECT_EQ(program().sourceColumn, 1) << r.name;
    EXPECT_EQ(program().titleF, QStringLiteral("F(x) = data")) << r.name;
  }
}

TEST_F(PlotCurveToolsTest, ANewSmoothingReplacesTheSuffixAndTurningOffRestoresColumn1) {
  plotData(ramp(40));
  const QStringList original{m.Text1[3], m.Text1[4]};
  const QString derivative = t.TextMatrix(1, 2);
  smooth(0, QStringLiteral("30"));
  ASSERT_NE(QStringList({m.Text1[3], m.Text1[4]}), original);
  smooth(1, QStringLiteral("4"));
  EXPECT_EQ(program().titleF, QStringLiteral("F(x) = data   (smooth B = 4)"));
  EXPECT_EQ(m.suavePlot, (std::array<bool, 2>{false, true}));
  tools.muestrafxOrig_Click();
  EXPECT_TRUE(m.muestrafxOrig);

  tools.suavePlot_Click(1);  // off
  EXPECT_EQ(program().titleF, QStringLiteral("F(x) = data"));
  EXPECT_EQ(program().sourceColumn, 1);
  EXPECT_FALSE(m.muestrafxOrig);
  EXPECT_FALSE(tools.muestrafxOrigEnabled);
  EXPECT_EQ(QStringList({m.Text1[3], m.Text1[4]}), original);
  EXPECT_EQ(t.TextMatrix(1, 2), derivative);
  EXPECT_TRUE(t.TextMatrix(1, 5).isEmpty());
  tools.muestrafxOrig_Click();  // disabled now
  EXPECT_FALSE(m.muestrafxOrig);
}

TEST_F(PlotCurveToolsTest, RegressionListNamesAAndBTheWayThePlotDrawsThem) {
  // y = 1 + 2x exactly: the statistics routine would call 2 its a.
  plotData({1, 2, 3, 4}, {3, 5, 7, 9});
  m.MaxyMin1_Click(0);
  messages.clear();
  tools.PlotRegression_Click(0);
  EXPECT_EQ(m.PlotRegression, (std::array<bool, 3>{true, false, false}));
  EXPECT_EQ(m.MaxyMin1, (std::array<bool, 3>{}));
  EXPECT_TRUE(m.Picture1Visible);
  EXPECT_EQ(m.Label4, QStringLiteral("F(x)  -  Regresión  - Lineal"));
  ASSERT_EQ(m.list.rows.size(), 4);
  EXPECT_EQ(m.list.rows[0], QStringList({"a", "1"}));
  EXPECT_EQ(m.list.rows[1], QStringList({"b", "2"}));
  EXPECT_EQ(m.list.rows[2], QStringList({"r²", "1"}));
  EXPECT_EQ(m.list.rows[3][1], QStringLiteral("4"));

  // The curve: 301 points at most, in the fit's colour, on y = 1 + 2x.
  CountingCanvas c;
  c.watched = m.colour(PlotModel::kRegression);
  m.drawPlot(c);
  ASSERT_FALSE(c.dots.empty());
  EXPECT_LE(c.dots.size(), 301u);
  for (const plot::Point& p : c.dots) EXPECT_NEAR(p.y, 1 + 2 * p.x, 1e-9);

  // Another item takes over; clicking it again hides the list.
  tools.PlotRegression_Click(2);
  EXPECT_EQ(m.PlotRegression, (std::array<bool, 3>{false, false, true}));
  EXPECT_EQ(m.Label4, QStringLiteral("F(x)  -  Regresión  - Exponencial"));
  tools.PlotRegression_Click(2);
  EXPECT_EQ(tools.fitKind(), -1);
  EXPECT_FALSE(m.Picture1Visible);
  // Over a smoothing the caption says so.
  plotData(ramp(12));
  smooth(0, QStringLiteral("2"));
  tools.PlotRegression_Click(0);
  EXPECT_TRUE(m.Label4.startsWith(QStringLiteral("Smooth F(x)  -  ")));
}

TEST_F(PlotCurveToolsTest, PowerFitOnAZeroXIsRefusedWhenTheUserDeclines) {
  plotData({0, 1, 2, 3, 4, 5}, {1, 2, 4, 6, 8, 10});
  messages.queueButton(1);
  tools.PlotRegression_Click(1);
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_TRUE(messages.shown()[0].text.contains(Res(2095)));
  EXPECT_TRUE(lastMessage().contains(Res(2051)));
  EXPECT_EQ(tools.fitKind(), -1);
  EXPECT_FALSE(m.Picture1Visible);
  // Accepted: the other five pairs.
  messages.queueButton(0);
  tools.PlotRegression_Click(1);
  EXPECT_EQ(tools.fitKind(), 1);
  EXPECT_EQ(tools.fit.points, 5);
}

TEST_F(PlotCurveToolsTest, LagrangeRunsFromTheLimitsAndNotFrom61Points) {
  plotData({1, 2, 3, 4, 5}, {1, 4, 9, 16, 25});
  smooth(0, QStringLiteral("1"));
  tools.menuIPLA_Click();
  EXPECT_TRUE(t.menuIPLA);
  EXPECT_EQ(tools.smoothingMethod(), -1);  // smoothing switched off
  EXPECT_EQ(program().sourceColumn, 1);
  const std::vector<plot::Point> p = tools.interpolation();
  ASSERT_EQ(p.size(), 301u);
  EXPECT_EQ(p.front().x, m.limit(1));
  EXPECT_EQ(p.back().x, m.limit(2));
  for (const plot::Point& q : p) EXPECT_NEAR(q.y, q.x * q.x, 1e-9);

  std::vector<double> y(61, 1.0);
  plotData(y);
  t.menuIPLA = false;
  tools.menuIPLA_Click();
  EXPECT_TRUE(t.menuIPLA);  // the tick stays
  EXPECT_TRUE(tools.interpolation().empty());
  CountingCanvas c;
  c.watched = m.colour(PlotModel::kInterpolation);
  m.drawPlot(c);
  EXPECT_TRUE(c.dots.empty());
}

TEST_F(PlotCurveToolsTest, DifferenceOfOrdinatesUsesTheFirstAndLastRowsOfTheInterval) {
  plotData({1, 2, 3, 4, 5, 6}, {10, 12, 15, 19, 24, 30});
  EXPECT_EQ(tools.DiffOrd[0], QStringLiteral("No Existe"));
  tools.DiffYs_Click();
  EXPECT_TRUE(m.Picture5Visible);
  EXPECT_EQ(m.Label12, Res(1754));
  m.Text5 = {QStringLiteral("1.5"), QStringLiteral("5.2")};
  m.Command15_Click();
  EXPECT_EQ(tools.DiffOrd[0], QStringLiteral("12"));  // rows 2 and 5: 24 - 12
  EXPECT_FALSE(m.integralGRAF);
  CountingCanvas c;
  m.drawPlot(c);
  EXPECT_TRUE(c.texts.contains(QStringLiteral(" 12")));

  const struct {
    const char* x1;
    const char* x2;
    int messageId;
  } refusals[] = {{"0", "5", 2200}, {"2", "9", 2201}, {"x", "5", 2200}, {"2.2", "2.8", 2205}};
  for (const auto& r : refusals) {
    m.Text5 = {QString::fromLatin1(r.x1), QString::fromLatin1(r.x2)};
    m.Command15_Click();
    EXPECT_TRUE(lastMessage().contains(Res(r.messageId))) << r.x1 << " " << r.x2;
    EXPECT_EQ(tools.DiffOrd[0], QStringLiteral("No Existe"));
  }
  // The same panel opened for the integral computes the integral again.
  m.integRange_Click();
  m.Text5 = {QStringLiteral("1"), QStringLiteral("6")};
  m.Command15_Click();
  EXPECT_TRUE(m.integralGRAF);
}

TEST_F(PlotCurveToolsTest, SmoothingInSlicesRefusesOtherMenusAndStopsOnEsc) {
  plotData(ramp(2000));
  tools.stepwise = true;
  smooth(0, QStringLiteral("50"));
  ASSERT_TRUE(tools.running());
  EXPECT_TRUE(tools.Command1Visible);
  EXPECT_EQ(tools.cancelNote, Res(1716));
  EXPECT_FALSE(tools.smoothingStep(500));
  EXPECT_GT(tools.progress(), 0);
  messages.clear();
  tools.PlotRegression_Click(0);
  tools.DiffYs_Click();
  m.integRange_Click();
  m.Command15_Click();  // the integral over a half-written column
  ASSERT_EQ(messages.shown().size(), 3u);
  EXPECT_TRUE(messages.shown()[1].text.contains(Res(2204)));
  EXPECT_TRUE(lastMessage().contains(Res(2202)));
  EXPECT_TRUE(lastMessage().contains(Res(2204)));
  EXPECT_EQ(tools.fitKind(), -1);
  EXPECT_FALSE(m.integralGRAF);

  EXPECT_TRUE(tools.Form_KeyDown(Qt::Key_Escape));
  EXPECT_FALSE(tools.running());
  EXPECT_EQ(tools.smoothingMethod(), -1);
  EXPECT_EQ(program().sourceColumn, 1);
  EXPECT_EQ(program().titleF, QStringLiteral("F(x) = data"));
  EXPECT_FALSE(tools.Form_KeyDown(Qt::Key_Escape));
}
