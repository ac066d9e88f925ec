// The calculator's key map and the written form of key sequences.
#include "calc/CalculatorKeyMap.h"
#include "calc/CalculatorKeypad.h"
#include "calc/KeySequence.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

struct Expect {
  KeyAction::Kind kind;
  const char* control;
  int index;
};

void expectAction(const KeyAction& a, const Expect& e, const std::string& what) {
  EXPECT_EQ(a.kind, e.kind) << what;
  if (e.kind == KeyAction::Kind::Click) {
    EXPECT_EQ(a.control, QLatin1String(e.control)) << what;
    EXPECT_EQ(a.index, e.index) << what;
  }
}

constexpr auto kClick = KeyAction::Kind::Click;
constexpr auto kNone = KeyAction::Kind::None;

TEST(CalculatorKeyMap, TypedKeys) {
  const struct {
    char16_t c;
    Expect e;
  } rows[] = {
      // Letters in both cases, both separators, both sign keys, the
      // characters of keys that have no letter of their own.
      {u'c', {kClick, "Command17", -1}},  {u'C', {kClick, "Command17", -1}},  {u'a', {kClick, "Command18", -1}},
      {u'A', {kClick, "Command18", -1}},  {u'e', {kClick, "Command47", -1}},  {u'E', {kClick, "Command47", -1}},
      {u'.', {kClick, "Command11", -1}},  {u',', {kClick, "Command11", -1}},  {u'<', {kClick, "Command12", -1}},
      {u'>', {kClick, "Command12", -1}},  {u'-', {kClick, "Command13", 2}},   {u'/', {kClick, "Command13", 3}},
      {u'\b', {kClick, "Command31", -1}}, {u'\r', {kClick, "Command19", -1}}, {u'\u00BA', {kClick, "Command58", -1}},
      {u'\u00AA', {kClick, "Command58", -1}}, {u'p', {kClick, "Command10", 10}}, {u'B', {kClick, "Command9", 3}},
      // Hexadecimal letters without a key of their own, and other strays.
      {u'F', {kNone, nullptr, 0}},        {u'!', {kNone, nullptr, 0}},        {u'v', {kNone, nullptr, 0}},
  };
  for (const auto& r : rows) {
    expectAction(typedKeyAction(QChar(r.c)), r.e, "typed U+" + std::to_string(static_cast<int>(r.c)));
  }
  for (int d = 0; d <= 9; ++d) {
    const KeyAction a = typedKeyAction(QChar(u'0' + d));
    EXPECT_EQ(a.kind, KeyAction::Kind::KeyboardDigit);
    EXPECT_EQ(a.digit, d);
  }
}

TEST(CalculatorKeyMap, HeldKeys) {
  const struct {
    int key;
    Qt::KeyboardModifiers mods;
    Expect e;
  } rows[] = {
      {Qt::Key_Escape, Qt::NoModifier, {KeyAction::Kind::Stop, nullptr, 0}},
      {Qt::Key_V, Qt::NoModifier, {kClick, "Command6", 0}}, {Qt::Key_V, Qt::ShiftModifier, {kClick, "Command6", 1}},
      {Qt::Key_V, Qt::ControlModifier, {kClick, "Command6", 2}},
      {Qt::Key_1, Qt::ShiftModifier, {kClick, "Command28", 0}},
      {Qt::Key_4, Qt::ShiftModifier, {kClick, "Command28", 3}}, {Qt::Key_5, Qt::ShiftModifier, {kNone, nullptr, 0}},
      {Qt::Key_1, Qt::NoModifier, {kNone, nullptr, 0}}, {Qt::Key_F1, Qt::NoModifier, {kClick, "Command10", 0}},
      {Qt::Key_F4, Qt::NoModifier, {kClick, "Command10", 3}}, {Qt::Key_F5, Qt::NoModifier, {kClick, "Command10", 5}},
      {Qt::Key_F8, Qt::NoModifier, {kClick, "Command10", 8}}, {Qt::Key_F9, Qt::NoModifier, {kClick, "Command21", 0}},
      {Qt::Key_F11, Qt::NoModifier, {kClick, "Command21", 1}},
      {Qt::Key_F12, Qt::NoModifier, {kClick, "Command21", 2}},
      {Qt::Key_F9, Qt::ShiftModifier, {kClick, "Command21", 3}},
      {Qt::Key_F11, Qt::ShiftModifier, {kClick, "Command21", 4}},
      {Qt::Key_F12, Qt::ShiftModifier, {kClick, "Command21", 5}},
      {Qt::Key_F10, Qt::ShiftModifier, {KeyAction::Kind::ContextMenu, nullptr, 0}},
      {Qt::Key_F10, Qt::NoModifier, {kNone, nullptr, 0}}, {Qt::Key_F12, Qt::ControlModifier, {kNone, nullptr, 0}},
  };
  for (const auto& r : rows) {
    expectAction(heldKeyAction(r.key, r.mods), r.e,
                 "key " + std::to_string(r.key) + " mods " + std::to_string(r.mods.toInt()));
  }
}

