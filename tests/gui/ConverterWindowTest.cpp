// The converter's window: its controls exist under their names, clicks and
// typed values reach the model and show, the magnitude menu holds every
// table, the history toggles and prints to a PDF, and the window fits a
// 1280x800 screen with no unit caption clipped in any of the four languages.
#include <QAction>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "convert/ConverterWindow.h"
#include "shell/ChameleonButtonView.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/PrintDialog.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

class ConverterWindowTest : public QObject {
  Q_OBJECT

 private:
  template <typename T>
  static T* control(ConverterWindow& w, const QString& name) {
    T* c = w.findChild<T*>(name);
    if (!c) qWarning("no control %s", qPrintable(name));
    return c;
  }
  static QPushButton* unit(ConverterWindow& w, int i) {
    return control<QPushButton>(w, QStringLiteral("Command1_%1").arg(i));
  }
  static QString text(ConverterWindow& w, const char* name) {
    if (auto* l = w.findChild<QLabel*>(QLatin1String(name))) return l->text();
    if (auto* e = w.findChild<QLineEdit*>(QLatin1String(name))) return e->text();
    return QStringLiteral("<none>");
  }

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void opensOnLengthWithItsControls() {
    ConverterWindow w;
    w.show();
    QCOMPARE(w.windowTitle(), Res(1298));
    QCOMPARE(text(w, "Label11"), Res(1242));
    for (int i = 0; i < kUnitButtons; ++i) QVERIFY(unit(w, i));
    QCOMPARE(unit(w, 6)->text(), QStringLiteral("¤ Metros {m}"));
    for (const char* name : {"Command2", "Command4", "Command6", "Command7", "Command8", "Command9", "Command3_0",
                             "Command3_3"}) {
      QVERIFY2(w.findChild<QPushButton*>(QLatin1String(name)), name);
    }
    QVERIFY(control<QLineEdit>(w, QStringLiteral("Text2")));
    QVERIFY(control<QListWidget>(w, QStringLiteral("List1")));
    QVERIFY(!control<QListWidget>(w, QStringLiteral("List1"))->isVisible());
  }

