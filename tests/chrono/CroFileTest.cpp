// The "*.cro" list of times: byte for byte, and the extension rule.
#include "chrono/CroFile.h"
#include "tests/support/TestSupport.h"

TEST(CroFile, OneQuotedTextPerLapWithCrLf) {
  EXPECT_EQ(writeCro({QStringLiteral("00:00:05"), QStringLiteral("01:02:03  47"), QString()}),
            QByteArray("\"00:00:05\"\r\n\"01:02:03  47\"\r\n\"\"\r\n"));
  EXPECT_TRUE(writeCro({}).isEmpty());
}

TEST(CroFile, ExtensionIsTheLastThreeLettersInAnyCase) {
  struct Row {
    const char* name;
    bool ok;
  };
  const Row rows[] = {{"laps.cro", true}, {"LAPS.CRO", true}, {"laps.cro.txt", false},
                      {"laps.evl", false}, {"cr", false}, {"", false}};
  for (const Row& r : rows) EXPECT_EQ(hasCroExtension(QString::fromLatin1(r.name)), r.ok) << r.name;
}
