// The geometry window's model through its handlers: navigation and the
// program-wide row, the boxes and their messages, refusals, the decimal
// adjust, copying to the registers, and the inline calculator's rules.
#include <cmath>

#include "geometry/GeometryModel.h"
#include "shell/ProgramState.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/runtime/NumberText.h"
#include "tests/support/TestSupport.h"

namespace {

class GeometryModelTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    m.Form_Load();
  }
  void choose(const QString& name) {
    const qsizetype i = m.Combo1Items.indexOf(name);
    ASSERT_GE(i, 0) << name.toStdString();
    m.Combo1_Click(static_cast<int>(i));
  }
  void type(const QString& label, const QString& text) {
    const int box = m.boxOf(label);
    ASSERT_GE(box, 0) << label.toStdString();
    m.typeText1(box, text);
  }
  QString calc(const QString& line) {
    m.Text3 = line;
    EXPECT_TRUE(m.Text3_KeyPress(kKeyEnter, false));
    return m.Text3;
  }
  const MessageRequest* lastMessage() const { return messages.shown().empty() ? nullptr : &messages.shown().back(); }
  GeometryModel m;
};

}  // namespace

TEST_F(GeometryModelTest, NavigationWrapsBothWaysAndTheRowIsProgramWide) {
  EXPECT_EQ(m.figureIndex(), 1);
  EXPECT_EQ(m.Label4, QStringLiteral("Círculo"));
  m.chameleonButton1_Click(false);
  EXPECT_EQ(m.figureIndex(), 54);
  EXPECT_EQ(m.Label4, QStringLiteral("Zona Esférica"));
  m.chameleonButton1_Click(true);
  EXPECT_EQ(m.figureIndex(), 1);
  choose(QStringLiteral("Cono 2"));
  EXPECT_EQ(program().FigureIndex, 6);
  EXPECT_EQ(m.Combo1ListIndex, 5);
  // A window opened again comes back to the same figure.
  GeometryModel again;
  again.Form_Load();
  EXPECT_EQ(again.Label4, QStringLiteral("Cono 2"));
  EXPECT_EQ(again.visibleBoxes, 2);
  EXPECT_EQ(again.Label1[1], QStringLiteral("g"));
}

TEST_F(GeometryModelTest, RedrawShowsTheRowsBoxesLinesAndClearsResults) {
  choose(QStringLiteral("Tronco de Pirámide"));
  EXPECT_EQ(m.visibleBoxes, 6);
  EXPECT_EQ(m.lineVisible, (std::array{true, true, true}));
  type(QStringLiteral("B"), QStringLiteral("4"));
  for (const char* l : {"b", "P", "p", "a", "h"}) type(QString::fromLatin1(l), QStringLiteral("1"));
  m.chameleonButton2_Click();
  EXPECT_TRUE(m.hasResults());
  choose(QStringLiteral("Pirámide Oblícua"));
  EXPECT_FALSE(m.hasResults());
  EXPECT_EQ(m.lineVisible, (std::array{false, false, true}));
  EXPECT_EQ(m.Text2, (std::array<QString, 3>{}));
  EXPECT_EQ(m.Picture3, (std::array<QString, 3>{}));
  EXPECT_EQ(m.boxOf(QStringLiteral("P")), -1);  // hidden boxes have no label
  EXPECT_EQ(m.boxOf(QStringLiteral("b")), -1);  // labels are case-sensitive
}

TEST_F(GeometryModelTest, CalculationShowsResultsAndTheirFormulas) {
  choose(QStringLiteral("Cilindro"));
  type(QStringLiteral("r"), QStringLiteral("1"));
  type(QStringLiteral("h"), QStringLiteral("2"));
  m.chameleonButton2_Click();
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(m.Text2[0], rt::NumberToText(4 * std::acos(-1.0)));
  EXPECT_EQ(m.Text2[2], QStringLiteral("6.28318530717959"));
  EXPECT_EQ(m.Picture3[1], QStringLiteral(" 2 ¶ r (r + h)"));
}

