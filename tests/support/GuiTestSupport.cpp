#include "tests/support/GuiTestSupport.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QToolButton>

#include "shell/ProgramState.h"

ScriptedPresenter& guiMessages() {
  static ScriptedPresenter presenter;
  return presenter;
}

void prepareGuiTest() {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  resetProgram(QLocale(QLocale::English, QLocale::UnitedStates));
  // Files a window writes (settings, bets, logs) go to a folder of the test
  // process's own, never to the working folder shared by parallel tests.
  static QTemporaryDir appFolder;
  program().AppFolder = rt::Variant(appFolder.path() + QLatin1Char('/'));
  guiMessages().clear();
  setMessagePresenter(&guiMessages());
}

QString pdfText(const QString& path) {
  QProcess p;
  p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
  if (!p.waitForFinished(30000) || p.exitCode() != 0) return {};
  return QString::fromUtf8(p.readAllStandardOutput());
}

void useSmallOffscreenScreen() {
  const QByteArray asked = qgetenv("QT_QPA_PLATFORM");
  if (!asked.isEmpty() && asked != "offscreen") return;  // a display of its own, or screens already given
  // The offscreen platform reads its screens from a small JSON file.
  const QString config = QStringLiteral(CALVIX_SOURCE_DIR "/tests/support/screen-1280x800.json");
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(config));
}

void setProgramLanguage(int language) {
  ProgramState& p = program();
  p.Language = static_cast<std::int16_t>(language + 1);
  p.LanguageOffset = language * 10000;
}

namespace {

QString nameOf(const QWidget* w) {
  QString name = w->objectName();
  if (name.isEmpty()) name = QString::fromLatin1(w->metaObject()->className());
  QString text;
  if (auto* b = qobject_cast<const QAbstractButton*>(w)) text = b->text();
  else if (auto* l = qobject_cast<const QLabel*>(w)) text = l->text();
  else if (auto* g = qobject_cast<const QGroupBox*>(w)) text = g->title();
  if (!text.isEmpty()) name += QStringLiteral(" \"%1\"").arg(text.left(40));
  for (const QWidget* p = w->parentWidget(); p && !p->isWindow(); p = p->parentWidget()) {
    if (!p->objectName().isEmpty() && !p->objectName().startsWith(QLatin1String("qt_"))) {
      return p->objectName() + QLatin1Char('/') + name;
    }
  }
  return name;
}

// Widgets Qt builds inside its own controls, and the contents of scrolled
// areas (which may be larger than what shows), are not the window's layout.
bool isInternal(const QWidget* w) {
  for (const QWidget* p = w; p && !p->isWindow(); p = p->parentWidget()) {
    if (p != w && qobject_cast<const QAbstractScrollArea*>(p)) return true;
    if (p->objectName().startsWith(QLatin1String("qt_")) && p != w->window()) {
      // A tab widget's stack holds the pages, which are the window's own.
      if (p->objectName() != QLatin1String("qt_tabwidget_stackedwidget")) return true;
    }
  }
  return false;
}

QString plainText(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  QTextDocument d;
  d.setHtml(text);
  return d.toPlainText();
}

int textWidth(const QFontMetrics& fm, const QString& text) {
  int widest = 0;
  for (const QString& line : text.split(QLatin1Char('\n'))) widest = std::max(widest, fm.horizontalAdvance(line));
  return widest;
}

// What the control's own text needs; 0 when it has none to show.
void textFits(const QWidget* w, QStringList& problems) {
  const QFontMetrics fm = w->fontMetrics();
  QString text;
  int room = w->width();
  int rows = w->height();
  if (auto* b = qobject_cast<const QPushButton*>(w)) {
    text = b->text();
    text.remove(QLatin1Char('&'));
    // The drawn button keeps its caption 4 pixels inside each edge.
    const int frame = w->inherits("ChameleonButtonWidget") ? 4
                                                            : w->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, w);
    room -= 2 * frame + (b->icon().isNull() ? 0 : b->iconSize().width() + 4);
    rows -= 2 * frame;
  } else if (auto* t = qobject_cast<const QToolButton*>(w)) {
    text = t->text();
    text.remove(QLatin1Char('&'));
    if (t->toolButtonStyle() == Qt::ToolButtonIconOnly && !t->icon().isNull()) text.clear();
    room = w->width() < w->sizeHint().width() - 2 ? 0 : room;  // the style knows the arrow and margins
  } else if (auto* b2 = qobject_cast<const QAbstractButton*>(w)) {
    text = b2->text();
    room = w->width() < w->sizeHint().width() ? 0 : room;
  } else if (auto* l = qobject_cast<const QLabel*>(w)) {
    if (!l->pixmap().isNull() || l->text().isEmpty()) return;
    if (l->wordWrap()) {
      if (l->height() < l->heightForWidth(l->width()) - 1) problems << QStringLiteral("text cut off below: ") + nameOf(w);
      return;
    }
    text = plainText(l->text());
    const QRect inside = l->contentsRect();
    room = inside.width() - 2 * std::max(0, l->margin());
    rows = inside.height();
  } else if (auto* g = qobject_cast<const QGroupBox*>(w)) {
    text = g->title();
    room -= 12;
  } else {
    return;
  }
  if (text.isEmpty()) return;
  const int lines = static_cast<int>(text.count(QLatin1Char('\n'))) + 1;
  if (textWidth(fm, text) > room || (qobject_cast<const QGroupBox*>(w) == nullptr && fm.height() * lines > rows + 2)) {
    problems << QStringLiteral("text does not fit: %1 (%2x%3)").arg(nameOf(w)).arg(w->width()).arg(w->height());
  }
}

