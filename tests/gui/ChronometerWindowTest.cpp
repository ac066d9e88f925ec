// The chronometer's window on a simulated clock: its controls under their
// names, start, lap, stop and zero through the buttons, an alarm armed in
// the boxes that rings, and a power action cancelled in its warning window,
// recorded by the platform double and never performed. The texts fit in
// every language.
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "chrono/ChronometerWindow.h"
#include "chrono/PowerWarningDialog.h"
#include "shell/AlarmIconWidget.h"
#include "shell/Clock.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/GuiTestSupport.h"

namespace {
const QDateTime kStart(QDate(2026, 1, 12), QTime(10, 0, 0));
}

class ChronometerWindowTest : public QObject {
  Q_OBJECT

 private:
  template <typename T>
  static T* control(ChronometerWindow& w, const char* name) {
    T* c = w.findChild<T*>(QLatin1String(name));
    if (!c) qWarning("no control %s", name);
    return c;
  }
  static QString text(ChronometerWindow& w, const char* name) { return control<QLabel>(w, name)->text(); }
  static void click(ChronometerWindow& w, const char* name) {
    QTest::mouseClick(control<QAbstractButton>(w, name), Qt::LeftButton);
  }
  static void type(ChronometerWindow& w, const char* name, const QString& value) {
    QLineEdit* box = control<QLineEdit>(w, name);
    box->selectAll();
    QTest::keyClicks(box, value);
  }
  // Widgets whose text needs more room than they were given.
  static QStringList clipped(QWidget& w) {
    QStringList out;
    for (QWidget* c : w.findChildren<QWidget*>()) {
      if (!c->isVisibleTo(&w)) continue;
      const bool textual = qobject_cast<QLabel*>(c) || qobject_cast<QAbstractButton*>(c);
      if (textual && c->width() < c->minimumSizeHint().width()) out << c->objectName();
    }
    return out;
  }

