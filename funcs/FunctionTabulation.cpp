// The table of F(x), and of G(x), over the interval: FunctionTable's
// evaluateFunctionTable, worked out in steps so the window can keep events
// going.
#include <climits>
#include <cmath>

#include "funcs/FunctionTable.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Strings.h"
#include "shell/runtime/VectorState.h"

namespace {

constexpr int kWidth = 1450;
constexpr int kLagrangeRows = 60;  // the plot's interpolation does not run on longer tables
constexpr int kMaxRows = INT_MAX - 16;

QString& context() { return program().SectionTitle; }

// The cell of an evaluated value: a number keeps its value (its text is the
// default one), anything else its text.
void storeValue(CellGrid& grid, int row, int col, const rt::Variant& v) {
  switch (v.type()) {
    case rt::VType::Double:
    case rt::VType::Integer:
    case rt::VType::Long: grid.setNumber(row, col, v.rawNumber()); break;
    default: grid.set(row, col, v.toText()); break;
  }
}

}  // namespace


// ---- Feeding the engine ----------------------------------------------------------

// x as the engine gets it from "x= <Str(x)>": the value of its 15-digit text,
// typed as that literal reads (a whole number is an Integer or a Long).
void FunctionTable::assignX(double shown) {
  const double magnitude = std::fabs(shown);
  if (shown == std::trunc(shown) && magnitude <= 2147483647.0) {
    if (magnitude <= 32767) engine_.setVariable(xSlot_, rt::Variant::integer(static_cast<std::int16_t>(shown)));
    else engine_.setVariable(xSlot_, rt::Variant::longValue(static_cast<std::int32_t>(shown)));
    return;
  }
  engine_.setNumber(xSlot_, shown);
}

// AddCode("<constants>: x= " + Str(x)), without building the text. Returns
// the x the engine got, the value of x's text.
double FunctionTable::feedX(double x) {
  if (run_ && run_->withVariables) engine_.AddCode(txtVariables);
  double shown = 0;
  // The text of a number next to the largest double reads back as an overflow.
  if (!CellGrid::textValue(x, shown)) throw EvalError(EvalError::kOverflow);
  assignX(shown);
  return shown;
}

// The x of a row, as its text gives it to the engine.
void FunctionTable::feedRowX(int row) {
  double x = 0;
  if (MSFlexGrid1.storedNumber(row, kX, x)) {  // already the value of its text
    if (run_->withVariables) engine_.AddCode(txtVariables);
    assignX(x);
    return;
  }
  if (!rowX(row, x)) throw EvalError(EvalError::kTypeMismatch);  // an X cell left empty
  feedX(x);
}

bool FunctionTable::rowX(int row, double& x) const { return MSFlexGrid1.number(row, kX, x); }

// The math library's domain failure: the X cell of the row being computed is
// cleared, or says "Error" when the user cancelled, which stops the table.
// While G is computed the X cells stay; a cancel stops all the same.
void FunctionTable::xCellFromLibrary(const QString& text) {
  if (!run_) return;
  const bool cancelled = text == Res(2800);
  if (run_->stage == Tabulation::Stage::F) MSFlexGrid1.set(program().pointCount, kX, text);
  if (cancelled) xCellCancelled_ = true;
}

// ---- Begin -------------------------------------------------------------------------

bool FunctionTable::beginFunctionTable() {
  if (run_) return false;
  ProgramState& p = program();
  if (menuIPLA && p.pointCount >= kLagrangeRows + 2) {
    Combo2 = QString::number(kLagrangeRows);
    p.pointCount = kLagrangeRows;
    recomputeIncrement();
  }
  context() = Res(1463);
  // A new table: the rows of the last one go, their memory stays for it.
  MSFlexGrid1.setRowCount(1, true);
  MSFlexGrid1.setRowCount(kMinimumRows);
  p.pointCount = 0;
  p.hasG = 0;
  p.sourceColumn = 1;

  double start = 0, end = 0, increment = 0;
  if (!numberOf(txtStart, start) || !numberOf(txtEnd, end)) {
    showMessage(107);
    return false;
  }
  if (Option1 == 0) {
    double points = 0;
    if (!numberOf(Combo2, points) || points < 2) {
      showMessage(1);
      return false;
    }
    increment = (end - start) / (points - 1);
  } else {
    if (!numberOf(Text1, increment)) {
      showMessage(1);
      return false;
    }
    if (increment == 0) {
      showMessage(103);
      return false;
    }
    if ((increment > 0) != (end > start)) {
      increment = -increment;
      Text1 = rt::NumberToText(increment);
    }
  }
  if (!std::isfinite(increment) || increment == 0) {
    showMessage(1);
    return false;
  }

  auto t = std::make_unique<Tabulation>();
  t->x = start;
  t->increment = increment;
  t->limit = end + increment;
  t->ascending = increment > 0;
  const double rows = std::floor((t->limit - start) / increment) + 1;
  t->expectedRows = static_cast<qint64>(std::clamp(rows, 1.0, static_cast<double>(kMaxRows)));
  t->withVariables = !txtVariables.trimmed().isEmpty();
  t->errorWord = Res(2800);
  try {
    t->f = engine_.compile(txtExpression);
  } catch (const EvalError& e) {
    t->fError = e;
  }
  // Room for the whole table at once: no spare capacity on a long one.
  const int reserve = static_cast<int>(std::min<qint64>(t->expectedRows + 2, 1 << 26));
  MSFlexGrid1.reserveRows(kX, reserve);
  MSFlexGrid1.reserveRows(kF, reserve);
  run_ = std::move(t);
  phase = 0;
  xCellCancelled_ = false;
  return true;
}

