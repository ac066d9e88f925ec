// What a printed message is made of before any printer (the line-feed rule),
// and what a failing or cancelled printer does.
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

TEST_F(PrintingTest, OnlyLineFeedsCutTheText) {
  EXPECT_EQ(bodyTexts(messageDocument(QStringLiteral("one line, no feed"), {})), QStringList(QStringLiteral("one line, no feed")));
  EXPECT_EQ(bodyTexts(messageDocument(QStringLiteral("a\r\nb\rc\n\nd"), {})),
            QStringList({QStringLiteral("a\r"), QStringLiteral("b\rc"), QString(), QStringLiteral("d")}));
  // A text ending in a line feed gets its empty last line, as the walk finds it.
  EXPECT_EQ(bodyTexts(messageDocument(QStringLiteral("x\n"), {})), QStringList({QStringLiteral("x"), QString()}));
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

TEST_F(PrintingTest, PrintToFileProposesTheTitleAsASafeNameInDatos) {
  program().AppFolder = QStringLiteral("/opt/calvix/");
  const struct {
    const char* title;
    const char* name;
  } rows[] = {
      {"Calvix  -  Tabla de Funciones", "Calvix - Tabla de Funciones"},
      {"F(x) = 1/x: a*b?", "F(x) = 1_x_ a_b_"},
      {"  ..hidden..  ", "hidden"},
      {"a\tb\nc<>|\"d", "a_b_c____d"},
      {"", "Calvix"},
      {"...", "Calvix"},
      {"Gráfica ÀÉÎ", "Gráfica ÀÉÎ"},
  };
  for (const auto& r : rows) {
    EXPECT_EQ(printFileName(QString::fromUtf8(r.title)),
              QStringLiteral("/opt/calvix/datos/") + QString::fromUtf8(r.name) + QStringLiteral(".pdf"))
        << r.title;
  }
}
