// The equation tools driven by key presses: one press per value, each
// ending the entry; the answers in result, numero and the viewer; the codes
// of their failures; the clear key and any failure reset the step counters.
#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "shell/ErrorReport.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class EquationToolsTest : public CalvixTest {
 protected:
  CalculatorEngine e;
  void keys(const QString& sequence) {
    QString error;
    ASSERT_TRUE(runKeySequence(e, sequence, &error)) << error.toStdString();
  }
  QString viewer() const {
    QStringList pairs;
    for (qsizetype i = 0; i < e.List3.size(); ++i) pairs << e.List3.at(i) + QLatin1Char('|') + e.List4.value(i);
    return pairs.join(QLatin1Char(';'));
  }
};

TEST_F(EquationToolsTest, QuadraticTakesAPressPerCoefficient) {
  keys("1 Command68");
  EXPECT_EQ(e.func, QStringLiteral("abc:  b   (^)"));
  EXPECT_EQ(e.equations.stepQuadratic, 1);
  EXPECT_EQ(e.entryActive, 0);
  // The next digit starts a new entry: "3" is not appended to "1".
  keys("3 < Command68");
  EXPECT_EQ(e.func, QStringLiteral("abc:  c   (^)"));
  keys("2 Command68");
  EXPECT_EQ(e.result.text(), Res(4462) + QStringLiteral(":  2,  1"));
  EXPECT_EQ(e.numero.text(), QStringLiteral("2"));
  EXPECT_EQ(viewer(), QStringLiteral("ax\u00B2 + bx + c = 0|;x0 = |2.00000000;x1 = |1.00000000"));
  EXPECT_EQ(e.equations.stepQuadratic, 0);
  EXPECT_EQ(e.equations.coefficients[0], 0);
}

TEST_F(EquationToolsTest, QuadraticComplexRootsAndZeroA) {
  keys("1 Command68 0 Command68 1 Command68");
  EXPECT_EQ(e.result.text(), Res(4580) + QStringLiteral(":  0 \u00B1 1i"));
  EXPECT_EQ(e.numero.text(), QStringLiteral("0"));
  EXPECT_TRUE(viewer().endsWith(QStringLiteral("x1 = |0.00000000 - 1.00000000 i")));
  keys("0 Command68 1 Command68 1 Command68");
  EXPECT_EQ(e.result.text(), ErrorText(40));
  EXPECT_EQ(e.equations.stepQuadratic, 0);
}

TEST_F(EquationToolsTest, ClearKeyAndFailuresResetTheSteps) {
  keys("1 Command68 2 Command42");
  EXPECT_EQ(e.equations.stepCubic, 1);  // starting the cubic left the quadratic
  EXPECT_EQ(e.equations.stepQuadratic, 0);
  keys("Command18");
  EXPECT_EQ(e.equations.stepCubic, 0);
  keys("5 Command49 Command18 1 Command68");
  EXPECT_EQ(e.equations.stepDistance, 0);
  EXPECT_EQ(e.equations.stepQuadratic, 1);
  EXPECT_EQ(e.equations.coefficients[0], 1);
}

TEST_F(EquationToolsTest, CubicCases) {
  struct Row {
    const char* name;
    const char* keys;
    QString result;
  } rows[] = {
      // Triple root: D = 0 and p = 0, x0 and x1 equal.
      {"tripleRoot", "1 Command42 3 < Command42 3 Command42 1 < Command42", Res(4462) + QStringLiteral(":  1,  1")},
      {"oneRealRoot", "1 Command42 0 Command42 0 Command42 8 < Command42",
       Res(4460) + QStringLiteral(":  2\n") + Res(4461) + QStringLiteral(":  -1 \u00B1 1.73205080756888i")},
      {"zeroA", "0 Command42 1 Command42 1 Command42 1 Command42", ErrorText(24)},
  };
  for (const Row& r : rows) {
    keys(QString::fromLatin1(r.keys));
    EXPECT_EQ(e.result.text(), r.result) << r.name;
    EXPECT_EQ(e.equations.stepCubic, 0) << r.name;
  }
}

TEST_F(EquationToolsTest, CubicThreeRealRoots) {
  // (x - 1)(x - 2)(x - 3)
  keys("1 Command42 6 < Command42 11 Command42 6 < Command42");
  const QStringList roots = e.result.text().section(QStringLiteral(":  "), 1).split(QStringLiteral(",  "));
  ASSERT_EQ(roots.size(), 3);
  QList<double> values;
  for (const QString& r : roots) values << r.toDouble();
  std::sort(values.begin(), values.end());
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(values[i], i + 1, 1e-12);
  EXPECT_TRUE(e.result.text().startsWith(Res(4462)));
}

TEST_F(EquationToolsTest, LagrangeOverTheStatisticsStore) {
  keys("Command40");
  EXPECT_EQ(e.result.text(), ErrorText(22));
  keys("7 X Command40");  // one X, no Y
  EXPECT_EQ(e.result.text(), ErrorText(22));
  keys("MnuClrSTD(2)");
  keys("1 X 1 Y 2 X 4 Y 3 X 9 Y 4 Command40");
  EXPECT_EQ(e.func, Res(4236));
  EXPECT_EQ(e.result.text(), Res(4458) + QStringLiteral(" 16"));
  EXPECT_EQ(e.numero.text(), QStringLiteral("16"));
  // Two equal X: a division failure.
  keys("3 X 5 Y 1 Command40");
  EXPECT_EQ(e.result.text(), ErrorText(31));
}

TEST_F(EquationToolsTest, DistanceAndLine) {
  keys("0 Command49");
  EXPECT_EQ(e.func, QStringLiteral("d, y(x):  x0   (^)"));
  EXPECT_EQ(e.result.text(), QStringLiteral("x0 = 0"));
  keys("0 Command49 3 Command49 4 Command49");
  EXPECT_EQ(e.numero.text(), QStringLiteral("5"));
  EXPECT_EQ(viewer(), QStringLiteral("d, y(x)|;") + Res(4470) + QStringLiteral("|5.00000000;") + Res(4471) +
                          QStringLiteral("|;a = |1.33333333;b = |0.00000000"));
  e.Command64_Click();
  keys("1 Command49 1 Command49 1 Command49 5 Command49");
  EXPECT_TRUE(viewer().endsWith(QStringLiteral("x = |1.00000000"))) << viewer().toStdString();
  keys("2 Command49 2 Command49 2 Command49 2 Command49");
  EXPECT_EQ(e.result.text(), Res(4469));
  EXPECT_EQ(e.equations.stepDistance, 0);
}

}  // namespace
