#pragma once
// The plot window's model (Form100, module "VelozPlot") without its widgets.
//
// How the pieces fit:
//  - The data are the function table's cells (FunctionTable::MSFlexGrid1),
//    rows 1 to pointCount: X in column 0, F in column sourceColumn, the
//    derivatives in 2 to 4, G in 6. Nothing is copied between redraws: every
//    drawing pass reads the cells again.
//  - The axis limits are the texts of the boxes Text1(0..5) (1, 2 X; 3, 4 Y;
//    0, 5 the derivative's axis on the right). autoscale fills them from the
//    data, the user may type them and press Enter; validateLimits repairs
//    them and applyScale turns them into the picture's user scale, with 80
//    picture units free left and right and 70 above and below the frame.
//  - drawPlot(canvas) is the one drawing procedure: the screen picture, an
//    offscreen image and the printer are canvases (PlotCanvas.h). It first
//    brings the analyses shown up to date (lists, integral checks), then
//    paints; paintPlot is the painting half alone, which the screen uses to
//    repaint what Command2_Click prepared.
//  - The menus are fields under their menu names (ticks as bools, radio
//    groups as the index chosen) with a handler each; a handler that changes
//    the view ends in Command2_Click, which asks the view to redraw.
//  - The analyses (derivative, extrema, zeros, integrals) are in
//    PlotAnalysis.h; the model chooses the columns and rows, builds the
//    result list, the readouts and the messages.
//  - The regression, interpolation and smoothing tools plug in through the
//    hooks and the fields kept for them (PlotRegression, suavePlot,
//    muestrafxOrig); FunctionTable::menuIPLA is the interpolation tick.
#include <QRectF>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <functional>
#include <vector>

#include "funcs/PlotAnalysis.h"
#include "funcs/PlotCanvas.h"
#include "funcs/PlotCurveTools.h"

class FunctionTable;

class PlotModel {
 public:
  // Palette entries (program().PlotColours).
  enum Colour {
    kText = 0,
    kBackground,
    kAxes,
    kGrid,
    kCurveF,
    kCurveDerivative,
    kAreaPositive,
    kAreaNegative,
    kRegression,
    kInterpolation,
    kBarsPositive,
    kBarsNegative,
    kBarBackground,
    kSmoothed,
    kCurveG,
  };
  static constexpr int kColours = 15;
  // The picture's free border around the frame, in picture units.
  static constexpr int kMarginX = 80;
  static constexpr int kMarginY = 70;

  struct Hooks {
    // The screen picture is painted again (paintPlot) from the state.
    std::function<void()> redraw;
    // imprimirPlot: the print dialog, then drawPlot on the printer.
    std::function<void()> print;
    // Overlays of the regression, interpolation and difference tools, drawn
    // at their place in the drawing order.
    std::function<void(plot::PlotCanvas&)> drawInterpolation, drawRegression, drawDifference;
    // A scan over the table begins (true) or ends (false): the window shows the wait pointer.
    std::function<void(bool)> busy;
  };

  // The result list shown over the picture (Picture1 with caption Label4).
  struct ResultList {
    enum class Kind { None, Extrema, Zeros };
    Kind kind = Kind::None;
    int item = 0;  // 0 F(x), 1 derivative, 2 G(x)
    QString caption;
    QStringList headings;
    QList<QStringList> rows;
  };

  // A text placed on the picture by the user (Label11), in user units.
  struct Annotation {
    QString text;
    double x = 0, y = 0;
  };

  explicit PlotModel(FunctionTable& table);

  Hooks hooks;
  FunctionTable& table() { return table_; }

  // ---- Limit boxes ---------------------------------------------------------------
  std::array<QString, 6> Text1;
  std::array<bool, 6> Text1Visible{false, true, true, true, true, false};
  QString Text2;  // the tip under the boxes: "Pulse Enter para Validar" while one has the focus

