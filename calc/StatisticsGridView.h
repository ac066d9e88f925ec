#pragma once
// One of the two data grids of the statistics panel, MSFlexGrid1(0) for X and
// MSFlexGrid1(1) for Y: column 0 the index, column 1 the value, read straight
// from the program-wide store. The view asks only for the rows on screen, so
// 6000 data cost no more than 10; it rereads when the store's revision moves.
#include <QTableView>

class StatisticsGridModel;

class StatisticsGridView : public QTableView {
  Q_OBJECT

 public:
  StatisticsGridView(int list, QWidget* parent = nullptr);
  int list() const { return list_; }
  // Rereads the store when it changed; shows the last row when asked.
  void refreshData(bool scrollToLast);
  // The selected row, 1-based; 0 for none.
  int selectedRow() const;
  void selectRow1(int row);

 Q_SIGNALS:
  void rowSelected(int row);

 private:
  int list_;
  StatisticsGridModel* model_;
  int revision_ = -1;
};
