#pragma once
// What the program asks of the operating system, behind one interface: sounds,
// opening an address or a file, power actions and the screen saver, user and
// computer names, uptime, fonts. The desktop program uses the Linux
// implementation; tests install the RecordingPlatform, which does nothing but
// record, so no test ever reaches a real power action, sound device or browser.
#include <QString>
#include <QStringList>
#include <cstdint>

class Platform {
 public:
  virtual ~Platform() = default;
  // Plays a sound file; async returns at once, otherwise waits for the end.
  // False when the file cannot be played.
  virtual bool playSound(const QString& path, bool async) = 0;
  virtual bool openUrl(const QString& url) = 0;       // the shell's "Open" on an address
  virtual bool openFile(const QString& path) = 0;     // the shell's "Open" on a file
  // Power actions: "shutdown" (at once), "shutdown-delayed" (after 8 seconds),
  // "reboot", "logout", "suspend", "screensaver".
  virtual bool powerAction(const QString& action) = 0;
  virtual QString userName() = 0;
  virtual QString computerName() = 0;
  virtual QString systemName() = 0;                   // e.g. "Debian GNU/Linux 12 (bookworm)"
  virtual std::uint64_t uptimeMilliseconds() = 0;
  virtual bool registerFont(const QString& path) = 0;
  virtual bool removeFont(const QString& path) = 0;
  // Starts a program of the system and does not wait for it.
  virtual bool runCommand(const QString& program, const QStringList& arguments) {
    (void)program;
    (void)arguments;
    return false;
  }
  // Ends the program at once, as after a shutdown order.
  virtual void endProgram() {}
  // The system's short warning sound.
  virtual void beep() {}
};

// The user's login name: $USER, or, where no session set it (a service, a
// container), the account database's entry for the process's user.
QString accountUserName();

// The installed platform; the Linux one unless a test installed another.
Platform& platform();
void setPlatform(Platform* p);  // nullptr: back to the default

// Test double: records every call as a line ("playSound /x/hey.wav sync") and
// answers from its fields.
class RecordingPlatform : public Platform {
 public:
  bool playSound(const QString& path, bool async) override;
  bool openUrl(const QString& url) override;
  bool openFile(const QString& path) override;
  bool powerAction(const QString& action) override;
  QString userName() override { return user; }
  QString computerName() override { return computer; }
  QString systemName() override { return system; }
  std::uint64_t uptimeMilliseconds() override { return uptime; }
  bool registerFont(const QString& path) override;
  bool removeFont(const QString& path) override;
  bool runCommand(const QString& program, const QStringList& arguments) override;
  void endProgram() override;
  void beep() override;

  QStringList calls;
  QString user = QStringLiteral("tester");
  QString computer = QStringLiteral("testhost");
  QString system = QStringLiteral("Test OS");
  std::uint64_t uptime = 0;
  bool soundsExist = true;  // false: playSound fails as with a missing file
  bool fontsExist = true;   // false: registerFont fails as with a missing font
};
