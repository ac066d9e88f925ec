// The statistics keys of the calculator, driven as a user presses them:
// entry with its limit, the measures and their failures, the pair keys and
// the regression questions, estimates, editing, sorting, erasing, the files
// through the dialogs and the printout.
#include <QFile>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "calc/StatisticsFile.h"
#include "shell/ErrorReport.h"
#include "shell/Printing.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

void keys(CalculatorEngine& e, const QString& sequence) {
  QString error;
  ASSERT_TRUE(runKeySequence(e, sequence, &error)) << error.toStdString();
}

class StatisticsTest : public CalvixTest {
 protected:
  StatisticsStore& s = program().stats;
  CalculatorEngine e;
  QStringList dialogAnswers;
  QList<CalculatorEngine::FileDialogRequest> dialogs;

  void SetUp() override {
    CalvixTest::SetUp();
    e.fileDialog = [this](const CalculatorEngine::FileDialogRequest& r) {
      dialogs << r;
      return dialogAnswers.isEmpty() ? QString() : dialogAnswers.takeFirst();
    };
  }
  QString file(const char* name) const { return appFolder.filePath(QString::fromLatin1(name)); }
  void write(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
  }
};

// ---- Entry ------------------------------------------------------------------------

TEST_F(StatisticsTest, EntryShowsTheComingIndexAndWritesHistory) {
  keys(e, "2.5 X 4 Y 6 Y");
  EXPECT_EQ(s.nx, 1);
  EXPECT_EQ(s.ny, 2);
  EXPECT_EQ(s.X[1], 2.5);
  EXPECT_EQ(s.sumXY, 10);
  EXPECT_EQ(e.func, QStringLiteral("Y  ") + Res(4402) + QStringLiteral(" 2   (^)"));
  EXPECT_TRUE(e.Combo1.lines().contains(QStringLiteral("X  ") + Res(4402) + QStringLiteral(" 1   (^)") +
                                        QString(32, QLatin1Char(' '))));
  EXPECT_EQ(e.entryActive, 0);
  EXPECT_TRUE(e.statisticsPanelRequested);
  EXPECT_TRUE(e.scrollToLast[1]);
  // The next digit starts a new number.
  keys(e, "7");
  EXPECT_EQ(e.numero.text(), QStringLiteral("7"));
}

TEST_F(StatisticsTest, Datum6001IsTakenAnd6002RefusedWithCode2) {
  for (int i = 1; i <= 6000; ++i) s.add(0, 1);
  keys(e, "7 X");
  EXPECT_EQ(s.nx, 6001);
  EXPECT_TRUE(messages.shown().empty());
  keys(e, "8 X");
  EXPECT_EQ(s.nx, 6001);
  EXPECT_EQ(s.sumX, 6007);
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].text, ErrorText(2));
  EXPECT_EQ(messages.shown()[0].title, Res(4007) + QStringLiteral(" X"));
  EXPECT_EQ(e.entryActive, 0);
}

// ---- Measures ---------------------------------------------------------------------

struct MeasureRow {
  const char* name;
  const char* keys;
  const char* result;  // with a point; a comma system reads it with its comma
  const char* numero;
};

const MeasureRow kMeasureRows[] = {
    {"SumX", "1 X 2 X 4.5 X Command15(0)", "7.5", "7.5"},
    {"SquareSumY", "1 Y 2 Y Command2(1)", "5", "5"},
    {"MeanX", "1 X 2 X 4.5 X Command15(2)", "2.5", "2.5"},
    {"GeometricMeanOfANegativeProduct", "2< X 8 X Command15(3)", "4", "4"},
    {"PopulationDeviation", "2 X 4 X Command15(4)", "1", "1"},
    {"SampleDeviation", "2 X 4 X Command15(5)", "1.4142135623731", "1.4142135623731"},
    {"MaxMinShowsBothAndKeepsTheMaximum", "7 Y 3 Y 1.5< Y Command2(6)", "7 (Max)\n-1.5 (Min)", "7"},
};

class StatisticsMeasureKeys : public StatisticsTest, public ::testing::WithParamInterface<SeparatorRun<MeasureRow>> {};

