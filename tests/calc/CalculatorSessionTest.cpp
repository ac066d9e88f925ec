// Trading one calculator for the other: what carries over (the program-wide
// memories, registers, VAT rate and currencies), what does not (numero, the
// pending operator, the history), and which tokens each window refuses.
#include "calc/CalculatorSession.h"
#include "calc/NormalCalculatorModel.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "tests/support/TestSupport.h"

namespace {

class CalculatorSessionTest : public CalvixTest {
 protected:
  static void run(CalculatorSession& s, const char* sequence) {
    QList<SessionStep> steps;
    QString error;
    ASSERT_TRUE(parseSessionSequence(QString::fromUtf8(sequence), s.shown(), steps, error)) << error.toStdString();
    runSessionSteps(s, steps);
  }
  static bool parses(const char* sequence, CalculatorKind first) {
    QList<SessionStep> steps;
    QString error;
    return parseSessionSequence(QString::fromUtf8(sequence), first, steps, error);
  }
};

TEST_F(CalculatorSessionTest, MemorySetInOneWindowShowsInTheOther) {
  CalculatorSession s(CalculatorKind::Scientific);
  run(s, "42 Shift+1 normalcalc");
  ASSERT_EQ(s.shown(), CalculatorKind::Normal);
  EXPECT_EQ(s.engine().m1[0], QStringLiteral("42"));
  run(s, "8 Shift+2 cientificacalc Command24(1)");
  EXPECT_EQ(s.engine().numero.text(), QStringLiteral("8"));
}

TEST_F(CalculatorSessionTest, SwitchingClearsTheEntryAndThePendingOperatorBothWays) {
  CalculatorSession s(CalculatorKind::Normal);
  run(s, "12 + cientificacalc");
  EXPECT_EQ(s.engine().numero.text(), QStringLiteral("0"));
  EXPECT_EQ(s.engine().pendingOp, QString());
  run(s, "3 =");
  EXPECT_EQ(s.engine().numero.text(), QStringLiteral("3"));
  run(s, "7 * normalcalc 2 =");
  EXPECT_EQ(s.engine().numero.text(), QStringLiteral("2"));
  EXPECT_TRUE(s.engine().Combo1.lines().filter(QStringLiteral("7")).isEmpty());
}

TEST_F(CalculatorSessionTest, ModeWordFollowsTheWindowShown) {
  CalculatorSession s(CalculatorKind::Scientific);
  EXPECT_EQ(program().CalculatorMode.toText(), QStringLiteral("avanzada"));
  run(s, "normalcalc");
  EXPECT_EQ(program().CalculatorMode.toText(), QStringLiteral("normalita"));
  ASSERT_NE(s.normal(), nullptr);
  run(s, "cientificacalc");
  EXPECT_EQ(program().CalculatorMode.toText(), QStringLiteral("avanzada"));
  EXPECT_EQ(s.normal(), nullptr);
}

TEST_F(CalculatorSessionTest, VatRateCurrenciesAndRegistersCarryOver) {
  WriteRegister(2, 12.5, QStringLiteral("Área"));
  CalculatorSession s(CalculatorKind::Scientific);
  run(s, "21 Command60 normalcalc 100 Shift+V");
  EXPECT_EQ(s.engine().numero.text(), QStringLiteral("121"));
  EXPECT_EQ(s.engine().ivas, QStringLiteral("21 %"));
  run(s, "Command74(2)");
  EXPECT_EQ(s.engine().numero.text(), QStringLiteral("12.5"));
  run(s, "2 Q");
  EXPECT_EQ(s.engine().numero.text(), QStringLiteral("332.772"));
}

TEST_F(CalculatorSessionTest, EachWindowRefusesTheControlsItLacks) {
  const struct {
    const char* sequence;
    CalculatorKind first;
    bool ok;
  } rows[] = {
      {"9 Command36 Command40 Command39 Command64 Command45 Command123 Command124", CalculatorKind::Normal, true},
      {"Command14", CalculatorKind::Normal, false},
      {"Command22", CalculatorKind::Normal, false},
      {"Command36(0)", CalculatorKind::Normal, false},
      {"Regresion(1)", CalculatorKind::Normal, false},
      {"MSFlexGrid1(0)=1", CalculatorKind::Normal, false},
      {"X Y N º", CalculatorKind::Normal, true},
      {"Command123", CalculatorKind::Scientific, false},
      {"normalcalc Command123", CalculatorKind::Scientific, true},
      {"normalcalc Command40 cientificacalc Command123", CalculatorKind::Scientific, false},
      {"cientificacalc Command14 normalcalc normalcalc", CalculatorKind::Normal, true},
  };
  for (const auto& row : rows) EXPECT_EQ(parses(row.sequence, row.first), row.ok) << row.sequence;
}

}  // namespace
