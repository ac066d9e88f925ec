#include "funcs/PlotCurveTools.h"

#include <QtGlobal>
#include <algorithm>
#include <cmath>
#include <limits>

#include "funcs/FunctionTable.h"
#include "funcs/PlotModel.h"
#include "funcs/PlotSmoothing.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

namespace {

constexpr int kHelpTopic = 31600;
constexpr int kMessageSound = 2;
constexpr int kMessageStyle = 3;
const QString kPlotTitle = QStringLiteral("Calvix  -  VelozPlot");
const QString kNoValue = QStringLiteral("No Existe");
enum Overlay { kInterpolation, kRegression, kDifference };

QString& context() { return program().SectionTitle; }
void report(int code) { ReportError(code, kMessageSound, kMessageStyle, 0); }

QString letter(int method) { return method == 0 ? QStringLiteral("A") : QStringLiteral("B"); }

std::uint32_t overlayColour(const plot::PlotCanvas& c, const PlotModel& m, int index) {
  // Semicolour printing draws every line in black.
  return c.target() == plot::PlotCanvas::Target::Printer && m.printcolor == 0 ? 0 : m.colour(index);
}

// The pairs of two columns whose cells both hold numbers.
void numericPairs(const PlotModel& m, std::vector<double>& x, std::vector<double>& y) {
  const int n = m.pointCount();
  const std::vector<double> cx = m.column(0, n), cy = m.column(m.fColumn(), n);
  x.clear();
  y.clear();
  for (size_t i = 0; i < cx.size() && i < cy.size(); ++i) {
    if (!std::isfinite(cx[i]) || !std::isfinite(cy[i])) continue;
    x.push_back(cx[i]);
    y.push_back(cy[i]);
  }
}

QString formula(int kind) {
  static const char* const formulas[] = {"y = a + b*x", "y = a*x^b", "y = a*b^x"};
  return QString::fromLatin1(formulas[std::clamp(kind, 0, 2)]);
}

}  // namespace

PlotCurveTools::PlotCurveTools(PlotModel& model) : m_(model) {
  m_.hooks.drawInterpolation = [this](plot::PlotCanvas& c) { draw(c, kInterpolation); };
  m_.hooks.drawRegression = [this](plot::PlotCanvas& c) { draw(c, kRegression); };
  m_.hooks.drawDifference = [this](plot::PlotCanvas& c) { draw(c, kDifference); };
}

PlotCurveTools::~PlotCurveTools() = default;

int PlotCurveTools::fitKind() const {
  for (int k = 0; k < 3; ++k) {
    if (m_.PlotRegression[static_cast<size_t>(k)]) return k;
  }
  return -1;
}

int PlotCurveTools::smoothingMethod() const {
  for (int k = 0; k < 2; ++k) {
    if (m_.suavePlot[static_cast<size_t>(k)]) return k;
  }
  return -1;
}

void PlotCurveTools::showError(const QString& text, const QString& title) {
  ProgramState& p = program();
  p.MessageSound = kMessageSound;
  MBoxShow(kMessageStyle, ErrorText(0) + text, 3, 0, 0,
           title.isEmpty() ? kPlotTitle + QStringLiteral("  -  ") + p.SectionTitle : title);
}

bool PlotCurveTools::refuseWhileRunning() {
  if (!running()) return false;
  showError(Res(2204));
  return true;
}

// ---- Load and redraw ----------------------------------------------------------------------

void PlotCurveTools::Form_Load() {
  // A smoothing in force, or cut short by the window closing, leaves nothing behind.
  if (!smoothSuffix.isEmpty() || running()) {
    removeSuffix();
    m_.table().MSFlexGrid1.clearColumn(FunctionTable::kSmoothed);
  }
  job_.reset();
  muestrafxOrigEnabled = false;
  fit = plot::Fit{};
  DiffOrd[0] = kNoValue;
  diffPanel = false;
  diffRows = {0, 0};
  Command1Visible = false;
  cancelNote.clear();
  m_.table().menuIPLA = false;
}

void PlotCurveTools::prepareDrawing() {
  // A new table puts column 1 back and writes its own title: a smoothing
  // ticked before it is over.
  if (!running() && smoothingMethod() >= 0 && program().sourceColumn != FunctionTable::kSmoothed) {
    m_.suavePlot.fill(false);
    m_.muestrafxOrig = false;
    muestrafxOrigEnabled = false;
    smoothSuffix.clear();
  }
}

