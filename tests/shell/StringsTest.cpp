// The string table: every id the code asks for has a text in all four
// languages, no translation is a forgotten copy of the Spanish, the files are
// well formed, and the language blocks answer.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include "shell/ErrorReport.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

constexpr int kIdBlock = 10000;  // ids of one language run below this

// --- Reading the program's sources ----------------------------------------

// The code of a source file with comments removed and every string or
// character literal emptied ("" and ' '), so that brackets and digits inside
// texts never count.
QString codeOnly(const QString& text) {
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
const QList<Source>& programSources() {
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
        if (f.open(QIODevice::ReadOnly)) list.append({root.relativeFilePath(path), codeOnly(QString::fromUtf8(f.readAll()))});
      }
    }
    return list;
  }();
  return sources;
}

// --- Small parsing helpers ------------------------------------------------

// Index of the bracket that closes the one at open, or -1.
qsizetype closing(const QString& s, qsizetype open) {
  int depth = 0;
  for (qsizetype i = open; i < s.size(); ++i) {
    const QChar c = s.at(i);
    if (c == QLatin1Char('(') || c == QLatin1Char('[') || c == QLatin1Char('{')) ++depth;
    else if (c == QLatin1Char(')') || c == QLatin1Char(']') || c == QLatin1Char('}')) {
      if (--depth == 0) return i;
    }
  }
  return -1;
}

