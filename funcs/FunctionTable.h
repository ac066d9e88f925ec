#pragma once
// The function table's model (window frmMain, module "VelozEvaluator")
// without its widgets.
//
// How the pieces fit:
//  - The boxes are texts (txtExpression, Text2, txtVariables, txtStart,
//    txtEnd, Combo2, Text1) and the ticks numbers, as the controls hold them.
//    Each box is checked when the user leaves it (..._LostFocus), which may
//    rewrite it, show a message and ask for the focus back (focusRequest).
//  - MSFlexGrid1 is the single store of the curve: column 0 X, 1 F(x) (or
//    the value in expression mode), 2-4 the derivatives, 5 the smoothed
//    F(x), 6 G(x); row 0 is the heading, data rows 1 to pointCount. The
//    plot and the analyses read and write its cells as texts. pointCount,
//    sourceColumn, hasG and the plot titles are program-wide (ProgramState).
//  - cmdResult_Click evaluates: one Eval per click in expression mode, or a
//    table of F(x), and of G(x) with Check1, over the interval. A table is
//    worked out in steps (beginFunctionTable, then tabulationStep until it
//    answers true) so the window can keep events going, show the progress
//    and stop on Esc; evaluateFunctionTable runs it to the end in one go.
//  - Each point feeds the engine "<constants>: x= <Str(x)>" and evaluates the
//    formula; the x of a row is the value its text shows. Engine failures
//    end the table with a message naming the rows kept; the math library's
//    domain failures clear the X cell of the row, and a cancelled one stops.
//  - Edit mode (Ctrl+F12) lets the user type numbers into the cells, so
//    typed data can be plotted without a formula.
//  - What the table needs of the rest of the program goes through hooks:
//    the file dialogs, the plot window, the
//    derivative columns of the analyses.
//
// The view (FunctionTableWindow) builds the widgets, forwards each event to
// a handler here and repaints from the fields.
#include <QString>
#include <QStringList>
#include <QtCore/qnamespace.h>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "funcs/AddInFunctions.h"
#include "funcs/CellGrid.h"
#include "funcs/Evaluator.h"

struct EvlInputs;
class PrintDocument;

class FunctionTable {
 public:
  enum Column { kX = 0, kF = 1, kDerivative1 = 2, kDerivative2 = 3, kDerivative3 = 4, kSmoothed = 5, kG = 6 };
  static constexpr int kColumns = 7;
  static constexpr int kMinimumRows = 6;
  enum class ScrollBars { Vertical, Both };

  // A file dialog as the window shows it; the answer is the chosen path,
  // empty when cancelled.
  struct FileDialogRequest {
    QString title;
    QString filter;  // "description|*.evl"
    QString folder;
    bool save = false;  // with the overwrite prompt
  };

  // The rest of the program, as far as the table needs it. Unset hooks do nothing.
  struct Hooks {
    std::function<QString(const FileDialogRequest&)> fileDialog;
    // The plot window: show it beside the table (false when there is none),
    // close it, redraw it, untick its smoothing items; whether it is shown.
    std::function<bool()> showPlot;
    std::function<void()> closePlot;
    std::function<void()> redrawPlot;
    std::function<void()> untickSmoothing;
    std::function<bool()> plotVisible;
    // Fills the derivative columns after each evaluation.
    std::function<void()> computeDerivatives;
  };

  FunctionTable();
  ~FunctionTable();
  FunctionTable(const FunctionTable&) = delete;
  FunctionTable& operator=(const FunctionTable&) = delete;

  Hooks hooks;

