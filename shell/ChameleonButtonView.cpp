#include "shell/ChameleonButtonView.h"

#include <QFileInfo>
#include <algorithm>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace {

using Form = ChameleonButton::Form;

// The colours one look is painted with.
struct Shades {
  QColor face;    // the button face in this form
  QColor text;    // the caption
  QColor light;   // outer highlight
  QColor hilite;  // inner highlight
  QColor shadow;  // inner shadow
  QColor dark;    // outer shadow
  QColor accent;  // the hover accent of the flat looks
};

QColor mix(const QColor& a, const QColor& b, qreal t) {
  return QColor::fromRgbF(static_cast<float>(a.redF() + (b.redF() - a.redF()) * t),
                          static_cast<float>(a.greenF() + (b.greenF() - a.greenF()) * t),
                          static_cast<float>(a.blueF() + (b.blueF() - a.blueF()) * t));
}

Shades shadesFor(const ChameleonButton& b, Form form, const QPalette& pal) {
  Shades s;
  const bool hot = form == Form::Hover;
  if (b.coltype == 1) {
    s.face = pal.color(QPalette::Button);
    s.text = pal.color(QPalette::ButtonText);
  } else {
    s.face = chameleonColour(hot ? b.bcolo : b.bcol, pal);
    s.text = chameleonColour(hot ? b.fcolo : b.fcol, pal);
  }
  s.light = s.face.lighter(150);
  s.hilite = mix(s.face, s.light, 0.5);
  s.shadow = s.face.darker(150);
  s.dark = s.face.darker(300);
  if (b.soft) {
    // Softer bevels: every shade half way back to the face.
    s.light = mix(s.light, s.face, 0.5);
    s.hilite = mix(s.hilite, s.face, 0.5);
    s.shadow = mix(s.shadow, s.face, 0.4);
    s.dark = mix(s.dark, s.face, 0.4);
  }
  s.accent = pal.color(QPalette::Highlight);
  if (!b.enabled) s.text = s.face.darker(160);
  return s;
}

void hline(QPainter& p, int x1, int x2, int y, const QColor& c) { p.fillRect(QRect(x1, y, x2 - x1 + 1, 1), c); }
void vline(QPainter& p, int x, int y1, int y2, const QColor& c) { p.fillRect(QRect(x, y1, 1, y2 - y1 + 1), c); }

// A one-pixel frame: top and left in one colour, bottom and right in another.
void bevel(QPainter& p, const QRect& r, const QColor& topLeft, const QColor& bottomRight) {
  hline(p, r.left(), r.right(), r.top(), topLeft);
  vline(p, r.left(), r.top(), r.bottom(), topLeft);
  hline(p, r.left(), r.right(), r.bottom(), bottomRight);
  vline(p, r.right(), r.top(), r.bottom(), bottomRight);
}

void frame(QPainter& p, const QRect& r, const QColor& c) { bevel(p, r, c, c); }

void vGradient(QPainter& p, const QRectF& r, const QColor& top, const QColor& bottom) {
  QLinearGradient g(r.topLeft(), r.bottomLeft());
  g.setColorAt(0, top);
  g.setColorAt(1, bottom);
  p.fillRect(r, g);
}

// A rounded outline filled with a vertical gradient; pen on half pixels so
// the one-pixel line falls on whole device pixels.
void roundedBox(QPainter& p, const QRect& r, qreal radius, const QColor& top, const QColor& bottom,
                const QColor& border) {
  p.save();
  p.setRenderHint(QPainter::Antialiasing, true);
  const QRectF box = QRectF(r).adjusted(0.5, 0.5, -0.5, -0.5);
  QLinearGradient g(box.topLeft(), box.bottomLeft());
  g.setColorAt(0, top);
  g.setColorAt(1, bottom);
  p.setBrush(g);
  p.setPen(QPen(border, 1));
  p.drawRoundedRect(box, radius, radius);
  p.restore();
}

// ---- The looks -----------------------------------------------------------------

