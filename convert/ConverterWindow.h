#pragma once
// The unit converter's window: the magnitude menu above, the 39 unit buttons
// in three columns, and beside them the chosen units, the factor, the entry
// and the result, the tool buttons and the history list. Every event goes to
// the ConverterModel; the window then repaints from its fields. The model
// reaches the calculator through hooks set here (its display, its opening).
#include <QMainWindow>
#include <array>

#include "convert/ConverterModel.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPushButton;

class ConverterWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit ConverterWindow(QWidget* parent = nullptr);

  ConverterModel& model() { return model_; }
  // Repaints every control from the model.
  void refresh();

 public Q_SLOTS:
  // For the screenshot tour: "long-captions" shows a table of long captions
  // with a conversion, "history" a few conversions with the history open.
  void showScreenshotState(const QString& state);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* buildUnitButtons();
  QWidget* buildSidePanel();
  void buildMenus();
  void addTableItem(QMenu* menu, const QString& item, int captionId);
  QPushButton* toolButton(const QString& name, const QString& caption, int tooltipId);
  void installHooks();
  template <typename Handler>
  void act(Handler&& handler);

  ConverterModel model_;
  // Controls under their model names.
  std::array<QPushButton*, kUnitButtons> Command1{};
  std::array<QPushButton*, 4> Command3{};
  QPushButton* Command2 = nullptr;
  QPushButton* Command4 = nullptr;
  QPushButton* Command6 = nullptr;
  QPushButton* Command7 = nullptr;
  QPushButton* Command8 = nullptr;
  QPushButton* Command9 = nullptr;
  QLabel* Label11 = nullptr;
  QLabel* Label9 = nullptr;
  std::array<QLabel*, 2> Label12{};
  QLabel* Label3 = nullptr;
  QLineEdit* Text2 = nullptr;
  QLineEdit* Text4 = nullptr;
  QListWidget* List1 = nullptr;
  bool refreshing_ = false;
};
