#pragma once
// The geometry catalogue: 54 rows (a figure with two forms has a row per
// form), in the order the window walks them. Each row is a Tag text,
//
//   "SSN"  whether the perimeter, area and volume lines are shown
//   "2"    the number of parameters, then one letter per parameter as the
//          drawing names it
//   "-"    then one character and the name's string id: "-" for a figure of
//          one form, "1" or "2" for a form ("SSS2rh-13560" is "Cono 1")
//
// with the formula text of each shown line, printed as the window prints it
// ("¶" is pi, "Sqr" a square root; blanks are part of the text).
//
// computeFigure works a row out from its parameter values: the limits first
// (a refused figure gives the reason the window reports), then the three
// lines. Angles "n" are typed in degrees and go to radians only inside Sin
// and Cos.
#include <QString>
#include <QStringList>
#include <array>
#include <vector>

namespace geometry {

inline constexpr int kMaxParameters = 6;
inline constexpr int kLines = 3;

struct FigureRow {
  QString tag;
  std::array<bool, kLines> shows{};
  int parameterCount = 0;
  QString letters;   // one per parameter, case-sensitive
  QChar form;        // '-' one form, '1' or '2'
  int nameId = 0;    // string id of the name
  std::array<QString, kLines> formulas;  // empty where the line is not shown
};

// Reads a Tag; throws std::invalid_argument when it does not have the form.
FigureRow parseTag(const QString& tag);

// The catalogue, in its order (index 0 is FigureIndex 1).
const std::vector<FigureRow>& catalogue();
int catalogueSize();

// Name as the list shows it: the string, and " 1"/" 2" for a form.
QString figureName(const FigureRow& row);
// The labels of the parameter boxes: the Tag letters, with the figures'
// own labels ("nº" for the angle of three figures, "h1".."h3", "d1", "d2",
// "r1", "r2").
QStringList parameterLabels(const FigureRow& row);
// Titles of the three lines (also of lines the row does not show).
std::array<QString, kLines> lineTitles(const FigureRow& row);

// A note under "Notas": a label part ("B = ", or empty) and its text.
struct FigureNote {
  QString label;
  QString text;
};
std::vector<FigureNote> figureNotes(const FigureRow& row);

struct FigureOutcome {
  bool refused = false;
  QString reason;  // "h > R", "n < 3 ", "Número Decimal."...
  std::array<double, kLines> values{};
};
// values holds the parameters in box order (unused ones are ignored). A
// square root of a negative number (a triangle that cannot close, a slant
// shorter than half the side) fails as the runtime fails: rt::RuntimeError 5.
FigureOutcome computeFigure(const FigureRow& row, const std::array<double, kMaxParameters>& values);

}  // namespace geometry
