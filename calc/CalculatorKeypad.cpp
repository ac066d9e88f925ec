#include "calc/CalculatorKeypad.h"

#include "calc/CalculatorEngine.h"

namespace {

using E = CalculatorEngine;

// Main keypad, six columns:
//   SET  #Rdo  Rdo  SCI  DEC/HEX(2)
//   A    B     C    D    E    F        (hexadecimal mode only)
//   7    8     9    /    C    AC
//   4    5     6    x    x^y  <-
//   1    2     3    -    EXP  =
//   0    ,     +/-  +(2)      =
QList<KeypadKey> buildKeys() {
  constexpr auto M = KeypadPanel::Main;
  QList<KeypadKey> keys = {
      {"Command61", -1, "SET", 4713, M, 0, 0, 1, 1, [](E& e, int) { e.Command61_Click(); }},
      {"Command32", -1, "#Rdo", 4714, M, 0, 1, 1, 1, [](E& e, int) { e.Command32_Click(); }},
      {"Command35", -1, "Rdo", 4715, M, 0, 2, 1, 1, [](E& e, int) { e.Command35_Click(); }},
      {"Command20", -1, "SCI", 4716, M, 0, 3, 1, 1, [](E& e, int) { e.Command20_Click(); }},
      {"Command22", -1, "DEC/HEX", 4717, M, 0, 4, 1, 2, [](E& e, int) { e.Command22_Click(); }},

      {"Command13", 3, "\xC3\xB7", 4710, M, 2, 3, 1, 1, [](E& e, int i) { e.Command13_Click(i); }},
      {"Command17", -1, "C", 4705, M, 2, 4, 1, 1, [](E& e, int) { e.Command17_Click(); }},
      {"Command18", -1, "AC", 4706, M, 2, 5, 1, 1, [](E& e, int) { e.Command18_Click(); }},
      {"Command13", 0, "\xC3\x97", 4707, M, 3, 3, 1, 1, [](E& e, int i) { e.Command13_Click(i); }},
      {"Command14", -1, "x^y", 4711, M, 3, 4, 1, 1, [](E& e, int) { e.Command14_Click(); }},
      {"Command31", -1, "\xE2\x86\x90", 4704, M, 3, 5, 1, 1, [](E& e, int) { e.Command31_Click(); }},
      {"Command13", 2, "\xE2\x88\x92", 4709, M, 4, 3, 1, 1, [](E& e, int i) { e.Command13_Click(i); }},
      {"Command47", -1, "EXP", 4703, M, 4, 4, 1, 1, [](E& e, int) { e.Command47_Click(); }},
      {"Command19", -1, "=", 4712, M, 4, 5, 2, 1, [](E& e, int) { e.Command19_Click(); }},
      {"Command11", -1, ".", 4701, M, 5, 1, 1, 1, [](E& e, int) { e.Command11_Click(); }},
      {"Command12", -1, "\xC2\xB1", 4702, M, 5, 2, 1, 1, [](E& e, int) { e.Command12_Click(); }},
      {"Command13", 1, "+", 4708, M, 5, 3, 1, 2, [](E& e, int i) { e.Command13_Click(i); }},
  };
  static const char* const kDigits[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
  keys.append({"Command1", 0, kDigits[0], 0, M, 5, 0, 1, 1, [](E& e, int i) { e.Command1_Click(i); }});
  for (int d = 1; d <= 9; ++d) {
    const int row = 4 - (d - 1) / 3;
    const int column = (d - 1) % 3;
    keys.append({"Command1", d, kDigits[d], 0, M, row, column, 1, 1, [](E& e, int i) { e.Command1_Click(i); }});
  }
  static const char* const kHex[] = {"A", "B", "C", "D", "E", "F"};
  for (int h = 0; h < 6; ++h) {
    keys.append({"Command30", h, kHex[h], 4718, M, 1, h, 1, 1, [](E& e, int i) { e.Command30_Click(i); }});
  }
  return keys;
}

}  // namespace

const QList<KeypadKey>& calculatorKeys() {
  static const QList<KeypadKey> keys = buildKeys();
  return keys;
}

const KeypadKey* findKey(const QString& control, int index) {
  for (const KeypadKey& k : calculatorKeys()) {
    if (control == QLatin1String(k.control) && index == k.index) return &k;
  }
  return nullptr;
}

bool hasControl(const QString& control) {
  for (const KeypadKey& k : calculatorKeys()) {
    if (control == QLatin1String(k.control)) return true;
  }
  return false;
}

QString keyObjectName(const KeypadKey& key) {
  const QString name = QString::fromLatin1(key.control);
  return key.index < 0 ? name : name + QLatin1Char('(') + QString::number(key.index) + QLatin1Char(')');
}
