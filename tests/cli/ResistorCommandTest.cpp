// calvix-cli resistor: bands to value and value to bands.
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/ErrorReport.h"
#include "tests/support/TestSupport.h"

namespace {

class ResistorCommand : public CalvixTest {};

TEST_F(ResistorCommand, BothWays) {
  const struct {
    QStringList args;
    const char* value;
    const char* tolerance;
    const char* coefficient;
    const char* bands;
  } rows[] = {
      {{"--bands", "4", "brown", "black", "red", "gold"}, "1000", "5", "", "brown black red gold"},
      {{"--bands", "4", "brown", "black"}, "", "", "", "brown black x x"},
      {{"--bands", "6", "brown", "black", "black", "red", "brown", "red"}, "10000", "1", "(C) 50 ppm/ºC",
       "brown black black red brown red"},
      {{"--bands", "5", "--value", "4732"}, "4730", "5", "", "yellow violet orange brown gold"},
      {{"--decimal", ",", "resistor", "--bands", "3", "--value", "0,47"}, "0,47", "20", "", "yellow violet silver"},
  };
  for (const auto& row : rows) {
    QStringList args = row.args;
    if (!args.contains(QStringLiteral("resistor"))) args.prepend(QStringLiteral("resistor"));
    const CliRun r = runCli(args);
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const auto f = outputFields(r.out);
    EXPECT_EQ(QStringList({f.value("value"), f.value("tolerance"), f.value("coefficient"), f.value("bands")}),
              QStringList({QString::fromUtf8(row.value), QString::fromUtf8(row.tolerance),
                           QString::fromUtf8(row.coefficient), QString::fromUtf8(row.bands)}))
        << args.join(' ').toStdString();
  }
}

TEST_F(ResistorCommand, OutOfRangeFailsWithTheMessage) {
  CliRun r = runCli({QStringLiteral("resistor"), QStringLiteral("--bands"), QStringLiteral("4"),
                     QStringLiteral("--value"), QStringLiteral("0.001")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(QStringLiteral("Fuera de Rango"))) << r.err.toStdString();
  r = runCli({QStringLiteral("--json"), QStringLiteral("resistor"), QStringLiteral("--bands"), QStringLiteral("4"),
              QStringLiteral("--value"), QStringLiteral("1e12")});
  EXPECT_EQ(r.exitCode, 1);
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value("errorCode").toInt(), 8);
  EXPECT_EQ(o.value("error").toString(), ErrorText(8));
  EXPECT_EQ(runCli({QStringLiteral("resistor"), QStringLiteral("--bands"), QStringLiteral("7"), QStringLiteral("red")})
                .exitCode,
            2);
}

}  // namespace
