// The function table's model driven through its handlers, as the window and
// calvix-cli drive it: the loop and its end correction, failures and the
// rows they keep, the checks on leaving each box, modes, edit mode, files.
#include <QDir>
#include <QFile>
#include <functional>

#include "funcs/EvlFile.h"
#include "funcs/FunctionTable.h"
#include "shell/ErrorReport.h"
#include "shell/runtime/NumberText.h"
#include "shell/Printing.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

class FunctionTableTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    t.Form_Load();
    t.Form_Activate();
  }
  // The cells of a column over the data rows.
  QStringList column(int col) const {
    QStringList cells;
    for (int r = 1; r <= program().pointCount; ++r) cells << t.TextMatrix(r, col);
    return cells;
  }
  void interval(const QString& start, const QString& end) {
    t.txtStart = start;
    t.txtStart_LostFocus();
    t.txtEnd = end;
    t.txtEnd_LostFocus();
  }
  void byStep(const QString& step) {
    t.Option1_Click(1);
    t.Text1 = step;
    t.Text1_LostFocus();
  }
  void byPoints(const QString& points) {
    t.Option1_Click(0);
    t.Combo2 = points;
    t.Combo2_LostFocus();
  }
  // Evaluates f over [start, end] in the given number of points.
  void tabulate(const QString& start, const QString& end, const QString& points, const QString& f) {
    interval(start, end);
    byPoints(points);
    t.txtExpression = f;
    t.cmdResult_Click();
  }
  void withG(const QString& g) {
    t.Text2 = g;
    t.Check1_Click();
  }
  QString lastMessage() const { return messages.shown().empty() ? QString() : messages.shown().back().text; }
  FunctionTable t;
};

// ---- The loop and its end correction -------------------------------------------

TEST_F(FunctionTableTest, AnIncrementThatMissesTheEndGetsALastRowOnTheEnd) {
  interval(QStringLiteral("0"), QStringLiteral("10"));
  byStep(QStringLiteral("3"));
  t.txtExpression = QStringLiteral("x*x");
  t.cmdResult_Click();
  EXPECT_EQ(column(0), QStringList({"0", "3", "6", "9", "10"}));
  EXPECT_EQ(column(1), QStringList({"0", "9", "36", "81", "100"}));
  EXPECT_EQ(t.Combo2, QStringLiteral("5"));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(6, 0));
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(FunctionTableTest, TheOvershootRowIsCorrectedOntoTheEndAndThenDropped) {
  interval(QStringLiteral("0"), QStringLiteral("1"));
  byPoints(QStringLiteral("3"));
  EXPECT_EQ(t.Text1, QStringLiteral("0.5"));
  t.txtExpression = QStringLiteral("x+1");
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 3);
  EXPECT_EQ(column(0), QStringList({"0", "0.5", "1"}));
  EXPECT_EQ(column(1), QStringList({"1", "1.5", "2"}));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(4, 0));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(4, 1));
  // x accumulates the increment; the cells show it to 15 digits, and the
  // rows are compared by their texts. Tenths land on the end: 11 rows.
  byPoints(QStringLiteral("11"));
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 11);
  EXPECT_EQ(column(0).at(3), QStringLiteral("0.3"));
  EXPECT_EQ(column(0).last(), QStringLiteral("1"));
  // Hundredths stop a hair short of it: that row stays and the end follows.
  byPoints(QStringLiteral("100"));
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 101);
  EXPECT_EQ(column(0).mid(99), QStringList({"0.999999999999998", "1"}));
}

TEST_F(FunctionTableTest, AnIncrementAgainstTheIntervalIsTurnedAndTheTableDescends) {
  interval(QStringLiteral("10"), QStringLiteral("0"));
  byStep(QStringLiteral("3"));
  EXPECT_EQ(t.Text1, QStringLiteral("-3"));
  EXPECT_TRUE(messages.shown().empty());
  t.txtExpression = QStringLiteral("x");
  t.cmdResult_Click();
  EXPECT_EQ(column(0), QStringList({"10", "7", "4", "1", "0"}));
  // Typed straight into the box without leaving it, the evaluation turns it too.
  t.Text1 = QStringLiteral("2.5");
  t.cmdResult_Click();
  EXPECT_EQ(t.Text1, QStringLiteral("-2.5"));
  EXPECT_EQ(column(0), QStringList({"10", "7.5", "5", "2.5", "0"}));
}

