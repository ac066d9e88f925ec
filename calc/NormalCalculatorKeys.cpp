#include "calc/NormalCalculatorKeys.h"

#include "calc/CalculatorKeypad.h"
#include "calc/NormalCalculatorModel.h"
#include "shell/Strings.h"

namespace {

using N = NormalCalculatorModel;

NormalKey shared(const char* control, int index, NormalPanel panel, int row, int column, int rowSpan = 1,
                 int columnSpan = 1) {
  return {control, index, panel, row, column, rowSpan, columnSpan, nullptr, nullptr, 0};
}

NormalKey own(const char* control, NormalPanel panel, int row, int column, void (*press)(N&), const char* caption,
              int tooltipId) {
  return {control, -1, panel, row, column, 1, 1, press, caption, tooltipId};
}

// Functions, one row:   √x  x²  ∛x  x³  π  1/x
// Main keypad, six columns:
//   7  8  9  ÷  C    AC
//   4  5  6  ×  EXP  ←
//   1  2  3  −  =(2)
//   0  ,  ±  +
// Formats:  SET  #Rdo  Rdo  SCI
// VAT:      IVA  +IVA  -IVA  d.IVA  Q  W
QList<NormalKey> buildKeys() {
  constexpr auto F = NormalPanel::Functions;
  constexpr auto M = NormalPanel::Main;
  QList<NormalKey> keys;
  keys << own("Command36", F, 0, 0, [](N& n) { n.Command36_Click(); }, "\xE2\x88\x9Ax", 4730)
       << own("Command40", F, 0, 1, [](N& n) { n.Command40_Click(); }, "x\xC2\xB2", 4731)
       << own("Command39", F, 0, 2, [](N& n) { n.Command39_Click(); }, "\xE2\x88\x9Bx", 4732)
       << own("Command64", F, 0, 3, [](N& n) { n.Command64_Click(); }, "x\xC2\xB3", 4733)
       << own("Command45", F, 0, 4, [](N& n) { n.Command45_Click(); }, "\xCF\x80", 4735)
       << own("Command123", F, 0, 5, [](N& n) { n.Command123_Click(); }, "1/x", 4729)
       << own("Command124", M, 1, 4, [](N& n) { n.Command124_Click(); }, "EXP", 4703);
  for (int d = 1; d <= 9; ++d) keys << shared("Command1", d, M, 2 - (d - 1) / 3, (d - 1) % 3);
  keys << shared("Command1", 0, M, 3, 0) << shared("Command11", -1, M, 3, 1) << shared("Command12", -1, M, 3, 2)
       << shared("Command13", 3, M, 0, 3) << shared("Command13", 0, M, 1, 3) << shared("Command13", 2, M, 2, 3)
       << shared("Command13", 1, M, 3, 3) << shared("Command17", -1, M, 0, 4) << shared("Command18", -1, M, 0, 5)
       << shared("Command31", -1, M, 1, 5) << shared("Command19", -1, M, 2, 4, 2, 2);
  constexpr auto T = NormalPanel::Formats;
  keys << shared("Command61", -1, T, 0, 0) << shared("Command32", -1, T, 0, 1) << shared("Command35", -1, T, 0, 2)
       << shared("Command20", -1, T, 0, 3);
  constexpr auto V = NormalPanel::Vat;
  keys << shared("Command6", 0, V, 0, 0) << shared("Command6", 1, V, 0, 1) << shared("Command6", 2, V, 0, 2)
       << shared("Command60", -1, V, 0, 3) << shared("Command33", -1, V, 0, 4) << shared("Command34", -1, V, 0, 5);
  for (int i = 0; i < 4; ++i) {
    // Two memories to a row: field, MR, M+, MC.
    const int row = i / 2;
    const int column = 4 * (i % 2);
    keys << shared("Command24", i, NormalPanel::Memories, row, column + 1)
         << shared("Command28", i, NormalPanel::Memories, row, column + 2)
         << shared("Command29", i, NormalPanel::Memories, row, column + 3)
         << shared("Command74", i, NormalPanel::Registers, 0, i);
  }
  return keys;
}

}  // namespace

const QList<NormalKey>& normalCalculatorKeys() {
  static const QList<NormalKey> keys = buildKeys();
  return keys;
}

const NormalKey* findNormalKey(const QString& control, int index) {
  for (const NormalKey& k : normalCalculatorKeys()) {
    if (control == QLatin1String(k.control) && index == k.index) return &k;
  }
  return nullptr;
}

bool hasNormalControl(const QString& control) {
  for (const NormalKey& k : normalCalculatorKeys()) {
    if (control == QLatin1String(k.control)) return true;
  }
  return false;
}

QString normalKeyObjectName(const NormalKey& key) {
  const QString control = QString::fromLatin1(key.control);
  return key.index < 0 ? control : control + QStringLiteral("(%1)").arg(key.index);
}

QString normalKeyCaption(const NormalKey& key) {
  if (key.press) return QString::fromUtf8(key.caption);
  return keyCaption(QString::fromLatin1(key.control), key.index);
}

int normalKeyTooltipId(const NormalKey& key) {
  if (key.press) return key.tooltipId;
  return keyTooltipId(QString::fromLatin1(key.control), key.index);
}
