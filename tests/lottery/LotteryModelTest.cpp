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

TEST_F(LotteryModelTest, ClearingTheTextsResetsEveryTooltip) {
  markFirst(6);
  m->Command8_Click();
  for (int i = 0; i < 8; ++i) EXPECT_FALSE(m->texts[i].tooltip.contains(QLatin1Char('/'))) << i;
  EXPECT_EQ(text("Label11").tooltip, Res(568));
}

// ---- Reductions --------------------------------------------------------------------

class ReductionTest : public LotteryModelTest {
 protected:
  void reduceWith(int system, std::initializer_list<int> numbers) {
    m->lotoReduc5_Click(system);
    for (int x : numbers) m->Label10_Click(x - 1);
    m->Command9_Click();
  }
  QString numbersOf(int row) const {
    QStringList out;
    for (int c = 2; c < LotteryModel::kColumns; ++c) {
      if (!m->grid.at(row).at(c).isEmpty()) out << m->grid.at(row).at(c);
    }
    return out.join(QLatin1Char(' '));
  }
};

TEST_F(ReductionTest, EnteringTheMethodPreparesTheBoard) {
  m->pref1_Click(4);  // even numbers only
  m->lotoReduc5_Click(2);
  EXPECT_EQ(m->reducNumeros, 10);
  EXPECT_EQ(m->reducApuestas, 14);
  for (const auto& n : m->board) {
    EXPECT_TRUE(n.enabled);
    EXPECT_FALSE(n.marked());
  }
  EXPECT_EQ(m->Command9Caption, 611);
  EXPECT_EQ(m->Command9Tooltip, 640);
  EXPECT_TRUE(m->Command11Visible);
  EXPECT_EQ(m->Command11Tooltip, 641);
  EXPECT_FALSE(m->menusEnabled);
  EXPECT_EQ(m->mode, LotteryModel::kManual);
  EXPECT_EQ(m->Label9Text, Res(637) + QStringLiteral(" 14 ") + Res(638) + QStringLiteral(" 10 ") + Res(561));
  EXPECT_EQ(m->Label7, Res(639));
  // Clicks mark without counting a bet.
  m->Label10_Click(0);
  EXPECT_EQ(m->numerosApuesta, 0);
  EXPECT_TRUE(m->texts[0].text.isEmpty());
  m->Command11_Click();
  EXPECT_EQ(m->Command9Caption, 587);
  EXPECT_TRUE(m->menusEnabled);
}

TEST_F(ReductionTest, AWrongCountIsRefusedAndNothingChanges) {
  reduceWith(0, {1, 2, 3, 4, 5, 6, 7});
  EXPECT_EQ(m->lastErrorCode, 612);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown().back().text, Res(612) + QStringLiteral(" 7 ") + Res(561) + QLatin1Char('.'));
  EXPECT_EQ(messages.shown().back().title, Res(620));
  EXPECT_EQ(m->apuestasSel, 0);
  EXPECT_EQ(m->Command9Caption, 611);
}

TEST_F(ReductionTest, TwelveNumbersGiveThirtyEightBetsInTheTablesOrder) {
  reduceWith(4, {3, 7, 12, 15, 19, 22, 26, 30, 33, 38, 41, 45});
  ASSERT_EQ(m->apuestasSel, 38);
  EXPECT_EQ(m->Label8, QStringLiteral("38"));
  EXPECT_EQ(numbersOf(0), QStringLiteral("26 30 33 38 41 45"));
  EXPECT_EQ(numbersOf(11), QStringLiteral("3 7 12 15 19 22"));
  EXPECT_EQ(numbersOf(37), QStringLiteral("3 7 15 19 26 33"));
  EXPECT_EQ(m->grid.at(37).at(0), QStringLiteral("38"));
  EXPECT_EQ(m->grid.at(0).at(1).size(), 10);  // today, dd/mm/yyyy
  EXPECT_TRUE(m->apuestasCambiadas);
  // Each number stands in 19 of the 38 bets; hand-made, so not in frecTodas.
  EXPECT_EQ(m->frecSel[3], 19);
  EXPECT_EQ(sum(m->frecSel), 38 * 6);
  EXPECT_EQ(sum(m->frecTodas), 0);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown().back().text, Res(621) + QLatin1Char('\n') + Res(622));
}

