#include "stats/ChartDrawingView.h"

#include <QAreaSeries>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QGraphicsScene>
#include <QGuiApplication>
#include <QLegend>
#include <QLegendMarker>
#include <QLineSeries>
#include <QLogValueAxis>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QPainter>
#include <QPieSeries>
#include <QScatterSeries>
#include <QStackedBarSeries>
#include <QValueAxis>
#include <QtDataVisualization/Q3DBars>
#include <QtDataVisualization/Q3DCamera>
#include <QtDataVisualization/Q3DScene>
#include <QtDataVisualization/Q3DTheme>
#include <QtDataVisualization/Q3DSurface>
#include <QtDataVisualization/QBar3DSeries>
#include <QtDataVisualization/QCategory3DAxis>
#include <QtDataVisualization/QSurface3DSeries>
#include <QtDataVisualization/QValue3DAxis>
#include <algorithm>
#include <cmath>

#include "shell/runtime/SystemLocale.h"
#include "stats/ChartModel.h"

namespace charts {

namespace {

QColor toColor(const ColourParts& p) { return QColor(p.red, p.green, p.blue); }
QColor toColor(double value) { return toColor(colourParts(value)); }

// The values a series shows on the value axis: as they are, or as a percent
// of the series' total of magnitudes.
std::vector<double> shownValues(const ChartModel& m, int series) {
  std::vector<double> v = m.values(series);
  if (m.axis[1].type == ChartModel::Percent) {
    double total = 0;
    for (double d : v) total += std::abs(d);
    if (total > 0) {
      for (double& d : v) d = d / total * 100;
    }
  }
  return v;
}

// The series the chart draws, in order: X (0) then Y (1).
QList<int> drawnSeries(const ChartModel& m) {
  QList<int> out;
  for (int s = 0; s < 2; ++s) {
    if (m.included(s) && m.look[static_cast<std::size_t>(s)].plotted && !m.values(s).empty()) out << s;
  }
  return out;
}

QScatterSeries::MarkerShape markerShape(int marker) {
  switch (marker % 4) {
    case 0: return QScatterSeries::MarkerShapeCircle;
    case 1: return QScatterSeries::MarkerShapeRectangle;
    case 2: return QScatterSeries::MarkerShapeRotatedRectangle;
    default: return QScatterSeries::MarkerShapeTriangle;
  }
}

constexpr double kPointSizes[] = {0, 4, 6, 9, 13};

QAbstractAxis* valueAxis(const ChartModel& m, int index, double low, double high) {
  const ChartModel::Axis& a = m.axis[static_cast<std::size_t>(index)];
  // An empty chart, or one value everywhere, gives no width to scale: the
  // axis takes one unit from its low end.
  if (!std::isfinite(low) || !std::isfinite(high)) low = 0, high = 1;
  if (high <= low) high = low + 1;
  QAbstractAxis* axis = nullptr;
  if (a.type == ChartModel::Logarithmic && low > 0) {
    auto* log = new QLogValueAxis;
    log->setBase(10);
    log->setRange(low, high);
    log->setLabelFormat(QStringLiteral("%.6g"));
    axis = log;
  } else {
    auto* lin = new QValueAxis;
    lin->setRange(low, high);
    lin->setTickCount(std::max(2, a.ticks));
    // Automatic scales end on round values, as a reader expects.
    if (!a.manual && (index == 1 || m.pairsShown())) lin->applyNiceNumbers();
    // Localised labels take only the "%.Ng" form; what follows is copied as it is.
    lin->setLabelFormat(a.type == ChartModel::Percent && index == 1 ? QStringLiteral("%.6g %") : QStringLiteral("%.6g"));
    axis = lin;
  }
  axis->setGridLineVisible(a.guides);
  axis->setGridLineColor(toColor(m.gridColour));
  axis->setLinePenColor(toColor(m.lineColour));
  return axis;
}

void attach(QChart* chart, QAbstractSeries* series, QAbstractAxis* x, QAbstractAxis* y) {
  chart->addSeries(series);
  series->attachAxis(x);
  series->attachAxis(y);
}

// Positions of the points on the X axis: the X values when pairs are shown,
// else 1, 2, 3...
double position(const ChartModel& m, int i) {
  return m.pairsShown() ? m.X[static_cast<std::size_t>(i)] : static_cast<double>(i + 1);
}

void addMarkers(QChart* chart, const ChartModel& m, int s, const std::vector<double>& v, QAbstractAxis* x,
                QAbstractAxis* y) {
  const ChartModel::SeriesLook& look = m.look[static_cast<std::size_t>(s)];
  if (look.pointSize <= 0) return;
  auto* dots = new QScatterSeries;
  dots->setName(m.seriesName(s));
  dots->setMarkerShape(markerShape(look.marker));
  dots->setMarkerSize(kPointSizes[look.pointSize]);
  dots->setColor(toColor(m.seriesColour(s)));
  dots->setBorderColor(toColor(m.seriesColour(s)).darker(130));
  QList<QPointF> points;
  points.reserve(static_cast<qsizetype>(v.size()));
  for (std::size_t i = 0; i < v.size(); ++i) points.append({position(m, static_cast<int>(i)), v[i]});
  dots->replace(points);
  attach(chart, dots, x, y);
  chart->legend()->markers(dots).value(0)->setVisible(false);
}

QLineSeries* lineOf(const ChartModel& m, int s, const std::vector<double>& v, bool steps) {
  auto* line = new QLineSeries;
  line->setName(m.seriesName(s));
  QPen pen(toColor(m.seriesColour(s)));
  pen.setWidthF(1.5);
  line->setPen(pen);
  QList<QPointF> points;
  points.reserve(static_cast<qsizetype>(v.size() * (steps ? 2 : 1)));
  for (std::size_t i = 0; i < v.size(); ++i) {
    const double p = position(m, static_cast<int>(i));
    if (steps) {
      points.append({p - 0.5, v[i]});
      points.append({p + 0.5, v[i]});
    } else {
      points.append({p, v[i]});
    }
  }
  line->replace(points);
  return line;
}

void addStatisticLines(QChart* chart, const ChartModel& m, int s, double xLow, double xHigh, QAbstractAxis* x,
                       QAbstractAxis* y) {
  const unsigned flags = m.look[static_cast<std::size_t>(s)].statLines;
  if (flags == 0) return;
  QPen pen(toColor(m.statColour));
  pen.setStyle(s == 0 ? Qt::DashLine : Qt::DashDotLine);
  pen.setWidthF(1.2);
  auto add = [&](double y0, double y1) {
    auto* line = new QLineSeries;
    line->setPen(pen);
    line->append(xLow, y0);
    line->append(xHigh, y1);
    attach(chart, line, x, y);
    chart->legend()->markers(line).value(0)->setVisible(false);
  };
  for (const auto& level : m.statisticLevels(s)) add(level.second, level.second);
  if (flags & (1u << ChartModel::StatRegression)) {
    const SeriesStatistics st = m.statistics(s);
    if (st.lineValid) add(st.slope * xLow + st.intercept, st.slope * xHigh + st.intercept);
  }
}

QChart* pieChart(const ChartModel& m, const QList<int>& drawn) {
  auto* chart = new QChart;
  auto* pie = new QPieSeries;
  if (!drawn.isEmpty()) {
    const int s = drawn.first();
    const std::vector<double>& v = m.values(s);
    const QColor base = toColor(m.seriesColour(s));
    // Past kMaxSlices values, consecutive values share a slice (labelled with
    // the number of its first point): thousands of slivers show nothing and
    // take the pie series minutes to lay out.
    constexpr std::size_t kMaxSlices = 240;
    const std::size_t group = (v.size() + kMaxSlices - 1) / kMaxSlices;
    for (std::size_t first = 0, k = 0; first < v.size(); first += group, ++k) {
      double sum = 0;
      for (std::size_t i = first; i < std::min(v.size(), first + group); ++i) sum += std::abs(v[i]);
      QPieSlice* slice = pie->append(QString::number(first + 1), sum);
      slice->setColor(QColor::fromHsv((base.hsvHue() + static_cast<int>(k) * 37) % 360, 160, 230));
      slice->setBorderColor(group > 1 ? slice->color() : QColor(Qt::white));
    }
  }
  chart->addSeries(pie);
  chart->legend()->setVisible(false);
  return chart;
}

}  // namespace

QChart* buildChart(const ChartModel& m) {
  const int kind = flatKind(m.tipo);
  const QList<int> drawn = drawnSeries(m);
  if (kind == kPie2D) return pieChart(m, drawn);

  auto* chart = new QChart;
  chart->setTitle(m.title);
  chart->setAnimationOptions(QChart::NoAnimation);
  // Axis labels with the system's decimal symbol, as every number on screen.
  chart->setLocale(rt::systemConventions().locale);
  chart->setLocalizeNumbers(true);

  std::size_t count = 0;
  for (int s : drawn) count = std::max(count, m.values(s).size());
  double xLow = 0.5, xHigh = static_cast<double>(count) + 0.5;
  if (m.pairsShown() && !m.X.empty()) {
    xLow = *std::min_element(m.X.begin(), m.X.end());
    xHigh = *std::max_element(m.X.begin(), m.X.end());
    if (xLow == xHigh) xLow -= 1, xHigh += 1;
    const double pad = (xHigh - xLow) * 0.04;
    if (!(m.axis[0].type == ChartModel::Logarithmic && xLow - pad <= 0)) xLow -= pad;
    xHigh += pad;
  }
  if (m.axis[0].manual) xLow = m.axis[0].min, xHigh = m.axis[0].max;
  double yLow = 0, yHigh = 1;
  m.valueRange(yLow, yHigh);
  if (m.axis[1].type == ChartModel::Percent && !m.axis[1].manual) {
    yLow = 0;
    yHigh = 100;
    for (int s : drawn) {
      for (double v : shownValues(m, s)) yLow = std::min(yLow, v);
    }
  }
  QAbstractAxis* x = valueAxis(m, 0, xLow, xHigh);
  // Positions 1, 2, 3... are whole numbers: marks on whole numbers only.
  if (auto* positions = qobject_cast<QValueAxis*>(x); positions && !m.pairsShown() && !m.axis[0].manual) {
    const int ticks = std::max(2, m.axis[0].ticks);
    positions->setTickType(QValueAxis::TicksDynamic);
    positions->setTickAnchor(1);
    positions->setTickInterval(std::max(1.0, std::ceil(static_cast<double>(count) / ticks)));
    positions->setLabelFormat(QStringLiteral("%.0f"));
  }
  QAbstractAxis* y = valueAxis(m, 1, yLow, yHigh);
  chart->addAxis(x, Qt::AlignBottom);
  chart->addAxis(y, Qt::AlignLeft);

  const bool barsFirst = kind == kBar2D || kind == kCombined2D;
  if (barsFirst) {
    QAbstractBarSeries* bars = m.stacked ? static_cast<QAbstractBarSeries*>(new QStackedBarSeries)
                                         : static_cast<QAbstractBarSeries*>(new QBarSeries);
    bars->setBarWidth(m.barWidth / 100.0);
    for (int s : drawn) {
      if (kind == kCombined2D && s == 1 && drawn.size() == 2) continue;  // Y goes on as a line
      auto* set = new QBarSet(m.seriesName(s));
      const std::vector<double> v = shownValues(m, s);
      QList<qreal> values(v.begin(), v.end());
      set->append(values);
      set->setColor(toColor(m.seriesColour(s)));
      set->setBorderColor(toColor(m.seriesColour(s)));
      bars->append(set);
    }
    // Bars stand at 0, 1, 2... on a value axis: shift the axis by one so
    // that point i sits at position i.
    auto* barAxis = new QValueAxis;
    barAxis->setRange(xLow - 1, xHigh - 1);
    barAxis->setVisible(false);
    chart->addAxis(barAxis, Qt::AlignBottom);
    attach(chart, bars, barAxis, y);
  }
  for (int s : drawn) {
    const std::vector<double> v = shownValues(m, s);
    const ChartModel::SeriesLook& look = m.look[static_cast<std::size_t>(s)];
    switch (kind) {
      case kArea2D: {
        auto* area = new QAreaSeries(lineOf(m, s, v, false));
        area->upperSeries()->setParent(area);  // an area series does not own its boundary line
        area->setName(m.seriesName(s));
        QColor fill = toColor(m.seriesColour(s));
        area->setBorderColor(fill.darker(140));
        fill.setAlpha(drawn.size() > 1 ? 150 : 220);
        area->setColor(fill);
        attach(chart, area, x, y);
        break;
      }
      case kBar2D: break;
      case kCombined2D:
        if (s == 1 && drawn.size() == 2) {
          attach(chart, lineOf(m, s, v, false), x, y);
          addMarkers(chart, m, s, v, x, y);
        }
        break;
      case kStep2D: attach(chart, lineOf(m, s, v, true), x, y); break;
      case kXY2D:
        if (m.pairsShown() && s == 0) break;  // X is the position of the pairs
        if (look.joined) attach(chart, lineOf(m, s, v, false), x, y);
        addMarkers(chart, m, s, v, x, y);
        if (!look.joined) chart->legend()->markers(chart->series().last()).value(0)->setVisible(true);
        break;
      default:  // lines
        attach(chart, lineOf(m, s, v, false), x, y);
        if (look.joined) addMarkers(chart, m, s, v, x, y);
        break;
    }
  }
  // Statistic lines run across the axis as finally laid out.
  if (auto* vx = qobject_cast<QValueAxis*>(x)) xLow = vx->min(), xHigh = vx->max();
  for (int s : drawn) {
    if (!(m.pairsShown() && s == 0)) addStatisticLines(chart, m, s, xLow, xHigh, x, y);
  }
  chart->legend()->setAlignment(Qt::AlignBottom);
  return chart;
}

bool openGLAvailable() {
  static const bool available = [] {
    // Qt Data Visualization's graphs fail inside their constructor on the
    // offscreen and minimal platforms, OpenGL or not: those draw in 2D.
    const QString platform = QGuiApplication::platformName();
    if (platform == QLatin1String("offscreen") || platform == QLatin1String("minimal")) return false;
    QOpenGLContext context;
    if (!context.create()) return false;
    QOffscreenSurface surface;
    surface.setFormat(context.format());
    surface.create();
    if (!surface.isValid() || !context.makeCurrent(&surface)) return false;
    context.doneCurrent();
    return true;
  }();
  return available;
}

QAbstract3DGraph* buildGraph3D(const ChartModel& m) {
  if (!is3DKind(m.tipo) || !openGLAvailable()) return nullptr;
  const QList<int> drawn = drawnSeries(m);
  const double rotation[] = {20, 0, 40, 0, 0};
  const double elevation = m.projection == 3 ? 0 : m.projection == 4 ? 90 : m.elevation;
  QAbstract3DGraph* graph = nullptr;
  if (m.tipo == kArea3D || m.tipo == kLine3D) {
    auto* surface = new Q3DSurface;
    for (int k = 0; k < drawn.size(); ++k) {
      const int s = drawn.at(k);
      const std::vector<double> v = shownValues(m, s);
      auto* array = new QSurfaceDataArray;
      // A ribbon: two rows a little apart, one point more so that a single
      // value still makes a surface.
      for (int row = 0; row < 2; ++row) {
        auto* r = new QSurfaceDataRow(static_cast<qsizetype>(std::max<std::size_t>(v.size(), 2)));
        for (qsizetype i = 0; i < r->size(); ++i) {
          const double value = v[std::min<std::size_t>(static_cast<std::size_t>(i), v.size() - 1)];
          (*r)[i].setPosition(QVector3D(static_cast<float>(i + 1), static_cast<float>(value), static_cast<float>(k + row * 0.6)));
        }
        array->append(r);
      }
      auto* series = new QSurface3DSeries;
      series->dataProxy()->resetArray(array);
      series->setName(m.seriesName(s));
      series->setBaseColor(toColor(m.seriesColour(s)));
      series->setDrawMode(m.tipo == kLine3D ? QSurface3DSeries::DrawWireframe
                                            : QSurface3DSeries::DrawSurface);
      series->setFlatShadingEnabled(false);
      surface->addSeries(series);
    }
    graph = surface;
  } else {
    auto* bars = new Q3DBars;
    for (int s : drawn) {
      const std::vector<double> v = shownValues(m, s);
      auto* row = new QBarDataRow(static_cast<qsizetype>(v.size()));
      for (std::size_t i = 0; i < v.size(); ++i) (*row)[static_cast<qsizetype>(i)].setValue(static_cast<float>(v[i]));
      auto* array = new QBarDataArray;
      array->append(row);
      auto* series = new QBar3DSeries;
      series->dataProxy()->resetArray(array, {}, {m.seriesName(s)});
      series->setName(m.seriesName(s));
      series->setBaseColor(toColor(m.seriesColour(s)));
      if (m.tipo == kCombined3D && s == 1) series->setMesh(QAbstract3DSeries::MeshCylinder);
      bars->addSeries(series);
    }
    bars->setMultiSeriesUniform(true);
    const float thickness = m.tipo == kStep3D ? 1.0f : static_cast<float>(m.barWidth) / 100.0f;
    bars->setBarSpacing(QSizeF(m.tipo == kStep3D ? 0.0 : 1.0 - thickness, 0.5));
    bars->setFloorLevel(0);
    graph = bars;
  }
  graph->setOrthoProjection(m.projection == 1 || m.projection >= 3);
  graph->scene()->activeCamera()->setCameraPosition(static_cast<float>(rotation[m.projection]),
                                                     static_cast<float>(elevation));
  graph->activeTheme()->setBackgroundEnabled(m.baseHeight > 0);
  graph->activeTheme()->setGridEnabled(m.axis[1].guides);
  graph->activeTheme()->setGridLineColor(toColor(m.gridColour));
  graph->setShadowQuality(QAbstract3DGraph::ShadowQualityNone);
  return graph;
}

QImage renderChart(ChartModel& model, const QSize& size) {
  if (is3DKind(model.tipo)) {
    if (QAbstract3DGraph* graph = buildGraph3D(model)) {
      graph->resize(size);
      QImage image = graph->renderToImage(0, size);
      delete graph;
      if (!image.isNull()) return image.convertToFormat(QImage::Format_ARGB32);
    }
    model.fallBackTo2D();
  }
  QImage image(size, QImage::Format_ARGB32);
  image.fill(Qt::white);
  QGraphicsScene scene;
  QChart* chart = buildChart(model);
  scene.addItem(chart);
  chart->setGeometry(QRectF(QPointF(0, 0), size));
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  scene.render(&painter, QRectF(QPointF(0, 0), size), QRectF(QPointF(0, 0), size));
  return image;
}

}  // namespace charts
