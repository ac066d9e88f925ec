#include "calc/PhysicalConstants.h"

#include <cmath>

namespace {

// "\u00AD" is the soft hyphen that stands for a superscript minus.
#define NEG "\u00AD"

QList<PhysicalConstant> buildTable() {
  return {
      {4114, "F", 96485.309, "(C\u00B7mol" NEG "\u00B9)"},
      {4115, "G", 6.67259e-11, "(m\u00B3\u00B7s" NEG "\u00B2\u00B7Kg" NEG "\u00B9)"},
      {4116, "k", 8987551787.0, "(N m\u00B2C" NEG "\u00B2)"},
      {4117, "NA", 6.0221367e+23, "(mol" NEG "\u00B9)"},
      {4118, "R", 8.31451, "(J\u00B7mol" NEG "\u00B9\u00B7K" NEG "\u00B9)"},
      {4119, "Vm", 22.41383, "(l)"},
      {4120, "c", 299792458.0, "(m\u00B7s" NEG "\u00B9)"},
      {4121, "g", 9.80665, "(m\u00B7s" NEG "\u00B2)"},
      {4122, "e", 1.60217733e-19, "(C)"},
      {4123, "me", 9.1093897e-31, "(Kg)"},
      {4124, "mp", 1.6726231e-27, "(Kg)"},
      {4125, "mn", 1.6749286e-27, "(Kg)"},
      {4126, "u", 1.6605402e-27, "(Kg)"},
      {4127, "\u03BCe", 9.2847701e-24, "(JT" NEG "\u00B9)"},
      {4128, "\u03BCp", 1.41060761e-26, "(JT" NEG "\u00B9)"},
      {4129, "\u03BCB", 9.2740154e-24, "(JT" NEG "\u00B9)"},
      {4130, "\u03B1", 0.00729735308, ""},
      {4131, "\u03C3", 5.67051e-08, "(W\u00B7m" NEG "\u00B2K-4)"},
      {4132, "kB", 1.380658e-23, "(J\u00B7K" NEG "\u00B9)"},
      {4133, "h", 6.6260755e-34, "(J\u00B7s)"},
      {4134, "R\u221E", 10973731.534, "(m" NEG "\u00B9)"},
      {4135, "\u03B50", 8.854187816e-12, "(C\u00B2J" NEG "\u00B9m" NEG "\u00B9)"},
      {4136, "\u03BC0", std::atan(1.0) * 16 * 1e-07, "(H m" NEG "\u00B9)"},
      {4137, "a0", 5.29177249e-11, "(m)"},
      {4138, "R\u2295", 6.371e6, "(m)"},
      {4139, "M\u2295", 5.9742e+24, "(kg)"},
      {4140, "Eh", 4.3597482e-18, "(J)"},
      {4141, "\u03BCN", 5.0507866e-27, "(JT" NEG "\u00B9)"},
      {4142, "\u03BBc", 2.4263106e-12, "(m)"},
      {4143, "\u03B3e", 176085920000.0, "(s" NEG "\u00B9T" NEG "\u00B9)"},
      {4144, "\u03B3p", 267522128.0, "(s" NEG "\u00B9T" NEG "\u00B9)"},
      {4145, "cw", 4217.6, "(JK" NEG "\u00B9kg" NEG "\u00B9)"},
      {4146, "re", 2.81794e-15, "(m)"},
      {4147, "R\u2609", 6.96e8, "(m)"},
      {4148, "UA", 149598000000.0, "(m)"},
      {4149, "\u03C9\u2295", 7.292e-5, "(s" NEG "\u00B9)"},
      {4150, "v\u2295", 465.0, "(m s" NEG "\u00B9)"},
      {4151, "ci", 2106.0, "(JK" NEG "\u00B9kg" NEG "\u00B9)"},
      {4152, "fc", 7.29e-5, "(s" NEG "\u00B9)"},
      {4153, "ge", 2.002319304386, ""},
  };
}

#undef NEG

}  // namespace

const QList<PhysicalConstant>& physicalConstants() {
  static const QList<PhysicalConstant> table = buildTable();
  return table;
}

QString visibleUnitText(const QString& text) {
  QString shown = text;
  shown.replace(QChar(0x00AD), QChar(0x207B));  // superscript minus
  return shown;
}
