// The bets model through its handlers: probabilities against the
// hypergeometric law computed here with integer binomials, the texts of the
// 5-number bet, Label7, selecting with its limits, deleting, preferred lists,
// the draw type and the frequency counters. The decimal symbol is "."
// unless a test says otherwise.
#include <cmath>
#include <memory>

#include "lottery/LotteryModel.h"
#include "shell/ErrorReport.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

double binomial(int n, int k) {
  if (k < 0 || k > n) return 0;
  double c = 1;
  for (int i = 1; i <= k; ++i) c = c * (n - k + i) / i;
  return c;
}

// Percent chance of k hits out of the six drawn, for a bet of n numbers.
double hypergeometric(int n, int k) { return 100 * binomial(n, k) * binomial(49 - n, 6 - k) / binomial(49, 6); }

class LotteryModelTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    m = std::make_unique<LotteryModel>();
  }
  // Marks the numbers by hand, as clicks in manual mode.
  void mark(std::initializer_list<int> numbers) {
    m->manualoto_Click();
    for (int x : numbers) m->Label10_Click(x - 1);
  }
  void markFirst(int count) {
    m->manualoto_Click();
    for (int x = 1; x <= count; ++x) m->Label10_Click(x - 1);
  }
  const LotteryModel::Text& text(const char* name) const {
    for (const auto& t : m->texts) {
      if (t.name == QLatin1String(name)) return t;
    }
    throw std::runtime_error(name);
  }
  float sum(const std::array<float, 50>& a) const {
    float s = 0;
    for (float x : a) s += x;
    return s;
  }
  std::unique_ptr<LotteryModel> m;
};

QString fixed(double v, int decimals) { return QString::number(v, 'f', decimals) + QStringLiteral(" %"); }

TEST_F(LotteryModelTest, ProbabilitiesFollowTheHypergeometricLawForSixToEleven) {
  for (int n = 6; n <= 11; ++n) {
    SCOPED_TRACE(n);
    markFirst(n);
    EXPECT_EQ(text("Label12").text, fixed(hypergeometric(n, 6), 6));
    EXPECT_EQ(text("Label11").text, fixed((n - 5) * hypergeometric(n, 5) / 43, 5));
    EXPECT_EQ(text("Label13").text, fixed(hypergeometric(n, 5), 4));
    EXPECT_EQ(text("Label14").text, fixed(hypergeometric(n, 4), 3));
    EXPECT_EQ(text("Label15").text, fixed(hypergeometric(n, 3), 2));
    EXPECT_EQ(text("Label17").text, fixed(hypergeometric(n, 2), 2));
    EXPECT_EQ(text("Label18").text, fixed(hypergeometric(n, 1), 2));
    EXPECT_EQ(text("Label19").text, fixed(hypergeometric(n, 0), 2));
    EXPECT_EQ(m->Label1Lit, n == 6 ? 0 : 1);
    EXPECT_TRUE(m->Command6Enabled);
  }
}

TEST_F(LotteryModelTest, FiveNumbersShiftTheCategoriesAndCountAs44Bets) {
  markFirst(5);
  // Category k+1 takes what k hits of 5 numbers would give, times the 44 bets.
  const auto shifted = [](int k) { return 100 * 44 * binomial(5, k - 1) * binomial(43, 6 - k) / binomial(49, 6); };
  EXPECT_EQ(text("Label12").text, fixed(shifted(6), 6));
  EXPECT_EQ(text("Label11").text, fixed(shifted(5), 5));  // 5C equals 5
  EXPECT_EQ(text("Label13").text, fixed(shifted(5), 4));
  EXPECT_EQ(text("Label14").text, fixed(shifted(4), 3));
  EXPECT_EQ(text("Label15").text, fixed(shifted(3), 2));
  EXPECT_EQ(text("Label17").text, QStringLiteral("49.52 %"));
  EXPECT_EQ(text("Label18").text, QStringLiteral("100.00 %"));
  EXPECT_EQ(text("Label19").text, QStringLiteral("0.00 %"));
  EXPECT_EQ(text("Label19").tooltip, Res(574) + QStringLiteral(": --"));
  EXPECT_EQ(text("Label18").tooltip, Res(573) + QStringLiteral(": 1 / 1"));
  EXPECT_EQ(text("Label17").tooltip, Res(572) + QStringLiteral(": 1 / 2"));
  EXPECT_EQ(m->Label7, QStringLiteral(" 1 Apuesta Múltiple equivale a 44 Apuestas Sencillas"));
}