  // ---- Scale -------------------------------------------------------------------------
  int pictureWidth = 760, pictureHeight = 520;  // the picture, in picture units
  double ScaleLeft = 0, ScaleTop = 0, ScaleWidth = 1, ScaleHeight = -1;
  double unitX = 0, unitY = 0, unitYd = 0;
  double marginX = 0, marginY = 0, scaleD = -1, topD = 0;
  double xLow = 0, xHigh = 0;
  std::int16_t decimals = 1;
  std::int16_t derivOrder = 1;
  std::int16_t pointSize = 0;
  std::int16_t cursorStep = 10;
  std::int16_t autoMode = 0;

  // ---- State flags ---------------------------------------------------------------
  bool DerivON = false;  // a derivative is shown
  bool GdXON = false;    // G(x) is shown
  int FuncCursor = 0;    // row of the graphic cursor, 0: none
  QString derivativeLabel = QStringLiteral("F'(x)");
  QString Label1;  // the mouse or cursor readout
  bool Label1Visible = false;

  // ---- Menus: view options -------------------------------------------------------
  bool menucero = false;   // axes through the origin
  bool menucero1 = false;  // (0,0) forced
  bool menureja = false;   // grid
  bool NoUnirPolos = true;  // asymptote rule
  bool leyenda = true;
  bool mostrarGx = true;
  bool ocultarPuntos = false;  // points hidden
  std::array<bool, 2> menuufunc{true, true};  // join F, join G
  bool menuuderiv = true;  // join the derivative
  int PlotTrazo = 2;       // line width item: extra fine, fine, normal, thick
  int menupunto = 0;       // point size item: small, medium, large
  int menuRaton = 0;       // mouse icon: cross, circle, circle + cross, arrow
  bool menubarras = false;
  int barrasopc = 1;  // bar fill style, 0..7
  int printcolor = 1;  // 0 semicolour (lines in black), 1 colour

  // ---- Menus: analyses --------------------------------------------------------------
  std::array<bool, 4> menumderiv{};  // items 1 to 3
  std::array<bool, 3> MaxyMin1{};
  std::array<bool, 3> cerosfunc1{};
  int MymNivel = 1;  // extrema depth 1 to 4
  std::array<bool, 2> croscursor{};  // graphic cursor on F, on G
  bool integralGRAF = false;
  bool Icorrection = false;
  // Kept for the regression and smoothing tools; the analyses untick them.
  std::array<bool, 3> PlotRegression{};
  std::array<bool, 2> suavePlot{};
  bool muestrafxOrig = false;
  // Regression, interpolation, smoothing and difference of ordinates.
  PlotCurveTools tools{*this};

  // ---- Result list and annotations ------------------------------------------------
  bool Picture1Visible = false;
  QString Label4;
  ResultList list;
  std::vector<Annotation> Label11;
  // Titles typed by the user for F, X and Y (Text3(0..2)); empty: the table's.
  std::array<QString, 3> Text3;

  // ---- Integral panel ----------------------------------------------------------------
  bool Picture5Visible = false;
  QString Label12;
  std::array<QString, 2> Text5;  // X Ini, X Fin as shown
  std::array<double, 2> Text5Tag{0, 0};  // the limits in force
  bool Picture6Visible = false;  // the two cursors shown (Command14 down)
  std::array<double, 2> cursorX{0, 0};  // their X, in user units
  QString Label13;
  QString theoryText;  // the text of the last theoretical integral message

  // ---- Window events ---------------------------------------------------------------
  void Form_Load();
  // The picture was resized (picture units).
  void Form_Resize(int width, int height);
  // Arrows move the graphic cursor by a point, Page Up/Down by cursorStep.
  bool Form_KeyDown(int key);

  // ---- Drawing -----------------------------------------------------------------------
  void Command2_Click();  // redraw
  void drawPlot(plot::PlotCanvas& canvas);
  void paintPlot(plot::PlotCanvas& canvas) const;
  void autoscale(int index);
  void validateLimits();
  void applyScale();
  QString formatAxisNumber(double value) const;
  bool isOutX(double x) const;
  bool isOutY(double y) const;
  bool isOutYd(double y) const;
  double clampY(double y) const;
  double mapDerivative(double y) const;
  // The limit box of an index and where it stands on the picture (picture units).
  QRectF limitBoxRect(int index) const;
  double limit(int index) const;

  // ---- Limit boxes --------------------------------------------------------------------
  void Text1_GotFocus(int index);
  void Text1_LostFocus(int index);
  // Enter validates the limits typed.
  void Text1_Enter();

