#pragma once
// The application object for the subcommands that draw with widgets (the
// statistics charts): a QApplication, kept apart so that the tool's main
// stays free of widget headers.
#include <QCoreApplication>
#include <memory>

std::unique_ptr<QCoreApplication> makeWidgetApplication(int& argc, char** argv);
