#include "funcs/CellGrid.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

#include "shell/runtime/NumberText.h"

namespace {

// Two quiet NaNs with payloads of their own: no computed number is ever a
// NaN (the runtime fails instead), so they cannot be mistaken for a value.
constexpr std::uint64_t kEmptyBits = 0x7FF8'0000'0000'0E01ULL;
constexpr std::uint64_t kTextBits = 0x7FF8'0000'0000'0E02ULL;
const double kEmpty = std::bit_cast<double>(kEmptyBits);
const double kText = std::bit_cast<double>(kTextBits);

inline bool isTag(double v, std::uint64_t tag) { return std::bit_cast<std::uint64_t>(v) == tag; }

}  // namespace

void CellGrid::dropTexts(Column& c, int from, int to) {
  if (c.texts.isEmpty()) return;  // begin() would make a table for nothing
  for (auto it = c.texts.begin(); it != c.texts.end();) {
    it = it.key() >= from && it.key() < to ? c.texts.erase(it) : std::next(it);
  }
}

CellGrid::CellGrid(int columns) : columns_(static_cast<size_t>(columns)) {}

bool CellGrid::textValue(double x, double& value) { return rt::textValue(x, value); }

void CellGrid::setRowCount(int rows, bool keepRoom) {
  if (rows < 0) rows = 0;
  if (rows < rows_) {
    for (Column& c : columns_) {
      if (c.cells.size() > static_cast<size_t>(rows)) {
        c.cells.resize(static_cast<size_t>(rows));
        if (!keepRoom && c.cells.capacity() > 2 * c.cells.size() + 64) c.cells.shrink_to_fit();
      }
      dropTexts(c, rows, std::numeric_limits<int>::max());
    }
  }
  rows_ = rows;
}

void CellGrid::reserveRows(int col, int rows) {
  if (col < 0 || col >= columnCount() || rows <= 0) return;
  std::vector<double>& cells = columns_[static_cast<size_t>(col)].cells;
  const auto wanted = static_cast<size_t>(rows);
  // Room kept from a far longer table goes back.
  if (cells.size() <= wanted && cells.capacity() > 2 * wanted + 64) cells.shrink_to_fit();
  cells.reserve(wanted);
}

QString CellGrid::get(int row, int col) const {
  if (row < 0 || row >= rows_ || col < 0 || col >= columnCount()) return {};
  const Column& c = columns_[static_cast<size_t>(col)];
  if (static_cast<size_t>(row) >= c.cells.size()) return {};
  const double v = c.cells[static_cast<size_t>(row)];
  if (isTag(v, kEmptyBits)) return {};
  if (isTag(v, kTextBits)) return c.texts.value(row);
  return rt::NumberToText(v);
}

void CellGrid::appendText(int row, int col, QString& out) const {
  if (row < 0 || row >= rows_ || col < 0 || col >= columnCount()) return;
  const Column& c = columns_[static_cast<size_t>(col)];
  if (static_cast<size_t>(row) >= c.cells.size()) return;
  const double v = c.cells[static_cast<size_t>(row)];
  if (isTag(v, kEmptyBits)) return;
  if (isTag(v, kTextBits)) out += c.texts.value(row);
  else rt::appendNumberText(out, v);
}

void CellGrid::store(int row, int col, double tagged) {
  Column& c = columns_[static_cast<size_t>(col)];
  const auto r = static_cast<size_t>(row);
  if (r >= c.cells.size()) {
    if (isTag(tagged, kEmptyBits)) return;  // already empty
    // A table grows one row at a time: append rather than fill and overwrite.
    if (r > c.cells.size()) c.cells.resize(r, kEmpty);
    c.cells.push_back(tagged);
    return;
  } else if (isTag(c.cells[r], kTextBits) && !isTag(tagged, kTextBits)) {
    c.texts.remove(row);
  }
  c.cells[r] = tagged;
}

void CellGrid::set(int row, int col, const QString& text) {
  if (row < 0 || row >= rows_ || col < 0 || col >= columnCount()) return;
  if (text.isEmpty()) {
    store(row, col, kEmpty);
    return;
  }
  double value = 0;
  if (rt::tryTextToDouble(text, value) && std::isfinite(value) && rt::NumberToText(value) == text) {
    store(row, col, value == 0 ? 0.0 : value);
    return;
  }
  store(row, col, kText);
  columns_[static_cast<size_t>(col)].texts.insert(row, text);
}

