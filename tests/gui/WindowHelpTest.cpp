// Every window has a help topic with a page and its anchor in all four
// languages; F1 and the help cursor reach the topic, and F1 stays a
// calculator key in the calculator.
#include <QAction>
#include <QFile>
#include <QTest>

#include "calc/CalculatorWindow.h"
#include "funcs/FunctionTableWindow.h"
#include "funcs/PlotWindow.h"
#include "shell/HelpWindow.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/WindowHelp.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

namespace {

class RecordingHelp : public HelpPresenter {
 public:
  void showTopic(int topic) override { topics.push_back(topic); }
  std::vector<int> topics;
};

}  // namespace

class WindowHelpTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { installHelpKey(*qApp); }
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
    help_.topics.clear();
    setHelpPresenter(&help_);
  }
  void cleanup() {
    setHelpPresenter(nullptr);
    clearWindowRegistry();
  }

  void everyWindowsTopicHasItsPageInEveryLanguage() {
    HelpWindow::topicUrl(0);  // the pages' resource is registered with the viewer
    QStringList missing;
    for (WindowId id : allWindowIds()) {
      const int topic = windowHelpTopic(id);
      if (topic <= 0) {
        missing << windowName(id) + QStringLiteral(": no topic");
        continue;
      }
      const QString page = helpPageOfTopic(topic);
      for (const char* lang : {"es", "en", "fr", "ca"}) {
        QFile file(QStringLiteral(":/help/%1/%2.html").arg(QLatin1String(lang), page));
        if (!file.open(QIODevice::ReadOnly)) {
          missing << QStringLiteral("%1: %2/%3.html").arg(windowName(id), QLatin1String(lang), page);
          continue;
        }
        if (!QString::fromUtf8(file.readAll()).contains(QStringLiteral("name=\"t%1\"").arg(topic))) {
          missing << QStringLiteral("%1: t%2 in %3/%4.html").arg(windowName(id)).arg(topic).arg(QLatin1String(lang), page);
        }
      }
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
  }

  void f1AndTheHelpCursorShowTheWindowsTopic() {
    registerWindowFactory(WindowId::Plot, [] { return new PlotWindow; });
    registerWindowFactory(WindowId::FunctionTable, [] { return new FunctionTableWindow; });
    for (WindowId id : {WindowId::FunctionTable, WindowId::Plot}) {
      QWidget* w = OpenWindow(id);
      QVERIFY(QTest::qWaitForWindowExposed(w));
      help_.topics.clear();
      QTest::keyClick(w->focusWidget() ? w->focusWidget() : w, Qt::Key_F1);
      QCOMPARE(help_.topics, std::vector<int>{windowHelpTopic(id)});
    }
    // With the help cursor a menu of the plot shows the topic and does nothing else.
    auto* plot = qobject_cast<PlotWindow*>(findWindow(WindowId::Plot));
    const bool grid = plot->model().menureja;
    help_.topics.clear();
    setHelpCursor(true);
    plot->findChild<QAction*>(QStringLiteral("menureja"))->trigger();
    QCOMPARE(help_.topics, std::vector<int>{windowHelpTopic(WindowId::Plot)});
    QCOMPARE(plot->model().menureja, grid);
    QVERIFY(!program().helpCursor);
  }

  void f1StaysTheCalculatorsLogKey() {
    registerWindowFactory(WindowId::ScientificCalculator, [] { return new CalculatorWindow; });
    QWidget* w = OpenWindow(WindowId::ScientificCalculator);
    QVERIFY(QTest::qWaitForWindowExposed(w));
    QTest::keyClick(w->focusWidget() ? w->focusWidget() : w, Qt::Key_F1);
    QVERIFY(help_.topics.empty());
  }

 private:
  RecordingHelp help_;
};

QTEST_MAIN(WindowHelpTest)
#include "WindowHelpTest.moc"
