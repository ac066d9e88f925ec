#pragma once
// The function table's file (*.evl): the inputs of a calculation, never its
// results. Two lines in the sequential text form:
//
//   0
//   "0","5","200","0.0251256281407035",#TRUE#,"A=2:B=3","2.23*sin(A*x)*(cos(B*x))^2","x*cos(x^1.7)"
//
// line 1 the mode (0 function, 1 expression); line 2 the start, end, number
// of points and increment boxes, whether the table goes by number of points,
// the constants, F(x) and G(x).
#include <QByteArray>
#include <QString>
#include <cstdint>

struct EvlInputs {
  std::int16_t mode = 0;
  QString start, end, points, increment;
  bool byPoints = true;
  QString variables, f, g;
  bool operator==(const EvlInputs&) const = default;
};

// False when a text cannot be written so that it reads back the same: a
// double quote or a line break inside it (the form has no escapes), or a
// character the files' code page lacks.
bool evlWritable(const EvlInputs& inputs);
QByteArray writeEvl(const EvlInputs& inputs);
// False when the bytes are not a whole, well-formed file of this kind; out
// is then left as it was.
bool readEvl(const QByteArray& bytes, EvlInputs& out);
// The extension rule of the file dialogs: the name's last three letters,
// lower-cased, are "evl".
bool hasEvlExtension(const QString& fileName);
