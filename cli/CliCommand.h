#pragma once
// calvix-cli subcommands. Each subcommand lives in its own file in cli/ and
// registers itself with CALVIX_CLI_COMMAND; main() parses the common options,
// resets the program state as a fresh installation has it, installs the
// scripted message presenter (messagePresenter(), a ScriptedPresenter that
// has the --answer values queued) and runs the subcommand.
//
// A subcommand writes its plain-text output to ctx.out, or fills ctx.json
// when ctx.jsonOutput is set; main() adds the "messages" list to the JSON
// object and prints it. Failures: print the message with ctx.fail(...) and
// return 1; bad usage: ctx.usage(...) and return 2. Every command refuses an
// option it does not know (ctx.refuseOptions() once its options are taken).
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTextStream>
#include <functional>

#include "shell/MessageService.h"

struct CliContext {
  QStringList args;        // the subcommand's own arguments (common options removed)
  QStringList answers;     // every --answer, in order (also queued in presenter)
  bool jsonOutput = false;
  QJsonObject json;        // the output object when jsonOutput
  QTextStream& out;
  QTextStream& err;

  CliContext(QTextStream& o, QTextStream& e) : out(o), err(e) {}
  int fail(const QString& message);   // message on stderr, returns 1
  int usage(const QString& message);  // usage message on stderr, returns 2
  // Takes "--name VALUE" (or "--name=VALUE") out of args; false when absent.
  bool takeOption(const QString& name, QString& value);
  // Every occurrence of "--name VALUE", in order.
  QStringList takeOptions(const QString& name);
  bool takeFlag(const QString& name);
  // After a command has taken its options: a word left that starts with
  // "--" (and came before a "--" separator) is an option the command does
  // not know, refused with a usage message. 0 when none is left, else 2.
  int refuseOptions();
  qsizetype literalCount = 0;  // trailing args that came after "--"
};

using CliHandler = std::function<int(CliContext&)>;

struct CliCommandInfo {
  QString name;
  QString synopsis;  // one line for --help
  CliHandler run;
  bool needsGui = false;  // draws pictures: runs in a GUI application on the offscreen platform
};

bool registerCliCommand(const QString& name, const QString& synopsis, CliHandler run, bool needsGui = false);
const QList<CliCommandInfo>& cliCommands();

#define CALVIX_CLI_CAT2(a, b) a##b
#define CALVIX_CLI_CAT(a, b) CALVIX_CLI_CAT2(a, b)
#define CALVIX_CLI_COMMAND(name, synopsis, fn) \
  static const bool CALVIX_CLI_CAT(cliRegistered_, __LINE__) = registerCliCommand(QStringLiteral(name), QStringLiteral(synopsis), fn)
// A command that draws (fonts, images): main() makes a GUI application on the
// offscreen platform for it, so it runs without a display.
#define CALVIX_CLI_GUI_COMMAND(name, synopsis, fn) \
  static const bool CALVIX_CLI_CAT(cliRegistered_, __LINE__) = \
      registerCliCommand(QStringLiteral(name), QStringLiteral(synopsis), fn, true)
