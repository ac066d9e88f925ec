// The converter's model: tables, the four click rules, conversions with the
// calculator's value and with direct entry, the inverse, the exponential
// form, registers, history and its printout.
#include <QStringList>
#include <initializer_list>

#include "convert/ConverterModel.h"
#include "shell/Printing.h"
#include "shell/Registers.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class ConverterModelTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    model.Form_Load();
  }
  void clicks(std::initializer_list<int> buttons) {
    for (int b : buttons) model.Command1_Click(b);
  }
  void withDisplay(const QString& text) {
    model.calculatorDisplay = [text] { return text; };
  }
  ConverterModel model;
};

// Longitud: 3 Kilómetros, 6 ¤ Metros, 9 Milímetros, 17 Millas Estatuto.
constexpr int kKm = 3, kM = 6, kMm = 9;

}  // namespace

TEST_F(ConverterModelTest, OpensOnLengthWithEmptyButtonsBeyondTheTable) {
  EXPECT_EQ(model.item, QStringLiteral("Longitud"));
  EXPECT_EQ(model.Label11, Res(1242));
  EXPECT_EQ(model.Command1Caption[6], QStringLiteral("¤ Metros {m}"));
  EXPECT_EQ(model.factor[38], 2.54e-05);
  ASSERT_TRUE(model.magnitud_Click(QStringLiteral("Longitud2")));
  EXPECT_EQ(model.Command1Caption[15], QStringLiteral("Iteru (Río)"));
  EXPECT_TRUE(model.Command1Caption[16].isEmpty());
  model.Command1_Click(20);  // an empty button does nothing
  EXPECT_EQ(model.etapa, 0);
  EXPECT_TRUE(model.selected().isEmpty());
  EXPECT_FALSE(model.magnitud_Click(QStringLiteral("temperatura")));
}

TEST_F(ConverterModelTest, ClickRules) {
  const struct {
    const char* name;
    std::initializer_list<int> clicks;
    int etapa;
    QList<int> selected;
    const char* from;
    const char* to;
    const char* factor;
    int unidad0;
  } rows[] = {
      {"first unit", {kKm}, 1, {kKm}, "Kilómetros", "", "", kKm},
      {"rule 1: the first unit again", {kKm, kKm}, 0, {}, "", "", "", kKm},
      {"two units convert", {kKm, kM}, 2, {kKm, kM}, "Kilómetros", "¤ Metros {m}", "1000", kKm},
      {"rule 2: the final unit again", {kKm, kM, kM}, 1, {kKm}, "Kilómetros", "", "", kKm},
      {"rule 3: the first unit at etapa 2", {kKm, kM, kKm}, 1, {kM}, "¤ Metros {m}", "", "", kM},
      {"rule 3 then a new final unit", {kKm, kM, kKm, kMm}, 2, {kM, kMm}, "¤ Metros {m}", "Milímetros", "1000", kM},
      {"rule 4: a third unit starts again", {kKm, kM, kMm}, 1, {kMm}, "Milímetros", "", "", kMm},
  };
  for (const auto& row : rows) {
    model.Command2_Click();
    clicks(row.clicks);
    EXPECT_EQ(model.etapa, row.etapa) << row.name;
    EXPECT_EQ(model.selected(), row.selected) << row.name;
    EXPECT_EQ(model.Label12[0], QString::fromUtf8(row.from)) << row.name;
    EXPECT_EQ(model.Label12[1], QString::fromUtf8(row.to)) << row.name;
    EXPECT_EQ(model.Label3, QString::fromUtf8(row.factor)) << row.name;
    EXPECT_EQ(model.unidad[0], row.unidad0) << row.name;
  }
}

