#include "calc/CalculatorHistory.h"

void CalculatorHistory::add(const QString& line) {
  if (full()) clear();
  lines_.append(line);
}
