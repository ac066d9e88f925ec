#include "shell/Preferences.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <unistd.h>

#include "shell/AlarmSwitch.h"
#include "shell/ErrorReport.h"
#include "shell/LanguageService.h"
#include "shell/MessageService.h"
#include "shell/Platform.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/RuntimeError.h"

namespace {

constexpr int kPreferencesTopic = 10210;  // 10211.. the controls
const QString kAlarmPattern = QStringLiteral("alarma%1.wav");

QString folderOf(const char* sub) { return program().AppFolder.toText() + QLatin1String(sub); }

QString decimalSymbol() {
  const QString d = program().DecimalSymbol.toText();
  return d.isEmpty() ? QStringLiteral(".") : d.left(1);
}

}  // namespace

// ---- Helpers -----------------------------------------------------------------------------

QString Preferences::text(int id) const { return LoadResString(offset + id); }

QString Preferences::timeText(const QString& text) {
  static const QRegularExpression re(QStringLiteral("^\\s*(\\d{1,2}):(\\d{1,2})(?::(\\d{1,2}))?\\s*$"));
  const auto m = re.match(text);
  if (!m.hasMatch()) return {};
  const int h = m.captured(1).toInt();
  const int n = m.captured(2).toInt();
  const int s = m.captured(3).isEmpty() ? 0 : m.captured(3).toInt();
  if (h > 23 || n > 59 || s > 59) return {};
  return QStringLiteral("%1:%2:%3").arg(h, 2, 10, QLatin1Char('0')).arg(n, 2, 10, QLatin1Char('0')).arg(s, 2, 10,
                                                                                                     QLatin1Char('0'));
}

int Preferences::optionOfAlarm(const QString& file) {
  for (int i = 0; i < 5; ++i) {
    if (file.compare(kAlarmPattern.arg(i + 1), Qt::CaseInsensitive) == 0) return i;
  }
  return 5;
}

QStringList Preferences::List1Items() const {
  return {text(143), QStringLiteral("2 seg."), QStringLiteral("5 seg."), QStringLiteral("10 seg."),
          QStringLiteral("15 seg.")};
}
QStringList Preferences::List2Items() const { return {text(144), text(145), text(146)}; }
QStringList Preferences::List3Items() const { return {text(147), text(148)}; }
QStringList Preferences::List4Items() const { return {QStringLiteral("9x/ME/NT"), QStringLiteral("2000/XP/Vista")}; }
QStringList Preferences::List5Items() const { return {text(160), text(161), text(162), text(163)}; }

QString Preferences::flag() const {
  static const char* const flags[] = {"es", "en", "fr", "ca"};
  const int i = offset / 10000;
  return QLatin1String(flags[i >= 0 && i < 4 ? i : 0]);
}

bool Preferences::isEnabled(const QString& control) const {
  if (control == QLatin1String("Check5")) return Check1 != 0;
  if (control == QLatin1String("Check6")) return !Label2.isEmpty();
  return true;
}

QStringList Preferences::disabledControls() const {
  QStringList names;
  for (const char* c : {"Check1", "Check2", "Check4", "Check5", "Check6", "Check7"}) {
    if (!isEnabled(QLatin1String(c))) names << QLatin1String(c);
  }
  return names;
}

void Preferences::report(int code, int sound) {
  ++failures;
  ReportError(code, sound, 3, 0);
}

void Preferences::closeWindow() {
  Form_Unload();
  if (hooks.close) hooks.close();
}

// ---- Load and unload ------------------------------------------------------------------------

void Preferences::loadCaptions() { Caption = text(157); }

