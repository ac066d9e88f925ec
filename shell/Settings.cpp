#include "shell/Settings.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <functional>
#include <type_traits>
#include <utility>

#include "shell/runtime/DateTime.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"
#include "shell/Strings.h"

namespace {

// The type a value is read into and written from.
enum class Type { Integer, Single, Double, Any, Text, Boolean, Date };

struct Item {
  enum Kind { Key, Value, Separator, EndOfStatement };
  Kind kind = Key;
  QString text;  // a key: its text; a value: its name
  Type type = Type::Any;
  std::function<rt::Variant(const ProgramState&)> get;
  std::function<void(ProgramState&, const rt::Variant&)> set;
};

// Builds the layout statement by statement. A field is given by an accessor,
// a generic lambda that returns a reference to it in a (const) state.
class Layout {
 public:
  void key(const QString& k) {
    items_.push_back({Item::Key, k, Type::Any, {}, {}});
    lastKey_ = k;
  }
  void separator() { items_.push_back({Item::Separator, {}, Type::Any, {}, {}}); }
  void end() { items_.push_back({Item::EndOfStatement, {}, Type::Any, {}, {}}); }
  // One record: key, value, separator.
  template <class Access>
  void record(const QString& k, Type t, Access a) {
    key(k);
    value(t, a);
    separator();
  }

  // A value of the field the accessor reaches; the field's own type decides
  // the conversions, t only tells a date from another 64-bit float.
  template <class Access>
  void value(Type t, Access a) {
    using Field = std::remove_cvref_t<decltype(a(std::declval<ProgramState&>()))>;
    Item item{Item::Value, lastKey_, t, {}, {}};
    if constexpr (std::is_same_v<Field, std::int16_t>) {
      item.get = [a](const ProgramState& s) { return rt::Variant::integer(a(s)); };
      item.set = [a](ProgramState& s, const rt::Variant& v) { a(s) = v.toInteger(); };
    } else if constexpr (std::is_same_v<Field, float>) {
      // Written with the digits of its exact value, so that a 24-bit colour
      // held in a 32-bit float comes back unchanged.
      item.get = [a](const ProgramState& s) { return rt::Variant::dbl(static_cast<double>(a(s))); };
      item.set = [a](ProgramState& s, const rt::Variant& v) { a(s) = v.toSingle(); };
    } else if constexpr (std::is_same_v<Field, double>) {
      if (t == Type::Date) {
        item.get = [a](const ProgramState& s) { return rt::Variant::date(a(s)); };
        item.set = [a](ProgramState& s, const rt::Variant& v) { a(s) = v.rawNumber(); };
      } else {
        item.get = [a](const ProgramState& s) { return rt::Variant::dbl(a(s)); };
        item.set = [a](ProgramState& s, const rt::Variant& v) { a(s) = v.toDouble(); };
      }
    } else if constexpr (std::is_same_v<Field, rt::Variant>) {
      item.get = [a](const ProgramState& s) { return a(s); };
      item.set = [a](ProgramState& s, const rt::Variant& v) { a(s) = v; };
    } else if constexpr (std::is_same_v<Field, QString>) {
      item.get = [a](const ProgramState& s) { return rt::Variant::text(a(s)); };
      item.set = [a](ProgramState& s, const rt::Variant& v) { a(s) = v.toText(); };
    } else {
      static_assert(std::is_same_v<Field, bool>, "a settings field of an unknown type");
      item.get = [a](const ProgramState& s) { return rt::Variant::boolean(a(s)); };
      item.set = [a](ProgramState& s, const rt::Variant& v) { a(s) = v.toBool(); };
    }
    items_.push_back(std::move(item));
  }

  // Values that share a key are told apart by "#n".
  std::vector<Item> finish() {
    QHash<QString, int> count;
    for (const Item& i : items_) {
      if (i.kind == Item::Value) ++count[i.text];
    }
    QHash<QString, int> seen;
    for (Item& i : items_) {
      if (i.kind != Item::Value || count.value(i.text) < 2) continue;
      i.text += QStringLiteral(" #%1").arg(++seen[i.text]);
    }
    return std::move(items_);
  }

