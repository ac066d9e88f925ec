#include "lottery/LotteryModel.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>

#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/Random.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"

namespace {

const QString kTitle = QStringLiteral("Calvix Premium  -  Bolix");
const QString kToday = QStringLiteral("dd/mm/yyyy");
constexpr int kMessageSound = 2;
constexpr int kMessageStyle = 3;
// Help topics of the menus and buttons.
constexpr int kHelpFiles = 80001;
constexpr int kHelpDelete = 80002;
constexpr int kHelpOptions = 80003;
constexpr int kHelpDrawType = 80004;

// Names, formats and tooltip strings of the eight probability labels, from
// six hits down to none.
struct TextRow {
  const char* name;
  const char* format;
  int tooltip;
  bool twoBlanks;
};
constexpr TextRow kTextRows[8] = {
    {"Label12", "0.000000", 567, true}, {"Label11", "0.00000", 568, true}, {"Label13", "0.0000", 569, true},
    {"Label14", "0.000", 570, true},    {"Label15", "0.00", 571, false},   {"Label17", "0.00", 572, false},
    {"Label18", "0.00", 573, false},    {"Label19", "0.00", 574, false}};

double F(int x) { return Factorial(static_cast<std::int16_t>(x)); }

}  // namespace

LotteryModel::LotteryModel() { Form_Load(); }

QString LotteryModel::caption(int stringId) { return Res(stringId); }

void LotteryModel::showError(int code, int sectionId) {
  lastErrorCode = code;
  program().MainMenuTitle = QStringLiteral("Bolix");
  program().SectionTitle = Res(sectionId);
  ReportError(code, kMessageSound, kMessageStyle, 0);
}

void LotteryModel::Form_Load() {
  ProgramState& p = program();
  for (int i = 1; i <= 49; ++i) {
    for (int k = 1; k <= 3; ++k) tablaPref[i][k] = p.LotteryFavourites[k - 1][i - 1];
  }
  for (int i = 0; i < 8; ++i) texts[i].name = QLatin1String(kTextRows[i].name);
  texts[1].tooltip = Res(568);
  title = kTitle;
  prefActiva = 0;
  tipoSorteo = 0;
  numerosApuesta = 0;
  apuestasSel = 0;
  rt::Randomize();
  loadDraws(p.AppFolder.toText() + QStringLiteral("cvxlp.dlj"));
  azarloto_Click();
  applyPreferred();
}

bool LotteryModel::Form_Unload() {
  if (apuestasSel >= 1 && apuestasCambiadas) {
    MBoxShow(4, Res(627) + QLatin1Char(' ') + QString::number(apuestasSel) + QLatin1Char(' ') + Res(628) +
                    QLatin1Char('\n') + Res(629),
             0, 3, 0, kTitle);
    if (program().MessageResult == 0) {
      lastErrorCode = 0;
      guardarloto_Click();
      return lastErrorCode == 0;
    }
  }
  return true;
}

// ---- Board ----------------------------------------------------------------------

void LotteryModel::clearBoard() {
  for (Number& n : board) n.colour = kFree;
}

void LotteryModel::applyPreferred() {
  for (int i = 1; i <= 49; ++i) board[i - 1].enabled = prefActiva == 0 || tablaPref[i][prefActiva] != 0;
}

QList<int> LotteryModel::markedNumbers() const {
  QList<int> out;
  for (int i = 0; i < 49; ++i) {
    if (board[i].marked()) out << i + 1;
  }
  return out;
}

void LotteryModel::Command7_Click() {
  clearBoard();
  apuestaActual.fill(0);
  for (int i = 1; i <= numerosApuesta; ++i) {
    for (;;) {
      rt::Rnd();  // one throw-away draw before each number
      const int x = static_cast<int>(rt::Int(static_cast<double>(rt::Rnd()) * 49.0)) + 1;
      Number& label = board[x - 1];
      if (!label.enabled || label.marked()) continue;
      apuestaActual[i] = x;
      label.colour = kMarked;
      frecTodas[x] += 1;
      break;
    }
  }
}

