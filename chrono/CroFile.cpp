#include "chrono/CroFile.h"

#include "shell/runtime/SequentialFile.h"

QByteArray writeCro(const QStringList& lines) {
  rt::SequentialWriter w;
  for (const QString& line : lines) w.write({rt::Variant(line)});
  return w.bytes();
}

bool hasCroExtension(const QString& fileName) {
  return fileName.right(3).compare(QStringLiteral("cro"), Qt::CaseInsensitive) == 0;
}
