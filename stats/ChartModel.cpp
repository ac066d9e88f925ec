#include "stats/ChartModel.h"

#include <algorithm>
#include <cmath>

#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/StatisticsStore.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

namespace {

constexpr int kHelpTopic = 40000;
const QString kJoin = QStringLiteral("  -  ");

}  // namespace

bool isChartKind(int index) { return (index >= 1 && index <= 7) || (index >= 9 && index <= 13); }
bool is3DKind(int index) { return index >= 9 && index <= 13; }

int flatKind(int index) {
  switch (index) {
    case kArea3D: return kArea2D;
    case kBar3D: return kBar2D;
    case kCombined3D: return kCombined2D;
    case kLine3D: return kLine2D;
    case kStep3D: return kStep2D;
    default: return index;
  }
}

int kindCaptionId(int index) { return index <= 7 ? 3300 + index : 3299 + index; }

ColourParts colourParts(double value) {
  const auto v = static_cast<std::int64_t>(value);
  return {static_cast<int>(v % 256), static_cast<int>((v & 65280) / 256 % 256), static_cast<int>((v & 16711680) / 65536)};
}

SeriesStatistics seriesStatistics(const std::vector<double>& values, const std::vector<double>* positions) {
  SeriesStatistics s;
  const std::size_t n = values.size();
  if (n == 0) return s;
  s.min = *std::min_element(values.begin(), values.end());
  s.max = *std::max_element(values.begin(), values.end());
  double sum = 0, sum2 = 0, sx = 0, sx2 = 0, sxy = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const double v = values[i];
    const double p = positions ? (*positions)[i] : static_cast<double>(i + 1);
    sum += v;
    sum2 += v * v;
    sx += p;
    sx2 += p * p;
    sxy += p * v;
  }
  const double dn = static_cast<double>(n);
  s.mean = sum / dn;
  s.deviation = std::sqrt(std::max(0.0, sum2 / dn - s.mean * s.mean));
  const double denominator = dn * sx2 - sx * sx;
  if (n >= 2 && denominator != 0) {
    s.slope = (dn * sxy - sx * sum) / denominator;
    s.intercept = (sum - s.slope * sx) / dn;
    s.lineValid = true;
  }
  return s;
}

ChartModel::ChartModel() { tipoEnabled.fill(false); }

void ChartModel::Form_Load() {
  const ProgramState& p = program();
  // The palette: series X in 1 and 2 (line, marks), series Y in 3 and 4,
  // statistic lines 5, grid 6, axes 10.
  for (std::size_t i = 1; i < palette.size(); ++i) palette[i] = p.ChartColours[i].toDouble();
  statColour = palette[5];
  gridColour = palette[6];
  lineColour = palette[10];
  for (int k = 1; k <= 13; ++k) tipoEnabled[static_cast<std::size_t>(k)] = isChartKind(k);
  axis = {};
  nameX = QStringLiteral("X");
  nameY = QStringLiteral("Y");
}

void ChartModel::loadStore(const StatisticsStore& store, int regType) {
  const ChartData d = chartDataOfStore(store, regType);
  X = d.x;
  Y = d.y;
  nameX = d.xName;
  nameY = d.yName;
  categories.clear();
  title.clear();
  regressionType_ = regType;
  fillRegressionBoxes();
}

void ChartModel::loadData(const ChartData& data) {
  X = data.x;
  Y = data.y;
  nameX = data.xName;
  nameY = data.yName;
  categories = data.categories;
  title = data.title;
  regressionType_ = data.regressionType;
  fillRegressionBoxes();
  if (seriesdata_Click(data.series) && isChartKind(data.kind)) tipo_Click(data.kind);
}

// The three boxes repeat the regression of the pairs; a pass that cannot be
// made leaves the bare captions. Pairs the model cannot take are dropped
// without asking: the chart only reports.
void ChartModel::fillRegressionBoxes() {
  Text1 = {QStringLiteral("a = "), QStringLiteral("b = "), QStringLiteral("r\u00B2 = ")};
  if (regressionType_ < 0 || X.size() != Y.size() || X.size() < 2) return;
  std::vector<double> x(1, 0.0), y(1, 0.0);
  x.insert(x.end(), X.begin(), X.end());
  y.insert(y.end(), Y.begin(), Y.end());
  std::int16_t askedOnce = 1, abort = 0;
  const RegressionResult r = RegressionPass(x.data(), y.data(), static_cast<int>(X.size()),
                                            static_cast<RegressionType>(regressionType_), askedOnce, abort);
  if (r.code != 0) return;
  Text1[0] += rt::NumberToText(r.a);
  Text1[1] += rt::NumberToText(r.b);
  Text1[2] += rt::NumberToText(r.r2);
}

