#pragma once
// The scientific calculator's model (window comand1) without its widgets.
//
// How the pieces fit:
//  - The whole working state is text: `numero` is the entry and the current
//    value, `result` the information line and scratch cell of every answer.
//    There is no separate number register: each key reads `numero` with the
//    locale-aware conversion, computes, writes the answer text into `result`,
//    copies it to `numero` and reformats it (Command90_Click).
//  - Two-operand keys keep their left operand in `accumulator` and their name
//    in `pendingOp`; the chain runs strictly left to right.
//  - Every key handler has the name of its control (Command19_Click is
//    equals, Command13_Click(i) the operators...). Each first gives way to the
//    help cursor, then runs inside a failure guard: any run-time failure ends
//    in the "unexpected failure" path, which shows error code 31.
//  - `numero` reports its changes (numero_Change), which ends an error cycle
//    and feeds the history.
//  - The one-argument keys live beside this file: ScientificFunctions.cpp
//    (powers, logarithms, trigonometry, integer parts, factorial, constants)
//    and ModesAndConversions.cpp (angle and temperature modes, degree texts,
//    VAT, currencies, number bases). They share the unary pattern of
//    unaryKey(): name into func, history line, domain test, answer.
//  - MemoriesAndHistory.cpp holds what the calculator remembers: the four
//    memories m1 (program-wide values, shown as texts), the recall of the
//    intermodular registers (shell/Registers.h), the history Combo1 with
//    its line rules, the auxiliary viewer List3/List4, taking a number back
//    from either list (calc/ListNumber.h) and their two printouts.
//  - Statistics.cpp holds the statistics keys over the program-wide store
//    (shell/StatisticsStore.h): entry X and Y, the measures, the pair keys
//    and estimates through the shared regression pass, deleting, replacing,
//    sorting and erasing data, the *.dat files, the CSV export and the data
//    printout. CalculatorMenus.h lists the menu items the view and calvix-cli
//    reach by name.
//  - NumberToolKeys.cpp holds the complex-number keys and the number tools
//    (primes, factors, fractions, combinatorics, NIF, Roman, random, polygon
//    area, ASCII table); their arithmetic is in NumberTools.h and
//    ComplexNumbers.h. Their results go to the auxiliary viewer.
//  - CalculatorKeypad.h holds the table of keys (caption, tooltip, place,
//    handler) and CalculatorKeyMap.h the keyboard map; click(), keyPress() and
//    keyDown() are the entry points the window and calvix-cli share.
//
// The view (CalculatorWindow) builds the widgets from the tables, forwards
// each event here and repaints from the fields; it also moves the focus to
// the control named in focusRequest.
#include <QString>
#include <QStringList>
#include <QtCore/qnamespace.h>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>

#include "calc/CalculatorHistory.h"
#include "calc/EquationTools.h"
#include "calc/LinearSystem.h"
#include "calc/MatrixModel.h"
#include "calc/ExpressionPanel.h"
#include "calc/TextField.h"
#include "shell/runtime/Variant.h"

class PrintDocument;

class CalculatorEngine {
 public:
  // The scientific window by default; the normal calculator shares the engine
  // with its own history padding.
  struct HistoryPadding {
    int plain = 32;  // blanks after a history line
    int total = 32;  // blanks after the "TOTAL" word of an equals line
  };

  CalculatorEngine();
  explicit CalculatorEngine(HistoryPadding padding);
  ~CalculatorEngine();
  CalculatorEngine(const CalculatorEngine&) = delete;
  CalculatorEngine& operator=(const CalculatorEngine&) = delete;

  // ---- Display fields (their texts are the state) -------------------------
  TextField numero{QStringLiteral("0")};
  TextField result{QStringLiteral("0")};
  QString func;
  QString dcm;       // decimals of displayFormat
  QString redond;    // digits of the rounding key
  QString angulo;    // "deg", "rad" or "gra"
  QString temperat;  // "Celsius", "Kelvin" or "Fahrenheit"
  QString ivas;      // VAT rate followed by " %"
  QString HexDec;    // "DEC" or "HEX"

