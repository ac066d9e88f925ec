#include "calc/CalculatorSession.h"

#include <QRegularExpression>

#include "calc/NormalCalculatorKeys.h"
#include "calc/NormalCalculatorModel.h"
#include "shell/ProgramState.h"

CalculatorSession::CalculatorSession(CalculatorKind first) : shown_(first) { load(first); }

CalculatorSession::~CalculatorSession() = default;

CalculatorEngine& CalculatorSession::engine() { return normal_ ? normal_->engine : *scientific_; }

void CalculatorSession::load(CalculatorKind kind) {
  shown_ = kind;
  if (kind == CalculatorKind::Normal) {
    normal_ = std::make_unique<NormalCalculatorModel>();
    normal_->Form_Activate();
    return;
  }
  scientific_ = std::make_unique<CalculatorEngine>();
  scientific_->fileDialog = [this](const CalculatorEngine::FileDialogRequest& r) {
    return fileDialog ? fileDialog(r) : QString();
  };
  scientific_->Form_Activate();
}

void CalculatorSession::show(CalculatorKind kind) {
  program().CalculatorMode = kind == CalculatorKind::Normal ? NormalCalculatorModel::kModeWord
                                                            : QStringLiteral("avanzada");
  if (normal_) {
    normal_->Form_Unload();
    normal_.reset();
  }
  if (scientific_) {
    scientific_->Form_Unload();
    scientific_.reset();
  }
  load(kind);
}

QString calculatorWindowName(CalculatorKind kind) {
  return kind == CalculatorKind::Normal ? QStringLiteral("comand2") : QStringLiteral("comand1");
}

namespace {

bool switchWord(const QString& token, CalculatorKind& target) {
  if (token == QLatin1String("normalcalc")) {
    target = CalculatorKind::Normal;
    return true;
  }
  if (token == QLatin1String("cientificacalc")) {
    target = CalculatorKind::Scientific;
    return true;
  }
  return false;
}

// One token for the normal window: its own controls by name, everything
// else read as the scientific window reads it and then checked against the
// controls this window has.
bool parseNormalToken(const QString& token, QList<KeyStep>& steps, QString& error) {
  static const QRegularExpression control(QStringLiteral("^(Command\\d+)(?:\\((\\d+)\\))?$"));
  if (const auto m = control.match(token); m.hasMatch()) {
    KeyStep step;
    step.kind = KeyStep::Kind::Click;
    step.control = m.captured(1);
    step.index = m.captured(2).isEmpty() ? -1 : m.captured(2).toInt();
    if (!findNormalKey(step.control, step.index)) {
      error = hasNormalControl(step.control) ? QStringLiteral("%1 has no key %2 in comand2").arg(step.control, token)
                                             : QStringLiteral("comand2 has no control %1").arg(step.control);
      return false;
    }
    steps << step;
    return true;
  }
  QList<KeyStep> read;
  if (!parseKeySequence(token, read, error)) return false;
  for (const KeyStep& s : std::as_const(read)) {
    if (s.kind == KeyStep::Kind::Select || (s.kind == KeyStep::Kind::Click && !findNormalKey(s.control, s.index))) {
      error = QStringLiteral("comand2 has no control %1").arg(token);
      return false;
    }
  }
  steps << read;
  return true;
}

}  // namespace

bool parseSessionSequence(const QString& sequence, CalculatorKind first, QList<SessionStep>& steps, QString& error) {
  steps.clear();
  CalculatorKind shown = first;
  static const QRegularExpression blanks(QStringLiteral("\\s+"));
  for (const QString& token : sequence.split(blanks, Qt::SkipEmptyParts)) {
    SessionStep step;
    if (switchWord(token, step.target)) {
      step.switchTo = true;
      shown = step.target;
      steps << step;
      continue;
    }
    QList<KeyStep> keys;
    const bool ok = shown == CalculatorKind::Normal ? parseNormalToken(token, keys, error)
                                                    : parseKeySequence(token, keys, error);
    if (!ok) {
      steps.clear();
      return false;
    }
    for (const KeyStep& k : std::as_const(keys)) {
      step.key = k;
      steps << step;
    }
  }
  return true;
}

namespace {

void runNormalStep(NormalCalculatorModel& model, const KeyStep& s) {
  switch (s.kind) {
    case KeyStep::Kind::Click: model.click(s.control, s.index); break;
    case KeyStep::Kind::Type: model.typeCharacter(s.character); break;
    case KeyStep::Kind::Held:
      model.keyDown(s.key, s.modifiers);
      if (!s.alsoTyped.isNull()) model.keyPress(s.alsoTyped);
      break;
    case KeyStep::Kind::Select:
    case KeyStep::Kind::SetText:
    case KeyStep::Kind::RightClick: break;  // the normal window has no grids or right-click keys
  }
}

}  // namespace

void runSessionSteps(CalculatorSession& session, const QList<SessionStep>& steps) {
  for (const SessionStep& s : steps) {
    if (s.switchTo) {
      session.show(s.target);
    } else if (NormalCalculatorModel* normal = session.normal()) {
      runNormalStep(*normal, s.key);
    } else {
      runKeySteps(session.engine(), {s.key});
    }
  }
}
