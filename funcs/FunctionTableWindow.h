#pragma once
// The function table's window (frmMain): the formula and interval boxes and
// the buttons above, the grid MSFlexGrid1 below, the menus, and a status bar
// that shows the progress of a long table. Every event goes to the
// FunctionTable model; the window then repaints from its fields. A table is
// worked out in slices from the event loop, so a long one keeps the window
// alive; Esc (or the status bar's Cancel) stops it with the rows done.
#include <QMainWindow>

#include "funcs/FunctionTable.h"

class FunctionGridView;
class QAction;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QToolButton;

class FunctionTableWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit FunctionTableWindow(QWidget* parent = nullptr);
  ~FunctionTableWindow() override;

  FunctionTable& table() { return table_; }
  // Opens a *.evl file as mnuabre does after its file dialog.
  Q_INVOKABLE bool openDocument(const QString& path);
  // Repaints every control from the model.
  void refresh();

 public Q_SLOTS:
  // For the screenshot tour: "function" evaluates the default table with
  // G(x), "expression" shows a few expressions, "edit" turns edit mode on.
  void showScreenshotState(const QString& state);

 protected:
  void changeEvent(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void buildInputs(QHBoxLayout* row);
  QWidget* buildButtons();
  void buildMenus();
  void buildStatusBar();
  void installHooks();
  QLineEdit* addBox(const QString& name, int tooltipId);
  // Runs a handler, then drives a table it began and repaints.
  template <typename Handler>
  void act(Handler&& handler);
  void runSlice();
  void finishRun();
  bool filterBoxKey(QLineEdit* box, QKeyEvent* event);
  bool gridKey(QKeyEvent* event);
  void copySelectedCells();
  void boxLeft(QObject* box);
  void takeText(QObject* box);
  void updatePrintRows();
  void importCsv();
  QString askFileName(const FunctionTable::FileDialogRequest& request);

  FunctionTable table_;
  // Controls under their model names.
  QLabel* fLabel = nullptr;
  QLineEdit* txtExpression = nullptr;
  QLineEdit* Text2 = nullptr;
  QLineEdit* txtVariables = nullptr;
  QLineEdit* txtStart = nullptr;
  QLineEdit* txtEnd = nullptr;
  QComboBox* Combo2 = nullptr;
  QLineEdit* Text1 = nullptr;
  QCheckBox* Check1 = nullptr;
  QCheckBox* chkLoop = nullptr;
  QCheckBox* chkVariables = nullptr;
  QRadioButton* Option1[2] = {nullptr, nullptr};
  QPushButton* cmdResult = nullptr;
  QPushButton* cmdClear = nullptr;
  QPushButton* plot = nullptr;
  QPushButton* Command1 = nullptr;
  QPushButton* Command2 = nullptr;
  QPushButton* Command3 = nullptr;
  QLabel* Label1 = nullptr;
  QLabel* Label3 = nullptr;
  QLabel* Image4[2] = {nullptr, nullptr};
  FunctionGridView* MSFlexGrid1 = nullptr;
  QAction* mnufunc = nullptr;
  QAction* mnuexpr = nullptr;
  QList<QWidget*> inputs_;  // disabled while a table is worked out
  QList<QAction*> menuActions_;
  QProgressBar* progress_ = nullptr;
  QLabel* progressText_ = nullptr;
  QToolButton* stop_ = nullptr;
  QLabel* pointsText_ = nullptr;
  int sliceRows_ = 2000;
  bool refreshing_ = false;
  bool unloaded_ = false;
  bool destroying_ = false;
};
