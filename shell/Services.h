#pragma once
// The shared procedures every module calls: key filters, number and text
// helpers, system information, sounds, waits, power actions and context help.
// They keep no state of their own beyond the program-wide variables.
#include <QString>
#include <QVariant>
#include <cstdint>

#include "shell/Variant.h"

// ---- Context help -----------------------------------------------------------
// Every key or menu handler starts with
//     if (helpInstead(kTopic)) return;
// which, while the program-wide help-cursor flag is set, shows that topic,
// clears the flag and tells the handler to do nothing else.
class HelpPresenter {
 public:
  virtual ~HelpPresenter() = default;
  virtual void showTopic(int topic) = 0;
};
void setHelpPresenter(HelpPresenter* presenter);  // not owned; nullptr: topics go nowhere
void ContextHelp(int topic);
bool helpInstead(int topic);

// ---- Text and number services ----------------------------------------------
// Filters one typed key (a character code) by filter name: "T", "T+", "D",
// "N", "N1"; returns the key to keep (a typed comma or point already turned
// into the DecimalSymbol where the filter does so) or 0 to drop it.
int FilterKey(int key, const QString& filter);
QString NumericEnd(const QString& text, int side);
QString RomanNumeral(double x);
QString DecimalToBinary(double x);
double BinaryToDecimal(const QString& text);
double Factorial(std::int16_t n);
double FractionalPart(const rt::Variant& x);
rt::Variant GreatestCommonDivisor(const rt::Variant& x);
QString PrimeText(double x);
double ArrayExtreme(const QList<rt::Variant>& values, int count, int selector);
QString UptimeText();
QString WindowsName();
QString SystemUserName(int selector);
rt::Variant FileDate(const QString& path, int selector);
QString ReadTextFile(const QString& path);

// ---- System services --------------------------------------------------------
void PlayMessageSound();
void Delay(float seconds);
void SystemAction(int mode, int osFamily);
