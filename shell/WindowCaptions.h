#pragma once
// Captions that follow the program's language. A window built from string
// numbers shows texts of the string table; when the language changes, each
// text a widget shows (window title, labels, buttons, group and tab titles,
// list and combo items, menu items, tooltips, placeholders) is looked up in
// the language it was shown in and replaced by the same string in the new
// one. A text made of pieces joined by "  -  " is translated piece by piece;
// a text that is not in the table (numbers, names, values) stays as it is.
// A title the window takes later from texts its model computed when it was
// built (in the language of then) is translated the same way as it is set.
//
// OpenWindow makes every module window follow the language this way unless
// the window reloads its captions itself (property "ownCaptionLoader").
#include <QString>

class QWidget;

// Connects the window to the language notifier; the window remembers the
// language its texts are in.
void FollowProgramLanguage(QWidget* window);
// Rewrites every text of the window and its children from the language
// block fromOffset to toOffset.
void TranslateWindowTexts(QWidget* window, int fromOffset, int toOffset);
// One text from a language block to another; unchanged when not in the table.
QString TranslateText(const QString& text, int fromOffset, int toOffset);
