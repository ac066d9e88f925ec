// calvix-cli number: the runtime's reading and writing of one number, with
// the decimal symbol the run pretends the system has.
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {
QMap<QString, QString> rows(const QString& out) {
  QMap<QString, QString> m;
  for (const QString& line : out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
    m.insert(line.section(QLatin1Char('\t'), 0, 0), line.section(QLatin1Char('\t'), 1));
  }
  return m;
}
}  // namespace

TEST(NumberCommand, CommaSystemReadsTheCommaAsDecimalSeparator) {
  const CliRun r = runCli({QStringLiteral("--decimal"), QStringLiteral(","), QStringLiteral("number"),
                           QStringLiteral("--format"), QStringLiteral("#,##0.00"), QStringLiteral("-1234,565")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const auto m = rows(r.out);
  EXPECT_EQ(m.value(QStringLiteral("Val")), QStringLiteral("-1234"));
  EXPECT_EQ(m.value(QStringLiteral("CDbl")), QStringLiteral("-1234,565"));
  EXPECT_EQ(m.value(QStringLiteral("Str")), QStringLiteral("-1234.565"));
  EXPECT_EQ(m.value(QStringLiteral("CInt")), QStringLiteral("-1235"));
  EXPECT_EQ(m.value(QStringLiteral("Format #,##0.00")), QStringLiteral("-1.234,57"));
}

TEST(NumberCommand, PointSystemTreatsTheCommaAsAGroupMark) {
  const CliRun r = runCli({QStringLiteral("number"), QStringLiteral("12,5"), QStringLiteral("--decimal=.")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(rows(r.out).value(QStringLiteral("CDbl")), QStringLiteral("125"));
  EXPECT_EQ(rows(r.out).value(QStringLiteral("Val")), QStringLiteral("12"));
}

TEST(NumberCommand, JsonCarriesTheFieldsAndAnEmptyMessageList) {
  const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("number"), QStringLiteral("--decimal"),
                           QStringLiteral("."), QStringLiteral("40000.5")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("CInt")).toString(), QStringLiteral("Error 6"));  // beyond 16 bits
  EXPECT_EQ(o.value(QStringLiteral("CLng")).toString(), QStringLiteral("40000"));    // half to even
  EXPECT_TRUE(o.value(QStringLiteral("messages")).isArray());
}

TEST(NumberCommand, TextThatIsNoNumberShowsTheFailure) {
  const CliRun r = runCli({QStringLiteral("--decimal"), QStringLiteral("."), QStringLiteral("number"),
                           QStringLiteral("abc")});
  ASSERT_EQ(r.exitCode, 0);
  EXPECT_EQ(rows(r.out).value(QStringLiteral("CDbl")), QStringLiteral("Error 13"));
  EXPECT_EQ(rows(r.out).value(QStringLiteral("Val")), QStringLiteral("0"));
}
