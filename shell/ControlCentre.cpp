#include "shell/ControlCentre.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <exception>

#include "shell/ErrorReport.h"
#include "shell/runtime/Format.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/Services.h"
#include "shell/Settings.h"
#include "shell/Strings.h"

namespace {

const char* const kFontFiles[] = {"Bede.ttf", "LCDfont.ttf", "webdings.ttf"};

QString rightTrimmed(const QString& s) {
  qsizetype end = s.size();
  while (end > 0 && s.at(end - 1).isSpace()) --end;
  return s.left(end);
}

}  // namespace

// ---- Host defaults ------------------------------------------------------------

void ControlCentreHost::waitWithEvents(float seconds) { Delay(seconds); }
bool ControlCentreHost::readSettings() { return ReadSettings(); }
void ControlCentreHost::writeSettings() { WriteSettings(); }
void ControlCentreHost::restoreSettings(const QString& command) { RestoreSettings(command); }
QString ControlCentreHost::applicationPath() { return QCoreApplication::applicationDirPath(); }

// ---- Helpers ------------------------------------------------------------------

ControlCentre::ControlCentre(ControlCentreHost& host) : host_(host) {
  Combo1List = {QStringLiteral("restore")};
}

std::uint32_t ControlCentre::gradientColour(int step) {
  const auto c = static_cast<std::uint32_t>(step + 100);
  return c | (c << 8) | (c << 16);
}

QString ControlCentre::controlOf(CentreModule module) {
  switch (module) {
    case CentreModule::Calculator: return QStringLiteral("Command1");
    case CentreModule::FunctionTable: return QStringLiteral("Command13");
    case CentreModule::UnitConverter: return QStringLiteral("Command5");
    case CentreModule::PeriodicTable: return QStringLiteral("Command2");
    case CentreModule::Banking: return QStringLiteral("Command3");
    case CentreModule::Lottery: return QStringLiteral("Command4");
    case CentreModule::Chronometer: return QStringLiteral("Command6");
    case CentreModule::Calendar: return QStringLiteral("Command9");
    case CentreModule::Preferences: return QStringLiteral("Command10");
    case CentreModule::About: return QStringLiteral("Image4");
  }
  return {};
}

QString ControlCentre::appFolderFor(const QString& applicationPath) {
  if (applicationPath.endsWith(QLatin1Char('/'))) return applicationPath;
  return applicationPath + QLatin1Char('/');
}

int ControlCentre::helpTopic(int controlNumber) { return 10000 + controlNumber; }

// Each step of the start and shut-down orders: a failure is noted and the
// next step runs.
template <typename Step>
void ControlCentre::runStep(int number, Step&& step) {
  try {
    step();
  } catch (const rt::RuntimeError&) {
    failedSteps << number;
  } catch (const std::exception&) {
    failedSteps << number;
  }
}

// ---- Start order ----------------------------------------------------------------

void ControlCentre::loadBeforeShow() {
  ProgramState& p = program();
  runStep(1, [&] {
    p.DecimalSymbol = rt::Format(1.5, QStringLiteral("#.#")).contains(QLatin1Char(','))
                          ? QStringLiteral(",")
                          : QStringLiteral(".");
  });
  // Step 2, the background gradient and the About picture, is the view's paint.
  runStep(3, [&] {
    // The executable's folder is the installation while it can be written;
    // otherwise the user's data folder stands in for it.
    // (seeded with the installation's files on first use).
    p.AppFolder = appFolderFor(programDataFolder(host_.applicationPath()));
    p.SharedFolder = appFolderFor(sharedDataFolder(host_.applicationPath()));
  });
  runStep(4, [&] {
    // A damaged file shows its own message; the command row then offers "restore".
    if (!host_.readSettings()) commandRowVisible = true;
  });
  runStep(5, [&] { setLanguage(p.Language); });
  runStep(6, [&] {
    // The system folders of this platform. They are kept as the system spells
    // them: unlike the names of some other systems, these are case-sensitive.
    p.WindowsFolder = rightTrimmed(QStringLiteral("/etc"));
    p.SystemFolder = rightTrimmed(QStringLiteral("/usr/lib"));
    p.TempFolder = rightTrimmed(QDir::tempPath());
  });
  runStep(7, [&] { p.UserName = rt::Variant(SystemUserName(0)); });
  runStep(8, [&] {
    p.helpCursor = false;
    p.RegressionNames = {QStringLiteral("y = ax + b"), QStringLiteral("y = b (x^a)"), QStringLiteral("y = b (a^x)"),
                         QString()};
  });
}

