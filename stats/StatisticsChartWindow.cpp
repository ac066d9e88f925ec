#include "stats/StatisticsChartWindow.h"

#include <QActionGroup>
#include <QAreaSeries>
#include <QBarSeries>
#include <QBarSet>
#include <QChart>
#include <QChartView>
#include <QColorDialog>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPainter>
#include <QPieSeries>
#include <QPrinter>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <QXYSeries>
#include <QtDataVisualization/Q3DBars>
#include <QtDataVisualization/QAbstract3DGraph>
#include <QtDataVisualization/QBar3DSeries>
#include <cmath>

#include "shell/ChartWindowRequest.h"
#include "shell/ErrorReport.h"
#include "shell/PrintDialog.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "stats/ChartDrawingView.h"

namespace {

constexpr int kHelpTopic = 40000;

QString dialogFilter(const QString& filter) {
  const QStringList parts = filter.split(QLatin1Char('|'));
  QStringList out;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) out << parts.at(i);
  return out.join(QStringLiteral(";;"));
}

// A colour value (red in the low byte) of a QColor.
double colourValue(const QColor& c) { return c.red() + c.green() * 256.0 + c.blue() * 65536.0; }

}  // namespace

StatisticsChartWindow::StatisticsChartWindow(QWidget* parent) : QMainWindow(parent) {
  setObjectName(QStringLiteral("Form15"));
  setWindowTitle(Res(3406));
  model_.Form_Load();

  auto* central = new QWidget(this);
  auto* v = new QVBoxLayout(central);
  v->setContentsMargins(6, 6, 6, 6);
  stack_ = new QStackedWidget(central);
  chartView_ = new QChartView(stack_);
  chartView_->setObjectName(QStringLiteral("MSChart1"));
  chartView_->setRenderHint(QPainter::Antialiasing);
  chartView_->setMinimumSize(480, 320);
  graphHolder_ = new QWidget(stack_);
  graphHolder_->setObjectName(QStringLiteral("MSChart1_3D"));
  auto* holderLayout = new QVBoxLayout(graphHolder_);
  holderLayout->setContentsMargins(0, 0, 0, 0);
  stack_->addWidget(chartView_);
  stack_->addWidget(graphHolder_);
  v->addWidget(stack_, 1);

  Label1 = new QLabel(central);
  Label1->setObjectName(QStringLiteral("Label1"));
  Label1->setToolTip(Res(3408));
  Label1->setFrameShape(QFrame::StyledPanel);
  Label1->setMinimumHeight(Label1->fontMetrics().height() + 8);
  Label1->setTextInteractionFlags(Qt::TextSelectableByMouse);
  v->addWidget(Label1);

  auto* boxes = new QHBoxLayout;
  for (std::size_t i = 0; i < Text1.size(); ++i) {
    Text1[i] = new QLineEdit(central);
    Text1[i]->setObjectName(QStringLiteral("Text1(%1)").arg(i));
    Text1[i]->setReadOnly(true);
    Text1[i]->setToolTip(Res(3409));
    boxes->addWidget(Text1[i], 1);
  }
  v->addLayout(boxes);
  setCentralWidget(central);
  buildMenus();

  setChartReceiver(this, [this](const ChartData& data) { showData(data); });
  // The 3D graph is an OpenGL window of its own: its picture comes from the screen.
  setProperty("screenshotScreenStates", QStringList{QStringLiteral("bars3d")});
  setProperty("screenshotStates", QStringList{QStringLiteral("xy"), QStringLiteral("bars"), QStringLiteral("area"),
                                              QStringLiteral("pie"), QStringLiteral("steps"), QStringLiteral("bars3d")});
  resize(940, 660);
  refresh();
}

StatisticsChartWindow::~StatisticsChartWindow() = default;

void StatisticsChartWindow::act(const std::function<void()>& handler) {
  handler();
  refresh();
}

QMenu* StatisticsChartWindow::addMenu(const QString& name, int captionId) {
  QMenu* m = menuBar()->addMenu(Res(captionId));
  m->setObjectName(name);
  return m;
}

