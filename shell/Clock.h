#pragma once
// Time for everything that waits or ticks: the time of day and repeating
// timers, behind one interface. The windows use the system clock (QDateTime
// and QTimer); tests and calvix-cli use the SimulatedClock, which runs hours
// in milliseconds and delivers every tick in order at its exact instant.
//
// A model keeps its timers as ClockTimer objects made by the clock it was
// given, and measures time as differences of now(), never by counting ticks,
// so a late or missed tick changes nothing but how fresh a display is.
#include <QDateTime>
#include <QList>
#include <functional>
#include <memory>

class ClockTimer {
 public:
  virtual ~ClockTimer() = default;
  // Starts (or restarts) the timer: the first tick comes one interval from now.
  virtual void start(int intervalMs) = 0;
  virtual void stop() = 0;
  virtual bool isActive() const = 0;
  virtual int interval() const = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  // The local date and time, to the millisecond.
  virtual QDateTime now() const = 0;
  // When the program started (the system clock) or the simulation began.
  virtual QDateTime startTime() const = 0;
  // A stopped timer calling onTick at each tick. The clock must outlive it.
  virtual std::unique_ptr<ClockTimer> createTimer(std::function<void()> onTick) = 0;
};

// The installed clock: the system clock unless a test or calvix-cli installed
// another (not owned; nullptr goes back to the system clock).
Clock& programClock();
void setProgramClock(Clock* clock);

// The real clock: QDateTime::currentDateTime and precise QTimers. Its start
// time is the start of the process.
class SystemClock : public Clock {
 public:
  QDateTime now() const override;
  QDateTime startTime() const override;
  std::unique_ptr<ClockTimer> createTimer(std::function<void()> onTick) override;
};

// A clock that moves only when told. Its time is a plain local time without
// daylight-saving jumps, so a simulated day always has 24 hours: now() holds
// the local date and time fields in a UTC QDateTime (compare fields or texts,
// not instants, with local times).
class SimulatedClock : public Clock {
 public:
  explicit SimulatedClock(const QDateTime& start);
  ~SimulatedClock() override;
  SimulatedClock(const SimulatedClock&) = delete;
  SimulatedClock& operator=(const SimulatedClock&) = delete;

  QDateTime now() const override;
  QDateTime startTime() const override;
  std::unique_ptr<ClockTimer> createTimer(std::function<void()> onTick) override;

  // Runs the clock to t (never backwards), delivering every tick due up to
  // and including t in time order, timers made earlier first on a tie; now()
  // is the tick's instant while it runs. A timer started, stopped or made by
  // a tick takes effect at once.
  void advanceTo(const QDateTime& t);
  void advanceBy(qint64 ms);
  // One extra tick of every running timer at the present instant, unless it
  // already ticked at this instant; the timers keep their schedule.
  void tickRunningTimers();
  // Ticks delivered so far, for tests and for measuring.
  qint64 ticksDelivered() const { return ticks_; }

 private:
  class Timer;
  friend class Timer;
  qint64 nowMs_;    // milliseconds since the epoch, on the clock's plain scale
  qint64 startMs_;
  qint64 ticks_ = 0;
  QList<Timer*> timers_;  // in order of creation
};