TEST_F(LotteryModelTest, TooltipsUseTwoBlanksForTheHighCategoriesAndTheLocaleGrouping) {
  markFirst(6);
  EXPECT_EQ(text("Label12").tooltip, Res(567) + QStringLiteral(":  1 / 13,983,816"));
  EXPECT_EQ(text("Label11").tooltip, Res(568) + QStringLiteral(":  1 / 2,330,636"));
  EXPECT_EQ(text("Label13").tooltip, Res(569) + QStringLiteral(":  1 / 54,201"));
  EXPECT_EQ(text("Label14").tooltip, Res(570) + QStringLiteral(":  1 / 1,032"));
  EXPECT_EQ(text("Label15").tooltip, Res(571) + QStringLiteral(": 1 / 57"));
  useComma();
  m->Command10_Click();
  EXPECT_EQ(text("Label12").tooltip, Res(567) + QStringLiteral(":  1 / 13.983.816"));
  EXPECT_EQ(text("Label12").text, QStringLiteral("0,000007 %"));
}

TEST_F(LotteryModelTest, Label7GivesTheEquivalentSingleBets) {
  const std::pair<int, const char*> rows[] = {{6, " 1 Apuesta Sencilla"},
                                              {7, " 1 Apuesta Múltiple equivale a 7 Apuestas Sencillas"},
                                              {8, " 1 Apuesta Múltiple equivale a 28 Apuestas Sencillas"},
                                              {9, " 1 Apuesta Múltiple equivale a 84 Apuestas Sencillas"},
                                              {10, " 1 Apuesta Múltiple equivale a 210 Apuestas Sencillas"},
                                              {11, " 1 Apuesta Múltiple equivale a 462 Apuestas Sencillas"}};
  for (const auto& [n, expected] : rows) {
    markFirst(n);
    EXPECT_EQ(m->Label7, QString::fromUtf8(expected)) << n;
  }
}

TEST_F(LotteryModelTest, TwelveManualNumbersClearTheTextsAndCannotBeSelected) {
  markFirst(11);
  EXPECT_FALSE(text("Label12").text.isEmpty());
  m->Label10_Click(11);
  EXPECT_EQ(m->numerosApuesta, 12);
  for (const auto& t : m->texts) EXPECT_TRUE(t.text.isEmpty()) << t.name.toStdString();
  EXPECT_EQ(m->Label1Lit, -1);
  m->Command9_Click();
  EXPECT_EQ(m->lastErrorCode, 603);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown().back().text, ErrorText(603));
  // Clicked twice is unmarked again.
  m->Label10_Click(11);
  m->Label10_Click(11);
  EXPECT_EQ(m->numerosApuesta, 12);
  EXPECT_EQ(m->markedNumbers().size(), 12);
}

TEST_F(LotteryModelTest, FewerThanFiveNumbersAreRefused) {
  mark({3, 9, 40, 41});
  m->Command9_Click();
  EXPECT_EQ(m->lastErrorCode, 602);
  EXPECT_EQ(m->apuestasSel, 0);
  EXPECT_TRUE(m->grid.isEmpty());
}