TEST_F(GeometryModelTest, EmptyBoxIsReportedTakesZeroAndTheCalculationGoesOn) {
  choose(QStringLiteral("Rectángulo"));
  type(QStringLiteral("b"), QStringLiteral("3"));
  m.chameleonButton2_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  EXPECT_TRUE(lastMessage()->text.contains(QStringLiteral("Parámetro No Definido")));
  EXPECT_TRUE(lastMessage()->text.endsWith(QStringLiteral("h")));
  EXPECT_EQ(lastMessage()->title, QStringLiteral("GeoKORD  -  Error"));
  EXPECT_EQ(m.Text1[1], QStringLiteral("0"));
  EXPECT_EQ(m.Text2[0], QStringLiteral("6"));
  EXPECT_EQ(m.Text2[1], QStringLiteral("0"));
  // A text that is not a number counts as 0, with no message.
  messages.clear();
  type(QStringLiteral("h"), QStringLiteral("abc"));
  m.chameleonButton2_Click();
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(m.Text2[0], QStringLiteral("6"));
}

TEST_F(GeometryModelTest, RefusedFigureReportsAndClearsTheResults) {
  choose(QStringLiteral("Casquete Esférico"));
  type(QStringLiteral("R"), QStringLiteral("2"));
  type(QStringLiteral("h"), QStringLiteral("2"));
  m.chameleonButton2_Click();
  EXPECT_TRUE(m.hasResults());  // h = R is allowed
  type(QStringLiteral("h"), QStringLiteral("2.5"));
  m.chameleonButton2_Click();
  ASSERT_NE(lastMessage(), nullptr);
  EXPECT_EQ(lastMessage()->text, QStringLiteral("Error:  h > R"));
  EXPECT_EQ(lastMessage()->sound, 1);
  EXPECT_EQ(m.refusal, QStringLiteral("h > R"));
  EXPECT_FALSE(m.hasResults());
  EXPECT_EQ(m.Text2, (std::array<QString, 3>{}));
  // A triangle that cannot close is refused too, not shown as nonsense.
  choose(QStringLiteral("Triángulo 2"));
  for (const char* l : {"a", "b"}) type(QString::fromLatin1(l), QStringLiteral("1"));
  type(QStringLiteral("c"), QStringLiteral("5"));
  m.chameleonButton2_Click();
  EXPECT_EQ(lastMessage()->text, QStringLiteral("Error:  Los parámetros no forman la figura."));
  EXPECT_FALSE(m.hasResults());
}

TEST_F(GeometryModelTest, DecimalAdjustRoundsTheShownResults) {
  choose(QStringLiteral("Círculo"));
  type(QStringLiteral("r"), QStringLiteral("0.5"));
  m.chameleonButton2_Click();
  EXPECT_EQ(m.Check1Caption, QStringLiteral("OFF"));
  EXPECT_EQ(m.Text2[0], QStringLiteral("3.14159265358979"));
  m.UpDown1_Change(3);
  m.Check1_Click(true);
  EXPECT_EQ(m.Check1Caption, QStringLiteral("3"));
  EXPECT_EQ(m.Text2[0], QStringLiteral("3.142"));
  EXPECT_EQ(m.Text2[1], QStringLiteral("0.785"));
  m.UpDown1_Change(0);
  EXPECT_EQ(m.Text2[0], QStringLiteral("3"));
  m.UpDown1_Change(20);
  EXPECT_EQ(m.UpDown1, 15);
  m.Check1_Click(false);
  EXPECT_EQ(m.Text2[1], QStringLiteral("0.785398163397448"));
  EXPECT_EQ(m.Check1Caption, QStringLiteral("OFF"));
}

TEST_F(GeometryModelTest, CommaSystemTypesAndShowsItsDecimalSymbol) {
  useComma();
  choose(QStringLiteral("Cuadrado"));
  type(QStringLiteral("a"), QStringLiteral("1.5"));
  EXPECT_EQ(m.Text1[0], QStringLiteral("1,5"));
  m.UpDown1_Change(2);
  m.Check1_Click(true);
  m.chameleonButton2_Click();
  EXPECT_EQ(m.Text2[0], QStringLiteral("6,00"));
  EXPECT_EQ(m.Text2[1], QStringLiteral("2,25"));
  m.chameleonButton3_Click();
  EXPECT_EQ(RegisterValue(1), 2.25);
}

TEST_F(GeometryModelTest, CopyFillsTheRegistersOfTheShownLines) {
  m.chameleonButton3_Click();
  ASSERT_NE(lastMessage(), nullptr);
  EXPECT_EQ(lastMessage()->text, QStringLiteral("No hay Resultados para copiar."));
  choose(QStringLiteral("Esfera"));
  type(QStringLiteral("r"), QStringLiteral("1"));
  m.chameleonButton2_Click();
  WriteRegister(0, 42, QStringLiteral("antes"));
  m.chameleonButton3_Click();
  EXPECT_EQ(RegisterValue(0), 42);  // the hidden first line leaves R1 alone
  EXPECT_EQ(RegisterLabel(0), QStringLiteral("antes"));
  EXPECT_NEAR(RegisterValue(1), 4 * std::acos(-1.0), 1e-13);
  EXPECT_EQ(RegisterLabel(1), QStringLiteral("Esfera - Área"));
  EXPECT_EQ(RegisterLabel(2), QStringLiteral("Esfera - Volumen"));
}

