#pragma once
// The calculator's menu items as a table: control name and index, caption and
// the handler. The window builds its menus from it and calvix-cli picks items
// by the same names ("Regresion(1)", "abrirest").
#include <QList>
#include <QString>

class CalculatorEngine;

struct MenuItem {
  const char* control;  // "Regresion"
  int index;            // -1 for a single item
  int captionId;        // string id of the caption, 0 when caption holds it
  const char* caption;
  const char* menu;     // the menu it belongs to: "TipoRegresion", "MnuClrSTD", "ordenaEstad", "archivo", "grid"
  void (*press)(CalculatorEngine&, int index);
};

const QList<MenuItem>& calculatorMenuItems();
const MenuItem* findMenuItem(const QString& control, int index);
QString menuCaption(const MenuItem& item);
// The items of one menu, in order.
QList<const MenuItem*> menuItems(const char* menu);