// 1: the old 16-bit button, a black frame with cut corners and a thin bevel.
void look1(QPainter& p, const QRect& r, Form f, const Shades& s) {
  p.fillRect(r.adjusted(1, 1, -1, -1), s.face);
  hline(p, r.left() + 1, r.right() - 1, r.top(), s.dark);
  hline(p, r.left() + 1, r.right() - 1, r.bottom(), s.dark);
  vline(p, r.left(), r.top() + 1, r.bottom() - 1, s.dark);
  vline(p, r.right(), r.top() + 1, r.bottom() - 1, s.dark);
  const QRect in = r.adjusted(1, 1, -1, -1);
  if (f == Form::Down) {
    bevel(p, in, s.shadow, s.face);
  } else {
    bevel(p, in, s.light, s.shadow);
    bevel(p, in.adjusted(1, 1, -1, -1), f == Form::Hover ? s.light : s.face, s.shadow);
  }
}

// 2: the 32-bit 3D button, two-pixel bevel; the hover form is framed in black.
void look2(QPainter& p, const QRect& r, Form f, const Shades& s) {
  p.fillRect(r, s.face);
  if (f == Form::Down) {
    frame(p, r, s.dark);
    frame(p, r.adjusted(1, 1, -1, -1), s.shadow);
    return;
  }
  QRect o = r;
  if (f == Form::Hover) {
    frame(p, o, s.dark);
    o.adjust(1, 1, -1, -1);
  }
  bevel(p, o, s.light, s.dark);
  bevel(p, o.adjusted(1, 1, -1, -1), s.hilite, s.shadow);
}

// 3: rounded, gradient face; hover adds a warm rim, down darkens the face.
void look3(QPainter& p, const QRect& r, Form f, const Shades& s) {
  const QColor border = QColor(0, 60, 116);
  if (f == Form::Down) {
    roundedBox(p, r, 3, s.face.darker(118), s.face.darker(104), border);
    return;
  }
  roundedBox(p, r, 3, s.face.lighter(112), s.face.darker(108), border);
  if (f == Form::Hover) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    p.setPen(QPen(QColor(248, 179, 48), 2));
    p.setBrush(Qt::NoBrush);
    p.drawRoundedRect(QRectF(r).adjusted(2, 2, -2, -2), 2, 2);
    p.restore();
  }
}

// 4: the platinum pill: round ends, black outline; down is dark with light text.
void look4(QPainter& p, const QRect& r, Form f, const Shades& s) {
  const qreal radius = std::min(r.height() / 2.0, 8.0);
  if (f == Form::Down) {
    roundedBox(p, r, radius, s.dark.lighter(130), s.dark, Qt::black);
    return;
  }
  const QColor top = f == Form::Hover ? s.light : s.hilite;
  roundedBox(p, r, radius, top, s.face.darker(112), Qt::black);
}

// 5: the metal look: flat face, grey frame with an inner white line; down fills darker.
void look5(QPainter& p, const QRect& r, Form f, const Shades& s) {
  if (f == Form::Down) {
    p.fillRect(r, s.face.darker(125));
    frame(p, r, s.shadow.darker(120));
    return;
  }
  vGradient(p, r, f == Form::Hover ? s.light : s.hilite, s.face);
  frame(p, r, s.shadow);
  bevel(p, r.adjusted(1, 1, -1, -1), Qt::white, s.face);
}

// 6: a beige bevel with a flat outline; down inverts the bevel.
void look6(QPainter& p, const QRect& r, Form f, const Shades& s) {
  const QColor face = f == Form::Hover ? s.hilite : s.face;
  vGradient(p, r, face.lighter(108), face.darker(106));
  frame(p, r, s.dark);
  const QRect in = r.adjusted(1, 1, -1, -1);
  if (f == Form::Down) bevel(p, in, s.shadow, s.light);
  else bevel(p, in, s.light, s.shadow);
}

// 7, 8 and 12: the flat family. 7 shows nothing until hovered, 8 keeps a thin
// outline and lights the face, 12 is the same as 7 on an oval.
void lookFlat(QPainter& p, const QRect& r, Form f, const Shades& s, int btype) {
  if (btype == 12) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing, true);
    const QRectF oval = QRectF(r).adjusted(0.5, 0.5, -0.5, -0.5);
    p.setBrush(f == Form::Down ? s.face.darker(112) : s.face);
    p.setPen(f == Form::Up ? QPen(s.face) : QPen(f == Form::Down ? s.dark : s.shadow, 1));
    p.drawEllipse(oval);
    if (f == Form::Hover) {
      p.setPen(QPen(s.light, 1));
      p.setBrush(Qt::NoBrush);
      p.drawEllipse(oval.adjusted(1, 1, -1, -1));
    }
    p.restore();
    return;
  }
  QColor face = s.face;
  if (btype == 8 && f == Form::Hover) face = mix(s.face, s.accent, 0.25);
  p.fillRect(r, face);
  if (f == Form::Hover) bevel(p, r, s.light, s.shadow);
  else if (f == Form::Down) bevel(p, r, s.shadow, s.light);
  else if (btype == 8) frame(p, r, s.shadow);
}

