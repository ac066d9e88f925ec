#include "funcs/FunctionTable.h"

#include <QFileInfo>
#include <algorithm>
#include <cmath>

#include "funcs/EvlFile.h"
#include "funcs/PlotAnalysis.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

constexpr int kMessageSound = 2;
constexpr int kMessageStyle = 3;
constexpr int kWidth = 1450;        // twips, columns 1 to 6
constexpr int kNarrowTable = 1650;  // column 1 while the table has fewer than 5 rows
constexpr int kHelpTopic = 31500;  // the table's section of the function tools' help page

QString& context() { return program().SectionTitle; }

}  // namespace

const QString FunctionTable::kDefaultF = QStringLiteral("2.23*sin(A*x)*(cos(B*x))^2");
const QString FunctionTable::kDefaultG = QStringLiteral("x*cos(x^1.7)");

FunctionTable::FunctionTable() : MSFlexGrid1(kColumns) {
  hooks.computeDerivatives = [this] { fillDerivatives(); };
}

void FunctionTable::fillDerivatives() {
  const ProgramState& p = program();
  plot::computeDerivatives(MSFlexGrid1, p.pointCount, p.sourceColumn);
}

FunctionTable::~FunctionTable() = default;

// ---- Messages ----------------------------------------------------------------

void FunctionTable::showMessage(int code) { ReportError(code, kMessageSound, kMessageStyle, 0); }

// A message of several lines of the string table, titled as ReportError titles.
void FunctionTable::showMessageLines(const QList<int>& stringIds) {
  QStringList lines;
  for (int id : stringIds) lines << Res(id);
  ProgramState& p = program();
  p.MessageSound = kMessageSound;
  const QString title = QStringLiteral("Calvix  -  ") + p.MainMenuTitle + QStringLiteral("  -  ") + p.SectionTitle;
  MBoxShow(kMessageStyle, Res(2800) + QStringLiteral(":  ") + lines.join(QLatin1Char('\n')), 3, 0, 0, title);
}

void FunctionTable::engineFailure(const QString& description) {
  program().MessageSound = kMessageSound;
  MBoxShow(kMessageStyle, Res(2800) + QStringLiteral(":  ") + description, 3, 3, 0,
           QStringLiteral("Calvix  -  VelozEvaluator"));
}

// ---- Window events -------------------------------------------------------------

void FunctionTable::Form_Load() {
  ProgramState& p = program();
  p.MainMenuTitle = QStringLiteral("VelozEvaluator");
  engine_.AddObject(QStringLiteral("MathFunction"), &library_, true);
  library_.setXCellHook([this](const QString& text) { xCellFromLibrary(text); });
  xSlot_ = engine_.variableSlot(QStringLiteral("x"));
  txtExpression = kDefaultF;
  Text2 = kDefaultG;
  txtVariables = QStringLiteral("A=2:B=3");
  txtStart = QStringLiteral("0");
  txtEnd = QStringLiteral("5");
  Combo2 = QStringLiteral("200");
  Text1 = rt::NumberToText(5.0 / 199);
  Combo2Items = {QStringLiteral("10"),  QStringLiteral("20"),  QStringLiteral("50"),  QStringLiteral("100"),
                 QStringLiteral("200"), QStringLiteral("500"), QStringLiteral("1000")};
  colWidth.fill(kWidth);
  setAngleUnit(QStringLiteral("deg"));
  mnufunc_Click();
}

void FunctionTable::Form_Activate() { setAngleUnit(QStringLiteral("deg")); }

void FunctionTable::Form_Unload() {
  run_.reset();
  phase = 2;
  clearTable();
  program().hasG = 0;
}

