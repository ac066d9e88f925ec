// The scientific calculator's window: its controls exist under their names,
// clicks and keystrokes reach the engine, and the display follows.
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>

#include "calc/CalculatorKeypad.h"
#include "calc/CalculatorWindow.h"
#include "shell/ErrorReport.h"
#include "shell/PictureHolderView.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/GuiTestSupport.h"

class CalculatorWindowTest : public QObject {
  Q_OBJECT

 private:
  static void click(CalculatorWindow& w, const char* control, int index = -1) {
    QPushButton* b = w.keyButton(QString::fromLatin1(control), index);
    QVERIFY2(b, control);
    QTest::mouseClick(b, Qt::LeftButton);
  }
  static QString shown(CalculatorWindow& w) { return w.findChild<QLineEdit*>(QStringLiteral("numero"))->text(); }

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void opensWithItsControlsUnderTheirNames() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QCOMPARE(w.objectName(), QStringLiteral("comand1"));
    QCOMPARE(w.windowTitle(), Res(4103));
    for (const char* name : {"numero", "func", "dcm", "redond", "angulo", "temperat", "ivas", "HexDec"}) {
      QVERIFY2(w.findChild<QLineEdit*>(QLatin1String(name)), name);
    }
    QVERIFY(w.findChild<QPlainTextEdit*>(QStringLiteral("result")));
    QVERIFY(w.findChild<QLabel*>(QStringLiteral("Image3")));
    QVERIFY(w.findChild<QListWidget*>(QStringLiteral("Combo1")));
    for (int d = 0; d <= 9; ++d) QVERIFY(w.keyButton(QStringLiteral("Command1"), d));
    for (int i = 0; i <= 3; ++i) QVERIFY(w.keyButton(QStringLiteral("Command13"), i));
    QCOMPARE(shown(w), QStringLiteral("0"));
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("ivas"))->text(), QStringLiteral("16 %"));
    // Fits a 1280x800 screen with room to spare.
    QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 760);
  }

  void clickingKeysShowsTheAnswerAndKeepsEqualsFocused() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    click(w, "Command1", 1);
    click(w, "Command1", 2);
    QCOMPARE(w.focusWidget(), w.keyButton(QStringLiteral("Command19")));
    click(w, "Command13", 1);
    click(w, "Command1", 3);
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("func"))->text(), QStringLiteral("+"));
    click(w, "Command19");
    QCOMPARE(shown(w), QStringLiteral("15"));
    QCOMPARE(w.findChild<QPlainTextEdit*>(QStringLiteral("result"))->toPlainText(), QStringLiteral("15"));
    // The history panel and its status line follow the engine.
    QCOMPARE(w.findChild<QListWidget*>(QStringLiteral("Combo1"))->count(), w.engine().Combo1.count());
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("func"))->text(), QStringLiteral("="));
  }

  void keysTypedOnAnyControlGoThroughTheKeyMap() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QWidget* equals = w.keyButton(QStringLiteral("Command19"));
    QTest::keyClicks(equals, QStringLiteral("12*3"));
    QTest::keyClick(equals, Qt::Key_Return);
    QCOMPARE(shown(w), QStringLiteral("36"));
    QTest::keyClicks(w.keyButton(QStringLiteral("Command1"), 7), QStringLiteral("45"));
    QTest::keyClick(&w, Qt::Key_Backspace);
    QCOMPARE(shown(w), QStringLiteral("4"));
    QTest::keyClick(&w, Qt::Key_Comma);
    QTest::keyClick(&w, Qt::Key_5);
    QCOMPARE(shown(w), QStringLiteral("4.5"));
    QTest::keyClick(&w, Qt::Key_Less);
    QCOMPARE(shown(w), QStringLiteral("-4.5"));
    QTest::keyClick(&w, Qt::Key_Escape);
    QVERIFY(w.engine().stopRequested);
  }

  void divisionByZeroShowsTheMessageAndTheFailurePicture() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* image = w.findChild<QLabel*>(QStringLiteral("Image3"));
    const QImage normal = image->pixmap().toImage();
    click(w, "Command1", 8);
    click(w, "Command13", 3);
    click(w, "Command1", 0);
    click(w, "Command19");
    QCOMPARE(w.findChild<QPlainTextEdit*>(QStringLiteral("result"))->toPlainText(), ErrorText(31));
    QCOMPARE(shown(w), QStringLiteral("0"));
    QVERIFY(image->pixmap().toImage() != normal);
    click(w, "Command1", 4);  // the next entry ends the error cycle
    QCOMPARE(image->pixmap().toImage(), normal);
  }

  void hexModeShowsTheLetterKeys() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QPushButton* a = w.keyButton(QStringLiteral("Command30"), 0);
    QVERIFY(a);
    QVERIFY(!a->isVisible());
    click(w, "Command22");
    QVERIFY(a->isVisible());
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("HexDec"))->text(), QStringLiteral("HEX"));
    click(w, "Command30", 0);
    click(w, "Command1", 1);
    QCOMPARE(shown(w), QStringLiteral("&hA1"));
    click(w, "Command22");
    QVERIFY(!a->isVisible());
  }

  void separatorKeyShowsTheSystemSymbol() {
    setSystemLocale(QLocale(QLocale::Spanish, QLocale::Spain));
    program().DecimalSymbol = QStringLiteral(",");
    CalculatorWindow w;
    QCOMPARE(w.keyButton(QStringLiteral("Command11"))->text(), QStringLiteral(","));
    QTest::keyClick(&w, Qt::Key_1);
    QTest::keyClick(&w, Qt::Key_Period);
    QTest::keyClick(&w, Qt::Key_5);
    QCOMPARE(shown(w), QStringLiteral("1,5"));
  }

  void everyKeyOfTheTableHasItsButton() {
    CalculatorWindow w;
    for (const KeypadKey& k : calculatorKeys()) {
      QPushButton* b = w.keyButton(QString::fromLatin1(k.control), k.index);
      QVERIFY2(b, qPrintable(keyObjectName(k)));
      QCOMPARE(b->objectName(), keyObjectName(k));
    }
    QVERIFY(w.findChild<QLabel*>(QStringLiteral("Text5")));
    QVERIFY(w.findChild<QWidget*>(QStringLiteral("Frame2")));
  }

  void functionKeysAndHypLightReachTheEngine() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* light = w.findChild<QLabel*>(QStringLiteral("Text5"));
    QVERIFY(!light->isVisible());
    click(w, "Command43");
    QVERIFY(light->isVisible());
    click(w, "Command1", 0);
    click(w, "Command21", 1);  // cosh 0
    QCOMPARE(shown(w), QStringLiteral("1"));
    QVERIFY(!light->isVisible());
    QTest::keyClicks(&w, QStringLiteral("90"));
    QTest::keyClick(&w, Qt::Key_F9);
    QCOMPARE(shown(w), QStringLiteral("1"));
    QCOMPARE(w.findChild<QLineEdit*>(QStringLiteral("func"))->text(), QStringLiteral("sin"));
  }

  void constantsPanelOpensOnDemandAndShowsTheUnit() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* frame = w.findChild<QWidget*>(QStringLiteral("Frame2"));
    auto* tabs = w.findChild<QTabWidget*>(QStringLiteral("panels"));
    QVERIFY(!tabs->isTabVisible(tabs->indexOf(frame)));
    click(w, "Command8");
    QVERIFY(tabs->isTabVisible(tabs->indexOf(frame)));
    QCOMPARE(tabs->currentWidget(), frame);
    click(w, "Command4", 3);
    QCOMPARE(shown(w), QStringLiteral("6.0221367E+23"));
    // The soft hyphen of the stored unit is drawn as a superscript minus.
    QCOMPARE(w.findChild<QPlainTextEdit*>(QStringLiteral("result"))->toPlainText(),
             Res(4117) + QStringLiteral("\n(mol\u207B\u00B9)"));
    click(w, "Command8");
    QVERIFY(!tabs->isTabVisible(tabs->indexOf(frame)));
  }

  void currencyKeysCarryTheSettingsAndHideInHexMode() {
    program().Currency1 = QStringLiteral("usd");
    program().Currency2 = QStringLiteral("yen");
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    w.findChild<QTabWidget*>(QStringLiteral("panels"))->setCurrentIndex(1);
    QPushButton* q = w.keyButton(QStringLiteral("Command33"));
    QCOMPARE(q->text(), QStringLiteral("usd\u2192yen"));
    QVERIFY(q->toolTip().endsWith(QLatin1String("{Q}")));
    QVERIFY(q->isVisible());
    click(w, "Command22");
    QVERIFY(!q->isVisible());
    QVERIFY(!w.keyButton(QStringLiteral("Command34"))->isVisible());
  }

  void baseKeyAsksThroughTheMessageBox() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    guiMessages().queueText(QStringLiteral("8"));
    click(w, "Command1", 5);
    click(w, "Command91");
    QCOMPARE(guiMessages().shown().size(), size_t{1});
    QCOMPARE(guiMessages().shown().front().kind, 5);
    QCOMPARE(w.findChild<QPlainTextEdit*>(QStringLiteral("result"))->toPlainText(), QStringLiteral("05  (Base 8)"));
  }
};

QTEST_MAIN(CalculatorWindowTest)
#include "CalculatorWindowTest.moc"