QAction* StatisticsChartWindow::addItem(QMenu* menu, const QString& name, const QString& caption,
                                        std::function<void()> handler, QActionGroup* group) {
  QAction* a = menu->addAction(caption);
  a->setObjectName(name);
  if (group) {
    a->setCheckable(true);
    group->addAction(a);
  }
  connect(a, &QAction::triggered, this, [this, handler = std::move(handler)] { act(handler); });
  return a;
}

void StatisticsChartWindow::buildMenus() {
  ChartModel& m = model_;
  QMenu* file = addMenu(QStringLiteral("archivo"), 3392);
  addItem(file, QStringLiteral("guardarpng"), Res(3374), [this] { savePng(); });
  addItem(file, QStringLiteral("imprimir"), Res(55), [this] { print(); });
  file->addSeparator();
  addItem(file, QStringLiteral("salir"), Res(3391), [this] { close(); });

  QMenu* data = addMenu(QStringLiteral("datos"), 3407);
  auto* dataGroup = new QActionGroup(this);
  for (int i = 0; i < 3; ++i) {
    seriesdata[static_cast<std::size_t>(i)] = addItem(data, QStringLiteral("seriesdata(%1)").arg(i), Res(3403 + i),
                                                      [&m, i] { m.seriesdata_Click(i); }, dataGroup);
  }

  QMenu* kinds = addMenu(QStringLiteral("tipos"), 3300);
  auto* kindGroup = new QActionGroup(this);
  for (int k = 1; k <= 13; ++k) {
    if (k == 8) {
      kinds->addSeparator();
      continue;
    }
    tipo[static_cast<std::size_t>(k)] =
        addItem(kinds, QStringLiteral("tipo(%1)").arg(k), Res(kindCaptionId(k)), [&m, k] { m.tipo_Click(k); }, kindGroup);
  }

  QMenu* options = addMenu(QStringLiteral("opciones"), 3389);
  // 3D view.
  QMenu* view = options->addMenu(Res(3313));
  view->setObjectName(QStringLiteral("opcion3d"));
  QMenu* projection = view->addMenu(Res(3324));
  projection->setObjectName(QStringLiteral("persp3d"));
  for (int i = 0; i < 5; ++i) addItem(projection, QStringLiteral("persp3d(%1)").arg(i), Res(3314 + i), [&m, i] { m.persp3d_Click(i); });
  QMenu* degrees = view->addMenu(Res(3319));
  degrees->setObjectName(QStringLiteral("grados"));
  for (int d = 0; d <= 90; d += 15) {
    addItem(degrees, QStringLiteral("grados(%1)").arg(d), QStringLiteral("%1\u00B0").arg(d), [&m, d] { m.grados_Click(d); });
  }
  QMenu* base = view->addMenu(Res(3320));
  base->setObjectName(QStringLiteral("barrabase"));
  for (int i = 0; i < 3; ++i) addItem(base, QStringLiteral("barrabase(%1)").arg(i), Res(3321 + i), [&m, i] { m.barrabase_Click(i); });
  // Bars.
  QMenu* bars = options->addMenu(Res(3325));
  bars->setObjectName(QStringLiteral("opbarras"));
  QMenu* width = bars->addMenu(Res(3326));
  width->setObjectName(QStringLiteral("AnchoBarra"));
  for (int w : {25, 50, 75, 100}) {
    addItem(width, QStringLiteral("AnchoBarra(%1)").arg(w), QStringLiteral("%1 %").arg(w), [&m, w] { m.AnchoBarra_Click(w); });
  }
  addItem(bars, QStringLiteral("apila"), Res(3327), [&m] { m.apila_Click(); });
  // Statistic lines of each series.
  QMenu* stats = options->addMenu(Res(3328));
  stats->setObjectName(QStringLiteral("estadi"));
  for (int s = 0; s < 2; ++s) {
    QMenu* sub = stats->addMenu(Res(3352 + s));
    sub->setObjectName(s == 0 ? QStringLiteral("estadix") : QStringLiteral("estadiy"));
    for (int i = 0; i <= 5; ++i) {
      addItem(sub, sub->objectName() + QStringLiteral("(%1)").arg(i), Res(3329 + i),
              [&m, s, i] { s == 0 ? m.estadix_Click(i) : m.estadiy_Click(i); });
    }
  }
  // Scales and tick marks of each axis.
  QMenu* scales = options->addMenu(Res(3335));
  scales->setObjectName(QStringLiteral("escala"));
  QMenu* ticks = options->addMenu(Res(3341));
  ticks->setObjectName(QStringLiteral("marcas"));
  for (int a = 0; a < 2; ++a) {
    const QString letter = a == 0 ? QStringLiteral("x") : QStringLiteral("y");
    QMenu* sub = scales->addMenu(Res(3336 + a));
    sub->setObjectName(QStringLiteral("escala") + letter);
    addItem(sub, QStringLiteral("auto%1esc").arg(letter), Res(3338), [&m, a] { m.autoesc_Click(a); });
    addItem(sub, QStringLiteral("manual%1esc").arg(letter), Res(3339), [&m, a] { m.manualesc_Click(a); });
    QMenu* type = sub->addMenu(Res(3340));
    type->setObjectName(QStringLiteral("escala%1tipo").arg(letter));
    for (int t = 0; t < 3; ++t) {
      addItem(type, QStringLiteral("escala%1tipo(%2)").arg(letter).arg(t), Res(3347 + t), [&m, a, t] { m.escalatipo_Click(a, t); });
    }
    QMenu* tickSub = ticks->addMenu(Res(3336 + a));
    tickSub->setObjectName(QStringLiteral("marcaseje") + letter);
    for (int st = 0; st < 3; ++st) {
      addItem(tickSub, QStringLiteral("marcaseje%1(%2)").arg(letter).arg(st), Res(3342 + st), [&m, a, st] { m.marcas_Click(a, st); });
    }
    tickSub->addSeparator();
    addItem(tickSub, letter + QStringLiteral("aumenta1"), Res(3345), [&m, a] { m.aumenta_Click(a, 1); });
    addItem(tickSub, letter + QStringLiteral("decrece1"), Res(3346), [&m, a] { m.aumenta_Click(a, -1); });
  }
  // Marks, guides and joins, showing and sizes of each series.
  QMenu* marks = options->addMenu(Res(3351));
  QMenu* guides = options->addMenu(Res(3371));
  QMenu* joins = options->addMenu(Res(3372));
  QMenu* series = options->addMenu(Res(3388));
  for (int s = 0; s < 2; ++s) {
    const QString letter = s == 0 ? QStringLiteral("X") : QStringLiteral("Y");
    const QString lower = letter.toLower();
    QMenu* mark = marks->addMenu(Res(3352 + s));
    mark->setObjectName(QStringLiteral("marcasserie") + letter);
    for (int k = 0; k < 16; ++k) {
      addItem(mark, QStringLiteral("marcasserie%1(%2)").arg(letter).arg(k), Res(3354 + k), [&m, s, k] { m.marcasserie_Click(s, k); });
    }
    QMenu* guide = guides->addMenu(Res(3336 + s));
    addItem(guide, lower + QStringLiteral("guiax"), Res(57), [&m, s] { m.guia_Click(s, true); });
    addItem(guide, lower + QStringLiteral("guiano"), Res(58), [&m, s] { m.guia_Click(s, false); });
    QMenu* join = joins->addMenu(Res(3352 + s));
    addItem(join, lower + QStringLiteral("conectasi"), Res(57), [&m, s] { m.conecta_Click(s, true); });
    addItem(join, lower + QStringLiteral("conectano"), Res(58), [&m, s] { m.conecta_Click(s, false); });
    QMenu* one = series->addMenu(Res(3352 + s));
    addItem(one, QStringLiteral("PlotSerie(%1)").arg(s), Res(3376), [&m, s] { m.PlotSerie_Click(s); });
    QMenu* size = one->addMenu(Res(3382));
    size->setObjectName(QStringLiteral("PointSize(%1)").arg(s));
    for (int k = 0; k < 5; ++k) {
      addItem(size, QStringLiteral("PointSize(%1,%2)").arg(s).arg(k), Res(3383 + k), [&m, s, k] { m.PointSize_Click(s, k); });
    }
  }

  QMenu* colours = addMenu(QStringLiteral("colores"), 3390);
  for (int s = 0; s < 2; ++s) {
    const QString caption = Res(3377) + QStringLiteral("  ") + (s == 0 ? QStringLiteral("X") : QStringLiteral("Y"));
    addItem(colours, QStringLiteral("ColorPred(%1)").arg(s), caption, [this, s] {
      ChartModel::SeriesLook& look = model_.look[static_cast<std::size_t>(s)];
      chooseColour(look.colour, &look.ownColour);
    });
    addItem(colours, QStringLiteral("ColorDef(%1)").arg(s),
            Res(3378) + QStringLiteral("  ") + (s == 0 ? QStringLiteral("X") : QStringLiteral("Y")),
            [this, s] { model_.look[static_cast<std::size_t>(s)].ownColour = false; });
  }
  colours->addSeparator();
  addItem(colours, QStringLiteral("ColorGrid"), Res(3379), [this] { chooseColour(model_.gridColour); });
  addItem(colours, QStringLiteral("ColorLine"), Res(3380), [this] { chooseColour(model_.lineColour); });
  addItem(colours, QStringLiteral("ColorLine1"), Res(3381), [this] { chooseColour(model_.statColour); });
}

