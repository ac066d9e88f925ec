#include "shell/runtime/SequentialFile.h"

#include <QDate>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <cmath>

#include "shell/runtime/DateTime.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace rt {

// ---------------------------------------------------------------------------
// Windows-1252, the code page of the classic files: Latin-1 plus the printable
// characters it puts at 0x80..0x9F (the euro sign among them).
namespace {

constexpr char16_t kCp1252High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

QByteArray toCodePage(const QString& text) {
  QByteArray out;
  out.reserve(text.size());
  for (QChar c : text) {
    const char16_t u = c.unicode();
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) {
      out += static_cast<char>(u);
      continue;
    }
    char byte = '?';
    for (int i = 0; i < 32; ++i) {
      if (kCp1252High[i] == u) byte = static_cast<char>(0x80 + i);
    }
    out += byte;
  }
  return out;
}

QString fromCodePage(const QByteArray& bytes) {
  QString out;
  out.reserve(bytes.size());
  for (char ch : bytes) {
    const auto b = static_cast<unsigned char>(ch);
    out += b >= 0x80 && b < 0xA0 ? QChar(kCp1252High[b - 0x80]) : QChar(b);
  }
  return out;
}

// ---------------------------------------------------------------------------
// Writing

namespace {

QString numberForFile(double v) {
  QString s = Str(v);
  if (s.startsWith(QLatin1Char(' '))) s.remove(0, 1);
  return s;
}

QString dateForFile(double serial) {
  const QDateTime dt = toQDateTime(serial);
  const bool hasDate = std::trunc(serial) != 0;
  const bool hasTime = serial != std::trunc(serial);
  QString inner;
  if (hasDate || !hasTime) inner = dt.date().toString(QStringLiteral("yyyy-MM-dd"));
  if (hasTime) {
    if (!inner.isEmpty()) inner += QLatin1Char(' ');
    inner += dt.time().toString(QStringLiteral("HH:mm:ss"));
  }
  return QLatin1Char('#') + inner + QLatin1Char('#');
}

}  // namespace

QByteArray SequentialWriter::encode(const Variant& v) {
  switch (v.type()) {
    case VType::Empty: return {};
    case VType::String: return '"' + toCodePage(v.rawText()) + '"';
    case VType::Boolean: return v.rawNumber() != 0 ? QByteArrayLiteral("#TRUE#") : QByteArrayLiteral("#FALSE#");
    case VType::Date: return dateForFile(v.rawNumber()).toLatin1();
    case VType::Integer:
    case VType::Long: return QByteArray::number(static_cast<qint64>(v.rawNumber()));
    case VType::Single: {
      QString s = StrSingle(static_cast<float>(v.rawNumber()));
      if (s.startsWith(QLatin1Char(' '))) s.remove(0, 1);
      return s.toLatin1();
    }
    case VType::Double: return numberForFile(v.rawNumber()).toLatin1();
  }
  return {};
}

void SequentialWriter::write(std::initializer_list<Variant> values) { write(QList<Variant>(values)); }

void SequentialWriter::write(const QList<Variant>& values) {
  bool first = true;
  for (const Variant& v : values) {
    if (!first) bytes_ += ',';
    first = false;
    bytes_ += encode(v);
  }
  bytes_ += "\r\n";
}

void SequentialWriter::printLine(const QString& line) {
  bytes_ += toCodePage(line);
  bytes_ += "\r\n";
}

// ---------------------------------------------------------------------------
// Reading

SequentialReader::SequentialReader(QByteArray bytes) : bytes_(std::move(bytes)) {}

bool SequentialReader::atEnd() const { return pos_ >= bytes_.size(); }

SequentialReader::Field SequentialReader::nextField() {
  const qsizetype n = bytes_.size();
  while (pos_ < n && (bytes_.at(pos_) == ' ' || bytes_.at(pos_) == '\t')) ++pos_;
  if (pos_ >= n) raise(kInputPastEndOfFile);
  Field f;
  QByteArray raw;
  bool closed = true;  // a quoted text found its closing quote
  if (bytes_.at(pos_) == '"') {
    f.quoted = true;
    const qsizetype close = bytes_.indexOf('"', pos_ + 1);
    closed = close >= 0;
    const qsizetype end = close < 0 ? n : close;
    raw = bytes_.mid(pos_ + 1, end - pos_ - 1);
    pos_ = close < 0 ? n : close + 1;
    // Anything up to the delimiter after the closing quote is skipped.
    while (pos_ < n && bytes_.at(pos_) != ',' && bytes_.at(pos_) != '\r' && bytes_.at(pos_) != '\n') ++pos_;
  } else {
    const qsizetype start = pos_;
    while (pos_ < n && bytes_.at(pos_) != ',' && bytes_.at(pos_) != '\r' && bytes_.at(pos_) != '\n') ++pos_;
    raw = bytes_.mid(start, pos_ - start).trimmed();
  }
  // One delimiter: a comma, or a line end (CR LF, CR or LF).
  // Whole: a quoted text that found its closing quote, or any field that
  // found its delimiter. An unquoted field at the end may have been cut.
  lastComplete_ = f.quoted ? closed : pos_ < n;
  if (pos_ < n) {
    if (bytes_.at(pos_) == ',') {
      ++pos_;
    } else if (bytes_.at(pos_) == '\r') {
      ++pos_;
      if (pos_ < n && bytes_.at(pos_) == '\n') ++pos_;
    } else if (bytes_.at(pos_) == '\n') {
      ++pos_;
    }
  }
  f.text = fromCodePage(raw);
  return f;
}

