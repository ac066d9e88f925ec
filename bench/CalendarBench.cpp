// The events list: opening a file of 2,000 events and showing it under each
// of the five views, beside a plain read of the same file (the bytes read
// and split into quoted lines, nothing more) in the same run.
//
//   Calendar_OpenAndFilter  EventList::openFile, then List1 and the figures for every view
//   Calendar_PlainRead      readWholeFile and a split at line ends (the reference)
#include <benchmark/benchmark.h>

#include <QTemporaryDir>

#include "calendar/EventList.h"
#include "shell/ProgramState.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/SequentialFile.h"

namespace {

constexpr int kEvents = 2000;

struct EventsFile {
  QTemporaryDir dir;
  QString path;
  EventsFile() {
    resetProgram(QLocale(QLocale::Spanish, QLocale::Spain));
    QStringList lines;
    for (int i = 0; i < kEvents; ++i) {
      const double d = rt::DateSerial(2024, 1, 1) + (i * 37) % 366;
      lines << calendar::eventKey(d) + QStringLiteral("  Evento número %1 de la agenda").arg(i);
    }
    path = dir.filePath(QStringLiteral("agenda.age"));
    rt::writeWholeFile(path, calendar::writeAgeFile(lines));
  }
};

const EventsFile& eventsFile() {
  static const EventsFile f;
  return f;
}

void Calendar_OpenAndFilter(benchmark::State& state) {
  const QString& path = eventsFile().path;
  for (auto _ : state) {
    calendar::EventList list;
    list.select(rt::DateSerial(2024, 6, 15));
    if (!list.openFile(path)) state.SkipWithError("open failed");
    qsizetype shown = 0;
    for (int view = 0; view <= 4; ++view) {
      list.setView(view);
      shown += list.List1().size();
    }
    benchmark::DoNotOptimize(shown + list.countForDate() + list.pendingForMonth());
  }
}
BENCHMARK(Calendar_OpenAndFilter)->Unit(benchmark::kMillisecond);

void Calendar_PlainRead(benchmark::State& state) {
  const QString& path = eventsFile().path;
  for (auto _ : state) {
    const QByteArray bytes = rt::readWholeFile(path);
    QStringList lines;
    for (const QByteArray& line : bytes.split('\n')) lines << QString::fromLatin1(line.trimmed());
    benchmark::DoNotOptimize(lines.size());
  }
}
BENCHMARK(Calendar_PlainRead)->Unit(benchmark::kMillisecond);

}  // namespace
