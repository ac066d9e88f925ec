// calvix-cli about: the About window's model, driven by clicks.
//
//   calvix-cli about [EVENT]...
//
// Form6 loads; each EVENT clicks that control: Command1, Command3, Command4,
// Command5, Label5. Nothing is opened: the platform layer records each
// address asked for. Message boxes take the --answer values (none left: the
// first button). Lines NAME TAB value: Caption, version, user, then one line
// "opened" TAB address per address, in order; --json gives the same keys
// with "opened" a list.
#include <QJsonArray>

#include "cli/CliCommand.h"
#include "shell/AboutModel.h"
#include "shell/Platform.h"

namespace {

int runAbout(CliContext& ctx) {
  if (const int code = ctx.refuseOptions()) return code;
  static const QStringList kEvents{QStringLiteral("Command1"), QStringLiteral("Command3"), QStringLiteral("Command4"),
                                   QStringLiteral("Command5"), QStringLiteral("Label5")};
  for (const QString& event : std::as_const(ctx.args)) {
    if (!kEvents.contains(event)) {
      return ctx.usage(QStringLiteral("about: Form6 has no control %1 (events: %2)").arg(event, kEvents.join(u' ')));
    }
  }
  // Records, never opens; the user name is the system's own.
  RecordingPlatform system;
  system.user = accountUserName();
  setPlatform(&system);
  AboutModel model;
  model.Form_Load();
  for (const QString& event : std::as_const(ctx.args)) model.click(event);
  setPlatform(nullptr);

  QStringList opened;
  const QString prefix = QStringLiteral("openUrl ");
  for (const QString& call : std::as_const(system.calls)) {
    if (call.startsWith(prefix)) opened << call.mid(prefix.size());
  }
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("Caption"), model.Caption);
    ctx.json.insert(QStringLiteral("version"), model.version);
    ctx.json.insert(QStringLiteral("user"), model.user);
    ctx.json.insert(QStringLiteral("opened"), QJsonArray::fromStringList(opened));
    return 0;
  }
  ctx.out << "Caption\t" << model.Caption << '\n' << "version\t" << model.version << '\n' << "user\t" << model.user << '\n';
  for (const QString& address : std::as_const(opened)) ctx.out << "opened\t" << address << '\n';
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("about",
                   "the About window after clicks: about [--answer T|button:N]... [EVENT]...\n"
                   "            EVENTs: Command1 Command3 Command4 Command5 Label5; the addresses asked\n"
                   "            for are recorded (opened), never opened",
                   runAbout);
