#include "funcs/CellGrid.h"

#include <bit>
#include <charconv>
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

CellGrid::CellGrid(int columns) : columns_(static_cast<size_t>(columns)) {}

namespace {

// Powers of ten that doubles hold exactly.
constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kMaxExactPower = 22;

// x rounded to 15 significant digits by arithmetic: x * 10^(14-e) is one
// rounded operation p whose error's sign fma gives exactly; p is rounded to
// the whole m, half to even as the exact value decides, and m * 10^(e-14)
// is one correctly rounded operation. Only where 10^(14-e) is an exact
// double (x from about 1e-8 to 1e36); false elsewhere.
bool roundedBySums(double x, double& value) {
  const double a = std::fabs(x);
  int e = static_cast<int>(std::floor(std::ilogb(a) * 0.30102999566398120));  // log10 of 2
  for (int tries = 0; tries < 3; ++tries) {
    const int k = 14 - e;
    if (k < -kMaxExactPower || k > kMaxExactPower) return false;
    const double scale = kExactPowers[std::abs(k)];
    const double p = k >= 0 ? a * scale : a / scale;
    // Only the sign of the exact value's distance from p matters: for the
    // product it is the product's error, for the quotient the remainder's.
    const double err = k >= 0 ? std::fma(a, scale, -p) : std::fma(-p, scale, a);
    if (p > 1e15 || (p == 1e15 && err >= 0)) {
      ++e;
      continue;
    }
    if (p < 1e14 || (p == 1e14 && err < 0)) {
      --e;
      continue;
    }
    double m = std::nearbyint(p);  // half to even, on p alone
    // p - m is exact. A half in p that is no half in the exact value goes
    // the exact value's way (p + 0.5 and p - 0.5 are whole and exact).
    if (std::fabs(p - m) == 0.5 && err != 0) m = err > 0 ? p + 0.5 : p - 0.5;
    const double r = k >= 0 ? m / scale : m * scale;
    value = x < 0 ? -r : r;
    return true;
  }
  return false;
}

}  // namespace

bool CellGrid::textValue(double x, double& value) {
  if (x == 0) {
    value = 0;  // the text of -0 is "0"
    return true;
  }
  if (!std::isfinite(x)) return false;
  if (std::fabs(x) >= std::numeric_limits<double>::min() && roundedBySums(x, value)) return true;
  // Elsewhere through the digits: the shortest digits that read back as x;
  // with 15 or fewer the default text shows exactly them and x is its value.
  // With more, the text shows x rounded to 15 digits, read back here.
  char buf[40];
  auto res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific);
  int digits = 0;
  for (const char* p = buf; p < res.ptr && *p != 'e'; ++p) digits += (*p >= '0' && *p <= '9') ? 1 : 0;
  if (digits <= 15) {
    value = x;
    return true;
  }
  res = std::to_chars(buf, buf + sizeof buf, x, std::chars_format::scientific, 14);
  const auto read = std::from_chars(buf, res.ptr, value);
  return read.ec == std::errc() && std::isfinite(value);
}

void CellGrid::setRowCount(int rows) {
  if (rows < 0) rows = 0;
  if (rows < rows_) {
    for (Column& c : columns_) {
      if (c.cells.size() > static_cast<size_t>(rows)) {
        c.cells.resize(static_cast<size_t>(rows));
        // Give back the memory of a long table that is cut short.
        if (c.cells.capacity() > 2 * c.cells.size() + 64) c.cells.shrink_to_fit();
      }
      for (auto it = c.texts.begin(); it != c.texts.end();) {
        it = it.key() >= rows ? c.texts.erase(it) : std::next(it);
      }
    }
  }
  rows_ = rows;
}

void CellGrid::reserveRows(int col, int rows) {
  if (col < 0 || col >= columnCount() || rows <= 0) return;
  columns_[static_cast<size_t>(col)].cells.reserve(static_cast<size_t>(rows));
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
  for (auto it = c.texts.begin(); it != c.texts.end();) {
    it = it.key() >= fromRow ? c.texts.erase(it) : std::next(it);
  }
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
