#pragma once
// The settings file cvdata.txt in AppFolder: read once while the control
// centre loads, written once when it unloads.
#include <QString>

// Fills the program-wide variables from the file. On a failure (a missing or
// damaged file) the values read so far stay, a message tells the user, and
// false comes back so the control centre can show its command row.
bool ReadSettings();
// Writes every variable back to the file.
void WriteSettings();
// "restore" (exactly) puts every setting back to its default in memory;
// any other command does nothing.
void RestoreSettings(const QString& command);
