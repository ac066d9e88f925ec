// calvix: the desktop program. The control centre is the first window and
// the last to go; it opens every module window through the window registry.
#include <QApplication>
#include <QLabel>

#include "app/ScreenshotTour.h"
#include "shell/DesktopPlatform.h"
#include "shell/ExtendedDisplayWindow.h"
#include "shell/HelpWindow.h"
#include "shell/MessageBoxWindow.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "shell/WindowRegistry.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Calvix"));
  // The process starts with every setting at zero or empty; the control
  // centre's load reads them from the settings file of the program folder.
  clearSettings(program());
  program().AppFolder = resolveAppFolder(QCoreApplication::applicationDirPath());
  LinuxPlatform linuxPlatform;
  setPlatform(&linuxPlatform);
  MBoxPresenter messageBox;
  setMessagePresenter(&messageBox);
  HelpWindowPresenter help;
  setHelpPresenter(&help);
  registerWindowFactory(WindowId::Help, [] { return new HelpWindow; });
  registerWindowFactory(WindowId::ExtendedDisplay, [] { return new ExtendedDisplayWindow; });
  registerWindowFactory(WindowId::ControlCentre, [] {
    auto* placeholder = new QLabel(QStringLiteral("Calvix"));
    placeholder->setAttribute(Qt::WA_DeleteOnClose);
    placeholder->resize(480, 200);
    return placeholder;
  });
  OpenWindow(WindowId::ControlCentre);
  scheduleScreenshotTour();
  const int code = QApplication::exec();
  setHelpPresenter(nullptr);
  setMessagePresenter(nullptr);
  setPlatform(nullptr);
  return code;
}
