#include "bank/BankModel.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>
#include <utility>

#include "bank/BanFile.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Financial.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"

namespace {

constexpr int kHelpTopic = 60000;
constexpr int kMessageSound = 2;
constexpr int kMessageStyle = 3;
// A thousand years of months: longer tables fail as a full grid would, and
// the window never waits long for one.
constexpr double kMaxMonths = 12000;

QString decimalSymbol() { return program().DecimalSymbol.toText(); }

// The title of a reported error: the module, then what the user was doing.
void context(int sectionId) {
  program().MainMenuTitle = Res(6);
  program().SectionTitle = Res(sectionId);
}

// Cents by adding the half cent and truncating, as the table has always done
// (not the runtime's Round: halves do not go to the even neighbour).
double halfCent(double x) { return rt::Int((x + 0.005) * 100) / 100; }

}  // namespace

BankModel::BankModel() { Form_Load(); }

void BankModel::showError(int code) {
  lastErrorCode = code;
  ReportError(code, kMessageSound, kMessageStyle, 0);
}

QString& BankModel::box(int index) {
  switch (index) {
    case kInteres: return interes;
    case kTiempo: return tiempo;
    case kAportemes: return aportemes;
    case kIncremes: return incremes;
    default: return capital;
  }
}

const QString& BankModel::box(int index) const { return const_cast<BankModel*>(this)->box(index); }

void BankModel::Form_Load() {
  context(724);
  formatoBanco = QStringLiteral("0.00");
  BanKOperations(tipo);
}

int BankModel::headingId() const {
  switch (tipo) {
    case 2: return 750;
    case 3: return 751;
    default: return 792;
  }
}

void BankModel::clearResults() {
  mensual.clear();
  total.clear();
  intereses.clear();
  Bancolist.clear();
  loanRows.clear();
  report.clear();
  mensualValue = totalValue = interesesValue = 0;
  computed = false;
  waitingForRow = false;
}

void BankModel::BanKOperations(int newTipo) {
  if (helpInstead(kHelpTopic)) return;
  if (newTipo < 1 || newTipo > 3) return;
  tipo = static_cast<std::int16_t>(newTipo);
  clearResults();
  if (tipo != 2 && (activeBox == kAportemes || activeBox == kIncremes)) activeBox = kCapital;
}

void BankModel::Option_Click(bool years) { Option2 = years; }

void BankModel::setFormat(int decimals) {
  static const char* const patterns[] = {"0", "0.0", "0.00"};
  if (decimals < 0 || decimals > 2) return;
  formatoBanco = QString::fromLatin1(patterns[decimals]);
}

void BankModel::reformat(int decimals) {
  setFormat(decimals);
  if (!computed) return;
  keepPagoInicio_ = true;
  Command7_Click();
  keepPagoInicio_ = false;
}

QString BankModel::fmt(double x) const { return rt::Format(x, formatoBanco); }

double BankModel::boxValue(const QString& text) {
  double v = 0;
  if (text.isEmpty() || !rt::tryTextToDouble(text, v)) return 0;
  return v;
}

QString BankModel::TextMatrix(int row, int col) const {
  if (row < 0 || row >= Bancolist.size()) return {};
  return Bancolist.at(row).value(col);
}

// ---- Keys ----------------------------------------------------------------------------

int BankModel::boxKey(int boxIndex, int key) const {
  if (key == kKeyBackspace) return key;
  if (key >= '0' && key <= '9') return key;
  if (key == ',' || key == '.') {
    // One decimal symbol per box: a second one would make the text no number.
    if (box(boxIndex).contains(decimalSymbol())) return 0;
    return decimalSymbol().at(0).unicode();
  }
  return 0;
}

void BankModel::typeInto(int boxIndex, const QString& text) {
  QString& b = box(boxIndex);
  for (QChar c : text) {
    const int key = boxKey(boxIndex, c.unicode());
    if (key == kKeyBackspace) b.chop(1);
    else if (key != 0) b += QChar(key);
  }
  if (boxIndex == activeBox) numero = b.isEmpty() ? QStringLiteral("0") : b;
}

