#pragma once
// How a module opens the statistics chart window with its own series:
//
//     ChartData data;
//     data.x = {...};  data.xName = Res(...);
//     data.y = {...};  data.yName = Res(...);
//     data.series = 0;              // pairs; 1 or 2 for one series alone
//     showChart(data);
//
// showChart opens the window (WindowId::StatisticsChart) through the shell's
// window registry and hands the data over; the window chooses the series as
// its seriesdata menu would, so a refused choice shows its text in the
// window's info line. Nothing happens when the program has no chart window.
#include <QObject>
#include <functional>

#include "shell/ChartData.h"

void showChart(const ChartData& data);

// The chart window registers itself here while it lives (owner: the window;
// the receiver is dropped when the owner is destroyed).
void setChartReceiver(QObject* owner, std::function<void(const ChartData&)> receiver);
