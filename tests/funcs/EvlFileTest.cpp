// The *.evl file: its exact bytes, a round trip of every field, and damaged
// or foreign files refused whole.
#include "funcs/EvlFile.h"
#include "tests/support/TestSupport.h"

namespace {

EvlInputs sample() {
  EvlInputs in;
  in.mode = 1;
  in.start = QStringLiteral("-2,5");
  in.end = QStringLiteral("1E+3");
  in.points = QStringLiteral("200");
  in.increment = QStringLiteral("0,0251256281407035");
  in.byPoints = false;
  in.variables = QStringLiteral("A=2:B=3");
  in.f = QStringLiteral("Suma(x, A, B) + pow(x, 2)");
  in.g = QStringLiteral("Año + ñ");
  return in;
}

}  // namespace

TEST(EvlFile, WritesTheModeThenTheEightFieldsInTheSequentialForm) {
  EvlInputs in;
  in.start = QStringLiteral("0");
  in.end = QStringLiteral("5");
  in.points = QStringLiteral("200");
  in.increment = QStringLiteral("0.0251256281407035");
  in.variables = QStringLiteral("A=2:B=3");
  in.f = QStringLiteral("2.23*sin(A*x)*(cos(B*x))^2");
  in.g = QStringLiteral("x*cos(x^1.7)");
  EXPECT_EQ(writeEvl(in), QByteArray("0\r\n\"0\",\"5\",\"200\",\"0.0251256281407035\",#TRUE#,\"A=2:B=3\","
                                     "\"2.23*sin(A*x)*(cos(B*x))^2\",\"x*cos(x^1.7)\"\r\n"));
}

TEST(EvlFile, EveryFieldComesBackIncludingCommasAndAccents) {
  const EvlInputs in = sample();
  ASSERT_TRUE(evlWritable(in));
  EvlInputs out;
  ASSERT_TRUE(readEvl(writeEvl(in), out));
  EXPECT_EQ(out, in);
  // Empty texts, and line ends of another system.
  EvlInputs empty;
  ASSERT_TRUE(readEvl(writeEvl(empty), out));
  EXPECT_EQ(out, empty);
  QByteArray unix = writeEvl(in);
  unix.replace("\r\n", "\n");
  ASSERT_TRUE(readEvl(unix, out));
  EXPECT_EQ(out, in);
}

TEST(EvlFile, TextsTheFormCannotHoldAreNotWritable) {
  for (const QString& bad : {QStringLiteral("x & \"a\""), QStringLiteral("x\n+1"), QStringLiteral("√x")}) {
    EvlInputs in = sample();
    in.f = bad;
    EXPECT_FALSE(evlWritable(in)) << bad.toStdString();
  }
}

TEST(EvlFile, DamagedFilesAreRefusedAndLeaveTheTargetAlone) {
  const EvlInputs before = sample();
  const QByteArray good = writeEvl(before);
  // Every cut short of the whole file is refused.
  for (qsizetype n = 0; n < good.size() - 2; ++n) {
    EvlInputs out = before;
    EXPECT_FALSE(readEvl(good.left(n), out)) << n;
    EXPECT_EQ(out, before);
  }
  const QList<QByteArray> damaged = {
      "2\r\n\"0\",\"5\",\"200\",\"1\",#TRUE#,\"\",\"x\",\"x\"\r\n",             // no such mode
      "x\r\n\"0\",\"5\",\"200\",\"1\",#TRUE#,\"\",\"x\",\"x\"\r\n",             // mode not a number
      "0\r\n\"0\",\"5\",\"200\",\"1\",maybe,\"\",\"x\",\"x\"\r\n",              // flag not a Boolean
      "0\r\n\"0\",\"5\",\"200\",\"1\",#TRUE#,\"\",\"x\"\r\n",                   // a field missing
      "0\r\n\"0\",\"5\",\"200\",\"1\",#TRUE#,\"\",\"x\",\"x\",\"y\"\r\n",       // a field too many
      "0\r\n\"0\",\"5\",\"200\",\"1\",#TRUE#,\"\",\"x\",\"x\"\r\n\"more\"\r\n",  // a third line
      "0\r\n0,5,200,1,#TRUE#,A,x,x\r\n",                                        // texts without quotes
      "0\r\n\"0\"\",5\",\"200\",\"1\",#TRUE#,\"\",\"x\",\"x\"\r\n",          // a stray quote splits a box
      "0\r\n\"1\",\"5\",\"200\",\"0.\r25\",#TRUE#,\"\",\"x\",\"x\"\r\n",           // a line break inside a box
      "0,\"0\"\r\n\"5\",\"200\",\"1\",#TRUE#,\"\",\"x\",\"x\"\r\n",             // fields on the wrong lines
      "\x89PNG\r\n\x1a\n\0\0\0\rIHDR\r\n",                                      // another kind of file
  };
  for (const QByteArray& bytes : damaged) {
    EvlInputs out = before;
    EXPECT_FALSE(readEvl(bytes, out)) << bytes.toStdString();
    EXPECT_EQ(out, before);
  }
}

TEST(EvlFile, TheExtensionIsTheLastThreeLettersInAnyCase) {
  EXPECT_TRUE(hasEvlExtension(QStringLiteral("curve.evl")));
  EXPECT_TRUE(hasEvlExtension(QStringLiteral("CURVE.EVL")));
  EXPECT_FALSE(hasEvlExtension(QStringLiteral("curve.evl.txt")));
  EXPECT_FALSE(hasEvlExtension(QStringLiteral("curve.dat")));
  EXPECT_FALSE(hasEvlExtension(QStringLiteral("vl")));
}
