// The Linux platform layer, as far as a test may go: the command each power
// action would run (nothing is started), fonts registered with the program
// only, the names and uptime of the system, and a missing sound. No sound is
// played and no command is run.
#include <QFontDatabase>
#include <QTest>

#include "shell/DesktopPlatform.h"
#include "tests/support/GuiTestSupport.h"

class DesktopPlatformTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { prepareGuiTest(); }

  void powerActionsMapToSystemCommands() {
    QCOMPARE(LinuxPlatform::commandsFor(QStringLiteral("shutdown")).first(),
             QStringList({QStringLiteral("systemctl"), QStringLiteral("poweroff")}));
    const QStringList delayed = LinuxPlatform::commandsFor(QStringLiteral("shutdown-delayed")).first();
    QVERIFY(delayed.last().startsWith(QStringLiteral("sleep 8;")));
    QCOMPARE(LinuxPlatform::commandsFor(QStringLiteral("screensaver")).first(),
             QStringList({QStringLiteral("xdg-screensaver"), QStringLiteral("activate")}));
    for (const char* action : {"reboot", "suspend", "logout"}) {
      QVERIFY2(!LinuxPlatform::commandsFor(QString::fromLatin1(action)).isEmpty(), action);
    }
    QVERIFY(LinuxPlatform::commandsFor(QStringLiteral("format-disk")).isEmpty());
  }

  void fontsAreRegisteredForTheProgramAndRemovedAgain() {
    LinuxPlatform p;
    const QString font = QStringLiteral("/usr/share/fonts/truetype/dseg/DSEG7Classic-Regular.ttf");
    QVERIFY(p.registerFont(font));
    QVERIFY(QFontDatabase::families().contains(QStringLiteral("DSEG7 Classic")));
    QVERIFY(p.removeFont(font));
    QVERIFY(!p.removeFont(font));  // only once
    QVERIFY(!p.registerFont(QStringLiteral("/nonexistent/font.ttf")));
  }

  void systemFactsAreThere() {
    LinuxPlatform p;
    QVERIFY(!p.userName().isEmpty());
    QVERIFY(p.uptimeMilliseconds() > 0);
    QVERIFY(!p.systemName().isEmpty());
    QVERIFY(!p.playSound(QStringLiteral("/nonexistent/hey.wav"), false));
    QVERIFY(!p.openFile(QStringLiteral("/nonexistent/leeme.htm")));
  }
};

QTEST_MAIN(DesktopPlatformTest)
#include "DesktopPlatformTest.moc"
