#include "cli/CliCommand.h"

#include <algorithm>

namespace {
QList<CliCommandInfo>& registry() {
  static QList<CliCommandInfo> commands;
  return commands;
}
}  // namespace

bool registerCliCommand(const QString& name, const QString& synopsis, CliHandler run, bool needsGui) {
  registry().append({name, synopsis, std::move(run), needsGui});
  return true;
}

const QList<CliCommandInfo>& cliCommands() { return registry(); }

int CliContext::fail(const QString& message) {
  err << message << Qt::endl;
  return 1;
}

int CliContext::usage(const QString& message) {
  err << "calvix-cli: " << message << Qt::endl << "Try 'calvix-cli --help'." << Qt::endl;
  return 2;
}

bool CliContext::takeOption(const QString& name, QString& value) {
  for (qsizetype i = 0; i < args.size(); ++i) {
    const QString& a = args.at(i);
    if (a == name && i + 1 < args.size()) {
      value = args.at(i + 1);
      args.remove(i, 2);
      return true;
    }
    if (a.startsWith(name + QLatin1Char('='))) {
      value = a.mid(name.size() + 1);
      args.remove(i);
      return true;
    }
  }
  return false;
}

QStringList CliContext::takeOptions(const QString& name) {
  QStringList values;
  QString v;
  while (takeOption(name, v)) values << v;
  return values;
}

bool CliContext::takeFlag(const QString& name) { return args.removeAll(name) > 0; }

int CliContext::refuseOptions() {
  const qsizetype options = args.size() - std::min(literalCount, args.size());
  for (qsizetype i = 0; i < options; ++i) {
    const QString& a = args.at(i);
    if (a.startsWith(QLatin1String("--")) && a.size() > 2) {
      return usage(QStringLiteral("unknown option or option without its value: ") + a);
    }
  }
  return 0;
}
