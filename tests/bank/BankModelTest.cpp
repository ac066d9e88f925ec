// The banking model driven through its handlers: checks, deposits, savings
// plans, loans with their rounding, early repayment, solving a loan, sums,
// dates, registers and the printed forms. The decimal symbol is "." unless a
// test says otherwise.
#include <cmath>
#include <cstdlib>

#include "bank/BankModel.h"
#include "shell/Printing.h"
#include "shell/Registers.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Financial.h"
#include "tests/support/TestSupport.h"

namespace {

struct Inputs {
  int tipo;
  const char* capital;
  const char* interes;
  const char* tiempo;
  bool years = false;
  const char* aportemes = "";
  const char* incremes = "";
};

class BankModelTest : public CalvixTest {
 protected:
  void fill(const Inputs& in) {
    m.BanKOperations(in.tipo);
    for (int i = 0; i < BankModel::kBoxCount; ++i) m.box(i).clear();
    m.typeInto(BankModel::kCapital, QString::fromUtf8(in.capital));
    m.typeInto(BankModel::kInteres, QString::fromUtf8(in.interes));
    m.typeInto(BankModel::kTiempo, QString::fromUtf8(in.tiempo));
    m.typeInto(BankModel::kAportemes, QString::fromUtf8(in.aportemes));
    m.typeInto(BankModel::kIncremes, QString::fromUtf8(in.incremes));
    m.Option_Click(in.years);
  }
  void run(const Inputs& in) {
    fill(in);
    m.Command7_Click();
  }
  QStringList texts() const {
    QStringList t;
    for (const MessageRequest& r : messages.shown()) t << r.text;
    return t;
  }
  QStringList column(int col) const {
    QStringList c;
    for (int r = 1; r < m.rowCount(); ++r) c << m.TextMatrix(r, col);
    return c;
  }
  BankModel m;
};

// ---- The runtime's financial functions against published worked examples -------------

TEST_F(BankModelTest, FinancialFunctionsMatchThePublishedExamples) {
  EXPECT_NEAR(rt::PMT(0.08 / 12, 10, 10000), -1037.03, 0.005);
  EXPECT_NEAR(rt::FV(0.005, 10, -200, -500, 1), 2581.40, 0.005);
  // Closed form of a 30-year annuity and its inverse functions.
  const double r = 0.05 / 12;
  const double pmt = 200000 * r / (1 - std::pow(1 + r, -360));
  EXPECT_NEAR(-rt::PMT(r, 360, 200000), pmt, 1e-9);
  EXPECT_NEAR(rt::NPER(r, -pmt, 200000), 360, 1e-9);
  EXPECT_NEAR(rt::RATE(360, -pmt, 200000), r, 1e-12);
  EXPECT_NEAR(rt::PPMT(r, 1, 360, 200000), -(pmt - 200000 * r), 1e-9);
}

// ---- Common checks ----------------------------------------------------------------------

TEST_F(BankModelTest, MissingFiguresWriteTheErrorOnTheDisplayAndComputeNothing) {
  const Inputs rows[] = {
      {1, "", "5", "12"},       // no capital: set to 0, refused
      {3, "1000", "", "12"},    // no interest
      {3, "1000", "5", "0"},    // no time
      {2, "1000", "0", "12", false, "10"},
  };
  for (const Inputs& in : rows) {
    SCOPED_TRACE(in.capital);
    m.numero = QStringLiteral("0");
    run(in);
    EXPECT_EQ(m.numero, QStringLiteral("Error"));
    EXPECT_TRUE(m.errorBeep);
    EXPECT_FALSE(m.computed);
    EXPECT_TRUE(m.Bancolist.isEmpty());
    m.errorBeep = false;
  }
  EXPECT_EQ(m.capital, QStringLiteral("1000"));
  EXPECT_TRUE(messages.shown().empty()) << "no question before the checks pass";
}

TEST_F(BankModelTest, BoxesTakeOnlyDigitsAndOneDecimalSymbol) {
  m.typeInto(BankModel::kCapital, QStringLiteral("1a2,5.3-e"));
  EXPECT_EQ(m.capital, QStringLiteral("12.53"));
  EXPECT_EQ(m.numero, QStringLiteral("12.53"));
  useComma();
  m.typeInto(BankModel::kInteres, QStringLiteral("4.5"));
  EXPECT_EQ(m.interes, QStringLiteral("4,5"));
  EXPECT_EQ(BankModel::boxValue(m.interes), 4.5);
  // The key pad types into the box that had the focus last.
  m.boxFocus(BankModel::kTiempo);
  m.Command1_Click(1);
  m.Command2_Click();
  m.Command1_Click(5);
  m.Command2_Click();
  EXPECT_EQ(m.tiempo, QStringLiteral("1,5"));
  m.Command13_Click(1);
  EXPECT_EQ(m.numero, QStringLiteral("1,"));
  m.Command13_Click(0);
  EXPECT_EQ(m.tiempo, QString());
  EXPECT_EQ(m.numero, QStringLiteral("0"));
}

// ---- Deposits -------------------------------------------------------------------------------

TEST_F(BankModelTest, DepositGrowsByFutureValueWithoutAskingWhenPaymentsFall) {
  run({1, "10000", "6", "2", true});
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(m.pagoInicio, 0);
  const double final = 10000 * std::pow(1.005, 24);
  EXPECT_NEAR(m.totalValue, final, 1e-6);
  EXPECT_EQ(m.total, QStringLiteral("11271.60"));
  EXPECT_EQ(m.intereses, QStringLiteral("1271.60"));
  EXPECT_TRUE(m.mensual.isEmpty());
  EXPECT_EQ(column(0), QStringList({"1", "2"}));
  EXPECT_EQ(column(3).last(), QStringLiteral("11271.60"));
  // Decimals of the format apply to every figure.
  m.setFormat(0);
  m.Command7_Click();
  EXPECT_EQ(m.total, QStringLiteral("11272"));
}

TEST_F(BankModelTest, ANewFormatRecomputesWithoutAskingAgain) {
  messages.queueButton(1);
  run({3, "10000", "8", "10"});
  m.reformat(1);
  EXPECT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(m.pagoInicio, 1);
  EXPECT_EQ(m.Bancolist.at(1).at(1), QStringLiteral("1030.2"));
}

TEST_F(BankModelTest, AnOperationLongerThanAGridCanHoldFailsOnTheDisplay) {
  for (int tipo : {1, 2, 3}) {
    run({tipo, "10000", "8", "1001", true, "10"});
    EXPECT_EQ(m.numero, rt::standardDescription(rt::kOutOfMemory)) << tipo;
    EXPECT_FALSE(m.computed);
    EXPECT_TRUE(m.Bancolist.isEmpty());
  }
  run({3, "10000", "8", "1000", true});
  EXPECT_EQ(m.rowCount(), 12001);
}

// ---- Savings plans ------------------------------------------------------------------------

struct PlanRow {
  const char* name;
  const char* tiempo;
  bool years;
  int rows;
  double lastMonths;  // months of the last row
};

class SavingsSplit : public BankModelTest, public ::testing::WithParamInterface<PlanRow> {};

TEST_P(SavingsSplit, YearsAndRestRow) {
  const PlanRow& p = GetParam();
  run({2, "1000", "3", p.tiempo, p.years, "100", "10"});
  ASSERT_TRUE(m.computed);
  ASSERT_EQ(m.rowCount() - 1, p.rows);
  // Rebuild the plan by hand: whole years at 12 months, each year's
  // contribution 10 % more, the rest row at the increased contribution.
  const double r = 0.03 / 12;
  double start = 1000, contribution = 100, contributed = 0;
  const float meses = static_cast<float>(p.years ? std::atof(p.tiempo) * 12 : std::atof(p.tiempo));
  const int years = static_cast<int>(std::floor(meses)) / 12;
  for (int y = 1; y <= years; ++y) {
    start = rt::FV(r, 12, -contribution, -start, 0);
    contributed += contribution * 12;
    if (y < years || meses - 12.0 * years != 0) contribution *= 1.1;
  }
  if (meses < 12 || meses - 12.0 * years != 0) {
    const double rest = meses < 12 ? meses : meses - 12.0 * years;
    EXPECT_NEAR(rest, p.lastMonths, 1e-5);
    start = rt::FV(r, rest, -contribution, -start, 0);
    contributed += contribution * rest;
  }
  EXPECT_NEAR(m.totalValue, start, 1e-6);
  EXPECT_NEAR(m.interesesValue, start - 1000 - contributed, 1e-6);
  EXPECT_EQ(m.TextMatrix(p.rows, 2), m.fmt(contribution));
}

const PlanRow kPlans[] = {
    {"TwelveMonthsOneRowNoRest", "12", false, 1, 12},
    {"ThirteenMonthsRestOfOne", "13", false, 2, 1},
    {"YearsWithDecimalsGiveFractionalMonths", "1.1", true, 2, 1.2},
    {"TwoAndAHalfYears", "2.5", true, 3, 6},
};
INSTANTIATE_TEST_SUITE_P(BankModel, SavingsSplit, ::testing::ValuesIn(kPlans),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(BankModelTest, SavingsPlanMessages) {
  // Capital 0 is allowed when there are contributions.
  run({2, "0", "3", "12", false, "100"});
  EXPECT_TRUE(m.computed);
  EXPECT_EQ(texts(), QStringList({Res(727)}));
  // No contribution: a warning, the plan still runs as a deposit.
  messages.clear();
  run({2, "1000", "3", "12", false, ""});
  EXPECT_TRUE(m.computed);
  EXPECT_EQ(m.aportemes, QStringLiteral("0"));
  ASSERT_EQ(messages.shown().size(), 2u);
  EXPECT_TRUE(texts().at(1).endsWith(Res(2500)));
  // Neither capital nor contribution: stops.
  messages.clear();
  m.aportemes.clear();
  m.capital = QStringLiteral("0");
  m.Command7_Click();
  EXPECT_FALSE(m.computed);
  EXPECT_TRUE(texts().at(1).endsWith(Res(2501)));
  // A plan under a year drops its increase with a warning.
  messages.clear();
  run({2, "1000", "3", "6", false, "100", "5"});
  EXPECT_EQ(texts().at(1), Res(2502));
  EXPECT_EQ(m.incremes, QStringLiteral("0"));
  EXPECT_NEAR(m.totalValue, rt::FV(0.0025, 6, -100, -1000, 0), 1e-9);
}

TEST_F(BankModelTest, AnswerNoMeansPaymentsAtTheStartOfTheMonth) {
  messages.queueButton(1);
  run({2, "0", "6", "10", false, "200"});
  EXPECT_EQ(m.pagoInicio, 1);
  EXPECT_NEAR(m.totalValue, rt::FV(0.005, 10, -200, 0, 1), 1e-9);
}

// ---- Loans ------------------------------------------------------------------------------------

TEST_F(BankModelTest, LoanTableRoundsEachRowAndKeepsTheRemainderInTheLast) {
  run({3, "10000", "8", "10"});
  EXPECT_EQ(m.mensual, Res(725) + QStringLiteral(" 1037.03"));
  EXPECT_EQ(m.Bancolist.first(), QStringList({"Mes", "Pago", "Nominal", "Intereses", "Pendiente"}));
  EXPECT_EQ(m.Bancolist.at(1), QStringList({"1", "1037.03", "970.37", "66.66", "9029.63"}));
  ASSERT_EQ(m.rowCount(), 11);
  double nominal = 0;
  for (int r = 1; r <= 10; ++r) {
    const BankModel::LoanRow& row = m.loanRows.at(r - 1);
    // Each figure is a whole number of cents, obtained by adding the half cent.
    EXPECT_NEAR(row.nominal * 100, std::round(row.nominal * 100), 1e-6);
    const double exact = -rt::PPMT(0.08 / 12, r, 10, 10000);
    EXPECT_EQ(row.nominal, std::floor((exact + 0.005) * 100) / 100);
    EXPECT_EQ(row.interest, std::floor((m.mensualValue - row.nominal + 0.005) * 100) / 100);
    nominal += row.nominal;
  }
  EXPECT_NEAR(m.loanRows.last().pending, 10000 - nominal, 1e-9);
  EXPECT_NEAR(m.totalValue, m.mensualValue * 10, 1e-9);
  EXPECT_EQ(m.intereses, QStringLiteral("370.32"));
}

TEST_F(BankModelTest, PaymentAtTheStartIsSmallerByOneMonthOfInterest) {
  run({3, "10000", "8", "10"});
  const double atEnd = m.mensualValue;
  messages.queueButton(1);
  m.Command7_Click();
  EXPECT_NEAR(m.mensualValue * (1 + 0.08 / 12), atEnd, 1e-9);
  EXPECT_EQ(m.Bancolist.at(1).at(3), QStringLiteral("0.00"));
}

TEST_F(BankModelTest, DatesReplaceTheMonthNumbers) {
  run({3, "1200", "5", "3"});
  m.defineDates(rt::DateSerial(2024, 1, 31));
  EXPECT_EQ(column(0), QStringList({"1", "2", "3"}));
  m.Command14_Click();
  EXPECT_EQ(column(0), QStringList({"31/01/2024", "29/02/2024", "31/03/2024"}));
  m.Command14_Click();
  EXPECT_EQ(column(0), QStringList({"1", "2", "3"}));
}

// ---- Early repayment ----------------------------------------------------------------------

TEST_F(BankModelTest, EarlyRepaymentAddsRowsWhileTheirNominalFits) {
  run({3, "10000", "8", "10"});
  messages.clear();
  m.Command9_Click();
  ASSERT_TRUE(m.waitingForRow);
  messages.queueText(QStringLiteral("3000"));
  m.Bancolist_Click(4);
  // Rows 4, 5, 6 hold 989.90 + 996.50 + 1003.15 = 2989.55; row 7 would pass 3000.
  const QStringList lines = m.report.split(QLatin1Char('\n'));
  EXPECT_EQ(lines.at(0), Res(733) + QStringLiteral(" 4 - 6"));
  EXPECT_EQ(lines.at(1), Res(734) + QStringLiteral(" 2989.55"));
  EXPECT_EQ(lines.at(2), Res(735) + QStringLiteral(" 10.45"));
  EXPECT_EQ(lines.at(4), Res(737) + QStringLiteral(" 4"));
  EXPECT_EQ(lines.last(), Res(741));
  double saved = 0, pending = m.loanRows.at(5).pending;
  for (int r = 3; r <= 5; ++r) saved += m.loanRows.at(r).interest;
  EXPECT_EQ(lines.at(3), Res(736) + QLatin1Char(' ') + m.fmt(saved));
  EXPECT_EQ(lines.at(5), Res(738) + QLatin1Char(' ') + m.fmt(pending));
  EXPECT_EQ(texts(), QStringList({Res(729), Res(732)}));
}

TEST_F(BankModelTest, EarlyRepaymentRefusals) {
  run({3, "10000", "8", "10"});
  // Not numeric: stops silently before the amount is checked.
  messages.clear();
  m.Command9_Click();
  messages.queueText(QStringLiteral("mucho"));
  m.Bancolist_Click(1);
  EXPECT_TRUE(m.report.isEmpty());
  EXPECT_EQ(messages.shown().size(), 2u);
  // Less than one payment.
  m.Command9_Click();
  messages.queueText(QStringLiteral("1000"));
  m.Bancolist_Click(1);
  EXPECT_TRUE(m.report.isEmpty());
  EXPECT_TRUE(texts().last().endsWith(Res(2503)));
  // A click without Command9 first does nothing; nor does Command9 without a table.
  m.Bancolist_Click(1);
  EXPECT_EQ(messages.shown().size(), 5u);
  m.BanKOperations(3);
  m.Command9_Click();
  EXPECT_FALSE(m.waitingForRow);
  EXPECT_EQ(messages.shown().size(), 5u);
}

// ---- Solving a loan ---------------------------------------------------------------------------

TEST_F(BankModelTest, InterestOfALoanComesFromRate) {
  for (const char* a : {"10000", "869.8843", "1", "0"}) messages.queueAnswer(QString::fromLatin1(a));
  m.PrestIinteres();
  EXPECT_NEAR(m.rateResult, 8.0, 0.001);
  EXPECT_NEAR(m.rateResult, rt::RATE(12, 869.8843, -10000) * 1200, 1e-9);
  EXPECT_TRUE(m.infoText.startsWith(Res(762)));
  EXPECT_TRUE(m.infoText.contains(Res(765) + QStringLiteral(" 8.000 %")));
  // A cancelled prompt ends the operation.
  messages.clear();
  m.infoText.clear();
  messages.queueAnswer(QStringLiteral("10000"));
  messages.queueAnswer(QStringLiteral("button:1"));
  m.PrestIinteres();
  EXPECT_EQ(messages.shown().size(), 2u);
  EXPECT_TRUE(m.infoText.isEmpty());
}

struct DurationRow {
  const char* name;
  const char* capital;
  const char* interest;
  const char* monthly;
  double months;
  const char* shown;
};

class Duration : public BankModelTest, public ::testing::WithParamInterface<DurationRow> {};

TEST_P(Duration, PartOfAMonthCountsAsAWholeOne) {
  const DurationRow& d = GetParam();
  for (const char* a : {d.capital, d.interest, d.monthly}) messages.queueAnswer(QString::fromLatin1(a));
  m.PrestTiempo();
  EXPECT_EQ(m.durationMonths, d.months);
  EXPECT_TRUE(m.infoText.endsWith(Res(772) + QString::fromUtf8(d.shown))) << m.infoText.toStdString();
}

const DurationRow kDurations[] = {
    {"Exact", "1200", "0", "100", 12, " 1 Años  0 Meses"},
    {"JustOverTwelve", "1200.01", "0", "100", 13, " 1 Años  1 Meses"},
    {"WithInterest", "10000", "8", "1037.04", 10, " 0 Años  10 Meses"},
};
INSTANTIATE_TEST_SUITE_P(BankModel, Duration, ::testing::ValuesIn(kDurations),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(BankModelTest, PromptsReadADecimalCommaAsAPoint) {
  useComma();
  for (const char* a : {"10000", "4,5", "500"}) messages.queueAnswer(QString::fromLatin1(a));
  m.PrestTiempo();
  EXPECT_NEAR(m.durationX, rt::NPER(0.045 / 12, 500, -10000), 1e-9);
}

TEST_F(BankModelTest, APaymentBelowTheInterestShowsTheRuntimeMessage) {
  for (const char* a : {"10000", "12", "50"}) messages.queueAnswer(QString::fromLatin1(a));
  m.PrestTiempo();
  EXPECT_EQ(m.numero, rt::standardDescription(rt::kInvalidProcedureCall));
  EXPECT_TRUE(m.infoText.isEmpty());
}

// ---- Sum of a column ----------------------------------------------------------------------------

TEST_F(BankModelTest, SumOfAColumnReadsTheCellsWithAPoint) {
  useComma();
  run({3, "10000", "8", "10"});
  EXPECT_EQ(m.TextMatrix(1, 2), QStringLiteral("970,37"));
  messages.clear();
  m.SumaCol(2, 1, 10);
  double nominal = 0;
  for (const BankModel::LoanRow& r : m.loanRows) nominal += r.nominal;
  EXPECT_TRUE(m.infoText.endsWith(Res(778) + QLatin1Char(' ') + m.fmt(nominal))) << m.infoText.toStdString();
  EXPECT_TRUE(m.infoText.contains(Res(776) + QStringLiteral(" 10\n")));
  EXPECT_EQ(messages.shown().back().title, Res(774));
  m.SumaCol(3, 2, 2);
  EXPECT_TRUE(m.infoText.contains(Res(776) + QStringLiteral(" 1\n")));
  EXPECT_TRUE(m.infoText.contains(Res(777) + QStringLiteral(" 2 - 2")));
  EXPECT_TRUE(m.infoText.endsWith(QStringLiteral(" 60,20"))) << m.infoText.toStdString();
  // Column 0 holds months or dates: not summed.
  const auto shown = messages.shown().size();
  m.SumaCol(0, 1, 3);
  EXPECT_EQ(messages.shown().size(), shown);
}

// ---- Registers and printing -------------------------------------------------------------------

TEST_F(BankModelTest, CopiesTheMainResultToARegister) {
  run({3, "10000", "8", "10"});
  m.copyToRegister(1);
  EXPECT_EQ(RegisterValue(1), m.mensualValue);
  EXPECT_TRUE(RegisterLabel(1).startsWith(Res(743)));
  run({1, "10000", "6", "2", true});
  m.copyToRegister(3);
  EXPECT_EQ(RegisterValue(3), m.totalValue);
}

TEST_F(BankModelTest, PrintedFormsHoldResultsAndOptionallyTheTable) {
  auto text = [](const PrintDocument& doc) {
    QStringList lines;
    int pages = 1;
    for (const PrintLine& l : doc.lines()) {
      if (l.pageBreakBefore) ++pages;
      QString s;
      for (const PrintSpan& span : l.spans) s += span.text + QLatin1Char('|');
      lines << s;
    }
    return std::make_pair(lines.join(QLatin1Char('\n')), pages);
  };
  run({3, "100000", "5", "10", true});
  const auto [results, onePage] = text(m.printDocument(false));
  EXPECT_TRUE(results.contains(Res(749)));
  EXPECT_TRUE(results.contains(Res(751)));
  EXPECT_TRUE(results.contains(Res(725) + QStringLiteral("|1060.66|")));
  EXPECT_FALSE(results.contains(QStringLiteral("Pendiente")));
  EXPECT_EQ(onePage, 1);
  m.printRowsPerPage = 60;
  const auto [tables, pages] = text(m.printDocument(true));
  EXPECT_EQ(tables.count(QStringLiteral("Pendiente")), pages);
  // 120 rows: 40 on the first page (the title block takes the rest), then 60 a page.
  EXPECT_EQ(pages, 3);
}

}  // namespace
