// The number tools' page of the calculator window: its keys under their
// names, a factorisation shown in the viewer lists, the random key's right
// click, the ASCII table's text window (Escape closes it) and the keyboard
// during a prime listing (only Esc is taken, and closing waits).
#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "calc/CalculatorWindow.h"
#include "shell/ProgramState.h"
#include "tests/support/GuiTestSupport.h"

class NumberToolsPanelTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void factorisationFillsTheViewer() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    for (const char* name : {"Command73", "Command98", "Command45", "Command27", "Command37"}) {
      QVERIFY2(w.keyButton(QString::fromLatin1(name)), name);
    }
    QVERIFY(w.keyButton(QStringLiteral("Command93"), 1));
    QTest::keyClicks(&w, QStringLiteral("360"));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command45")), Qt::LeftButton);
    auto* list3 = w.findChild<QListWidget*>(QStringLiteral("List3"));
    auto* list4 = w.findChild<QListWidget*>(QStringLiteral("List4"));
    QCOMPARE(list3->count(), 4);
    QCOMPARE(list4->item(1)->text(), QStringLiteral("(^) 3"));
    auto* panels = w.findChild<QTabWidget*>(QStringLiteral("panels"));
    QCOMPARE(panels->currentWidget()->objectName(), QStringLiteral("viewerPage"));
    // A Tartaglia line wider than the list shows whole in its tooltip.
    QTest::keyClicks(&w, QStringLiteral("12"));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command38")), Qt::LeftButton);
    QCOMPARE(list4->item(5)->toolTip(), w.engine().result.text());
    QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 800);
  }

  void rightClickAsksTheRandomBase() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    guiMessages().queueAnswer(QStringLiteral("2.5"));
    QPushButton* random = w.keyButton(QStringLiteral("Command51"));
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(4, 4), random->mapToGlobal(QPoint(4, 4)));
    QApplication::sendEvent(random, &event);
    QCOMPARE(program().randomBase, 2.5f);
  }

  void asciiTableOpensATextWindowThatEscapeCloses() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command37")), Qt::LeftButton);
    auto* dialog = w.findChild<QDialog*>(QStringLiteral("textWindow"));
    QVERIFY(dialog);
    QTRY_VERIFY(dialog->isVisible());
    auto* text = dialog->findChild<QPlainTextEdit*>(QStringLiteral("textWindowText"));
    QVERIFY(text->toPlainText().contains(QStringLiteral("\n65\tA\n")));
    QTest::keyClick(dialog, Qt::Key_Escape);
    QTRY_VERIFY(!w.findChild<QDialog*>(QStringLiteral("textWindow")));
  }

  void onlyEscapeIsTakenWhileListing() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    w.engine().listingRunning = true;
    QTest::keyClicks(&w, QStringLiteral("7"));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command1"), 8), Qt::LeftButton);
    QCOMPARE(w.engine().numero.text(), QStringLiteral("0"));
    QTest::keyClick(&w, Qt::Key_Escape);
    QVERIFY(w.engine().stopRequested);
    // Closing waits for the listing to stop.
    w.engine().stopRequested = false;
    QVERIFY(!w.close());
    QVERIFY(w.engine().stopRequested);
    w.engine().listingRunning = false;
  }
};

QTEST_MAIN(NumberToolsPanelTest)
#include "NumberToolsPanelTest.moc"