 private:
  std::vector<Item> items_;
  QString lastKey_;
};

std::vector<Item> buildLayout() {
  Layout l;
  auto n = [](int i) { return QString::number(i); };
  auto at = [](int i) { return static_cast<size_t>(i); };

  // First statement: tax rate, memories, registers, colours.
  l.record(QStringLiteral("TIPO IVA"), Type::Any, [](auto& s) -> auto& { return s.VatRate; });
  for (int i = 0; i < 4; ++i) {
    l.record(QStringLiteral("MEMORIA ") + n(i + 1), Type::Double, [i, at](auto& s) -> auto& { return s.Memories[at(i)]; });
  }
  for (int i = 0; i < 4; ++i) {
    l.key(QStringLiteral("MEMORIA R") + n(i + 1));
    l.value(Type::Double, [i, at](auto& s) -> auto& { return s.Registers[at(i)]; });
    l.value(Type::Any, [i, at](auto& s) -> auto& { return s.RegisterLabels[at(i)]; });
    l.separator();
  }
  l.record(QStringLiteral("COLOR VISOR"), Type::Single, [](auto& s) -> auto& { return s.DisplayColour; });
  l.record(QStringLiteral("COLOR TEXTO"), Type::Single, [](auto& s) -> auto& { return s.TextColour; });
  l.record(QStringLiteral("COLOR FONDO"), Type::Single, [](auto& s) -> auto& { return s.BackgroundColour; });
  l.record(QStringLiteral("COLOR MENU"), Type::Integer, [](auto& s) -> auto& { return s.ColourMenu; });
  l.end();

  // The calculator programs 1 to 4 (program 0 lasts for the run); the key
  // keeps the blank that Str puts before the number.
  for (int i = 1; i <= 4; ++i) {
    l.record(QStringLiteral("Programa ") + rt::Str(i), Type::Text, [i, at](auto& s) -> auto& { return s.Programs[at(i)]; });
    l.end();
  }

  // Second statement: currencies, modes, sound and alarm choices.
  l.record(QStringLiteral("MONEDA 1"), Type::Any, [](auto& s) -> auto& { return s.Currency1; });
  l.record(QStringLiteral("MONEDA 2"), Type::Any, [](auto& s) -> auto& { return s.Currency2; });
  l.record(QStringLiteral("CAMBIO MONETARIO"), Type::Any, [](auto& s) -> auto& { return s.ExchangeRate; });
  l.record(QStringLiteral("MODO RESOLUCIÓN SISTEMAS DE ECUACIONES"), Type::Integer,
           [](auto& s) -> auto& { return s.EquationMethod; });
  l.record(QStringLiteral("DESACTIVADO MENSAJES AUTOM."), Type::Any, [](auto& s) -> auto& { return s.AutoCloseMessages; });
  l.record(QStringLiteral("MODO CALCULADORA"), Type::Any, [](auto& s) -> auto& { return s.CalculatorMode; });
  l.record(QStringLiteral("SONIDO"), Type::Integer, [](auto& s) -> auto& { return s.SoundOn; });
  l.record(QStringLiteral("TIPO DE ALARMA"), Type::Text, [](auto& s) -> auto& { return s.AlarmSoundFile; });
  l.record(QStringLiteral("ALARMA PREDETERMINADA"), Type::Integer, [](auto& s) -> auto& { return s.DefaultAlarm; });
  l.record(QStringLiteral("DURACIÓN ALARMA"), Type::Integer, [](auto& s) -> auto& { return s.AlarmDuration; });
  l.record(QStringLiteral("PREFENCIAS-SOUND"), Type::Boolean, [](auto& s) -> auto& { return s.PreferencesSound; });
  l.record(QStringLiteral("VisorXL"), Type::Boolean, [](auto& s) -> auto& { return s.ExtendedDisplay; });
  l.end();

  for (int i = 0; i < 4; ++i) {
    l.record(QStringLiteral("Alarma ") + n(i + 1), Type::Text, [i, at](auto& s) -> auto& { return s.AlarmTimes[at(i)]; });
    l.end();
  }

  // Third statement: machine, counter, user, system, web address, language.
  l.record(QStringLiteral("TIPO DE ORDENADOR"), Type::Integer, [](auto& s) -> auto& { return s.SlowComputer; });
  l.record(QStringLiteral("CONTADOR"), Type::Single, [](auto& s) -> auto& { return s.SessionCounter; });
  l.record(QStringLiteral("USUARIO"), Type::Any, [](auto& s) -> auto& { return s.UserName; });
  l.record(QStringLiteral("VERSION WINDOWS"), Type::Integer, [](auto& s) -> auto& { return s.OsFamily; });
  l.record(QStringLiteral("DIRECCIÓN WEB"), Type::Text, [](auto& s) -> auto& { return s.WebAddress; });
  l.record(QStringLiteral("IDIOMA"), Type::Integer, [](auto& s) -> auto& { return s.Language; });
  l.end();

  // Fourth statement: the calendar's two dates, between separators.
  l.key(QStringLiteral("FECHAS CALENDARIO"));
  l.separator();
  l.value(Type::Date, [](auto& s) -> auto& { return s.CalendarDates[0]; });
  l.separator();
  l.value(Type::Date, [](auto& s) -> auto& { return s.CalendarDates[1]; });
  l.separator();
  l.end();

  // The favourite lottery numbers: a title line, then one mark a line, no separators.
  for (int set = 0; set < 3; ++set) {
    l.key(QStringLiteral("Loto Preferidos") + n(set + 1));
    l.end();
    for (int j = 0; j < 49; ++j) {
      l.value(Type::Integer, [set, j, at](auto& s) -> auto& { return s.LotteryFavourites[at(set)][at(j)]; });
      l.end();
    }
  }

  // The colour and switch lists, one statement per entry.
  for (int i = 1; i <= 10; ++i) {
    l.record(QStringLiteral("Color Graf15 ") + n(i), Type::Any, [i, at](auto& s) -> auto& { return s.ChartColours[at(i)]; });
    l.end();
  }
  for (int i = 1; i <= 14; ++i) {
    l.record(QStringLiteral("TBPLOT color ") + n(i), Type::Any, [i, at](auto& s) -> auto& { return s.PlotColours[at(i)]; });
    l.end();
  }
  for (int i = 1; i <= 6; ++i) {
    l.record(QStringLiteral("CALENDARIO color ") + n(i), Type::Any,
             [i, at](auto& s) -> auto& { return s.CalendarColours[at(i)]; });
    l.end();
  }
  for (int i = 1; i <= 5; ++i) {
    l.record(QStringLiteral("CALENDARIO info ") + n(i), Type::Boolean, [i, at](auto& s) -> auto& { return s.CalendarInfo[at(i)]; });
    l.end();
  }

  // Last statement: the events file and whether the calendar opens it.
  l.record(QStringLiteral("CALENDA DATA FILE"), Type::Text, [](auto& s) -> auto& { return s.EventsFile; });
  l.record(QStringLiteral("Carga File"), Type::Integer, [](auto& s) -> auto& { return s.LoadEventsFile; });
  l.end();
  return l.finish();
}

const std::vector<Item>& layout() {
  static const std::vector<Item> items = buildLayout();
  return items;
}

rt::Variant readTyped(rt::SequentialReader& r, Type t) {
  switch (t) {
    case Type::Integer: return rt::Variant::integer(r.readInteger());
    case Type::Single: return rt::Variant::single(r.readSingle());
    case Type::Double: return rt::Variant::dbl(r.readDouble());
    case Type::Any: return r.readVariant();
    case Type::Text: return rt::Variant::text(r.readText());
    case Type::Boolean: return rt::Variant::boolean(r.readBoolean());
    case Type::Date: {
      // A date the runtime cannot hold fails here (6), before it is taken:
      // taken, it would fail every later save.
      const double d = r.readDate();
      rt::toQDateTime(d);
      return rt::Variant::date(d);
    }
  }
  return {};
}

// What restore leaves alone.
bool keptByRestore(const QString& name) {
  static const QStringList kept{QStringLiteral("TIPO DE ORDENADOR"),     QStringLiteral("CONTADOR"),
                                QStringLiteral("VERSION WINDOWS"),       QStringLiteral("IDIOMA"),
                                QStringLiteral("Color Graf15 9"),        QStringLiteral("Color Graf15 10"),
                                QStringLiteral("FECHAS CALENDARIO #1"), QStringLiteral("FECHAS CALENDARIO #2")};
  return kept.contains(name);
}

const QString kSeparator = QStringLiteral("\n");

}  // namespace

