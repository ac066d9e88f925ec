// The settings file (cvdata.txt) as the program reads it at start: any bytes
// either fill the state or stop with a run-time error number. The state that
// results is always written to a file that reads whole; after that one whole
// read (which forgets a vanished events file), saving and reading again
// changes nothing.
#include "fuzz/FuzzSupport.h"
#include "shell/Settings.h"

namespace {

QByteArray rewritten(fuzz::Session& session, const QByteArray& bytes) {
  session.reset();
  if (readSettingsBytes(bytes, program()).error != 0) fuzz::finding();
  return settingsBytes(program());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  session.reset();
  const SettingsRead read = readSettingsBytes(fuzz::bytesOf(data, size), program());
  if (read.error < 0) fuzz::finding();
  const QByteArray once = rewritten(session, settingsBytes(program()));
  if (rewritten(session, once) != once) fuzz::finding();
  return 0;
}
