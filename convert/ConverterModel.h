#pragma once
// The unit converter's model (the conversions window) without its widgets.
//
// How the pieces fit:
//  - UnitTables holds the 48 tables; magnitud_Click(item) fills the 39 unit
//    buttons (Command1 captions) and the parallel `factor` array from one of
//    them, after the reset of Command2.
//  - A conversion is one quotient: choosing a first and a second unit
//    (Command1_Click, with its four rules for clicks on chosen buttons) gives
//    factorConv = factor(unidad(0)) / factor(unidad(1)), shown in Label3; a
//    value (the calculator's display when it is neither 0 nor 1, or Text2
//    with Enter) times factorConv goes to Text4.
//  - Every conversion writes its lines into the history List1; Command6
//    rewrites the factor and the result in exponential form.
//  - The calculator is reached through hooks the window sets: its display
//    text (calculatorDisplay) and the opening of the scientific one.
// Display texts follow the runtime's number rules (rt::NumberToText: 15
// significant digits, the system's decimal symbol).
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <functional>

#include "convert/UnitTables.h"

class PrintDocument;

class ConverterModel {
 public:
  static constexpr std::uint32_t kButtonColour = 0xC0E0FF;  // red in the low byte
  static constexpr std::uint32_t kChosenColour = 0xFFFF00;
  // Help topics of the window's controls.
  static constexpr int kHelpTopic = 50000;

  explicit ConverterModel(const UnitTables& tables = UnitTables::builtIn());

  // ---- Controls' state -----------------------------------------------------
  std::array<QString, kUnitButtons> Command1Caption;
  std::array<std::uint32_t, kUnitButtons> Command1Colour{};
  std::array<double, kUnitButtons> factor{};
  std::array<std::int16_t, 2> unidad{};
  std::int16_t etapa = 0;
  double factorConv = 0;
  QString Label11;                  // the magnitude
  std::array<QString, 2> Label12;   // initial and final unit
  QString Label3;                   // the conversion factor
  QString Text2;                    // the value entered
  QString Text4;                    // the result
  QString Label9;                   // where else the magnitude applies
  QStringList List1;                // the history
  int ListIndex = -1;
  bool List1Visible = false;
  QString item;                     // the menu item of the table shown
  bool selectText2 = false;         // the entry is ready for the next number (the view selects it)

  // ---- Hooks the window (or calvix-cli) sets ----------------------------------
  // The text of the calculator's display; none: "0", which is never taken.
  std::function<QString()> calculatorDisplay;
  // Opens the scientific calculator; closes the normal one.
  std::function<void()> openScientificCalculator;
  std::function<void()> closeNormalCalculator;

  // ---- Handlers ---------------------------------------------------------------
  void Form_Load();                           // opens on length
  bool magnitud_Click(const QString& name);   // false: no table of that name
  void Command1_Click(int index);             // a unit button
  void Command2_Click();                      // reset
  void Command3_Click(int index);             // factor to register R1..R4
  void Command4_Click();                      // inverse
  void Command6_Click();                      // exponential form
  void Command7_Click();                      // the calculator
  void Command8_Click();                      // shows or hides the history
  void Command9_Click();                      // empties the entry
  // A key typed in Text2: filtered as "T"; Enter runs the direct entry.
  // Returns the key kept (0 when dropped).
  int Text2_KeyPress(int key);
  void Text2_Enter();
  // Text2 emptied, then text typed key by key.
  void typeText2(const QString& text);
  void hisveo_Click() { Command8_Click(); }
  void borrhis_Click();
  bool hisimp_Click();  // prints the history; false when empty or not printed
  void Prefijos_Click();

  // The text Command6 gives a value: Format with "0." and as many mantissa
  // places as the value's own text holds digits that matter, then "e+00".
  static QString exponentialText(double value);
  // The history as printed.
  PrintDocument historyDocument() const;
  // Buttons coloured as chosen, ascending.
  QList<int> selected() const;
  const UnitTables& tables() const { return tables_; }
  // The caption's text without outer blanks, for lookup by name.
  int unitIndex(const QString& caption) const;

 private:
  void reset();
  void releaseUnit(int index);
  void convert();
  // Text4 = value * factorConv; false after reporting an overflow.
  bool computeResult(double value);
  void addHistory();
  QString factorLine() const;
  QString pairLabel() const;
  static bool readNumber(const QString& text, double& value);

  const UnitTables& tables_;
  double resultValue_ = 0;  // the number behind Text4
};
