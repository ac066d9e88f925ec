// What a printed message is made of, before any printer: the header rows and
// columns, the line-feed rule, page breaks, and the failure of a printer.
#include "shell/Printing.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class PrintingTest : public CalvixTest {};

QStringList bodyTexts(const PrintDocument& doc) {
  QStringList out;
  for (const PrintLine& l : doc.lines()) {
    if (!l.spans.isEmpty() && l.spans[0].font.family == QLatin1String("Courier New")) out << l.spans[0].text;
  }
  return out;
}

struct FixedPrinter : PrintPresenter {
  PrintResult result = PrintResult::Printed;
  int calls = 0;
  PrintResult print(const PrintDocument&) override {
    ++calls;
    return result;
  }
};

}  // namespace

TEST_F(PrintingTest, TheHeaderStandsAtItsRowsAndColumns) {
  const PrintDocument doc = messageDocument(QStringLiteral("body"), QStringLiteral("Calvix  -  Test"));
  const QList<PrintLine>& l = doc.lines();
  ASSERT_EQ(l.size(), 2 + 1 + 3 + 1 + 1 + 1 + 1 + 1 + 1);
  EXPECT_TRUE(l[0].spans.isEmpty() && l[1].spans.isEmpty());
  EXPECT_EQ(l[2].spans[0].column, 14);
  EXPECT_EQ(l[2].spans[0].text, Res(3119));
  EXPECT_EQ(l[2].spans[0].font.family, QStringLiteral("Arial"));
  for (int i = 3; i <= 5; ++i) EXPECT_TRUE(l[i].spans.isEmpty());
  EXPECT_EQ(l[6].spans[0].column, 6);
  EXPECT_EQ(l[6].spans[0].text, QStringLiteral("Mensaje de Información"));
  EXPECT_TRUE(l[7].spans.isEmpty());
  EXPECT_EQ(l[8].spans[0].text, QStringLiteral("Calvix  -  Test"));
  EXPECT_TRUE(l[9].spans.isEmpty());
  EXPECT_EQ(l[10].spans[0].column, 9);
  EXPECT_EQ(l[10].spans[0].font.family, QStringLiteral("Courier New"));
  EXPECT_TRUE(l[11].spans.isEmpty());  // the closing empty line
}

TEST_F(PrintingTest, OnlyLineFeedsCutTheText) {
  EXPECT_EQ(bodyTexts(messageDocument(QStringLiteral("one line, no feed"), {})), QStringList(QStringLiteral("one line, no feed")));
  EXPECT_EQ(bodyTexts(messageDocument(QStringLiteral("a\r\nb\rc\n\nd"), {})),
            QStringList({QStringLiteral("a\r"), QStringLiteral("b\rc"), QString(), QStringLiteral("d")}));
  // A text ending in a line feed gets its empty last line, as the walk finds it.
  EXPECT_EQ(bodyTexts(messageDocument(QStringLiteral("x\n"), {})), QStringList({QStringLiteral("x"), QString()}));
}

TEST_F(PrintingTest, PageHelpersKeepColumnsFontsAndBreaks) {
  PrintDocument doc;
  doc.setFont(QStringLiteral("Courier New"), 9, true);
  doc.printAt(11, QStringLiteral("Id"));
  doc.printAt(15, QStringLiteral("Name"));
  doc.endLine();
  doc.newPage();
  doc.line(1, QStringLiteral("next page"));
  ASSERT_EQ(doc.lines().size(), 2);
  EXPECT_EQ(doc.lines()[0].spans.size(), 2);
  EXPECT_EQ(doc.lines()[0].spans[1].column, 15);
  EXPECT_TRUE(doc.lines()[0].spans[1].font.bold);
  EXPECT_FALSE(doc.lines()[0].pageBreakBefore);
  EXPECT_TRUE(doc.lines()[1].pageBreakBefore);
}

TEST_F(PrintingTest, AFailingPrinterReports910AndACancelNothing) {
  program().MessageText = QStringLiteral("text");
  PrintText();  // no printer at all
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].text, QStringLiteral("Error:  Imposible imprimir el formulario."));

  FixedPrinter printer;
  setPrintPresenter(&printer);
  printer.result = PrintResult::Cancelled;
  PrintText();
  printer.result = PrintResult::Printed;
  PrintText();
  EXPECT_EQ(printer.calls, 2);
  EXPECT_EQ(messages.shown().size(), 1u);
  setPrintPresenter(nullptr);
}