  // ---- Window-level variables ---------------------------------------------
  rt::Variant accumulator;      // left operand of pendingOp (a text, a float or 0)
  QString pendingOp;            // "/", "x", "+", "--", "x^y" or empty
  std::int16_t entryActive = 0; // 1 while digits are appended to numero
  std::int16_t errorState = 0;  // 0 none, 1 unexpected, 2 reported, 3 shown
  QString errorPrefix;          // first three letters of the word "Error"
  QString numberPrefix;         // "" in decimal mode, "&h" in hexadecimal mode
  QString hypFlag;              // "H" for the next trigonometric key
  QString displayFormat;        // "General Number" or "0.##..." after SET
  QString notationFormat;       // displayFormat with an exponent part

  // ---- What the window shows besides the texts ----------------------------
  bool image3Failure = false;  // Image3: failure picture instead of the normal one
  bool hexKeysVisible = false; // Command30 shown (and Command33/34 hidden)
  bool stopRequested = false;  // tag of Command93: Esc asks a long listing to stop
  bool contextMenuRequested = false;  // Shift+F10: the view opens its context menu
  QString focusRequest;        // control that should take the focus next
  bool Frame2Visible = false;  // the constants panel (Command8)
  // Text5 lights up while the next trigonometric key is hyperbolic.
  bool Text5Visible() const { return hypFlag == QLatin1String("H"); }
  // Captions and tooltips of the currency keys, written on activation.
  QString Command33Caption, Command33Tooltip, Command34Caption, Command34Tooltip;
  double numeroTag = 0;  // tag of numero: the value of the last angle conversion

  // ---- Memories, registers, history, auxiliary viewer ----------------------
  std::array<QString, 4> m1;  // the memory fields: each memory's value as text
  std::array<QString, 4> Command74Tooltip;  // the register labels, rewritten on activation
  CalculatorHistory Combo1;
  int historyHeadingId = 4104;  // heading of the history printout
  int Command69Tag = 0;  // last kind of history line written
  QStringList List3, List4;  // the auxiliary viewer: the tools' results, in pairs
  // Working values the viewer's tools keep between two uses; Command64 clears them.
  std::array<double, 8> toolRegisters{};
  bool historyPanelVisible = false;  // Command62 opens or closes the history panel
  bool viewerPanelRequested = false;  // Command64 asks the view to show the viewer

  // ---- Statistics panel --------------------------------------------------------
  std::int16_t regType = 0;  // 0 linear, 1 potential, 2 exponential
  std::array<QString, 3> regTypeNames;  // "Lineal", ... as the history shows them
  // The selected row of each grid MSFlexGrid1(0) (X) and (1) (Y), 0 for none,
  // and the grid that has the focus.
  std::array<int, 2> MSFlexGrid1Row{0, 0};
  int activeGrid = 0;
  bool statisticsPanelRequested = false;  // Text3: show the statistics panel
  bool gridsSwapped = false;              // Command23: the X and Y panels trade places
  std::array<bool, 2> scrollToLast{false, false};  // a grid should show its last row
  QString menuRequest;  // a menu a key opens: "TipoRegresion" or "MnuClrSTD"
  // "n = 12": the counts beside the grids.
  QString numnx() const;
  QString numny() const;

  // A file dialog as the window shows it; the answer is the chosen path,
  // empty when cancelled. Unset: every dialog is cancelled.
  struct FileDialogRequest {
    QString title;
    QString filter;  // "description|*.dat|"
    QString folder;
    bool save = false;
  };
  std::function<QString(const FileDialogRequest&)> fileDialog;

  // ---- Window events -------------------------------------------------------
  void Form_Load();
  void Form_Activate();
  void Form_Unload();

  // ---- Keys ----------------------------------------------------------------
  void Command1_Click(int index);   // digit 0-9
  void Command30_Click(int index);  // hexadecimal digit A-F
  void Command11_Click();           // decimal separator
  void Command12_Click();           // sign
  void Command47_Click();           // exponent
  void Command31_Click();           // backspace
  void Command17_Click();           // corrector
  void Command18_Click();           // clear, and the error presenter
  void Command13_Click(int index);  // 0 product, 1 sum, 2 difference, 3 quotient
  void Command14_Click();           // power
  void Command19_Click();           // equals
  void Command90_Click();           // reformat numero through displayFormat
  void Command61_Click();           // SET: decimals of the display format
  void Command32_Click();           // digits of the rounding key
  void Command35_Click();           // round numero
  void Command20_Click();           // scientific notation into result
  void Command22_Click();           // decimal / hexadecimal mode
  void Command69_Click();           // one history line