bool FunctionTable::Form_KeyDown(int key, Qt::KeyboardModifiers modifiers) {
  const Qt::KeyboardModifiers mods = modifiers & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
  if (key == Qt::Key_Escape && run_) {
    stopTabulation();
    return true;
  }
  if (key == Qt::Key_F12 && mods == Qt::ControlModifier) {
    editMode = !editMode;
    Label3 = editMode;
    colWidth[kF] = kWidth;
    for (int c = kDerivative1; c <= kSmoothed; ++c) colWidth[c] = (editMode || program().hasG) ? 0 : kWidth;
    return true;
  }
  if (key == Qt::Key_F12 && mods == Qt::ShiftModifier) {
    scrollBars = scrollBars == ScrollBars::Vertical ? ScrollBars::Both : ScrollBars::Vertical;
    LeftCol = 0;
    return true;
  }
  if (key == Qt::Key_F10 && mods == Qt::ShiftModifier) {
    contextMenuRequested = true;
    return true;
  }
  return false;
}

// ---- Angle unit ------------------------------------------------------------------

void FunctionTable::setAngleUnit(const QString& unit) {
  Label1 = unit;
  double& factor = program().angleFactor;
  if (unit == QLatin1String("gra")) factor = 4 * rt::Atn(1) / 200;
  else if (unit == QLatin1String("rad")) factor = 1.0;
  else factor = 4 * rt::Atn(1) / 180;
}

void FunctionTable::Command2_Click() {
  if (helpInstead(kHelpTopic)) return;
  if (Label1 == QLatin1String("deg")) setAngleUnit(QStringLiteral("gra"));
  else if (Label1 == QLatin1String("gra")) setAngleUnit(QStringLiteral("rad"));
  else setAngleUnit(QStringLiteral("deg"));
}

void FunctionTable::Command3_Click() {
  if (helpInstead(kHelpTopic)) return;
  closeRequested = true;
}

// ---- Table ---------------------------------------------------------------------------

void FunctionTable::writeHeadings() {
  const bool expression = operationMode == 1;
  MSFlexGrid1.set(0, kX, expression ? QString() : QStringLiteral("X"));
  MSFlexGrid1.set(0, kF, expression ? Res(1461) : QStringLiteral("F(x)"));
  MSFlexGrid1.set(0, kDerivative1, QStringLiteral("F'(x)"));
  MSFlexGrid1.set(0, kDerivative2, QStringLiteral("F''(x)"));
  MSFlexGrid1.set(0, kDerivative3, QStringLiteral("F'''(x)"));
  MSFlexGrid1.set(0, kSmoothed, Res(1460) + QStringLiteral(" F(x)"));
  MSFlexGrid1.set(0, kG, QStringLiteral("G(x)"));
}

void FunctionTable::closePlotWindow() {
  if (hooks.closePlot) hooks.closePlot();
  plot = false;
}

void FunctionTable::clearTable() {
  ProgramState& p = program();
  run_.reset();
  stopRequested_ = false;
  phase = 2;
  p.pointCount = 0;
  Image4 = {false, false};
  MSFlexGrid1.clear();
  MSFlexGrid1.setRowCount(kMinimumRows);
  p.hasG = 0;
  Row = 1;
  TopRow = 1;
  expressionRow = 0;
  writeHeadings();
  colWidth[kF] = kWidth;
  for (int c = kDerivative1; c <= kSmoothed; ++c) colWidth[c] = editMode ? 0 : kWidth;
  closePlotWindow();
}

void FunctionTable::cmdClear_Click() {
  if (helpInstead(kHelpTopic)) return;
  clearTable();
}

void FunctionTable::setColumn1Width() { colWidth[kF] = program().pointCount < 5 ? kNarrowTable : kWidth; }

// ---- Modes --------------------------------------------------------------------------

void FunctionTable::mnufunc_Click() {
  if (helpInstead(kHelpTopic) || run_) return;
  caption = Res(1474);
  operationMode = 0;
  plotEnabled = true;
  Command1Enabled = true;
  chkLoop = 1;
  Check1Enabled = true;
  Check1 = 0;
  Text2Enabled = true;
  fLabel = QStringLiteral("     F(x) =");
  clearTable();
  writeHeadings();
}

void FunctionTable::mnuexpr_Click() {
  if (helpInstead(kHelpTopic) || run_) return;
  caption = Res(1473);
  operationMode = 1;
  chkLoop = 0;
  plotEnabled = false;
  Command1Enabled = false;
  closePlotWindow();
  fLabel = Res(1402);
  Check1Enabled = false;
  Text2Enabled = false;
  // An empty table takes the headings of the mode at once; a table of
  // values stays until the first expression clears it.
  if (program().pointCount == 0) writeHeadings();
}