TEST_F(ReductionTest, ExistingBetsAreReplacedOnlyWhenConfirmed) {
  mark({1, 2, 3, 4, 5, 6});
  m->Command9_Click();
  mark({10, 11, 12, 13, 14, 15});
  m->Command9_Click();
  m->apuestasCambiadas = false;
  messages.queueButton(1);  // Cancel
  reduceWith(0, {1, 5, 9, 13, 17, 21, 25, 29});
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_TRUE(messages.shown().back().text.startsWith(Res(613) + QStringLiteral(" 2 ") + Res(614)));
  EXPECT_EQ(m->apuestasSel, 2);
  EXPECT_EQ(numbersOf(0), QStringLiteral("1 2 3 4 5 6"));
  EXPECT_FALSE(m->apuestasCambiadas);

  messages.queueButton(0);
  m->Command9_Click();
  ASSERT_EQ(m->apuestasSel, 4);
  EXPECT_EQ(numbersOf(0), QStringLiteral("5 9 13 17 21 25"));
  EXPECT_EQ(m->grid.at(0).at(0), QStringLiteral("1"));
  EXPECT_EQ(m->frecSel[1], 3);  // the old bets' counts are gone
  EXPECT_EQ(m->frecSel[2], 0);
  EXPECT_TRUE(m->apuestasCambiadas);
}

// ---- Automatic mode ------------------------------------------------------------------

TEST_F(LotteryModelTest, AutomaticModeMakesTheAskedNumberOfRandomBets) {
  messages.queueText(QStringLiteral("3"));
  m->modoauto_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  const MessageRequest& box = messages.shown().back();
  EXPECT_EQ(box.kind, 5);
  EXPECT_EQ(box.title, QStringLiteral("Bolix  -  ") + Res(513));
  EXPECT_TRUE(box.text.startsWith(Res(649)));
  EXPECT_TRUE(box.text.contains(Res(650) + QStringLiteral(" 0\n") + Res(651) + QStringLiteral(" 500")));
  ASSERT_EQ(m->apuestasSel, 3);
  for (const QStringList& row : m->grid) {
    EXPECT_FALSE(row.at(7).isEmpty());
    EXPECT_TRUE(row.at(8).isEmpty());
  }
  EXPECT_EQ(sum(m->frecTodas), 18);  // random bets count in frecTodas
  EXPECT_EQ(sum(m->frecSel), 18);
  EXPECT_EQ(m->mode, LotteryModel::kRandom);
}

TEST_F(LotteryModelTest, AutomaticModeRefusesBadCountsAndKeepsTheModeWhenCancelled) {
  m->manualoto_Click();
  messages.queueButton(1);
  m->modoauto_Click();
  EXPECT_EQ(m->mode, LotteryModel::kManual);
  EXPECT_EQ(m->apuestasSel, 0);
  for (const char* answer : {"0", "2.5", "abc", "501", "-1", ""}) {
    messages.clear();
    m->lastErrorCode = 0;
    messages.queueText(QLatin1String(answer));
    m->modoauto_Click();
    EXPECT_EQ(m->lastErrorCode, 601) << answer;
    EXPECT_EQ(messages.shown().back().text, ErrorText(601)) << answer;
    EXPECT_EQ(m->apuestasSel, 0);
  }
}

TEST_F(LotteryModelTest, AutomaticModeAtFiveHundredOffersNothing) {
  messages.queueText(QStringLiteral("500"));
  m->modoauto_Click();
  ASSERT_EQ(m->apuestasSel, 500);
  EXPECT_EQ(messages.shown().back().text, Res(623));  // the 500th warns
  messages.clear();
  messages.queueText(QStringLiteral("1"));
  m->modoauto_Click();
  EXPECT_TRUE(messages.shown().front().text.contains(Res(651) + QStringLiteral(" 0")));
  EXPECT_EQ(m->lastErrorCode, 601);
  EXPECT_EQ(m->apuestasSel, 500);
}

TEST_F(LotteryModelTest, AutomaticModeStopsOnRequest) {
  m->hooks.progressStep = [](int done, int) { return done < 4; };
  messages.queueText(QStringLiteral("50"));
  m->modoauto_Click();
  EXPECT_EQ(m->apuestasSel, 4);
  EXPECT_EQ(m->mode, LotteryModel::kRandom);
}

// ---- Statistics and viewers ------------------------------------------------------------

class LotteryStatisticsTest : public LotteryModelTest {
 protected:
  void SetUp() override {
    LotteryModelTest::SetUp();
    const auto row = [](const char* date, std::initializer_list<int> seven, char type) {
      QStringList r{QStringLiteral("0"), QLatin1String(date)};
      for (int x : seven) r << QString::number(x);
      r << QStringLiteral("4") << QString() << QString(QLatin1Char(type));
      return r;
    };
    m->draws.setRows({row("04/01/2007", {1, 2, 3, 4, 5, 6, 7}, 'P'), row("05/01/2007", {1, 9, 10, 11, 12, 13, 2}, 'B'),
                      row("06/01/2007", {1, 2, 20, 21, 22, 23, 9}, 'P')});
    m->computeDrawStatistics();
  }
};

