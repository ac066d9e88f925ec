// The string table: every id the code asks for has a text in all four
// languages, no translation is a forgotten copy of the Spanish, the files are
// well formed, and the language blocks answer.
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include "shell/ErrorReport.h"
#include "shell/Strings.h"
#include "tests/shell/StringIdScan.h"
#include "tests/support/TestSupport.h"

using namespace idscan;

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
  const QString code =
      codeOnly(QStringLiteral("int a = Res(c == 3 ? 57 : 58) + Res(433 + i) + Res(n * 2); // Res(999)\n"
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

  const QList<Field> fields = fieldsOf(
      QStringLiteral("const char* control; int captionId; void (*press)(E&, int); int row = 0; bool on() const;"));
  ASSERT_EQ(fields.size(), 4);
  IdUses rows;
  addRows(
      QStringLiteral("{ {\"\", 4201, [](E& e, int) { e.go(); }, 3}, {\"\", 4202, nullptr}, {7, 4203, f}, {1, 2, 3} }"),
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
    EXPECT_TRUE(missingLanguages(id).isEmpty())
        << "string " << id << " has no text in " << missingLanguages(id).join(QLatin1Char(' ')).toStdString();
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
      EXPECT_EQ(shapeOf(text), shapeOf(spanish))
          << "string " << id << " in " << kLanguages[lang] << ": \"" << text.toStdString() << "\"";
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
      const int lang =
          QStringList{QStringLiteral("en"), QStringLiteral("fr"), QStringLiteral("ca")}.indexOf(language) + 1;
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