  // ---- Boxes and ticks ------------------------------------------------------
  QString txtExpression;  // F(x), or the expression
  QString Text2;          // G(x)
  QString txtVariables;   // constants, "A=2:B=3"
  QString txtStart, txtEnd;
  QString Combo2;  // number of points
  QString Text1;   // increment
  int Check1 = 0;  // evaluate G(x) too
  int chkLoop = 1;  // function mode on: the interval boxes are enabled
  int chkVariables = 1;
  int Option1 = 0;  // 0 by number of points, 1 by increment
  QString Label1;   // angle unit: "deg", "gra" or "rad"
  QString fLabel;   // label before the formula box
  QString caption;  // window title
  bool Check1Enabled = true;
  bool Text2Enabled = true;
  bool plotEnabled = true;
  bool Command1Enabled = true;
  bool plot = false;  // the plot toggle is down
  bool Label3 = false;  // "Modo Edición" shown
  std::array<bool, 2> Image4{};  // 0: the table was edited, 1: a cell is being typed
  QStringList Combo2Items;
  // The plot's Lagrange interpolation tick (menuIPLA): the next table is cut
  // to 60 points while it is set.
  bool menuIPLA = false;

  bool txtVariablesEnabled() const { return chkVariables != 0; }
  bool intervalEnabled() const { return chkLoop != 0; }
  bool Combo2Enabled() const { return chkLoop != 0 && Option1 == 0; }
  bool Text1Enabled() const { return chkLoop != 0 && Option1 == 1; }

  // ---- The table --------------------------------------------------------------
  CellGrid MSFlexGrid1;
  std::array<int, kColumns> colWidth{};  // twips; 0 hides the column
  ScrollBars scrollBars = ScrollBars::Vertical;
  int Row = 1, Col = 0;  // current cell
  int TopRow = 1, LeftCol = 0;

  // ---- Window state ---------------------------------------------------------------
  std::int16_t operationMode = 0;  // 0 function, 1 expression
  int expressionRow = 0;
  bool editMode = false;
  int xCellCount = 0, yCellCount = 0;
  int phase = 2;  // 0 evaluating F, 1 evaluating G, 2 done
  QString focusRequest;  // control that should take the focus next
  bool contextMenuRequested = false;  // Shift+F10
  bool closeRequested = false;        // Command3: the window should close
  // Set by the window: cmdResult_Click only begins a table, the window then
  // drives tabulationStep from its event loop.
  bool stepwise = false;

  // ---- Window events ------------------------------------------------------------
  void Form_Load();
  void Form_Activate();
  void Form_Unload();
  // Ctrl+F12, Shift+F12, Shift+F10; true when the key was taken.
  bool Form_KeyDown(int key, Qt::KeyboardModifiers modifiers);

  // ---- Buttons and menus ---------------------------------------------------------
  void cmdResult_Click();  // evaluate (a table runs to its end)
  void cmdClear_Click();
  void Command1_Click();  // swap F and G, then evaluate
  void plot_Click();      // toggle the plot window
  void Command2_Click();  // next angle unit
  void Command3_Click();  // leave
  void mnufunc_Click();
  void mnuexpr_Click();
  void mnuabre_Click();  // open a *.evl file
  void mnuguard_Click(); // save the inputs in a *.evl file
  void imprimEval_Click();
  void Check1_Click();
  void chkLoop_Click();
  void chkVariables_Click();
  void Option1_Click(int index);

  // ---- Boxes: keys and leaving --------------------------------------------------
  // The key to keep (a character code), or 0 to drop it.
  int txtStart_KeyPress(int key);
  int txtEnd_KeyPress(int key);
  int txtVariables_KeyPress(int key);
  void txtStart_LostFocus();
  void txtEnd_LostFocus();
  void Combo2_LostFocus();
  void Text1_LostFocus();

  // ---- Edit mode -------------------------------------------------------------------
  void MSFlexGrid1_KeyPress(QChar c);  // a printable character or backspace ('\b')
  void MSFlexGrid1_EnterKey();         // Enter or Tab: the next cell
  // The user moved to another cell (mouse or arrows).
  void MSFlexGrid1_Select(int row, int col);
  void MSFlexGrid1_LeaveCell();

