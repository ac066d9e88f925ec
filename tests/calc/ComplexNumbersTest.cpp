// Rectangular and polar forms: the quadrant from the signs, the axes and the
// origin, and the round trip.
#include <cmath>

#include "calc/ComplexNumbers.h"
#include "tests/support/TestSupport.h"

namespace {

using namespace complexnum;

TEST(ComplexNumbers, PolarAnglesInEveryQuadrantAndOnTheAxes) {
  struct Row {
    double x, y, angle;
  } rows[] = {{1, 1, 45},   {-1, 1, 135}, {-1, -1, -135}, {1, -1, -45}, {0, 2, 90},
              {0, -2, -90}, {-3, 0, 180}, {3, 0, 0},      {0, 0, 0}};
  for (const Row& r : rows) {
    const Polar p = toPolar({r.x, r.y});
    EXPECT_NEAR(p.angle, r.angle, 1e-12) << r.x << "," << r.y;
    EXPECT_DOUBLE_EQ(p.m, std::sqrt(r.x * r.x + r.y * r.y));
  }
}

TEST(ComplexNumbers, RoundTripAndOverflow) {
  for (double angle = -175; angle <= 180; angle += 25) {
    const Rectangular r = toRectangular({2.5, angle});
    const Polar back = toPolar(r);
    EXPECT_NEAR(back.m, 2.5, 1e-12);
    EXPECT_NEAR(back.angle, angle, 1e-9);
  }
  const Rectangular up = toRectangular({2, 90});
  EXPECT_NEAR(up.x, 0, 1e-15);
  EXPECT_EQ(up.y, 2);
  EXPECT_EQ(errorOf([] { toPolar({1e200, 1e200}); }), 6);
}

}  // namespace
