#pragma once
// The function table's grid (MSFlexGrid1): a store of cell texts, rows by
// columns, with row 0 the heading. Readers see texts only: get, set and the
// row count; number() is the text read as a 64-bit float, for the plot and
// the analyses.
//
// Inside, each column is an array of doubles. A cell whose text is the
// default text of a number (what rt::NumberToText writes) keeps only that
// number and gives the text back on demand; any other text ("10.0", "Error",
// "0000", a heading) is kept as it is beside the array. So every text comes
// back with all its characters, and a table of numbers costs 8 bytes a cell.
// A column that holds nothing costs nothing.
//
// Numbers come back in the decimal form of the system at the time of the
// reading (the form does not change while the program runs).
#include <QHash>
#include <QString>
#include <cstddef>
#include <vector>

class CellGrid {
 public:
  explicit CellGrid(int columns);

  int rowCount() const { return rows_; }
  int columnCount() const { return static_cast<int>(columns_.size()); }
  // Rows past the new count are dropped with their texts; the memory of a
  // long table cut short is given back, unless keepRoom (a new table of about
  // the same length is on its way: no second allocation and page faulting).
  void setRowCount(int rows, bool keepRoom = false);
  // Room for this many rows in a column that is about to be filled, so a long
  // table grows without spare capacity; room kept from a far longer table
  // goes back.
  void reserveRows(int col, int rows);

  // The text of a cell; empty outside the grid.
  QString get(int row, int col) const;
  // get(row, col) added at the end of out, without a text of its own.
  void appendText(int row, int col, QString& out) const;
  // A cell outside the grid is left alone.
  void set(int row, int col, const QString& text);
  // Same as set(row, col, rt::NumberToText(value)), without building the text.
  void setNumber(int row, int col, double value);
  // setNumber for a value that textValue gave: it is stored as it is.
  void setTextValue(int row, int col, double shown);
  // Where to write the values (as textValue gives them) of rows from to
  // from+count-1 of a column at once, for work that makes a whole column: the
  // cells are there to be written, their old texts gone. Null when those
  // rows are not all in the grid.
  double* rowsToFill(int col, int from, int count);
  bool isEmpty(int row, int col) const;
  // The cell's text read as a number (locale-aware, as CDbl reads it); false
  // when it is empty or not a number.
  bool number(int row, int col, double& value) const;
  // True when the cell holds the default text of a number: value is then
  // the value of that text, as textValue gives it.
  bool storedNumber(int row, int col, double& value) const;

  // A column's cells as stored, row 0 first, for loops over rows from..to:
  // a number, or a NaN where the cell is empty. count is how many rows are
  // stored (the rest are empty). Null when the column keeps texts in those
  // rows, whose cells are NaNs too but must be read with number().
  const double* numbers(int col, int from, int to, int& count) const;

  // Every cell empty; the row count stays.
  void clear();
  // Cells fromCol..toCol of a row made empty.
  void clearRow(int row, int fromCol, int toCol);
  // Cells of a column from a row to the end made empty.
  void clearColumn(int col, int fromRow = 1);

  // Bytes held for the cells (arrays and texts), to keep an eye on size.
  std::size_t memoryBytes() const;

  // The value whose default text is that of x: x rounded to the 15
  // significant digits the text shows. False when that value is no finite
  // double (the text of a number next to the largest double rounds beyond it).
  static bool textValue(double x, double& value);

 private:
  struct Column {
    std::vector<double> cells;  // tagged NaNs mark empty cells and kept texts
    QHash<int, QString> texts;  // by row, for cells that are not default number texts
  };
  void store(int row, int col, double tagged);
  // The kept texts of rows from..to-1 forgotten.
  static void dropTexts(Column& c, int from, int to);

  std::vector<Column> columns_;
  int rows_ = 0;
};
