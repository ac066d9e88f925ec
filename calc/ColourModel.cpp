#include "calc/ColourModel.h"

#include <QRegularExpression>
#include <algorithm>

#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

namespace {

constexpr int kUndefinedHue = kHlsMax * 2 / 3;  // the hue of a grey: 160
constexpr std::uint32_t kMaxColour = 0xFFFFFF;

int clampTo(int v, int top) { return std::clamp(v, 0, top); }

// One channel of the HLS to RGB conversion, on the 0-240 scale.
int hueToRgb(int n1, int n2, int hue) {
  if (hue < 0) hue += kHlsMax;
  if (hue > kHlsMax) hue -= kHlsMax;
  if (hue < kHlsMax / 6) return n1 + ((n2 - n1) * hue + kHlsMax / 12) / (kHlsMax / 6);
  if (hue < kHlsMax / 2) return n2;
  if (hue < kHlsMax * 2 / 3) return n1 + ((n2 - n1) * (kHlsMax * 2 / 3 - hue) + kHlsMax / 12) / (kHlsMax / 6);
  return n1;
}

// Two upper-case hexadecimal digits per byte, written in place.
void putByte(QChar* out, int byte) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  out[0] = QLatin1Char(kDigits[byte >> 4 & 0xF]);
  out[1] = QLatin1Char(kDigits[byte & 0xF]);
}

QString byteText(QLatin1StringView prefix, int first, int second, int third) {
  QString s(prefix.size() + 6, Qt::Uninitialized);
  QChar* out = s.data();
  for (qsizetype i = 0; i < prefix.size(); ++i) *out++ = QLatin1Char(prefix.at(i));
  putByte(out, first);
  putByte(out + 2, second);
  putByte(out + 4, third);
  return s;
}

// The number a decimal field holds: its digits, 0 when it has none; a value
// over the top is held at the top.
int fieldNumber(const QString& text, int top) {
  const double v = rt::Val(text);
  return v >= top ? top : v <= 0 ? 0 : static_cast<int>(v);
}

// The hexadecimal digits of a field (prefix left out) as a colour value; 0
// when the text holds anything else, the top colour when it is larger.
std::uint32_t hexNumber(QStringView text) {
  if (text.startsWith(QLatin1String("&h"), Qt::CaseInsensitive)) text = text.mid(2);
  if (text.startsWith(QLatin1Char('#'))) text = text.mid(1);
  std::uint64_t v = 0;
  for (QChar c : text) {
    const int d = c.isDigit() ? c.digitValue() : (c.toUpper() >= QLatin1Char('A') && c.toUpper() <= QLatin1Char('F'))
                                                     ? c.toUpper().unicode() - 'A' + 10
                                                     : -1;
    if (d < 0) return 0;
    v = std::min<std::uint64_t>(v * 16 + static_cast<std::uint64_t>(d), kMaxColour);
  }
  return static_cast<std::uint32_t>(v);
}

}  // namespace

Hls rgbToHls(Rgb c) {
  const int r = clampTo(c.red, kRgbMax), g = clampTo(c.green, kRgbMax), b = clampTo(c.blue, kRgbMax);
  const int cMax = std::max({r, g, b});
  const int cMin = std::min({r, g, b});
  Hls out;
  out.luminosity = ((cMax + cMin) * kHlsMax + kRgbMax) / (2 * kRgbMax);
  if (cMax == cMin) {
    out.hue = kUndefinedHue;
    return out;
  }
  const int sum = cMax + cMin;
  const int span = cMax - cMin;
  if (out.luminosity <= kHlsMax / 2) {
    out.saturation = (span * kHlsMax + sum / 2) / sum;
  } else {
    const int rest = 2 * kRgbMax - sum;
    out.saturation = (span * kHlsMax + rest / 2) / rest;
  }
  const auto delta = [&](int channel) { return ((cMax - channel) * (kHlsMax / 6) + span / 2) / span; };
  const int rd = delta(r), gd = delta(g), bd = delta(b);
  int hue;
  if (r == cMax) {
    hue = bd - gd;
  } else if (g == cMax) {
    hue = kHlsMax / 3 + rd - bd;
  } else {
    hue = kHlsMax * 2 / 3 + gd - rd;
  }
  if (hue < 0) hue += kHlsMax;
  if (hue > kHlsMax) hue -= kHlsMax;
  out.hue = hue;
  return out;
}

Rgb hlsToRgb(Hls c) {
  const int hue = clampTo(c.hue, kHlsMax), lum = clampTo(c.luminosity, kHlsMax), sat = clampTo(c.saturation, kHlsMax);
  if (sat == 0) {
    const int grey = lum * kRgbMax / kHlsMax;
    return {grey, grey, grey};
  }
  const int magic2 = lum <= kHlsMax / 2 ? (lum * (kHlsMax + sat) + kHlsMax / 2) / kHlsMax
                                        : lum + sat - (lum * sat + kHlsMax / 2) / kHlsMax;
  const int magic1 = 2 * lum - magic2;
  const auto channel = [&](int h) {
    return clampTo((hueToRgb(magic1, magic2, h) * kRgbMax + kHlsMax / 2) / kHlsMax, kRgbMax);
  };
  return {channel(hue + kHlsMax / 3), channel(hue), channel(hue - kHlsMax / 3)};
}

QString hexText(Rgb c) { return byteText(QLatin1StringView("&h"), c.blue, c.green, c.red); }

QString htmlText(Rgb c) { return byteText(QLatin1StringView("#"), c.red, c.green, c.blue); }