TEST_F(FunctionTableTest, TheEngineGetsEachXAsItsTextAndTheConstantsEachTime) {
  // Whole x are integers of the language, as the literal "x= 30000" is.
  t.txtVariables = QStringLiteral("A=2:B=3");
  tabulate("-40000", "40000", "9", "x*A+B & \"|\" & x\\7 & \"|\" & (x Mod 7)");
  Evaluator reference;
  const QStringList xs = column(0);
  ASSERT_EQ(xs.size(), 9);
  for (int i = 0; i < xs.size(); ++i) {
    reference.AddCode(QStringLiteral("A=2:B=3: x= ") + rt::Str(rt::TextToDouble(xs[i])));
    EXPECT_EQ(column(1)[i], reference.Eval(t.txtExpression).toText()) << xs[i].toStdString();
  }
  // Constants that are statements run again at each point, before x: prev
  // holds the x of the point before (at first the last x of the table above).
  t.engine().AddCode(QStringLiteral("n=0"));
  t.txtVariables = QStringLiteral("n=n+1:prev=x");
  tabulate("1", "3", "3", "n*100+prev");
  EXPECT_EQ(column(1), QStringList({"40100", "201", "302"}));
}

TEST_F(FunctionTableTest, NonNumericResultsAreKeptAsTexts) {
  tabulate("0", "2", "3", "BIN(x)");
  EXPECT_EQ(column(1), QStringList({"0000", "1", "10"}));
  t.txtExpression = QStringLiteral("Division(x,3)");
  t.cmdResult_Click();
  EXPECT_EQ(column(1).at(1), QStringLiteral("0.3333333"));
  t.txtExpression = QStringLiteral("x>0");
  t.cmdResult_Click();
  EXPECT_EQ(column(1), QStringList({"False", "True", "True"}));
}

TEST_F(FunctionTableTest, CommaSystemsWriteCellsWithACommaAndFeedTheEngineWithAPoint) {
  useComma();
  tabulate("0", "1", "5", "x*2");
  EXPECT_EQ(t.Text1, QStringLiteral("0,25"));
  EXPECT_EQ(column(0), QStringList({"0", "0,25", "0,5", "0,75", "1"}));
  EXPECT_EQ(column(1), QStringList({"0", "0,5", "1", "1,5", "2"}));
}

// ---- G(x) ------------------------------------------------------------------------------

TEST_F(FunctionTableTest, GIsTabulatedOnTheRowsOfFAndHidesTheDerivativeColumns) {
  t.Text2.clear();
  t.Check1_Click();  // not without a formula
  EXPECT_EQ(t.Check1, 0);
  withG("x*10");
  ASSERT_EQ(t.Check1, 1);
  tabulate("0", "1", "3", "x");
  EXPECT_EQ(column(6), QStringList({"0", "5", "10"}));
  EXPECT_EQ(program().hasG, -1);
  EXPECT_EQ(program().titleG, QStringLiteral("G(x) = x*10"));
  EXPECT_EQ(t.scrollBars, FunctionTable::ScrollBars::Both);
  EXPECT_EQ(t.colWidth[2], 0);
  EXPECT_EQ(t.colWidth[5], 0);
  // Without G the columns come back and the last G goes.
  t.Check1_Click();
  t.cmdResult_Click();
  EXPECT_EQ(program().hasG, 0);
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(1, 6));
  EXPECT_EQ(t.colWidth[2], 1450);
  EXPECT_EQ(t.scrollBars, FunctionTable::ScrollBars::Vertical);
}

TEST_F(FunctionTableTest, AFailingGKeepsFAndUnticksG) {
  withG("1/(x-1)");
  tabulate("0", "2", "3", "x");
  EXPECT_EQ(column(1), QStringList({"0", "1", "2"}));
  EXPECT_EQ(t.Check1, 0);
  EXPECT_EQ(program().hasG, 0);
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(1, 6));
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].title, QStringLiteral("Calvix  -  VelozEvaluator"));
  EXPECT_TRUE(lastMessage().startsWith(Res(1464) + QStringLiteral(" G(x)\n\n")));
  EXPECT_TRUE(lastMessage().endsWith(QStringLiteral("\n\nG(x): 1/(x-1)")));
}

// ---- Failures --------------------------------------------------------------------------

