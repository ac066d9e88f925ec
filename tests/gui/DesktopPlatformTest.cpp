// The Linux platform layer, as far as a test may go: fonts registered with
// the program only, the names and uptime of the system, a missing sound and
// file. No sound is played and no command is run.
#include <QFontDatabase>
#include <QTest>

#include "shell/DesktopPlatform.h"
#include "tests/support/GuiTestSupport.h"

class DesktopPlatformTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { prepareGuiTest(); }

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
