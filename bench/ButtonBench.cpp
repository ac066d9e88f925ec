// One paint of the drawn button (each of the 14 looks, hover form, caption
// "Aceptar") onto a 120x40 image, beside the plainest button one could draw
// on the same image in the same run: a filled rectangle, a one-pixel frame
// and the centred caption. The ratio per look is what to read; a window of
// 40 buttons repaints all of them on a language change.
// Then the whole widget as windows hold it: the drawn push button rendered
// beside a QPushButton painted by the style, same caption and size.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPushButton>

#include "shell/ChameleonButtonView.h"
#include "shell/ChameleonButtonWidget.h"

namespace {

void ensureGuiApplication() {
  static int argc = 1;
  static char name[] = "calvix_bench";
  static char* argv[] = {name, nullptr};
  if (QCoreApplication::instance()) return;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  new QApplication(argc, argv);  // kept to the end of the process
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

void renderWidget(benchmark::State& state, QPushButton& button) {
  button.resize(120, 40);
  QImage img(120, 40, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    button.render(&img);
    benchmark::DoNotOptimize(img.constBits());
  }
}

// Widgets need a QApplication; another bench may have made a lesser one
// first (run with --benchmark_filter=Button to get these).
bool widgetsAvailable(benchmark::State& state) {
  ensureGuiApplication();
  if (qobject_cast<QApplication*>(QCoreApplication::instance())) return true;
  state.SkipWithError("no QApplication in this run");
  return false;
}

void BM_DrawnPushButtonRender(benchmark::State& state) {
  if (!widgetsAvailable(state)) return;
  ChameleonButtonWidget button(QStringLiteral("Aceptar"));
  renderWidget(state, button);
}
BENCHMARK(BM_DrawnPushButtonRender);

void BM_StylePushButtonRender(benchmark::State& state) {
  if (!widgetsAvailable(state)) return;
  QPushButton button(QStringLiteral("Aceptar"));
  renderWidget(state, button);
}
BENCHMARK(BM_StylePushButtonRender);

}  // namespace
