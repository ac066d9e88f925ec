#include "funcs/PlotModel.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "funcs/FunctionTable.h"
#include "shell/ErrorReport.h"
#include "shell/runtime/Format.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

constexpr int kHelpTopic = 31600;
constexpr int kMessageSound = 2;
constexpr int kMessageStyle = 3;
constexpr double kLineWidths[] = {1, 1.5, 2, 3};
// The palette as a fresh installation has it; entry 0 is not in the settings file.
constexpr std::uint32_t kDefaultPalette[PlotModel::kColours] = {
    0xC6C2C6, 0x404000, 0x00FF00, 0x848200, 0x00FFFF, 0xFFFF00, 0xFFFF00, 0x0000FF,
    0xFFC3C6, 0xFF00FF, 0xFF8080, 0x80C0FF, 0xFFC0C0, 0x0080FF, 0xE0E0E0};
const QString kPlotTitle = QStringLiteral("Calvix  -  VelozPlot");

QString& context() { return program().SectionTitle; }

// The busy hook on for the life of a scan.
class BusyScope {
 public:
  explicit BusyScope(const std::function<void(bool)>& busy) : busy_(busy) {
    if (busy_) busy_(true);
  }
  ~BusyScope() {
    if (busy_) busy_(false);
  }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  const std::function<void(bool)>& busy_;
};
void report(int code) { ReportError(code, kMessageSound, kMessageStyle, 0); }

bool numberOf(const QString& text, double& value) {
  return !text.trimmed().isEmpty() && rt::tryTextToDouble(text, value) && std::isfinite(value);
}

// Smallest and largest of the numbers among values; false when there are none.
bool extremes(const std::vector<double>& values, double& low, double& high) {
  bool any = false;
  for (double v : values) {
    if (!std::isfinite(v)) continue;
    if (!any) {
      low = high = v;
      any = true;
    } else {
      low = std::min(low, v);
      high = std::max(high, v);
    }
  }
  return any;
}

}  // namespace

PlotModel::PlotModel(FunctionTable& table) : table_(table) {}

// ---- Reading the table ---------------------------------------------------------------

int PlotModel::pointCount() const { return std::max(program().pointCount, 0); }

int PlotModel::fColumn() const { return program().sourceColumn == FunctionTable::kSmoothed ? 5 : 1; }

std::vector<double> PlotModel::column(int col, int lastRow) const {
  return plot::readColumn(table_.MSFlexGrid1, col, 1, std::min(lastRow, pointCount()));
}

double PlotModel::lineWidth() const { return kLineWidths[std::clamp(PlotTrazo, 0, 3)]; }

std::uint32_t PlotModel::colour(int index) const {
  const rt::Variant& v = program().PlotColours[static_cast<size_t>(std::clamp(index, 0, kColours - 1))];
  if (!v.isEmpty()) {
    try {
      const double d = v.toDouble();
      if (d >= 0 && d <= 0xFFFFFF) return static_cast<std::uint32_t>(d);
    } catch (const rt::RuntimeError&) {
    }
  }
  return kDefaultPalette[std::clamp(index, 0, kColours - 1)];
}

QString PlotModel::curveName(int item) const {
  if (item == 1) return QString::number(derivOrder) + Res(1622) + Res(1625);
  return Res(item == 2 ? 1626 : 1624);
}

// ---- Load and size ---------------------------------------------------------------------

