#include "geometry/InlineCalculator.h"

#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

InlineCalculator::InlineCalculator() { CalcEval.AddCode(QStringLiteral(" pi= ") + rt::Str(4 * rt::Atn(1))); }

QString InlineCalculator::rewrite(const QString& line) {
  QString text = line;
  if (text.contains(QLatin1String("lg"))) text.replace(QLatin1String("lg"), QLatin1String("(1/log(10))*log"));
  if (text.contains(u',')) text.replace(u',', u'.');
  return text;
}

bool InlineCalculator::evaluate(const QString& line, QString& result, QString& error) {
  try {
    const rt::Variant value = CalcEval.Eval(rewrite(line));
    result = rt::Format(value, QStringLiteral("General Number"));
    return true;
  } catch (const EvalError& e) {
    error = e.description();
    return false;
  } catch (const rt::RuntimeError& e) {
    error = EvalError(e).description();
    return false;
  }
}
