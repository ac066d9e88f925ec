// The colour viewer's conversions, beside Qt's own in the same run, so the
// ratio is what to read:
//
//   Colour_Notations     a colour to its six notations: HLS on 0-240, the
//                        decimal value, "&h" text, HTML text, and back from
//                        the two hexadecimal texts
//   Colour_QColorNotations  the same work through QColor: its HSL, name()
//                        for the HTML text and QColor::fromString back
#include <benchmark/benchmark.h>

#include <QColor>

#include "calc/ColourModel.h"

namespace {

// A stride through the cube that visits colours of every kind.
constexpr std::uint32_t kStride = 0x9E3779;
constexpr int kColours = 4096;

void Colour_Notations(benchmark::State& state) {
  for (auto _ : state) {
    std::uint32_t v = 0;
    long sum = 0;
    for (int i = 0; i < kColours; ++i) {
      v = (v + kStride) & 0xFFFFFF;
      const Rgb c = colourFromValue(v);
      const Hls h = rgbToHls(c);
      const QString hex = hexText(c);
      const QString html = htmlText(c);
      sum += h.hue + h.luminosity + h.saturation + colourValue(colourFromHexText(hex)) +
             colourValue(colourFromHtmlText(html));
    }
    benchmark::DoNotOptimize(sum);
  }
  state.counters["ns/colour"] = benchmark::Counter(static_cast<double>(state.iterations() * kColours),
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(Colour_Notations);

void Colour_QColorNotations(benchmark::State& state) {
  for (auto _ : state) {
    std::uint32_t v = 0;
    long sum = 0;
    for (int i = 0; i < kColours; ++i) {
      v = (v + kStride) & 0xFFFFFF;
      const QColor c(static_cast<int>(v & 0xFF), static_cast<int>(v >> 8 & 0xFF), static_cast<int>(v >> 16 & 0xFF));
      int hue = 0, saturation = 0, lightness = 0;
      c.getHsl(&hue, &saturation, &lightness);
      const QString html = c.name();
      const QString hex = QStringLiteral("#%1").arg(c.rgb() & 0xFFFFFF, 6, 16, QLatin1Char('0'));
      sum += hue + saturation + lightness + static_cast<long>(QColor::fromString(html).rgb() & 0xFFFFFF) +
             static_cast<long>(QColor::fromString(hex).rgb() & 0xFFFFFF);
    }
    benchmark::DoNotOptimize(sum);
  }
  state.counters["ns/colour"] = benchmark::Counter(static_cast<double>(state.iterations() * kColours),
                                                    benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}
BENCHMARK(Colour_QColorNotations);

}  // namespace