void ChartModel::refuse(int stringId) {
  Label1 = Res(stringId);
  program().MessageSound = 1;
  PlayMessageSound();
}

bool ChartModel::seriesdata_Click(int index) {
  if (helpInstead(kHelpTopic)) return false;
  if (index == 0) {
    if (X.size() != Y.size()) return refuse(3414), false;
    if (X.empty()) return refuse(3415), false;
    if (X.size() == 1) return refuse(3416), false;
    for (int k = 1; k <= 13; ++k) tipoEnabled[static_cast<std::size_t>(k)] = isChartKind(k);
    excluded = {false, false};
    seriesIndex = 0;
    tipo_Click(kXY2D);
    return true;
  }
  const int list = index == 1 ? 0 : 1;
  if (values(list).empty()) return refuse(index == 1 ? 3418 : 3420), false;
  excluded = {list != 0, list != 1};
  seriesIndex = index;
  // One series has no pairs to draw as XY: that kind is off and a chart in
  // it changes to lines.
  for (int k = 1; k <= 13; ++k) tipoEnabled[static_cast<std::size_t>(k)] = isChartKind(k) && k != kXY2D;
  tipo_Click(tipo == kXY2D ? kLine2D : tipo);
  return true;
}

void ChartModel::tipo_Click(int index) {
  if (helpInstead(kHelpTopic) || !isChartKind(index) || !tipoEnabled[static_cast<std::size_t>(index)]) return;
  tipo = index;
  Label1 = Res(kindCaptionId(index)) + kJoin;
}

void ChartModel::fallBackTo2D() {
  tipo = flatKind(tipo);
  Label1 = Res(kindCaptionId(tipo)) + kJoin + Res(3428);
}

void ChartModel::toggleStatistic(int series, int index) {
  if (helpInstead(kHelpTopic)) return;
  unsigned& flags = look[static_cast<std::size_t>(series)].statLines;
  if (index == 0) flags = 0;
  else if (index >= StatMin && index <= StatRegression) flags ^= 1u << index;
}

void ChartModel::estadix_Click(int index) { toggleStatistic(0, index); }
void ChartModel::estadiy_Click(int index) { toggleStatistic(1, index); }

void ChartModel::escalatipo_Click(int axisIndex, int type) {
  if (helpInstead(kHelpTopic) || type < Linear || type > Percent) return;
  if (type == Logarithmic) {
    // A logarithmic axis needs values above 0 on it.
    bool positive = true;
    for (int s = 0; s < 2; ++s) {
      if (!included(s)) continue;
      const bool onAxis = axisIndex == 1 ? (!pairsShown() || s == 1) : (pairsShown() && s == 0);
      if (!onAxis) continue;
      for (double v : values(s)) positive = positive && v > 0;
    }
    if (axisIndex == 0 && !pairsShown()) positive = true;  // positions 1, 2, 3...
    if (!positive) return refuse(3422);
  }
  axis[static_cast<std::size_t>(axisIndex)].type = type;
}

void ChartModel::autoesc_Click(int axisIndex) {
  if (helpInstead(kHelpTopic)) return;
  axis[static_cast<std::size_t>(axisIndex)].manual = false;
}

// Asks the lower and then the upper limit; a cancelled box, a text that is
// no number or limits out of order change nothing.
void ChartModel::manualesc_Click(int axisIndex) {
  if (helpInstead(kHelpTopic)) return;
  ProgramState& p = program();
  double limits[2] = {0, 0};
  for (int i = 0; i < 2; ++i) {
    const int prompt = 3424 + axisIndex * 2 + i;
    MBoxShow(0, Res(prompt), 5, 3, 0, Res(3406));
    if (p.MessageResult != 0) return;
    if (!rt::tryTextToDouble(p.MessageValue.toText().trimmed(), limits[i])) return refuse(3421);
  }
  if (!(limits[0] < limits[1])) return refuse(3421);
  Axis& a = axis[static_cast<std::size_t>(axisIndex)];
  a.manual = true;
  a.min = limits[0];
  a.max = limits[1];
}