  // ---- Scientific functions (ScientificFunctions.cpp) ----------------------
  void Command10_Click(int index);  // log, 10^x, ln, e^x, 1/x, roots, squares, 2pi, pi
  // The body of Command10(index) for a key of another window: its help topic
  // and the name func shows.
  void powerKey(int controlNumber, int index, const QString& name);
  void Command21_Click(int index);  // sin, cos, tan, arcsin, arccos, arctan
  void Command43_Click();           // hyp: the next trigonometric key is hyperbolic
  void Command36_Click(int index);  // Int, Fix, fraction part
  void Command52_Click();           // percent
  void Command46_Click();           // factorial
  void Command4_Click(int index);   // constants 0-39
  void Command8_Click();            // shows or hides the constants panel

  // ---- Modes and conversions (ModesAndConversions.cpp) ---------------------
  void Command6_Click(int index);   // VAT amount, add VAT, remove VAT
  void Command60_Click();           // new VAT rate
  void Command33_Click();           // currency 1 to currency 2
  void Command34_Click();           // currency 2 to currency 1
  void Command5_Click(int index);   // to Celsius, Kelvin, Fahrenheit
  void Command48_Click();           // cycles the temperature scale
  void Command59_Click(int index);  // to deg, rad, gra
  void Command50_Click();           // cycles the angle mode
  void Command58_Click();           // degree, minute, second separators
  void Command65_Click();           // degree text to number
  void Command66_Click();           // number to degrees, minutes, seconds
  void Command67_Click();           // reduction to the first turn
  void Command9_Click(int index);   // to decimal, hexadecimal, octal, binary
  void Command91_Click();           // decimal to base N
  void Command92_Click();           // base N to decimal

  // ---- Memories, registers, history (MemoriesAndHistory.cpp) ----------------
  void Command24_Click(int index);  // recall memory
  void Command28_Click(int index);  // add numero to memory (Shift+1..4)
  void Command29_Click(int index);  // clear memory
  void m1_DblClick(int index);      // as Command24
  void Command74_Click(int index);  // recall register R1..R4
  void Command62_Click();           // opens or closes the history panel
  void Command63_Click();           // clears the history
  void Command64_Click();           // clears the auxiliary viewer
  void Combo1_DblClick();           // takes a number from the selected history line
  void List3_DblClick(int index);   // takes a number from a viewer line
  void List4_DblClick(int index);
  void registros_Click();           // prints the history
  void imprimeAux_Click();          // prints the auxiliary viewer
  void addHistoryValue(const QString& text);
  void numero_Change();
  // The register keys' tooltips from the labels (on activation, and when a
  // register is written while the window is open).
  void writeRegisterTooltips();
  // Adds a pair of lines to the auxiliary viewer (the tools' results).
  void addViewerLine(const QString& left, const QString& right);
  // What registros and imprimeAux print.
  PrintDocument historyDocument() const;
  PrintDocument viewerDocument() const;

  // ---- Statistics (Statistics.cpp) -----------------------------------------------
  void Command76_Click(int index);  // enter numero as X (0) or Y (1)
  void Command15_Click(int index);  // measures of X: sums, means, deviations, max/min
  void Command2_Click(int index);   // the same for Y
  void Command16_Click(int index);  // pairs: population, Sum XY, mean and deviation with frequencies, a, b, r²
  void Command84_Click(int index);  // estimate of X (0) or Y (1) from numero
  void Command78_Click();           // opens the menu TipoRegresion
  void Regresion_Click(int index);  // regression type
  void Command3_Click(int index);   // deletes the selected datum of X or Y
  void Command23_Click();           // exchanges the panels of X and Y
  void Command82_Click();           // opens the menu MnuClrSTD
  void MnuClrSTD_Click(int index);  // erases X, Y, both
  void changecell_Click();          // replaces the selected datum by numero
  void borracell_Click();           // deletes the selected datum
  void ordenaEstad_Click(int index);  // sorts ascending (0), descending (1)
  void abrirest_Click();            // opens a *.dat file
  // Opens a *.dat file given by name (a file manager's double click): the
  // extension rule and reading of abrirest, without the dialog.
  bool abrirestFile(const QString& path);
  void guardarest_Click();          // saves a *.dat file
  void exporcsv_Click();            // exports the data as CSV
  void estadistica_Click();         // prints the data table (menu estadística)
  // Selects a row of a grid (1-based; the grid becomes the active one).
  void selectCell(int grid, int row);
  // Reads a *.dat file into the store, replaying the entry of each datum;
  // a damaged file or one over the limit is refused and the store kept.
  // False when refused.
  bool loadStatisticsFile(const QString& path);
  PrintDocument statisticsDocument() const;

