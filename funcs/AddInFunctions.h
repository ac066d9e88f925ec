#pragma once
// clsAddInFunction: the math library published into the function table's
// evaluator under the name "MathFunction", its operations callable as bare
// global names in a formula (sinf(x), fac(5)...).
//
// sinf, cosf, tanf, asin, acos and atan follow the program-wide angleFactor
// (radians per unit of the angle mode, shared with the calculators); every
// other operation works in radians. An argument out of an operation's domain
// is not an engine failure: the operation shows its message (string 2000+n)
// with "Aceptar" and "Cancelar", clears the function table's X cell of the
// row being computed (writing "Error" there when the user cancels, which
// stops the table's loop) and returns 0, or an empty text. Run-time failures
// that escape those guards (Log of a non-positive number in pow, an overflow
// of Exp) are failures of the engine, raised as rt::RuntimeError.
#include <QString>
#include <functional>

#include "funcs/FunctionLibrary.h"

struct ProgramState;

class AddInFunctions : public FunctionLibrary {
 public:
  // Receives the new text of the X cell of the function table's current row:
  // empty to clear it, or "Error" (string 2800) when the user cancelled.
  using XCellHook = std::function<void(const QString& text)>;

  AddInFunctions();
  const std::vector<FunctionDef>& functions() const override;
  void setXCellHook(XCellHook hook) { xCell_ = std::move(hook); }

  double Pi() const;
  double Sec(double x) const;
  double Csc(double x) const;
  double Cot(double x) const;
  double pow(double a, double b) const;
  rt::Variant Suma(const rt::Variant* values, int n) const;
  rt::Variant Producto(const rt::Variant* values, int n) const;
  rt::Variant Division(const rt::Variant& a, const rt::Variant& b) const;  // 32-bit floats on purpose
  rt::Variant Resta(const rt::Variant& a, const rt::Variant& b) const;
  double ln(double x);
  double lg(double x);
  double asin(double x);
  double acos(double x);
  double atan(double x) const;
  double hsin(double x);
  double hcos(double x);
  double htan(double x) const;
  double asinh(double x) const;
  double acosh(double x);
  double atanh(double x);
  double sinf(double x);
  double cosf(double x);
  double tanf(double x);
  QString BIN(double d);
  QString BTD(double x);
  double fac(double n);  // n goes through the 16-bit conversion first

 private:
  // Puts calcContext to "Cálculo", as every operation that can fail does on entry.
  void enterCalculation();
  void setCalculationContext();
  // The domain-failure procedure for message n; returns the 0 the operation gives back.
  double domainFailure(int n);

  XCellHook xCell_;
  ProgramState& state_;
  QString contextText_;
  int contextOffset_ = -1;
};

// calcContext: the last part of the title of a calculation's error messages
// (the program-wide SectionTitle that ReportError puts in the title).
QString& calcContext();
