#include "shell/ChameleonButton.h"

namespace {

QString boolText(bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); }

bool parseBool(const QString& text, bool& out) {
  const QString t = text.trimmed().toLower();
  if (t == QLatin1String("true") || t == QLatin1String("-1") || t == QLatin1String("1")) out = true;
  else if (t == QLatin1String("false") || t == QLatin1String("0")) out = false;
  else return false;
  return true;
}

bool parseInt16(const QString& text, std::int16_t& out) {
  bool ok = false;
  const int v = text.trimmed().toInt(&ok);
  if (!ok || v < -32768 || v > 32767) return false;
  out = static_cast<std::int16_t>(v);
  return true;
}

// Decimal (signed or not) or "&H" hexadecimal, as a 32-bit colour.
bool parseColour(const QString& text, std::uint32_t& out) {
  const QString t = text.trimmed();
  bool ok = false;
  qlonglong v = 0;
  if (t.startsWith(QLatin1String("&h"), Qt::CaseInsensitive)) {
    QString digits = t.mid(2);
    if (digits.endsWith(QLatin1Char('&'))) digits.chop(1);
    v = digits.toLongLong(&ok, 16);
  } else {
    v = t.toLongLong(&ok);
  }
  if (!ok || v < -2147483648LL || v > 0xFFFFFFFFLL) return false;
  out = static_cast<std::uint32_t>(v);
  return true;
}

// Colours print as the 32-bit signed value they are stored as, so a system
// colour shows negative.
QString colourText(std::uint32_t c) { return QString::number(static_cast<std::int32_t>(c)); }

}  // namespace

ChameleonButton::ChameleonButton() = default;

const QStringList& ChameleonButton::storedNames() {
  static const QStringList names{
      QStringLiteral("BTYPE"),  QStringLiteral("TX"),     QStringLiteral("ENAB"),  QStringLiteral("FONT"),
      QStringLiteral("COLTYPE"), QStringLiteral("FOCUSR"), QStringLiteral("BCOL"),  QStringLiteral("BCOLO"),
      QStringLiteral("FCOL"),   QStringLiteral("FCOLO"),  QStringLiteral("MCOL"),  QStringLiteral("MPTR"),
      QStringLiteral("MICON"),  QStringLiteral("PICN"),   QStringLiteral("PICH"),  QStringLiteral("UMCOL"),
      QStringLiteral("SOFT"),   QStringLiteral("PICPOS"), QStringLiteral("NGREY"), QStringLiteral("FX"),
      QStringLiteral("HAND"),   QStringLiteral("CHECK"),  QStringLiteral("VALUE")};
  return names;
}

QString ChameleonButton::property(const QString& n) const {
  if (n == QLatin1String("BTYPE")) return QString::number(btype);
  if (n == QLatin1String("TX")) return caption;
  if (n == QLatin1String("ENAB")) return boolText(enabled);
  if (n == QLatin1String("FONT")) return font;
  if (n == QLatin1String("COLTYPE")) return QString::number(coltype);
  if (n == QLatin1String("FOCUSR")) return boolText(focusr);
  if (n == QLatin1String("BCOL")) return colourText(bcol);
  if (n == QLatin1String("BCOLO")) return colourText(bcolo);
  if (n == QLatin1String("FCOL")) return colourText(fcol);
  if (n == QLatin1String("FCOLO")) return colourText(fcolo);
  if (n == QLatin1String("MCOL")) return colourText(mcol);
  if (n == QLatin1String("MPTR")) return QString::number(mptr);
  if (n == QLatin1String("MICON")) return micon;
  if (n == QLatin1String("PICN")) return picn;
  if (n == QLatin1String("PICH")) return pich;
  if (n == QLatin1String("UMCOL")) return boolText(umcol);
  if (n == QLatin1String("SOFT")) return boolText(soft);
  if (n == QLatin1String("PICPOS")) return QString::number(picpos);
  if (n == QLatin1String("NGREY")) return boolText(ngrey);
  if (n == QLatin1String("FX")) return QString::number(fx);
  if (n == QLatin1String("HAND")) return boolText(hand);
  if (n == QLatin1String("CHECK")) return boolText(check);
  if (n == QLatin1String("VALUE")) return boolText(value);
  return {};
}

bool ChameleonButton::setProperty(const QString& n, const QString& text) {
  bool ok = true;
  if (n == QLatin1String("BTYPE")) {
    std::int16_t v = 0;
    ok = parseInt16(text, v) && v >= 1 && v <= kLooks;
    if (ok) btype = v;
  } else if (n == QLatin1String("TX")) {
    caption = text;
  } else if (n == QLatin1String("ENAB")) {
    ok = parseBool(text, enabled);
    if (ok && !enabled) {
      // A disabled button forgets hover and press.
      isOver_ = isDown_ = spaceDown_ = false;
      setTimer(false);
    }
  } else if (n == QLatin1String("FONT")) {
    font = text.trimmed();
  } else if (n == QLatin1String("COLTYPE")) {
    ok = parseInt16(text, coltype);
  } else if (n == QLatin1String("FOCUSR")) {
    ok = parseBool(text, focusr);
  } else if (n == QLatin1String("BCOL")) {
    ok = parseColour(text, bcol);
  } else if (n == QLatin1String("BCOLO")) {
    ok = parseColour(text, bcolo);
  } else if (n == QLatin1String("FCOL")) {
    ok = parseColour(text, fcol);
  } else if (n == QLatin1String("FCOLO")) {
    ok = parseColour(text, fcolo);
  } else if (n == QLatin1String("MCOL")) {
    ok = parseColour(text, mcol);
  } else if (n == QLatin1String("MPTR")) {
    ok = parseInt16(text, mptr);
  } else if (n == QLatin1String("MICON")) {
    micon = text;
  } else if (n == QLatin1String("PICN")) {
    picn = text;
  } else if (n == QLatin1String("PICH")) {
    pich = text;
  } else if (n == QLatin1String("UMCOL")) {
    ok = parseBool(text, umcol);
  } else if (n == QLatin1String("SOFT")) {
    ok = parseBool(text, soft);
  } else if (n == QLatin1String("PICPOS")) {
    std::int16_t v = 0;
    ok = parseInt16(text, v) && v >= 0 && v <= 4;
    if (ok) picpos = v;
  } else if (n == QLatin1String("NGREY")) {
    ok = parseBool(text, ngrey);
  } else if (n == QLatin1String("FX")) {
    std::int16_t v = 0;
    ok = parseInt16(text, v) && v >= 0 && v <= 3;
    if (ok) fx = v;
  } else if (n == QLatin1String("HAND")) {
    ok = parseBool(text, hand);
  } else if (n == QLatin1String("CHECK")) {
    ok = parseBool(text, check);
  } else if (n == QLatin1String("VALUE")) {
    ok = parseBool(text, value);
  } else {
    return false;
  }
  if (ok) Redraw(restingForm(), true);
  return ok;
}

