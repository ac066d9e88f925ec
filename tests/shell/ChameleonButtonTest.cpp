// The drawn button's model: properties in stored order with their defaults
// and their parsing, hover through OverTimer, pressing, check mode and keys.
#include <gtest/gtest.h>

#include "shell/ChameleonButton.h"

namespace {

using Form = ChameleonButton::Form;

QStringList eventNames(const ChameleonButton& b) {
  QStringList names;
  for (const auto& r : b.events()) names << ChameleonButton::eventName(r.event);
  return names;
}

// A 120 x 40 button whose pointer is wherever the test puts it.
struct Bench {
  ChameleonButton b;
  int px = -100, py = -100;
  Bench() {
    b.Resize(120, 40);
    b.pointerOver = [this] { return b.contains(px, py); };
  }
  void move(int x, int y) {
    px = x;
    py = y;
    if (b.contains(x, y)) b.MouseMove(0, 0, x, y);
  }
};

}  // namespace

TEST(ChameleonButton, PropertiesComeInStoredOrderWithTheirDefaults) {
  ChameleonButton b;
  b.initProperties(QStringLiteral("chameleonButton1"));
  const QStringList expected{"BTYPE", "TX",   "ENAB",  "FONT",  "COLTYPE", "FOCUSR", "BCOL",   "BCOLO",
                             "FCOL",  "FCOLO", "MCOL", "MPTR",  "MICON",   "PICN",   "PICH",   "UMCOL",
                             "SOFT",  "PICPOS", "NGREY", "FX",  "HAND",    "CHECK",  "VALUE"};
  EXPECT_EQ(ChameleonButton::storedNames(), expected);
  const QStringList defaults{"2",           "chameleonButton1", "True", "", "1", "True", "-2147483633", "-2147483633",
                             "-2147483630", "-2147483630", "12632256", "0", "", "", "", "True", "False", "0", "False",
                             "0", "False", "False", "False"};
  for (int i = 0; i < expected.size(); ++i) EXPECT_EQ(b.property(expected[i]), defaults[i]) << expected[i].toStdString();
}

TEST(ChameleonButton, SetPropertyParsesEachTypeAndRefusesWhatDoesNotFit) {
  const struct {
    const char* name;
    const char* value;
    bool ok;
    const char* shown;
  } rows[] = {
      {"BTYPE", "14", true, "14"},     {"BTYPE", "0", false, "2"},       {"BTYPE", "15", false, "2"},
      {"BTYPE", "x", false, "2"},      {"TX", "Ok", true, "Ok"},         {"CHECK", "true", true, "True"},
      {"CHECK", "-1", true, "True"},   {"ENAB", "maybe", false, "True"}, {"BCOL", "255", true, "255"},
      {"BCOL", "&HFF00&", true, "65280"}, {"MCOL", "4294967296", false, "12632256"},
      {"PICPOS", "5", false, "0"},     {"FX", "3", true, "3"},           {"NOPE", "1", false, ""},
  };
  for (const auto& r : rows) {
    ChameleonButton b;
    EXPECT_EQ(b.setProperty(QLatin1String(r.name), QLatin1String(r.value)), r.ok) << r.name << "=" << r.value;
    EXPECT_EQ(b.property(QLatin1String(r.name)), QLatin1String(r.shown)) << r.name << "=" << r.value;
  }
}

TEST(ChameleonButton, HoverStartsTheTimerAndATickSeesThePointerLeaveWithoutAMove) {
  Bench t;
  t.move(10, 10);
  EXPECT_EQ(eventNames(t.b), (QStringList{"MouseMove", "MouseEnter"}));
  EXPECT_TRUE(t.b.OverTimer());
  EXPECT_EQ(t.b.form(), Form::Hover);

  // Further moves over it raise no second enter; a tick with the pointer still there does nothing.
  t.move(50, 20);
  t.b.OverTimer_Timer();
  EXPECT_EQ(eventNames(t.b), (QStringList{"MouseMove", "MouseEnter", "MouseMove"}));

  // The pointer jumps away faster than any move event: only the timer notices.
  t.px = 500;
  t.b.OverTimer_Timer();
  EXPECT_EQ(eventNames(t.b).last(), QStringLiteral("MouseLeave"));
  EXPECT_FALSE(t.b.OverTimer());
  EXPECT_FALSE(t.b.hovered());
  EXPECT_EQ(t.b.form(), Form::Up);
  // A stopped timer's late tick raises nothing more.
  const auto count = t.b.events().size();
  t.b.OverTimer_Timer();
  EXPECT_EQ(t.b.events().size(), count);
}