  void clicksAndTypedValuesConvert() {
    ConverterWindow w;
    w.show();
    QTest::mouseClick(unit(w, 3), Qt::LeftButton);
    QTest::mouseClick(unit(w, 6), Qt::LeftButton);
    QCOMPARE(text(w, "Label3"), QStringLiteral("1000"));
    QCOMPARE(text(w, "Label12_0"), QStringLiteral("Kilómetros"));
    auto* selected = qobject_cast<ChameleonButtonWidget*>(unit(w, 3));
    QVERIFY(selected);
    QCOMPARE(chameleonColour(selected->model().bcol, selected->palette()), QColor(0, 255, 255));
    auto* entry = control<QLineEdit>(w, QStringLiteral("Text2"));
    entry->setFocus();
    QTest::keyClicks(entry, QStringLiteral("2x.5"));
    QCOMPARE(entry->text(), QStringLiteral("2.5"));
    QTest::keyClick(entry, Qt::Key_Return);
    QCOMPARE(text(w, "Text4"), QStringLiteral("2500"));
    QCOMPARE(entry->selectedText(), QStringLiteral("2.5"));
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("Command3_1")), Qt::LeftButton);
    QCOMPARE(RegisterValue(1), 1000.0);
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("Command8")), Qt::LeftButton);
    auto* list = control<QListWidget>(w, QStringLiteral("List1"));
    QVERIFY(list->isVisible());
    QCOMPARE(list->count(), 5);  // the click's factor line and blank, then Enter's three lines
    QCOMPARE(list->currentRow(), 3);
  }

  void takesTheOpenCalculatorsDisplay() {
    clearWindowRegistry();
    registerWindowFactory(WindowId::ScientificCalculator, [] {
      auto* calculator = new QWidget;
      auto* numero = new QLineEdit(QStringLiteral("7"), calculator);
      numero->setObjectName(QStringLiteral("numero"));
      return calculator;
    });
    ConverterWindow w;
    w.show();
    QTest::mouseClick(unit(w, 3), Qt::LeftButton);
    QTest::mouseClick(unit(w, 6), Qt::LeftButton);
    QCOMPARE(text(w, "Text2"), QString());  // no calculator open: its "0" is not taken
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("Command7")), Qt::LeftButton);
    QWidget* calculator = findWindow(WindowId::ScientificCalculator);
    QVERIFY(calculator && calculator->isVisible());
    QTest::mouseClick(unit(w, 9), Qt::LeftButton);
    QTest::mouseClick(unit(w, 3), Qt::LeftButton);
    QCOMPARE(text(w, "Text2"), QStringLiteral("7"));
    QCOMPARE(text(w, "Text4"), QStringLiteral("7E-06"));  // 7 mm in km
    delete calculator;
    clearWindowRegistry();
  }

  void theMenuHoldsEveryTable() {
    ConverterWindow w;
    w.show();
    int items = 0;
    for (const UnitTable& t : w.model().tables().tables()) {
      auto* a = w.findChild<QAction*>(t.item);
      QVERIFY2(a, qPrintable(t.item));
      QVERIFY(!a->text().isEmpty());
      ++items;
    }
    QCOMPARE(items, 48);
    w.findChild<QAction*>(QStringLiteral("presion"))->trigger();
    QCOMPARE(text(w, "Label11"), Res(1232));
    QCOMPARE(unit(w, 19)->text(), QStringLiteral("¤ Newtons/m² (Pascal) {Pa}"));
    QVERIFY(!unit(w, 34)->isEnabled());
    QVERIFY(!unit(w, 26)->toolTip().isEmpty());  // a long caption repeats in its tooltip
  }

  void theHistoryPrintsToAPdf() {
    QTemporaryDir dir;
    PrinterPresenter printer;
    const QString pdf = dir.filePath(QStringLiteral("history.pdf"));
    printer.setPdfOutput(pdf);
    setPrintPresenter(&printer);
    ConverterWindow w;
    w.show();
    w.model().calculatorDisplay = [] { return QStringLiteral("4"); };
    QTest::mouseClick(unit(w, 3), Qt::LeftButton);
    QTest::mouseClick(unit(w, 9), Qt::LeftButton);
    w.findChild<QAction*>(QStringLiteral("hisimp"))->trigger();
    setPrintPresenter(nullptr);
    const QString printed = pdfText(pdf);
    QVERIFY2(printed.contains(QStringLiteral("4 Kilómetros = 4000000 Milímetros")), qPrintable(printed));
    QVERIFY(printed.contains(QStringLiteral("REGISTROS ACTUALES")));
  }

  void fitsTheScreenInEveryLanguage() {
    for (int lang = 0; lang < 4; ++lang) {
      prepareGuiTest();
      program().LanguageOffset = lang * 10000;
      ConverterWindow w;
      w.show();
      QVERIFY(QTest::qWaitForWindowExposed(&w));
      QVERIFY2(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 800,
               qPrintable(QStringLiteral("%1x%2").arg(w.width()).arg(w.height())));
      // The widest captions of every table fit their buttons.
      for (const UnitTable& t : w.model().tables().tables()) {
        w.model().magnitud_Click(t.item);
        w.refresh();
        for (int i = 0; i < t.rows.size(); ++i) {
          QPushButton* b = unit(w, i);
          QVERIFY2(b->fontMetrics().horizontalAdvance(b->text()) <= b->width() - 8,
                   qPrintable(t.item + QStringLiteral(": ") + b->text()));
        }
      }
      for (QPushButton* b : w.findChildren<QPushButton*>()) {
        QVERIFY2(b->fontMetrics().horizontalAdvance(b->text()) <= b->width() - 4, qPrintable(b->text()));
      }
      for (QLabel* l : w.findChildren<QLabel*>()) {
        if (!l->isVisible() || l->text().contains(QLatin1Char('\n'))) continue;
        QVERIFY2(l->fontMetrics().horizontalAdvance(l->text()) <= l->width(), qPrintable(l->text()));
      }
    }
  }
};

QTEST_MAIN(ConverterWindowTest)
#include "ConverterWindowTest.moc"