// ---- Smoothing -------------------------------------------------------------------------------

void PlotCurveTools::removeSuffix() {
  QString& title = program().titleF;
  if (!smoothSuffix.isEmpty() && title.endsWith(smoothSuffix)) title.chop(smoothSuffix.size());
  smoothSuffix.clear();
}

void PlotCurveTools::suavePlot_Click(int method) {
  if (helpInstead(kHelpTopic) || method < 0 || method > 1 || refuseWhileRunning()) return;
  ProgramState& p = program();
  removeSuffix();
  const bool on = !m_.suavePlot[static_cast<size_t>(method)];
  m_.suavePlot.fill(false);
  if (!on) {
    smoothingOff();
    return;
  }
  m_.suavePlot[static_cast<size_t>(method)] = true;
  context() = Res(1460);
  const QString title = kPlotTitle + QStringLiteral("  -  ") + Res(1460) + QLatin1Char(' ') + letter(method);
  const int count = m_.pointCount();
  const int minimum = (method + 1) * 5;
  if (count < minimum) {
    p.MessageSound = kMessageSound;
    MBoxShow(kMessageStyle, Res(1785) + QLatin1Char(' ') + QString::number(minimum) + QLatin1Char(' ') + Res(1786), 3,
             0, 0, title);
    smoothingOff();
    return;
  }

  // The prompt for n, with its proposal.
  const int upper = count / 2;
  QStringList lines;
  int proposal = 2;
  if (method == 0) {
    for (int id = 1787; id <= 1792; ++id) lines << Res(id);
  } else {
    lines << Res(1787) << Res(1793) << Res(1794)
          << Res(1795) + QLatin1Char(' ') + QString::number(upper) + QStringLiteral(").") << Res(1791) << Res(1796);
    proposal = std::max(count / 50, 2);
  }
  p.MessageDefault = rt::Variant::longValue(proposal);
  MBoxShow(0, lines.join(QLatin1Char('\n')), 5, 3, 0, title);
  if (p.MessageResult != 0) {
    smoothingOff();
    return;
  }
  const QString answer = p.MessageValue.toText().trimmed();
  double value = 0;
  if (answer.contains(QLatin1Char('.')) || answer.contains(QLatin1Char(',')) || answer.isEmpty() ||
      !rt::tryTextToDouble(answer, value) || !std::isfinite(value)) {
    report(1);
    smoothingOff();
    return;
  }
  // The limits are checked on n as typed; B raises an odd n afterwards.
  if (method == 0 && (value < 1 || value > 10000)) {
    report(203);
    smoothingOff();
    return;
  }
  if (method == 1 && (value < 2 || value > upper)) {
    showError(Res(2209) + QString::number(upper) + QLatin1Char('.'));
    smoothingOff();
    return;
  }

  // Busy: column 5 stands for F from now on, and the cancel button shows.
  p.sourceColumn = FunctionTable::kSmoothed;
  Command1Visible = true;
  cancelNote = Res(1716);
  job_ = std::make_unique<plot::Smoothing>(m_.table().MSFlexGrid1,
                                           method == 0 ? plot::Smoothing::Method::A : plot::Smoothing::Method::B,
                                           static_cast<int>(value), count);
  if (!stepwise) smoothingStep(-1);
}

bool PlotCurveTools::smoothingStep(long long maxRows) {
  if (!job_) return true;
  const int method = static_cast<int>(job_->method());
  if (!m_.suavePlot[static_cast<size_t>(method)]) {  // cancelled
    smoothingOff();
    return true;
  }
  if (!job_->step(maxRows < 0 ? std::numeric_limits<std::int64_t>::max() : maxRows)) return false;
  finishSmoothing();
  return true;
}

double PlotCurveTools::progress() const { return job_ ? job_->progress() : 1; }

void PlotCurveTools::finishSmoothing() {
  const int method = static_cast<int>(job_->method());
  smoothSuffix = QStringLiteral("   (smooth ") + letter(method) + QStringLiteral(" = ") +
                 QString::number(job_->shownN()) + QLatin1Char(')');
  program().titleF += smoothSuffix;
  job_.reset();
  Command1Visible = false;
  cancelNote.clear();
  muestrafxOrigEnabled = true;
  m_.table().fillDerivatives();
  m_.autoscale(m_.autoMode);
}