void ChartModel::marcas_Click(int axisIndex, int style) {
  if (helpInstead(kHelpTopic) || style < TicksCentred || style > TicksOutside) return;
  axis[static_cast<std::size_t>(axisIndex)].tickStyle = style;
}

void ChartModel::aumenta_Click(int axisIndex, int step) {
  if (helpInstead(kHelpTopic)) return;
  int& t = axis[static_cast<std::size_t>(axisIndex)].ticks;
  t = std::clamp(t + step, 2, 50);
}

void ChartModel::marcasserie_Click(int series, int marker) {
  if (helpInstead(kHelpTopic) || marker < 0 || marker > 15) return;
  look[static_cast<std::size_t>(series)].marker = marker;
}

void ChartModel::guia_Click(int axisIndex, bool on) {
  if (helpInstead(kHelpTopic)) return;
  axis[static_cast<std::size_t>(axisIndex)].guides = on;
}

void ChartModel::conecta_Click(int series, bool on) {
  if (helpInstead(kHelpTopic)) return;
  look[static_cast<std::size_t>(series)].joined = on;
}

void ChartModel::PlotSerie_Click(int series) {
  if (helpInstead(kHelpTopic)) return;
  bool& p = look[static_cast<std::size_t>(series)].plotted;
  p = !p;
}

void ChartModel::PointSize_Click(int series, int size) {
  if (helpInstead(kHelpTopic)) return;
  look[static_cast<std::size_t>(series)].pointSize = std::clamp(size, 0, 4);
}

void ChartModel::AnchoBarra_Click(int percent) {
  if (helpInstead(kHelpTopic)) return;
  barWidth = std::clamp(percent, 10, 100);
}

void ChartModel::apila_Click() {
  if (helpInstead(kHelpTopic)) return;
  stacked = !stacked;
}

void ChartModel::persp3d_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  projection = std::clamp(index, 0, 4);
}

void ChartModel::grados_Click(int degrees) {
  if (helpInstead(kHelpTopic)) return;
  elevation = std::clamp(degrees, 0, 90);
}

void ChartModel::barrabase_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  baseHeight = std::clamp(index, 0, 2);
}

void ChartModel::pointClicked(int series, int index) {
  const std::vector<double>& v = values(series);
  if (index < 1 || index > static_cast<int>(v.size())) return;
  Label1 = seriesName(series) + kJoin + QString::number(index) + kJoin +
           rt::NumberToText(v[static_cast<std::size_t>(index - 1)]);
}

ColourParts ChartModel::seriesColour(int series) const {
  const SeriesLook& l = look[static_cast<std::size_t>(series)];
  return colourParts(l.ownColour ? l.colour : palette[static_cast<std::size_t>(1 + 2 * series)]);
}

SeriesStatistics ChartModel::statistics(int series) const {
  return seriesStatistics(values(series), pairsShown() && series == 1 ? &X : nullptr);
}

QList<QPair<int, double>> ChartModel::statisticLevels(int series) const {
  QList<QPair<int, double>> out;
  const unsigned flags = look[static_cast<std::size_t>(series)].statLines;
  if (flags == 0 || values(series).empty()) return out;
  const SeriesStatistics s = statistics(series);
  const double level[] = {0, s.min, s.max, s.mean, s.deviation};
  for (int k = StatMin; k <= StatDeviation; ++k) {
    if (flags & (1u << k)) out.append({k, level[k]});
  }
  return out;
}

void ChartModel::valueRange(double& low, double& high) const {
  const Axis& a = axis[1];
  if (a.manual) {
    low = a.min;
    high = a.max;
    return;
  }
  bool any = false;
  for (int s = 0; s < 2; ++s) {
    if (!included(s) || (pairsShown() && s == 0)) continue;
    for (double v : values(s)) {
      low = any ? std::min(low, v) : v;
      high = any ? std::max(high, v) : v;
      any = true;
    }
  }
  if (!any) low = 0, high = 1;
  if (tipo != kXY2D && tipo != kPie2D) low = std::min(low, 0.0);  // bars and areas stand on 0
  if (low == high) {
    low -= 1;
    high += 1;
  }
}

QStringList ChartModel::includedNames() const {
  QStringList out;
  if (included(0)) out << QStringLiteral("X");
  if (included(1)) out << QStringLiteral("Y");
  return out;
}
