#pragma once
// The screenshot tour of tools/screenshots: when CALVIX_SCREENSHOTS names a
// folder, the program opens every window it has, one after the other, saves
// each as <folder>/<window>.png and quits. Used to look at the program on a
// display-less machine (under Xvfb); never reached in normal use.
#include <QString>

// Starts the tour once the event loop runs, if the variable is set. True when
// a tour was scheduled.
bool scheduleScreenshotTour();
