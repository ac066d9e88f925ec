// The evaluation panel: expressions over x, the five program slots and their
// persistence, the failures of the evaluator and the command words (through
// the recording platform).
#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "shell/ErrorReport.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class ProgramsAndExpressionsTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    setPlatform(&recorder);
    engine.Form_Activate();
  }
  void TearDown() override {
    setPlatform(nullptr);
    CalvixTest::TearDown();
  }
  void keys(const QString& sequence) {
    QString error;
    ASSERT_TRUE(runKeySequence(engine, sequence, &error)) << error.toStdString();
  }
  RecordingPlatform recorder;
  CalculatorEngine engine;
};

struct EvalRow {
  const char* name;
  const char* display;     // keys typed first (x)
  const char* expression;
  const char* answer;      // with a point
};

const EvalRow kEvalRows[] = {
    {"UsesX", "2.5", "x*3", "7.5"},
    {"AnswerHasFifteenDecimalsAtMost", "0", "1/3", "0.333333333333333"},
    // The pattern keeps its separator after a whole answer.
    {"WholeAnswerKeepsTheSeparator", "0", "2^10", "1024."},
    {"MathLibraryIsPublished", "4", "fac(x)+lg(100)", "26."},
    {"NegativeX", "3 Command12", "x-1.5", "-4.5"},
};

TEST_F(ProgramsAndExpressionsTest, EvaluatesWithTheDisplayAsX) {
  for (bool comma : {false, true}) {
    if (comma) useComma();
    for (const EvalRow& row : kEvalRows) {
      SCOPED_TRACE(std::string(row.name) + (comma ? " comma" : " point"));
      keys(QStringLiteral("Command18 ") + QString::fromLatin1(row.display));
      engine.Text4 = QString::fromLatin1(row.expression);
      engine.Command83_Click();
      QString answer = QString::fromLatin1(row.answer);
      if (comma) answer.replace(QLatin1Char('.'), QLatin1Char(','));
      EXPECT_EQ(engine.result.text(), answer);
      EXPECT_EQ(engine.numero.text(), answer);
      EXPECT_EQ(engine.func, Res(4407));
      EXPECT_EQ(engine.errorCode, 0);
    }
  }
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(ProgramsAndExpressionsTest, FailuresShowTheirMessageAndKeepTheDisplay) {
  struct Row {
    const char* name;
    const char* expression;
    int code;
  };
  const Row rows[] = {
      {"Empty", "   ", 105},
      {"Syntax", "2+", 101},
      {"UnknownFunction", "foo(1)", 120},
      {"UnknownVariable", "y+1", 120},
      {"DivisionByZero", "1/0", 104},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    keys(QStringLiteral("Command18 42"));
    engine.Text4 = QString::fromLatin1(row.expression);
    messages.clear();
    engine.Command83_Click();
    EXPECT_EQ(engine.numero.text(), QStringLiteral("42"));
    EXPECT_EQ(engine.errorCode, row.code);
    ASSERT_EQ(messages.shown().size(), 1u);
    EXPECT_EQ(messages.shown().front().text, ErrorText(row.code));
  }
  EXPECT_EQ(ErrorText(120), Res(2800) + QStringLiteral(":  ") + Res(2120));
}

TEST_F(ProgramsAndExpressionsTest, ProgramsStoreRunAndClear) {
  engine.Text4 = QStringLiteral("x+1");
  engine.Command80_Click(2);
  EXPECT_EQ(CalculatorEngine::programTooltip(2), QStringLiteral("x+1"));
  engine.Text4.clear();
  keys(QStringLiteral("Command18 9"));
  engine.Command79_Click(2);
  EXPECT_EQ(engine.Text4, QStringLiteral("x+1"));
  EXPECT_EQ(engine.numero.text(), QStringLiteral("10."));
  engine.Command81_Click(2);
  EXPECT_TRUE(program().Programs[2].isEmpty());
  // An empty slot does nothing at all.
  engine.Text4 = QStringLiteral("keep");
  engine.Command79_Click(2);
  EXPECT_EQ(engine.Text4, QStringLiteral("keep"));
  EXPECT_EQ(engine.numero.text(), QStringLiteral("10."));
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(ProgramsAndExpressionsTest, ProgramsOneToFourPersistAsProgramaN) {
  for (int i = 0; i < 5; ++i) program().Programs[static_cast<size_t>(i)] = QStringLiteral("x*%1").arg(i);
  const QString text = QString::fromUtf8(settingsBytes(program()));
  for (int i = 1; i <= 4; ++i) EXPECT_TRUE(text.contains(QStringLiteral("\"Programa  %1\",\"x*%1\"").arg(i))) << i;
  EXPECT_FALSE(text.contains(QStringLiteral("\"x*0\"")));
}

TEST_F(ProgramsAndExpressionsTest, CommandWordsGoThroughThePlatform) {
  program().OsFamily = 1;
  engine.Text4 = QStringLiteral("Salvapantallas");
  engine.Command83_Click();
  EXPECT_EQ(recorder.calls, QStringList{QStringLiteral("powerAction screensaver")});
  EXPECT_EQ(engine.result.text(), Res(4408));

  recorder.calls.clear();
  engine.Text4 = QStringLiteral("apagar");
  messages.queueButton(1);  // "No"
  engine.Command83_Click();
  EXPECT_TRUE(recorder.calls.isEmpty());
  messages.queueButton(0);
  engine.Command83_Click();
  EXPECT_EQ(recorder.calls, (QStringList{QStringLiteral("powerAction shutdown"), QStringLiteral("endProgram")}));
  EXPECT_EQ(messages.shown().back().text, Res(4411));

  recorder.calls.clear();
  engine.Text4 = QStringLiteral("remoto");
  engine.Command83_Click();
  EXPECT_EQ(recorder.calls, QStringList{QStringLiteral("runCommand shutdown.exe -i")});
  EXPECT_EQ(engine.result.text(), Res(4414));
  EXPECT_EQ(engine.errorCode, 0);

  // The card check: a number in groups, valid by the Luhn test, and one digit off.
  engine.Text4 = QStringLiteral("cvxinfocard 4111 1111 1111 1111");
  engine.Command83_Click();
  EXPECT_TRUE(engine.result.text().endsWith(Res(4600))) << engine.result.text().toStdString();
  EXPECT_EQ(engine.func, QStringLiteral("Info CALVIX"));
  engine.Text4 = QStringLiteral("cvxinfocard 4111111111111112");
  engine.Command83_Click();
  EXPECT_TRUE(engine.result.text().endsWith(Res(4601)));
}

}  // namespace
