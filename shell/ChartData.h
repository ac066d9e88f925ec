#pragma once
// The series a module hands to the statistics chart window (stats/). The
// window owns no data: it draws what it is given, as X and Y lists of 64-bit
// floats, series 1 being X and series 2 being Y. Modules open it with
// showChart() (shell/ChartWindowRequest.h), never by including the window.
#include <QString>
#include <QStringList>
#include <vector>

struct StatisticsStore;

struct ChartData {
  std::vector<double> x;  // series 1, point 1 first
  std::vector<double> y;  // series 2
  QString xName = QStringLiteral("X");  // legend and readout names of the series
  QString yName = QStringLiteral("Y");
  QStringList categories;  // optional labels of the points (category axis); empty: 1, 2, 3...
  QString title;           // added to the window's caption; empty: none
  // Which data to show first: 0 X and Y as pairs, 1 X alone, 2 Y alone.
  int series = 0;
  // The kind to draw, tipo(1..7) or tipo(9..13); 0 keeps the window's choice.
  int kind = 0;
  // The regression boxes ("a = ", "b = ", "r² = "): linear (0), potential (1)
  // or exponential (2) over the pairs; -1 leaves them empty.
  int regressionType = -1;
};

// graficoest's test of the statistics store: true when a list holds at least
// one datum; otherwise the refusal goes through the message box.
bool chartStoreAllowed(const StatisticsStore& store);
// The store's lists as chart data, with the calculator's regression type for
// the boxes; the pairs when the counts match and are at least 2, else the
// list that has data.
ChartData chartDataOfStore(const StatisticsStore& store, int regType);