void BankModel::boxFocus(int boxIndex) {
  if (boxIndex < 0 || boxIndex >= kBoxCount) return;
  activeBox = boxIndex;
  numero = box(boxIndex).isEmpty() ? QStringLiteral("0") : box(boxIndex);
}

void BankModel::Command1_Click(int digit) {
  if (helpInstead(kHelpTopic) || digit < 0 || digit > 9) return;
  typeInto(activeBox, QString(QChar('0' + digit)));
}

void BankModel::Command2_Click() {
  if (helpInstead(kHelpTopic)) return;
  typeInto(activeBox, QStringLiteral("."));
}

void BankModel::Command13_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  if (index == 0) box(activeBox).clear();
  else box(activeBox).chop(1);
  numero = box(activeBox).isEmpty() ? QStringLiteral("0") : box(activeBox);
}

// ---- Cálculo ----------------------------------------------------------------------------

void BankModel::fail() {
  numero = Res(2800);
  errorBeep = true;
}

bool BankModel::askPagoInicio() {
  MBoxShow(4, Res(727), 0, 6, 0, Res(724));
  pagoInicio = program().MessageResult == 1 ? 1 : 0;
  return true;
}

void BankModel::Command7_Click() {
  if (helpInstead(kHelpTopic)) return;
  context(headingId());
  clearResults();
  if (capital.isEmpty()) capital = QStringLiteral("0");
  const double cap = boxValue(capital);
  meses = static_cast<float>(Option2 ? boxValue(tiempo) * 12 : boxValue(tiempo));
  if ((cap == 0 && tipo != 2) || boxValue(interes) == 0 || boxValue(tiempo) == 0) {
    fail();
    return;
  }
  tasaMes = boxValue(interes) / 100 / 12;
  if (!keepPagoInicio_) pagoInicio = 0;
  if (tipo > 1 && !keepPagoInicio_) askPagoInicio();
  try {
    if (meses > kMaxMonths) rt::raise(rt::kOutOfMemory);
    switch (tipo) {
      case 1: deposit(cap); break;
      case 2: savingsPlan(cap); break;
      default: loan(cap); break;
    }
  } catch (const rt::RuntimeError& e) {
    // The error routine: the runtime's message on the display, nothing computed.
    clearResults();
    numero = e.description();
    errorBeep = true;
  }
}

void BankModel::deposit(double cap) {
  // A deposit is paid in once: there is no question about when payments fall.
  const double capitalFinal = rt::FV(tasaMes, meses, 0, -cap, 0);
  totalValue = capitalFinal;
  interesesValue = capitalFinal - cap;
  // The table: one row a year, and one for the months left over.
  Bancolist.append(QStringList{Res(756), Res(754), Res(745), Res(755)});
  const int years = rt::IntDiv(rt::Int(meses), 12);
  const double rest = meses - 12.0 * years;
  double start = cap;
  auto row = [&](int label, double months) {
    const double end = rt::FV(tasaMes, months, 0, -start, 0);
    Bancolist.append(QStringList{rt::NumberToText(label), fmt(start), fmt(end - start), fmt(end)});
    start = end;
  };
  for (int y = 1; y <= years; ++y) row(y, 12);
  if (rest != 0) row(years + 1, rest);
  total = fmt(totalValue);
  intereses = fmt(interesesValue);
  computed = true;
}

void BankModel::savingsPlan(double cap) {
  if (aportemes.isEmpty()) aportemes = QStringLiteral("0");
  if (incremes.isEmpty()) incremes = QStringLiteral("0");
  double contribution = boxValue(aportemes);
  if (contribution == 0) {
    if (cap == 0) {
      showError(501);
      return;
    }
    showError(500);
  }
  if (meses < 12 && boxValue(incremes) != 0) {
    program().MessageSound = kMessageSound;
    MBoxShow(kMessageStyle, Res(2502), 3, 0, 0, Res(724));
    incremes = QStringLiteral("0");
  }
  const double increase = boxValue(incremes);
  Bancolist.append(QStringList{Res(756), Res(754), Res(757), Res(755)});
  double start = cap;
  double contributed = 0;
  auto row = [&](int label, double months) {
    const double end = rt::FV(tasaMes, months, -contribution, -start, pagoInicio);
    Bancolist.append(QStringList{rt::NumberToText(label), fmt(start), fmt(contribution), fmt(end)});
    contributed += contribution * months;
    start = end;
  };
  if (meses < 12) {
    row(1, meses);
  } else {
    const int years = rt::IntDiv(rt::Int(meses), 12);
    const double rest = meses - 12.0 * years;
    for (int y = 1; y <= years; ++y) {
      row(y, 12);
      contribution = contribution * (1 + increase / 100);
    }
    if (rest != 0) row(years + 1, rest);
  }
  totalValue = start;
  interesesValue = start - cap - contributed;
  total = fmt(totalValue);
  intereses = fmt(interesesValue);
  computed = true;
}

