#include "shell/Clock.h"

#include <QTimer>
#include <algorithm>
#include <limits>
#include <utility>

namespace {

// Taken while the program loads, before main() runs: the program's start.
const QDateTime g_processStart = QDateTime::currentDateTime();

Clock* g_clock = nullptr;

class QtClockTimer : public ClockTimer {
 public:
  explicit QtClockTimer(std::function<void()> onTick) {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, std::move(onTick));
  }
  void start(int intervalMs) override { timer_.start(intervalMs); }
  void stop() override { timer_.stop(); }
  bool isActive() const override { return timer_.isActive(); }
  int interval() const override { return timer_.interval(); }

 private:
  QTimer timer_;
};

// The simulated scale: a local date and time read as if it were UTC, so the
// arithmetic never meets a daylight-saving change.
qint64 plainMs(const QDateTime& t) {
  return QDateTime(t.date(), t.time(), Qt::UTC).toMSecsSinceEpoch();
}

}  // namespace

Clock& programClock() {
  static SystemClock system;
  return g_clock ? *g_clock : system;
}

void setProgramClock(Clock* clock) { g_clock = clock; }

// ---- System clock -----------------------------------------------------------

QDateTime SystemClock::now() const { return QDateTime::currentDateTime(); }
QDateTime SystemClock::startTime() const { return g_processStart; }

std::unique_ptr<ClockTimer> SystemClock::createTimer(std::function<void()> onTick) {
  return std::make_unique<QtClockTimer>(std::move(onTick));
}

// ---- Simulated clock --------------------------------------------------------

class SimulatedClock::Timer : public ClockTimer {
 public:
  Timer(SimulatedClock& clock, std::function<void()> onTick) : clock_(clock), onTick_(std::move(onTick)) {
    clock_.timers_.append(this);
  }
  ~Timer() override { clock_.timers_.removeOne(this); }
  void start(int intervalMs) override {
    interval_ = intervalMs > 0 ? intervalMs : 1;
    due_ = clock_.nowMs_ + interval_;
    active_ = true;
  }
  void stop() override { active_ = false; }
  bool isActive() const override { return active_; }
  int interval() const override { return interval_; }

  SimulatedClock& clock_;
  std::function<void()> onTick_;
  int interval_ = 0;
  qint64 due_ = 0;
  qint64 lastTick_ = std::numeric_limits<qint64>::min();
  bool active_ = false;
};

SimulatedClock::SimulatedClock(const QDateTime& start) : nowMs_(plainMs(start)), startMs_(nowMs_) {}

SimulatedClock::~SimulatedClock() = default;

QDateTime SimulatedClock::now() const { return QDateTime::fromMSecsSinceEpoch(nowMs_, Qt::UTC); }

QDateTime SimulatedClock::startTime() const { return QDateTime::fromMSecsSinceEpoch(startMs_, Qt::UTC); }

std::unique_ptr<ClockTimer> SimulatedClock::createTimer(std::function<void()> onTick) {
  return std::make_unique<Timer>(*this, std::move(onTick));
}

void SimulatedClock::advanceTo(const QDateTime& t) {
  const qint64 target = plainMs(t);
  while (true) {
    // The earliest due tick; the list is in creation order, so the first
    // found wins a tie. Rescanned after every tick, since a tick may start,
    // stop, make or destroy timers.
    Timer* next = nullptr;
    for (Timer* timer : std::as_const(timers_)) {
      if (timer->active_ && timer->due_ <= target && (!next || timer->due_ < next->due_)) next = timer;
    }
    if (!next) break;
    nowMs_ = std::max(nowMs_, next->due_);
    next->due_ += next->interval_;
    next->lastTick_ = nowMs_;
    ++ticks_;
    const std::function<void()> tick = next->onTick_;  // the timer may die inside its tick
    tick();
  }
  nowMs_ = std::max(nowMs_, target);
}

void SimulatedClock::advanceBy(qint64 ms) {
  advanceTo(now().addMSecs(ms));
}

void SimulatedClock::tickRunningTimers() {
  const QList<Timer*> snapshot = timers_;
  for (Timer* timer : snapshot) {
    // A tick may have destroyed a later timer of the snapshot.
    if (!timers_.contains(timer) || !timer->active_ || timer->lastTick_ == nowMs_) continue;
    timer->lastTick_ = nowMs_;
    ++ticks_;
    const std::function<void()> tick = timer->onTick_;
    tick();
  }
}
