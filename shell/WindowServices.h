#pragma once
// Services that act on windows: opening the calculator of the current mode,
// placing two windows side by side, dragging a window by its body, colouring
// menu bars and keeping the large display in step with a calculator.
class QWidget;

// Opens the scientific or the normal calculator, as CalculatorMode says
// ("normalita" the normal one), restoring it when minimised; with
// ExtendedDisplay on, places the large display beside it and
// copies the calculator's display into it.
void OpenCalculator();
// Mode 0: the pair centred side by side, second to the right; mode 1: stacked,
// second above. Then shows the second and raises the main window. Where the
// pair does not fit the screen, each window is still kept wholly on it and
// the second, overlapping the main one, is raised instead.
void ArrangeSideBySide(QWidget* mainWindow, QWidget* second, int mode);
// Moves a top-level window, frame included, inside the available geometry of
// its screen (shrinking it first when it is larger than that), so no part of it
// opens off the screen. OpenWindow and ArrangeSideBySide call it.
void KeepOnScreen(QWidget* window);
// Moves a top-level window, frame included, to the middle of its screen's
// available width, with its top at 1/part of the room left below it (2:
// centred, 4: in the upper middle); never above or left of the area.
void CentreOnScreen(QWidget* window, int part = 2);
// Starts moving the window with the mouse, as if dragged by its title. Call it
// from a mouse press; the window follows until the button is released.
void DragWindow(QWidget* window);
// Paints the window's menu bar and its menus in the colour (red in the low byte).
void ColorMenuBar(QWidget* window, long colour);
// Copies the calculator's two displays into the large display window: widths
// fitted to the calculator's width less the margin, colours and texts taken
// from the calculator's children named "numero" and "result" (a "text"
// property), and a frame in C00000 for the scientific calculator, C0C000 for
// the normal one. Does nothing while the large display is not open.
void ExtendedDisplayRefresh(QWidget* calculator, int widthMargin);
// The margin OpenCalculator passes.
inline constexpr int kExtendedDisplayMargin = 16;
