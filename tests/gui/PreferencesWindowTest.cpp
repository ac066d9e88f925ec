// The Preferences window: it opens with its controls under their names, fits
// the screen with nothing clipped in every language, forwards typing, lists
// and buttons to its model, reloads its captions for the language chosen,
// and closes with Escape leaving the program as it was.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QPointer>
#include <QTest>

#include "shell/ChameleonButtonWidget.h"
#include "shell/ControlCentreWindow.h"
#include "shell/Platform.h"
#include "shell/PreferencesWindow.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "tests/support/GuiTestSupport.h"

class PreferencesWindowTest : public QObject {
  Q_OBJECT

 private:
  RecordingPlatform system_;

  // A click on a check box's own box (its middle may be empty space).
  static void tick(QCheckBox* box) { QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(6, box->height() / 2)); }

  template <typename T>
  static T* child(QWidget& w, const char* name) {
    return w.findChild<T*>(QLatin1String(name));
  }

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    system_ = RecordingPlatform();
    setPlatform(&system_);
  }
  void cleanup() { setPlatform(nullptr); }

  void opensWithItsControlsAndFitsInEveryLanguage() {
    for (int language = 0; language < 4; ++language) {
      program().LanguageOffset = language * 10000;
      PreferencesWindow w;
      w.show();
      QVERIFY(QTest::qWaitForWindowExposed(&w));
      QCOMPARE(w.objectName(), QStringLiteral("Form9"));
      for (const char* name : {"valor", "Text1", "Text2", "Text3", "Text5", "Text6", "Check1", "Check2", "Check4",
                               "Check5", "Check6", "Check7", "List1", "List2", "List3", "List4", "List5", "Command1",
                               "Command2", "Command3", "Command4", "Command5", "Label2", "Label21", "Image1",
                               "Check3(4)", "Option1(5)", "Text4(4)", "Label1(5)"}) {
        QVERIFY2(w.findChild<QWidget*>(QLatin1String(name)), name);
      }
      QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 760);
      // Nothing narrower than its text needs.
      for (QWidget* c : w.findChildren<QWidget*>()) {
        if (!c->isVisible()) continue;
        if (qobject_cast<QLabel*>(c) || qobject_cast<QAbstractButton*>(c) || qobject_cast<ChameleonButtonWidget*>(c) ||
            qobject_cast<QComboBox*>(c)) {
          QVERIFY2(c->width() >= c->minimumSizeHint().width(),
                   qPrintable(QStringLiteral("%1 clipped in language %2").arg(c->objectName()).arg(language)));
        }
      }
    }
  }

  void typingAndSavingGoThroughTheModel() {
    program().DecimalSymbol = QStringLiteral(".");
    auto* w = new PreferencesWindow;
    w->show();
    QVERIFY(QTest::qWaitForWindowExposed(w));
    auto* valor = child<QLineEdit>(*w, "valor");
    valor->setFocus();
    valor->selectAll();
    QTest::keyClicks(valor, QStringLiteral("1,2x.3"));
    child<QLineEdit>(*w, "Text5")->setFocus();
    QCOMPARE(valor->text(), QStringLiteral("1.23"));
    auto* text1 = child<QLineEdit>(*w, "Text1");
    text1->selectAll();
    QTest::keyClicks(text1, QStringLiteral("dolares"));
    QCOMPARE(text1->text(), QStringLiteral("dolar"));
    QCOMPARE(child<QLabel>(*w, "Label4")->text(), QStringLiteral("1 dolar ="));
    tick(child<QCheckBox>(*w, "Check1"));
    QVERIFY(!child<QCheckBox>(*w, "Check5")->isEnabled());

    auto* list5 = child<QComboBox>(*w, "List5");
    list5->setCurrentIndex(1);
    Q_EMIT list5->activated(1);
    QCOMPARE(w->windowTitle(), QStringLiteral("Calvix Premium  -  Preferences"));
    QCOMPARE(program().LanguageOffset, 0);

    QPointer<PreferencesWindow> alive(w);
    QTest::mouseClick(child<ChameleonButtonWidget>(*w, "Command2"), Qt::LeftButton);
    QTRY_VERIFY(alive.isNull());
    QCOMPARE(program().Currency1.toText(), QStringLiteral("dolar"));
    QCOMPARE(program().ExchangeRate.toDouble(), 1.23);
    QCOMPARE(program().SoundOn, std::int16_t{0});
    QCOMPARE(program().LanguageOffset, 10000);
  }

  void escapeClosesWithNothingKept() {
    const QByteArray before = settingsBytes(program());
    auto* w = new PreferencesWindow;
    w->show();
    QVERIFY(QTest::qWaitForWindowExposed(w));
    QTest::mouseClick(child<ChameleonButtonWidget>(*w, "Command1"), Qt::LeftButton);
    tick(child<QCheckBox>(*w, "Check7"));
    QVERIFY(child<QCheckBox>(*w, "Check7")->isChecked());
    QPointer<PreferencesWindow> alive(w);
    QTest::keyClick(w, Qt::Key_Escape);
    QTRY_VERIFY(alive.isNull());
    QCOMPARE(settingsBytes(program()), before);
  }

  void commandBoxShowsWithCtrlPressAndRunsOnEnter() {
    program().OsFamily = 1;
    PreferencesWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* text6 = child<QLineEdit>(w, "Text6");
    QVERIFY(!text6->isVisible());
    QTest::mouseClick(child<QLabel>(w, "Label1(5)"), Qt::LeftButton, Qt::ControlModifier);
    QVERIFY(text6->isVisible());
    QTest::keyClicks(text6, QStringLiteral("salvapantallas"));
    QTest::keyClick(text6, Qt::Key_Return);
    QVERIFY(!text6->isVisible());
    QVERIFY(system_.calls.contains(QStringLiteral("powerAction screensaver")));
  }

  void theProgramsLanguageChangeReachesTheControlCentre() {
    program().SoundOn = 0;
    ControlCentreWindow centre;
    auto* w = new PreferencesWindow;
    w->show();
    auto* list5 = child<QComboBox>(*w, "List5");
    list5->setCurrentIndex(3);
    Q_EMIT list5->activated(3);
    QTest::mouseClick(child<ChameleonButtonWidget>(*w, "Command2"), Qt::LeftButton);
    QCOMPARE(centre.windowTitle(), QStringLiteral("Calvix Premium  -  Centre de Control "));
  }
};

QTEST_MAIN(PreferencesWindowTest)
#include "PreferencesWindowTest.moc"
