#pragma once
// The molecular-weight builder of the periodic table (the calculo mode).
//
// Elements are added one click at a time (Command111): a symbol already in
// the formula counts up and ultimo goes back to its place, so the subscript
// (Command123) always applies to the element clicked last; a new symbol
// takes the next place with a count of 1. The subscript sets the count of
// that element to the number typed on the digit keys (nn). Thirty places at
// most: a 31st symbol clears the formula first and starts it anew.
//
// The weight added is the element's stored number (written with "."), so the
// total is the same on a "," system; masa shows it with the system's decimal
// symbol.
#include <QString>
#include <array>
#include <cstdint>

class MolecularWeight {
 public:
  static constexpr int kPlaces = 30;

  double pesoMol = 0;
  std::int16_t ultimo = -1;  // place of the element clicked last, -1 at start
  std::array<QString, kPlaces + 1> simbolosF;  // symbols by place (0..30)
  std::array<std::int16_t, kPlaces + 1> cuenta{};  // their counts
  QString formula;
  QString masa;
  QString nn;  // the subscript being typed

  // An element click: its symbol and its stored weight text. A weight of
  // "--" (or none) adds nothing.
  void Command111_Click(const QString& symbol, const QString& storedWeight);
  // Sets the count of the element at ultimo to nn. The weight is the same
  // stored text the element was added with.
  void Command123_Click();
  // A digit key 0..9 appends to nn.
  void Command1_Click(int digit);
  // Clears the formula, the total and nn.
  void Command112_Click();

  // Places in use.
  int placesUsed() const { return used_; }

 private:
  void rebuildTexts();
  int used_ = 0;
  std::array<double, kPlaces + 1> weights_{};  // |stored weight| of each place
};
