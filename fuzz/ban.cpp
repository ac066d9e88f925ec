// The banking file (*.ban): the reader on any bytes, then what a user gets
// from a file that opens: the window's import and the calculation on the
// boxes it filled, for each of the three operations the file may name.
#include "bank/BanFile.h"
#include "bank/BankModel.h"
#include "fuzz/FuzzSupport.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  session.reset();
  const QByteArray bytes = fuzz::bytesOf(data, size);
  BanInputs before;
  before.capital = QStringLiteral("untouched");
  BanInputs read = before;
  if (!readBan(bytes, read)) {
    if (!(read == before)) fuzz::finding();
    return 0;
  }
  BanInputs again;
  if (!readBan(writeBan(read), again) || !(again == read)) fuzz::finding();

  BankModel model;
  model.Form_Load();
  if (!model.bancoImport(session.file(QStringLiteral("fuzz.ban"), bytes))) fuzz::finding();
  model.Command7_Click();
  return 0;
}
