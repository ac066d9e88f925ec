// Files handed to the program (a double click in a file manager): each kind
// opens its window and is read as that window's Open item reads it; a kind
// no window takes, or a damaged file, opens nothing and keeps what was there.
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "calc/CalculatorWindow.h"
#include "calendar/CalendarWindow.h"
#include "funcs/FunctionTableWindow.h"
#include "shell/ProgramState.h"
#include "shell/WindowRegistry.h"
#include "shell/runtime/DateTime.h"
#include "tests/support/GuiTestSupport.h"

namespace {

bool writeFile(const QString& path, const QByteArray& bytes) {
  QFile f(path);
  return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

}  // namespace

class OpenDocumentTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
    registerWindowFactory(WindowId::Calendar, [] { return new CalendarWindow; });
    registerWindowFactory(WindowId::FunctionTable, [] { return new FunctionTableWindow; });
    registerWindowFactory(WindowId::ScientificCalculator, [] { return new CalculatorWindow; });
  }
  void cleanup() {
    for (QWidget* w : openWindows()) delete w;
    clearWindowRegistry();
  }

  void eachKindOpensInItsWindow() {
    QTemporaryDir dir;
    const QString age = dir.filePath(QStringLiteral("Fiestas.AGE"));  // the extension in any case
    QVERIFY(writeFile(age, calendar::writeAgeFile({QStringLiteral("03/19  San José"), QStringLiteral("12/25  Navidad")})));
    QVERIFY(openDocument(age));
    auto* calendarWindow = qobject_cast<CalendarWindow*>(findWindow(WindowId::Calendar));
    QVERIFY(calendarWindow && calendarWindow->isVisible());
    QCOMPARE(calendarWindow->model().events.events().size(), 2);

    // A damaged events file is refused with its message and the list stays.
    const QString bad = dir.filePath(QStringLiteral("roto.age"));
    QVERIFY(writeFile(bad, "not an events file"));
    QVERIFY(!openDocument(bad));
    QCOMPARE(calendarWindow->model().events.events().size(), 2);

    QVERIFY(!openDocument(dir.filePath(QStringLiteral("notes.txt"))));
    QVERIFY(!openDocument(dir.filePath(QStringLiteral("apuestas.lot"))));  // no lottery window registered here
    QVERIFY(!findWindow(WindowId::FunctionTable));
  }

  void statisticsFileOpensInTheCalculator() {
    QTemporaryDir dir;
    const QString dat = dir.filePath(QStringLiteral("medidas.dat"));
    QVERIFY(writeFile(dat, "3,1\r\n1.5\r\n-0.25\r\n1E+20\r\n0.1\r\n"));
    QVERIFY(openDocument(dat));
    auto* calculator = qobject_cast<CalculatorWindow*>(findWindow(WindowId::ScientificCalculator));
    QVERIFY(calculator && calculator->isVisible());
    QCOMPARE(program().stats.count(0), 3);
    QCOMPARE(program().stats.count(1), 1);

    const QString cut = dir.filePath(QStringLiteral("cortado.dat"));
    QVERIFY(writeFile(cut, "2,0\r\n1\r\n"));
    QVERIFY(!openDocument(cut));
    QCOMPARE(program().stats.count(0), 3);
  }
};

QTEST_MAIN(OpenDocumentTest)
#include "OpenDocumentTest.moc"
