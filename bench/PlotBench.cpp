// A redraw of the plot (drawPlot: every cell read again, frame, ticks,
// titles, legend, points and the joined curve) onto an offscreen 760x520
// image, for 1,000 and 100,000 points of the default F(x), beside a plain
// QPainter::drawPolyline of the same points onto the same kind of image, in
// the same run: the ratio is what to read.
//
//   DrawPlot   PlotModel::drawPlot through the QPainter canvas
//   Polyline   the points mapped to pixels once, then one drawPolyline per
//              iteration with the same pen (width, caps, joins, antialiasing)
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "funcs/FunctionTable.h"
#include "funcs/PlotModel.h"
#include "funcs/PlotPainterView.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"

namespace {

constexpr int kWidth = 760, kHeight = 520;

// Text needs a GUI application; one for the whole run, on the offscreen platform.
void ensureApplication() {
  static int argc = 1;
  static char name[] = "calvix_bench";
  static char* argv[] = {name, nullptr};
  if (QCoreApplication::instance()) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // Kept to the end of the process: destroying it among the static objects crashes.
  new QGuiApplication(argc, argv);
}

// The default F(x) over 0..5 with the given number of points (by increment:
// no row limit), and the plot opened on it at the benchmark's size.
struct PlotOnTable {
  explicit PlotOnTable(int points) {
    ensureApplication();
    resetProgram(QLocale::c());
    t.Form_Load();
    t.Form_Activate();
    t.Option1_Click(1);
    t.Text1 = rt::Str(5.0 / (points - 1)).trimmed();
    t.cmdResult_Click();
    m.Form_Resize(kWidth, kHeight);
    m.Form_Load();
  }
  ScriptedPresenter quiet;
  PresenterScope scope{&quiet};
  FunctionTable t;
  PlotModel m{t};
};

void BM_DrawPlot(benchmark::State& state) {
  PlotOnTable plot(static_cast<int>(state.range(0)));
  PlotModel& m = plot.m;
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  for (auto _ : state) {
    QPainter painter(&image);
    PainterCanvas canvas(painter, kWidth, kHeight, plot::PlotCanvas::Target::Image);
    m.drawPlot(canvas);
  }
  state.counters["rows"] = program().pointCount;
}

void BM_Polyline(benchmark::State& state) {
  PlotOnTable plot(static_cast<int>(state.range(0)));
  PlotModel& m = plot.m;
  QPolygonF points;
  for (int r = 1; r <= program().pointCount; ++r) {
    double x = 0, y = 0;
    plot.t.MSFlexGrid1.number(r, 0, x);
    plot.t.MSFlexGrid1.number(r, 1, y);
    points << QPointF((x - m.ScaleLeft) / m.unitX, (m.ScaleTop - y) / m.unitY);
  }
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  QPen pen(PainterCanvas::toColor(m.colour(PlotModel::kCurveF)), m.lineWidth());
  pen.setCapStyle(Qt::SquareCap);
  pen.setJoinStyle(Qt::BevelJoin);
  for (auto _ : state) {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.fillRect(image.rect(), Qt::black);
    painter.setPen(pen);
    painter.drawPolyline(points);
  }
  state.counters["rows"] = static_cast<double>(points.size());
}

void sizes(benchmark::internal::Benchmark* b) {
  b->Unit(benchmark::kMillisecond);
  b->Arg(1000);
  b->Arg(100000);
}

}  // namespace

BENCHMARK(BM_DrawPlot)->Apply(sizes);
BENCHMARK(BM_Polyline)->Apply(sizes);
