#pragma once
// The statistics files. A *.dat file is sequential text:
//
//   3,2
//   1.5
//   2
//   -0.25
//   10
//   20
//
// line 1 the counts nx and ny, then nx values of X and ny values of Y, one a
// line, point as decimal mark. Values keep every digit: a number the
// runtime's 15 digits give back exactly is written as they are, any other
// with the shortest text that reads back the same.
//
// The CSV export writes the pairs a row each, separated by ";" on a system
// whose decimal mark is "," and by "," otherwise.
#include <QByteArray>
#include <QString>
#include <vector>

struct StatisticsStore;

struct DatContents {
  std::vector<double> x, y;
};

enum class DatRead { Ok, Damaged, TooMany };

// Reads a whole file; out is touched only when the answer is Ok. TooMany: a
// count above the store's 6000.
DatRead readDat(const QByteArray& bytes, DatContents& out);
QByteArray writeDat(const StatisticsStore& store);
// A value as the file holds it.
QString datNumber(double v);
// The CSV text: numbers as the system writes them, the separator by the
// decimal mark, rows to the longer list, CR LF.
QByteArray csvExport(const StatisticsStore& store, const QString& decimalSymbol);
// The extension rule of the dialogs: the name ends in ext, any case.
bool hasExtension(const QString& fileName, const QString& ext);