void LotteryModel::Command1_Click(int index) {
  if (helpInstead(kHelpOptions) || modoVisor || index < 0 || index > 6) return;
  if (Command9Caption == 588) {
    clearBoard();
    return;
  }
  if (mode == kManual && index == 1) {
    clearBoard();
    numerosApuesta = 0;
    Command8_Click();
    return;
  }
  numerosApuesta = static_cast<std::int16_t>(index + 5);
  Command7_Click();
  Command10_Click();
}

void LotteryModel::Label10_Click(int index) {
  if (index < 0 || index > 48 || !board[index].enabled || Command1Enabled[0]) return;
  Number& label = board[index];
  const bool marking = !label.marked();
  label.colour = marking ? kMarked : kFree;
  if (Command9Caption == 588 || Command9Caption == 611) {
    numerosApuesta = 0;
    return;
  }
  numerosApuesta = static_cast<std::int16_t>(numerosApuesta + (marking ? 1 : -1));
  if (numerosApuesta >= 5 && numerosApuesta < 12) Command10_Click();
  else Command8_Click();
}

// ---- Modes ------------------------------------------------------------------------

void LotteryModel::azarloto_Click() {
  if (helpInstead(kHelpOptions)) return;
  mode = kRandom;
  Command8_Click();
  Command1Enabled.fill(true);
  Command1Caption1 = QStringLiteral("6");
  Command1Tooltip1 = Res(562) + QStringLiteral(": 6 ") + Res(561);
  clearBoard();
}

void LotteryModel::manualoto_Click() {
  if (helpInstead(kHelpOptions)) return;
  mode = kManual;
  Command8_Click();
  Command1Enabled.fill(false);
  Command1Enabled[1] = true;
  Command1Caption1 = QStringLiteral("c");
  Command1Tooltip1 = Res(585);
  numerosApuesta = 0;
  clearBoard();
}

void LotteryModel::pref1_Click(int index) {
  if (helpInstead(kHelpOptions) || index < 0 || index > 5) return;
  if (index >= 1 && index <= 3) {
    const Mode before = mode;
    manualoto_Click();
    mode = before;  // reinstated when the list is accepted or cancelled
    prefActiva = static_cast<std::int16_t>(index);
    Command11Visible = true;
    Label9Text = Res(660) + QLatin1Char(' ') + QString::number(index);
    Label9Visible = true;
    Command9Caption = 588;
    Command9Tooltip = 661;
    Label7 = Res(639);
    menusEnabled = false;
    for (int i = 1; i <= 49; ++i) {
      board[i - 1].enabled = true;
      board[i - 1].colour = tablaPref[i][index] ? kMarked : kFree;
    }
    return;
  }
  prefActiva = static_cast<std::int16_t>(index);
  if (index == 0) {
    applyPreferred();
    Label7 = Res(659);
    return;
  }
  for (int i = 1; i <= 49; ++i) tablaPref[i][index] = (i % 2 == 0) == (index == 4) ? 1 : 0;
  clearBoard();
  applyPreferred();
  Label7 = Res(662) + QLatin1Char(' ') + Res(523 + index - 4);
}

void LotteryModel::Command11_Click() {
  Command11Visible = false;
  Command11Tooltip = 581;
  reducIndex = -1;
  Label9Visible = false;
  Command9Caption = 587;
  Command9Tooltip = 580;
  menusEnabled = true;
  prefActiva = 0;
  if (mode == kManual) manualoto_Click();
  else azarloto_Click();
  applyPreferred();
}

void LotteryModel::tipoloto_Click(int index) {
  if (helpInstead(kHelpDrawType) || index < 0 || index > 3) return;
  tipoSorteo = static_cast<std::int16_t>(index);
  title = QStringLiteral(" Calvix Premium  -  Bolix  -  ") + Res(527 + index);
  if (index == 2) MBoxShow(kMessageStyle, Res(685), 3, 0, 0, kTitle);
  computeDrawStatistics();
  if (dbVisible) mostrardbase_Click();
}

