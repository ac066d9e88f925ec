#include "calc/StatisticsFile.h"

#include <charconv>
#include <cmath>

#include "shell/runtime/NumberText.h"
#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"
#include "shell/StatisticsStore.h"

namespace {

double readValue(rt::SequentialReader& r) {
  const double v = r.readDouble();
  if (!r.lastFieldComplete()) rt::raise(rt::kInputPastEndOfFile);
  return v;
}

}  // namespace

QString datNumber(double v) {
  QString s = rt::Str(v).trimmed();
  bool ok = false;
  if (s.toLatin1().toDouble(&ok) == v && ok) return s;
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, v).ptr;
  return QString::fromLatin1(buffer, end - buffer).toUpper();
}

DatRead readDat(const QByteArray& bytes, DatContents& out) {
  DatContents in;
  try {
    // The counts: two whole numbers on the first line.
    const qsizetype eol = bytes.indexOf('\n');
    if (eol < 0) return DatRead::Damaged;
    rt::SequentialReader head(bytes.left(eol));
    const double nx = head.readDouble();
    const double ny = head.readDouble();
    if (!head.atEnd()) return DatRead::Damaged;
    if (!(nx >= 0 && ny >= 0)) return DatRead::Damaged;
    if (nx > StatisticsStore::kMaxData || ny > StatisticsStore::kMaxData) return DatRead::TooMany;
    if (nx != std::floor(nx) || ny != std::floor(ny)) return DatRead::Damaged;
    rt::SequentialReader body(bytes.mid(eol + 1));
    in.x.reserve(static_cast<std::size_t>(nx));
    in.y.reserve(static_cast<std::size_t>(ny));
    for (int i = 0; i < static_cast<int>(nx); ++i) in.x.push_back(readValue(body));
    for (int i = 0; i < static_cast<int>(ny); ++i) in.y.push_back(readValue(body));
    // Anything but blank lines after the last value is not this file.
    while (!body.atEnd()) {
      if (!body.readLine().trimmed().isEmpty()) return DatRead::Damaged;
    }
  } catch (const rt::RuntimeError&) {
    return DatRead::Damaged;
  }
  out = std::move(in);
  return DatRead::Ok;
}

QByteArray writeDat(const StatisticsStore& store) {
  QByteArray bytes;
  bytes.reserve((store.nx + store.ny + 1) * 24);
  bytes += QByteArray::number(store.nx) + ',' + QByteArray::number(store.ny) + "\r\n";
  for (int list = 0; list < 2; ++list) {
    for (int i = 1; i <= store.count(list); ++i) bytes += datNumber(store.at(list, i)).toLatin1() + "\r\n";
  }
  return bytes;
}

QByteArray csvExport(const StatisticsStore& store, const QString& decimalSymbol) {
  const QString separator = decimalSymbol == QLatin1String(",") ? QStringLiteral(";") : QStringLiteral(",");
  const int rows = std::max<int>(store.nx, store.ny);
  QString text;
  for (int i = 1; i <= rows; ++i) {
    if (i <= store.nx) text += rt::NumberToText(store.at(0, i));
    if (i <= store.ny) text += separator + rt::NumberToText(store.at(1, i));
    text += QStringLiteral("\r\n");
  }
  return rt::toCodePage(text);
}

bool hasExtension(const QString& fileName, const QString& ext) {
  return fileName.right(ext.size()).compare(ext, Qt::CaseInsensitive) == 0;
}