void CellGrid::setNumber(int row, int col, double value) {
  if (row < 0 || row >= rows_ || col < 0 || col >= columnCount()) return;
  double shown = 0;
  if (textValue(value, shown)) {
    store(row, col, shown);
  } else {
    set(row, col, rt::NumberToText(value));
  }
}

bool CellGrid::storedNumber(int row, int col, double& value) const {
  if (row < 0 || row >= rows_ || col < 0 || col >= columnCount()) return false;
  const Column& c = columns_[static_cast<size_t>(col)];
  if (static_cast<size_t>(row) >= c.cells.size()) return false;
  const double v = c.cells[static_cast<size_t>(row)];
  if (v != v) return false;  // a tag: empty or a kept text
  value = v;
  return true;
}

void CellGrid::setTextValue(int row, int col, double shown) {
  if (row < 0 || row >= rows_ || col < 0 || col >= columnCount()) return;
  store(row, col, shown);
}

double* CellGrid::rowsToFill(int col, int from, int count) {
  if (col < 0 || col >= columnCount() || from < 0 || count <= 0 || from + count > rows_) return nullptr;
  Column& c = columns_[static_cast<size_t>(col)];
  dropTexts(c, from, from + count);
  const auto end = static_cast<size_t>(from) + static_cast<size_t>(count);
  if (c.cells.size() < end) c.cells.resize(end, kEmpty);
  return c.cells.data() + from;
}

const double* CellGrid::numbers(int col, int from, int to, int& count) const {
  count = 0;
  if (col < 0 || col >= columnCount()) return nullptr;
  const Column& c = columns_[static_cast<size_t>(col)];
  for (auto it = c.texts.cbegin(); it != c.texts.cend(); ++it) {  // usually a title at most
    if (it.key() >= from && it.key() <= to) return nullptr;
  }
  count = static_cast<int>(std::min(c.cells.size(), static_cast<size_t>(rows_)));
  return c.cells.data();
}

bool CellGrid::isEmpty(int row, int col) const {
  if (row < 0 || row >= rows_ || col < 0 || col >= columnCount()) return true;
  const Column& c = columns_[static_cast<size_t>(col)];
  return static_cast<size_t>(row) >= c.cells.size() || isTag(c.cells[static_cast<size_t>(row)], kEmptyBits);
}

bool CellGrid::number(int row, int col, double& value) const {
  if (row < 0 || row >= rows_ || col < 0 || col >= columnCount()) return false;
  const Column& c = columns_[static_cast<size_t>(col)];
  if (static_cast<size_t>(row) >= c.cells.size()) return false;
  const double v = c.cells[static_cast<size_t>(row)];
  if (isTag(v, kEmptyBits)) return false;
  if (isTag(v, kTextBits)) return rt::tryTextToDouble(c.texts.value(row), value);
  value = v;
  return true;
}

void CellGrid::clear() {
  for (Column& c : columns_) {
    c.cells.clear();
    c.cells.shrink_to_fit();
    c.texts.clear();
  }
}

void CellGrid::clearRow(int row, int fromCol, int toCol) {
  if (row < 0 || row >= rows_) return;
  for (int col = std::max(fromCol, 0); col <= std::min(toCol, columnCount() - 1); ++col) store(row, col, kEmpty);
}

void CellGrid::clearColumn(int col, int fromRow) {
  if (col < 0 || col >= columnCount()) return;
  Column& c = columns_[static_cast<size_t>(col)];
  const auto from = static_cast<size_t>(std::max(fromRow, 0));
  if (c.cells.size() > from) c.cells.resize(from);
  dropTexts(c, fromRow, std::numeric_limits<int>::max());
}

std::size_t CellGrid::memoryBytes() const {
  std::size_t bytes = 0;
  for (const Column& c : columns_) {
    bytes += c.cells.capacity() * sizeof(double);
    for (auto it = c.texts.cbegin(); it != c.texts.cend(); ++it) {
      bytes += sizeof(int) + sizeof(QString) + static_cast<std::size_t>(it.value().capacity()) * sizeof(QChar);
    }
  }
  return bytes;
}
