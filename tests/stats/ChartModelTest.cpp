// The chart model: choosing the data, kinds, the regression boxes, colours,
// statistic lines, scales and the readout.
#include "shell/Platform.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"
#include "shell/StatisticsStore.h"
#include "stats/ChartModel.h"
#include "tests/support/TestSupport.h"

#include <cmath>

namespace {

class ChartModelTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    setPlatform(&recorder);
    model.Form_Load();
  }
  void TearDown() override {
    setPlatform(nullptr);
    CalvixTest::TearDown();
  }
  void load(std::vector<double> x, std::vector<double> y, int regType = 0) {
    StatisticsStore& s = program().stats;
    s.clearAll();
    for (double v : x) s.add(0, v);
    for (double v : y) s.add(1, v);
    model.loadStore(s, regType);
  }
  int soundsPlayed() const {
    int n = 0;
    for (const QString& c : recorder.calls) n += c.startsWith(QStringLiteral("playSound")) ? 1 : 0;
    return n;
  }
  RecordingPlatform recorder;
  ChartModel model;
};

struct ChoiceRow {
  const char* name;
  std::vector<double> x, y;
  int index;
  const char* label;  // empty: accepted
};

TEST_F(ChartModelTest, RefusedChoicesSayWhyPlayTheSoundAndChangeNothingElse) {
  const ChoiceRow rows[] = {
      {"xy counts differ", {1, 2, 3}, {1, 2}, 0, "Error Gráfico XY: El número de datos X e Y no coinciden"},
      {"xy none", {}, {}, 0, "Error Gráfico XY: No se ha introducido ninguna pareja de datos XY"},
      {"xy one pair", {1}, {2}, 0, "Error Gráfico XY: Solo se ha introducido una pareja de datos XY"},
      {"x none", {}, {4}, 1, "Error Gráfico X: No se ha introducido ningún dato X"},
      {"y none", {4}, {}, 2, "Error Gráfico Y: No se ha introducido ningún dato Y"},
      {"xy two pairs", {1, 2}, {3, 4}, 0, ""},
      {"x alone", {5}, {}, 1, ""},
      {"y alone", {}, {5, 6}, 2, ""},
  };
  for (const ChoiceRow& r : rows) {
    load(r.x, r.y);
    model.tipo_Click(kBar2D);
    model.excluded = {false, false};
    recorder.calls.clear();
    const bool ok = model.seriesdata_Click(r.index);
    const bool refused = *r.label != '\0';
    EXPECT_EQ(ok, !refused) << r.name;
    EXPECT_EQ(soundsPlayed(), refused ? 1 : 0) << r.name;
    if (refused) {
      EXPECT_EQ(model.Label1, QString::fromUtf8(r.label)) << r.name;
      EXPECT_EQ(model.tipo, kBar2D) << r.name;
      EXPECT_EQ(model.includedNames(), (QStringList{QStringLiteral("X"), QStringLiteral("Y")})) << r.name;
    }
  }
}

TEST_F(ChartModelTest, PairsTakeTheXYKindAndOneSeriesLeavesIt) {
  load({1, 2, 3}, {2, 4, 6});
  ASSERT_TRUE(model.seriesdata_Click(0));
  EXPECT_EQ(model.tipo, kXY2D);
  EXPECT_EQ(model.Label1, QStringLiteral("XY 2D  -  "));
  EXPECT_TRUE(model.pairsShown());
  ASSERT_TRUE(model.seriesdata_Click(2));
  EXPECT_EQ(model.includedNames(), QStringList{QStringLiteral("Y")});
  EXPECT_EQ(model.tipo, kLine2D);
  model.tipo_Click(kXY2D);  // off for one series
  EXPECT_EQ(model.tipo, kLine2D);
  model.tipo_Click(kStep3D);
  EXPECT_EQ(model.Label1, QStringLiteral("Pasos 3D  -  "));
  model.tipo_Click(8);  // the separator is no kind
  EXPECT_EQ(model.tipo, kStep3D);
  ASSERT_TRUE(model.seriesdata_Click(1));
  EXPECT_EQ(model.tipo, kStep3D);  // a kind other than XY stays
}

TEST_F(ChartModelTest, EveryThreeDKindFallsBackToItsFlatKind) {
  const std::pair<int, int> pairs[] = {{kArea3D, kArea2D}, {kBar3D, kBar2D}, {kCombined3D, kCombined2D},
                                       {kLine3D, kLine2D}, {kStep3D, kStep2D}};
  load({1, 2}, {3, 4});
  for (const auto& [three, two] : pairs) {
    model.tipo_Click(three);
    model.fallBackTo2D();
    EXPECT_EQ(model.tipo, two);
    EXPECT_TRUE(model.Label1.startsWith(Res(kindCaptionId(two)))) << three;
  }
}

