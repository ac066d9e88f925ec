#include "shell/ChameleonButtonWidget.h"

#include <QApplication>
#include <algorithm>
#include <QCursor>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

#include "shell/ChameleonButtonView.h"

namespace {

int mouseButtons(Qt::MouseButtons b) {
  int v = 0;
  if (b & Qt::LeftButton) v |= 1;
  if (b & Qt::RightButton) v |= 2;
  if (b & Qt::MiddleButton) v |= 4;
  return v;
}

int shiftState(Qt::KeyboardModifiers m) {
  int v = 0;
  if (m & Qt::ShiftModifier) v |= 1;
  if (m & Qt::ControlModifier) v |= 2;
  if (m & Qt::AltModifier) v |= 4;
  return v;
}

// The classic pointer numbers: 1 arrow, 2 cross, 3 I-beam, 5 size all,
// 6 to 9 the sizing pointers, 11 hourglass, 12 no-drop, 13 arrow and
// hourglass, 14 arrow and question mark, 15 size all, 99 the custom picture.
Qt::CursorShape cursorFor(int mptr) {
  switch (mptr) {
    case 2: return Qt::CrossCursor;
    case 3: return Qt::IBeamCursor;
    case 5:
    case 15: return Qt::SizeAllCursor;
    case 6: return Qt::SizeBDiagCursor;
    case 7: return Qt::SizeVerCursor;
    case 8: return Qt::SizeFDiagCursor;
    case 9: return Qt::SizeHorCursor;
    case 10: return Qt::UpArrowCursor;
    case 11: return Qt::WaitCursor;
    case 12: return Qt::ForbiddenCursor;
    case 13: return Qt::BusyCursor;
    case 14: return Qt::WhatsThisCursor;
    default: return Qt::ArrowCursor;
  }
}

}  // namespace

ChameleonButtonWidget::ChameleonButtonWidget(QWidget* parent) : QWidget(parent) {
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover, false);
  overTimer_.setInterval(50);
  connect(&overTimer_, &QTimer::timeout, this, [this] { model_.OverTimer_Timer(); });
  connectModel();
  model_.Resize(width(), height());
}

ChameleonButtonWidget::ChameleonButtonWidget(const QString& caption, QWidget* parent)
    : ChameleonButtonWidget(parent) {
  model_.caption = caption;
}

void ChameleonButtonWidget::connectModel() {
  model_.pointerOver = [this] {
    if (!isVisible()) return false;
    const QPoint global = QCursor::pos();
    if (!rect().contains(mapFromGlobal(global))) return false;
    QWidget* under = QApplication::widgetAt(global);
    return under == nullptr || under == this || isAncestorOf(under);
  };
  model_.onRedraw = [this] { update(); };
  model_.onTimer = [this](bool on) {
    if (on) overTimer_.start();
    else overTimer_.stop();
    updatePointer();
  };
  model_.onEvent = [this](const ChameleonButton::Raised& r) {
    Q_EMIT raised(static_cast<int>(r.event));
    switch (r.event) {
      case ChameleonButton::Event::Click: Q_EMIT clicked(); break;
      case ChameleonButton::Event::MouseEnter: Q_EMIT mouseEntered(); break;
      case ChameleonButton::Event::MouseLeave: Q_EMIT mouseLeft(); break;
      default: break;
    }
  };
}

void ChameleonButtonWidget::updatePointer() {
  if (model_.hovered() && model_.hand) {
    setCursor(Qt::PointingHandCursor);
  } else if (model_.mptr == 99 && !model_.micon.isEmpty()) {
    setCursor(QCursor(QPixmap(model_.micon)));
  } else if (model_.mptr != 0) {
    setCursor(cursorFor(model_.mptr));
  } else {
    unsetCursor();
  }
}

void ChameleonButtonWidget::setText(const QString& caption) {
  model_.setProperty(QStringLiteral("TX"), caption);
  updateGeometry();
}

void ChameleonButtonWidget::setLook(int btype) { model_.setProperty(QStringLiteral("BTYPE"), QString::number(btype)); }

void ChameleonButtonWidget::setChecked(bool on) {
  model_.setProperty(QStringLiteral("VALUE"), on ? QStringLiteral("True") : QStringLiteral("False"));
}

QSize ChameleonButtonWidget::sizeHint() const {
  const QFontMetrics fm(font());
  return QSize(std::max(fm.horizontalAdvance(model_.caption) + 24, 75), std::max(fm.height() + 12, 25));
}

QSize ChameleonButtonWidget::minimumSizeHint() const {
  const QFontMetrics fm(font());
  return QSize(fm.horizontalAdvance(model_.caption) + 14, fm.height() + 8);
}

void ChameleonButtonWidget::paintEvent(QPaintEvent*) {
  QPainter p(this);
  paintChameleonButton(p, model_, palette(), font());
}

void ChameleonButtonWidget::mouseMoveEvent(QMouseEvent* e) {
  const QPoint pos = e->position().toPoint();
  model_.MouseMove(mouseButtons(e->buttons()), shiftState(e->modifiers()), pos.x(), pos.y());
}

void ChameleonButtonWidget::mousePressEvent(QMouseEvent* e) {
  const QPoint pos = e->position().toPoint();
  model_.MouseDown(mouseButtons(e->button()), shiftState(e->modifiers()), pos.x(), pos.y());
}

void ChameleonButtonWidget::mouseReleaseEvent(QMouseEvent* e) {
  const QPoint pos = e->position().toPoint();
  model_.MouseUp(mouseButtons(e->button()), shiftState(e->modifiers()), pos.x(), pos.y());
}

void ChameleonButtonWidget::keyPressEvent(QKeyEvent* e) {
  const int key = e->key() == Qt::Key_Space ? ChameleonButton::kKeySpace : e->key();
  if (!e->isAutoRepeat()) model_.KeyDown(key, shiftState(e->modifiers()));
  const QString t = e->text();
  if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
    model_.KeyPress(ChameleonButton::kKeyEnter);
  } else if (!t.isEmpty() && t.at(0).isPrint()) {
    model_.KeyPress(t.at(0).unicode());
  } else {
    QWidget::keyPressEvent(e);  // Tab, Escape and the rest go on to the window
  }
}

void ChameleonButtonWidget::keyReleaseEvent(QKeyEvent* e) {
  if (e->isAutoRepeat()) return;
  const int key = e->key() == Qt::Key_Space ? ChameleonButton::kKeySpace : e->key();
  model_.KeyUp(key, shiftState(e->modifiers()));
}

void ChameleonButtonWidget::focusInEvent(QFocusEvent* e) {
  QWidget::focusInEvent(e);
  model_.GotFocus();
}

void ChameleonButtonWidget::focusOutEvent(QFocusEvent* e) {
  QWidget::focusOutEvent(e);
  model_.LostFocus();
}

void ChameleonButtonWidget::resizeEvent(QResizeEvent* e) {
  QWidget::resizeEvent(e);
  model_.Resize(width(), height());
}

void ChameleonButtonWidget::changeEvent(QEvent* e) {
  QWidget::changeEvent(e);
  if (e->type() == QEvent::EnabledChange) {
    model_.setProperty(QStringLiteral("ENAB"), isEnabled() ? QStringLiteral("True") : QStringLiteral("False"));
  }
}
