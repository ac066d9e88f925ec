// The bets file (*.lot): the reader on any bytes (a run-time error for a
// damaged file, nothing else); a file that opens writes back to the same
// bets and frequencies (to a single's 7 digits), and goes through the
// window's open and the statistics of the bets it loaded.
#include "fuzz/FuzzSupport.h"
#include "lottery/LotteryModel.h"
#include "shell/runtime/RuntimeError.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  session.reset();
  const QByteArray bytes = fuzz::bytesOf(data, size);
  LotContents read;
  try {
    read = readLot(bytes);
  } catch (const rt::RuntimeError&) {
    return 0;
  }
  try {
    // Frequencies are singles written with 7 digits, as the classic form
    // has them: the second save, not the value read, must come back whole.
    const QByteArray written = writeLot(read.rows, read.frec);
    const LotContents again = readLot(written);
    if (again.rows != read.rows || writeLot(again.rows, again.frec) != written) fuzz::finding();
  } catch (const rt::RuntimeError&) {
    fuzz::finding();
  }
  LotteryModel model;
  if (!model.abrirloto(session.file(QStringLiteral("fuzz.lot"), bytes))) fuzz::finding();
  model.lotoestmostrar1_Click();
  model.lotoestmostrar2_Click();
  return 0;
}