void BankModel::loan(double cap) {
  mensualValue = rt::PMT(tasaMes, meses, -cap, 0, pagoInicio);
  totalValue = mensualValue * meses;
  interesesValue = totalValue - cap;
  const QString payment = fmt(mensualValue);
  QList<QStringList> table{QStringList{Res(791), Res(743), Res(744), Res(745), Res(746)}};
  QList<LoanRow> rows;
  double pending = cap;
  for (int m = 1; m <= meses; ++m) {
    LoanRow r;
    r.nominal = halfCent(rt::PPMT(tasaMes, m, meses, -cap, 0, pagoInicio));
    // The interest is what is left of the unrounded payment, so a row adds up
    // to the payment: not IPMT, whose own rounding can differ by a cent.
    r.interest = halfCent(mensualValue - r.nominal);
    pending -= r.nominal;
    r.pending = pending;
    rows.append(r);
    table.append(QStringList{rt::NumberToText(m), payment, fmt(r.nominal), fmt(r.interest), fmt(r.pending)});
  }
  Bancolist = std::move(table);
  loanRows = std::move(rows);
  mensual = Res(725) + QLatin1Char(' ') + payment;
  total = fmt(totalValue);
  intereses = fmt(interesesValue);
  computed = true;
  if (Command14) fillMonthColumn();
}

// ---- Dates ----------------------------------------------------------------------------

void BankModel::fillMonthColumn() {
  for (int m = 1; m < Bancolist.size(); ++m) {
    Bancolist[m][0] = Command14 && startDate != 0 ? rt::FormatDate(rt::DateAdd(QStringLiteral("m"), m - 1, startDate),
                                                                   QStringLiteral("dd/mm/yyyy"))
                                                  : rt::NumberToText(m);
  }
}

void BankModel::Command14_Click() {
  if (helpInstead(kHelpTopic)) return;
  Command14 = !Command14;
  if (Command14 && startDate == 0) Command15_Click();
  if (tipo == 3) fillMonthColumn();
}

void BankModel::Command15_Click() {
  if (helpInstead(kHelpTopic)) return;
  setMessageDate(startDate != 0 ? startDate : rt::Today());
  MBoxShow(4, Res(790), 0, 3, 0, Res(724));
  if (program().MessageResult != 0) return;
  defineDates(program().MessageValue.toDouble());
}

void BankModel::defineDates(double date) {
  startDate = rt::Int(date);
  if (tipo == 3) fillMonthColumn();
}

// ---- Early repayment -------------------------------------------------------------------

void BankModel::Command9_Click() {
  if (helpInstead(kHelpTopic)) return;
  waitingForRow = false;
  if (tipo != 3 || loanRows.isEmpty()) return;
  MBoxShow(4, Res(729), 0, 3, 0, Res(730));
  waitingForRow = program().MessageResult == 0;
}

void BankModel::Bancolist_Click(int row) {
  if (!waitingForRow) return;
  waitingForRow = false;
  earlyRepayment(row);
}

