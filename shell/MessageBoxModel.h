#pragma once
// What the message box decides without a widget: the colour scheme and field
// of each kind, when the box closes by itself, and how a typed key changes in
// its input line. The MBox window (MessageBoxWindow.h) draws from these.
#include <QString>
#include <array>
#include <cstdint>

#include "shell/runtime/Variant.h"

struct MessageKindScheme {
  // Gradient components, light then dark, of red, green and blue.
  std::array<int, 2> red{224, 192};
  std::array<int, 2> green{224, 192};
  std::array<int, 2> blue{224, 192};
  // The frame's four line colours (red in the low byte): outer light, outer
  // dark, inner light, inner dark.
  std::array<std::uint32_t, 4> lines{0xFFFFFF, 0x808080, 0xF0F0F0, 0xA0A0A0};
  bool list = false;   // mboxlist shows (kind 1)
  bool input = false;  // inputtxt shows (kind 5)
};

// The scheme of kinds 1 to 9; kind 0 and any other value give the neutral one.
MessageKindScheme messageKindScheme(int kind);

// Seconds until the box closes by itself, 0 for never. The alarm message
// (title string 441) closes after 15 seconds; a box with an input line never;
// otherwise the setting "DESACTIVADO MENSAJES AUTOM." decides: 0 never, 1 two
// seconds, n (n - 1) * 5 seconds, so the list "nunca", "2 seg.", "5 seg.",
// "10 seg.", "15 seg." is obeyed. A value that gives no time of 1 to 59
// seconds means never.
int autoCloseSeconds(const QString& title, bool inputVisible, const rt::Variant& setting);

// A key typed into the input line: a comma or a point becomes the decimal
// symbol; any other character stays.
QChar inputKey(QChar typed, const QString& decimalSymbol);
