#pragma once
// The shared procedures every module calls: key filters, number and text
// helpers, system information, sounds, waits, power actions and context help.
// They keep no state of their own beyond the program-wide variables; whatever
// touches the machine goes through platform() (shell/Platform.h).
#include <QList>
#include <QString>
#include <QVariant>
#include <cstdint>

#include "shell/runtime/Variant.h"

// ---- Context help -----------------------------------------------------------
// Every key or menu handler starts with
//     if (helpInstead(kTopic)) return;
// which, while the program-wide help-cursor flag is set, shows that topic,
// clears the flag and tells the handler to do nothing else.
//
// Topic ids are grouped by module in blocks of 10000, and each block is one
// page of the help viewer (the topic is an anchor "t<id>" on it):
//   10000 control centre and shared services (message box 10100, preferences
//   10200, settings file 10300, printing 10400, large display 10500, help
//   mode 10600), 20000 calculators, 30000 function table and plot, 40000
//   charts and CSV, 50000 converter, 60000 banking, 70000 periodic table,
//   80000 lottery, 90000 chronometer, 100000 calendar, 110000 geometry.
class HelpPresenter {
 public:
  virtual ~HelpPresenter() = default;
  virtual void showTopic(int topic) = 0;
  // The help cursor went on or off (the view changes the pointer).
  virtual void helpCursorChanged(bool /*on*/) {}
};
void setHelpPresenter(HelpPresenter* presenter);  // not owned; nullptr: topics go nowhere
HelpPresenter* helpPresenter();
// Turns the help-cursor mode on or off: the next marked control shows its topic.
void setHelpCursor(bool on);
// Shows the topic, then leaves help-cursor mode.
void ContextHelp(int topic);
bool helpInstead(int topic);
// The help page of a topic ("shell", "calc", ...), by its block of 10000;
// "index" for a topic of no block.
QString helpPageOfTopic(int topic);
// The function table's list of functions (its own page, "funclist").
inline constexpr int kFunctionListTopic = 1500;

// ---- Text and number services ----------------------------------------------
// Filters one typed key (a character code) by filter name: "T", "T+", "D",
// "N", "N1"; returns the key to keep (a typed comma or point already turned
// into the DecimalSymbol where the filter does so) or 0 to drop it. Any other
// filter name keeps the key unchanged.
int FilterKey(int key, const QString& filter);
inline constexpr int kKeyBackspace = 8;
inline constexpr int kKeyEnter = 13;

// The numeric end of a text: side 0 the longest numeric beginning, side 1 the
// longest numeric ending (a "-" just before it joins); one leading "-" of the
// whole text is set aside first and put back in front at the end; blanks are
// removed from the answer. NumericEnd("-12abc", 0) is "-12".
QString NumericEnd(const QString& text, int side);
// Roman numeral of the integer part of |x|, digit by digit with the letters
// "IVXLCDMQH" (M-Q for thousands, H for ten thousands): 4999 is "MQCMXCIX".
QString RomanNumeral(double x);
// Binary digits of the integer part of x by repeated halving; 0 gives "0000".
QString DecimalToBinary(double x);
// Adds the weights of the "1" characters from the right; other characters
// count as 0 and still take a place.
double BinaryToDecimal(const QString& text);
// n! for 0..170. Below 0 or above 170 a message is shown (title string 4605)
// and 1 comes back.
double Factorial(std::int16_t n);
// The digits behind the integer part of x, read as a number: 3.25 gives 0.25.
double FractionalPart(const rt::Variant& x);
// The "a,b" entry form: the integer part of x and its decimal digits are the
// two numbers, and Euclid gives their greatest common divisor ("12,18" -> 6).
rt::Variant GreatestCommonDivisor(const rt::Variant& x);
// String 57 ("Si") or 58 ("No"). The value goes through the runtime's 32-bit
// rounding as the Mod operator does, so a value beyond it is error 6.
QString PrimeText(double x);
// Largest (selector 0) or smallest (selector 1) of values[1..count], the
// store's own 1-based numbering; entry 0 is not looked at. count 0 gives 0.
double ArrayExtreme(const QList<rt::Variant>& values, int count, int selector);
// "<days> días  hh:mm:ss" since the system started, from a millisecond tick
// counter that wraps at 2^32 (49.7 days) as the classic one does.
QString UptimeText();
QString uptimeTextFromTicks(std::uint64_t milliseconds);
// The classic version table; a system it does not know reports its own name
// through the platform, and string 33 only when nothing is known.
QString WindowsName();
QString windowsVersionName(int major, int minor);  // empty when the table has no row
// 0 the user's login name, 1 the computer's name (at most 255 characters).
QString SystemUserName(int selector);
// 0 creation, 1 last modification, 2 last access of a file or folder, as a
// date; a missing path is error 53.
rt::Variant FileDate(const QString& path, int selector);
// The whole text of a file, lines joined by CR LF; empty when it is missing.
QString ReadTextFile(const QString& path);

// ---- System services --------------------------------------------------------
// With SoundOn 1, plays the sound of MessageSound (1 hey, 2 ooh, 3 pato, 4 tic,
// 5 info, 6 the alarm file) from mmedia/ and waits for its end.
void PlayMessageSound();
// The path of a file in the program's mmedia folder.
QString soundPath(const QString& fileName);
// Waits, with events running, for the seconds given.
void Delay(float seconds);
// Mode 0 shuts the computer down and ends the program; mode 1 starts the
// screen saver; mode 2 suspends the computer. osFamily is the user's
// "VERSION WINDOWS" choice.
void SystemAction(int mode, int osFamily);
