#pragma once
// Frequencies of the numbers in the draw history and in the bets, and the
// texts built from them: the frequency list of the viewer (number, times,
// percentage), the ten most or least frequent numbers, and the series handed
// to the chart window.
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <functional>

#include "lottery/DrawAnalysis.h"

using Frequencies = std::array<float, 50>;

struct DrawStatistics {
  // frecDB: list 0 the six numbers drawn, 1 list 0 plus list 2, 2 the
  // complementary, 3 the reintegro (0-9). Index = the number (0 collects
  // empty or unreadable cells).
  std::array<Frequencies, 4> frecDB{};
  float sorteosBase = 0;
  bool stopped = false;
};

// Counts the rows of the chosen type (tipoSorteo 0 P, 1 B, 2 G, 3 all).
// keepGoing is asked every kStatisticsStep rows with the row index; false
// stops the count and leaves everything at zero.
constexpr int kStatisticsStep = 512;
DrawStatistics drawStatistics(const DrawTable& draws, int tipoSorteo, const std::function<bool(int)>& keepGoing = {});

// Whether row i of the table passes the type filter.
bool drawPassesFilter(const DrawTable& draws, int row, int tipoSorteo);

// The frequency grid (numbers 1 to 49): number, times, percentage of total
// with "0.00". order: 0 by number, 1 ascending times, 2 descending times;
// equal times keep number order.
QList<QStringList> frequencyRows(const Frequencies& counts, double total, int order);

// The information box text of the ten most (least = false) or least frequent
// numbers of frecDB: list 0, or list 1 when the complementary is included.
QString tenNumbersReport(const DrawStatistics& stats, bool least, bool withComplementary);

// The series of one frequency chart: numbers from..to with their counts.
struct FrequencyChart {
  QString title;
  QString rangeFrom, rangeTo;  // the axis range, "0" to "49" or "0" to "10"
  QList<int> keys;
  QList<double> values;
  bool hasData() const;
};
FrequencyChart frequencyChart(const QString& title, const Frequencies& counts, int first, int last,
                              const QString& rangeTo);