void PlotModel::Form_Load() {
  ProgramState& p = program();
  tools.Form_Load();
  p.MainMenuTitle = QStringLiteral("VelozPlot");
  // The text colour is not kept in the settings file: the plot sets it.
  rt::Variant& text = p.PlotColours[kText];
  bool unset = text.isEmpty();
  if (!unset) {
    try {
      unset = text.toDouble() == 0;
    } catch (const rt::RuntimeError&) {
      unset = true;
    }
  }
  if (unset) text = rt::Variant::longValue(static_cast<std::int32_t>(kDefaultPalette[kText]));
  // A load starts from the menus as the window is designed: nothing analysed,
  // no overlay, the default view.
  menumderiv.fill(false);
  MaxyMin1.fill(false);
  cerosfunc1.fill(false);
  croscursor.fill(false);
  PlotRegression.fill(false);
  suavePlot.fill(false);
  menuufunc = {true, true};
  menuuderiv = true;
  menucero = menucero1 = menureja = menubarras = false;
  integralGRAF = Icorrection = false;
  leyenda = mostrarGx = true;
  ocultarPuntos = false;
  Picture1Visible = Picture5Visible = Picture6Visible = false;
  list = ResultList{};
  Label4.clear();
  Text5 = {QString(), QString()};
  theoryText.clear();
  Text1Visible = {false, true, true, true, true, false};
  Label1Visible = false;
  FuncCursor = 0;
  DerivON = false;
  GdXON = false;
  p.sourceColumn = 1;
  decimals = 1;
  derivOrder = 1;
  autoMode = 0;
  muestrafxOrig = false;
  MymNivel = 1;
  NoUnirPolos = true;
  PlotTrazo = 2;
  cursorStep = 10;
  barrasopc = 1;
  Text1.fill(QStringLiteral("0"));
  // Typed data has had no evaluation: its derivatives are worked out here.
  if (p.pointCount > 0) table_.fillDerivatives();
  autoscale(0);
}

void PlotModel::Form_Resize(int width, int height) {
  // Room for the frame inside the margins, whatever the window's size.
  pictureWidth = std::max(width, 2 * kMarginX + 40);
  pictureHeight = std::max(height, 2 * kMarginY + 40);
  applyScale();
}

// ---- Number format and limits ----------------------------------------------------------

QString PlotModel::formatAxisNumber(double value) const {
  if (value == 0) return QStringLiteral("0");
  QString pattern = QStringLiteral("0");
  if (decimals > 0) pattern += QLatin1Char('.') + QString(decimals, QLatin1Char('0'));
  const double a = std::fabs(value);
  if (a <= 0.0001 || a >= 10000) return rt::Format(value, pattern + QStringLiteral("e+00"));
  return rt::NumberToText(rt::Round(value, decimals));
}

// The texts of a pair of limits lowered and raised by one. Formatting may
// bring both back to one text (20000 -1 and +1 both show "2e+04"); then the
// plain numbers are kept, so the scale never collapses to nothing.
void PlotModel::spreadLimits(int low, int high, double value) {
  QString a = formatAxisNumber(value - 1), b = formatAxisNumber(value + 1);
  if (a == b) {
    a = rt::NumberToText(value - 1);
    b = rt::NumberToText(value + 1);
  }
  Text1[static_cast<size_t>(low)] = a;
  Text1[static_cast<size_t>(high)] = b;
}

double PlotModel::limit(int index) const {
  const auto i = static_cast<size_t>(index);
  if (Text1[i].isSharedWith(limitTexts_[i]) || Text1[i] == limitTexts_[i]) return limitValues_[i];
  double v = 0;
  limitValues_[i] = numberOf(Text1[i], v) ? v : 0;
  limitTexts_[i] = Text1[i];
  return limitValues_[i];
}

void PlotModel::validateLimits() {
  for (int i = 0; i <= 5; ++i) {
    double v = 0;
    if (Text1Visible[static_cast<size_t>(i)] && !numberOf(Text1[static_cast<size_t>(i)], v)) {
      Text1[static_cast<size_t>(i)] = QStringLiteral("0");
    }
  }
  auto separate = [this](int low, int high) {
    const double a = limit(low);
    if (a == limit(high)) spreadLimits(low, high, a);
  };
  separate(1, 2);
  separate(3, 4);
  if (DerivON) separate(0, 5);
  xLow = std::min(limit(1), limit(2));
  xHigh = std::max(limit(1), limit(2));
}

void PlotModel::applyScale() {
  const double w = pictureWidth, h = pictureHeight;
  ScaleWidth = (limit(2) - limit(1)) * w / (w - 2 * kMarginX);
  ScaleHeight = -(limit(4) - limit(3)) * h / (h - 2 * kMarginY);
  unitX = ScaleWidth / w;
  unitY = -ScaleHeight / h;
  marginX = kMarginX * unitX;
  marginY = -kMarginY * unitY;
  ScaleLeft = limit(1) - marginX;
  ScaleTop = limit(4) - marginY;
  scaleD = -(limit(5) - limit(0)) * h / (h - 2 * kMarginY);
  unitYd = -scaleD / h;
  topD = limit(5) + kMarginY * unitYd;
  Command2_Click();
}

