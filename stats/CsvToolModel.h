#pragma once
// The CSV conversion tool (window FormCSV) without its widgets.
//
// How the pieces fit: Command1 reads the head of a *.csv file into Text1;
// the two pairs of combo boxes name the input and output separators (only
// the first character of an item counts); Command2 rewrites every line by
// plain text replacement (convertCsvLine: no field parsing, quotes get no
// special treatment), optionally writes the result beside the input as
// "<name>Cvx.csv", and splits it into the preview grid; flexcolX picks two
// grid columns and Command3 imports them into the program-wide statistics
// store (shell/StatisticsStore.h). The store changes only in Command3.
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>

// True when the last three characters of the name, lower-cased, are "csv".
bool csvNameAccepted(const QString& fileName);
// The output name: the lower-cased name with ".csv" replaced by "Cvx.csv".
QString csvOutputName(const QString& fileName);
// Rewrites one line from data separator `in` to data separator `out` and
// gives the separator the converted line is split at.
//   "," -> ";": every "," becomes ";", then every "." becomes ",".
//   ";" -> ",": every "," becomes ".", then every ";" becomes ",".
//   otherwise the line is kept and split at `in`.
QString convertCsvLine(const QString& line, QChar in, QChar out, QChar& workingSeparator);
// The lines of a text file as line input reads them (CR LF, LF or CR end a line).
QStringList csvLines(const QString& text);

class CsvToolModel {
 public:
  // The file dialog: returns the chosen path, empty when cancelled.
  std::function<QString(const QString& title, const QString& filter, const QString& folder)> fileDialog;

  // ---- Display state --------------------------------------------------------
  QString Label1;  // full path of the input
  QString Label4;  // name of the input
  QString Label3;  // name of the output file
  QString Text1;   // the head of the input, at most 10 lines joined by CR LF
  std::array<QString, 2> Combo1;  // input: data separator, decimal separator (item texts, "" none)
  std::array<QString, 2> Combo2;  // output: data separator, decimal separator
  bool Check1 = false;            // write the converted lines to the output file
  std::array<QString, 2> Label5{QStringLiteral("0"), QStringLiteral("0")};  // chosen X and Y columns, from 1
  int Image3 = -1;                // format detected: 0 ";" and ",", 1 "," and "."; -1 none
  QChar workingSeparator = QLatin1Char(',');
  // The preview grid: heading row of column numbers, then one row per line.
  QList<QStringList> MSFlexGrid1;
  int gridCols = 0;  // Cols of the grid (the longest row)
  int selectedColumn = 1;  // MSFlexGrid1.Col, from 1
  bool closeRequested = false;     // Command3(0): the window unloads
  bool minimizeRequested = false;  // Command3(1): the window minimises

  // The three combo items ("; (Punto y Coma)", ", (Coma)", ". (Punto)").
  static QStringList comboItems();
  // The item that starts with c ("" when none does).
  static QString comboItem(QChar c);

  // ---- Handlers -------------------------------------------------------------
  void Form_Load();
  void Command1_Click();
  void Command2_Click();
  void Command3_Click(int index);
  void Command4_Click();  // preset ", ." to "; ,"
  void Command5_Click();  // preset "; ," to ", ."
  void Command6_Click();  // detection from Text1
  void flexcolX_Click(int index);  // 0 column as X, 1 as Y, 2 clear the choice

  // The grid without its heading row.
  QList<QStringList> previewRows() const { return MSFlexGrid1.mid(1); }
  // The full path of the output file.
  QString outputPath() const;

 private:
  void clearGrid();
  void addGridRow(const QStringList& cells);
};
