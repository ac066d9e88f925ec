#pragma once
// The CSV conversion tool's window (FormCSV): the input file and its head,
// the input and output separators with the two presets and the detection,
// the output file, the preview grid with its column choice, and the import
// buttons. Every event goes to the CsvToolModel; the window repaints from it.
#include <QWidget>
#include <array>

#include "stats/CsvToolModel.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QTableView;
class CsvGridModel;

class CsvToolWindow : public QWidget {
  Q_OBJECT

 public:
  explicit CsvToolWindow(QWidget* parent = nullptr);
  ~CsvToolWindow() override;

  CsvToolModel& model() { return model_; }
  void refresh();
  // The pop-up of a grid column: take it as X (0), as Y (1) or clear (2).
  void chooseColumn(int column, int index);

 public Q_SLOTS:
  // For the screenshot tour: "preview" converts a sample file.
  void showScreenshotState(const QString& state);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  template <typename Handler>
  void act(Handler&& handler);
  void comboChanged();

  CsvToolModel model_;
  CsvGridModel* gridModel_ = nullptr;
  bool refreshing_ = false;
  QPushButton* Command1 = nullptr;
  QPushButton* Command2 = nullptr;
  std::array<QPushButton*, 2> Command3{};
  QPushButton* Command4 = nullptr;
  QPushButton* Command5 = nullptr;
  QPushButton* Command6 = nullptr;
  QLabel* Label1 = nullptr;
  QLabel* Label3 = nullptr;
  QLabel* Label4 = nullptr;
  std::array<QLabel*, 2> Label5{};
  QLabel* Image3 = nullptr;
  QPlainTextEdit* Text1 = nullptr;
  std::array<QComboBox*, 2> Combo1{};
  std::array<QComboBox*, 2> Combo2{};
  QCheckBox* Check1 = nullptr;
  QTableView* MSFlexGrid1 = nullptr;
  QMenu* flexcolX = nullptr;
};