// 9: the office toolbar button: flat until hovered, then an accent box.
void look9(QPainter& p, const QRect& r, Form f, const Shades& s) {
  if (f == Form::Up) {
    p.fillRect(r, s.face);
    return;
  }
  p.fillRect(r, mix(s.face, s.accent, f == Form::Down ? 0.55 : 0.3));
  frame(p, r, s.accent.darker(130));
}

// 10: transparent: only the caption, with a dotted outline while hovered and
// a sunken line while down.
void look10(QPainter& p, const QRect& r, Form f, const Shades& s) {
  if (f == Form::Hover) {
    p.save();
    QPen pen(s.shadow, 1, Qt::DotLine);
    pen.setCosmetic(true);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(r).adjusted(0.5, 0.5, -0.5, -0.5));
    p.restore();
  } else if (f == Form::Down) {
    bevel(p, r, s.shadow, s.light);
  }
}

// 11: flat face that rises into a full 3D bevel when hovered and sinks when down.
void look11(QPainter& p, const QRect& r, Form f, const Shades& s) {
  p.fillRect(r, s.face);
  if (f == Form::Hover) {
    bevel(p, r, s.light, s.dark);
    bevel(p, r.adjusted(1, 1, -1, -1), s.hilite, s.shadow);
  } else if (f == Form::Down) {
    bevel(p, r, s.dark, s.light);
    bevel(p, r.adjusted(1, 1, -1, -1), s.shadow, s.hilite);
  } else {
    frame(p, r, s.shadow);
  }
}

// 13: soft rounded bevel with a gentle gradient; down turns the gradient over.
void look13(QPainter& p, const QRect& r, Form f, const Shades& s) {
  const QColor border = s.shadow.darker(115);
  if (f == Form::Down) {
    roundedBox(p, r, 4, s.face.darker(112), s.face.lighter(104), border);
    return;
  }
  const QColor top = f == Form::Hover ? s.light : s.hilite;
  roundedBox(p, r, 4, top, s.face.darker(106), f == Form::Hover ? s.accent : border);
}

// 14: the glossy capsule: a shine over the upper half, blue when hovered.
void look14(QPainter& p, const QRect& r, Form f, const Shades& s) {
  const qreal radius = r.height() / 2.0;
  QColor base = f == Form::Up ? s.face : QColor(88, 150, 230);
  if (f == Form::Down) base = base.darker(125);
  roundedBox(p, r, radius, base.lighter(115), base.darker(110), base.darker(170));
  p.save();
  p.setRenderHint(QPainter::Antialiasing, true);
  const QRectF shine = QRectF(r).adjusted(radius / 2, 1.5, -radius / 2, -r.height() / 2.0);
  QLinearGradient g(shine.topLeft(), shine.bottomLeft());
  g.setColorAt(0, QColor(255, 255, 255, 200));
  g.setColorAt(1, QColor(255, 255, 255, 40));
  p.setPen(Qt::NoPen);
  p.setBrush(g);
  p.drawRoundedRect(shine, shine.height() / 2, shine.height() / 2);
  p.restore();
}

void paintLook(QPainter& p, const QRect& r, int btype, Form f, const Shades& s) {
  switch (btype) {
    case 1: look1(p, r, f, s); break;
    case 2: look2(p, r, f, s); break;
    case 3: look3(p, r, f, s); break;
    case 4: look4(p, r, f, s); break;
    case 5: look5(p, r, f, s); break;
    case 6: look6(p, r, f, s); break;
    case 7:
    case 8:
    case 12: lookFlat(p, r, f, s, btype); break;
    case 9: look9(p, r, f, s); break;
    case 10: look10(p, r, f, s); break;
    case 11: look11(p, r, f, s); break;
    case 13: look13(p, r, f, s); break;
    case 14: look14(p, r, f, s); break;
    default: break;
  }
}