SettingsRead readSettingsFile(const QString& path, ProgramState& state) {
  QByteArray bytes;
  try {
    bytes = rt::readWholeFile(path);
  } catch (const rt::RuntimeError& e) {
    SettingsRead out;
    out.error = e.number();
    return out;
  }
  return readSettingsBytes(bytes, state);
}

SettingsRead readSettingsBytes(const QByteArray& bytes, ProgramState& state) {
  SettingsRead out;
  std::vector<const Item*> filled;
  try {
    rt::SequentialReader r(bytes);
    for (const Item& item : layout()) {
      switch (item.kind) {
        case Item::Key:
        case Item::Separator:
          r.readText();  // read and never compared
          if (!r.lastFieldComplete()) rt::raise(rt::kInputPastEndOfFile);
          break;
        case Item::Value: {
          const rt::Variant v = readTyped(r, item.type);
          // A value the file ends inside is not taken: it may be cut short.
          if (!r.lastFieldComplete()) rt::raise(rt::kInputPastEndOfFile);
          // Texts are written quoted with no escapes, so a quote inside one
          // (an unquoted field) is damage; taken, it would not survive a save.
          if (v.isText() && v.rawText().contains(QLatin1Char('"'))) rt::raise(rt::kTypeMismatch);
          item.set(state, v);
          filled.push_back(&item);
          break;
        }
        case Item::EndOfStatement: break;  // line ends are delimiters like commas
      }
    }
    // A date keeps its day only, as it would through "dd/mm/yyyy".
    for (double& d : state.CalendarDates) {
      const QDate day = rt::toQDate(d);
      d = rt::DateSerial(day.year(), day.month(), day.day());
    }
    // An events file that no longer exists is forgotten.
    if (!state.EventsFile.isEmpty() && !QFileInfo::exists(state.EventsFile)) {
      state.EventsFile.clear();
      state.LoadEventsFile = 0;
    }
  } catch (const rt::RuntimeError& e) {
    out.error = e.number();
  }
  for (const Item* item : filled) out.filled.push_back({item->text, item->get(state)});
  return out;
}

