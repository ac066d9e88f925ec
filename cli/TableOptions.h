#pragma once
// The function table's options of calvix-cli, shared by "table" and "plot":
//   --f "<F>" [--g "<G>"] --start A --end B (--points N | --step H)
//   [--vars "A=2:B=3"] [--angle deg|gra|rad] [--evl FILE]
// The boxes are filled as a user fills them: each character of the interval
// boxes goes through their key filter, each box is checked as the user
// leaves it (so --points 1001 becomes 200 with its message), then Evaluate.
// With --evl the file is opened first and the other options change what it set.
#include <QString>

struct CliContext;
class FunctionTable;

struct TableOptions {
  QString f, g, start, end, points, step, vars, angle, evl;
  bool hasF = false, hasG = false, hasStart = false, hasEnd = false, hasPoints = false, hasStep = false,
       hasVars = false, hasAngle = false, hasEvl = false;
};

// Takes the options out of ctx.args. 0 when they are usable, otherwise the
// exit code of the usage message already printed.
int takeTableOptions(CliContext& ctx, TableOptions& options);
// Loads the table, fills its boxes and evaluates. False when the file of
// --evl could not be opened.
bool evaluateTable(const TableOptions& options, FunctionTable& table);
// The constants text as the table's constants box takes it when typed (a
// comma becomes a point), for every command that reads constants.
QString typedConstants(const QString& vars);