TEST_F(FunctionTableTest, AFailureAtTheNinthPointKeepsEightRowsAndSaysSo) {
  interval(QStringLiteral("0"), QStringLiteral("10"));
  byStep(QStringLiteral("1"));
  t.txtExpression = QStringLiteral("1/(x-8)");
  withG("x");
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 8);
  EXPECT_EQ(column(0).last(), QStringLiteral("7"));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(9, 0));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(9, 1));
  EXPECT_EQ(t.txtEnd, QStringLiteral("7"));
  EXPECT_EQ(t.Combo2, QStringLiteral("8"));
  ASSERT_EQ(messages.shown().size(), 1u);
  const QString expected = Res(1464) + QStringLiteral(" F(x)\n\n") + evalErrorDescription(11) +
                           QStringLiteral("\n\nF(x): 1/(x-8) ") + Res(1465) + QStringLiteral(" 8 ") + Res(1466) +
                           QStringLiteral("\n\n") + Res(1467);
  EXPECT_EQ(lastMessage(), expected);
  // G was announced and runs over the rows kept.
  EXPECT_EQ(column(6).size(), 8);
  EXPECT_EQ(column(6).last(), QStringLiteral("7"));
  EXPECT_EQ(program().hasG, -1);
}

TEST_F(FunctionTableTest, AFailureAtTheFirstPointLeavesNoRowAndMarksTheStart) {
  interval(QStringLiteral("0"), QStringLiteral("5"));
  t.txtExpression = QStringLiteral("1/x");
  withG("x");
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 0);
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(1, 0));
  EXPECT_EQ(t.txtStart, QStringLiteral("Error"));
  EXPECT_EQ(t.Check1, 0);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_TRUE(lastMessage().endsWith(QStringLiteral("F(x): 1/x\n\nG(x): ") + Res(1464)));
  // A syntax error fails at the same place.
  t.txtStart = QStringLiteral("0");
  t.txtExpression = QStringLiteral("x*(");
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 0);
  EXPECT_EQ(t.txtStart, QStringLiteral("Error"));
}

TEST_F(FunctionTableTest, ADomainFailureClearsTheTableOnCancelAndLeavesAnEmptyXOnAccept) {
  messages.queueButton(1);
  tabulate("-1", "1", "5", "ln(x)");
  EXPECT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(program().pointCount, 0);
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(1, 0));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(1, 1));
  messages.clear();
  t.cmdResult_Click();
  // -1, -0.5 and 0 are refused, each with its message.
  EXPECT_EQ(messages.shown().size(), 3u);
  EXPECT_EQ(program().pointCount, 5);
  EXPECT_EQ(column(0), QStringList({"", "", "", "0.5", "1"}));
  EXPECT_EQ(column(1).mid(0, 3), QStringList({"0", "0", "0"}));
  EXPECT_EQ(column(1).last(), QStringLiteral("0"));
}

// ---- Checks ------------------------------------------------------------------------------

TEST_F(FunctionTableTest, EvaluationChecksTheIntervalAndTheFormulaFirst) {
  t.txtStart.clear();
  t.cmdResult_Click();
  EXPECT_EQ(lastMessage(), ErrorText(107));
  t.txtStart = QStringLiteral("5");
  t.cmdResult_Click();
  EXPECT_EQ(lastMessage(), ErrorText(100));
  t.txtStart = QStringLiteral("0");
  t.txtExpression.clear();
  t.cmdResult_Click();
  EXPECT_EQ(lastMessage(), ErrorText(105));
  EXPECT_EQ(program().pointCount, 0);
  EXPECT_EQ(messages.shown().size(), 3u);
}

TEST_F(FunctionTableTest, PointsAreKeptBetweenThreeAndAThousand) {
  byPoints(QStringLiteral("1001"));
  EXPECT_EQ(t.Combo2, QStringLiteral("200"));
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(lastMessage(), Res(2800) + QStringLiteral(":  ") + Res(2106) + QStringLiteral("\n") + Res(2121));
  EXPECT_EQ(t.Text1, rt::NumberToText(5.0 / 199));
  byPoints(QStringLiteral("2"));
  EXPECT_EQ(t.Combo2, QStringLiteral("3"));
  EXPECT_EQ(t.Text1, QStringLiteral("2.5"));
  byPoints(QStringLiteral("abc"));
  EXPECT_EQ(t.Combo2, QStringLiteral("200"));
  byPoints(QStringLiteral("1000"));
  EXPECT_EQ(t.Combo2, QStringLiteral("1000"));
  EXPECT_EQ(messages.shown().size(), 1u);
  // An open interval cannot give the increment.
  t.txtEnd.clear();
  byPoints(QStringLiteral("10"));
  EXPECT_EQ(lastMessage(), ErrorText(107));
}

