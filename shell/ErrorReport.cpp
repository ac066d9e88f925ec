#include "shell/ErrorReport.h"

#include <QStringList>
#include <vector>

#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"

namespace {

// The string ids that make up the message of a code, one per line. A code
// outside the table has no lines: the message is the word "Error" alone.
std::vector<int> errorLines(int code) {
  auto range = [](std::vector<int> lines, int from, int to) {
    for (int id = from; id <= to; ++id) lines.push_back(id);
    return lines;
  };
  switch (code) {
    case 47: return {2047, 2080};
    case 50: return range({2050}, 2081, 2091);
    // The X-side twin of 50: its own explanation, then the same closing lines.
    case 51: return range(range({2050}, 2092, 2098), 2089, 2091);
    case 202: return {2202, 2204};
    case 204: return {2204, 2100};
    case 300: return {2300, 2350};
    case 301: return {2301, 2351};
    case 700: return {2700};
    case 701: return {2701, 2702};
    case 702: return {2701};
    case 917: return {2917};
    case 918: return {2918, 2919};
    case 925: return {2978, 2979};
    case 1000: return {3001, 3002, 3003};
    default: break;
  }
  const bool single = (code >= 1 && code <= 55) || (code >= 100 && code <= 109) || code == 120 || (code >= 200 && code <= 210) ||
                      code == 500 || code == 501 || code == 503 || (code >= 600 && code <= 603) ||
                      (code >= 900 && code <= 907) || code == 910 || code == 912 || code == 916;
  if (single) return {2000 + code};
  return {};
}

}  // namespace

QString ErrorText(int code) {
  QStringList lines;
  for (int id : errorLines(code)) lines << Res(id);
  return Res(2800) + QStringLiteral(":  ") + lines.join(QLatin1Char('\n'));
}

void ReportError(int code, int sound, int messageStyle, int buttonSet) {
  int kind = 0;
  switch (messageStyle) {
    case 3: kind = 3; break;
    case 8: kind = 4; break;
    case 2: kind = 2; break;
    case 4:
    case 5: kind = 1; break;
    default: return;
  }
  ProgramState& p = program();
  const QString title = QStringLiteral("Calvix  -  ") + p.MainMenuTitle + QStringLiteral("  -  ") + p.SectionTitle;
  p.MessageSound = static_cast<std::int16_t>(sound);
  MBoxShow(messageStyle, ErrorText(code), kind, buttonSet, 0, title);
}
