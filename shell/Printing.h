#pragma once
// Text printing. A report is a PrintDocument: lines of text placed at
// character columns (as the classic "Print Tab(n); text"), each piece in a
// font, with explicit page breaks where a report wants them; the printer
// layer breaks pages at the printer's height by itself. A print presenter
// puts the document on paper: the desktop program asks for the printer with
// the print dialog (PrintDialog.h), tests print straight to a PDF file.
#include <QList>

#include <cstdint>
#include <QString>

struct PrintFont {
  QString family = QStringLiteral("Arial");
  double pointSize = 10;
  bool bold = false;
  bool operator==(const PrintFont&) const = default;
};

struct PrintSpan {
  int column = 1;  // 1 is the left margin; a column is one average character wide
  QString text;
  PrintFont font;
  std::uint32_t colour = 0;  // 0xRRGGBB; black unless a report prints in colour
};

struct PrintLine {
  QList<PrintSpan> spans;  // none: an empty line
  PrintFont font;          // the font in use, which gives an empty line its height
  bool pageBreakBefore = false;
};

class PrintDocument {
 public:
  explicit PrintDocument(QString name = {}) : name_(std::move(name)) {}

  // The font of what is printed from now on.
  void setFont(const QString& family, double pointSize = 10, bool bold = false);
  const PrintFont& font() const { return font_; }
  // The ink of what is printed from now on, 0xRRGGBB (black at first).
  void setColour(std::uint32_t rgb) { colour_ = rgb; }
  // Text at a column of the current line; the line stays open.
  void printAt(int column, const QString& text);
  // Ends the current line (an empty one when nothing was printed on it).
  void endLine();
  // printAt, then endLine.
  void line(int column, const QString& text);
  // count empty lines.
  void emptyLines(int count = 1);
  // The next line starts a new page.
  void newPage();

  const QList<PrintLine>& lines() const { return lines_; }
  const QString& name() const { return name_; }

 private:
  QString name_;
  PrintFont font_;
  std::uint32_t colour_ = 0;
  PrintLine current_;
  bool open_ = false;
  bool breakPending_ = false;
  QList<PrintLine> lines_;
};

// The head of a printed message: two empty lines, in "Arial" string 3119 at
// column 14, three empty lines, string 69 at column 6, an empty line, the
// title at column 6 and an empty line.
void printHeader(PrintDocument& doc, const QString& title);
// The whole document of a message: the header, then in "Courier New" each
// part of the text up to a line feed as a line at column 9 (a carriage return
// stays inside its line), then an empty line.
PrintDocument messageDocument(const QString& text, const QString& title);

enum class PrintResult { Printed, Cancelled, Failed };

class PrintPresenter {
 public:
  virtual ~PrintPresenter() = default;
  virtual PrintResult print(const PrintDocument& document) = 0;
};
void setPrintPresenter(PrintPresenter* presenter);  // not owned; nullptr: printing fails
PrintPresenter* printPresenter();

// The file a print to file proposes: the document's title made safe for a
// file name (no folder separators, no characters other systems refuse, no
// leading or trailing blanks or dots), ".pdf", in datos/ under AppFolder.
QString printFileName(const QString& title);

// Prints a document; a printer that fails reports code 910. True when printed.
bool printDocument(const PrintDocument& document);
// Prints the text and title of the last message (MessageText, MessageTitle).
// Cancelling the print dialog stops silently.
void PrintText();
