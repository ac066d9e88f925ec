#pragma once
// The program-wide variables: one block that lives from start to end of the
// process, reached through program(). Names are the ones the modules use.
// Every variable starts at the value a fresh installation has (the defaults
// that "restore" gives); resetProgram() puts them all back, for tests and for
// each run of calvix-cli.
#include <QChar>
#include <QLocale>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <array>
#include <cstdint>

#include "shell/StatisticsStore.h"
#include "shell/runtime/Variant.h"

struct ProgramState {
  // --- Language, locale, folders --------------------------------------
  std::int32_t LanguageOffset = 0;  // 0 es, 10000 en, 20000 fr, 30000 ca
  rt::Variant DecimalSymbol = QStringLiteral(".");  // "," or ".", fixed at start
  rt::Variant AppFolder;            // program folder, ends in "/"
  // The read-only data (tables, sounds, fonts), ends in "/"; empty: AppFolder.
  QString SharedFolder;
  QString WindowsFolder, SystemFolder, TempFolder;

  // --- Message box fields -------------------------------------------------
  std::int16_t SoundOn = 1;       // "SONIDO"
  std::int16_t MessageSound = 0;  // 0 to 6
  rt::Variant MessageText, MessageTitle;
  std::int16_t MessageResult = 0;
  rt::Variant MessageValue;
  rt::Variant MessageDefault;
  QString MainMenuTitle, SectionTitle;
  bool helpCursor = false;  // program-wide help-cursor flag

  // --- Control centre -----------------------------------------------------
  float SessionCounter = 0;  // "CONTADOR"
  std::array<QString, 4> RegressionNames{QStringLiteral("y = ax + b"), QStringLiteral("y = b (x^a)"),
                                         QStringLiteral("y = b (a^x)"), QString()};
  QStringList fontPaths;  // registered fonts, removed at the end

  // --- Settings (cvdata.txt), at their "restore" defaults -----------------
  rt::Variant VatRate = rt::Variant::integer(16);               // "TIPO IVA"
  std::array<double, 4> Memories{0, 0, 0, 0};                   // "MEMORIA 1".."4"
  std::array<double, 4> Registers{0, 0, 0, 0};                  // "MEMORIA R1".."R4"
  std::array<rt::Variant, 4> RegisterLabels;                    // filled by resetProgram
  float DisplayColour = 15708820;                               // "COLOR VISOR"
  float TextColour = 9719081;                                   // "COLOR TEXTO"
  float BackgroundColour = 11902587;                            // "COLOR FONDO"
  std::int16_t ColourMenu = 0;                                  // "COLOR MENU"
  std::array<QString, 5> Programs;                              // 1-4 kept as "Programa 1".."4"
  rt::Variant Currency1 = QStringLiteral("euro");               // "MONEDA 1"
  rt::Variant Currency2 = QStringLiteral("pts");                // "MONEDA 2"
  rt::Variant ExchangeRate = 166.386;                           // "CAMBIO MONETARIO"
  std::int16_t EquationMethod = 1;                              // "MODO RESOLUCIÓN SISTEMAS DE ECUACIONES"
  rt::Variant AutoCloseMessages = rt::Variant::integer(0);      // "DESACTIVADO MENSAJES AUTOM."
  rt::Variant CalculatorMode = QStringLiteral("avanzada");      // "MODO CALCULADORA"
  QString AlarmSoundFile = QStringLiteral("alarma1.wav");       // "TIPO DE ALARMA"
  std::int16_t DefaultAlarm = 4;                                // "ALARMA PREDETERMINADA"
  std::int16_t AlarmDuration = 1;                               // "DURACIÓN ALARMA"
  bool PreferencesSound = true;                                 // "PREFENCIAS-SOUND"
  bool ExtendedDisplay = false;                                 // "VisorXL"
  std::array<QString, 4> AlarmTimes{QStringLiteral("22:30:40"), {}, {}, {}};  // "Alarma 1".."4"
  std::int16_t SlowComputer = 0;                                // "TIPO DE ORDENADOR"
  rt::Variant UserName = QString();                             // "USUARIO"
  std::int16_t OsFamily = 0;                                    // "VERSION WINDOWS"
  QString WebAddress;                                           // "DIRECCIÓN WEB", set by resetProgram
  std::int16_t Language = 0;                                    // "IDIOMA": 1 es, 2 en, 3 fr, 4 ca
  std::array<double, 2> CalendarDates{0, 0};                    // "FECHAS CALENDARIO"
  std::array<std::array<std::int16_t, 49>, 3> LotteryFavourites{};  // "Loto Preferidos" 1..3
  std::array<rt::Variant, 11> ChartColours;                     // "Color Graf15 " 1..10 (index 0 unused)
  std::array<rt::Variant, 15> PlotColours;                      // "TBPLOT color " 0..14 (0 not stored)
  std::array<rt::Variant, 7> CalendarColours;                   // "CALENDARIO color " 0..6 (0 not stored)
  std::array<bool, 6> CalendarInfo{false, true, true, false, true, false};  // "CALENDARIO info " 1..5
  QString EventsFile;                                           // "CALENDA DATA FILE"
  std::int16_t LoadEventsFile = 0;                              // "Carga File"

  // --- Calculation state shared between modules -------------------------
  double angleFactor = 0.017453292519943295;  // radians per unit of the angle mode
  float randomBase = 100;
  std::int16_t FigureIndex = 1;  // geometry: the catalogue row shown, 1-based

  // --- Function table, read by the plot and its analyses -------------------
  // pointCount is 32-bit: a table by increment has no row limit.
  std::int32_t pointCount = 0;     // data rows of the function table; 0: no curve
  std::int16_t sourceColumn = 1;   // column of F for derivatives and the plot (5 while smoothed)
  std::int16_t hasG = 0;           // -1 when column 6 holds G(x)
  QString titleF, titleG, titleX, titleY;  // default texts of the plot

  // --- Chronometer: its power action, and what its window keeps from one
  // opening to the next (mode, options, the armed alarm, the "hasonado" mark)
  std::int16_t accion = 0;    // 1 "Suspender", 2 "SalvaPant.", any other "Apagar"
  QVariantMap AlarmRegistry;

  // --- Statistics store: the calculator's data, read by charts and tools --
  StatisticsStore stats;
};

ProgramState& program();
// A fresh program state, as a fresh installation starts: every variable at
// its default. The system locale is kept unless one is given.
void resetProgram();
void resetProgram(const QLocale& systemLocale);
// Sets the system's number conventions (what the runtime conversions read,
// rt::systemConventions()).
void setSystemLocale(const QLocale& locale);
// The default web address opened by the control centre's Internet button.
QString defaultWebAddress();
// Fills the defaults that depend on the string table or on colour tables.
void applyDefaultSettings(ProgramState& state);
// Puts every variable of the settings file (and the two unstored colour
// entries 0) to the value the process starts with before the file is read:
// zero, empty text or Empty. The desktop program calls it once at start, so
// that a settings file cut short leaves what it did not reach at zero.
void clearSettings(ProgramState& state);
