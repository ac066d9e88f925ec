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

PrintDocument monthDocument(const CalendarModel& model) {
  PrintDocument doc(Res(301));
  title(doc, Res(301) + QStringLiteral("  -  ") +
                 rt::FormatDate(rt::DateSerial(model.year(), model.month(), 1), QStringLiteral("mmmm-yy")));
  doc.setFont(kArial, 10, true);
  if (model.showWeekNumbers) doc.printAt(6, QStringLiteral("#"));
  const QStringList headers = model.dayHeaders();
  for (int c = 0; c < 7; ++c) doc.printAt(12 + c * 8, headers.at(c));
  doc.endLine();
  doc.setFont(kArial, 10);
  const auto dates = model.gridDates();
  for (int r = 0; r < 6; ++r) {
    if (!model.rowInMonth(r)) continue;
    if (model.showWeekNumbers) doc.printAt(6, QString::number(model.rowWeek(r)));
    for (int c = 0; c < 7; ++c) {
      const double d = dates[static_cast<size_t>(r * 7 + c)];
      if (rt::Month(d) == model.month()) doc.printAt(12 + c * 8, QString::number(rt::Day(d)));
    }
    doc.endLine();
  }
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
  if (model.panelRows().size() <= 1) {
    MBoxShow(3, Res(278), 3, 0, 0, Res(301));
    return false;
  }
  return printDocument(dateDocument(model));
}

bool imprecal_Click(const CalendarModel& model) { return printDocument(monthDocument(model)); }

bool imprimeLista_Click(const CalendarModel& model) { return printDocument(eventsDocument(model)); }

}  // namespace calendar
