// calvix: the desktop program. The control centre is the first window and
// the last to go; it opens every module window through the window registry.
#include <QApplication>

#include "app/ScreenshotTour.h"
#include "bank/BankWindow.h"
#include "calc/CalculatorWindow.h"
#include "calc/ColourWindow.h"
#include "calc/NormalCalculatorWindow.h"
#include "calc/ResistorWindow.h"
#include "calendar/CalendarWindow.h"
#include "chrono/ChronometerWindow.h"
#include "convert/ConverterWindow.h"
#include "elements/PeriodicTableWindow.h"
#include "funcs/FunctionTableWindow.h"
#include "funcs/PlotWindow.h"
#include "geometry/GeometryWindow.h"
#include "lottery/LotteryWindow.h"
#include "shell/AboutWindow.h"
#include "shell/ControlCentreWindow.h"
#include "shell/DesktopPlatform.h"
#include "shell/ExtendedDisplayWindow.h"
#include "shell/HelpWindow.h"
#include "shell/MessageBoxWindow.h"
#include "shell/PreferencesWindow.h"
#include "shell/PrintDialog.h"
#include "shell/ProgramState.h"
#include "shell/QtTranslations.h"
#include "shell/WindowHelp.h"
#include "shell/WindowRegistry.h"
#include "stats/CsvToolWindow.h"
#include "stats/StatisticsChartWindow.h"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Calvix"));
  // The process starts with every setting at zero or empty; the control
  // centre's load reads them from the settings file.
  clearSettings(program());
  QtTranslations qtTexts;  // Qt's own dialogs in the program's language
  LinuxPlatform linuxPlatform;
  linuxPlatform.setBeeper(&QApplication::beep);
  setPlatform(&linuxPlatform);
  MBoxPresenter messageBox;
  setMessagePresenter(&messageBox);
  HelpWindowPresenter help;
  setHelpPresenter(&help);
  installHelpKey(app);
  PrinterPresenter printer;
  setPrintPresenter(&printer);
  registerWindowFactory(WindowId::Help, [] { return new HelpWindow; });
  registerWindowFactory(WindowId::ExtendedDisplay, [] { return new ExtendedDisplayWindow; });
  registerWindowFactory(WindowId::ControlCentre, [] { return new ControlCentreWindow; });
  registerWindowFactory(WindowId::ScientificCalculator, [] { return new CalculatorWindow; });
  registerWindowFactory(WindowId::NormalCalculator, [] { return new NormalCalculatorWindow; });
  registerWindowFactory(WindowId::About, [] { return new AboutWindow; });
  registerWindowFactory(WindowId::FunctionTable, [] { return new FunctionTableWindow; });
  registerWindowFactory(WindowId::Plot, [] { return new PlotWindow; });
  registerWindowFactory(WindowId::UnitConverter, [] { return new ConverterWindow; });
  registerWindowFactory(WindowId::Preferences, [] { return new PreferencesWindow; });
  registerWindowFactory(WindowId::PeriodicTable, [] { return new PeriodicTableWindow; });
  registerWindowFactory(WindowId::Banking, [] { return new BankWindow; });
  registerWindowFactory(WindowId::Geometry, [] { return new GeometryWindow; });
  registerWindowFactory(WindowId::Chronometer, [] { return new ChronometerWindow; });
  registerWindowFactory(WindowId::Calendar, [] { return new CalendarWindow; });
  registerWindowFactory(WindowId::Lottery, [] { return new LotteryWindow; });
  registerWindowFactory(WindowId::StatisticsChart, [] { return new StatisticsChartWindow; });
  registerWindowFactory(WindowId::CsvTool, [] { return new CsvToolWindow; });
  registerWindowFactory(WindowId::ColourViewer, [] { return new ColourWindow; });
  registerWindowFactory(WindowId::ResistorCode, [] { return new ResistorWindow; });
  OpenWindow(WindowId::ControlCentre);
  // Files given on the command line (a double click in a file manager).
  for (const QString& file : QApplication::arguments().mid(1)) openDocument(file);
  scheduleScreenshotTour();
  const int code = QApplication::exec();
  setPrintPresenter(nullptr);
  setHelpPresenter(nullptr);
  setMessagePresenter(nullptr);
  setPlatform(nullptr);
  return code;
}
