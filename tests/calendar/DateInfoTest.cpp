// Date information: the moon against an independent computation, the zodiac
// limits, week numbers from 1 January, the seven difference units and the
// addition units.
#include <QDate>
#include <cmath>

#include "calendar/DateInfo.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "tests/support/TestSupport.h"

using namespace calendar;

namespace {
double serial(int y, int m, int d) { return rt::DateSerial(y, m, d); }

class DateInfoTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    useComma();  // a day-first system: the moon's reference is 1 June 2000
  }
};
}  // namespace

TEST_F(DateInfoTest, MoonAgreesWithAnIndependentComputationFrom1990To2030) {
  const double period = 29.5305891203704;
  const qint64 reference = QDate(2000, 6, 1).toJulianDay();
  QDate day(1990, 1, 3);
  for (int i = 0; i < 40; ++i, day = day.addDays(373)) {
    SCOPED_TRACE(day.toString(Qt::ISODate).toStdString());
    const double days = std::llabs(day.toJulianDay() - reference);
    const double age = std::fmod(days, period);
    const double light = age <= period / 2 ? age / (period / 2) * 100 : (period - age) / (period / 2) * 100;
    const int name = age <= 4 ? 376 : age <= 7 ? 377 : age <= 10 ? 378 : age <= 14 ? 379
                   : age <= 18 ? 380 : age <= 22 ? 381 : age <= 26 ? 382 : 383;
    const MoonPhase m = moonPhase(serial(day.year(), day.month(), day.day()));
    EXPECT_EQ(m.days, days);
    EXPECT_NEAR(m.age, age, 1e-9);
    EXPECT_NEAR(m.illumination, light, 1e-9);
    EXPECT_EQ(m.nameId, name);
    EXPECT_EQ(m.picture, static_cast<int>(std::nearbyint(age)) + 1);
  }
}

TEST_F(DateInfoTest, MoonIsMirroredBeforeTheReferenceAndItsPictureRunsFrom1To31) {
  // The reference's own day is day 0 although it starts at 18:29.
  EXPECT_EQ(moonPhase(serial(2000, 6, 1)).days, 0);
  EXPECT_EQ(moonPhase(serial(2000, 5, 22)).days, 10);
  EXPECT_EQ(moonPhase(serial(2000, 6, 11)).days, 10);
  int lowest = 99, highest = 0;
  for (int i = 0; i < 3000; ++i) {
    const MoonPhase m = moonPhase(serial(2000, 6, 1) + i);
    EXPECT_LT(m.age, kSynodicMonth);
    lowest = std::min(lowest, m.picture);
    highest = std::max(highest, m.picture);
  }
  EXPECT_EQ(lowest, 1);
  EXPECT_EQ(highest, 31);
}

TEST_F(DateInfoTest, MoonLineAndAMonthFirstSystemsReference) {
  const MoonPhase m = moonPhase(serial(2000, 6, 16));  // age 15: full, 98%
  EXPECT_EQ(moonLine(m), QStringLiteral("Fase Lunar: Luna Llena  (98% Iluminación)"));
  usePoint();  // "1/6/2000" is 6 January on this system
  EXPECT_EQ(moonReference(), serial(2000, 1, 6) + 1109.0 / 1440.0);
}

TEST_F(DateInfoTest, ZodiacLimitsAreIncluded) {
  struct Row {
    int month, day, sign;
  } rows[] = {{12, 31, 0}, {1, 1, 0},   {1, 19, 0},  {1, 20, 1},  {2, 18, 1},  {2, 19, 2},  {3, 20, 2},
              {3, 21, 3},  {4, 19, 3},  {4, 20, 4},  {5, 20, 4},  {5, 21, 5},  {6, 20, 5},  {6, 21, 6},
              {7, 22, 6},  {7, 23, 7},  {8, 22, 7},  {8, 23, 8},  {9, 22, 8},  {9, 23, 9},  {10, 22, 9},
              {10, 23, 10}, {11, 21, 10}, {11, 22, 11}, {12, 21, 11}, {12, 22, 0}, {2, 29, 2}};
  for (const Row& r : rows) {
    SCOPED_TRACE(r.month * 100 + r.day);
    EXPECT_EQ(zodiacSign(serial(2000, r.month, r.day)), r.sign);
  }
  EXPECT_EQ(zodiacName(serial(2003, 8, 1)), QStringLiteral("Leo"));
}

