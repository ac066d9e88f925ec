// calvix-cli plot: the plot window's model without its window.
//
//   calvix-cli plot <table options> [--png FILE --width W --height H]
//                   [--deriv 1|2|3] [--extrema F|D|G --depth L] [--zeros F|D|G]
//                   [--integral XINI XFIN [--corrected]] [--theory XINI XFIN]
//                   [--bars] [--grid] [--no-asymptote-rule] [--decimals N]
//                   [--smooth A|B]... [--regression linear|power|exponential]
//                   [--lagrange] [--diff XINI XFIN]
//
// The table is evaluated as "calvix-cli table" does (cli/TableOptions.h),
// the plot opens on it (autoscale on F) and the options are the menus a user
// would pick, in the order above. Prints the six limit boxes, the extrema
// and zero lists, the integral's readout and the theoretical integral's
// message, then the title, the smoothed column, the fit, the interpolated
// points and the difference of ordinates, one tab-separated line each;
// --png draws the picture offscreen.
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <cmath>

#include "cli/CliCommand.h"
#include "cli/TableOptions.h"
#include "funcs/FunctionTable.h"
#include "funcs/PlotModel.h"
#include "funcs/PlotPainterView.h"
#include "shell/ProgramState.h"
#include "shell/runtime/NumberText.h"