void StatisticsChartWindow::chooseColour(double& target, bool* own) {
  const ColourParts p = colourParts(target);
  const QColor chosen = QColorDialog::getColor(QColor(p.red, p.green, p.blue), this);
  if (!chosen.isValid()) return;
  target = colourValue(chosen);
  if (own) *own = true;
}

void StatisticsChartWindow::showData(const ChartData& data) {
  model_.loadData(data);
  setWindowTitle(data.title.isEmpty() ? Res(3406) : Res(3406) + QStringLiteral("  -  ") + data.title);
  refresh();
}

bool StatisticsChartWindow::showing3D() const { return stack_->currentWidget() == graphHolder_; }

void StatisticsChartWindow::refresh() {
  // The 3D graph first: without OpenGL the model falls back to 2D.
  delete graphContainer_;
  graphContainer_ = nullptr;
  graph_ = nullptr;
  if (is3DKind(model_.tipo)) {
    graph_ = charts::buildGraph3D(model_);
    if (graph_) {
      // A bar picked in 3D reads out as a point does in 2D.
      if (auto* bars = qobject_cast<Q3DBars*>(graph_)) {
        for (QBar3DSeries* series : bars->seriesList()) {
          const int list = series->name() == model_.nameY && model_.included(1) ? 1 : 0;
          connect(series, &QBar3DSeries::selectedBarChanged, this, [this, list](const QPoint& at) {
            if (at.y() < 0) return;
            model_.pointClicked(list, at.y() + 1);
            Label1->setText(model_.Label1);
          });
        }
      }
      graphContainer_ = QWidget::createWindowContainer(graph_, graphHolder_);
      graphHolder_->layout()->addWidget(graphContainer_);
      stack_->setCurrentWidget(graphHolder_);
    } else {
      model_.fallBackTo2D();
    }
  }
  if (!graph_) {
    QChart* old = chartView_->chart();
    chartView_->setChart(charts::buildChart(model_));
    delete old;
    stack_->setCurrentWidget(chartView_);
    connectReadout();
  }
  Label1->setText(model_.Label1);
  for (std::size_t i = 0; i < Text1.size(); ++i) Text1[i]->setText(model_.Text1[i]);
  for (int k = 1; k <= 13; ++k) {
    if (QAction* a = tipo[static_cast<std::size_t>(k)]) {
      a->setEnabled(model_.tipoEnabled[static_cast<std::size_t>(k)]);
      a->setChecked(k == model_.tipo);
    }
  }
  for (int i = 0; i < 3; ++i) seriesdata[static_cast<std::size_t>(i)]->setChecked(i == model_.seriesIndex);
}