void Preferences::Form_Load() {
  ProgramState& p = program();
  offset = p.LanguageOffset;
  offsetAtLoad_ = offset;
  p.MainMenuTitle = Res(10);
  loadCaptions();

  Text1 = p.Currency1.toText();
  Text2 = p.Currency2.toText();
  currencyChanged();
  valor = p.ExchangeRate.toText();
  equationMethod_ = p.EquationMethod;
  List1 = p.AutoCloseMessages.isNumeric() ? static_cast<int>(p.AutoCloseMessages.toDouble()) : -1;
  if (List1 < 0 || List1 > 4) List1 = -1;
  calculatorMode_ = p.CalculatorMode.toText();
  List3 = calculatorMode_ == QLatin1String("normalita") ? 0 : calculatorMode_ == QLatin1String("avanzada") ? 1 : -1;
  Check1 = p.SoundOn == 1 ? 1 : 0;
  alarmFile = p.AlarmSoundFile;
  Option1 = optionOfAlarm(alarmFile);
  userAlarmName = Option1 == 5 && !alarmFile.isEmpty() ? QFileInfo(alarmFile).fileName() : kAlarmPattern.arg(6);
  Check3 = p.DefaultAlarm >= 0 && p.DefaultAlarm <= 4 ? p.DefaultAlarm : -1;
  List2 = p.AlarmDuration >= 0 && p.AlarmDuration <= 2 ? p.AlarmDuration : -1;
  Check2 = p.SlowComputer != 0 ? 1 : 0;
  Text3 = rt::NumberToTextSingle(p.SessionCounter);
  List4 = p.OsFamily == 1 ? 0 : p.OsFamily == 2 ? 1 : -1;
  Label21 = WindowsName();
  Text5 = p.WebAddress;
  Check4 = p.ColourMenu == 1 ? 1 : 0;
  Check5 = p.PreferencesSound ? 1 : 0;
  Label2 = p.EventsFile;
  Check6 = p.LoadEventsFile == 1 ? 1 : 0;
  Check7 = p.ExtendedDisplay ? 1 : 0;
  for (int i = 1; i <= 4; ++i) Text4[static_cast<size_t>(i)] = p.AlarmTimes[static_cast<size_t>(i - 1)];
  List5 = offset / 10000;
  Text6.clear();
  commandBoxVisible = false;
  loaded = true;

  // The greeting: the alarm sound, once.
  if (p.PreferencesSound && p.SoundOn == 1 && !alarmFile.isEmpty()) platform().playSound(soundPath(alarmFile), true);
}

void Preferences::Form_Unload() {
  loaded = false;
  commandBoxVisible = false;
}

// ---- Buttons -------------------------------------------------------------------------------

void Preferences::Command1_Click() {
  if (helpInstead(kPreferencesTopic + 1)) return;
  Text1 = QStringLiteral("euro");
  Text2 = QStringLiteral("pts");
  currencyChanged();
  valor = rt::NumberToText(166.386);
  setLanguageShown(0);
  List1 = 0;
  List3 = 1;
  Text5 = defaultWebAddress();
  alarmFile = kAlarmPattern.arg(1);
  Option1 = 0;
  Check1 = 1;
  Check3 = 4;
  Check4 = 0;
  Check5 = 1;
  Check6 = 0;
  Check7 = 0;
  Text3 = rt::NumberToTextSingle(program().SessionCounter);
}

void Preferences::Command2_Click() {
  if (helpInstead(kPreferencesTopic + 2)) return;
  ProgramState& p = program();
  p.Currency1 = rt::Variant::text(Text1);
  p.Currency2 = rt::Variant::text(Text2);
  double rate = 0;
  p.ExchangeRate = rt::tryTextToDouble(valor, rate) ? rt::Variant::dbl(rate) : rt::Variant::text(valor);
  p.EquationMethod = equationMethod_;
  if (List1 >= 0) p.AutoCloseMessages = rt::Variant::integer(static_cast<std::int16_t>(List1));
  if (List3 >= 0) p.CalculatorMode = rt::Variant::text(List3 == 0 ? QStringLiteral("normalita") : QStringLiteral("avanzada"));
  p.SoundOn = static_cast<std::int16_t>(Check1);
  p.AlarmSoundFile = alarmFile;
  if (Check3 >= 0) p.DefaultAlarm = static_cast<std::int16_t>(Check3);
  for (int i = 1; i <= 4; ++i) p.AlarmTimes[static_cast<size_t>(i - 1)] = Text4[static_cast<size_t>(i)];
  if (List2 >= 0) p.AlarmDuration = static_cast<std::int16_t>(List2);
  if ((p.SlowComputer != 0) != (Check2 != 0)) {
    p.SlowComputer = static_cast<std::int16_t>(Check2);
    SwitchOffAlarm();  // the alarm's timing depends on the processor mark
    p.MessageSound = 5;
    MBoxShow(0, text(152) + QLatin1Char('\n') + text(153) + QLatin1Char('\n') + text(154) + QLatin1Char('\n') + text(155), 2,
             0, 0, text(151));
  }
  p.SessionCounter = static_cast<float>(rt::Val(Text3));
  if (List4 >= 0) p.OsFamily = static_cast<std::int16_t>(List4 + 1);
  p.WebAddress = Text5;
  p.ColourMenu = static_cast<std::int16_t>(Check4);
  p.PreferencesSound = Check5 != 0;
  p.EventsFile = Label2;
  p.LoadEventsFile = static_cast<std::int16_t>(Check6);
  p.ExtendedDisplay = Check7 != 0;
  // Last, the language: every open window reloads its captions.
  SetProgramLanguage(offset / 10000 + 1);
  closeWindow();
}

