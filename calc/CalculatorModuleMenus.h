#pragma once
// What the scientific calculator's module menus need beyond opening windows:
// the three colours of the window (background, display, display font) with
// their defaults and the colour dialog, and the check behind the converter
// key. The menus themselves, which only open other windows, pages and the
// web address, are built by the window (CalculatorModuleMenusWindow.cpp).
#include <QString>
#include <cstdint>
#include <functional>
#include <optional>

// The colours of the opcalc menu: colorfondo, colorvisor, colorfuent1.
enum class CalculatorColour { Background, Display, Text };

// The colour in the settings form, an RGB long with red in the low byte.
std::uint32_t calculatorColour(CalculatorColour which);
void setCalculatorColour(CalculatorColour which, std::uint32_t colour);
// Back to the colour of a fresh installation.
void restoreCalculatorColour(CalculatorColour which);
// The caption of the colour's menu (also the colour dialog's title).
int calculatorColourCaptionId(CalculatorColour which);

// The colour dialog: starts at a colour (red in the low byte) under a title
// and answers the colour chosen, nothing when cancelled. The window's opens
// the system's dialog; tests answer from a script.
using ColourPicker = std::function<std::optional<std::uint32_t>(std::uint32_t initial, const QString& title)>;
// The define item: asks the picker and keeps its answer. False when cancelled.
bool defineCalculatorColour(CalculatorColour which, const ColourPicker& pick);

// Whether a display text is a number the converter can take: the
// locale-aware reading, blanks around it allowed, "&h" and "&o" forms too.
bool isNumericText(const QString& text);

