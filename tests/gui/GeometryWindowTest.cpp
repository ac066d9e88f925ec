// The geometry window: its controls exist under their names, the list and
// the arrows reach the model, a calculation fills the result boxes and the
// formula view, typed decimal signs become the system's, the inline
// calculator works on Enter, and the window fits 1280x800 unclipped in the
// four languages.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "geometry/FigureView.h"
#include "geometry/GeometryWindow.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "tests/support/GuiTestSupport.h"

class GeometryWindowTest : public QObject {
  Q_OBJECT

 private:
  template <typename T>
  static T* control(GeometryWindow& w, const QString& name) {
    T* c = w.findChild<T*>(name);
    if (!c) qWarning("no control %s", qPrintable(name));
    return c;
  }
  static void show(GeometryWindow& w) {
    w.show();
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
  }
  static void type(GeometryWindow& w, int box, const QString& text) {
    auto* edit = control<QLineEdit>(w, QStringLiteral("Text1_%1").arg(box));
    edit->setFocus();
    edit->selectAll();
    QTest::keyClicks(edit, text);
  }

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void opensWithItsControlsUnderTheirNames() {
    GeometryWindow w;
    show(w);
    for (const char* name : {"Combo1", "chameleonButton1", "chameleonButton1Back", "chameleonButton2", "chameleonButton3",
                             "chameleonButton4", "chameleonButton5", "Check1", "UpDown1", "Text3", "Command1", "Label4",
                             "Picture3", "Text1_1", "Text1_6", "Text2_1", "Text2_3"}) {
      QVERIFY2(w.findChild<QWidget*>(QLatin1String(name)), name);
    }
    QCOMPARE(control<QComboBox>(w, QStringLiteral("Combo1"))->count(), 54);
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label4"))->text(), QStringLiteral("Círculo"));
    QVERIFY(control<QLineEdit>(w, QStringLiteral("Text1_1"))->isVisible());
    QVERIFY(!control<QLineEdit>(w, QStringLiteral("Text1_2"))->isVisible());
    QVERIFY(!control<QLineEdit>(w, QStringLiteral("Text2_3"))->isVisible());
  }

  void listAndArrowsWalkTheCatalogue() {
    GeometryWindow w;
    show(w);
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("chameleonButton1Back")), Qt::LeftButton);
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label4"))->text(), QStringLiteral("Zona Esférica"));
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label1_2"))->text(), QStringLiteral("r1 ="));
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("chameleonButton1")), Qt::LeftButton);
    QCOMPARE(program().FigureIndex, 1);
    auto* combo = control<QComboBox>(w, QStringLiteral("Combo1"));
    combo->setCurrentIndex(5);
    Q_EMIT combo->activated(5);
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label4"))->text(), QStringLiteral("Cono 2"));
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label2_1"))->text(), QStringLiteral("Area Lateral"));
    QCOMPARE(control<FigureView>(w, QStringLiteral("Picture3"))->nameId(), 3560);
  }

  void calculationFillsResultsFormulasAndRegisters() {
    GeometryWindow w;
    show(w);
    type(w, 1, QStringLiteral("0,5"));
    QCOMPARE(control<QLineEdit>(w, QStringLiteral("Text1_1"))->text(), QStringLiteral("0.5"));
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("chameleonButton4")), Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("chameleonButton2")), Qt::LeftButton);
    QCOMPARE(control<QLineEdit>(w, QStringLiteral("Text2_1"))->text(), QStringLiteral("3.14159265358979"));
    const QStringList formulas = control<FigureView>(w, QStringLiteral("Picture3"))->formulas();
    QCOMPARE(formulas, QStringList({QStringLiteral("Perímetro: 2 ¶ r"), QStringLiteral("Área: ¶ r²")}));
    control<QSpinBox>(w, QStringLiteral("UpDown1"))->setValue(1);
    QTest::mouseClick(control<QCheckBox>(w, QStringLiteral("Check1")), Qt::LeftButton);
    QCOMPARE(control<QLineEdit>(w, QStringLiteral("Text2_2"))->text(), QStringLiteral("0.8"));
    QCOMPARE(control<QCheckBox>(w, QStringLiteral("Check1"))->text(), QStringLiteral("1"));
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("chameleonButton3")), Qt::LeftButton);
    QCOMPARE(RegisterLabel(0), QStringLiteral("Círculo - Perímetro"));
    QCOMPARE(RegisterValue(1), 0.8);
    QVERIFY(guiMessages().shown().empty());
  }

  void inlineCalculatorWorksOnEnterAndBoxesTakeItsLine() {
    GeometryWindow w;
    show(w);
    auto* text3 = control<QLineEdit>(w, QStringLiteral("Text3"));
    text3->setFocus();
    text3->selectAll();
    QTest::keyClicks(text3, QStringLiteral("lg(100)+0,5"));
    QTest::keyClick(text3, Qt::Key_Return);
    QCOMPARE(text3->text(), QStringLiteral("2.5"));
    QTest::keyClick(text3, Qt::Key_Backspace);
    QTest::keyClicks(text3, QStringLiteral("/"));
    QTest::keyClick(text3, Qt::Key_Return);
    QCOMPARE(text3->text(), QStringLiteral("2./"));
    QVERIFY(control<QLabel>(w, QStringLiteral("calcStatus"))->isVisible());
    auto* box = control<QLineEdit>(w, QStringLiteral("Text1_1"));
    QTest::mouseDClick(box, Qt::LeftButton);
    QCOMPARE(box->text(), QStringLiteral("2./"));
  }

  void fitsTheScreenUnclippedInEveryLanguage() {
    for (int offset : {0, 10000, 20000, 30000}) {
      program().LanguageOffset = offset;
      GeometryWindow w;
      show(w);
      QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 800);
      // Tronco de Pirámide, Elipse 2, Pirámide Regular (n lados) 1.
      for (const QString& state : {QStringLiteral("53"), QStringLiteral("16"), QStringLiteral("31")}) {
        w.showScreenshotState(state);
        QApplication::processEvents();
        // CALVIX_SHOTS_DIR keeps a picture of each language to look at.
        if (const QString dir = qEnvironmentVariable("CALVIX_SHOTS_DIR"); !dir.isEmpty()) {
          w.grab().save(QStringLiteral("%1/geometry-%2-%3.png").arg(dir).arg(offset).arg(state));
        }
        for (QWidget* c : w.findChildren<QWidget*>()) {
          if (!c->isVisible()) continue;
          if (auto* l = qobject_cast<QLabel*>(c); l && !l->wordWrap()) {
            QVERIFY2(l->width() >= l->sizeHint().width(), qPrintable(l->objectName() + u' ' + l->text()));
          }
          if (auto* b = qobject_cast<QPushButton*>(c)) {
            QVERIFY2(b->width() >= b->sizeHint().width(), qPrintable(b->text()));
          }
        }
      }
    }
  }
};

QTEST_MAIN(GeometryWindowTest)
#include "GeometryWindowTest.moc"
