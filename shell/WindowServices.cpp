#include "shell/WindowServices.h"

#include <QColor>
#include <QGuiApplication>
#include <QMenuBar>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include "shell/ProgramState.h"
#include "shell/WindowRegistry.h"

void OpenCalculator() {
  const bool normal = program().CalculatorMode.toText() == QLatin1String("normalita");
  QWidget* calc = OpenWindow(normal ? WindowId::NormalCalculator : WindowId::ScientificCalculator);
  if (calc && program().ExtendedDisplay) {
    if (QWidget* display = OpenWindow(WindowId::ExtendedDisplay)) {
      display->setWindowTitle(QStringLiteral("1"));
      ArrangeSideBySide(calc, display, 0);
    }
  }
}

void ArrangeSideBySide(QWidget* mainWindow, QWidget* second, int mode) {
  if (!mainWindow || !second) return;
  if (mainWindow->isMinimized() || mainWindow->isMaximized()) mainWindow->showNormal();
  QScreen* screen = mainWindow->screen() ? mainWindow->screen() : QGuiApplication::primaryScreen();
  const QRect area = screen ? screen->availableGeometry() : QRect(0, 0, 1280, 800);
  const QSize a = mainWindow->frameGeometry().size();
  const QSize b = second->frameGeometry().size();
  if (mode == 0) {
    const int left = area.left() + (area.width() - a.width() - b.width()) / 2;
    const int top = area.top() + (area.height() - a.height()) / 2;
    mainWindow->move(std::max(area.left(), left), std::max(area.top(), top));
    second->move(std::max(area.left(), left) + a.width(), std::max(area.top(), top));
  } else {
    const int left = area.left() + (area.width() - a.width()) / 2;
    const int top = area.top() + (area.height() - a.height() - b.height()) / 2;
    second->move(std::max(area.left(), left), std::max(area.top(), top));
    mainWindow->move(std::max(area.left(), left), std::max(area.top(), top) + b.height());
  }
  second->show();
  mainWindow->raise();
  mainWindow->activateWindow();
}

void DragWindow(QWidget* window) {
  if (window && window->windowHandle()) window->windowHandle()->startSystemMove();
}

void ColorMenuBar(QWidget* window, long colour) {
  if (!window) return;
  auto* bar = window->findChild<QMenuBar*>();
  if (!bar) return;
  const QColor c(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
                 static_cast<int>((colour >> 16) & 0xFF));
  bar->setStyleSheet(QStringLiteral("QMenuBar { background-color: %1; }").arg(c.name()));
}