TEST_F(ConverterModelTest, TakesTheCalculatorValueUnlessZeroOrOne) {
  const struct {
    const char* display;
    bool comma;
    const char* text2;
    const char* text4;
    int historyLines;
  } rows[] = {
      {"2.5", false, "2.5", "2500", 3},  {"2,5", true, "2,5", "2500", 3}, {"1", false, "", "", 2},
      {"0", false, "", "", 2},          {"-3", false, "-3", "-3000", 3}, {"Error", false, "", "", 2},
  };
  for (const auto& row : rows) {
    if (row.comma) useComma();
    else usePoint();
    model.borrhis_Click();
    model.Command2_Click();
    withDisplay(QString::fromUtf8(row.display));
    clicks({kKm, kM});
    EXPECT_EQ(model.Text2, QString::fromUtf8(row.text2)) << row.display;
    EXPECT_EQ(model.Text4, QString::fromUtf8(row.text4)) << row.display;
    EXPECT_EQ(model.Label3, QStringLiteral("1000")) << row.display;
    ASSERT_EQ(model.List1.size(), row.historyLines) << row.display;
    EXPECT_EQ(model.ListIndex, row.historyLines - 2);
    EXPECT_EQ(model.List1.last(), QStringLiteral(" "));
  }
}

TEST_F(ConverterModelTest, HistoryLinesOfAConversion) {
  withDisplay(QStringLiteral("2.5"));
  clicks({kKm, kM});
  EXPECT_EQ(model.List1, QStringList({Res(1292) + " Kilómetros " + Res(1293) + " ¤ Metros {m} = 1000",
                                      "2.5 Kilómetros = 2500 ¤ Metros {m}", " "}));
  EXPECT_EQ(model.ListIndex, 1);
}

TEST_F(ConverterModelTest, DirectEntryWithEnterOnBothSeparators) {
  const struct {
    bool comma;
    const char* typed;
    const char* text2;
    const char* text4;
  } rows[] = {
      {false, "1.5", "1.5", "0.0015"}, {true, "1.5", "1,5", "0,0015"}, {true, "1,5", "1,5", "0,0015"},
      {false, "12ab3", "123", "0.123"}, {false, "-2e3", "-2e3", "-2"},
      {false, "19\b5", "15", "0.015"},  // backspace takes the last character
  };
  for (const auto& row : rows) {
    if (row.comma) useComma();
    else usePoint();
    model.Command2_Click();
    clicks({kM, kKm});
    model.typeText2(QString::fromUtf8(row.typed));
    EXPECT_EQ(model.Text2, QString::fromUtf8(row.text2));
    model.Text2_KeyPress(13);
    EXPECT_EQ(model.Text4, QString::fromUtf8(row.text4)) << row.typed;
    EXPECT_EQ(model.List1.at(model.List1.size() - 2),
              model.Text2 + " ¤ Metros {m} = " + model.Text4 + " Kilómetros");
    EXPECT_TRUE(model.selectText2);
  }
}

TEST_F(ConverterModelTest, EnterIsIgnoredWithoutTwoUnitsOrANumber) {
  model.Command1_Click(kM);
  model.typeText2(QStringLiteral("5"));
  model.Text2_Enter();
  EXPECT_TRUE(model.Text4.isEmpty());
  model.Command1_Click(kKm);
  model.typeText2(QStringLiteral("-"));
  model.Text2_Enter();
  EXPECT_TRUE(model.Text4.isEmpty());
  EXPECT_EQ(model.List1.size(), 2);  // only the conversion of the click
}

TEST_F(ConverterModelTest, OverflowIsReportedAndLeavesNoValueLine) {
  ASSERT_TRUE(model.magnitud_Click(QStringLiteral("tiempo")));
  clicks({0, 32});  // eons to attoseconds: 3.16e34
  model.typeText2(QStringLiteral("1e300"));
  model.Text2_Enter();
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_TRUE(messages.shown().front().text.startsWith(Res(2800))) << "the shared error routine's text";
  EXPECT_TRUE(model.Text4.isEmpty());
  EXPECT_EQ(model.List1.size(), 2);
  EXPECT_EQ(model.Label3, QStringLiteral("3.1556952E+34"));
}

