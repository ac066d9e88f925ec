#pragma once
// The calculator's keys as a table: one row per key with its control name and
// index, caption, tooltip string, place (panel, row, column, spans) and the
// handler it runs. The window builds its buttons from this table, the model
// acts on control names, never on a translated caption, and calvix-cli clicks
// keys by the same names. Later tool families add their rows (and panels).
#include <QList>
#include <QString>

class CalculatorEngine;

enum class KeypadPanel {
  Main,         // the number keypad beside the display
  Functions,    // powers, logarithms, trigonometry, integer parts, degrees
  Vat,          // VAT and currencies
  Temperature,  // temperature scales
  Angles,       // angle units
  Bases,        // number bases
  Constants,    // the constants panel Frame2
  Memories,     // per memory: recall, add, clear (columns 1-3 of four per memory)
  Registers,    // recall of R1 to R4, and the history panel key
  HistoryTools, // under the history list
  ViewerTools,  // under the auxiliary viewer
  Statistics,   // the statistics panel, under its two grids
  NumberTools,  // complex numbers and the number tools
  Equations,    // the equation tools and the linear system
  Programs,     // the evaluation panel: run, store and clear per program, evaluate
};

struct KeypadKey {
  const char* control;  // "Command13"
  int index;            // index within a control array, -1 for a single control
  const char* caption;  // shown on the key (symbols, not translated)
  int tooltipId;        // string id of the tooltip, 0 for none
  KeypadPanel panel;
  int row;
  int column;
  int rowSpan;
  int columnSpan;
  void (*press)(CalculatorEngine&, int index);
  int captionId;        // string id of a translated caption, 0 when caption holds it
};

// The number tools' rows (NumberToolKeypad.cpp).
void addNumberToolKeys(QList<KeypadKey>& keys);

// Every key of the scientific calculator.
const QList<KeypadKey>& calculatorKeys();
// The key of a control, or nullptr when there is none.
const KeypadKey* findKey(const QString& control, int index);
// True when the calculator has a control of that name (any index).
bool hasControl(const QString& control);
// The object name of a key's widget: "Command19", "Command13(3)".
QString keyObjectName(const KeypadKey& key);
// The caption a key shows in the current language (also the name the
// function keys write into func); empty for an unknown key.
QString keyCaption(const KeypadKey& key);
QString keyCaption(const QString& control, int index = -1);
// The tooltip string id of a key, 0 for an unknown key.
int keyTooltipId(const QString& control, int index = -1);
