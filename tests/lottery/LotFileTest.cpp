// *.lot files: the bytes as written, a 500-bet round trip byte for byte, the
// extension rule, and damaged or foreign files refused with nothing lost.
#include <QDir>
#include <QFile>
#include <memory>

#include "lottery/LotteryModel.h"
#include "shell/ErrorReport.h"
#include "tests/support/TestSupport.h"

namespace {

class LotFileTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    m = std::make_unique<LotteryModel>();
  }
  QString path(const QString& name) const { return QDir(appFolder.path()).filePath(name); }
  void write(const QString& name, const QByteArray& bytes) {
    QFile f(path(name));
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
  QByteArray read(const QString& name) const {
    QFile f(path(name));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
  }
  void select(int bets) {
    for (int i = 0; i < bets; ++i) {
      m->Command1_Click(i % 7);
      m->Command9_Click();
    }
  }
  std::unique_ptr<LotteryModel> m;
};

TEST_F(LotFileTest, WritesCountRowsAndFrequencies) {
  QStringList row(13);
  row[0] = "1";
  row[1] = "02/03/2026";
  for (int i = 0; i < 6; ++i) row[2 + i] = QString::number(i + 1);
  std::array<float, 50> frec{};
  for (int i = 1; i <= 6; ++i) frec[i] = 1;
  frec[7] = 2.5f;
  const QByteArray bytes = writeLot({row}, frec);
  EXPECT_TRUE(bytes.startsWith("1\r\n\"1\",\"02/03/2026\",\"1\",\"2\",\"3\",\"4\",\"5\",\"6\",\"\",\"\",\"\",\"\",\"\"\r\n"
                               "1,1\r\n2,1\r\n"));
  EXPECT_TRUE(bytes.contains("\r\n7,2.5\r\n8,0\r\n"));
  EXPECT_TRUE(bytes.endsWith("\r\n49,0\r\n"));
  const LotContents back = readLot(bytes);
  EXPECT_EQ(back.rows, QList<QStringList>{row});
  EXPECT_EQ(back.frec, frec);
}