void LotteryModel::modoauto_Click() {
  if (helpInstead(kHelpOptions)) return;
  const Mode before = mode;
  mode = kAuto;
  const int available = kMaxBets - apuestasSel;
  program().MessageDefault = QString();
  MBoxShow(kMessageStyle,
           Res(649) + QStringLiteral("\n\n") + Res(650) + QLatin1Char(' ') + QString::number(apuestasSel) +
               QLatin1Char('\n') + Res(651) + QLatin1Char(' ') + QString::number(available) + QLatin1Char('\n') +
               Res(652),
           5, 3, 0, QStringLiteral("Bolix  -  ") + Res(513));
  if (program().MessageResult != 0) {
    mode = before;
    return;
  }
  double count = 0;
  if (!rt::tryTextToDouble(program().MessageValue.toText().trimmed(), count) || count != std::floor(count) ||
      count < 1 || count > available) {
    mode = before;
    showError(601);
    return;
  }
  if (modoVisor) closeGrids();
  if (Command9Caption != 587) {
    Command9Caption = 587;
    Command9Tooltip = 580;
  }
  const int total = static_cast<int>(count);
  for (int i = 0; i < total; ++i) {
    if (hooks.progressStep && !hooks.progressStep(i, total)) break;
    Command1_Click(1);
    Command9_Click();
  }
  azarloto_Click();
}

// ---- Reductions ------------------------------------------------------------------

void LotteryModel::lotoReduc5_Click(int index) {
  if (helpInstead(kHelpOptions) || index < 0 || index >= kReductionSystems) return;
  const ReductionSystem& system = reductionSystem(index);
  reducIndex = index;
  reducNumeros = static_cast<std::int16_t>(system.numbers);
  reducApuestas = static_cast<std::int16_t>(system.bets);
  closeGrids();
  manualoto_Click();
  for (Number& n : board) n.enabled = true;
  menusEnabled = false;
  Command11Visible = true;
  Command11Tooltip = 641;
  Label9Text = Res(637) + QLatin1Char(' ') + QString::number(reducApuestas) + QLatin1Char(' ') + Res(638) +
               QLatin1Char(' ') + QString::number(reducNumeros) + QLatin1Char(' ') + Res(561);
  Label9Visible = true;
  Label7 = Res(639);
  Command9Caption = 611;
  Command9Tooltip = 640;
}

void LotteryModel::reduce() {
  const QList<int> marked = markedNumbers();
  if (marked.size() != reducNumeros) {
    lastErrorCode = 612;
    MBoxShow(kMessageStyle,
             Res(612) + QLatin1Char(' ') + QString::number(marked.size()) + QLatin1Char(' ') + Res(561) +
                 QLatin1Char('.'),
             3, 0, 0, Res(620));
    return;
  }
  const QList<QList<int>> bets = reducedBets(reducIndex, marked);
  if (apuestasSel > 0) {
    MBoxShow(4,
             Res(613) + QLatin1Char(' ') + QString::number(apuestasSel) + QLatin1Char(' ') + Res(614) +
                 QLatin1Char('\n') + Res(615) + QLatin1Char(' ') + Res(616) + QLatin1Char(' ') + Res(617) +
                 QLatin1Char('\n') + Res(618) + QLatin1Char('\n') + Res(619),
             0, 3, 0, Res(620));
    if (program().MessageResult != 0) return;
  }
  grid.clear();
  frecSel.fill(0);
  const QString today = rt::FormatDate(rt::Today(), kToday);
  for (int b = 0; b < bets.size(); ++b) {
    QStringList row(kColumns);
    row[0] = QString::number(b + 1);
    row[1] = today;
    for (int i = 0; i < bets[b].size(); ++i) {
      row[2 + i] = QString::number(bets[b][i]);
      frecSel[bets[b][i]] += 1;
    }
    grid << row;
  }
  apuestasSel = reducApuestas;
  Label8 = QString::number(apuestasSel);
  scrollBars = 0;
  MBoxShow(kMessageStyle, Res(621) + QLatin1Char('\n') + Res(622), 3, 0, 0, Res(620));
  apuestasCambiadas = true;
}