void Preferences::Command3_Click() {
  if (helpInstead(kPreferencesTopic + 3)) return;
  closeWindow();
}

void Preferences::Command4_Click() {
  if (helpInstead(kPreferencesTopic + 4)) return;
  chooseUserAlarm();
}

void Preferences::Command5_Click() {
  if (helpInstead(kPreferencesTopic + 5)) return;
  if (!hooks.fileDialog) return;
  const QString file = hooks.fileDialog({text(175), text(174), folderOf("datos")});
  if (file.isEmpty()) return;
  if (QFileInfo(file).suffix().compare(QLatin1String("age"), Qt::CaseInsensitive) != 0) {
    program().SectionTitle = text(159);
    report(901, 1);
    return;
  }
  Label2 = QDir::fromNativeSeparators(file);
}

// ---- Check boxes and options -------------------------------------------------------------------

void Preferences::Check1_Click() {
  if (helpInstead(kPreferencesTopic + 6)) return;
  Check1 = Check1 ? 0 : 1;
}
void Preferences::Check2_Click() {
  if (helpInstead(kPreferencesTopic + 7)) return;
  Check2 = Check2 ? 0 : 1;
}
void Preferences::Check4_Click() {
  if (helpInstead(kPreferencesTopic + 8)) return;
  Check4 = Check4 ? 0 : 1;
}
void Preferences::Check5_Click() {
  if (helpInstead(kPreferencesTopic + 9)) return;
  if (isEnabled(QStringLiteral("Check5"))) Check5 = Check5 ? 0 : 1;
}
void Preferences::Check6_Click() {
  if (helpInstead(kPreferencesTopic + 10)) return;
  if (isEnabled(QStringLiteral("Check6"))) Check6 = Check6 ? 0 : 1;
}
void Preferences::Check7_Click() {
  if (helpInstead(kPreferencesTopic + 11)) return;
  Check7 = Check7 ? 0 : 1;
}

void Preferences::Check3_Click(int index) {
  if (helpInstead(kPreferencesTopic + 12)) return;
  if (index >= 0 && index <= 4) Check3 = index;
}

void Preferences::playAlarm(const QString& file) {
  if (Check1 == 0) return;
  if (!platform().playSound(soundPath(file), true)) {
    program().SectionTitle = text(169);
    report(903, 1);
  }
}

bool Preferences::chooseUserAlarm() {
  if (!hooks.fileDialog) return false;
  const QString file = hooks.fileDialog({text(171), text(173), folderOf("mmedia")});
  if (file.isEmpty()) return false;
  const QFileInfo info(file);
  if (!info.isFile()) {
    program().SectionTitle = text(169);
    report(903, 1);
    return false;
  }
  // A sound of the program's own folder is kept by its name, like the others.
  const QString mmedia = QDir::cleanPath(folderOf("mmedia"));
  alarmFile = QDir::cleanPath(info.absolutePath()) == mmedia ? info.fileName() : QDir::fromNativeSeparators(info.absoluteFilePath());
  Option1 = 5;
  userAlarmName = info.fileName();
  playAlarm(alarmFile);
  return true;
}

void Preferences::Option1_Click(int index) {
  if (helpInstead(kPreferencesTopic + 13)) return;
  if (index < 0 || index > 5) return;
  if (index == 5) {
    chooseUserAlarm();
    return;
  }
  Option1 = index;
  alarmFile = kAlarmPattern.arg(index + 1);
  playAlarm(alarmFile);
}

