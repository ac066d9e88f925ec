#pragma once
// Rnd and Randomize: uniform numbers in [0, 1). The sequence is the program's
// own; Randomize seeds it from the clock, Randomize(seed) repeatably.
namespace rt {

float Rnd();
void Randomize();
void Randomize(double seed);

}  // namespace rt
