// calvix-cli button: one drawn push button, 120 by 40 pixels, on a larger
// window, driven by pointer and mouse events.
//
//   calvix-cli button [--set NAME=VALUE]... [--png FILE] [EVENT]...
//
// --set gives a property by its stored name before the button shows. Events:
//   move:X,Y     the pointer moves there (button pixels); the button hears the
//                move only when the pointer is over it, or while the left
//                button pressed on it is held
//   pointer:X,Y  the pointer jumps there, no event at all
//   tick         one OverTimer tick, when the timer runs
//   down:X,Y     left button pressed there (heard only over the button)
//   up:X,Y       left button released there (heard over the button, or when
//                the press was on it)
// Prints every property in stored order (NAME TAB value), then "events" and
// "OverTimer". --png saves the button as it is drawn at the end; --sheet
// FILE saves every look in its three forms, side by side (--scale N for a
// pixel ratio of N).
#include <QGuiApplication>
#include <QJsonArray>
#include <QRegularExpression>

#include "cli/CliCommand.h"
#include "shell/ChameleonButton.h"
#include "shell/ChameleonButtonView.h"

namespace {

struct Pointer {
  int x = -1000, y = -1000;  // far outside the button until an event says otherwise
};

bool parsePoint(const QString& text, int& x, int& y) {
  static const QRegularExpression re(QStringLiteral("^(-?\\d+),(-?\\d+)$"));
  const auto m = re.match(text);
  if (!m.hasMatch()) return false;
  x = m.captured(1).toInt();
  y = m.captured(2).toInt();
  return true;
}

int runButton(CliContext& ctx) {
  const QStringList sets = ctx.takeOptions(QStringLiteral("--set"));
  QString png;
  const bool wantPng = ctx.takeOption(QStringLiteral("--png"), png);
  QString sheet, scale;
  const bool wantSheet = ctx.takeOption(QStringLiteral("--sheet"), sheet);
  ctx.takeOption(QStringLiteral("--scale"), scale);
  const qreal ratio = scale.isEmpty() ? 1.0 : scale.toDouble();
  if (ratio <= 0 || ratio > 8) return ctx.usage(QStringLiteral("button: --scale takes a ratio from 0 to 8"));

  ChameleonButton b;
  b.initProperties(QStringLiteral("chameleonButton1"));
  b.Resize(120, 40);
  for (const QString& s : sets) {
    const qsizetype eq = s.indexOf(QLatin1Char('='));
    if (eq <= 0) return ctx.usage(QStringLiteral("button: --set takes NAME=VALUE, not ") + s);
    const QString name = s.left(eq).toUpper();
    if (!ChameleonButton::storedNames().contains(name)) {
      return ctx.usage(QStringLiteral("button: unknown property ") + s.left(eq));
    }
    if (!b.setProperty(name, s.mid(eq + 1))) {
      return ctx.usage(QStringLiteral("button: bad value for %1: %2").arg(name, s.mid(eq + 1)));
    }
  }

  Pointer ptr;
  b.pointerOver = [&ptr, &b] { return b.contains(ptr.x, ptr.y); };
  bool held = false;  // the left button went down on the button and is still down
  for (const QString& event : std::as_const(ctx.args)) {
    const QString kind = event.section(QLatin1Char(':'), 0, 0);
    const QString where = event.section(QLatin1Char(':'), 1);
    int x = 0, y = 0;
    if (kind == QLatin1String("tick") && where.isEmpty()) {
      b.OverTimer_Timer();
      continue;
    }
    if (!parsePoint(where, x, y)) return ctx.usage(QStringLiteral("button: unknown event ") + event);
    ptr.x = x;
    ptr.y = y;
    const bool over = b.contains(x, y);
    if (kind == QLatin1String("pointer")) {
      continue;
    } else if (kind == QLatin1String("move")) {
      if (over || held) b.MouseMove(held ? ChameleonButton::kLeftButton : 0, 0, x, y);
    } else if (kind == QLatin1String("down")) {
      if (over) {
        b.MouseDown(ChameleonButton::kLeftButton, 0, x, y);
        held = b.enabled;
      }
    } else if (kind == QLatin1String("up")) {
      if (over || held) b.MouseUp(ChameleonButton::kLeftButton, 0, x, y);
      held = false;
    } else {
      return ctx.usage(QStringLiteral("button: unknown event ") + event);
    }
  }

  const QFont containerFont = QGuiApplication::font();
  if (b.font.isEmpty()) b.font = containerFont.family();
  if (wantPng) {
    const QImage img = renderChameleonButton(b, QGuiApplication::palette(), containerFont, ratio);
    if (!img.save(png, "PNG")) return ctx.fail(QStringLiteral("button: cannot write ") + png);
  }
  if (wantSheet) {
    const QImage img = renderChameleonLookSheet(QGuiApplication::palette(), containerFont, ratio);
    if (!img.save(sheet, "PNG")) return ctx.fail(QStringLiteral("button: cannot write ") + sheet);
  }

  QStringList events;
  for (const ChameleonButton::Raised& r : b.events()) events << ChameleonButton::eventName(r.event);
  if (ctx.jsonOutput) {
    for (const QString& name : ChameleonButton::storedNames()) ctx.json.insert(name, b.property(name));
    ctx.json.insert(QStringLiteral("events"), QJsonArray::fromStringList(events));
    ctx.json.insert(QStringLiteral("OverTimer"), b.OverTimer() ? QStringLiteral("True") : QStringLiteral("False"));
  } else {
    for (const QString& name : ChameleonButton::storedNames()) ctx.out << name << '\t' << b.property(name) << '\n';
    ctx.out << "events\t" << events.join(QLatin1Char('\t')) << '\n';
    ctx.out << "OverTimer\t" << (b.OverTimer() ? "True" : "False") << '\n';
  }
  return 0;
}

}  // namespace

CALVIX_CLI_GUI_COMMAND("button", "one drawn push button: button [--set NAME=VALUE]... [--png FILE] [EVENT]...",
                       runButton);
