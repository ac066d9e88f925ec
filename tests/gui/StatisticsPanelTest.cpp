// The statistics panel of the calculator window: its grids and counts under
// their names, entry from the keyboard reaching the grid, the regression menu
// opened by its key, a grid row picked with the mouse, and the data printout
// on paper (PDF).
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "calc/CalculatorWindow.h"
#include "calc/StatisticsGridView.h"
#include "shell/PrintDialog.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/GuiTestSupport.h"

class StatisticsPanelTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void entryFillsTheGridAndTheCount() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* gridX = w.findChild<StatisticsGridView*>(QStringLiteral("MSFlexGrid1(0)"));
    auto* gridY = w.findChild<StatisticsGridView*>(QStringLiteral("MSFlexGrid1(1)"));
    QVERIFY(gridX && gridY);
    QTest::keyClicks(&w, QStringLiteral("2.5x7x4y"));
    QCOMPARE(gridX->model()->rowCount(), 2);
    QCOMPARE(gridX->model()->index(1, 1).data().toString(), QStringLiteral("7"));
    QCOMPARE(gridY->model()->rowCount(), 1);
    QCOMPARE(w.findChild<QLabel*>(QStringLiteral("numnx"))->text(), QStringLiteral("n = 2"));
    QCOMPARE(w.findChild<QLabel*>(QStringLiteral("numny"))->text(), QStringLiteral("n = 1"));
    auto* panels = w.findChild<QTabWidget*>(QStringLiteral("panels"));
    QCOMPARE(panels->currentWidget()->objectName(), QStringLiteral("statisticsPage"));
    // A row picked with the mouse is the one the delete key removes.
    QTest::mouseClick(gridX->viewport(), Qt::LeftButton, {}, gridX->visualRect(gridX->model()->index(0, 1)).center());
    QTest::mouseClick(w.keyButton(QStringLiteral("Command3"), 0), Qt::LeftButton);
    QCOMPARE(program().stats.nx, 1);
    QCOMPARE(gridX->model()->index(0, 1).data().toString(), QStringLiteral("7"));
    // The panels trade places.
    const int before = gridX->mapTo(&w, QPoint()).x();
    QTest::mouseClick(w.keyButton(QStringLiteral("Command23")), Qt::LeftButton);
    QApplication::processEvents();
    QVERIFY(gridX->mapTo(&w, QPoint()).x() > before);
    QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 760);
  }

  void regressionKeyOpensItsMenu() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command78")), Qt::LeftButton);
    auto* menu = w.findChild<QMenu*>(QStringLiteral("TipoRegresion"));
    QVERIFY(menu);
    QTRY_VERIFY(menu->isVisible());
    QAction* potential = menu->findChild<QAction*>(QStringLiteral("Regresion(1)"));
    QVERIFY(potential);
    potential->trigger();
    menu->hide();
    QCOMPARE(w.engine().regType, static_cast<std::int16_t>(1));
    QVERIFY(potential->isChecked());
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("func"))->text(), Res(4571) + QLatin1Char(' ') + Res(4202));
  }

  void escapeClosesTheMenusOfTheKeysAndButtons() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    w.findChild<QTabWidget*>(QStringLiteral("panels"))->setCurrentWidget(w.findChild<QWidget*>(QStringLiteral("statisticsPage")));
    const std::pair<const char*, QWidget*> openers[] = {
        {"TipoRegresion", w.keyButton(QStringLiteral("Command78"))},
        {"MnuClrSTD", w.keyButton(QStringLiteral("Command82"))},
        {"ordenaEstad", w.findChild<QWidget*>(QStringLiteral("ordenaEstadButton"))},
    };
    for (const auto& [name, opener] : openers) {
      QVERIFY2(opener, name);
      auto* menu = w.findChild<QMenu*>(QString::fromLatin1(name));
      QVERIFY2(menu, name);
      // The tool button's menu runs its own loop: Escape is sent from inside it.
      QTimer::singleShot(50, menu, [menu] { QTest::keyClick(menu, Qt::Key_Escape); });
      QTest::mouseClick(opener, Qt::LeftButton);
      QTRY_VERIFY2(!menu->isVisible(), name);
      QVERIFY2(!w.engine().stopRequested, name);
    }
  }

  void dataTablePrintsToPdf() {
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("data.pdf"));
    PrinterPresenter printer;
    printer.setPdfOutput(pdf);
    setPrintPresenter(&printer);
    CalculatorWindow w;
    QTest::keyClicks(&w, QStringLiteral("1.5x2x9y"));
    w.engine().click(QStringLiteral("estad\u00EDstica"));
    setPrintPresenter(nullptr);
    const QString text = pdfText(pdf).simplified();
    QVERIFY2(text.contains(Res(4584)), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("0001 1.5 9")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("0002 2")), qPrintable(text));
  }
};

QTEST_MAIN(StatisticsPanelTest)
#include "StatisticsPanelTest.moc"