void PlotCurveTools::smoothingOff() {
  removeSuffix();
  const bool wasSmoothed = program().sourceColumn == FunctionTable::kSmoothed;
  job_.reset();
  Command1Visible = false;
  cancelNote.clear();
  program().sourceColumn = 1;
  m_.suavePlot.fill(false);
  m_.muestrafxOrig = false;
  muestrafxOrigEnabled = false;
  if (wasSmoothed) m_.table().MSFlexGrid1.clearColumn(FunctionTable::kSmoothed);
  if (m_.pointCount() > 0) m_.table().fillDerivatives();
  m_.autoscale(m_.autoMode);
}

void PlotCurveTools::muestrafxOrig_Click() {
  if (helpInstead(kHelpTopic) || refuseWhileRunning() || !muestrafxOrigEnabled) return;
  m_.muestrafxOrig = !m_.muestrafxOrig;
  m_.Command2_Click();
}

void PlotCurveTools::Command1_Click() {
  if (!running()) return;
  m_.suavePlot.fill(false);
  smoothingStep(0);
}

bool PlotCurveTools::Form_KeyDown(int key) {
  if (key != Qt::Key_Escape || !running()) return false;
  Command1_Click();
  return true;
}

// ---- Regression ------------------------------------------------------------------------------

void PlotCurveTools::PlotRegression_Click(int kind) {
  if (helpInstead(kHelpTopic) || kind < 0 || kind > 2 || refuseWhileRunning()) return;
  if (m_.pointCount() < 2) {
    m_.Command2_Click();
    return;
  }
  const bool on = !m_.PlotRegression[static_cast<size_t>(kind)];
  m_.PlotRegression.fill(false);
  fit = plot::Fit{};
  if (!on) {
    m_.Picture1Visible = false;
    m_.list = PlotModel::ResultList{};
    m_.Label4.clear();
    m_.Command2_Click();
    return;
  }
  m_.MaxyMin1.fill(false);
  m_.cerosfunc1.fill(false);
  m_.Picture1Visible = false;
  m_.list = PlotModel::ResultList{};
  m_.Label4.clear();

  std::vector<double> x, y;
  numericPairs(m_, x, y);
  context() = Res(1762);
  const plot::Fit f = plot::fitCurve(x, y, kind, kPlotTitle + QStringLiteral("  -  ") + Res(1762));
  if (f.code != 0) {
    showError(Res(f.code == 52 ? 2052 : f.code == 53 ? 2053 : 2051));
    m_.Command2_Click();
    return;
  }
  fit = f;
  m_.PlotRegression[static_cast<size_t>(kind)] = true;
  PlotModel::ResultList l;
  l.caption = (m_.fColumn() == FunctionTable::kSmoothed ? QStringLiteral("Smooth F(x)  -  ") : QStringLiteral("F(x)  -  ")) +
              Res(1762) + QStringLiteral("  - ") + Res(1612 + kind);
  l.headings = QStringList{QString(), formula(kind)};
  l.rows << QStringList{QStringLiteral("a"), rt::NumberToText(f.a)}
         << QStringList{QStringLiteral("b"), rt::NumberToText(f.b)}
         << QStringList{QStringLiteral("r²"), rt::NumberToText(f.r2)}
         << QStringList{Res(1761), QString::number(f.points)};
  m_.list = l;
  m_.Label4 = l.caption;
  m_.Picture1Visible = true;
  m_.Command2_Click();
}

// ---- Interpolation ---------------------------------------------------------------------------

void PlotCurveTools::menuIPLA_Click() {
  if (helpInstead(kHelpTopic) || refuseWhileRunning() || m_.pointCount() < 2) return;
  m_.validateLimits();
  bool& tick = m_.table().menuIPLA;
  tick = !tick;
  if (tick && smoothingMethod() >= 0) {
    m_.suavePlot.fill(false);
    smoothingOff();
  }
  m_.Command2_Click();
}

std::vector<plot::Point> PlotCurveTools::interpolation() const {
  const int n = m_.pointCount();
  if (!m_.table().menuIPLA || n < 2 || n >= kLagrangeLimit) return {};
  std::vector<double> x, y;
  numericPairs(m_, x, y);
  if (x.size() < 2) return {};
  const FunctionTable& table = m_.table();
  return plot::sampleCurve(
      m_.limit(1), m_.limit(2), kCurveSteps, [&](double t) { return plot::lagrange(x, y, t); },
      [&table] { return table.menuIPLA; });
}

// ---- Difference of ordinates -------------------------------------------------------------

