// The list of times (*.cro) and the sequential form under it. The list is
// written, never read, so the target checks the writer against the one
// reader every file type shares: each line comes back as written (as far as
// the code page keeps it), and the reader takes any bytes field by field or
// line by line with nothing but a run-time error.
#include "chrono/CroFile.h"
#include "fuzz/FuzzSupport.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"

namespace {

void readAll(const QByteArray& bytes, bool byLine) {
  rt::SequentialReader r(bytes);
  try {
    while (!r.atEnd()) {
      if (byLine) r.readLine();
      else r.readVariant();
    }
  } catch (const rt::RuntimeError&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  session.reset();
  const QByteArray bytes = fuzz::bytesOf(data, size);
  readAll(bytes, false);
  readAll(bytes, true);

  // Lines as the lap list holds them: no quote and no line break inside.
  QStringList lines = rt::fromCodePage(bytes).split(QLatin1Char('\n'));
  for (QString& line : lines) line.remove(QLatin1Char('"')).remove(QLatin1Char('\r'));
  rt::SequentialReader r(writeCro(lines));
  for (const QString& line : lines) {
    QString back;
    try {
      back = r.readText();
    } catch (const rt::RuntimeError&) {
      fuzz::finding();
    }
    if (back != rt::fromCodePage(rt::toCodePage(line))) fuzz::finding();
  }
  if (!r.atEnd()) fuzz::finding();
  return 0;
}
