// The calendar's events file (*.age): the reader on any bytes; a file that
// opens writes back to the same lines, and goes through the window's open
// and every view of the list it loaded.
#include "calendar/EventList.h"
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  session.reset();
  const QByteArray bytes = fuzz::bytesOf(data, size);
  const std::optional<QStringList> lines = calendar::readAgeFile(bytes);
  if (!lines) return 0;
  if (calendar::readAgeFile(calendar::writeAgeFile(*lines)) != lines) fuzz::finding();
  calendar::EventList list;
  if (!list.openFile(session.file(QStringLiteral("fuzz.age"), bytes))) fuzz::finding();
  for (int view = calendar::EventList::kAll; view <= calendar::EventList::kPendingAll; ++view) {
    list.setView(view);
    list.List1();
  }
  list.countForDate();
  list.countForMonth();
  list.pendingForMonth();
  list.forDateText();
  return 0;
}
