#include "shell/runtime/SystemLocale.h"

namespace rt {

namespace {
SystemConventions& storage() {
  static SystemConventions conventions;
  return conventions;
}
}  // namespace

const SystemConventions& systemConventions() { return storage(); }

void setSystemConventions(const QLocale& locale) {
  SystemConventions& s = storage();
  s.locale = locale;
  const QString dp = locale.decimalPoint();
  const QString gs = locale.groupSeparator();
  s.decimal = dp.isEmpty() ? QLatin1Char('.') : dp.at(0);
  // Some locales group with a no-break space; the runtime accepts a blank too.
  s.group = gs.isEmpty() ? QChar() : gs.at(0);
}

}  // namespace rt
