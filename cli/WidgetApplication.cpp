#include "cli/WidgetApplication.h"

#include <QApplication>

std::unique_ptr<QCoreApplication> makeWidgetApplication(int& argc, char** argv) {
  return std::make_unique<QApplication>(argc, argv);
}
