// Error texts and how they are reported: every code of the table produces its
// lines in all four languages, and ReportError picks kind, title and sound.
#include <QStringList>

#include "shell/ErrorReport.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class ErrorReportTest : public CalvixTest {};

// Every code the table knows, with the number of lines its message has.
std::vector<std::pair<int, int>> tableCodes() {
  std::vector<std::pair<int, int>> codes;
  auto add = [&](int from, int to, int lines) {
    for (int c = from; c <= to; ++c) codes.emplace_back(c, lines);
  };
  add(1, 46, 1);
  codes.emplace_back(47, 2);
  add(48, 49, 1);
  codes.emplace_back(50, 12);
  codes.emplace_back(51, 11);
  add(52, 55, 1);
  add(100, 109, 1);
  add(200, 210, 1);
  codes.emplace_back(202, 2);
  codes.emplace_back(204, 2);
  add(300, 301, 2);
  for (int c : {500, 501, 503}) codes.emplace_back(c, 1);
  add(600, 603, 1);
  codes.emplace_back(700, 1);
  codes.emplace_back(701, 2);
  codes.emplace_back(702, 1);
  add(900, 907, 1);
  for (int c : {910, 912, 916, 917}) codes.emplace_back(c, 1);
  codes.emplace_back(918, 2);
  codes.emplace_back(925, 2);
  codes.emplace_back(1000, 3);
  return codes;
}

QStringList linesOf(const QString& text) {
  EXPECT_TRUE(text.startsWith(Res(2800) + QStringLiteral(":  "))) << text.toStdString();
  return text.mid(Res(2800).size() + 3).split(QLatin1Char('\n'));
}

}  // namespace

TEST_F(ErrorReportTest, EveryCodeOfTheTableHasItsLinesInEveryLanguage) {
  for (int offset : {0, 10000, 20000, 30000}) {
    program().LanguageOffset = offset;
    for (const auto& [code, count] : tableCodes()) {
      const QStringList lines = linesOf(ErrorText(code));
      const int expected = (code == 202 || code == 204) ? 2 : count;  // listed twice above, two lines each
      EXPECT_EQ(lines.size(), expected) << "code " << code << " language " << offset;
      for (const QString& line : lines) {
        // Spanish code 12 is the word "Error" alone, as the table has it.
        if (code == 12 && offset == 0) continue;
        EXPECT_FALSE(line.trimmed().isEmpty()) << "code " << code << " language " << offset;
      }
    }
  }
}

TEST_F(ErrorReportTest, CodesWithSeveralLinesJoinThemInOrder) {
  EXPECT_EQ(linesOf(ErrorText(204)), QStringList({Res(2204), Res(2100)}));
  const QStringList fiftyOne = linesOf(ErrorText(51));
  EXPECT_EQ(fiftyOne.at(1), Res(2092));
  EXPECT_EQ(fiftyOne.at(8), Res(2089));  // the closing lines are shared with 50
  EXPECT_EQ(ErrorText(925), QStringLiteral("Error:  No esperaba que llegase a las 99.999 Sesiones de Trabajo.\n"
                                           "Lo siento, pero la próxima vez pondré el Contador a '1'."));
}

TEST_F(ErrorReportTest, SpanishCode12IsTheBareWordAndOthersAreNot) {
  EXPECT_EQ(ErrorText(12), QStringLiteral("Error:  "));
  program().LanguageOffset = 10000;
  EXPECT_EQ(ErrorText(12), Res(2800) + QStringLiteral(":  Infinite Result."));
}

TEST_F(ErrorReportTest, CodesOutsideTheTableShowOnlyTheWord) {
  for (int code : {0, 56, 99, 110, 211, 502, 604, 703, 908, 911, 919, 999, 1001}) {
    EXPECT_EQ(ErrorText(code), QStringLiteral("Error:  ")) << code;
  }
}

TEST_F(ErrorReportTest, ReportErrorPicksTheKindByStyleAndBuildsTheTitle) {
  program().MainMenuTitle = QStringLiteral("VelozCalc");
  program().SectionTitle = QStringLiteral("Matrices");
  const std::pair<int, int> styles[] = {{3, 3}, {8, 4}, {2, 2}, {4, 1}, {5, 1}};
  for (const auto& [style, kind] : styles) {
    messages.clear();
    ReportError(48, 5, style, 3);
    ASSERT_EQ(messages.shown().size(), 1u) << style;
    const MessageRequest& m = messages.shown()[0];
    EXPECT_EQ(m.kind, kind);
    EXPECT_EQ(m.buttonSet, 3);
    EXPECT_EQ(m.sound, 5);
    EXPECT_EQ(m.text, ErrorText(48));
    EXPECT_EQ(m.title, QStringLiteral("Calvix  -  VelozCalc  -  Matrices"));
  }
  messages.clear();
  for (int style : {0, 1, 6, 7, 9}) ReportError(48, 1, style, 0);
  EXPECT_TRUE(messages.shown().empty());
}
