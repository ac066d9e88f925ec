// The normal calculator driven through its own key map and keys: what it has
// of its own (roots, powers, pi, 1/x, EXP, F5 to F8), what it lacks (the
// statistics, factorial, base and degree keys), and its history pads.
#include "calc/NormalCalculatorModel.h"
#include "shell/ErrorReport.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

struct NormalCase {
  const char* name;
  const char* keys;  // characters typed one by one; "{F5}" holds that key
  const char* numero;
  const char* func = nullptr;  // not checked when null
  int errorCode = 0;           // the code whose text result shows
};

const NormalCase kCases[] = {
    {"SquareRootOnF5", "81{F5}", "9", "\xE2\x88\x9Ax"},
    {"SquareOnF6", "12{F6}", "144", "x\xC2\xB2"},
    {"CubeRootOfNegativeOnF7", "27<{F7}", "-3", "\xE2\x88\x9Bx"},
    {"CubeOnF8", "2{F8}", "8", "x\xC2\xB3"},
    {"PiOnP", "p", "3.14159265358979", "Pi"},
    {"ReciprocalOnI", "4i", "0.25", "1/x"},
    {"ExponentOnE", "2e3", "2E3"},
    {"SquareRootOfNegativeIsCode7", "4<{F5}", "0", nullptr, 7},
    {"SquareBeyondItsLimitIsCode8", "2e155{F6}", "0", nullptr, 8},
    {"CubeBeyondItsLimitIsCode8", "6e102{F8}", "0", nullptr, 8},
    {"ReciprocalOfZeroIsCode19", "0i", "0", nullptr, 19},
    {"ArithmeticAsInTheOtherWindow", "2+3*4=", "20"},
    {"ClearAndCorrector", "12+5c3=", "15"},
    {"KeysItLacksDoNothing", "5xyndhobX\xC2\xBA", "5"},
    {"ScientificFunctionKeysDoNothing", "100{F1}{F2}{F9}{F11}", "100"},
    {"CurrencyKeyQ", "1q", "166.386"},
};

// Types a sequence: "{Fn}" is a held function key, anything else a character.
void type(NormalCalculatorModel& m, const QString& keys) {
  for (qsizetype i = 0; i < keys.size(); ++i) {
    if (keys.at(i) == QLatin1Char('{')) {
      const qsizetype end = keys.indexOf(QLatin1Char('}'), i);
      m.keyDown(Qt::Key_F1 + keys.mid(i + 2, end - i - 2).toInt() - 1);
      i = end;
      continue;
    }
    m.typeCharacter(keys.at(i));
  }
}

using NormalRun = SeparatorRun<NormalCase>;
class NormalCalculatorKeys : public CalvixTest, public ::testing::WithParamInterface<NormalRun> {};

TEST_P(NormalCalculatorKeys, DisplayAfterKeys) {
  const NormalRun& run = GetParam();
  if (run.comma) useComma();
  NormalCalculatorModel m;
  type(m, QString::fromUtf8(run.row.keys));
  QString expected = QString::fromUtf8(run.row.numero);
  if (run.comma) expected.replace(QLatin1Char('.'), QLatin1Char(','));
  EXPECT_EQ(m.engine.numero.text(), expected);
  if (run.row.func) {
    EXPECT_EQ(m.engine.func, QString::fromUtf8(run.row.func));
  }
  if (run.row.errorCode) {
    EXPECT_EQ(m.engine.result.text(), ErrorText(run.row.errorCode));
  }
  EXPECT_EQ(program().stats.nx + program().stats.ny, 0);
}

INSTANTIATE_TEST_SUITE_P(Table, NormalCalculatorKeys, ::testing::ValuesIn(onBothSeparators(kCases)),
                         separatorRunName<NormalCase>);

class NormalCalculatorModelTest : public CalvixTest {};

TEST_F(NormalCalculatorModelTest, LoadSetsTheModeWordAndTheSharedStartValues) {
  program().CalculatorMode = QStringLiteral("avanzada");
  program().Memories[2] = 7.5;
  NormalCalculatorModel m;
  EXPECT_EQ(program().CalculatorMode.toText(), QStringLiteral("normalita"));
  EXPECT_EQ(QStringList({m.engine.numero.text(), m.engine.angulo, m.engine.displayFormat, m.engine.numberPrefix,
                         m.engine.dcm, m.engine.redond}),
            QStringList({"0", "deg", "General Number", "", "15", "2"}));
  EXPECT_EQ(m.engine.m1[2], QStringLiteral("7.5"));
}

TEST_F(NormalCalculatorModelTest, ControlsItLacksAreNotClicked) {
  NormalCalculatorModel m;
  for (const auto& [control, index] : std::vector<std::pair<const char*, int>>{
           {"Command14", -1}, {"Command22", -1}, {"Command76", 0}, {"Command46", -1}, {"Command10", 5},
           {"Command36", 0}, {"Command9", 1}, {"Command58", -1}, {"Regresion", 1}}) {
    EXPECT_FALSE(m.click(QString::fromLatin1(control), index)) << control;
  }
  EXPECT_TRUE(m.click(QStringLiteral("Command36")));
  EXPECT_TRUE(m.click(QStringLiteral("Command74"), 3));
}

TEST_F(NormalCalculatorModelTest, HeldKeysOfTheVatAndMemories) {
  NormalCalculatorModel m;
  type(m, QStringLiteral("100"));
  m.keyDown(Qt::Key_V, Qt::ShiftModifier);  // add the VAT (16 %)
  EXPECT_EQ(m.engine.numero.text(), QStringLiteral("116"));
  m.keyDown(Qt::Key_1, Qt::ShiftModifier);
  EXPECT_EQ(program().Memories[0], 116.0);
  EXPECT_EQ(m.engine.m1[0], QStringLiteral("116"));
  m.keyDown(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(m.engine.contextMenuRequested);
  EXPECT_FALSE(m.keyDown(Qt::Key_Escape));
}

TEST_F(NormalCalculatorModelTest, HistoryUsesItsShortPadsAndItsOwnHeading) {
  NormalCalculatorModel m;
  type(m, QStringLiteral("9{F5}+1="));
  const QStringList lines = m.engine.Combo1.lines();
  ASSERT_FALSE(lines.isEmpty());
  EXPECT_TRUE(lines.contains(QStringLiteral("\u221Ax") + QString(7, QLatin1Char(' ')))) << lines.join('|').toStdString();
  EXPECT_TRUE(lines.contains(QStringLiteral("=") + Res(4581) + QString(13, QLatin1Char(' '))))
      << lines.join('|').toStdString();
  bool heading = false;
  const PrintDocument doc = m.engine.historyDocument();
  for (const PrintLine& line : doc.lines()) {
    for (const PrintSpan& span : line.spans) heading = heading || span.text.contains(Res(4603));
  }
  EXPECT_TRUE(heading);
}

}  // namespace
