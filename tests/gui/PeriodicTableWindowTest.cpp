// The periodic table's window: its controls under their names, a click on an
// element fills the sheet, the builder runs from its buttons, both layouts
// place every button apart, the window fits 1280x800 with no caption cut in
// any language, the notes reach the help, and the sheet prints to a PDF.
#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

#include "elements/ElementPictureView.h"
#include "elements/PeriodicTableWindow.h"
#include "shell/PrintDialog.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "tests/support/GuiTestSupport.h"

namespace {

class TopicRecorder : public HelpPresenter {
 public:
  void showTopic(int topic) override { topics.append(topic); }
  QList<int> topics;
};

}  // namespace

class PeriodicTableWindowTest : public QObject {
  Q_OBJECT

 private:
  QTemporaryDir folder_;

  template <typename T>
  static T* control(QWidget& w, const QString& name) {
    T* c = w.findChild<T*>(name);
    if (!c) qWarning("no control %s", qPrintable(name));
    return c;
  }
  static QToolButton* zeta(QWidget& w, int z) { return control<QToolButton>(w, QStringLiteral("zeta_%1").arg(z)); }
  static QString label(QWidget& w, const char* name) { return control<QLabel>(w, QLatin1String(name))->text(); }
  static void show(QWidget& w) {
    w.show();
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
  }
  // Every visible label shows its whole text, and every visible button its caption.
  static void noTextCut(QWidget& w, const QString& where) {
    for (QLabel* l : w.findChildren<QLabel*>()) {
      if (!l->isVisible() || l->text().isEmpty() || l->wordWrap()) continue;
      QVERIFY2(l->width() >= l->minimumSizeHint().width(),
               qPrintable(where + u' ' + l->objectName() + QStringLiteral(": ") + l->text()));
    }
    // The element buttons: each line of their text within the button.
    for (int z = 1; z <= 111; ++z) {
      QToolButton* b = zeta(w, z);
      const QFontMetrics fm(b->font());
      for (const QString& line : b->text().split(u'\n')) {
        QVERIFY2(fm.horizontalAdvance(line) <= b->width() - 4, qPrintable(where + u' ' + b->objectName()));
      }
      QVERIFY2(fm.height() * 2 <= b->height(), qPrintable(where + u' ' + b->objectName()));
    }
    for (QAbstractButton* b : w.findChildren<QAbstractButton*>()) {
      if (!b->isVisible() || b->objectName().startsWith(QLatin1String("zeta_"))) continue;
      QVERIFY2(b->width() >= b->minimumSizeHint().width() - 1,
               qPrintable(where + u' ' + b->objectName() + QStringLiteral(": ") + b->text()));
      QVERIFY2(b->height() >= b->minimumSizeHint().height() - 1, qPrintable(where + u' ' + b->objectName()));
    }
  }

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    const QString built = QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("../bin/cvxtp.dlj"));
    QFile::remove(folder_.filePath(QStringLiteral("cvxtp.dlj")));
    QVERIFY(QFile::copy(built, folder_.filePath(QStringLiteral("cvxtp.dlj"))));
    program().AppFolder = rt::Variant(folder_.path() + QLatin1Char('/'));
  }

  void opensWithItsControlsUnderTheirNames() {
    PeriodicTableWindow w;
    show(w);
    QCOMPARE(w.windowTitle(), QStringLiteral("Calvix Premium  -  Tabla Periódica"));
    for (int z = 1; z <= 111; ++z) {
      QToolButton* b = zeta(w, z);
      QVERIFY(b);
      QCOMPARE(b->toolTip(), PeriodicTable::zetaToolTip(z));
    }
    QCOMPARE(zeta(w, 79)->toolTip(), QStringLiteral("79, Oro, Gold, Or, Or"));
    for (int i = 0; i < kElementFieldCount; ++i) QVERIFY(control<QLabel>(w, elementFieldName(i)));
    for (const char* name : {"Command3", "Command4", "Image2", "Image3", "Command123", "Command112", "Command124",
                             "formula", "masa", "nn", "Label1", "Image6", "Label2_0", "Label2_17"}) {
      QVERIFY2(w.findChild<QWidget*>(QLatin1String(name)), name);
    }
    for (const char* name : {"elementoimpr", "tipotabla1", "tipotabla2", "calculo", "EnergyUnit_0", "EnergyUnit_1",
                             "pauling", "paulingno", "cuadernoacido", "solubili"}) {
      QVERIFY2(w.findChild<QAction*>(QLatin1String(name)), name);
    }
    QVERIFY(!control<QWidget>(w, QStringLiteral("builder"))->isVisible());
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label2_7"))->text(), QStringLiteral("8"));
  }

  void aClickOnAnElementFillsTheSheet() {
    PeriodicTableWindow w;
    show(w);
    QTest::mouseClick(zeta(w, 80), Qt::LeftButton);
    QCOMPARE(label(w, "nombres"), QStringLiteral("Mercurio"));
    QCOMPARE(label(w, "pesos"), QStringLiteral("200.59"));
    QCOMPARE(label(w, "zText"), QStringLiteral("z = 80"));
    QVERIFY(label(w, "simbolos") == QStringLiteral("Hg"));
    QVERIFY(control<QLabel>(w, QStringLiteral("simbolos"))->font().underline());
    QCOMPARE(w.findChild<ElementPictureView*>(QStringLiteral("Image3"))->crystal(), CrystalSystem::Rhombohedral);
    // The scale switch shows the other label in the same place.
    w.findChild<QAction*>(QStringLiteral("paulingno"))->trigger();
    QVERIFY(control<QLabel>(w, QStringLiteral("electronegs1"))->isVisible());
    QVERIFY(!control<QLabel>(w, QStringLiteral("electronegs"))->isVisible());
    QVERIFY(!w.findChild<QAction*>(QStringLiteral("pauling"))->isChecked());
    w.findChild<QAction*>(QStringLiteral("EnergyUnit_1"))->trigger();
    QCOMPARE(control<QLabel>(w, QStringLiteral("energiasCaption"))->text(), Res(1036));
    // The group heads switch numbering.
    QTest::mouseClick(control<QToolButton>(w, QStringLiteral("Command3")), Qt::LeftButton);
    QCOMPARE(control<QLabel>(w, QStringLiteral("Label2_7"))->text(), QStringLiteral("VIII"));
  }

  void theBuilderRunsFromItsButtons() {
    PeriodicTableWindow w;
    show(w);
    w.findChild<QAction*>(QStringLiteral("calculo"))->trigger();
    QVERIFY(control<QWidget>(w, QStringLiteral("builder"))->isVisible());
    QTest::mouseClick(zeta(w, 1), Qt::LeftButton);
    QTest::mouseClick(control<QToolButton>(w, QStringLiteral("Command1_2")), Qt::LeftButton);
    QCOMPARE(label(w, "nn"), QStringLiteral("2"));
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("Command123")), Qt::LeftButton);
    QTest::mouseClick(zeta(w, 8), Qt::LeftButton);
    QCOMPARE(w.table().weight.formula, QStringLiteral("H2O"));
    QCOMPARE(label(w, "formula"), QStringLiteral("H<sub>2</sub>O"));
    QCOMPARE(label(w, "masa"), QStringLiteral("18.015"));
    // Keys: digits, Enter for the subscript, Escape leaves the mode.
    QTest::keyClick(&w, Qt::Key_3);
    QTest::keyClick(&w, Qt::Key_Return);
    QCOMPARE(w.table().weight.formula, QStringLiteral("H2O3"));
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("Command112")), Qt::LeftButton);
    QCOMPARE(label(w, "formula"), QString());
    QTest::keyClick(&w, Qt::Key_Escape);
    QVERIFY(!control<QWidget>(w, QStringLiteral("builder"))->isVisible());
  }

  void bothLayoutsPlaceEveryButtonApartInTableOrder() {
    PeriodicTableWindow w;
    show(w);
    for (const char* layout : {"tipotabla1", "tipotabla2"}) {
      w.findChild<QAction*>(QLatin1String(layout))->trigger();
      QApplication::processEvents();
      QSet<QPair<int, int>> places;
      for (int z = 1; z <= 111; ++z) {
        const QRect g = zeta(w, z)->geometry();
        QVERIFY2(!places.contains({g.x(), g.y()}), layout);
        places.insert({g.x(), g.y()});
      }
      // Hydrogen's row is above lithium's; helium is right of hydrogen; iron sits left of copper.
      QVERIFY(zeta(w, 1)->y() < zeta(w, 3)->y());
      QVERIFY(zeta(w, 2)->x() > zeta(w, 1)->x());
      QVERIFY(zeta(w, 26)->x() < zeta(w, 29)->x());
      QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 800);
    }
    // In the long layout the lanthanides sit in period 6, between barium and hafnium.
    QCOMPARE(zeta(w, 58)->y(), zeta(w, 56)->y());
    QVERIFY(zeta(w, 58)->x() > zeta(w, 56)->x() && zeta(w, 58)->x() < zeta(w, 72)->x());
  }

  void fitsTheScreenWithNoTextCutInAnyLanguage() {
    for (int offset : {0, 10000, 20000, 30000}) {
      program().LanguageOffset = offset;
      for (int layout : {1, 2}) {
        PeriodicTableWindow w;
        show(w);
        if (layout == 2) w.findChild<QAction*>(QStringLiteral("tipotabla2"))->trigger();
        w.findChild<QAction*>(QStringLiteral("calculo"))->trigger();
        QTest::mouseClick(zeta(w, 79), Qt::LeftButton);
        w.findChild<QAction*>(QStringLiteral("EnergyUnit_1"))->trigger();
        // The offscreen screen is smaller than 1280x800: give the window the
        // size it takes there (the width of the screen less a margin).
        w.resize(1264, w.height());
        QApplication::processEvents();
        const QString where = QStringLiteral("language %1 layout %2 size %3x%4 screen %5").arg(offset).arg(layout).arg(w.width()).arg(w.height()).arg(w.screen()->availableGeometry().width());
        QVERIFY2(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 800, qPrintable(where));
        QVERIFY2(w.width() >= w.minimumSizeHint().width() && w.height() >= w.minimumSizeHint().height(),
                 qPrintable(where));
        noTextCut(w, where);
        QCOMPARE(label(w, "pesos"), QStringLiteral("196.97"));
      }
    }
  }

  void notesOpenTheirHelpTopics() {
    TopicRecorder help;
    setHelpPresenter(&help);
    PeriodicTableWindow w;
    show(w);
    w.findChild<QAction*>(QStringLiteral("cuadernoacido"))->trigger();
    w.findChild<QAction*>(QStringLiteral("lewis"))->trigger();
    setHelpPresenter(nullptr);
    QCOMPARE(help.topics, (QList<int>{77214, 77220}));
  }

  void theSheetPrintsToAPdf() {
    QTemporaryDir dir;
    PrinterPresenter printer;
    const QString pdf = dir.filePath(QStringLiteral("sheet.pdf"));
    printer.setPdfOutput(pdf);
    setPrintPresenter(&printer);
    PeriodicTableWindow w;
    show(w);
    QTest::mouseClick(zeta(w, 111), Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(w, QStringLiteral("Command4")), Qt::LeftButton);
    setPrintPresenter(nullptr);
    const QString text = pdfText(pdf);
    QVERIFY2(text.simplified().contains(Res(1067).simplified()), qPrintable(text.left(400)));
    QVERIFY(text.contains(QStringLiteral("Roentgenio")));
    QVERIFY(text.contains(QStringLiteral("--")));
    QVERIFY(text.contains(Res(1008)));
  }
};

QTEST_MAIN(PeriodicTableWindowTest)
#include "PeriodicTableWindowTest.moc"
