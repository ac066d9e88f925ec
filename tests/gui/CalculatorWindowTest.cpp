// The scientific calculator's window: its controls exist under their names,
// clicks and keystrokes reach the engine, and the display follows; the
// memories, registers, lists and the large display answer the mouse; a full
// history shows its end and starts again at line 4001; the history prints to
// a PDF file.
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include "calc/CalculatorKeypad.h"
#include "calc/CalculatorWindow.h"
#include "calc/HistoryListView.h"
#include "shell/ErrorReport.h"
#include "shell/ExtendedDisplayWindow.h"
#include "shell/PictureHolderView.h"
#include "shell/PrintDialog.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

namespace {

void doubleClickRow(HistoryListView* list, int row) {
  list->setCurrentRow(row);  // scrolled into view
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualRowRect(row).center());
}

// A list widget takes a double click on the row its press went to.
void doubleClickRow(QListWidget* list, int row) {
  QListWidgetItem* item = list->item(row);
  list->scrollToItem(item);
  const QPoint at = list->visualItemRect(item).center();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
}

}  // namespace

class CalculatorWindowTest : public QObject {
  Q_OBJECT

 private:
  static void click(CalculatorWindow& w, const char* control, int index = -1) {
    QPushButton* b = w.keyButton(QString::fromLatin1(control), index);
    QVERIFY2(b, control);
    QTest::mouseClick(b, Qt::LeftButton);
  }
  static QString shown(CalculatorWindow& w) { return field(w, "numero"); }
  static QString field(CalculatorWindow& w, const char* name) {
    return w.findChild<QLineEdit*>(QLatin1String(name))->text();
  }
  static QString result(CalculatorWindow& w) {
    return w.findChild<QPlainTextEdit*>(QStringLiteral("result"))->toPlainText();
  }
  static bool exposed(CalculatorWindow& w) {
    w.show();
    return QTest::qWaitForWindowExposed(&w);
  }

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void opensWithItsControlsUnderTheirNames() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
    QCOMPARE(w.objectName(), QStringLiteral("comand1"));
    QCOMPARE(w.windowTitle(), Res(4103));
    for (const char* name : {"numero", "func", "dcm", "redond", "angulo", "temperat", "ivas", "HexDec"}) {
      QVERIFY2(w.findChild<QLineEdit*>(QLatin1String(name)), name);
    }
    QVERIFY(w.findChild<QPlainTextEdit*>(QStringLiteral("result")));
    QVERIFY(w.findChild<QLabel*>(QStringLiteral("Image3")));
    QVERIFY(w.findChild<HistoryListView*>(QStringLiteral("Combo1")));
    QVERIFY(w.findChild<QLabel*>(QStringLiteral("Text5")));
    QVERIFY(w.findChild<QWidget*>(QStringLiteral("Frame2")));
    for (const KeypadKey& k : calculatorKeys()) {
      QPushButton* b = w.keyButton(QString::fromLatin1(k.control), k.index);
      QVERIFY2(b, qPrintable(keyObjectName(k)));
      QCOMPARE(b->objectName(), keyObjectName(k));
    }
    QCOMPARE(shown(w), QStringLiteral("0"));
    QCOMPARE(field(w, "ivas"), QStringLiteral("16 %"));
    // Fits a 1280x800 screen with room to spare.
    QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 760);
  }

  void clickingKeysShowsTheAnswerAndKeepsEqualsFocused() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
    click(w, "Command1", 1);
    click(w, "Command1", 2);
    QCOMPARE(w.focusWidget(), w.keyButton(QStringLiteral("Command19")));
    click(w, "Command13", 1);
    click(w, "Command1", 3);
    QCOMPARE(field(w, "func"), QStringLiteral("+"));
    click(w, "Command19");
    QCOMPARE(shown(w), QStringLiteral("15"));
    QCOMPARE(result(w), QStringLiteral("15"));
    // The history panel and its status line follow the engine.
    QCOMPARE(w.findChild<HistoryListView*>(QStringLiteral("Combo1"))->count(), w.engine().Combo1.count());
    QCOMPARE(field(w, "func"), QStringLiteral("="));
  }

  void keysTypedOnAnyControlGoThroughTheKeyMap() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
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

  void copyAndPasteGoThroughTheClipboardAndTheKeyMap() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
    QTest::keyClicks(&w, QStringLiteral("12.5"));
    for (const Qt::Key key : {Qt::Key_C, Qt::Key_Insert}) {
      QGuiApplication::clipboard()->clear();
      QTest::keyClick(&w, key, Qt::ControlModifier);
      QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("12.5"));
    }
    QTest::keyClicks(&w, QStringLiteral("+"));
    QGuiApplication::clipboard()->setText(QStringLiteral("-2.5"));
    QTest::keyClick(&w, Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(shown(w), QStringLiteral("-2.5"));
    QGuiApplication::clipboard()->setText(QStringLiteral("dos"));
    QTest::keyClick(&w, Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(shown(w), QStringLiteral("-2.5"));  // refused, nothing typed
    QTest::keyClick(&w, Qt::Key_Return);
    QCOMPARE(shown(w), QStringLiteral("10"));
    // Ctrl+V keeps its meaning: VAT out.
    CalculatorEngine vatOut;
    vatOut.numero = QStringLiteral("10");
    vatOut.click(QStringLiteral("Command6"), 2);
    QTest::keyClick(&w, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(shown(w), vatOut.numero.text());
    QVERIFY(shown(w) != QStringLiteral("10"));
  }

  void shiftF10OpensTheWindowMenuWithEveryMenuOfTheWindow() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
    QTest::keyClick(w.keyButton(QStringLiteral("Command19")), Qt::Key_F10, Qt::ShiftModifier);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QCOMPARE(menu->objectName(), QStringLiteral("window"));
    QStringList titles;
    for (QAction* a : menu->actions()) {
      if (a->objectName() == QLatin1String("normalcalc")) continue;  // the switch to the normal calculator
      QVERIFY(a->menu());
      titles << a->text();
    }
    QCOMPARE(titles, (QStringList{Res(4584), Res(4567), Res(4307), Res(4800), Res(4801), Res(4802), Res(4803), Res(14)}));
    menu->close();
  }

  void divisionByZeroShowsTheMessageAndTheFailurePicture() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
    auto* image = w.findChild<QLabel*>(QStringLiteral("Image3"));
    const QImage normal = image->pixmap().toImage();
    click(w, "Command1", 8);
    click(w, "Command13", 3);
    click(w, "Command1", 0);
    click(w, "Command19");
    QCOMPARE(result(w), ErrorText(31));
    QCOMPARE(shown(w), QStringLiteral("0"));
    QVERIFY(image->pixmap().toImage() != normal);
    click(w, "Command1", 4);  // the next entry ends the error cycle
    QCOMPARE(image->pixmap().toImage(), normal);
  }

  void hexModeShowsTheLetterKeys() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
    QPushButton* a = w.keyButton(QStringLiteral("Command30"), 0);
    QVERIFY(a);
    QVERIFY(!a->isVisible());
    click(w, "Command22");
    QVERIFY(a->isVisible());
    QCOMPARE(field(w, "HexDec"), QStringLiteral("HEX"));
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

  void functionKeysAndHypLightReachTheEngine() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
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
    QCOMPARE(field(w, "func"), QStringLiteral("sin"));
  }

  void constantsPanelOpensOnDemandAndShowsTheUnit() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
    auto* frame = w.findChild<QWidget*>(QStringLiteral("Frame2"));
    auto* tabs = w.findChild<QTabWidget*>(QStringLiteral("panels"));
    QVERIFY(!tabs->isTabVisible(tabs->indexOf(frame)));
    click(w, "Command8");
    QVERIFY(tabs->isTabVisible(tabs->indexOf(frame)));
    QCOMPARE(tabs->currentWidget(), frame);
    click(w, "Command4", 3);
    QCOMPARE(shown(w), QStringLiteral("6.0221367E+23"));
    // The soft hyphen of the stored unit is drawn as a superscript minus.
    QCOMPARE(result(w), Res(4117) + QStringLiteral("\n(mol\u207B\u00B9)"));
    click(w, "Command8");
    QVERIFY(!tabs->isTabVisible(tabs->indexOf(frame)));
  }

  void currencyKeysCarryTheSettingsAndHideInHexMode() {
    program().Currency1 = QStringLiteral("usd");
    program().Currency2 = QStringLiteral("yen");
    CalculatorWindow w;
    QVERIFY(exposed(w));
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
    QVERIFY(exposed(w));
    guiMessages().queueText(QStringLiteral("8"));
    click(w, "Command1", 5);
    click(w, "Command91");
    QCOMPARE(guiMessages().shown().size(), size_t{1});
    QCOMPARE(guiMessages().shown().front().kind, 5);
    QCOMPARE(result(w), QStringLiteral("05  (Base 8)"));
  }

  void memoriesRegistersAndListsAnswerTheMouse() {
    program().Memories[2] = 7;
    WriteRegister(0, 3.25, QStringLiteral("Rojo"));
    CalculatorWindow w;
    QVERIFY(exposed(w));
    auto* memory = w.findChild<QLineEdit*>(QStringLiteral("m1(2)"));
    QCOMPARE(memory->text(), QStringLiteral("7"));
    QTest::mouseDClick(memory, Qt::LeftButton);
    QCOMPARE(shown(w), QStringLiteral("7"));
    QTest::keyClick(&w, Qt::Key_1, Qt::ShiftModifier);
    QCOMPARE(field(w, "m1(0)"), QStringLiteral("7"));
    // A register written elsewhere shows in its key's tooltip at once.
    QPushButton* r1 = w.keyButton(QStringLiteral("Command74"), 0);
    QCOMPARE(r1->toolTip(), QStringLiteral("Rojo"));
    WriteRegister(0, 1.5, QStringLiteral("Verde"));
    QCOMPARE(r1->toolTip(), QStringLiteral("Verde"));
    click(w, "Command74", 0);
    QCOMPARE(shown(w), QStringLiteral("1.5"));

    // The history panel key, and a number taken back from a history line.
    auto* tabs = w.findChild<QTabWidget*>(QStringLiteral("panels"));
    auto* history = w.findChild<HistoryListView*>(QStringLiteral("Combo1"));
    click(w, "Command62");
    QVERIFY(history->isVisible());
    click(w, "Command62");
    QVERIFY(!history->isVisible());
    QTest::keyClicks(&w, QStringLiteral("20"));
    click(w, "Command5", 1);
    click(w, "Command62");
    const int kelvin = static_cast<int>(w.engine().Combo1.lines().indexOf(QStringLiteral("293.15 Kelvin")));
    QVERIFY(kelvin >= 0);
    QTest::keyClicks(&w, QStringLiteral("4"));
    doubleClickRow(history, kelvin);
    QCOMPARE(shown(w), QStringLiteral("293.15"));
    QCOMPARE(field(w, "func"), Res(4418));

    // The viewer: a value taken from it, then its clear key shows and empties it.
    w.engine().addViewerLine(QStringLiteral(":   X1 ="), QStringLiteral("-2.5e-01"));
    w.refresh();
    auto* viewer = w.findChild<QListWidget*>(QStringLiteral("List4"));
    tabs->setCurrentWidget(w.findChild<QWidget*>(QStringLiteral("viewerPage")));
    doubleClickRow(viewer, 0);
    QCOMPARE(shown(w), QStringLiteral("-0.25"));
    tabs->setCurrentIndex(0);
    click(w, "Command64");
    QVERIFY(viewer->isVisible());
    QCOMPARE(viewer->count(), 0);
  }

  // A full list shows its last line, its bar is whole, and line 4001 starts
  // a new list (the cost of a line is measured by calvix_history_bench).
  void aFullHistoryShowsItsEndAndLine4001StartsAgain() {
    CalculatorWindow w;
    QVERIFY(exposed(w));
    for (int i = 0; i < 3998; ++i) w.engine().addHistoryValue(QString::number(i));
    w.refresh();
    auto* list = w.findChild<HistoryListView*>(QStringLiteral("Combo1"));
    auto* bar = w.findChild<QWidget*>(QStringLiteral("Picture1"));
    const auto barAt = [bar](double share) {
      return bar->grab().toImage().pixelColor(static_cast<int>(share * bar->width()), bar->height() / 2);
    };
    QCOMPARE(barAt(0.5), QColor(Qt::red));
    QCOMPARE(barAt(0.985), QColor(Qt::white));  // full only at 4000
    click(w, "Command17");  // the answer line and the key's line
    QCOMPARE(list->count(), 4000);
    QCOMPARE(list->currentRow(), 3999);
    QVERIFY(!list->visualRowRect(3999).isEmpty());
    QCOMPARE(list->text(3999).trimmed(), Res(4572));
    QCOMPARE(barAt(0.985), QColor(Qt::red));
    QVERIFY(w.statusBar()->findChildren<QLabel*>().first()->text().startsWith(QStringLiteral("4000 ")));
    click(w, "Command17");  // its line is the 4001st
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->text(0).trimmed(), Res(4572));
    QVERIFY(!list->visualRowRect(0).isEmpty());
    QCOMPARE(barAt(0.5), QColor(Qt::white));
  }

  void historyPrintsToPdfWithNumberedLines() {
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("history.pdf"));
    PrinterPresenter printer;
    printer.setPdfOutput(pdf);
    setPrintPresenter(&printer);
    CalculatorWindow w;
    QTest::keyClicks(&w, QStringLiteral("2+3="));
    QTest::mouseClick(w.findChild<QPushButton*>(QStringLiteral("registros")), Qt::LeftButton);
    setPrintPresenter(nullptr);
    QVERIFY(guiMessages().shown().empty());
    const QString text = pdfText(pdf).simplified();
    QVERIFY2(!text.isEmpty(), "pdftotext read nothing");
    QVERIFY(text.contains(Res(4104)));
    QVERIFY2(text.contains(QStringLiteral("0003 +")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("0005 5 .... 5")), qPrintable(text));
    QVERIFY(text.contains(QStringLiteral("Calvix Premium - VelozCalc.")));
  }

  void largeDisplayOpensAboveFollowsAndChangesFace() {
    clearWindowRegistry();
    registerWindowFactory(WindowId::ExtendedDisplay, [] { return new ExtendedDisplayWindow; });
    CalculatorWindow w;
    QVERIFY(exposed(w));
    auto* chameleon = w.findChild<QPushButton*>(QStringLiteral("chameleonButton1"));
    QTest::mouseClick(chameleon, Qt::RightButton);  // nothing to change while closed
    QVERIFY(!findWindow(WindowId::ExtendedDisplay));
    QTest::mouseClick(chameleon, Qt::LeftButton);
    auto* display = qobject_cast<ExtendedDisplayWindow*>(findWindow(WindowId::ExtendedDisplay));
    QVERIFY(display && display->isVisible());
    QCOMPARE(display->windowTitle(), Res(3025));
    QVERIFY(display->frameGeometry().bottom() < w.frameGeometry().top());
    QTest::keyClicks(&w, QStringLiteral("12*3="));
    QCOMPARE(display->Text1->text(), QStringLiteral("36"));
    QCOMPARE(display->Text2->toPlainText(), QStringLiteral("36"));
    QTest::mouseClick(chameleon, Qt::RightButton);
    QVERIFY(display->lcdFont());
    QCOMPARE(display->Text1->font().family(), ExtendedDisplayWindow::lcdFamily());
    QTest::mouseClick(chameleon, Qt::RightButton);
    QVERIFY(!display->lcdFont());
    QTest::mouseClick(chameleon, Qt::LeftButton);
    QVERIFY(!display->isVisible());
    delete display;
    clearWindowRegistry();
  }
};

QTEST_MAIN(CalculatorWindowTest)
#include "CalculatorWindowTest.moc"
