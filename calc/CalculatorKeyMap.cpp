#include "calc/CalculatorKeyMap.h"

namespace {

KeyAction clickOf(const char* control, int index = -1) {
  KeyAction a;
  a.kind = KeyAction::Kind::Click;
  a.control = QString::fromLatin1(control);
  a.index = index;
  return a;
}

KeyAction kindOf(KeyAction::Kind kind) {
  KeyAction a;
  a.kind = kind;
  return a;
}

}  // namespace

KeyAction typedKeyAction(QChar c) {
  if (c >= QLatin1Char('0') && c <= QLatin1Char('9')) {
    KeyAction a = kindOf(KeyAction::Kind::KeyboardDigit);
    a.digit = c.digitValue();
    return a;
  }
  switch (c.unicode()) {
    case 8: return clickOf("Command31");
    case 13:
    case '=': return clickOf("Command19");
    case '/': return clickOf("Command13", 3);
    case '*': return clickOf("Command13", 0);
    case '+': return clickOf("Command13", 1);
    case '-': return clickOf("Command13", 2);
    case '<':
    case '>': return clickOf("Command12");
    case '.':
    case ',': return clickOf("Command11");
    case 0xBA:  // º
    case 0xAA:  // ª
    case 0xB0:  // ° (keyboards without the º key)
      return clickOf("Command58");
    default: break;
  }
  switch (c.toUpper().unicode()) {
    case 'C': return clickOf("Command17");
    case 'A': return clickOf("Command18");
    case 'P': return clickOf("Command10", 10);
    case 'I': return clickOf("Command10", 4);
    case 'X': return clickOf("Command76", 0);
    case 'Y': return clickOf("Command76", 1);
    case 'E': return clickOf("Command47");
    case 'Q': return clickOf("Command33");
    case 'W': return clickOf("Command34");
    case 'N': return clickOf("Command46");
    case 'D': return clickOf("Command9", 0);
    case 'H': return clickOf("Command9", 1);
    case 'O': return clickOf("Command9", 2);
    case 'B': return clickOf("Command9", 3);
    default: break;
  }
  return {};
}

KeyAction heldKeyAction(int key, Qt::KeyboardModifiers modifiers) {
  const bool shift = modifiers.testFlag(Qt::ShiftModifier);
  const bool ctrl = modifiers.testFlag(Qt::ControlModifier);
  if (key == Qt::Key_Escape) return kindOf(KeyAction::Kind::Stop);
  if (key == Qt::Key_V) return clickOf("Command6", ctrl ? 2 : shift ? 1 : 0);
  if (shift && !ctrl && key >= Qt::Key_1 && key <= Qt::Key_4) return clickOf("Command28", key - Qt::Key_1);
  if (ctrl) return {};
  if (!shift && key >= Qt::Key_F1 && key <= Qt::Key_F4) return clickOf("Command10", key - Qt::Key_F1);
  if (!shift && key >= Qt::Key_F5 && key <= Qt::Key_F8) return clickOf("Command10", key - Qt::Key_F5 + 5);
  const int offset = shift ? 3 : 0;
  switch (key) {
    case Qt::Key_F9: return clickOf("Command21", offset);
    case Qt::Key_F11: return clickOf("Command21", offset + 1);
    case Qt::Key_F12: return clickOf("Command21", offset + 2);
    case Qt::Key_F10: return shift ? kindOf(KeyAction::Kind::ContextMenu) : KeyAction{};
    default: break;
  }
  return {};
}

int keyCodeOf(QChar c) {
  switch (c.unicode()) {
    case 8: return Qt::Key_Backspace;
    case 13: return Qt::Key_Return;
    case 27: return Qt::Key_Escape;
    default: break;
  }
  const QChar upper = c.toUpper();
  // Qt's codes of printable Latin-1 keys are the characters themselves.
  return upper.unicode() < 0x100 ? static_cast<int>(upper.unicode()) : static_cast<int>(Qt::Key_unknown);
}
