#include "calc/StatisticsGridView.h"

#include <QAbstractTableModel>
#include <QHeaderView>

#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"

class StatisticsGridModel : public QAbstractTableModel {
 public:
  StatisticsGridModel(int list, QObject* parent) : QAbstractTableModel(parent), list_(list) {}
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : program().stats.count(list_);
  }
  int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : 2; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role != Qt::DisplayRole || !index.isValid()) return {};
    const int i = index.row() + 1;
    if (index.column() == 0) return QString::number(i);
    return rt::NumberToText(program().stats.at(list_, i));
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return section == 0 ? QStringLiteral("#") : (list_ == 0 ? QStringLiteral("X") : QStringLiteral("Y"));
  }
  void reset() {
    beginResetModel();
    endResetModel();
  }

 private:
  int list_;
};

StatisticsGridView::StatisticsGridView(int list, QWidget* parent)
    : QTableView(parent), list_(list), model_(new StatisticsGridModel(list, this)) {
  setObjectName(QStringLiteral("MSFlexGrid1(%1)").arg(list));
  setModel(model_);
  verticalHeader()->setVisible(false);
  verticalHeader()->setDefaultSectionSize(20);
  horizontalHeader()->setStretchLastSection(true);
  setColumnWidth(0, 40);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) { Q_EMIT rowSelected(index.row() + 1); });
}

void StatisticsGridView::refreshData(bool scrollToLast) {
  const int revision = program().stats.revision;
  if (revision != revision_) {
    revision_ = revision;
    const int keep = selectedRow();
    model_->reset();
    if (keep > 0 && keep <= model_->rowCount()) selectRow1(keep);
  }
  if (scrollToLast && model_->rowCount() > 0) scrollToBottom();
}

int StatisticsGridView::selectedRow() const {
  const QModelIndex current = currentIndex();
  return current.isValid() ? current.row() + 1 : 0;
}

void StatisticsGridView::selectRow1(int row) {
  if (row < 1 || row > model_->rowCount()) {
    clearSelection();
    setCurrentIndex({});
    return;
  }
  selectRow(row - 1);
}
