#include "shell/Services.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <QThread>
#include <cmath>

#include "shell/Settings.h"
#include "shell/runtime/DateTime.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"
#include "shell/HelpPages.h"
#include "shell/Strings.h"

// ---- Context help -----------------------------------------------------------

namespace {
HelpPresenter* g_help = nullptr;
}  // namespace

void setHelpPresenter(HelpPresenter* presenter) { g_help = presenter; }
HelpPresenter* helpPresenter() { return g_help; }

void setHelpCursor(bool on) {
  program().helpCursor = on;
  if (g_help) g_help->helpCursorChanged(on);
}

void ContextHelp(int topic) {
  if (g_help) g_help->showTopic(topic);
  setHelpCursor(false);
}

bool helpInstead(int topic) {
  if (!program().helpCursor) return false;
  ContextHelp(topic);
  return true;
}

QString helpPageOfTopic(int topic) {
  if (topic == kFunctionListTopic) return QStringLiteral("funclist");
  if (topic == kMathNotebookTopic) return QStringLiteral("mat");
  if (topic == kSpainPhonesTopic) return QStringLiteral("phonees");
  if (topic == kWorldPhonesTopic) return QStringLiteral("phoneint");
  if (topic == kPostalCodesTopic) return QStringLiteral("postalcodes");
  static const char* const pages[] = {"shell",    "calc",    "funcs",  "stats",    "convert", "bank",
                                      "elements", "lottery", "chrono", "calendar", "geometry"};
  const int block = topic / 10000 - 1;
  if (topic < 0 || block < 0 || block >= static_cast<int>(std::size(pages))) return QStringLiteral("index");
  return QString::fromLatin1(pages[block]);
}

// ---- Key filter -------------------------------------------------------------

int FilterKey(int key, const QString& filter) {
  QString allowed;
  bool backspace = true;
  bool enter = false;
  bool decimal = true;  // a typed comma or point becomes the decimal symbol
  if (filter == QLatin1String("T")) {
    allowed = QStringLiteral("-0123456789eE.,");
    enter = true;
  } else if (filter == QLatin1String("T+")) {
    allowed = QStringLiteral("0123456789eE.,");
  } else if (filter == QLatin1String("D")) {
    allowed = QStringLiteral("-0123456789.,");
  } else if (filter == QLatin1String("N")) {
    allowed = QStringLiteral("0123456789");
    decimal = false;
  } else if (filter == QLatin1String("N1")) {
    allowed = QStringLiteral("0123456789");
    backspace = false;
    decimal = false;
  } else {
    return key;
  }
  if (decimal && (key == ',' || key == '.')) {
    const QString symbol = program().DecimalSymbol.toText();
    if (!symbol.isEmpty()) key = symbol.at(0).unicode();
  }
  if (key == kKeyBackspace) return backspace ? key : 0;
  if (key == kKeyEnter) return enter ? key : 0;
  if (key <= 0 || key > 0xFFFF) return 0;
  return allowed.contains(QChar(key)) ? key : 0;
}

// ---- Number and text helpers ------------------------------------------------

namespace {

// The runtime's IsNumeric on a text: what the locale-aware reading accepts.
bool isNumericText(const QString& text) {
  if (text.trimmed().isEmpty()) return false;
  double v = 0;
  return rt::tryTextToDouble(text, v);
}

// Characters of a text from position start (0-based), or nothing past its end,
// as the classic Mid does.
QString mid(const QString& s, qsizetype start, qsizetype length) {
  if (start < 0 || start >= s.size()) return {};
  return s.mid(start, length);
}

}  // namespace

QString NumericEnd(const QString& text, int side) {
  QString s = text;
  const bool negative = s.startsWith(QLatin1Char('-'));
  if (negative) s.remove(0, 1);
  QString found;
  if (side == 0) {
    for (qsizetype len = s.size(); len > 0; --len) {
      if (isNumericText(s.left(len))) {
        found = s.left(len);
        break;
      }
    }
  } else {
    for (qsizetype len = s.size(); len > 0; --len) {
      if (isNumericText(s.right(len))) {
        found = s.right(len);
        const qsizetype before = s.size() - len - 1;
        if (before >= 0 && s.at(before) == QLatin1Char('-')) found.prepend(QLatin1Char('-'));
        break;
      }
    }
  }
  found.remove(QLatin1Char(' '));
  if (negative) found.prepend(QLatin1Char('-'));
  return found;
}

QString RomanNumeral(double x) {
  static const QString alphabet = QStringLiteral("IVXLCDMQH");
  const double whole = std::trunc(std::fabs(x));
  if (!std::isfinite(whole)) return {};
  const QString digits = QString::number(whole, 'f', 0);
  QString roman;
  qsizetype pos = 0;  // the "one" letter of the current decimal place
  for (qsizetype i = digits.size() - 1; i >= 0; --i, pos += 2) {
    const int d = digits.at(i).digitValue();
    const QString one = mid(alphabet, pos, 1);
    const QString five = mid(alphabet, pos + 1, 1);
    const QString ten = mid(alphabet, pos + 2, 1);
    QString part;
    if (d == 9) {
      part = one + ten;
    } else if (d >= 5) {
      part = five + one.repeated(d - 5);
    } else if (d == 4) {
      part = one + five;
    } else {
      part = one.repeated(d);
    }
    roman.prepend(part);
  }
  return roman;
}

