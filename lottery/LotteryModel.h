#pragma once
// The lottery window's bets model: a 6/49 board of 49 numbers, the bet being
// composed (at random, by hand or from a preferred list), the list of up to
// 500 selected bets, the probability texts of the current bet and the *.lot
// file of the selected bets; reduced systems that replace the list, the
// automatic mode (many random bets at once), and the frequencies of the
// numbers in the bets and in the draw history with their viewers and charts.
//
// The view is thin: it shows `Label10` (the board) from `board`, the texts
// from `texts`/`Label7`/`Label1Lit`, the list from `grid`, and forwards every
// click to the handler of the same name. calvix-cli drives the same handlers.
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <functional>

#include "lottery/DrawAnalysis.h"
#include "lottery/DrawStatistics.h"
#include "lottery/Reductions.h"
#include "shell/Printing.h"

class LotteryModel {
 public:
  static constexpr std::uint32_t kFree = 0xC0E0FF;
  static constexpr std::uint32_t kMarked = 0x00C512;
  static constexpr int kMaxBets = 500;
  static constexpr int kColumns = 13;

  enum Mode { kRandom = 0, kManual = 1, kAuto = 2 };

  struct Number {
    std::uint32_t colour = kFree;
    bool enabled = true;
    bool marked() const { return colour == kMarked; }
  };
  // One probability label: its name, text and tooltip.
  struct Text {
    QString name;
    QString text;
    QString tooltip;
  };
  struct FileDialogRequest {
    QString title;
    QString filter;
    QString folder;
    bool save = false;
  };
  struct Hooks {
    // The common dialog; an empty answer when cancelled.
    std::function<QString(const FileDialogRequest&)> fileDialog;
    // Asked before each draw (and each list row) of an analysis: the window
    // processes its events there; false stops the run (Command2).
    std::function<bool(int row, int rows)> analysisStep;
    // Asked during the automatic mode (bets made, bets asked) and the draw
    // statistics (rows counted, rows): the window shows the progress and
    // processes its events there; false stops the work.
    std::function<bool(int done, int total)> progressStep;
  };
  Hooks hooks;

  LotteryModel();

  // ---- State -----------------------------------------------------------------
  std::array<Number, 49> board;  // Label10(0..48)
  std::int16_t numerosApuesta = 0;
  std::int16_t apuestasSel = 0;
  bool modoVisor = false;
  std::array<int, 13> apuestaActual{};
  std::array<float, 50> frecTodas{};
  std::array<float, 50> frecSel{};
  bool apuestasCambiadas = false;
  std::int16_t prefActiva = 0;
  std::int16_t tipoSorteo = 0;
  // tablaPref(number, list): lists 1-3 are the user's (kept in the settings),
  // 4 the even numbers and 5 the odd ones.
  std::array<std::array<std::int16_t, 7>, 50> tablaPref{};
  Mode mode = kRandom;

  // MSFlexGrid1(1): the selected bets, 13 cells a row (the header apart).
  QList<QStringList> grid;
  int gridRow = 1, gridRowSel = 1;  // the grid's Row and RowSel (1 = first bet)
  bool listVisible = false;
  int scrollBars = 0;

  // Controls whose state the handlers read or change.
  std::array<bool, 7> Command1Enabled{};
  QString Command1Caption1, Command1Tooltip1;
  int Command9Caption = 587;  // string id: 587 normal, 588 preferred list, 611 reduction
  int Command9Tooltip = 580;
  bool Command11Visible = false;
  int Command11Tooltip = 581;
  bool Command6Enabled = false;
  bool menusEnabled = true;
  bool borraapuesselEnabled = false;
  QString Label9Text;  // Label9(0): the heading above the board or the grids
  bool Label9Visible = false;
  QString Label9bText;  // Label9(1): the bet of the last list-row analysis
  bool Label9bVisible = false;
  QString Label8 = QStringLiteral("0");
  QString Label7;
  std::array<Text, 8> texts;  // Label12, Label11, Label13, Label14, Label15, Label17, Label18, Label19
  int Label1Lit = -1;         // -1 none, 0 "Sencilla", 1 "Múltiple"
  QString title;

