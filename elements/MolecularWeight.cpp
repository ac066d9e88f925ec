#include "elements/MolecularWeight.h"

#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"

namespace {
// The longest subscript the keys take: counts are 16-bit.
constexpr int kMaxSubscriptDigits = 4;
}  // namespace

void MolecularWeight::Command111_Click(const QString& symbol, const QString& storedWeight) {
  const QString weightText = storedWeight.trimmed();
  if (symbol.isEmpty() || weightText.isEmpty() || weightText == QLatin1String("--")) return;
  const double weight = rt::Abs(rt::Val(weightText));

  int place = -1;
  for (int i = 0; i < used_; ++i) {
    if (simbolosF[static_cast<std::size_t>(i)] == symbol) place = i;
  }
  if (place < 0 && used_ >= kPlaces) Command112_Click();  // the 31st entry starts anew

  pesoMol += weight;
  if (place >= 0) {
    cuenta[static_cast<std::size_t>(place)] += 1;
  } else {
    place = used_++;
    simbolosF[static_cast<std::size_t>(place)] = symbol;
    cuenta[static_cast<std::size_t>(place)] = 1;
    weights_[static_cast<std::size_t>(place)] = weight;
  }
  ultimo = static_cast<std::int16_t>(place);
  rebuildTexts();
}

void MolecularWeight::Command123_Click() {
  const double wanted = rt::Val(nn);
  nn.clear();
  // Nothing clicked yet, or nothing (or 0) typed: no count to set.
  if (ultimo < 0 || ultimo >= used_ || wanted < 1) return;
  const auto u = static_cast<std::size_t>(ultimo);
  const double weight = weights_[u];
  pesoMol = pesoMol - weight * cuenta[u] + weight * (wanted - 1);
  cuenta[u] = static_cast<std::int16_t>(wanted - 1);
  // The element click once more: the count becomes nn and its weight is added.
  pesoMol += weight;
  cuenta[u] += 1;
  rebuildTexts();
}

void MolecularWeight::Command1_Click(int digit) {
  if (digit < 0 || digit > 9) return;
  const QString d = QString::number(digit);
  if (nn.isEmpty() || nn == QLatin1String("0") || nn.startsWith(QLatin1String("Err"))) {
    nn = d;
  } else if (nn.size() < kMaxSubscriptDigits) {
    nn += d;
  }
}

void MolecularWeight::Command112_Click() {
  pesoMol = 0;
  ultimo = -1;
  formula.clear();
  masa.clear();
  nn.clear();
  simbolosF.fill(QString());
  cuenta.fill(0);
  weights_.fill(0);
  used_ = 0;
}

void MolecularWeight::rebuildTexts() {
  QString f;
  for (int i = 0; i < used_; ++i) {
    const auto p = static_cast<std::size_t>(i);
    f += simbolosF[p];
    if (cuenta[p] > 1) f += QString::number(cuenta[p]);
  }
  formula = f;
  masa = rt::NumberToText(pesoMol);
}
