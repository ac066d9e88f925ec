// Every push button in the program's own windows and dialogs is the drawn
// button; only the buttons Qt's own boxes make for themselves are not.
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "calendar/CalendarOperationsDialog.h"
#include "chrono/PowerWarningDialog.h"
#include "funcs/FunctionTable.h"
#include "funcs/TableCsvDialog.h"
#include "shell/ChameleonButtonWidget.h"
#include "shell/ProgramState.h"
#include "shell/WindowRegistry.h"
#include "tests/support/GuiTestSupport.h"

void registerAppWindows();  // generated from app/main.cpp

namespace {

bool insideQtBox(const QWidget* w) {
  for (const QObject* o = w->parent(); o != nullptr; o = o->parent()) {
    if (qobject_cast<const QDialogButtonBox*>(o) || qobject_cast<const QMessageBox*>(o) ||
        qobject_cast<const QFileDialog*>(o)) {
      return true;
    }
  }
  return false;
}

// The plain push buttons under w, by name.
QStringList plainButtons(const QWidget* w) {
  QStringList found;
  for (const QPushButton* b : w->findChildren<QPushButton*>()) {
    if (qobject_cast<const ChameleonButtonWidget*>(b) || insideQtBox(b)) continue;
    found << (b->objectName().isEmpty() ? b->text() : b->objectName());
  }
  return found;
}

}  // namespace

class DrawnButtonsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    clearWindowRegistry();
    registerAppWindows();
  }
  void cleanup() {
    for (QWidget* w : openWindows()) delete w;
    clearWindowRegistry();
  }

  void everyWindowUsesTheDrawnButton() {
    program().SoundOn = 0;
    QStringList problems;
    int buttons = 0;
    for (WindowId id : allWindowIds()) {
      if (!hasWindowFactory(id)) continue;
      QWidget* w = OpenWindow(id);
      QVERIFY2(w, qPrintable(windowName(id)));
      buttons += static_cast<int>(w->findChildren<ChameleonButtonWidget*>().size());
      for (const QString& b : plainButtons(w)) problems << windowName(id) + QStringLiteral(": ") + b;
      w->close();
      delete findWindow(id);
    }
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    QVERIFY(buttons > 100);  // the walk did reach the windows' buttons
  }

  void dialogsOpenedFromWindowsUseItToo() {
    FunctionTable table;
    TableCsvDialog csv(table, nullptr);
    CalendarOperationsDialog operations(45000, nullptr);
    PowerWarningDialog warning;
    for (const QWidget* d : {static_cast<QWidget*>(&csv), static_cast<QWidget*>(&operations),
                             static_cast<QWidget*>(&warning)}) {
      QVERIFY2(plainButtons(d).isEmpty(), qPrintable(plainButtons(d).join(QLatin1Char(' '))));
      QVERIFY(!d->findChildren<ChameleonButtonWidget*>().isEmpty());
    }
  }
};

CALVIX_GUI_TEST_MAIN(DrawnButtonsTest)
#include "DrawnButtonsTest.moc"