  // ---- Evaluation -----------------------------------------------------------------
  void evaluateExpression();
  void evaluateFunctionTable();
  // Step-wise: begin (false when a check stopped it or it is already done),
  // then steps of at most maxRows rows until one answers true. stop ends it
  // at once, keeping the rows computed so far.
  bool beginFunctionTable();
  bool tabulationStep(int maxRows);
  void stopTabulation();
  bool isTabulating() const { return run_ != nullptr; }
  // True while a step runs: a message box inside it keeps events going, and
  // a stop asked for meanwhile takes effect when the row in hand is done.
  bool isStepping() const { return stepping_; }
  // 0 to 1; the part of the table done.
  double tabulationProgress() const;

  // ---- Files -------------------------------------------------------------------------
  // Open and save without the dialog: the extension rule, the reading or
  // writing and their messages. True when done.
  bool openFile(const QString& path);
  bool saveFile(const QString& path);
  EvlInputs inputs() const;

  // ---- Printing ------------------------------------------------------------------------
  // The report of the table: title, formulas, one line per row, a new page
  // with the heading again after rowsPerPage rows (fewer on the first page).
  PrintDocument printDocument(int rowsPerPage) const;
  // Table rows that fit below the heading of a page; the window sets it from
  // the printer.
  int printRowsPerPage = 80;

  // ---- Derivatives ---------------------------------------------------------------------
  // Columns 2 to 4 from the curve in sourceColumn (the default
  // computeDerivatives hook).
  void fillDerivatives();

  // ---- Helpers for readers -------------------------------------------------------------
  // The cell text; the heading is row 0.
  QString TextMatrix(int row, int col) const { return MSFlexGrid1.get(row, col); }
  // TextMatrix(row, col) added at the end of out: for readers of many cells.
  void appendTextMatrix(int row, int col, QString& out) const { MSFlexGrid1.appendText(row, col, out); }
  // The cells of a block of the grid (corners in any order) as text a
  // spreadsheet takes: cells joined by tabs, rows ended by line feeds.
  QString cellsText(int row1, int col1, int row2, int col2) const;
  Evaluator& engine() { return engine_; }
  static const QString kDefaultF;
  static const QString kDefaultG;

 private:
  // A table being worked out.
  struct Tabulation {
    enum class Stage { F, G };
    Stage stage = Stage::F;
    double x = 0;
    double increment = 0;
    double limit = 0;  // end + increment: the loop may pass the end by one row
    bool ascending = true;
    qint64 expectedRows = 1;
    int gRow = 1;
    bool withVariables = false;
    QString errorWord;  // "Error" in a G cell stops the table
    Evaluator::Expression f, g;
    // A formula that does not compile fails where its first evaluation would.
    std::optional<EvalError> fError, gError;
  };

  void showMessage(int code);
  void showMessageLines(const QList<int>& stringIds);
  void setAngleUnit(const QString& unit);
  void writeHeadings();
  void clearTable();
  void closePlotWindow();
  bool numberOf(const QString& text, double& value) const;
  bool checkIntervalBox(QString& box, const QString& control);
  void recomputeIncrement();
  void applyInputs(const EvlInputs& in);
  void setColumn1Width();
  double feedX(double x);
  void feedRowX(int row);
  void assignX(double xShown);
  bool rowX(int row, double& x) const;
  void xCellFromLibrary(const QString& text);
  void engineFailure(const QString& description);
  void engineFailureMessage(const QString& text);
  void failF(const QString& description);
  void failG(const QString& description);
  void startG();
  void finishTable();
  void stopNow();
  void endCorrection();
  bool stepF(int& budget);
  bool stepG(int& budget);
  void recountEditedCells();
  void printPageHeading(PrintDocument& doc, const QString& date) const;

  AddInFunctions library_;
  Evaluator engine_;
  int xSlot_ = -1;
  std::unique_ptr<Tabulation> run_;
  bool stepping_ = false;
  bool stopRequested_ = false;
  bool replotAfterRun_ = false;  // the swap turns the plot on again at the end
  bool xCellCancelled_ = false;  // the user cancelled a domain failure of this point
};