// ---- Steps ---------------------------------------------------------------------------

bool FunctionTable::tabulationStep(int maxRows) {
  if (!run_) return true;
  if (stepping_) return false;
  stepping_ = true;
  int budget = std::max(maxRows, 1);
  rt::clearUpperVectorState();
  while (run_ && budget > 0 && !stopRequested_) {
    if (run_->stage == Tabulation::Stage::F) stepF(budget);
    else stepG(budget);
  }
  stepping_ = false;
  if (stopRequested_) stopNow();
  return !run_;
}

void FunctionTable::evaluateFunctionTable() {
  if (!beginFunctionTable()) return;
  while (!tabulationStep(1 << 20)) {
  }
}

double FunctionTable::tabulationProgress() const {
  if (!run_) return 1;
  const int done = program().pointCount;
  if (run_->stage == Tabulation::Stage::F) {
    const double part = static_cast<double>(done) / static_cast<double>(run_->expectedRows);
    return std::min(part, 1.0) * (Check1 && !Text2.isEmpty() ? 0.5 : 1.0);
  }
  return 0.5 + 0.5 * (run_->gRow - 1) / std::max(done, 1);
}

// Rows of F(x) until the budget is spent or x passes end + increment.
bool FunctionTable::stepF(int& budget) {
  ProgramState& p = program();
  Tabulation& t = *run_;
  for (; budget > 0 && !stopRequested_; --budget) {
    const bool inside = t.ascending ? t.x <= t.limit : t.x >= t.limit;
    if (!inside || !std::isfinite(t.x) || p.pointCount >= kMaxRows) {
      endCorrection();
      return true;
    }
    const int row = ++p.pointCount;
    try {
      MSFlexGrid1.setTextValue(row, kX, feedX(t.x));
      if (t.fError) throw *t.fError;
      double value = 0;
      if (engine_.evaluatePlainNumber(t.f, value)) MSFlexGrid1.setNumber(row, kF, value);
      else storeValue(MSFlexGrid1, row, kF, engine_.evaluate(t.f));
    } catch (const EvalError& e) {
      failF(e.description());
      return true;
    }
    if (xCellCancelled_) {
      clearTable();
      return true;
    }
    MSFlexGrid1.setRowCount(MSFlexGrid1.rowCount() + 1);
    t.x += t.increment;
  }
  setColumn1Width();
  return false;
}

// The loop can end one row past the end: the last row is put on the end
// exactly, and dropped when the row before it already stands there.
void FunctionTable::endCorrection() {
  ProgramState& p = program();
  setColumn1Width();
  for (;;) {
    MSFlexGrid1.clearRow(p.pointCount + 1, kX, kF);
    if (p.pointCount < 1) break;
    double last = 0, end = 0;
    const bool endIsNumber = numberOf(txtEnd, end);
    if (rowX(p.pointCount, last) && endIsNumber && last == end) break;
    MSFlexGrid1.set(p.pointCount, kX, txtEnd);
    try {
      feedX(end);
      if (run_->fError) throw *run_->fError;
      storeValue(MSFlexGrid1, p.pointCount, kF, engine_.evaluate(run_->f));
    } catch (const EvalError& e) {
      failF(e.description());
      return;
    }
    if (xCellCancelled_) {
      clearTable();
      return;
    }
    double previous = 0;
    if (p.pointCount < 2 || !rowX(p.pointCount - 1, previous) || previous != end) break;
    --p.pointCount;
  }
  setColumn1Width();
  startG();
}

void FunctionTable::startG() {
  MSFlexGrid1.clearColumn(kG);
  scrollBars = ScrollBars::Vertical;
  if (!(Check1Enabled && Check1 != 0 && !Text2.isEmpty())) {
    finishTable();
    return;
  }
  Tabulation& t = *run_;
  t.stage = Tabulation::Stage::G;
  t.gRow = 1;
  phase = 1;
  try {
    t.g = engine_.compile(Text2);
  } catch (const EvalError& e) {
    t.gError = e;
  }
  MSFlexGrid1.reserveRows(kG, program().pointCount + 1);
}