TEST_F(LotteryStatisticsTest, TheDatabaseViewerFollowsTheDrawType) {
  EXPECT_EQ(m->statistics.sorteosBase, 2);
  m->mostrardbase_Click();
  EXPECT_TRUE(m->modoVisor);
  EXPECT_TRUE(m->dbVisible);
  EXPECT_EQ(m->dbRows, (QList<int>{0, 2}));
  EXPECT_EQ(m->Label9Text, QStringLiteral("DataBase Primitiva  -  04/01/2007  -  06/01/2007"));
  ASSERT_EQ(m->freqGrid.size(), 49);
  EXPECT_EQ(m->freqGrid.at(0), (QStringList{"1", "2", "100.00"}));
  EXPECT_EQ(m->freqGrid.at(8), (QStringList{"9", "0", "0.00"}));  // a complementary only

  m->tipoloto_Click(3);  // reloads the shown grid
  EXPECT_EQ(m->dbRows.size(), 3);
  EXPECT_EQ(m->freqGrid.at(0), (QStringList{"1", "3", "100.00"}));
  m->ordenaloto_Click(2);
  EXPECT_EQ(m->freqGrid.at(0).at(0), QStringLiteral("1"));
  EXPECT_EQ(m->freqGrid.at(1).at(0), QStringLiteral("2"));
  m->ordenaloto_Click(1);
  EXPECT_EQ(m->freqGrid.at(48).at(0), QStringLiteral("1"));

  m->MSFlexGrid0_Click(2);  // week-day names follow the system locale (C here)
  EXPECT_EQ(m->Label9Text, QStringLiteral("Bonoloto. ") + Res(655) +
                               QStringLiteral(" Friday 05/01/2007  1  9  10  11  12  13  -  2  1 ") + Res(606));

  m->Command9_Click();  // closes the viewer
  EXPECT_FALSE(m->modoVisor);
  EXPECT_FALSE(m->dbVisible);
  EXPECT_FALSE(m->Label9Visible);
}

TEST_F(LotteryStatisticsTest, TheSelectedBetsViewerShowsTheirFrequencies) {
  m->mostrarloto_Click();
  EXPECT_FALSE(m->modoVisor);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown().back().text, QStringLiteral("¡ ") + Res(646) + QStringLiteral(" !"));
  mark({1, 2, 3, 4, 5, 6});
  m->Command9_Click();
  mark({1, 7, 8, 9, 10, 11, 12});
  m->Command9_Click();
  m->mostrarloto_Click();
  EXPECT_TRUE(m->listVisible);
  EXPECT_EQ(m->freqGrid.at(0), (QStringList{"1", "2", "100.00"}));
  EXPECT_EQ(m->freqGrid.at(6), (QStringList{"7", "1", "50.00"}));
}

TEST_F(LotteryStatisticsTest, ChartsTenNumbersAndReset) {
  m->lotoestmostrar1_Click();  // no bets made yet
  EXPECT_FALSE(m->chartRequested);
  EXPECT_EQ(messages.shown().back().text, QStringLiteral("¡ ") + Res(646) + QStringLiteral(" !"));
  m->lotoestmostrar31_Click(3);
  ASSERT_TRUE(m->chartRequested);
  EXPECT_EQ(m->chart.title, QStringLiteral("DataBase Loto: ") + Res(538) + QStringLiteral("  (2 )"));
  EXPECT_EQ(m->chart.keys.size(), 10);
  EXPECT_EQ(m->chart.values.at(4), 2);
  m->lotoestmostrar31_Click(1);
  EXPECT_EQ(m->chart.values.at(1), 2);  // number 2: once drawn, once complementary
  EXPECT_EQ(m->chart.rangeTo, QStringLiteral("49"));

  m->lotoestmostrar41_Click(0, false);
  EXPECT_EQ(m->informeTitle, Res(540));
  EXPECT_TRUE(m->informeLoto.startsWith(Res(632) + QStringLiteral(" 2 ")));

  m->azarloto_Click();
  m->Command1_Click(1);
  m->Command9_Click();
  m->lotoestmostrar2_Click();
  EXPECT_TRUE(m->chartRequested);
  m->lotoest0_Click();
  EXPECT_EQ(sum(m->frecTodas), 0);
  EXPECT_EQ(sum(m->frecSel), 0);
}

}  // namespace