bool PlotModel::isOutX(double x) const {
  return !(x >= std::min(limit(1), limit(2)) && x <= std::max(limit(1), limit(2)));
}

bool PlotModel::isOutY(double y) const {
  return !(y >= std::min(limit(3), limit(4)) && y <= std::max(limit(3), limit(4)));
}

bool PlotModel::isOutYd(double y) const {
  return !(y >= std::min(limit(0), limit(5)) && y <= std::max(limit(0), limit(5)));
}

double PlotModel::clampY(double y) const {
  return std::clamp(y, std::min(limit(3), limit(4)), std::max(limit(3), limit(4)));
}

double PlotModel::mapDerivative(double y) const {
  if (scaleD == 0) return ScaleTop;
  return ScaleTop + (y - topD) * ScaleHeight / scaleD;
}

QRectF PlotModel::limitBoxRect(int index) const {
  constexpr double kW = 70, kH = 20, kGap = 6;
  const double left = kMarginX, right = pictureWidth - kMarginX;
  const double top = kMarginY, bottom = pictureHeight - kMarginY;
  switch (index) {
    case 1: return {left - kW / 2, bottom + kGap, kW, kH};
    case 2: return {right - kW / 2, bottom + kGap, kW, kH};
    case 3: return {left - kGap - kW, bottom - kH + 2, kW, kH};  // clear of the X box below it
    case 4: return {left - kGap - kW, top - kH / 2, kW, kH};
    case 0: return {right + kGap, bottom - kH / 2, kW, kH};
    default: return {right + kGap, top - kH / 2, kW, kH};
  }
}

void PlotModel::autoscale(int index) {
  if (index < 0 || index > 2) return;
  autoMode = static_cast<std::int16_t>(index);
  const int n = pointCount();
  const std::vector<double> x = column(0, n);
  double xMin = 0, xMax = 0, yMin = 0, yMax = 0;
  extremes(x, xMin, xMax);
  xLow = xMin;
  xHigh = xMax;

  // X: the first and the last row, so a descending table runs right to left.
  double first = 0, last = 0;
  bool any = false;
  for (double v : x) {
    if (!std::isfinite(v)) continue;
    if (!any) first = v;
    last = v;
    any = true;
  }
  Text1[1] = formatAxisNumber(first);
  Text1[2] = formatAxisNumber(last);

  std::vector<double> y = column(index == 1 ? FunctionTable::kG : fColumn(), n);
  if (index == 2 && program().hasG) {
    const std::vector<double> g = column(FunctionTable::kG, n);
    y.insert(y.end(), g.begin(), g.end());
  }
  extremes(y, yMin, yMax);
  // The data's extremes as formatAxisNumber shows them, nothing more: a point
  // just past a rounded limit lies outside the frame and is left out.
  auto pair = [this](int low, int high, double a, double b) {
    Text1[static_cast<size_t>(low)] = formatAxisNumber(a);
    Text1[static_cast<size_t>(high)] = formatAxisNumber(b);
  };
  pair(3, 4, yMin, yMax);
  if (DerivON) {
    double dMin = 0, dMax = 0;
    extremes(column(derivOrder + 1, n - derivOrder), dMin, dMax);
    pair(0, 5, dMin, dMax);
  }
  validateLimits();
  Text5Tag = {limit(1), limit(2)};
  Text5 = {Text1[1], Text1[2]};
  applyScale();
  if (FuncCursor != 0) placeCursorReadout();
}

// ---- Limit boxes ------------------------------------------------------------------------

void PlotModel::Text1_GotFocus(int) { Text2 = Res(1749); }

void PlotModel::Text1_LostFocus(int) { Text2.clear(); }

void PlotModel::Text1_Enter() {
  validateLimits();
  applyScale();
  if (FuncCursor != 0) placeCursorReadout();
}

// ---- Redraw -------------------------------------------------------------------------------

void PlotModel::Command2_Click() {
  prepareDrawing();
  if (hooks.redraw) hooks.redraw();
}

void PlotModel::drawPlot(plot::PlotCanvas& canvas) {
  prepareDrawing();
  paintPlot(canvas);
}

