#pragma once
// Reduced systems of the 6/49 with a guarantee of 5 hits: from 8 to 12 chosen
// numbers, a few simple bets such that, whenever the six numbers drawn are all
// among the chosen ones, at least one bet has five of them. The systems are
// data, kept in their published order (not sorted).
#include <QList>
#include <array>
#include <cstdint>

struct ReductionSystem {
  int numbers = 0;  // reducNumeros
  int bets = 0;     // reducApuestas
  // Each bet as positions among the chosen numbers, 1 = the lowest.
  const std::array<std::uint8_t, 6>* table = nullptr;
};

constexpr int kReductionSystems = 5;
// Systems 0 to 4: 8, 9, 10, 11 and 12 numbers.
const ReductionSystem& reductionSystem(int index);

// The bets of system `index` for the chosen numbers (ascending, as many as
// the system takes), in the table's order, each bet ascending.
QList<QList<int>> reducedBets(int index, const QList<int>& chosen);
