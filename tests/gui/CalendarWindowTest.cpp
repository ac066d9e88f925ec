// The calendar window: its controls under their names, a click on the grid
// reaching the model and the panel, a double click adding an event through
// the message box, the first-weekday menu reordering the grid, the switches
// hiding the pictures, the year view closing on a right-click, and the moon
// pictures drawn lit and dark by their index.
#include <QAction>
#include <QComboBox>
#include <QDateEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QTableWidget>
#include <QTest>

#include "calendar/CalendarOperationsDialog.h"
#include "calendar/CalendarWindow.h"
#include "shell/ProgramState.h"
#include "shell/runtime/DateTime.h"
#include "tests/support/GuiTestSupport.h"

namespace {

// The grid cell holding a date, or (-1, -1).
QPoint cellOf(QTableWidget* grid, double date) {
  for (int r = 0; r < grid->rowCount(); ++r)
    for (int c = 1; c < grid->columnCount(); ++c)
      if (grid->item(r, c)->data(Qt::UserRole).toDouble() == date) return {c, r};
  return {-1, -1};
}

}  // namespace

class CalendarWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void controlsExistAndAClickFillsThePanel() {
    CalendarWindow w;
    w.model().select(rt::DateSerial(2024, 3, 1));
    w.refresh();
    for (const char* name : {"MonthView1", "Frame1", "MSFlexGrid1", "Picture2", "Picture4", "List1", "NuevoFile",
                             "FileAbre", "FileGuarda", "MostSem", "calano", "Moon", "horoscopo", "santobusca",
                             "santobuscasig", "diasemana(1)", "diasemana(7)"})
      QVERIFY2(w.findChild<QObject*>(QString::fromLatin1(name)), name);
    auto* grid = w.findChild<QTableWidget*>(QStringLiteral("MonthView1"));
    const QPoint at = cellOf(grid, rt::DateSerial(2024, 3, 19));
    QVERIFY(at.x() > 0);
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(at.y(), at.x())).center());
    QCOMPARE(w.model().selected(), rt::DateSerial(2024, 3, 19));
    auto* panel = w.findChild<QTableWidget*>(QStringLiteral("MSFlexGrid1"));
    QVERIFY(panel->item(0, 1)->text().contains(QStringLiteral("(Día: 79 / Semana: 12)")));
    QCOMPARE(w.windowTitle(), QStringLiteral("Calvix Premium  -  Calendario"));
  }

  void doubleClickAddsAnEventAndTheListShowsIt() {
    CalendarWindow w;
    w.model().select(rt::DateSerial(2024, 3, 1));
    w.refresh();
    guiMessages().queueText(QStringLiteral("Santo de Pepe"));
    auto* grid = w.findChild<QTableWidget*>(QStringLiteral("MonthView1"));
    const QPoint at = cellOf(grid, rt::DateSerial(2024, 3, 19));
    const QPoint centre = grid->visualItemRect(grid->item(at.y(), at.x())).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, centre);  // a double click starts with a click
    QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, centre);
    auto* list = w.findChild<QListWidget*>(QStringLiteral("List1"));
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->item(0)->text(), QStringLiteral("03/19  Santo de Pepe"));
    QCOMPARE(w.findChild<QLabel*>(QStringLiteral("forDate"))->text(),
             QStringLiteral("Hay 1 Eventos Programados para esta Fecha"));
    QVERIFY(grid->item(at.y(), at.x())->font().bold());
    w.findChild<QComboBox*>(QStringLiteral("viewCombo"))->setCurrentIndex(2);
    w.model().select(rt::DateSerial(2024, 3, 20));
    w.refresh();
    QCOMPARE(list->count(), 0);
    guiMessages().queueButton(1);  // closing: the save offer answered "No"
    QVERIFY(w.close());
  }

  void firstWeekdayAndSwitches() {
    CalendarWindow w;
    w.model().select(rt::DateSerial(2024, 3, 1));
    w.refresh();
    auto* grid = w.findChild<QTableWidget*>(QStringLiteral("MonthView1"));
    QCOMPARE(cellOf(grid, rt::DateSerial(2024, 2, 26)), QPoint(1, 0));  // Monday first
    w.findChild<QAction*>(QStringLiteral("diasemana(1)"))->trigger();
    QCOMPARE(cellOf(grid, rt::DateSerial(2024, 2, 25)), QPoint(1, 0));  // Sunday first
    QCOMPARE(grid->item(0, 0)->text(), QStringLiteral("9"));
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    auto* moon = w.findChild<QLabel*>(QStringLiteral("Picture2"));
    QVERIFY(moon->isVisible());
    w.findChild<QAction*>(QStringLiteral("Moon"))->trigger();
    QVERIFY(!moon->isVisible());
    QVERIFY(!program().CalendarInfo[4]);
    const rt::Variant titleColour = program().CalendarColours[1];
    program().CalendarColours[1] = rt::Variant::longValue(0x123456);
    w.findChild<QAction*>(QStringLiteral("DefColor1"))->trigger();
    QCOMPARE(program().CalendarColours[1].toDouble(), titleColour.toDouble());
    w.findChild<QAction*>(QStringLiteral("Events"))->trigger();
    QVERIFY(!w.findChild<QWidget*>(QStringLiteral("eventsBox"))->isVisible());
  }

  void yearViewClosesOnARightClick() {
    CalendarWindow w;
    QPointer<QWidget> year = w.calano_Click();
    QVERIFY(year);
    QCOMPARE(year->findChildren<QTableWidget*>().size(), 12);
    auto* january = year->findChild<QTableWidget*>(QStringLiteral("Month1"));
    QTest::mouseClick(january->viewport(), Qt::RightButton, {}, QPoint(20, 20));
    QTRY_VERIFY(!year);
  }

  void operationsShowTheDifferenceAndTheAddition() {
    CalendarOperationsDialog d(rt::DateSerial(2000, 12, 31));
    d.findChild<QDateEdit*>(QStringLiteral("DTPicker2"))->setDate(QDate(2001, 1, 1));
    QTest::mouseClick(d.findChild<QPushButton*>(QStringLiteral("Calcular")), Qt::LeftButton);
    QVERIFY(d.resultText().contains(QStringLiteral("Años:      1\nMeses:     1\nSemanas:   0\nDías:      1")));
    d.findChild<QSpinBox*>(QStringLiteral("amount"))->setValue(-2);
    d.findChild<QComboBox*>(QStringLiteral("unit"))->setCurrentIndex(1);
    QTest::mouseClick(d.findChild<QPushButton*>(QStringLiteral("Incremento")), Qt::LeftButton);
    QVERIFY(d.resultText().contains(QStringLiteral(" menos 2 Meses da como resultado: ")));
    QVERIFY(d.resultText().endsWith(QStringLiteral("10/31/2000")));
  }

  void definingAStoredDateFillsTheCountdown() {
    CalendarWindow w;
    w.model().select(rt::DateSerial(2024, 12, 15));
    guiMessages().queueText(QStringLiteral("25/12/2024"));
    w.findChild<QAction*>(QStringLiteral("DefRemainder1"))->trigger();
    QCOMPARE(program().CalendarDates[0], rt::DateSerial(2024, 12, 25));
    auto* panel = w.findChild<QTableWidget*>(QStringLiteral("MSFlexGrid1"));
    QCOMPARE(panel->item(1, 1)->text(), QStringLiteral("Faltan 10 Días para el 12/25/2024"));
  }

  void moonPicturesAreDarkWhenNewAndLitWhenFull() {
    const QImage newMoon = CalendarWindow::moonPicture(1, 64).toImage();
    const QImage fullMoon = CalendarWindow::moonPicture(16, 64).toImage();
    const QImage waxing = CalendarWindow::moonPicture(8, 64).toImage();
    QVERIFY(qGray(newMoon.pixel(32, 32)) < 100);
    QVERIFY(qGray(fullMoon.pixel(32, 32)) > 180);
    QVERIFY(qGray(fullMoon.pixel(10, 32)) > 180);
    QVERIFY(qGray(waxing.pixel(54, 32)) > 180);  // first quarter: the right half lit
    QVERIFY(qGray(waxing.pixel(10, 32)) < 100);
  }
};

QTEST_MAIN(CalendarWindowTest)
#include "CalendarWindowTest.moc"