TEST_F(ConverterModelTest, InverseSwapsTheUnits) {
  clicks({kKm, kM});
  model.typeText2(QStringLiteral("7"));
  model.Text2_Enter();
  model.Command4_Click();
  EXPECT_EQ(model.Label12[0], QStringLiteral("¤ Metros {m}"));
  EXPECT_EQ(model.Label12[1], QStringLiteral("Kilómetros"));
  EXPECT_EQ(model.selected(), QList<int>({kKm, kM}));
  EXPECT_EQ(model.Label3, QStringLiteral("0.001"));
  EXPECT_TRUE(model.Text2.isEmpty());
  EXPECT_TRUE(model.Text4.isEmpty());
  model.Command2_Click();
  model.Command1_Click(kKm);
  model.Command4_Click();  // no final unit: nothing
  EXPECT_EQ(model.etapa, 1);
}

TEST_F(ConverterModelTest, ExponentialFormCountsTheDigitsThatMatter) {
  const struct {
    double value;
    const char* point;
    const char* comma;
  } rows[] = {
      {1000, "1.00e+03", "1,00e+03"},           // 10^3/S and 10^4/S are whole: 4 - 2 places
      {2.54, "2.540e+00", "2,540e+00"},         // the decimal point counts in n
      {0.001, "1.00e-03", "1,00e-03"},          // "0." and the zeros after it cost
      {1234.5, "1.23450e+03", "1,23450e+03"},
      {2.54 / 7, "3.6285714286e-01", "3,6285714286e-01"},  // n above 9: ten places
      {1.0 / 3600, "2.78e-04", "2,78e-04"},     // 10^i/S is 36000 * 10^(i-1): all whole
      {1.055e18, "1.0550e+18", "1,0550e+18"},   // the exponent part is left out
      {-0.25, "-2.50e-01", "-2,50e-01"},
  };
  for (const auto& row : rows) {
    usePoint();
    EXPECT_EQ(ConverterModel::exponentialText(row.value), QString::fromLatin1(row.point)) << row.value;
    useComma();
    EXPECT_EQ(ConverterModel::exponentialText(row.value), QString::fromLatin1(row.comma)) << row.value;
  }
}

TEST_F(ConverterModelTest, Command6RewritesFactorAndResultAndLogsThem) {
  withDisplay(QStringLiteral("3"));
  clicks({kKm, kMm});
  model.Command6_Click();
  EXPECT_EQ(model.Label3, QStringLiteral("1.0000e+06"));  // 10^6/S and 10^7/S whole: 7 - 2 digits
  EXPECT_EQ(model.Text4, QStringLiteral("3.000000e+06"));
  ASSERT_EQ(model.List1.size(), 6);
  EXPECT_TRUE(model.List1.at(3).endsWith(QStringLiteral(" = 1.0000e+06")));
  EXPECT_EQ(model.List1.at(4), QStringLiteral("3 Kilómetros = 3.000000e+06 Milímetros"));
  model.Command2_Click();
  model.Command6_Click();  // nothing to rewrite
  EXPECT_EQ(model.List1.size(), 6);
}

TEST_F(ConverterModelTest, TablesConvertThroughTheirOwnBase) {
  const struct {
    const char* table;
    int from;
    int to;
    const char* factor;
  } rows[] = {
      {"presion", 10, 19, "100000"},   // bar to Pa, on a torr base
      {"presion", 17, 18, "10"},       // kPa to hPa
      {"informat", 6, 1, "8192"},      // Kilobytes in bits
      {"informat", 0, 7, "128"},       // KiloBits in bytes
      {"Superficie5", 9, 3, "2734"},   // 2733.9999999999995 in 15 digits
      {"numeronda", 0, 1, "100"},
  };
  for (const auto& row : rows) {
    ASSERT_TRUE(model.magnitud_Click(QString::fromLatin1(row.table)));
    clicks({row.from, row.to});
    EXPECT_EQ(model.Label3, QString::fromUtf8(row.factor)) << row.table;
  }
}

