#pragma once
// Form4, the calendar window. The model (CalendarModel: month grid, selected
// date, panel rows, events list, saints) holds the state; this view builds the
// month grid MonthView1 with its week column, the information panel
// MSFlexGrid1 in Frame1 with the moon (Picture2) and zodiac (Picture4)
// pictures drawn here, the events list List1 with its view selector, the
// menus, and the year view.
#include <QMainWindow>
#include <memory>

#include "calendar/CalendarModel.h"

class QAction;
class QComboBox;
class QGroupBox;
class QLabel;
class QListWidget;
class QMenu;
class QTableWidget;

class CalendarWindow : public QMainWindow {
  Q_OBJECT

 public:
  explicit CalendarWindow(QWidget* parent = nullptr);
  ~CalendarWindow() override;

  calendar::CalendarModel& model() { return *model_; }
  // Opens an events file as FileAbre does, the file dialog answered with path.
  Q_INVOKABLE bool openDocument(const QString& path);
  // Repaints the grid, the panel and the list from the model.
  void refresh();
  // The year view (calano) of the selected year; it closes on a right-click.
  QWidget* calano_Click();

  // Pictures drawn by the program: the moon by its picture index (1..31),
  // the zodiac sign by its index (0 Capricorn .. 11 Sagittarius).
  static QPixmap moonPicture(int picture, int size);
  static QPixmap zodiacPicture(int sign, int size);

 public Q_SLOTS:
  // For the screenshot tour: "events", "info", "operations", "year".
  void showScreenshotState(const QString& state);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void buildMenus();
  void fillMonth(QTableWidget* grid, int year, int month, bool full) const;
  void cellClicked(int row, int column, bool twice);
  // DefRemainder: the date message writes date 1 or 2 of "FECHAS CALENDARIO".
  void defineDate(int which);
  void UserColor_Click();
  void fileAction(bool (calendar::EventList::*handler)());
  QString fileDialog(const calendar::EventList::FileDialogRequest& request);

  std::unique_ptr<calendar::CalendarModel> model_;
  QLabel* monthLabel = nullptr;
  QTableWidget* MonthView1 = nullptr;
  QGroupBox* Frame1 = nullptr;
  QTableWidget* MSFlexGrid1 = nullptr;
  QLabel* Picture2 = nullptr;
  QLabel* Picture4 = nullptr;
  QListWidget* List1 = nullptr;
  QComboBox* viewCombo = nullptr;
  QLabel* forDate = nullptr;
  QGroupBox* eventsBox = nullptr;
  QAction* calhoy = nullptr;
  QAction* Events = nullptr;
  QAction* MostSem = nullptr;
  QAction* Moon = nullptr;
  QAction* horoscopo = nullptr;
};