  // ---- Complex numbers and number tools (NumberToolKeys.cpp) ----------------
  void Command73_Click();           // polar entry: m, then the angle in degrees
  void Command98_Click();           // rectangular entry: x, then y
  void Command93_Click(int index);  // 0 is numero prime, 1 list the primes of an interval
  void Command45_Click();           // factorisation
  void Command95_Click();           // gcd and lcm of "a,b"
  void Command96_Click();           // irreducible fraction of "a,b"
  void Command27_Click();           // generating fraction (input boxes)
  void Command56_Click(int index);  // variations and combinations of "m,n"
  void Command44_Click();           // quotient and remainder: x, then y
  void Command38_Click();           // Tartaglia line and Newton binomial
  void Command94_Click();           // NIF letter
  void Command53_Click();           // Roman numerals
  void Command51_Click();           // random number up to the base
  void Command51_RightClick();      // asks for a new random base
  void Command55_Click();           // polygon area of the statistics pairs
  void Command41_Click();           // effective magnetic moment
  void Command37_Click();           // ASCII table
  void infoCard(const QString& digits);  // card check of a digit string, into result
  // The step of a two-press dialogue and its first value.
  struct Dialogue {
    QString key;  // the control whose dialogue runs, empty for none
    int step = 0;
    std::array<double, 2> values{};
  };
  Dialogue dialogue;
  // The prime listing's limits: the highest bound, the span that asks first,
  // and the lines the viewer holds.
  static constexpr std::int64_t kPrimeListLimit = 99999999;
  static constexpr std::int64_t kPrimeListWarning = 30000;
  static constexpr qsizetype kViewerCapacity = 32767;
  // Called between blocks of the prime listing with the percentage done; the
  // window shows it and lets events run (Esc sets stopRequested).
  std::function<void(int percent)> listingProgress;
  bool listingRunning = false;  // while the primes are listed: only Esc is taken
  // A text window the view shows (the ASCII table).
  QString textWindowTitle, textWindowText;
  bool textWindowRequested = false;
  int errorCode = 0;  // code of the last failure shown (31 unexpected); 0 none
  // ---- Matrices, linear systems, equations (MatrixModel, LinearSystem, EquationTools) ----
  MatrixModel matrices{*this};
  LinearSystem linearSystem{*this};
  EquationTools equations{*this};
  // ---- Programs and expression viewer (ProgramsAndExpressions.cpp) ----------------
  QString Text4;      // the expression to evaluate, or a command word
  void Command79_Click(int index);  // shows program index in Text4 and evaluates it
  void Command80_Click(int index);  // stores Text4 as program index
  void Command81_Click(int index);  // clears program index
  void Command83_Click();           // evaluates Text4 (or runs its command word)
  void Command83_RightClick();      // the list of the functions an expression may use
  // A program key's tooltip: the program's text.
  static QString programTooltip(int index);
  // ---- Links to other modules (CalculatorModuleMenus.cpp) ---------------------
  // The module window a key asks the view to open: "FunctionTable" (Command70),
  // "Plot" (Command71), "UnitConverter" (Command7, which reads numero).
  QString windowRequest;
  void Command70_Click();
  void Command71_Click();
  void Command7_Click();  // with numero not a number: the message of code 1

