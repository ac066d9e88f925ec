// The keys of the number tools' panel, four columns:
//   Polar  Rect   Prim   LPrim
//   Fact   mcd    a/b    Gen
//   V      VR     C      CR
//   Q,R    Tart   NIF    Rom
//   Rnd    Pol    µeff   ASCII
#include "calc/CalculatorEngine.h"
#include "calc/CalculatorKeypad.h"

void addNumberToolKeys(QList<KeypadKey>& keys) {
  using E = CalculatorEngine;
  constexpr auto N = KeypadPanel::NumberTools;
  auto key = [](const char* control, int index, const char* caption, int tooltipId, int row, int column,
                void (*press)(E&, int)) {
    return KeypadKey{control, index, caption, tooltipId, N, row, column, 1, 1, press, 0};
  };
  const auto combinatorics = [](E& e, int i) { e.Command56_Click(i); };
  const auto primes = [](E& e, int i) { e.Command93_Click(i); };
  keys << key("Command73", -1, "Polar", 4274, 0, 0, [](E& e, int) { e.Command73_Click(); })
       << key("Command98", -1, "Rect", 4301, 0, 1, [](E& e, int) { e.Command98_Click(); })
       << key("Command93", 0, "Prim", 4296, 0, 2, primes) << key("Command93", 1, "LPrim", 4297, 0, 3, primes)
       << key("Command45", -1, "Fact", 4241, 1, 0, [](E& e, int) { e.Command45_Click(); })
       << key("Command95", -1, "mcd", 4299, 1, 1, [](E& e, int) { e.Command95_Click(); })
       << key("Command96", -1, "a/b", 4300, 1, 2, [](E& e, int) { e.Command96_Click(); })
       << key("Command27", -1, "Gen", 4219, 1, 3, [](E& e, int) { e.Command27_Click(); })
       << key("Command56", 0, "V", 4253, 2, 0, combinatorics) << key("Command56", 1, "VR", 4254, 2, 1, combinatorics)
       << key("Command56", 2, "C", 4255, 2, 2, combinatorics) << key("Command56", 3, "CR", 4256, 2, 3, combinatorics)
       << key("Command44", -1, "Q, R", 4240, 3, 0, [](E& e, int) { e.Command44_Click(); })
       << key("Command38", -1, "Tart", 4233, 3, 1, [](E& e, int) { e.Command38_Click(); })
       << key("Command94", -1, "NIF", 4298, 3, 2, [](E& e, int) { e.Command94_Click(); })
       << key("Command53", -1, "Rom", 4249, 3, 3, [](E& e, int) { e.Command53_Click(); })
       << key("Command51", -1, "Rnd", 4516, 4, 0, [](E& e, int) { e.Command51_Click(); })
       << key("Command55", -1, "Pol", 4252, 4, 1, [](E& e, int) { e.Command55_Click(); })
       << key("Command41", -1, "\xC2\xB5" "eff", 4237, 4, 2, [](E& e, int) { e.Command41_Click(); })
       << key("Command37", -1, "ASCII", 4232, 4, 3, [](E& e, int) { e.Command37_Click(); });
}
