#pragma once
// The normal calculator's keys as a table: control name and index, place on
// the window and, for the keys of this window only, caption, tooltip and
// handler. A shared key (no handler here) takes its caption and tooltip from
// the scientific key table and runs the engine's key of the same name.
#include <QList>
#include <QString>

class NormalCalculatorModel;

enum class NormalPanel {
  Functions,  // roots, powers, pi, 1/x
  Main,       // digits, operators, clear, equals
  Formats,    // SET, #Rdo, Rdo, SCI
  Vat,        // VAT and the two currency keys
  Memories,   // per memory: recall, add, clear
  Registers,  // R1 to R4
};

struct NormalKey {
  const char* control;
  int index;  // -1 for a single control
  NormalPanel panel;
  int row;
  int column;
  int rowSpan;
  int columnSpan;
  // This window's own keys; null for a shared key.
  void (*press)(NormalCalculatorModel&);
  const char* caption;  // own keys: the symbol shown (also the name func shows)
  int tooltipId;        // own keys: the tooltip string
};

const QList<NormalKey>& normalCalculatorKeys();
const NormalKey* findNormalKey(const QString& control, int index);
bool hasNormalControl(const QString& control);
// "Command19", "Command13(3)".
QString normalKeyObjectName(const NormalKey& key);
QString normalKeyCaption(const NormalKey& key);
int normalKeyTooltipId(const NormalKey& key);