TEST(CalculatorKeypad, EveryKeyHasAUniqueNameAndCellAndRunsAHandler) {
  QSet<QString> names;
  QSet<QString> cells;
  for (const KeypadKey& k : calculatorKeys()) {
    EXPECT_FALSE(names.contains(keyObjectName(k))) << keyObjectName(k).toStdString();
    names.insert(keyObjectName(k));
    for (int r = k.row; r < k.row + k.rowSpan; ++r) {
      for (int c = k.column; c < k.column + k.columnSpan; ++c) {
        const QString cell = QStringLiteral("%1:%2:%3").arg(static_cast<int>(k.panel)).arg(r).arg(c);
        EXPECT_FALSE(cells.contains(cell)) << keyObjectName(k).toStdString() << " overlaps at " << cell.toStdString();
        cells.insert(cell);
      }
    }
    EXPECT_NE(k.press, nullptr);
  }
  for (int d = 0; d <= 9; ++d) EXPECT_NE(findKey(QStringLiteral("Command1"), d), nullptr) << d;
  for (int i = 0; i <= 3; ++i) EXPECT_NE(findKey(QStringLiteral("Command13"), i), nullptr) << i;
}

TEST(CalculatorKeypad, CaptionsAndTooltipsExistInEveryLanguage) {
  for (const KeypadKey& k : calculatorKeys()) {
    for (const int id : {k.tooltipId, k.captionId}) {
      if (id == 0) continue;
      EXPECT_TRUE(strings::hasAllLanguages(id)) << keyObjectName(k).toStdString() << " string " << id;
    }
  }
}

// Every key the keyboard reaches has its control, except the statistics
// (Command76) and register (Command28) keys of tool families still to come.
TEST(CalculatorKeyMap, EveryMappedKeyHasItsControl) {
  const auto check = [](const KeyAction& a, const std::string& what) {
    if (a.kind != KeyAction::Kind::Click) return;
    if (a.control == QLatin1String("Command76") || a.control == QLatin1String("Command28")) return;
    EXPECT_NE(findKey(a.control, a.index), nullptr) << what << " -> " << a.control.toStdString() << "(" << a.index << ")";
  };
  for (char16_t c = 1; c < 0x100; ++c) check(typedKeyAction(QChar(c)), "typed " + std::to_string(c));
  for (const Qt::KeyboardModifiers mods : {Qt::KeyboardModifiers(Qt::NoModifier), Qt::KeyboardModifiers(Qt::ShiftModifier),
                                           Qt::KeyboardModifiers(Qt::ControlModifier)}) {
    for (int key = Qt::Key_0; key <= Qt::Key_Z; ++key) check(heldKeyAction(key, mods), "held " + std::to_string(key));
    for (int key = Qt::Key_F1; key <= Qt::Key_F12; ++key) check(heldKeyAction(key, mods), "held F" + std::to_string(key));
  }
}

TEST(KeySequence, ParsesEachKindOfToken) {
  QList<KeyStep> steps;
  QString error;
  ASSERT_TRUE(parseKeySequence(QStringLiteral("Command13(3) = Enter Shift+F9 Ctrl+V Shift+1 Backspace 1.5"), steps,
                               error))
      << error.toStdString();
  ASSERT_EQ(steps.size(), 10);
  EXPECT_EQ(steps[0].kind, KeyStep::Kind::Click);
  EXPECT_EQ(steps[0].control, QStringLiteral("Command13"));
  EXPECT_EQ(steps[0].index, 3);
  EXPECT_EQ(steps[1].control, QStringLiteral("Command19"));
  EXPECT_EQ(steps[2].control, QStringLiteral("Command19"));
  EXPECT_EQ(steps[3].kind, KeyStep::Kind::Held);
  EXPECT_EQ(steps[3].key, Qt::Key_F9);
  EXPECT_EQ(steps[3].modifiers, Qt::ShiftModifier);
  EXPECT_EQ(steps[4].key, Qt::Key_V);
  EXPECT_EQ(steps[4].modifiers, Qt::ControlModifier);
  EXPECT_EQ(steps[5].key, Qt::Key_1);
  EXPECT_EQ(steps[6].key, Qt::Key_Backspace);
  EXPECT_EQ(steps[6].alsoTyped, QChar(8));
  EXPECT_EQ(steps[7].kind, KeyStep::Kind::Type);
  EXPECT_EQ(steps[8].character, QLatin1Char('.'));
}

TEST(KeySequence, RefusesUnknownControlsAndKeys) {
  for (const char* bad : {"Command99", "Command13", "Command13(7)", "Command19(0)", "Shift+!", "Ctrl+Tab"}) {
    QList<KeyStep> steps;
    QString error;
    EXPECT_FALSE(parseKeySequence(QStringLiteral("1 + ") + QLatin1String(bad), steps, error)) << bad;
    EXPECT_FALSE(error.isEmpty()) << bad;
    EXPECT_TRUE(steps.isEmpty()) << bad;
  }
}

}  // namespace
