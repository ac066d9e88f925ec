#pragma once
// The plot window (Form100, "VelozPlot"): the picture Picture2 with the
// limit boxes Text1(0..5) standing at the ends of the axes, the readout
// Label1, the graphic cursor Image4, the result list Picture1, the integral
// panel Picture5 with its two cursors Picture6(0..1), and the menus. Every
// event goes to the PlotModel; the window then places its overlays from the
// model's fields, and the picture is drawn again only when the model asks.
//
// The data are the function table's: the window works on the table of the
// open function table window, or on a table of its own when there is none.
#include <QHash>
#include <QImage>
#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <memory>

#include "funcs/PlotModel.h"

class FunctionTable;
class FunctionTableWindow;
class PlotExtrasView;
class PlotPictureView;
class QAction;
class QActionGroup;
class QFrame;
class QLabel;
class QLineEdit;
class QMenu;
class QPrinter;
class QPushButton;
class QShortcut;
class QTableWidget;
class QToolButton;

class PlotWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit PlotWindow(QWidget* parent = nullptr);
  ~PlotWindow() override;

  PlotModel& model() { return *model_; }
  // Places the overlays and ticks the menus from the model.
  void refresh();
  // Prints the picture on a printer already chosen (tests give a PDF printer).
  bool printTo(QPrinter& printer);
  // The picture drawn afresh at the window's size (what Ctrl+C copies).
  QImage picture();

 public Q_SLOTS:
  // The redraw entry: the table calls it after a new evaluation.
  void Command2_Click();
  // For the screenshot tour: "fg", "derivative", "bars", "integral", "extrema", "zeros".
  void showScreenshotState(const QString& state);

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildOverlays();
  void buildMenus();
  void buildList();
  void buildIntegralPanel();
  QAction* addItem(QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler,
                   QActionGroup* group = nullptr);
  template <typename Handler>
  void act(Handler&& handler);
  void placeLimitBoxes();
  void placeReadout();
  void placeCursor();
  void placeList();
  void placePanel();
  void tickMenus();
  void print();
  void saveImage();
  void copyPicture();
  // Regression, interpolation, smoothing and difference (PlotWindowCurves.cpp).
  void buildCurveTools();
  void refreshCurveTools();
  void runSmoothing();
  void finishSmoothing();
  bool showCurveState(const QString& state);

  std::unique_ptr<FunctionTable> ownTable_;
  QPointer<FunctionTableWindow> tableWindow_;
  std::unique_ptr<PlotModel> model_;
  PlotPictureView* Picture2 = nullptr;
  std::array<QLineEdit*, 6> Text1{};
  QLabel* Text2 = nullptr;
  QLabel* Label1 = nullptr;
  QLabel* Image4 = nullptr;
  QFrame* Picture1 = nullptr;
  QLabel* Label4 = nullptr;
  QToolButton* Image1 = nullptr;
  QTableWidget* MSFlexGrid1 = nullptr;
  QFrame* Picture5 = nullptr;
  QLabel* Label12 = nullptr;
  QLabel* Label13 = nullptr;
  std::array<QLineEdit*, 2> Text5{};
  std::array<QFrame*, 2> Picture6{};
  QPushButton* Command12 = nullptr;
  QPushButton* Command13 = nullptr;
  QPushButton* Command14 = nullptr;
  QPushButton* Command15 = nullptr;
  QHash<QString, QAction*> actions_;
  PlotExtrasView* extras_ = nullptr;  // colours, titles, annotations, CSV
  int dragging_ = -1;  // the integral cursor being dragged
  bool refreshing_ = false;
  QPushButton* Command1 = nullptr;  // cancels a smoothing at work
  QLabel* cancelNote_ = nullptr;
  QShortcut* escape_ = nullptr;
  long long sliceRows_ = 4096;
};
