// The plot window's derived curves: the menu items under their names reach
// the model and show its ticks, the fit's list appears over the picture, and
// a smoothing works in slices under the event loop with the cancel button
// shown, other menus refused and Esc stopping it.
#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "funcs/FunctionTable.h"
#include "funcs/PlotWindow.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/funcs/TableTestSupport.h"
#include "tests/support/GuiTestSupport.h"

class PlotCurvesWindowTest : public QObject {
  Q_OBJECT

 private:
  // The window shown on a table of F over 0..10.
  void open(PlotWindow& w, const QString& f, int points) {
    w.resize(820, 600);
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
    FunctionTable& t = w.model().table();
    openInRadians(t);
    if (points <= 200) {
      tabulateAtOnce(t, f, QStringLiteral("0"), QStringLiteral("10"), points);
    } else {
      // More points than the list offers: by increment.
      t.txtExpression = f;
      t.Option1_Click(1);
      t.Text1 = QString::number(10.0 / (points - 1));
      t.stepwise = false;
      t.cmdResult_Click();
    }
    w.model().Form_Load();
    w.refresh();
  }
  QAction* action(PlotWindow& w, const char* name) { return w.findChild<QAction*>(QLatin1String(name)); }

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void menusReachTheModelAndShowItsTicks() {
    PlotWindow w;
    open(w, QStringLiteral("1+2*x"), 11);
    for (const char* name : {"PlotRegression_0", "PlotRegression_1", "PlotRegression_2", "menuIPLA", "suavePlot_0",
                             "suavePlot_1", "muestrafxOrig", "DiffYs"}) {
      QVERIFY2(action(w, name), name);
    }
    QVERIFY(!action(w, "muestrafxOrig")->isEnabled());
    action(w, "PlotRegression_0")->trigger();
    QVERIFY(action(w, "PlotRegression_0")->isChecked());
    QVERIFY(w.findChild<QWidget*>(QStringLiteral("Picture1"))->isVisible());
    QCOMPARE(w.findChild<QLabel*>(QStringLiteral("Label4"))->text(), QStringLiteral("F(x)  -  Regresión  - Lineal"));
    action(w, "menuIPLA")->trigger();
    QVERIFY(action(w, "menuIPLA")->isChecked());
    QVERIFY(w.model().table().menuIPLA);
    action(w, "DiffYs")->trigger();
    QVERIFY(w.findChild<QWidget*>(QStringLiteral("Picture5"))->isVisible());
    QCOMPARE(w.findChild<QLabel*>(QStringLiteral("Label12"))->text(), Res(1754));
  }

  void smoothingRunsInSlicesAndEscStopsIt() {
    PlotWindow w;
    open(w, QStringLiteral("sin(x)"), 20000);
    guiMessages().queueAnswer(QStringLiteral("400"));
    action(w, "suavePlot_0")->trigger();
    PlotCurveTools& tools = w.model().tools;
    QVERIFY(tools.running());
    QVERIFY(action(w, "suavePlot_0")->isChecked());
    auto* cancel = w.findChild<QPushButton*>(QStringLiteral("Command1"));
    QVERIFY(cancel && cancel->isVisible());
    QTest::qWait(50);
    QVERIFY(tools.running());  // 8 million rows of work: still going, the window answers meanwhile

    const size_t before = guiMessages().shown().size();
    action(w, "menureja")->trigger();
    QCOMPARE(guiMessages().shown().size(), before + 1);
    QVERIFY(guiMessages().shown().back().text.contains(Res(2204)));
    QVERIFY(!w.model().menureja);

    QTest::keyClick(&w, Qt::Key_Escape);
    QVERIFY(!tools.running());
    QVERIFY(!cancel->isVisible());
    QVERIFY(!action(w, "suavePlot_0")->isChecked());
    QCOMPARE(int(program().sourceColumn), 1);

    // Method B to its end under the event loop.
    guiMessages().queueAnswer(QStringLiteral("200"));
    action(w, "suavePlot_1")->trigger();
    QTRY_VERIFY_WITH_TIMEOUT(!tools.running(), 20000);
    QVERIFY(program().titleF.endsWith(QStringLiteral("(smooth B = 200)")));
    QVERIFY(action(w, "muestrafxOrig")->isEnabled());
    QVERIFY(!cancel->isVisible());
  }
};

CALVIX_GUI_TEST_MAIN(PlotCurvesWindowTest)
#include "PlotCurvesWindowTest.moc"
