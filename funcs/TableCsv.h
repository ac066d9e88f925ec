#pragma once
// The function table as a CSV file, both ways.
//
// The same separator choices as the statistics' CSV tool: fields apart by a
// semicolon or a comma, a comma or a point as decimal mark; detect() takes a
// text holding ";" as semicolon-and-comma, anything else as comma-and-point.
// Import reads the chosen X, F and optional G columns of every line; a first
// line with no number in those columns is a heading and is passed over,
// blank lines are passed over, and any other line that does not give a
// number in each chosen column stops the import, named by its number, with
// the table untouched. fill() then puts the data into the table as edit mode
// would have (X and F cells, G when chosen, pointCount, the derivatives).
// Export writes a heading line and X, F(x) (and G(x)) of every row.
#include <QChar>
#include <QList>
#include <QString>
#include <QStringList>
#include <vector>

class FunctionTable;

class TableCsv {
 public:
  // Rows taken at most: far past what the plot and the analyses are made for.
  static constexpr int kMaxRows = 32767;
  // Lines shown in the preview.
  static constexpr int kPreviewLines = 10;

  QChar separator = QLatin1Char(';');
  QChar decimal = QLatin1Char(',');
  // Fields by index from 0; columnG -1 for none.
  int columnX = 0, columnF = 1, columnG = -1;

  struct Data {
    std::vector<double> x, f, g;  // g empty when no G column was chosen
  };
  // The outcome of a read: badLine is 0 when every line was read, else the
  // number (from 1) of the first line that was not.
  struct Result {
    Data data;
    int badLine = 0;
    bool tooLong = false;
  };

  // The separators of the system: ";" and "," with a decimal comma, else "," and ".".
  void followSystem();
  // Chooses the separators from the text (or its first lines).
  void detect(const QString& text);
  // The first lines of the text, split into fields.
  QList<QStringList> preview(const QString& text) const;
  // The most fields any of the first lines has.
  int fieldCount(const QString& text) const;
  QStringList fields(const QString& line) const;
  // One field read as a number with the chosen decimal mark; false when it is not one.
  bool number(QString field, double& value) const;

  Result read(const QString& text) const;
  // The table's rows 1 to pointCount as CSV text (CR LF line ends).
  QString write(const FunctionTable& table) const;

  // Asks which separators a file to write takes (a list in the message box,
  // the system's first); false when the question is cancelled.
  bool askSeparators();

  // Reads the text and fills the table; a bad line, a file with no data or
  // too many rows are told through the message box and change nothing.
  bool import(FunctionTable& table, const QString& text) const;
  // The message for a read that failed (empty for one that did not).
  static QString failureText(const Result& result);

  // Puts the data in the table: function mode, data rows replaced, X and F
  // (and G) as the numbers' texts, the counts of edit mode, the derivatives.
  static void fill(FunctionTable& table, const Data& data);
  // The whole file as text; false when it cannot be read.
  static bool readFile(const QString& path, QString& text);
  static bool writeFile(const QString& path, const QString& text);
};
