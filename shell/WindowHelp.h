#pragma once
// The help topic of each window, and F1 for the windows that leave the key
// free. The topic is an anchor on its module's page (Services.h); a window
// has one, its panels and menus may have more on the same page. The
// calculators keep F1 for their log key: there the help cursor and the menu
// reach the help.
#include "shell/WindowRegistry.h"

class QApplication;

int windowHelpTopic(WindowId id);
// Whether F1 in the window shows its topic.
bool windowTakesHelpKey(WindowId id);
// F1 pressed in a module window that leaves the key free shows its topic.
void installHelpKey(QApplication& app);
