// The sequential text form: what "Write #" puts on disk byte for byte, what
// "Input #" reads back, and how a truncated or damaged file fails.
#include <QFile>

#include "shell/runtime/DateTime.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"
#include "tests/support/TestSupport.h"

using namespace rt;

class SequentialFile : public CalvixTest {};

TEST_F(SequentialFile, WriteFormOfEveryValueType) {
  useComma();  // the file form never depends on the system's separator
  SequentialWriter w;
  w.write({Variant("TIPO IVA"), Variant(16.0)});
  w.write({Variant::integer(-3), Variant::longValue(100000), Variant(-2.5), Variant(0.5), Variant(1e18)});
  w.write({Variant::boolean(true), Variant::boolean(false), Variant()});
  w.write({Variant::date(DateSerial(2024, 3, 7)), Variant::date(DateSerial(2024, 3, 7) + 0.75),
           Variant::date(TimeSerial(6, 30, 0))});
  w.write({Variant::single(15708820.0f), Variant::single(0.1f)});
  w.write({Variant("\n")});
  w.write({Variant(QStringLiteral("MODO RESOLUCIÓN 5€"))});
  w.printLine(QStringLiteral("plain line, kept as is"));
  const QByteArray expected =
      "\"TIPO IVA\",16\r\n"
      "-3,100000,-2.5,0.5,1E+18\r\n"
      "#TRUE#,#FALSE#,\r\n"
      "#2024-03-07#,#2024-03-07 18:00:00#,#06:30:00#\r\n"
      "1.570882E+07,0.1\r\n"
      "\"\n\"\r\n"
      "\"MODO RESOLUCI\xD3N 5\x80\"\r\n"
      "plain line, kept as is\r\n";
  EXPECT_EQ(w.bytes(), expected);
}

TEST_F(SequentialFile, EveryTypeRoundTrips) {
  SequentialWriter w;
  const double when = DateSerial(1999, 12, 31) + TimeSerial(23, 59, 58);
  w.write({Variant("a, \"b\" c"), Variant(123.456), Variant::integer(-32768), Variant::longValue(-2147483647)});
  w.write({Variant::boolean(true), Variant::date(when), Variant::single(3.25f), Variant(-1.5e-300)});
  w.write({Variant("\n"), Variant("á€ü"), Variant(), Variant(1.0 / 3)});
  SequentialReader r(w.bytes());
  EXPECT_EQ(r.readText(), QStringLiteral("a, "));  // a quote ends the text; the field is skipped
  EXPECT_EQ(r.readDouble(), 123.456);
  EXPECT_EQ(r.readInteger(), -32768);
  EXPECT_EQ(r.readLong(), -2147483647);
  EXPECT_TRUE(r.readBoolean());
  EXPECT_DOUBLE_EQ(r.readDate(), when);
  EXPECT_EQ(r.readSingle(), 3.25f);
  EXPECT_EQ(r.readDouble(), -1.5e-300);
  EXPECT_EQ(r.readText(), QStringLiteral("\n"));
  EXPECT_EQ(r.readText(), QStringLiteral("á€ü"));
  EXPECT_TRUE(r.readVariant().isEmpty());
  EXPECT_EQ(r.readDouble(), 0.333333333333333);  // written with 15 digits
  EXPECT_TRUE(r.atEnd());
  EXPECT_EQ(errorOf([&] { r.readText(); }), kInputPastEndOfFile);
}

TEST_F(SequentialFile, VariantsTakeTheTypeOfTheirField) {
  SequentialReader r(QByteArray("\"x\",12,70000,1.5,#TRUE#,#2024-03-07#,,#NULL#,word\r\n"));
  EXPECT_EQ(r.readVariant().type(), VType::String);
  EXPECT_EQ(r.readVariant().type(), VType::Integer);
  EXPECT_EQ(r.readVariant().type(), VType::Long);
  EXPECT_EQ(r.readVariant().type(), VType::Double);
  EXPECT_EQ(r.readVariant().type(), VType::Boolean);
  const Variant d = r.readVariant();
  EXPECT_EQ(d.type(), VType::Date);
  EXPECT_EQ(d.rawNumber(), DateSerial(2024, 3, 7));
  EXPECT_TRUE(r.readVariant().isEmpty());
  EXPECT_TRUE(r.readVariant().isEmpty());
  EXPECT_EQ(r.readVariant().toText(), QStringLiteral("word"));
}

