// The CSV tool's window: its controls, and a whole run from the buttons:
// open, preset, convert, choose the columns, import and close.
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include "shell/ProgramState.h"
#include "shell/StatisticsStore.h"
#include "shell/Strings.h"
#include "stats/CsvToolWindow.h"
#include "tests/support/GuiTestSupport.h"

class CsvToolWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { prepareGuiTest(); }

  void opensWithItsControlsInEveryLanguage() {
    for (int lang = 0; lang < 4; ++lang) {
      setProgramLanguage(lang);
      CsvToolWindow w;
      w.show();
      QVERIFY(QTest::qWaitForWindowExposed(&w));
      for (const char* name : {"Command1", "Command2", "Command3(0)", "Command3(1)", "Command4", "Command5", "Command6"}) {
        QVERIFY2(w.findChild<QPushButton*>(QLatin1String(name)), name);
      }
      QVERIFY(w.findChild<QTableView*>(QStringLiteral("MSFlexGrid1")));
      QCOMPARE(w.findChild<QComboBox*>(QStringLiteral("Combo2(0)"))->currentText(), Res(1904));
      const QStringList problems = windowLayoutProblems(&w);
      QVERIFY2(problems.isEmpty(), qPrintable(problems.join(QLatin1Char('\n'))));
    }
  }

  void aWholeRunFromTheButtons() {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("ventas.csv"));
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("mes;importe\r\n1;10,5\r\n2;12,25\r\n");
    f.close();
    CsvToolWindow w;
    w.show();
    QVERIFY(QTest::qWaitForWindowExposed(&w));
    QString folderAsked;
    w.model().fileDialog = [&](const QString&, const QString&, const QString& folder) {
      folderAsked = folder;
      return path;
    };
    QTest::mouseClick(w.findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
    QCOMPARE(folderAsked, program().AppFolder.toText() + QStringLiteral("datos/"));
    QVERIFY(w.findChild<QPlainTextEdit*>(QStringLiteral("Text1"))->toPlainText().startsWith(QStringLiteral("mes;importe")));
    QCOMPARE(w.findChild<QLabel*>(QStringLiteral("Label3"))->text(), QStringLiteral("ventasCvx.csv"));
    QTest::mouseClick(w.findChild<QPushButton*>(QStringLiteral("Command5")), Qt::LeftButton);
    QCOMPARE(w.findChild<QComboBox*>(QStringLiteral("Combo1(0)"))->currentText(), Res(1903));
    QTest::mouseClick(w.findChild<QPushButton*>(QStringLiteral("Command2")), Qt::LeftButton);
    auto* grid = w.findChild<QTableView*>(QStringLiteral("MSFlexGrid1"));
    QCOMPARE(grid->model()->rowCount(), 3);
    QCOMPARE(grid->model()->index(2, 1).data().toString(), QStringLiteral("12.25"));
    w.chooseColumn(1, 0);
    w.chooseColumn(2, 1);
    QCOMPARE(w.findChild<QLabel*>(QStringLiteral("Label5(1)"))->text(), QStringLiteral("2"));
    QTest::mouseClick(w.findChild<QPushButton*>(QStringLiteral("Command3(0)")), Qt::LeftButton);
    QCOMPARE(program().stats.nx, std::int16_t(2));
    QCOMPARE(program().stats.at(1, 2), 12.25);
    QVERIFY(!w.isVisible());
  }
};

CALVIX_GUI_TEST_MAIN(CsvToolWindowTest)
#include "CsvToolWindowTest.moc"