TEST_F(LotFileTest, FiveHundredBetsRoundTripByteForByte) {
  select(500);
  messages.clear();
  ASSERT_TRUE(m->guardarloto(path("todas.lot")));
  EXPECT_FALSE(m->apuestasCambiadas);
  const QByteArray first = read("todas.lot");
  LotteryModel other;
  ASSERT_TRUE(other.abrirloto(path("todas.lot")));
  EXPECT_EQ(other.apuestasSel, 500);
  EXPECT_EQ(other.Label8, QStringLiteral("500"));
  EXPECT_EQ(other.grid, m->grid);
  EXPECT_EQ(other.frecSel, m->frecSel);
  EXPECT_FALSE(other.apuestasCambiadas);
  ASSERT_TRUE(other.guardarloto(path("copia.LOT")));
  EXPECT_EQ(read("copia.LOT"), first);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(LotFileTest, OpeningAddsTheFrequenciesToBothCounters) {
  select(3);
  ASSERT_TRUE(m->guardarloto(path("a.lot")));
  const auto frecSel = m->frecSel;
  const auto before = m->frecTodas;
  ASSERT_TRUE(m->abrirloto(path("a.lot")));
  EXPECT_EQ(m->frecSel, frecSel);  // the list was replaced
  for (int i = 1; i <= 49; ++i) EXPECT_EQ(m->frecTodas[i], before[i] + frecSel[i]) << i;
}

TEST_F(LotFileTest, ExtensionIsTheLastThreeLettersInAnyCase) {
  const std::pair<const char*, bool> rows[] = {
      {"a.lot", true}, {"a.LoT", true}, {"alot", true}, {"a.lotx", false}, {"a.ban", false}, {"lo", false}};
  for (const auto& [name, ok] : rows) EXPECT_EQ(hasLotExtension(QString::fromUtf8(name)), ok) << name;
}

TEST_F(LotFileTest, SavingRefusesAnEmptyListAndAForeignExtension) {
  EXPECT_FALSE(m->guardarloto(path("a.lot")));
  EXPECT_EQ(m->lastErrorCode, 600);
  select(1);
  EXPECT_FALSE(m->guardarloto(path("a.txt")));
  EXPECT_EQ(m->lastErrorCode, 900);
  EXPECT_EQ(messages.shown().back().text, ErrorText(900));
  EXPECT_FALSE(QFile::exists(path("a.txt")));
  EXPECT_TRUE(m->apuestasCambiadas);
}

TEST_F(LotFileTest, DamagedOrForeignFilesLeaveTheListAsItWas) {
  select(2);
  ASSERT_TRUE(m->guardarloto(path("good.lot")));
  const QByteArray good = read("good.lot");
  write("cut.lot", good.left(good.size() / 2));
  write("count.lot", "abc\r\n");
  write("toomany.lot", QByteArray("3") + good.mid(1));
  write("banfile.lot", "2\r\n\"1000\",\"3,5\",\"1,5\",#TRUE#,\"100\",\"\"\r\n");
  write("badnumber.lot", QByteArray(good).replace("\"1\",\"", "\"1\",\"x"));
  write("notes.txt", good);
  // An unquoted cell holding a quote, which no save could write back.
  write("quote.lot", QByteArray("1\r\n1\",,,,,,,,,,,,\r\n") + good.mid(good.indexOf("\r\n1,") + 2));
  const struct {
    const char* name;
    int error;
  } rows[] = {{"cut.lot", 62}, {"count.lot", 13}, {"toomany.lot", 0}, {"banfile.lot", 0},
              {"missing.lot", 53}, {"notes.txt", 901}, {"quote.lot", 13}};
  const auto grid = m->grid;
  const auto frecSel = m->frecSel;
  const auto frecTodas = m->frecTodas;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    m->lastErrorCode = 0;
    EXPECT_FALSE(m->abrirloto(path(QString::fromUtf8(row.name))));
    EXPECT_NE(m->lastErrorCode, 0);
    if (row.error) {
      EXPECT_EQ(m->lastErrorCode, row.error);
    }
    EXPECT_EQ(messages.shown().back().text, ErrorText(m->lastErrorCode));
    EXPECT_EQ(m->grid, grid);
    EXPECT_EQ(m->frecSel, frecSel);
    EXPECT_EQ(m->frecTodas, frecTodas);
    EXPECT_EQ(m->apuestasSel, 2);
  }
}

TEST_F(LotFileTest, LeavingAsksToSaveChangedBets) {
  m->hooks.fileDialog = [this](const LotteryModel::FileDialogRequest& r) {
    EXPECT_TRUE(r.save);
    EXPECT_TRUE(r.folder.endsWith(QStringLiteral("datos/")));
    return path("salida.lot");
  };
  EXPECT_TRUE(m->Form_Unload());
  EXPECT_TRUE(messages.shown().empty());  // nothing to save
  select(2);
  messages.queueButton(0);
  EXPECT_TRUE(m->Form_Unload());
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_TRUE(messages.shown().front().text.contains(QStringLiteral(" 2 ")));
  EXPECT_TRUE(QFile::exists(path("salida.lot")));
  EXPECT_FALSE(m->apuestasCambiadas);
}

TEST_F(LotFileTest, PrintingNeedsBetsAndListsThemUnderTheirHeads) {
  m->imprimeloto_Click();
  EXPECT_EQ(m->lastErrorCode, 600);
  m->manualoto_Click();
  for (int x : {4, 8, 15, 16, 23, 42}) m->Label10_Click(x - 1);
  m->Command9_Click();
  const PrintDocument doc = m->printDocument();
  QStringList lines;
  for (const PrintLine& line : doc.lines()) {
    QString text;
    for (const PrintSpan& s : line.spans) text += QStringLiteral("%1:%2|").arg(s.column).arg(s.text);
    lines << text;
  }
  EXPECT_TRUE(lines.contains(QStringLiteral("11:Id|15:Fecha|28:Números|")));
  EXPECT_TRUE(lines.last().startsWith(QStringLiteral("11:1|15:")));
  EXPECT_TRUE(lines.last().endsWith(QStringLiteral("|28: 4  8 15 16 23 42|")));
  EXPECT_TRUE(lines.at(1).startsWith(QStringLiteral("19:Calvix Premium  -  Bolix.  Fecha: ")));
}

}  // namespace
