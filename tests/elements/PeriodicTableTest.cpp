// The periodic table's model over the built cvxtp.dlj: the sheet as shown
// (decimal symbol, language, "--"), the colour classes, the translations,
// the switches, the builder through element clicks, printing, the notes and
// the two layouts.
#include <QDir>
#include <QFile>
#include <QSet>

#include "elements/PeriodicTable.h"
#include "shell/Printing.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class TopicRecorder : public HelpPresenter {
 public:
  void showTopic(int topic) override { topics.append(topic); }
  QList<int> topics;
};

class PeriodicTableTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    QFile::copy(QDir(QStringLiteral(CALVIX_BIN_DIR)).filePath(QStringLiteral("cvxtp.dlj")),
                appFolder.filePath(QStringLiteral("cvxtp.dlj")));
  }
  PeriodicTable loaded() {
    PeriodicTable t;
    t.Form_Load();
    return t;
  }
  void language(int offset) { program().LanguageOffset = offset; }
};

TEST_F(PeriodicTableTest, GoldSheetShowsEveryFieldInOrder) {
  PeriodicTable t = loaded();
  ASSERT_TRUE(t.tableLoaded());
  t.zeta_Click(79);
  EXPECT_EQ(t.text(ElementField::numat), QStringLiteral("79"));
  EXPECT_EQ(t.text(ElementField::nombres), QStringLiteral("Oro"));
  EXPECT_EQ(t.text(ElementField::simbolos), QStringLiteral("Au"));
  EXPECT_EQ(t.text(ElementField::pesos), QStringLiteral("196.97"));
  EXPECT_EQ(t.text(ElementField::fusiones), QStringLiteral("1064.18"));
  EXPECT_EQ(t.text(ElementField::estructura), QStringLiteral("[Xe] 4f14 5d10 6s1"));
  EXPECT_EQ(t.text(ElementField::caracteres), QStringLiteral("Carácter ácido-base: Anfótero"));
  EXPECT_EQ(t.text(ElementField::cristal), QStringLiteral("Cúbico centrado en las caras"));
  EXPECT_EQ(t.crystalPicture, CrystalSystem::FaceCentredCubic);
  EXPECT_EQ(t.Image2, AcidBase::Amphoteric);
  EXPECT_EQ(t.zText, QStringLiteral("z = 79"));
  EXPECT_EQ(t.captions[fieldIndex(ElementField::pesos)], QStringLiteral("Peso atómico"));
}

TEST_F(PeriodicTableTest, CommaSystemReplacesThePointInNumbersOnly) {
  useComma();
  PeriodicTable t = loaded();
  t.zeta_Click(79);
  EXPECT_EQ(t.text(ElementField::pesos), QStringLiteral("196,97"));
  EXPECT_EQ(t.text(ElementField::densidades), QStringLiteral("19,30"));
  EXPECT_EQ(t.text(ElementField::valencias), QStringLiteral("3,1"));
  t.zeta_Click(8);
  EXPECT_EQ(t.text(ElementField::valencias), QStringLiteral("-2"));
}

TEST_F(PeriodicTableTest, LanguageChangesTheNameButNotTheNumbers) {
  const struct {
    int offset;
    const char* name;
    const char* crystal;
  } rows[] = {{0, "Oro", "Cúbico centrado en las caras"},
              {10000, "Gold", "Face-centred cubic"},
              {20000, "Or", "Cubique à faces centrées"},
              {30000, "Or", "Cúbic centrat en les cares"}};
  for (const auto& r : rows) {
    language(r.offset);
    PeriodicTable t = loaded();
    t.zeta_Click(79);
    EXPECT_EQ(t.text(ElementField::nombres), QString::fromUtf8(r.name));
    EXPECT_EQ(t.text(ElementField::cristal), QString::fromUtf8(r.crystal));
    EXPECT_EQ(t.text(ElementField::pesos), QStringLiteral("196.97"));
    EXPECT_EQ(t.text(ElementField::ebulliciones), QStringLiteral("2856"));
  }
  // A name of two words in no language, and blanks cut: "Beril·li".
  language(30000);
  EXPECT_EQ(PeriodicTable::elementName(4), QStringLiteral("Beril·li"));
}

