#include "bank/BanFile.h"

#include <QList>

#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"

namespace {

constexpr int kTextFields = 5;

// The lines of the file without their ends; trailing empty lines are dropped.
QList<QByteArray> splitLines(const QByteArray& bytes) {
  QList<QByteArray> lines;
  for (QByteArray line : bytes.split('\n')) {
    if (line.endsWith('\r')) line.chop(1);
    lines.append(line);
  }
  while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) lines.removeLast();
  return lines;
}

QString readQuoted(rt::SequentialReader& r) {
  const rt::Variant v = r.readVariant();
  if (!v.isText() || !r.lastFieldComplete()) rt::raise(rt::kInputPastEndOfFile);
  // The form has no escapes: a quote or a line break inside a text is a
  // damaged line.
  const QString& t = v.rawText();
  if (t.contains(QLatin1Char('"')) || t.contains(QLatin1Char('\r')) || t.contains(QLatin1Char('\n'))) {
    rt::raise(rt::kTypeMismatch);
  }
  return v.rawText();
}

}  // namespace

QByteArray writeBan(const BanInputs& in) {
  rt::SequentialWriter w;
  w.write({rt::Variant::integer(in.tipo)});
  w.write({rt::Variant::text(in.capital), rt::Variant::text(in.interes), rt::Variant::text(in.tiempo),
           rt::Variant::boolean(in.years), rt::Variant::text(in.aportemes), rt::Variant::text(in.incremes)});
  return w.bytes();
}

bool readBan(const QByteArray& bytes, BanInputs& out) {
  const QList<QByteArray> lines = splitLines(bytes);
  if (lines.size() != 2) return false;
  // The boxes take digits and the decimal symbol only, so a whole second line
  // has exactly two quotes per text.
  if (lines[0].contains('"') || lines[1].count('"') != 2 * kTextFields) return false;
  BanInputs in;
  try {
    rt::SequentialReader head(lines[0]);
    in.tipo = head.readInteger();
    if (!head.atEnd() || in.tipo < 1 || in.tipo > 3) return false;
    rt::SequentialReader body(lines[1]);
    in.capital = readQuoted(body);
    in.interes = readQuoted(body);
    in.tiempo = readQuoted(body);
    in.years = body.readBoolean();
    in.aportemes = readQuoted(body);
    in.incremes = readQuoted(body);
    if (!body.atEnd()) return false;
  } catch (const rt::RuntimeError&) {
    return false;
  }
  out = in;
  return true;
}

bool hasBanExtension(const QString& fileName) { return fileName.right(3).toLower() == QLatin1String("ban"); }
