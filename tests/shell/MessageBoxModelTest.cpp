// What the message box decides without a window: the auto-close rules, and
// the fields MBoxShow passes and clears.
#include "shell/runtime/DateTime.h"
#include "shell/MessageBoxModel.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

class MessageBoxModelTest : public CalvixTest {};

TEST_F(MessageBoxModelTest, AutoCloseFollowsTheSettingList) {
  const QString title = QStringLiteral("Calvix  -  Test");
  const std::pair<int, int> rows[] = {{0, 0}, {1, 2}, {2, 5}, {3, 10}, {4, 15}, {5, 20}, {13, 0}, {-1, 0}};
  for (const auto& [setting, seconds] : rows) {
    EXPECT_EQ(autoCloseSeconds(title, false, rt::Variant::integer(static_cast<std::int16_t>(setting))), seconds)
        << setting;
  }
  EXPECT_EQ(autoCloseSeconds(title, false, rt::Variant(QStringLiteral("never"))), 0);
}

TEST_F(MessageBoxModelTest, InputNeverClosesByTimeButTheAlarmAlwaysDoes) {
  const rt::Variant tenSeconds = rt::Variant::integer(3);
  EXPECT_EQ(autoCloseSeconds(QStringLiteral("Calvix"), true, tenSeconds), 0);
  EXPECT_EQ(autoCloseSeconds(Res(441), false, rt::Variant::integer(0)), 15);
  EXPECT_EQ(autoCloseSeconds(Res(441), true, rt::Variant::integer(0)), 15);
  program().LanguageOffset = 10000;  // the alarm title is recognised in the current language
  EXPECT_EQ(autoCloseSeconds(Res(441), false, rt::Variant::integer(0)), 15);
}

TEST_F(MessageBoxModelTest, MBoxShowFillsTheResultsAndClearsTheFields) {
  program().MessageDefault = QStringLiteral("12.5");
  messages.queueButton(1);
  MBoxShow(0, QStringLiteral("Value?"), 5, 3);
  EXPECT_EQ(messages.shown().back().defaultText, QStringLiteral("12.5"));
  EXPECT_EQ(program().MessageResult, 1);
  EXPECT_EQ(program().MessageValue.toText(), QStringLiteral("12.5"));
  EXPECT_TRUE(program().MessageDefault.isEmpty());
  EXPECT_EQ(program().MessageTitle.toText(), QStringLiteral("Calvix Premium"));

  setMessageList({QStringLiteral("a"), QStringLiteral("b")}, QStringLiteral("Pick"));
  messages.queueText(QStringLiteral("b"));
  MBoxShow(0, QStringLiteral("List"), 1, 3);
  EXPECT_EQ(program().MessageValue.toLong(), 2);
  // The list belonged to that message only.
  MBoxShow(0, QStringLiteral("List again"), 1, 3);
  EXPECT_TRUE(messages.shown().back().listEntries.isEmpty());
  EXPECT_EQ(program().MessageValue.toLong(), 0);
}

TEST_F(MessageBoxModelTest, DatePickerAnswersWithADate) {
  const double start = rt::DateSerial(2024, 2, 29);
  setMessageDate(start);
  MBoxShow(0, QStringLiteral("Date?"), 4, 0);
  EXPECT_TRUE(messages.shown().back().datePicker);
  EXPECT_EQ(program().MessageValue.type(), rt::VType::Date);
  EXPECT_EQ(program().MessageValue.toDouble(), start);

  setMessageDate(start);
  messages.queueText(QStringLiteral("01/03/2024"));
  MBoxShow(0, QStringLiteral("Date?"), 4, 0);
  EXPECT_EQ(program().MessageValue.toDouble(), rt::DateSerial(2024, 3, 1));
  MBoxShow(0, QStringLiteral("Plain"), 4, 0);
  EXPECT_FALSE(messages.shown().back().datePicker);
}

// The command line's --answer is read by the message that takes it: typed
// into a field, or the index of a button in a plain message.
TEST_F(MessageBoxModelTest, AnAnswerIsTypedOrPressedByTheKindOfMessage) {
  ScriptedPresenter& presenter = messages;
  presenter.queueAnswer(QStringLiteral("2"));         // an input box: the text "2"
  presenter.queueAnswer(QStringLiteral("2"));         // three buttons: the third
  presenter.queueAnswer(QStringLiteral("button:1"));  // an input box cancelled
  presenter.queueAnswer(QStringLiteral("yes"));       // a plain box: not a button number, the first
  MBoxShow(0, QStringLiteral("base?"), 5, 3);
  EXPECT_EQ(program().MessageResult, 0);
  EXPECT_EQ(program().MessageValue.toText(), QStringLiteral("2"));
  MBoxShow(0, QStringLiteral("save?"), 2, 7);
  EXPECT_EQ(program().MessageResult, 2);
  MBoxShow(0, QStringLiteral("base?"), 5, 3);
  EXPECT_EQ(program().MessageResult, 1);
  MBoxShow(0, QStringLiteral("note"), 2, 2);
  EXPECT_EQ(program().MessageResult, 0);
  MBoxShow(0, QStringLiteral("no answer left"), 2, 6);
  EXPECT_EQ(program().MessageResult, 0);  // as the box's timer would
  EXPECT_EQ(presenter.shown().size(), 5u);
}
