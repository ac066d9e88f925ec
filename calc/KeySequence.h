#pragma once
// Key sequences written as text, as calvix-cli and the tests give them.
// Tokens are separated by blanks:
//   Command19, Command13(3)   a click of that control (with its array index)
//   Regresion(1), abrirest    a menu item (calc/CalculatorMenus.h)
//   MSFlexGrid1(0)=5          selects row 5 of the X grid
//   right:Command51           a right click on a control
//   = or Enter                equals (Command19)
//   Backspace, Esc, F1..F12   a named key, optionally Shift+ or Ctrl+ in front;
//   Shift+1..Shift+4, Shift+V, Ctrl+V   the held keys with a character
//   Text4=TEXT                sets the expression field (no blanks; may be empty)
//   right:Command83           a right click on that control
//   anything else             typed character by character through the key
//                             map: "12.5" types 1, 2, the separator and 5
#include <QList>
#include <QString>
#include <QtCore/qnamespace.h>

class CalculatorEngine;

struct KeyStep {
  enum class Kind { Click, Type, Held, Select, SetText, RightClick };
  Kind kind = Kind::Type;
  QString control;  // Click, RightClick
  int index = -1;   // Click; Select: the grid
  int row = 0;      // Select
  QChar character;  // Type: a character typed (held key, then the character)
  int key = 0;      // Held: Qt key code
  Qt::KeyboardModifiers modifiers;  // Held
  QChar alsoTyped;  // Held: the character the stroke also types (Backspace, Esc)
  QString text;     // SetText
};

// Parses a sequence; on a bad token returns false and says why in error.
bool parseKeySequence(const QString& sequence, QList<KeyStep>& steps, QString& error);
// Runs parsed steps on the engine.
void runKeySteps(CalculatorEngine& engine, const QList<KeyStep>& steps);
// Parses and runs; false (and nothing run) on a bad token.
bool runKeySequence(CalculatorEngine& engine, const QString& sequence, QString* error = nullptr);