// ---- Ticks and options -----------------------------------------------------------

void FunctionTable::Check1_Click() {
  if (helpInstead(kHelpTopic) || !Check1Enabled) return;
  Check1 = (Check1 == 0 && !Text2.isEmpty()) ? 1 : 0;
}

void FunctionTable::chkLoop_Click() {
  if (helpInstead(kHelpTopic)) return;
  chkLoop = chkLoop ? 0 : 1;
}

void FunctionTable::chkVariables_Click() {
  if (helpInstead(kHelpTopic)) return;
  chkVariables = chkVariables ? 0 : 1;
}

void FunctionTable::Option1_Click(int index) {
  if (helpInstead(kHelpTopic)) return;
  if (index == 0 || index == 1) Option1 = index;
}

// ---- Boxes --------------------------------------------------------------------------

int FunctionTable::txtStart_KeyPress(int key) { return FilterKey(key, QStringLiteral("T")); }
int FunctionTable::txtEnd_KeyPress(int key) { return FilterKey(key, QStringLiteral("T")); }
int FunctionTable::txtVariables_KeyPress(int key) { return key == ',' ? '.' : key; }

QString FunctionTable::cellsText(int row1, int col1, int row2, int col2) const {
  QString text;
  for (int r = std::min(row1, row2); r <= std::max(row1, row2); ++r) {
    for (int c = std::min(col1, col2); c <= std::max(col1, col2); ++c) {
      if (c != std::min(col1, col2)) text += QLatin1Char('\t');
      appendTextMatrix(r, c, text);
    }
    text += QLatin1Char('\n');
  }
  return text;
}

bool FunctionTable::numberOf(const QString& text, double& value) const {
  return !text.trimmed().isEmpty() && rt::tryTextToDouble(text, value) && std::isfinite(value);
}

// An end of the interval that is not a number becomes 0 and keeps the focus;
// an empty one waits for the evaluation to say the interval is incomplete.
bool FunctionTable::checkIntervalBox(QString& box, const QString& control) {
  context() = Res(1422);
  double v = 0;
  if (box.isEmpty() || numberOf(box, v)) return true;
  showMessage(1);
  box = QStringLiteral("0");
  focusRequest = control;
  return false;
}

void FunctionTable::txtStart_LostFocus() { checkIntervalBox(txtStart, QStringLiteral("txtStart")); }
void FunctionTable::txtEnd_LostFocus() { checkIntervalBox(txtEnd, QStringLiteral("txtEnd")); }

void FunctionTable::recomputeIncrement() {
  double start = 0, end = 0, points = 0;
  if (!numberOf(txtStart, start) || !numberOf(txtEnd, end)) {
    showMessage(107);
    return;
  }
  if (numberOf(Combo2, points) && points != 1) Text1 = rt::NumberToText((end - start) / (points - 1));
}

void FunctionTable::Combo2_LostFocus() {
  context() = Res(1423);
  double points = 0;
  if (!numberOf(Combo2, points)) {
    Combo2 = QStringLiteral("200");
  } else if (points > 1000) {
    Combo2 = QStringLiteral("200");
    showMessageLines({2106, 2121});
  } else if (points < 3) {
    Combo2 = QStringLiteral("3");
  }
  recomputeIncrement();
}

void FunctionTable::Text1_LostFocus() {
  context() = Res(1424);
  double step = 0, start = 0, end = 0;
  if (!numberOf(Text1, step)) {
    showMessage(1);
    Text1 = QStringLiteral("0");
    focusRequest = QStringLiteral("Text1");
    return;
  }
  if (!numberOf(txtStart, start) || !numberOf(txtEnd, end)) {
    showMessage(107);
    return;
  }
  if (start == end) {
    showMessage(100);
    return;
  }
  if (std::fabs(step) > std::fabs(end - start)) {
    showMessage(108);
    Text1 = QStringLiteral("0");
    focusRequest = QStringLiteral("Text1");
    return;
  }
  if (step == 0) {
    showMessage(103);
    return;
  }
  if ((step > 0) != (end > start)) {
    step = -step;
    Text1 = rt::NumberToText(step);
  }
  Combo2 = rt::NumberToText(std::fabs((end - start) / step) + 1);
}