void BankModel::earlyRepayment(int row) {
  if (tipo != 3 || row < 1 || row > loanRows.size()) return;
  context(730);
  program().MessageDefault = QString();
  MBoxShow(4, Res(732), 5, 3, 0, Res(730));
  if (program().MessageResult != 0) return;
  double money = 0;
  if (!rt::tryTextToDouble(program().MessageValue.toText().trimmed(), money)) return;
  if (money < mensualValue) {
    showError(503);
    return;
  }
  double amortised = 0, saved = 0;
  int count = 0;
  for (int r = row; r <= loanRows.size(); ++r) {
    const LoanRow& l = loanRows.at(r - 1);
    if (amortised + l.nominal > money) break;
    amortised += l.nominal;
    saved += l.interest;
    ++count;
  }
  const int last = row + std::max(count, 1) - 1;
  const double pendingBefore = row == 1 ? boxValue(capital) : loanRows.at(row - 2).pending;
  const int remaining = static_cast<int>(std::floor(meses)) - (row - 1) - count;
  auto line = [](int id, const QString& value) -> QString { return Res(id) + QLatin1Char(' ') + value; };
  QStringList lines{line(733, TextMatrix(row, 0) + QStringLiteral(" - ") + TextMatrix(last, 0)),
                    line(734, fmt(amortised)),
                    line(735, fmt(money - amortised)),
                    line(736, fmt(saved)),
                    line(737, rt::NumberToText(remaining)),
                    line(738, fmt(pendingBefore - amortised)),
                    QString(),
                    Res(739),
                    Res(740),
                    Res(741)};
  report = lines.join(QLatin1Char('\n'));
}

// ---- Solving a loan ----------------------------------------------------------------------

bool BankModel::prompt(int textId, int titleId, double& value) {
  program().MessageDefault = QString();
  MBoxShow(4, Res(textId), 5, 3, 0, Res(titleId));
  if (program().MessageResult != 0) return false;
  // The box turned a typed point into the decimal symbol; Val reads a point
  // only, so a decimal comma goes back to a point first (as SumaCol does).
  value = rt::Val(program().MessageValue.toText().replace(QLatin1Char(','), QLatin1Char('.')));
  return true;
}

void BankModel::showInformation(const QString& text, const QString& title) {
  infoText = text;
  program().MessageSound = 5;
  MBoxShow(4, text, 0, 4, 0, title);
  if (program().MessageResult == 1) PrintText();
}

void BankModel::PrestIinteres() {
  if (helpInstead(kHelpTopic)) return;
  infoText.clear();
  double cap = 0, monthly = 0, years = 0;
  if (!prompt(759, 758, cap) || !prompt(760, 758, monthly) || !prompt(761, 758, years)) return;
  askPagoInicio();
  try {
    rateResult = rt::RATE(years * 12, monthly, -cap, 0, pagoInicio) * 12 * 100;
  } catch (const rt::RuntimeError& e) {
    numero = e.description();
    errorBeep = true;
    return;
  }
  const QStringList lines{Res(762),
                          QString(),
                          Res(763) + QLatin1Char(' ') + fmt(cap),
                          Res(725) + QLatin1Char(' ') + fmt(monthly),
                          Res(764) + QLatin1Char(' ') + rt::NumberToText(years),
                          QString(),
                          Res(765) + QLatin1Char(' ') + rt::Format(rateResult, QStringLiteral("0.000")) +
                              QStringLiteral(" %")};
  showInformation(lines.join(QLatin1Char('\n')), Res(758));
}

void BankModel::PrestTiempo() {
  if (helpInstead(kHelpTopic)) return;
  infoText.clear();
  double cap = 0, interest = 0, monthly = 0;
  if (!prompt(768, 767, cap) || !prompt(769, 767, interest) || !prompt(770, 767, monthly)) return;
  askPagoInicio();
  try {
    durationX = rt::NPER(interest / 1200, monthly, -cap, 0, pagoInicio);
  } catch (const rt::RuntimeError& e) {
    numero = e.description();
    errorBeep = true;
    return;
  }
  // A part of a month still has to be paid as a whole one.
  durationMonths = rt::Int(durationX) != durationX ? rt::Int(durationX) + 1 : durationX;
  const double years = std::floor(durationMonths / 12);
  const double months = durationMonths - 12 * years;
  const QStringList lines{Res(771),
                          QString(),
                          Res(763) + QLatin1Char(' ') + fmt(cap),
                          Res(753) + QLatin1Char(' ') + rt::NumberToText(interest) + QStringLiteral(" %"),
                          Res(725) + QLatin1Char(' ') + fmt(monthly),
                          QString(),
                          Res(772) + QLatin1Char(' ') + rt::NumberToText(years) + QLatin1Char(' ') + Res(773) +
                              QStringLiteral("  ") + rt::NumberToText(months) + QLatin1Char(' ') + Res(779)};
  showInformation(lines.join(QLatin1Char('\n')), Res(767));
}