void ControlCentre::loadAfterShow() {
  ProgramState& p = program();
  runStep(9, [&] {
    if (p.SoundOn == 1) platform().playSound(soundPath(QStringLiteral("manager.wav")), true);
  });
  runStep(10, [&] {
    p.SessionCounter += 1;
    if (p.SessionCounter > 99999) p.SessionCounter = 1;
  });
  runStep(11, [&] {
    if (p.OsFamily == 1 || p.OsFamily == 2) return;
    setMessageList({QStringLiteral("Windows 9x/ME/NT"), QStringLiteral("Windows 2000/XP/Vista")}, Res(24));
    MBoxShow(0, Res(22), 1, 3, 0, Res(23));
    // Cancel keeps the old value; nothing chosen gives 0, so the question
    // comes back at the next start.
    if (p.MessageResult != 1) p.OsFamily = p.MessageValue.toInteger();
  });
  runStep(12, [&] {
    if (p.SessionCounter == 1) MBoxShow(0, Res(25), 2, 0, 0, Res(26));
  });
  runStep(13, [&] {
    const QString fonts = sharedFile(QStringLiteral("fonts/"));
    p.fontPaths.clear();
    for (const char* name : kFontFiles) p.fontPaths << fonts + QLatin1String(name);
    for (const QString& path : std::as_const(p.fontPaths)) {
      runStep(13, [&] { platform().registerFont(path); });
    }
  });
  loaded = true;
}

void ControlCentre::Form_Load() {
  loadBeforeShow();
  loadAfterShow();
}

void ControlCentre::setLanguage(int language) {
  ProgramState& p = program();
  // An unknown value keeps the offset there is.
  if (language >= 1 && language <= 4) {
    p.Language = static_cast<std::int16_t>(language);
    p.LanguageOffset = (language - 1) * 10000;
  }
  p.MainMenuTitle = Res(27);
  loadTexts();
}

void ControlCentre::loadTexts() {
  Caption = Res(21) + QLatin1Char(' ');
  texts.clear();
  const struct {
    const char* control;
    int caption;
    int tooltip;
  } rows[] = {
      {"Command1", 2, 0},   {"Command13", 3, 0},  {"Command5", 4, 0}, {"Command2", 5, 0},
      {"Command3", 6, 0},   {"Command4", 7, 0},   {"Command6", 8, 0}, {"Command9", 9, 0},
      {"Command10", 10, 0}, {"Command7", 0, 11},  {"Command8", 12, 0}, {"Combo1", 17, 20},
      {"Command11", 13, 18}, {"Command12", 14, 19}, {"Image1", 0, 15}, {"Image4", 0, 16},
  };
  for (const auto& r : rows) {
    texts.insert(QLatin1String(r.control),
                 ControlText{r.caption ? Res(r.caption) : QString(), r.tooltip ? Res(r.tooltip) : QString()});
  }
  Combo1 = Res(17);
  // Buttons of modules this build does not have yet say so instead of pretending.
  for (CentreModule m : {CentreModule::Calculator, CentreModule::FunctionTable, CentreModule::UnitConverter,
                         CentreModule::PeriodicTable, CentreModule::Banking, CentreModule::Lottery,
                         CentreModule::Chronometer, CentreModule::Calendar, CentreModule::Preferences,
                         CentreModule::About}) {
    if (!host_.moduleAvailable(m)) texts[controlOf(m)].tooltip = Res(28);
  }
}

// ---- Activation ---------------------------------------------------------------------

