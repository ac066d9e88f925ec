// The control centre's window: it opens, runs its start order around the
// first paint, shows the counter, offers only the modules that exist, opens
// the calculator, and on closing unloads the other windows.
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include "calc/CalculatorWindow.h"
#include "shell/ControlCentreWindow.h"
#include "shell/PictureHolderView.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
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
};

QTEST_MAIN(ControlCentreWindowTest)
#include "ControlCentreWindowTest.moc"
