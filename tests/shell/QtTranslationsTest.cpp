// Qt's own texts follow the program's language, and change with it.
#include <QCoreApplication>
#include <QFile>

#include "shell/ProgramState.h"
#include "shell/QtTranslations.h"
#include "tests/support/TestSupport.h"

namespace {

QCoreApplication& app() {
  static int argc = 1;
  static char name[] = "QtTranslationsTest";
  static char* argv[] = {name, nullptr};
  static QCoreApplication a(argc, argv);
  return a;
}

// A text of Qt's standard buttons, as the file and print dialogs show it.
QString cancelText() { return QCoreApplication::translate("QPlatformTheme", "Cancel"); }

}  // namespace

class QtTranslationsTest : public CalvixTest {};

TEST_F(QtTranslationsTest, QtTextsFollowTheProgramLanguage) {
  app();
  for (const char* code : {"es", "fr", "ca"}) {
    ASSERT_TRUE(QFile::exists(QtTranslations::folder() + QStringLiteral("/qtbase_%1.qm").arg(QLatin1String(code))))
        << code << " (Debian package qt6-translations-l10n)";
  }
  program().LanguageOffset = 20000;
  QtTranslations qt;
  EXPECT_EQ(qt.loadedLanguage(), QStringLiteral("fr"));
  EXPECT_EQ(cancelText(), QStringLiteral("Annuler"));
  program().LanguageOffset = 0;
  qt.update();
  EXPECT_EQ(cancelText(), QStringLiteral("Cancelar"));
  program().LanguageOffset = 10000;
  qt.update();
  EXPECT_EQ(cancelText(), QStringLiteral("Cancel"));
  program().LanguageOffset = 30000;
  qt.update();
  EXPECT_EQ(cancelText(), QStringLiteral("Cancel·la"));
}