  // ---- Mouse -------------------------------------------------------------------------------
  void Picture2_MouseMove(double px, double py);
  void Picture2_MouseLeave();

  // ---- View menus ------------------------------------------------------------------------
  void menucero_Click();
  void menucero1_Click();
  void menureja_Click();
  void NoUnirPolos_Click();
  void leyenda_Click();
  void mostrarGx_Click();
  void ocultarPuntos_Click();
  void menuufunc_Click(int index);
  void menuuderiv_Click();
  void PlotTrazo_Click(int index);
  void menupunto_Click(int index);
  void menuformatonumdec_Click(int index);
  void menuRaton_Click(int index);
  void menubarras_Click();
  void barrasopc_Click(int index);
  void menuautoesc_Click(int index) { autoscale(index); }
  void printcolor_Click(int index);
  void imprimirPlot_Click();

  // ---- Analyses -----------------------------------------------------------------------
  void menumderiv_Click(int order);
  void MaxyMin1_Click(int item);
  void cerosfunc1_Click(int item);
  void MymNivel_Click(int depth);
  void Image1_Click();  // closes the result list
  void croscursor_Click(int item);
  void crossincrem_Click();
  // The graphic cursor's point in user units; false when there is none to show.
  bool cursorPoint(double& x, double& y) const;

  // ---- Integrals ---------------------------------------------------------------------
  void integRange_Click();
  void integralGRAF_Click();
  void integralTEO_Click();
  void Icorrection_Click();
  void Command12_Click();  // cancel the panel
  void Command13_Click();  // accept and close
  void Command14_Click();  // show or hide the cursors
  void Command15_Click();  // calculate now (also Enter in a box)
  // A cursor dragged to a point of the picture (picture units across).
  void Picture6_Drag(int index, double px);
  // The readout of the graphic integral: three lines, empty when none is shown.
  QStringList integralReadout() const;

  // ---- Reading the table ---------------------------------------------------------------
  int pointCount() const;
  // The column of the F curve (1, or 5 while smoothed) and its points.
  int fColumn() const;
  std::vector<double> column(int col, int lastRow) const;
  double lineWidth() const;
  // The curve's name in lists and messages: "Función F(x)", "1ª Derivada de F(x)", ...
  QString curveName(int item) const;
  std::uint32_t colour(int index) const;

 private:
  struct Curve {
    std::vector<double> x, y;
  };
  void prepareDrawing();
  void showExtrema(int item);
  void showZeros(int item);
  bool analysisRows(int item, int& col, int& last) const;
  void closeList();
  void tooFewPoints(const QString& what, int item);
  void setDerivative(bool on);
  void placeCursorReadout();
  bool checkIntervalBoxes();
  void forceOrigin(int low, int high);
  void spreadLimits(int low, int high, double value);

  // Drawing steps (PlotDrawing.cpp).
  void drawFrame(plot::PlotCanvas& c, std::uint32_t lineColour) const;
  void drawTitles(plot::PlotCanvas& c) const;
  void drawLegend(plot::PlotCanvas& c) const;
  void drawPoints(plot::PlotCanvas& c, const Curve& curve, std::uint32_t colour, bool isDerivative) const;
  void drawJoined(plot::PlotCanvas& c, const Curve& curve, std::uint32_t colour, bool isDerivative) const;
  void drawMarks(plot::PlotCanvas& c) const;
  void drawDerivative(plot::PlotCanvas& c) const;
  void drawIntegral(plot::PlotCanvas& c) const;
  void drawBars(plot::PlotCanvas& c) const;
  void drawOriginAxes(plot::PlotCanvas& c) const;
  QString tickText(int low, int high, int k) const;
  void printAt(plot::PlotCanvas& c, double px, double py, const QString& text, int align) const;
  std::uint32_t drawColour(const plot::PlotCanvas& c, int index) const;

  FunctionTable& table_;
  // The limits as numbers, kept beside the texts they were read from: the
  // drawing asks for them at every point.
  mutable std::array<QString, 6> limitTexts_;
  mutable std::array<double, 6> limitValues_{};
};
