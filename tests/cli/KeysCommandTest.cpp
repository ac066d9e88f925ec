// calvix-cli keys: a fresh calculator takes a key sequence and prints its state.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/ErrorReport.h"
#include "tests/support/TestSupport.h"

namespace {

// The "name<TAB>value" lines of the plain output, history lines excluded.
QMap<QString, QString> fields(const QString& out) { return outputFields(out, QStringLiteral("history")); }

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
  EXPECT_EQ(QStringList({f.value("numero"), f.value("result"), f.value("func"), f.value("errorState"),
                         f.value("entryActive")}),
            QStringList({"9", "9", "=", "0", "0"}));
  EXPECT_TRUE(f.contains(QStringLiteral("pendingOp")));
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
      {"5 < Command9(3)", "result", "101  (Binario)", "101  (Binario)"},
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

// Keys pressed by name or by their keys, with the answers of the input boxes,
// on both decimal symbols (the engine's own tables hold the other edge cases).
TEST_F(KeysCommand, ButtonsAndAnswersWorkOnBothDecimalSymbols) {
  const struct {
    const char* keys;
    const char* answer;  // --answer, when the sequence opens an input box
    const char* field;
    const char* point;   // "<E18>" is the text of code 18
    const char* comma;
  } rows[] = {
      {"0 Command10(4)", nullptr, "result", "<E19>", "<E19>"},
      {"90 Command21(2)", nullptr, "result", "Error:  ", "Error:  "},
      {"171 Command46", nullptr, "result", "<E8>", "<E8>"},
      {"5 Command91", "8", "result", "05  (Base 8)", "05  (Base 8)"},
      {"5 Command91", "10", "result", "<E26>", "<E26>"},
      {"13 Command91", "2", "result", "1101  (Base 2)", "1101  (Base 2)"},
      {"Command48 12.5 Command5(1)", nullptr, "result", "12.5 Kelvin", "12,5 Kelvin"},
      {"12\u00BA30\u00BA Command65", nullptr, "numero", "12.5", "12,5"},
      {"3E9 B", nullptr, "result", "<E31>", "<E31>"},
      {"100 Shift+V Ctrl+V", nullptr, "numero", "100", "100"},
  };
  for (const auto& row : rows) {
    for (const bool comma : {false, true}) {
      QStringList options{QStringLiteral("--decimal"), comma ? QStringLiteral(",") : QStringLiteral(".")};
      if (row.answer) options << QStringLiteral("--answer") << QString::fromUtf8(row.answer);
      const CliRun r = keys(QString::fromUtf8(row.keys), options);
      ASSERT_EQ(r.exitCode, 0) << row.keys << ": " << r.err.toStdString();
      QString want = QString::fromUtf8(comma ? row.comma : row.point);
      if (want.startsWith(QLatin1String("<E"))) want = ErrorText(want.mid(2).chopped(1).toInt());
      EXPECT_EQ(fields(r.out).value(QLatin1String(row.field)), want) << row.keys << (comma ? " with a comma" : "");
    }
  }
}

TEST_F(KeysCommand, AnswersAreTypedUnlessTheyNameAButton) {
  // "2" is a base typed into the box, not the third button.
  CliRun r = keys(QStringLiteral("101 Command92"), {QStringLiteral("--answer"), QStringLiteral("2"),
                                                    QStringLiteral("--json")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_TRUE(o.value(QStringLiteral("result")).toString().endsWith(QLatin1String("=  5")));
  ASSERT_EQ(o.value(QStringLiteral("messages")).toArray().size(), 1);
  // Cancelling leaves the calculator as it was.
  r = keys(QStringLiteral("101 Command92"), {QStringLiteral("--answer"), QStringLiteral("button:1")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(fields(r.out).value(QStringLiteral("result")), QStringLiteral("0"));
  EXPECT_EQ(fields(r.out).value(QStringLiteral("numero")), QStringLiteral("101"));
  // The modes are part of the printed state.
  r = keys(QStringLiteral("Command50 Command48 Command43 Command22 5 Command60"));
  const auto f = fields(r.out);
  EXPECT_EQ(QStringList({f.value("angulo"), f.value("temperat"), f.value("hypFlag"), f.value("HexDec"), f.value("ivas")}),
            QStringList({"gra", "Kelvin", "H", "HEX", "5 %"}));
}

TEST_F(KeysCommand, MemoriesAndRegistersStartFromTheValuesGivenAndArePrinted) {
  // The command's own options follow its name.
  const CliRun r = runCli({QStringLiteral("--decimal"), QStringLiteral(","), QStringLiteral("keys"),
                           QStringLiteral("--memories"), QStringLiteral("1.5,2,,-3"), QStringLiteral("--registers"),
                           QStringLiteral("42.5:Área del círculo,,0.25"),
                           QStringLiteral("Command74(0) Shift+2 Command74(2) Shift+4")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const auto f = fields(r.out);
  const char* const expected[][2] = {
      {"memory1", "1,5"}, {"memory2", "44,5"}, {"memory3", "0"}, {"memory4", "-2,75"},
      {"register1", "42,5\tÁrea del círculo"}, {"register3", "0,25\tMemoria Intermodular: R 3"},
      {"register4", "0\tMemoria Intermodular: R 4"}};
  for (const auto& [name, value] : expected) EXPECT_EQ(f.value(QLatin1String(name)), QString::fromUtf8(value)) << name;

  const CliRun j = runCli({QStringLiteral("--json"), QStringLiteral("keys"), QStringLiteral("--registers=-1e-3:x"),
                           QStringLiteral("Command74(0)")});
  const QJsonObject o = QJsonDocument::fromJson(j.out.toUtf8()).object();
  EXPECT_EQ(o.value(QStringLiteral("registers")).toArray().at(0).toObject().value(QStringLiteral("value")).toDouble(),
            -1e-3);
  EXPECT_EQ(o.value(QStringLiteral("memories")).toArray().size(), 4);
}

TEST_F(KeysCommand, BadSequencesAreUsageErrors) {
  for (const QStringList& args : QList<QStringList>{{QStringLiteral("keys")},
                                                     {QStringLiteral("keys"), QStringLiteral("1 + Command99 =")},
                                                     {QStringLiteral("keys"), QStringLiteral("Command13(9)")},
                                                     {QStringLiteral("keys"), QStringLiteral("Shift+?")},
                                                     {QStringLiteral("keys"), QStringLiteral("--memories"),
                                                      QStringLiteral("1,2,3,4,5"), QStringLiteral("1")},
                                                     {QStringLiteral("keys"), QStringLiteral("--registers"),
                                                      QStringLiteral("1,abc"), QStringLiteral("1")}}) {
    const CliRun r = runCli(args);
    EXPECT_EQ(r.exitCode, 2) << args.join(QLatin1Char(' ')).toStdString();
    EXPECT_FALSE(r.err.isEmpty());
    EXPECT_TRUE(r.out.isEmpty());
  }
}

}  // namespace