TEST_P(StatisticsMeasureKeys, ShowTheAnswer) {
  const auto& [row, comma] = GetParam();
  if (comma) useComma();
  auto local = [comma](const char* t) {
    QString text = QString::fromUtf8(t);
    if (comma) text.replace(QLatin1Char('.'), QLatin1Char(','));
    return text;
  };
  keys(e, local(row.keys));
  EXPECT_EQ(e.result.text(), local(row.result));
  EXPECT_EQ(e.numero.text(), local(row.numero));
  EXPECT_EQ(e.errorState, 0);
  EXPECT_TRUE(e.Combo1.lines().contains(e.numero.text()));
}

INSTANTIATE_TEST_SUITE_P(Rows, StatisticsMeasureKeys, ::testing::ValuesIn(onBothSeparators(kMeasureRows)),
                         separatorRunName<MeasureRow>);

TEST_F(StatisticsTest, MeasureFailures) {
  keys(e, "Command2(2)");  // no Y data
  EXPECT_EQ(e.result.text(), ErrorText(16));
  keys(e, "5 X Command15(5)");  // n - 1 = 0: the unexpected-failure path
  EXPECT_EQ(e.result.text(), ErrorText(31));
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  EXPECT_EQ(e.errorState, 3);
  keys(e, "MnuClrSTD(0) 1E200 X 1E200 X Command15(3)");  // the product overflows
  EXPECT_EQ(e.result.text(), ErrorText(31));
}

// ---- Pairs, regression, estimates ----------------------------------------------------

TEST_F(StatisticsTest, PairKeysNeedEqualCounts) {
  keys(e, "1 X 2 X 5 Y 12.5");
  keys(e, "Command16(0)");
  EXPECT_EQ(e.result.text(), ErrorText(5));
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  EXPECT_EQ(e.errorState, 3);
  e.Command18_Click();
  keys(e, "MnuClrSTD(2) Command16(4)");
  EXPECT_EQ(e.result.text(), ErrorText(16));
}

TEST_F(StatisticsTest, PairKeysAndEstimates) {
  keys(e, "1 X 2 Y 2 X 4 Y 3 X 6 Y");
  // Command16(2) is the sum of x*y over the sum of y.
  const char* const results[][2] = {{"Command16(0)", "12"}, {"Command16(1)", "28"}, {"Command16(5)", "0"},
                                    {"Command16(6)", "1"},  {"Command16(2)", "2.33333333333333"},
                                    {"Command16(4)", "2"}};
  for (const auto& r : results) {
    keys(e, r[0]);
    EXPECT_EQ(e.result.text(), QString::fromLatin1(r[1])) << r[0];
  }
  EXPECT_EQ(e.func, QStringLiteral("a  (") + Res(4201) + QLatin1Char(')'));
  keys(e, "10 Command84(0)");
  EXPECT_EQ(e.numero.text(), QStringLiteral("5"));
  keys(e, "10 Command84(1)");
  EXPECT_EQ(e.numero.text(), QStringLiteral("20"));
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(StatisticsTest, PotentialAsksOncePerTypeAndCountsTheDiscardedPairs) {
  keys(e, "0 X 5 Y 1 X 3 Y 4 X 24 Y Regresion(1)");
  EXPECT_EQ(e.func, Res(4571) + QLatin1Char(' ') + Res(4202));
  messages.queueButton(0);
  keys(e, "Command16(4)");
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].text, ErrorText(51));
  const QString discarded = Res(4426) + QStringLiteral(" 1");
  EXPECT_EQ(e.result.text(), QStringLiteral("1.5\n") + discarded);
  EXPECT_EQ(e.numero.text(), QStringLiteral("1.5"));
  EXPECT_TRUE(e.Combo1.lines().contains(discarded));
  keys(e, "Command16(5)");
  EXPECT_EQ(messages.shown().size(), 1u);  // asked once
  EXPECT_TRUE(e.result.text().startsWith(QStringLiteral("3\n")));
  keys(e, "Regresion(1)");  // the same type: still asked
  keys(e, "Command16(6)");
  EXPECT_EQ(messages.shown().size(), 1u);
  keys(e, "Regresion(2) Regresion(1)");  // a change of type asks again
  messages.queueButton(1);  // and no gives up
  keys(e, "Command16(4)");
  EXPECT_EQ(messages.shown().size(), 2u);
  EXPECT_EQ(s.regAbort, 1);
  EXPECT_EQ(e.errorState, 0);
}