void Preferences::Text4_Click(int index) {
  if (helpInstead(kPreferencesTopic + 14)) return;
  if (index < 1 || index > 4) return;
  ProgramState& p = program();
  QString& box = Text4[static_cast<size_t>(index)];
  p.MessageDefault = rt::Variant::text(box);
  MBoxShow(0, text(149) + QStringLiteral(" (hh:mm:ss)"), 5, 3, 0, text(150));
  if (p.MessageResult != 0) return;
  const QString t = timeText(p.MessageValue.toText());
  if (t.isEmpty()) {
    // Not a time: the old value stays.
    p.SectionTitle = text(150);
    report(702, 1);
    return;
  }
  box = t;
}

// ---- Lists ---------------------------------------------------------------------------------------

void Preferences::List1_Click(int index) {
  if (helpInstead(kPreferencesTopic + 15)) return;
  if (index >= 0 && index <= 4) List1 = index;
}
void Preferences::List2_Click(int index) {
  if (helpInstead(kPreferencesTopic + 16)) return;
  if (index >= 0 && index <= 2) List2 = index;
}
void Preferences::List3_Click(int index) {
  if (helpInstead(kPreferencesTopic + 17)) return;
  if (index >= 0 && index <= 1) List3 = index;
}
void Preferences::List4_Click(int index) {
  if (helpInstead(kPreferencesTopic + 18)) return;
  if (index < 0 || index > 1 || index == List4) return;
  List4 = index;
  MBoxShow(0, text(156), 2, 0, 0, text(157));
}
void Preferences::List5_Click(int index) {
  if (helpInstead(kPreferencesTopic + 19)) return;
  if (index >= 0 && index <= 3) setLanguageShown(index);
}

void Preferences::setLanguageShown(int index) {
  List5 = index;
  offset = index * 10000;
  loadCaptions();
}

// ---- Text boxes -----------------------------------------------------------------------------------

QString& Preferences::boxText(Box box) {
  switch (box) {
    case Box::valor: return valor;
    case Box::Text1: return Text1;
    case Box::Text2: return Text2;
    case Box::Text3: return Text3;
    case Box::Text5: return Text5;
    case Box::Text6: return Text6;
  }
  return valor;
}

int Preferences::maxLength(Box box) {
  if (box == Box::Text1 || box == Box::Text2) return kCurrencyLength;
  if (box == Box::Text3) return kCounterLength;
  return 0;
}

int Preferences::filterKey(Box box, int key) const {
  if (box == Box::valor) return FilterKey(key, QStringLiteral("T+"));
  if (box == Box::Text3) return FilterKey(key, QStringLiteral("N"));
  return key;
}

int Preferences::keyPress(Box box, int key) {
  key = filterKey(box, key);
  if (key == 0 || key == kKeyEnter) return key;
  QString& t = boxText(box);
  if (key == kKeyBackspace) {
    t.chop(1);
  } else {
    const int limit = maxLength(box);
    if (limit > 0 && t.size() >= limit) return 0;
    t.append(QChar(key));
  }
  textChanged(box);
  return key;
}

void Preferences::textChanged(Box box) {
  if (box == Box::Text1 || box == Box::Text2) currencyChanged();
}

void Preferences::lostFocus(Box box) {
  if (box != Box::valor) return;
  // Every separator becomes the system's; a second one is dropped.
  const QString sep = decimalSymbol();
  QString out;
  bool seen = false;
  for (const QChar c : std::as_const(valor)) {
    if (c == QLatin1Char(',') || c == QLatin1Char('.')) {
      if (seen) continue;
      seen = true;
      out += sep;
    } else {
      out += c;
    }
  }
  valor = out;
}

void Preferences::typeInto(Box box, const QString& typed) {
  boxText(box).clear();
  if (box == Box::Text1 || box == Box::Text2) currencyChanged();
  for (const QChar c : typed) keyPress(box, c.unicode());
  lostFocus(box);
}

void Preferences::currencyChanged() {
  Label4 = QStringLiteral("1 ") + Text1 + QStringLiteral(" =");
  Label5 = Text2;
}

