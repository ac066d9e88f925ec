// The About window: its texts, its buttons and Label5 reaching the recording
// platform, Escape closing it.
#include <QLabel>
#include <QPointer>
#include <QTest>

#include "shell/AboutWindow.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "tests/support/GuiTestSupport.h"

class AboutWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    setPlatform(&system);
    system.calls.clear();
  }
  void cleanup() { setPlatform(nullptr); }

  void showsItsTextsAndOpensThroughThePlatform() {
    system.user = QStringLiteral("marta");
    auto* w = new AboutWindow;
    QPointer<AboutWindow> alive = w;
    w->show();
    QVERIFY(QTest::qWaitForWindowExposed(w));
    QCOMPARE(w->windowTitle(), QStringLiteral("Acerca de Calvix Premium"));
    QVERIFY(w->findChild<QLabel*>(QStringLiteral("version"))->text().contains(QLatin1String(" m. Rev. ")));
    QVERIFY(w->findChild<QLabel*>(QStringLiteral("user"))->text().endsWith(QLatin1String("marta")));
    QVERIFY(!w->findChild<QLabel*>(QStringLiteral("sampleNote"))->text().isEmpty());
    QTest::mouseClick(w->findChild<ChameleonButtonWidget*>(QStringLiteral("Command4")), Qt::LeftButton);
    QTest::mouseClick(w->findChild<QLabel*>(QStringLiteral("Label5")), Qt::LeftButton);
    QCOMPARE(system.calls, QStringList({"openUrl " + AboutModel::kProductsUrl, "openUrl " + program().WebAddress}));
    const QStringList problems = windowLayoutProblems(w);
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    QTest::keyClick(w, Qt::Key_Escape);
    QTRY_VERIFY(alive.isNull());
  }

 private:
  RecordingPlatform system;
};

CALVIX_GUI_TEST_MAIN(AboutWindowTest)
#include "AboutWindowTest.moc"
