#pragma once
// The colour viewer's model: one colour shown in six notations kept in step.
//
//  - scrl(0..2): red, green, blue sliders, 0 to 255 (131 each on opening).
//  - txt1(0..2): the same three as decimal text.
//  - txt2(0..2): hue, luminosity, saturation on the classic 0-240 scale.
//  - txtDEC: the colour as one number, red in the low byte (platform order).
//  - txtHEX: that number in hexadecimal after "&h" (so "&h" + BB GG RR).
//  - txtHTML: "#" + RR GG BB, the web order.
//  - txtRGB: "RGB(r,g,b)".
// A change of any field recomputes every other field from the colour; the
// field being typed into keeps its text. The view forwards typed keys to
// typeKey(), which applies each field's key filter and then the change.
#include <QChar>
#include <QString>
#include <array>
#include <cstdint>

// Classic integer HLS on the 0-240 scale: a grey has hue 160 (undefined) and
// saturation 0.
struct Hls {
  int hue = 0;
  int luminosity = 0;
  int saturation = 0;
};
struct Rgb {
  int red = 0;
  int green = 0;
  int blue = 0;
};
inline constexpr int kHlsMax = 240;
inline constexpr int kRgbMax = 255;
Hls rgbToHls(Rgb c);
Rgb hlsToRgb(Hls c);  // each value is clamped to 0-240 first

// The colour as the platform stores it: red in the low byte.
inline std::uint32_t colourValue(Rgb c) {
  return static_cast<std::uint32_t>(c.red) | static_cast<std::uint32_t>(c.green) << 8 |
         static_cast<std::uint32_t>(c.blue) << 16;
}
inline Rgb colourFromValue(std::uint32_t v) {
  return {static_cast<int>(v & 0xFF), static_cast<int>(v >> 8 & 0xFF), static_cast<int>(v >> 16 & 0xFF)};
}
// "&h" + the platform order, every byte two digits: red 255 is "&h0000FF".
QString hexText(Rgb c);
// "#" + red, green, blue: red 255 is "#FF0000".
QString htmlText(Rgb c);
// The colour of a txtHEX or txtHTML text, with or without its prefix; fewer
// than six digits count from the right, as a number does. Black for a text
// that holds no hexadecimal number.
Rgb colourFromHexText(const QString& text);
Rgb colourFromHtmlText(const QString& text);

class ColourModel {
 public:
  enum class Field { Txt1, Txt2, TxtDEC, TxtHEX, TxtHTML };

  ColourModel();

  std::array<int, 3> scrl{};
  std::array<QString, 3> txt1, txt2;
  QString txtDEC, txtHEX, txtHTML, txtRGB;
  bool Check1 = false;  // the sample shows the colour as text instead of background

  Rgb colour() const { return {scrl[0], scrl[1], scrl[2]}; }

  // A slider moved.
  void scrl_Change(int index, int value);
  // A field's text changed (the view calls these after an edit).
  void txt1_Change(int index);
  void txt2_Change(int index);
  void txtDEC_Change();
  void txtHEX_Change();
  void txtHTML_Change();
  // A key typed into a field (index for txt1/txt2): filtered, then appended
  // (a backspace removes the last character) and the change applied. False
  // when the filter dropped the key.
  bool typeKey(Field field, int index, QChar key);
  // Empties a field before typing into it; the colour stays.
  void clearField(Field field, int index = 0);
  // Sets the whole colour (the colour dialog's answer).
  void setColour(Rgb c);
  // botoncopia: red, green, blue to R1-R3, the decimal colour to R4, with
  // their labels.
  void botoncopia_Click();

 private:
  // Writes every notation from the sliders, except the one being edited.
  void refresh(Field except, int exceptIndex = -1);
  QString& field(Field f, int index);
};
