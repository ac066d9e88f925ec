#include "funcs/FunctionGridView.h"

#include <QHeaderView>
#include <QScrollBar>

#include "funcs/FunctionTable.h"

namespace {
constexpr int kStandardWidth = 1450;  // twips of a standard column
}

FunctionGridModel::FunctionGridModel(FunctionTable& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table), shownRows_(std::max(table.MSFlexGrid1.rowCount() - 1, 0)) {}

int FunctionGridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shownRows_; }

int FunctionGridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : FunctionTable::kColumns;
}

QVariant FunctionGridModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  if (role == Qt::DisplayRole) return table_.TextMatrix(index.row() + 1, index.column());
  if (role == Qt::TextAlignmentRole) {
    const Qt::Alignment side = index.column() == 0 ? Qt::AlignLeft : Qt::AlignRight;
    return QVariant::fromValue(side | Qt::AlignVCenter);
  }
  return {};
}

QVariant FunctionGridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
  if (orientation == Qt::Horizontal) return table_.TextMatrix(0, section);
  return section + 1;
}

void FunctionGridModel::sync() {
  const int rows = std::max(table_.MSFlexGrid1.rowCount() - 1, 0);
  if (rows > shownRows_) {
    beginInsertRows({}, shownRows_, rows - 1);
    shownRows_ = rows;
    endInsertRows();
  } else if (rows < shownRows_) {
    beginRemoveRows({}, rows, shownRows_ - 1);
    shownRows_ = rows;
    endRemoveRows();
  }
  if (shownRows_ > 0) Q_EMIT dataChanged(index(0, 0), index(shownRows_ - 1, FunctionTable::kColumns - 1));
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, FunctionTable::kColumns - 1);
}

FunctionGridView::FunctionGridView(FunctionTable& table, QWidget* parent)
    : QTableView(parent), table_(table), model_(table, this) {
  setModel(&model_);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setSelectionBehavior(QAbstractItemView::SelectItems);
  setTabKeyNavigation(false);
  setWordWrap(false);
  // Every row the same height: a table of a million rows stays quick.
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setHighlightSections(false);
  // A standard column shows the longest default text of a number whole.
  standardWidth_ = fontMetrics().horizontalAdvance(QStringLiteral("-0.000251256281407035")) + 10;
}

void FunctionGridView::sync() {
  model_.sync();
  for (int c = 0; c < FunctionTable::kColumns; ++c) {
    const int width = table_.colWidth[static_cast<size_t>(c)];
    setColumnHidden(c, width == 0);
    if (width > 0) setColumnWidth(c, width * standardWidth_ / kStandardWidth);
  }
  const bool both = table_.scrollBars == FunctionTable::ScrollBars::Both;
  setHorizontalScrollBarPolicy(both ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
  if (table_.LeftCol == 0) horizontalScrollBar()->setValue(0);
  const QModelIndex current = model_.index(table_.Row - 1, table_.Col);
  if (current.isValid() && current != currentIndex()) {
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::ClearAndSelect);
    scrollTo(current);
  }
}
