// One paint of the drawn button (each of the 14 looks, hover form, caption
// "Aceptar") onto a 120x40 image, beside the plainest button one could draw
// on the same image in the same run: a filled rectangle, a one-pixel frame
// and the centred caption. The ratio per look is what to read; a window of
// 40 buttons repaints all of them on a language change.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include "shell/ChameleonButtonView.h"

namespace {

void ensureGuiApplication() {
  static int argc = 1;
  static char name[] = "calvix_bench";
  static char* argv[] = {name, nullptr};
  if (QCoreApplication::instance()) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QGuiApplication(argc, argv);  // kept to the end of the process
}

void BM_ChameleonPaint(benchmark::State& state) {
  ensureGuiApplication();
  ChameleonButton b;
  b.btype = static_cast<std::int16_t>(state.range(0));
  b.caption = QStringLiteral("Aceptar");
  const QPalette pal;
  const QFont font;
  QImage img(120, 40, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter p(&img);
    paintChameleonButton(p, b, ChameleonButton::Form::Hover, pal, font);
    p.end();
    benchmark::DoNotOptimize(img.constBits());
  }
}
BENCHMARK(BM_ChameleonPaint)->DenseRange(1, ChameleonButton::kLooks);

void BM_PlainButtonPaint(benchmark::State& state) {
  ensureGuiApplication();
  const QPalette pal;
  const QFont font;
  QImage img(120, 40, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    QPainter p(&img);
    p.fillRect(0, 0, 120, 40, pal.color(QPalette::Button));
    p.setPen(pal.color(QPalette::Dark));
    p.drawRect(0, 0, 119, 39);
    p.setFont(font);
    p.setPen(pal.color(QPalette::ButtonText));
    p.drawText(QRect(4, 3, 112, 34), Qt::AlignCenter, QStringLiteral("Aceptar"));
    p.end();
    benchmark::DoNotOptimize(img.constBits());
  }
}
BENCHMARK(BM_PlainButtonPaint);

}  // namespace
