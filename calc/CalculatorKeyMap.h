#pragma once
// The calculator window's key map: what a typed character and what a held key
// (with Shift or Ctrl) do. The window takes keys before its controls, so the
// same map serves every control that has the focus, and calvix-cli types its
// sequences through it.
#include <QChar>
#include <QString>
#include <QtCore/qnamespace.h>

struct KeyAction {
  enum class Kind {
    None,            // the key does nothing here
    Click,           // clicks control[index]
    KeyboardDigit,   // the digit rule, leaving the focus alone
    Stop,            // Esc: the stop signal of long listings
    ContextMenu,     // Shift+F10: the window's context menu
  };
  Kind kind = Kind::None;
  QString control;
  int index = -1;
  int digit = 0;
};

// A typed character: digits, Backspace, / * + -, C, A, < >, P, I, X, Y, . ,
// E, Q, W, º ª °, N, D H O B (letters in both cases); Enter and = are equals.
KeyAction typedKeyAction(QChar c);
// A held key: Esc, V (Shift, Ctrl), Shift+1..4, F1-F12 (Shift for the
// inverse trigonometric keys), Shift+F10.
KeyAction heldKeyAction(int key, Qt::KeyboardModifiers modifiers);
// The key code a character's key stroke produces (letters as capitals).
int keyCodeOf(QChar c);