void tabsFit(const QTabBar* bar, QStringList& problems) {
  const QFontMetrics fm = bar->fontMetrics();
  const int padding = bar->style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, bar);
  for (int i = 0; i < bar->count(); ++i) {
    if (!bar->isTabVisible(i)) continue;
    const QRect r = bar->tabRect(i);
    QString text = bar->tabText(i);
    text.remove(QLatin1Char('&'));
    const bool vertical = bar->shape() == QTabBar::RoundedWest || bar->shape() == QTabBar::RoundedEast ||
                          bar->shape() == QTabBar::TriangularWest || bar->shape() == QTabBar::TriangularEast;
    const int length = vertical ? r.height() : r.width();
    if (!bar->rect().contains(r) || fm.horizontalAdvance(text) + padding / 2 > length) {
      problems << QStringLiteral("tab does not show whole: %1 \"%2\"").arg(nameOf(bar), text);
    }
  }
}

}  // namespace

QStringList windowLayoutProblems(QWidget* window) {
  QStringList problems;
  if (!window || !window->isVisible()) return {QStringLiteral("the window is not shown")};
  if (QScreen* s = window->screen()) {
    const QRect area = s->availableGeometry();
    if (!area.contains(window->frameGeometry())) {
      const QRect f = window->frameGeometry();
      problems << QStringLiteral("%1: frame %2,%3 %4x%5 runs off the screen %6x%7")
                      .arg(nameOf(window))
                      .arg(f.x())
                      .arg(f.y())
                      .arg(f.width())
                      .arg(f.height())
                      .arg(area.width())
                      .arg(area.height());
    }
  }
  const QList<QWidget*> all = window->findChildren<QWidget*>();
  for (QWidget* w : all) {
    if (w->isWindow() || !w->isVisible() || isInternal(w)) continue;
    QWidget* parent = w->parentWidget();
    if (!parent->rect().contains(w->geometry())) {
      problems << QStringLiteral("runs out of its parent: %1 at %2,%3 %4x%5 in %6x%7")
                      .arg(nameOf(w))
                      .arg(w->x())
                      .arg(w->y())
                      .arg(w->width())
                      .arg(w->height())
                      .arg(parent->width())
                      .arg(parent->height());
    }
    textFits(w, problems);
    if (auto* bar = qobject_cast<QTabBar*>(w)) tabsFit(bar, problems);
    if (w->property("layoutOverlay").toBool()) continue;
    for (QObject* o : parent->children()) {
      auto* other = qobject_cast<QWidget*>(o);
      if (!other || other == w || other->isWindow() || !other->isVisible() || isInternal(other)) continue;
      if (other->property("layoutOverlay").toBool()) continue;
      if (w < other && w->geometry().intersects(other->geometry())) {
        problems << QStringLiteral("overlap: %1 and %2").arg(nameOf(w), nameOf(other));
      }
    }
  }
  // The tab bars of tab widgets are Qt's own children; their tabs are the window's.
  for (QTabWidget* tabs : window->findChildren<QTabWidget*>()) {
    if (tabs->isVisible()) tabsFit(tabs->tabBar(), problems);
  }
  problems.removeDuplicates();
  return problems;
}

QStringList windowLayoutProblemsOnEveryPage(QWidget* window) {
  QStringList problems = windowLayoutProblems(window);
  // A page shown on demand (a hidden tab) is looked at too, with its tab.
  for (QTabWidget* tabs : window->findChildren<QTabWidget*>()) {
    const int was = tabs->currentIndex();
    for (int i = 0; i < tabs->count(); ++i) {
      if (i == was) continue;
      const bool hidden = !tabs->isTabVisible(i);
      tabs->setTabVisible(i, true);
      tabs->setCurrentIndex(i);
      QApplication::processEvents();
      for (const QString& p : windowLayoutProblems(window)) {
        problems << QStringLiteral("[%1] ").arg(tabs->tabText(i)) + p;
      }
      if (hidden) tabs->setTabVisible(i, false);
    }
    tabs->setCurrentIndex(was);
  }
  problems.removeDuplicates();
  return problems;
}

QStringList checkWindowInLanguage(WindowId id, int language) {
  setProgramLanguage(language);
  QWidget* w = OpenWindow(id);
  if (!w) return {QStringLiteral("%1: no window").arg(windowName(id))};
  if (!QTest::qWaitForWindowExposed(w)) return {QStringLiteral("%1: not exposed").arg(windowName(id))};
  QApplication::processEvents();
  QStringList problems;
  for (const QString& p : windowLayoutProblemsOnEveryPage(w)) problems << windowName(id) + QStringLiteral(": ") + p;
  w->close();
  delete findWindow(id);
  return problems;
}
