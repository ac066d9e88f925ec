// The About window's model: its texts in the language in use, and every
// address and system action going through the (recording) platform layer.
#include "shell/AboutModel.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class AboutModelTest : public CalvixTest {
 protected:
  void SetUp() override {
    CalvixTest::SetUp();
    setPlatform(&system);
  }
  void TearDown() override {
    setPlatform(nullptr);
    CalvixTest::TearDown();
  }
  RecordingPlatform system;
};

TEST_F(AboutModelTest, LoadShowsVersionWithItsLabelsAndTheUserInTheLanguageInUse) {
  program().LanguageOffset = 10000;
  system.user = QStringLiteral("marta");
  AboutModel m;
  m.Form_Load();
  EXPECT_EQ(m.Caption, QStringLiteral("About Calvix Premium"));
  EXPECT_EQ(m.version, QStringLiteral("Version %1 M. %2 m. Rev. %3")
                           .arg(AboutModel::major())
                           .arg(AboutModel::minor())
                           .arg(AboutModel::revision()));
  EXPECT_EQ(m.user, QStringLiteral("marta"));
  EXPECT_TRUE(m.sampleNote.contains(QLatin1String("sample")));
}

TEST_F(AboutModelTest, EachControlAsksForItsAddress) {
  program().WebAddress = QStringLiteral("https://mine.example.net/");
  AboutModel m;
  m.Form_Load();
  for (const char* c : {"Command1", "Command4", "Command5", "Label5", "Command3"}) EXPECT_TRUE(m.click(QString::fromLatin1(c)));
  EXPECT_FALSE(m.click(QStringLiteral("Command2")));
  EXPECT_EQ(system.calls, QStringList({"openUrl " + AboutModel::kUpdatesUrl, "openUrl " + AboutModel::kProductsUrl,
                                       "openUrl " + AboutModel::kInfoUrl, "openUrl https://mine.example.net/",
                                       "openUrl " + AboutModel::kAuthorMail}));
}

TEST_F(AboutModelTest, DeclinedMailAndHelpCursorOpenNothing) {
  AboutModel m;
  m.Form_Load();
  messages.queueButton(1);
  m.Command3_Click();
  ASSERT_EQ(messages.shown().size(), 1u);
  program().helpCursor = true;
  m.Command1_Click();
  EXPECT_TRUE(system.calls.isEmpty()) << system.calls.join(',').toStdString();
}

TEST_F(AboutModelTest, ShiftF10RunsTheSystemActionOfTheControlCentre) {
  AboutModel m;
  EXPECT_FALSE(m.Form_KeyDown(Qt::Key_F10, Qt::NoModifier));
  EXPECT_TRUE(m.Form_KeyDown(Qt::Key_F10, Qt::ShiftModifier));
  EXPECT_EQ(system.calls.size(), 1);
}

}  // namespace