// ---- Evaluate --------------------------------------------------------------------

void FunctionTable::cmdResult_Click() {
  if (helpInstead(kHelpTopic) || run_) return;
  context() = Res(726);
  if (chkLoop) {
    double start = 0, end = 0;
    if (!numberOf(txtStart, start) || !numberOf(txtEnd, end)) {
      showMessage(107);
      return;
    }
    if (start == end) {
      showMessage(100);
      return;
    }
  }
  if (txtExpression.isEmpty()) {
    showMessage(105);
    return;
  }
  Image4[0] = false;
  if (chkLoop) {
    if (stepwise) beginFunctionTable();
    else evaluateFunctionTable();
    return;
  }
  if (chkVariables) {
    try {
      engine_.AddCode(txtVariables);
    } catch (const EvalError& e) {
      engineFailure(e.description());
      return;
    }
  }
  evaluateExpression();
}

void FunctionTable::evaluateExpression() {
  ProgramState& p = program();
  context() = Res(1402);
  if (p.pointCount > 0) clearTable();
  rt::Variant value;
  try {
    value = engine_.Eval(txtExpression);
  } catch (const EvalError& e) {
    engineFailure(e.description());
    return;
  }
  ++expressionRow;
  if (MSFlexGrid1.rowCount() <= expressionRow) MSFlexGrid1.setRowCount(expressionRow + 1);
  MSFlexGrid1.set(expressionRow, kF, value.toText());
  MSFlexGrid1.setRowCount(MSFlexGrid1.rowCount() + 1);
  Row = expressionRow;
}

// ---- Swap and plot ---------------------------------------------------------------

void FunctionTable::Command1_Click() {
  if (helpInstead(kHelpTopic) || run_) return;
  context() = Res(1462);
  if (txtExpression.isEmpty() || Text2.isEmpty()) {
    showMessage(105);
    return;
  }
  std::swap(txtExpression, Text2);
  const bool shown = hooks.plotVisible && hooks.plotVisible();
  if (shown) {
    plot_Click();
    replotAfterRun_ = true;
  }
  cmdResult_Click();
  if (!run_ && replotAfterRun_) {
    replotAfterRun_ = false;
    plot_Click();
  }
}

void FunctionTable::plot_Click() {
  if (helpInstead(kHelpTopic) || run_) return;
  ProgramState& p = program();
  context() = Res(1476);
  plot = !plot;
  if (!plot) {
    closePlotWindow();
    return;
  }
  if (MSFlexGrid1.isEmpty(1, kF)) {
    plot = false;
    return;
  }
  if (Image4[0]) {
    if (xCellCount != yCellCount) {
      showMessage(49);
      plot = false;
      return;
    }
    p.pointCount = xCellCount;
  }
  if (!hooks.showPlot || !hooks.showPlot()) plot = false;
}

// ---- Edit mode ----------------------------------------------------------------------

void FunctionTable::MSFlexGrid1_KeyPress(QChar c) {
  if (!editMode || Row < 1 || Col < 0 || Col >= kColumns) return;
  if (Row > 1 && MSFlexGrid1.isEmpty(Row - 1, Col)) return;
  QString text = MSFlexGrid1.get(Row, Col);
  if (c == QLatin1Char('\b')) {
    text.chop(1);
  } else if (c.isPrint()) {
    // A typed comma or point is the system's decimal symbol, as everywhere.
    if (c == QLatin1Char(',') || c == QLatin1Char('.')) text += program().DecimalSymbol.toText();
    else text += c;
  } else {
    return;
  }
  MSFlexGrid1.set(Row, Col, text);
  Image4 = {true, true};
}

void FunctionTable::MSFlexGrid1_LeaveCell() {
  if (!editMode) return;
  double v = 0;
  const QString text = MSFlexGrid1.get(Row, Col);
  if (!text.isEmpty() && !numberOf(text, v)) MSFlexGrid1.set(Row, Col, QString());
  recountEditedCells();
  Image4[1] = false;
}