// ---- Texts --------------------------------------------------------------------------

void LotteryModel::Command8_Click() {
  for (int i = 0; i < 8; ++i) {
    texts[i].text.clear();
    texts[i].tooltip = Res(kTextRows[i].tooltip);
  }
  Label1Lit = -1;
  Label7.clear();
  Command6Enabled = false;
}

void LotteryModel::Command10_Click() {
  const int n = numerosApuesta;
  if (n < 5 || n > 11) return;
  const double A = n == 5 ? 44 : 1;
  const int B = n == 5 ? 1 : 0;
  std::array<double, 7> P{};
  for (int k = 0; k <= 6; ++k) {
    if (k == 6 && n == 5) continue;
    P[k] = 100 * A * F(n) * F(6) * F(49 - n - B) * F(43) /
           (F(n - k) * F(6 - k - B) * F(49) * F(k) * F(43 - n + k));
  }
  if (n == 5) {
    for (int k = 6; k >= 3; --k) P[k] = P[k - 1];
    P[2] = 49.52;
    P[1] = 100;
    P[0] = 0;
  }
  const double p5c = n == 5 ? P[5] : (n - 5) * P[5] / 43;
  const std::array<double, 8> values{P[6], p5c, P[5], P[4], P[3], P[2], P[1], P[0]};
  for (int i = 0; i < 8; ++i) {
    const TextRow& row = kTextRows[i];
    const double v = values[i];
    texts[i].text = rt::Format(v, QLatin1String(row.format)) + QStringLiteral(" %");
    if (v == 0) {
      texts[i].tooltip = Res(row.tooltip) + QStringLiteral(": --");
    } else {
      texts[i].tooltip = Res(row.tooltip) + (row.twoBlanks ? QStringLiteral(":  1 / ") : QStringLiteral(": 1 / ")) +
                         rt::Format(100 / v, QStringLiteral("#,###,###"));
    }
  }
  Label1Lit = n == 6 ? 0 : 1;
  if (n == 6) {
    Label7 = QStringLiteral(" 1 ") + Res(562);
  } else {
    const double equivalent = n == 5 ? 44 : rt::Int(F(n) / (F(n - 6) * F(6)));
    Label7 = QStringLiteral(" 1 ") + Res(560) + QLatin1Char(' ') + Res(589) + QLatin1Char(' ') +
             QString::number(static_cast<long long>(equivalent)) + QLatin1Char(' ') + Res(590);
  }
  Command6Enabled = true;
}

// ---- Selecting and deleting ------------------------------------------------------------

void LotteryModel::Command9_Click() {
  if (helpInstead(kHelpOptions)) return;
  const QList<int> marked = markedNumbers();
  if (Command9Caption == 611) {
    reduce();
    return;
  }
  if (Command9Caption == 588) {
    if (marked.size() < 12) {
      lastErrorCode = 610;
      MBoxShow(kMessageStyle, Res(610), 3, 0, 0, Res(656));
      return;
    }
    for (int i = 1; i <= 49; ++i) {
      const std::int16_t in = board[i - 1].marked() ? 1 : 0;
      tablaPref[i][prefActiva] = in;
      program().LotteryFavourites[prefActiva - 1][i - 1] = in;
    }
    const std::int16_t kept = prefActiva;
    Command11_Click();
    prefActiva = kept;
    clearBoard();
    applyPreferred();
    return;
  }
  if (modoVisor) {
    closeGrids();
    return;
  }
  if (marked.size() < 5) {
    showError(602);
    return;
  }
  if (marked.size() >= 12) {
    showError(603);
    return;
  }
  QStringList row(kColumns);
  for (int i = 0; i < marked.size(); ++i) {
    row[2 + i] = QString::number(marked[i]);
    frecSel[marked[i]] += 1;
  }
  if (marked.size() > 9) scrollBars = 3;
  ++apuestasSel;
  apuestasCambiadas = true;
  row[0] = QString::number(apuestasSel);
  row[1] = rt::FormatDate(rt::Today(), QStringLiteral("dd/mm/yyyy"));
  grid << row;
  Label8 = QString::number(apuestasSel);
  if (apuestasSel == kMaxBets) MBoxShow(kMessageStyle, Res(623), 2, 0, 0, kTitle);
  if (apuestasSel > kMaxBets) borrapuestod_Click();
}