// What a redraw brings up to date before painting: which curves show, the
// lists shown (they follow the data), and whether the integral still has
// the two points it needs.
void PlotModel::prepareDrawing() {
  tools.prepareDrawing();
  GdXON = mostrarGx && program().hasG != 0 && !DerivON;
  if (Picture1Visible && list.kind == ResultList::Kind::Extrema) showExtrema(list.item);
  else if (Picture1Visible && list.kind == ResultList::Kind::Zeros) showZeros(list.item);
  if (integralGRAF) {
    const plot::RowRange r = plot::rowsInside(column(0, pointCount()), Text5Tag[0], Text5Tag[1]);
    if (r.count < 2) {
      context() = Res(1753);
      report(r.count == 1 ? 206 : 205);
      integralGRAF = false;
    }
  }
}

// ---- Mouse and cursor --------------------------------------------------------------------

void PlotModel::Picture2_MouseMove(double px, double py) {
  if (pointCount() == 0) {
    Label1Visible = false;
    return;
  }
  const double x = ScaleLeft + px * unitX;
  const double y = ScaleTop - py * unitY;
  Label1 = QStringLiteral("x = ") + formatAxisNumber(x) + QStringLiteral("\ny = ") + formatAxisNumber(y);
  if (DerivON && ScaleHeight != 0) {
    const double yd = topD + (y - ScaleTop) * scaleD / ScaleHeight;
    Label1 += QStringLiteral("\ny") + QString(derivOrder, QLatin1Char('\'')) + QStringLiteral(" = ") +
              formatAxisNumber(yd);
  }
  Label1Visible = true;
}

void PlotModel::Picture2_MouseLeave() {
  if (FuncCursor != 0) placeCursorReadout();
  else Label1Visible = false;
}

void PlotModel::croscursor_Click(int item) {
  if (helpInstead(kHelpTopic) || item < 0 || item > 1) return;
  if (item == 1 && program().hasG == 0) return;
  const bool on = !croscursor[static_cast<size_t>(item)];
  croscursor = {false, false};
  croscursor[static_cast<size_t>(item)] = on;
  FuncCursor = on && pointCount() > 0 ? std::clamp(FuncCursor, 1, pointCount()) : 0;
  if (FuncCursor != 0) placeCursorReadout();
  else Label1Visible = false;
}

bool PlotModel::Form_KeyDown(int key) {
  if (FuncCursor == 0) return false;
  int move = 0;
  switch (key) {
    case Qt::Key_Left: move = -1; break;
    case Qt::Key_Right: move = 1; break;
    case Qt::Key_PageUp:
    case Qt::Key_Up: move = cursorStep; break;
    case Qt::Key_PageDown:
    case Qt::Key_Down: move = -cursorStep; break;
    default: return false;
  }
  const int row = FuncCursor + move;
  if (row >= 1 && row <= pointCount()) FuncCursor = row;  // a row beyond the table is refused
  placeCursorReadout();
  return true;
}

void PlotModel::placeCursorReadout() {
  if (FuncCursor < 1 || FuncCursor > pointCount()) {
    FuncCursor = 0;
    Label1Visible = false;
    return;
  }
  const int row = FuncCursor;
  Label1 = QStringLiteral("x = ") + table_.TextMatrix(row, 0) + QStringLiteral("\nYf = ") +
           table_.TextMatrix(row, fColumn());
  if (GdXON) Label1 += QStringLiteral("\nYg = ") + table_.TextMatrix(row, FunctionTable::kG);
  if (DerivON && row <= pointCount() - derivOrder) {
    Label1 += QStringLiteral("\nY") + QString(derivOrder, QLatin1Char('\'')) + QStringLiteral(" = ") +
              table_.TextMatrix(row, derivOrder + 1);
  }
  Label1Visible = true;
}

bool PlotModel::cursorPoint(double& x, double& y) const {
  if (FuncCursor < 1 || FuncCursor > pointCount()) return false;
  const int col = croscursor[1] ? FunctionTable::kG : fColumn();
  if (!table_.MSFlexGrid1.number(FuncCursor, 0, x) || !table_.MSFlexGrid1.number(FuncCursor, col, y)) return false;
  return !isOutX(x) && !isOutY(y);
}

