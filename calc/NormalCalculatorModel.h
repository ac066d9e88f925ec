#pragma once
// The normal calculator's model (window comand2): a smaller calculator over
// the same CalculatorEngine.
//
// How the pieces fit:
//  - The engine keeps every shared rule (entry, operators, equals, the error
//    cycle, formats, VAT, currencies, memories, registers, history); this
//    model owns one with the short history pads (7 blanks, 13 after TOTAL)
//    and its own printout heading, so its accumulator, pending operator and
//    history are its own while the memories, registers, VAT rate and
//    currencies stay the program-wide values both windows read.
//  - Its own keys (square root, square, cube root, cube, pi, 1/x, EXP) run
//    the engine's bodies under this window's names; every other key of the
//    table (NormalCalculatorKeys.h) is the engine's key of the same name.
//    A control the window lacks does nothing: click() answers false.
//  - Its own key map: the scientific map without X, Y, N, D, H, O, B and the
//    degree key, and with F5 to F8 and P on its own keys.
#include <QChar>
#include <QString>
#include <QtCore/qnamespace.h>

#include "calc/CalculatorEngine.h"
#include "calc/CalculatorKeyMap.h"

class NormalCalculatorModel {
 public:
  NormalCalculatorModel();
  NormalCalculatorModel(const NormalCalculatorModel&) = delete;
  NormalCalculatorModel& operator=(const NormalCalculatorModel&) = delete;

  // The shared rules and every display field (numero, result, func, m1...).
  CalculatorEngine engine;

  // ---- Window events -------------------------------------------------------
  void Form_Load();
  void Form_Activate();
  void Form_Unload();

  // ---- Keys of this window only -------------------------------------------
  void Command36_Click();   // square root (F5)
  void Command40_Click();   // square (F6)
  void Command39_Click();   // cube root (F7)
  void Command64_Click();   // cube (F8)
  void Command45_Click();   // pi (P); func shows "Pi"
  void Command123_Click();  // reciprocal (I)
  void Command124_Click();  // exponent (E)

  // ---- Entry points shared by the window and calvix-cli --------------------
  // Clicks a control of this window by name; false when it has none.
  bool click(const QString& control, int index = -1);
  bool keyPress(QChar c);
  bool keyDown(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  bool typeCharacter(QChar c);

  // The mode word this window sets on load.
  static const QString kModeWord;
};

// This window's key map: a typed character and a held key.
KeyAction normalTypedKeyAction(QChar c);
KeyAction normalHeldKeyAction(int key, Qt::KeyboardModifiers modifiers);