TEST_F(StatisticsTest, AllPairsBadIsCode52) {
  keys(e, "1 X -1 Y 2 X 0 Y Regresion(2)");
  keys(e, "Command16(4)");
  EXPECT_EQ(messages.shown().size(), 1u);  // the question, accepted by default
  EXPECT_EQ(e.result.text(), ErrorText(52));
  EXPECT_EQ(s.regAbort, 1);
  keys(e, "MnuClrSTD(2) 1 X 5 Y 1 X 6 Y Regresion(0) Command16(4)");
  EXPECT_EQ(e.result.text(), ErrorText(53));
}

// ---- Editing ----------------------------------------------------------------------------

TEST_F(StatisticsTest, DeleteReplaceAndErase) {
  keys(e, "1 X 2 X 3 X 10 Y 20 Y 30 Y");
  keys(e, "MSFlexGrid1(0)=2 Command3(0)");
  EXPECT_EQ(e.func, Res(4574) + QStringLiteral(" X"));
  EXPECT_EQ(s.nx, 2);
  EXPECT_EQ(s.X[2], 3);
  EXPECT_EQ(s.sumXY, 10 + 60);
  keys(e, "MSFlexGrid1(1)=3 7.5 changecell");
  EXPECT_EQ(s.Y[3], 7.5);
  EXPECT_EQ(s.sumY, 37.5);
  EXPECT_EQ(e.func, Res(4417) + QStringLiteral(" Y"));
  keys(e, "MSFlexGrid1(1)=1 borracell");
  EXPECT_EQ(s.ny, 2);
  EXPECT_EQ(s.Y[1], 20);
  keys(e, "MSFlexGrid1(0)=9 Command3(0)");  // no such row
  EXPECT_EQ(s.nx, 2);
  keys(e, "MnuClrSTD(1)");
  EXPECT_EQ(e.func, Res(4566) + QStringLiteral(": Y"));
  EXPECT_EQ(s.ny, 0);
  EXPECT_EQ(s.nx, 2);
  EXPECT_EQ(s.sumXY, 0);
  keys(e, "MnuClrSTD(2)");
  EXPECT_EQ(s.nx, 0);
  EXPECT_EQ(s.sumX2, 0);
}

