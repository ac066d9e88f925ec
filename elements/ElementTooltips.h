#pragma once
// The tooltip of each element button (control array zeta, index z - 1):
// "z, Spanish, English, French, Catalan", like "79, Oro, Gold, Or, Or", and
// the symbol on each button.
// Generated at build time from data/elements/elements.txt.
#include <array>

const std::array<const char*, 111>& elementTooltips();
// The symbol printed on each button ("Au"), index z - 1.
const std::array<const char*, 111>& elementSymbols();
