// PrintText on a real printer device: a PDF file, read back with pdftotext.
// The header, the title and every line of a long text are there, with page
// breaks at the page's height and a page range honoured.
#include <QApplication>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include "shell/PrintDialog.h"
#include "shell/ProgramState.h"
#include "shell/QtTranslations.h"
#include "shell/Strings.h"
#include "tests/support/GuiTestSupport.h"

namespace {

QString longText(int lines) {
  QStringList l;
  for (int i = 1; i <= lines; ++i) l << QStringLiteral("Line %1 of the report").arg(i, 3, 10, QLatin1Char('0'));
  return l.join(QLatin1Char('\n'));
}

}  // namespace

class PrintTextTest : public QObject {
  Q_OBJECT

 private:
  QTemporaryDir dir_;
  PrinterPresenter printer_;

 private Q_SLOTS:
  void init() {
    prepareGuiTest();
    setPrintPresenter(&printer_);
  }
  void cleanup() { setPrintPresenter(nullptr); }

  void theDialogProposesTheTitleAsTheFileNameInDatos() {
    program().AppFolder = QString(dir_.path() + QStringLiteral("/"));
    program().LanguageOffset = 20000;
    QtTranslations qtTexts;
    QString proposed, cancel;
    QTimer::singleShot(300, [&] {
      auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
      if (!dialog) return;
      if (auto* box = dialog->findChild<QLineEdit*>(QStringLiteral("filename"))) proposed = box->text();
      for (QPushButton* b : dialog->findChildren<QPushButton*>()) {
        if (b->text().contains(QStringLiteral("Annuler"))) cancel = b->text();
      }
      dialog->reject();
    });
    QPrinter printer;
    QVERIFY(!execPrintDialog(printer, nullptr, QStringLiteral("Calvix  -  Tabla: x/2")));
    QCOMPARE(proposed, dir_.path() + QStringLiteral("/datos/Calvix - Tabla_ x_2.pdf"));
    QVERIFY2(!cancel.isEmpty(), "the dialog speaks the program's language");
    QCOMPARE(printer.docName(), QStringLiteral("Calvix  -  Tabla: x/2"));
  }

  void aLongTextPrintsEveryLineOnSeveralPages() {
    const QString pdf = dir_.filePath(QStringLiteral("long.pdf"));
    printer_.setPdfOutput(pdf);
    program().MessageText = longText(200);
    program().MessageTitle = QStringLiteral("Calvix  -  Report  -  Test");
    PrintText();
    QVERIFY(guiMessages().shown().empty());
    const QString text = pdfText(pdf);
    QVERIFY2(!text.isEmpty(), "pdftotext read nothing");
    QVERIFY(text.contains(Res(3119)));
    QVERIFY(text.contains(QStringLiteral("Mensaje de Información")));
    // pdftotext lays words out by their position: runs of blanks may change.
    QVERIFY(text.simplified().contains(QStringLiteral("Calvix - Report - Test")));
    for (int i = 1; i <= 200; ++i) {
      QVERIFY2(text.contains(QStringLiteral("Line %1 of the report").arg(i, 3, 10, QLatin1Char('0'))), qPrintable(QString::number(i)));
    }
    const QStringList pages = text.split(QLatin1Char('\f'), Qt::SkipEmptyParts);
    QVERIFY2(pages.size() >= 3, qPrintable(QString::number(pages.size())));
    // Lines keep their order across the breaks.
    QVERIFY(text.indexOf(QStringLiteral("Line 199")) > text.indexOf(QStringLiteral("Line 100")));
  }

  void carriageReturnsStayInTheirLineAndLongLinesGoOnBelow() {
    const QString pdf = dir_.filePath(QStringLiteral("cr.pdf"));
    printer_.setPdfOutput(pdf);
    program().MessageText = QString(QStringLiteral("alpha\rbeta\ngamma\n") + QString(300, QLatin1Char('x')));
    program().MessageTitle = QStringLiteral("T");
    PrintText();
    const QString text = pdfText(pdf);
    bool together = false;
    for (const QString& l : text.split(QLatin1Char('\n'))) {
      together |= l.contains(QStringLiteral("alpha")) && l.contains(QStringLiteral("beta"));
    }
    QVERIFY(together);
    QCOMPARE(QString(text).remove(QStringLiteral("Calvix")).count(QLatin1Char('x')), 300);  // wider than the page, nothing lost
  }

  void aPageRangePrintsOnlyThosePages() {
    const QString pdf = dir_.filePath(QStringLiteral("range.pdf"));
    printer_.setPdfOutput(pdf, 2, 2);
    program().MessageText = longText(200);
    PrintText();
    const QString text = pdfText(pdf);
    QCOMPARE(text.split(QLatin1Char('\f'), Qt::SkipEmptyParts).size(), 1);
    QVERIFY(!text.contains(QStringLiteral("Line 001")));
    QVERIFY(!text.contains(Res(3119)));
    QVERIFY(text.contains(QStringLiteral("Line 1")));
  }

  void aPrinterThatCannotPrintReports910() {
    printer_.setPdfOutput(dir_.filePath(QStringLiteral("no/such/folder/out.pdf")));
    program().MessageText = QStringLiteral("x");
    PrintText();
    QCOMPARE(guiMessages().shown().size(), size_t{1});
    QVERIFY(guiMessages().shown()[0].text.endsWith(Res(2910)));
  }
};

QTEST_MAIN(PrintTextTest)
#include "PrintTextTest.moc"