// The expression with whatever sits inside nested brackets blanked out.
QString topLevel(const QString& expr) {
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
QString valuePart(const QString& arg) {
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
QStringList topLevelItems(const QString& list) {
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

bool isIdLiteral(const QString& item, int* id) {
  static const QRegularExpression number(QStringLiteral(R"(^\d{1,4}$)"));
  if (!number.match(item).hasMatch()) return false;
  *id = item.toInt();
  return *id > 0;
}

// The argument texts of every call to one of the functions.
QStringList callArguments(const QString& code, const QString& functions) {
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
QList<int> literalIds(const QString& arg) {
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
QStringList idNames(const QString& arg) {
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
QList<const Source*> neighbours(const Source& file) {
  const QString stem = file.path.left(file.path.lastIndexOf(QLatin1Char('.')));
  QList<const Source*> list;
  for (const Source& s : programSources()) {
    if (s.path.left(s.path.lastIndexOf(QLatin1Char('.'))) == stem) list << &s;
  }
  return list;
}

// "kTitle = 1234", "kTitle{1234}", "kNames[] = {4525, 4524, 4526}".
void addConstants(const Source& file, const QString& name, IdUses& ids) {
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

QList<Field> fieldsOf(const QString& body) {
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
                             : type == QLatin1String("int")                                             ? Field::Int
                                                                                                         : Field::Other;
    fields.append({d.captured(2), kind, !d.captured(3).isEmpty()});
  }
  return fields;
}

bool itemFits(const QString& item, Field::Kind kind) {
  const bool text = item.startsWith(QLatin1Char('"')) || item == QLatin1String("nullptr");
  if (kind == Field::Text) return text;
  if (kind == Field::Int) return !text && !item.startsWith(QLatin1Char('[')) && !item.startsWith(QLatin1Char('{'));
  return true;
}

// Every brace list in code shaped like a row of the struct gives the ids in
// its id fields.
void addRows(const QString& code, const QString& path, const QList<Field>& fields, const QSet<QString>& idFields,
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
void addTables(const QSet<QString>& memberNames, IdUses& ids) {
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
void addLoopRanges(const Source& file, IdUses& ids) {
  static const QRegularExpression call(QStringLiteral(R"(\b(?:Res|LoadResString)\(\s*(\d{1,4})\s*\+\s*([A-Za-z_]\w*)\s*\))"));
  auto m = call.globalMatch(file.code);
  while (m.hasNext()) {
    const auto hit = m.next();
    const QString index = hit.captured(2);
    const QRegularExpression loop(
        QStringLiteral(R"(\bfor\s*\(\s*(?:int|auto|qsizetype)?\s*%1\s*=\s*(\d+)\s*;\s*%1\s*(<=?)\s*(\d+)\s*;)").arg(index));
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
IdUses idsUsedInCode() {
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
IdUses errorCodesUsedInCode() {
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

}  // namespace

namespace {

const char* const kLanguages[] = {"es", "en", "fr", "ca"};

// The languages (of en, fr, ca) in which an id has no text.
QStringList missingLanguages(int id) {
  QStringList missing;
  for (int lang = 0; lang < 4; ++lang) {
    if (LoadResString(lang * kIdBlock + id).isEmpty()) missing << QString::fromLatin1(kLanguages[lang]);
  }
  return missing;
}

// One row of the allow-list of texts that stay as in Spanish.
struct Allowed {
  int id = 0;
  QStringList languages;
  QString reason;
  int line = 0;
};

QList<Allowed> allowedIdentical() {
  QList<Allowed> rows;
  QFile f(sourcePath(QStringLiteral("shell/strings/identical-allowed.txt")));
  if (!f.open(QIODevice::ReadOnly)) return rows;
  const QStringList lines = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
  for (int i = 0; i < lines.size(); ++i) {
    const QString line = lines[i].section(QLatin1Char('#'), 0, 0).trimmed();
    if (line.isEmpty()) continue;
    const QStringList cells = line.split(QLatin1Char('\t'), Qt::SkipEmptyParts);
    rows.append({cells.value(0).toInt(), cells.value(1).split(QLatin1Char(',')), cells.value(2), i + 1});
  }
  return rows;
}

}  // namespace

// The scan itself: each way of naming an id in code is found, and numbers
// that only sit beside an id are not taken for one.
TEST(StringScan, FindsIdsInCallsConstantsListsAndTables) {
  const QString code = codeOnly(QStringLiteral(
      "int a = Res(c == 3 ? 57 : 58) + Res(433 + i) + Res(n * 2); // Res(999)\n"
      "QString s = QStringLiteral(\"Res(998)\");\n"));
  QList<int> ids;
  for (const QString& arg : callArguments(code, QStringLiteral("Res|LoadResString"))) ids << literalIds(arg);
  EXPECT_EQ(ids, (QList<int>{57, 58, 433}));

  IdUses ranges;
  addLoopRanges({QStringLiteral("t.cpp"), QStringLiteral("for (int k = 1; k <= 3; ++k) add(Res(540 + k));\n"
                                                         "for (int j = 0; j < n; ++j) add(Res(700 + j));")},
                ranges);
  EXPECT_EQ(ranges.keys(), (QList<int>{541, 542, 543}));

  EXPECT_EQ(idNames(QStringLiteral("k.labelId")), QStringList{QStringLiteral("labelId")});
  EXPECT_EQ(idNames(QStringLiteral("kNames[index]")), QStringList{QStringLiteral("kNames")});
  EXPECT_TRUE(idNames(QStringLiteral("PlotAppearance::roleString(i)")).isEmpty());
  EXPECT_TRUE(idNames(QStringLiteral("3403 + i")).isEmpty());
  EXPECT_EQ(idNames(QStringLiteral("f.code == 52 ? kFirst : k.last")),
            (QStringList{QStringLiteral("kFirst"), QStringLiteral("last")}));

  const QList<Field> fields =
      fieldsOf(QStringLiteral("const char* control; int captionId; void (*press)(E&, int); int row = 0; bool on() const;"));
  ASSERT_EQ(fields.size(), 4);
  IdUses rows;
  addRows(QStringLiteral("{ {\"\", 4201, [](E& e, int) { e.go(); }, 3}, {\"\", 4202, nullptr}, {7, 4203, f}, {1, 2, 3} }"),
          QStringLiteral("t.cpp"), fields, {QStringLiteral("captionId")}, rows);
  EXPECT_EQ(rows.keys(), (QList<int>{4201, 4202}));
}

TEST(StringTable, EveryIdUsedInCodeHasATextInAllFourLanguages) {
  const IdUses ids = idsUsedInCode();
  // The tables the calculator's keys and menus are built from must be seen.
  ASSERT_TRUE(ids.contains(4201) && ids.contains(4713) && ids.contains(5020)) << "the source scan misses the tables";
  for (auto it = ids.cbegin(); it != ids.cend(); ++it) {
    const QStringList missing = missingLanguages(it.key());
    EXPECT_TRUE(missing.isEmpty()) << "string " << it.key() << " used in " << it.value().toStdString()
                                   << " has no text in " << missing.join(QLatin1Char(' ')).toStdString();
  }
}

class ErrorTexts : public CalvixTest {};

TEST_F(ErrorTexts, EveryErrorCodeUsedInCodeHasItsLinesInAllFourLanguages) {
  const IdUses codes = errorCodesUsedInCode();
  ASSERT_FALSE(codes.isEmpty());
  for (auto it = codes.cbegin(); it != codes.cend(); ++it) {
    for (int lang = 0; lang < 4; ++lang) {
      program().LanguageOffset = lang * kIdBlock;
      const QString text = ErrorText(it.key()).section(QStringLiteral(":  "), 1);
      EXPECT_FALSE(text.isEmpty() || text.split(QLatin1Char('\n')).contains(QString()))
          << "error " << it.key() << " used in " << it.value().toStdString() << " lacks a line in " << kLanguages[lang];
    }
  }
}

TEST(StringTable, EveryRowWithASpanishTextIsTranslated) {
  for (int id = 0; id < kIdBlock; ++id) {
    if (LoadResString(id).isEmpty()) continue;
    EXPECT_TRUE(missingLanguages(id).isEmpty()) << "string " << id << " has no text in "
                                                << missingLanguages(id).join(QLatin1Char(' ')).toStdString();
  }
}

// A translation equal to the Spanish is almost always a text nobody
// translated; the few words that really are the same are listed, with why.
TEST(StringTable, NoTranslationIsACopyOfTheSpanishUnlessAllowed) {
  QMap<int, QStringList> allowed;
  for (const Allowed& row : allowedIdentical()) allowed[row.id] << row.languages;
  for (int id = 0; id < kIdBlock; ++id) {
    const QString spanish = LoadResString(id);
    if (spanish.isEmpty()) continue;
    for (int lang = 1; lang < 4; ++lang) {
      const QString language = QString::fromLatin1(kLanguages[lang]);
      if (LoadResString(lang * kIdBlock + id) != spanish || allowed.value(id).contains(language)) continue;
      ADD_FAILURE() << "string " << id << " in " << kLanguages[lang] << " is still the Spanish \""
                    << spanish.toStdString() << "\"";
    }
  }
}

// What code relies on in a text: its %1 placeholders, its "&" mnemonic, its
// line breaks, the "|" of a file filter, and the blank it starts or ends with
// to sit next to another text.
QString shapeOf(const QString& text) {
  static const QRegularExpression placeholder(QStringLiteral(R"(%\d)"));
  QStringList marks;
  auto m = placeholder.globalMatch(text);
  while (m.hasNext()) marks << m.next().captured();
  marks.sort();
  QString plain = text;
  plain.remove(QStringLiteral("&&"));
  return marks.join(QLatin1Char(',')) + QStringLiteral(" &%1 n%2 |%3 <%4 >%5")
                                            .arg(plain.count(QLatin1Char('&')))
                                            .arg(text.count(QLatin1Char('\n')))
                                            .arg(text.count(QLatin1Char('|')))
                                            .arg(text.startsWith(QLatin1Char(' ')))
                                            .arg(text.endsWith(QLatin1Char(' ')));
}

TEST(StringTable, TranslationsKeepPlaceholdersMnemonicsBreaksAndEdgeBlanks) {
  for (int id = 0; id < kIdBlock; ++id) {
    const QString spanish = LoadResString(id);
    if (spanish.isEmpty()) continue;
    for (int lang = 1; lang < 4; ++lang) {
      const QString text = LoadResString(lang * kIdBlock + id);
      EXPECT_EQ(shapeOf(text), shapeOf(spanish)) << "string " << id << " in " << kLanguages[lang] << ": \""
                                                 << text.toStdString() << "\"";
    }
  }
}

TEST(StringTable, AllowListRowsAreWellFormedAndStillNeeded) {
  const QList<Allowed> rows = allowedIdentical();
  ASSERT_FALSE(rows.isEmpty());
  const QStringList reasons = QStringLiteral("name symbol unit word").split(QLatin1Char(' '));
  QSet<int> seen;
  for (const Allowed& row : rows) {
    const std::string where = "identical-allowed.txt:" + std::to_string(row.line);
    EXPECT_TRUE(reasons.contains(row.reason)) << where << " gives no known reason";
    EXPECT_FALSE(seen.contains(row.id)) << where << " repeats id " << row.id;
    seen.insert(row.id);
    const QString spanish = LoadResString(row.id);
    EXPECT_FALSE(spanish.isEmpty()) << where << " names an id with no text";
    for (const QString& language : row.languages) {
      const int lang = QStringList{QStringLiteral("en"), QStringLiteral("fr"), QStringLiteral("ca")}.indexOf(language) + 1;
      ASSERT_GT(lang, 0) << where << " names no language";
      EXPECT_EQ(LoadResString(lang * kIdBlock + row.id), spanish) << where << ": the text differs now, drop it";
    }
  }
}

TEST(StringTable, FilesHaveOneRowPerIdWithFiveCells) {
  const QDir dir(sourcePath(QStringLiteral("shell/strings")));
  const QStringList files = dir.entryList({QStringLiteral("*.tsv")}, QDir::Files);
  ASSERT_FALSE(files.isEmpty());
  QMap<int, QString> seen;  // id -> file that holds it
  for (const QString& name : files) {
    QFile f(dir.filePath(name));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << name.toStdString();
    const QStringList lines = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
    int lineNo = 0;
    for (const QString& line : lines) {
      ++lineNo;
      if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
      const std::string where = name.toStdString() + ":" + std::to_string(lineNo);
      const QStringList cells = line.split(QLatin1Char('\t'));
      EXPECT_EQ(cells.size(), 5) << where << ": " << line.toStdString();
      EXPECT_FALSE(line.endsWith(QLatin1Char('\r'))) << where << " ends in CR";
      bool ok = false;
      const int id = cells.value(0).toInt(&ok);
      EXPECT_TRUE(ok && id >= 0 && id < 10000) << where << " has a bad id";
      EXPECT_FALSE(seen.contains(id)) << "id " << id << " is in " << seen.value(id).toStdString() << " and at "
                                      << where;
      seen.insert(id, name);
    }
  }
}

class StringBlocks : public CalvixTest {};

TEST_F(StringBlocks, LanguageOffsetSelectsTheBlock) {
  EXPECT_EQ(Res(51), QStringLiteral("Aceptar"));
  program().LanguageOffset = 10000;
  EXPECT_EQ(Res(51), QStringLiteral("OK"));
  program().LanguageOffset = 20000;
  EXPECT_EQ(Res(51), QStringLiteral("Accepter"));
  program().LanguageOffset = 30000;
  EXPECT_EQ(Res(51), QStringLiteral("Acceptar"));
  EXPECT_EQ(LoadResString(10051), QStringLiteral("OK"));
}

TEST_F(StringBlocks, AccentedSpanishTextsSurviveTheResource) {
  EXPECT_EQ(Res(21), QStringLiteral("Calvix Premium  -  Centro de Control"));
  EXPECT_EQ(Res(27), QStringLiteral("Menú Principal"));
}

TEST_F(StringBlocks, UnknownIdGivesEmptyText) { EXPECT_TRUE(Res(9999).isEmpty()); }