void ChameleonButton::initProperties(const QString& instanceName) { caption = instanceName; }

QString ChameleonButton::eventName(Event e) {
  switch (e) {
    case Event::Click: return QStringLiteral("Click");
    case Event::MouseDown: return QStringLiteral("MouseDown");
    case Event::MouseUp: return QStringLiteral("MouseUp");
    case Event::MouseMove: return QStringLiteral("MouseMove");
    case Event::KeyDown: return QStringLiteral("KeyDown");
    case Event::KeyPress: return QStringLiteral("KeyPress");
    case Event::KeyUp: return QStringLiteral("KeyUp");
    case Event::MouseEnter: return QStringLiteral("MouseEnter");
    case Event::MouseLeave: return QStringLiteral("MouseLeave");
  }
  return {};
}

void ChameleonButton::raise(Event e, int button, int shift, int x, int y) {
  const Raised r{e, button, shift, x, y};
  events_.append(r);
  if (onEvent) onEvent(r);
}

void ChameleonButton::setTimer(bool on) {
  if (overTimer_ == on) return;
  overTimer_ = on;
  if (onTimer) onTimer(on);
}

ChameleonButton::Form ChameleonButton::restingForm() const {
  if (isDown_ || spaceDown_) return Form::Down;
  return isOver_ ? Form::Hover : Form::Up;
}

void ChameleonButton::Redraw(Form state, bool force) {
  // A ticked check button stays down whatever the pointer does.
  if (check && value) state = Form::Down;
  if (!force && state == lastDrawn_) return;
  lastDrawn_ = state;
  ++redraws_;
  if (onRedraw) onRedraw();
}

void ChameleonButton::startHover() {
  isOver_ = true;
  setTimer(true);
  raise(Event::MouseEnter);
}

void ChameleonButton::MouseMove(int button, int shift, int x, int y) {
  if (!enabled) return;
  raise(Event::MouseMove, button, shift, x, y);
  if ((button & kLeftButton) && isDown_) {
    // Held down: the down form only while the pointer is over the button.
    Redraw(contains(x, y) ? Form::Down : Form::Up, false);
    return;
  }
  if (!isOver_ && contains(x, y)) {
    startHover();
    Redraw(Form::Hover, false);
  }
}

void ChameleonButton::MouseDown(int button, int shift, int x, int y) {
  if (!enabled) return;
  if (button == kLeftButton) {
    isDown_ = true;
    Redraw(Form::Down, false);
  }
  raise(Event::MouseDown, button, shift, x, y);
}

void ChameleonButton::MouseUp(int button, int shift, int x, int y) {
  if (!enabled) return;
  raise(Event::MouseUp, button, shift, x, y);
  if (button != kLeftButton || !isDown_) return;
  isDown_ = false;
  const bool inside = contains(x, y);
  if (inside && !isOver_) startHover();
  if (inside && check) value = !value;
  Redraw(inside ? Form::Hover : Form::Up, true);
  if (inside) raise(Event::Click);
}

void ChameleonButton::click() {
  if (check) value = !value;
  Redraw(restingForm(), true);
  raise(Event::Click);
}

void ChameleonButton::KeyDown(int key, int shift) {
  if (!enabled) return;
  raise(Event::KeyDown, key, shift);
  if (key == kKeySpace && !spaceDown_) {
    spaceDown_ = true;
    Redraw(Form::Down, false);
  }
}

void ChameleonButton::KeyPress(int ascii) {
  if (!enabled) return;
  raise(Event::KeyPress, ascii);
  if (ascii == kKeyEnter) click();
}

void ChameleonButton::KeyUp(int key, int shift) {
  if (!enabled) return;
  raise(Event::KeyUp, key, shift);
  if (key == kKeySpace && spaceDown_) {
    spaceDown_ = false;
    click();
  }
}

void ChameleonButton::GotFocus() {
  hasFocus_ = true;
  Redraw(restingForm(), true);
}

void ChameleonButton::LostFocus() {
  hasFocus_ = false;
  spaceDown_ = false;
  Redraw(restingForm(), true);
}

void ChameleonButton::OverTimer_Timer() {
  if (!overTimer_) return;
  if (pointerOver && pointerOver()) return;
  setTimer(false);
  isOver_ = false;
  Redraw(Form::Up, true);
  raise(Event::MouseLeave);
}

void ChameleonButton::Resize(int w, int h) {
  width_ = w;
  height_ = h;
  Redraw(lastDrawn_, true);
}
