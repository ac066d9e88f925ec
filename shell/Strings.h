#pragma once
// The string table: every text a user sees, by number, in four languages.
// Ids 0..9999 are Spanish; the same id + 10000, + 20000, + 30000 holds the
// English, French and Catalan text. The table is the files shell/strings/*.tsv
// (one per area of the program), compiled into the program.
#include <QString>

// The text of string number id (language block included). An id with no row
// gives an empty text.
QString LoadResString(int id);

// LoadResString(LanguageOffset + id): the usual way to fetch a text.
QString Res(int id);

namespace strings {
// True when the table has a row for id (0..9999) in all four languages.
bool hasAllLanguages(int id);
// Number of rows in the table.
int rowCount();
}  // namespace strings
