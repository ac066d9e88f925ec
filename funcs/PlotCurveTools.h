#pragma once
// The plot's derived curves, beside the PlotModel that owns them: the
// least-squares fit of the points (PlotRegression), the Lagrange polynomial
// (the table's menuIPLA tick), the smoothings A and B (suavePlot) that put
// column 5 in place of F, and the difference of ordinates (DiffYs) between
// two X picked in the interval panel.
//
// The menu ticks stay the model's fields; this class keeps what the tools
// add (the title suffix, the fit, the difference) and draws its overlays
// through the model's hooks. A smoothing runs at once, or with `stepwise`
// in slices that the window drives (smoothingStep) while the cancel button
// and Esc stay live; meanwhile the other menus answer with message 2204.
#include <QString>
#include <array>
#include <memory>
#include <vector>

#include "funcs/PlotCanvas.h"
#include "funcs/PlotFits.h"

class PlotModel;
namespace plot {
class Smoothing;
}

class PlotCurveTools {
 public:
  static constexpr int kLagrangeLimit = 61;  // points from which the polynomial is not worked out
  static constexpr int kCurveSteps = 300;     // a fit or polynomial is drawn at 301 x

  explicit PlotCurveTools(PlotModel& model);
  ~PlotCurveTools();
  PlotCurveTools(const PlotCurveTools&) = delete;
  PlotCurveTools& operator=(const PlotCurveTools&) = delete;

  bool stepwise = false;

  // ---- State ------------------------------------------------------------------------
  QString smoothSuffix;               // "   (smooth A = n)" while a smoothing is in force
  bool muestrafxOrigEnabled = false;  // the menu can be ticked only during a smoothing
  plot::Fit fit;                      // the fit drawn while a PlotRegression item is ticked
  std::array<QString, 1> DiffOrd{QStringLiteral("No Existe")};
  bool diffPanel = false;          // the interval panel computes the difference
  std::array<int, 2> diffRows{0, 0};  // first and last row of the difference
  double diffValue = 0;
  bool Command1Visible = false;    // cancel button and its note while a task runs
  QString cancelNote;

  // ---- Handlers ---------------------------------------------------------------------
  void suavePlot_Click(int method);
  void muestrafxOrig_Click();
  void PlotRegression_Click(int kind);
  void menuIPLA_Click();
  void DiffYs_Click();
  void Command1_Click();  // cancel a running task
  // Esc while a task runs cancels it; true when taken.
  bool Form_KeyDown(int key);
  // The interval panel's Calculate and Accept in difference mode; false when
  // the panel is the integral's and may go on (no smoothing at work).
  bool Command15_Click();
  bool Command13_Click();

  // ---- Running smoothing ------------------------------------------------------------
  bool running() const { return job_ != nullptr; }
  // Works up to maxRows rows; true once it has ended (done or cancelled).
  bool smoothingStep(long long maxRows);
  double progress() const;
  // A menu asked while a task runs: message 2204, true.
  bool refuseWhileRunning();

  // ---- What the tools show ------------------------------------------------------------
  // The polynomial's 301 points from Text1(1) to Text1(2) (y NaN where it
  // has no value); none with fewer than 2 or kLagrangeLimit points or more.
  std::vector<plot::Point> interpolation() const;
  int fitKind() const;  // the PlotRegression item ticked, -1 none
  int smoothingMethod() const;  // the suavePlot item ticked, -1 none

  // ---- Model events ------------------------------------------------------------------
  void Form_Load();
  void prepareDrawing();

 private:
  void draw(plot::PlotCanvas& c, int overlay) const;
  void removeSuffix();
  void smoothingOff();
  void finishSmoothing();
  bool computeDifference();
  bool refusePanelWhileRunning();
  void showError(const QString& text, const QString& title = {});

  PlotModel& m_;
  std::unique_ptr<plot::Smoothing> job_;
};
