// The lottery window: its controls exist under their names, clicks on the
// board and the buttons reach the model, a bet is composed, selected,
// analysed (the report box opens), saved and opened again, and the window
// fits the screen.
#include <QAction>
#include <QDialog>
#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#include "lottery/DrawAnalysis.h"
#include "lottery/LotteryWindow.h"
#include "shell/ChartWindowRequest.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

class LotteryWindowTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<QTemporaryDir> appFolder_;
  template <typename T>
  static T* control(QWidget& w, const QString& name) {
    T* c = w.findChild<T*>(name);
    if (!c) qWarning("no control %s", qPrintable(name));
    return c;
  }
  static void show(LotteryWindow& w) {
    w.show();
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
  }
  static void click(LotteryWindow& w, const QString& name) {
    QTest::mouseClick(control<QPushButton>(w, name), Qt::LeftButton);
  }

 private Q_SLOTS:
  // Each test works in a folder of its own: the draw file and the *.lot
  // files it writes never land in the current directory.
  void init() {
    prepareGuiTest();
    appFolder_ = std::make_unique<QTemporaryDir>();
    program().AppFolder = rt::Variant(appFolder_->path() + QLatin1Char('/'));
  }
  void cleanup() { appFolder_.reset(); }

  void opensWithItsControlsAndFitsTheScreen() {
    LotteryWindow w;
    show(w);
    for (int i = 0; i < 49; ++i) QVERIFY(control<QPushButton>(w, QStringLiteral("Label10_%1").arg(i)));
    for (int i = 0; i < 7; ++i) QVERIFY(control<QPushButton>(w, QStringLiteral("Command1_%1").arg(i)));
    for (const char* name : {"Command9", "Command6"}) QVERIFY2(control<QPushButton>(w, QLatin1String(name)), name);
    for (const char* name : {"Label12", "Label11", "Label13", "Label14", "Label15", "Label17", "Label18", "Label19",
                             "Label7", "Label8"}) {
      QVERIFY2(control<QLabel>(w, QLatin1String(name)), name);
    }
    QVERIFY(control<QTableWidget>(w, QStringLiteral("MSFlexGrid1")));
    QCOMPARE(w.windowTitle(), QStringLiteral("Calvix Premium  -  Bolix"));
    QVERIFY(!control<QPushButton>(w, QStringLiteral("Command6"))->isEnabled());
    QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 800);
  }

  void composeSelectAnalyseSaveAndReopen() {
    QList<QStringList> rows;
    int line = 0;
    QVERIFY(parseDrawsCsv("06/01/2000,1,2,3,4,20,30,5,1,P\n", rows, line));
    QCOMPARE(storeDraws(program().AppFolder.toText() + QStringLiteral("cvxlp.dlj"), rows, false), 1);
    QDir(program().AppFolder.toText()).mkpath(QStringLiteral("datos"));
    const QString file = program().AppFolder.toText() + QStringLiteral("datos/bets.lot");

    LotteryWindow w;
    show(w);
    w.model().hooks.fileDialog = [&file](const LotteryModel::FileDialogRequest& r) {
      if (!r.folder.endsWith(QStringLiteral("datos/"))) return QString();
      return file;
    };
    control<QAction>(w, QStringLiteral("manualoto"))->trigger();
    for (int x : {1, 2, 3, 4, 5, 6, 7}) click(w, QStringLiteral("Label10_%1").arg(x - 1));
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label7"))->text(),
             QStringLiteral(" 1 Apuesta Múltiple equivale a 7 Apuestas Sencillas"));
    QVERIFY(control<QLabel>(w, QStringLiteral("Label12"))->toolTip().startsWith(Res(567) + QStringLiteral(":  1 / ")));
    click(w, QStringLiteral("Command9"));
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label8"))->text(), QStringLiteral("1"));

    QVERIFY(control<QPushButton>(w, QStringLiteral("Command6"))->isEnabled());
    click(w, QStringLiteral("Command6"));
    auto* report = w.findChild<QPlainTextEdit*>(QStringLiteral("informeLoto"));
    QVERIFY(report);
    QVERIFY(report->toPlainText().contains(QStringLiteral(" 4 aciertos: 1 veces.")));
    report->window()->close();

    control<QAction>(w, QStringLiteral("guardarloto"))->trigger();
    QVERIFY(QFile::exists(file));
    QVERIFY(!w.model().apuestasCambiadas);
    control<QAction>(w, QStringLiteral("borrapuestod"))->trigger();
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label8"))->text(), QStringLiteral("0"));
    control<QAction>(w, QStringLiteral("abrirloto"))->trigger();
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label8"))->text(), QStringLiteral("1"));
    control<QAction>(w, QStringLiteral("mostrarloto"))->trigger();
    auto* grid = control<QTableWidget>(w, QStringLiteral("MSFlexGrid1"));
    QVERIFY(grid->isVisible());
    QCOMPARE(grid->item(0, 8)->text(), QStringLiteral("7"));
  }

  void reductionAutomaticModeAndDatabaseViewerFromTheMenus() {
    QList<QStringList> rows;
    int line = 0;
    QVERIFY(parseDrawsCsv("06/01/2000,1,2,3,4,20,30,5,1,P\n07/01/2000,1,2,3,4,5,6,7,2,B\n", rows, line));
    QCOMPARE(storeDraws(program().AppFolder.toText() + QStringLiteral("cvxlp.dlj"), rows, false), 2);
    LotteryWindow w;
    show(w);
    control<QAction>(w, QStringLiteral("lotoReduc5_0"))->trigger();
    QCOMPARE(control<QPushButton>(w, QStringLiteral("Command9"))->text(), Res(611));
    QVERIFY(control<QPushButton>(w, QStringLiteral("Command11"))->isVisible());
    for (int x : {1, 2, 3, 4, 5, 6, 7, 8}) click(w, QStringLiteral("Label10_%1").arg(x - 1));
    click(w, QStringLiteral("Command9"));
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label8"))->text(), QStringLiteral("4"));
    click(w, QStringLiteral("Command11"));

    guiMessages().queueText(QStringLiteral("5"));
    control<QAction>(w, QStringLiteral("modoauto"))->trigger();
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label8"))->text(), QStringLiteral("9"));
    QVERIFY(control<QAction>(w, QStringLiteral("azarloto"))->isChecked());

    control<QAction>(w, QStringLiteral("mostrardbase"))->trigger();
    auto* draws = control<QTableView>(w, QStringLiteral("MSFlexGrid0"));
    QVERIFY(draws->isVisible());
    QCOMPARE(draws->model()->rowCount(), 1);  // Primitiva only
    auto* frequencies = control<QTableWidget>(w, QStringLiteral("MSFlexGrid2"));
    QCOMPARE(frequencies->rowCount(), 49);
    QCOMPARE(frequencies->item(0, 2)->text(), QStringLiteral("100.00"));
    QTest::mouseClick(draws->viewport(), Qt::LeftButton, {}, draws->visualRect(draws->model()->index(0, 3)).center());
    QVERIFY(control<QLabel>(w, QStringLiteral("Label9"))->text().startsWith(QStringLiteral("Primitiva. ")));
    control<QAction>(w, QStringLiteral("tipoloto_3"))->trigger();
    QCOMPARE(draws->model()->rowCount(), 2);

    // No chart window in this program: a plain message says so.
    guiMessages().clear();
    control<QAction>(w, QStringLiteral("lotoestmostrar31_0"))->trigger();
    QCOMPARE(guiMessages().shown().back().text, Res(686));
    control<QAction>(w, QStringLiteral("lotoestmostrar41_0_0"))->trigger();
    auto* report = w.findChild<QPlainTextEdit*>(QStringLiteral("informeLoto"));
    QVERIFY(report);
    QVERIFY(report->toPlainText().startsWith(Res(632) + QStringLiteral(" 2 ")));
  }

  void aFrequencyChartGoesToTheChartWindowWhenThereIsOne() {
    QList<QStringList> rows;
    int line = 0;
    QVERIFY(parseDrawsCsv("06/01/2000,1,2,3,4,20,30,5,1,P\n", rows, line));
    QCOMPARE(storeDraws(program().AppFolder.toText() + QStringLiteral("cvxlp.dlj"), rows, false), 1);
    static ChartData received;
    registerWindowFactory(WindowId::StatisticsChart, [] {
      auto* stand = new QWidget;
      setChartReceiver(stand, [](const ChartData& d) { received = d; });
      return stand;
    });
    LotteryWindow w;
    show(w);
    control<QAction>(w, QStringLiteral("lotoestmostrar31_3"))->trigger();
    QVERIFY(findWindow(WindowId::StatisticsChart));
    QCOMPARE(received.categories.size(), 10);
    QCOMPARE(received.categories.last(), QStringLiteral("9"));
    QCOMPARE(received.y.at(1), 1.0);  // reintegro 1
    QCOMPARE(received.series, 2);
    QVERIFY(received.title.startsWith(QStringLiteral("DataBase Loto: ")));
    QVERIFY(guiMessages().shown().empty());
    clearWindowRegistry();
  }

  void drawTypeMenuSetsTheTitle() {
    LotteryWindow w;
    show(w);
    control<QAction>(w, QStringLiteral("tipoloto_1"))->trigger();
    QCOMPARE(w.windowTitle(), QStringLiteral(" Calvix Premium  -  Bolix  -  Bonoloto"));
  }
};

QTEST_MAIN(LotteryWindowTest)
#include "LotteryWindowTest.moc"
