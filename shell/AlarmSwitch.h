#pragma once
// Switching the chronometer's alarm off from outside the chronometer (the
// Preferences window does it when the processor mark changes). The alarm
// kept in the program-wide AlarmRegistry (a closed chronometer) is disarmed
// here; an open chronometer listens to alarmSwitch() and disarms its own.
#include <QObject>

class AlarmSwitch : public QObject {
  Q_OBJECT

 Q_SIGNALS:
  void switchedOff();
};

AlarmSwitch& alarmSwitch();
void SwitchOffAlarm();
