#include "calc/CalculatorKeypad.h"

#include "calc/CalculatorEngine.h"
#include "calc/EquationTools.h"
#include "calc/PhysicalConstants.h"
#include "shell/Strings.h"

namespace {

using E = CalculatorEngine;
using Press = void (*)(CalculatorEngine&, int);

KeypadKey key(const char* control, int index, const char* caption, int tooltipId, KeypadPanel panel, int row,
              int column, Press press, int columnSpan = 1, int captionId = 0) {
  return {control, index, caption, tooltipId, panel, row, column, 1, columnSpan, press, captionId};
}

// Main keypad, six columns:
//   SET  #Rdo  Rdo  SCI  DEC/HEX(2)
//   A    B     C    D    E    F        (hexadecimal mode only)
//   7    8     9    /    C    AC
//   4    5     6    x    x^y  <-
//   1    2     3    -    EXP  =
//   0    ,     +/-  +(2)      =
void addMainKeys(QList<KeypadKey>& keys) {
  constexpr auto M = KeypadPanel::Main;
  keys << KeypadKey{"Command61", -1, "SET", 4713, M, 0, 0, 1, 1, [](E& e, int) { e.Command61_Click(); }, 0}
       << KeypadKey{"Command32", -1, "#Rdo", 4714, M, 0, 1, 1, 1, [](E& e, int) { e.Command32_Click(); }, 0}
       << KeypadKey{"Command35", -1, "Rdo", 4715, M, 0, 2, 1, 1, [](E& e, int) { e.Command35_Click(); }, 0}
       << KeypadKey{"Command20", -1, "SCI", 4716, M, 0, 3, 1, 1, [](E& e, int) { e.Command20_Click(); }, 0}
       << KeypadKey{"Command22", -1, "DEC/HEX", 4717, M, 0, 4, 1, 2, [](E& e, int) { e.Command22_Click(); }, 0}
       << KeypadKey{"Command13", 3, "\xC3\xB7", 4710, M, 2, 3, 1, 1, [](E& e, int i) { e.Command13_Click(i); }, 0}
       << KeypadKey{"Command17", -1, "C", 4705, M, 2, 4, 1, 1, [](E& e, int) { e.Command17_Click(); }, 0}
       << KeypadKey{"Command18", -1, "AC", 4706, M, 2, 5, 1, 1, [](E& e, int) { e.Command18_Click(); }, 0}
       << KeypadKey{"Command13", 0, "\xC3\x97", 4707, M, 3, 3, 1, 1, [](E& e, int i) { e.Command13_Click(i); }, 0}
       << KeypadKey{"Command14", -1, "x^y", 4711, M, 3, 4, 1, 1, [](E& e, int) { e.Command14_Click(); }, 0}
       << KeypadKey{"Command31", -1, "\xE2\x86\x90", 4704, M, 3, 5, 1, 1, [](E& e, int) { e.Command31_Click(); }, 0}
       << KeypadKey{"Command13", 2, "\xE2\x88\x92", 4709, M, 4, 3, 1, 1, [](E& e, int i) { e.Command13_Click(i); }, 0}
       << KeypadKey{"Command47", -1, "EXP", 4703, M, 4, 4, 1, 1, [](E& e, int) { e.Command47_Click(); }, 0}
       << KeypadKey{"Command19", -1, "=", 4712, M, 4, 5, 2, 1, [](E& e, int) { e.Command19_Click(); }, 0}
       << KeypadKey{"Command11", -1, ".", 4701, M, 5, 1, 1, 1, [](E& e, int) { e.Command11_Click(); }, 0}
       << KeypadKey{"Command12", -1, "\xC2\xB1", 4702, M, 5, 2, 1, 1, [](E& e, int) { e.Command12_Click(); }, 0}
       << KeypadKey{"Command13", 1, "+", 4708, M, 5, 3, 1, 2, [](E& e, int i) { e.Command13_Click(i); }, 0};
  static const char* const kDigits[] = {"0", "1", "2", "3", "4", "5", "6", "7", "8", "9"};
  keys << key("Command1", 0, kDigits[0], 0, M, 5, 0, [](E& e, int i) { e.Command1_Click(i); });
  for (int d = 1; d <= 9; ++d) {
    const int row = 4 - (d - 1) / 3;
    const int column = (d - 1) % 3;
    keys << key("Command1", d, kDigits[d], 0, M, row, column, [](E& e, int i) { e.Command1_Click(i); });
  }
  static const char* const kHex[] = {"A", "B", "C", "D", "E", "F"};
  for (int h = 0; h < 6; ++h) {
    keys << key("Command30", h, kHex[h], 4718, M, 1, h, [](E& e, int i) { e.Command30_Click(i); });
  }
}

// Function keys, five columns:
//   hyp   sin    cos    tan    Angu
//   º     asin   acos   atan   Const
//   x²    x³     √x     ∛x     1/x
//   log   10^x   ln     e^x    n!
//   π     2π     %      °→n    gms
//   Int   Fix    Frac   red
//   table(2)     plot(2)       converter     (other modules' windows)
void addFunctionKeys(QList<KeypadKey>& keys) {
  constexpr auto F = KeypadPanel::Functions;
  const Press trig = [](E& e, int i) { e.Command21_Click(i); };
  const Press power = [](E& e, int i) { e.Command10_Click(i); };
  const Press part = [](E& e, int i) { e.Command36_Click(i); };
  keys << key("Command43", -1, "hyp", 4742, F, 0, 0, [](E& e, int) { e.Command43_Click(); })
       << key("Command21", 0, "sin", 4736, F, 0, 1, trig) << key("Command21", 1, "cos", 4737, F, 0, 2, trig)
       << key("Command21", 2, "tan", 4738, F, 0, 3, trig)
       << key("Command50", -1, "Angu", 4763, F, 0, 4, [](E& e, int) { e.Command50_Click(); })
       << key("Command58", -1, "\xC2\xBA", 4764, F, 1, 0, [](E& e, int) { e.Command58_Click(); })
       << key("Command21", 3, "asin", 4739, F, 1, 1, trig) << key("Command21", 4, "acos", 4740, F, 1, 2, trig)
       << key("Command21", 5, "atan", 4741, F, 1, 3, trig)
       << key("Command8", -1, "Const", 4752, F, 1, 4, [](E& e, int) { e.Command8_Click(); })
       << key("Command10", 6, "x\xC2\xB2", 4731, F, 2, 0, power) << key("Command10", 8, "x\xC2\xB3", 4733, F, 2, 1, power)
       << key("Command10", 5, "\xE2\x88\x9Ax", 4730, F, 2, 2, power)
       << key("Command10", 7, "\xE2\x88\x9Bx", 4732, F, 2, 3, power)
       << key("Command10", 4, "1/x", 4729, F, 2, 4, power) << key("Command10", 0, "log", 4725, F, 3, 0, power)
       << key("Command10", 1, "10^x", 4726, F, 3, 1, power) << key("Command10", 2, "ln", 4727, F, 3, 2, power)
       << key("Command10", 3, "e^x", 4728, F, 3, 3, power)
       << key("Command46", -1, "n!", 4751, F, 3, 4, [](E& e, int) { e.Command46_Click(); })
       << key("Command10", 10, "\xCF\x80", 4735, F, 4, 0, power) << key("Command10", 9, "2\xCF\x80", 4734, F, 4, 1, power)
       << key("Command52", -1, "%", 4746, F, 4, 2, [](E& e, int) { e.Command52_Click(); }, 1, 4248)
       << key("Command65", -1, "\xC2\xB0\xE2\x86\x92n", 4765, F, 4, 3, [](E& e, int) { e.Command65_Click(); })
       << key("Command66", -1, "gms", 4766, F, 4, 4, [](E& e, int) { e.Command66_Click(); })
       << key("Command36", 0, "Int", 4743, F, 5, 0, part, 1, 4229) << key("Command36", 1, "Fix", 4744, F, 5, 1, part, 1, 4230)
       << key("Command36", 2, "Frac", 4745, F, 5, 2, part, 1, 4231)
       << key("Command67", -1, "red", 4767, F, 5, 3, [](E& e, int) { e.Command67_Click(); })
       << key("Command70", -1, "x|f(x)", 4815, F, 6, 0, [](E& e, int) { e.Command70_Click(); }, 2)
       << key("Command71", -1, "\xE2\x88\xBF f(x)", 4816, F, 6, 2, [](E& e, int) { e.Command71_Click(); }, 2)
       << key("Command7", -1, "\xE2\x87\x84", 4817, F, 6, 4, [](E& e, int) { e.Command7_Click(); });
}

// The conversion groups: VAT and currencies, temperature, angles, bases.
void addConversionKeys(QList<KeypadKey>& keys) {
  constexpr auto V = KeypadPanel::Vat;
  constexpr auto T = KeypadPanel::Temperature;
  constexpr auto A = KeypadPanel::Angles;
  constexpr auto B = KeypadPanel::Bases;
  const Press vat = [](E& e, int i) { e.Command6_Click(i); };
  const Press temperature = [](E& e, int i) { e.Command5_Click(i); };
  const Press angle = [](E& e, int i) { e.Command59_Click(i); };
  const Press base = [](E& e, int i) { e.Command9_Click(i); };
  keys << key("Command6", 0, "IVA", 4747, V, 0, 0, vat, 1, 4777) << key("Command6", 1, "+IVA", 4748, V, 0, 1, vat, 1, 4778)
       << key("Command6", 2, "-IVA", 4749, V, 0, 2, vat, 1, 4779)
       << key("Command60", -1, "d.IVA", 4750, V, 0, 3, [](E& e, int) { e.Command60_Click(); })
       // The currency keys take their captions and tooltips from the settings.
       << key("Command33", -1, "", 0, V, 1, 0, [](E& e, int) { e.Command33_Click(); }, 2)
       << key("Command34", -1, "", 0, V, 1, 2, [](E& e, int) { e.Command34_Click(); }, 2)
       << key("Command5", 0, "Celsius", 4756, T, 0, 0, temperature)
       << key("Command5", 1, "Kelvin", 4757, T, 0, 1, temperature)
       << key("Command5", 2, "Fahrenheit", 4758, T, 0, 2, temperature)
       << key("Command48", -1, "Temp", 4759, T, 1, 0, [](E& e, int) { e.Command48_Click(); }, 3)
       << key("Command59", 0, "deg", 4760, A, 0, 0, angle) << key("Command59", 1, "rad", 4761, A, 0, 1, angle)
       << key("Command59", 2, "gra", 4762, A, 0, 2, angle) << key("Command9", 0, "DEC", 4768, B, 0, 0, base)
       << key("Command9", 1, "HEX", 4769, B, 0, 1, base) << key("Command9", 2, "OCT", 4770, B, 0, 2, base)
       << key("Command9", 3, "BIN", 4771, B, 0, 3, base)
       << key("Command91", -1, "10\xE2\x86\x92N", 4772, B, 1, 0, [](E& e, int) { e.Command91_Click(); }, 2)
       << key("Command92", -1, "N\xE2\x86\x92" "10", 4773, B, 1, 2, [](E& e, int) { e.Command92_Click(); }, 2);
}

// The constants panel: five columns, in index order.
void addConstantKeys(QList<KeypadKey>& keys) {
  const auto& table = physicalConstants();
  for (int i = 0; i < table.size(); ++i) {
    const PhysicalConstant& c = table.at(i);
    keys << key("Command4", i, c.symbol, c.nameId, KeypadPanel::Constants, i / 5, i % 5,
                [](E& e, int index) { e.Command4_Click(index); });
  }
}

// The memory strip: each memory i has its field m1(i) at column 4i (placed by
// the window) and its three keys beside it. The register row: R1 to R4, then
// the history panel key. The two list panels have their clear keys.
void addMemoryKeys(QList<KeypadKey>& keys) {
  constexpr auto M = KeypadPanel::Memories;
  constexpr auto R = KeypadPanel::Registers;
  static const char* const kRegisters[] = {"R1", "R2", "R3", "R4"};
  for (int i = 0; i < 4; ++i) {
    keys << key("Command24", i, "MR", 4216, M, 0, 4 * i + 1, [](E& e, int n) { e.Command24_Click(n); })
         << key("Command28", i, "M+", 4220, M, 0, 4 * i + 2, [](E& e, int n) { e.Command28_Click(n); })
         << key("Command29", i, "MC", 4221, M, 0, 4 * i + 3, [](E& e, int n) { e.Command29_Click(n); });
  }
  // The register keys' tooltips are the labels, written on activation.
  for (int i = 0; i < 4; ++i) {
    keys << key("Command74", i, kRegisters[i], 0, R, 0, i, [](E& e, int n) { e.Command74_Click(n); });
  }
  keys << key("Command62", -1, "", 4784, R, 0, 4, [](E& e, int) { e.Command62_Click(); }, 1, 4719)
       << key("Command63", -1, "", 4785, KeypadPanel::HistoryTools, 0, 0, [](E& e, int) { e.Command63_Click(); }, 1,
              4791)
       << key("Command64", -1, "", 4788, KeypadPanel::ViewerTools, 0, 0, [](E& e, int) { e.Command64_Click(); }, 1,
              4791);
}

// The statistics panel, seven columns:
//   ΣX    ΣX²   x̄     x̄g    σn    σn-1  Max/Min     (X)
//   ΣY    ΣY²   ȳ     ȳg    σn    σn-1  Max/Min     (Y)
//   n     Σxy   x̄f    σf    a     b     r²
//   X     Y     x'    y'    Reg   Clr   X⇄Y
//   DelX  DelY
void addStatisticsKeys(QList<KeypadKey>& keys) {
  constexpr auto S = KeypadPanel::Statistics;
  static const char* const kX[] = {"\xCE\xA3x", "\xCE\xA3x\xC2\xB2", "x\xCC\x84", "x\xCC\x84g", "\xCF\x83n",
                                   "\xCF\x83n-1", "Max"};
  static const char* const kY[] = {"\xCE\xA3y", "\xCE\xA3y\xC2\xB2", "y\xCC\x84", "y\xCC\x84g", "\xCF\x83n",
                                   "\xCF\x83n-1", "Max"};
  static const char* const kPairs[] = {"n", "\xCE\xA3xy", "x\xCC\x84" "f", "\xCF\x83" "f", "a", "b", "r\xC2\xB2"};
  for (int i = 0; i < 7; ++i) {
    keys << key("Command15", i, kX[i], 4190, S, 0, i, [](E& e, int n) { e.Command15_Click(n); })
         << key("Command2", i, kY[i], 4191, S, 1, i, [](E& e, int n) { e.Command2_Click(n); })
         << key("Command16", i, kPairs[i], 4193, S, 2, i, [](E& e, int n) { e.Command16_Click(n); });
  }
  keys << key("Command76", 0, "X", 4194, S, 3, 0, [](E& e, int n) { e.Command76_Click(n); })
       << key("Command76", 1, "Y", 4194, S, 3, 1, [](E& e, int n) { e.Command76_Click(n); })
       << key("Command84", 0, "x'", 4206, S, 3, 2, [](E& e, int n) { e.Command84_Click(n); })
       << key("Command84", 1, "y'", 4206, S, 3, 3, [](E& e, int n) { e.Command84_Click(n); })
       << key("Command78", -1, "Reg", 4571, S, 3, 4, [](E& e, int) { e.Command78_Click(); })
       << key("Command82", -1, "Clr", 4566, S, 3, 5, [](E& e, int) { e.Command82_Click(); })
       << key("Command23", -1, "X\xE2\x87\x84Y", 4195, S, 3, 6, [](E& e, int) { e.Command23_Click(); })
       << key("Command3", 0, "Del X", 4574, S, 4, 0, [](E& e, int n) { e.Command3_Click(n); }, 2)
       << key("Command3", 1, "Del Y", 4574, S, 4, 2, [](E& e, int n) { e.Command3_Click(n); }, 2);
}

// The evaluation panel, one column per program:
//   P0  P1  P2  P3  P4     run
//   ↓   ↓   ↓   ↓   ↓      store Text4
//   ×   ×   ×   ×   ×      clear
//   Evaluar (five columns)
void addProgramKeys(QList<KeypadKey>& keys) {
  constexpr auto P = KeypadPanel::Programs;
  static const char* const kRun[] = {"P0", "P1", "P2", "P3", "P4"};
  for (int i = 0; i < 5; ++i) {
    keys << key("Command79", i, kRun[i], 4284, P, 0, i, [](E& e, int n) { e.Command79_Click(n); })
         << key("Command80", i, "\xE2\x86\x93", 4285, P, 1, i, [](E& e, int n) { e.Command80_Click(n); })
         << key("Command81", i, "\xC3\x97", 4286, P, 2, i, [](E& e, int n) { e.Command81_Click(n); });
  }
  keys << key("Command83", -1, "", 4288, P, 3, 0, [](E& e, int) { e.Command83_Click(); }, 5, 4407);
}

QList<KeypadKey> buildKeys() {
  QList<KeypadKey> keys;
  addMainKeys(keys);
  addFunctionKeys(keys);
  addConversionKeys(keys);
  addConstantKeys(keys);
  addMemoryKeys(keys);
  addStatisticsKeys(keys);
  addNumberToolKeys(keys);
  addEquationKeys(keys);
  addProgramKeys(keys);
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

QString keyCaption(const KeypadKey& key) {
  return key.captionId != 0 ? Res(key.captionId) : QString::fromUtf8(key.caption);
}

QString keyCaption(const QString& control, int index) {
  const KeypadKey* k = findKey(control, index);
  return k ? keyCaption(*k) : QString();
}

int keyTooltipId(const QString& control, int index) {
  const KeypadKey* k = findKey(control, index);
  return k ? k->tooltipId : 0;
}