QString DecimalToBinary(double x) {
  double d = std::trunc(x);
  if (d == 0 || !std::isfinite(d)) return QStringLiteral("0000");
  QString bits;
  while (d != 0) {
    bits.prepend(std::fmod(d, 2.0) != 0 ? QLatin1Char('1') : QLatin1Char('0'));
    d = std::trunc(d / 2);
  }
  return bits;
}

double BinaryToDecimal(const QString& text) {
  double sum = 0;
  double weight = 1;
  for (qsizetype i = text.size() - 1; i >= 0; --i) {
    if (text.at(i) == QLatin1Char('1')) sum += weight;
    weight *= 2;
  }
  return sum;
}

double Factorial(std::int16_t n) {
  if (n < 0 || n > 170) {
    ProgramState& p = program();
    p.MessageSound = 1;
    // Negative: code 7 "Número Negativo."; too large: code 8 "Número Fuera de Rango."
    MBoxShow(3, ErrorText(n < 0 ? 7 : 8), 3, 0, 0, Res(4605));
    return 1;
  }
  double product = 1;
  for (int i = 2; i <= n; ++i) product *= i;
  return product;
}

namespace {

// The text of a number as the "a,b" entries hold it: a text stays as typed, a
// number takes its default text (system decimal separator).
QString entryText(const rt::Variant& x) {
  if (x.isText()) return x.toText().trimmed();
  return rt::NumberToText(x.toDouble());
}

qsizetype decimalSeparatorIndex(const QString& s) {
  for (qsizetype i = 0; i < s.size(); ++i) {
    if (s.at(i) == QLatin1Char(',') || s.at(i) == QLatin1Char('.')) return i;
  }
  return -1;
}

}  // namespace

double FractionalPart(const rt::Variant& x) {
  const double value = x.toDouble();
  const QString whole = rt::NumberToText(value);
  const QString integer = rt::NumberToText(rt::Fix(value));
  // What follows the characters of the integer part, e.g. ".25" of "3.25".
  const QString rest = whole.mid(integer.size());
  if (rest.isEmpty()) return 0;
  double v = 0;
  return rt::tryTextToDouble(rest, v) ? v : rt::Val(rest);
}

rt::Variant GreatestCommonDivisor(const rt::Variant& x) {
  const QString s = entryText(x);
  const qsizetype sep = decimalSeparatorIndex(s);
  double a = std::fabs(std::trunc(rt::Val(sep < 0 ? s : s.left(sep))));
  double b = sep < 0 ? 0 : std::fabs(std::trunc(rt::Val(s.mid(sep + 1))));
  while (b != 0) {
    const double r = std::fmod(a, b);
    a = b;
    b = r;
  }
  return rt::Variant(a);
}

QString PrimeText(double x) {
  const QString yes = Res(57);
  const QString no = Res(58);
  if (x == 2 || x == 3) return yes;
  if (x < 2) return no;
  // Trial division uses the runtime's Mod, which first rounds the value to a
  // 32-bit integer (error 6 beyond). A divisor up to the square root decides
  // exactly what the division by every number up to x/2 + 1 would.
  const std::int32_t n = rt::CLng(x);
  if (n % 2 == 0) return no;
  for (std::int64_t d = 3; d * d <= n; d += 2) {
    if (n % d == 0) return no;
  }
  return yes;
}

double ArrayExtreme(const QList<rt::Variant>& values, int count, int selector) {
  const int last = std::min<int>(count, static_cast<int>(values.size()) - 1);
  if (last < 1) return 0;
  double best = values.at(1).toDouble();
  for (int i = 2; i <= last; ++i) {
    const double v = values.at(i).toDouble();
    if (selector == 0 ? v > best : v < best) best = v;
  }
  return best;
}

QString uptimeTextFromTicks(std::uint64_t milliseconds) {
  // The classic tick counter is 32 bits of milliseconds: it wraps to 0 after
  // 49.7 days, and so does this text.
  const std::uint64_t ticks = milliseconds % (std::uint64_t{1} << 32);
  const std::uint64_t seconds = ticks / 1000;
  const std::uint64_t days = seconds / 86400;
  const std::uint64_t rest = seconds % 86400;
  return QStringLiteral("%1 %2  %3:%4:%5")
      .arg(days)
      .arg(Res(3020))
      .arg(rest / 3600, 2, 10, QLatin1Char('0'))
      .arg((rest / 60) % 60, 2, 10, QLatin1Char('0'))
      .arg(rest % 60, 2, 10, QLatin1Char('0'));
}

