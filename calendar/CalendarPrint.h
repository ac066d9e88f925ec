#pragma once
// The calendar's three printouts as text documents in "Arial": the month
// (imprecal), the information about the selected date (PrintFecha) and the
// events list (imprimeLista). Dates print as "d-mmmm-yy" and months as
// "mmmm-yy".
#include "shell/Printing.h"

namespace calendar {
class CalendarModel;

PrintDocument monthDocument(const CalendarModel& model);
PrintDocument dateDocument(const CalendarModel& model);
PrintDocument eventsDocument(const CalendarModel& model);

// PrintFecha: shows string 278 and prints nothing when no line of
// information besides the header is switched on. True when printed.
bool PrintFecha_Click(const CalendarModel& model);
bool imprecal_Click(const CalendarModel& model);
bool imprimeLista_Click(const CalendarModel& model);

}  // namespace calendar
