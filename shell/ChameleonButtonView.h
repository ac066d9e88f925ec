#pragma once
// Painting of the drawn push button: the 14 looks, each in an up, a hover
// and a down form, with the caption, the picture and the focus rectangle.
// Everything is drawn in device-independent pixels with lines as filled
// rectangles on whole pixels, so the button stays crisp at any device pixel
// ratio; only the round looks use antialiasing.
#include <QFont>
#include <QImage>
#include <QPalette>

#include "shell/ChameleonButton.h"

class QPainter;

// The colour a stored colour stands for (system colours through the palette).
QColor chameleonColour(std::uint32_t stored, const QPalette& palette);

// Paints the button's current form over (0, 0, width, height).
void paintChameleonButton(QPainter& painter, const ChameleonButton& button, const QPalette& palette,
                          const QFont& containerFont);
// The same in a given form, whatever the model last drew; picture stands in
// for the button's picture files when they are empty (a widget's icon).
void paintChameleonButton(QPainter& painter, const ChameleonButton& button, ChameleonButton::Form form,
                          const QPalette& palette, const QFont& containerFont, const QImage& picture = QImage());

// The button as drawn now, width x height at the given pixel ratio.
QImage renderChameleonButton(const ChameleonButton& button, const QPalette& palette, const QFont& containerFont,
                             qreal devicePixelRatio = 1);
// A sheet of every look (rows) in its up, hover and down forms (columns),
// each labelled, for looking at all of them at once.
QImage renderChameleonLookSheet(const QPalette& palette, const QFont& font, qreal devicePixelRatio = 1);
