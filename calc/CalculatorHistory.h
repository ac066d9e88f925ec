#pragma once
// The calculator's history list Combo1: one text per line, at most 4000
// lines. The line after the 4000th clears the whole list first (it does not
// drop only the oldest line). Like the list box it stands for, it also has a
// box text (the last line written or the line picked) and a selected line.
//
// Adding a line never touches the lines before it, so it costs the same at
// 3999 lines as at 1. A view that copies the lines keeps the count it has
// shown and the clear count: while clears() is unchanged, the lines from its
// count on are new; when it changed, the list was emptied in between.
#include <QStringList>

class CalculatorHistory {
 public:
  static constexpr int kMaxLines = 4000;

  // Adds a line, clearing the list first when it is full; the line becomes
  // the box text and is selected.
  void add(const QString& line);
  void clear();
  int count() const { return static_cast<int>(lines_.size()); }
  bool full() const { return count() >= kMaxLines; }
  const QStringList& lines() const { return lines_; }

  // The box text and the selected line (-1 for none).
  const QString& text() const { return text_; }
  int ListIndex() const { return selected_; }
  // Selects a line, which becomes the box text; false when there is none.
  bool select(int index);

  // How many times the list has been emptied.
  int clears() const { return clears_; }
  // The share of the 4000 lines in use, 0 to 1 (the red bar Picture1).
  double fill() const { return static_cast<double>(count()) / kMaxLines; }

 private:
  QStringList lines_;
  QString text_;
  int selected_ = -1;
  int clears_ = 0;
};