// ---- The command box --------------------------------------------------------------------------------

void Preferences::Label1_MouseDown(int index, int shift) {
  if (index != 5 || !(shift & 2)) return;
  MBoxShow(0, text(37), 6, 3, 0, QStringLiteral("Calvix Premium  -  ") + text(36));
  if (program().MessageResult != 0) return;
  commandBoxVisible = true;
  Text6.clear();
  if (hooks.focusCommandBox) hooks.focusCommandBox();
}

void Preferences::Text6_Enter() {
  const QString word = Text6.toLower();
  Text6.clear();
  commandBoxVisible = false;
  runCommand(word);
}

QString Preferences::systemInformation() const {
  const ProgramState& p = program();
  const QString folder = p.AppFolder.toText();
  // The program file itself (none when no application object runs).
  const QString file = QCoreApplication::instance() ? QCoreApplication::applicationFilePath() : QString();
  auto date = [](const QString& path, int selector) {
    try {
      return FileDate(path, selector).toText();
    } catch (const rt::RuntimeError&) {
      return QString();
    }
  };
  QString days;
  try {
    days = rt::NumberToText(rt::DateDiff(QStringLiteral("d"), FileDate(folder, 0).toDouble(), rt::Now()));
  } catch (const rt::RuntimeError&) {
  }
  const int language = p.LanguageOffset / 10000;
  const QStringList lines{
      QStringLiteral("S.O. del Sistema: ") + WindowsName(),
      QStringLiteral("windir: ") + p.WindowsFolder,
      QStringLiteral("sysdir: ") + p.SystemFolder,
      QStringLiteral("temp dir: ") + p.TempFolder,
      QStringLiteral("Idioma: ") + LoadResString(p.LanguageOffset + 160 + (language >= 0 && language < 4 ? language : 0)),
      QStringLiteral("Símbolo Decimal: ") + p.DecimalSymbol.toText(),
      QStringLiteral("Install Dir: ") + folder,
      QStringLiteral("creado el: ") + date(folder, 0),
      QStringLiteral("Días Transcurridos: ") + days,
      QStringLiteral("Última Modificación: ") + date(file, 1),
      QStringLiteral("Último Acceso: ") + date(file, 2),
      QStringLiteral("Contador del Programa: ") + rt::NumberToTextSingle(p.SessionCounter),
      QStringLiteral("Nombre Máquina: ") + SystemUserName(1),
      QStringLiteral("Nombre User: ") + SystemUserName(0),
      QStringLiteral("Tipo User: ") + (geteuid() == 0 ? QStringLiteral("root") : QStringLiteral("user")),
      QStringLiteral("Producto: ") + QStringLiteral("Calvix Premium") + QStringLiteral(" ver ") +
          QCoreApplication::applicationVersion(),
  };
  return lines.join(QLatin1Char('\n'));
}

void Preferences::runCommand(const QString& word) {
  ProgramState& p = program();
  const QString title = QStringLiteral("Info CALVIX");
  if (word == QLatin1String("cvxinfo")) {
    p.MessageSound = 4;
    const QStringList words{QStringLiteral("cvxinfo"), QStringLiteral("cvxinfouser"), QStringLiteral("cvxinfousers"),
                            Res(4409), Res(4410), Res(4412)};
    MBoxShow(0, words.join(QLatin1Char('\n')), 2, 0, 0, title);
  } else if (word == QLatin1String("cvxinfouser")) {
    const QString info = systemInformation();
    MBoxShow(0, info, 2, 4, 0, title);
    if (p.MessageResult == 1) printDocument(messageDocument(info, title));
  } else if (word == QLatin1String("cvxinfousers")) {
    if (p.OsFamily == 2) platform().runCommand(QStringLiteral("control"), {QStringLiteral("userpasswords2")});
  } else if (word == Res(4409).toLower()) {
    SystemAction(1, p.OsFamily);
  } else if (word == Res(4410).toLower()) {
    SystemAction(0, p.OsFamily);
  } else if (word == Res(4412).toLower()) {
    if (p.OsFamily == 2) platform().runCommand(QStringLiteral("shutdown.exe"), {QStringLiteral("-i")});
  }
}
