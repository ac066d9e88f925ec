#pragma once
// CSV import into the function table: the file chosen (the dialog starts in
// datos/), a preview of its first lines split into columns, the field
// separator and decimal mark chosen or detected ("Automático"), the X, F(x)
// and optional G(x) columns chosen. Accept reads the whole file through
// TableCsv: a bad line is named and the table stays as it was; otherwise
// the table is filled and the dialog closes. Export asks for the separators
// (the system's offered first) and writes the table with them.
#include <QDialog>
#include <array>
#include <functional>

#include "funcs/TableCsv.h"

class FunctionTable;
class QComboBox;
class QLabel;
class QTableWidget;

class TableCsvDialog : public QDialog {
  Q_OBJECT

 public:
  TableCsvDialog(FunctionTable& table, QWidget* parent);

  // Shows the file in the preview; false (with the message) when it is of
  // another type or cannot be read.
  bool openFile(const QString& path);
  // Reads the file into the table with the choices shown; true when done.
  bool importFile();
  // Chooses the separators from the file's lines.
  void detect();

  // The whole exchange from a window: ask, read, fill. True when the table changed.
  static bool importInto(FunctionTable& table, QWidget* parent);
  // Asks for a name and writes the table there; true when written.
  static bool exportFrom(FunctionTable& table, QWidget* parent);
  // Writes the table to a path with the separators of csv (the extension
  // rule and the message included).
  static bool exportTo(const FunctionTable& table, const QString& path, const TableCsv& csv);

  QLabel* fileName = nullptr;
  QComboBox* separatorCombo = nullptr;
  QComboBox* decimalCombo = nullptr;
  std::array<QComboBox*, 3> columnCombo{};  // X, F, G
  QTableWidget* preview = nullptr;

 private:
  void browse();
  void takeChoices();
  void showChoices();
  void fillPreview();

  FunctionTable& table_;
  TableCsv csv_;
  QString text_;
};
