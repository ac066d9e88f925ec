// calvix: the desktop program. The control centre is the first window and
// the last to go; it opens every module window through the window registry.
#include <QApplication>

#include "app/ScreenshotTour.h"
#include "calc/CalculatorWindow.h"
#include "shell/ControlCentreWindow.h"
#include "shell/WindowRegistry.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Calvix"));
  registerWindowFactory(WindowId::ControlCentre, [] { return new ControlCentreWindow; });
  registerWindowFactory(WindowId::ScientificCalculator, [] { return new CalculatorWindow; });
  OpenWindow(WindowId::ControlCentre);
  scheduleScreenshotTour();
  return QApplication::exec();
}
