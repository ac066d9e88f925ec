// The scientific calculator's module menus and its keys to other modules:
// the menus stand on the menu bar with their captions in every language, each
// item opens its window through the registry, its page through the help
// service or the web address through the platform layer, and the colour items
// repaint the window at once.
#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>

#include "calc/CalculatorWindow.h"
#include "shell/ExtendedDisplayWindow.h"
#include "shell/HelpPages.h"
#include "shell/HelpWindow.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

namespace {

class RecordingHelp : public HelpPresenter {
 public:
  void showTopic(int topic) override { topics << topic; }
  QList<int> topics;
};

// The windows the menus open: plain stand-ins named after their id.
const WindowId kModules[] = {WindowId::Chronometer, WindowId::Calendar, WindowId::UnitConverter,
                             WindowId::FunctionTable, WindowId::Banking, WindowId::PeriodicTable,
                             WindowId::Lottery, WindowId::Geometry, WindowId::About, WindowId::Plot};

void registerStandIns() {
  clearWindowRegistry();
  for (WindowId id : kModules) {
    registerWindowFactory(id, [id] {
      auto* w = new QWidget;
      w->setObjectName(windowName(id));
      w->setAttribute(Qt::WA_DeleteOnClose);
      return w;
    });
  }
}

QStringList openedWindows() {
  QStringList names;
  for (WindowId id : kModules) {
    if (findWindow(id)) names << windowName(id);
  }
  return names;
}

QAction* menuItem(CalculatorWindow& w, const QString& name) { return w.findChild<QAction*>(name); }

}  // namespace

class CalculatorMenusWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    setPlatform(&system_);
    system_.calls.clear();
    setHelpPresenter(&help_);
    help_.topics.clear();
    registerStandIns();
  }
  void cleanup() {
    clearWindowRegistry();
    setHelpPresenter(nullptr);
    setPlatform(nullptr);
  }

  void menusStandOnTheMenuBarWithTheirItemsInEveryLanguage() {
    const QList<std::pair<QString, QStringList>> menus = {
        {QStringLiteral("programas"),
         {"Alarmacalc", "calen1", "conversion", "evaluator", "prestamos", "tablap"}},
        {QStringLiteral("entretenimiento"), {"internet", "simuloto"}},
        {QStringLiteral("variosF"), {"cuadernoMat", "geokord1", "phonees", "phoneint", "PostalCodes"}},
        {QStringLiteral("opcalc"), {"colorfondo", "colorvisor", "colorfuent1"}},
        {QStringLiteral("ayuda"), {"mnuayuda", "acerca"}},
    };
    for (int language = 0; language < 4; ++language) {
      setProgramLanguage(language);
      CalculatorWindow w;
      QStringList barTitles;
      for (QAction* a : w.menuBar()->actions()) barTitles << a->text();
      QCOMPARE(barTitles, (QStringList{Res(4800), Res(4801), Res(4802), Res(4803), Res(14)}));
      for (const auto& [name, items] : menus) {
        auto* menu = w.findChild<QMenu*>(name);
        QVERIFY2(menu, qPrintable(name));
        QStringList names;
        for (QAction* a : menu->actions()) {
          QVERIFY2(!a->text().isEmpty(), qPrintable(a->objectName()));
          names << (a->menu() ? a->menu()->objectName() : a->objectName());
        }
        QCOMPARE(names, items);
      }
      for (const char* colour : {"colorfondo", "colorvisor", "colorfuent1"}) {
        auto* menu = w.findChild<QMenu*>(QLatin1String(colour));
        QCOMPARE(menu->actions().size(), 2);
        QCOMPARE(menu->actions().at(0)->text(), Res(3378));
        QCOMPARE(menu->actions().at(1)->text(), Res(4813));
      }
    }
  }

  void itemsOpenTheirWindowsPagesAndAddress() {
    CalculatorWindow w;
    const QList<std::pair<const char*, WindowId>> opening = {
        {"Alarmacalc", WindowId::Chronometer}, {"calen1", WindowId::Calendar},
        {"conversion", WindowId::UnitConverter}, {"evaluator", WindowId::FunctionTable},
        {"prestamos", WindowId::Banking},      {"tablap", WindowId::PeriodicTable},
        {"simuloto", WindowId::Lottery},       {"geokord1", WindowId::Geometry},
        {"acerca", WindowId::About},
    };
    for (const auto& [item, id] : opening) {
      menuItem(w, QLatin1String(item))->trigger();
      QCOMPARE(openedWindows(), QStringList{windowName(id)});
      findWindow(id)->close();
      QTest::qWait(0);
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    program().WebAddress = QStringLiteral("https://calvix.example/");
    menuItem(w, QStringLiteral("internet"))->trigger();
    QCOMPARE(system_.calls, QStringList{QStringLiteral("openUrl https://calvix.example/")});
    for (const char* item : {"cuadernoMat", "phonees", "phoneint", "PostalCodes", "mnuayuda"}) {
      menuItem(w, QLatin1String(item))->trigger();
    }
    QCOMPARE(help_.topics, (QList<int>{kMathNotebookTopic, kSpainPhonesTopic, kWorldPhonesTopic, kPostalCodesTopic,
                                       CalculatorEngine::helpTopic(0)}));
    QVERIFY(openedWindows().isEmpty());
    // With the help cursor an item shows the menus' help topic and does nothing else.
    help_.topics.clear();
    setHelpCursor(true);
    menuItem(w, QStringLiteral("simuloto"))->trigger();
    QCOMPARE(help_.topics, QList<int>{CalculatorEngine::helpTopic(7)});
    QVERIFY(!program().helpCursor);
    QVERIFY(openedWindows().isEmpty());
  }

  // Each reference page exists in every language, at its own address.
  void referencePagesExistInEveryLanguage() {
    const QList<std::pair<int, const char*>> pages = {{kMathNotebookTopic, "mat"},
                                                      {kSpainPhonesTopic, "phonees"},
                                                      {kWorldPhonesTopic, "phoneint"},
                                                      {kPostalCodesTopic, "postalcodes"}};
    const char* const languages[] = {"es", "en", "fr", "ca"};
    for (int language = 0; language < 4; ++language) {
      setProgramLanguage(language);
      for (const auto& [topic, page] : pages) {
        const QString expected =
            QStringLiteral("qrc:/help/%1/%2.html#t%3").arg(QLatin1String(languages[language]), QLatin1String(page)).arg(topic);
        QCOMPARE(HelpWindow::topicUrl(topic).toString(), expected);
        QFile file(QStringLiteral(":/help/%1/%2.html").arg(QLatin1String(languages[language]), QLatin1String(page)));
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
        QVERIFY(QString::fromUtf8(file.readAll()).contains(QStringLiteral("name=\"t%1\"").arg(topic)));
      }
    }
  }

  void colourItemsRepaintAtOnce() {
    registerWindowFactory(WindowId::ExtendedDisplay, [] { return new ExtendedDisplayWindow; });
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QTest::mouseClick(w.findChild<QPushButton*>(QStringLiteral("chameleonButton1")), Qt::LeftButton);
    auto* large = qobject_cast<ExtendedDisplayWindow*>(findWindow(WindowId::ExtendedDisplay));
    QVERIFY(large && large->isVisible());
    QList<std::uint32_t> answers = {0x0000FF, 0x00FF00, 0xFF0000};
    w.pickColour = [&](std::uint32_t, const QString&) { return std::optional<std::uint32_t>(answers.takeFirst()); };
    auto* numero = w.findChild<QLineEdit*>(QStringLiteral("numero"));
    menuItem(w, QStringLiteral("colorfondo(1)"))->trigger();
    QCOMPARE(w.centralWidget()->palette().color(QPalette::Window), QColor(255, 0, 0));
    menuItem(w, QStringLiteral("colorvisor(1)"))->trigger();
    QVERIFY(numero->styleSheet().contains(QStringLiteral("background: #00ff00")));
    QCOMPARE(large->Text1->palette().color(QPalette::Base), QColor(0, 255, 0));  // the large display follows
    menuItem(w, QStringLiteral("colorfuent1(1)"))->trigger();
    QVERIFY(numero->styleSheet().contains(QStringLiteral("color: #0000ff")));
    menuItem(w, QStringLiteral("colorfondo(0)"))->trigger();
    QVERIFY(w.centralWidget()->palette().color(QPalette::Window) != QColor(255, 0, 0));
    delete large;
  }

  void moduleKeysOpenTheTablePlotAndConverter() {
    CalculatorWindow w;
    const auto click = [&](const char* key) { QTest::mouseClick(w.keyButton(QLatin1String(key)), Qt::LeftButton); };
    click("Command70");
    click("Command71");
    w.engine().numero = QStringLiteral("12ab");
    click("Command7");
    QCOMPARE(openedWindows(), (QStringList{windowName(WindowId::FunctionTable), windowName(WindowId::Plot)}));
    QCOMPARE(guiMessages().shown().size(), size_t{1});
    w.engine().numero = QStringLiteral("12.5");
    click("Command7");
    QVERIFY(findWindow(WindowId::UnitConverter));
    QCOMPARE(guiMessages().shown().size(), size_t{1});
  }

 private:
  RecordingPlatform system_;
  RecordingHelp help_;
};

CALVIX_GUI_TEST_MAIN(CalculatorMenusWindowTest)
#include "CalculatorMenusWindowTest.moc"
