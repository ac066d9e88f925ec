// The matrix and equations pages of the calculator window: the grids and
// boxes under their names, a key defining a grid, a cell click taking
// numero, the grid menu reaching the model, an equation key reaching the
// viewer and the system grid filled by a cell click. (The pages' layout in
// every language is walked by the window geometry test.)
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>

#include "calc/CalculatorWindow.h"
#include "calc/MatrixPanelView.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/GuiTestSupport.h"

class MatrixPanelTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void gridsTakeSizesCellsAndTheMenu() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* panels = w.findChild<QTabWidget*>(QStringLiteral("panels"));
    auto* page = w.findChild<MatrixPanelView*>(QStringLiteral("matrixPage"));
    auto* algebra = w.findChild<QTabWidget*>(QStringLiteral("algebraPages"));
    QVERIFY(panels && page && algebra);
    panels->setCurrentWidget(algebra);
    algebra->setCurrentWidget(page);
    auto* rows = w.findChild<QLineEdit*>(QStringLiteral("Text6(0)"));
    auto* cols = w.findChild<QLineEdit*>(QStringLiteral("Text7(0)"));
    QVERIFY(rows && cols);
    rows->clear();
    QTest::keyClicks(rows, QStringLiteral("2"));
    cols->clear();
    QTest::keyClicks(cols, QStringLiteral("2"));
    QTest::mouseClick(w.findChild<QPushButton*>(QStringLiteral("Command54(0)")), Qt::LeftButton);
    QTableWidget* a = page->grid(0);
    QCOMPARE(a->rowCount(), 2);
    QCOMPARE(a->columnCount(), 2);
    // A click on a cell takes the number shown.
    w.engine().numero = QStringLiteral("5");
    QTest::mouseClick(a->viewport(), Qt::LeftButton, {}, a->visualItemRect(a->item(1, 1)).center());
    QCOMPARE(a->item(1, 1)->text(), QStringLiteral("5"));
    w.engine().numero = QStringLiteral("2");
    QTest::mouseClick(a->viewport(), Qt::LeftButton, {}, a->visualItemRect(a->item(0, 0)).center());
    // The determinant from the grid's menu.
    QAction* det = page->gridMenu()->findChild<QAction*>(QStringLiteral("MatrizOp(5)"));
    QVERIFY(det);
    det->trigger();
    QCOMPARE(w.engine().result.text(), QStringLiteral("|A|  =  (10)"));
    QCOMPARE(page->grid(2)->item(0, 0)->text(), QStringLiteral("10"));
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("Text6(2)"))->text(), QStringLiteral("1"));
  }

  void equationKeysAndTheSystemGrid() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTest::keyClicks(&w, QStringLiteral("1"));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command68")), Qt::LeftButton);
    QTest::keyClicks(&w, QStringLiteral("4"));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command68")), Qt::LeftButton);
    QTest::keyClicks(&w, QStringLiteral("4"));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command68")), Qt::LeftButton);
    auto* panels = w.findChild<QTabWidget*>(QStringLiteral("panels"));
    QCOMPARE(panels->currentWidget()->objectName(), QStringLiteral("viewerPage"));
    QCOMPARE(w.engine().numero.text(), QStringLiteral("-2"));
    guiMessages().queueAnswer(QStringLiteral("2"));
    guiMessages().queueAnswer(QStringLiteral("1"));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command39")), Qt::LeftButton);
    auto* page = w.findChild<EquationsPanelView*>(QStringLiteral("equationsPage"));
    auto* algebra = w.findChild<QTabWidget*>(QStringLiteral("algebraPages"));
    panels->setCurrentWidget(algebra);
    algebra->setCurrentWidget(page);
    QTableWidget* grid = page->systemGrid();
    QCOMPARE(grid->rowCount(), 2);
    QCOMPARE(grid->columnCount(), 3);
    w.engine().numero = QStringLiteral("7");
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(1, 2)).center());
    QCOMPARE(w.engine().linearSystem.cell(1, 2), QStringLiteral("7"));
  }
};

CALVIX_GUI_TEST_MAIN(MatrixPanelTest)
#include "MatrixPanelTest.moc"
