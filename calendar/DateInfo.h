#pragma once
// What the calendar says about one date besides its events: the moon's age
// and phase, the zodiac sign, the header and countdown lines of the
// information panel, and the two date operations (difference in seven units,
// addition). Dates are runtime serials (days since 30 December 1899); every
// text comes from the string table of the current language.
#include <QString>
#include <QStringList>
#include <optional>

namespace calendar {

// The moon as the panel shows it.
struct MoonPhase {
  double days = 0;          // whole days from the reference, mirrored before it
  double age = 0;           // 0 <= age < kSynodicMonth
  double illumination = 0;  // 0..100, unrounded
  int picture = 1;          // Round(age) + 1: 1..31
  int nameId = 376;         // string id of the phase's name
};

inline constexpr double kSynodicMonth = 29.5305891203704;
// The reference new moon: 1 June 2000 plus 1109 minutes.
double moonReference();
MoonPhase moonPhase(double date);
// "Fase Lunar: <name>  (<illumination>% Iluminación)".
QString moonLine(const MoonPhase& moon);

// Sign index 0 (Capricorn) .. 11 (Sagittarius); its name is string 386 + index.
int zodiacSign(double date);
QString zodiacName(double date);

int dayOfYear(double date);
// Week 1 holds 1 January; weeks start on Sunday, as the runtime's calendar weeks do.
int weekOfYear(double date);
// "<Long Date> (Día: n / Semana: w)".
QString headerLine(double date);
// The countdown to or from a stored date; "No Definida." when it is unset.
QString remainingLine(double selected, std::optional<double> stored);

// The seven DateDiff units of the difference, in the order they are shown.
struct DateDifference {
  double yyyy = 0, m = 0, w = 0, d = 0, h = 0, n = 0, s = 0;
};
DateDifference dateDifference(double first, double second);
QString differenceText(double first, double second);

// Unit 0..3: years, months, weeks, days as the operations dialog offers them.
// The runtime interval is "yyyy", "m", "w", "d" ("w" adds days, as DateAdd does).
QString addUnitInterval(int unit);
double addToDate(double date, double amount, int unit);
QString additionText(double date, double amount, int unit);

}  // namespace calendar
