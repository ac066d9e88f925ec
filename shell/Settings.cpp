// Minimal stand-in for the settings file: nothing is read or written yet.
#include "shell/Settings.h"

#include "shell/ProgramState.h"

bool ReadSettings() { return true; }

void WriteSettings() {}

void RestoreSettings(const QString& command) {
  if (command != QLatin1String("restore")) return;
  ProgramState& p = program();
  const ProgramState kept = p;
  resetProgram(p.systemLocale);
  // What restore leaves alone.
  p.SessionCounter = kept.SessionCounter;
  p.Language = kept.Language;
  p.LanguageOffset = kept.LanguageOffset;
  p.SlowComputer = kept.SlowComputer;
  p.OsFamily = kept.OsFamily;
  p.DecimalSymbol = kept.DecimalSymbol;
  p.AppFolder = kept.AppFolder;
}
