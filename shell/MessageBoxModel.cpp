#include "shell/MessageBoxModel.h"

#include "shell/Strings.h"

namespace {

MessageKindScheme scheme(std::array<int, 6> gradient, std::array<std::uint32_t, 4> lines) {
  MessageKindScheme s;
  s.red = {gradient[0], gradient[1]};
  s.green = {gradient[2], gradient[3]};
  s.blue = {gradient[4], gradient[5]};
  s.lines = lines;
  return s;
}

}  // namespace

MessageKindScheme messageKindScheme(int kind) {
  // Line colours are written blue byte first, as the program's colours are.
  switch (kind) {
    case 1: {
      MessageKindScheme s = scheme({160, 96, 160, 96, 128, 64}, {0xC0F0F0, 0x3F0F0F, 0xB0D0D0, 0x608080});
      s.list = true;
      return s;
    }
    case 2: return scheme({128, 32, 160, 64, 96, 0}, {0x80F0C0, 0x601040, 0x90D0B0, 0x406060});
    case 3: return scheme({208, 64, 96, 0, 64, 0}, {0x40A0F0, 0x103020, 0x7090D0, 0x102040});
    case 4: return scheme({240, 96, 240, 96, 240, 128}, {0x804040, 0x403000, 0xF08080, 0x802040});
    case 5: {
      MessageKindScheme s = scheme({160, 64, 144, 0, 160, 64}, {0xC0C0C0, 0x604010, 0x908090, 0x402040});
      s.input = true;
      return s;
    }
    case 6: return scheme({208, 128, 160, 112, 160, 112}, {0x202080, 0x000040, 0xC0C0F0, 0x8080A0});
    case 7: return scheme({112, 48, 112, 0, 240, 32}, {0xFFFF00, 0xC0C080, 0xD05050, 0x802020});
    case 8: return scheme({240, 160, 240, 160, 128, 32}, {0x206000, 0x106040, 0x80FFFF, 0x208080});
    case 9: return scheme({240, 128, 160, 48, 96, 32}, {0xAADEE6, 0x000080, 0x2080F0, 0x104080});
    default: return {};
  }
}

int autoCloseSeconds(const QString& title, bool inputVisible, const rt::Variant& setting) {
  if (title == Res(441)) return 15;  // the alarm message
  if (inputVisible) return 0;
  double n = 0;
  try {
    n = setting.toDouble();
  } catch (...) {
    return 0;  // a setting that is not a number leaves the timer off
  }
  if (n == 0) return 0;
  const double seconds = n == 1 ? 2 : (n - 1) * 5;
  if (!(seconds >= 1 && seconds <= 59)) return 0;
  return static_cast<int>(seconds);
}

QChar inputKey(QChar typed, const QString& decimalSymbol) {
  if ((typed == QLatin1Char(',') || typed == QLatin1Char('.')) && !decimalSymbol.isEmpty()) return decimalSymbol.at(0);
  return typed;
}
