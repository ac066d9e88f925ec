// The spreadsheet's financial functions, against values worked out by hand
// from their closed forms.
#include <cmath>

#include "shell/runtime/Financial.h"
#include "shell/runtime/RuntimeError.h"
#include "tests/support/TestSupport.h"

using namespace rt;

TEST(Financial, PaymentOfAnOrdinaryMortgage) {
  // 100 000 over 30 years at 5 % a year, paid monthly.
  EXPECT_NEAR(PMT(0.05 / 12, 360, -100000), 536.8216230121399, 1e-9);
  EXPECT_NEAR(PMT(0.05 / 12, 360, 100000), -536.8216230121399, 1e-9);
  // Paid at the start of each month: one month of interest less.
  EXPECT_NEAR(PMT(0.05 / 12, 360, -100000, 0, 1), 536.8216230121399 / (1 + 0.05 / 12), 1e-9);
  // No interest: the amount spread evenly.
  EXPECT_DOUBLE_EQ(PMT(0, 10, -1000), 100);
  EXPECT_DOUBLE_EQ(PMT(0, 10, -1000, 500), 50);
}

TEST(Financial, FutureAndPresentValuesBalanceThePayment) {
  EXPECT_NEAR(FV(0.06 / 12, 120, -100), 16387.93468, 1e-5);
  EXPECT_NEAR(FV(0.1, 2, 0, -100), 121, 1e-9);
  EXPECT_NEAR(FV(0.1, 1, -100, 0, 1), 110, 1e-9);
  EXPECT_DOUBLE_EQ(FV(0, 12, -10, -100), 220);
  EXPECT_NEAR(PV(0.05 / 12, 360, -536.8216230121399), 100000, 1e-6);
  const double rate = 0.004;
  const double pmt = PMT(rate, 48, 20000, -5000);
  EXPECT_NEAR(FV(rate, 48, pmt, 20000), -5000, 1e-6);
}

TEST(Financial, InterestAndPrincipalPartsAddUpToThePayment) {
  const double r = 0.05 / 12;
  const double pmt = PMT(r, 360, -100000);
  EXPECT_NEAR(IPMT(r, 1, 360, -100000), 416.6666666666667, 1e-9);
  EXPECT_NEAR(PPMT(r, 1, 360, -100000), pmt - 416.6666666666667, 1e-9);
  double principal = 0;
  for (int per = 1; per <= 360; ++per) principal += PPMT(r, per, 360, -100000);
  EXPECT_NEAR(principal, 100000, 1e-6);
  EXPECT_EQ(IPMT(r, 1, 360, -100000, 0, 1), 0);  // nothing owed yet at the first start
  EXPECT_NEAR(IPMT(0.1, 2, 2, -1000, 0, 1) + PPMT(0.1, 2, 2, -1000, 0, 1), PMT(0.1, 2, -1000, 0, 1), 1e-9);
  EXPECT_THROW(PPMT(r, 0, 360, -100000), RuntimeError);
  EXPECT_THROW(PPMT(r, 361, 360, -100000), RuntimeError);
}

TEST(Financial, NumberOfPeriods) {
  EXPECT_NEAR(NPER(0.05 / 12, -536.8216230121399, 100000), 360, 1e-9);
  EXPECT_DOUBLE_EQ(NPER(0, -100, 1000), 10);
  // A payment that never covers the interest has no answer.
  EXPECT_THROW(NPER(0.1, -5, 100), RuntimeError);
  EXPECT_THROW(NPER(0, 0, 100), RuntimeError);
}

TEST(Financial, RateConvergesForOrdinaryLoansAndFailsCleanlyOtherwise) {
  EXPECT_NEAR(RATE(360, -536.8216230121399, 100000), 0.05 / 12, 1e-12);
  EXPECT_NEAR(RATE(48, -200, 8000), 0.007701472488201638, 1e-12);
  EXPECT_NEAR(RATE(10, 0, -100, 200), std::pow(2.0, 0.1) - 1, 1e-12);
  EXPECT_NEAR(RATE(12, -100, 1200), 0, 1e-12);  // no interest at all
  EXPECT_NEAR(RATE(12, -100, 1000, 0, 1), RATE(12, -100, 1000, 0, 1, 0.01), 1e-12);
  // Money only paid out can balance at no rate.
  try {
    RATE(12, -100, -1000);
    ADD_FAILURE() << "RATE found a rate for payments only going out";
  } catch (const RuntimeError& e) {
    EXPECT_EQ(e.number(), kInvalidProcedureCall);
  }
  EXPECT_THROW(RATE(0, -100, 1000), RuntimeError);
  EXPECT_THROW(PMT(0.1, 10, 1000, 0, 2), RuntimeError);  // type is 0 or 1
}
