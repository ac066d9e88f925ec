#pragma once
// Qt's own dialogs (file, print, colour, the standard buttons) speak the
// program's language: the Qt translation of the language in LanguageOffset
// is loaded from the system's Qt translations and installed. The desktop
// program makes one QtTranslations at start; it follows a change of language
// by itself, looking again whenever a window is about to show, so a dialog
// always opens in the language of the moment.
#include <QObject>
#include <QString>
#include <QTranslator>

class QtTranslations : public QObject {
 public:
  QtTranslations();
  ~QtTranslations() override;
  // Installs the translation of the current language, if it changed.
  void update();
  // The language code of a LanguageOffset ("es", "en", "fr", "ca").
  static QString languageCode(int languageOffset);
  // The folder holding the system's Qt translations.
  static QString folder();
  QString loadedLanguage() const { return loaded_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QTranslator translator_;
  QString loaded_;
  bool installed_ = false;
};