TEST_F(StatisticsTest, SortingAsksWhetherPairsStayTogether) {
  keys(e, "3 X 30 Y 1 X 10 Y 2 X 20 Y MSFlexGrid1(0)=1");
  const double sumXY = s.sumXY;
  messages.queueButton(0);  // yes: the pairs stay
  keys(e, "ordenaEstad(0)");
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_EQ(messages.shown()[0].title, Res(4567));
  EXPECT_EQ(messages.shown()[0].buttonSet, 7);
  EXPECT_EQ(std::vector<double>(s.X.begin() + 1, s.X.begin() + 4), (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(std::vector<double>(s.Y.begin() + 1, s.Y.begin() + 4), (std::vector<double>{10, 20, 30}));
  EXPECT_EQ(s.sumXY, sumXY);
  messages.queueButton(1);  // no: only Y, descending; sumXY stays as it was
  keys(e, "MSFlexGrid1(1)=1 ordenaEstad(1)");
  EXPECT_EQ(std::vector<double>(s.Y.begin() + 1, s.Y.begin() + 4), (std::vector<double>{30, 20, 10}));
  EXPECT_EQ(std::vector<double>(s.X.begin() + 1, s.X.begin() + 4), (std::vector<double>{1, 2, 3}));
  EXPECT_EQ(s.sumXY, sumXY);
  EXPECT_EQ(s.sumY, 60);
  messages.queueButton(2);  // cancel
  keys(e, "ordenaEstad(0)");
  EXPECT_EQ(s.Y[1], 30);
  // Unequal counts: only the chosen list, after a warning that can be cancelled.
  keys(e, "4 Y");
  messages.queueButton(1);
  keys(e, "ordenaEstad(0)");
  EXPECT_EQ(messages.shown().back().buttonSet, 3);
  EXPECT_EQ(s.Y[1], 30);
  keys(e, "ordenaEstad(0)");
  EXPECT_EQ(std::vector<double>(s.Y.begin() + 1, s.Y.begin() + 5), (std::vector<double>{4, 10, 20, 30}));
}

// ---- Files -------------------------------------------------------------------------------

TEST_F(StatisticsTest, SaveThenOpenReplaysTheEntryAndFillsTheHistory) {
  keys(e, "1.25 X 3< X 7 Y");
  dialogAnswers << file("data.DAT");
  keys(e, "guardarest");
  ASSERT_EQ(dialogs.size(), 1);
  EXPECT_TRUE(dialogs[0].save);
  EXPECT_EQ(dialogs[0].title, Res(4588));
  EXPECT_EQ(dialogs[0].folder, program().AppFolder.toText() + QStringLiteral("datos/"));
  keys(e, "MnuClrSTD(2) Command63");
  dialogAnswers << file("data.DAT");
  keys(e, "abrirest");
  EXPECT_EQ(dialogs[1].title, Res(4400));
  EXPECT_EQ(s.nx, 2);
  EXPECT_EQ(s.ny, 1);
  EXPECT_EQ(s.X[1], 1.25);
  EXPECT_EQ(s.sumX, -1.75);
  EXPECT_EQ(s.sumXY, 8.75);
  EXPECT_EQ(e.numero.text(), QStringLiteral("7"));
  EXPECT_EQ(e.func, QStringLiteral("Y  ") + Res(4402) + QStringLiteral(" 1   (^)"));
  // Each datum wrote its entry line.
  QStringList entries;
  for (const QString& line : e.Combo1.lines()) {
    if (line.contains(QStringLiteral("   (^)"))) entries << line.trimmed();
  }
  EXPECT_EQ(entries, (QStringList{QStringLiteral("X  ") + Res(4402) + QStringLiteral(" 1   (^)"),
                                  QStringLiteral("X  ") + Res(4402) + QStringLiteral(" 2   (^)"),
                                  QStringLiteral("Y  ") + Res(4402) + QStringLiteral(" 1   (^)")}));
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(StatisticsTest, RefusedFilesLeaveTheStoreAsItWas) {
  keys(e, "5 X 6 Y");
  write(file("bad.dat"), "2,0\r\n1\r\nnot a number\r\n");
  QByteArray big = "6001,0\r\n";
  for (int i = 0; i < 6001; ++i) big += "1\r\n";
  write(file("big.dat"), big);
  write(file("good.txt"), "1,0\r\n1\r\n");
  dialogAnswers << file("bad.dat") << file("missing.dat") << file("good.txt") << file("big.dat");
  keys(e, "abrirest abrirest abrirest abrirest");
  ASSERT_EQ(messages.shown().size(), 4u);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(messages.shown()[i].text, ErrorText(1)) << i;
  EXPECT_EQ(messages.shown()[3].text, ErrorText(2));
  EXPECT_EQ(s.nx, 1);
  EXPECT_EQ(s.X[1], 5);
  EXPECT_EQ(s.sumXY, 30);
  // A cancelled dialog does nothing.
  keys(e, "abrirest exporcsv guardarest");
  EXPECT_EQ(messages.shown().size(), 4u);
}

TEST_F(StatisticsTest, CsvExportUsesTheSeparatorOfTheDecimalMark) {
  useComma();
  CalculatorEngine comma;
  comma.fileDialog = e.fileDialog;
  keys(comma, "1,5 X 2 Y");
  dialogAnswers << file("out.txt") << file("out.csv");
  keys(comma, "exporcsv exporcsv");
  EXPECT_EQ(messages.shown().size(), 1u);  // the .txt name is refused
  EXPECT_EQ(dialogs[0].filter, Res(1936));
  QFile f(file("out.csv"));
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  EXPECT_EQ(f.readAll(), QByteArray("1,5;2\r\n"));
}

TEST_F(StatisticsTest, PrintoutListsEveryRowAndUnloadErasesTheStore) {
  keys(e, "1.5 X 2 X 9 Y");
  const PrintDocument doc = e.statisticsDocument();
  QStringList texts;
  for (const PrintLine& line : doc.lines()) {
    QString t;
    for (const PrintSpan& span : line.spans) t += span.text + QLatin1Char('|');
    texts << t;
  }
  EXPECT_TRUE(texts.contains(QStringLiteral("0001|1.5|9|"))) << texts.join(QLatin1Char('\n')).toStdString();
  EXPECT_TRUE(texts.contains(QStringLiteral("0002|2|")));
  EXPECT_TRUE(texts.contains(Res(4584) + QLatin1Char('|')));
  e.Form_Unload();
  EXPECT_EQ(s.nx, 0);
  EXPECT_EQ(s.ny, 0);
}

}  // namespace
