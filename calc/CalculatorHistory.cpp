#include "calc/CalculatorHistory.h"

void CalculatorHistory::add(const QString& line) {
  if (full()) clear();
  lines_.append(line);
  text_ = line;
  selected_ = count() - 1;
}

void CalculatorHistory::clear() {
  lines_.clear();
  text_.clear();
  selected_ = -1;
  ++clears_;
}

bool CalculatorHistory::select(int index) {
  if (index < 0 || index >= count()) return false;
  selected_ = index;
  text_ = lines_.at(index);
  return true;
}
