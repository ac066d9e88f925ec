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
#include <QPolygon>

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

ChameleonButtonWidget::ChameleonButtonWidget(QWidget* parent) : QPushButton(parent) {
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
  setText(caption);
}

ChameleonButtonWidget::ChameleonButtonWidget(const QIcon& icon, const QString& caption, QWidget* parent)
    : ChameleonButtonWidget(parent) {
  setIcon(icon);
  setText(caption);
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
    if (r.event == ChameleonButton::Event::MouseEnter) Q_EMIT mouseEntered();
    if (r.event == ChameleonButton::Event::MouseLeave) Q_EMIT mouseLeft();
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

void ChameleonButtonWidget::syncModel() {
  model_.caption = text();
  model_.check = isCheckable();
  model_.value = isChecked();
  if (model_.width() != width() || model_.height() != height()) model_.Resize(width(), height());
}

void ChameleonButtonWidget::setLook(int btype) { model_.setProperty(QStringLiteral("BTYPE"), QString::number(btype)); }

void ChameleonButtonWidget::setColours(const QColor& face, const QColor& text) {
  const auto stored = [](const QColor& c) {
    return static_cast<std::uint32_t>(c.red()) | static_cast<std::uint32_t>(c.green()) << 8 |
           static_cast<std::uint32_t>(c.blue()) << 16;
  };
  model_.bcol = model_.bcolo = stored(face);
  model_.fcol = model_.fcolo = stored(text);
  model_.setProperty(QStringLiteral("COLTYPE"), QStringLiteral("2"));
}

ChameleonButton::Form ChameleonButtonWidget::currentForm() const {
  if (isDown() || (isCheckable() && isChecked())) return ChameleonButton::Form::Down;
  return model_.hovered() ? ChameleonButton::Form::Hover : ChameleonButton::Form::Up;
}

QSize ChameleonButtonWidget::sizeHint() const {
  // The style's push button size, never less than the drawn caption needs:
  // the look's own inset and a pixel for the embossed and shadowed captions.
  const QFontMetrics fm(font());
  QString caption = text();
  caption.remove(QLatin1Char('&'));
  int content = fm.horizontalAdvance(caption);
  if (!icon().isNull()) content += iconSize().width() + (caption.isEmpty() ? 0 : 8);
  if (menu() != nullptr) content += 12;
  return QPushButton::sizeHint().expandedTo(QSize(content + 14, fm.height() + 8));
}

QSize ChameleonButtonWidget::minimumSizeHint() const { return sizeHint(); }

void ChameleonButtonWidget::paintEvent(QPaintEvent*) {
  syncModel();
  QPainter p(this);
  QImage picture;
  if (!icon().isNull()) {
    const QIcon::Mode mode = isEnabled() ? QIcon::Normal : QIcon::Disabled;
    picture = icon().pixmap(iconSize(), devicePixelRatioF(), mode).toImage();
  }
  paintChameleonButton(p, model_, currentForm(), palette(), font(), picture);
  if (isDefault() && isEnabled()) {
    // The default button of a dialog wears a dark outer frame, as it always has.
    p.setPen(QPen(palette().color(QPalette::Shadow), 1));
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  }
  if (menu() != nullptr) {
    // The menu arrow, in the caption's colour, at the right edge.
    const int x = width() - 12;
    const int y = height() / 2 - 1;
    p.setPen(Qt::NoPen);
    p.setBrush(chameleonColour(model_.coltype == 1 ? ChameleonButton::kButtonText : model_.fcol, palette()));
    p.drawPolygon(QPolygon({QPoint(x, y), QPoint(x + 6, y), QPoint(x + 3, y + 3)}));
  }
}

void ChameleonButtonWidget::mouseMoveEvent(QMouseEvent* e) {
  syncModel();
  const QPoint pos = e->position().toPoint();
  model_.MouseMove(mouseButtons(e->buttons()), shiftState(e->modifiers()), pos.x(), pos.y());
  QPushButton::mouseMoveEvent(e);
}

void ChameleonButtonWidget::mousePressEvent(QMouseEvent* e) {
  syncModel();
  const QPoint pos = e->position().toPoint();
  model_.MouseDown(mouseButtons(e->button()), shiftState(e->modifiers()), pos.x(), pos.y());
  QPushButton::mousePressEvent(e);
}

void ChameleonButtonWidget::mouseReleaseEvent(QMouseEvent* e) {
  syncModel();
  const QPoint pos = e->position().toPoint();
  model_.MouseUp(mouseButtons(e->button()), shiftState(e->modifiers()), pos.x(), pos.y());
  // The click may close the window; nothing of this button is touched after.
  QPushButton::mouseReleaseEvent(e);
}

void ChameleonButtonWidget::keyPressEvent(QKeyEvent* e) {
  syncModel();
  const int key = e->key() == Qt::Key_Space ? ChameleonButton::kKeySpace : e->key();
  if (!e->isAutoRepeat()) model_.KeyDown(key, shiftState(e->modifiers()));
  const bool enter = e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter;
  // Enter clicks only a default or auto-default button, as on any push
  // button; elsewhere it goes on to the window.
  if (enter && (autoDefault() || isDefault())) {
    model_.KeyPress(ChameleonButton::kKeyEnter);
  } else if (!enter && !e->text().isEmpty() && e->text().at(0).isPrint()) {
    model_.KeyPress(e->text().at(0).unicode());
  }
  QPushButton::keyPressEvent(e);
}

void ChameleonButtonWidget::keyReleaseEvent(QKeyEvent* e) {
  syncModel();
  if (!e->isAutoRepeat()) {
    const int key = e->key() == Qt::Key_Space ? ChameleonButton::kKeySpace : e->key();
    model_.KeyUp(key, shiftState(e->modifiers()));
  }
  QPushButton::keyReleaseEvent(e);
}

void ChameleonButtonWidget::focusInEvent(QFocusEvent* e) {
  QPushButton::focusInEvent(e);
  model_.GotFocus();
}

void ChameleonButtonWidget::focusOutEvent(QFocusEvent* e) {
  QPushButton::focusOutEvent(e);
  model_.LostFocus();
}

void ChameleonButtonWidget::resizeEvent(QResizeEvent* e) {
  QPushButton::resizeEvent(e);
  model_.Resize(width(), height());
}

void ChameleonButtonWidget::changeEvent(QEvent* e) {
  QPushButton::changeEvent(e);
  if (e->type() == QEvent::EnabledChange) {
    model_.setProperty(QStringLiteral("ENAB"), isEnabled() ? QStringLiteral("True") : QStringLiteral("False"));
  }
}

void setButtonColours(QPushButton* button, const QColor& face, const QColor& text) {
  if (auto* drawn = qobject_cast<ChameleonButtonWidget*>(button)) {
    drawn->setColours(face, text);
    return;
  }
  QPalette pal = button->palette();
  pal.setColor(QPalette::Button, face);
  pal.setColor(QPalette::ButtonText, text);
  button->setPalette(pal);
}
