// The simulated clock: ticks in time order at their exact instants, timers
// changed from inside a tick, the extra tick at an event's instant.
#include <QStringList>

#include "shell/Clock.h"
#include "tests/support/TestSupport.h"

namespace {

const QDateTime kStart(QDate(2026, 3, 1), QTime(23, 59, 58));

class SimulatedClockTest : public ::testing::Test {
 protected:
  SimulatedClock clock{kStart};
  QStringList log;
  // A timer that logs "name@ms since the start" at each tick.
  std::unique_ptr<ClockTimer> logging(const QString& name) {
    return clock.createTimer([this, name] { log << name + u'@' + QString::number(clock.startTime().msecsTo(clock.now())); });
  }
};

TEST_F(SimulatedClockTest, DeliversTicksInTimeOrderEarlierTimerFirstOnATie) {
  auto a = logging(QStringLiteral("a"));
  auto b = logging(QStringLiteral("b"));
  b->start(250);
  a->start(1000);
  clock.advanceBy(1250);
  EXPECT_EQ(log, QStringList({"b@250", "b@500", "b@750", "a@1000", "b@1000", "b@1250"}));
  EXPECT_EQ(clock.startTime().msecsTo(clock.now()), 1250);
  EXPECT_EQ(clock.now().time(), QTime(23, 59, 59, 250));
}

TEST_F(SimulatedClockTest, RunsOverMidnightAndNeverBackwards) {
  clock.advanceBy(3000);
  EXPECT_EQ(clock.now().date(), QDate(2026, 3, 2));
  EXPECT_EQ(clock.now().time(), QTime(0, 0, 1));
  clock.advanceTo(kStart);
  EXPECT_EQ(clock.now().time(), QTime(0, 0, 1));
  EXPECT_EQ(clock.startTime().secsTo(clock.now()), 3);
}

TEST_F(SimulatedClockTest, ATickMayStopRestartOrDestroyTimers) {
  std::unique_ptr<ClockTimer> other = logging(QStringLiteral("other"));
  std::unique_ptr<ClockTimer> self;
  int ticks = 0;
  self = clock.createTimer([&] {
    log << QStringLiteral("self@") + QString::number(clock.startTime().msecsTo(clock.now()));
    if (++ticks == 1) self->start(300);  // a restart counts from this tick
    else if (ticks == 2) other.reset();  // the other timer dies before its due tick
    else self->stop();
  });
  self->start(100);
  other->start(450);
  clock.advanceBy(2000);
  EXPECT_EQ(log, QStringList({"self@100", "self@400", "self@700"}));
  EXPECT_FALSE(self->isActive());
}

TEST_F(SimulatedClockTest, ExtraTickAtTheInstantOnlyWhenNotAlreadyTicked) {
  auto a = logging(QStringLiteral("a"));
  auto idle = logging(QStringLiteral("idle"));
  a->start(1000);
  clock.advanceBy(1000);
  clock.tickRunningTimers();  // a ticked at this very instant
  clock.advanceBy(500);
  clock.tickRunningTimers();
  clock.advanceBy(500);       // the schedule is kept: the next tick is still at 2000
  EXPECT_EQ(log, QStringList({"a@1000", "a@1500", "a@2000"}));
  EXPECT_EQ(clock.ticksDelivered(), 3);
}

TEST_F(SimulatedClockTest, InstalledClockReplacesTheSystemOne) {
  EXPECT_NE(&programClock(), static_cast<Clock*>(&clock));
  setProgramClock(&clock);
  EXPECT_EQ(programClock().now().toString(u"yyyy-MM-dd HH:mm:ss"), kStart.toString(u"yyyy-MM-dd HH:mm:ss"));
  setProgramClock(nullptr);
  EXPECT_NE(&programClock(), static_cast<Clock*>(&clock));
  EXPECT_LE(programClock().startTime(), programClock().now());
}

}  // namespace
