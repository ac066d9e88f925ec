// Rnd stays in [0, 1), repeats after a fixed seed, and spreads evenly.
#include "shell/runtime/Random.h"
#include "tests/support/TestSupport.h"

TEST(Random, NumbersStayInTheUnitIntervalAndSpreadEvenly) {
  rt::Randomize(12345.0);
  int buckets[10] = {};
  for (int i = 0; i < 100000; ++i) {
    const float r = rt::Rnd();
    ASSERT_GE(r, 0.0f);
    ASSERT_LT(r, 1.0f);
    ++buckets[static_cast<int>(r * 10)];
  }
  for (int b : buckets) {
    EXPECT_GT(b, 9000);
    EXPECT_LT(b, 11000);
  }
}

TEST(Random, ASeedGivesARepeatableSequence) {
  rt::Rnd();  // whatever came before does not matter
  rt::Randomize(7.0);
  const float a1 = rt::Rnd();
  const float a2 = rt::Rnd();
  rt::Randomize(7.0);
  EXPECT_EQ(rt::Rnd(), a1);
  EXPECT_EQ(rt::Rnd(), a2);
  rt::Randomize(8.5);
  EXPECT_NE(rt::Rnd(), a1);
}
