// The CSV tool: names, the line rule, reading, conversion, the output file
// and the import into the statistics store.
#include <QFile>
#include <QFileInfo>

#include "shell/ErrorReport.h"
#include "shell/StatisticsStore.h"
#include "stats/CsvToolModel.h"
#include "tests/support/TestSupport.h"

namespace {

class CsvToolModelTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    model.Form_Load();
    model.fileDialog = [this](const QString&, const QString&, const QString&) { return answer; };
  }
  QString write(const QString& name, const QByteArray& bytes) {
    const QString path = appFolder.filePath(name);
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
    return path;
  }
  void open(const QString& path) {
    answer = path;
    model.Command1_Click();
  }
  // The texts of the messages shown so far.
  QStringList shown() const {
    QStringList out;
    for (const MessageRequest& m : messages.shown()) out << m.text;
    return out;
  }
  CsvToolModel model;
  QString answer;
};

struct NameRow {
  const char* name;
  bool accepted;
  const char* output;
};

TEST(CsvNames, ExtensionIsTheLastThreeCharactersAndOutputIsLowerCased) {
  const NameRow rows[] = {
      {"LISTA.CSV", true, "listaCvx.csv"},
      {"datos.csv", true, "datosCvx.csv"},
      {"medidasCsv", true, "medidascsv"},  // no ".csv" to replace
      {"datos.txt", false, ""},
      {"datos.csv.bak", false, ""},
  };
  for (const NameRow& r : rows) {
    EXPECT_EQ(csvNameAccepted(QString::fromUtf8(r.name)), r.accepted) << r.name;
    if (r.accepted) {
      EXPECT_EQ(csvOutputName(QString::fromUtf8(r.name)), QString::fromUtf8(r.output)) << r.name;
    }
  }
}

struct LineRow {
  const char* line;
  char in, out;
  const char* converted;
  char separator;
};

TEST(CsvLineRule, ReplacesInTheStatedOrderWithNoQuoteHandling) {
  const LineRow rows[] = {
      {"1.5,2.25,3", ',', ';', "1,5;2,25;3", ';'},
      {"1,5;2,25;3", ';', ',', "1.5,2.25,3", ','},
      {"1.234,5", ',', ';', "1,234;5", ';'},             // a group mark becomes a decimal comma
      {"\"a,b\",1.5", ',', ';', "\"a;b\";1,5", ';'},     // quotes are text like any other
      {"1,5;2", ';', ';', "1,5;2", ';'},                 // same separator both sides: kept
      {"1.5,2", ',', ',', "1.5,2", ','},
      {"1.5;2", '.', ';', "1.5;2", '.'},                 // no rule fits: split at the input one
  };
  for (const LineRow& r : rows) {
    QChar sep;
    EXPECT_EQ(convertCsvLine(QString::fromUtf8(r.line), QLatin1Char(r.in), QLatin1Char(r.out), sep),
              QString::fromUtf8(r.converted))
        << r.line;
    EXPECT_EQ(sep, QLatin1Char(r.separator)) << r.line;
  }
}

TEST_F(CsvToolModelTest, OutputSideFollowsTheSystemDecimalSymbol) {
  EXPECT_EQ(model.Combo2[0], QStringLiteral(", (Coma)"));
  EXPECT_EQ(model.Combo2[1], QStringLiteral(". (Punto)"));
  useComma();
  CsvToolModel comma;
  comma.Form_Load();
  EXPECT_EQ(comma.Combo2[0], QStringLiteral("; (Punto y Coma)"));
  EXPECT_EQ(comma.Combo2[1], QStringLiteral(", (Coma)"));
  EXPECT_EQ(comma.workingSeparator, QLatin1Char(';'));
  EXPECT_EQ(comma.Label5[0], QStringLiteral("0"));
}

