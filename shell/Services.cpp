// Minimal stand-ins for the shared services; each is replaced by its full
// form as the services are built.
#include "shell/Services.h"

#include "shell/ProgramState.h"

namespace {
HelpPresenter* g_help = nullptr;
}  // namespace

void setHelpPresenter(HelpPresenter* presenter) { g_help = presenter; }

void ContextHelp(int topic) {
  if (g_help) g_help->showTopic(topic);
  program().helpCursor = false;
}

bool helpInstead(int topic) {
  if (!program().helpCursor) return false;
  ContextHelp(topic);
  return true;
}

int FilterKey(int key, const QString&) { return key; }
QString NumericEnd(const QString& text, int) { return text; }
QString RomanNumeral(double) { return {}; }
QString DecimalToBinary(double) { return QStringLiteral("0000"); }
double BinaryToDecimal(const QString&) { return 0; }
double Factorial(std::int16_t) { return 1; }
double FractionalPart(const rt::Variant&) { return 0; }
rt::Variant GreatestCommonDivisor(const rt::Variant& x) { return x; }
QString PrimeText(double) { return {}; }
double ArrayExtreme(const QList<rt::Variant>&, int, int) { return 0; }
QString UptimeText() { return {}; }
QString WindowsName() { return {}; }
QString SystemUserName(int) { return {}; }
rt::Variant FileDate(const QString&, int) { return {}; }
QString ReadTextFile(const QString&) { return {}; }
void PlayMessageSound() {}
void Delay(float) {}
void SystemAction(int, int) {}
