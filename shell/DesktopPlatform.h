#pragma once
// The platform layer of the desktop program on Linux: sounds through Qt
// Multimedia, addresses and files through the desktop's default handlers,
// power actions and the screen saver through the usual system commands, and
// fonts registered with the program only. main() of calvix installs it with
// setPlatform(); tests and calvix-cli never do.
#include <QHash>
#include <QObject>
#include <functional>
#include <memory>

#include "shell/Platform.h"

class QSoundEffect;

class LinuxPlatform : public QObject, public Platform {
  Q_OBJECT
 public:
  LinuxPlatform();
  ~LinuxPlatform() override;

  bool playSound(const QString& path, bool async) override;
  bool openUrl(const QString& url) override;
  bool openFile(const QString& path) override;
  bool powerAction(const QString& action) override;
  QString userName() override;
  QString computerName() override;
  QString systemName() override;
  std::uint64_t uptimeMilliseconds() override;
  bool registerFont(const QString& path) override;
  bool removeFont(const QString& path) override;
  bool runCommand(const QString& program, const QStringList& arguments) override;
  void endProgram() override;
  void beep() override;
  // The system bell belongs to the widget toolkit, which this layer does not
  // include: main() hands it in (QApplication::beep). Without it, no sound.
  void setBeeper(std::function<void()> beeper) { beeper_ = std::move(beeper); }

  // The commands a power action runs, first choice first (the rest are tried
  // when one cannot be started). Public so the mapping can be read and checked.
  static QList<QStringList> commandsFor(const QString& action);

 private:
  std::unique_ptr<QSoundEffect> asyncSound_;
  QHash<QString, int> fonts_;  // path -> application font id
  std::function<void()> beeper_;
};
