#include "calc/MatrixModel.h"

#include <exception>

#include "calc/CalculatorEngine.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/Random.h"
#include "shell/runtime/RuntimeError.h"

namespace {

constexpr int kPanelTopic = 25;     // the panel's keys and grids
constexpr int kMenuTopic = 250;     // the grid menu (MatrizOp, MatrizCcopia)
constexpr int kLargestSide = 99;    // the size boxes take two digits

enum Op { kScalar, kOpposite, kTranspose, kAdjoint, kGaussJordan, kDeterminant, kRank, kDependence };

// The pattern of a random value: "0." and a zero per tenth of the base's
// fraction, "0" for a whole base.
QString randomPattern(float base) {
  const double f = static_cast<double>(base) - rt::Fix(static_cast<double>(base));
  const int zeros = static_cast<int>(rt::Fix(10 * f));
  return zeros > 0 ? QStringLiteral("0.") + QString(zeros, QLatin1Char('0')) : QStringLiteral("0");
}

}  // namespace

QString MatrixModel::letter(int i) { return QString(QChar(u'A' + i)); }

void MatrixModel::guarded(int topic, const std::function<void()>& body) {
  if (helpInstead(CalculatorEngine::helpTopic(topic))) return;
  errorCode = 0;
  errorText.clear();
  try {
    body();
  } catch (const rt::RuntimeError&) {
    fail(31);
  } catch (const std::exception&) {
    fail(31);
  }
}

// A failure goes to the matrices' message box: titled with the matrix's
// letter when one matrix is at fault, "Matrices" otherwise.
void MatrixModel::fail(int code, int grid) {
  errorCode = code;
  errorText = ErrorText(code);
  program().MessageSound = 3;
  PlayMessageSound();
  const QString title = grid < 0 ? Res(4520) : Res(4548) + QLatin1Char(' ') + letter(grid);
  MBoxShow(3, errorText, 3, 0, 0, title);
}

bool MatrixModel::read(int i, Matrix& m) {
  const Grid& g = MSFlexGrid2[static_cast<std::size_t>(i)];
  if (!g.defined()) {
    fail(41, i);
    return false;
  }
  m = Matrix(g.rows, g.cols);
  for (int r = 0; r < g.rows; ++r) {
    for (int c = 0; c < g.cols; ++c) {
      if (!rt::tryTextToDouble(g.cell(r, c), m.at(r, c))) {
        fail(43, i);
        return false;
      }
    }
  }
  return true;
}

void MatrixModel::putC(const Matrix& m) {
  Grid& c = MSFlexGrid2[2];
  c.rows = m.rows;
  c.cols = m.cols;
  c.cells.clear();
  // A negative zero shows as 0, as the runtime writes it.
  for (double v : m.cells) c.cells << rt::NumberToText(v + 0.0);
  Text6[2] = QString::number(m.rows);
  Text7[2] = QString::number(m.cols);
  ++revision;
}

void MatrixModel::showOperation(const QString& name) {
  engine_.func = name;
  engine_.Command69_Click();
}

void MatrixModel::setGrid(int i, const QList<QStringList>& rows) {
  Grid& g = MSFlexGrid2[static_cast<std::size_t>(i)];
  g.rows = static_cast<int>(rows.size());
  g.cols = 0;
  for (const QStringList& r : rows) g.cols = std::max(g.cols, static_cast<int>(r.size()));
  g.cells.clear();
  for (const QStringList& r : rows) {
    for (int c = 0; c < g.cols; ++c) g.cells << r.value(c);
  }
  if (!g.defined()) g = Grid{};
  Text6[static_cast<std::size_t>(i)] = QString::number(g.rows);
  Text7[static_cast<std::size_t>(i)] = QString::number(g.cols);
  ++revision;
}

// ---- Grid keys -----------------------------------------------------------------

void MatrixModel::Command54_Click(int i) {
  if (i < 0 || i > 2) return;
  guarded(54, [&] {
    const auto k = static_cast<std::size_t>(i);
    const double rows = rt::Fix(rt::Val(Text6[k]));
    const double cols = rt::Fix(rt::Val(Text7[k]));
    if (rows < 1 || cols < 1 || rows > kLargestSide || cols > kLargestSide) {
      fail(41, i);
      return;
    }
    // Cells that stay inside the new sizes keep their texts; new ones are 0.
    const Grid old = MSFlexGrid2[k];
    Grid g;
    g.rows = static_cast<int>(rows);
    g.cols = static_cast<int>(cols);
    for (int r = 0; r < g.rows; ++r) {
      for (int c = 0; c < g.cols; ++c) {
        g.cells << (r < old.rows && c < old.cols ? old.cell(r, c) : QStringLiteral("0"));
      }
    }
    MSFlexGrid2[k] = g;
    ++revision;
  });
}