TEST_F(PeriodicTableTest, EverySheetHasItsCaptionsNameAndTranslationsInEveryLanguage) {
  for (int offset : {0, 10000, 20000, 30000}) {
    language(offset);
    PeriodicTable t = loaded();
    for (int unit : {0, 1}) {
      t.EnergyUnit_Click(unit);
      for (int z = 1; z <= 111; ++z) {
        t.zeta_Click(z);
        for (int i = 0; i < kElementFieldCount; ++i) {
          EXPECT_FALSE(t.captions[i].isEmpty()) << offset << " field " << i;
          EXPECT_FALSE(t.sheet[i].isEmpty()) << offset << " z " << z << " field " << i;
        }
        // A stored text the translation tables do not know would show as unknown.
        if (t.Image2 == AcidBase::Unknown) {
          EXPECT_TRUE(t.text(ElementField::caracteres).endsWith(QLatin1String("--"))) << z;
        }
        if (t.crystalPicture == CrystalSystem::Unknown) {
          EXPECT_EQ(t.text(ElementField::cristal), QStringLiteral("--")) << z;
        }
      }
    }
  }
  // Every stored acid-base and crystal text is one the window translates.
  const QList<ElementRecord> rows = readElementTable(appFolder.filePath(QStringLiteral("cvxtp.dlj")));
  PeriodicTable t = loaded();
  for (int z = 1; z <= 111; ++z) {
    t.zeta_Click(z);
    const QString acid = rows[z - 1][fieldIndex(ElementField::caracteres)];
    const QString crystal = rows[z - 1][fieldIndex(ElementField::cristal)];
    EXPECT_EQ(t.Image2 == AcidBase::Unknown, acid == QLatin1String("--")) << z << " " << acid.toStdString();
    EXPECT_EQ(t.crystalPicture == CrystalSystem::Unknown, crystal == QLatin1String("--")) << z;
  }
}

TEST_F(PeriodicTableTest, UnknownValuesShowTwoDashesInEveryUnit) {
  PeriodicTable t = loaded();
  t.zeta_Click(111);
  EXPECT_EQ(t.text(ElementField::fusiones), QStringLiteral("--"));
  EXPECT_EQ(t.text(ElementField::energias), QStringLiteral("--"));
  EXPECT_EQ(t.text(ElementField::caracteres), QStringLiteral("Carácter ácido-base: --"));
  t.EnergyUnit_Click(1);
  EXPECT_EQ(t.text(ElementField::energias), QStringLiteral("--"));
  EXPECT_EQ(t.text(ElementField::calores), QStringLiteral("--"));
  const PrintDocument doc = t.sheetDocument();
  bool dashes = false;
  for (const PrintLine& l : doc.lines()) {
    for (const PrintSpan& s : l.spans) dashes = dashes || s.text == QLatin1String("--");
  }
  EXPECT_TRUE(dashes);
}

TEST_F(PeriodicTableTest, SymbolColourFollowsTheClasses) {
  const struct {
    int z;
    long colour;
  } rows[] = {{1, 200},   {3, 200},      {4, 0},   {10, 200},     {17, 200},     {86, 200},      {31, 16744576},
              {35, 16744576}, {80, 16744576}, {87, 16744576}, {43, 50450}, {61, 50450}, {93, 50450}, {111, 50450},
              {79, 0},    {92, 0},       {11, 0}};
  PeriodicTable t = loaded();
  for (const auto& r : rows) {
    t.zeta_Click(r.z);
    EXPECT_EQ(t.simbolosColor, r.colour) << "z " << r.z;
  }
}

TEST_F(PeriodicTableTest, EnergyUnitFlipsCaptionsAndWorksOutCalories) {
  PeriodicTable t = loaded();
  t.zeta_Click(1);
  EXPECT_EQ(t.captions[fieldIndex(ElementField::energias)], Res(1037));
  EXPECT_EQ(t.text(ElementField::energias), QStringLiteral("1312.0"));
  t.EnergyUnit_Click(1);
  EXPECT_EQ(t.captions[fieldIndex(ElementField::energias)], Res(1036));
  EXPECT_EQ(t.captions[fieldIndex(ElementField::condutes)], Res(1034));
  EXPECT_EQ(t.captions[fieldIndex(ElementField::calores)], Res(1028));
  EXPECT_EQ(t.text(ElementField::energias), QStringLiteral("313.6"));  // 1312.0 / 4.184
  EXPECT_EQ(t.text(ElementField::calores), QStringLiteral("3.419"));   // 14.304 / 4.184
  EXPECT_EQ(t.text(ElementField::pesos), QStringLiteral("1.008"));     // not an energy
  t.EnergyUnit_Click(0);
  EXPECT_EQ(t.text(ElementField::energias), QStringLiteral("1312.0"));
  EXPECT_EQ(t.captions[fieldIndex(ElementField::condutes)], Res(1038));
}