// ---- ColourModel -------------------------------------------------------------------

ColourModel::ColourModel() {
  scrl = {131, 131, 131};
  refresh(Field::TxtDEC, -2);  // -2: no field is being edited
}

QString& ColourModel::field(Field f, int index) {
  switch (f) {
    case Field::Txt1: return txt1.at(static_cast<size_t>(index));
    case Field::Txt2: return txt2.at(static_cast<size_t>(index));
    case Field::TxtDEC: return txtDEC;
    case Field::TxtHEX: return txtHEX;
    case Field::TxtHTML: break;
  }
  return txtHTML;
}

void ColourModel::refresh(Field except, int exceptIndex) {
  const bool all = exceptIndex == -2;
  const auto keep = [&](Field f) { return !all && f == except; };
  const Rgb c = colour();
  if (!keep(Field::Txt1)) {
    for (size_t i = 0; i < 3; ++i) txt1[i] = QString::number(scrl[i]);
  }
  if (!keep(Field::Txt2)) {
    const Hls h = rgbToHls(c);
    txt2 = {QString::number(h.hue), QString::number(h.luminosity), QString::number(h.saturation)};
  }
  if (!keep(Field::TxtDEC)) txtDEC = QString::number(colourValue(c));
  if (!keep(Field::TxtHEX)) txtHEX = hexText(c);
  if (!keep(Field::TxtHTML)) txtHTML = htmlText(c);
  txtRGB = QStringLiteral("RGB(%1,%2,%3)").arg(c.red).arg(c.green).arg(c.blue);
}

void ColourModel::scrl_Change(int index, int value) {
  scrl.at(static_cast<size_t>(index)) = clampTo(value, kRgbMax);
  refresh(Field::TxtDEC, -2);
}

void ColourModel::txt1_Change(int index) {
  scrl.at(static_cast<size_t>(index)) = fieldNumber(txt1.at(static_cast<size_t>(index)), kRgbMax);
  refresh(Field::Txt1, index);
}

void ColourModel::txt2_Change(int index) {
  // The three fields together make the colour.
  const Hls h{fieldNumber(txt2[0], kHlsMax), fieldNumber(txt2[1], kHlsMax), fieldNumber(txt2[2], kHlsMax)};
  const Rgb c = hlsToRgb(h);
  scrl = {c.red, c.green, c.blue};
  refresh(Field::Txt2, index);
}

void ColourModel::txtDEC_Change() {
  const Rgb c = colourFromValue(static_cast<std::uint32_t>(fieldNumber(txtDEC, static_cast<int>(kMaxColour))));
  scrl = {c.red, c.green, c.blue};
  refresh(Field::TxtDEC);
}

Rgb colourFromHexText(const QString& text) { return colourFromValue(hexNumber(text)); }

Rgb colourFromHtmlText(const QString& text) {
  const std::uint32_t v = hexNumber(text);  // RR GG BB: red in the high byte
  return {static_cast<int>(v >> 16 & 0xFF), static_cast<int>(v >> 8 & 0xFF), static_cast<int>(v & 0xFF)};
}

void ColourModel::txtHEX_Change() {
  const Rgb c = colourFromHexText(txtHEX);
  scrl = {c.red, c.green, c.blue};
  refresh(Field::TxtHEX);
}

void ColourModel::txtHTML_Change() {
  const Rgb c = colourFromHtmlText(txtHTML);
  scrl = {c.red, c.green, c.blue};
  refresh(Field::TxtHTML);
}

void ColourModel::setColour(Rgb c) {
  scrl = {clampTo(c.red, kRgbMax), clampTo(c.green, kRgbMax), clampTo(c.blue, kRgbMax)};
  refresh(Field::TxtDEC, -2);
}

void ColourModel::clearField(Field f, int index) { field(f, index).clear(); }

bool ColourModel::typeKey(Field f, int index, QChar key) {
  QString& text = field(f, index);
  const bool hex = f == Field::TxtHEX || f == Field::TxtHTML;
  int k = key.unicode();
  if (hex) {
    static const QString kHexKeys = QStringLiteral("0123456789AaBbCcDdEeFf");
    if (k != kKeyBackspace && !kHexKeys.contains(key)) return false;
  } else {
    k = FilterKey(k, QStringLiteral("N"));
    if (k == 0) return false;
  }
  if (k == kKeyBackspace) {
    text.chop(1);
  } else {
    // The longest text each field holds: the prefixes of txtHEX and txtHTML
    // stay out of the count.
    const int digits = text.count(QRegularExpression(QStringLiteral("[0-9A-Fa-f]")));
    const int longest = f == Field::Txt1 || f == Field::Txt2 ? 3 : f == Field::TxtDEC ? 8 : 6;
    if ((hex ? digits : text.size()) >= longest) return false;
    text += QChar(k);
  }
  switch (f) {
    case Field::Txt1: txt1_Change(index); break;
    case Field::Txt2: txt2_Change(index); break;
    case Field::TxtDEC: txtDEC_Change(); break;
    case Field::TxtHEX: txtHEX_Change(); break;
    case Field::TxtHTML: txtHTML_Change(); break;
  }
  return true;
}

void ColourModel::botoncopia_Click() {
  const Rgb c = colour();
  WriteRegister(0, c.red, Res(4403));
  WriteRegister(1, c.green, Res(4404));
  WriteRegister(2, c.blue, Res(4405));
  WriteRegister(3, colourValue(c), Res(4340));
}
