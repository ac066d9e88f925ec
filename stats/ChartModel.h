#pragma once
// The statistics chart window (Form15) without its widgets.
//
// How the pieces fit: the model holds the two series it was given (the
// statistics store through loadStore, or another module's ChartData through
// loadData), which of them seriesdata chose, the kind (tipo), and every
// option of the menus: statistic lines, scales, tick marks, point marks,
// guides, colours, bars and the 3D view. The view (StatisticsChartWindow)
// draws from these fields with Qt Charts (2D kinds) or Qt Data Visualization
// (3D kinds) and forwards the clicks here; Label1 is the window's info line
// for the kind, the readout and the refusals; Text1 holds the three
// regression boxes.
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <vector>

#include "shell/ChartData.h"

struct StatisticsStore;

// Kinds by tipo index: 1..7 the 2D kinds, 9..13 the 3D ones (8 is the separator).
enum ChartKind {
  kArea2D = 1, kBar2D, kCombined2D, kLine2D, kPie2D, kStep2D, kXY2D,
  kArea3D = 9, kBar3D, kCombined3D, kLine3D, kStep3D
};
bool isChartKind(int index);
bool is3DKind(int index);
// The 2D kind a 3D kind falls back to.
int flatKind(int index);
// The caption string of a kind (3301..3312).
int kindCaptionId(int index);

// A colour value (red in the low byte) split into its components.
struct ColourParts {
  int red = 0, green = 0, blue = 0;
};
ColourParts colourParts(double value);

// The statistics a series offers as lines: minimum, maximum, mean, standard
// deviation (over n) and the least-squares line of the values against their
// positions (the X values in an XY chart, else 1, 2, 3...).
struct SeriesStatistics {
  double min = 0, max = 0, mean = 0, deviation = 0;
  double slope = 0, intercept = 0;
  bool lineValid = false;
};
SeriesStatistics seriesStatistics(const std::vector<double>& values, const std::vector<double>* positions);

class ChartModel {
 public:
  enum Statistic { StatMin = 1, StatMax, StatMean, StatDeviation, StatRegression };
  enum ScaleType { Linear = 0, Logarithmic = 1, Percent = 2 };
  enum TickStyle { TicksCentred = 0, TicksInside = 1, TicksOutside = 2 };

  struct Axis {
    bool manual = false;
    double min = 0, max = 0;  // manual limits
    int type = Linear;
    int tickStyle = TicksOutside;
    int ticks = 5;            // marks on the axis
    bool guides = true;       // grid lines
  };
  struct SeriesLook {
    int marker = 0;           // 0 "Bola 3D", 1..15 the shapes after it
    bool joined = true;       // points joined by a line
    bool plotted = true;      // PlotSerie
    double colour = 0;        // a colour value; used when ownColour
    bool ownColour = false;   // ColorDef: false takes the palette's
    int pointSize = 2;        // 0 none .. 4 large
    unsigned statLines = 0;   // bit (1 << Statistic) per line shown
  };

  ChartModel();

  // ---- Data ------------------------------------------------------------------
  std::vector<double> X, Y;
  QString nameX = QStringLiteral("X"), nameY = QStringLiteral("Y");
  QStringList categories;
  QString title;

  // ---- Display state ---------------------------------------------------------
  QString Label1;                   // the info line
  std::array<QString, 3> Text1;     // "a = ", "b = ", "r² = "
  int tipo = kXY2D;                 // the ticked kind
  std::array<bool, 14> tipoEnabled{};
  int seriesIndex = 0;              // seriesdata: 0 XY, 1 X, 2 Y
  std::array<bool, 2> excluded{false, false};  // Excluded flag of series 1 (X) and 2 (Y)
  std::array<Axis, 2> axis;         // 0 the X (category) axis, 1 the value axis
  std::array<SeriesLook, 2> look;
  std::array<double, 11> palette{};  // "Color Graf15" 1..10
  double gridColour = 12632256;     // light grey
  double lineColour = 0;            // black: the axes
  double statColour = 255;          // the statistic lines
  // 3D view.
  int projection = 0;               // 0 perspective, 1 orthogonal, 2 oblique, 3 front, 4 top
  int elevation = 30;               // degrees
  int baseHeight = 1;               // 0 small, 1 medium, 2 large
  // Bars.
  int barWidth = 80;                // percent
  bool stacked = false;

  // ---- Loading ---------------------------------------------------------------
  // The palette from the settings, captions, default scales and legend.
  void Form_Load();
  // The store's lists and the regression of the calculator's type.
  void loadStore(const StatisticsStore& store, int regType);
  // Another module's series; chooses data.series (and data.kind when given).
  void loadData(const ChartData& data);

  // ---- Menus -----------------------------------------------------------------
  // Chooses the data; false when refused (Label1 says why, message sound 1).
  bool seriesdata_Click(int index);
  void tipo_Click(int index);
  // The 3D kind cannot be drawn here: the matching 2D kind, and Label1 says so.
  void fallBackTo2D();
  void estadix_Click(int index);    // 0 "Ninguna", 1..5 a statistic
  void estadiy_Click(int index);
  void escalatipo_Click(int axisIndex, int type);  // escalaxtipo / escalaytipo
  void autoesc_Click(int axisIndex);               // autoxesc / autoyesc
  void manualesc_Click(int axisIndex);             // manualxesc / manualyesc: asks the limits
  void marcas_Click(int axisIndex, int style);     // marcasejex / marcasejey
  void aumenta_Click(int axisIndex, int step);     // xaumenta1 (+1), xdecrece1 (-1), ...
  void marcasserie_Click(int series, int marker);  // marcasserieX / marcasserieY
  void guia_Click(int axisIndex, bool on);         // xguiax / xguiano ...
  void conecta_Click(int series, bool on);         // xconectasi / xconectano ...
  void PlotSerie_Click(int series);
  void PointSize_Click(int series, int size);
  void AnchoBarra_Click(int percent);
  void apila_Click();
  void persp3d_Click(int index);
  void grados_Click(int degrees);
  void barrabase_Click(int index);

  // Click or hover on point `index` (from 1) of series 0 (X) or 1 (Y).
  void pointClicked(int series, int index);

  // ---- What the view draws ---------------------------------------------------
  bool included(int series) const { return !excluded[static_cast<std::size_t>(series)]; }
  const std::vector<double>& values(int series) const { return series == 0 ? X : Y; }
  QString seriesName(int series) const { return series == 0 ? nameX : nameY; }
  // Whether the chart pairs X with Y (XY kind with both series).
  bool pairsShown() const { return tipo == kXY2D && included(0) && included(1); }
  // Colour of a series: its own, or the palette's entry.
  ColourParts seriesColour(int series) const;
  SeriesStatistics statistics(int series) const;
  // The statistic lines a series shows, as values on its axis (min, max...).
  QList<QPair<int, double>> statisticLevels(int series) const;
  // Limits of the value axis (automatic or manual) over the series shown.
  void valueRange(double& low, double& high) const;
  // The series names the chart includes ("X", "Y").
  QStringList includedNames() const;

 private:
  int regressionType_ = -1;
  void fillRegressionBoxes();
  void refuse(int stringId);
  void toggleStatistic(int series, int index);
};
