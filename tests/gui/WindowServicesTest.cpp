// Window services: placing two windows, the calculator with its large
// display, coloured menu bars, and the help viewer behind ContextHelp.
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBrowser>

#include "funcs/AddInFunctions.h"
#include "funcs/LanguageFunctions.h"
#include "shell/ExtendedDisplayWindow.h"
#include "shell/HelpWindow.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/WindowRegistry.h"
#include "shell/Strings.h"
#include "shell/WindowServices.h"
#include "tests/support/GuiTestSupport.h"

namespace {

// A stand-in calculator: the two displays the large display copies.
QWidget* fakeCalculator(const QString& number, const QColor& back) {
  auto* w = new QWidget;
  w->resize(360, 420);
  auto* numero = new QLineEdit(number, w);
  numero->setObjectName(QStringLiteral("numero"));
  QPalette pal = numero->palette();
  pal.setColor(QPalette::Base, back);
  pal.setColor(QPalette::Text, Qt::yellow);
  numero->setPalette(pal);
  auto* result = new QPlainTextEdit(QStringLiteral("r = ") + number + QStringLiteral("\nsecond line"), w);
  result->setObjectName(QStringLiteral("result"));
  result->move(0, 40);
  return w;
}

}  // namespace

class WindowServicesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
  }
  void cleanup() {
    for (QWidget* w : openWindows()) delete w;
    clearWindowRegistry();
    setHelpPresenter(nullptr);
  }

  void sideBySideCentresThePairWithTheSecondToTheRight() {
    QWidget a, b;
    a.resize(300, 200);
    b.resize(200, 100);
    a.show();
    ArrangeSideBySide(&a, &b, 0);
    QVERIFY(b.isVisible());
    QCOMPARE(b.y(), a.y());
    QCOMPARE(b.x(), a.x() + a.frameGeometry().width());
    const QRect area = a.screen()->availableGeometry();
    const int pairCentre = (a.frameGeometry().left() + b.frameGeometry().right()) / 2;
    QVERIFY(qAbs(pairCentre - area.center().x()) <= 2);
  }

  void aPairTooWideForTheScreenStaysOnItWithTheSecondOnTop() {
    QWidget a, b;
    a.resize(1190, 700);  // the function table and the plot
    b.resize(820, 600);
    a.show();
    QVERIFY(QTest::qWaitForWindowExposed(&a));
    ArrangeSideBySide(&a, &b, 0);
    const QRect area = a.screen()->availableGeometry();
    QVERIFY(area.contains(a.frameGeometry()));
    QVERIFY(area.contains(b.frameGeometry()));
    QCOMPARE(b.frameGeometry().right(), area.right());
    QTRY_VERIFY(b.isActiveWindow());
    // One window larger than the screen is made to fit it.
    QWidget big;
    big.resize(1600, 900);
    big.move(-50, 300);
    big.show();
    KeepOnScreen(&big);
    QVERIFY(area.contains(big.frameGeometry()));
  }

  void stackedPutsTheSecondAboveAndRestoresTheMain() {
    QWidget a, b;
    a.resize(300, 200);
    b.resize(300, 120);
    a.showMinimized();
    ArrangeSideBySide(&a, &b, 1);
    QVERIFY(!a.isMinimized());
    QCOMPARE(a.x(), b.x());
    QCOMPARE(a.y(), b.y() + b.frameGeometry().height());
  }

  void moduleWindowsWithAMenuBarShowTheArmedAlarm() {
    const auto withMenu = [] {
      auto* w = new QMainWindow;
      w->menuBar()->addMenu(QStringLiteral("File"));
      return w;
    };
    registerWindowFactory(WindowId::Banking, withMenu);
    registerWindowFactory(WindowId::Chronometer, withMenu);  // places its own
    registerWindowFactory(WindowId::About, [] { return new QWidget; });
    program().AlarmRegistry.insert(QStringLiteral("estado"), 1);
    auto* bank = qobject_cast<QMainWindow*>(OpenWindow(WindowId::Banking));
    QWidget* bell = bank->menuBar()->cornerWidget(Qt::TopRightCorner);
    QVERIFY(bell);
    QCOMPARE(bell->objectName(), QStringLiteral("Image3"));
    QVERIFY(bell->isVisible());
    OpenWindow(WindowId::Banking);  // opened again: still one bell
    QCOMPARE(bank->menuBar()->findChildren<QLabel*>(QStringLiteral("Image3")).size(), 1);
    auto* chrono = qobject_cast<QMainWindow*>(OpenWindow(WindowId::Chronometer));
    QVERIFY(!chrono->menuBar()->cornerWidget(Qt::TopRightCorner));
    QVERIFY(OpenWindow(WindowId::About));  // no menu bar, nothing added
  }

  void openCalculatorFollowsTheModeAndFillsTheLargeDisplay() {
    registerWindowFactory(WindowId::ScientificCalculator, [] { return fakeCalculator(QStringLiteral("12.5"), Qt::black); });
    registerWindowFactory(WindowId::NormalCalculator, [] { return fakeCalculator(QStringLiteral("7"), Qt::darkGreen); });
    registerWindowFactory(WindowId::ExtendedDisplay, [] { return new ExtendedDisplayWindow; });

    program().CalculatorMode = QStringLiteral("normalita");
    program().ExtendedDisplay = false;
    OpenCalculator();
    QVERIFY(findWindow(WindowId::NormalCalculator));
    QVERIFY(!findWindow(WindowId::ScientificCalculator));
    QVERIFY(!findWindow(WindowId::ExtendedDisplay));

    program().CalculatorMode = QStringLiteral("avanzada");
    program().ExtendedDisplay = true;
    OpenCalculator();
    QWidget* calc = findWindow(WindowId::ScientificCalculator);
    auto* display = qobject_cast<ExtendedDisplayWindow*>(findWindow(WindowId::ExtendedDisplay));
    QVERIFY(calc && display);
    QCOMPARE(display->windowTitle(), Res(3025));
    QCOMPARE(display->Text1->text(), QStringLiteral("12.5"));
    QCOMPARE(display->Text2->toPlainText(), QStringLiteral("r = 12.5\nsecond line"));
    QCOMPARE(display->Text1->palette().color(QPalette::Base), QColor(Qt::black));
    QCOMPARE(display->Text1->palette().color(QPalette::Text), QColor(Qt::yellow));
    QCOMPARE(display->Text1->width(), calc->width() - kExtendedDisplayMargin);
    // Beside the calculator when the pair fits the screen, above it otherwise.
    const int room = calc->screen()->availableGeometry().width();
    if (calc->frameGeometry().width() + display->frameGeometry().width() <= room) {
      QCOMPARE(display->x(), calc->x() + calc->frameGeometry().width());
    } else {
      QCOMPARE(display->x(), calc->x());
      QCOMPARE(calc->y(), display->y() + display->frameGeometry().height());
    }

    // The other calculator refreshes it with its own display.
    QWidget* normal = findWindow(WindowId::NormalCalculator);
    ExtendedDisplayRefresh(normal, 40);
    QCOMPARE(display->Text1->text(), QStringLiteral("7"));
    QCOMPARE(display->Text1->width(), normal->width() - 40);
  }

  void menuBarsAndTheirMenusTakeTheColour() {
    QMainWindow window;
    QMenu* file = window.menuBar()->addMenu(QStringLiteral("File"));
    file->addAction(QStringLiteral("Open"));
    ColorMenuBar(&window, 0x0000FF);  // red, with red in the low byte
    QVERIFY(window.menuBar()->styleSheet().contains(QStringLiteral("#ff0000")));
    QVERIFY(file->styleSheet().contains(QStringLiteral("#ff0000")));
    QWidget plain;
    ColorMenuBar(&plain, 0x00FF00);  // no menu bar: nothing to do, nothing breaks
  }

  void helpTopicsFindTheirPageInTheCurrentLanguage() {
    QCOMPARE(HelpWindow::topicUrl(10100).toString(), QStringLiteral("qrc:/help/es/shell.html#t10100"));
    program().LanguageOffset = 20000;
    QCOMPARE(HelpWindow::topicUrl(10100).toString(), QStringLiteral("qrc:/help/fr/shell.html#t10100"));
    QCOMPARE(HelpWindow::topicUrl(40003).toString(), QStringLiteral("qrc:/help/fr/stats.html#t40003"));
    // A topic of no module falls back to the contents page.
    QCOMPARE(HelpWindow::topicUrl(120003).toString(), QStringLiteral("qrc:/help/fr/index.html"));
  }

  void everyLanguageHasTheTopicsOfTheShell() {
    // The control centre's controls (10000 + number) and the shared services.
    QList<int> topics;
    for (int control : {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 204}) topics << 10000 + control;
    topics << 10000 << 10100 << 10200 << 10300 << 10400 << 10500 << 10600;
    for (const char* lang : {"es", "en", "fr", "ca"}) {
      QFile page(QStringLiteral(":/help/%1/shell.html").arg(QLatin1String(lang)));
      QVERIFY2(page.open(QIODevice::ReadOnly), lang);
      const QString html = QString::fromUtf8(page.readAll());
      for (int t : topics) QVERIFY2(html.contains(QStringLiteral("name=\"t%1\"").arg(t)), qPrintable(QString::number(t)));
      QVERIFY(QFile::exists(QStringLiteral(":/help/%1/index.html").arg(QLatin1String(lang))));
    }
  }

  void theFunctionListHasItsPageWithEveryFunctionInEveryLanguage() {
    QStringList names;
    for (const FunctionDef& f : AddInFunctions().functions()) names << QString::fromLatin1(f.name);
    for (const FunctionDef& f : LanguageFunctions().functions()) names << QString::fromLatin1(f.name);
    QVERIFY(names.size() >= 26 + 13);
    for (int language = 0; language < 4; ++language) {
      program().LanguageOffset = language * 10000;
      const QUrl url = HelpWindow::topicUrl(kFunctionListTopic);
      QCOMPARE(url.fileName(), QStringLiteral("funclist.html"));
      QFile page(QLatin1Char(':') + url.path());
      QVERIFY2(page.open(QIODevice::ReadOnly), qPrintable(url.toString()));
      const QString html = QString::fromUtf8(page.readAll());
      QVERIFY(url.path().startsWith(QStringLiteral("/help/%1/").arg(QStringList{"es", "en", "fr", "ca"}.at(language))));
      QVERIFY(html.contains(QStringLiteral("name=\"t1500\"")));
      for (const QString& name : std::as_const(names)) {
        QVERIFY2(html.contains(QStringLiteral("<td>") + name + QLatin1Char('(')) ||
                     html.contains(QStringLiteral("<td>") + name + QLatin1Char('[')) ||
                     html.contains(QStringLiteral("<td>") + name + QStringLiteral("</td>")),
                 qPrintable(name));
      }
    }
  }

  void contextHelpOpensTheViewerAtTheTopic() {
    registerWindowFactory(WindowId::Help, [] { return new HelpWindow; });
    HelpWindowPresenter presenter;
    setHelpPresenter(&presenter);
    setHelpCursor(true);
    QVERIFY(helpInstead(10100));
    QVERIFY(!program().helpCursor);
    auto* help = qobject_cast<HelpWindow*>(findWindow(WindowId::Help));
    QVERIFY(help && help->isVisible());
    QCOMPARE(help->browser->source().fileName(), QStringLiteral("shell.html"));
    QCOMPARE(help->browser->source().fragment(), QStringLiteral("t10100"));
    QVERIFY(help->browser->toPlainText().contains(QStringLiteral("Mensajes")));
    QCOMPARE(help->windowTitle(), QStringLiteral("Calvix Premium  -  Ayuda"));
  }
};

QTEST_MAIN(WindowServicesTest)
#include "WindowServicesTest.moc"