void LotteryModel::closeGrids() {
  if (dbVisible && Command9Caption == 587) Label9Visible = false;
  listVisible = false;
  dbVisible = false;
  modoVisor = false;
  freqGrid.clear();
}

void LotteryModel::borrapuestod_Click() {
  if (helpInstead(kHelpDelete)) return;
  grid.clear();
  frecSel.fill(0);
  borraapuesselEnabled = false;
  Command8_Click();
  apuestasSel = 0;
  Label8 = QStringLiteral("0");
  Command9Caption = 587;
  Command9Tooltip = 580;
  Label9Visible = false;
  Label9bVisible = false;
  scrollBars = 0;
  closeGrids();
  clearBoard();
  numerosApuesta = 0;
}

void LotteryModel::mostrarloto_Click() {
  if (apuestasSel == 0) {
    noData();
    return;
  }
  if (dbVisible) closeGrids();
  listVisible = true;
  modoVisor = true;
  borraapuesselEnabled = true;
  for (int r = 0; r < grid.size(); ++r) grid[r][0] = QString::number(r + 1);
  freqCounts_ = frecSel;
  freqTotal_ = apuestasSel;
  fillFrequencyGrid();
}

void LotteryModel::fillFrequencyGrid() { freqGrid = frequencyRows(freqCounts_, freqTotal_, ordenActual); }

void LotteryModel::ordenaloto_Click(int index) {
  if (index < 0 || index > 2) return;
  ordenActual = index;
  if (modoVisor) fillFrequencyGrid();
}

void LotteryModel::mostrardbase_Click() {
  if (listVisible) closeGrids();
  dbRows.clear();
  for (int i = 0; i < draws.rows.size(); ++i) {
    if (drawPassesFilter(draws, i, tipoSorteo)) dbRows << i;
  }
  dbVisible = true;
  modoVisor = true;
  Label9Text = QStringLiteral("DataBase ") + Res(527 + tipoSorteo) + QStringLiteral("  -  ");
  if (!dbRows.isEmpty()) {
    Label9Text += draws.rows.at(dbRows.first()).value(1) + QStringLiteral("  -  ") +
                  draws.rows.at(dbRows.last()).value(1);
  }
  Label9Visible = true;
  freqCounts_ = statistics.frecDB[0];
  freqTotal_ = statistics.sorteosBase;
  fillFrequencyGrid();
}

void LotteryModel::MSFlexGrid0_Click(int row) {
  if (!dbVisible || row < 1 || row > dbRows.size()) return;
  const QStringList& cells = draws.rows.at(dbRows.at(row - 1));
  const int type = static_cast<int>(QStringLiteral("PBG").indexOf(cells.value(11)));
  QString weekday;
  try {
    weekday = rt::FormatDate(rt::DateValue(cells.value(1)), QStringLiteral("dddd"));
  } catch (const rt::RuntimeError&) {
  }
  QStringList numbers;
  for (int c = 2; c <= 7; ++c) numbers << cells.value(c);
  Label9Text = (type >= 0 ? Res(527 + type) : QString()) + QStringLiteral(". ") + Res(655) + QLatin1Char(' ') +
               weekday + QLatin1Char(' ') + cells.value(1) + QStringLiteral("  ") + numbers.join(QStringLiteral("  ")) +
               QStringLiteral("  -  ") + cells.value(8) + QStringLiteral("  ") + QString::number(row - 1) +
               QLatin1Char(' ') + Res(606);
  Label9Visible = true;
}

void LotteryModel::deleteRow(int row) {
  const QStringList& cells = grid.at(row - 1);
  for (int c = 2; c < kColumns; ++c) {
    if (!cells.at(c).isEmpty()) frecSel[cells.at(c).toInt()] -= 1;
  }
  grid.removeAt(row - 1);
  --apuestasSel;
  apuestasCambiadas = true;
}

