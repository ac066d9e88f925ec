#pragma once
// Drawing of the chart model: the 2D kinds as a Qt Charts QChart, the 3D
// kinds as a Qt Data Visualization graph. Shared by the chart window and by
// calvix-cli's chart --png, so a saved picture is the chart as drawn.
#include <QImage>
#include <QSize>

class ChartModel;
class QAbstract3DGraph;
class QChart;

namespace charts {

// A new chart for the model's 2D kind (a 3D kind is drawn as its 2D kind).
// The caller owns it.
QChart* buildChart(const ChartModel& model);

// Whether the 3D kinds can be drawn: a windowing platform (not offscreen)
// and an OpenGL context. Asked once.
bool openGLAvailable();

// A new 3D graph for the model's 3D kind, or nullptr when none can be made.
// The caller owns it.
QAbstract3DGraph* buildGraph3D(const ChartModel& model);

// The chart as drawn, size pixels. A 3D kind with no OpenGL falls back to
// its 2D kind in the model (Label1 says so).
QImage renderChart(ChartModel& model, const QSize& size);

}  // namespace charts
