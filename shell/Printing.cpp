#include "shell/Printing.h"

#include "shell/ErrorReport.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"

namespace {
PrintPresenter* g_printer = nullptr;
}  // namespace

void PrintDocument::setFont(const QString& family, double pointSize, bool bold) {
  font_ = PrintFont{family, pointSize, bold};
}

void PrintDocument::printAt(int column, const QString& text) {
  if (!open_) {
    current_ = PrintLine{};
    current_.pageBreakBefore = breakPending_;
    breakPending_ = false;
    open_ = true;
  }
  current_.spans.append(PrintSpan{std::max(1, column), text, font_, colour_});
}

void PrintDocument::endLine() {
  if (!open_) {
    current_ = PrintLine{};
    current_.pageBreakBefore = breakPending_;
    breakPending_ = false;
  }
  current_.font = font_;
  lines_.append(current_);
  current_ = PrintLine{};
  open_ = false;
}

void PrintDocument::line(int column, const QString& text) {
  printAt(column, text);
  endLine();
}

void PrintDocument::emptyLines(int count) {
  for (int i = 0; i < count; ++i) endLine();
}

void PrintDocument::newPage() {
  if (open_) endLine();
  breakPending_ = true;
}

void printHeader(PrintDocument& doc, const QString& title) {
  doc.setFont(QStringLiteral("Arial"));
  doc.emptyLines(2);
  doc.line(14, Res(3119));
  doc.emptyLines(3);
  doc.line(6, Res(69));
  doc.emptyLines(1);
  doc.line(6, title);
  doc.emptyLines(1);
}

PrintDocument messageDocument(const QString& text, const QString& title) {
  PrintDocument doc(title);
  printHeader(doc, title);
  doc.setFont(QStringLiteral("Courier New"));
  // The text is extended by a line feed and cut at each one: a text without
  // one is a single line, and a carriage return stays where it is.
  const QString walked = text + QLatin1Char('\n');
  qsizetype start = 0;
  for (qsizetype i = 0; i < walked.size(); ++i) {
    if (walked.at(i) != QLatin1Char('\n')) continue;
    doc.line(9, walked.mid(start, i - start));
    start = i + 1;
  }
  doc.emptyLines(1);
  return doc;
}

void setPrintPresenter(PrintPresenter* presenter) { g_printer = presenter; }
PrintPresenter* printPresenter() { return g_printer; }

QString printFileName(const QString& title) {
  QString name;
  for (const QChar c : title) {
    const bool refused = c.unicode() < 32 || QStringLiteral("/\\:*?\"<>|").contains(c);
    name += refused ? QLatin1Char('_') : c;
  }
  name = name.simplified();
  while (name.endsWith(QLatin1Char('.')) || name.startsWith(QLatin1Char('.'))) {
    name = (name.endsWith(QLatin1Char('.')) ? name.chopped(1) : name.mid(1)).trimmed();
  }
  if (name.isEmpty()) name = QStringLiteral("Calvix");
  return program().AppFolder.toText() + QStringLiteral("datos/") + name + QStringLiteral(".pdf");
}

bool printDocument(const PrintDocument& document) {
  const PrintResult result = g_printer ? g_printer->print(document) : PrintResult::Failed;
  if (result == PrintResult::Failed) ReportError(910, 1, 3, 0);
  return result == PrintResult::Printed;
}

void PrintText() {
  const ProgramState& p = program();
  printDocument(messageDocument(p.MessageText.toText(), p.MessageTitle.toText()));
}
