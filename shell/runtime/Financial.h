#pragma once
// The spreadsheet's financial functions. rate is per period, nper the number
// of periods, pv the present value, fv the future value, type 0 payment at the
// end and 1 at the start of a period. Money paid out is negative. Arguments
// with no answer are error 5.
namespace rt {

double FV(double rate, double nper, double pmt, double pv = 0, int type = 0);
double PV(double rate, double nper, double pmt, double fv = 0, int type = 0);
double PMT(double rate, double nper, double pv, double fv = 0, int type = 0);
double IPMT(double rate, double per, double nper, double pv, double fv = 0, int type = 0);
double PPMT(double rate, double per, double nper, double pv, double fv = 0, int type = 0);
double NPER(double rate, double pmt, double pv, double fv = 0, int type = 0);
// Newton iteration from guess; error 5 when it does not converge.
double RATE(double nper, double pmt, double pv, double fv = 0, int type = 0, double guess = 0.1);

}  // namespace rt
