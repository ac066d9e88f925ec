#include "lottery/Reductions.h"

#include <algorithm>

namespace {

using Bet = std::array<std::uint8_t, 6>;

constexpr Bet k8[] = {{2, 3, 4, 5, 6, 7}, {1, 3, 4, 5, 6, 8}, {1, 2, 4, 5, 7, 8}, {1, 2, 3, 6, 7, 8}};

constexpr Bet k9[] = {{1, 2, 3, 4, 5, 6}, {1, 2, 3, 4, 5, 7}, {1, 2, 3, 4, 5, 8}, {1, 2, 6, 7, 8, 9},
                      {3, 4, 6, 7, 8, 9}, {3, 5, 6, 7, 8, 9}, {4, 5, 6, 7, 8, 9}};

constexpr Bet k10[] = {{1, 2, 3, 4, 5, 6},  {1, 2, 3, 7, 8, 9},  {1, 2, 4, 6, 9, 10}, {1, 2, 6, 7, 8, 10},
                       {1, 3, 4, 5, 7, 10}, {1, 3, 4, 8, 9, 10}, {1, 5, 6, 7, 8, 9},  {1, 5, 6, 8, 9, 10},
                       {2, 3, 5, 6, 8, 10}, {2, 3, 5, 7, 9, 10}, {2, 4, 5, 7, 8, 9},  {2, 4, 5, 7, 8, 10},
                       {3, 4, 6, 7, 8, 9},  {3, 4, 6, 7, 9, 10}};

constexpr Bet k11[] = {{1, 2, 3, 4, 5, 6},   {1, 2, 3, 5, 8, 10},  {1, 2, 3, 7, 8, 9},   {1, 2, 4, 9, 10, 11},
                       {1, 2, 5, 6, 7, 11},  {1, 2, 6, 8, 10, 11}, {1, 3, 4, 7, 8, 11},  {1, 3, 5, 9, 10, 11},
                       {1, 3, 6, 7, 9, 10},  {1, 4, 5, 6, 8, 9},   {1, 4, 5, 7, 8, 10},  {1, 4, 6, 7, 9, 11},
                       {2, 3, 4, 5, 7, 9},   {2, 3, 4, 7, 10, 11}, {2, 3, 6, 8, 9, 11},  {2, 4, 5, 8, 9, 11},
                       {2, 4, 6, 7, 8, 10},  {2, 5, 6, 7, 9, 10},  {3, 4, 5, 6, 10, 11}, {3, 4, 6, 8, 9, 10},
                       {3, 5, 6, 7, 8, 11},  {5, 7, 8, 9, 10, 11}};

constexpr Bet k12[] = {
    {7, 8, 9, 10, 11, 12}, {4, 5, 6, 7, 8, 10},   {3, 4, 6, 7, 11, 12},  {2, 5, 6, 7, 9, 11},   {2, 4, 6, 8, 9, 12},
    {2, 3, 6, 8, 10, 11},  {2, 3, 5, 7, 10, 12},  {1, 4, 6, 9, 10, 11},  {1, 4, 5, 7, 9, 12},   {1, 3, 5, 8, 9, 11},
    {1, 3, 4, 8, 10, 12},  {1, 2, 3, 4, 5, 6},    {2, 4, 5, 8, 11, 12},  {1, 3, 6, 7, 9, 10},   {1, 2, 5, 8, 9, 10},
    {1, 2, 3, 9, 11, 12},  {1, 6, 7, 8, 11, 12},  {1, 2, 3, 4, 7, 8},    {5, 6, 9, 10, 11, 12}, {2, 3, 4, 5, 9, 10},
    {1, 3, 5, 7, 10, 11},  {3, 5, 6, 7, 8, 9},    {2, 4, 6, 7, 10, 12},  {2, 3, 4, 7, 9, 11},   {1, 5, 6, 8, 10, 12},
    {1, 2, 4, 10, 11, 12}, {4, 5, 7, 8, 10, 11},  {3, 4, 8, 9, 10, 12},  {3, 4, 5, 6, 11, 12},  {2, 3, 5, 7, 8, 12},
    {1, 4, 6, 8, 9, 11},   {1, 2, 7, 8, 9, 10},   {1, 2, 5, 6, 7, 11},   {1, 2, 3, 6, 9, 12},   {3, 6, 8, 10, 11, 12},
    {1, 3, 5, 7, 9, 12},   {2, 4, 6, 8, 10, 11},  {1, 2, 4, 5, 7, 9}};

template <std::size_t N>
constexpr ReductionSystem system(int numbers, const Bet (&table)[N]) {
  return {numbers, static_cast<int>(N), table};
}

const ReductionSystem kSystems[kReductionSystems] = {system(8, k8), system(9, k9), system(10, k10), system(11, k11),
                                                     system(12, k12)};

}  // namespace

const ReductionSystem& reductionSystem(int index) {
  return kSystems[std::clamp(index, 0, kReductionSystems - 1)];
}

QList<QList<int>> reducedBets(int index, const QList<int>& chosen) {
  const ReductionSystem& s = reductionSystem(index);
  QList<QList<int>> out;
  if (chosen.size() != s.numbers) return out;
  for (int b = 0; b < s.bets; ++b) {
    QList<int> bet;
    for (std::uint8_t position : s.table[b]) bet << chosen.at(position - 1);
    out << bet;
  }
  return out;
}
