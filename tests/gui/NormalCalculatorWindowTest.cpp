// The normal calculator's window: its controls under their names, clicks and
// keystrokes reaching its own key map, the memories shared with the
// scientific window, and the switch between the two through the registry.
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "calc/CalculatorWindow.h"
#include "calc/HistoryListView.h"
#include "calc/NormalCalculatorKeys.h"
#include "calc/NormalCalculatorWindow.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "shell/WindowServices.h"
#include "tests/support/GuiTestSupport.h"

class NormalCalculatorWindowTest : public QObject {
  Q_OBJECT

  static QString field(QWidget* w, const char* name) {
    auto* f = w->findChild<QLineEdit*>(QString::fromLatin1(name));
    return f ? f->text() : QStringLiteral("<none>");
  }

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
    registerWindowFactory(WindowId::ScientificCalculator, [] { return new CalculatorWindow; });
    registerWindowFactory(WindowId::NormalCalculator, [] { return new NormalCalculatorWindow; });
  }
  void cleanup() {
    for (QWidget* w : openWindows()) delete w;
    clearWindowRegistry();
  }

  void controlsExistUnderTheirNames() {
    NormalCalculatorWindow w;
    QCOMPARE(w.objectName(), QStringLiteral("comand2"));
    QCOMPARE(w.windowTitle(), QStringLiteral("Calvix Premium  -  VelozCalc  (Normal)"));
    for (const NormalKey& k : normalCalculatorKeys()) {
      ChameleonButtonWidget* b = w.keyButton(QString::fromLatin1(k.control), k.index);
      QVERIFY2(b && !b->text().isEmpty(), qPrintable(normalKeyObjectName(k)));
    }
    for (const char* name : {"numero", "result", "func", "dcm", "redond", "ivas", "m1(0)", "m1(3)"}) {
      QVERIFY2(w.findChild<QLineEdit*>(QString::fromLatin1(name)), name);
    }
    QVERIFY(w.findChild<HistoryListView*>(QStringLiteral("Combo1")));
    QCOMPARE(program().CalculatorMode.toText(), QStringLiteral("normalita"));
  }

  void clicksAndKeysReachTheModel() {
    NormalCalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command1"), 8), Qt::LeftButton);
    QTest::mouseClick(w.keyButton(QStringLiteral("Command1"), 1), Qt::LeftButton);
    QTest::mouseClick(w.keyButton(QStringLiteral("Command36")), Qt::LeftButton);
    QCOMPARE(field(&w, "numero"), QStringLiteral("9"));
    QTest::keyClick(&w, Qt::Key_F6);
    QCOMPARE(field(&w, "numero"), QStringLiteral("81"));
    QTest::keyClicks(&w, QStringLiteral("x"));  // a key this window lacks
    QCOMPARE(field(&w, "numero"), QStringLiteral("81"));
    QTest::keyClick(&w, Qt::Key_P);
    QCOMPARE(field(&w, "func"), QStringLiteral("Pi"));
  }

  void switchingKeepsMemoriesAndOpensTheOtherWindow() {
    program().CalculatorMode = QStringLiteral("normalita");
    OpenCalculator();
    auto* normal = qobject_cast<NormalCalculatorWindow*>(findWindow(WindowId::NormalCalculator));
    QVERIFY(normal && QTest::qWaitForWindowExposed(normal));
    QTest::keyClicks(normal, QStringLiteral("25"));
    QCOMPARE(field(normal, "numero"), QStringLiteral("25"));
    QTest::keyClick(normal, Qt::Key_1, Qt::ShiftModifier);
    QCOMPARE(field(normal, "m1(0)"), QStringLiteral("25"));
    QTest::keyClicks(normal, QStringLiteral("+3"));
    QCOMPARE(program().Memories[0], 25.0);
    QAction* scientific = normal->findChild<QAction*>(QStringLiteral("cientificacalc"));
    QVERIFY(scientific);
    QPointer<QWidget> gone = normal;
    scientific->trigger();
    QTRY_VERIFY(gone.isNull());
    QCOMPARE(program().CalculatorMode.toText(), QStringLiteral("avanzada"));
    QWidget* sci = findWindow(WindowId::ScientificCalculator);
    QVERIFY(sci && sci->isVisible());
    QCOMPARE(field(sci, "m1(0)"), QStringLiteral("25"));
    QCOMPARE(field(sci, "numero"), QStringLiteral("0"));
  }

  void fitsTheScreenInTwoLanguages() {
    for (int language : {0, 2}) {
      const QStringList problems = checkWindowInLanguage(WindowId::NormalCalculator, language);
      QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    }
  }
};

CALVIX_GUI_TEST_MAIN(NormalCalculatorWindowTest)
#include "NormalCalculatorWindowTest.moc"
