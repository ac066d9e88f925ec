// Files handed to the program (a double click in a file manager): each kind
// opens its window and is read as that window's Open item reads it; a kind
// no window takes, or a damaged file, opens nothing and keeps what was there.
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include "calendar/CalendarWindow.h"
#include "funcs/FunctionTableWindow.h"
#include "shell/WindowRegistry.h"
#include "shell/runtime/DateTime.h"
#include "tests/support/GuiTestSupport.h"

class OpenDocumentTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
    registerWindowFactory(WindowId::Calendar, [] { return new CalendarWindow; });
    registerWindowFactory(WindowId::FunctionTable, [] { return new FunctionTableWindow; });
  }
  void cleanup() {
    for (QWidget* w : openWindows()) delete w;
    clearWindowRegistry();
  }

  void eachKindOpensInItsWindow() {
    QTemporaryDir dir;
    const QString age = dir.filePath(QStringLiteral("Fiestas.AGE"));  // the extension in any case
    QFile f(age);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(calendar::writeAgeFile({QStringLiteral("03/19  San José"), QStringLiteral("12/25  Navidad")}));
    f.close();
    QVERIFY(openDocument(age));
    auto* calendarWindow = qobject_cast<CalendarWindow*>(findWindow(WindowId::Calendar));
    QVERIFY(calendarWindow && calendarWindow->isVisible());
    QCOMPARE(calendarWindow->model().events.events().size(), 2);

    // A damaged events file is refused with its message and the list stays.
    const QString bad = dir.filePath(QStringLiteral("roto.age"));
    QFile g(bad);
    QVERIFY(g.open(QIODevice::WriteOnly));
    g.write("not an events file");
    g.close();
    QVERIFY(!openDocument(bad));
    QCOMPARE(calendarWindow->model().events.events().size(), 2);

    QVERIFY(!openDocument(dir.filePath(QStringLiteral("notes.txt"))));
    QVERIFY(!openDocument(dir.filePath(QStringLiteral("apuestas.lot"))));  // no lottery window registered here
    QVERIFY(!findWindow(WindowId::FunctionTable));
  }
};

QTEST_MAIN(OpenDocumentTest)
#include "OpenDocumentTest.moc"
