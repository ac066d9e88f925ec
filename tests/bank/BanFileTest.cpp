// *.ban files: the bytes as written, a byte-for-byte round trip through the
// model on both decimal symbols, and damaged or foreign files refused with
// their message and nothing changed in the window's model.
#include <QDir>
#include <QFile>

#include "bank/BanFile.h"
#include "bank/BankModel.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class BanFileTest : public CalvixTest {
 protected:
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
};

TEST_F(BanFileTest, WritesTipoUnquotedTextsAsTypedAndCrLf) {
  BanInputs in{2, "1000", "3,5", "1,5", true, "100", ""};
  EXPECT_EQ(writeBan(in), QByteArray("2\r\n\"1000\",\"3,5\",\"1,5\",#TRUE#,\"100\",\"\"\r\n"));
  BanInputs back;
  // The comma inside quotes is part of the text, not a field separator.
  ASSERT_TRUE(readBan(writeBan(in), back));
  EXPECT_EQ(back, in);
}

TEST_F(BanFileTest, RoundTripIsByteForByteOnBothDecimalSymbols) {
  for (bool comma : {false, true}) {
    SCOPED_TRACE(comma ? "comma" : "point");
    if (comma) useComma();
    BankModel m;
    m.BanKOperations(2);
    m.typeInto(BankModel::kCapital, QStringLiteral("2500.75"));
    m.typeInto(BankModel::kInteres, QStringLiteral("4.25"));
    m.typeInto(BankModel::kTiempo, QStringLiteral("3"));
    m.typeInto(BankModel::kAportemes, QStringLiteral("150"));
    m.typeInto(BankModel::kIncremes, QStringLiteral("2.5"));
    m.Option_Click(true);
    ASSERT_TRUE(m.bancoSave(path(QStringLiteral("plan.ban"))));
    const QByteArray first = read(QStringLiteral("plan.ban"));
    EXPECT_TRUE(first.contains(comma ? "\"2500,75\"" : "\"2500.75\""));
    BankModel reopened;
    ASSERT_TRUE(reopened.bancoImport(path(QStringLiteral("plan.ban"))));
    EXPECT_EQ(reopened.inputs(), m.inputs());
    ASSERT_TRUE(reopened.bancoSave(path(QStringLiteral("again.BAN"))));
    EXPECT_EQ(read(QStringLiteral("again.BAN")), first);
  }
}

TEST_F(BanFileTest, AFileSavedBeforeCalculatingRestoresOnlyTheInputs) {
  BankModel m;
  m.BanKOperations(3);
  m.typeInto(BankModel::kCapital, QStringLiteral("5000"));
  ASSERT_TRUE(m.bancoSave(path(QStringLiteral("a.ban"))));
  BankModel other;
  other.typeInto(BankModel::kInteres, QStringLiteral("7"));
  ASSERT_TRUE(other.bancoImport(path(QStringLiteral("a.ban"))));
  EXPECT_EQ(other.tipo, 3);
  EXPECT_EQ(other.capital, QStringLiteral("5000"));
  EXPECT_EQ(other.interes, QString());
  EXPECT_TRUE(other.Bancolist.isEmpty());
}

TEST_F(BanFileTest, DamagedAndForeignFilesAreRefusedAndChangeNothing) {
  const QByteArray good("3\r\n\"10000\",\"8\",\"10\",#FALSE#,\"\",\"\"\r\n");
  const std::pair<const char*, QByteArray> damaged[] = {
      {"cut in a text", good.left(15)},
      {"cut after the boolean", "3\r\n\"10000\",\"8\",\"10\",#FALSE#\r\n"},
      {"only the kind", "3\r\n"},
      {"empty", ""},
      {"kind out of range", "4\r\n\"10000\",\"8\",\"10\",#FALSE#,\"\",\"\"\r\n"},
      {"kind not a number", "\"x\"\r\n\"10000\",\"8\",\"10\",#FALSE#,\"\",\"\"\r\n"},
      {"flag not a boolean", "3\r\n\"10000\",\"8\",\"10\",\"no\",\"\",\"\"\r\n"},
      {"a field too many", "3\r\n\"10000\",\"8\",\"10\",#FALSE#,\"\",\"\",\"\"\r\n"},
      {"a third line", good + "\"x\"\r\n"},
      {"a stray quote splits a box", "3\r\n\"10\"\",00018\",\"10\",#FALSE#,\"\",\"\"\r\n"},
      {"a line break inside a box", "3\r\n\"10\r000\",\"8\",\"10\",#FALSE#,\"\",\"\"\r\n"},
      {"a function table file", "0\r\n\"0\",\"5\",\"200\",\"0.025\",#TRUE#,\"A=2\",\"x\",\"x\"\r\n"},
  };
  BanInputs untouched{1, "9", "9", "9", false, "9", "9"};
  for (const auto& [name, bytes] : damaged) {
    SCOPED_TRACE(name);
    BanInputs out = untouched;
    EXPECT_FALSE(readBan(bytes, out));
    EXPECT_EQ(out, untouched);

    write(QStringLiteral("bad.ban"), bytes);
    BankModel m;
    m.BanKOperations(2);
    m.typeInto(BankModel::kCapital, QStringLiteral("777"));
    messages.clear();
    EXPECT_FALSE(m.bancoImport(path(QStringLiteral("bad.ban"))));
    EXPECT_EQ(m.tipo, 2);
    EXPECT_EQ(m.capital, QStringLiteral("777"));
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_TRUE(messages.shown().front().text.endsWith(Res(2904)));
  }
  // A lone file without its last line end still reads.
  BanInputs out;
  EXPECT_TRUE(readBan(good.chopped(2), out));
}

TEST_F(BanFileTest, TheExtensionIsCheckedLowerCased) {
  EXPECT_TRUE(hasBanExtension(QStringLiteral("x.BAN")));
  EXPECT_TRUE(hasBanExtension(QStringLiteral("x.Ban")));
  EXPECT_FALSE(hasBanExtension(QStringLiteral("x.evl")));
  EXPECT_FALSE(hasBanExtension(QStringLiteral("x.ba")));
  BankModel m;
  EXPECT_FALSE(m.bancoSave(path(QStringLiteral("x.txt"))));
  EXPECT_FALSE(QFile::exists(path(QStringLiteral("x.txt"))));
  EXPECT_FALSE(m.bancoImport(path(QStringLiteral("x.evl"))));
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_TRUE(messages.shown().at(0).text.endsWith(Res(2900)));
  EXPECT_TRUE(messages.shown().at(1).text.endsWith(Res(2901)));
  EXPECT_EQ(m.lastErrorCode, 901);
}

}  // namespace
