#include "calc/CalculatorModuleMenus.h"

#include <cmath>

#include "calc/CalculatorEngine.h"
#include "shell/ErrorReport.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

namespace {

constexpr std::uint32_t kColourMask = 0xFFFFFF;
constexpr int kConverterNameId = 4;  // "Conversor de Unidades", the message's section

// The settings keep the colours as floats ("COLOR FONDO", "COLOR VISOR",
// "COLOR TEXTO"); every 24-bit colour is exact in one.
float& colourSetting(ProgramState& state, CalculatorColour which) {
  switch (which) {
    case CalculatorColour::Background: return state.BackgroundColour;
    case CalculatorColour::Display: return state.DisplayColour;
    case CalculatorColour::Text: break;
  }
  return state.TextColour;
}

}  // namespace

std::uint32_t calculatorColour(CalculatorColour which) {
  const float value = colourSetting(program(), which);
  // A settings file may hold anything: outside 0..FFFFFF it reads as black.
  if (!(value >= 0) || value > static_cast<float>(kColourMask)) return 0;
  return static_cast<std::uint32_t>(value);
}

void setCalculatorColour(CalculatorColour which, std::uint32_t colour) {
  colourSetting(program(), which) = static_cast<float>(colour & kColourMask);
}

void restoreCalculatorColour(CalculatorColour which) {
  ProgramState fresh;
  colourSetting(program(), which) = colourSetting(fresh, which);
}

int calculatorColourCaptionId(CalculatorColour which) {
  switch (which) {
    case CalculatorColour::Background: return 4810;
    case CalculatorColour::Display: return 4811;
    case CalculatorColour::Text: break;
  }
  return 4812;
}

bool defineCalculatorColour(CalculatorColour which, const ColourPicker& pick) {
  if (!pick) return false;
  const std::optional<std::uint32_t> chosen = pick(calculatorColour(which), Res(calculatorColourCaptionId(which)));
  if (!chosen) return false;
  setCalculatorColour(which, *chosen);
  return true;
}

bool isNumericText(const QString& text) {
  double value = 0;
  return rt::tryTextToDouble(text, value) && std::isfinite(value);
}

// ---- The keys that open other modules ----------------------------------------

void CalculatorEngine::Command70_Click() {
  guarded(70, [&] { windowRequest = QStringLiteral("FunctionTable"); });
}

void CalculatorEngine::Command71_Click() {
  guarded(71, [&] { windowRequest = QStringLiteral("Plot"); });
}

// The converter reads the calculator's display as its entry, so only a
// number may go there.
void CalculatorEngine::Command7_Click() {
  guarded(7, [&] {
    if (!isNumericText(numero.text())) {
      program().SectionTitle = Res(kConverterNameId);
      errorCode = 1;
      ReportError(errorCode, 3, 3, 0);
      return;
    }
    windowRequest = QStringLiteral("UnitConverter");
  });
}