TEST_F(PeriodicTableTest, ElectronegativityChoiceUnchecksTheOther) {
  PeriodicTable t = loaded();
  t.zeta_Click(9);
  EXPECT_TRUE(t.pauling);
  t.paulingno_Click();
  EXPECT_FALSE(t.pauling);
  EXPECT_TRUE(t.paulingno);
  EXPECT_EQ(t.text(ElementField::electronegs1), QStringLiteral("4.10"));
  t.pauling_Click();
  EXPECT_TRUE(t.pauling);
  EXPECT_FALSE(t.paulingno);
  EXPECT_EQ(t.text(ElementField::electronegs), QStringLiteral("3.98"));
}

TEST_F(PeriodicTableTest, GroupNumberingTogglesOnTheViiiMarker) {
  PeriodicTable t = loaded();
  EXPECT_EQ(t.Label2[0], QStringLiteral("1"));
  EXPECT_FALSE(t.oldGroupNumbering());
  t.Command3_Click();
  EXPECT_TRUE(t.oldGroupNumbering());
  EXPECT_EQ(t.Label2[0], QStringLiteral("IA"));
  EXPECT_EQ(t.Label2[17], QStringLiteral("0"));
  t.Command3_Click();
  EXPECT_EQ(t.Label2[17], QStringLiteral("18"));
}

