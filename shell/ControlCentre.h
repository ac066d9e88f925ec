#pragma once
// The control centre's model: the first window of the program and the last
// to go.
//
// How the pieces fit:
//  - Start: thirteen steps in a fixed order (decimal symbol, background,
//    AppFolder, settings, language and texts, folders, user name, shared
//    flags, welcome sound, run counter, operating-system question,
//    installation notice, fonts). Each runs with its failure ignored, so a
//    missing font or sound or a damaged settings file never stops the start.
//    The view runs steps 1-8 before its first paint and 9-13 right after it,
//    so that slow work (sounds, fonts, questions) never delays the window.
//  - Activation draws the five counter digits and says goodbye to the
//    counter once it reaches 99999.
//  - Shut-down: fonts removed, settings written, every window unloaded, the
//    farewell sound waited for, the process ended; again step by step.
//  - What the model cannot do itself (open a module window, close them all,
//    wait with events running, end the process) it asks of a host, which the
//    view implements and tests replace. The host also wraps the settings
//    store, so a test can make reading it fail.
#include <QHash>
#include <QString>
#include <QStringList>
#include <QtCore/qnamespace.h>
#include <array>
#include <cstdint>

enum class CentreModule {
  Calculator,     // Command1
  FunctionTable,  // Command13
  UnitConverter,  // Command5
  PeriodicTable,  // Command2
  Banking,        // Command3
  Lottery,        // Command4
  Chronometer,    // Command6
  Calendar,       // Command9
  Preferences,    // Command10
  About,          // Image4
};

class ControlCentreHost {
 public:
  virtual ~ControlCentreHost() = default;
  virtual bool moduleAvailable(CentreModule) { return false; }
  virtual void openModule(CentreModule) {}
  virtual void setBusyCursor(bool) {}
  // Unloads every open window of the program, the control centre included.
  virtual void unloadAllWindows() {}
  // Waits with window events running (the shared Delay by default).
  virtual void waitWithEvents(float seconds);
  virtual void endProcess() {}
  // The settings store (ReadSettings, WriteSettings, RestoreSettings).
  virtual bool readSettings();
  virtual void writeSettings();
  virtual void restoreSettings(const QString& command);
  // The folder of the executable, as the system gives it.
  virtual QString applicationPath();
};

struct ControlText {
  QString caption;
  QString tooltip;
};

class ControlCentre {
 public:
  explicit ControlCentre(ControlCentreHost& host);

  // ---- Window events -------------------------------------------------------
  void loadBeforeShow();  // start steps 1 to 8
  void loadAfterShow();   // start steps 9 to 13
  void Form_Load();       // the whole start order
  void Form_Activate();
  void Form_Deactivate();
  void Form_Unload();
  // Shift+F10 and Shift+F12; true when the key was taken.
  bool Form_KeyDown(int key, Qt::KeyboardModifiers modifiers);

  // A new language, 1 to 4 (Spanish, English, French, Catalan): the string
  // offset follows it and the centre's texts are loaded again.
  void setLanguage(int language);

  // ---- Controls --------------------------------------------------------------
  void Command1_Click();   // calculator, through OpenCalculator
  void Command13_Click();  // function table
  void Command5_Click();   // unit converter
  void Command2_Click();   // periodic table
  void Command3_Click();   // banking
  void Command4_Click();   // lottery, with the hourglass pointer
  void Command6_Click();   // chronometer
  void Command9_Click();   // calendar
  void Command10_Click();  // preferences
  void Command7_Click(Qt::MouseButton button);  // web page; other buttons: help
  void Command8_Click();   // read-me page
  void Command11_Click();  // runs the command line
  void Command12_Click();  // help on the command line
  void Image4_Click();     // about

  // ---- State the window shows ------------------------------------------------
  QString Caption;                      // the window title
  QHash<QString, ControlText> texts;    // captions and tooltips by control name
  std::array<int, 5> Image1{};          // counter digits, left to right
  bool commandRowVisible = false;       // Combo1, Command11, Command12
  QString Combo1;                       // text of the command line
  QStringList Combo1List;               // its list entries
  bool loaded = false;                  // the whole start order has run
  QList<int> failedSteps;               // start and shut-down steps that failed (for tests)

  // The 129 bands of the background, top to bottom, red in the low byte.
  static std::uint32_t gradientColour(int step);
  static constexpr int kGradientSteps = 129;
  // Control name of a module's button ("Command1"... "Image4").
  static QString controlOf(CentreModule module);
  // The program folder for an application path: the path and a "/", or the
  // bare path when it already ends in one (the root folder).
  static QString appFolderFor(const QString& applicationPath);
  // Help topic of a control of this window.
  static int helpTopic(int controlNumber);
  // Captions and tooltips from the string table, in the current language.
  void loadTexts();

 private:
  template <typename Step>
  void runStep(int number, Step&& step);
  void openModule(CentreModule module, int controlNumber);

  ControlCentreHost& host_;
};
