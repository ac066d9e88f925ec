// The month grid: where it starts for each first weekday, and its week
// numbers counted from the week holding 1 January (not ISO weeks); the
// panel's rows follow the switches.
#include "calendar/CalendarModel.h"
#include "shell/runtime/DateTime.h"
#include "tests/support/TestSupport.h"

using calendar::CalendarModel;

namespace {
double serial(int y, int m, int d) { return rt::DateSerial(y, m, d); }
class CalendarModelTest : public CalvixTest {};
}  // namespace

TEST_F(CalendarModelTest, GridStartsOnTheChosenWeekdayAndNumbersWeeksFrom1January) {
  struct Row {
    int year, month, firstWeekday;
    double firstCell;
    int week0, week1, week5;
  } rows[] = {
      {2024, 3, 2, serial(2024, 2, 26), 9, 10, 14},   // Monday grid
      {2024, 3, 1, serial(2024, 2, 25), 9, 10, 14},   // Sunday grid
      {2021, 1, 2, serial(2020, 12, 28), 1, 2, 6},    // ISO would call the first row week 53
      {2000, 1, 1, serial(1999, 12, 26), 1, 2, 6},    // 1 January on a Saturday
      {2000, 1, 7, serial(2000, 1, 1), 1, 2, 6},      // Saturday grid: the 1st opens it
      {2023, 12, 2, serial(2023, 11, 27), 49, 50, 1},  // 1 January 2023, a Sunday, is week 1 alone; the last row is 2024
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(r.year * 100 + r.month);
    CalendarModel m;
    m.firstWeekday = r.firstWeekday;
    m.showMonth(r.year, r.month);
    EXPECT_EQ(m.gridDates()[0], r.firstCell);
    EXPECT_EQ(m.gridDates()[41], r.firstCell + 41);
    EXPECT_EQ(m.rowWeek(0), r.week0);
    EXPECT_EQ(m.rowWeek(1), r.week1);
    EXPECT_EQ(m.rowWeek(5), r.week5);
  }
  CalendarModel m;
  m.showMonth(2024, 2);  // Monday grid: the last row lies wholly in March
  EXPECT_TRUE(m.rowInMonth(4));
  EXPECT_FALSE(m.rowInMonth(5));
  m.stepMonth(11);
  EXPECT_EQ(m.year(), 2025);
  EXPECT_EQ(m.month(), 1);
}

TEST_F(CalendarModelTest, PanelRowsFollowTheSwitches) {
  CalendarModel m;
  m.select(serial(2024, 3, 19));
  program().CalendarInfo = {false, true, false, false, false, false};
  EXPECT_EQ(m.panelRows().size(), 1u);
  program().CalendarInfo = {false, true, true, false, true, true};
  const auto rows = m.panelRows();
  ASSERT_EQ(rows.size(), 5u);
  EXPECT_EQ(rows[1].second, QStringLiteral("No Definida."));
  EXPECT_EQ(rows[3].first, QStringLiteral("Fase Lunar"));
  EXPECT_EQ(rows[4].second, QStringLiteral("Piscis"));
}
