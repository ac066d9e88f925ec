#pragma once
// The Preferences window's model (Form9): the editor of the settings.
//
// How the pieces fit:
//  - Form_Load copies every setting into the controls' state below: the
//    window works on this private copy. Only Command2 copies the controls
//    back into the program-wide variables (then the window closes); nothing
//    is written to disk here, the control centre writes the settings file
//    when the program ends. Command3 closes with nothing done.
//  - Command1 ("Originales") puts the defaults into the controls only.
//  - The language list reloads this window's captions at once, in the
//    language chosen (the window keeps its own offset while open); the
//    program and every other open window change language with Command2.
//  - The hidden command box (Label1(5) pressed with Ctrl) runs a handful of
//    words; power and system commands go through the platform layer.
//  - Messages go through MBoxShow and ReportError; file choices through the
//    fileDialog hook, which the window answers with a file dialog and
//    calvix-cli with its --file values.
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <functional>

class Preferences {
 public:
  struct FileDialogRequest {
    QString title;
    QString filter;  // "description|*.ext|"
    QString folder;
  };
  struct Hooks {
    // The chosen path, empty when cancelled.
    std::function<QString(const FileDialogRequest&)> fileDialog;
    // The window unloads (Command2, Command3).
    std::function<void()> close;
    // Text6 was shown and wants the focus.
    std::function<void()> focusCommandBox;
  };
  Hooks hooks;

  // The text boxes, for typing into them.
  enum class Box { valor, Text1, Text2, Text3, Text5, Text6 };
  static constexpr int kCurrencyLength = 5;
  static constexpr int kCounterLength = 5;

  // ---- Window events -----------------------------------------------------------
  void Form_Load();
  void Form_Unload();

  // ---- Controls ----------------------------------------------------------------
  void Command1_Click();  // "Originales": defaults into the controls
  void Command2_Click();  // saves into the program-wide variables and closes
  void Command3_Click();  // closes with nothing done
  void Command4_Click();  // the user's alarm sound
  void Command5_Click();  // the calendar's events file
  void Check1_Click();
  void Check2_Click();
  void Check4_Click();
  void Check5_Click();
  void Check6_Click();
  void Check7_Click();
  void Check3_Click(int index);   // 0..4
  void Option1_Click(int index);  // 0..5
  void Text4_Click(int index);    // 1..4
  void List1_Click(int index);
  void List2_Click(int index);
  void List3_Click(int index);
  void List4_Click(int index);
  void List5_Click(int index);
  // shift: 1 Shift, 2 Ctrl, 4 Alt; the command box needs Ctrl.
  void Label1_MouseDown(int index, int shift);

  // Typing: the box's filter and length limit decide what a key does; the
  // answer is the key kept (0 dropped). Changes go through the box's Change.
  int filterKey(Box box, int key) const;
  int keyPress(Box box, int key);
  void textChanged(Box box);
  void lostFocus(Box box);
  static int maxLength(Box box);
  // The box emptied, text typed key by key, then the focus lost (calvix-cli).
  void typeInto(Box box, const QString& text);
  // Enter in the command box runs its word.
  void Text6_Enter();
  QString& boxText(Box box);

  // ---- State the window shows ------------------------------------------------------
  QString Caption;
  std::int32_t offset = 0;  // the language this window shows (LanguageOffset form)
  QString valor;
  QString Text1, Text2;
  QString Label4, Label5;  // "1 euro =" and "pts"
  int Check1 = 0, Check2 = 0, Check4 = 0, Check5 = 0, Check6 = 0, Check7 = 0;
  int Check3 = -1;   // the preset alarm chosen, 0 the current time
  int Option1 = -1;  // alarm sound 0..4, 5 the user's
  int List1 = -1, List2 = -1, List3 = -1, List4 = -1, List5 = -1;
  QString Text3;
  std::array<QString, 5> Text4;  // 1..4 used
  QString Text5, Text6;
  QString Label2;   // the events file
  QString Label21;  // the system the program runs on
  bool commandBoxVisible = false;  // Text6 and Label3
  QString alarmFile;               // the alarm sound chosen
  QString userAlarmName;           // what Option1(5) shows
  bool loaded = false;
  int failures = 0;  // reported failures since the window loaded

  // The list entries in the window's language.
  QStringList List1Items() const;
  QStringList List2Items() const;
  QStringList List3Items() const;
  QStringList List4Items() const;
  QStringList List5Items() const;
  bool isEnabled(const QString& control) const;
  // The names of the controls among Check1..Check7 that are disabled now.
  QStringList disabledControls() const;
  // A string of the table in the window's language.
  QString text(int id) const;
  // The system information text of "cvxinfouser".
  QString systemInformation() const;
  // The flag of the language shown: "es", "en", "fr", "ca".
  QString flag() const;

  // A text that is a time of day, "h:m" or "h:m:s"; the time as "hh:mm:ss"
  // or empty when it is not one.
  static QString timeText(const QString& text);
  // The alarm file's option: alarma1.wav..alarma5.wav give 0..4, others 5.
  static int optionOfAlarm(const QString& file);

 private:
  void loadCaptions();
  void currencyChanged();
  void setLanguageShown(int index);
  void playAlarm(const QString& file);
  bool chooseUserAlarm();
  void runCommand(const QString& word);
  void report(int code, int sound);
  void closeWindow();

  std::int32_t offsetAtLoad_ = 0;
  std::int16_t equationMethod_ = 1;
  QString calculatorMode_;
};
