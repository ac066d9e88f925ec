#pragma once
// The settings file cvdata.txt in AppFolder: read once while the control
// centre loads, written once when it unloads. Its layout is a fixed sequence
// of records (key, value(s), a separator of one line feed) in the sequential
// text form; reading is purely positional: keys and separators are read and
// never compared, so a value's place alone gives its meaning.
#include <QString>
#include <QStringList>
#include <vector>

#include "shell/runtime/Variant.h"

class QLocale;
struct ProgramState;

// Fills the program-wide variables from the file. On a failure (a missing or
// damaged file) the values read so far stay, a message tells the user, and
// false comes back so the control centre can show its command row.
bool ReadSettings();
// Writes every variable back to the file, an "IDIOMA" of 0 first becoming 1.
// The file is replaced whole (written beside it, then renamed), so a failed
// write leaves the old file. False when it could not be written; nobody is
// told, as the program is ending.
bool WriteSettings();
// "restore" (exactly) puts every setting back to its default in memory,
// except the session counter, the language, the processor mark, the system
// family, chart colours 9 and 10 and the two calendar dates; any other command
// does nothing.
void RestoreSettings(const QString& command);

// ---- The same, on any file and state (calvix-cli, tests) ---------------------

struct SettingsValue {
  QString name;       // the record's key; "#n" marks the n-th value of a record
  rt::Variant value;  // as it stands in the state after reading
};
struct SettingsRead {
  int error = 0;                      // 0, or the run-time error that stopped the reading
  std::vector<SettingsValue> filled;  // every variable read, in file order
};
// Reads the file into the state, without any message. After a whole read the
// calendar dates lose their time part and a vanished events file is forgotten.
SettingsRead readSettingsFile(const QString& path, ProgramState& state);
// The same on the bytes of a file.
SettingsRead readSettingsBytes(const QByteArray& bytes, ProgramState& state);
// The file's bytes for a state.
QByteArray settingsBytes(const ProgramState& state);
// Replaces the file with the state's settings; error 0 or the run-time error.
int writeSettingsFile(const QString& path, const ProgramState& state);
// Every value of the layout, in file order, with its current value.
std::vector<SettingsValue> settingsValues(const ProgramState& state);
// What restore does, on a given state.
void restoreDefaults(ProgramState& state);

// ---- Where the program keeps its files ----------------------------------------

// The folder of the read-only data (tables, sounds, fonts, the first
// settings): share/calvix beside the bin/ of an installed program, else the
// program folder itself (the build tree, a portable copy).
QString sharedDataFolder(const QString& programFolder);
// The folder the program keeps its files in (cvdata.txt, datos/, the draws
// the user updates). A portable copy keeps them in its own folder while it
// can write there. An installed program, or a folder it cannot write, uses
// the per-user data folder, seeded on first use with the shared copy of the
// per-user files.
QString programDataFolder(const QString& programFolder);
// The language a user with no settings file starts in: 1 Spanish, 2 English,
// 3 French, 4 Catalan, by the system's language (English for any other).
int languageOfLocale(const QLocale& locale);
// The files each user gets a copy of, so that they can change them.
QStringList perUserFiles();
// Copies every file of from (recursively) that to lacks, leaving existing
// files alone; executables are not copied. With names, only those files
// (paths relative to from). False when a copy failed.
bool seedFolder(const QString& from, const QString& to, const QStringList& names = {});
// A read-only data file by its path under the shared folder ("cvxtp.dlj",
// "mmedia/hey.wav"): program().SharedFolder, or AppFolder where none is set.
QString sharedFile(const QString& relativePath);
