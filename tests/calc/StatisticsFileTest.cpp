// The statistics files: *.dat round trips keep every bit, damaged or foreign
// files are refused without touching what was read before, the 6000 limit,
// and the CSV export on both decimal marks.
#include <cmath>
#include <cstring>
#include <random>

#include "calc/StatisticsFile.h"
#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"
#include "shell/StatisticsStore.h"
#include "tests/support/TestSupport.h"

namespace {

class StatisticsFileTest : public CalvixTest {
 protected:
  StatisticsStore& s = program().stats;
};

bool sameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }

TEST_F(StatisticsFileTest, WritesCountsThenOneValueALine) {
  for (double v : {1.5, -0.25, 1e20}) s.add(0, v);
  s.add(1, 0.1);
  EXPECT_EQ(writeDat(s), QByteArray("3,1\r\n1.5\r\n-0.25\r\n1E+20\r\n0.1\r\n"));
  // Fifteen digits are not always enough: such values get the digits they need.
  EXPECT_EQ(datNumber(0.1 + 0.2), QStringLiteral("0.30000000000000004"));
  EXPECT_EQ(datNumber(1.0 / 3), QStringLiteral("0.3333333333333333"));
}

TEST_F(StatisticsFileTest, RoundTripOf6000ValuesKeepsEveryDigit) {
  std::mt19937_64 gen(42);
  std::uniform_real_distribution<double> mantissa(-10, 10);
  std::uniform_int_distribution<int> exponent(-300, 300);
  for (int i = 0; i < 6000; ++i) s.add(0, std::ldexp(mantissa(gen), exponent(gen)));
  for (int i = 0; i < 3000; ++i) s.add(1, static_cast<double>(i) / 7);
  s.add(1, 0.0);
  s.add(1, -std::numeric_limits<double>::denorm_min());
  s.add(1, std::numeric_limits<double>::max());
  DatContents back;
  ASSERT_EQ(readDat(writeDat(s), back), DatRead::Ok);
  ASSERT_EQ(back.x.size(), 6000u);
  ASSERT_EQ(back.y.size(), 3003u);
  for (int i = 1; i <= 6000; ++i) ASSERT_TRUE(sameBits(back.x[i - 1], s.X[i])) << i;
  for (int i = 1; i <= 3003; ++i) ASSERT_TRUE(sameBits(back.y[i - 1], s.Y[i])) << i;
}

TEST_F(StatisticsFileTest, RefusesDamagedAndForeignFilesAndLeavesTheOutputAlone) {
  const char* const damaged[] = {
      "",                        // empty
      "3,2",                     // counts only, no line end
      "2,0\r\n1\r\n",            // one value short
      "1,1\r\n1\r\n",            // the Y value missing
      "1,0\r\n1\r\n2\r\n",       // a value too many
      "1,0\r\nabc\r\n",          // not a number
      "-1,0\r\n",                // negative count
      "1.5,0\r\n1\r\n",          // count not whole
      "1,0,0\r\n1\r\n",          // three counts
      "1,0\r\n1.2345",           // cut inside the last value
      "\"x\",\"y\"\r\n",         // a file of texts
      "0.5,\"2.5\",1\r\n",       // another module's line
  };
  for (const char* bytes : damaged) {
    DatContents out;
    out.x = {99};
    EXPECT_EQ(readDat(QByteArray(bytes), out), DatRead::Damaged) << bytes;
    EXPECT_EQ(out.x, std::vector<double>{99}) << bytes;
  }
  DatContents ok;
  EXPECT_EQ(readDat("0,0\r\n", ok), DatRead::Ok);
  EXPECT_EQ(readDat("1,1\n5\n6\n\n", ok), DatRead::Ok);  // bare line feeds and a blank end
  EXPECT_EQ(ok.y, std::vector<double>{6});
}

TEST_F(StatisticsFileTest, CountsAbove6000AreRefused) {
  QByteArray bytes = "6000,1\r\n";
  for (int i = 0; i < 6001; ++i) bytes += "1\r\n";
  DatContents out;
  EXPECT_EQ(readDat(bytes, out), DatRead::Ok);
  EXPECT_EQ(out.x.size(), 6000u);
  bytes.replace(0, 6, "6001,0");
  out = {};
  EXPECT_EQ(readDat(bytes, out), DatRead::TooMany);
  EXPECT_TRUE(out.x.empty());
  EXPECT_EQ(readDat("0,7000\r\n", out), DatRead::TooMany);
  EXPECT_EQ(readDat("1E+300,0\r\n", out), DatRead::TooMany);
}

// Rows to the longer list; fields in the system's decimal mark, split by the
// separator a spreadsheet expects with it.
TEST_F(StatisticsFileTest, CsvSeparatorFollowsTheDecimalMark) {
  for (bool comma : {false, true}) {
    if (comma) useComma();
    else usePoint();
    s.clearAll();
    for (double v : {1.5, -2.25, 3.0}) s.add(0, v);
    for (double v : {10.5, 1e-7}) s.add(1, v);
    const QString text = QString::fromLatin1(csvExport(s, program().DecimalSymbol.toText()));
    EXPECT_EQ(text, comma ? QStringLiteral("1,5;10,5\r\n-2,25;1E-07\r\n3\r\n")
                          : QStringLiteral("1.5,10.5\r\n-2.25,1E-07\r\n3\r\n"));
  }
  // A longer Y list keeps its values in the second column.
  s.clearAll();
  s.add(1, 4);
  EXPECT_EQ(csvExport(s, QStringLiteral(",")), QByteArray(";4\r\n"));
}

TEST_F(StatisticsFileTest, ExtensionRuleIgnoresCase) {
  EXPECT_TRUE(hasExtension(QStringLiteral("/a/b/datos.DAT"), QStringLiteral("dat")));
  EXPECT_TRUE(hasExtension(QStringLiteral("x.Dat"), QStringLiteral("dat")));
  EXPECT_TRUE(hasExtension(QStringLiteral("xdat"), QStringLiteral("dat")));  // only the ending counts
  EXPECT_FALSE(hasExtension(QStringLiteral("x.evl"), QStringLiteral("dat")));
  EXPECT_FALSE(hasExtension(QStringLiteral("x.dat.txt"), QStringLiteral("dat")));
}

}  // namespace
