#pragma once
// Module windows are opened only through here, so that subsystems never
// include each other's windows. The program's main() registers a factory for
// each window it has; OpenWindow creates the window on first use (one
// instance each), restores it when minimised and shows it, not modally.
#include <QList>
#include <QWidget>
#include <functional>

enum class WindowId {
  ControlCentre,
  ScientificCalculator,  // comand1
  NormalCalculator,
  ExtendedDisplay,       // the calculators' large display
  FunctionTable,
  Plot,
  UnitConverter,
  PeriodicTable,
  Banking,
  Lottery,
  Chronometer,
  Calendar,
  Geometry,
  StatisticsChart,  // the statistics chart window
  CsvTool,          // the CSV conversion tool
  ColourViewer,     // the calculator's colour viewer
  ResistorCode,     // the calculator's resistor colour code
  Preferences,
  About,
  Help,
};

// Every id, in the order of the control centre's panel.
QList<WindowId> allWindowIds();
// A short file-name form of the id ("control-centre", "calculator", ...).
QString windowName(WindowId id);

using WindowFactory = std::function<QWidget*()>;

void registerWindowFactory(WindowId id, WindowFactory factory);
bool hasWindowFactory(WindowId id);
// Creates (first time) and shows the window; nullptr when no factory exists.
QWidget* OpenWindow(WindowId id);
// The window if it has been created and is still alive, else nullptr.
QWidget* findWindow(WindowId id);
// Every window created so far and still alive (the program's open windows).
QList<QWidget*> openWindows();
// A file given to the program (a double click in a file manager): opens the
// window of its kind by its extension (.age calendar, .ban banking, .evl
// function table, .lot lottery, .dat calculator, .cro chronometer) and hands
// it the file through the window's invokable openDocument(QString), as its
// own Open item would. False when no window takes that kind or it refused.
bool openDocument(const QString& path);
// Forgets every factory and window (tests).
void clearWindowRegistry();
