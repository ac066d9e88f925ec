#pragma once
// Dates of the classic runtime: a 64-bit float of whole days since
// 30 December 1899, the fraction being the time of day. Negative serials
// count back, with the fraction still meaning the time forward from midnight
// (-1.25 is 29 December 1899, 06:00).
#include <QDateTime>
#include <QString>

namespace rt {

double DateSerial(int year, int month, int day);  // month/day may overflow and roll, as the runtime does
double TimeSerial(int hour, int minute, int second);
double fromQDateTime(const QDateTime& dt);
QDateTime toQDateTime(double serial);
QDate toQDate(double serial);

int Year(double d);
int Month(double d);
int Day(double d);
int Weekday(double d);  // 1 Sunday .. 7 Saturday
int Hour(double d);
int Minute(double d);
int Second(double d);

// Intervals "yyyy", "q", "m", "y", "d", "w", "ww", "h", "n", "s"; an unknown
// interval is error 5.
double DateAdd(const QString& interval, double number, double date);
double DateDiff(const QString& interval, double date1, double date2);

// The clock. Tests may pin it with setClockForTesting.
double Now();
double Today();
double Timer();  // seconds since midnight
void setClockForTesting(const QDateTime& fixed);  // invalid QDateTime: back to the real clock

// Reads "dd/mm/yyyy" (and "yyyy-mm-dd", with an optional time) into a serial;
// error 13 when it is not a date.
double DateValue(const QString& text);

}  // namespace rt
