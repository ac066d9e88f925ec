#pragma once
// The draw history and the analysis of a bet against it.
//
// DrawTable holds the rows of Tabla1 in grid order: cell 0 the row number,
// 1 the date "dd/mm/yyyy", 2-7 the six numbers, 8 the complementary, 9 the
// reintegro, 10 the serial (not read), 11 the type letter P, B or G.
// analyseBet() compares one bet with every row of the chosen type, tallies
// the prize categories and builds the report the information box shows.
#include <QList>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <functional>

struct DrawTable {
  QList<QStringList> rows;
  // Val of cells 2 to 8 of each row, read once so that an analysis compares
  // numbers instead of texts.
  QList<std::array<std::uint8_t, 7>> numbers;
  // Val of the reintegro (cell 9), -1 when the cell is empty.
  QList<std::int8_t> reintegros;
  // The type letter of cell 11 (P, B, G), 0 when missing.
  QList<char> types;
  void setRows(QList<QStringList> newRows);
  // Reads Tabla1 of the SQLite file; false (and no rows) when the file is
  // missing or is not a draw table.
  bool load(const QString& path);
};

struct AnalysisResult {
  QString report;  // informeLoto, CR LF line ends
  std::array<std::int16_t, 10> premios{};  // 0-6 hits, 7 = 5+C, 8 = 6+C, 9 = 4+C
  float sorteosBase = 0;
  int premiados = 0;
  bool stopped = false;
};

// The bet's numbers ascending (5 to 11 of them); tipoSorteo 0 P, 1 B, 2 G,
// 3 all. keepGoing is asked before each row with the row index; false stops
// the run and discards the report.
AnalysisResult analyseBet(const QList<int>& bet, int tipoSorteo, bool express, const DrawTable& draws,
                          const std::function<bool(int)>& keepGoing = {});

// The fixed prize table rows for a bet of n numbers (none for 6).
QStringList prizeTableRows(int n);

// Official draws from a CSV file, "dd/mm/yyyy,n1,...,n6,comp,reintegro,letter"
// a line. On a bad line: false, badLine its number (1-based), rows untouched.
bool parseDrawsCsv(const QByteArray& bytes, QList<QStringList>& rows, int& badLine);
// Writes the rows into Tabla1 of FILE (created when missing), replacing its
// rows unless append; returns the rows the file holds, or -1 on failure.
int storeDraws(const QString& path, const QList<QStringList>& rows, bool append);
