// The function table's file (*.evl): what opens can be saved again and
// writes back to the same inputs; a refused file leaves them as they were.
#include "funcs/EvlFile.h"
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  session.reset();
  EvlInputs before;
  before.f = QStringLiteral("untouched");
  EvlInputs read = before;
  if (!readEvl(fuzz::bytesOf(data, size), read)) {
    if (!(read == before)) fuzz::finding();
    return 0;
  }
  if (!evlWritable(read)) fuzz::finding();
  EvlInputs again;
  if (!readEvl(writeEvl(read), again) || !(again == read)) fuzz::finding();
  return 0;
}