TEST_F(CsvToolModelTest, OpeningShowsTheHeadAndTheNamesButConvertsEveryLine) {
  QByteArray fifty;
  for (int i = 1; i <= 50; ++i) fifty += QByteArray::number(i) + ".5," + QByteArray::number(i * 2) + "\r\n";
  open(write(QStringLiteral("LARGO.CSV"), fifty));
  EXPECT_EQ(model.Label4, QStringLiteral("LARGO.CSV"));
  EXPECT_EQ(model.Label3, QStringLiteral("largoCvx.csv"));
  EXPECT_EQ(model.Text1.split(QStringLiteral("\r\n")).size(), 10);
  EXPECT_TRUE(model.Text1.startsWith(QStringLiteral("1.5,2\r\n2.5,4")));
  model.Command4_Click();
  model.Command2_Click();
  ASSERT_EQ(model.MSFlexGrid1.size(), 51);  // heading and 50 rows
  EXPECT_EQ(model.MSFlexGrid1[0], (QStringList{QStringLiteral("Columna 1"), QStringLiteral("Columna 2")}));
  EXPECT_EQ(model.MSFlexGrid1[50], (QStringList{QStringLiteral("50,5"), QStringLiteral("100")}));

  open(write(QStringLiteral("corto.csv"), "a\nb\nc\n"));
  EXPECT_EQ(model.Text1, QStringLiteral("a\r\nb\r\nc"));
  EXPECT_TRUE(model.MSFlexGrid1.isEmpty());  // a new file clears the grid
}

TEST_F(CsvToolModelTest, RefusedOrDamagedFilesChangeNothing) {
  open(write(QStringLiteral("bueno.csv"), "1;2\n"));
  const QString head = model.Text1;
  open(write(QStringLiteral("otro.txt"), "3;4\n"));
  open(write(QStringLiteral("roto.csv"), QByteArray("\x01\x00\x02\xff", 4)));
  open(appFolder.filePath(QStringLiteral("falta.csv")));
  EXPECT_EQ(shown(), (QStringList{ErrorText(901), ErrorText(904), ErrorText(906)}));
  EXPECT_EQ(model.Text1, head);
  EXPECT_EQ(model.Label4, QStringLiteral("bueno.csv"));
}

TEST_F(CsvToolModelTest, DetectionLooksForASemicolonInTheHead) {
  model.Command6_Click();
  EXPECT_EQ(shown(), QStringList{ErrorText(916)});
  open(write(QStringLiteral("esp.csv"), "1,5;2\n"));
  model.Command6_Click();
  EXPECT_EQ(model.Combo1[0], QStringLiteral("; (Punto y Coma)"));
  EXPECT_EQ(model.Combo1[1], QStringLiteral(", (Coma)"));
  open(write(QStringLiteral("ing.csv"), "1.5,2\n"));
  model.Command6_Click();
  EXPECT_EQ(model.Combo1[0], QStringLiteral(", (Coma)"));
  EXPECT_EQ(model.Combo1[1], QStringLiteral(". (Punto)"));
}

TEST_F(CsvToolModelTest, WrittenFileConvertsBackToTheOriginal) {
  const QByteArray original = "x,y\r\n1.5,2.25\r\n-3,4.125\r\n";
  open(write(QStringLiteral("ida.csv"), original));
  model.Command4_Click();
  model.Check1 = true;
  model.Command2_Click();
  const QString converted = appFolder.filePath(QStringLiteral("idaCvx.csv"));
  QFile out(converted);
  ASSERT_TRUE(out.open(QIODevice::ReadOnly));
  EXPECT_EQ(out.readAll(), QByteArray("x;y\r\n1,5;2,25\r\n-3;4,125\r\n"));
  out.close();

  open(converted);
  model.Command5_Click();
  model.Command2_Click();
  QFile back(appFolder.filePath(QStringLiteral("idacvxCvx.csv")));
  ASSERT_TRUE(back.open(QIODevice::ReadOnly));
  EXPECT_EQ(back.readAll(), original);
}

TEST_F(CsvToolModelTest, ImportNeedsAColumnAndAGrid) {
  model.Command3_Click(0);
  open(write(QStringLiteral("d.csv"), "1,2\n"));
  model.Command4_Click();
  model.Command2_Click();
  model.Command3_Click(0);
  EXPECT_EQ(shown(), (QStringList{ErrorText(916), ErrorText(300)}));
  EXPECT_FALSE(model.closeRequested);
}

