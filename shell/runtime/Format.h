#pragma once
// The Format function of the classic runtime.
//
// Number patterns: "General Number" (the default text), named forms
// ("Fixed", "Standard", "Percent", "Scientific"), and user patterns made of
// "0" (digit), "#" (optional digit), "." (decimal point), "," (group mark,
// or scaling when it stands just before the point), "%" and exponent parts
// "E+00", "e-##"; up to three sections separated by ";". Literal characters
// are copied. The decimal point and group mark come out in the system's form.
//
// Date patterns: "d", "dd", "ddd", "dddd", "m", "mm", "mmm", "mmmm", "yy",
// "yyyy", "h", "hh", "n", "nn", "s", "ss", "AM/PM", "/", ":", and the named
// forms "Long Date", "Short Date", "Long Time", "Short Time", "General Date"
// in the system's own forms. "mm" right after "h"/"hh" means minutes.
#include <QString>

namespace rt {
class Variant;

QString Format(double x, const QString& pattern);
QString FormatDate(double date, const QString& pattern);
// A variant holding a date goes through FormatDate, a number through Format,
// a text is first read as a number when it is one, otherwise returned as is.
QString Format(const Variant& v, const QString& pattern);

}  // namespace rt
