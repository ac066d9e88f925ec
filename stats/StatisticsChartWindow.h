#pragma once
// The statistics chart window (Form15): the chart of the model's series in
// the middle, the info line Label1 and the three regression boxes Text1(0..2)
// below it, and the menus of kinds, data, options, colours and file. Every
// menu goes to the ChartModel (stats/ChartModel.h); the window then redraws:
// 2D kinds with a Qt Charts view, 3D kinds with a Qt Data Visualization graph
// in a window container. Where no OpenGL context can be had, a 3D kind falls
// back to its 2D kind and Label1 says so.
//
// Other modules do not include this header: they call showChart()
// (shell/ChartWindowRequest.h), which opens this window and hands over their
// series; the calculator's graficoest does the same with its store.
#include <QMainWindow>
#include <array>
#include <functional>

#include "stats/ChartModel.h"

class QAbstract3DGraph;
class QActionGroup;
class QChartView;
class QLabel;
class QLineEdit;
class QMenu;
class QPrinter;
class QStackedWidget;

class StatisticsChartWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit StatisticsChartWindow(QWidget* parent = nullptr);
  ~StatisticsChartWindow() override;

  ChartModel& model() { return model_; }
  // Takes another module's series (showChart's receiver).
  void showData(const ChartData& data);
  // Redraws the chart and the texts from the model.
  void refresh();
  // The chart control as drawn, size pixels.
  QImage chartImage(const QSize& size);
  bool printTo(QPrinter& printer);
  // Whether the chart on show is a 3D graph (false after a fall back).
  bool showing3D() const;

 public Q_SLOTS:
  // For the screenshot tour: "xy", "bars", "area", "pie", "steps", "bars3d".
  void showScreenshotState(const QString& state);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void buildMenus();
  QMenu* addMenu(const QString& name, int captionId);
  QAction* addItem(QMenu* menu, const QString& name, const QString& caption, std::function<void()> handler,
                   QActionGroup* group = nullptr);
  void act(const std::function<void()>& handler);
  void connectReadout();
  void chooseColour(double& target, bool* own = nullptr);
  void savePng();
  void print();

  ChartModel model_;
  QStackedWidget* stack_ = nullptr;
  QChartView* chartView_ = nullptr;
  QWidget* graphHolder_ = nullptr;
  QAbstract3DGraph* graph_ = nullptr;
  QWidget* graphContainer_ = nullptr;
  QLabel* Label1 = nullptr;
  std::array<QLineEdit*, 3> Text1{};
  std::array<QAction*, 14> tipo{};
  std::array<QAction*, 3> seriesdata{};
};