void PlotModel::crossincrem_Click() {
  if (helpInstead(kHelpTopic)) return;
  ProgramState& p = program();
  p.MessageDefault = rt::Variant::integer(cursorStep);
  MBoxShow(0, Res(1763), 5, 3, 0, kPlotTitle);
  if (p.MessageResult != 0) return;
  double step = 0;
  const QString answer = p.MessageValue.toText().trimmed();
  if (!numberOf(answer, step) || step != std::floor(step) || step < 1 || step > 32767) {
    context() = Res(1656);
    report(1);
    return;
  }
  cursorStep = static_cast<std::int16_t>(step);
}

// ---- View menus --------------------------------------------------------------------------

void PlotModel::menucero_Click() {
  if (helpInstead(kHelpTopic)) return;
  menucero = !menucero;
  Command2_Click();
}

void PlotModel::forceOrigin(int low, int high) {
  if (limit(low) != 0) {
    Text1[static_cast<size_t>(low)] = QStringLiteral("0");
    applyScale();
  }
  if (limit(high) == 0) {
    Text1[static_cast<size_t>(high)] = QStringLiteral("1");
    applyScale();
  }
}

void PlotModel::menucero1_Click() {
  if (helpInstead(kHelpTopic)) return;
  menucero1 = !menucero1;
  if (menucero1) {
    forceOrigin(1, 2);
    forceOrigin(3, 4);
    validateLimits();
  } else {
    autoscale(autoMode);
  }
}

void PlotModel::menureja_Click() {
  if (helpInstead(kHelpTopic)) return;
  menureja = !menureja;
  Command2_Click();
}

void PlotModel::NoUnirPolos_Click() {
  if (helpInstead(kHelpTopic)) return;
  NoUnirPolos = !NoUnirPolos;
  Command2_Click();
}

void PlotModel::leyenda_Click() {
  if (helpInstead(kHelpTopic)) return;
  leyenda = !leyenda;
  Command2_Click();
}

void PlotModel::mostrarGx_Click() {
  if (helpInstead(kHelpTopic)) return;
  mostrarGx = !mostrarGx;
  // The derivative and G(x) are not shown together.
  if (mostrarGx && DerivON) {
    menumderiv.fill(false);
    setDerivative(false);
  }
  Command2_Click();
}

void PlotModel::ocultarPuntos_Click() {
  if (helpInstead(kHelpTopic)) return;
  ocultarPuntos = !ocultarPuntos;
  Command2_Click();
}

void PlotModel::menuufunc_Click(int index) {
  if (helpInstead(kHelpTopic) || index < 0 || index > 1) return;
  menuufunc[static_cast<size_t>(index)] = !menuufunc[static_cast<size_t>(index)];
  Command2_Click();
}

void PlotModel::menuuderiv_Click() {
  if (helpInstead(kHelpTopic)) return;
  menuuderiv = !menuuderiv;
  Command2_Click();
}

void PlotModel::PlotTrazo_Click(int index) {
  if (helpInstead(kHelpTopic) || index < 0 || index > 3) return;
  PlotTrazo = index;
  Command2_Click();
}

void PlotModel::menupunto_Click(int index) {
  if (helpInstead(kHelpTopic) || index < 0 || index > 2) return;
  menupunto = index;
  pointSize = static_cast<std::int16_t>(2 * index);
  Command2_Click();
}

void PlotModel::menuformatonumdec_Click(int index) {
  if (helpInstead(kHelpTopic) || index < 0 || index > 4) return;
  decimals = static_cast<std::int16_t>(index);
  autoscale(autoMode);
}

void PlotModel::menuRaton_Click(int index) {
  if (helpInstead(kHelpTopic) || index < 0 || index > 3) return;
  menuRaton = index;
}

void PlotModel::menubarras_Click() {
  if (helpInstead(kHelpTopic)) return;
  menubarras = !menubarras;
  if (!menubarras) {
    autoscale(autoMode);
    return;
  }
  if (limit(4) != 0) {
    Text1[3] = QStringLiteral("0");
  } else {
    Text1[4] = Text1[3];
    Text1[3] = QStringLiteral("0");
  }
  validateLimits();
  applyScale();
  if (FuncCursor != 0) placeCursorReadout();
}

