#pragma once
// The saints' table cvxcl.dlj (table Santoral, text fields Fecha "dd/mm/2003"
// and Santos), read through Qt's SQLite driver. Each query opens its own
// connection and closes it, so the table is never held open between uses.
// The search keeps its place like the window's data control: santobusca
// starts from the first row, santobuscasig goes on after the last find.
#include <QString>
#include <optional>

namespace calendar {

struct SaintsRow {
  QString Fecha;  // "dd/mm/2003"
  QString Santos;
};

class SaintsTable {
 public:
  // The table beside the programs, else in the program's folder.
  static QString defaultPath();
  explicit SaintsTable(QString path = defaultPath());

  const QString& path() const { return path_; }
  // The Santos text of the date's day and month; empty when there is none.
  QString saintsOf(double date) const;

  // santobusca: asks for the text (title 350, text 351); on a find returns
  // it, otherwise shows 352 with the text. Cancelled or empty: nothing.
  std::optional<SaintsRow> santobusca_Click();
  // santobuscasig: the next row after the last find; none left shows 353
  // (or 352 when nothing was found yet).
  std::optional<SaintsRow> santobuscasig_Click();

  // santobusca once its question is answered: the find, or message 352.
  std::optional<SaintsRow> find(const QString& text);

  // The searches without their messages.
  std::optional<SaintsRow> search(const QString& text);
  std::optional<SaintsRow> searchNext();
  const QString& searchText() const { return searchText_; }

  // The date of a row in the given year (29 February falls to 1 March in a
  // common year, as the runtime's DateSerial rolls it).
  static double dateOfRow(const SaintsRow& row, int year);

 private:
  std::optional<SaintsRow> findFrom(qint64 afterRow);
  void notFound();

  QString path_;
  QString searchText_;
  qint64 lastRow_ = 0;  // rowid of the last find, 0 before the first
};

}  // namespace calendar
