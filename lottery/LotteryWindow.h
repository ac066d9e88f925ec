#pragma once
// The lottery window: the board of 49 numbers (or, in its place, the list of
// selected bets), the size buttons and the select/cancel/analyse/stop buttons
// below it, the probability texts on the right, and the menus (file, edit,
// options, draw type). Every event goes to the LotteryModel; the window then
// repaints from its fields. An analysis runs in the model and yields to the
// event loop every few hundred draws, so Command2 can stop it.
#include <QMainWindow>
#include <array>

#include "lottery/LotteryModel.h"

class QAction;
class QLabel;
class QProgressBar;
class QPushButton;
class QStackedWidget;
class QTableWidget;

class LotteryWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit LotteryWindow(QWidget* parent = nullptr);

  LotteryModel& model() { return model_; }
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
  QTableWidget* MSFlexGrid1 = nullptr;
  QProgressBar* ProgressBar1 = nullptr;
  std::array<QAction*, 6> pref1{};
  std::array<QAction*, 4> tipoloto{};
  QAction* azarloto = nullptr;
  QAction* manualoto = nullptr;
  QAction* LotoInfoExpress = nullptr;
  QAction* borraapuessel = nullptr;
  QList<QAction*> menuActions_;  // disabled while a preferred list is edited
  bool stop_ = false;
  bool running_ = false;
};
