#pragma once
// The resistor colour-code tool, both ways (IEC 60062 colour code).
//
// Bands, in reading order:
//   3 bands: digit, digit, multiplier               (no tolerance band: 20 %)
//   4 bands: digit, digit, multiplier, tolerance
//   5 bands: digit, digit, digit, multiplier, tolerance
//   6 bands: digit, digit, digit, multiplier, tolerance, temperature coefficient
// Colours are indexed as the keys Command86(0..12): 0-9 black to white (the
// digit of the band), 10 gold, 11 silver, 12 none. The multiplier's exponent
// is the digit; gold is -1 and silver -2. An unpainted band is shown as "x".
//
// Command87 reads the bands into a value (Text8), a tolerance and a
// coefficient (Combo3); Command97 paints the bands from the value in Text9,
// rounded to the digits the bands hold, with the tolerance chosen in Combo2
// and the coefficient in Combo3.
#include <QString>
#include <QStringList>
#include <array>
#include <optional>

inline constexpr int kUnpainted = -1;
inline constexpr int kGold = 10;
inline constexpr int kSilver = 11;
inline constexpr int kNoColour = 12;
inline constexpr int kColourCount = 13;

// The English word of a colour index, as calvix-cli names them ("x" for an
// unpainted band); -1 for an unknown word.
QString colourWord(int colour);
int colourFromWord(const QString& word);
// The tolerance of a colour in percent (IEC 60062), none for a colour that
// marks no tolerance.
std::optional<double> toleranceOf(int colour);
// The index in the coefficient list (Combo3) of a colour, -1 for none.
int coefficientIndexOf(int colour);
// The coefficient list, in the order of Combo3.
const QStringList& coefficientList();

class PrintDocument;

class ResistorCode {
 public:
  ResistorCode();

  int bandCount = 4;                  // Option1(0..3): 3 to 6
  std::array<int, 6> bands{};         // colour of each band, kUnpainted when none
  int Check2 = 0;                     // the band the colour keys paint (0-based)
  bool reverseMode = false;           // Command88: normal (0) or reverse (1)
  QString Text8;                      // the value read from the bands, in ohms
  QString Text9;                      // the value to paint, in ohms
  QString tolerance;                  // percent, as number text; empty when unknown
  int Combo2 = 0;                     // the tolerance colour chosen for the reverse way
  int Combo3 = -1;                    // the coefficient, index in coefficientList()

  // The colours Combo2 offers, in its order (those with a tolerance).
  static const QList<int>& toleranceColours();

  void Option1_Click(int index);      // 3 + index bands; the bands keep their colours
  void Check2_Click(int band);        // selects the band to paint
  // Paints the selected band and moves the selection to the next band.
  void Command86_Click(int colour);
  void Command87_Click();             // value from the bands
  void Command88_Click(int index);    // normal or reverse mode
  // Bands from the value in Text9; false (the message of code 8 shown) when
  // the value is out of the multiplier colours' range or not a number.
  bool Command97_Click();
  void Command89_Click();             // reset

  // Image7: prints the sheet of the bands and what they read.
  void Image7_Click() const;
  PrintDocument sheet() const;

  QString Combo3Text() const;
  // "brown black red gold": a word per band in use, "x" when unpainted.
  QString bandWords() const;
  int digitBands() const { return bandCount <= 4 ? 2 : 3; }
  int multiplierBand() const { return digitBands(); }
  bool hasToleranceBand() const { return bandCount >= 4; }
  bool hasCoefficientBand() const { return bandCount == 6; }
};