// Decimal-comma files on a "." system and decimal-point files on a ","
// system both reach the store with their values.
TEST_F(CsvToolModelTest, ImportReadsCellsWithTheSystemNumberRules) {
  struct Run {
    bool commaSystem;
    QByteArray file;
    void (CsvToolModel::*preset)();
  };
  const Run runs[] = {
      {true, "x,y\r\n1.5,2\r\n2.5,4\r\n", &CsvToolModel::Command4_Click},
      {false, "x;y\r\n1,5;2\r\n2,5;4\r\n", &CsvToolModel::Command5_Click},
  };
  for (const Run& r : runs) {
    if (r.commaSystem) useComma();
    else usePoint();
    program().stats.clearAll();
    CsvToolModel m;
    m.Form_Load();
    const QString path = write(QStringLiteral("nums.csv"), r.file);
    m.fileDialog = [&](const QString&, const QString&, const QString&) { return path; };
    m.Command1_Click();
    (m.*r.preset)();
    m.Command2_Click();
    m.selectedColumn = 1;
    m.flexcolX_Click(0);
    m.selectedColumn = 2;
    m.flexcolX_Click(1);
    EXPECT_EQ(m.Label5, (std::array<QString, 2>{QStringLiteral("1"), QStringLiteral("2")}));
    m.Command3_Click(1);
    const StatisticsStore& s = program().stats;
    ASSERT_EQ(s.nx, 2) << r.commaSystem;  // the heading row is passed over
    EXPECT_EQ(s.at(0, 1), 1.5);
    EXPECT_EQ(s.at(1, 2), 4.0);
    EXPECT_EQ(s.sumX, 4.0);
    EXPECT_EQ(s.sumXY, 1.5 * 2 + 2.5 * 4);
    EXPECT_TRUE(m.minimizeRequested);
  }
  EXPECT_TRUE(shown().isEmpty());
}

TEST_F(CsvToolModelTest, CommaCellOnAPointSystemReadsAsGrouping) {
  open(write(QStringLiteral("g.csv"), "1,5\n"));
  model.Combo1 = {CsvToolModel::comboItem(u';'), CsvToolModel::comboItem(u',')};
  model.Combo2 = model.Combo1;
  model.Command2_Click();
  model.flexcolX_Click(0);
  model.Command3_Click(0);
  ASSERT_EQ(program().stats.nx, 1);
  EXPECT_EQ(program().stats.at(0, 1), 15.0);
  EXPECT_TRUE(model.closeRequested);
}

TEST_F(CsvToolModelTest, ChoosingOnlyYKeepsXAndTheStoreStopsAt6001) {
  StatisticsStore& s = program().stats;
  s.add(0, 7);
  s.add(0, 8);
  QByteArray rows;
  for (int i = 1; i <= 6005; ++i) rows += QByteArray::number(i) + "\n";
  open(write(QStringLiteral("big.csv"), rows));
  model.Command2_Click();
  model.flexcolX_Click(1);
  model.Command3_Click(1);
  EXPECT_EQ(s.nx, 2);
  EXPECT_EQ(s.sumX, 15.0);
  EXPECT_EQ(s.ny, 6001);
  EXPECT_EQ(s.at(1, 6001), 6001.0);
  EXPECT_EQ(s.sumY, 6001.0 * 6002 / 2);
  EXPECT_EQ(shown(), QStringList{ErrorText(301)});
}

TEST_F(CsvToolModelTest, ClearingTheChoiceResetsBothColumns) {
  model.selectedColumn = 3;
  model.flexcolX_Click(0);
  model.flexcolX_Click(1);
  EXPECT_EQ(model.Label5[1], QStringLiteral("3"));
  model.flexcolX_Click(2);
  EXPECT_EQ(model.Label5, (std::array<QString, 2>{QStringLiteral("0"), QStringLiteral("0")}));
}

}  // namespace