TEST_F(ChartModelTest, RegressionBoxesShowTheStoreRegressionInTheSystemNumberForm) {
  load({1, 2, 3}, {3, 5, 7});
  EXPECT_EQ(model.Text1, (std::array<QString, 3>{QStringLiteral("a = 2"), QStringLiteral("b = 1"),
                                                   QStringLiteral("r\u00B2 = 1")}));
  useComma();
  load({1, 2, 4}, {3, 12, 48}, 1);  // potential: y = 3 * x^2
  EXPECT_NEAR(rt::TextToDouble(model.Text1[0].mid(4)), 2.0, 1e-9);
  EXPECT_NEAR(rt::TextToDouble(model.Text1[1].mid(4)), 3.0, 1e-9);
  load({1, 2}, {1.5, 2.5});
  EXPECT_EQ(model.Text1[1], QStringLiteral("b = 0,5"));
  load({1, 2, 3}, {1, 2});  // no pairs: bare captions
  EXPECT_EQ(model.Text1[0], QStringLiteral("a = "));
  load({0, 1, 2}, {1, 2, 3}, 1);  // a pair the potential model drops is dropped without asking
  EXPECT_TRUE(messages.shown().empty());
}

TEST(ChartColours, SplitsRedGreenBlueFromTheLowByteUp) {
  const struct {
    double value;
    int r, g, b;
  } rows[] = {{255, 255, 0, 0}, {65280, 0, 255, 0}, {16711680, 0, 0, 255}, {0x123456, 0x56, 0x34, 0x12}, {0, 0, 0, 0}};
  for (const auto& row : rows) {
    const ColourParts p = colourParts(row.value);
    EXPECT_EQ(p.red, row.r) << row.value;
    EXPECT_EQ(p.green, row.g) << row.value;
    EXPECT_EQ(p.blue, row.b) << row.value;
  }
}

TEST(ChartStatistics, LinesOverValuesAgainstPositionsOrX) {
  const SeriesStatistics s = seriesStatistics({2, 4, 6, 8}, nullptr);
  EXPECT_EQ(s.min, 2);
  EXPECT_EQ(s.max, 8);
  EXPECT_EQ(s.mean, 5);
  EXPECT_DOUBLE_EQ(s.deviation, std::sqrt(5.0));
  EXPECT_DOUBLE_EQ(s.slope, 2);
  EXPECT_DOUBLE_EQ(s.intercept, 0);
  const std::vector<double> x{10, 20, 30, 40};
  const SeriesStatistics t = seriesStatistics({2, 4, 6, 8}, &x);
  EXPECT_DOUBLE_EQ(t.slope, 0.2);
  EXPECT_FALSE(seriesStatistics({3}, nullptr).lineValid);
}

TEST_F(ChartModelTest, StatisticTicksToggleAndNoneClearsAll) {
  load({1, 5, 3}, {});
  model.seriesdata_Click(1);
  model.estadix_Click(ChartModel::StatMax);
  model.estadix_Click(ChartModel::StatMean);
  EXPECT_EQ(model.statisticLevels(0), (QList<QPair<int, double>>{{ChartModel::StatMax, 5.0}, {ChartModel::StatMean, 3.0}}));
  model.estadix_Click(ChartModel::StatMax);
  EXPECT_EQ(model.statisticLevels(0).size(), 1);
  model.estadix_Click(0);
  EXPECT_TRUE(model.statisticLevels(0).isEmpty());
}

TEST_F(ChartModelTest, ScalesRefuseLogarithmsOfNonPositiveValuesAndTakeManualLimits) {
  load({1, 2, 3}, {-1, 2, 3});
  model.seriesdata_Click(0);
  model.escalatipo_Click(1, ChartModel::Logarithmic);
  EXPECT_EQ(model.axis[1].type, ChartModel::Linear);
  EXPECT_EQ(model.Label1, Res(3422));
  model.escalatipo_Click(0, ChartModel::Logarithmic);  // the X values are positive
  EXPECT_EQ(model.axis[0].type, ChartModel::Logarithmic);

  messages.queueText(QStringLiteral("-5"));
  messages.queueText(QStringLiteral("12.5"));
  model.manualesc_Click(1);
  double low = 0, high = 0;
  model.valueRange(low, high);
  EXPECT_EQ(low, -5);
  EXPECT_EQ(high, 12.5);
  messages.queueText(QStringLiteral("9"));
  messages.queueText(QStringLiteral("2"));
  model.manualesc_Click(1);  // out of order: kept as it was
  EXPECT_EQ(model.axis[1].max, 12.5);
  model.autoesc_Click(1);
  model.valueRange(low, high);
  EXPECT_EQ(low, -1);
  EXPECT_EQ(high, 3);
}

TEST_F(ChartModelTest, ReadoutNamesSeriesIndexAndValue) {
  useComma();
  ChartData data;
  data.x = {100, 250.5};
  data.y = {3, 4};
  data.xName = QStringLiteral("Capital");
  data.series = 1;
  data.kind = kBar2D;
  model.loadData(data);
  EXPECT_EQ(model.tipo, kBar2D);
  model.pointClicked(0, 2);
  EXPECT_EQ(model.Label1, QStringLiteral("Capital  -  2  -  250,5"));
  model.pointClicked(0, 3);  // no such point
  EXPECT_EQ(model.Label1, QStringLiteral("Capital  -  2  -  250,5"));
}

TEST_F(ChartModelTest, AnEmptyStoreIsRefusedBeforeTheWindowOpens) {
  EXPECT_FALSE(chartStoreAllowed(program().stats));
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].title, Res(3423));
  program().stats.add(1, 2);
  EXPECT_TRUE(chartStoreAllowed(program().stats));
}

}  // namespace
