#include "shell/AlarmSwitch.h"

#include "shell/ProgramState.h"

AlarmSwitch& alarmSwitch() {
  static AlarmSwitch instance;
  return instance;
}

void SwitchOffAlarm() {
  QVariantMap& r = program().AlarmRegistry;
  if (r.contains(QStringLiteral("Check1"))) {
    r.insert(QStringLiteral("Check1"), 0);
    // Still armed only when the power action is.
    const bool power = r.value(QStringLiteral("Check3")).toInt() != 0 && r.value(QStringLiteral("Alarmacalc"), -1).toInt() >= 0;
    r.insert(QStringLiteral("estado"), power ? 1 : 0);
  }
  Q_EMIT alarmSwitch().switchedOff();
}
