// calvix-cli keys --normal and the window switch tokens: the state printed is
// the window shown at the end; a control that window lacks is bad usage.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {

QJsonObject json(const CliRun& r) { return QJsonDocument::fromJson(r.out.toUtf8()).object(); }

CliRun keys(const QStringList& options, const QString& sequence) {
  return runCli(QStringList{QStringLiteral("--decimal"), QStringLiteral("."), QStringLiteral("keys")} + options +
                QStringList{sequence});
}

class NormalKeysCommand : public CalvixTest {};

TEST_F(NormalKeysCommand, NormalWindowKeysAndTheWindowShownAtTheEnd) {
  const struct {
    QStringList options;
    const char* sequence;
    const char* window;
    const char* mode;
    const char* numero;
    const char* memory1;
  } rows[] = {
      {{"--normal"}, "81 F5 + 1 =", "comand2", "normalita", "10", "0"},
      {{"--normal"}, "5 X N H", "comand2", "normalita", "5", "0"},
      {{"--normal"}, "7 Shift+1 3 + cientificacalc", "comand1", "avanzada", "0", "7"},
      {{}, "12 + normalcalc Command45", "comand2", "normalita", "3.14159265358979", "0"},
      {{}, "4 normalcalc cientificacalc 5", "comand1", "avanzada", "5", "0"},
  };
  for (const auto& row : rows) {
    const CliRun r = keys(row.options + QStringList{QStringLiteral("--json")}, QString::fromUtf8(row.sequence));
    ASSERT_EQ(r.exitCode, 0) << row.sequence << ": " << r.err.toStdString();
    const QJsonObject o = json(r);
    EXPECT_EQ(o.value("window").toString(), QString::fromUtf8(row.window)) << row.sequence;
    EXPECT_EQ(o.value("mode").toString(), QString::fromUtf8(row.mode)) << row.sequence;
    EXPECT_EQ(o.value("numero").toString(), QString::fromUtf8(row.numero)) << row.sequence;
    EXPECT_EQ(o.value("pendingOp").toString(), QString()) << row.sequence;
    EXPECT_EQ(o.value("memories").toArray().at(0).toString(), QString::fromUtf8(row.memory1)) << row.sequence;
  }
}

TEST_F(NormalKeysCommand, PlainOutputHasNoWindowLine) {
  const CliRun r = keys({QStringLiteral("--normal")}, QStringLiteral("2 F6"));
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_TRUE(r.out.startsWith(QLatin1String("numero\t4\n"))) << r.out.toStdString();
  EXPECT_FALSE(r.out.contains(QLatin1String("window")));
}

TEST_F(NormalKeysCommand, AControlTheWindowShownLacksIsBadUsage) {
  for (const auto& [options, sequence] : std::vector<std::pair<QStringList, const char*>>{
           {{"--normal"}, "2 Command14 3"},
           {{"--normal"}, "Regresion(1)"},
           {{}, "Command123"},
           {{"--normal"}, "cientificacalc Command124"}}) {
    const CliRun r = keys(options, QString::fromUtf8(sequence));
    EXPECT_EQ(r.exitCode, 2) << sequence;
    EXPECT_TRUE(r.out.isEmpty()) << sequence;
  }
}

}  // namespace
