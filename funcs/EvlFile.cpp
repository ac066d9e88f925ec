#include "funcs/EvlFile.h"

#include <QList>

#include "shell/runtime/RuntimeError.h"
#include "shell/runtime/SequentialFile.h"

namespace {

constexpr int kTextFields = 7;

QList<QString> textsOf(const EvlInputs& in) {
  return {in.start, in.end, in.points, in.increment, in.variables, in.f, in.g};
}

bool survivesFile(const QString& text) {
  if (text.contains(QLatin1Char('"')) || text.contains(QLatin1Char('\r')) || text.contains(QLatin1Char('\n'))) {
    return false;
  }
  return rt::fromCodePage(rt::toCodePage(text)) == text;
}

// The lines of the file without their ends; a file must end its last line.
bool splitLines(const QByteArray& bytes, QList<QByteArray>& lines) {
  if (!bytes.endsWith('\n')) return false;
  for (QByteArray line : bytes.split('\n')) {
    if (line.endsWith('\r')) line.chop(1);
    lines.append(line);
  }
  while (!lines.isEmpty() && lines.last().trimmed().isEmpty()) lines.removeLast();
  return true;
}

QString readQuoted(rt::SequentialReader& r) {
  const rt::Variant v = r.readVariant();
  // A text the form could not have written (a quote or a line break in it)
  // is a damaged line, and a file that opens can always be saved again.
  if (!v.isText() || !survivesFile(v.rawText())) rt::raise(rt::kTypeMismatch);
  return v.rawText();
}

}  // namespace

bool evlWritable(const EvlInputs& inputs) {
  for (const QString& t : textsOf(inputs)) {
    if (!survivesFile(t)) return false;
  }
  return true;
}

QByteArray writeEvl(const EvlInputs& in) {
  rt::SequentialWriter w;
  w.write({rt::Variant::integer(in.mode)});
  w.write({rt::Variant::text(in.start), rt::Variant::text(in.end), rt::Variant::text(in.points),
           rt::Variant::text(in.increment), rt::Variant::boolean(in.byPoints), rt::Variant::text(in.variables),
           rt::Variant::text(in.f), rt::Variant::text(in.g)});
  return w.bytes();
}

bool readEvl(const QByteArray& bytes, EvlInputs& out) {
  QList<QByteArray> lines;
  if (!splitLines(bytes, lines) || lines.size() != 2) return false;
  // Texts cannot hold quotes, so a whole second line has exactly two per text.
  if (lines[0].contains('"') || lines[1].count('"') != 2 * kTextFields) return false;
  EvlInputs in;
  try {
    rt::SequentialReader head(lines[0]);
    in.mode = head.readInteger();
    if (!head.atEnd() || (in.mode != 0 && in.mode != 1)) return false;
    rt::SequentialReader body(lines[1]);
    in.start = readQuoted(body);
    in.end = readQuoted(body);
    in.points = readQuoted(body);
    in.increment = readQuoted(body);
    in.byPoints = body.readBoolean();
    in.variables = readQuoted(body);
    in.f = readQuoted(body);
    in.g = readQuoted(body);
    if (!body.atEnd()) return false;
  } catch (const rt::RuntimeError&) {
    return false;
  }
  out = in;
  return true;
}

bool hasEvlExtension(const QString& fileName) { return fileName.right(3).toLower() == QLatin1String("evl"); }
