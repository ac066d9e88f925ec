// Dates as days since 30 December 1899, their parts, DateAdd and DateDiff.
#include "shell/runtime/DateTime.h"
#include "shell/runtime/RuntimeError.h"
#include "tests/support/TestSupport.h"

using namespace rt;

TEST(DateTime, SerialsCountDaysFromTheEndOf1899) {
  EXPECT_EQ(DateSerial(1899, 12, 30), 0);
  EXPECT_EQ(DateSerial(1900, 1, 1), 2);
  EXPECT_EQ(DateSerial(2000, 1, 1), 36526);
  EXPECT_EQ(DateSerial(2024, 2, 29), 45351);
  EXPECT_EQ(DateSerial(1899, 12, 29), -1);
  // Month and day roll over, as the runtime lets them.
  EXPECT_EQ(DateSerial(2023, 13, 1), DateSerial(2024, 1, 1));
  EXPECT_EQ(DateSerial(2024, 3, 0), DateSerial(2024, 2, 29));
  EXPECT_EQ(DateSerial(24, 1, 1), DateSerial(2024, 1, 1));  // two-digit years
  EXPECT_EQ(DateSerial(75, 1, 1), DateSerial(1975, 1, 1));
  EXPECT_DOUBLE_EQ(TimeSerial(6, 0, 0), 0.25);
}

TEST(DateTime, NegativeSerialsKeepTheTimeCountingForward) {
  // -1.25 is 29 December 1899 at six in the morning.
  const QDateTime dt = toQDateTime(-1.25);
  EXPECT_EQ(dt.date(), QDate(1899, 12, 29));
  EXPECT_EQ(dt.time(), QTime(6, 0));
  EXPECT_DOUBLE_EQ(fromQDateTime(dt), -1.25);
}

TEST(DateTime, PartsAndRoundTrips) {
  const double d = DateSerial(2024, 3, 7) + TimeSerial(23, 59, 59);
  // Thursday is weekday 5, counting Sunday as 1.
  EXPECT_EQ(QList<int>({Year(d), Month(d), Day(d), Weekday(d), Hour(d), Minute(d), Second(d)}),
            QList<int>({2024, 3, 7, 5, 23, 59, 59}));
  for (double serial : {0.0, 1.5, 36526.75, 45351.0, -700.5, 2958465.0}) {
    EXPECT_NEAR(fromQDateTime(toQDateTime(serial)), serial, 1e-9) << serial;
  }
  // Half a second before midnight rounds into the next day.
  EXPECT_EQ(Day(DateSerial(2024, 3, 7) + 86399.6 / 86400), 8);
}

TEST(DateTime, DateAddClampsMonthEnds) {
  const double jan31 = DateSerial(2024, 1, 31);
  EXPECT_EQ(DateAdd(QStringLiteral("m"), 1, jan31), DateSerial(2024, 2, 29));
  EXPECT_EQ(DateAdd(QStringLiteral("yyyy"), 1, DateSerial(2024, 2, 29)), DateSerial(2025, 2, 28));
  EXPECT_EQ(DateAdd(QStringLiteral("q"), -1, jan31), DateSerial(2023, 10, 31));
  EXPECT_EQ(DateAdd(QStringLiteral("d"), 30, jan31), DateSerial(2024, 3, 1));
  EXPECT_EQ(DateAdd(QStringLiteral("ww"), 2, jan31), jan31 + 14);
  EXPECT_DOUBLE_EQ(DateAdd(QStringLiteral("h"), 36, jan31), jan31 + 1.5);
  EXPECT_DOUBLE_EQ(DateAdd(QStringLiteral("n"), -90, jan31), jan31 - 1.0 / 16);
  EXPECT_THROW(DateAdd(QStringLiteral("x"), 1, jan31), RuntimeError);
}

TEST(DateTime, DateDiffCountsBoundariesCrossed) {
  const double a = DateSerial(2023, 12, 31) + TimeSerial(23, 0, 0);
  const double b = DateSerial(2024, 1, 1) + TimeSerial(1, 0, 0);
  const std::pair<const char*, int> units[] = {{"yyyy", 1}, {"m", 1}, {"d", 1}, {"h", 2}, {"n", 120}, {"s", 7200}};
  for (const auto& [unit, count] : units) EXPECT_EQ(DateDiff(QLatin1String(unit), a, b), count) << unit;
  EXPECT_EQ(DateDiff(QStringLiteral("s"), b, a), -7200);
  EXPECT_EQ(DateDiff(QStringLiteral("w"), DateSerial(2024, 1, 1), DateSerial(2024, 1, 14)), 1);
  // 2024-01-06 is a Saturday, the 7th a Sunday: one week boundary.
  EXPECT_EQ(DateDiff(QStringLiteral("ww"), DateSerial(2024, 1, 6), DateSerial(2024, 1, 7)), 1);
  EXPECT_EQ(DateDiff(QStringLiteral("q"), DateSerial(2024, 3, 31), DateSerial(2024, 4, 1)), 1);
}

TEST(DateTime, DateValueReadsDayFirstAndIsoTexts) {
  EXPECT_EQ(DateValue(QStringLiteral("07/03/2024")), DateSerial(2024, 3, 7));
  EXPECT_EQ(DateValue(QStringLiteral("2024-03-07")), DateSerial(2024, 3, 7));
  EXPECT_DOUBLE_EQ(DateValue(QStringLiteral("2024-03-07 06:00:00")), DateSerial(2024, 3, 7) + 0.25);
  EXPECT_DOUBLE_EQ(DateValue(QStringLiteral("18:00:00")), 0.75);
  for (const char* bad : {"", "31/02/2024", "hello", "2024-13-01", "25:00:00"}) {
    EXPECT_THROW(DateValue(QString::fromLatin1(bad)), RuntimeError) << bad;
  }
}

TEST(DateTime, TheClockCanBePinned) {
  setClockForTesting(QDateTime(QDate(2024, 3, 7), QTime(12, 0, 30)));
  EXPECT_DOUBLE_EQ(Now(), DateSerial(2024, 3, 7) + TimeSerial(12, 0, 30));
  EXPECT_EQ(Today(), DateSerial(2024, 3, 7));
  EXPECT_DOUBLE_EQ(Timer(), 43230);
  setClockForTesting(QDateTime());
  EXPECT_GT(Now(), DateSerial(2020, 1, 1));
}
