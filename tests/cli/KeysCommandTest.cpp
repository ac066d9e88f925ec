// calvix-cli keys: a fresh calculator takes a key sequence and prints its state.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/ErrorReport.h"
#include "tests/support/TestSupport.h"

namespace {

// The "name<TAB>value" lines of the plain output, history lines excluded.
QMap<QString, QString> fields(const QString& out) {
  QMap<QString, QString> map;
  for (const QString& line : out.split(QLatin1Char('\n'))) {
    const qsizetype tab = line.indexOf(QLatin1Char('\t'));
    if (tab < 0 || line.startsWith(QLatin1String("history"))) continue;
    map.insert(line.left(tab), line.mid(tab + 1));
  }
  return map;
}

class KeysCommand : public CalvixTest {
 protected:
  static CliRun keys(const QString& sequence, const QStringList& options = {}) {
    return runCli(options + QStringList{QStringLiteral("keys"), sequence});
  }
};

TEST_F(KeysCommand, PrintsTheStateAfterTheSequence) {
  const CliRun r = keys(QStringLiteral("2 + 3 + 4 ="), {QStringLiteral("--decimal"), QStringLiteral(".")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const auto f = fields(r.out);
  EXPECT_EQ(f.value(QStringLiteral("numero")), QStringLiteral("9"));
  EXPECT_EQ(f.value(QStringLiteral("result")), QStringLiteral("9"));
  EXPECT_EQ(f.value(QStringLiteral("func")), QStringLiteral("="));
  EXPECT_EQ(f.value(QStringLiteral("errorState")), QStringLiteral("0"));
  EXPECT_TRUE(f.contains(QStringLiteral("pendingOp")));
  EXPECT_EQ(f.value(QStringLiteral("entryActive")), QStringLiteral("0"));
  EXPECT_TRUE(r.out.contains(QLatin1String("\nhistory\t9\n"))) << r.out.toStdString();
}

TEST_F(KeysCommand, TokensReachTheEngineWithBothDecimalSymbols) {
  const struct {
    const char* keys;
    const char* field;
    const char* point;
    const char* comma;
  } rows[] = {
      {"1.5 + 1.25 =", "numero", "2.75", "2,75"},
      {"5 < + 3 = 7 =", "numero", "-2", "-2"},
      {"2 Command61 1 / 3 =", "numero", "0.33", "0,33"},
      {"Command22 Command30(5) Command30(5) + 1 =", "numero", "256", "256"},
      {"1E<5", "numero", "1E-5", "1E-5"},
  };
  for (const auto& row : rows) {
    for (const bool comma : {false, true}) {
      const CliRun r = keys(QString::fromUtf8(row.keys),
                            {QStringLiteral("--decimal"), comma ? QStringLiteral(",") : QStringLiteral(".")});
      ASSERT_EQ(r.exitCode, 0) << row.keys << ": " << r.err.toStdString();
      EXPECT_EQ(fields(r.out).value(QLatin1String(row.field)), QString::fromUtf8(comma ? row.comma : row.point))
          << row.keys << (comma ? " with a comma" : " with a point");
    }
  }
}

TEST_F(KeysCommand, JsonHasTheFieldsTheHistoryAndTheMessages) {
  const CliRun r = keys(QStringLiteral("8 / 0 ="), {QStringLiteral("--json"), QStringLiteral("--answer"),
                                                    QStringLiteral("1")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("numero")).toString(), QStringLiteral("0"));
  EXPECT_EQ(o.value(QStringLiteral("result")).toString(), ErrorText(31));
  EXPECT_EQ(o.value(QStringLiteral("errorState")).toInt(-1), 3);
  EXPECT_EQ(o.value(QStringLiteral("pendingOp")).toString(QStringLiteral("missing")), QString());
  EXPECT_EQ(o.value(QStringLiteral("entryActive")).toInt(-1), 1);
  EXPECT_TRUE(o.value(QStringLiteral("func")).isString());
  EXPECT_FALSE(o.value(QStringLiteral("history")).toArray().isEmpty());
  EXPECT_TRUE(o.value(QStringLiteral("messages")).isArray());
}

TEST_F(KeysCommand, LanguageOptionChangesTheErrorText) {
  const CliRun r = keys(QStringLiteral("8 / 0 ="), {QStringLiteral("--lang"), QStringLiteral("en")});
  ASSERT_EQ(r.exitCode, 0);
  program().LanguageOffset = 10000;
  EXPECT_EQ(fields(r.out).value(QStringLiteral("result")), ErrorText(31));
  EXPECT_TRUE(fields(r.out).value(QStringLiteral("result")).startsWith(QLatin1String("Error:  ")));
}

TEST_F(KeysCommand, BadSequencesAreUsageErrors) {
  for (const QStringList& args : QList<QStringList>{{QStringLiteral("keys")},
                                                     {QStringLiteral("keys"), QStringLiteral("1 + Command99 =")},
                                                     {QStringLiteral("keys"), QStringLiteral("Command13(9)")},
                                                     {QStringLiteral("keys"), QStringLiteral("Shift+?")}}) {
    const CliRun r = runCli(args);
    EXPECT_EQ(r.exitCode, 2) << args.join(QLatin1Char(' ')).toStdString();
    EXPECT_FALSE(r.err.isEmpty());
    EXPECT_TRUE(r.out.isEmpty());
  }
}

}  // namespace