  // ---- Handlers ----------------------------------------------------------------
  void Form_Load();
  bool Form_Unload();  // false: the save question was answered and saving failed
  void Command1_Click(int index);
  void Command7_Click();   // random bet of numerosApuesta numbers
  void Command8_Click();   // clear the texts
  void Command10_Click();  // fill the texts for numerosApuesta
  void Command9_Click();
  void Command11_Click();
  void Label10_Click(int index);
  void azarloto_Click();
  void manualoto_Click();
  void pref1_Click(int index);
  void tipoloto_Click(int index);
  void modoauto_Click();
  void lotoReduc5_Click(int index);
  void borrapuestod_Click();
  void borraapuessel_Click();
  void mostrarloto_Click();
  void mostrardbase_Click();
  void ordenaloto_Click(int index);
  void MSFlexGrid0_Click(int row);  // a row of the draw grid (1 = first shown)
  void lotorecup_Click();
  void abrirloto_Click();
  void guardarloto_Click();
  void imprimeloto_Click();
  // The printed list of selected bets.
  PrintDocument printDocument() const;

  // ---- Analysis against the draw history ----------------------------------------
  DrawTable draws;
  bool LotoInfoExpress = false;
  QString informeLoto;
  QString informeTitle;  // title of the information box, empty when none is shown
  AnalysisResult analysis;  // totals of the last analysis (all rows: summed)
  bool loadDraws(const QString& path);
  void Command6_Click();
  void analizeapu_Click();  // the list row gridRow
  void analizeTodapu_Click();

  // The file work behind the dialogs, for the CLI and tests.
  bool abrirloto(const QString& path);
  bool guardarloto(const QString& path);

  // ---- Reductions -------------------------------------------------------------------
  int reducIndex = -1;
  std::int16_t reducNumeros = 0;
  std::int16_t reducApuestas = 0;

  // ---- Statistics ---------------------------------------------------------------------
  DrawStatistics statistics;  // frecDB and sorteosBase of the draw type in use
  void computeDrawStatistics();
  // The draw grid MSFlexGrid1(0) (rows of the history passing the type
  // filter, as indices into draws) and the frequency grid MSFlexGrid1(2).
  bool dbVisible = false;
  QList<int> dbRows;
  QList<QStringList> freqGrid;
  int ordenActual = 0;
  void lotoestmostrar1_Click();          // frequencies of all bets made
  void lotoestmostrar2_Click();          // of the selected bets
  void lotoestmostrar31_Click(int list);  // of the draws: 0-3 as in frecDB
  void lotoestmostrar41_Click(int index, bool withComplementary);  // ten most (0) or least (1)
  void lotoest0_Click();
  // The chart the last lotoestmostrar asked for; chartRequested is set when
  // it has data (the window then opens the chart window).
  FrequencyChart chart;
  bool chartRequested = false;

  int lastErrorCode = 0;
  // Numbers marked on the board, ascending.
  QList<int> markedNumbers() const;
  static QString caption(int stringId);

 private:
  void showError(int code, int sectionId = 510);  // 500 files, 510 options
  void clearBoard();
  void applyPreferred();
  void closeGrids();
  void reduce();  // Command9 while it reads "Reducir"
  void fillFrequencyGrid();
  void showChart(const FrequencyChart& c);
  void noData();
  // What the frequency grid shows, so that ordenaloto can sort it again.
  Frequencies freqCounts_{};
  double freqTotal_ = 0;
  void deleteRow(int row);
};

// *.lot files: the count, the rows as 13 quoted texts, 49 lines of frecSel.
struct LotContents {
  QList<QStringList> rows;
  std::array<float, 50> frec{};
};
QByteArray writeLot(const QList<QStringList>& rows, const std::array<float, 50>& frecSel);
// Throws rt::RuntimeError for a damaged file (13, 62, ...).
LotContents readLot(const QByteArray& bytes);
// The extension rule: the last three letters, case-insensitive, are "lot".
bool hasLotExtension(const QString& name);
