#pragma once
// Taking a number back from a line of a calculator list: the history Combo1
// and the auxiliary viewer List3/List4. Every kind of line the calculator
// writes goes through this one reader:
//   "12.5", "-3E-07", "&h1F"          a value alone
//   "9" + blanks, "9TOTAL" + blanks   an answer line, the total of an equals
//   "293.15 Kelvin", "1.5 rad"        a value and the unit it was turned into
//   ":   X1 =   1.5e+00"              the "text  value" pairs of the viewer
// while function lines ("sin", "1/x", "10^x", "Memoria 1") hold none.
#include <QString>

// The number a line holds, as the runtime reads it (system decimal symbol),
// blanks removed; empty when it holds none. One leading blank is dropped,
// then the longest numeric beginning is taken when it stands as a word of its
// own (followed by the end, a blank or the TOTAL mark of an equals line);
// failing that, a line with two blanks in a row ("text  value") gives its
// longest numeric ending, when it does not continue a word.
QString NumberInLine(const QString& line);