void ControlCentre::Form_Activate() {
  if (!loaded) return;
  ProgramState& p = program();
  Image1.fill(0);
  // The counter's text has a leading blank; units go to the last picture.
  const QString text = rt::StrSingle(p.SessionCounter).trimmed();
  int position = static_cast<int>(Image1.size()) - 1;
  for (qsizetype i = text.size() - 1; i >= 0 && position >= 0; --i, --position) {
    const QChar c = text.at(i);
    if (c.isDigit()) Image1[static_cast<size_t>(position)] = c.digitValue();
  }
  if (p.SessionCounter == 99999) {
    ReportError(925, 5, 8, 0);
    p.SessionCounter = 0;
  }
}

void ControlCentre::Form_Deactivate() { commandRowVisible = false; }

bool ControlCentre::Form_KeyDown(int key, Qt::KeyboardModifiers modifiers) {
  if (modifiers != Qt::ShiftModifier) return false;
  if (key == Qt::Key_F10) {
    SystemAction(1, program().OsFamily);
    return true;
  }
  if (key == Qt::Key_F12) {
    commandRowVisible = !commandRowVisible;
    return true;
  }
  return false;
}

// ---- Shut-down order -----------------------------------------------------------------

void ControlCentre::Form_Unload() {
  ProgramState& p = program();
  runStep(101, [&] {
    for (const QString& path : std::as_const(p.fontPaths)) {
      runStep(101, [&] { platform().removeFont(path); });
    }
  });
  runStep(102, [&] {
    if (p.Language == 0) p.Language = 1;
    host_.writeSettings();
  });
  runStep(103, [&] { host_.unloadAllWindows(); });
  runStep(104, [&] { p.fontPaths.clear(); });
  runStep(105, [&] {
    if (p.SoundOn != 1) return;
    platform().playSound(soundPath(QStringLiteral("exit.wav")), true);
    // Long enough for the farewell sound to be heard to its end.
    host_.waitWithEvents(3.5F);
  });
  runStep(106, [&] { host_.endProcess(); });
}

// ---- Buttons ---------------------------------------------------------------------------

void ControlCentre::openModule(CentreModule module, int controlNumber) {
  if (helpInstead(helpTopic(controlNumber))) return;
  if (host_.moduleAvailable(module)) host_.openModule(module);
}

void ControlCentre::Command1_Click() { openModule(CentreModule::Calculator, 1); }
void ControlCentre::Command13_Click() { openModule(CentreModule::FunctionTable, 13); }
void ControlCentre::Command5_Click() { openModule(CentreModule::UnitConverter, 5); }
void ControlCentre::Command2_Click() { openModule(CentreModule::PeriodicTable, 2); }
void ControlCentre::Command3_Click() { openModule(CentreModule::Banking, 3); }
void ControlCentre::Command6_Click() { openModule(CentreModule::Chronometer, 6); }
void ControlCentre::Command9_Click() { openModule(CentreModule::Calendar, 9); }
void ControlCentre::Command10_Click() { openModule(CentreModule::Preferences, 10); }
void ControlCentre::Image4_Click() { openModule(CentreModule::About, 204); }

void ControlCentre::Command4_Click() {
  if (helpInstead(helpTopic(4))) return;
  if (!host_.moduleAvailable(CentreModule::Lottery)) return;
  // The lottery loads its draw table first; the pointer says so.
  host_.setBusyCursor(true);
  host_.openModule(CentreModule::Lottery);
  host_.setBusyCursor(false);
}

void ControlCentre::Command7_Click(Qt::MouseButton button) {
  if (button != Qt::LeftButton) {
    ContextHelp(helpTopic(7));
    return;
  }
  if (helpInstead(helpTopic(7))) return;
  platform().openUrl(program().WebAddress);
}

void ControlCentre::Command8_Click() {
  if (helpInstead(helpTopic(8))) return;
  platform().openFile(sharedFile(QStringLiteral("leeme.htm")));
}

void ControlCentre::Command11_Click() {
  if (helpInstead(helpTopic(11))) return;
  host_.restoreSettings(Combo1);
  commandRowVisible = false;
}

void ControlCentre::Command12_Click() { ContextHelp(helpTopic(12)); }
