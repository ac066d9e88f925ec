#include "calc/NormalCalculatorModel.h"

#include "calc/NormalCalculatorKeys.h"
#include "shell/ProgramState.h"

namespace {

KeyAction clickOf(const char* control, int index = -1) {
  KeyAction a;
  a.kind = KeyAction::Kind::Click;
  a.control = QString::fromLatin1(control);
  a.index = index;
  return a;
}

// The engine's Command10 bodies this window runs under its own keys.
enum PowerIndex { kReciprocal = 4, kSquareRoot = 5, kSquare = 6, kCubeRoot = 7, kCube = 8, kPi = 10 };

}  // namespace

const QString NormalCalculatorModel::kModeWord = QStringLiteral("normalita");

NormalCalculatorModel::NormalCalculatorModel() : engine(CalculatorEngine::HistoryPadding{7, 13}) {
  engine.historyHeadingId = 4603;
  Form_Load();
}

// The engine has loaded itself as the scientific window would ("deg",
// "General Number", the formats, memories and registers); this window only
// changes the mode word.
void NormalCalculatorModel::Form_Load() { program().CalculatorMode = kModeWord; }

void NormalCalculatorModel::Form_Activate() { engine.Form_Activate(); }

void NormalCalculatorModel::Form_Unload() { program().helpCursor = false; }

void NormalCalculatorModel::Command36_Click() { engine.powerKey(36, kSquareRoot, QStringLiteral("\u221Ax")); }
void NormalCalculatorModel::Command40_Click() { engine.powerKey(40, kSquare, QStringLiteral("x\u00B2")); }
void NormalCalculatorModel::Command39_Click() { engine.powerKey(39, kCubeRoot, QStringLiteral("\u221Bx")); }
void NormalCalculatorModel::Command64_Click() { engine.powerKey(64, kCube, QStringLiteral("x\u00B3")); }
void NormalCalculatorModel::Command45_Click() { engine.powerKey(45, kPi, QStringLiteral("Pi")); }
void NormalCalculatorModel::Command123_Click() { engine.powerKey(123, kReciprocal, QStringLiteral("1/x")); }
void NormalCalculatorModel::Command124_Click() { engine.Command47_Click(); }

bool NormalCalculatorModel::click(const QString& control, int index) {
  const NormalKey* key = findNormalKey(control, index);
  if (!key) return false;
  if (key->press) {
    key->press(*this);
    return true;
  }
  return engine.click(control, index);
}

bool NormalCalculatorModel::keyPress(QChar c) {
  const KeyAction a = normalTypedKeyAction(c);
  switch (a.kind) {
    case KeyAction::Kind::KeyboardDigit:
      // The keyboard's digit path is the engine's: the digit rule, focus left alone.
      return engine.keyPress(c);
    case KeyAction::Kind::Click: return click(a.control, a.index);
    default: return false;
  }
}

bool NormalCalculatorModel::keyDown(int key, Qt::KeyboardModifiers modifiers) {
  const KeyAction a = normalHeldKeyAction(key, modifiers);
  switch (a.kind) {
    case KeyAction::Kind::ContextMenu: engine.contextMenuRequested = true; return true;
    case KeyAction::Kind::Click: return click(a.control, a.index);
    default: return false;
  }
}

bool NormalCalculatorModel::typeCharacter(QChar c) {
  const bool held = keyDown(keyCodeOf(c));
  const bool typed = keyPress(c);
  return held || typed;
}

KeyAction normalTypedKeyAction(QChar c) {
  if (c.isDigit() && c.unicode() < 0x80) return typedKeyAction(c);
  switch (c.unicode()) {
    case 8:
    case 13:
    case '=':
    case '/':
    case '*':
    case '+':
    case '-':
    case '<':
    case '>':
    case '.':
    case ',': return typedKeyAction(c);
    default: break;
  }
  switch (c.toUpper().unicode()) {
    case 'C': return clickOf("Command17");
    case 'A': return clickOf("Command18");
    case 'P': return clickOf("Command45");
    case 'I': return clickOf("Command123");
    case 'E': return clickOf("Command124");
    case 'Q': return clickOf("Command33");
    case 'W': return clickOf("Command34");
    default: break;
  }
  return {};
}

KeyAction normalHeldKeyAction(int key, Qt::KeyboardModifiers modifiers) {
  const bool shift = modifiers.testFlag(Qt::ShiftModifier);
  const bool ctrl = modifiers.testFlag(Qt::ControlModifier);
  if (key == Qt::Key_V) return clickOf("Command6", ctrl ? 2 : shift ? 1 : 0);
  if (shift && !ctrl && key >= Qt::Key_1 && key <= Qt::Key_4) return clickOf("Command28", key - Qt::Key_1);
  if (ctrl) return {};
  if (shift) {
    if (key != Qt::Key_F10) return {};
    KeyAction a;
    a.kind = KeyAction::Kind::ContextMenu;
    return a;
  }
  switch (key) {
    case Qt::Key_F5: return clickOf("Command36");
    case Qt::Key_F6: return clickOf("Command40");
    case Qt::Key_F7: return clickOf("Command39");
    case Qt::Key_F8: return clickOf("Command64");
    default: return {};
  }
}