TEST_F(LotteryModelTest, SelectingWritesTheSortedNumbersAndCountsOnlyRandomBetsInFrecTodas) {
  mark({40, 3, 17, 9, 25, 33, 48, 1, 2, 4});
  m->Command9_Click();
  ASSERT_EQ(m->grid.size(), 1);
  const QStringList& row = m->grid.first();
  EXPECT_EQ(row.mid(2), QString("1 2 3 4 9 17 25 33 40 48 ").split(' '));
  EXPECT_EQ(row.at(0), QStringLiteral("1"));
  EXPECT_EQ(m->scrollBars, 3);  // more than 9 numbers
  EXPECT_EQ(m->Label8, QStringLiteral("1"));
  EXPECT_TRUE(m->apuestasCambiadas);
  EXPECT_EQ(m->frecSel[40], 1);
  EXPECT_EQ(sum(m->frecTodas), 0);  // by hand: never counted
  m->azarloto_Click();
  m->Command1_Click(2);  // 7 numbers at random
  EXPECT_EQ(sum(m->frecTodas), 7);
  EXPECT_EQ(m->markedNumbers().size(), 7);
  m->Command9_Click();
  EXPECT_EQ(sum(m->frecTodas), 7);
  EXPECT_EQ(sum(m->frecSel), 17);
  EXPECT_EQ(m->apuestasSel, 2);
}

TEST_F(LotteryModelTest, TheFiveHundredthBetWarnsAndTheNextOneEmptiesTheList) {
  for (int i = 0; i < 499; ++i) {
    m->Command1_Click(1);
    m->Command9_Click();
  }
  EXPECT_TRUE(messages.shown().empty());
  m->Command1_Click(1);
  m->Command9_Click();
  EXPECT_EQ(m->apuestasSel, 500);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown().front().text, Res(623));
  EXPECT_EQ(messages.shown().front().title, QStringLiteral("Calvix Premium  -  Bolix"));
  m->Command1_Click(1);
  m->Command9_Click();
  EXPECT_EQ(m->apuestasSel, 0);
  EXPECT_TRUE(m->grid.isEmpty());
  EXPECT_EQ(m->Label8, QStringLiteral("0"));
  EXPECT_EQ(sum(m->frecSel), 0);
  EXPECT_EQ(sum(m->frecTodas), 501 * 6);
}

TEST_F(LotteryModelTest, DeletingARangeTakesItsFrequenciesAndRenumbers) {
  for (int i = 0; i < 4; ++i) {
    markFirst(5 + i);
    m->Command9_Click();
  }
  m->borraapuessel_Click();  // only while the list is shown
  EXPECT_EQ(m->apuestasSel, 4);
  m->mostrarloto_Click();
  m->gridRow = 3;
  m->gridRowSel = 2;
  m->borraapuessel_Click();
  ASSERT_EQ(m->apuestasSel, 2);
  EXPECT_EQ(m->grid.at(1).at(0), QStringLiteral("2"));
  EXPECT_EQ(m->grid.at(1).at(9), QStringLiteral("8"));  // the 8-number bet moved up
  EXPECT_EQ(m->frecSel[1], 2);
  EXPECT_EQ(m->frecSel[8], 1);
  EXPECT_EQ(m->Label8, QStringLiteral("2"));
  m->gridRow = 1;
  m->gridRowSel = 2;
  m->borraapuessel_Click();
  EXPECT_EQ(m->apuestasSel, 0);
  EXPECT_FALSE(m->modoVisor);
  EXPECT_FALSE(m->borraapuesselEnabled);
}

TEST_F(LotteryModelTest, RecoverPutsTheRowBackOnTheBoard) {
  mark({5, 6, 7, 8, 9, 10, 11});
  m->Command9_Click();
  m->azarloto_Click();
  m->mostrarloto_Click();
  m->gridRow = 1;
  m->lotorecup_Click();
  EXPECT_FALSE(m->modoVisor);
  EXPECT_EQ(m->markedNumbers(), (QList<int>{5, 6, 7, 8, 9, 10, 11}));
  EXPECT_EQ(m->numerosApuesta, 7);
  EXPECT_EQ(m->texts[0].text, fixed(hypergeometric(7, 6), 6));
}

