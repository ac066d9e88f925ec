#include "calc/ListNumber.h"

#include "shell/runtime/NumberText.h"
#include "shell/Strings.h"

namespace {

bool isNumber(const QString& text) {
  if (text.trimmed().isEmpty()) return false;
  double v = 0;
  return rt::tryTextToDouble(text, v);
}

bool partOfWord(QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('.') || c == QLatin1Char(','); }

QString withoutBlanks(QString text) {
  text.remove(QLatin1Char(' '));
  return text;
}

QString numericBeginning(const QString& s) {
  const QString total = Res(4581);
  for (qsizetype len = s.size(); len > 0; --len) {
    const QString candidate = s.left(len);
    if (!isNumber(candidate)) continue;
    const QString rest = s.mid(len);
    if (rest.isEmpty() || candidate.endsWith(QLatin1Char(' ')) || rest.startsWith(QLatin1Char(' ')) ||
        (!total.isEmpty() && rest.startsWith(total))) {
      return withoutBlanks(candidate);
    }
  }
  return {};
}

QString numericEnding(const QString& s) {
  for (qsizetype start = 1; start < s.size(); ++start) {
    const QString candidate = s.mid(start);
    if (!isNumber(candidate)) continue;
    if (!candidate.startsWith(QLatin1Char(' ')) && partOfWord(s.at(start - 1))) continue;
    return withoutBlanks(candidate);
  }
  return {};
}

}  // namespace

QString NumberInLine(const QString& line) {
  QString s = line;
  if (s.startsWith(QLatin1Char(' '))) s.remove(0, 1);
  // History lines are padded with blanks; they carry nothing.
  while (s.endsWith(QLatin1Char(' '))) s.chop(1);
  if (s.isEmpty()) return {};
  QString found = numericBeginning(s);
  if (found.isEmpty() && s.contains(QLatin1String("  "))) found = numericEnding(s);
  return found;
}
