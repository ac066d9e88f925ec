#pragma once
// The calculator's history list: one text per line, at most 4000 lines. The
// line after the 4000th clears the whole list first (it does not drop only
// the oldest line), as the users of the history expect.
#include <QStringList>

class CalculatorHistory {
 public:
  static constexpr int kMaxLines = 4000;

  // Adds a line, clearing the list first when it is full.
  void add(const QString& line);
  void clear() { lines_.clear(); }
  int count() const { return static_cast<int>(lines_.size()); }
  bool full() const { return count() >= kMaxLines; }
  const QStringList& lines() const { return lines_; }

 private:
  QStringList lines_;
};