  std::unique_ptr<SimulatedClock> clock;
  RecordingPlatform recorder;

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clock = std::make_unique<SimulatedClock>(kStart);
    recorder.calls.clear();
    setPlatform(&recorder);
  }
  void cleanup() { setPlatform(nullptr); }

  void opensWithItsControlsUnderTheirNames() {
    ChronometerWindow w(nullptr, clock.get());
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    for (const char* name : {"lblTime", "lblAux", "Label19", "Label2", "Label15", "Label18", "Image3"}) {
      QVERIFY2(w.findChild<QLabel*>(QLatin1String(name)), name);
    }
    for (const char* name : {"crono1_0", "crono1_1", "crono1_2", "crono1_3", "crono1_4"}) {
      QVERIFY2(w.findChild<QPushButton*>(QLatin1String(name)), name);
    }
    for (const char* name : {"Text1_0", "Text1_1", "Text1_2", "Text2"}) {
      QVERIFY2(w.findChild<QLineEdit*>(QLatin1String(name)), name);
    }
    for (const char* name : {"Check1", "Check2", "Check3"}) QVERIFY2(w.findChild<QCheckBox*>(QLatin1String(name)), name);
    QVERIFY(w.findChild<QPushButton*>(QStringLiteral("Command4")));
    QCOMPARE(text(w, "lblTime"), QStringLiteral("10:00:00"));
    QCOMPARE(text(w, "Label2"), Res(401));
    QCOMPARE(w.windowTitle(), Res(8) + QStringLiteral("  -  ") + Res(401));
    QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 760);
  }

  void startLapStopAndZero() {
    ChronometerWindow w(nullptr, clock.get());
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    click(w, "crono1_0");
    clock->advanceBy(5000);
    QCOMPARE(text(w, "lblAux"), QStringLiteral("00:00:05"));  // repainted by the ticks
    click(w, "crono1_2");
    clock->advanceBy(2000);
    QCOMPARE(text(w, "lblAux"), QStringLiteral("00:00:05"));
    click(w, "crono1_4");
    QListWidget* list = control<QListWidget>(w, "List1");
    QVERIFY(list->isVisible());
    QCOMPARE(list->count(), 1);
    click(w, "crono1_1");
    QCOMPARE(text(w, "lblAux"), QStringLiteral("00:00:07"));
    QCOMPARE(list->item(1)->text(), QStringLiteral("00:00:07"));
    click(w, "crono1_3");  // the confirmation takes its first button
    QCOMPARE(text(w, "lblAux"), QStringLiteral("00:00:00"));
    QCOMPARE(list->count(), 0);
    QCOMPARE(guiMessages().shown().back().text, Res(411));
  }

  void alarmArmedInTheBoxesRingsOnTheClock() {
    ChronometerWindow w(nullptr, clock.get());
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QWidget other;  // another window's alarm icon
    auto* icon = new AlarmIconWidget(&other);
    QVERIFY(icon->isHidden());
    type(w, "Text1_0", QStringLiteral("10"));
    type(w, "Text1_1", QStringLiteral("00"));
    type(w, "Text1_2", QStringLiteral("03"));
    click(w, "Command4");
    QVERIFY(control<QCheckBox>(w, "Check1")->isChecked());
    QVERIFY(control<QLabel>(w, "Image3")->isVisible());
    icon->refreshState();
    QVERIFY(!icon->isHidden());
    clock->advanceBy(3000);
    QCOMPARE(guiMessages().shown().back().title, Res(441));
    QVERIFY(!control<QCheckBox>(w, "Check1")->isChecked());
    QVERIFY(recorder.calls.contains(QStringLiteral("beep")));
    icon->refreshState();
    QVERIFY(icon->isHidden());
  }

  void powerActionCancelledInItsWarningWindow() {
    ChronometerWindow w(nullptr, clock.get());
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    w.findChild<QAction*>(QStringLiteral("menuaccion_1"))->trigger();
    QCOMPARE(text(w, "Label15"), Res(428));
    click(w, "Check3");
    type(w, "Text1_0", QStringLiteral("10"));
    type(w, "Text1_2", QStringLiteral("02"));
    click(w, "Command4");
    click(w, "Check1");  // the action alone
    clock->advanceBy(2000);
    PowerWarningDialog* warning = w.warningWindow();
    QVERIFY(warning->isVisible());
    QCOMPARE(warning->findChild<QLabel*>(QStringLiteral("Label"))->text(), QStringLiteral("60"));
    clock->advanceBy(30000);
    QCOMPARE(warning->findChild<QLabel*>(QStringLiteral("Label"))->text(), QStringLiteral("30"));
    QTest::keyClick(warning, Qt::Key_Escape);
    QVERIFY(!warning->isVisible());
    QVERIFY(!w.model().warning.open);
    clock->advanceBy(600000);
    QVERIFY(!recorder.calls.join(u' ').contains(QStringLiteral("powerAction")));

    // Left alone, the same warning ends in the recorded action.
    click(w, "Check3");
    type(w, "Text1_1", QStringLiteral("20"));
    click(w, "Command4");
    click(w, "Check1");
    clock->advanceTo(QDateTime(kStart.date(), QTime(10, 21, 2)));
    QVERIFY(!warning->isVisible());
    QCOMPARE(recorder.calls.filter(QStringLiteral("powerAction")), QStringList({"powerAction suspend"}));
  }

  void textsFitInEveryLanguage() {
    for (int offset : {0, 10000, 20000, 30000}) {
      program().LanguageOffset = offset;
      ChronometerWindow w(nullptr, clock.get());
      w.model().List1Visible = true;
      w.show();
      QVERIFY(QTest::qWaitForWindowExposed(&w));
      const QStringList bad = clipped(w);
      QVERIFY2(bad.isEmpty(), qPrintable(QString::number(offset) + u' ' + bad.join(u',')));
      QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 760);
    }
  }
};

QTEST_MAIN(ChronometerWindowTest)
#include "ChronometerWindowTest.moc"
