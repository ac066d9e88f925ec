#include "calendar/CalendarPrint.h"

#include "calendar/CalendarModel.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"

namespace calendar {

namespace {

const QString kArial = QStringLiteral("Arial");

void title(PrintDocument& doc, const QString& text) {
  doc.setFont(kArial, 14, true);
  doc.line(6, text);
  doc.setFont(kArial, 10);
  doc.emptyLines();
}

}  // namespace

namespace {

constexpr std::uint32_t kGrey = 0x808080;
constexpr std::uint32_t kSunday = 0xC00000;
constexpr std::uint32_t kEventDay = 0x900000;

}  // namespace

PrintDocument monthDocument(const CalendarModel& model, bool inColour) {
  auto ink = [inColour](std::uint32_t rgb) { return inColour ? rgb : 0u; };
  PrintDocument doc(Res(301));
  doc.setColour(ink(calendarColour(1, 0x8080C0)));
  title(doc, Res(301) + QStringLiteral("  -  ") +
                 rt::FormatDate(rt::DateSerial(model.year(), model.month(), 1), QStringLiteral("mmmm-yy")));
  doc.setFont(kArial, 10, true);
  doc.setColour(ink(kGrey));
  if (model.showWeekNumbers) doc.printAt(6, QStringLiteral("#"));
  const QStringList headers = model.dayHeaders();
  for (int c = 0; c < 7; ++c) {
    const int weekday = (model.firstWeekday - 1 + c) % 7 + 1;  // 1 Sunday
    doc.setColour(ink(weekday == 1 ? kSunday : calendarColour(3, 0)));
    doc.printAt(12 + c * 8, headers.at(c));
  }
  doc.endLine();
  QStringList eventDays;
  if (inColour)
    for (const QString& line : model.events.events()) eventDays << line.left(5);
  const auto dates = model.gridDates();
  for (int r = 0; r < 6; ++r) {
    if (!model.rowInMonth(r)) continue;
    doc.setFont(kArial, 10);
    doc.setColour(ink(kGrey));
    if (model.showWeekNumbers) doc.printAt(6, QString::number(model.rowWeek(r)));
    for (int c = 0; c < 7; ++c) {
      const double d = dates[static_cast<size_t>(r * 7 + c)];
      if (rt::Month(d) != model.month()) continue;
      const bool event = eventDays.contains(eventKey(d));
      doc.setFont(kArial, 10, event);
      doc.setColour(ink(event ? kEventDay : rt::Weekday(d) == 1 ? kSunday : calendarColour(3, 0)));
      doc.printAt(12 + c * 8, QString::number(rt::Day(d)));
    }
    doc.endLine();
  }
  doc.setColour(0);
  return doc;
}

PrintDocument dateDocument(const CalendarModel& model) {
  PrintDocument doc(Res(277));
  title(doc, Res(277) + QStringLiteral("  -  ") + rt::FormatDate(model.selected(), QStringLiteral("d-mmmm-yy")));
  for (const auto& [label, value] : model.panelRows()) {
    doc.printAt(6, label);
    doc.printAt(28, value);
    doc.endLine();
  }
  return doc;
}

PrintDocument eventsDocument(const CalendarModel& model) {
  PrintDocument doc(Res(252));
  title(doc, Res(252) + QStringLiteral("  -  ") + rt::FormatDate(model.selected(), QStringLiteral("d-mmmm-yy")));
  const QStringList lines = model.events.List1();
  if (lines.isEmpty()) doc.line(6, Res(281));
  for (const QString& line : lines) doc.line(6, line);
  return doc;
}

bool PrintFecha_Click(const CalendarModel& model) {
  if (model.panelRows().empty()) {
    MBoxShow(3, Res(278), 3, 0, 0, Res(301));
    return false;
  }
  return printDocument(dateDocument(model));
}

bool imprecal_Click(const CalendarModel& model, int index) { return printDocument(monthDocument(model, index == 1)); }

bool imprimeLista_Click(const CalendarModel& model) { return printDocument(eventsDocument(model)); }

}  // namespace calendar