// Looks whose content moves by a pixel when pressed.
bool shiftsWhenDown(int btype) { return btype != 9 && btype != 14 && btype != 4; }

QImage loadPicture(const QString& file, const ChameleonButton& b, const QPalette& pal, bool grey) {
  if (file.isEmpty()) return {};
  QImage img(file);
  if (img.isNull()) return {};
  img = img.convertToFormat(QImage::Format_ARGB32);
  const QRgb mask = chameleonColour(b.mcol, pal).rgb() & 0xFFFFFF;
  for (int y = 0; y < img.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(img.scanLine(y));
    for (int x = 0; x < img.width(); ++x) {
      if (b.umcol && (line[x] & 0xFFFFFF) == mask) {
        line[x] = 0;
        continue;
      }
      if (grey || !b.enabled) {
        const int g = qGray(line[x]);
        line[x] = qRgba(g, g, g, qAlpha(line[x]));
      }
    }
  }
  return img;
}

void drawCaption(QPainter& p, const QRect& r, const QString& text, const ChameleonButton& b, const Shades& s) {
  const int align = Qt::AlignCenter | Qt::TextShowMnemonic;
  if (!b.enabled) {
    p.setPen(s.light);
    p.drawText(r.translated(1, 1), align, text);
    p.setPen(s.text);
    p.drawText(r, align, text);
    return;
  }
  switch (b.fx) {
    case 1:  // embossed: light below right
      p.setPen(s.light);
      p.drawText(r.translated(1, 1), align, text);
      break;
    case 2:  // engraved: light above left
      p.setPen(s.light);
      p.drawText(r.translated(-1, -1), align, text);
      break;
    case 3:  // shadowed
      p.setPen(s.shadow);
      p.drawText(r.translated(2, 2), align, text);
      break;
    default: break;
  }
  p.setPen(s.text);
  p.drawText(r, align, text);
}

void drawContent(QPainter& p, const QRect& area, const ChameleonButton& b, Form f, const Shades& s,
                 const QPalette& pal, const QImage& given) {
  const bool hot = f == Form::Hover;
  const QString file = hot && !b.pich.isEmpty() ? b.pich : b.picn;
  QImage pic = loadPicture(file, b, pal, b.ngrey && !hot);
  if (pic.isNull()) pic = given;
  QRect text = area;
  if (!pic.isNull()) {
    const QSize own = pic.deviceIndependentSize().toSize();
    const QSize ps = own.scaled(area.size().boundedTo(own), Qt::KeepAspectRatio);
    QRect pr(QPoint(0, 0), ps);
    const int gap = 4;
    // A picture alone sits in the middle wherever picpos puts it.
    switch (b.caption.isEmpty() ? 4 : b.picpos) {
      case 1:
        pr.moveCenter(area.center());
        pr.moveRight(area.right() - gap);
        text.setRight(pr.left() - gap);
        break;
      case 2:
        pr.moveCenter(area.center());
        pr.moveTop(area.top() + 2);
        text.setTop(pr.bottom());
        break;
      case 3:
        pr.moveCenter(area.center());
        pr.moveBottom(area.bottom() - 2);
        text.setBottom(pr.top());
        break;
      case 4: pr.moveCenter(area.center()); break;
      default:
        pr.moveCenter(area.center());
        pr.moveLeft(area.left() + gap);
        text.setLeft(pr.right() + gap);
        break;
    }
    p.drawImage(pr, pic);
  }
  if (!b.caption.isEmpty()) drawCaption(p, text, b.caption, b, s);
}

}  // namespace

QColor chameleonColour(std::uint32_t stored, const QPalette& pal) {
  if (stored & ChameleonButton::kSystemColour) {
    switch (stored & 0xFF) {
      case 15: return pal.color(QPalette::Button);
      case 16: return pal.color(QPalette::Dark);
      case 18: return pal.color(QPalette::ButtonText);
      case 20: return pal.color(QPalette::Light);
      case 21: return pal.color(QPalette::Shadow);
      case 22: return pal.color(QPalette::Midlight);
      case 5: return pal.color(QPalette::Base);
      case 8: return pal.color(QPalette::Text);
      case 13: return pal.color(QPalette::Highlight);
      case 14: return pal.color(QPalette::HighlightedText);
      default: return pal.color(QPalette::Window);
    }
  }
  return QColor(static_cast<int>(stored & 0xFF), static_cast<int>((stored >> 8) & 0xFF),
                static_cast<int>((stored >> 16) & 0xFF));
}

