#include "calendar/CalendarModel.h"

#include <QLocale>
#include <cmath>

#include "calendar/DateInfo.h"
#include "shell/MessageService.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/SystemLocale.h"

namespace calendar {

CalendarModel::CalendarModel() { select(std::floor(rt::Today())); }

void CalendarModel::select(double date) {
  selected_ = std::floor(date);
  year_ = rt::Year(selected_);
  month_ = rt::Month(selected_);
  events.select(selected_);
}

void CalendarModel::showMonth(int year, int month) {
  year_ = year;
  month_ = month;
}

void CalendarModel::stepMonth(int delta) {
  const double first = rt::DateSerial(year_, month_ + delta, 1);
  year_ = rt::Year(first);
  month_ = rt::Month(first);
}

std::array<double, 42> CalendarModel::gridDates() const {
  const double first = rt::DateSerial(year_, month_, 1);
  const int back = (rt::Weekday(first) - firstWeekday + 7) % 7;
  std::array<double, 42> dates{};
  for (int i = 0; i < 42; ++i) dates[static_cast<size_t>(i)] = first - back + i;
  return dates;
}

int CalendarModel::rowWeek(int row) const {
  const auto dates = gridDates();
  // The row's first day in the shown month; a row wholly outside it goes by
  // its own first day.
  double day = dates[static_cast<size_t>(row * 7)];
  for (int c = 0; c < 7; ++c) {
    const double d = dates[static_cast<size_t>(row * 7 + c)];
    if (rt::Month(d) == month_ && rt::Year(d) == year_) {
      day = d;
      break;
    }
  }
  // Weeks begin on the grid's first weekday, so each row is one week; week 1
  // holds 1 January.
  auto weekStart = [this](double d) { return d - (rt::Weekday(d) - firstWeekday + 7) % 7; };
  const double jan1 = rt::DateSerial(rt::Year(day), 1, 1);
  return static_cast<int>((weekStart(day) - weekStart(jan1)) / 7) + 1;
}

bool CalendarModel::rowInMonth(int row) const {
  const auto dates = gridDates();
  for (int c = 0; c < 7; ++c)
    if (rt::Month(dates[static_cast<size_t>(row * 7 + c)]) == month_) return true;
  return false;
}

QStringList CalendarModel::dayHeaders() const {
  QStringList headers;
  const QLocale& loc = rt::systemConventions().locale;
  for (int i = 0; i < 7; ++i) {
    const int weekday = (firstWeekday - 1 + i) % 7 + 1;  // 1 Sunday
    headers << loc.dayName(weekday == 1 ? 7 : weekday - 1, QLocale::ShortFormat);
  }
  return headers;
}

bool SysDate_Click() {
  // GNOME's and KDE's date and time panels.
  const std::pair<const char*, const char*> programs[] = {{"gnome-control-center", "datetime"}, {"kcmshell5", "clock"}};
  for (const auto& [program, argument] : programs)
    if (platform().runCommand(QString::fromLatin1(program), {QString::fromLatin1(argument)})) return true;
  const double now = rt::Now();
  MBoxShow(3, rt::FormatDate(now, QStringLiteral("Long Date")) + QStringLiteral("  ") + rt::FormatDate(now, QStringLiteral("Long Time")), 3, 0, 0,
           Res(251));
  return false;
}

std::uint32_t calendarColour(int n, std::uint32_t fallback) {
  const rt::Variant& v = program().CalendarColours[static_cast<size_t>(n)];
  if (v.isEmpty()) return fallback;
  const auto bgr = static_cast<std::uint32_t>(v.toDouble());
  return ((bgr & 0xFFu) << 16) | (bgr & 0xFF00u) | ((bgr >> 16) & 0xFFu);
}

std::vector<std::pair<QString, QString>> CalendarModel::panelRows() const {
  const ProgramState& p = program();
  std::vector<std::pair<QString, QString>> rows;
  if (p.CalendarInfo[1]) rows.emplace_back(Res(3766), headerLine(selected_));
  if (p.CalendarInfo[2]) {
    for (int i = 0; i < 2; ++i) {
      const double stored = p.CalendarDates[static_cast<size_t>(i)];
      rows.emplace_back(Res(340 + i), remainingLine(selected_, stored == 0 ? std::nullopt : std::optional(stored)));
    }
  }
  if (p.CalendarInfo[3]) rows.emplace_back(Res(307), saints.saintsOf(selected_));
  if (p.CalendarInfo[4]) {
    const MoonPhase moon = moonPhase(selected_);
    rows.emplace_back(Res(375), moonLine(moon).mid(Res(375).size() + 2));
  }
  if (p.CalendarInfo[5]) rows.emplace_back(Res(385), zodiacName(selected_));
  return rows;
}

}  // namespace calendar