void PlotCurveTools::DiffYs_Click() {
  if (helpInstead(kHelpTopic) || refuseWhileRunning()) return;
  m_.integRange_Click();
  diffPanel = true;
  m_.Label12 = Res(1754);
}

bool PlotCurveTools::computeDifference() {
  context() = Res(1637);
  DiffOrd[0] = kNoValue;
  diffRows = {0, 0};
  std::array<double, 2> v{0, 0};
  for (size_t i = 0; i < 2; ++i) {
    if (!rt::tryTextToDouble(m_.Text5[i].trimmed(), v[i]) || m_.Text5[i].trimmed().isEmpty() || m_.isOutX(v[i])) {
      report(i == 0 ? 200 : 201);
      m_.Command2_Click();
      return false;
    }
  }
  const int n = m_.pointCount();
  const plot::RowRange r = plot::rowsInside(m_.column(0, n), v[0], v[1]);
  if (r.count == 0) {
    report(205);
    m_.Command2_Click();
    return false;
  }
  m_.Text5Tag = v;
  diffRows = {r.first + 1, r.last + 1};
  double y1 = 0, y2 = 0;
  const CellGrid& grid = m_.table().MSFlexGrid1;
  if (grid.number(diffRows[0], m_.fColumn(), y1) && grid.number(diffRows[1], m_.fColumn(), y2) &&
      std::isfinite(y2 - y1)) {
    diffValue = y2 - y1;
    DiffOrd[0] = rt::NumberToText(diffValue);
  }
  m_.Command2_Click();
  return true;
}

// While a smoothing works the panel computes nothing: column 5 is half written.
bool PlotCurveTools::refusePanelWhileRunning() {
  if (!running()) return false;
  if (diffPanel) {
    showError(Res(2204));
  } else {
    context() = Res(1753);
    report(202);
  }
  return true;
}

bool PlotCurveTools::Command15_Click() {
  if (refusePanelWhileRunning()) return true;
  if (!diffPanel) return false;
  if (!helpInstead(kHelpTopic) && !refuseWhileRunning()) computeDifference();
  return true;
}

bool PlotCurveTools::Command13_Click() {
  if (refusePanelWhileRunning()) return true;
  if (!diffPanel) return false;
  if (helpInstead(kHelpTopic) || refuseWhileRunning() || !computeDifference()) return true;
  m_.Picture5Visible = false;
  m_.Picture6Visible = false;
  m_.Label13.clear();
  m_.Command2_Click();
  return true;
}

// ---- Drawing ---------------------------------------------------------------------------------

void PlotCurveTools::draw(plot::PlotCanvas& c, int overlay) const {
  if (overlay == kInterpolation || overlay == kRegression) {
    std::vector<plot::Point> points;
    if (overlay == kInterpolation) {
      points = interpolation();
    } else {
      const int kind = fitKind();
      if (kind < 0 || fit.points == 0) return;
      const plot::Fit f = fit;
      points = plot::sampleCurve(m_.limit(1), m_.limit(2), kCurveSteps,
                                 [&f, kind](double x) { return plot::fitValue(kind, f.a, f.b, x); });
    }
    std::vector<plot::Point> inside;
    for (const plot::Point& p : points) {
      if (std::isfinite(p.y) && !m_.isOutX(p.x) && !m_.isOutY(p.y)) inside.push_back(p);
    }
    c.ForeColor = overlayColour(c, m_, overlay == kInterpolation ? PlotModel::kInterpolation : PlotModel::kRegression);
    c.PSets(inside);
    return;
  }
  // The difference: a line from the X axis up to the curve at both rows, and the value.
  if (DiffOrd[0] == kNoValue || diffRows[1] < 1 || diffRows[1] > m_.pointCount()) return;
  const CellGrid& grid = m_.table().MSFlexGrid1;
  c.ForeColor = overlayColour(c, m_, PlotModel::kText);
  const double base = std::min(m_.limit(3), m_.limit(4));
  bool drawn = false;
  double x = 0, y = 0, top = 0;
  for (int row : diffRows) {
    drawn = grid.number(row, 0, x) && grid.number(row, m_.fColumn(), y) && !m_.isOutX(x);
    if (!drawn) continue;
    top = m_.clampY(y);
    c.Line(x, base, x, top);
  }
  if (!drawn) return;
  // The value beside the line of the last row.
  c.CurrentX = x;
  c.CurrentY = top;
  c.Print(QStringLiteral(" ") + m_.formatAxisNumber(diffValue));
}