TEST_F(ConverterModelTest, TableChangeResetsButKeepsHistoryAndEmptiesTheNote) {
  ASSERT_TRUE(model.magnitud_Click(QStringLiteral("frecuencia")));
  EXPECT_EQ(model.Label9, Res(1247) + " " + Res(1320));
  clicks({1, 2});
  ASSERT_EQ(model.List1.size(), 2);
  ASSERT_TRUE(model.magnitud_Click(QStringLiteral("Longitud")));
  EXPECT_TRUE(model.Label9.isEmpty());
  EXPECT_EQ(model.etapa, 0);
  EXPECT_TRUE(model.selected().isEmpty());
  EXPECT_TRUE(model.Label3.isEmpty());
  EXPECT_EQ(model.factorConv, 0);
  EXPECT_EQ(model.List1.size(), 2);
  clicks({kKm, kM});
  model.borrhis_Click();  // clearing the history keeps the units
  EXPECT_TRUE(model.List1.isEmpty());
  EXPECT_EQ(model.ListIndex, -1);
  EXPECT_EQ(model.etapa, 2);
  EXPECT_EQ(model.selected(), QList<int>({kKm, kM}));
}

TEST_F(ConverterModelTest, FactorGoesToARegisterWithItsLabel) {
  model.Command3_Click(1);
  EXPECT_EQ(RegisterValue(1), 0) << "no final unit: nothing";
  clicks({kKm, kM});
  model.Command3_Click(1);
  EXPECT_EQ(RegisterValue(1), 1000);
  EXPECT_EQ(RegisterLabel(1), Res(1292) + " Kilómetros " + Res(1293) + " ¤ Metros {m}");
}

TEST_F(ConverterModelTest, HistoryShowsAtItsLastLineButOne) {
  model.Command8_Click();
  EXPECT_TRUE(model.List1Visible);
  EXPECT_EQ(model.ListIndex, -1);
  withDisplay(QStringLiteral("4"));
  clicks({kKm, kM});
  model.Command8_Click();
  EXPECT_FALSE(model.List1Visible);
  model.ListIndex = 0;
  model.Command8_Click();
  EXPECT_TRUE(model.List1Visible);
  EXPECT_EQ(model.ListIndex, 1);
}

TEST_F(ConverterModelTest, PrintedHistoryEndsWithTheRegisters) {
  EXPECT_FALSE(model.hisimp_Click()) << "an empty history prints nothing";
  withDisplay(QStringLiteral("2"));
  clicks({kKm, kM});
  QStringList texts;
  const PrintDocument doc = model.historyDocument();
  for (const PrintLine& line : doc.lines()) {
    QString text;
    for (const PrintSpan& span : line.spans) text += span.text;
    texts << text;
  }
  const qsizetype first = texts.indexOf(model.List1.first());
  ASSERT_GE(first, 0);
  EXPECT_EQ(texts.at(first + 1), model.List1.at(1));
  const qsizetype registers = texts.indexOf(Res(1297));
  ASSERT_GT(registers, first);
  EXPECT_EQ(texts.size() - registers - 1, 4);
  EXPECT_TRUE(texts.at(0).isEmpty() || texts.join(QLatin1Char('\n')).contains(Res(1296)));
}

TEST_F(ConverterModelTest, CalculatorLinkAsksBeforeClosingTheNormalOne) {
  int opened = 0, closed = 0;
  model.openScientificCalculator = [&] { ++opened; };
  model.closeNormalCalculator = [&] { ++closed; };
  model.Command7_Click();
  EXPECT_EQ(opened, 1);
  EXPECT_TRUE(messages.shown().empty());
  program().CalculatorMode = QStringLiteral("normalita");
  messages.queueButton(1);  // cancel
  model.Command7_Click();
  EXPECT_EQ(opened, 1);
  EXPECT_EQ(messages.shown().back().text, Res(1294));
  messages.queueButton(0);
  model.Command7_Click();
  EXPECT_EQ(opened, 2);
  EXPECT_EQ(closed, 1);
  EXPECT_EQ(program().CalculatorMode.toText(), QStringLiteral("avanzada"));
}

TEST_F(ConverterModelTest, PrefixesAreShownAsInformation) {
  model.Prefijos_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  const QStringList lines = messages.shown().front().text.split(QLatin1Char('\n'));
  ASSERT_EQ(lines.size(), 20);
  EXPECT_EQ(lines.first(), QStringLiteral("yotta    Y   (1e+24)"));
  EXPECT_EQ(lines.last(), QStringLiteral("yocto    y    (1e-24)"));
}
