#pragma once
// The calendar's three printouts as text documents in "Arial": the month
// (imprecal), the information about the selected date (PrintFecha) and the
// events list (imprimeLista). Dates print as "d-mmmm-yy" and months as
// "mmmm-yy".
#include "shell/Printing.h"

namespace calendar {
class CalendarModel;

// The month in black and white, or in the calendar's colours: the title in
// the title's background colour, the days in the day colour, Sundays in red
// and days with events in bold dark red, as the month view shows them.
PrintDocument monthDocument(const CalendarModel& model, bool inColour = false);
PrintDocument dateDocument(const CalendarModel& model);
PrintDocument eventsDocument(const CalendarModel& model);

// PrintFecha: shows string 278 and prints nothing when no line of
// information is switched on. True when printed.
bool PrintFecha_Click(const CalendarModel& model);
// imprecal(0) black and white, imprecal(1) colour.
bool imprecal_Click(const CalendarModel& model, int index = 0);
bool imprimeLista_Click(const CalendarModel& model);

}  // namespace calendar
