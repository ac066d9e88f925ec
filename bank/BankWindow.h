#pragma once
// The banking window: the operation's boxes with the key pad and its
// display on the left, the buttons and results below them, the table
// Bancolist and the early repayment's report on the right, and the menus
// (file, kind of operation, loan solving, decimals). Every event goes to the
// BankModel; the window then repaints from its fields.
#include <QMainWindow>

#include "bank/BankModel.h"

class QAction;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QRadioButton;
class QTableView;
class BankTableModel;

class BankWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit BankWindow(QWidget* parent = nullptr);
  ~BankWindow() override;

  BankModel& model() { return model_; }
  // Opens a banking file as its Open item does after the file dialog.
  Q_INVOKABLE bool openDocument(const QString& path);
  void refresh();

 public Q_SLOTS:
  // For the screenshot tour: "loan" computes a loan, "savings" a savings
  // plan, "repay" a loan with an early repayment.
  void showScreenshotState(const QString& state);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* buildInputs();
  QWidget* buildKeypad();
  QWidget* buildButtons();
  QWidget* buildResults();
  QWidget* buildTable();
  void buildMenus();
  template <typename Handler>
  void act(Handler&& handler);
  void boxEdited(int index);
  void sumSelection();
  void showTableChart();
  void print(bool withTables);
  QString askFileName(const BankModel::FileDialogRequest& request);

  BankModel model_;
  BankTableModel* tableModel_ = nullptr;
  // Controls under their model names.
  QLabel* heading = nullptr;
  QLineEdit* numero = nullptr;
  QLineEdit* boxes_[BankModel::kBoxCount] = {};
  QLabel* boxLabels_[BankModel::kBoxCount] = {};
  QRadioButton* Option1 = nullptr;
  QRadioButton* Option2 = nullptr;
  QPushButton* Command1[10] = {};
  QPushButton* Command2 = nullptr;
  QPushButton* Command13[2] = {};
  QPushButton* Command7 = nullptr;
  QPushButton* Command9 = nullptr;
  QPushButton* Command14 = nullptr;
  QPushButton* Command15 = nullptr;
  QPushButton* Command = nullptr;  // the chart
  QLabel* mensual = nullptr;
  QLabel* total = nullptr;
  QLabel* intereses = nullptr;
  QLabel* Label731 = nullptr;  // "choose the month" while an early repayment waits for a row
  QTableView* Bancolist = nullptr;
  QPlainTextEdit* report = nullptr;
  QAction* tipoActions_[3] = {};
  QAction* decimalActions_[3] = {};
  bool refreshing_ = false;
  bool destroying_ = false;
};
