#include "shell/WindowRegistry.h"

#include <QHash>
#include <QPointer>

namespace {
struct Registry {
  QHash<int, WindowFactory> factories;
  QHash<int, QPointer<QWidget>> windows;
};
Registry& registry() {
  static Registry r;
  return r;
}
}  // namespace

void registerWindowFactory(WindowId id, WindowFactory factory) {
  registry().factories.insert(static_cast<int>(id), std::move(factory));
}

bool hasWindowFactory(WindowId id) { return registry().factories.contains(static_cast<int>(id)); }

QWidget* findWindow(WindowId id) { return registry().windows.value(static_cast<int>(id)).data(); }

QWidget* OpenWindow(WindowId id) {
  QWidget* w = findWindow(id);
  if (!w) {
    const auto it = registry().factories.constFind(static_cast<int>(id));
    if (it == registry().factories.constEnd()) return nullptr;
    w = (*it)();
    if (!w) return nullptr;
    registry().windows.insert(static_cast<int>(id), w);
  }
  if (w->isMinimized()) w->setWindowState(w->windowState() & ~Qt::WindowMinimized);
  w->show();
  w->raise();
  w->activateWindow();
  return w;
}

QList<QWidget*> openWindows() {
  QList<QWidget*> list;
  for (const auto& p : std::as_const(registry().windows)) {
    if (p) list << p.data();
  }
  return list;
}

void clearWindowRegistry() {
  registry().factories.clear();
  registry().windows.clear();
}