void PlotModel::barrasopc_Click(int index) {
  if (helpInstead(kHelpTopic) || index < 0 || index > 7) return;
  barrasopc = index;
  Command2_Click();
}

void PlotModel::printcolor_Click(int index) {
  if (helpInstead(kHelpTopic) || index < 0 || index > 1) return;
  printcolor = index;
}

void PlotModel::imprimirPlot_Click() {
  if (helpInstead(kHelpTopic)) return;
  if (hooks.print) hooks.print();
}

// ---- Derivative ------------------------------------------------------------------------------

void PlotModel::setDerivative(bool on) {
  DerivON = on;
  Text1Visible[0] = Text1Visible[5] = on;
  if (on) {
    integralGRAF = false;
    GdXON = false;
    mostrarGx = false;
  }
}

void PlotModel::menumderiv_Click(int order) {
  if (helpInstead(kHelpTopic) || order < 1 || order > 3) return;
  const QString refusal = Res(2208) + QString::number(order) + Res(1784) + QLatin1Char(' ') +
                          QString::number(order + 1) + QLatin1Char(' ') + Res(1761) + QLatin1Char('.');
  const bool on = !menumderiv[static_cast<size_t>(order)];
  menumderiv.fill(false);
  menumderiv[static_cast<size_t>(order)] = on;
  if (pointCount() < order + 1) {
    program().MessageSound = kMessageSound;
    MBoxShow(kMessageStyle, refusal, 3, 0, 0, QStringLiteral("Calvix Premium  -  VelozPlot"));
    menumderiv.fill(false);
    setDerivative(false);
    Command2_Click();
    return;
  }
  if (on) {
    derivOrder = static_cast<std::int16_t>(order);
    derivativeLabel = QStringLiteral("F") + QString(order, QLatin1Char('\'')) + QStringLiteral("(x)");
    setDerivative(true);
    autoscale(autoMode);
  } else {
    setDerivative(false);
    Command2_Click();
  }
}

// ---- Extrema and zeros -------------------------------------------------------------------------

// The column and the last row an analysis item reads; false when the curve is missing.
bool PlotModel::analysisRows(int item, int& col, int& last) const {
  const int n = pointCount();
  switch (item) {
    case 1:
      col = derivOrder + 1;
      last = n - derivOrder;
      return true;
    case 2:
      col = FunctionTable::kG;
      last = program().hasG ? n : 0;
      return true;
    default:
      col = fColumn();
      last = n;
      return true;
  }
}

void PlotModel::closeList() {
  Picture1Visible = false;
  list = ResultList{};
  MaxyMin1.fill(false);
  cerosfunc1.fill(false);
}

void PlotModel::Image1_Click() {
  if (helpInstead(kHelpTopic)) return;
  closeList();
  Command2_Click();
}

void PlotModel::tooFewPoints(const QString& what, int item) {
  program().MessageSound = kMessageSound;
  MBoxShow(kMessageStyle, Res(2207) + QLatin1Char(' ') + what + QLatin1Char(' ') + curveName(item) + QLatin1Char('.'),
           3, 0, 0, kPlotTitle);
  closeList();
}

void PlotModel::showExtrema(int item) {
  int col = 1, last = 0;
  analysisRows(item, col, last);
  if (last < 3) {
    tooFewPoints(Res(1782), item);
    return;
  }
  const BusyScope scan(hooks.busy);
  const plot::Extrema e = plot::findExtrema(column(col, last), MymNivel);
  ResultList l;
  l.kind = ResultList::Kind::Extrema;
  l.item = item;
  l.headings = QStringList{Res(1777), Res(1778), Res(1779), Res(1780)};
  const size_t rows = std::max(e.maxima.size(), e.minima.size());
  for (size_t i = 0; i < rows; ++i) {
    QStringList cells(4);
    if (i < e.maxima.size()) {
      cells[0] = table_.TextMatrix(e.maxima[i] + 1, 0);
      cells[1] = table_.TextMatrix(e.maxima[i] + 1, col);
    }
    if (i < e.minima.size()) {
      cells[2] = table_.TextMatrix(e.minima[i] + 1, 0);
      cells[3] = table_.TextMatrix(e.minima[i] + 1, col);
    }
    l.rows << cells;
  }
  QString name = curveName(item);
  if (item == 0 && fColumn() != 1) name += QStringLiteral(" (smooth)");
  l.caption = name + QStringLiteral(" - ") + Res(1783) + QStringLiteral(" - ") + Res(1628) + QLatin1Char(' ') +
              QString::number(MymNivel);
  list = l;
  Label4 = l.caption;
  Picture1Visible = true;
}