QString UptimeText() { return uptimeTextFromTicks(platform().uptimeMilliseconds()); }

QString windowsVersionName(int major, int minor) {
  if (major == 3) return QStringLiteral("Windows NT 3.51");
  if (major == 4 && minor == 0) return QStringLiteral("Windows 95 / NT4.0");
  if (major == 4 && minor == 10) return QStringLiteral("Windows 98");
  if (major == 4 && minor == 90) return QStringLiteral("Windows ME");
  if (major == 5 && minor == 0) return QStringLiteral("Windows 2000");
  if (major == 5 && minor == 1) return QStringLiteral("Windows XP");
  if (major == 5 && minor == 2) return QStringLiteral("Windows 2003");
  if (major == 6) return QStringLiteral("Windows Vista");
  return {};
}

QString WindowsName() {
  // No Windows version to look up here: the system names itself.
  const QString own = platform().systemName().trimmed();
  return own.isEmpty() ? Res(33) : own;
}

QString SystemUserName(int selector) {
  QString name;
  if (selector == 0) name = platform().userName();
  else if (selector == 1) name = platform().computerName();
  return name.left(255);
}

rt::Variant FileDate(const QString& path, int selector) {
  const QFileInfo info(path);
  if (path.isEmpty() || !info.exists()) rt::raise(rt::kFileNotFound);
  QDateTime when;
  switch (selector) {
    case 0:
      when = info.birthTime();
      // Not every file system keeps a creation time: the last status change
      // is the nearest it has.
      if (!when.isValid()) when = info.metadataChangeTime();
      break;
    case 1: when = info.lastModified(); break;
    case 2: when = info.lastRead(); break;
    default: rt::raise(rt::kInvalidProcedureCall);
  }
  if (!when.isValid()) return {};
  return rt::Variant::date(rt::fromQDateTime(when));
}

QString ReadTextFile(const QString& path) {
  QFile f(path);
  if (path.isEmpty() || !f.open(QIODevice::ReadOnly)) return {};
  const QByteArray bytes = f.readAll();
  // Our own files are UTF-8; older ones come in the classic code page.
  QStringDecoder utf8(QStringDecoder::Utf8);
  QString text = utf8.decode(bytes);
  if (utf8.hasError()) text = rt::fromCodePage(bytes);
  text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
  if (text.endsWith(QLatin1Char('\n'))) text.chop(1);
  text.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
  return text;
}

// ---- System services --------------------------------------------------------

QString soundPath(const QString& fileName) {
  return sharedFile(QStringLiteral("mmedia/") + fileName);
}

void PlayMessageSound() {
  const ProgramState& p = program();
  if (p.SoundOn != 1) return;
  static const char* const names[] = {nullptr, "hey.wav", "ooh.wav", "pato.wav", "tic.wav", "info.wav"};
  QString file;
  if (p.MessageSound >= 1 && p.MessageSound <= 5) file = QString::fromLatin1(names[p.MessageSound]);
  else if (p.MessageSound == 6) file = p.AlarmSoundFile;
  if (file.isEmpty()) return;
  platform().playSound(soundPath(file), false);
}

void Delay(float seconds) {
  const double start = rt::Timer();
  QElapsedTimer monotonic;
  monotonic.start();
  const auto limitMs = static_cast<qint64>(static_cast<double>(seconds) * 1000.0);
  while (true) {
    const double now = rt::Timer();
    if (now - start >= static_cast<double>(seconds)) break;
    if (now < start) break;  // the seconds-since-midnight timer went back: midnight
    // The steady clock also ends the wait, so a clock that stands still (one
    // pinned by a test) cannot hold it for ever.
    if (monotonic.elapsed() >= limitMs) break;
    QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    QThread::msleep(2);
  }
}

void SystemAction(int mode, int osFamily) {
  if (mode == 0) {
    if (osFamily == 1) {
      platform().powerAction(QStringLiteral("shutdown"));  // the immediate shutdown call
      platform().endProgram();
    } else if (osFamily == 2) {
      platform().powerAction(QStringLiteral("shutdown-delayed"));  // the system's shutdown in 8 seconds
      platform().endProgram();
    }
    return;
  }
  if (mode == 1) {
    // The screen-saver system command: family 2 sends the value as a negative
    // 16-bit number, sign-extended (-3776, 0xFFFFF140). The system command
    // ignores the upper bits and the low four, so both forms start it.
    constexpr std::int32_t kScreenSave = 61760;  // 0xF140
    const std::int32_t command = osFamily == 2 ? std::int32_t{static_cast<std::int16_t>(-3776)} : kScreenSave;
    if ((command & 0xFFF0) == kScreenSave) platform().powerAction(QStringLiteral("screensaver"));
    return;
  }
  if (mode == 2) platform().powerAction(QStringLiteral("suspend"));  // the same on either family
}
