// The statistics file (*.dat): a file read whole is written back byte for
// byte the same values (every digit kept), and a refused one leaves the
// lists alone.
#include "calc/StatisticsFile.h"
#include "fuzz/FuzzSupport.h"
#include "shell/StatisticsStore.h"

namespace {

bool sameValues(const std::vector<double>& a, const std::vector<double>& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!(a[i] == b[i])) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  session.reset();
  DatContents read{{7}, {8}};
  const DatRead answer = readDat(fuzz::bytesOf(data, size), read);
  if (answer != DatRead::Ok) {
    if (read.x != std::vector<double>{7} || read.y != std::vector<double>{8}) fuzz::finding();
    return 0;
  }
  StatisticsStore& store = program().stats;
  store.setList(0, read.x);
  store.setList(1, read.y);
  DatContents again;
  if (readDat(writeDat(store), again) != DatRead::Ok) fuzz::finding();
  if (!sameValues(read.x, again.x) || !sameValues(read.y, again.y)) fuzz::finding();
  return 0;
}