void LotteryModel::borraapuessel_Click() {
  if (helpInstead(kHelpDelete) || !listVisible) return;
  const int lo = std::max(1, std::min(gridRow, gridRowSel));
  const int hi = std::min<int>(static_cast<int>(grid.size()), std::max(gridRow, gridRowSel));
  for (int i = lo; i <= hi; ++i) deleteRow(lo);
  Label8 = QString::number(apuestasSel);
  if (apuestasSel == 0) {
    borrapuestod_Click();
    return;
  }
  gridRow = gridRowSel = std::min(lo, static_cast<int>(grid.size()));
  mostrarloto_Click();
}

void LotteryModel::lotorecup_Click() {
  if (gridRow < 1 || gridRow > grid.size()) return;
  const QStringList cells = grid.at(gridRow - 1);
  Command9_Click();
  clearBoard();
  numerosApuesta = 0;
  const bool wasEnabled = Command1Enabled[0];
  Command1Enabled[0] = false;
  for (int c = 2; c < kColumns; ++c) {
    if (!cells.at(c).isEmpty()) Label10_Click(cells.at(c).toInt() - 1);
  }
  Command1Enabled[0] = wasEnabled;
}

// ---- Files -----------------------------------------------------------------------------

bool hasLotExtension(const QString& name) { return name.right(3).toLower() == QLatin1String("lot"); }

QByteArray writeLot(const QList<QStringList>& rows, const std::array<float, 50>& frecSel) {
  rt::SequentialWriter w;
  w.write({rt::Variant::integer(static_cast<std::int16_t>(rows.size()))});
  for (const QStringList& row : rows) {
    QList<rt::Variant> cells;
    for (const QString& cell : row) cells << rt::Variant::text(cell);
    w.write(cells);
  }
  for (int i = 1; i <= 49; ++i) {
    w.write({rt::Variant::integer(static_cast<std::int16_t>(i)), rt::Variant::single(frecSel[i])});
  }
  return w.bytes();
}

LotContents readLot(const QByteArray& bytes) {
  rt::SequentialReader r(bytes);
  LotContents out;
  const int count = r.readInteger();
  if (count < 0 || count > LotteryModel::kMaxBets) rt::raise(rt::kTypeMismatch);
  for (int row = 0; row < count; ++row) {
    QStringList cells;
    for (int c = 0; c < LotteryModel::kColumns; ++c) {
      cells << r.readText();
      if (!r.lastFieldComplete()) rt::raise(rt::kInputPastEndOfFile);
      // Cells are written quoted with no escapes: a quote in one is damage.
      if (cells.last().contains(QLatin1Char('"'))) rt::raise(rt::kTypeMismatch);
    }
    for (int c = 2; c < LotteryModel::kColumns; ++c) {
      if (cells.at(c).isEmpty()) continue;
      bool ok = false;
      const int x = cells.at(c).toInt(&ok);
      if (!ok || x < 1 || x > 49) rt::raise(rt::kTypeMismatch);
    }
    out.rows << cells;
  }
  for (int i = 1; i <= 49; ++i) {
    if (r.readInteger() != i) rt::raise(rt::kTypeMismatch);
    out.frec[i] = r.readSingle();
  }
  return out;
}

void LotteryModel::guardarloto_Click() {
  if (helpInstead(kHelpFiles)) return;
  if (apuestasSel == 0) {
    showError(600, 500);
    return;
  }
  if (!hooks.fileDialog) return;
  const QString path =
      hooks.fileDialog({Res(502), Res(584), program().AppFolder.toText() + QStringLiteral("datos/"), true});
  if (!path.isEmpty()) guardarloto(path);
}