TEST_F(FunctionTableTest, TheIncrementBoxChecksItsValueAndGivesThePoints) {
  interval(QStringLiteral("0"), QStringLiteral("10"));
  byStep(QStringLiteral("x"));
  EXPECT_EQ(lastMessage(), ErrorText(1));
  EXPECT_EQ(t.Text1, QStringLiteral("0"));
  EXPECT_EQ(t.focusRequest, QStringLiteral("Text1"));
  byStep(QStringLiteral("11"));
  EXPECT_EQ(lastMessage(), ErrorText(108));
  EXPECT_EQ(t.Text1, QStringLiteral("0"));
  byStep(QStringLiteral("0"));
  EXPECT_EQ(lastMessage(), ErrorText(103));
  byStep(QStringLiteral("3"));
  EXPECT_EQ(t.Combo2, rt::NumberToText(10.0 / 3 + 1));
  byStep(QStringLiteral("2.5"));
  EXPECT_EQ(t.Combo2, QStringLiteral("5"));
  interval(QStringLiteral("4"), QStringLiteral("4"));
  byStep(QStringLiteral("1"));
  EXPECT_EQ(lastMessage(), ErrorText(100));
}

TEST_F(FunctionTableTest, AnEndThatIsNoNumberBecomesZeroAndKeepsTheFocus) {
  t.txtStart = QStringLiteral("1e");
  t.txtStart_LostFocus();
  EXPECT_EQ(lastMessage(), ErrorText(1));
  EXPECT_EQ(t.txtStart, QStringLiteral("0"));
  EXPECT_EQ(t.focusRequest, QStringLiteral("txtStart"));
  // The key filter keeps number characters and makes a comma the decimal symbol.
  EXPECT_EQ(t.txtStart_KeyPress('a'), 0);
  EXPECT_EQ(t.txtStart_KeyPress('7'), '7');
  EXPECT_EQ(t.txtVariables_KeyPress(','), '.');
}

TEST_F(FunctionTableTest, SeventyPointsUnderTheLagrangeTickBecomeSixty) {
  tabulate("0", "59", "70", "x");
  EXPECT_EQ(program().pointCount, 70);
  t.menuIPLA = true;
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 60);
  EXPECT_EQ(t.Combo2, QStringLiteral("60"));
  EXPECT_EQ(t.Text1, QStringLiteral("1"));
  // By increment the recomputed increment gives 60 points too.
  t.menuIPLA = false;
  byPoints(QStringLiteral("100"));
  t.cmdResult_Click();
  t.menuIPLA = true;
  t.Option1_Click(1);
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 60);
}

// ---- Modes, swap, clear, angle ------------------------------------------------------------

TEST_F(FunctionTableTest, ExpressionModeAppendsOneResultPerClick) {
  tabulate("0", "1", "3", t.txtExpression);
  ASSERT_EQ(program().pointCount, 3);
  t.mnuexpr_Click();
  EXPECT_EQ(t.caption, Res(1473));
  EXPECT_EQ(t.chkLoop, 0);
  EXPECT_FALSE(t.plotEnabled);
  t.txtVariables = QStringLiteral("A=6");
  t.txtExpression = QStringLiteral("A*7");
  t.cmdResult_Click();
  EXPECT_EQ(program().pointCount, 0);  // the table of values went
  t.txtExpression = QStringLiteral("A/4");
  t.cmdResult_Click();
  EXPECT_EQ(t.expressionRow, 2);
  EXPECT_EQ(t.TextMatrix(1, 1), QStringLiteral("42"));
  EXPECT_EQ(t.TextMatrix(2, 1), QStringLiteral("1.5"));
  EXPECT_EQ(t.TextMatrix(0, 1), Res(1461));
  EXPECT_EQ(t.Row, 2);
  t.txtExpression = QStringLiteral("1/0");
  t.cmdResult_Click();
  EXPECT_EQ(t.expressionRow, 2);
  EXPECT_EQ(lastMessage(), QStringLiteral("Error:  ") + evalErrorDescription(11));
  EXPECT_EQ(messages.shown().back().title, QStringLiteral("Calvix  -  VelozEvaluator"));
  t.mnufunc_Click();
  EXPECT_EQ(t.caption, Res(1474));
  EXPECT_EQ(t.chkLoop, 1);
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(1, 1));
  EXPECT_EQ(t.TextMatrix(0, 1), QStringLiteral("F(x)"));
}