void PlotModel::showZeros(int item) {
  int col = 1, last = 0;
  analysisRows(item, col, last);
  if (last < 2) {
    tooFewPoints(Res(1751), item);
    return;
  }
  const BusyScope scan(hooks.busy);
  ResultList l;
  l.kind = ResultList::Kind::Zeros;
  l.item = item;
  l.headings = QStringList{QStringLiteral("Xo"), QStringLiteral("Yo")};
  for (int row : plot::findZeros(column(col, last))) {
    if (row < 0) l.rows << QStringList{QString(), QString()};
    else l.rows << QStringList{table_.TextMatrix(row + 1, 0), table_.TextMatrix(row + 1, col)};
  }
  l.caption = Res(1752) + QStringLiteral("  -  ") + curveName(item);
  list = l;
  Label4 = l.caption;
  Picture1Visible = true;
}

void PlotModel::MaxyMin1_Click(int item) {
  if (helpInstead(kHelpTopic) || item < 0 || item > 2) return;
  const bool on = !MaxyMin1[static_cast<size_t>(item)];
  closeList();
  PlotRegression.fill(false);
  MaxyMin1[static_cast<size_t>(item)] = on;
  if (on) {
    context() = Res(1781);
    showExtrema(item);
  }
  Command2_Click();
}

void PlotModel::cerosfunc1_Click(int item) {
  if (helpInstead(kHelpTopic) || item < 0 || item > 2) return;
  const bool on = !cerosfunc1[static_cast<size_t>(item)];
  closeList();
  PlotRegression.fill(false);
  cerosfunc1[static_cast<size_t>(item)] = on;
  if (on) {
    context() = Res(1752);
    showZeros(item);
  }
  Command2_Click();
}

void PlotModel::MymNivel_Click(int depth) {
  if (helpInstead(kHelpTopic) || depth < 1 || depth > 4) return;
  MymNivel = depth;
  if (Picture1Visible && list.kind == ResultList::Kind::Extrema) Command2_Click();
}

// ---- Integrals --------------------------------------------------------------------------------------

void PlotModel::integRange_Click() {
  if (helpInstead(kHelpTopic)) return;
  Picture5Visible = true;
  tools.diffPanel = false;
  Label12 = Res(1741);
  for (size_t i = 0; i < 2; ++i) {
    if (Text5[i].isEmpty()) Text5[i] = formatAxisNumber(Text5Tag[i]);
  }
}

void PlotModel::Command14_Click() {
  if (helpInstead(kHelpTopic)) return;
  Picture6Visible = !Picture6Visible;
  Label13 = Picture6Visible ? Res(1742) : QString();
  if (!Picture6Visible) return;
  for (size_t i = 0; i < 2; ++i) {
    double v = Text5Tag[i];
    numberOf(Text5[i], v);
    cursorX[i] = std::clamp(v, xLow, xHigh);
  }
}

void PlotModel::Picture6_Drag(int index, double px) {
  if (index < 0 || index > 1 || !Picture6Visible) return;
  const double x = std::clamp(ScaleLeft + px * unitX, xLow, xHigh);
  cursorX[static_cast<size_t>(index)] = x;
  Text5[static_cast<size_t>(index)] = formatAxisNumber(x);
}

bool PlotModel::checkIntervalBoxes() {
  context() = Res(1753);
  std::array<double, 2> v{0, 0};
  for (size_t i = 0; i < 2; ++i) {
    if (!numberOf(Text5[i], v[i]) || isOutX(v[i])) {
      report(i == 0 ? 200 : 201);
      return false;
    }
  }
  if (plot::rowsInside(column(0, pointCount()), v[0], v[1]).count == 0) {
    report(205);
    return false;
  }
  Text5Tag = v;
  return true;
}

