#include "tests/support/GuiTestSupport.h"

#include "shell/ProgramState.h"

ScriptedPresenter& guiMessages() {
  static ScriptedPresenter presenter;
  return presenter;
}

void prepareGuiTest() {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  resetProgram(QLocale(QLocale::English, QLocale::UnitedStates));
  guiMessages().clear();
  setMessagePresenter(&guiMessages());
}
