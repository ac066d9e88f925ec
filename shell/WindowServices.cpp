#include "shell/WindowServices.h"

#include <QApplication>
#include <QColor>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QWindow>
#include <algorithm>

#include "shell/ExtendedDisplayWindow.h"
#include "shell/ProgramState.h"
#include "shell/WindowRegistry.h"

void OpenCalculator() {
  const bool normal = program().CalculatorMode.toText() == QLatin1String("normalita");
  QWidget* calc = OpenWindow(normal ? WindowId::NormalCalculator : WindowId::ScientificCalculator);
  if (calc && program().ExtendedDisplay) {
    if (QWidget* display = OpenWindow(WindowId::ExtendedDisplay)) {
      ExtendedDisplayRefresh(calc, kExtendedDisplayMargin);  // sized to the calculator first
      // Side by side where the pair fits the screen; stacked otherwise, so
      // that neither window runs off a 1280-wide screen.
      QScreen* screen = calc->screen() ? calc->screen() : QGuiApplication::primaryScreen();
      const int room = screen ? screen->availableGeometry().width() : 1280;
      const bool fits = calc->frameGeometry().width() + display->frameGeometry().width() <= room;
      ArrangeSideBySide(calc, display, fits ? 0 : 1);
    }
  }
}

void KeepOnScreen(QWidget* window) {
  if (!window || !window->isWindow() || window->isMaximized() || window->isFullScreen()) return;
  QScreen* screen = window->screen() ? window->screen() : QGuiApplication::primaryScreen();
  if (!screen) return;
  const QRect area = screen->availableGeometry();
  QRect frame = window->frameGeometry();
  const QSize border = frame.size() - window->size();
  if (frame.width() > area.width() || frame.height() > area.height()) {
    window->resize(std::min(window->width(), area.width() - border.width()),
                   std::min(window->height(), area.height() - border.height()));
    frame = window->frameGeometry();
  }
  const int x = std::clamp(frame.left(), area.left(), std::max(area.left(), area.right() + 1 - frame.width()));
  const int y = std::clamp(frame.top(), area.top(), std::max(area.top(), area.bottom() + 1 - frame.height()));
  if (x != frame.left() || y != frame.top()) window->move(x, y);
}

void CentreOnScreen(QWidget* window, int part) {
  QScreen* screen = window->screen();
  if (!screen) return;
  const QRect area = screen->availableGeometry();
  const QSize size = window->frameGeometry().size();
  window->move(area.left() + std::max(0, (area.width() - size.width()) / 2),
               area.top() + std::max(0, (area.height() - size.height()) / part));
}

void ArrangeSideBySide(QWidget* mainWindow, QWidget* second, int mode) {
  if (!mainWindow || !second) return;
  if (mainWindow->isMinimized() || mainWindow->isMaximized()) mainWindow->showNormal();
  // Shown first, so that the frame the window system puts round it is known.
  second->show();
  QScreen* screen = mainWindow->screen() ? mainWindow->screen() : QGuiApplication::primaryScreen();
  const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1280, 800);
  const QSize a = mainWindow->frameGeometry().size();
  const QSize b = second->frameGeometry().size();
  if (mode == 0) {
    const int left = std::max(area.left(), area.left() + (area.width() - a.width() - b.width()) / 2);
    const int top = std::max(area.top(), area.top() + (area.height() - std::max(a.height(), b.height())) / 2);
    mainWindow->move(left, top);
    second->move(left + a.width(), top);
  } else {
    const int left = std::max(area.left(), area.left() + (area.width() - std::max(a.width(), b.width())) / 2);
    const int top = std::max(area.top(), area.top() + (area.height() - a.height() - b.height()) / 2);
    second->move(left, top);
    mainWindow->move(left, top + b.height());
  }
  KeepOnScreen(mainWindow);
  KeepOnScreen(second);
  // A pair too large for the screen overlaps: the window just asked for stays
  // on top, or it would open hidden behind the main one.
  QWidget* front = mainWindow->frameGeometry().intersects(second->frameGeometry()) ? second : mainWindow;
  front->raise();
  front->activateWindow();
}

namespace {

// Moves a window with the mouse until the button is released, for systems
// whose window manager does not take the move over.
class ManualDrag : public QObject {
 public:
  ManualDrag(QWidget* window, QPoint grab) : window_(window), offset_(grab - window->pos()) {
    qApp->installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (!window_) {
      deleteLater();
      return false;
    }
    if (event->type() == QEvent::MouseMove) {
      const auto* e = static_cast<QMouseEvent*>(event);
      window_->move(e->globalPosition().toPoint() - offset_);
      return true;
    }
    if (event->type() == QEvent::MouseButtonRelease) {
      qApp->removeEventFilter(this);
      deleteLater();
      return true;
    }
    return false;
  }

 private:
  QPointer<QWidget> window_;
  QPoint offset_;
};

}  // namespace

void DragWindow(QWidget* window) {
  if (!window) return;
  window = window->window();
  if (window->windowHandle() && window->windowHandle()->startSystemMove()) return;
  // Only while a button is held: the drag ends with its release.
  if (QGuiApplication::mouseButtons() == Qt::NoButton) return;
  new ManualDrag(window, QCursor::pos());
}

void ColorMenuBar(QWidget* window, long colour) {
  if (!window) return;
  auto* bar = window->findChild<QMenuBar*>();
  if (!bar) return;
  const QColor c(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                 static_cast<int>((colour >> 16) & 0xFF));
  // The bar and, as the classic call did for its sub-menus, every menu below it.
  const QColor text = c.lightness() < 128 ? QColor(Qt::white) : QColor(Qt::black);
  bar->setStyleSheet(QStringLiteral("QMenuBar { background-color: %1; color: %2; }"
                                    "QMenuBar::item { background: transparent; }")
                         .arg(c.name(), text.name()));
  for (QMenu* menu : window->findChildren<QMenu*>()) {
    menu->setStyleSheet(QStringLiteral("QMenu { background-color: %1; color: %2; }").arg(c.name(), text.name()));
  }
}

void ExtendedDisplayRefresh(QWidget* calculator, int widthMargin) {
  if (!calculator) return;
  auto* display = qobject_cast<ExtendedDisplayWindow*>(findWindow(WindowId::ExtendedDisplay));
  if (!display) return;
  const bool scientific = findWindow(WindowId::ScientificCalculator) == calculator;
  // Frame colours blue byte first: C00000 is a dark blue, C0C000 a teal.
  display->setFrameColour(scientific ? QColor(0x00, 0x00, 0xC0) : QColor(0x00, 0xC0, 0xC0));
  display->fitWidth(calculator->width() - widthMargin);
  // The calculator's displays: a line edit or a multi-line box, coloured by
  // palette or style sheet (both end up in the palette).
  auto source = [calculator](const char* name, QString& text, QPalette& colours) {
    auto* w = calculator->findChild<QWidget*>(QString::fromLatin1(name));
    if (!w) return false;
    const QVariant plain = w->property("plainText");
    text = plain.isValid() ? plain.toString() : w->property("text").toString();
    colours = w->palette();
    return true;
  };
  auto paint = [](QWidget* target, const QPalette& from) {
    QPalette pal = target->palette();
    pal.setColor(QPalette::Base, from.color(QPalette::Base));
    pal.setColor(QPalette::Text, from.color(QPalette::Text));
    target->setPalette(pal);
  };
  QString text;
  QPalette colours;
  if (source("numero", text, colours)) {
    display->Text1->setText(text);
    paint(display->Text1, colours);
  }
  if (source("result", text, colours)) {
    display->Text2->setPlainText(text);
    paint(display->Text2, colours);
  }
}
