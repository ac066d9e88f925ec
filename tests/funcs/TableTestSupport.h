#pragma once
// A function table opened in radians and tabulated at once, for the tests of
// what is built on its table (the plot model and the plot window).
#include "funcs/FunctionTable.h"

// Loads and activates the table, then turns its angle unit to radians.
inline void openInRadians(FunctionTable& t) {
  t.Form_Load();
  t.Form_Activate();
  while (t.Label1 != QLatin1String("rad")) t.Command2_Click();
}

// Tabulates F over start..end with the given number of points, in one go.
inline void tabulateAtOnce(FunctionTable& t, const QString& f, const QString& start, const QString& end, int points) {
  t.txtExpression = f;
  t.txtStart = start;
  t.txtStart_LostFocus();
  t.txtEnd = end;
  t.txtEnd_LostFocus();
  t.Option1_Click(0);
  t.Combo2 = QString::number(points);
  t.Combo2_LostFocus();
  const bool stepwise = t.stepwise;
  t.stepwise = false;
  t.cmdResult_Click();
  t.stepwise = stepwise;
}
