// The reduced systems: each keeps its guarantee of 5 hits for every six
// numbers drawn among the chosen ones, and its bets come in the table's order.
#include <QSet>
#include <algorithm>
#include <functional>

#include "lottery/Reductions.h"
#include "tests/support/TestSupport.h"

namespace {

// Calls visit for every k-subset of items.
void subsets(const QList<int>& items, int k, const std::function<void(const QList<int>&)>& visit) {
  QList<int> pick;
  std::function<void(int)> go = [&](int from) {
    if (pick.size() == k) {
      visit(pick);
      return;
    }
    for (int i = from; i < items.size(); ++i) {
      pick << items.at(i);
      go(i + 1);
      pick.removeLast();
    }
  };
  go(0);
}

}  // namespace

TEST(Reductions, EverySixOfTheChosenNumbersHasABetWithFiveHits) {
  // Chosen numbers spread over the board, so a position slip would show.
  const QList<int> pool{2, 5, 11, 17, 20, 23, 29, 31, 36, 40, 44, 49};
  const int sizes[] = {8, 9, 10, 11, 12};
  const int bets[] = {4, 7, 14, 22, 38};
  for (int k = 0; k < kReductionSystems; ++k) {
    SCOPED_TRACE(k);
    ASSERT_EQ(reductionSystem(k).numbers, sizes[k]);
    ASSERT_EQ(reductionSystem(k).bets, bets[k]);
    const QList<int> chosen = pool.mid(0, sizes[k]);
    const QList<QList<int>> reduced = reducedBets(k, chosen);
    ASSERT_EQ(reduced.size(), bets[k]);
    QSet<QList<int>> distinct;
    for (const QList<int>& bet : reduced) {
      ASSERT_EQ(bet.size(), 6);
      EXPECT_TRUE(std::is_sorted(bet.begin(), bet.end()));
      EXPECT_EQ(QSet<int>(bet.begin(), bet.end()).size(), 6);
      for (int x : bet) EXPECT_TRUE(chosen.contains(x)) << x;
      distinct.insert(bet);
    }
    EXPECT_EQ(distinct.size(), reduced.size());
    int uncovered = 0;
    subsets(chosen, 6, [&](const QList<int>& drawn) {
      int best = 0;
      for (const QList<int>& bet : reduced) {
        best = std::max<int>(best, static_cast<int>(std::count_if(bet.begin(), bet.end(),
                                                                   [&](int x) { return drawn.contains(x); })));
      }
      if (best < 5) ++uncovered;
    });
    EXPECT_EQ(uncovered, 0);
  }
}

TEST(Reductions, BetsComeInTheTablesOrderNotSorted) {
  QList<int> twelve;
  for (int x = 1; x <= 12; ++x) twelve << x * 4;  // 4, 8, ..., 48
  const QList<QList<int>> bets = reducedBets(4, twelve);
  ASSERT_EQ(bets.size(), 38);
  EXPECT_EQ(bets.first(), (QList<int>{28, 32, 36, 40, 44, 48}));  // positions 7 8 9 10 11 12
  EXPECT_EQ(bets.at(1), (QList<int>{16, 20, 24, 28, 32, 40}));    // 4 5 6 7 8 10
  EXPECT_EQ(bets.last(), (QList<int>{4, 8, 16, 20, 28, 36}));      // 1 2 4 5 7 9
  QList<QList<int>> sorted = bets;
  std::sort(sorted.begin(), sorted.end());
  EXPECT_NE(sorted, bets);
  // The 8-number system leaves out one pair of positions per bet.
  EXPECT_EQ(reducedBets(0, {1, 2, 3, 4, 5, 6, 7, 8}).first(), (QList<int>{2, 3, 4, 5, 6, 7}));
}

TEST(Reductions, AWrongCountOfChosenNumbersGivesNoBets) {
  EXPECT_TRUE(reducedBets(1, {1, 2, 3, 4, 5, 6, 7, 8}).isEmpty());
  EXPECT_TRUE(reducedBets(0, {1, 2, 3, 4, 5, 6, 7, 8, 9}).isEmpty());
}