void FunctionTable::recountEditedCells() {
  auto filled = [this](int col) {
    int n = 0;
    while (n + 1 < MSFlexGrid1.rowCount() && !MSFlexGrid1.isEmpty(n + 1, col)) ++n;
    return n;
  };
  xCellCount = filled(kX);
  yCellCount = filled(kF);
}

void FunctionTable::MSFlexGrid1_EnterKey() {
  if (!editMode) return;
  MSFlexGrid1_LeaveCell();
  // The next shown column of the row; with vertical bars only the row ends at F(x).
  const int lastCol = scrollBars == ScrollBars::Vertical ? kF : kColumns - 1;
  for (int c = Col + 1; c <= lastCol; ++c) {
    if (colWidth[static_cast<size_t>(c)] > 0) {
      Col = c;
      return;
    }
  }
  Col = 0;
  ++Row;
  if (Row >= MSFlexGrid1.rowCount()) MSFlexGrid1.setRowCount(Row + 1);
}

void FunctionTable::MSFlexGrid1_Select(int row, int col) {
  if (row == Row && col == Col) return;
  MSFlexGrid1_LeaveCell();
  Row = std::max(row, 1);
  Col = std::clamp(col, 0, kColumns - 1);
}

// ---- Files ------------------------------------------------------------------------------

EvlInputs FunctionTable::inputs() const {
  EvlInputs in;
  in.mode = operationMode;
  in.start = txtStart;
  in.end = txtEnd;
  in.points = Combo2;
  in.increment = Text1;
  in.byPoints = Option1 == 0;
  in.variables = txtVariables;
  in.f = txtExpression;
  in.g = Text2;
  return in;
}

void FunctionTable::applyInputs(const EvlInputs& in) {
  clearTable();
  if (in.mode == 0) mnufunc_Click();
  else mnuexpr_Click();
  txtStart = in.start;
  txtEnd = in.end;
  Combo2 = in.points;
  Text1 = in.increment;
  Option1 = in.byPoints ? 0 : 1;
  txtVariables = in.variables;
  txtExpression = in.f;
  Text2 = in.g;
}

void FunctionTable::mnuabre_Click() {
  if (helpInstead(kHelpTopic) || run_ || !hooks.fileDialog) return;
  const QString path = hooks.fileDialog(
      {Res(1471), Res(1472), program().AppFolder.toText() + QStringLiteral("datos/"), false});
  if (!path.isEmpty()) openFile(path);
}

void FunctionTable::mnuguard_Click() {
  if (helpInstead(kHelpTopic) || run_) return;
  context() = Res(500);
  if (txtExpression.isEmpty()) {
    showMessage(105);
    return;
  }
  if (!hooks.fileDialog) return;
  const QString path = hooks.fileDialog(
      {Res(1475), Res(1472), program().AppFolder.toText() + QStringLiteral("datos/"), true});
  if (!path.isEmpty()) saveFile(path);
}

bool FunctionTable::openFile(const QString& path) {
  context() = Res(500);
  if (!hasEvlExtension(QFileInfo(path).fileName())) {
    showMessage(901);
    return false;
  }
  QByteArray bytes;
  try {
    bytes = rt::readWholeFile(path);
  } catch (const rt::RuntimeError& e) {
    showMessage(e.number() == rt::kFileNotFound ? 902 : 906);
    return false;
  }
  EvlInputs in;
  if (!readEvl(bytes, in)) {
    showMessage(904);
    return false;
  }
  applyInputs(in);
  return true;
}

bool FunctionTable::saveFile(const QString& path) {
  context() = Res(500);
  if (!hasEvlExtension(QFileInfo(path).fileName())) {
    showMessage(900);
    return false;
  }
  const EvlInputs in = inputs();
  if (!evlWritable(in)) {
    showMessage(907);
    return false;
  }
  try {
    rt::writeWholeFile(path, writeEvl(in));
  } catch (const rt::RuntimeError&) {
    showMessage(907);
    return false;
  }
  return true;
}
