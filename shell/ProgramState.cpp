#include "shell/ProgramState.h"
#include "shell/runtime/SystemLocale.h"

#include "shell/runtime/NumberText.h"
#include "shell/Strings.h"

namespace {
ProgramState& storage() {
  static ProgramState state;
  return state;
}
// Colours as the settings file holds them: hexadecimal with the blue byte
// first, as the narrowest integer that holds them, the type the file gives
// back when it is read.
rt::Variant colour(std::uint32_t bgr) {
  if (bgr <= 0x7FFF) return rt::Variant::integer(static_cast<std::int16_t>(bgr));
  return rt::Variant::longValue(static_cast<std::int32_t>(bgr));
}
}  // namespace

ProgramState& program() {
  // The defaults that need the string table are filled on first use; the flag
  // is set first because filling them calls back in here.
  static bool initialised = false;
  ProgramState& s = storage();
  if (!initialised) {
    initialised = true;
    setSystemLocale(QLocale::system());
    s.DecimalSymbol = QString(rt::systemConventions().decimal);
    applyDefaultSettings(s);
  }
  return s;
}

QString defaultWebAddress() { return QStringLiteral("https://calvix.example.org/"); }

void applyDefaultSettings(ProgramState& s) {
  for (int i = 0; i < 4; ++i) {
    s.RegisterLabels[static_cast<size_t>(i)] = rt::Variant(Res(4275) + rt::Str(i + 1));
  }
  s.WebAddress = defaultWebAddress();
  const std::uint32_t chart[] = {0x0000FF, 0x0000FF, 0x00FF00, 0x00FF00, 0xFF0000,
                                 0xE0E0E0, 0x0000C0, 0x00C000, 0x808080, 0x000000};
  for (int i = 1; i <= 10; ++i) s.ChartColours[static_cast<size_t>(i)] = colour(chart[i - 1]);
  const std::uint32_t plot[] = {0xC6C2C6, 0x404000, 0x00FF00, 0x848200, 0x00FFFF, 0xFFFF00, 0xFFFF00, 0x0000FF,
                                0xFFC3C6, 0xFF00FF, 0xFF8080, 0x80C0FF, 0xFFC0C0, 0x0080FF, 0xE0E0E0};
  for (int i = 0; i <= 14; ++i) s.PlotColours[static_cast<size_t>(i)] = colour(plot[i]);
  // Entry 3 is the system's button-text colour, black on a standard desktop.
  const std::uint32_t cal[] = {0xFFFF00, 0xC08080, 0xFFFFFF, 0x000000, 0x80C0FF, 0xFF0000, 0xFFFFFF};
  for (int i = 0; i <= 6; ++i) s.CalendarColours[static_cast<size_t>(i)] = colour(cal[i]);
}

void setSystemLocale(const QLocale& locale) { rt::setSystemConventions(locale); }

void resetProgram() { resetProgram(rt::systemConventions().locale); }

void resetProgram(const QLocale& systemLocale) {
  ProgramState& s = program();
  s = ProgramState{};
  setSystemLocale(systemLocale);
  s.DecimalSymbol = QString(rt::systemConventions().decimal);
  applyDefaultSettings(s);
}

void clearSettings(ProgramState& s) {
  s.VatRate = rt::Variant();
  s.Memories.fill(0);
  s.Registers.fill(0);
  s.RegisterLabels.fill(rt::Variant());
  s.DisplayColour = 0;
  s.TextColour = 0;
  s.BackgroundColour = 0;
  s.ColourMenu = 0;
  s.Programs.fill(QString());
  s.Currency1 = rt::Variant();
  s.Currency2 = rt::Variant();
  s.ExchangeRate = rt::Variant();
  s.EquationMethod = 0;
  s.AutoCloseMessages = rt::Variant();
  s.CalculatorMode = rt::Variant();
  s.SoundOn = 0;
  s.AlarmSoundFile.clear();
  s.DefaultAlarm = 0;
  s.AlarmDuration = 0;
  s.PreferencesSound = false;
  s.ExtendedDisplay = false;
  s.AlarmTimes.fill(QString());
  s.SlowComputer = 0;
  s.SessionCounter = 0;
  s.UserName = rt::Variant();
  s.OsFamily = 0;
  s.WebAddress.clear();
  s.Language = 0;
  s.CalendarDates.fill(0);
  for (auto& set : s.LotteryFavourites) set.fill(0);
  s.ChartColours.fill(rt::Variant());
  s.PlotColours.fill(rt::Variant());
  s.CalendarColours.fill(rt::Variant());
  s.CalendarInfo.fill(false);
  s.EventsFile.clear();
  s.LoadEventsFile = 0;
}