TEST(ChameleonButton, ClickNeedsPressAndReleaseOverTheButton) {
  Bench t;
  t.move(10, 10);
  t.b.clearEvents();
  t.b.MouseDown(1, 0, 10, 10);
  EXPECT_EQ(t.b.form(), Form::Down);
  t.b.MouseUp(1, 0, 10, 10);
  EXPECT_EQ(eventNames(t.b), (QStringList{"MouseDown", "MouseUp", "Click"}));
  EXPECT_EQ(t.b.form(), Form::Hover);

  // Dragged off while held: the up form shows, and the release outside is no click.
  t.b.clearEvents();
  t.b.MouseDown(1, 0, 10, 10);
  t.b.MouseMove(1, 0, 200, 10);
  EXPECT_EQ(t.b.form(), Form::Up);
  t.b.MouseMove(1, 0, 20, 10);
  EXPECT_EQ(t.b.form(), Form::Down);
  t.b.MouseUp(1, 0, 300, 10);
  EXPECT_EQ(eventNames(t.b), (QStringList{"MouseDown", "MouseMove", "MouseMove", "MouseUp"}));

  // The right button raises its events but neither presses nor clicks.
  t.b.clearEvents();
  t.b.MouseDown(2, 0, 10, 10);
  t.b.MouseUp(2, 0, 10, 10);
  EXPECT_EQ(eventNames(t.b), (QStringList{"MouseDown", "MouseUp"}));
}

TEST(ChameleonButton, CheckModeTogglesValueAndStaysDown) {
  Bench t;
  t.b.setProperty(QStringLiteral("CHECK"), QStringLiteral("True"));
  t.move(5, 5);
  t.b.MouseDown(1, 0, 5, 5);
  t.b.MouseUp(1, 0, 5, 5);
  EXPECT_TRUE(t.b.value);
  EXPECT_EQ(t.b.form(), Form::Down);
  t.px = 999;
  t.b.OverTimer_Timer();
  EXPECT_EQ(t.b.form(), Form::Down);  // still ticked after the pointer left
  t.b.KeyPress(ChameleonButton::kKeyEnter);
  EXPECT_FALSE(t.b.value);
  EXPECT_EQ(t.b.form(), Form::Up);
}

TEST(ChameleonButton, SpaceAndEnterClickAndADisabledButtonRaisesNothing) {
  ChameleonButton b;
  b.KeyDown(ChameleonButton::kKeySpace, 0);
  EXPECT_EQ(b.form(), Form::Down);
  b.KeyPress(32);
  b.KeyUp(ChameleonButton::kKeySpace, 0);
  b.KeyPress(ChameleonButton::kKeyEnter);
  EXPECT_EQ(eventNames(b), (QStringList{"KeyDown", "KeyPress", "KeyUp", "Click", "KeyPress", "Click"}));

  ChameleonButton off;
  off.setProperty(QStringLiteral("ENAB"), QStringLiteral("False"));
  off.MouseMove(0, 0, 5, 5);
  off.MouseDown(1, 0, 5, 5);
  off.MouseUp(1, 0, 5, 5);
  off.KeyPress(ChameleonButton::kKeyEnter);
  EXPECT_TRUE(off.events().isEmpty());
  EXPECT_FALSE(off.OverTimer());
}

TEST(ChameleonButton, RedrawSkipsTheFormAlreadyDrawnUnlessForced) {
  ChameleonButton b;
  const int start = b.redraws();
  b.Redraw(Form::Up, false);
  EXPECT_EQ(b.redraws(), start);
  b.Redraw(Form::Up, true);
  b.Redraw(Form::Hover, false);
  EXPECT_EQ(b.redraws(), start + 2);
}
