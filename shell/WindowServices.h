#pragma once
// Services that act on windows: opening the calculator of the current mode,
// placing two windows side by side, dragging a window by its body, colouring
// menu bars and keeping the large display in step with a calculator.
class QWidget;

// Opens the scientific or the normal calculator, as CalculatorMode says
// ("normalita" the normal one), restoring it when minimised; with
// ExtendedDisplay on, places the large display beside it.
void OpenCalculator();
// Mode 0: the pair centred side by side, second to the right; mode 1: stacked,
// second above. Then shows the second and raises the main window.
void ArrangeSideBySide(QWidget* mainWindow, QWidget* second, int mode);
// Starts moving the window with the mouse, as if dragged by its title.
void DragWindow(QWidget* window);
// Paints the window's menu bar in the colour (red in the low byte).
void ColorMenuBar(QWidget* window, long colour);