// Click and hover on a point show its series, index and value in Label1.
void StatisticsChartWindow::connectReadout() {
  QChart* chart = chartView_->chart();
  auto show = [this](int series, int index) {
    model_.pointClicked(series, index);
    Label1->setText(model_.Label1);
  };
  auto seriesOf = [this](const QString& name) { return name == model_.nameY && model_.included(1) ? 1 : 0; };
  for (QAbstractSeries* s : chart->series()) {
    if (auto* xy = qobject_cast<QXYSeries*>(s)) {
      const int series = model_.pairsShown() ? 1 : seriesOf(xy->name());
      auto nearest = [this, xy, series](const QPointF& p) {
        const QList<QPointF> points = xy->points();
        int best = -1;
        double distance = 0;
        for (qsizetype i = 0; i < points.size(); ++i) {
          const double d = std::abs(points.at(i).x() - p.x());
          if (best < 0 || d < distance) best = static_cast<int>(i), distance = d;
        }
        if (best < 0) return 0;
        // Step lines have two points per value.
        return points.size() == 2 * static_cast<qsizetype>(model_.values(series).size()) ? best / 2 + 1 : best + 1;
      };
      if (xy->name().isEmpty()) continue;  // statistic lines
      connect(xy, &QXYSeries::clicked, this, [show, nearest, series](const QPointF& p) { show(series, nearest(p)); });
      connect(xy, &QXYSeries::hovered, this, [show, nearest, series](const QPointF& p, bool on) {
        if (on) show(series, nearest(p));
      });
    } else if (auto* bars = qobject_cast<QAbstractBarSeries*>(s)) {
      for (QBarSet* set : bars->barSets()) {
        const int series = seriesOf(set->label());
        connect(set, &QBarSet::hovered, this, [show, series](bool on, int index) {
          if (on) show(series, index + 1);
        });
        connect(set, &QBarSet::clicked, this, [show, series](int index) { show(series, index + 1); });
      }
    } else if (auto* pie = qobject_cast<QPieSeries*>(s)) {
      const int series = model_.included(0) ? 0 : 1;
      connect(pie, &QPieSeries::hovered, this, [show, series](QPieSlice* slice, bool on) {
        if (on) show(series, slice->label().toInt());
      });
    }
  }
}

