#include "elements/PeriodicLayout.h"

namespace {

// First element of each period, and the one past the last period.
constexpr int kPeriodStart[] = {1, 3, 11, 19, 37, 55, 87, 119};

bool inFBlock(int z) { return (z >= 57 && z <= 71) || (z >= 89 && z <= 103); }

int fIndex(int z) { return z >= 89 ? z - 89 : z - 57; }  // 0..14

}  // namespace

int elementPeriod(int z) {
  for (int p = 1; p <= 7; ++p) {
    if (z < kPeriodStart[p]) return p;
  }
  return 7;
}

int elementGroup(int z) {
  const int period = elementPeriod(z);
  const int index = z - kPeriodStart[period - 1];
  switch (period) {
    case 1: return z == 1 ? 1 : 18;
    case 2:
    case 3: return index < 2 ? index + 1 : index + 11;
    case 4:
    case 5: return index + 1;
    default:
      if (index < 2) return index + 1;
      if (inFBlock(z)) return 0;
      return index - 13;
  }
}

TableCell elementCell(int z, int layout) {
  const int period = elementPeriod(z);
  const int group = elementGroup(z);
  if (layout == 2) {
    if (group == 0) return {period, 3 + fIndex(z)};
    return {period, groupColumn(group, 2)};
  }
  if (group == 0) return {z >= 89 ? 10 : 9, 3 + fIndex(z)};
  return {period, group};
}

int groupColumn(int group, int layout) {
  if (layout == 2 && group >= 3) return group + 14;
  return group;
}

int layoutRows(int layout) { return layout == 2 ? 7 : 10; }
int layoutColumns(int layout) { return layout == 2 ? 32 : 18; }

long symbolColour(int z) {
  if ((z >= 1 && z <= 3) || (z >= 7 && z <= 10) || z == 17 || z == 18 || z == 36 || z == 54 || z == 86) return 200;
  if (z == 31 || z == 35 || z == 55 || z == 80 || z == 87) return 16744576;
  if (z == 43 || z == 61 || (z >= 93 && z <= 111)) return 50450;
  return 0;
}

bool isArtificial(int z) { return symbolColour(z) == 50450; }
bool isLiquid(int z) { return symbolColour(z) == 16744576; }

ElementClass elementClass(int z) {
  const int group = elementGroup(z);
  if (z == 1) return ElementClass::NonMetal;
  if (group == 0) return ElementClass::InnerTransition;
  if (group == 18) return ElementClass::NobleGas;
  if (group <= 2) return ElementClass::AlkaliMetal;
  if (group <= 12) return ElementClass::TransitionMetal;
  switch (z) {
    case 13: case 31: case 49: case 50: case 81: case 82: case 83: case 84:
      return ElementClass::OtherMetal;
    default:
      return ElementClass::NonMetal;
  }
}

const std::array<QString, kGroupCount>& currentGroupHeads() {
  static const std::array<QString, kGroupCount> heads = [] {
    std::array<QString, kGroupCount> h;
    for (int i = 0; i < kGroupCount; ++i) h[static_cast<std::size_t>(i)] = QString::number(i + 1);
    return h;
  }();
  return heads;
}

const std::array<QString, kGroupCount>& oldGroupHeads() {
  static const std::array<QString, kGroupCount> heads{
      QStringLiteral("IA"),   QStringLiteral("IIA"),  QStringLiteral("IIIB"), QStringLiteral("IVB"),
      QStringLiteral("VB"),   QStringLiteral("VIB"),  QStringLiteral("VIIB"), QStringLiteral("VIII"),
      QStringLiteral("VIII"), QStringLiteral("VIII"), QStringLiteral("IB"),   QStringLiteral("IIB"),
      QStringLiteral("IIIA"), QStringLiteral("IVA"),  QStringLiteral("VA"),   QStringLiteral("VIA"),
      QStringLiteral("VIIA"), QStringLiteral("0")};
  return heads;
}
