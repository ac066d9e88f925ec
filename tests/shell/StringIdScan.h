#pragma once
// Finds the string ids the program's sources ask for, so a test can check that
// each has a text in every language. It reads the code as text: literal ids in
// Res and LoadResString calls (both arms of a condition, the base of
// "base + i" and the whole range when i runs over a literal loop), named
// constants and lists of ids, and the rows of tables whose id fields a call
// reads ("Res(key.captionId)"). Ids computed by functions are out of its reach.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

#include "tests/support/TestSupport.h"

namespace idscan {
constexpr int kIdBlock = 10000;  // ids of one language run below this

// --- Reading the program's sources ----------------------------------------

// The code of a source file with comments removed and every string or
// character literal emptied ("" and ' '), so that brackets and digits inside
// texts never count.
inline QString codeOnly(const QString& text) {
  QString out;
  out.reserve(text.size());
  const qsizetype n = text.size();
  auto isWord = [](QChar c) { return c.isLetterOrNumber() || c == QLatin1Char('_'); };
  for (qsizetype i = 0; i < n; ++i) {
    const QChar c = text.at(i);
    const QChar next = i + 1 < n ? text.at(i + 1) : QChar();
    if (c == QLatin1Char('/') && next == QLatin1Char('/')) {
      while (i < n && text.at(i) != QLatin1Char('\n')) ++i;
      out += QLatin1Char('\n');
    } else if (c == QLatin1Char('/') && next == QLatin1Char('*')) {
      const qsizetype end = text.indexOf(QStringLiteral("*/"), i + 2);
      i = end < 0 ? n : end + 1;
      out += QLatin1Char(' ');
    } else if (c == QLatin1Char('"') && i > 0 && text.at(i - 1) == QLatin1Char('R')) {
      const qsizetype open = text.indexOf(QLatin1Char('('), i);
      const QString close = QLatin1Char(')') + text.mid(i + 1, open - i - 1) + QLatin1Char('"');
      const qsizetype end = text.indexOf(close, open);
      i = end < 0 ? n : end + close.size() - 1;
      out += QStringLiteral("\"\"");
    } else if (c == QLatin1Char('"') || (c == QLatin1Char('\'') && !(i > 0 && isWord(text.at(i - 1))))) {
      qsizetype j = i + 1;
      while (j < n && text.at(j) != c && text.at(j) != QLatin1Char('\n')) j += text.at(j) == QLatin1Char('\\') ? 2 : 1;
      i = j;
      out += c == QLatin1Char('"') ? QStringLiteral("\"\"") : QStringLiteral("' '");
    } else {
      out += c;
    }
  }
  return out;
}

struct Source {
  QString path;
  QString code;
};

// Every .cpp and .h of the program: the top-level folders that are built
// (they hold a CMakeLists.txt), tests and benchmarks aside.
inline const QList<Source>& programSources() {
  static const QList<Source> sources = [] {
    QList<Source> list;
    const QDir root(sourcePath(QString()));
    for (const QString& folder : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
      if (folder == QLatin1String("tests") || folder == QLatin1String("bench")) continue;
      if (!QFile::exists(root.filePath(folder + QStringLiteral("/CMakeLists.txt")))) continue;
      QDirIterator it(root.filePath(folder), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                      QDirIterator::Subdirectories);
      while (it.hasNext()) {
        const QString path = it.next();
        QFile f(path);
        if (f.open(QIODevice::ReadOnly))
          list.append({root.relativeFilePath(path), codeOnly(QString::fromUtf8(f.readAll()))});
      }
    }
    return list;
  }();
  return sources;
}

// --- Small parsing helpers ------------------------------------------------

// Index of the bracket that closes the one at open, or -1.
inline qsizetype closing(const QString& s, qsizetype open) {
  int depth = 0;
  for (qsizetype i = open; i < s.size(); ++i) {
    const QChar c = s.at(i);
    if (c == QLatin1Char('(') || c == QLatin1Char('[') || c == QLatin1Char('{'))
      ++depth;
    else if (c == QLatin1Char(')') || c == QLatin1Char(']') || c == QLatin1Char('}')) {
      if (--depth == 0) return i;
    }
  }
  return -1;
}

// The expression with whatever sits inside nested brackets blanked out.
inline QString topLevel(const QString& expr) {
  QString out = expr;
  int depth = 0;
  for (qsizetype i = 0; i < out.size(); ++i) {
    const QChar c = out.at(i);
    const bool open = c == QLatin1Char('(') || c == QLatin1Char('[') || c == QLatin1Char('{');
    const bool close = c == QLatin1Char(')') || c == QLatin1Char(']') || c == QLatin1Char('}');
    if (close) --depth;
    if (depth > 0 && !close) out[i] = QLatin1Char(' ');
    if (open) ++depth;
  }
  return out;
}

// The values an argument can take: the arms of "c ? a : b" without the
// condition, or the whole argument when it has no condition.
inline QString valuePart(const QString& arg) {
  QString flat = topLevel(arg);
  flat.replace(QStringLiteral("::"), QStringLiteral("##"));
  // Each piece that ends in '?' is a condition: blank it.
  qsizetype start = 0;
  for (qsizetype i = 0; i < flat.size(); ++i) {
    const QChar c = flat.at(i);
    if (c == QLatin1Char('?')) {
      for (qsizetype j = start; j < i; ++j) flat[j] = QLatin1Char(' ');
    }
    if (c == QLatin1Char('?') || c == QLatin1Char(':')) start = i + 1;
  }
  return flat.replace(QStringLiteral("##"), QStringLiteral("::"));
}

// The items of a list, split at the commas outside any bracket.
inline QStringList topLevelItems(const QString& list) {
  QStringList items;
  const QString flat = topLevel(list);
  qsizetype start = 0;
  for (qsizetype i = 0; i <= flat.size(); ++i) {
    if (i == flat.size() || flat.at(i) == QLatin1Char(',')) {
      items << list.mid(start, i - start).trimmed();
      start = i + 1;
    }
  }
  if (items.size() == 1 && items.first().isEmpty()) items.clear();
  return items;
}

inline bool isIdLiteral(const QString& item, int* id) {
  static const QRegularExpression number(QStringLiteral(R"(^\d{1,4}$)"));
  if (!number.match(item).hasMatch()) return false;
  *id = item.toInt();
  return *id > 0;
}

// The argument texts of every call to one of the functions.
inline QStringList callArguments(const QString& code, const QString& functions) {
  QStringList args;
  const QRegularExpression call(QStringLiteral(R"(\b(?:%1)\s*\()").arg(functions));
  auto m = call.globalMatch(code);
  while (m.hasNext()) {
    const qsizetype open = m.next().capturedEnd() - 1;
    const qsizetype close = closing(code, open);
    if (close > open) args << code.mid(open + 1, close - open - 1);
  }
  return args;
}

// Literal ids at the top level of an argument: "57", both arms of
// "c ? 57 : 58", the base of "433 + i". Numbers compared, multiplied or
// divided are not ids.
inline QList<int> literalIds(const QString& arg) {
  QList<int> ids;
  const QString flat = valuePart(arg);
  static const QRegularExpression literal(QStringLiteral(R"((?<![\w.])(\d+)(?![\w.]))"));
  static const QRegularExpression before(QStringLiteral(R"((?:[=!<>]=|[<>*/%])\s*$)"));
  static const QRegularExpression after(QStringLiteral(R"(^\s*(?:[=!<>]=|[<>*/%]))"));
  auto m = literal.globalMatch(flat);
  while (m.hasNext()) {
    const auto hit = m.next();
    if (before.match(flat.left(hit.capturedStart())).hasMatch()) continue;
    if (after.match(flat.mid(hit.capturedEnd())).hasMatch()) continue;
    int id = 0;
    if (isIdLiteral(hit.captured(1), &id)) ids << id;
  }
  return ids;
}

// Names at the top level of an argument that hold an id: "kTitle" in
// "Res(kTitle)", "labelId" in "Res(t.labelId)", "kNames" in "Res(kNames[i])".
// Function calls, the language offset and the index added to a base
// ("i" in "3403 + i") are not ids.
inline QStringList idNames(const QString& arg) {
  QStringList names;
  const QString flat = valuePart(arg);
  static const QRegularExpression name(
      QStringLiteral(R"((?<![\w:])(?<![-+*]\s)(?<![-+*])([A-Za-z_]\w*)(?!\w)(?!\s*(?:\(|::|\.|->)))"));
  auto m = name.globalMatch(flat);
  while (m.hasNext()) {
    const QString n = m.next().captured(1);
    if (n.contains(QLatin1String("ffset")) || n == QLatin1String("int")) continue;
    names << n;
  }
  return names;
}

// --- Where an id lives in code --------------------------------------------

using IdUses = QMap<int, QString>;  // id -> file that uses it

// The file and its partner (.h beside .cpp) whose code a local name may live in.
inline QList<const Source*> neighbours(const Source& file) {
  const QString stem = file.path.left(file.path.lastIndexOf(QLatin1Char('.')));
  QList<const Source*> list;
  for (const Source& s : programSources()) {
    if (s.path.left(s.path.lastIndexOf(QLatin1Char('.'))) == stem) list << &s;
  }
  return list;
}

// "kTitle = 1234", "kTitle{1234}", "kNames[] = {4525, 4524, 4526}".
inline void addConstants(const Source& file, const QString& name, IdUses& ids) {
  const QRegularExpression scalar(QStringLiteral(R"(\b%1\s*(?:=\s*|\{\s*)(\d+)\s*[;,})])").arg(name));
  const QRegularExpression list(QStringLiteral(R"(\b%1\s*(?:\[[^\]]*\])?\s*=?\s*\{)").arg(name));
  for (const Source* s : neighbours(file)) {
    auto m = scalar.globalMatch(s->code);
    while (m.hasNext()) {
      int id = 0;
      if (isIdLiteral(m.next().captured(1), &id)) ids.insert(id, s->path);
    }
    auto l = list.globalMatch(s->code);
    while (l.hasNext()) {
      const qsizetype open = l.next().capturedEnd() - 1;
      const QStringList items = topLevelItems(s->code.mid(open + 1, closing(s->code, open) - open - 1));
      for (const QString& item : items) {
        int id = 0;
        if (isIdLiteral(item, &id)) ids.insert(id, s->path);
      }
    }
  }
}

// A struct's fields in order: what kind of value each holds and whether it
// may be left out of an initializer.
struct Field {
  QString name;
  enum Kind { Text, Int, Other } kind;
  bool defaulted;
};

inline QList<Field> fieldsOf(const QString& body) {
  QList<Field> fields;
  static const QRegularExpression functionPointer(QStringLiteral(R"(\(\s*\*\s*(\w+)\s*\))"));
  static const QRegularExpression declaration(QStringLiteral(R"(^(.*?)([A-Za-z_]\w*)\s*(=.*|\{.*\})?$)"));
  const QString flat = topLevel(body);
  qsizetype start = 0;
  for (qsizetype i = 0; i < flat.size(); ++i) {
    if (flat.at(i) != QLatin1Char(';')) continue;
    const QString decl = body.mid(start, i - start).simplified();
    start = i + 1;
    if (const auto fp = functionPointer.match(decl); fp.hasMatch()) {
      fields.append({fp.captured(1), Field::Other, false});
      continue;
    }
    if (decl.contains(QLatin1Char('(')) || decl.startsWith(QLatin1String("static"))) continue;  // a method
    const auto d = declaration.match(decl);
    if (!d.hasMatch()) continue;
    const QString type = d.captured(1).simplified();
    const Field::Kind kind = type == QLatin1String("const char*") || type == QLatin1String("const char *") ? Field::Text
                             : type == QLatin1String("int")                                                ? Field::Int
                                                            : Field::Other;
    fields.append({d.captured(2), kind, !d.captured(3).isEmpty()});
  }
  return fields;
}

inline bool itemFits(const QString& item, Field::Kind kind) {
  const bool text = item.startsWith(QLatin1Char('"')) || item == QLatin1String("nullptr");
  if (kind == Field::Text) return text;
  if (kind == Field::Int) return !text && !item.startsWith(QLatin1Char('[')) && !item.startsWith(QLatin1Char('{'));
  return true;
}

// Every brace list in code shaped like a row of the struct gives the ids in
// its id fields.
inline void addRows(const QString& code, const QString& path, const QList<Field>& fields, const QSet<QString>& idFields,
                    IdUses& ids) {
  int required = 0;
  for (int i = 0; i < fields.size(); ++i) {
    if (!fields[i].defaulted) required = i + 1;
  }
  for (qsizetype open = code.indexOf(QLatin1Char('{')); open >= 0; open = code.indexOf(QLatin1Char('{'), open + 1)) {
    const qsizetype close = closing(code, open);
    if (close < 0) break;
    const QString inside = code.mid(open + 1, close - open - 1);
    if (topLevel(inside).contains(QLatin1Char(';'))) continue;  // a block of code, not a row
    const QStringList items = topLevelItems(inside);
    if (items.size() < required || items.size() > fields.size()) continue;
    bool fits = true;
    for (int i = 0; i < items.size() && fits; ++i) fits = itemFits(items[i], fields[i].kind);
    if (!fits) continue;
    for (int i = 0; i < items.size(); ++i) {
      int id = 0;
      if (idFields.contains(fields[i].name) && isIdLiteral(items[i], &id)) ids.insert(id, path);
    }
  }
}

// Tables of rows: a struct whose int fields are read as ids ("Res(key.captionId)").
// A named struct's rows are looked for in every file that names the type; an
// unnamed one's in the initializer that follows it.
inline void addTables(const QSet<QString>& memberNames, IdUses& ids) {
  static const QRegularExpression structStart(QStringLiteral(R"(\bstruct\s+(\w*)\s*(?::[^{;]*)?\{)"));
  for (const Source& s : programSources()) {
    auto m = structStart.globalMatch(s.code);
    while (m.hasNext()) {
      const auto hit = m.next();
      const qsizetype open = hit.capturedEnd() - 1;
      const qsizetype close = closing(s.code, open);
      if (close < 0) continue;
      const QList<Field> fields = fieldsOf(s.code.mid(open + 1, close - open - 1));
      QSet<QString> idFields;
      for (const Field& f : fields) {
        if (f.kind == Field::Int && memberNames.contains(f.name)) idFields.insert(f.name);
      }
      if (idFields.isEmpty()) continue;
      const QString type = hit.captured(1);
      if (type.isEmpty()) {
        const qsizetype init = s.code.indexOf(QLatin1Char('{'), close + 1);
        if (init > 0) addRows(s.code.mid(init, closing(s.code, init) - init + 1), s.path, fields, idFields, ids);
        continue;
      }
      const QRegularExpression named(QStringLiteral(R"(\b%1\b)").arg(type));
      for (const Source& user : programSources()) {
        if (user.code.contains(named)) addRows(user.code, user.path, fields, idFields, ids);
      }
    }
  }
}

// "Res(3314 + i)" inside "for (int i = 0; i < 5; ++i)": every id of the range.
// The loop must start shortly before the call, within the same few lines.
inline void addLoopRanges(const Source& file, IdUses& ids) {
  static const QRegularExpression call(
      QStringLiteral(R"(\b(?:Res|LoadResString)\(\s*(\d{1,4})\s*\+\s*([A-Za-z_]\w*)\s*\))"));
  auto m = call.globalMatch(file.code);
  while (m.hasNext()) {
    const auto hit = m.next();
    const QString index = hit.captured(2);
    const QRegularExpression loop(
        QStringLiteral(R"(\bfor\s*\(\s*(?:int|auto|qsizetype)?\s*%1\s*=\s*(\d+)\s*;\s*%1\s*(<=?)\s*(\d+)\s*;)")
            .arg(index));
    const qsizetype from = qMax<qsizetype>(0, hit.capturedStart() - 400);
    QRegularExpressionMatch last;
    auto l = loop.globalMatch(file.code.mid(from, hit.capturedStart() - from));
    while (l.hasNext()) last = l.next();
    if (!last.hasMatch()) continue;
    const int base = hit.captured(1).toInt();
    const int end = last.captured(3).toInt() + (last.captured(2) == QLatin1String("<=") ? 1 : 0);
    for (int k = last.captured(1).toInt(); k < end && base + k < kIdBlock; ++k) ids.insert(base + k, file.path);
  }
}

// Every string id the program asks for by a literal: in a Res or
// LoadResString call, through a named constant or list of ids, or in a table
// of rows whose id fields a call reads.
inline IdUses idsUsedInCode() {
  IdUses ids;
  QSet<QString> memberNames;
  for (const Source& s : programSources()) {
    addLoopRanges(s, ids);
    for (const QString& arg : callArguments(s.code, QStringLiteral("Res|LoadResString"))) {
      for (int id : literalIds(arg)) ids.insert(id, s.path);
      for (const QString& name : idNames(arg)) {
        addConstants(s, name, ids);
        const QRegularExpression member(QStringLiteral(R"((?:\.|->)\s*%1\b)").arg(name));
        if (valuePart(arg).contains(member)) memberNames.insert(name);
      }
    }
  }
  addTables(memberNames, ids);
  ids.removeIf([](auto it) { return it.key() >= kIdBlock; });
  return ids;
}

// Error codes given literally to ErrorText or ReportError.
inline IdUses errorCodesUsedInCode() {
  IdUses codes;
  for (const Source& s : programSources()) {
    for (const QString& arg : callArguments(s.code, QStringLiteral("ErrorText|ReportError"))) {
      const QStringList items = topLevelItems(arg);
      if (items.isEmpty()) continue;
      for (int code : literalIds(items.first())) codes.insert(code, s.path);
    }
  }
  return codes;
}

}  // namespace idscan
