#include "shell/runtime/DateTime.h"

#include <QRegularExpression>
#include <cmath>

#include "shell/runtime/RuntimeError.h"

namespace rt {

namespace {

const qint64 kEpochJulianDay = QDate(1899, 12, 30).toJulianDay();
constexpr qint64 kSecondsPerDay = 86400;

QDateTime g_fixedClock;

// Splits a serial into its day (the integer part, towards zero) and the time
// of day in seconds, rounded to the nearest second as the runtime shows it.
void splitSerial(double serial, qint64& day, qint64& seconds) {
  if (!std::isfinite(serial) || std::fabs(serial) > 3e6) raise(kOverflow);
  day = static_cast<qint64>(std::trunc(serial));
  seconds = std::llround(std::fabs(serial - static_cast<double>(day)) * kSecondsPerDay);
  if (seconds >= kSecondsPerDay) {
    seconds -= kSecondsPerDay;
    day += serial < 0 ? -1 : 1;
  }
}

// Seconds on one continuous scale, for differences and additions of time.
qint64 absoluteSeconds(double serial) {
  qint64 day = 0;
  qint64 seconds = 0;
  splitSerial(serial, day, seconds);
  return day * kSecondsPerDay + seconds;
}

double serialFromAbsoluteSeconds(qint64 s) {
  qint64 day = s >= 0 ? s / kSecondsPerDay : -((-s + kSecondsPerDay - 1) / kSecondsPerDay);
  const qint64 seconds = s - day * kSecondsPerDay;
  const double fraction = static_cast<double>(seconds) / kSecondsPerDay;
  // Before the epoch the fraction still counts forward from midnight.
  return day < 0 && seconds > 0 ? static_cast<double>(day) - fraction : static_cast<double>(day) + fraction;
}

qint64 floorDiv(qint64 a, qint64 b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

double withMonths(double date, int months) {
  const QDateTime dt = toQDateTime(date);
  // QDate::addMonths keeps the day where it can and takes the month's last day otherwise.
  return fromQDateTime(QDateTime(dt.date().addMonths(months), dt.time(), Qt::UTC));
}

}  // namespace

double DateSerial(int year, int month, int day) {
  if (year >= 0 && year <= 29) year += 2000;
  else if (year >= 30 && year <= 99) year += 1900;
  const QDate base(year, 1, 1);
  if (!base.isValid()) raise(kInvalidProcedureCall);
  const QDate d = base.addMonths(month - 1).addDays(day - 1);
  if (!d.isValid() || d.year() < 100 || d.year() > 9999) raise(kInvalidProcedureCall);
  return static_cast<double>(d.toJulianDay() - kEpochJulianDay);
}

double TimeSerial(int hour, int minute, int second) {
  return static_cast<double>(hour * 3600 + minute * 60 + second) / kSecondsPerDay;
}

double fromQDateTime(const QDateTime& dt) {
  const qint64 day = dt.date().toJulianDay() - kEpochJulianDay;
  const qint64 seconds = dt.time().isValid() ? dt.time().msecsSinceStartOfDay() / 1000 : 0;
  return serialFromAbsoluteSeconds(day * kSecondsPerDay + seconds);
}

QDateTime toQDateTime(double serial) {
  qint64 day = 0;
  qint64 seconds = 0;
  splitSerial(serial, day, seconds);
  return QDateTime(QDate::fromJulianDay(kEpochJulianDay + day),
                   QTime::fromMSecsSinceStartOfDay(static_cast<int>(seconds * 1000)), Qt::UTC);
}

QDate toQDate(double serial) { return toQDateTime(serial).date(); }

int Year(double d) { return toQDate(d).year(); }
int Month(double d) { return toQDate(d).month(); }
int Day(double d) { return toQDate(d).day(); }
int Weekday(double d) { return toQDate(d).dayOfWeek() % 7 + 1; }
int Hour(double d) { return toQDateTime(d).time().hour(); }
int Minute(double d) { return toQDateTime(d).time().minute(); }
int Second(double d) { return toQDateTime(d).time().second(); }

double DateAdd(const QString& interval, double number, double date) {
  const QString i = interval.toLower();
  const auto n = static_cast<qint64>(std::trunc(number));
  if (i == QLatin1String("yyyy")) return withMonths(date, static_cast<int>(n * 12));
  if (i == QLatin1String("q")) return withMonths(date, static_cast<int>(n * 3));
  if (i == QLatin1String("m")) return withMonths(date, static_cast<int>(n));
  qint64 step = 0;
  if (i == QLatin1String("y") || i == QLatin1String("d") || i == QLatin1String("w")) step = kSecondsPerDay;
  else if (i == QLatin1String("ww")) step = 7 * kSecondsPerDay;
  else if (i == QLatin1String("h")) step = 3600;
  else if (i == QLatin1String("n")) step = 60;
  else if (i == QLatin1String("s")) step = 1;
  else raise(kInvalidProcedureCall);
  return serialFromAbsoluteSeconds(absoluteSeconds(date) + n * step);
}

double DateDiff(const QString& interval, double date1, double date2) {
  const QString i = interval.toLower();
  const QDate a = toQDate(date1);
  const QDate b = toQDate(date2);
  if (i == QLatin1String("yyyy")) return b.year() - a.year();
  if (i == QLatin1String("q")) return (b.year() - a.year()) * 4 + (b.month() - 1) / 3 - (a.month() - 1) / 3;
  if (i == QLatin1String("m")) return (b.year() - a.year()) * 12 + b.month() - a.month();
  const qint64 days = b.toJulianDay() - a.toJulianDay();
  if (i == QLatin1String("y") || i == QLatin1String("d")) return static_cast<double>(days);
  if (i == QLatin1String("w")) return static_cast<double>(days / 7);
  if (i == QLatin1String("ww")) {
    // Sundays crossed: the difference of the weeks' first days.
    const qint64 sa = a.toJulianDay() - (a.dayOfWeek() % 7);
    const qint64 sb = b.toJulianDay() - (b.dayOfWeek() % 7);
    return static_cast<double>((sb - sa) / 7);
  }
  const qint64 s1 = absoluteSeconds(date1);
  const qint64 s2 = absoluteSeconds(date2);
  if (i == QLatin1String("h")) return static_cast<double>(floorDiv(s2, 3600) - floorDiv(s1, 3600));
  if (i == QLatin1String("n")) return static_cast<double>(floorDiv(s2, 60) - floorDiv(s1, 60));
  if (i == QLatin1String("s")) return static_cast<double>(s2 - s1);
  raise(kInvalidProcedureCall);
}

namespace {
QDateTime clockNow() { return g_fixedClock.isValid() ? g_fixedClock : QDateTime::currentDateTime(); }
}  // namespace

double Now() { return fromQDateTime(clockNow()); }
double Today() { return std::floor(Now()); }

double Timer() {
  const QDateTime now = clockNow();
  return now.time().msecsSinceStartOfDay() / 1000.0;
}

void setClockForTesting(const QDateTime& fixed) { g_fixedClock = fixed; }

double DateValue(const QString& text) {
  static const QRegularExpression dayFirst(
      QStringLiteral(R"(^\s*(\d{1,2})[/.-](\d{1,2})[/.-](\d{1,4})(?:\s+(\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)"));
  static const QRegularExpression yearFirst(
      QStringLiteral(R"(^\s*(\d{4})-(\d{1,2})-(\d{1,2})(?:[ T](\d{1,2}):(\d{2})(?::(\d{2}))?)?\s*$)"));
  static const QRegularExpression timeOnly(QStringLiteral(R"(^\s*(\d{1,2}):(\d{2})(?::(\d{2}))?\s*$)"));
  int y = 0;
  int m = 0;
  int d = 0;
  int hh = 0;
  int nn = 0;
  int ss = 0;
  QRegularExpressionMatch match = yearFirst.match(text);
  if (match.hasMatch()) {
    y = match.captured(1).toInt();
    m = match.captured(2).toInt();
    d = match.captured(3).toInt();
  } else if ((match = dayFirst.match(text)).hasMatch()) {
    d = match.captured(1).toInt();
    m = match.captured(2).toInt();
    y = match.captured(3).toInt();
  } else if ((match = timeOnly.match(text)).hasMatch()) {
    hh = match.captured(1).toInt();
    nn = match.captured(2).toInt();
    ss = match.captured(3).toInt();
    if (hh > 23 || nn > 59 || ss > 59) raise(kTypeMismatch);
    return TimeSerial(hh, nn, ss);
  } else {
    raise(kTypeMismatch);
  }
  if (y < 100) y += y < 30 ? 2000 : 1900;
  if (!QDate(y, m, d).isValid()) raise(kTypeMismatch);
  if (!match.captured(4).isEmpty()) {
    hh = match.captured(4).toInt();
    nn = match.captured(5).toInt();
    ss = match.captured(6).toInt();
    if (hh > 23 || nn > 59 || ss > 59) raise(kTypeMismatch);
  }
  return fromQDateTime(QDateTime(QDate(y, m, d), QTime(hh, nn, ss), Qt::UTC));
}

}  // namespace rt
