// The plot's colours, titles and annotations: what the editor changes is
// what the drawing uses, on screen and on paper; it survives a restart
// (settings file and cvplot.txt); a damaged cvplot.txt changes nothing.
#include <QFile>
#include <cmath>

#include "funcs/FunctionTable.h"
#include "funcs/PlotAppearance.h"
#include "funcs/PlotModel.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"
#include "tests/funcs/TableTestSupport.h"
#include "tests/support/TestSupport.h"

namespace {

// Records the texts printed, where, and in which colour.
class TextCanvas : public plot::PlotCanvas {
 public:
  explicit TextCanvas(Target t) : target_(t) {}
  Target target() const override { return target_; }
  int width() const override { return 760; }
  int height() const override { return 520; }
  void Cls(std::uint32_t colour) override { background = colour; }
  void Line(double, double, double, double) override { lineColours.insert(ForeColor); }
  void Box(double, double, double, double, bool) override {}
  void PSet(double, double) override {}
  void Circle(double, double, double) override {}
  void Print(const QString& text) override { printed.push_back({text, CurrentX, CurrentY, ForeColor}); }
  double TextWidth(const QString& text) override { return text.size() * 6.0 * std::fabs(ScaleWidth) / width(); }
  double TextHeight(const QString&) override { return 12.0 * std::fabs(ScaleHeight) / height(); }

  struct Text {
    QString text;
    double x, y;
    std::uint32_t colour;
  };
  const Text* find(const QString& text) const {
    for (const Text& t : printed) {
      if (t.text == text) return &t;
    }
    return nullptr;
  }
  std::vector<Text> printed;
  QSet<std::uint32_t> lineColours;
  std::uint32_t background = 0;

 private:
  Target target_;
};

}  // namespace

class PlotAppearanceTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    openInRadians(t);
    tabulateAtOnce(t, QStringLiteral("sin(x)"), QStringLiteral("0"), QStringLiteral("6"), 50);
    m.Form_Resize(760, 520);
    m.Form_Load();
  }
  FunctionTable t;
  PlotModel m{t};
  PlotAppearance a{m};
};

TEST_F(PlotAppearanceTest, ColoursChosenAreDrawnAndGoBackToTheDefaults) {
  a.setColour(PlotModel::kBackground, 0x102030);
  a.setColour(PlotModel::kCurveF, 0x0000FE);
  a.setColour(PlotModel::kText, 0x00AA00);
  for (auto target : {plot::PlotCanvas::Target::Screen, plot::PlotCanvas::Target::Printer}) {
    TextCanvas c(target);
    m.drawPlot(c);
    EXPECT_EQ(c.background, 0x102030u);
    EXPECT_TRUE(c.lineColours.contains(0x0000FE));
    ASSERT_NE(c.find(QStringLiteral("X")), nullptr);
    EXPECT_EQ(c.find(QStringLiteral("X"))->colour, 0x00AA00u);
  }
  a.restoreDefaultColours();
  for (int i = 0; i < PlotModel::kColours; ++i) EXPECT_EQ(a.colour(i), PlotAppearance::defaultColour(i)) << i;
  // The defaults are the settings' own: the background a fresh installation has.
  EXPECT_EQ(PlotAppearance::defaultColour(PlotModel::kBackground), 0x404000u);
  EXPECT_EQ(PlotAppearance::defaultColour(PlotModel::kCurveG), 0xE0E0E0u);
}

TEST_F(PlotAppearanceTest, TitlesTypedReplaceTheTablesAndEmptyGivesThemBack) {
  a.setTitles({QStringLiteral("Seno"), QString(), QStringLiteral("Amplitud \"A\"")});
  TextCanvas c(plot::PlotCanvas::Target::Screen);
  m.drawPlot(c);
  EXPECT_NE(c.find(QStringLiteral("Seno")), nullptr);
  EXPECT_NE(c.find(QStringLiteral("X")), nullptr);  // the table's title, none typed
  EXPECT_NE(c.find(QStringLiteral("Amplitud 'A'")), nullptr);
  // A new evaluation rewrites the table's titles, not those typed.
  tabulateAtOnce(t, QStringLiteral("cos(x)"), QStringLiteral("0"), QStringLiteral("6"), 50);
  TextCanvas again(plot::PlotCanvas::Target::Printer);
  m.drawPlot(again);
  EXPECT_NE(again.find(QStringLiteral("Seno")), nullptr);
  a.setTitles({});
  TextCanvas back(plot::PlotCanvas::Target::Screen);
  m.drawPlot(back);
  EXPECT_NE(back.find(QStringLiteral("F(x) = cos(x)")), nullptr);
}

TEST_F(PlotAppearanceTest, AnnotationsArePlacedMovedEditedAndDeleted) {
  const int i = a.addAnnotation(QStringLiteral("máximo"), QPointF(200, 100));
  ASSERT_EQ(i, 0);
  EXPECT_EQ(a.addAnnotation(QStringLiteral("   "), QPointF(1, 1)), -1);
  // Kept in user units: the picture point comes back, and a rescale moves it with the data.
  EXPECT_NEAR(a.annotationPoint(i).x(), 200, 1e-9);
  EXPECT_NEAR(a.annotationPoint(i).y(), 100, 1e-9);
  const double ux = m.Label11[0].x, uy = m.Label11[0].y;
  EXPECT_NEAR(ux, m.ScaleLeft + 200 * m.unitX, 1e-12);
  for (auto target : {plot::PlotCanvas::Target::Screen, plot::PlotCanvas::Target::Printer}) {
    TextCanvas c(target);
    m.drawPlot(c);
    const TextCanvas::Text* shown = c.find(QStringLiteral("máximo"));
    ASSERT_NE(shown, nullptr);
    EXPECT_DOUBLE_EQ(shown->x, ux);
    EXPECT_DOUBLE_EQ(shown->y, uy);
  }
  a.moveAnnotation(i, QPointF(300, 150));
  EXPECT_NEAR(a.annotationPoint(i).x(), 300, 1e-9);
  a.editAnnotation(i, QStringLiteral("pico"));
  EXPECT_EQ(m.Label11[0].text, QStringLiteral("pico"));
  a.addAnnotation(QStringLiteral("valle"), QPointF(400, 300));
  a.deleteAnnotation(0);
  ASSERT_EQ(m.Label11.size(), 1u);
  EXPECT_EQ(m.Label11[0].text, QStringLiteral("valle"));
  a.editAnnotation(0, QString());  // an emptied text deletes
  EXPECT_TRUE(m.Label11.empty());
}

