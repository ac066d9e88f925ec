#pragma once
// The system's number and date conventions, as the runtime conversions read
// them: the locale, its decimal point and its group mark. They are fixed at
// start from the system locale (tests and calvix-cli pin them), and kept
// together so the cached separators always match the locale.
#include <QChar>
#include <QLocale>

namespace rt {

struct SystemConventions {
  QLocale locale = QLocale::c();
  QChar decimal = QLatin1Char('.');
  QChar group = QLatin1Char(',');
};

const SystemConventions& systemConventions();
void setSystemConventions(const QLocale& locale);

}  // namespace rt