TEST_F(LotteryModelTest, APreferredListNeedsTwelveNumbersAndThenRestrictsTheBoard) {
  m->pref1_Click(2);
  EXPECT_EQ(m->Command9Caption, 588);
  EXPECT_FALSE(m->menusEnabled);
  for (int x = 1; x <= 11; ++x) m->Label10_Click(x * 4 - 1);
  m->Command9_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown().back().text, QStringLiteral("Debe seleccionar al menos 12 números."));
  EXPECT_EQ(m->Command9Caption, 588);
  m->Label10_Click(47);  // 48
  m->Command9_Click();
  EXPECT_EQ(m->Command9Caption, 587);
  EXPECT_TRUE(m->menusEnabled);
  EXPECT_EQ(m->prefActiva, 2);
  EXPECT_EQ(program().LotteryFavourites[1][3], 1);  // number 4 kept in the settings
  // An 11-number random bet on a 12-number list still ends, inside the list.
  for (int i = 0; i < 20; ++i) {
    m->Command1_Click(6);
    for (int x : m->markedNumbers()) EXPECT_EQ(x % 4, 0) << x;
  }
  // Numbers outside the list ignore clicks.
  m->manualoto_Click();
  m->Label10_Click(0);
  EXPECT_TRUE(m->markedNumbers().isEmpty());
  m->Label10_Click(3);
  EXPECT_EQ(m->markedNumbers(), QList<int>{4});
}

TEST_F(LotteryModelTest, CancellingAListLeavesItAndClearsThePreference) {
  m->pref1_Click(1);
  for (int x = 1; x <= 12; ++x) m->Label10_Click(x - 1);
  m->Command11_Click();
  EXPECT_EQ(m->prefActiva, 0);
  EXPECT_FALSE(m->Command11Visible);
  EXPECT_EQ(program().LotteryFavourites[0][0], 0);
  for (const auto& n : m->board) EXPECT_TRUE(n.enabled);
}

TEST_F(LotteryModelTest, EvenAndOddListsAreFilledOnTheSpot) {
  m->pref1_Click(5);
  EXPECT_EQ(m->Label7, QStringLiteral("Números activos: Números Impares"));
  m->Command1_Click(6);
  for (int x : m->markedNumbers()) EXPECT_EQ(x % 2, 1);
  m->pref1_Click(4);
  EXPECT_FALSE(m->board[0].enabled);
  EXPECT_TRUE(m->board[1].enabled);
  m->pref1_Click(0);
  for (const auto& n : m->board) EXPECT_TRUE(n.enabled);
}

TEST_F(LotteryModelTest, DrawTypeSetsTheTitleAndWarnsAboutTheGordo) {
  EXPECT_EQ(m->tipoSorteo, 0);
  m->tipoloto_Click(1);
  EXPECT_EQ(m->title, QStringLiteral(" Calvix Premium  -  Bolix  -  Bonoloto"));
  EXPECT_TRUE(messages.shown().empty());
  m->tipoloto_Click(2);
  EXPECT_EQ(m->tipoSorteo, 2);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown().back().text, Res(685));
}

TEST_F(LotteryModelTest, ManualModeSizeButtonClearsTheBoard) {
  mark({1, 2, 3, 4, 5, 6});
  EXPECT_FALSE(m->Command1Enabled[0]);
  EXPECT_TRUE(m->Command1Enabled[1]);
  EXPECT_EQ(m->Command1Caption1, QStringLiteral("c"));
  m->Command1_Click(1);
  EXPECT_TRUE(m->markedNumbers().isEmpty());
  EXPECT_EQ(m->numerosApuesta, 0);
  EXPECT_TRUE(m->texts[0].text.isEmpty());
}

}  // namespace
