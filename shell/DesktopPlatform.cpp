#include "shell/DesktopPlatform.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QProcess>
#include <QSoundEffect>
#include <QSysInfo>
#include <QTimer>
#include <QUrl>
#include <ctime>
#include <pwd.h>
#include <unistd.h>

namespace {

// Configures a sound effect for a file; false when the file is missing.
bool load(QSoundEffect& effect, const QString& path) {
  if (!QFileInfo::exists(path)) return false;
  effect.setSource(QUrl::fromLocalFile(path));
  effect.setLoopCount(1);
  return true;
}

// Whether a sound server is there to talk to. Without one, the sound layer
// prints complaints on the console at its first use; a machine with no sound
// (a server, a virtual display) simply plays nothing.
bool soundServerPresent() {
  static const bool present = [] {
    if (qEnvironmentVariableIsSet("PULSE_SERVER")) return true;
    QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtime.isEmpty()) runtime = QStringLiteral("/run/user/%1").arg(getuid());
    return QFileInfo::exists(runtime + QStringLiteral("/pulse/native")) ||
           QFileInfo::exists(runtime + QStringLiteral("/pipewire-0"));
  }();
  return present;
}

}  // namespace

LinuxPlatform::LinuxPlatform() = default;
LinuxPlatform::~LinuxPlatform() = default;

bool LinuxPlatform::playSound(const QString& path, bool async) {
  if (!QFileInfo::exists(path)) return false;
  if (!soundServerPresent()) return true;  // the file is fine; there is just nothing to hear it on
  if (async) {
    asyncSound_ = std::make_unique<QSoundEffect>();
    if (!load(*asyncSound_, path)) return false;
    asyncSound_->play();
    return true;
  }
  QSoundEffect effect;
  if (!load(effect, path)) return false;
  // Waits for the end of the sound with the events the user cannot cause
  // still running; a sound device that never answers gives up after a while.
  QEventLoop loop;
  QObject::connect(&effect, &QSoundEffect::playingChanged, &loop, [&] {
    if (!effect.isPlaying() && effect.status() != QSoundEffect::Loading) loop.quit();
  });
  QObject::connect(&effect, &QSoundEffect::statusChanged, &loop, [&] {
    if (effect.status() == QSoundEffect::Error) loop.quit();
    if (effect.status() == QSoundEffect::Ready && !effect.isPlaying()) effect.play();
  });
  QTimer::singleShot(10000, &loop, &QEventLoop::quit);
  if (effect.status() == QSoundEffect::Ready) effect.play();
  loop.exec(QEventLoop::ExcludeUserInputEvents);
  return effect.status() != QSoundEffect::Error;
}

bool LinuxPlatform::openUrl(const QString& url) { return QDesktopServices::openUrl(QUrl::fromUserInput(url)); }

bool LinuxPlatform::openFile(const QString& path) {
  if (!QFileInfo::exists(path)) return false;
  return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QList<QStringList> LinuxPlatform::commandsFor(const QString& action) {
  const QString sh = QStringLiteral("sh");
  const QString c = QStringLiteral("-c");
  if (action == QLatin1String("shutdown")) {
    return {{QStringLiteral("systemctl"), QStringLiteral("poweroff")},
            {QStringLiteral("loginctl"), QStringLiteral("poweroff")}};
  }
  if (action == QLatin1String("shutdown-delayed")) {
    // The classic "shutdown -s -t 8": power off eight seconds from now.
    return {{sh, c, QStringLiteral("sleep 8; systemctl poweroff || loginctl poweroff")}};
  }
  if (action == QLatin1String("reboot")) return {{QStringLiteral("systemctl"), QStringLiteral("reboot")}};
  if (action == QLatin1String("suspend")) return {{QStringLiteral("systemctl"), QStringLiteral("suspend")}};
  if (action == QLatin1String("logout")) {
    return {{sh, c, QStringLiteral("loginctl terminate-session \"${XDG_SESSION_ID:-self}\"")}};
  }
  if (action == QLatin1String("screensaver")) {
    return {{QStringLiteral("xdg-screensaver"), QStringLiteral("activate")},
            {QStringLiteral("loginctl"), QStringLiteral("lock-session")}};
  }
  return {};
}

bool LinuxPlatform::powerAction(const QString& action) {
  for (const QStringList& command : commandsFor(action)) {
    if (QProcess::startDetached(command.first(), command.mid(1))) return true;
  }
  return false;
}

QString LinuxPlatform::userName() { return accountUserName(); }

QString LinuxPlatform::computerName() { return QSysInfo::machineHostName(); }

QString LinuxPlatform::systemName() { return QSysInfo::prettyProductName(); }

std::uint64_t LinuxPlatform::uptimeMilliseconds() {
  timespec ts{};
  if (clock_gettime(CLOCK_BOOTTIME, &ts) != 0) return 0;
  return static_cast<std::uint64_t>(ts.tv_sec) * 1000u + static_cast<std::uint64_t>(ts.tv_nsec / 1000000);
}

bool LinuxPlatform::registerFont(const QString& path) {
  if (fonts_.contains(path)) return true;
  const int id = QFontDatabase::addApplicationFont(path);
  if (id < 0) return false;
  fonts_.insert(path, id);
  return true;
}

bool LinuxPlatform::removeFont(const QString& path) {
  const auto it = fonts_.constFind(path);
  if (it == fonts_.constEnd()) return false;
  const bool removed = QFontDatabase::removeApplicationFont(it.value());
  fonts_.remove(path);
  return removed;
}

bool LinuxPlatform::runCommand(const QString& program, const QStringList& arguments) {
  return QProcess::startDetached(program, arguments);
}

void LinuxPlatform::endProgram() { QCoreApplication::exit(0); }

void LinuxPlatform::beep() {
  if (beeper_) beeper_();
}