TEST_F(GeometryModelTest, ClearEmptiesBoxesAndResults) {
  type(QStringLiteral("r"), QStringLiteral("1"));
  m.chameleonButton2_Click();
  m.chameleonButton5_Click();
  EXPECT_EQ(m.Text1[0], QString());
  EXPECT_FALSE(m.hasResults());
  m.chameleonButton4_Click();
  EXPECT_TRUE(m.formulaView);
}

TEST_F(GeometryModelTest, BoxesTakeTheCalculatorsLine) {
  m.Text1_DblClick(0);
  EXPECT_EQ(m.Text1[0], GeometryModel::kDefaultText3);
  m.FromCalc_Click(0, QStringLiteral("12"));  // not empty nor "0": kept
  EXPECT_EQ(m.Text1[0], GeometryModel::kDefaultText3);
  m.Text1[0] = QStringLiteral("0");
  m.FromCalc_Click(0, QStringLiteral("12"));
  EXPECT_EQ(m.Text1[0], QStringLiteral("12"));
}

TEST_F(GeometryModelTest, InlineCalculatorRules) {
  struct Row {
    const char* line;
    const char* result;
  };
  const Row rows[] = {
      {"2^2*3.5*(sin(0.25*pi)+cos(0.25*pi))", "19.7989898732233"},
      {"sin(pi)", "3.23108914886517E-15"},  // pi has 15 digits
      {"lg(100)", "2"},
      {"1,5+1", "2.5"},
      {"log(exp(2))", "2"},          // natural
      {"round(2,567)", "3"},         // a comma is never an argument separator
      {"sqr(16)+abs(-1)", "5"},
      {"-2^2", "4"},
  };
  for (const Row& r : rows) EXPECT_EQ(calc(QString::fromUtf8(r.line)), QString::fromUtf8(r.result)) << r.line;
  useComma();
  EXPECT_EQ(calc(QStringLiteral("1,5+1")), QStringLiteral("2,5"));
  EXPECT_EQ(calc(m.Text3 + QStringLiteral("*2")), QStringLiteral("5"));
}

TEST_F(GeometryModelTest, InlineCalculatorFailureKeepsTheLine) {
  for (const char* line : {"fac(3)", "sinf(1)", "1/0", "sqr(-1)", "2+", "LG(100)"}) {
    EXPECT_EQ(calc(QString::fromLatin1(line)), QString::fromLatin1(line));
    EXPECT_FALSE(m.calcError.isEmpty()) << line;
  }
  EXPECT_EQ(calc(QStringLiteral("1+1")), QStringLiteral("2"));
  EXPECT_TRUE(m.calcError.isEmpty());
  EXPECT_TRUE(messages.shown().empty());
  // Shift drops the key; other keys are left to the box.
  m.Text3 = QStringLiteral("3*3");
  EXPECT_TRUE(m.Text3_KeyPress(kKeyEnter, true));
  EXPECT_FALSE(m.Text3_KeyPress('7', false));
  EXPECT_EQ(m.Text3, QStringLiteral("3*3"));
}

TEST_F(GeometryModelTest, LgRewriteIsTextual) {
  EXPECT_EQ(InlineCalculator::rewrite(QStringLiteral("lg(2)+algo")),
            QStringLiteral("(1/log(10))*log(2)+a(1/log(10))*logo"));
  EXPECT_EQ(InlineCalculator::rewrite(QStringLiteral("max(1,5)")), QStringLiteral("max(1.5)"));
}

TEST_F(GeometryModelTest, CalculatorHelpListsTheFunctionGroups) {
  m.Command1_Click();
  ASSERT_NE(lastMessage(), nullptr);
  EXPECT_EQ(lastMessage()->sound, 5);
  EXPECT_TRUE(lastMessage()->text.contains(GeometryModel::kDefaultText3));
  EXPECT_TRUE(lastMessage()->text.contains(QStringLiteral(": sin( ), cos( ), tan( )")));
  EXPECT_TRUE(lastMessage()->title.startsWith(QStringLiteral("GeoKORD  -  ")));
}