void PlotModel::Command15_Click() {
  if (tools.Command15_Click()) return;
  if (helpInstead(kHelpTopic) || !checkIntervalBoxes()) return;
  integralGRAF = true;
  if (DerivON) {
    menumderiv.fill(false);
    setDerivative(false);
  }
  Command2_Click();
}

void PlotModel::Command12_Click() {
  if (helpInstead(kHelpTopic)) return;
  Text5 = {formatAxisNumber(Text5Tag[0]), formatAxisNumber(Text5Tag[1])};
  Picture5Visible = false;
  Picture6Visible = false;
  Label13.clear();
}

void PlotModel::Command13_Click() {
  if (tools.Command13_Click()) return;
  if (helpInstead(kHelpTopic) || !checkIntervalBoxes()) return;
  Picture5Visible = false;
  Picture6Visible = false;
  Label13.clear();
  integralGRAF = true;
  if (DerivON) {
    menumderiv.fill(false);
    setDerivative(false);
  }
  Command2_Click();
}

void PlotModel::integralGRAF_Click() {
  if (helpInstead(kHelpTopic)) return;
  integralGRAF = !integralGRAF;
  if (integralGRAF && DerivON) {
    menumderiv.fill(false);
    setDerivative(false);
  }
  Command2_Click();
}

void PlotModel::Icorrection_Click() {
  if (helpInstead(kHelpTopic)) return;
  Icorrection = !Icorrection;
  Command2_Click();
}

QStringList PlotModel::integralReadout() const {
  if (!integralGRAF) return {};
  const int n = pointCount();
  const std::vector<double> x = column(0, n);
  const plot::RowRange r = plot::rowsInside(x, Text5Tag[0], Text5Tag[1]);
  if (r.count < 2) return {};
  const plot::GraphicIntegral g = plot::graphicIntegral(x, column(fColumn(), n), r, Icorrection);
  const QString gap = QStringLiteral("   ");
  return {Res(Icorrection ? 1756 : 1755) + QLatin1Char(' ') + formatAxisNumber(g.total()) + gap + Res(1757) +
              QLatin1Char(' ') + formatAxisNumber(Text5Tag[0]) + gap + Res(1758) + QLatin1Char(' ') +
              formatAxisNumber(Text5Tag[1]),
          Res(1759) + QStringLiteral(" + = ") + formatAxisNumber(g.positive) + gap + QStringLiteral(" - = ") +
              formatAxisNumber(g.negative),
          Res(1760) + QStringLiteral("  (") + QString::number(r.count) + QLatin1Char(' ') + Res(1761) +
              QLatin1Char(')')};
}

void PlotModel::integralTEO_Click() {
  if (helpInstead(kHelpTopic)) return;
  context() = Res(1753);
  const int n = pointCount();
  const std::vector<double> x = column(0, n);
  const plot::RowRange r = plot::rowsInside(x, Text5Tag[0], Text5Tag[1]);
  if (r.count < 2) {
    report(r.count == 1 ? 206 : 205);
    return;
  }
  const double h =
      std::fabs(x[static_cast<size_t>(r.last)] - x[static_cast<size_t>(r.first)]) / (r.count - 1);
  const plot::QuadratureSums q = plot::quadratureSums(column(fColumn(), n), r, h);
  const QString eq = QStringLiteral(" = ");
  QStringList lines;
  lines << Res(1766) << QString() << Res(1767) + eq + QString::number(q.n) << Res(1768)
        << Res(1769) + QStringLiteral("  ") + Res(1757) + QLatin1Char(' ') + formatAxisNumber(Text5Tag[0]) +
               QStringLiteral("   ") + Res(1758) + QLatin1Char(' ') + formatAxisNumber(Text5Tag[1])
        << QString() << Res(1770) + eq + rt::NumberToText(q.midpoint) << Res(1771) + eq + rt::NumberToText(q.trapezoid)
        << Res(1772) + eq + rt::NumberToText(q.simpson) << QString()
        << Res(1773) + QLatin1Char(' ') + Res(1774) + QLatin1Char(' ') + Res(1775) + QLatin1Char(' ') + Res(1776);
  theoryText = lines.join(QLatin1Char('\n'));
  MBoxShow(0, theoryText, 2, 0, 0, kPlotTitle + QStringLiteral("  -  ") + Res(1765));
}