QByteArray settingsBytes(const ProgramState& state) {
  rt::SequentialWriter w;
  QList<rt::Variant> statement;
  for (const Item& item : layout()) {
    switch (item.kind) {
      case Item::Key: statement << rt::Variant::text(item.text); break;
      case Item::Separator: statement << rt::Variant::text(kSeparator); break;
      case Item::Value: statement << item.get(state); break;
      case Item::EndOfStatement:
        w.write(statement);
        statement.clear();
        break;
    }
  }
  return w.bytes();
}

int writeSettingsFile(const QString& path, const ProgramState& state) {
  try {
    rt::writeWholeFile(path, settingsBytes(state));
    return 0;
  } catch (const rt::RuntimeError& e) {
    return e.number();
  }
}

std::vector<SettingsValue> settingsValues(const ProgramState& state) {
  std::vector<SettingsValue> values;
  for (const Item& item : layout()) {
    if (item.kind == Item::Value) values.push_back({item.text, item.get(state)});
  }
  return values;
}

void restoreDefaults(ProgramState& state) {
  ProgramState defaults;
  applyDefaultSettings(defaults);
  for (const Item& item : layout()) {
    if (item.kind == Item::Value && !keptByRestore(item.text)) item.set(state, item.get(defaults));
  }
  // The two colour entries that are not stored exist only from here.
  state.PlotColours[0] = defaults.PlotColours[0];
  state.CalendarColours[0] = defaults.CalendarColours[0];
}

