// The molecular-weight builder: counts, the subscript on the element clicked
// last, the 30-place limit, digits and clearing. Weights are given as the
// table stores them (with "."), so the rules hold on either system.
#include "elements/MolecularWeight.h"
#include "tests/support/TestSupport.h"

namespace {

// A click on an element of this small table, by symbol.
struct Weighed {
  const char* symbol;
  const char* weight;
};
constexpr Weighed kWeights[] = {{"H", "1.008"}, {"O", "15.999"}, {"C", "12.011"}, {"Na", "22.990"}, {"Cl", "35.45"}};

void click(MolecularWeight& m, const QString& symbol) {
  for (const Weighed& w : kWeights) {
    if (symbol == QLatin1String(w.symbol)) return m.Command111_Click(symbol, QString::fromLatin1(w.weight));
  }
  FAIL() << "no weight for " << symbol.toStdString();
}

// Runs "H O 2 sub H clr" style keys: a symbol clicks it, digits press their
// keys, "sub" the subscript, "clr" the clear key.
void run(MolecularWeight& m, const QString& keys) {
  for (const QString& k : keys.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    if (k == QLatin1String("sub")) m.Command123_Click();
    else if (k == QLatin1String("clr")) m.Command112_Click();
    else if (k.at(0).isDigit()) for (QChar c : k) m.Command1_Click(c.digitValue());
    else click(m, k);
  }
}

struct Case {
  const char* name;
  const char* keys;
  const char* formula;
  double total;
  int ultimo;
};

constexpr Case kCases[] = {
    {"RepeatedSymbolCountsUp", "H O H", "H2O", 2 * 1.008 + 15.999, 0},
    {"SubscriptOnFirstThenNext", "H 2 sub O", "H2O", 2 * 1.008 + 15.999, 1},
    {"SubscriptReplacesTheCount", "O 2 sub 3 sub", "O3", 3 * 15.999, 0},
    {"SubscriptAppliesToTheElementClickedLast", "H O H 3 sub", "H3O", 3 * 1.008 + 15.999, 0},
    {"CountOfOneIsNotWritten", "Na Cl", "NaCl", 22.990 + 35.45, 1},
    {"SubscriptOfOneLeavesOne", "C 4 sub 1 sub", "C", 12.011, 0},
    {"Glucose", "C 6 sub H 12 sub O 6 sub", "C6H12O6", 6 * 12.011 + 12 * 1.008 + 6 * 15.999, 2},
    {"ClearThenStartAgain", "H O clr Na", "Na", 22.990, 0},
    {"SubscriptWithNothingTypedChangesNothing", "H O sub", "HO", 1.008 + 15.999, 1},
    {"SubscriptBeforeAnyElementDoesNothing", "3 sub", "", 0, -1},
};

class MolecularWeightTest : public CalvixTest, public ::testing::WithParamInterface<Case> {};

TEST_P(MolecularWeightTest, BuildsFormulaAndTotal) {
  const Case& c = GetParam();
  MolecularWeight m;
  run(m, QString::fromLatin1(c.keys));
  EXPECT_EQ(m.formula, QString::fromLatin1(c.formula));
  EXPECT_NEAR(m.pesoMol, c.total, 1e-9);
  EXPECT_EQ(m.ultimo, c.ultimo);
  EXPECT_TRUE(m.nn.isEmpty());  // the subscript always empties it
}

INSTANTIATE_TEST_SUITE_P(Keys, MolecularWeightTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace

class MolecularWeightRules : public CalvixTest {};

TEST_F(MolecularWeightRules, WaterByRepeatOrBySubscriptShowsTheSameMasa) {
  for (bool comma : {false, true}) {
    if (comma) useComma();
    MolecularWeight a, b;
    run(a, QStringLiteral("H O H"));
    run(b, QStringLiteral("H 2 sub O"));
    EXPECT_EQ(a.masa, b.masa);
    EXPECT_EQ(a.masa, comma ? QStringLiteral("18,015") : QStringLiteral("18.015"));
  }
}

TEST_F(MolecularWeightRules, ThirtyFirstPlaceStartsTheFormulaAnewWithItself) {
  MolecularWeight m;
  // Thirty places of made-up symbols, each of weight 1.
  for (int i = 0; i < 30; ++i) m.Command111_Click(QStringLiteral("X%1").arg(i), QStringLiteral("1"));
  EXPECT_EQ(m.placesUsed(), 30);
  EXPECT_EQ(m.ultimo, 29);
  // A symbol already there still counts up without clearing.
  m.Command111_Click(QStringLiteral("X3"), QStringLiteral("1"));
  EXPECT_EQ(m.placesUsed(), 30);
  EXPECT_DOUBLE_EQ(m.pesoMol, 31);
  // The 31st place: cleared first, then the new symbol alone.
  m.Command111_Click(QStringLiteral("Na"), QStringLiteral("22.990"));
  EXPECT_EQ(m.formula, QStringLiteral("Na"));
  EXPECT_DOUBLE_EQ(m.pesoMol, 22.990);
  EXPECT_EQ(m.ultimo, 0);
  EXPECT_EQ(m.placesUsed(), 1);
}

TEST_F(MolecularWeightRules, ElementWithoutWeightAddsNothing) {
  MolecularWeight m;
  run(m, QStringLiteral("H"));
  m.Command111_Click(QStringLiteral("Xx"), QStringLiteral("--"));
  m.Command111_Click(QStringLiteral("Yy"), QString());
  EXPECT_EQ(m.formula, QStringLiteral("H"));
  EXPECT_EQ(m.ultimo, 0);
}

TEST_F(MolecularWeightRules, DigitKeysBuildTheSubscript) {
  MolecularWeight m;
  m.Command1_Click(0);
  EXPECT_EQ(m.nn, QStringLiteral("0"));
  m.Command1_Click(7);  // a leading 0 is replaced
  EXPECT_EQ(m.nn, QStringLiteral("7"));
  m.Command1_Click(2);
  EXPECT_EQ(m.nn, QStringLiteral("72"));
  m.nn = QStringLiteral("Error");
  m.Command1_Click(5);
  EXPECT_EQ(m.nn, QStringLiteral("5"));
  for (int i = 0; i < 10; ++i) m.Command1_Click(9);
  EXPECT_EQ(m.nn, QStringLiteral("5999"));  // counts are 16-bit: four digits at most
  m.Command112_Click();
  EXPECT_TRUE(m.nn.isEmpty());
  EXPECT_TRUE(m.masa.isEmpty());
}
