#include "shell/ProgramState.h"

#include "shell/NumberText.h"
#include "shell/Strings.h"

namespace {
ProgramState& storage() {
  static ProgramState state;
  return state;
}
// Colours as the settings file holds them: hexadecimal with the blue byte first.
rt::Variant colour(std::uint32_t bgr) { return rt::Variant::longValue(static_cast<std::int32_t>(bgr)); }
}  // namespace

ProgramState& program() {
  // The defaults that need the string table are filled on first use; the flag
  // is set first because filling them calls back in here.
  static bool initialised = false;
  ProgramState& s = storage();
  if (!initialised) {
    initialised = true;
    setSystemLocale(QLocale::system());
    s.DecimalSymbol = QString(s.systemDecimal);
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
  const std::uint32_t cal[] = {0xFFFF00, 0xC08080, 0xFFFFFF, 0x000000, 0x80C0FF, 0xFF0000, 0xFFFFFF};
  for (int i = 0; i <= 6; ++i) s.CalendarColours[static_cast<size_t>(i)] = colour(cal[i]);
}

void setSystemLocale(const QLocale& locale) {
  ProgramState& s = storage();
  s.systemLocale = locale;
  const QString dp = locale.decimalPoint();
  const QString gs = locale.groupSeparator();
  s.systemDecimal = dp.isEmpty() ? QLatin1Char('.') : dp.at(0);
  s.systemGroup = gs.isEmpty() ? QChar() : gs.at(0);
  // Some locales group with a no-break space; the runtime accepts a blank too.
}

void resetProgram() { resetProgram(program().systemLocale); }

void resetProgram(const QLocale& systemLocale) {
  ProgramState& s = program();
  s = ProgramState{};
  setSystemLocale(systemLocale);
  s.DecimalSymbol = QString(s.systemDecimal);
  applyDefaultSettings(s);
}
