#pragma once
// The calculator's 40 physical constants (keys Command4(0..39)): value, unit
// and the string that names them (also the key's tooltip). The units are
// data, not translated; they write the superscript minus as a soft hyphen
// (U+00AD) before a Latin-1 superscript digit, as the stored texts always
// have. The view draws that soft hyphen as a visible minus.
#include <QList>
#include <QString>

struct PhysicalConstant {
  int nameId;          // string id of the name (4114 + index)
  const char* symbol;  // short caption of the key (UTF-8)
  double value;
  const char* unit;    // UTF-8, empty for a pure number
};

// The table, in key order (index 0 to 39).
const QList<PhysicalConstant>& physicalConstants();

// A soft hyphen as the view shows it.
QString visibleUnitText(const QString& text);