int languageOfLocale(const QLocale& locale) {
  switch (locale.language()) {
    case QLocale::Spanish: return 1;
    case QLocale::French: return 3;
    case QLocale::Catalan: return 4;
    default: return 2;
  }
}

bool ReadSettings() {
  ProgramState& p = program();
  // The message is prepared before the file is touched.
  const QString text = Res(2961) + QStringLiteral("\n\n") + Res(2962);
  const QString title = QStringLiteral("Calvix Premium  -  ") + Res(2963);
  const QString own = p.AppFolder.toText() + QStringLiteral("cvdata.txt");
  const QString shared = sharedFile(QStringLiteral("cvdata.txt"));
  if (!QFileInfo::exists(own) && shared != own && QFileInfo::exists(shared)) {
    // A user's first start on an installation: its defaults, in the system's
    // language. The user's own file is written on leaving.
    if (readSettingsFile(shared, p).error != 0) restoreDefaults(p);
    p.Language = static_cast<std::int16_t>(languageOfLocale(QLocale()));  // the system's locale
    return true;
  }
  const SettingsRead r = readSettingsFile(own, p);
  if (r.error == 0) return true;
  if (r.error == rt::kDialogCancelled) return false;
  p.MessageSound = 1;
  MBoxShow(3, text, 3, 0, 0, title);
  return false;
}

bool WriteSettings() {
  ProgramState& p = program();
  if (p.Language == 0) p.Language = 1;  // the stored language is always a valid one
  return writeSettingsFile(p.AppFolder.toText() + QStringLiteral("cvdata.txt"), p) == 0;
}

void RestoreSettings(const QString& command) {
  if (command != QLatin1String("restore")) return;
  restoreDefaults(program());
}

// ---- Program folder --------------------------------------------------------------

bool seedFolder(const QString& from, const QString& to, const QStringList& names) {
  bool ok = QDir().mkpath(to);
  const QDir source(from);
  QDirIterator it(from, QDir::Files | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
  while (it.hasNext()) {
    const QString file = it.next();
    const QFileInfo info(file);
    if (info.isExecutable()) continue;
    const QString relative = source.relativeFilePath(file);
    if (!names.isEmpty() && !names.contains(relative)) continue;
    const QString target = QDir(to).filePath(relative);
    if (QFileInfo::exists(target)) continue;
    ok = QDir().mkpath(QFileInfo(target).absolutePath()) && ok;
    ok = QFile::copy(file, target) && ok;
  }
  return ok;
}

QString sharedDataFolder(const QString& programFolder) {
  // An installed program: <prefix>/bin/calvix with <prefix>/share/calvix/.
  const QString shared = QDir::cleanPath(QDir(programFolder).filePath(QStringLiteral("../share/calvix")));
  if (QFileInfo(shared + QStringLiteral("/cvdata.txt")).isFile()) return shared;
  return programFolder;
}

QStringList perUserFiles() { return {QStringLiteral("cvxlp.dlj")}; }

QString programDataFolder(const QString& programFolder) {
  const QString shared = sharedDataFolder(programFolder);
  const bool installed = shared != programFolder;
  if (!installed) {
    // Writable when a file can be made there.
    QTemporaryFile probe(QDir(programFolder).filePath(QStringLiteral("cvprobe-XXXXXX")));
    if (probe.open()) {
      // The start folder of every file dialog.
      QDir().mkpath(QDir(programFolder).filePath(QStringLiteral("datos")));
      return programFolder;
    }
  }
  const QString user = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
  if (user.isEmpty() || !QDir().mkpath(user)) return programFolder;
  // A portable copy in a read-only place gives each user all of it; an
  // installation only the files a user changes (the rest is read in place).
  seedFolder(shared, user, installed ? perUserFiles() : QStringList());
  QDir().mkpath(QDir(user).filePath(QStringLiteral("datos")));
  return user;
}

QString sharedFile(const QString& relativePath) {
  const ProgramState& p = program();
  const QString folder = p.SharedFolder.isEmpty() ? p.AppFolder.toText() : p.SharedFolder;
  return folder + relativePath;
}
