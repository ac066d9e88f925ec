#include "shell/WindowRegistry.h"

#include <QFileInfo>
#include <QHash>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>

#include "shell/AlarmIconWidget.h"
#include "shell/WindowCaptions.h"
#include "shell/WindowServices.h"

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

QList<WindowId> allWindowIds() {
  QList<WindowId> ids;
  for (int i = 0; i <= static_cast<int>(WindowId::Help); ++i) ids << static_cast<WindowId>(i);
  return ids;
}

bool openDocument(const QString& path) {
  static const QHash<QString, WindowId> kinds{
      {QStringLiteral("age"), WindowId::Calendar},     {QStringLiteral("ban"), WindowId::Banking},
      {QStringLiteral("evl"), WindowId::FunctionTable}, {QStringLiteral("lot"), WindowId::Lottery},
      {QStringLiteral("dat"), WindowId::ScientificCalculator}, {QStringLiteral("cro"), WindowId::Chronometer}};
  const auto kind = kinds.constFind(QFileInfo(path).suffix().toLower());
  if (kind == kinds.constEnd() || !hasWindowFactory(*kind)) return false;
  QWidget* w = OpenWindow(*kind);
  if (!w || w->metaObject()->indexOfMethod("openDocument(QString)") < 0) return false;
  bool opened = false;
  QMetaObject::invokeMethod(w, "openDocument", Q_RETURN_ARG(bool, opened), Q_ARG(QString, QFileInfo(path).absoluteFilePath()));
  return opened;
}

QString windowName(WindowId id) {
  switch (id) {
    case WindowId::ControlCentre: return QStringLiteral("control-centre");
    case WindowId::ScientificCalculator: return QStringLiteral("calculator");
    case WindowId::NormalCalculator: return QStringLiteral("normal-calculator");
    case WindowId::ExtendedDisplay: return QStringLiteral("large-display");
    case WindowId::FunctionTable: return QStringLiteral("function-table");
    case WindowId::Plot: return QStringLiteral("plot");
    case WindowId::UnitConverter: return QStringLiteral("converter");
    case WindowId::PeriodicTable: return QStringLiteral("periodic-table");
    case WindowId::Banking: return QStringLiteral("banking");
    case WindowId::Lottery: return QStringLiteral("lottery");
    case WindowId::Chronometer: return QStringLiteral("chronometer");
    case WindowId::Calendar: return QStringLiteral("calendar");
    case WindowId::Geometry: return QStringLiteral("geometry");
    case WindowId::StatisticsChart: return QStringLiteral("statistics-chart");
    case WindowId::CsvTool: return QStringLiteral("csv-tool");
    case WindowId::ColourViewer: return QStringLiteral("colour-viewer");
    case WindowId::ResistorCode: return QStringLiteral("resistor-code");
    case WindowId::Preferences: return QStringLiteral("preferences");
    case WindowId::About: return QStringLiteral("about");
    case WindowId::Help: return QStringLiteral("help");
  }
  return QStringLiteral("window");
}

void registerWindowFactory(WindowId id, WindowFactory factory) {
  registry().factories.insert(static_cast<int>(id), std::move(factory));
}

bool hasWindowFactory(WindowId id) { return registry().factories.contains(static_cast<int>(id)); }

QWidget* findWindow(WindowId id) { return registry().windows.value(static_cast<int>(id)).data(); }

namespace {
// Module windows show the chronometer's armed alarm as a small bell at the
// right of their menu bar. The control centre and the chronometer place
// their own; a window without a menu bar has none.
void addAlarmIcon(WindowId id, QWidget* w) {
  if (id == WindowId::ControlCentre || id == WindowId::Chronometer) return;
  auto* main = qobject_cast<QMainWindow*>(w);
  auto* bar = main ? qobject_cast<QMenuBar*>(main->menuWidget()) : nullptr;
  if (!bar || bar->cornerWidget(Qt::TopRightCorner)) return;
  bar->setCornerWidget(new AlarmIconWidget(bar), Qt::TopRightCorner);
}
}  // namespace

QWidget* OpenWindow(WindowId id) {
  QWidget* w = findWindow(id);
  if (!w) {
    const auto it = registry().factories.constFind(static_cast<int>(id));
    if (it == registry().factories.constEnd()) return nullptr;
    w = (*it)();
    if (!w) return nullptr;
    registry().windows.insert(static_cast<int>(id), w);
    addAlarmIcon(id, w);
    // Windows without a caption loader of their own follow the language.
    if (!w->property("ownCaptionLoader").toBool() && id != WindowId::ControlCentre && id != WindowId::Help &&
        id != WindowId::Preferences) {
      FollowProgramLanguage(w);
    }
  }
  if (w->isMinimized()) w->setWindowState(w->windowState() & ~Qt::WindowMinimized);
  w->show();
  KeepOnScreen(w);
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
