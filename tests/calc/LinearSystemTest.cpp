// The linear system tool: the number of equations in its box, the two entry
// modes, the ranks with the indeterminate and incompatible messages, and the
// solution in result and the viewer.
#include "calc/CalculatorEngine.h"
#include "shell/ErrorReport.h"
#include "shell/Printing.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class LinearSystemTest : public CalvixTest {
 protected:
  CalculatorEngine e;
  LinearSystem& s = e.linearSystem;

  // Defines a system of n equations in fast mode and fills its cells.
  void define(const QStringList& cells, const QString& n) {
    messages.queueAnswer(n);
    messages.queueAnswer(QStringLiteral("1"));
    s.Command39_Click();
    for (int i = 0; i < cells.size(); ++i) s.setCell(i / (s.n + 1), i % (s.n + 1), cells.at(i));
  }
};

TEST_F(LinearSystemTest, NumberOfEquationsFromOneToFifty) {
  for (const char* bad : {"51", "0", "2.5", "x"}) {
    messages.queueAnswer(QString::fromLatin1(bad));
    s.Command39_Click();
    EXPECT_EQ(s.errorCode, 17) << bad;
    EXPECT_EQ(e.result.text(), ErrorText(17)) << bad;
  }
  define({}, QStringLiteral("50"));
  EXPECT_EQ(s.n, 50);
  EXPECT_EQ(s.cells.size(), 50 * 51);
}

TEST_F(LinearSystemTest, SolvesAndListsTheUnknowns) {
  // x + y = 30, x - y = -10
  define({"1", "1", "30", "1", "-1", "-10"}, QStringLiteral("2"));
  s.Command85_Click(1);
  EXPECT_EQ(s.rankA, 2);
  EXPECT_EQ(s.rankAK, 2);
  EXPECT_EQ(s.X, (QStringList{"1.e+1", "2.e+1"}));
  EXPECT_EQ(e.result.text(), QStringLiteral("X1 = 1.e+1\nX2 = 2.e+1"));
  EXPECT_EQ(e.List3, (QStringList{Res(4422), ":   X1", ":   X2"}));
  EXPECT_EQ(e.List4.mid(1), (QStringList{"1.e+1", "2.e+1"}));
  EXPECT_EQ(messages.shown().back().title, Res(4422));
}

TEST_F(LinearSystemTest, SolutionBoxPrintsTheSystemOnRequest) {
  struct Recorder : PrintPresenter {
    QList<PrintDocument> printed;
    PrintResult print(const PrintDocument& d) override {
      printed << d;
      return PrintResult::Printed;
    }
  } printer;
  setPrintPresenter(&printer);
  define({"2", "40"}, QStringLiteral("1"));
  messages.queueAnswer(QStringLiteral("1"));  // Print
  s.Command85_Click(1);
  setPrintPresenter(nullptr);
  ASSERT_EQ(printer.printed.size(), 1);
  QStringList lines;
  for (const PrintLine& line : printer.printed.front().lines()) {
    for (const PrintSpan& span : line.spans) lines << span.text;
  }
  EXPECT_TRUE(lines.contains(Res(4424)));
  EXPECT_TRUE(lines.contains(QStringLiteral("(2)\u00B7X1  =  40")));
  EXPECT_TRUE(lines.contains(QStringLiteral("X1 = 2.e+1")));
}

TEST_F(LinearSystemTest, RanksDecideIndeterminateAndIncompatible) {
  struct Row {
    const char* name;
    QStringList cells;
    int message;
  } rows[] = {
      {"equalRows", {"1", "2", "3", "1", "2", "3"}, 4419},
      {"parallelRows", {"1", "2", "3", "2", "4", "7"}, 4420},
  };
  for (const Row& r : rows) {
    define(r.cells, QStringLiteral("2"));
    s.Command85_Click(1);
    EXPECT_TRUE(s.X.isEmpty()) << r.name;
    EXPECT_EQ(messages.shown().back().text, Res(4421) + QLatin1Char('\n') + Res(r.message)) << r.name;
  }
}

TEST_F(LinearSystemTest, NormalModePromptsEachCoefficient) {
  messages.queueAnswer(QStringLiteral("1"));
  messages.queueAnswer(QStringLiteral("2"));  // normal mode
  s.Command39_Click();
  EXPECT_FALSE(s.fastMode);
  EXPECT_EQ(e.func, Res(4457) + QStringLiteral("  A11   (^)"));
  e.numero = QStringLiteral("4");
  s.Command85_Click(0);
  EXPECT_EQ(e.func, Res(4457) + QStringLiteral("  K1   (^)"));
  e.numero = QStringLiteral("2");
  s.Command85_Click(0);
  EXPECT_EQ(e.func, Res(4456));
  s.Command85_Click(1);
  EXPECT_EQ(s.X, QStringList{QStringLiteral("5.e-1")});
  // A non-numeric cell refuses to solve.
  s.setCell(0, 0, QStringLiteral("abc"));
  s.Command85_Click(1);
  EXPECT_EQ(s.errorCode, 43);
}

}  // namespace