QImage StatisticsChartWindow::chartImage(const QSize& size) {
  if (showing3D() && graph_) {
    QImage image = graph_->renderToImage(0, size);
    if (!image.isNull()) return image;
  }
  return charts::renderChart(model_, size);
}

bool StatisticsChartWindow::printTo(QPrinter& printer) {
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  const QRect page = painter.viewport();
  const QSize size(std::min(page.width(), 1600), std::min(page.height(), 1200));
  const QImage image = chartImage(size.scaled(1600, 1200, Qt::KeepAspectRatio));
  const QSize drawn = image.size().scaled(page.size(), Qt::KeepAspectRatio);
  painter.drawImage(QRect(page.topLeft(), drawn), image);
  return painter.end();
}

void StatisticsChartWindow::print() {
  if (helpInstead(kHelpTopic)) return;
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(QPageLayout::Landscape);
  if (!execPrintDialog(printer, this, windowTitle())) return;
  printTo(printer);
}

void StatisticsChartWindow::savePng() {
  if (helpInstead(kHelpTopic)) return;
  const QString folder = program().AppFolder.toText() + QStringLiteral("datos/");
  QString path = QFileDialog::getSaveFileName(this, Res(3374), folder, dialogFilter(Res(3375)));
  if (path.isEmpty()) return;
  if (!path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive)) path += QStringLiteral(".png");
  const QSize size = stack_->currentWidget()->size();
  if (!chartImage(size).save(path, "PNG")) {
    program().SectionTitle = Res(3406);
    ReportError(905, 3, 3, 0);
  }
}

void StatisticsChartWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    ContextHelp(kHelpTopic);
    return;
  }
  QMainWindow::keyPressEvent(event);
}

void StatisticsChartWindow::showScreenshotState(const QString& state) {
  ChartData d;
  for (int i = 1; i <= 24; ++i) {
    d.x.push_back(i * 1.5);
    d.y.push_back(2.1 * i * 1.5 + 4 * std::sin(i * 0.7) + 3);
  }
  d.regressionType = 0;
  d.series = 0;
  const std::pair<const char*, int> kinds[] = {{"xy", kXY2D}, {"bars", kBar2D}, {"area", kArea2D},
                                               {"pie", kPie2D}, {"steps", kStep2D}, {"bars3d", kBar3D}};
  for (const auto& [name, kind] : kinds) {
    if (state == QLatin1String(name)) d.kind = kind;
  }
  if (d.kind == kPie2D) d.series = 2;
  showData(d);
  for (ChartModel::SeriesLook& look : model_.look) look.statLines = 0;
  if (d.kind == kXY2D) {
    model_.estadiy_Click(ChartModel::StatMean);
    model_.estadiy_Click(ChartModel::StatRegression);
  }
  refresh();
}
