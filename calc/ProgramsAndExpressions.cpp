// The evaluation panel of the calculator: the expression field Text4, the
// five stored programs and the command words the field takes.
#include <QRegularExpression>

#include "calc/CalculatorEngine.h"
#include "calc/ExpressionPanel.h"
#include "funcs/EvalError.h"
#include "shell/ErrorReport.h"
#include "shell/MessageService.h"
#include "shell/Platform.h"
#include "shell/ProgramState.h"
#include "shell/Services.h"
#include "shell/Strings.h"
#include "shell/runtime/Format.h"

namespace {

constexpr int kProgramCount = 5;
constexpr int kYesNo = 6;         // button set "Si", "No"
constexpr int kQuestionKind = 3;  // the warning colours of the box
const QString kAnswerFormat = QStringLiteral("0.###############");

QString* programSlot(int index) {
  if (index < 0 || index >= kProgramCount) return nullptr;
  return &program().Programs.at(static_cast<size_t>(index));
}

}  // namespace

CalculatorEngine::~CalculatorEngine() = default;

QString CalculatorEngine::programTooltip(int index) {
  const QString* slot = programSlot(index);
  return slot ? *slot : QString();
}

void CalculatorEngine::Command79_Click(int index) {
  guarded(79, [&] {
    const QString* slot = programSlot(index);
    if (!slot || slot->isEmpty()) return;  // an empty program does nothing
    Text4 = *slot;
    func = Res(4406) + QLatin1Char(' ') + QString::number(index);
    Command83_Click();
  });
}

void CalculatorEngine::Command80_Click(int index) {
  guarded(80, [&] {
    if (QString* slot = programSlot(index)) *slot = Text4;
  });
}

void CalculatorEngine::Command81_Click(int index) {
  guarded(81, [&] {
    if (QString* slot = programSlot(index)) slot->clear();
  });
}

void CalculatorEngine::Command83_Click() {
  guarded(83, [&] {
    ProgramState& p = program();
    p.SectionTitle = Res(726);
    if (runCommandWord(Text4.trimmed())) return;
    if (Text4.trimmed().isEmpty()) {
      errorCode = 105;
      ReportError(errorCode, 2, 3, 0);
      return;
    }
    if (!viewer_) viewer_ = std::make_unique<ExpressionPanel>();
    rt::Variant answer;
    try {
      answer = viewer_->evaluate(numero.text(), Text4);
    } catch (const EvalError& e) {
      // numero stays as it was; the message says what kind of failure it was.
      errorCode = ExpressionPanel::messageCode(e.number());
      ReportError(errorCode, 2, 3, 0);
      return;
    }
    const QString text = rt::Format(answer, kAnswerFormat);
    result = text;
    numero = text;
    entryActive = 0;
    func = Res(4407);
  });
}

void CalculatorEngine::Command83_RightClick() {
  if (helpInstead(helpTopic(83))) return;
  ContextHelp(kFunctionListTopic);
}

// The words Text4 takes as orders instead of expressions. The system actions
// go through the platform layer.
bool CalculatorEngine::runCommandWord(const QString& word) {
  ProgramState& p = program();
  const QString lower = word.toLower();
  if (lower == Res(4409).toLower()) {
    SystemAction(1, p.OsFamily);
    result = Res(4408);
    return true;
  }
  if (lower == Res(4410).toLower()) {
    MBoxShow(0, Res(4411), kQuestionKind, kYesNo, 1, QStringLiteral("Calvix Premium"));
    if (p.MessageResult == 0) SystemAction(0, p.OsFamily);
    return true;
  }
  if (lower == Res(4412).toLower()) {
    result = Res(4413);
    if (platform().runCommand(QStringLiteral("shutdown.exe"), {QStringLiteral("-i")})) result = Res(4414);
    return true;
  }
  if (lower.startsWith(QLatin1String("cvxinfocard"))) {
    // The card check of the number that follows; its digits may come in groups.
    func = QStringLiteral("Info CALVIX");
    infoCard(word.mid(11).remove(QLatin1Char(' ')));
    return true;
  }
  if (lower == QLatin1String("cvxinfousers")) {
    platform().runCommand(QStringLiteral("control"), {QStringLiteral("userpasswords2")});
    return true;
  }
  return false;
}
