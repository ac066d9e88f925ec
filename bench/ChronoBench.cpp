// The chronometer's tick on the simulated clock: one simulated hour of
// PowerCrono (Timer2 every 40 ms, Timer1 every second), beside the naive
// form in the same run: the same ticks whose handler reads the clock and
// formats the elapsed time with QTime. The ratio says what the model's
// tick costs over the least a display could do; it bounds how fast
// calvix-cli and the tests run simulated days.
#include <benchmark/benchmark.h>

#include <QTime>

#include "chrono/Chronometer.h"
#include "shell/Clock.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"

namespace {

const QDateTime kStart(QDate(2026, 1, 12), QTime(10, 0, 0));
constexpr qint64 kHourMs = 3600 * 1000;

void BM_ChronometerHourOfTicks(benchmark::State& state) {
  resetProgram(QLocale(QLocale::Spanish, QLocale::Spain));
  ScriptedPresenter messages;
  PresenterScope scope(&messages);
  qint64 ticks = 0;
  for (auto _ : state) {
    SimulatedClock clock(kStart);
    Chronometer m(clock);
    m.Form_Load();
    m.menutiempo1_Click(Chronometer::kPowerChrono);
    m.crono1_Click(0);
    clock.advanceBy(kHourMs);
    benchmark::DoNotOptimize(m.lblAux);
    ticks += clock.ticksDelivered();
  }
  state.SetItemsProcessed(ticks);
}

// Reference: the same two timers, each tick formatting now - start by QTime.
void BM_NaiveTickReference(benchmark::State& state) {
  qint64 ticks = 0;
  for (auto _ : state) {
    SimulatedClock clock(kStart);
    QString shown;
    auto show = [&] { shown = QTime::fromMSecsSinceStartOfDay(static_cast<int>(clock.startTime().msecsTo(clock.now()) % 86400000)).toString(QStringLiteral("HH:mm:ss")); };
    auto t1 = clock.createTimer(show);
    auto t2 = clock.createTimer(show);
    t1->start(1000);
    t2->start(40);
    clock.advanceBy(kHourMs);
    benchmark::DoNotOptimize(shown);
    ticks += clock.ticksDelivered();
  }
  state.SetItemsProcessed(ticks);
}

}  // namespace

BENCHMARK(BM_ChronometerHourOfTicks)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_NaiveTickReference)->Unit(benchmark::kMillisecond);