void MatrixModel::Command57_Click(int i) {
  if (i < 0 || i > 2) return;
  guarded(57, [&] {
    Grid& g = MSFlexGrid2[static_cast<std::size_t>(i)];
    for (QString& cell : g.cells) cell = QStringLiteral("0");
    ++revision;
  });
}

void MatrixModel::Command77_Click(int i) {
  if (i < 0 || i > 2) return;
  guarded(77, [&] {
    Grid& g = MSFlexGrid2[static_cast<std::size_t>(i)];
    if (!g.defined()) {
      fail(41, i);
      return;
    }
    showOperation(Res(4523) + QLatin1Char(' ') + letter(i));
    const float base = program().randomBase;
    const QString pattern = randomPattern(base);
    rt::Randomize();
    for (QString& cell : g.cells) cell = rt::Format(static_cast<double>(rt::Rnd()) * static_cast<double>(base), pattern);
    ++revision;
  });
}

void MatrixModel::cellClick(int grid, int row, int col) {
  if (grid < 0 || grid > 2) return;
  guarded(kPanelTopic, [&] {
    Grid& g = MSFlexGrid2[static_cast<std::size_t>(grid)];
    if (row < 0 || col < 0 || row >= g.rows || col >= g.cols) return;
    g.setCell(row, col, engine_.numero.text());
    engine_.entryActive = 0;
    ++revision;
  });
}

// ---- Two-matrix operations --------------------------------------------------------

void MatrixModel::Command75_Click(int index) {
  if (index < 0 || index > 3) return;
  guarded(75, [&] {
    Matrix a, b;
    if (!read(0, a) || !read(1, b)) return;
    static const char* const kNames[] = {"A + B", "A - B", "A x B", "A x B^-1"};
    showOperation(QString::fromLatin1(kNames[index]));
    switch (index) {
      case 0:
      case 1:
        if (a.rows != b.rows || a.cols != b.cols) return fail(42);
        putC(matrix::sum(a, b, index == 0 ? 1 : -1));
        return;
      case 2:
        if (a.cols != b.rows) return fail(44);
        putC(matrix::product(a, b));
        return;
      default: {
        if (!a.square() || !b.square() || a.rows != b.rows) return fail(47);
        Matrix inverse;
        if (!matrix::inverseGaussJordan(b, inverse)) return fail(48, 1);
        putC(matrix::product(a, inverse));
        return;
      }
    }
  });
}

// ---- One-matrix operations (the grid's menu) -----------------------------------------

bool MatrixModel::askScalar(double& factor) {
  MBoxShow(0, Res(4553), 5, 3, 0, Res(4552));
  const ProgramState& p = program();
  if (p.MessageResult != 0) return false;
  factor = rt::TextToDouble(p.MessageValue.toText());
  return true;
}

