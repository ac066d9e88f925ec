#include "shell/AlarmIconWidget.h"

#include <QPainter>
#include <QPainterPath>

#include "shell/Clock.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"

namespace {

QPixmap bell(int size) {
  QPixmap pm(size, size);
  pm.fill(Qt::transparent);
  QPainter p(&pm);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(size / 48.0, size / 48.0);
  const QColor gold(0xe0, 0xa8, 0x10);
  p.setPen(QPen(QColor(0x60, 0x40, 0x00), 2));
  p.setBrush(gold);
  QPainterPath path;
  path.moveTo(10, 36);
  path.cubicTo(14, 30, 12, 10, 24, 9);
  path.cubicTo(36, 10, 34, 30, 38, 36);
  path.closeSubpath();
  p.drawPath(path);
  p.drawEllipse(QPointF(24, 40), 4, 4);
  return pm;
}

}  // namespace

AlarmIconWidget::AlarmIconWidget(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("Image3"));
  setPixmap(bell(24));
  setFixedSize(24, 24);
  setToolTip(Res(578));
  timer_ = programClock().createTimer([this] { refreshState(); });
  timer_->start(1000);
  refreshState();
}

AlarmIconWidget::~AlarmIconWidget() = default;

void AlarmIconWidget::refreshState() {
  setVisible(program().AlarmRegistry.value(QStringLiteral("estado")).toInt() > 0);
}
