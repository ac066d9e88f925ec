// The saints' table as generated from data/saints: every day of the year has
// its row, the lookups by day and month, and the search with its messages.
#include <QDir>
#include <QFile>

#include "calendar/SaintsTable.h"
#include "shell/runtime/DateTime.h"
#include "tests/support/TestSupport.h"

using calendar::SaintsRow;
using calendar::SaintsTable;

namespace {
class SaintsTableTest : public CalvixTest {
 protected:
  SaintsTable table{QDir(QStringLiteral(CALVIX_BIN_DIR)).filePath(QStringLiteral("cvxcl.dlj"))};
};
}  // namespace

TEST_F(SaintsTableTest, EveryDayOfALeapYearHasSaints) {
  for (double d = rt::DateSerial(2004, 1, 1); d < rt::DateSerial(2005, 1, 1); ++d)
    EXPECT_FALSE(table.saintsOf(d).isEmpty()) << rt::Month(d) << "/" << rt::Day(d);
}

TEST_F(SaintsTableTest, TheYearOfTheDateDoesNotMatter) {
  struct Row {
    int month, day;
    const char* holds;
  } rows[] = {{3, 19, "San José"}, {7, 25, "Santiago"}, {12, 31, "San Silvestre"}, {2, 29, "Chapdelaine"},
              {1, 1, "Santa María"}, {10, 12, "Pilar"}};
  for (const Row& r : rows) {
    for (int year : {1950, 2003, 2024}) {
      if (r.month == 2 && r.day == 29 && year != 2024) continue;
      EXPECT_TRUE(table.saintsOf(rt::DateSerial(year, r.month, r.day)).contains(QString::fromUtf8(r.holds)))
          << r.holds << " " << year;
    }
  }
}

TEST_F(SaintsTableTest, SearchGoesOnFromTheLastFindAndSaysWhenNothingIsLeft) {
  messages.queueText(QStringLiteral("isidoro"));
  const auto first = table.santobusca_Click();
  ASSERT_TRUE(first);
  EXPECT_EQ(first->Fecha, QStringLiteral("04/04/2003"));
  EXPECT_EQ(messages.shown().front().text, QStringLiteral("Introduzca Nombre a Buscar en el Santoral:"));
  const auto second = table.santobuscasig_Click();
  ASSERT_TRUE(second);
  EXPECT_EQ(second->Fecha, QStringLiteral("26/04/2003"));
  EXPECT_EQ(SaintsTable::dateOfRow(*second, 2010), rt::DateSerial(2010, 4, 26));
  while (table.searchNext()) {
  }
  EXPECT_FALSE(table.santobuscasig_Click());
  EXPECT_EQ(messages.shown().back().text,
            QStringLiteral("No se encontraron más coincidencias que contengan el texto: isidoro"));
  EXPECT_EQ(program().MessageSound, 4);

  messages.queueText(QStringLiteral("Zzyzx"));
  EXPECT_FALSE(table.santobusca_Click());
  EXPECT_EQ(messages.shown().back().text,
            QStringLiteral("No se encontraron coincidencias que contengan el texto: Zzyzx"));
}

TEST_F(SaintsTableTest, AMissingTableAnswersNothing) {
  SaintsTable missing(appFolder.filePath(QStringLiteral("cvxcl.dlj")));
  EXPECT_TRUE(missing.saintsOf(rt::DateSerial(2003, 3, 19)).isEmpty());
  EXPECT_FALSE(missing.search(QStringLiteral("José")));
  EXPECT_FALSE(QFile::exists(missing.path()));
}
