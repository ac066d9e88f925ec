// The string table: every id the code asks for exists in all four
// languages, the file is well formed, and the language blocks answer.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

// Every literal id passed to Res(...) or LoadResString(... + id) in the
// program's sources.
QMap<int, QString> idsUsedInCode() {
  QMap<int, QString> ids;
  const QRegularExpression call(QStringLiteral(R"((?:\bRes|LoadResString)\(\s*(?:[A-Za-z_.()]+\s*\+\s*)?(\d+)\s*\))"));
  const QStringList folders =
      QStringLiteral("shell calc funcs stats convert bank elements lottery chrono calendar geometry app cli").split(' ');
  for (const QString& folder : folders) {
    QDirIterator it(sourcePath(folder), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
      const QString path = it.next();
      QFile f(path);
      if (!f.open(QIODevice::ReadOnly)) continue;
      const QString text = QString::fromUtf8(f.readAll());
      auto m = call.globalMatch(text);
      while (m.hasNext()) {
        const int id = m.next().captured(1).toInt();
        if (id < 10000) ids.insert(id, path);
      }
    }
  }
  return ids;
}

}  // namespace

TEST(StringTable, EveryIdUsedInCodeHasAllFourLanguages) {
  const auto ids = idsUsedInCode();
  ASSERT_FALSE(ids.isEmpty()) << "the source scan found no string ids at all";
  for (auto it = ids.cbegin(); it != ids.cend(); ++it) {
    EXPECT_TRUE(strings::hasAllLanguages(it.key())) << "string " << it.key() << " used in "
                                                    << it.value().toStdString() << " lacks a language";
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
