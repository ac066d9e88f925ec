#pragma once
// The geometry window's model (Geomet, "GeoKORD") without its widgets.
//
// How the pieces fit:
//  - The catalogue (FigureCatalogue) gives each row's Tag, labels, titles,
//    formula texts and computation; the model walks it by FigureIndex, a
//    program-wide 1-based row, so the window reopens on the last figure.
//  - Redraw fills the controls of the row: Label4 (name), the parameter
//    boxes Label1/Text1 (visible ones first), the result lines Label2/Text2
//    and the notes. Results and formula texts (Picture3) are filled by the
//    calculation only.
//  - chameleonButton2_Click calculates: empty boxes are reported and set to
//    "0", then the limits, then the shown lines with their formula texts.
//    chameleonButton3 copies the shown results to R1-R3.
//  - Check1/UpDown1 round the shown results to a number of places.
//  - Text3 is the inline calculator (InlineCalculator), worked on Enter.
// Messages go through MBoxShow, so tests and calvix-cli see them.
#include <QString>
#include <QStringList>
#include <array>
#include <vector>

#include "geometry/FigureCatalogue.h"
#include "geometry/InlineCalculator.h"

class GeometryModel {
 public:
  static constexpr int kBoxes = geometry::kMaxParameters;
  static constexpr int kLines = geometry::kLines;
  static const QString kDefaultText3;

  GeometryModel();

  void Form_Load();
  // Fills the controls from the row at FigureIndex.
  void redraw();

  // Handlers.
  void chameleonButton1_Click(bool forward);  // next row (or previous), wrapping
  void chameleonButton2_Click();              // calculate
  void chameleonButton3_Click();              // copy to R1-R3
  void chameleonButton4_Click();              // formulas on or off
  void chameleonButton5_Click();              // clear
  void Combo1_Click(int listIndex);
  void Check1_Click(bool ticked);
  void UpDown1_Change(int places);
  void Command1_Click();                      // help of the calculator
  // A typed character into Text1(i): a comma or point becomes DecimalSymbol.
  QChar Text1_KeyPress(int index, QChar key) const;
  // Types a text into Text1(i) as the keyboard would.
  void typeText1(int index, const QString& text);
  void Text1_DblClick(int index);             // takes the calculator's line
  void FromCalc_Click(int index, const QString& calculatorDisplay);
  // A key in Text3: Enter without Shift evaluates; true when the key is used up.
  bool Text3_KeyPress(int key, bool shift);

  // The row shown.
  int figureIndex() const;
  const geometry::FigureRow& row() const;
  // Index of the visible box labelled label (case-sensitive), or -1.
  int boxOf(const QString& label) const;
  bool hasResults() const { return hasResults_; }

  // --- Controls, as the window shows them --------------------------------
  QString Label4;                         // figure name
  QStringList Combo1Items;                // every row's name, in order
  int Combo1ListIndex = 0;
  int visibleBoxes = 0;                   // Text1(0..visibleBoxes-1) shown
  std::array<QString, kBoxes> Label1;
  std::array<QString, kBoxes> Text1;
  std::array<bool, kLines> lineVisible{};
  std::array<QString, kLines> Label2;
  std::array<QString, kLines> Text2;
  std::array<QString, kLines> Picture3;  // formula texts, after a calculation
  std::vector<geometry::FigureNote> notes;
  bool formulaView = false;               // chameleonButton4
  bool Check1 = false;
  int UpDown1 = 2;
  QString Check1Caption;                  // "OFF", or the places
  QString Text3;
  QString calcError;                      // last failure of the calculator, "" after a success
  QString refusal;                        // reason of the last refused calculation, "" otherwise

 private:
  void showResults();
  void clearResults();
  void message(const QString& text, int sound);

  std::array<double, kLines> values_{};
  bool hasResults_ = false;
  InlineCalculator calculator_;
};