  // ---- Failure paths ---------------------------------------------------------
  // A key found a bad argument: result shows the code's text, then the clear
  // key runs (the pending operator is lost).
  void reportFailure(int code);
  // A run-time failure inside a key: the text of code 31 after the clear.
  void unexpectedFailure();

  // ---- Entry points shared by the window and calvix-cli --------------------
  // Clicks a control by name ("Command13", index 3); false when the calculator
  // has no such control.
  bool click(const QString& control, int index = -1);
  // A right click on a control (Command51); false when it has no right-click action.
  bool rightClick(const QString& control, int index = -1);
  // A typed character through the window's key map; false when unmapped.
  bool keyPress(QChar c);
  // A held key (Qt key code and modifiers) through the key map.
  bool keyDown(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  // A key stroke as the keyboard delivers it: the held key, then the character.
  bool typeCharacter(QChar c);
  // A pasted text typed through the key map as the keys that write it (digits,
  // separator, E, "<" for a minus). False, and nothing typed, when the text is
  // not a plain number.
  bool pasteNumber(const QString& text);

  // The status panel of the history: count, a blank and its label.
  QString historyStatus() const;
  // The currency panel written on activation: "1 euro = 166.386 pts".
  QString currencyStatus() const;

  // The answer of a one-argument key, or the error code of its domain test.
  struct Outcome {
    double value = 0;
    int code = 0;
  };

  // Names of the two-operand operators, as pendingOp holds them.
  static QString operatorName(int index);
  static const QString kPower;

  // Help topic of a control of this window (number of the control).
  static int helpTopic(int controlNumber);

 private:
  // Runs a key's body unless the help cursor takes the click; any run-time
  // failure inside ends in the unexpected-failure path.
  void guarded(int controlNumber, const std::function<void()>& body);
  void enterDigit(const QString& digit);
  void clearErrorLine();
  double value() const;  // numero through the locale-aware reading
  rt::Variant applyPending(double right) const;
  bool isPendingOperator() const;
  void chainOperator(const QString& name, bool chainAny);
  static bool smallWholeNumber(double v);

  static Outcome failure(int code) { return {0, code}; }
  // The unary key pattern: func takes the name, a history line, then the
  // computation on the value of numero; its answer goes to result and numero
  // (reformatted unless told otherwise), a failed test to reportFailure.
  void unaryKey(const QString& name, const std::function<Outcome(double)>& compute, bool reformat = true);
  void showAnswer(double answer, bool reformat);
  bool holdsDegreeText() const;
  // Degree text in numero to a number; false (failure reported) when refused.
  bool parseDegreeText();
  // The body of Command59: the value of numero in another angle unit, into
  // numeroTag and result; false when a degree text was refused.
  bool toAngleUnit(int index);
  void setAngleMode(const QString& mode);
  void writeCurrencyCaptions();
  void loadMemories();
  void takeFromViewer(const QStringList& list, int index);
  // The base asked in the input box; 0 when the box was cancelled, -1 when
  // the answer is not a base (code 26 reported).
  int askBase(int textId, int tooltipId);

  // The checks of the integer tools on numero (29 not a number, 18 not
  // above 0, 30 exponent form, 6 a fraction, 8 too large); false when
  // reported.
  bool readWholeNumber(std::int64_t& n, bool zeroAllowed);
  // "a,b": the two numbers on either side of the decimal separator; a
  // missing separator is noSeparatorCode (0: b is 0). False when reported.
  bool readNumberPair(std::int64_t& a, std::int64_t& b, int noSeparatorCode);
  bool dialoguePress(const QString& key, const QString& title, const QStringList& prompts,
                     const QStringList& echoes, const QString& unit);
  void endDialogue();
  void listPrimes();

  void enterDatum(int list, double v);
  void measureKey(int list, int index);
  bool pairKeyAllowed();
  // The regression pass over the store; false (failure shown) when it gave
  // up, or when the mean and deviation with frequencies are needed and the
  // Y sum to 0.
  bool runRegression(bool needFrequencies);
  QString statisticsFolder() const;

  HistoryPadding padding_;
  std::unique_ptr<ExpressionPanel> viewer_;  // made on the first evaluation
  bool runCommandWord(const QString& word);
};
