#include "calc/KeySequence.h"

#include <QRegularExpression>
#include <QStringList>

#include "calc/CalculatorEngine.h"
#include "calc/CalculatorKeypad.h"
#include "calc/CalculatorMenus.h"

namespace {

// Named keys: their Qt code and the character their stroke types, if any.
bool namedKey(const QString& name, int& key, QChar& typed) {
  if (name.compare(QLatin1String("Backspace"), Qt::CaseInsensitive) == 0) {
    key = Qt::Key_Backspace;
    typed = QChar(8);
    return true;
  }
  if (name.compare(QLatin1String("Esc"), Qt::CaseInsensitive) == 0) {
    key = Qt::Key_Escape;
    typed = QChar(27);
    return true;
  }
  static const QRegularExpression function(QStringLiteral("^[Ff]([1-9]|1[0-2])$"));
  const auto m = function.match(name);
  if (m.hasMatch()) {
    key = Qt::Key_F1 + m.captured(1).toInt() - 1;
    typed = QChar();
    return true;
  }
  return false;
}

bool parseToken(const QString& token, QList<KeyStep>& steps, QString& error) {
  KeyStep step;
  if (token == QLatin1String("=") || token.compare(QLatin1String("Enter"), Qt::CaseInsensitive) == 0) {
    step.kind = KeyStep::Kind::Click;
    step.control = QStringLiteral("Command19");
    steps << step;
    return true;
  }
  if (token.startsWith(QLatin1String("Text4="))) {
    step.kind = KeyStep::Kind::SetText;
    step.text = token.mid(6);
    steps << step;
    return true;
  }
  static const QRegularExpression right(QStringLiteral("^right:(\\w+?)(?:\\((\\d+)\\))?$"));
  if (const auto m = right.match(token); m.hasMatch()) {
    step.kind = KeyStep::Kind::RightClick;
    step.control = m.captured(1);
    step.index = m.captured(2).isEmpty() ? -1 : m.captured(2).toInt();
    steps << step;
    return true;
  }
  static const QRegularExpression select(QStringLiteral("^MSFlexGrid1\\(([01])\\)=(\\d+)$"));
  if (const auto m = select.match(token); m.hasMatch()) {
    step.kind = KeyStep::Kind::Select;
    step.index = m.captured(1).toInt();
    step.row = m.captured(2).toInt();
    steps << step;
    return true;
  }
  static const QRegularExpression menu(QStringLiteral("^(\\w+)(?:\\((\\d+)\\))?$"),
                                       QRegularExpression::UseUnicodePropertiesOption);
  if (const auto m = menu.match(token); m.hasMatch()) {
    const int index = m.captured(2).isEmpty() ? -1 : m.captured(2).toInt();
    if (findMenuItem(m.captured(1), index)) {
      step.kind = KeyStep::Kind::Click;
      step.control = m.captured(1);
      step.index = index;
      steps << step;
      return true;
    }
    for (const MenuItem& item : calculatorMenuItems()) {
      if (m.captured(1) == QString::fromUtf8(item.control)) {
        error = QStringLiteral("the menu %1 has no item %2").arg(m.captured(1), m.captured(2));
        return false;
      }
    }
  }
  static const QRegularExpression control(QStringLiteral("^(Command\\d+)(?:\\((\\d+)\\))?$"));
  if (const auto m = control.match(token); m.hasMatch()) {
    step.kind = KeyStep::Kind::Click;
    step.control = m.captured(1);
    step.index = m.captured(2).isEmpty() ? -1 : m.captured(2).toInt();
    if (!findKey(step.control, step.index)) {
      error = hasControl(step.control)
                  ? QStringLiteral("%1 has no key with index %2").arg(step.control, m.captured(2).isEmpty()
                                                                                        ? QStringLiteral("(none)")
                                                                                        : m.captured(2))
                  : QStringLiteral("the calculator has no control %1").arg(step.control);
      return false;
    }
    steps << step;
    return true;
  }
  static const QRegularExpression modified(QStringLiteral("^(Shift|Ctrl)\\+(.+)$"),
                                           QRegularExpression::CaseInsensitiveOption);
  Qt::KeyboardModifiers modifiers;
  QString name = token;
  if (const auto m = modified.match(token); m.hasMatch()) {
    modifiers = m.captured(1).compare(QLatin1String("Shift"), Qt::CaseInsensitive) == 0 ? Qt::ShiftModifier
                                                                                          : Qt::ControlModifier;
    name = m.captured(2);
  }
  int key = 0;
  QChar typed;
  if (namedKey(name, key, typed)) {
    step.kind = KeyStep::Kind::Held;
    step.key = key;
    step.modifiers = modifiers;
    step.alsoTyped = typed;
    steps << step;
    return true;
  }
  if (modifiers != Qt::NoModifier) {
    static const QRegularExpression single(QStringLiteral("^[0-9A-Za-z]$"));
    if (!single.match(name).hasMatch()) {
      error = QStringLiteral("unknown key %1").arg(token);
      return false;
    }
    step.kind = KeyStep::Kind::Held;
    step.key = name.at(0).toUpper().unicode();
    step.modifiers = modifiers;
    steps << step;
    return true;
  }
  for (QChar c : token) {
    KeyStep typedStep;
    typedStep.kind = KeyStep::Kind::Type;
    typedStep.character = c;
    steps << typedStep;
  }
  return true;
}

}  // namespace

bool parseKeySequence(const QString& sequence, QList<KeyStep>& steps, QString& error) {
  steps.clear();
  static const QRegularExpression blanks(QStringLiteral("\\s+"));
  for (const QString& token : sequence.split(blanks, Qt::SkipEmptyParts)) {
    if (!parseToken(token, steps, error)) {
      steps.clear();
      return false;
    }
  }
  return true;
}

void runKeySteps(CalculatorEngine& engine, const QList<KeyStep>& steps) {
  for (const KeyStep& s : steps) {
    switch (s.kind) {
      case KeyStep::Kind::Click: engine.click(s.control, s.index); break;
      case KeyStep::Kind::Select: engine.selectCell(s.index, s.row); break;
      case KeyStep::Kind::SetText: engine.Text4 = s.text; break;
      case KeyStep::Kind::RightClick: engine.rightClick(s.control, s.index); break;
      case KeyStep::Kind::Type: engine.typeCharacter(s.character); break;
      case KeyStep::Kind::Held:
        engine.keyDown(s.key, s.modifiers);
        if (!s.alsoTyped.isNull()) engine.keyPress(s.alsoTyped);
        break;
    }
  }
}

bool runKeySequence(CalculatorEngine& engine, const QString& sequence, QString* error) {
  QList<KeyStep> steps;
  QString why;
  if (!parseKeySequence(sequence, steps, why)) {
    if (error) *error = why;
    return false;
  }
  runKeySteps(engine, steps);
  return true;
}