namespace {

struct PlotOptions {
  QString png;
  int width = 760, height = 520;
  int deriv = 0;
  int extrema = -1, depth = 1, zeros = -1;
  QStringList integral, theory;
  bool corrected = false, bars = false, grid = false, noRule = false;
  int decimals = -1;
  QList<int> smooth;  // suavePlot items, clicked in order
  int regression = -1;
  bool lagrange = false;
  QStringList diff;
};

int curveItem(const QString& name) {
  if (name == QLatin1String("F")) return 0;
  if (name == QLatin1String("D")) return 1;
  if (name == QLatin1String("G")) return 2;
  return -1;
}

bool wholeNumber(const QString& text, int low, int high, int& value) {
  bool ok = false;
  value = text.toInt(&ok);
  return ok && value >= low && value <= high;
}

// "--name A B": the two words after the option, taken out of args.
bool takePair(CliContext& ctx, const QString& name, QStringList& pair) {
  const qsizetype i = ctx.args.indexOf(name);
  if (i < 0) return true;
  if (i + 2 >= ctx.args.size()) return false;
  pair = ctx.args.mid(i + 1, 2);
  ctx.args.remove(i, 3);
  return true;
}

int takePlotOptions(CliContext& ctx, PlotOptions& o) {
  QString v;
  ctx.takeOption(QStringLiteral("--png"), o.png);
  if (ctx.takeOption(QStringLiteral("--width"), v) && !wholeNumber(v, 200, 10000, o.width)) {
    return ctx.usage(QStringLiteral("--width takes a whole number from 200 to 10000"));
  }
  if (ctx.takeOption(QStringLiteral("--height"), v) && !wholeNumber(v, 180, 10000, o.height)) {
    return ctx.usage(QStringLiteral("--height takes a whole number from 180 to 10000"));
  }
  if (ctx.takeOption(QStringLiteral("--deriv"), v) && !wholeNumber(v, 1, 3, o.deriv)) {
    return ctx.usage(QStringLiteral("--deriv takes 1, 2 or 3"));
  }
  if (ctx.takeOption(QStringLiteral("--extrema"), v) && (o.extrema = curveItem(v)) < 0) {
    return ctx.usage(QStringLiteral("--extrema takes F, D or G"));
  }
  if (ctx.takeOption(QStringLiteral("--depth"), v) && !wholeNumber(v, 1, 4, o.depth)) {
    return ctx.usage(QStringLiteral("--depth takes 1 to 4"));
  }
  if (ctx.takeOption(QStringLiteral("--zeros"), v) && (o.zeros = curveItem(v)) < 0) {
    return ctx.usage(QStringLiteral("--zeros takes F, D or G"));
  }
  if (!takePair(ctx, QStringLiteral("--integral"), o.integral)) {
    return ctx.usage(QStringLiteral("--integral takes XINI and XFIN"));
  }
  if (!takePair(ctx, QStringLiteral("--theory"), o.theory)) {
    return ctx.usage(QStringLiteral("--theory takes XINI and XFIN"));
  }
  if (ctx.takeOption(QStringLiteral("--decimals"), v) && !wholeNumber(v, 0, 4, o.decimals)) {
    return ctx.usage(QStringLiteral("--decimals takes 0 to 4"));
  }
  for (const QString& m : ctx.takeOptions(QStringLiteral("--smooth"))) {
    if (m != QLatin1String("A") && m != QLatin1String("B")) return ctx.usage(QStringLiteral("--smooth takes A or B"));
    o.smooth << (m == QLatin1String("A") ? 0 : 1);
  }
  if (ctx.takeOption(QStringLiteral("--regression"), v)) {
    o.regression = static_cast<int>(QStringList{QStringLiteral("linear"), QStringLiteral("power"), QStringLiteral("exponential")}.indexOf(v));
    if (o.regression < 0) return ctx.usage(QStringLiteral("--regression takes linear, power or exponential"));
  }
  o.lagrange = ctx.takeFlag(QStringLiteral("--lagrange"));
  if (!takePair(ctx, QStringLiteral("--diff"), o.diff)) return ctx.usage(QStringLiteral("--diff takes XINI and XFIN"));
  o.corrected = ctx.takeFlag(QStringLiteral("--corrected"));
  o.bars = ctx.takeFlag(QStringLiteral("--bars"));
  o.grid = ctx.takeFlag(QStringLiteral("--grid"));
  o.noRule = ctx.takeFlag(QStringLiteral("--no-asymptote-rule"));
  if (o.corrected && o.integral.isEmpty()) return ctx.usage(QStringLiteral("--corrected goes with --integral"));
  return 0;
}

// The pairs of a list: maxima (columns 0, 1), minima (2, 3) or zeros (0, 1).
QList<QStringList> pairs(const PlotModel::ResultList& list, int firstColumn) {
  QList<QStringList> out;
  for (const QStringList& row : list.rows) {
    const QString x = row.value(firstColumn), y = row.value(firstColumn + 1);
    // A row of the extrema list may hold only the other kind.
    if (list.kind == PlotModel::ResultList::Kind::Extrema && x.isEmpty() && y.isEmpty()) continue;
    out << QStringList{x, y};
  }
  return out;
}

QJsonArray jsonPairs(const QList<QStringList>& list) {
  QJsonArray a;
  for (const QStringList& p : list) a.append(QJsonArray::fromStringList(p));
  return a;
}

// Sets the interval boxes and presses Calculate Now: the graphic integral
// is ticked when the boxes pass their checks.
bool setInterval(PlotModel& m, const QStringList& limits) {
  m.integRange_Click();
  m.Text5 = {limits.at(0), limits.at(1)};
  m.Command15_Click();
  return m.integralGRAF;
}

// Column 5 as the table holds it, rows 1 to pointCount; empty when it holds nothing.
QStringList smoothedColumn(PlotModel& m) {
  QStringList cells;
  bool any = false;
  for (int r = 1; r <= m.pointCount(); ++r) {
    cells << m.table().TextMatrix(r, FunctionTable::kSmoothed);
    any = any || !cells.back().isEmpty();
  }
  return any ? cells : QStringList{};
}

// The fit's a, b and r2 as the list shows them; empty texts when none is ticked.
QStringList fitValues(const PlotModel& m) {
  const plot::Fit& f = m.tools.fit;
  if (m.tools.fitKind() < 0) return {QString(), QString(), QString()};
  return {rt::NumberToText(f.a), rt::NumberToText(f.b), rt::NumberToText(f.r2)};
}

QString numberText(double v) { return std::isfinite(v) ? rt::NumberToText(v) : QString(); }

void insertCurveTools(QJsonObject& json, PlotModel& m) {
  const PlotCurveTools& t = m.tools;
  json.insert(QStringLiteral("titleF"), program().titleF);
  json.insert(QStringLiteral("sourceColumn"), program().sourceColumn);
  json.insert(QStringLiteral("suavePlot"), t.smoothingMethod());
  json.insert(QStringLiteral("muestrafxOrig"), t.muestrafxOrigEnabled);
  json.insert(QStringLiteral("smoothed"), QJsonArray::fromStringList(smoothedColumn(m)));
  json.insert(QStringLiteral("PlotRegression"), t.fitKind());
  json.insert(QStringLiteral("regression"), t.fitKind() >= 0 ? m.Label4 : QString());
  const QStringList fit = fitValues(m);
  json.insert(QStringLiteral("a"), fit.at(0));
  json.insert(QStringLiteral("b"), fit.at(1));
  json.insert(QStringLiteral("r2"), fit.at(2));
  json.insert(QStringLiteral("points"), t.fitKind() >= 0 ? t.fit.points : 0);
  json.insert(QStringLiteral("menuIPLA"), m.table().menuIPLA);
  QJsonArray points;
  for (const plot::Point& p : t.interpolation()) points.append(QJsonArray{numberText(p.x), numberText(p.y)});
  json.insert(QStringLiteral("interpolation"), points);
  json.insert(QStringLiteral("DiffOrd"), t.DiffOrd[0]);
}

void printCurveTools(QTextStream& out, PlotModel& m, bool diff) {
  const PlotCurveTools& t = m.tools;
  out << "title\t" << program().titleF << '\n';
  if (t.smoothingMethod() >= 0) {
    for (int r = 1; r <= m.pointCount(); ++r) {
      out << "smoothed\t" << m.table().TextMatrix(r, 0) << '\t' << m.table().TextMatrix(r, FunctionTable::kSmoothed)
          << '\n';
    }
  }
  if (t.fitKind() >= 0) {
    const QStringList fit = fitValues(m);
    out << "regression\t" << m.Label4 << '\n'
        << "a\t" << fit.at(0) << '\n'
        << "b\t" << fit.at(1) << '\n'
        << "r2\t" << fit.at(2) << '\n'
        << "points\t" << t.fit.points << '\n';
  }
  for (const plot::Point& p : t.interpolation()) out << "interpolation\t" << numberText(p.x) << '\t' << numberText(p.y) << '\n';
  if (diff) out << "DiffOrd\t" << t.DiffOrd[0] << '\n';
}

int runPlot(CliContext& ctx) {
  TableOptions table;
  if (const int code = takeTableOptions(ctx, table)) return code;
  PlotOptions o;
  if (const int code = takePlotOptions(ctx, o)) return code;
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("plot: unexpected argument ") + ctx.args.first());

