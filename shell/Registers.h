#pragma once
// The four intermodular registers R1 to R4: a value and a label each, shared
// by every module (the calculators recall them; the converter, banking,
// geometry and the colour tool fill them). They live in the program state
// (Registers, RegisterLabels) and persist through the settings file.
//
// A module that holds a result writes the value and its label together with
// WriteRegister; windows that show the registers listen to registerNotifier()
// to repaint when any module writes one. Indexes are 0 to 3; any other is
// error 9, as an array subscript out of range.
#include <QObject>
#include <QString>

inline constexpr int kRegisterCount = 4;

// Writes register index: its value and what it was filled with.
void WriteRegister(int index, double value, const QString& label);
// The register's value; 0 for a register never written.
double RegisterValue(int index);
// The register's label; empty for a register never written.
QString RegisterLabel(int index);

// Tells listeners that a register was written.
class RegisterNotifier : public QObject {
  Q_OBJECT
 Q_SIGNALS:
  void registerChanged(int index);

 private:
  friend RegisterNotifier& registerNotifier();
  RegisterNotifier() = default;
};
RegisterNotifier& registerNotifier();