TEST_F(FunctionTableTest, SwapExchangesTheFormulasAndEvaluates) {
  interval(QStringLiteral("0"), QStringLiteral("1"));
  byPoints(QStringLiteral("3"));
  t.txtExpression = QStringLiteral("x");
  t.Text2 = QStringLiteral("x+5");
  t.Command1_Click();
  EXPECT_EQ(t.txtExpression, QStringLiteral("x+5"));
  EXPECT_EQ(t.Text2, QStringLiteral("x"));
  EXPECT_EQ(column(1), QStringList({"5", "5.5", "6"}));
  t.Text2.clear();
  t.Command1_Click();
  EXPECT_EQ(lastMessage(), ErrorText(105));
  EXPECT_EQ(t.txtExpression, QStringLiteral("x+5"));
}

TEST_F(FunctionTableTest, ClearEmptiesTheTableAndClosesThePlot) {
  int closed = 0;
  t.hooks.showPlot = [] { return true; };
  t.hooks.closePlot = [&closed] { ++closed; };
  t.cmdResult_Click();
  t.plot_Click();
  EXPECT_TRUE(t.plot);
  t.cmdClear_Click();
  EXPECT_FALSE(t.plot);
  EXPECT_GE(closed, 1);
  EXPECT_EQ(program().pointCount, 0);
  EXPECT_EQ(t.MSFlexGrid1.rowCount(), 6);
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(1, 1));
  EXPECT_EQ(t.TextMatrix(0, 6), QStringLiteral("G(x)"));
  // An empty table cannot be plotted.
  t.plot_Click();
  EXPECT_FALSE(t.plot);
}

TEST_F(FunctionTableTest, TheAngleButtonCyclesAndActivationPutsDegreesBack) {
  const double pi = 4 * std::atan(1.0);
  EXPECT_EQ(t.Label1, QStringLiteral("deg"));
  t.Command2_Click();
  EXPECT_EQ(t.Label1, QStringLiteral("gra"));
  EXPECT_DOUBLE_EQ(program().angleFactor, pi / 200);
  t.Command2_Click();
  EXPECT_EQ(program().angleFactor, 1.0);
  tabulate("0", "2", "3", "acos(-1)");
  EXPECT_EQ(column(1).first(), rt::NumberToText(pi));
  t.Form_Activate();
  EXPECT_EQ(t.Label1, QStringLiteral("deg"));
  EXPECT_DOUBLE_EQ(program().angleFactor, pi / 180);
  t.Command2_Click();
  t.Command2_Click();
  t.Command2_Click();
  EXPECT_EQ(t.Label1, QStringLiteral("deg"));
}

// ---- Steps ------------------------------------------------------------------------------------

TEST_F(FunctionTableTest, StepsGiveTheSameTableAndEscKeepsTheRowsDone) {
  interval(QStringLiteral("0"), QStringLiteral("1000"));
  byStep(QStringLiteral("1"));
  t.txtExpression = QStringLiteral("x*x");
  withG("x+1");
  t.cmdResult_Click();
  const QStringList wholeF = column(1);
  const QStringList wholeG = column(6);
  ASSERT_EQ(wholeF.size(), 1001);

  t.stepwise = true;
  t.cmdResult_Click();
  ASSERT_TRUE(t.isTabulating());
  double progress = 0;
  int steps = 0;
  while (!t.tabulationStep(97)) {
    ASSERT_GE(t.tabulationProgress(), progress);
    progress = t.tabulationProgress();
    ++steps;
  }
  EXPECT_GT(steps, 15);
  EXPECT_EQ(column(1), wholeF);
  EXPECT_EQ(column(6), wholeG);
  EXPECT_EQ(program().hasG, -1);

  t.cmdResult_Click();
  t.tabulationStep(300);
  EXPECT_TRUE(t.Form_KeyDown(Qt::Key_Escape, Qt::NoModifier));
  EXPECT_FALSE(t.isTabulating());
  EXPECT_EQ(program().pointCount, 300);
  EXPECT_EQ(program().hasG, 0);
  EXPECT_EQ(t.Combo2, QStringLiteral("300"));
  EXPECT_EQ(t.TextMatrix(300, 0), QStringLiteral("299"));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(301, 0));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(1, 6));
  EXPECT_EQ(t.txtEnd, QStringLiteral("1000"));
}

