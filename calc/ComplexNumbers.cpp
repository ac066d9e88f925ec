#include "calc/ComplexNumbers.h"

#include <cmath>

#include "shell/runtime/Numeric.h"

namespace complexnum {

namespace {
double pi() { return rt::Atn(1) * 4; }
}  // namespace

Rectangular toRectangular(const Polar& p) {
  const double radians = p.angle * pi() / 180;
  return {rt::checkFinite(p.m * std::cos(radians)), rt::checkFinite(p.m * std::sin(radians))};
}

Polar toPolar(const Rectangular& r) {
  Polar p;
  p.m = rt::checkFinite(std::sqrt(r.x * r.x + r.y * r.y));
  if (r.x == 0 && r.y == 0) return p;
  double angle = 0;
  if (r.x == 0) {
    angle = r.y > 0 ? 90 : -90;
  } else {
    angle = rt::Atn(r.y / r.x) * 180 / pi();
    // atan covers the right half-plane; the left half turns by 180 degrees.
    if (r.x < 0) angle += r.y >= 0 ? 180 : -180;
  }
  p.angle = angle;
  return p;
}

}  // namespace complexnum