bool LotteryModel::guardarloto(const QString& path) {
  if (apuestasSel == 0) {
    showError(600, 500);
    return false;
  }
  if (!hasLotExtension(path)) {
    showError(900, 500);
    return false;
  }
  try {
    rt::writeWholeFile(path, writeLot(grid, frecSel));
  } catch (const rt::RuntimeError& e) {
    showError(e.number(), 500);
    return false;
  }
  apuestasCambiadas = false;
  return true;
}

PrintDocument LotteryModel::printDocument() const {
  PrintDocument doc(Res(631));
  doc.setFont(QStringLiteral("Arial"), 10);
  doc.emptyLines(1);
  doc.line(19, QStringLiteral("Calvix Premium  -  Bolix.  ") + Res(630) + QLatin1Char(' ') +
                   rt::FormatDate(rt::Today(), QStringLiteral("dd/mm/yyyy")));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 12, true);
  doc.line(9, Res(631));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Courier New"), 10, true);
  doc.printAt(11, QStringLiteral("Id"));
  doc.printAt(15, Res(624));
  doc.line(28, Res(561));
  doc.setFont(QStringLiteral("Courier New"), 10);
  for (const QStringList& row : grid) {
    QStringList numbers;
    for (int c = 2; c < kColumns; ++c) {
      if (!row.at(c).isEmpty()) numbers << row.at(c).rightJustified(2);
    }
    doc.printAt(11, row.at(0));
    doc.printAt(15, row.at(1));
    doc.line(28, numbers.join(QLatin1Char(' ')));
  }
  return doc;
}

void LotteryModel::imprimeloto_Click() {
  if (helpInstead(kHelpFiles)) return;
  if (apuestasSel == 0) {
    showError(600, 500);
    return;
  }
  ::printDocument(printDocument());
}

void LotteryModel::abrirloto_Click() {
  if (helpInstead(kHelpFiles) || !hooks.fileDialog) return;
  const QString path =
      hooks.fileDialog({Res(501), Res(584), program().AppFolder.toText() + QStringLiteral("datos/"), false});
  if (!path.isEmpty()) abrirloto(path);
}

bool LotteryModel::abrirloto(const QString& path) {
  if (!hasLotExtension(path)) {
    showError(901, 500);
    return false;
  }
  LotContents in;
  try {
    in = readLot(rt::readWholeFile(path));
  } catch (const rt::RuntimeError& e) {
    // A damaged file leaves the list as it was.
    showError(e.number(), 500);
    return false;
  }
  const bool changed = apuestasCambiadas;
  borrapuestod_Click();
  Command8_Click();
  grid = in.rows;
  for (const QStringList& row : grid) {
    if (!row.at(9).isEmpty()) scrollBars = 3;
  }
  for (int i = 1; i <= 49; ++i) {
    frecSel[i] += in.frec[i];
    frecTodas[i] += in.frec[i];
  }
  apuestasSel = static_cast<std::int16_t>(grid.size());
  Label8 = QString::number(apuestasSel);
  apuestasCambiadas = changed;
  return true;
}

// ---- Analysis -------------------------------------------------------------------------------

bool LotteryModel::loadDraws(const QString& path) {
  const bool ok = draws.load(path);
  computeDrawStatistics();
  return ok;
}

// ---- Statistics ------------------------------------------------------------------------------

void LotteryModel::computeDrawStatistics() {
  const int rows = static_cast<int>(draws.numbers.size());
  std::function<bool(int)> step;
  if (hooks.progressStep) step = [this, rows](int row) { return hooks.progressStep(row, rows); };
  statistics = drawStatistics(draws, tipoSorteo, step);
}

void LotteryModel::noData() {
  lastErrorCode = 646;
  MBoxShow(kMessageStyle, QStringLiteral("¡ ") + Res(646) + QStringLiteral(" !"), 3, 0, 0, kTitle);
}

void LotteryModel::showChart(const FrequencyChart& c) {
  chartRequested = false;
  if (!c.hasData()) {
    noData();
    return;
  }
  chart = c;
  chartRequested = true;
}

void LotteryModel::lotoestmostrar1_Click() {
  if (helpInstead(kHelpDrawType)) return;
  showChart(frequencyChart(Res(647), frecTodas, 1, 49, QStringLiteral("49")));
}

