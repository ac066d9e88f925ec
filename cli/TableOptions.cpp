#include "cli/TableOptions.h"

#include "cli/CliCommand.h"
#include "funcs/FunctionTable.h"

namespace {

// Types a text into a box through its key filter.
QString typed(const QString& text, int (FunctionTable::*keyPress)(int), FunctionTable& t) {
  QString box;
  for (QChar c : text) {
    const int key = (t.*keyPress)(c.unicode());
    if (key != 0) box += QChar(key);
  }
  return box;
}

}  // namespace

QString typedConstants(const QString& vars) {
  FunctionTable t;
  return typed(vars, &FunctionTable::txtVariables_KeyPress, t);
}

int takeTableOptions(CliContext& ctx, TableOptions& o) {
  o.hasF = ctx.takeOption(QStringLiteral("--f"), o.f);
  o.hasG = ctx.takeOption(QStringLiteral("--g"), o.g);
  o.hasStart = ctx.takeOption(QStringLiteral("--start"), o.start);
  o.hasEnd = ctx.takeOption(QStringLiteral("--end"), o.end);
  o.hasPoints = ctx.takeOption(QStringLiteral("--points"), o.points);
  o.hasStep = ctx.takeOption(QStringLiteral("--step"), o.step);
  o.hasVars = ctx.takeOption(QStringLiteral("--vars"), o.vars);
  o.hasAngle = ctx.takeOption(QStringLiteral("--angle"), o.angle);
  o.hasEvl = ctx.takeOption(QStringLiteral("--evl"), o.evl);
  if (o.hasPoints && o.hasStep) return ctx.usage(QStringLiteral("--points and --step do not go together"));
  if (o.hasAngle && o.angle != QLatin1String("deg") && o.angle != QLatin1String("gra") &&
      o.angle != QLatin1String("rad")) {
    return ctx.usage(QStringLiteral("--angle takes deg, gra or rad"));
  }
  return 0;
}

bool evaluateTable(const TableOptions& o, FunctionTable& t) {
  t.Form_Load();
  t.Form_Activate();
  if (o.hasEvl && !t.openFile(o.evl)) return false;
  while (o.hasAngle && t.Label1 != o.angle) t.Command2_Click();
  if (o.hasVars) t.txtVariables = typedConstants(o.vars);
  if (o.hasF) t.txtExpression = o.f;
  if (o.hasG) {
    t.Text2 = o.g;
    if (t.Check1 == 0) t.Check1_Click();
  }
  if (o.hasStart) {
    t.txtStart = typed(o.start, &FunctionTable::txtStart_KeyPress, t);
    t.txtStart_LostFocus();
  }
  if (o.hasEnd) {
    t.txtEnd = typed(o.end, &FunctionTable::txtEnd_KeyPress, t);
    t.txtEnd_LostFocus();
  }
  if (o.hasPoints) {
    t.Option1_Click(0);
    t.Combo2 = o.points;
    t.Combo2_LostFocus();
  } else if (o.hasStep) {
    t.Option1_Click(1);
    t.Text1 = o.step;
    t.Text1_LostFocus();
  }
  t.cmdResult_Click();
  return true;
}
