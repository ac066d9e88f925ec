#pragma once
// Rectangular and polar forms of a complex number. Angles are in degrees
// whatever the calculator's angle mode, with pi as Atn(1)*4.
namespace complexnum {

struct Rectangular {
  double x = 0;
  double y = 0;
};

struct Polar {
  double m = 0;
  double angle = 0;  // degrees, in (-180, 180]
};

Rectangular toRectangular(const Polar& p);
// The quadrant comes from the signs of x and y; on the y axis the angle is
// 90 or -90, and the origin gives m = 0 and angle 0.
Polar toPolar(const Rectangular& r);

}  // namespace complexnum
