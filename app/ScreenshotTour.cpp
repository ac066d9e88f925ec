#include "app/ScreenshotTour.h"

#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QScreen>
#include <QTimer>
#include <QWidget>

#include "shell/ControlCentreWindow.h"
#include "shell/WindowRegistry.h"

namespace {

void settle(int ms) {
  QEventLoop loop;
  QTimer::singleShot(ms, &loop, &QEventLoop::quit);
  loop.exec();
}

void shoot(QWidget* w, const QString& path) {
  const QPixmap shot = w->screen() ? w->screen()->grabWindow(w->winId()) : w->grab();
  (shot.isNull() ? w->grab() : shot).save(path);
}

// The tour's language (es, en, fr, ca), as if chosen in the preferences.
void useLanguage(const QString& code) {
  const qsizetype index = QStringList{QStringLiteral("es"), QStringLiteral("en"), QStringLiteral("fr"),
                                      QStringLiteral("ca")}.indexOf(code);
  auto* centre = qobject_cast<ControlCentreWindow*>(findWindow(WindowId::ControlCentre));
  if (index < 0 || !centre) return;
  centre->model().setLanguage(static_cast<int>(index) + 1);
  centre->refresh();
}

void runTour(const QString& folder) {
  QDir().mkpath(folder);
  useLanguage(qEnvironmentVariable("CALVIX_SCREENSHOT_LANG"));
  // CALVIX_SCREENSHOT_WINDOWS="control-centre,calendar" limits the tour.
  const QStringList only = qEnvironmentVariable("CALVIX_SCREENSHOT_WINDOWS").split(u',', Qt::SkipEmptyParts);
  for (WindowId id : allWindowIds()) {
    if (!hasWindowFactory(id) || (!only.isEmpty() && !only.contains(windowName(id)))) continue;
    QWidget* w = OpenWindow(id);
    if (!w) continue;
    settle(400);
    shoot(w, QDir(folder).filePath(windowName(id) + QStringLiteral(".png")));
    // A window may offer more states to look at: one picture each.
    const QStringList states = w->property("screenshotStates").toStringList();
    for (const QString& state : states) {
      QMetaObject::invokeMethod(w, "showScreenshotState", Q_ARG(QString, state));
      settle(300);
      shoot(w, QDir(folder).filePath(windowName(id) + u'-' + state + QStringLiteral(".png")));
      if (w->property("screenshotScreenStates").toStringList().contains(state) && w->screen()) {
        w->screen()->grabWindow(0).save(
            QDir(folder).filePath(QStringLiteral("screen-") + windowName(id) + u'-' + state + QStringLiteral(".png")));
      }
    }
  }
  // The whole screen too, to see how the windows sit on 1280x800.
  if (QScreen* screen = QGuiApplication::primaryScreen()) {
    screen->grabWindow(0).save(QDir(folder).filePath(QStringLiteral("screen.png")));
  }
  QApplication::exit(0);
}

}  // namespace

bool scheduleScreenshotTour() {
  const QString folder = qEnvironmentVariable("CALVIX_SCREENSHOTS");
  if (folder.isEmpty()) return false;
  QTimer::singleShot(500, qApp, [folder] { runTour(folder); });
  return true;
}
