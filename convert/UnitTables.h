#pragma once
// The converter's 48 unit tables: for each magnitude, up to 39 units, each a
// button caption and its size in the table's base unit. The data is the text
// file units.txt beside this file, compiled in as a resource; parse() reads
// that form (see the head of units.txt) and refuses anything else.
#include <QList>
#include <QString>

inline constexpr int kUnitButtons = 39;

struct UnitRow {
  QString caption;  // as shown on the button, outer blanks kept
  double factor = 0;
};

struct UnitTable {
  QString item;    // the menu item that fills it ("Longitud", "presion", ...)
  int labelId = 0; // string id of the magnitude's name (Label11)
  int noteId = 0;  // string id of the note after "Aplicada tambien en:", 0 none
  QList<UnitRow> rows;
};

class UnitTables {
 public:
  // The tables compiled into the program.
  static const UnitTables& builtIn();
  // Reads the text form; false with the line and the reason in error.
  static bool parse(const QString& text, UnitTables& tables, QString* error = nullptr);
  // A factor's text: a number, or "=" and a product or quotient read from the
  // left whose terms may be raised with "^" ("atn1" stands for Atn(1)).
  static bool evaluate(const QString& text, double& value);

  const QList<UnitTable>& tables() const { return tables_; }
  // The table filled by a menu item; nullptr when no item has that name.
  const UnitTable* find(const QString& item) const;
  int unitCount() const;

 private:
  QList<UnitTable> tables_;
};