// ---- Sum of a column ------------------------------------------------------------------------

void BankModel::SumaCol(int col, int firstRow, int lastRow) {
  if (helpInstead(kHelpTopic)) return;
  if (Bancolist.size() < 2 || col <= 0 || col >= columnCount()) return;
  if (firstRow > lastRow) std::swap(firstRow, lastRow);
  firstRow = std::max(firstRow, 1);
  lastRow = std::min(lastRow, rowCount() - 1);
  if (firstRow > lastRow) return;
  double sum = 0;
  for (int r = firstRow; r <= lastRow; ++r) {
    sum += rt::Val(TextMatrix(r, col).replace(QLatin1Char(','), QLatin1Char('.')));
  }
  const QStringList lines{Res(775) + QLatin1Char(' ') + TextMatrix(0, col),
                          Res(776) + QLatin1Char(' ') + rt::NumberToText(lastRow - firstRow + 1),
                          Res(777) + QLatin1Char(' ') + rt::NumberToText(firstRow) + QStringLiteral(" - ") +
                              rt::NumberToText(lastRow),
                          QString(),
                          Res(778) + QLatin1Char(' ') + fmt(sum)};
  showInformation(lines.join(QLatin1Char('\n')), Res(774));
}

// ---- Registers ------------------------------------------------------------------------------

void BankModel::copyToRegister(int index) {
  if (helpInstead(kHelpTopic) || !computed || index < 0 || index >= kRegisterCount) return;
  if (tipo == 3) WriteRegister(index, mensualValue, Res(743) + QStringLiteral(" (") + Res(704) + u')');
  else WriteRegister(index, totalValue, Res(755) + QStringLiteral(" (") + Res(tipo == 1 ? 702 : 703) + u')');
}

// ---- Files ----------------------------------------------------------------------------------

BanInputs BankModel::inputs() const { return {tipo, capital, interes, tiempo, Option2, aportemes, incremes}; }

void BankModel::bancoImport_Click() {
  if (helpInstead(kHelpTopic) || !hooks.fileDialog) return;
  const QString path =
      hooks.fileDialog({Res(716), Res(717), program().AppFolder.toText() + QStringLiteral("datos/"), false});
  if (!path.isEmpty()) bancoImport(path);
}

void BankModel::bancoSave_Click() {
  if (helpInstead(kHelpTopic) || !hooks.fileDialog) return;
  const QString path =
      hooks.fileDialog({Res(718), Res(717), program().AppFolder.toText() + QStringLiteral("datos/"), true});
  if (!path.isEmpty()) bancoSave(path);
}

bool BankModel::bancoImport(const QString& path) {
  context(716);
  if (!hasBanExtension(QFileInfo(path).fileName())) {
    showError(901);
    return false;
  }
  QByteArray bytes;
  try {
    bytes = rt::readWholeFile(path);
  } catch (const rt::RuntimeError& e) {
    showError(e.number() == rt::kFileNotFound ? 902 : 906);
    return false;
  }
  BanInputs in;
  if (!readBan(bytes, in)) {
    showError(904);
    return false;
  }
  BanKOperations(in.tipo);
  capital = in.capital;
  interes = in.interes;
  tiempo = in.tiempo;
  Option2 = in.years;
  aportemes = in.aportemes;
  incremes = in.incremes;
  boxFocus(activeBox);
  return true;
}

bool BankModel::bancoSave(const QString& path) {
  context(718);
  if (!hasBanExtension(QFileInfo(path).fileName())) {
    showError(900);
    return false;
  }
  try {
    rt::writeWholeFile(path, writeBan(inputs()));
  } catch (const rt::RuntimeError&) {
    showError(907);
    return false;
  }
  return true;
}
