#pragma once
// Changing the language while the program runs: SetProgramLanguage fixes
// LanguageOffset and "IDIOMA", then tells every open window, through the
// languageChanged() notification, to run its caption loader again. Windows
// connect to languageNotifier() when they are built.
#include <QObject>

class LanguageNotifier : public QObject {
  Q_OBJECT

 Q_SIGNALS:
  void languageChanged();
};

LanguageNotifier& languageNotifier();

// language 1 Spanish, 2 English, 3 French, 4 Catalan; any other is ignored.
// Windows are told only when the language really changes.
void SetProgramLanguage(int language);
// Tells every window to reload its captions from the current LanguageOffset.
void notifyLanguageChanged();
