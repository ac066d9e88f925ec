#include "shell/LanguageService.h"

#include "shell/ProgramState.h"

LanguageNotifier& languageNotifier() {
  static LanguageNotifier notifier;
  return notifier;
}

void SetProgramLanguage(int language) {
  if (language < 1 || language > 4) return;
  ProgramState& p = program();
  const auto offset = static_cast<std::int32_t>((language - 1) * 10000);
  const bool changed = p.LanguageOffset != offset;
  p.LanguageOffset = offset;
  p.Language = static_cast<std::int16_t>(language);
  if (changed) notifyLanguageChanged();
}

void notifyLanguageChanged() { Q_EMIT languageNotifier().languageChanged(); }
