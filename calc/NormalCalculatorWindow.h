#pragma once
// The normal calculator's window (comand2): the display (func, numero,
// result, the VAT rate), the format keys with dcm and redond, the four
// memories and the register keys, the VAT and currency row, the function
// row and the number keypad, all chameleon buttons built from
// NormalCalculatorKeys, and the history list Combo1 below. Every key and
// keyboard stroke goes to the NormalCalculatorModel; the view repaints from
// its engine's fields. The menu "Ver" trades this window for the scientific
// one (cientificacalc), prints the history and opens About; Shift+F10 opens
// it where the focus is.
#include <QHash>
#include <QMainWindow>

#include "calc/NormalCalculatorModel.h"
#include "shell/WindowRegistry.h"

class ChameleonButtonWidget;
class HistoryListView;
class QLabel;
class QLineEdit;
class QMenu;
class QKeyEvent;

class NormalCalculatorWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit NormalCalculatorWindow(QWidget* parent = nullptr);
  ~NormalCalculatorWindow() override;

  NormalCalculatorModel& model() { return model_; }
  void refresh();
  ChameleonButtonWidget* keyButton(const QString& control, int index = -1) const;
  // Captions and tooltips from the string table, in the language in use.
  void loadCaptions();

 public Q_SLOTS:
  // The screenshot tour's extra state: "history" shows a few sums done.
  void showScreenshotState(const QString& state);

 protected:
  void showEvent(QShowEvent* event) override;
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* buildDisplay();
  QWidget* buildKeys(int panel, QWidget* parent);
  QWidget* buildMemories();
  void buildMenu();
  void afterEvent();
  bool takeKey(QKeyEvent* event);
  void refreshHistory();

  NormalCalculatorModel model_;
  QLineEdit* numero = nullptr;
  QLineEdit* result = nullptr;
  QLineEdit* func = nullptr;
  QLineEdit* dcm = nullptr;
  QLineEdit* redond = nullptr;
  QLineEdit* ivas = nullptr;
  QList<QLineEdit*> m1;
  HistoryListView* Combo1 = nullptr;
  QLabel* historyPanel_ = nullptr;
  QLabel* currencyPanel_ = nullptr;
  QLabel* dcmLabel_ = nullptr;
  QLabel* redondLabel_ = nullptr;
  QLabel* registersLabel_ = nullptr;
  QMenu* ver_ = nullptr;  // the window's menu
  QHash<QString, ChameleonButtonWidget*> keys_;
  int shownHistory_ = 0;
  int shownClears_ = 0;
  bool unloaded_ = false;
  bool placed_ = false;
};

// The menu items normalcalc and cientificacalc: the mode word for `target`,
// the calculator window `current` closed (unloaded), the other shown.
void SwitchCalculatorWindow(QWidget* current, WindowId target);
