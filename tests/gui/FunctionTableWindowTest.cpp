// The function table's window: its controls exist under their names, an
// evaluation runs through the buttons and shows in the grid, the boxes are
// checked as the focus leaves them, edit mode takes typed cells, a file is
// saved and opened again, a long table runs in slices and Esc stops it, and
// the table prints to a PDF file.
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include "funcs/FunctionTableWindow.h"
#include "shell/ErrorReport.h"
#include "shell/runtime/NumberText.h"
#include "shell/PrintDialog.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/GuiTestSupport.h"

class FunctionTableWindowTest : public QObject {
  Q_OBJECT

 private:
  template <typename T>
  static T* control(FunctionTableWindow& w, const char* name) {
    T* c = w.findChild<T*>(QLatin1String(name));
    if (!c) qWarning("no control %s", name);
    return c;
  }
  static void show(FunctionTableWindow& w) {
    w.show();
    w.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&w));
  }
  static QString cell(FunctionTableWindow& w, int row, int col) {
    auto* grid = control<QTableView>(w, "MSFlexGrid1");
    return grid->model()->index(row - 1, col).data().toString();
  }
  // Types into a box and moves the focus on, as a user leaving it.
  static void typeAndLeave(FunctionTableWindow& w, QWidget* box, const QString& text) {
    box->setFocus();
    if (auto* edit = qobject_cast<QLineEdit*>(box)) edit->selectAll();
    if (auto* combo = qobject_cast<QComboBox*>(box)) combo->lineEdit()->selectAll();
    QTest::keyClicks(box, text);
    control<QLineEdit>(w, "txtExpression")->setFocus();
  }

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void opensWithItsControlsUnderTheirNames() {
    FunctionTableWindow w;
    show(w);
    QCOMPARE(w.objectName(), QStringLiteral("frmMain"));
    QCOMPARE(w.windowTitle(), Res(1474));
    for (const char* name : {"txtExpression", "Text2", "txtVariables", "txtStart", "txtEnd", "Text1"}) {
      QVERIFY2(control<QLineEdit>(w, name), name);
    }
    for (const char* name : {"cmdResult", "cmdClear", "plot", "Command1", "Command2", "Command3"}) {
      QVERIFY2(control<QPushButton>(w, name), name);
    }
    for (const char* name : {"Check1", "chkLoop", "chkVariables"}) QVERIFY2(control<QCheckBox>(w, name), name);
    QVERIFY(control<QComboBox>(w, "Combo2"));
    QVERIFY(control<QRadioButton>(w, "Option1_0")->isChecked());
    QVERIFY(!control<QLineEdit>(w, "Text1")->isEnabled());
    QCOMPARE(control<QLabel>(w, "Label1")->text(), QStringLiteral("deg"));
    QVERIFY(!control<QLabel>(w, "Label3")->isVisible());
    for (const char* name : {"mnuabre", "mnuguard", "imprimEval", "mnufunc", "mnuexpr", "mnulistado"}) {
      QVERIFY2(control<QAction>(w, name), name);
    }
    QCOMPARE(cell(w, 0 + 1, 0), QString());
    QVERIFY(w.frameGeometry().width() <= 1280 && w.frameGeometry().height() <= 770);
  }

  void anEvaluationThroughTheButtonsFillsTheGrid() {
    FunctionTableWindow w;
    show(w);
    typeAndLeave(w, control<QComboBox>(w, "Combo2"), QStringLiteral("1001"));
    QCOMPARE(control<QComboBox>(w, "Combo2")->currentText(), QStringLiteral("200"));
    QCOMPARE(guiMessages().shown().size(), size_t{1});
    QVERIFY(guiMessages().shown()[0].text.contains(Res(2121)));
    // The interval boxes drop letters and take a comma as the decimal symbol.
    typeAndLeave(w, control<QLineEdit>(w, "txtEnd"), QStringLiteral("1a,5"));
    QCOMPARE(control<QLineEdit>(w, "txtEnd")->text(), QStringLiteral("1.5"));
    auto* f = control<QLineEdit>(w, "txtExpression");
    f->selectAll();
    QTest::keyClicks(f, QStringLiteral("x*10"));
    QTest::mouseClick(control<QPushButton>(w, "cmdResult"), Qt::LeftButton);
    QTRY_VERIFY(!w.table().isTabulating());
    QCOMPARE(control<QTableView>(w, "MSFlexGrid1")->model()->rowCount(), w.table().MSFlexGrid1.rowCount() - 1);
    QCOMPARE(program().pointCount, 200);
    QCOMPARE(cell(w, 200, 0), QStringLiteral("1.5"));
    QCOMPARE(cell(w, 200, 1), QStringLiteral("15"));
    QCOMPARE(control<QComboBox>(w, "Combo2")->currentText(), QStringLiteral("200"));
    QCOMPARE(control<QLineEdit>(w, "Text1")->text(), rt::NumberToText(1.5 / 199));
    // Ctrl+C copies the selected block for a spreadsheet; Ctrl+Insert too.
    auto* grid = control<QTableView>(w, "MSFlexGrid1");
    grid->setFocus();
    grid->selectionModel()->select(QItemSelection(grid->model()->index(198, 0), grid->model()->index(199, 1)),
                                   QItemSelectionModel::ClearAndSelect);
    for (const auto& keys : {std::pair{Qt::Key_C, Qt::ControlModifier}, std::pair{Qt::Key_Insert, Qt::ControlModifier}}) {
      QGuiApplication::clipboard()->clear();
      QTest::keyClick(grid, keys.first, keys.second);
      QCOMPARE(QGuiApplication::clipboard()->text(),
               cell(w, 199, 0) + QLatin1Char('\t') + cell(w, 199, 1) + QStringLiteral("\n1.5\t15\n"));
    }
    // The angle button and the mode menu reach the model.
    QTest::mouseClick(control<QPushButton>(w, "Command2"), Qt::LeftButton);
    QCOMPARE(control<QLabel>(w, "Label1")->text(), QStringLiteral("gra"));
    control<QAction>(w, "mnuexpr")->trigger();
    QCOMPARE(w.windowTitle(), Res(1473));
    QVERIFY(!control<QPushButton>(w, "plot")->isEnabled());
  }

  void editModeTakesTypedCells() {
    FunctionTableWindow w;
    show(w);
    auto* grid = control<QTableView>(w, "MSFlexGrid1");
    grid->setFocus();
    QTest::keyClick(grid, Qt::Key_F12, Qt::ControlModifier);
    QVERIFY(w.table().editMode);
    QVERIFY(control<QLabel>(w, "Label3")->isVisible());
    grid->setCurrentIndex(grid->model()->index(0, 0));
    QTest::keyClicks(grid, QStringLiteral("2.5"));
    QVERIFY(control<QLabel>(w, "Image4_0")->isVisible());
    QTest::keyClick(grid, Qt::Key_Return);
    QTest::keyClicks(grid, QStringLiteral("7"));
    QTest::keyClick(grid, Qt::Key_Tab);
    QCOMPARE(cell(w, 1, 0), QStringLiteral("2.5"));
    QCOMPARE(cell(w, 1, 1), QStringLiteral("7"));
    QCOMPARE(grid->currentIndex().row(), 1);
    QCOMPARE(grid->currentIndex().column(), 0);
    QCOMPARE(w.table().xCellCount, 1);
    QCOMPARE(w.table().yCellCount, 1);
    QTest::keyClick(grid, Qt::Key_F12, Qt::ControlModifier);
    QVERIFY(!control<QLabel>(w, "Label3")->isVisible());
  }

  void aFileIsSavedAndOpenedAgain() {
    QTemporaryDir dir;
    const QString path = QDir(dir.path()).filePath(QStringLiteral("saved.evl"));
    FunctionTableWindow w;
    show(w);
    w.table().hooks.fileDialog = [&](const FunctionTable::FileDialogRequest&) { return path; };
    auto* f = control<QLineEdit>(w, "txtExpression");
    f->selectAll();
    QTest::keyClicks(f, QStringLiteral("Suma(x, 1, 2)"));
    QTest::mouseClick(control<QRadioButton>(w, "Option1_1"), Qt::LeftButton);
    control<QAction>(w, "mnuguard")->trigger();
    QVERIFY(QFile::exists(path));
    f->selectAll();
    QTest::keyClicks(f, QStringLiteral("x"));
    QTest::mouseClick(control<QRadioButton>(w, "Option1_0"), Qt::LeftButton);
    control<QAction>(w, "mnuabre")->trigger();
    QCOMPARE(f->text(), QStringLiteral("Suma(x, 1, 2)"));
    QVERIFY(control<QRadioButton>(w, "Option1_1")->isChecked());
    QVERIFY(control<QLineEdit>(w, "Text1")->isEnabled());
    QVERIFY(guiMessages().shown().empty());
  }

  void aLongTableRunsInSlicesAndEscStopsIt() {
    FunctionTableWindow w;
    show(w);
    QTest::mouseClick(control<QRadioButton>(w, "Option1_1"), Qt::LeftButton);
    typeAndLeave(w, control<QLineEdit>(w, "txtEnd"), QStringLiteral("50000000"));
    typeAndLeave(w, control<QLineEdit>(w, "Text1"), QStringLiteral("1"));
    QTest::mouseClick(control<QPushButton>(w, "cmdResult"), Qt::LeftButton);
    QVERIFY(w.table().isTabulating());
    QVERIFY(control<QProgressBar>(w, "progress")->isVisible());
    QVERIFY(!control<QPushButton>(w, "cmdResult")->isEnabled());
    QTRY_VERIFY(program().pointCount > 100000);
    QTest::keyClick(&w, Qt::Key_Escape);
    QVERIFY(!w.table().isTabulating());
    const int rows = program().pointCount;
    QVERIFY(rows > 100000 && rows < 50000000);
    QCOMPARE(cell(w, rows, 0), QString::number(rows - 1));
    QVERIFY(!control<QProgressBar>(w, "progress")->isVisible());
    QVERIFY(control<QPushButton>(w, "cmdResult")->isEnabled());
    QCOMPARE(control<QComboBox>(w, "Combo2")->currentText(), QString::number(rows));
  }

  void theTablePrintsToAPdf() {
    QTemporaryDir dir;
    PrinterPresenter printer;
    const QString pdf = dir.filePath(QStringLiteral("table.pdf"));
    printer.setPdfOutput(pdf);
    setPrintPresenter(&printer);
    FunctionTableWindow w;
    show(w);
    QTest::mouseClick(control<QPushButton>(w, "cmdResult"), Qt::LeftButton);
    QTRY_VERIFY(!w.table().isTabulating());
    control<QAction>(w, "imprimEval")->trigger();
    setPrintPresenter(nullptr);
    const QString text = pdfText(pdf);
    QVERIFY2(text.contains(QStringLiteral("0001")), qPrintable(text.left(400)));
    QVERIFY(text.contains(QStringLiteral("0200")));
    QVERIFY(text.contains(QStringLiteral("F (x) = 2.23*sin(A*x)*(cos(B*x))^2")));
    // Every page after the first opens with the heading again.
    const QStringList pages = text.split(QLatin1Char('\f'), Qt::SkipEmptyParts);
    QVERIFY(pages.size() >= 2);
    for (const QString& page : pages) {
      if (page.trimmed().isEmpty()) continue;
      QVERIFY(page.contains(Res(1477)));
    }
  }
};

QTEST_MAIN(FunctionTableWindowTest)
#include "FunctionTableWindowTest.moc"
