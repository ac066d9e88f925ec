// The CSV tool on any file: open it, detect its separators (or take a pair
// named by the first byte), convert it into the preview, pick two columns
// and import them into the statistics store.
#include "fuzz/FuzzSupport.h"
#include "shell/StatisticsStore.h"
#include "stats/CsvToolModel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static fuzz::Session session;
  if (size == 0) return 0;
  session.reset();
  const std::uint8_t choice = data[0];
  const QString path = session.file(QStringLiteral("fuzz.csv"), fuzz::bytesOf(data + 1, size - 1));

  CsvToolModel model;
  model.fileDialog = [&](const QString&, const QString&, const QString&) { return path; };
  model.Form_Load();
  model.Command1_Click();
  switch (choice % 4) {
    case 0: model.Command6_Click(); break;
    case 1: model.Command4_Click(); break;
    case 2: model.Command5_Click(); break;
    default: model.Combo1[0] = CsvToolModel::comboItem(QLatin1Char('.')); break;
  }
  model.Check1 = (choice & 0x80) != 0;
  model.Command2_Click();
  model.selectedColumn = 1 + ((choice >> 2) & 3);
  model.flexcolX_Click(0);
  model.selectedColumn = 1 + ((choice >> 4) & 3);
  model.flexcolX_Click(1);
  model.Command3_Click(0);
  const StatisticsStore& store = program().stats;
  if (store.nx < 0 || store.nx > StatisticsStore::kMaxData + 1 || store.ny < 0 || store.ny > StatisticsStore::kMaxData + 1) {
    fuzz::finding();
  }
  return 0;
}