void MatrixModel::MatrizOp_Click(int index) {
  if (index < 0 || index > 7) return;
  guarded(kMenuTopic, [&] {
    const int g = clickedGrid;
    const QString l = letter(g);
    Matrix a;
    if (!read(g, a)) return;
    switch (index) {
      case kScalar: {
        double factor = 0;
        if (!askScalar(factor)) return;
        showOperation(Res(4552) + QLatin1Char(' ') + l);
        putC(matrix::scaled(a, factor));
        return;
      }
      case kOpposite:
        showOperation(Res(4554) + QLatin1Char(' ') + l);
        putC(matrix::opposite(a));
        return;
      case kTranspose:
        showOperation(Res(4555) + QLatin1Char(' ') + l);
        putC(matrix::transpose(a));
        return;
      case kAdjoint:
      case kGaussJordan: {
        if (!a.square()) return fail(45, g);
        showOperation(Res(index == kAdjoint ? 4933 : 4934) + QLatin1Char(' ') + l);
        Matrix inverse;
        const bool regular =
            index == kAdjoint ? matrix::inverseAdjoint(a, inverse) : matrix::inverseGaussJordan(a, inverse);
        if (!regular) return fail(48, g);
        putC(inverse);
        return;
      }
      case kDeterminant: {
        if (!a.square()) return fail(46, g);
        showOperation(Res(4935) + QLatin1Char(' ') + l);
        const double d = matrix::determinant(a);
        Matrix one(1, 1);
        one.at(0, 0) = d;
        putC(one);
        const QString value = rt::NumberToText(d + 0.0);
        engine_.result = QStringLiteral("|") + l + QStringLiteral("| ") + QStringLiteral(" =  (") + value + QLatin1Char(')');
        engine_.numero = value;
        engine_.entryActive = 0;
        return;
      }
      case kRank: {
        showOperation(Res(4936) + QLatin1Char(' ') + l);
        const int r = matrix::rank(a);
        Matrix one(1, 1);
        one.at(0, 0) = r;
        putC(one);
        engine_.result = Res(4557) + QString::number(r);
        engine_.numero = QString::number(r);
        engine_.entryActive = 0;
        return;
      }
      default: {
        showOperation(Res(4937) + QLatin1Char(' ') + l);
        matrix::rank(a, &dependentRows);
        QString text;
        if (dependentRows.empty()) {
          text = Res(4564) + QLatin1Char(' ') + l + QLatin1Char(' ') + Res(4565);
        } else {
          text = Res(4558) + QLatin1Char('\n') + Res(4559) + QLatin1Char(' ') + l + QLatin1Char(' ') + Res(4560);
          for (int row : dependentRows) {
            text += QLatin1Char('\n') + Res(4561) + QLatin1Char(' ') + QString::number(row) + QLatin1Char(' ') + Res(4562);
          }
          text += QLatin1Char('\n') + Res(4563);
        }
        engine_.result = text;
        MBoxShow(3, text, 2, 0, 0, Res(4548) + QLatin1Char(' ') + l);
        return;
      }
    }
  });
}

void MatrixModel::MatrizCcopia_Click() {
  guarded(kMenuTopic, [&] {
    if (clickedGrid == 2) return;
    const Grid& c = MSFlexGrid2[2];
    if (!c.defined()) return fail(41, 2);
    const auto k = static_cast<std::size_t>(clickedGrid);
    MSFlexGrid2[k] = c;
    Text6[k] = Text6[2];
    Text7[k] = Text7[2];
    ++revision;
  });
}

void MatrixModel::ChangeMatriz_Click() {
  guarded(kPanelTopic, [&] {
    showOperation(Res(4551));
    std::swap(MSFlexGrid2[0], MSFlexGrid2[1]);
    std::swap(Text6[0], Text6[1]);
    std::swap(Text7[0], Text7[1]);
    ++revision;
  });
}

// ---- Printing --------------------------------------------------------------------------

PrintDocument MatrixModel::document() const {
  PrintDocument doc(Res(4549));
  doc.setFont(QStringLiteral("Arial"), 7);
  doc.emptyLines(2);
  doc.line(8, Res(4423));
  doc.emptyLines(1);
  doc.setFont(QStringLiteral("Arial"), 10, true);
  doc.line(8, Res(4549));
  doc.emptyLines(1);
  for (int i = 0; i < 3; ++i) {
    const Grid& g = MSFlexGrid2[static_cast<std::size_t>(i)];
    doc.setFont(QStringLiteral("Arial"), 9, true);
    doc.line(8, Res(4548) + QLatin1Char(' ') + letter(i) + QStringLiteral("   (") + QString::number(g.rows) +
                    QStringLiteral(" x ") + QString::number(g.cols) + QLatin1Char(')'));
    doc.setFont(QStringLiteral("Courier New"), 9);
    for (int r = 0; r < g.rows; ++r) {
      for (int c = 0; c < g.cols; ++c) doc.printAt(10 + 16 * c, g.cell(r, c));
      doc.endLine();
    }
    doc.emptyLines(1);
  }
  doc.setFont(QStringLiteral("Arial"), 7);
  doc.line(8, QStringLiteral("Calvix Premium  -  VelozCalc.  ") + rt::FormatDate(rt::Now(), QStringLiteral("Short Date")));
  return doc;
}

void MatrixModel::MatrizPrinter_Click() {
  if (helpInstead(CalculatorEngine::helpTopic(kPanelTopic))) return;
  printDocument(document());
}
