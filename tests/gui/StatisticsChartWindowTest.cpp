// The chart window: its controls, the menus reaching the model, the hand-over
// from other modules, the readout, the 3D fall-back, printing, and a picture
// that is not blank for every kind with 1, 2 and 6000 points.
#include <QAction>
#include <QChart>
#include <QChartView>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QTemporaryDir>
#include <QRegularExpression>
#include <QTest>
#include <QXYSeries>
#include <set>

#include "calc/CalculatorWindow.h"
#include "shell/ChartWindowRequest.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "stats/ChartDrawingView.h"
#include "stats/StatisticsChartWindow.h"
#include "tests/support/GuiTestSupport.h"

namespace {

ChartData sample(int n, int series) {
  ChartData d;
  for (int i = 1; i <= n; ++i) {
    d.x.push_back(i * 0.5);
    d.y.push_back(3.0 + i % 17 + i * 0.01);
  }
  d.series = series;
  d.regressionType = 0;
  return d;
}

// Not blank: some pixels differ from the corner colour, in more than one colour.
bool drawn(const QImage& image) {
  const QRgb background = image.pixel(0, 0);
  std::set<QRgb> colours;
  int different = 0;
  for (int y = 0; y < image.height(); y += 2) {
    for (int x = 0; x < image.width(); x += 2) {
      const QRgb p = image.pixel(x, y);
      if (p != background) ++different;
      if (colours.size() < 8) colours.insert(p);
    }
  }
  return different > image.width() * image.height() / 400 && colours.size() >= 3;
}

}  // namespace

class StatisticsChartWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    // Qt Charts warns of an axis it cannot scale (an empty chart opens so).
    QTest::failOnWarning(QRegularExpression(QStringLiteral("invalid range|NaN")));
  }

  void opensWithItsControlsAndFitsTheScreen() {
    StatisticsChartWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QVERIFY(w.findChild<QChartView*>(QStringLiteral("MSChart1")));
    QVERIFY(w.findChild<QLabel*>(QStringLiteral("Label1")));
    for (int i = 0; i < 3; ++i) QVERIFY(w.findChild<QLineEdit*>(QStringLiteral("Text1(%1)").arg(i)));
    QCOMPARE(w.windowTitle(), Res(3406));
    for (int lang = 0; lang < 4; ++lang) {
      setProgramLanguage(lang);
      StatisticsChartWindow l;
      l.showData(sample(12, 0));
      l.show();
      QVERIFY(QTest::qWaitForWindowExposed(&l));
      const QStringList problems = windowLayoutProblems(&l);
      QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    }
  }

  void menusReachTheModelAndTheBoxesShowTheRegression() {
    StatisticsChartWindow w;
    w.showData(sample(10, 0));
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("Text1(0)"))->text().left(4), QStringLiteral("a = "));
    QVERIFY(w.findChild<QLineEdit*>(QStringLiteral("Text1(0)"))->text().size() > 4);
    w.findChild<QAction*>(QStringLiteral("tipo(2)"))->trigger();
    QCOMPARE(w.model().tipo, 2);
    QCOMPARE(w.findChild<QLabel*>(QStringLiteral("Label1"))->text(), Res(3302) + QStringLiteral("  -  "));
    QVERIFY(w.findChild<QAction*>(QStringLiteral("tipo(2)"))->isChecked());
    w.findChild<QAction*>(QStringLiteral("seriesdata(2)"))->trigger();
    QVERIFY(!w.findChild<QAction*>(QStringLiteral("tipo(7)"))->isEnabled());
    w.findChild<QAction*>(QStringLiteral("estadiy(3)"))->trigger();
    QCOMPARE(w.model().statisticLevels(1).size(), 1);
  }

  void showChartOpensTheRegisteredWindowWithTheSeries() {
    registerWindowFactory(WindowId::StatisticsChart, [] { return new StatisticsChartWindow; });
    ChartData d = sample(3, 1);
    d.xName = QStringLiteral("Capital");
    d.title = QStringLiteral("Préstamo");
    showChart(d);
    auto* w = qobject_cast<StatisticsChartWindow*>(findWindow(WindowId::StatisticsChart));
    QVERIFY(w);
    QCOMPARE(w->model().X.size(), size_t(3));
    QCOMPARE(w->model().includedNames(), QStringList{QStringLiteral("X")});
    QVERIFY(w->windowTitle().endsWith(QStringLiteral("Préstamo")));

    // A click on a point reads it out.
    w->model().tipo_Click(4);
    w->refresh();
    QXYSeries* line = nullptr;
    for (QAbstractSeries* s : w->findChild<QChartView*>(QStringLiteral("MSChart1"))->chart()->series()) {
      if (auto* xy = qobject_cast<QXYSeries*>(s); xy && !xy->name().isEmpty()) line = xy;
    }
    QVERIFY(line);
    Q_EMIT line->clicked(QPointF(2.1, 0));
    QCOMPARE(w->findChild<QLabel*>(QStringLiteral("Label1"))->text(), QStringLiteral("Capital  -  2  -  1"));
    delete w;
    clearWindowRegistry();
  }

  // Offscreen there may be no OpenGL: a 3D kind then shows its 2D kind and
  // says so; with OpenGL the graph is shown. Never a crash.
  void threeDKindsDrawOrFallBack() {
    StatisticsChartWindow w;
    w.showData(sample(5, 0));
    w.findChild<QAction*>(QStringLiteral("tipo(10)"))->trigger();
    if (charts::openGLAvailable()) {
      QVERIFY(w.showing3D());
      QCOMPARE(w.model().tipo, 10);
    } else {
      QVERIFY(!w.showing3D());
      QCOMPARE(w.model().tipo, 2);
      QVERIFY(w.findChild<QLabel*>(QStringLiteral("Label1"))->text().endsWith(Res(3428)));
    }
  }

  void everyKindDrawsWithOneTwoAndManyPoints() {
    for (int n : {1, 2, 6000}) {
      for (int kind = 1; kind <= 13; ++kind) {
        if (!isChartKind(kind)) continue;
        ChartModel m;
        m.Form_Load();
        m.loadData(sample(n, n == 1 ? 1 : 0));
        m.tipo_Click(kind);
        const QImage image = charts::renderChart(m, QSize(400, 300));
        QVERIFY2(drawn(image), qPrintable(QStringLiteral("kind %1, %2 points").arg(kind).arg(n)));
      }
    }
  }

  // The calculator's graficoest refuses an empty store, else opens the chart
  // with the store's lists.
  void theCalculatorOpensTheChartWithItsStore() {
    registerWindowFactory(WindowId::StatisticsChart, [] { return new StatisticsChartWindow; });
    CalculatorWindow calculator;
    auto* graficoest = calculator.findChild<QAction*>(QStringLiteral("graficoest"));
    QVERIFY(graficoest);
    graficoest->trigger();
    QCOMPARE(guiMessages().shown().size(), size_t(1));
    QCOMPARE(guiMessages().shown().front().title, Res(3423));
    QVERIFY(!findWindow(WindowId::StatisticsChart));
    program().stats.add(0, 4);
    program().stats.add(0, 9);
    graficoest->trigger();
    auto* chart = qobject_cast<StatisticsChartWindow*>(findWindow(WindowId::StatisticsChart));
    QVERIFY(chart);
    QCOMPARE(chart->model().X, (std::vector<double>{4, 9}));
    QCOMPARE(chart->model().includedNames(), QStringList{QStringLiteral("X")});
    delete chart;
    clearWindowRegistry();
  }

  // Logarithmic and percent scales, stacked bars and every statistic line
  // draw in every 2D kind.
  void scalesAndOptionsDrawInEveryFlatKind() {
    for (int type : {int(ChartModel::Logarithmic), int(ChartModel::Percent)}) {
      for (int kind = 1; kind <= 7; ++kind) {
        ChartModel m;
        m.Form_Load();
        m.loadData(sample(30, 0));
        m.tipo_Click(kind);
        m.escalatipo_Click(1, type);
        m.apila_Click();
        for (int stat = 1; stat <= 5; ++stat) m.estadiy_Click(stat);
        QCOMPARE(m.axis[1].type, type);
        QVERIFY2(drawn(charts::renderChart(m, QSize(300, 200))), qPrintable(QStringLiteral("kind %1").arg(kind)));
      }
    }
  }

  void printsToPdf() {
    QTemporaryDir dir;
    StatisticsChartWindow w;
    w.showData(sample(20, 0));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(dir.filePath(QStringLiteral("chart.pdf")));
    QVERIFY(w.printTo(printer));
    QVERIFY(QFileInfo(dir.filePath(QStringLiteral("chart.pdf"))).size() > 1000);
  }
};

CALVIX_GUI_TEST_MAIN(StatisticsChartWindowTest)
#include "StatisticsChartWindowTest.moc"
