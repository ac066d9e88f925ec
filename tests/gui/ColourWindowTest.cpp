// The colour viewer and resistor code windows: controls under their names,
// typed keys and clicks reach the models, and both fit 1280x800 unclipped in
// the four languages. CALVIX_SHOTS_DIR keeps a picture of each.
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>
#include <QTest>

#include "calc/CalculatorWindow.h"
#include "calc/ColourWindow.h"
#include "calc/ResistorWindow.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "tests/support/GuiTestSupport.h"

class ColourWindowTest : public QObject {
  Q_OBJECT

 private:
  template <typename T>
  static T* control(QWidget& w, const QString& name) {
    T* c = w.findChild<T*>(name);
    if (!c) qWarning("no control %s", qPrintable(name));
    return c;
  }
  static void shot(QWidget& w, const QString& name) {
    if (const QString dir = qEnvironmentVariable("CALVIX_SHOTS_DIR"); !dir.isEmpty()) {
      w.grab().save(QStringLiteral("%1/%2.png").arg(dir, name));
    }
  }

 private Q_SLOTS:
  void initTestCase() {
    registerWindowFactory(WindowId::ColourViewer, [] { return new ColourWindow; });
    registerWindowFactory(WindowId::ResistorCode, [] { return new ResistorWindow; });
  }
  void init() { prepareGuiTest(); }

  void colourFieldsFollowTypingAndSliders() {
    ColourWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* html = control<QLineEdit>(w, QStringLiteral("txtHTML"));
    QVERIFY(html);
    html->setFocus();
    html->selectAll();
    QTest::keyClicks(html, QStringLiteral("FF00zz80"));  // z refused by the filter
    QCOMPARE(html->text(), QStringLiteral("FF0080"));
    QCOMPARE(control<QLineEdit>(w, QStringLiteral("txtHEX"))->text(), QStringLiteral("&h8000FF"));
    QCOMPARE(control<QSlider>(w, QStringLiteral("scrl(2)"))->value(), 128);
    control<QSlider>(w, QStringLiteral("scrl(0)"))->setValue(0);
    QCOMPARE(control<QLineEdit>(w, QStringLiteral("txtRGB"))->text(), QStringLiteral("RGB(0,0,128)"));
    QCOMPARE(control<QLineEdit>(w, QStringLiteral("txt2(0)"))->text(), QStringLiteral("160"));
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("botoncopia")), Qt::LeftButton);
    QCOMPARE(RegisterValue(3), 128.0 * 65536);
    shot(w, QStringLiteral("colour-viewer"));
  }

  void resistorKeysPaintAndRead() {
    ResistorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    for (int c : {1, 0, 2, 10}) QTest::mouseClick(control<QPushButton>(w, QStringLiteral("Command86(%1)").arg(c)), Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("Command87")), Qt::LeftButton);
    QCOMPARE(control<QLineEdit>(w, QStringLiteral("Text8"))->text(), QStringLiteral("1000"));
    auto* value = control<QLineEdit>(w, QStringLiteral("Text9"));
    QTest::keyClicks(value, QStringLiteral("47000"));
    QTest::keyClick(value, Qt::Key_Return);
    QCOMPARE(w.model().bandWords(), QStringLiteral("yellow violet orange gold"));
    shot(w, QStringLiteral("resistor-code"));
    program().LanguageOffset = 20000;
    ResistorWindow french;
    french.show();
    QVERIFY(QTest::qWaitForWindowExposed(&french));
    shot(french, QStringLiteral("resistor-code-fr"));
  }

  void calculatorPageEvaluatesAndOpensTheTools() {
    CalculatorWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* text4 = control<QLineEdit>(w, QStringLiteral("Text4"));
    QVERIFY(text4);
    control<QTabWidget>(w, QStringLiteral("panels"))->setCurrentWidget(control<QWidget>(w, QStringLiteral("programsPage")));
    text4->setFocus();
    QTest::keyClicks(text4, QStringLiteral("2*3"));  // the field keeps its keys from the keypad
    QTest::keyClick(text4, Qt::Key_Return);
    QCOMPARE(w.engine().numero.text(), QStringLiteral("6."));
    QTest::mouseClick(w.keyButton(QStringLiteral("Command80"), 4), Qt::LeftButton);
    QCOMPARE(program().Programs[4], QStringLiteral("2*3"));
    QCOMPARE(w.keyButton(QStringLiteral("Command79"), 4)->toolTip(), QStringLiteral("2*3"));
    shot(w, QStringLiteral("calculator-programs"));
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("botoncolor")), Qt::LeftButton);
    QVERIFY(findWindow(WindowId::ColourViewer));
    findWindow(WindowId::ColourViewer)->close();
  }

  void fitTheScreenInEveryLanguage() {
    for (WindowId id : {WindowId::ColourViewer, WindowId::ResistorCode}) {
      for (int language = 0; language < 4; ++language) {
        const QStringList problems = checkWindowInLanguage(id, language);
        QVERIFY2(problems.isEmpty(), qPrintable(windowName(id) + u' ' + problems.join(u'\n')));
      }
    }
  }
};

CALVIX_GUI_TEST_MAIN(ColourWindowTest)
#include "ColourWindowTest.moc"