namespace {
// A message box that runs something while it is open, as the window's box
// keeps events going (a key press, a click).
class BusyPresenter : public ScriptedPresenter {
 public:
  std::function<void()> whileOpen;
  MessageReply present(const MessageRequest& request) override {
    if (whileOpen) whileOpen();
    return ScriptedPresenter::present(request);
  }
};
}  // namespace

TEST_F(FunctionTableTest, EscPressedWhileAMessageIsOpenStopsAfterThatRow) {
  BusyPresenter box;
  PresenterScope scope(&box);
  interval(QStringLiteral("-1"), QStringLiteral("1"));
  t.txtExpression = QStringLiteral("ln(x)");
  box.whileOpen = [this] {
    t.Form_KeyDown(Qt::Key_Escape, Qt::NoModifier);
    EXPECT_FALSE(t.tabulationStep(10));  // no step inside a step
  };
  t.stepwise = true;
  t.cmdResult_Click();
  EXPECT_TRUE(t.tabulationStep(100));
  EXPECT_EQ(box.shown().size(), 1u);
  EXPECT_EQ(program().pointCount, 1);
  EXPECT_EQ(t.TextMatrix(1, 1), QStringLiteral("0"));
  EXPECT_FALSE(t.isTabulating());
  EXPECT_FALSE(t.isStepping());
}

// ---- Edit mode --------------------------------------------------------------------------------

TEST_F(FunctionTableTest, EditModeTakesTypedNumbersAndCountsTheFilledCells) {
  EXPECT_TRUE(t.Form_KeyDown(Qt::Key_F12, Qt::ControlModifier));
  EXPECT_TRUE(t.editMode);
  EXPECT_TRUE(t.Label3);
  EXPECT_EQ(t.colWidth[2], 0);
  t.MSFlexGrid1_Select(2, 0);  // row 2 under an empty row 1: no typing
  t.MSFlexGrid1_KeyPress(QLatin1Char('5'));
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(2, 0));
  t.MSFlexGrid1_Select(1, 0);
  for (QChar c : QStringLiteral("1.5")) t.MSFlexGrid1_KeyPress(c);
  EXPECT_TRUE(t.Image4[0]);
  EXPECT_TRUE(t.Image4[1]);
  t.MSFlexGrid1_EnterKey();
  EXPECT_FALSE(t.Image4[1]);
  EXPECT_EQ(t.Col, 1);
  for (QChar c : QStringLiteral("9x")) t.MSFlexGrid1_KeyPress(c);
  t.MSFlexGrid1_KeyPress(QLatin1Char('\b'));
  t.MSFlexGrid1_EnterKey();  // vertical bars only: the row ends at column 1
  EXPECT_EQ(t.Row, 2);
  EXPECT_EQ(t.Col, 0);
  EXPECT_EQ(t.TextMatrix(1, 0), QStringLiteral("1.5"));
  EXPECT_EQ(t.TextMatrix(1, 1), QStringLiteral("9"));
  for (QChar c : QStringLiteral("2a")) t.MSFlexGrid1_KeyPress(c);
  t.MSFlexGrid1_EnterKey();  // not a number: emptied
  EXPECT_TRUE(t.MSFlexGrid1.isEmpty(2, 0));
  EXPECT_EQ(t.xCellCount, 1);
  EXPECT_EQ(t.yCellCount, 1);
  t.MSFlexGrid1_KeyPress(QLatin1Char('4'));  // row 2 column 1: its predecessor is filled
  t.MSFlexGrid1_Select(3, 0);
  EXPECT_EQ(t.yCellCount, 2);

  // Unequal counts cannot be plotted; equal ones become the table's points.
  t.hooks.showPlot = [] { return true; };
  t.plot_Click();
  EXPECT_EQ(lastMessage(), ErrorText(49));
  EXPECT_FALSE(t.plot);
  t.MSFlexGrid1_Select(2, 0);
  t.MSFlexGrid1_KeyPress(QLatin1Char('3'));
  t.MSFlexGrid1_Select(1, 0);
  t.plot_Click();
  EXPECT_TRUE(t.plot);
  EXPECT_EQ(program().pointCount, 2);

  // With both scroll bars Enter goes on to G(x), past the columns edit mode hides.
  t.Form_KeyDown(Qt::Key_F12, Qt::ShiftModifier);
  EXPECT_EQ(t.scrollBars, FunctionTable::ScrollBars::Both);
  t.MSFlexGrid1_Select(1, 1);
  t.MSFlexGrid1_EnterKey();
  EXPECT_EQ(t.Col, 6);
  t.MSFlexGrid1_EnterKey();
  EXPECT_EQ(t.Row, 2);
  EXPECT_EQ(t.Col, 0);
  t.Form_KeyDown(Qt::Key_F12, Qt::ControlModifier);
  EXPECT_FALSE(t.editMode);
  EXPECT_EQ(t.colWidth[2], 1450);
  // Out of edit mode keys do nothing.
  t.MSFlexGrid1_KeyPress(QLatin1Char('7'));
  EXPECT_EQ(t.TextMatrix(1, 6), QString());
}