TEST_F(PlotAppearanceTest, EverythingSurvivesARestart) {
  a.setColour(PlotModel::kText, 0x123456);
  a.setColour(PlotModel::kGrid, 0x654321);
  a.setTitles({QStringLiteral("Onda"), QStringLiteral("t"), QStringLiteral("v")});
  a.addAnnotation(QStringLiteral("uno, \"dos\""), QPointF(150, 120));
  const QString settings = appFolder.filePath(QStringLiteral("cvdata.txt"));
  ASSERT_EQ(writeSettingsFile(settings, program()), 0);
  const std::vector<PlotModel::Annotation> notes = m.Label11;

  // A new run: fresh state, the settings read, the plot opened again.
  const QString folder = program().AppFolder.toText();
  resetProgram();
  program().AppFolder = folder;
  ASSERT_EQ(readSettingsFile(settings, program()).error, 0);
  PlotModel m2(t);
  m2.Form_Resize(760, 520);
  PlotAppearance a2(m2);
  ASSERT_TRUE(a2.load());
  m2.Form_Load();
  EXPECT_EQ(m2.colour(PlotModel::kText), 0x123456u);
  EXPECT_EQ(m2.colour(PlotModel::kGrid), 0x654321u);
  EXPECT_EQ(m2.Text3, (std::array<QString, 3>{"Onda", "t", "v"}));
  ASSERT_EQ(m2.Label11.size(), 1u);
  EXPECT_EQ(m2.Label11[0].text, QStringLiteral("uno, 'dos'"));
  EXPECT_DOUBLE_EQ(m2.Label11[0].x, notes[0].x);
  EXPECT_DOUBLE_EQ(m2.Label11[0].y, notes[0].y);
}

TEST_F(PlotAppearanceTest, ADamagedOrForeignFileChangesNothing) {
  a.setTitles({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")});
  a.addAnnotation(QStringLiteral("nota"), QPointF(100, 100));
  QFile f(PlotAppearance::filePath());
  ASSERT_TRUE(f.open(QIODevice::ReadOnly));
  const QByteArray good = f.readAll();
  f.close();
  const QByteArray damaged[] = {
      good.left(good.size() - 4),                     // cut inside the last annotation
      QByteArray("\"Otro\",1\r\n0\r\n"),               // another program's file
      QByteArray(good).replace("\"VelozPlot\",1", "\"VelozPlot\",7"),  // a version we do not know
      QByteArray(good).replace("\r\n1\r\n\"nota\"", "\r\n9\r\n\"nota\""),    // more annotations than written
      QByteArray("\x00\xff\x10garbage", 10),
  };
  for (const QByteArray& bytes : damaged) {
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(bytes);
    f.close();
    PlotModel other(t);
    other.Text3 = {QStringLiteral("x"), QStringLiteral("y"), QStringLiteral("z")};
    other.Label11 = {{QStringLiteral("kept"), 1, 2}};
    program().PlotColours[PlotModel::kText] = rt::Variant::longValue(0x0A0B0C);
    PlotAppearance b(other);
    EXPECT_FALSE(b.load()) << bytes.toStdString();
    EXPECT_EQ(other.Text3[0], QStringLiteral("x"));
    ASSERT_EQ(other.Label11.size(), 1u);
    EXPECT_EQ(other.Label11[0].text, QStringLiteral("kept"));
    EXPECT_EQ(other.colour(PlotModel::kText), 0x0A0B0Cu);
  }
  QFile::remove(PlotAppearance::filePath());
  EXPECT_FALSE(a.load());
}

// The extrema and zeros scans tell the window to show the wait pointer, and
// a refused one (too few points) shows no wait at all.
TEST_F(PlotAppearanceTest, ScansAreBracketedByTheBusyHook) {
  QStringList calls;
  m.hooks.busy = [&calls](bool on) { calls << (on ? QStringLiteral("on") : QStringLiteral("off")); };
  m.MaxyMin1_Click(0);
  m.cerosfunc1_Click(0);
  // Each click scans, and so does the redraw that follows it: pairs, in order.
  ASSERT_FALSE(calls.isEmpty());
  ASSERT_EQ(calls.size() % 2, 0);
  for (qsizetype i = 0; i < calls.size(); ++i) EXPECT_EQ(calls[i], i % 2 ? QStringLiteral("off") : QStringLiteral("on")) << i;
  calls.clear();
  tabulateAtOnce(t, QStringLiteral("x"), QStringLiteral("0"), QStringLiteral("1"), 3);
  program().pointCount = 2;
  const size_t before = messages.shown().size();
  m.MaxyMin1_Click(0);  // ticked again: too few points, a message and no scan
  EXPECT_TRUE(calls.isEmpty());
  EXPECT_EQ(messages.shown().size(), before + 1);
}