  FunctionTable t;
  if (!evaluateTable(table, t)) return 1;
  PlotModel m(t);
  m.Form_Resize(o.width, o.height);
  m.Form_Load();
  if (o.decimals >= 0) m.menuformatonumdec_Click(o.decimals);
  if (o.grid) m.menureja_Click();
  if (o.noRule) m.NoUnirPolos_Click();
  if (o.deriv > 0) m.menumderiv_Click(o.deriv);
  if (o.bars) m.menubarras_Click();

  QList<QStringList> maxima, minima, zeros;
  if (o.extrema >= 0) {
    m.MymNivel_Click(o.depth);
    m.MaxyMin1_Click(o.extrema);
    maxima = pairs(m.list, 0);
    minima = pairs(m.list, 2);
  }
  if (o.zeros >= 0) {
    m.cerosfunc1_Click(o.zeros);
    zeros = pairs(m.list, 0);
  }
  if (!o.theory.isEmpty() && setInterval(m, o.theory)) {
    m.integralTEO_Click();
    if (o.integral.isEmpty()) m.integralGRAF_Click();  // only the message was asked for
  }
  if (!o.integral.isEmpty() && setInterval(m, o.integral) && o.corrected) m.Icorrection_Click();
  PlotCurveTools& tools = m.tools;
  for (int method : o.smooth) tools.suavePlot_Click(method);
  if (o.regression >= 0) tools.PlotRegression_Click(o.regression);
  if (o.lagrange) tools.menuIPLA_Click();
  if (!o.diff.isEmpty()) {
    tools.DiffYs_Click();
    m.Text5 = {o.diff.at(0), o.diff.at(1)};
    m.Command15_Click();
  }
  const QStringList readout = m.integralReadout();

  if (!o.png.isEmpty()) {
    const QImage image = renderPlotImage(m, o.width, o.height);
    if (!image.save(o.png, "PNG")) return ctx.fail(QStringLiteral("plot: cannot write ") + o.png);
  }

  QStringList limits(m.Text1.begin(), m.Text1.end());
  for (int i = 0; i <= 5; ++i) {
    if (!m.Text1Visible[static_cast<size_t>(i)]) limits[i].clear();
  }
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("limits"), QJsonArray::fromStringList(limits));
    ctx.json.insert(QStringLiteral("maxima"), jsonPairs(maxima));
    ctx.json.insert(QStringLiteral("minima"), jsonPairs(minima));
    ctx.json.insert(QStringLiteral("zeros"), jsonPairs(zeros));
    ctx.json.insert(QStringLiteral("integral"), QJsonArray::fromStringList(readout));
    ctx.json.insert(QStringLiteral("theory"), m.theoryText);
    ctx.json.insert(QStringLiteral("pointCount"), program().pointCount);
    insertCurveTools(ctx.json, m);
  } else {
    ctx.out << "limits\t" << limits.join(QLatin1Char('\t')) << '\n';
    auto lines = [&ctx](const char* word, const QList<QStringList>& list) {
      for (const QStringList& p : list) ctx.out << word << '\t' << p.join(QLatin1Char('\t')) << '\n';
    };
    lines("maximum", maxima);
    lines("minimum", minima);
    lines("zero", zeros);
    for (const QString& l : readout) ctx.out << "integral\t" << l << '\n';
    if (!m.theoryText.isEmpty()) {
      for (const QString& l : m.theoryText.split(QLatin1Char('\n'))) ctx.out << "theory\t" << l << '\n';
    }
    printCurveTools(ctx.out, m, !o.diff.isEmpty());
  }
  return program().pointCount > 0 ? 0 : 1;
}

}  // namespace

CALVIX_CLI_GUI_COMMAND("plot",
                       "plot the table: plot <table options> [--png FILE --width W --height H] [--deriv 1|2|3] "
                       "[--extrema F|D|G --depth L] [--zeros F|D|G] [--integral XINI XFIN [--corrected]] "
                       "[--theory XINI XFIN] [--bars] [--grid] [--no-asymptote-rule] [--decimals N] [--smooth A|B]... "
                       "[--regression linear|power|exponential] [--lagrange] [--diff XINI XFIN]",
                       runPlot);