namespace {

bool isHashWrapped(const QString& s) {
  return s.size() >= 2 && s.startsWith(QLatin1Char('#')) && s.endsWith(QLatin1Char('#'));
}

// A number as the file holds it: point as separator, optional exponent, or
// "&h"; the whole field must be the number.
bool parseFileNumber(const QString& text, double& value) {
  const QString s = text.trimmed();
  if (s.isEmpty()) return false;
  if (s.startsWith(QLatin1Char('&'))) {
    value = Val(s);
    return s.size() > 2;
  }
  bool ok = false;
  value = s.toDouble(&ok);  // C locale: point only
  if (!ok && (s.startsWith(QLatin1Char('.')) || s.startsWith(QLatin1String("-.")))) {
    QString t = s;
    t.insert(s.startsWith(QLatin1Char('-')) ? 1 : 0, QLatin1Char('0'));
    value = t.toDouble(&ok);
  }
  return ok && std::isfinite(value);
}

double parseHashDate(const QString& field) {
  const QString inner = field.mid(1, field.size() - 2).trimmed();
  return DateValue(inner);
}

}  // namespace

QString SequentialReader::readText() { return nextField().text; }

double SequentialReader::readDouble() {
  const Field f = nextField();
  if (!f.quoted) {
    if (f.text.isEmpty()) return 0;
    if (f.text.compare(QLatin1String("#TRUE#"), Qt::CaseInsensitive) == 0) return -1;
    if (f.text.compare(QLatin1String("#FALSE#"), Qt::CaseInsensitive) == 0) return 0;
  }
  double v = 0;
  if (!parseFileNumber(f.text, v)) raise(kTypeMismatch);
  return v;
}

float SequentialReader::readSingle() {
  const double v = readDouble();
  if (std::fabs(v) > 3.402823466e38) raise(kOverflow);
  return static_cast<float>(v);
}

std::int16_t SequentialReader::readInteger() { return CInt(readDouble()); }
std::int32_t SequentialReader::readLong() { return CLng(readDouble()); }

bool SequentialReader::readBoolean() {
  const Field f = nextField();
  if (f.text.compare(QLatin1String("#TRUE#"), Qt::CaseInsensitive) == 0) return true;
  if (f.text.compare(QLatin1String("#FALSE#"), Qt::CaseInsensitive) == 0) return false;
  if (f.quoted) {
    if (f.text.compare(QLatin1String("True"), Qt::CaseInsensitive) == 0) return true;
    if (f.text.compare(QLatin1String("False"), Qt::CaseInsensitive) == 0) return false;
  }
  double v = 0;
  if (!parseFileNumber(f.text, v)) raise(kTypeMismatch);
  return v != 0;
}

double SequentialReader::readDate() {
  const Field f = nextField();
  if (!f.quoted && isHashWrapped(f.text)) return parseHashDate(f.text);
  if (f.quoted) return DateValue(f.text);
  double v = 0;
  if (!parseFileNumber(f.text, v)) raise(kTypeMismatch);
  return v;
}

Variant SequentialReader::readVariant() {
  const Field f = nextField();
  if (f.quoted) return Variant(f.text);
  if (f.text.isEmpty()) return {};
  if (f.text.compare(QLatin1String("#TRUE#"), Qt::CaseInsensitive) == 0) return Variant::boolean(true);
  if (f.text.compare(QLatin1String("#FALSE#"), Qt::CaseInsensitive) == 0) return Variant::boolean(false);
  if (f.text.compare(QLatin1String("#NULL#"), Qt::CaseInsensitive) == 0) return {};
  if (isHashWrapped(f.text)) return Variant::date(parseHashDate(f.text));
  double v = 0;
  if (!parseFileNumber(f.text, v)) return Variant(f.text);  // an unquoted word stays a text
  if (v == std::trunc(v) && !f.text.contains(QLatin1Char('.')) && !f.text.contains(QLatin1Char('E'), Qt::CaseInsensitive)) {
    if (v >= -32768 && v <= 32767) return Variant::integer(static_cast<std::int16_t>(v));
    if (v >= -2147483648.0 && v <= 2147483647.0) return Variant::longValue(static_cast<std::int32_t>(v));
  }
  return Variant(v);
}

QString SequentialReader::readLine() {
  const qsizetype n = bytes_.size();
  if (pos_ >= n) raise(kInputPastEndOfFile);
  qsizetype end = pos_;
  while (end < n && bytes_.at(end) != '\r' && bytes_.at(end) != '\n') ++end;
  const QString line = fromCodePage(bytes_.mid(pos_, end - pos_));
  pos_ = end;
  if (pos_ < n && bytes_.at(pos_) == '\r') ++pos_;
  if (pos_ < n && bytes_.at(pos_) == '\n') ++pos_;
  return line;
}

// ---------------------------------------------------------------------------
// Whole files

QByteArray readWholeFile(const QString& path) {
  if (path.isEmpty()) raise(kBadFileName);
  const QFileInfo info(path);
  if (!info.dir().exists()) raise(kPathNotFound);
  if (!info.exists() || info.isDir()) raise(kFileNotFound);
  QFile f(path);
  if (!f.open(QIODevice::ReadOnly)) raise(kDeviceIOError);
  return f.readAll();
}

void writeWholeFile(const QString& path, const QByteArray& bytes) {
  if (path.isEmpty()) raise(kBadFileName);
  const QFileInfo info(path);
  if (!info.dir().exists()) raise(kPathNotFound);
  QSaveFile f(path);
  if (!f.open(QIODevice::WriteOnly)) raise(kDeviceIOError);
  if (f.write(bytes) != bytes.size()) {
    f.cancelWriting();
    raise(kDeviceIOError);
  }
  if (!f.commit()) raise(kDeviceIOError);
}

}  // namespace rt