bool FunctionTable::stepG(int& budget) {
  ProgramState& p = program();
  Tabulation& t = *run_;
  for (; budget > 0 && !stopRequested_; --budget) {
    if (t.gRow > p.pointCount) {
      p.titleG = QStringLiteral("G(x) = ") + Text2;
      p.hasG = -1;
      scrollBars = ScrollBars::Both;
      finishTable();
      return true;
    }
    bool errorWord = false;
    try {
      feedRowX(t.gRow);
      if (t.gError) throw *t.gError;
      double number = 0;
      if (engine_.evaluatePlainNumber(t.g, number)) {
        MSFlexGrid1.setNumber(t.gRow, kG, number);
      } else {
        const rt::Variant value = engine_.evaluate(t.g);
        storeValue(MSFlexGrid1, t.gRow, kG, value);
        errorWord = value.isText() && value.rawText() == t.errorWord;
      }
    } catch (const EvalError& e) {
      failG(e.description());
      return true;
    }
    if (xCellCancelled_ || errorWord) {
      clearTable();
      return true;
    }
    ++t.gRow;
  }
  return false;
}

// ---- Failures ------------------------------------------------------------------------

// An engine failure while F(x) is computed: the failed row goes, the rows
// before it stay as the table, and the interval's end follows them.
void FunctionTable::failF(const QString& description) {
  ProgramState& p = program();
  MSFlexGrid1.clearRow(p.pointCount, kX, kG);
  --p.pointCount;
  if (p.pointCount == 0) txtStart = Res(2800);
  else txtEnd = MSFlexGrid1.get(p.pointCount, kX);
  QString text = Res(1464) + QStringLiteral(" F(x)\n\n") + description + QStringLiteral("\n\nF(x): ") + txtExpression;
  if (p.pointCount > 0) {
    text += QLatin1Char(' ') + Res(1465) + QLatin1Char(' ') + QString::number(p.pointCount) + QLatin1Char(' ') +
            Res(1466);
  } else {
    closePlotWindow();
  }
  if (Check1 && !Text2.isEmpty()) {
    if (p.pointCount > 0) {
      text += QStringLiteral("\n\n") + Res(1467);
    } else {
      text += QStringLiteral("\n\nG(x): ") + Res(1464);
      Check1 = 0;
      p.hasG = 0;
    }
  }
  engineFailureMessage(text);
  setColumn1Width();
  if (p.pointCount == 0) {
    run_.reset();
    phase = 2;
    return;
  }
  startG();
}

// An engine failure while G(x) is computed: F stays, G goes.
void FunctionTable::failG(const QString& description) {
  ProgramState& p = program();
  context() = Res(1401);
  MSFlexGrid1.clearColumn(kG);
  Check1 = 0;
  p.hasG = 0;
  engineFailureMessage(Res(1464) + QStringLiteral(" G(x)\n\n") + description + QStringLiteral("\n\nG(x): ") + Text2);
  finishTable();
}

void FunctionTable::engineFailureMessage(const QString& text) {
  program().MessageSound = 2;
  MBoxShow(3, text, 3, 0, 0, QStringLiteral("Calvix  -  VelozEvaluator"));
}

// ---- Stop and finish -----------------------------------------------------------------

// Esc: the rows computed so far stay as the table, without G.
void FunctionTable::stopTabulation() {
  if (stepping_) {
    stopRequested_ = true;
    return;
  }
  stopNow();
}

void FunctionTable::stopNow() {
  stopRequested_ = false;
  if (!run_) return;
  ProgramState& p = program();
  MSFlexGrid1.clearRow(p.pointCount + 1, kX, kF);
  MSFlexGrid1.clearColumn(kG);
  p.hasG = 0;
  scrollBars = ScrollBars::Vertical;
  setColumn1Width();
  finishTable();
}

void FunctionTable::finishTable() {
  ProgramState& p = program();
  const double increment = run_->increment;
  run_.reset();
  phase = 2;
  if (hooks.plotVisible && hooks.plotVisible() && hooks.untickSmoothing) hooks.untickSmoothing();
  p.sourceColumn = 1;
  for (int c = kDerivative1; c <= kSmoothed; ++c) colWidth[c] = (p.hasG || editMode) ? 0 : kWidth;
  if (hooks.computeDerivatives) hooks.computeDerivatives();
  if (plot && hooks.redrawPlot) hooks.redrawPlot();
  Text1 = rt::NumberToText(increment);
  if (p.pointCount > 0) Combo2 = QString::number(p.pointCount);
  p.titleF = QStringLiteral("F(x) = ") + txtExpression;
  p.titleX = QStringLiteral("X");
  p.titleY = QStringLiteral("  Y");
  MSFlexGrid1.set(0, kX, QStringLiteral("X"));
  if (replotAfterRun_) {
    replotAfterRun_ = false;
    plot_Click();
  }
}
