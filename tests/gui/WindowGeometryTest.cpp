// Every window the desktop program registers, in each of the four languages,
// on a 1280x800 screen: its frame on the screen, every key, label and tab
// whole inside its parent, nothing on top of anything else; every page of its
// tab widgets too. The message box is checked with its list, its input line
// and three buttons.
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include "shell/MessageBoxWindow.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

void registerAppWindows();  // generated from app/main.cpp

namespace {

const char* const kLanguages[] = {"es", "en", "fr", "ca"};

// Shows each message in a real box, checks it and answers with button 0.
class CheckingPresenter : public MessagePresenter {
 public:
  MessageReply present(const MessageRequest& request) override {
    MBox box;
    box.fill(request);
    box.show();
    if (!QTest::qWaitForWindowExposed(&box)) problems << QStringLiteral("message box not exposed");
    for (const QString& p : windowLayoutProblems(&box)) problems << QStringLiteral("message box: ") + p;
    box.hide();
    return {};
  }
  QStringList problems;
};

}  // namespace

class WindowGeometryTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
    registerAppWindows();
  }
  void cleanup() {
    for (QWidget* w : openWindows()) delete w;
    clearWindowRegistry();
  }

  void theScreenIsTheSmallestTheProgramIsMadeFor() {
    QCOMPARE(QGuiApplication::primaryScreen()->geometry().size(), QSize(1280, 800));
  }

  void everyWindowFitsInEveryLanguage_data() {
    QTest::addColumn<int>("window");
    QTest::addColumn<int>("language");
    registerAppWindows();  // the rows are made before init()
    for (WindowId id : allWindowIds()) {
      if (!hasWindowFactory(id)) continue;
      for (int language = 0; language < 4; ++language) {
        QTest::addRow("%s-%s", qPrintable(windowName(id)), kLanguages[language])
            << static_cast<int>(id) << language;
      }
    }
  }
  void everyWindowFitsInEveryLanguage() {
    QFETCH(int, window);
    QFETCH(int, language);
    // The control centre reads its language from the settings file beside
    // the program; no farewell sound to wait for when it closes.
    setProgramLanguage(language);
    program().SoundOn = 0;
    QCOMPARE(writeSettingsFile(QCoreApplication::applicationDirPath() + QStringLiteral("/cvdata.txt"), program()), 0);
    const QStringList problems = checkWindowInLanguage(static_cast<WindowId>(window), language);
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
  }

  void thePlotOpensBesideTheTableWhollyOnTheScreen() {
    QWidget* table = OpenWindow(WindowId::FunctionTable);
    QVERIFY(QTest::qWaitForWindowExposed(table));
    QMetaObject::invokeMethod(table, "showScreenshotState", Q_ARG(QString, QStringLiteral("function")));
    auto* plotButton = table->findChild<QPushButton*>(QStringLiteral("plot"));
    QVERIFY(plotButton && plotButton->isEnabled());
    QTest::mouseClick(plotButton, Qt::LeftButton);
    QWidget* plot = findWindow(WindowId::Plot);
    QVERIFY(plot && plot->isVisible());
    const QRect area = plot->screen()->availableGeometry();
    QVERIFY2(area.contains(plot->frameGeometry()), qPrintable(windowLayoutProblems(plot).join(QLatin1Char('\n'))));
    QVERIFY(area.contains(table->frameGeometry()));
    // Too wide a pair for side by side: the plot keeps to the right, over the table.
    QCOMPARE(plot->frameGeometry().right(), area.right());
  }

  void messageBoxFitsInEveryLanguage() {
    CheckingPresenter presenter;
    setMessagePresenter(&presenter);
    for (int language = 0; language < 4; ++language) {
      setProgramLanguage(language);
      program().SoundOn = 0;
      setMessageList({QStringLiteral("Windows 9x/ME/NT"), QStringLiteral("Windows 2000/XP/Vista")}, Res(24));
      MBoxShow(0, Res(22), 1, 3, 0, Res(23));
      MBoxShow(0, Res(25), 2, 0, 0, Res(26));
      MBoxShow(0, Res(2204), 5, 3, 0, Res(27));
      MBoxShow(0, Res(2202), 3, 2, 0, Res(27));
    }
    setMessagePresenter(&guiMessages());
    QVERIFY2(presenter.problems.isEmpty(), qPrintable(presenter.problems.join(QLatin1Char('\n'))));
  }
};

CALVIX_GUI_TEST_MAIN(WindowGeometryTest)
#include "WindowGeometryTest.moc"