void LotteryModel::lotoestmostrar2_Click() {
  if (helpInstead(kHelpDrawType)) return;
  showChart(frequencyChart(Res(648), frecSel, 1, 49, QStringLiteral("49")));
}

void LotteryModel::lotoestmostrar31_Click(int list) {
  if (helpInstead(kHelpDrawType) || list < 0 || list > 3) return;
  const QString title = QStringLiteral("DataBase Loto: ") + Res(535 + list) + QStringLiteral("  (") +
                        rt::NumberToTextSingle(statistics.sorteosBase) + QStringLiteral(" )");
  if (list == 3) showChart(frequencyChart(title, statistics.frecDB[3], 0, 9, QStringLiteral("10")));
  else showChart(frequencyChart(title, statistics.frecDB[list], 1, 49, QStringLiteral("49")));
}

void LotteryModel::lotoestmostrar41_Click(int index, bool withComplementary) {
  if (helpInstead(kHelpDrawType) || index < 0 || index > 1) return;
  if (statistics.sorteosBase == 0) {
    noData();
    return;
  }
  informeLoto = tenNumbersReport(statistics, index == 1, withComplementary);
  informeTitle = Res(540 + index);
}

void LotteryModel::lotoest0_Click() {
  if (helpInstead(kHelpDrawType)) return;
  frecTodas.fill(0);
  frecSel.fill(0);
}

void LotteryModel::Command6_Click() {
  const QList<int> bet = markedNumbers();
  if (bet.size() < 5 || bet.size() > 11) return;
  for (int i = 0; i < 13; ++i) apuestaActual[i] = i < bet.size() ? bet[i] : 0;
  const int rows = static_cast<int>(draws.rows.size());
  std::function<bool(int)> step;
  if (hooks.analysisStep) step = [this, rows](int row) { return hooks.analysisStep(row, rows); };
  analysis = analyseBet(bet, tipoSorteo, LotoInfoExpress, draws, step);
  informeLoto = analysis.report;
  informeTitle = analysis.stopped ? QString() : Res(586) + QLatin1Char(' ');
}

void LotteryModel::analizeapu_Click() {
  if (gridRow < 1 || gridRow > grid.size()) return;
  const QStringList cells = grid.at(gridRow - 1);
  clearBoard();
  numerosApuesta = 0;
  Command8_Click();
  const bool wasEnabled = Command1Enabled[0];
  Command1Enabled[0] = false;
  for (int c = 2; c < kColumns; ++c) {
    if (!cells.at(c).isEmpty()) Label10_Click(cells.at(c).toInt() - 1);
  }
  Command6_Click();
  Command1Enabled[0] = wasEnabled;
  QStringList bet;
  for (int x : markedNumbers()) bet << QString::number(x);
  Label9bText = Res(602) + QStringLiteral(": ") + bet.join(QStringLiteral("  "));
  Label9bVisible = true;
}

void LotteryModel::analizeTodapu_Click() {
  const bool express = LotoInfoExpress;
  LotoInfoExpress = true;
  const auto perDraw = hooks.analysisStep;
  hooks.analysisStep = {};  // the rows are the steps here
  QString all;
  AnalysisResult total;
  const int rows = static_cast<int>(grid.size());
  bool stopped = false;
  for (int r = 1; r <= rows; ++r) {
    if (perDraw && !perDraw(r - 1, rows)) {
      stopped = true;
      break;
    }
    gridRow = r;
    analizeapu_Click();
    all += informeLoto;
    for (int i = 0; i < 10; ++i) total.premios[i] = static_cast<std::int16_t>(total.premios[i] + analysis.premios[i]);
    total.sorteosBase += analysis.sorteosBase;
    total.premiados += analysis.premiados;
  }
  hooks.analysisStep = perDraw;
  LotoInfoExpress = express;
  total.stopped = stopped;
  total.report = stopped ? QString() : all;
  analysis = total;
  informeLoto = total.report;
  informeTitle = stopped ? QString() : Res(586) + QLatin1Char(' ');
}
