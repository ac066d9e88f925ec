#include "calc/CalculatorMenus.h"

#include <cstring>

#include "calc/CalculatorEngine.h"
#include "shell/Strings.h"

namespace {

using E = CalculatorEngine;

QList<MenuItem> buildItems() {
  const auto regression = [](E& e, int i) { e.Regresion_Click(i); };
  const auto erase = [](E& e, int i) { e.MnuClrSTD_Click(i); };
  const auto sort = [](E& e, int i) { e.ordenaEstad_Click(i); };
  return {
      {"Regresion", 0, 4201, "", "TipoRegresion", regression},
      {"Regresion", 1, 4202, "", "TipoRegresion", regression},
      {"Regresion", 2, 4203, "", "TipoRegresion", regression},
      {"MnuClrSTD", 0, 0, "X", "MnuClrSTD", erase},
      {"MnuClrSTD", 1, 0, "Y", "MnuClrSTD", erase},
      {"MnuClrSTD", 2, 4209, "", "MnuClrSTD", erase},
      {"ordenaEstad", 0, 4210, "", "ordenaEstad", sort},
      {"ordenaEstad", 1, 4211, "", "ordenaEstad", sort},
      {"changecell", -1, 4215, "", "grid", [](E& e, int) { e.changecell_Click(); }},
      {"borracell", -1, 4574, "", "grid", [](E& e, int) { e.borracell_Click(); }},
      {"abrirest", -1, 4212, "", "archivo", [](E& e, int) { e.abrirest_Click(); }},
      {"guardarest", -1, 4213, "", "archivo", [](E& e, int) { e.guardarest_Click(); }},
      {"exporcsv", -1, 4214, "", "archivo", [](E& e, int) { e.exporcsv_Click(); }},
      {"estad\xC3\xADstica", -1, 55, "", "archivo", [](E& e, int) { e.estadistica_Click(); }},
  };
}

}  // namespace

const QList<MenuItem>& calculatorMenuItems() {
  static const QList<MenuItem> items = buildItems();
  return items;
}

const MenuItem* findMenuItem(const QString& control, int index) {
  for (const MenuItem& m : calculatorMenuItems()) {
    if (index == m.index && control == QString::fromUtf8(m.control)) return &m;
  }
  return nullptr;
}

QString menuCaption(const MenuItem& item) {
  return item.captionId != 0 ? Res(item.captionId) : QString::fromUtf8(item.caption);
}

QList<const MenuItem*> menuItems(const char* menu) {
  QList<const MenuItem*> out;
  for (const MenuItem& m : calculatorMenuItems()) {
    if (std::strcmp(m.menu, menu) == 0) out << &m;
  }
  return out;
}