void paintChameleonButton(QPainter& p, const ChameleonButton& b, const QPalette& pal, const QFont& containerFont) {
  paintChameleonButton(p, b, b.form(), pal, containerFont);
}

void paintChameleonButton(QPainter& p, const ChameleonButton& b, Form form, const QPalette& pal,
                          const QFont& containerFont, const QImage& picture) {
  if (!b.enabled) form = Form::Up;
  const QRect r(0, 0, b.width(), b.height());
  if (r.width() < 2 || r.height() < 2) return;
  p.save();
  p.setRenderHint(QPainter::Antialiasing, false);
  const Shades s = shadesFor(b, form, pal);
  paintLook(p, r, b.btype, form, s);

  QFont font = containerFont;
  if (!b.font.isEmpty()) font.setFamily(b.font);
  if (b.fontSize > 0) font.setPointSizeF(b.fontSize);
  if (b.fontBold) font.setBold(true);
  p.setFont(font);
  QRect content = r.adjusted(4, 3, -4, -3);
  if (form == Form::Down && shiftsWhenDown(b.btype)) content.translate(1, 1);
  QColor text = s.text;
  if (b.btype == 4 && form == Form::Down) text = Qt::white;
  Shades ts = s;
  ts.text = text;
  drawContent(p, content, b, form, ts, pal, picture);

  if (b.focused() && b.focusr && b.enabled) {
    QPen pen(s.text, 1, Qt::DotLine);
    pen.setCosmetic(true);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    p.drawRect(QRectF(r).adjusted(3.5, 3.5, -3.5, -3.5));
  }
  p.restore();
}

QImage renderChameleonButton(const ChameleonButton& b, const QPalette& pal, const QFont& font, qreal dpr) {
  QImage img(QSize(qRound(b.width() * dpr), qRound(b.height() * dpr)), QImage::Format_ARGB32_Premultiplied);
  img.setDevicePixelRatio(dpr);
  // What lies behind the button: the window's own colour.
  img.fill(pal.color(QPalette::Window));
  QPainter p(&img);
  paintChameleonButton(p, b, pal, font);
  return img;
}

QImage renderChameleonLookSheet(const QPalette& pal, const QFont& font, qreal dpr) {
  constexpr int kW = 120, kH = 40, kGap = 12, kLabel = 40, kHead = 24;
  const int width = kLabel + 3 * (kW + kGap) + kGap;
  const int height = kHead + ChameleonButton::kLooks * (kH + kGap) + kGap;
  QImage sheet(QSize(qRound(width * dpr), qRound(height * dpr)), QImage::Format_ARGB32_Premultiplied);
  sheet.setDevicePixelRatio(dpr);
  sheet.fill(pal.color(QPalette::Window));
  QPainter p(&sheet);
  p.setFont(font);
  p.setPen(pal.color(QPalette::WindowText));
  const char* heads[] = {"up", "hover", "down"};
  for (int c = 0; c < 3; ++c) {
    p.drawText(QRect(kLabel + kGap + c * (kW + kGap), 0, kW, kHead), Qt::AlignCenter, QLatin1String(heads[c]));
  }
  for (int look = 1; look <= ChameleonButton::kLooks; ++look) {
    const int y = kHead + (look - 1) * (kH + kGap);
    p.setPen(pal.color(QPalette::WindowText));
    p.drawText(QRect(0, y, kLabel, kH), Qt::AlignCenter, QString::number(look));
    ChameleonButton b;
    b.btype = static_cast<std::int16_t>(look);
    b.caption = QStringLiteral("Aceptar");
    const Form forms[] = {Form::Up, Form::Hover, Form::Down};
    for (int c = 0; c < 3; ++c) {
      p.save();
      p.translate(kLabel + kGap + c * (kW + kGap), y);
      paintChameleonButton(p, b, forms[c], pal, font);
      p.restore();
    }
  }
  return sheet;
}
