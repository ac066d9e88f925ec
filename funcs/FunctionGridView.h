#pragma once
// The function table's grid on screen: a table model over MSFlexGrid1 (row 0
// as the column headings, data rows below) and the view that shows it with
// the column widths and scroll bars the FunctionTable asks for. The view does
// not edit cells itself: in edit mode the window sends the keys to the
// FunctionTable.
#include <QAbstractTableModel>
#include <QTableView>

class FunctionTable;

class FunctionGridModel : public QAbstractTableModel {
 public:
  explicit FunctionGridModel(FunctionTable& table, QObject* parent = nullptr);
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  // Follows the grid after a change: rows added or dropped, texts changed.
  void sync();

 private:
  FunctionTable& table_;
  int shownRows_ = 0;
};

class FunctionGridView : public QTableView {
 public:
  explicit FunctionGridView(FunctionTable& table, QWidget* parent = nullptr);
  FunctionGridModel& gridModel() { return model_; }
  // Column widths, scroll bars and the current cell from the FunctionTable.
  void sync();

 private:
  FunctionTable& table_;
  FunctionGridModel model_;
  int standardWidth_ = 97;  // pixels of a column of 1450 twips
};
