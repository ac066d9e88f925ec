#include "shell/QtTranslations.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLibraryInfo>

#include "shell/ProgramState.h"

QtTranslations::QtTranslations() {
  update();
  if (QCoreApplication* app = QCoreApplication::instance()) app->installEventFilter(this);
}

QtTranslations::~QtTranslations() {
  if (installed_) QCoreApplication::removeTranslator(&translator_);
}

QString QtTranslations::languageCode(int languageOffset) {
  switch (languageOffset) {
    case 10000: return QStringLiteral("en");
    case 20000: return QStringLiteral("fr");
    case 30000: return QStringLiteral("ca");
    default: return QStringLiteral("es");
  }
}

QString QtTranslations::folder() { return QLibraryInfo::path(QLibraryInfo::TranslationsPath); }

void QtTranslations::update() {
  const QString language = languageCode(program().LanguageOffset);
  if (language == loaded_) return;
  loaded_ = language;
  if (installed_) {
    QCoreApplication::removeTranslator(&translator_);
    installed_ = false;
  }
  // Qt's texts are English already; elsewhere a missing file leaves them so.
  if (language != QLatin1String("en") && translator_.load(QStringLiteral("qtbase_") + language, folder())) {
    installed_ = QCoreApplication::installTranslator(&translator_);
  }
}

bool QtTranslations::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show && watched->isWidgetType()) update();
  return QObject::eventFilter(watched, event);
}