TEST_F(SequentialFile, ReaderAcceptsBareLineFeedsBlanksAndLeadingPoints) {
  SequentialReader r(QByteArray("  1 ,  -.5\n.25\r\n\"t\"  ,2"));
  EXPECT_EQ(r.readInteger(), 1);
  EXPECT_EQ(r.readDouble(), -0.5);
  EXPECT_EQ(r.readDouble(), 0.25);
  EXPECT_EQ(r.readText(), QStringLiteral("t"));
  EXPECT_EQ(r.readInteger(), 2);
  EXPECT_TRUE(r.atEnd());
}

TEST_F(SequentialFile, BadValuesAndOverflowsFail) {
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("\"COLOR VISOR\"")).readDouble(); }), kTypeMismatch);
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("abc")).readInteger(); }), kTypeMismatch);
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("1,5")).readBoolean(); }), 0);
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("maybe")).readBoolean(); }), kTypeMismatch);
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("40000")).readInteger(); }), kOverflow);
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("#2024-02-30#")).readDate(); }), kTypeMismatch);
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("1e999")).readDouble(); }), kTypeMismatch);
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("")).readText(); }), kInputPastEndOfFile);
  EXPECT_EQ(errorOf([] { SequentialReader(QByteArray("   ")).readText(); }), kInputPastEndOfFile);
}

TEST_F(SequentialFile, ATruncatedFileFailsAtThePointItEnds) {
  SequentialWriter w;
  for (int i = 0; i < 10; ++i) w.write({Variant(QStringLiteral("K%1").arg(i)), Variant(i * 1.5)});
  const QByteArray cut = w.bytes().left(w.bytes().size() / 2);
  SequentialReader r(cut);
  int records = 0;
  const int error = errorOf([&] {
    for (int i = 0; i < 10; ++i) {
      r.readText();
      r.readDouble();
      ++records;
    }
  });
  EXPECT_NE(error, 0);
  EXPECT_LT(records, 10);
  EXPECT_GE(records, 4);
}

TEST_F(SequentialFile, LineInputReadsWholeLines) {
  SequentialReader r(QByteArray("first, line\r\nsecond\nlast"));
  EXPECT_EQ(r.readLine(), QStringLiteral("first, line"));
  EXPECT_EQ(r.readLine(), QStringLiteral("second"));
  EXPECT_EQ(r.readLine(), QStringLiteral("last"));
  EXPECT_EQ(errorOf([&] { r.readLine(); }), kInputPastEndOfFile);
}

TEST_F(SequentialFile, WholeFilesAreReplacedAtomically) {
  const QString path = appFolder.filePath(QStringLiteral("data.txt"));
  writeWholeFile(path, "one\r\n");
  writeWholeFile(path, "two\r\n");
  EXPECT_EQ(readWholeFile(path), QByteArray("two\r\n"));
  EXPECT_EQ(errorOf([&] { readWholeFile(appFolder.filePath(QStringLiteral("missing.txt"))); }), kFileNotFound);
  EXPECT_EQ(errorOf([&] { readWholeFile(appFolder.filePath(QStringLiteral("no/such/dir/x.txt"))); }), kPathNotFound);
  EXPECT_EQ(errorOf([&] { writeWholeFile(appFolder.filePath(QStringLiteral("no/such/x.txt")), "x"); }),
            kPathNotFound);
  // No temporary file is left beside the target.
  EXPECT_EQ(QDir(appFolder.path()).entryList(QDir::Files), QStringList{QStringLiteral("data.txt")});
}
