// calvix-cli keys with the keys that open other modules: no window opens
// without a desktop, but the converter key still refuses a display that is
// not a number (a degree text) with the message of code 1; a hexadecimal
// "&h" display is a number.
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

TEST(KeysModuleKeysCommand, ConverterKeyRefusesADegreeText) {
  const auto run = [](const QString& sequence) {
    const CliRun r = runCli({QStringLiteral("--json"), QStringLiteral("keys"), sequence});
    EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
    return QJsonDocument::fromJson(r.out.toUtf8()).object();
  };
  QJsonObject o = run(QStringLiteral("12 Command58 30 Command7"));
  EXPECT_EQ(o.value("numero").toString(), QStringLiteral("12\u00B030"));
  EXPECT_EQ(o.value("errorCode").toInt(), 1);
  o = run(QStringLiteral("Command22 Command30(0) Command7"));
  EXPECT_EQ(o.value("numero").toString(), QStringLiteral("&hA"));
  EXPECT_EQ(o.value("errorCode").toInt(), 0);
  o = run(QStringLiteral("5 Command7 Command70 Command71"));
  EXPECT_EQ(o.value("numero").toString(), QStringLiteral("5"));
  EXPECT_EQ(o.value("errorCode").toInt(), 0);
}
