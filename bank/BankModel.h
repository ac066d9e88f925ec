#pragma once
// The banking window's model (deposits, savings plans, loans) without its
// widgets.
//
// How the pieces fit:
//  - The five boxes (capital, interes, tiempo, aportemes, incremes) are
//    texts as the user typed them; keys reach them through boxKey (digits and
//    one decimal symbol) or through the key pad (Command1 digits, Command2
//    decimal symbol, Command13 clear and backspace), which types into the
//    box named by activeBox and mirrors it in the display numero.
//  - BanKOperations chooses the kind of operation (tipo 1 deposit, 2
//    savings plan, 3 loan); Command7 checks the boxes, asks when payments
//    fall (loans and plans) and fills mensual, total, intereses and the
//    grid Bancolist (row 0 the heads). A failed check writes the error text
//    on numero and computes nothing.
//  - A loan keeps the numbers of its table (loanRows) beside the texts, so
//    the early repayment (Command9, then a click on a row) adds the rounded
//    figures and not their formatted texts.
//  - PrestIinteres and PrestTiempo solve a loan for its interest (RATE) or
//    its duration (NPER) from three prompts and report in a message box.
//  - Files (*.ban) hold the inputs only; printing builds a PrintDocument.
//  Everything the user is told goes through MBoxShow / ReportError.
#include <QList>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <functional>

class PrintDocument;
struct BanInputs;

class BankModel {
 public:
  // One row of a loan's amortisation table, as computed (cents already rounded).
  struct LoanRow {
    double nominal = 0;
    double interest = 0;
    double pending = 0;
  };
  enum Box { kCapital = 0, kInteres, kTiempo, kAportemes, kIncremes };
  static constexpr int kBoxCount = 5;

  struct FileDialogRequest {
    QString title;
    QString filter;  // "description|*.ban"
    QString folder;
    bool save = false;
  };
  struct Hooks {
    // The file dialog; empty answer when cancelled.
    std::function<QString(const FileDialogRequest&)> fileDialog;
  };
  Hooks hooks;

  BankModel();

  // ---- Inputs ---------------------------------------------------------------
  std::int16_t tipo = 1;
  QString capital, interes, tiempo, aportemes, incremes;
  bool Option2 = false;  // tiempo in years (Option1: in months)
  QString formatoBanco = QStringLiteral("0.00");
  int activeBox = kCapital;  // the box the key pad types into

  QString& box(int index);
  const QString& box(int index) const;

  // ---- Results ------------------------------------------------------------------
  QString numero = QStringLiteral("0");
  QString mensual, total, intereses;
  QList<QStringList> Bancolist;  // row 0: column heads; empty: no table
  QList<LoanRow> loanRows;       // tipo 3: rows 1.. of the table
  QString report;                // the early repayment's report text box
  double tasaMes = 0;
  float meses = 0;
  int pagoInicio = 0;
  double mensualValue = 0, totalValue = 0, interesesValue = 0;
  bool computed = false;  // Command7 filled the results
  bool errorBeep = false;  // a check failed: the view beeps and clears it
  int lastErrorCode = 0;   // the code of the last error message shown (0: none)

  // Early repayment: Command9 armed, waiting for a row of the table.
  bool waitingForRow = false;
  // Dates in the loan table's first column.
  bool Command14 = false;
  double startDate = 0;  // 0: not defined yet

  // Solving a loan: the last results (for the command line and tests).
  double rateResult = 0;    // RATE * 1200
  double durationX = 0;     // NPER as computed
  double durationMonths = 0;
  QString infoText;         // the information box's text

  // ---- Handlers -------------------------------------------------------------------
  void Form_Load();
  void BanKOperations(int newTipo);
  void Option_Click(bool years);
  void setFormat(int decimals);  // 0, 1 or 2 decimals: "Pos. Decimal"
  // A new format on a computed operation: the results again, with the answer
  // already given about when payments fall.
  void reformat(int decimals);
  void Command7_Click();         // Cálculo
  // A typed key for a box: the key to keep (a point or comma as the decimal
  // symbol), 0 to drop it.
  int boxKey(int boxIndex, int key) const;
  // Types a whole text into a box through boxKey.
  void typeInto(int boxIndex, const QString& text);
  void boxFocus(int boxIndex);
  void Command1_Click(int digit);
  void Command2_Click();
  void Command13_Click(int index);  // 0 clear the box, 1 backspace

  void Command9_Click();                  // early repayment: ask for the first month
  void Bancolist_Click(int row);          // a click on a grid row (1-based data rows)
  void earlyRepayment(int row);           // asks the money and reports
  void Command14_Click();                 // dates on or off
  void Command15_Click();                 // asks the first date
  void defineDates(double date);
  void PrestIinteres();
  void PrestTiempo();
  // The sum of a block of one column; rows are 1-based data rows.
  void SumaCol(int col, int firstRow, int lastRow);
  // Copies the main result (the payment of a loan, the final capital
  // otherwise) to register index 0..3.
  void copyToRegister(int index);

  // ---- Files ------------------------------------------------------------------------
  void bancoImport_Click();
  void bancoSave_Click();
  bool bancoImport(const QString& path);
  bool bancoSave(const QString& path);
  BanInputs inputs() const;

  // ---- Printing -----------------------------------------------------------------
  // withTables false: the results only (resbank); true: results and tables.
  PrintDocument printDocument(bool withTables) const;
  void imprimebanco(bool withTables);
  int printRowsPerPage = 60;

  // ---- Helpers -------------------------------------------------------------------
  QString TextMatrix(int row, int col) const;
  int rowCount() const { return static_cast<int>(Bancolist.size()); }
  int columnCount() const { return Bancolist.isEmpty() ? 0 : static_cast<int>(Bancolist.first().size()); }
  QString fmt(double x) const;
  static double boxValue(const QString& text);
  // The heading string of the current kind of operation.
  int headingId() const;

 private:
  void clearResults();
  void fail();
  void showError(int code);
  void deposit(double cap);
  void savingsPlan(double cap);
  void loan(double cap);
  void fillMonthColumn();
  bool askPagoInicio();
  bool prompt(int textId, int titleId, double& value);
  bool keepPagoInicio_ = false;
  void showInformation(const QString& text, const QString& title);
};
