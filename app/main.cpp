// calvix: the desktop program. The control centre is the first window and
// the last to go; it opens every module window through the window registry.
#include <QApplication>
#include <QLabel>

#include "app/ScreenshotTour.h"
#include "shell/WindowRegistry.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Calvix"));
  registerWindowFactory(WindowId::ControlCentre, [] {
    auto* placeholder = new QLabel(QStringLiteral("Calvix"));
    placeholder->setAttribute(Qt::WA_DeleteOnClose);
    placeholder->resize(480, 200);
    return placeholder;
  });
  OpenWindow(WindowId::ControlCentre);
  scheduleScreenshotTour();
  return QApplication::exec();
}
