#include "calendar/DateInfo.h"

#include <cmath>

#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/SystemLocale.h"

namespace calendar {

namespace {

// Whether the system writes the month before the day in its short dates.
bool monthFirst() {
  const QString f = rt::systemConventions().locale.dateFormat(QLocale::ShortFormat);
  const qsizetype d = f.indexOf(QLatin1Char('d'));
  const qsizetype m = f.indexOf(QLatin1Char('M'));
  return m >= 0 && d >= 0 && m < d;
}

// Upper limits (month, day) of the signs from Capricorn on; a date past the
// last one is Capricorn again.
struct Limit {
  int month, day;
};
constexpr Limit kZodiacEnds[12] = {{1, 19}, {2, 18}, {3, 20}, {4, 19}, {5, 20}, {6, 20},
                                   {7, 22}, {8, 22}, {9, 22}, {10, 22}, {11, 21}, {12, 21}};

QString number(double x) { return rt::NumberToText(x); }

}  // namespace

double moonReference() {
  // "1/6/2000" read in the system's date order.
  const double day = monthFirst() ? rt::DateSerial(2000, 1, 6) : rt::DateSerial(2000, 6, 1);
  return day + 1109.0 / 1440.0;
}

MoonPhase moonPhase(double date) {
  MoonPhase m;
  m.days = std::fabs(rt::DateDiff(QStringLiteral("d"), moonReference(), date));
  m.age = m.days - rt::Int(m.days / kSynodicMonth) * kSynodicMonth;
  const double half = kSynodicMonth / 2;
  m.illumination = m.age <= half ? 100 * m.age / half : 100 - (m.age - half) * 100 / half;
  m.picture = static_cast<int>(rt::Round(m.age)) + 1;
  const double ends[] = {4, 7, 10, 14, 18, 22, 26};
  m.nameId = 383;
  for (int i = 0; i < 7; ++i) {
    if (m.age <= ends[i]) {
      m.nameId = 376 + i;
      break;
    }
  }
  return m;
}

QString moonLine(const MoonPhase& moon) {
  return Res(375) + QStringLiteral(": ") + Res(moon.nameId) + QStringLiteral("  (") + number(rt::Round(moon.illumination)) +
         QStringLiteral("% ") + Res(384) + QStringLiteral(")");
}

int zodiacSign(double date) {
  const int month = rt::Month(date);
  const int day = rt::Day(date);
  for (int i = 0; i < 12; ++i) {
    const Limit& e = kZodiacEnds[i];
    if (month < e.month || (month == e.month && day <= e.day)) return i;
  }
  return 0;  // 22 to 31 December
}

QString zodiacName(double date) { return Res(386 + zodiacSign(date)); }

int dayOfYear(double date) {
  return static_cast<int>(rt::DateDiff(QStringLiteral("d"), rt::DateSerial(rt::Year(date), 1, 1), date)) + 1;
}

int weekOfYear(double date) {
  return static_cast<int>(rt::DateDiff(QStringLiteral("ww"), rt::DateSerial(rt::Year(date), 1, 1), date)) + 1;
}

QString headerLine(double date) {
  return rt::FormatDate(date, QStringLiteral("Long Date")) + QStringLiteral(" (") + Res(3760) + QStringLiteral(": ") +
         QString::number(dayOfYear(date)) + QStringLiteral(" / ") + Res(3761) + QStringLiteral(": ") +
         QString::number(weekOfYear(date)) + QStringLiteral(")");
}

QString remainingLine(double selected, std::optional<double> stored) {
  if (!stored) return Res(335);
  const double days = rt::DateDiff(QStringLiteral("d"), selected, *stored);
  const QString when = rt::FormatDate(std::floor(*stored), QStringLiteral("Short Date"));
  const QString count = rt::Format(std::fabs(days), QStringLiteral("###,###,##0"));
  if (days >= 0) return Res(328) + QLatin1Char(' ') + count + QLatin1Char(' ') + Res(329) + QLatin1Char(' ') + when;
  return Res(330) + QLatin1Char(' ') + count + QLatin1Char(' ') + Res(331) + QLatin1Char(' ') + when;
}

DateDifference dateDifference(double first, double second) {
  auto diff = [&](const char* unit) { return rt::DateDiff(QString::fromLatin1(unit), first, second); };
  return {diff("yyyy"), diff("m"), diff("w"), diff("d"), diff("h"), diff("n"), diff("s")};
}

QString differenceText(double first, double second) {
  const DateDifference d = dateDifference(first, second);
  const double values[] = {d.yyyy, d.m, d.w, d.d, d.h, d.n, d.s};
  QString text = Res(361) + QLatin1Char(' ') + Res(362) + rt::FormatDate(first, QStringLiteral("Short Date")) +
                 QLatin1Char(' ') + Res(363) + rt::FormatDate(second, QStringLiteral("Short Date")) + Res(364);
  for (int i = 0; i < 7; ++i) text += QLatin1Char('\n') + Res(365 + i) + number(values[i]);
  return text;
}

QString addUnitInterval(int unit) {
  static const char* const kIntervals[] = {"yyyy", "m", "w", "d"};
  return QString::fromLatin1(kIntervals[unit < 0 || unit > 3 ? 3 : unit]);
}

double addToDate(double date, double amount, int unit) { return rt::DateAdd(addUnitInterval(unit), amount, date); }

QString additionText(double date, double amount, int unit) {
  const QString shortDate = QStringLiteral("Short Date");
  return rt::FormatDate(date, shortDate) + QLatin1Char(' ') + Res(amount < 0 ? 373 : 372) + QLatin1Char(' ') +
         number(std::fabs(amount)) + QLatin1Char(' ') + Res(3762 + unit) + QLatin1Char(' ') + Res(374) + QLatin1Char(' ') +
         rt::FormatDate(addToDate(date, amount, unit), shortDate);
}

}  // namespace calendar
