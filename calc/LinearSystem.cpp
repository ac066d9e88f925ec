#include "calc/LinearSystem.h"

#include <exception>

#include "calc/CalculatorEngine.h"
#include "calc/MatrixAlgebra.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace {

const QString kSolutionFormat = QStringLiteral("0.######e+##");

}  // namespace

void LinearSystem::guarded(int topic, const std::function<void()>& body) {
  if (helpInstead(CalculatorEngine::helpTopic(topic))) return;
  errorCode = 0;
  try {
    body();
  } catch (const rt::RuntimeError&) {
    errorCode = 31;
    stepSystem = 0;
    engine_.unexpectedFailure();
  } catch (const std::exception&) {
    errorCode = 31;
    stepSystem = 0;
    engine_.unexpectedFailure();
  }
}

void LinearSystem::setCell(int r, int c, const QString& text) {
  if (r < 0 || r >= n || c < 0 || c > n) return;
  cells[r * (n + 1) + c] = text;
  ++revision;
}

QString LinearSystem::prompt() const {
  const int row = stepSystem / (n + 1) + 1;
  const int col = stepSystem % (n + 1) + 1;
  const QString name = col <= n ? QStringLiteral("A%1%2").arg(row).arg(col) : QStringLiteral("K%1").arg(row);
  return Res(4457) + QStringLiteral("  ") + name + QStringLiteral("   (^)");
}

void LinearSystem::define(int equations) {
  n = equations;
  cells.clear();
  for (int i = 0; i < n * (n + 1); ++i) cells << QStringLiteral("0");
  stepSystem = 0;
  rankA = rankAK = 0;
  X.clear();
  solutionText.clear();
  ++revision;
}

void LinearSystem::Command39_Click() {
  guarded(39, [&] {
    stepSystem = 0;
    MBoxShow(0, Res(4416), 5, 3, 0, Res(4415));
    ProgramState& p = program();
    if (p.MessageResult != 0) return;
    const QString answer = p.MessageValue.toText().trimmed();
    double v = 0;
    if (!rt::tryTextToDouble(answer, v) || v != rt::Int(v) || v < 1 || v > kMaxEquations) {
      errorCode = 17;
      engine_.reportFailure(17);
      return;
    }
    define(static_cast<int>(v));
    setMessageList({Res(4453), Res(4454)}, Res(4452));
    MBoxShow(0, Res(4452), 1, 0, 0, Res(4415));
    fastMode = program().MessageValue.toInteger() != 2;
    if (fastMode) {
      engine_.func = Res(4415) + QStringLiteral(":  ") + QString::number(n);
    } else {
      engine_.func = prompt();
      // The pattern of an equation, so the user knows what each value is.
      engine_.result = QStringLiteral("Ai1\u00B7X1 + Ai2\u00B7X2 + .... + Aij\u00B7Xj  =  Ki");
    }
    engine_.Command69_Click();
  });
}

void LinearSystem::cellClick(int row, int col) {
  guarded(39, [&] {
    setCell(row, col, engine_.numero.text());
    engine_.entryActive = 0;
  });
}

void LinearSystem::Command85_Click(int index) {
  if (index < 0 || index > 2) return;
  guarded(85, [&] {
    if (index == 2) {
      if (n > 0) define(n);
      engine_.func = Res(4947);
      engine_.Command69_Click();
      return;
    }
    if (n == 0) {
      errorCode = 17;
      engine_.reportFailure(17);
      return;
    }
    if (index == 1) {
      solve();
      return;
    }
    // Normal mode: the value of numero into the coefficient prompted.
    const int row = stepSystem / (n + 1);
    const int col = stepSystem % (n + 1);
    setCell(row, col, engine_.numero.text());
    ++stepSystem;
    if (stepSystem >= n * (n + 1)) {
      stepSystem = 0;
      engine_.func = Res(4456);
    } else {
      engine_.func = prompt();
    }
    engine_.Command69_Click();
    engine_.entryActive = 0;
  });
}

void LinearSystem::solve() {
  stepSystem = 0;
  X.clear();
  solutionText.clear();
  Matrix a(n, n), ak(n, n + 1);
  for (int r = 0; r < n; ++r) {
    for (int c = 0; c <= n; ++c) {
      double v = 0;
      if (!rt::tryTextToDouble(cell(r, c), v)) {
        errorCode = 43;
        engine_.reportFailure(43);
        return;
      }
      ak.at(r, c) = v;
      if (c < n) a.at(r, c) = v;
    }
  }
  rankA = matrix::rank(a);
  rankAK = matrix::rank(ak);
  engine_.func = Res(4422);
  engine_.Command69_Click();
  if (rankA != rankAK || rankA < n) {
    const QString text = Res(4421) + QLatin1Char('\n') + Res(rankA == rankAK ? 4419 : 4420);
    engine_.result = text;
    MBoxShow(3, text, 3, 0, 0, Res(4422));
    return;
  }
  std::vector<double> x;
  if (!matrix::solve(ak, x)) {
    // Full rank always has its pivots; kept for a system the ranks misjudge.
    errorCode = 48;
    engine_.reportFailure(48);
    return;
  }
  QStringList lines;
  engine_.addViewerLine(Res(4422), QString());
  for (int i = 0; i < n; ++i) {
    const QString value = rt::Format(x[static_cast<std::size_t>(i)], kSolutionFormat);
    X << value;
    lines << QStringLiteral("X%1 = ").arg(i + 1) + value;
    engine_.addViewerLine(QStringLiteral(":   X%1").arg(i + 1), value);
  }
  solutionText = lines.join(QLatin1Char('\n'));
  engine_.result = solutionText;
  engine_.numero = rt::NumberToText(x[0]);
  engine_.entryActive = 0;
  // The solution's box offers to print it.
  MBoxShow(0, solutionText, 2, 4, 0, Res(4422));
  if (program().MessageResult == 1) printDocument(document());
}

PrintDocument LinearSystem::document() const {
  PrintDocument doc(Res(4422));
  doc.setFont(QStringLiteral("Arial"), 7);
  doc.emptyLines(2);
  doc.line(8, Res(4423));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 10, true);
  doc.line(8, Res(4424));
  doc.setFont(QStringLiteral("Arial"), 9);
  doc.line(8, Res(4425));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Courier New"), 9);
  for (int r = 0; r < n; ++r) {
    QStringList terms;
    for (int c = 0; c < n; ++c) terms << QStringLiteral("(%1)\u00B7X%2").arg(cell(r, c)).arg(c + 1);
    doc.line(8, terms.join(QStringLiteral(" + ")) + QStringLiteral("  =  ") + cell(r, n));
  }
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 10, true);
  doc.line(8, Res(4422));
  doc.setFont(QStringLiteral("Courier New"), 9);
  for (const QString& line : solutionText.split(QLatin1Char('\n'))) doc.line(8, line);
  return doc;
}
