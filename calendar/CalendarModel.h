#pragma once
// The calendar window's state without its widgets: the month shown, the
// selected date, the first weekday of the grid, the panel's switches, the
// events list and the saints' table. The month grid is six rows of seven
// days from the row holding the 1st; each row's week number counts from the
// week holding 1 January, not ISO weeks.
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "calendar/EventList.h"
#include "calendar/SaintsTable.h"

namespace calendar {

// "CALENDARIO color " n (1 to 6) as 0xRRGGBB (the setting keeps red in the
// low byte); fallback when the setting is empty.
std::uint32_t calendarColour(int n, std::uint32_t fallback);

// SysDate: starts the desktop's date and time settings; where the desktop has
// none, tells the system's date and time in a message. True when a settings
// program started.
bool SysDate_Click();

class CalendarModel {
 public:
  CalendarModel();

  EventList events;
  SaintsTable saints;

  double selected() const { return selected_; }
  void select(double date);  // also shows its month
  int year() const { return year_; }
  int month() const { return month_; }
  void showMonth(int year, int month);
  void stepMonth(int delta);

  // 1 Sunday .. 7 Saturday, as diasemana(1..7).
  int firstWeekday = 2;
  bool showWeekNumbers = true;

  // The 42 dates of the grid, row by row, from the first weekday on or
  // before the 1st. A row's week number counts weeks that begin on the
  // grid's first weekday, week 1 holding 1 January, taken at the row's first
  // day in the shown month (so the info panel's Sunday weeks agree with it
  // when the grid starts on Sunday).
  std::array<double, 42> gridDates() const;
  int rowWeek(int row) const;
  bool rowInMonth(int row) const;
  // Short day names of the header in the grid's order ("lu", "ma", ...).
  QStringList dayHeaders() const;

  // The information panel, one (label, value) row per line switched on:
  // the header, the two countdowns, the saints, the moon and the zodiac.
  std::vector<std::pair<QString, QString>> panelRows() const;

  // The events of the selected date changed: the list's date follows.
  void syncEvents() { events.select(selected_); }

 private:
  double selected_ = 0;
  int year_ = 2000;
  int month_ = 1;
};

}  // namespace calendar
