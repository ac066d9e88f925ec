// The control centre's window: it opens, runs its start order around the
// first paint, shows the counter, offers only the modules that exist, opens
// the calculator, and on closing unloads the other windows. What the
// calculator keeps (memories, registers) outlives a quit and a restart.
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include "calc/CalculatorWindow.h"
#include "shell/ControlCentreWindow.h"
#include "shell/PictureHolderView.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Settings.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

class ControlCentreWindowTest : public QObject {
  Q_OBJECT

 private:
  RecordingPlatform system_;

  ControlCentreWindow* openCentre() {
    auto* w = new ControlCentreWindow;
    QSignalSpy loaded(w, &ControlCentreWindow::loaded);
    w->show();
    if (!loaded.wait(5000)) qWarning("the control centre did not finish its start");
    return w;
  }

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    program().SoundOn = 0;  // no farewell wait when a test closes the window
    system_ = RecordingPlatform();
    setPlatform(&system_);
    clearWindowRegistry();
    registerWindowFactory(WindowId::ScientificCalculator, [] { return new CalculatorWindow; });
    // Each test starts as a fresh installation: a settings file of defaults
    // beside the program (the one a closed window wrote is replaced).
    QVERIFY(writeSettingsFile(QCoreApplication::applicationDirPath() + QStringLiteral("/cvdata.txt"), program()) == 0);
  }
  void cleanup() {
    for (QWidget* w : openWindows()) w->close();
    clearWindowRegistry();
    setPlatform(nullptr);
  }

  void opensWithTitleCounterAndModulePanel() {
    ControlCentreWindow* w = openCentre();
    QVERIFY(w->model().loaded);
    QCOMPARE(w->windowTitle(), Res(21) + QLatin1Char(' '));
    auto* calc = w->findChild<QPushButton*>(QStringLiteral("Command1"));
    QVERIFY(calc);
    QCOMPARE(calc->text(), Res(2));
    QVERIFY(calc->isEnabled());
    auto* table = w->findChild<QPushButton*>(QStringLiteral("Command13"));
    QVERIFY(table);
    QVERIFY(!table->isEnabled());
    QCOMPARE(table->toolTip(), Res(28));
    // First run: the counter shows 00001, and the two first-run messages came.
    auto* units = w->findChild<QLabel*>(QStringLiteral("Image1(4)"));
    auto* tens = w->findChild<QLabel*>(QStringLiteral("Image1(3)"));
    QVERIFY(units && tens);
    QCOMPARE(units->pixmap().toImage(), pictures::digit(1, 44).toImage());
    QCOMPARE(tens->pixmap().toImage(), pictures::digit(0, 44).toImage());
    QCOMPARE(units->toolTip(), Res(15));
    QCOMPARE(guiMessages().shown().size(), size_t{2});
    QVERIFY(system_.calls.filter(QStringLiteral("registerFont")).size() == 3);
    w->close();
  }

  void shiftF12ShowsTheCommandRow() {
    ControlCentreWindow* w = openCentre();
    auto* combo = w->findChild<QComboBox*>(QStringLiteral("Combo1"));
    QVERIFY(combo);
    QVERIFY(!combo->isVisible());
    QTest::keyClick(w->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::Key_F12, Qt::ShiftModifier);
    QVERIFY(combo->isVisible());
    QCOMPARE(combo->currentText(), Res(17));
    QCOMPARE(combo->itemText(0), QStringLiteral("restore"));
    QTest::keyClick(w, Qt::Key_F12, Qt::ShiftModifier);
    QVERIFY(!combo->isVisible());
    // What is typed in the row is what Command11 runs; then the row hides.
    QTest::keyClick(w, Qt::Key_F12, Qt::ShiftModifier);
    program().VatRate = 21.0;
    combo->setEditText(QStringLiteral("restore"));
    QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("Command11")), Qt::LeftButton);
    QCOMPARE(program().VatRate.toDouble(), 16.0);
    QVERIFY(!combo->isVisible());
    w->close();
  }

  void calculatorButtonOpensTheCalculatorAndClosingUnloadsIt() {
    ControlCentreWindow* w = openCentre();
    QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
    QWidget* calc = findWindow(WindowId::ScientificCalculator);
    QVERIFY(calc);
    QVERIFY(calc->isVisible());
    QCOMPARE(calc->windowTitle(), Res(4103));
    system_.calls.clear();
    w->close();
    QTRY_VERIFY(!findWindow(WindowId::ScientificCalculator));
    QCOMPARE(system_.calls.filter(QStringLiteral("removeFont")).size(), 3);
  }

  void closingHidesEveryWindowBeforeTheFarewellSound() {
    ControlCentreWindow* w = openCentre();
    QTest::mouseClick(w->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
    QVERIFY(findWindow(WindowId::ScientificCalculator));
    program().SoundOn = 1;
    bool looked = false;
    QStringList onScreen;
    QTimer::singleShot(300, w, [&] {
      looked = true;
      for (QWidget* t : QApplication::topLevelWidgets()) {
        if (t->isVisible()) onScreen << t->objectName();
      }
    });
    w->close();  // returns after the sound's wait
    QVERIFY(looked);
    QVERIFY2(onScreen.isEmpty(), qPrintable(onScreen.join(QLatin1Char(' '))));
    QVERIFY(!system_.calls.filter(QStringLiteral("exit.wav")).isEmpty());
  }

  // Three runs of the program: the first fills a memory from the keys and a
  // register as another module would, the second finds both and changes the
  // memory, the third finds the change.
  void memoriesAndRegistersSurviveAQuitAndRestart() {
    auto run = [this](const std::function<void(CalculatorWindow&)>& use) {
      clearSettings(program());  // a new process starts from nothing
      ControlCentreWindow* centre = openCentre();
      QTest::mouseClick(centre->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
      auto* calc = qobject_cast<CalculatorWindow*>(findWindow(WindowId::ScientificCalculator));
      QVERIFY(calc);
      use(*calc);
      centre->close();
      QTRY_VERIFY(!findWindow(WindowId::ScientificCalculator));
    };
    auto press = [](CalculatorWindow& calc, const char* control, int index) {
      QTest::mouseClick(calc.keyButton(QString::fromLatin1(control), index), Qt::LeftButton);
    };
    auto memoryField = [](CalculatorWindow& calc, int i) {
      return calc.findChild<QLineEdit*>(QStringLiteral("m1(%1)").arg(i))->text();
    };
    run([&](CalculatorWindow& calc) {
      QCOMPARE(memoryField(calc, 0), QStringLiteral("0"));
      QTest::keyClicks(calc.keyButton(QStringLiteral("Command19")), QStringLiteral("2.5"));
      press(calc, "Command28", 0);
      WriteRegister(1, 42.5, QStringLiteral("Área del círculo"));
    });
    run([&](CalculatorWindow& calc) {
      QCOMPARE(memoryField(calc, 0), QStringLiteral("2.5"));
      QCOMPARE(calc.keyButton(QStringLiteral("Command74"), 1)->toolTip(), QStringLiteral("Área del círculo"));
      press(calc, "Command74", 1);
      QCOMPARE(calc.findChild<QLineEdit*>(QStringLiteral("numero"))->text(), QStringLiteral("42.5"));
      press(calc, "Command28", 0);
    });
    run([&](CalculatorWindow& calc) {
      QCOMPARE(memoryField(calc, 0), QStringLiteral("45"));
      QCOMPARE(RegisterValue(1), 42.5);
    });
    QCOMPARE(program().Memories[0], 45.0);
  }
};

QTEST_MAIN(ControlCentreWindowTest)
#include "ControlCentreWindowTest.moc"
