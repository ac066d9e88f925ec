#pragma once
// The program's small pictures, drawn at run time instead of shipped as image
// files: the control centre's counter digits and About emblem, and the
// calculator's state pictures. Each is drawn once per size and kept.
#include <QPixmap>

namespace pictures {

// A lit seven-segment digit (0-9) on a dark face, height pixels high.
QPixmap digit(int value, int height);
// The emblem that opens the About window.
QPixmap about(int size);
// The calculator's state: a calm face, or the failure sign.
QPixmap calculatorState(bool failure, int size);

}  // namespace pictures
