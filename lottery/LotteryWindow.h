#pragma once
// The lottery window: the board of 49 numbers (or, in its place, the list of
// selected bets), the size buttons and the select/cancel/analyse/stop buttons
// below it, the probability texts on the right, and the menus (file, edit,
// options, statistics). Every event goes to the LotteryModel; the window then
// repaints from its fields. In place of the board the viewer shows the draw
// grid MSFlexGrid1(0) or the selected bets MSFlexGrid1(1), beside the
// frequency list MSFlexGrid1(2). Long work (analysis, automatic mode, draw
// statistics) runs in the model and yields to the event loop every few tens of
// milliseconds, so Command2 can stop it. Frequency charts go to the shell's
// chart window when the program has one.
#include <QMainWindow>
#include <array>
#include <functional>

#include "lottery/LotteryModel.h"

class QAction;
class QLabel;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTableView;
class QTableWidget;
class DrawGridModel;

class LotteryWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit LotteryWindow(QWidget* parent = nullptr);

  LotteryModel& model() { return model_; }
  // Opens a *.lot file as abrirloto does after its file dialog.
  Q_INVOKABLE bool openDocument(const QString& path);
  void refresh();

 public Q_SLOTS:
  // For the screenshot tour: "multiple" marks a 9-number bet, "report"
  // analyses it and leaves the report open.
  void showScreenshotState(const QString& state);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* buildBoard();
  QWidget* buildTexts();
  void buildMenus();
  template <typename Handler>
  void act(Handler&& handler);
  void analyse(bool allRows);
  // Runs long work with the progress bar and Command2; true unless stopped.
  void runLong(const std::function<void()>& work);
  void openChart();
  void showTen(int index, bool withComplementary);
  void showReport();
  QString askFileName(const LotteryModel::FileDialogRequest& request);

  LotteryModel model_;
  QStackedWidget* stack_ = nullptr;
  std::array<QPushButton*, 49> Label10{};
  std::array<QPushButton*, 7> Command1{};
  QPushButton* Command9 = nullptr;
  QPushButton* Command11 = nullptr;
  QPushButton* Command6 = nullptr;
  QPushButton* Command2 = nullptr;
  std::array<QLabel*, 8> texts_{};
  std::array<QLabel*, 2> Label1{};
  QLabel* Label7 = nullptr;
  QLabel* Label8 = nullptr;
  QLabel* Label9 = nullptr;
  QTableWidget* MSFlexGrid1 = nullptr;   // MSFlexGrid1(1), the selected bets
  QTableView* MSFlexGrid0 = nullptr;     // MSFlexGrid1(0), the draws
  QTableWidget* MSFlexGrid2 = nullptr;   // MSFlexGrid1(2), the frequencies
  DrawGridModel* drawGrid_ = nullptr;
  QLabel* Label9_1 = nullptr;
  QProgressBar* ProgressBar1 = nullptr;
  std::array<QAction*, 6> pref1{};
  std::array<QAction*, 4> tipoloto{};
  QAction* azarloto = nullptr;
  QAction* manualoto = nullptr;
  QAction* modoauto = nullptr;
  QAction* LotoInfoExpress = nullptr;
  QAction* borraapuessel = nullptr;
  QList<QAction*> menuActions_;  // disabled while a preferred list is edited
  bool stop_ = false;
  bool running_ = false;
};