TEST_F(PeriodicTableTest, MissingTableLeavesTheLabelsEmptyButNamesTheElement) {
  QFile::remove(appFolder.filePath(QStringLiteral("cvxtp.dlj")));
  PeriodicTable t = loaded();
  EXPECT_FALSE(t.tableLoaded());
  t.calculo_Click();
  t.zeta_Click(26);
  EXPECT_EQ(t.text(ElementField::nombres), QStringLiteral("Hierro"));
  EXPECT_TRUE(t.text(ElementField::pesos).isEmpty());
  EXPECT_TRUE(t.weight.formula.isEmpty());
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(PeriodicTableTest, RowZIsElementZAndAnElementWithoutWeightAddsNothing) {
  // A small table of our own: row 1 claims to be number 7 and has no weight.
  ElementRecord first, second;
  for (int i = 0; i < kElementFieldCount; ++i) first[i] = second[i] = QStringLiteral("1.5");
  first[fieldIndex(ElementField::numat)] = QStringLiteral("7");
  first[fieldIndex(ElementField::simbolos)] = QStringLiteral("H");
  first[fieldIndex(ElementField::pesos)] = QStringLiteral("--");
  second[fieldIndex(ElementField::simbolos)] = QStringLiteral("He");
  const QString path = appFolder.filePath(QStringLiteral("cvxtp.dlj"));
  QFile::remove(path);
  ASSERT_TRUE(writeElementTable(path, {first, second}));
  PeriodicTable t = loaded();
  t.calculo_Click();
  t.zeta_Click(1);
  EXPECT_EQ(t.text(ElementField::numat), QStringLiteral("7"));  // the row, not a search by number
  EXPECT_TRUE(t.weight.formula.isEmpty());
  EXPECT_EQ(t.weight.ultimo, -1);
  for (ElementField f : {ElementField::energias, ElementField::calorvs, ElementField::calorfs, ElementField::condutes,
                         ElementField::calores}) {
    EXPECT_EQ(t.text(f), QStringLiteral("--"));
  }
  t.zeta_Click(2);
  EXPECT_EQ(t.weight.formula, QStringLiteral("He"));
  EXPECT_EQ(t.weight.masa, QStringLiteral("1.5"));
  t.zeta_Click(3);  // no row 3: the labels stay empty, nothing is added
  EXPECT_TRUE(t.text(ElementField::pesos).isEmpty());
  EXPECT_EQ(t.weight.formula, QStringLiteral("He"));
}

TEST_F(PeriodicTableTest, BuilderAddsTheStoredWeightOnEitherSystem) {
  for (bool comma : {false, true}) {
    if (comma) useComma();
    PeriodicTable t = loaded();
    t.zeta_Click(1);  // outside the mode a click only shows the sheet
    EXPECT_TRUE(t.weight.formula.isEmpty());
    t.calculo_Click();
    for (int z : {6, 1, 8}) t.zeta_Click(z);
    t.zeta_Click(1);
    t.Command1_Click(4);
    t.Command123_Click();
    EXPECT_EQ(t.weight.formula, QStringLiteral("CH4O"));
    EXPECT_NEAR(t.weight.pesoMol, 12.011 + 4 * 1.008 + 15.999, 1e-9);
    EXPECT_EQ(t.weight.masa, comma ? QStringLiteral("32,042") : QStringLiteral("32.042"));
    // Switching a unit re-shows the sheet without adding anything.
    t.EnergyUnit_Click(1);
    t.paulingno_Click();
    EXPECT_EQ(t.weight.formula, QStringLiteral("CH4O"));
    t.Command124_Click();
    EXPECT_FALSE(t.calculo);
    EXPECT_TRUE(t.weight.formula.isEmpty());
  }
}

TEST_F(PeriodicTableTest, NotesOpenTheirOwnHelpTopics) {
  TopicRecorder help;
  setHelpPresenter(&help);
  PeriodicTable t = loaded();
  QSet<int> topics;
  for (const NoteItem& n : noteItems()) {
    t.note_Click(n.topic);
    topics.insert(n.topic);
    EXPECT_EQ(helpPageOfTopic(n.topic), QStringLiteral("elements")) << n.name;
    EXPECT_TRUE(strings::hasAllLanguages(n.stringId)) << n.name;
  }
  setHelpPresenter(nullptr);
  EXPECT_EQ(help.topics.size(), noteItems().size());
  EXPECT_EQ(topics.size(), noteItems().size());  // each item its own topic
  EXPECT_TRUE(topics.contains(77214));           // cuadernoacido
}

TEST_F(PeriodicTableTest, SymbolsAreLookedUpAsPrinted) {
  EXPECT_EQ(PeriodicTable::atomicNumberOf(QStringLiteral("Au")), 79);
  EXPECT_EQ(PeriodicTable::atomicNumberOf(QStringLiteral("Rg")), 111);
  EXPECT_EQ(PeriodicTable::atomicNumberOf(QStringLiteral("au")), 0);
  EXPECT_EQ(PeriodicTable::atomicNumberOf(QStringLiteral("CO")), 0);
  EXPECT_EQ(PeriodicTable::atomicNumberOf(QStringLiteral("Uue")), 0);
  PeriodicTable t = loaded();
  for (int z = 1; z <= 111; ++z) EXPECT_EQ(t.symbolOf(z), PeriodicTable::buttonSymbol(z)) << z;
}

TEST(PeriodicLayoutTest, EveryElementHasItsOwnCellInBothLayouts) {
  for (int layout : {1, 2}) {
    QSet<int> cells;
    for (int z = 1; z <= 111; ++z) {
      const TableCell c = elementCell(z, layout);
      EXPECT_GE(c.row, 1);
      EXPECT_LE(c.row, layoutRows(layout));
      EXPECT_GE(c.col, 1);
      EXPECT_LE(c.col, layoutColumns(layout));
      cells.insert(c.row * 100 + c.col);
    }
    EXPECT_EQ(cells.size(), 111) << "layout " << layout;
  }
}

TEST(PeriodicLayoutTest, KnownPlaces) {
  const struct {
    int z, layout, row, col;
  } rows[] = {{1, 1, 1, 1},   {2, 1, 1, 18},  {5, 1, 2, 13},  {26, 1, 4, 8},   {57, 1, 9, 3},  {71, 1, 9, 17},
              {72, 1, 6, 4},  {89, 1, 10, 3}, {111, 1, 7, 11}, {2, 2, 1, 32},  {21, 2, 4, 17}, {57, 2, 6, 3},
              {71, 2, 6, 17}, {86, 2, 6, 32}, {103, 2, 7, 17}, {111, 2, 7, 25}};
  for (const auto& r : rows) {
    const TableCell c = elementCell(r.z, r.layout);
    EXPECT_EQ(c.row, r.row) << r.z << " in " << r.layout;
    EXPECT_EQ(c.col, r.col) << r.z << " in " << r.layout;
  }
  EXPECT_EQ(elementGroup(79), 11);
  EXPECT_EQ(elementGroup(58), 0);
  EXPECT_EQ(groupColumn(3, 2), 17);
}

}  // namespace