TEST_F(DateInfoTest, WeekOneHolds1JanuaryAndWeeksStartOnSunday) {
  struct Row {
    int y, m, d, day, week;
  } rows[] = {{2000, 1, 1, 1, 1},       // a Saturday: ISO would say week 52 of 1999
              {2000, 1, 2, 2, 2},       // the first Sunday opens week 2
              {2000, 12, 31, 366, 54},  // leap year ending on a Sunday
              {2006, 1, 1, 1, 1},       // a Sunday
              {2006, 1, 7, 7, 1},
              {2006, 1, 8, 8, 2},
              {2003, 12, 31, 365, 53}};
  for (const Row& r : rows) {
    SCOPED_TRACE(r.y * 10000 + r.m * 100 + r.d);
    EXPECT_EQ(dayOfYear(serial(r.y, r.m, r.d)), r.day);
    EXPECT_EQ(weekOfYear(serial(r.y, r.m, r.d)), r.week);
  }
  EXPECT_TRUE(headerLine(serial(2000, 1, 2)).endsWith(QStringLiteral(" (Día: 2 / Semana: 2)")));
}

TEST_F(DateInfoTest, RemainingAndElapsedLines) {
  EXPECT_EQ(remainingLine(serial(2000, 1, 1), std::nullopt), QStringLiteral("No Definida."));
  EXPECT_EQ(remainingLine(serial(2000, 1, 1), serial(2003, 1, 1)),
            QStringLiteral("Faltan 1.096 Días para el 01/01/2003"));
  EXPECT_EQ(remainingLine(serial(2000, 1, 11), serial(2000, 1, 1)),
            QStringLiteral("Han transcurrido 10 Días desde el 01/01/2000"));
}

TEST_F(DateInfoTest, DifferenceCountsEachUnitOnItsOwn) {
  struct Row {
    double a, b;
    DateDifference want;
  } rows[] = {
      // One day across a year end: one year, one month, one day.
      {serial(2000, 12, 31), serial(2001, 1, 1), {1, 1, 0, 1, 24, 1440, 86400}},
      // Backwards spans truncate weeks towards zero.
      {serial(2000, 1, 10), serial(2000, 1, 1), {0, 0, -1, -9, -216, -12960, -777600}},
      // Month ends: 31 January to 1 March of a leap year.
      {serial(2000, 1, 31), serial(2000, 3, 1), {0, 2, 4, 30, 720, 43200, 2592000}},
      {serial(1999, 1, 1), serial(2000, 12, 31), {1, 23, 104, 730, 17520, 1051200, 63072000}},
  };
  for (const Row& r : rows) {
    const DateDifference d = dateDifference(r.a, r.b);
    EXPECT_EQ(d.yyyy, r.want.yyyy);
    EXPECT_EQ(d.m, r.want.m);
    EXPECT_EQ(d.w, r.want.w);
    EXPECT_EQ(d.d, r.want.d);
    EXPECT_EQ(d.h, r.want.h);
    EXPECT_EQ(d.n, r.want.n);
    EXPECT_EQ(d.s, r.want.s);
  }
  EXPECT_EQ(differenceText(serial(2000, 12, 31), serial(2001, 1, 1)),
            QStringLiteral("La Diferencia entre las dos Fechas Seleccionadas, 31/12/2000 y 01/01/2001, es de: \n"
                           "Años:      1\nMeses:     1\nSemanas:   0\nDías:      1\nHoras:     24\n"
                           "Minutos:   1440\nSegundos:  86400"));
}

TEST_F(DateInfoTest, AdditionClampsMonthsAndItsWeeksAddDays) {
  struct Row {
    double date, amount;
    int unit;
    double want;
  } rows[] = {{serial(2000, 1, 31), 1, 1, serial(2000, 2, 29)},  {serial(2000, 2, 29), 1, 0, serial(2001, 2, 28)},
              {serial(2000, 3, 31), -1, 1, serial(2000, 2, 29)}, {serial(2000, 1, 1), 3, 2, serial(2000, 1, 4)},
              {serial(2000, 1, 1), -1, 3, serial(1999, 12, 31)}};
  for (const Row& r : rows) EXPECT_EQ(addToDate(r.date, r.amount, r.unit), r.want);
  EXPECT_EQ(additionText(serial(2000, 3, 31), -1, 1),
            QStringLiteral("31/03/2000 menos 1 Meses da como resultado: 29/02/2000"));
}
