#pragma once
// The About window's model (Form6): the program's name and version, the
// user's name, and the links it opens through the platform layer (so tests
// and calvix-cli record them and nothing is opened).
#include <QString>
#include <QtCore/qnamespace.h>

class AboutModel {
 public:
  // Loads the texts: caption, version, user name, the web address of Label5.
  void Form_Load();
  // Shift+F10: the system action of the control centre.
  bool Form_KeyDown(int key, Qt::KeyboardModifiers modifiers);

  void Command1_Click();  // the updates request page
  void Command3_Click();  // the language help, with an offer to write to the author
  void Command4_Click();  // related products
  void Command5_Click();  // on-line information
  void Label5_Click();    // the program's web address
  // Clicks a control by name; false when the window has none.
  bool click(const QString& control);

  QString Caption;
  QString version;  // "Versión 0 M. 1 m. Rev. 0"
  QString user;
  QString Label5;   // the address shown and opened
  QString sampleNote;  // the lottery draws shipped are a generated sample

  // The version numbers of this build.
  static int major();
  static int minor();
  static int revision();
  // The addresses the buttons open.
  static const QString kUpdatesUrl;
  static const QString kProductsUrl;
  static const QString kInfoUrl;
  static const QString kAuthorMail;

 private:
  void open(int controlTopic, const QString& address);
};
