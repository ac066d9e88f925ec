#include "shell/Platform.h"

#include <pwd.h>
#include <unistd.h>

QString accountUserName() {
  QString name = qEnvironmentVariable("USER");
  if (name.isEmpty()) {
    if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_name) name = QString::fromLocal8Bit(pw->pw_name);
  }
  return name;
}

namespace {
// Until the desktop program installs the real one, the platform does
// nothing and reports failure, so logic run from calvix-cli or from a test can
// never play a sound, open a browser or switch the machine off.
class QuietPlatform : public Platform {
 public:
  bool playSound(const QString&, bool) override { return false; }
  bool openUrl(const QString&) override { return false; }
  bool openFile(const QString&) override { return false; }
  bool powerAction(const QString&) override { return false; }
  QString userName() override { return accountUserName(); }
  QString computerName() override { return {}; }
  QString systemName() override { return {}; }
  std::uint64_t uptimeMilliseconds() override { return 0; }
  bool registerFont(const QString&) override { return false; }
  bool removeFont(const QString&) override { return false; }
};

QuietPlatform g_quiet;
Platform* g_platform = nullptr;
}  // namespace

Platform& platform() { return g_platform ? *g_platform : g_quiet; }
void setPlatform(Platform* p) { g_platform = p; }

bool RecordingPlatform::playSound(const QString& path, bool async) {
  calls << QStringLiteral("playSound %1 %2").arg(path, async ? QStringLiteral("async") : QStringLiteral("sync"));
  return soundsExist;
}
bool RecordingPlatform::openUrl(const QString& url) {
  calls << QStringLiteral("openUrl ") + url;
  return true;
}
bool RecordingPlatform::openFile(const QString& path) {
  calls << QStringLiteral("openFile ") + path;
  return true;
}
bool RecordingPlatform::powerAction(const QString& action) {
  calls << QStringLiteral("powerAction ") + action;
  return true;
}
bool RecordingPlatform::registerFont(const QString& path) {
  calls << QStringLiteral("registerFont ") + path;
  return fontsExist;
}
bool RecordingPlatform::removeFont(const QString& path) {
  calls << QStringLiteral("removeFont ") + path;
  return fontsExist;
}
bool RecordingPlatform::runCommand(const QString& program, const QStringList& arguments) {
  calls << (QStringList{QStringLiteral("runCommand"), program} + arguments).join(QLatin1Char(' '));
  return true;
}
void RecordingPlatform::endProgram() { calls << QStringLiteral("endProgram"); }
void RecordingPlatform::beep() { calls << QStringLiteral("beep"); }
