#include "tests/support/GuiTestSupport.h"

#include <QProcess>

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

QString pdfText(const QString& path) {
  QProcess p;
  p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
  if (!p.waitForFinished(30000) || p.exitCode() != 0) return {};
  return QString::fromUtf8(p.readAllStandardOutput());
}