// ---- Files -------------------------------------------------------------------------------------

TEST_F(FunctionTableTest, AFileRestoresEveryFieldAndTheMode) {
  const QString path = QDir(appFolder.path()).filePath(QStringLiteral("curve.evl"));
  t.mnuexpr_Click();
  t.txtStart = QStringLiteral("-2,5");
  t.txtEnd = QStringLiteral("7");
  t.Combo2 = QStringLiteral("33");
  t.Text1 = QStringLiteral("0.25");
  t.Option1_Click(1);
  t.txtVariables = QStringLiteral("A=1:B=2");
  t.txtExpression = QStringLiteral("Suma(x, A, B)");
  t.Text2 = QStringLiteral("pow(x, 2)");
  const EvlInputs saved = t.inputs();
  int asked = 0;
  t.hooks.fileDialog = [&](const FunctionTable::FileDialogRequest& r) {
    ++asked;
    EXPECT_TRUE(r.save);
    EXPECT_EQ(r.title, Res(1475));
    EXPECT_EQ(r.folder, program().AppFolder.toText() + QStringLiteral("datos/"));
    return path;
  };
  t.mnuguard_Click();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE(messages.shown().empty());

  FunctionTable other;
  other.Form_Load();
  other.hooks.fileDialog = [&](const FunctionTable::FileDialogRequest& r) {
    EXPECT_FALSE(r.save);
    EXPECT_EQ(r.title, Res(1471));
    return path;
  };
  other.mnuabre_Click();
  EXPECT_EQ(other.inputs(), saved);
  EXPECT_EQ(other.operationMode, 1);
  EXPECT_EQ(other.chkLoop, 0);
  EXPECT_EQ(other.Option1, 1);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(FunctionTableTest, WrongAndDamagedFilesAreRefusedAndTheWindowStaysAsItWas) {
  const QDir dir(appFolder.path());
  auto write = [&](const QString& name, const QByteArray& bytes) {
    QFile f(dir.filePath(name));
    EXPECT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
    return f.fileName();
  };
  t.cmdResult_Click();
  const int rows = program().pointCount;
  const EvlInputs before = t.inputs();
  // The name decides before the file is looked at: a good file, a missing one.
  EXPECT_FALSE(t.openFile(write(QStringLiteral("curve.txt"), writeEvl(EvlInputs{}))));
  EXPECT_EQ(lastMessage(), ErrorText(901));
  EXPECT_FALSE(t.openFile(dir.filePath(QStringLiteral("none.dat"))));
  EXPECT_EQ(lastMessage(), ErrorText(901));
  EXPECT_FALSE(t.openFile(dir.filePath(QStringLiteral("none.evl"))));
  EXPECT_EQ(lastMessage(), ErrorText(902));
  EXPECT_FALSE(t.openFile(write(QStringLiteral("bad.evl"), "1\r\n\"0\",\"5\"\r\n")));
  EXPECT_EQ(lastMessage(), ErrorText(904));
  EXPECT_EQ(t.inputs(), before);
  EXPECT_EQ(t.operationMode, 0);
  EXPECT_EQ(program().pointCount, rows);
  // Saving: upper case passes, another extension or a text the form cannot hold does not.
  EXPECT_TRUE(t.saveFile(dir.filePath(QStringLiteral("UPPER.EVL"))));
  EXPECT_FALSE(t.saveFile(dir.filePath(QStringLiteral("curve.csv"))));
  EXPECT_EQ(lastMessage(), ErrorText(900));
  EXPECT_FALSE(QFile::exists(dir.filePath(QStringLiteral("curve.csv"))));
  t.txtExpression = QStringLiteral("x & \"a\"");
  EXPECT_FALSE(t.saveFile(dir.filePath(QStringLiteral("quote.evl"))));
  EXPECT_EQ(lastMessage(), ErrorText(907));
  t.txtExpression.clear();
  t.mnuguard_Click();
  EXPECT_EQ(lastMessage(), ErrorText(105));
}

// ---- Printing ------------------------------------------------------------------------------

namespace {
class CapturingPrinter : public PrintPresenter {
 public:
  CapturingPrinter() { setPrintPresenter(this); }
  ~CapturingPrinter() override { setPrintPresenter(nullptr); }
  PrintResult print(const PrintDocument& document) override {
    documents.push_back(document);
    return PrintResult::Printed;
  }
  std::vector<PrintDocument> documents;
};
}  // namespace

TEST_F(FunctionTableTest, PrintingListsEveryRowWithTheHeadingOnEachPage) {
  CapturingPrinter printer;
  t.imprimEval_Click();
  EXPECT_EQ(lastMessage(), ErrorText(912));
  EXPECT_TRUE(printer.documents.empty());

  interval(QStringLiteral("0"), QStringLiteral("199"));
  byStep(QStringLiteral("1"));
  t.txtExpression = QStringLiteral("x*2");
  withG("x+1");
  t.cmdResult_Click();
  t.printRowsPerPage = 50;
  t.imprimEval_Click();
  ASSERT_EQ(printer.documents.size(), 1u);
  const QList<PrintLine>& lines = printer.documents[0].lines();
  auto texts = [](const PrintLine& l) {
    QStringList out;
    for (const PrintSpan& s : l.spans) out << QString::number(s.column) + QLatin1Char(':') + s.text;
    return out;
  };
  int rows = 0, pages = 1, rowsOnPage = 0, mostOnAPage = 0;
  bool formulas = false;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    if (lines[i].pageBreakBefore) {
      ++pages;
      mostOnAPage = std::max(mostOnAPage, rowsOnPage);
      rowsOnPage = 0;
      // Each page opens with the title and the column heading.
      ASSERT_FALSE(lines[i].spans.isEmpty());
      EXPECT_EQ(lines[i].spans[0].text, Res(1468));
      EXPECT_EQ(texts(lines[i + 1]), QStringList({"10:" + Res(1477), "20:X", "50:F(x)", "80:G(x)"}));
    }
    const QStringList t = texts(lines[i]);
    if (t == QStringList({"6:F (x) = x*2"})) formulas = true;
    if (!t.isEmpty() && t[0].startsWith(QStringLiteral("10:0"))) {
      ++rows;
      ++rowsOnPage;
      if (rows == 1) {
        EXPECT_EQ(t, QStringList({"10:0001", "20:0", "50:0", "80:1"}));
      } else if (rows == 200) {
        EXPECT_EQ(t, QStringList({"10:0200", "20:199", "50:398", "80:200"}));
      }
    }
  }
  EXPECT_TRUE(formulas);
  EXPECT_EQ(rows, 200);
  EXPECT_EQ(pages, 5);
  EXPECT_EQ(mostOnAPage, 50);

  // Expression mode names its index column and has no X.
  t.mnuexpr_Click();
  t.txtExpression = QStringLiteral("6*7");
  t.cmdResult_Click();
  t.imprimEval_Click();
  ASSERT_EQ(printer.documents.size(), 2u);
  QList<QStringList> expressionLines;
  for (const PrintLine& l : printer.documents[1].lines()) expressionLines << texts(l);
  EXPECT_TRUE(expressionLines.contains(QStringList({"10:" + Res(1470), "50:" + Res(1461)})));
  EXPECT_TRUE(expressionLines.contains(QStringList({"10:0001", "20:", "50:42"})));
}
