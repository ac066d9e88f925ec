#include "shell/runtime/Financial.h"

#include <cmath>

#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace rt {

namespace {

// Arguments outside the functions' domain, and results that are not finite,
// are "invalid procedure call" as in the classic runtime.
double checked(double v) {
  if (!std::isfinite(v)) raise(kInvalidProcedureCall);
  return v;
}

void checkType(int type) {
  if (type != 0 && type != 1) raise(kInvalidProcedureCall);
}

// The balance equation every function solves: zero when the money paid and
// received balances over nper periods. (1+r)^n - 1 goes through expm1/log1p so
// that rates near zero keep their precision.
double balance(double rate, double nper, double pmt, double pv, double fv, int type) {
  if (rate == 0) return pv + pmt * nper + fv;
  const double grown = std::expm1(nper * std::log1p(rate));
  return pv * (grown + 1) + pmt * (1 + rate * type) * grown / rate + fv;
}

}  // namespace

double FV(double rate, double nper, double pmt, double pv, int type) {
  checkType(type);
  if (rate == 0) return checked(-(pv + pmt * nper));
  const double g = std::pow(1 + rate, nper);
  return checked(-(pv * g + pmt * (1 + rate * type) * (g - 1) / rate));
}

double PV(double rate, double nper, double pmt, double fv, int type) {
  checkType(type);
  if (rate == 0) return checked(-(fv + pmt * nper));
  const double g = std::pow(1 + rate, nper);
  return checked(-(fv + pmt * (1 + rate * type) * (g - 1) / rate) / g);
}

double PMT(double rate, double nper, double pv, double fv, int type) {
  checkType(type);
  if (nper == 0) raise(kInvalidProcedureCall);
  if (rate == 0) return checked(-(pv + fv) / nper);
  const double g = std::pow(1 + rate, nper);
  return checked(-rate * (fv + pv * g) / ((1 + rate * type) * (g - 1)));
}

double IPMT(double rate, double per, double nper, double pv, double fv, int type) {
  checkType(type);
  if (per < 1 || per > nper) raise(kInvalidProcedureCall);
  const double pmt = PMT(rate, nper, pv, fv, type);
  if (type == 1) {
    if (per == 1) return 0;
    return checked((FV(rate, per - 2, pmt, pv, 1) - pmt) * rate);
  }
  return checked(FV(rate, per - 1, pmt, pv, 0) * rate);
}

double PPMT(double rate, double per, double nper, double pv, double fv, int type) {
  return checked(PMT(rate, nper, pv, fv, type) - IPMT(rate, per, nper, pv, fv, type));
}

double NPER(double rate, double pmt, double pv, double fv, int type) {
  checkType(type);
  if (rate == 0) {
    if (pmt == 0) raise(kInvalidProcedureCall);
    return checked(-(pv + fv) / pmt);
  }
  const double a = pmt * (1 + rate * type);
  const double num = a - fv * rate;
  const double den = a + pv * rate;
  if (den == 0 || num / den <= 0 || rate <= -1) raise(kInvalidProcedureCall);
  return checked(std::log(num / den) / std::log(1 + rate));
}

double RATE(double nper, double pmt, double pv, double fv, int type, double guess) {
  checkType(type);
  if (nper <= 0) raise(kInvalidProcedureCall);
  double r = guess;
  const double scale = std::fabs(pv) + std::fabs(pmt) * nper + std::fabs(fv);
  for (int i = 0; i < 100; ++i) {
    if (r <= -1) break;
    const double f = balance(r, nper, pmt, pv, fv, type);
    // Newton steps on a central-difference slope.
    const double h = 1e-6 * std::max(1e-3, std::fabs(r));
    const double slope = (balance(r + h, nper, pmt, pv, fv, type) - balance(r - h, nper, pmt, pv, fv, type)) / (2 * h);
    if (!std::isfinite(f) || !std::isfinite(slope) || slope == 0) break;
    const double next = r - f / slope;
    if (std::fabs(next - r) < 1e-13 * std::max(1.0, std::fabs(r))) {
      // Converged; accept only a rate that really balances the cash flows.
      if (std::fabs(balance(next, nper, pmt, pv, fv, type)) <= 1e-7 * std::max(1.0, scale)) return next;
      break;
    }
    r = next;
  }
  raise(kInvalidProcedureCall);
}

}  // namespace rt
