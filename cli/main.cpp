// calvix-cli: the suite's models without a window, for scripts and for
// checking the program from outside. Every run starts from the program state
// of a fresh installation; no settings file is read or written unless an
// option of the subcommand names one.
#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QTemporaryDir>
#include <cstdio>
#include <memory>

#include "cli/CliCommand.h"
#include "cli/WidgetApplication.h"
#include "shell/ProgramState.h"
#include "shell/Settings.h"

namespace {

// Records and answers like the scripted presenter; without --json it also
// prints each message on stderr as it is shown.
class CliPresenter : public ScriptedPresenter {
 public:
  CliPresenter(QTextStream& err, bool echo) : err_(err), echo_(echo) {}
  MessageReply present(const MessageRequest& request) override {
    if (echo_) {
      err_ << "[" << request.title << "]" << Qt::endl << request.text << Qt::endl;
    }
    return ScriptedPresenter::present(request);
  }

 private:
  QTextStream& err_;
  bool echo_;
};

void printHelp(QTextStream& out) {
  out << "Usage: calvix-cli [options] <command> [arguments]\n\n"
         "Runs the models of Calvix without a window.\n\n"
         "Options (before or after the command):\n"
         "  --help            show this help\n"
         "  --version         show the version\n"
         "  --json            print one JSON object, with the messages shown\n"
         "  --decimal , | .   the decimal symbol the system pretends to have\n"
         "  --lang es|en|fr|ca  language of the texts (default es)\n"
         "  --answer TEXT     answer to the next message box (repeatable)\n\n"
         "Commands:\n";
  for (const CliCommandInfo& c : cliCommands()) {
    out << "  " << c.name.leftJustified(10) << c.synopsis << "\n";
  }
  out.flush();
}

QJsonArray messagesJson(const ScriptedPresenter& presenter) {
  QJsonArray list;
  for (const MessageRequest& m : presenter.shown()) {
    QJsonObject o;
    o.insert(QStringLiteral("title"), m.title);
    o.insert(QStringLiteral("text"), m.text);
    o.insert(QStringLiteral("buttons"), QJsonArray::fromStringList(m.buttons));
    list.append(o);
  }
  return list;
}

// The command word, skipped over as the parser below skips the common
// options, so the application can be made before Qt reads the arguments.
QString commandWord(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const QString a = QString::fromLocal8Bit(argv[i]);
    if (a == QLatin1String("--")) return i + 1 < argc ? QString::fromLocal8Bit(argv[i + 1]) : QString();
    const QString name = a.section(QLatin1Char('='), 0, 0);
    if (!a.contains(QLatin1Char('=')) &&
        (name == QLatin1String("--decimal") || name == QLatin1String("--lang") || name == QLatin1String("--answer"))) {
      ++i;
      continue;
    }
    if (!a.startsWith(QLatin1String("--"))) return a;
  }
  return {};
}

// A GUI application on the offscreen platform for the commands that draw,
// a plain one for the rest.
std::unique_ptr<QCoreApplication> makeApplication(int& argc, char** argv, std::unique_ptr<QTemporaryDir>& runtimeDir) {
  const QString word = commandWord(argc, argv);
  for (const CliCommandInfo& c : cliCommands()) {
    if (c.name == word && c.needsGui) {
      qputenv("QT_QPA_PLATFORM", "offscreen");
      // A GUI application wants a runtime folder; without a session, a private one.
      if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) {
        runtimeDir = std::make_unique<QTemporaryDir>();
        if (runtimeDir->isValid()) qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtimeDir->path()));
      }
      return makeWidgetApplication(argc, argv);  // charts draw with widgets
    }
  }
  return std::make_unique<QCoreApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  std::unique_ptr<QTemporaryDir> runtimeDir;
  const std::unique_ptr<QCoreApplication> app = makeApplication(argc, argv, runtimeDir);
  QTextStream out(stdout);
  QTextStream err(stderr);

  QStringList args = QCoreApplication::arguments().mid(1);
  bool json = false;
  QString decimal;
  QString lang = QStringLiteral("es");
  QStringList answers;
  QString command;
  QStringList rest;
  qsizetype literalCount = 0;

  bool positionalOnly = false;  // after "--" every word is an argument
  for (qsizetype i = 0; i < args.size(); ++i) {
    const QString& a = args.at(i);
    if (positionalOnly) {
      if (command.isEmpty()) {
        command = a;
      } else {
        rest << a;
        ++literalCount;
      }
      continue;
    }
    if (a == QLatin1String("--")) {
      positionalOnly = true;
      continue;
    }
    auto value = [&](QString& target) -> bool {
      if (a.contains(QLatin1Char('='))) {
        target = a.section(QLatin1Char('='), 1);
        return true;
      }
      if (i + 1 >= args.size()) return false;
      target = args.at(++i);
      return true;
    };
    const QString name = a.section(QLatin1Char('='), 0, 0);
    if (a == QLatin1String("--help") || a == QLatin1String("-h")) {
      printHelp(out);
      return 0;
    } else if (a == QLatin1String("--version")) {
      out << "calvix-cli " << QStringLiteral(CALVIX_VERSION) << Qt::endl;
      return 0;
    } else if (a == QLatin1String("--json")) {
      json = true;
    } else if (name == QLatin1String("--decimal") || name == QLatin1String("--lang") ||
               name == QLatin1String("--answer")) {
      QString v;
      if (!value(v)) {
        err << "calvix-cli: " << name << " needs a value" << Qt::endl;
        return 2;
      }
      if (name == QLatin1String("--decimal")) decimal = v;
      else if (name == QLatin1String("--lang")) lang = v;
      else answers << v;
    } else if (command.isEmpty() && !a.startsWith(QLatin1String("--"))) {
      command = a;
    } else if (command.isEmpty()) {
      err << "calvix-cli: unknown option " << a << Qt::endl << "Try 'calvix-cli --help'." << Qt::endl;
      return 2;
    } else {
      rest << a;
    }
  }

  if (command.isEmpty()) {
    printHelp(err);
    return 2;
  }
  const CliCommandInfo* found = nullptr;
  for (const CliCommandInfo& c : cliCommands()) {
    if (c.name == command) found = &c;
  }
  if (!found) {
    err << "calvix-cli: unknown command " << command << Qt::endl << "Try 'calvix-cli --help'." << Qt::endl;
    return 2;
  }

  QLocale locale = QLocale::system();
  if (decimal == QLatin1String(",")) locale = QLocale(QLocale::Spanish, QLocale::Spain);
  else if (decimal == QLatin1String(".")) locale = QLocale(QLocale::English, QLocale::UnitedStates);
  else if (!decimal.isEmpty()) {
    err << "calvix-cli: --decimal takes , or ." << Qt::endl;
    return 2;
  }
  const QStringList langs{QStringLiteral("es"), QStringLiteral("en"), QStringLiteral("fr"), QStringLiteral("ca")};
  const qsizetype langIndex = langs.indexOf(lang);
  if (langIndex < 0) {
    err << "calvix-cli: --lang takes es, en, fr or ca" << Qt::endl;
    return 2;
  }

  resetProgram(locale);
  ProgramState& p = program();
  p.LanguageOffset = static_cast<std::int32_t>(langIndex * 10000);
  p.Language = static_cast<std::int16_t>(langIndex + 1);
  // The read-only data of this installation (the build tree's own folder, or
  // share/calvix beside an installed bin/); a run reads the data tables of a
  // fresh installation from there.
  p.SharedFolder = sharedDataFolder(QCoreApplication::applicationDirPath()) + QLatin1Char('/');
  p.AppFolder = rt::Variant(p.SharedFolder);

  CliPresenter presenter(err, !json);
  for (const QString& a : answers) presenter.queueAnswer(a);
  PresenterScope scope(&presenter);

  CliContext ctx(out, err);
  ctx.args = rest;
  ctx.literalCount = literalCount;
  ctx.answers = answers;
  ctx.jsonOutput = json;
  const int code = found->run(ctx);
  if (json && code != 2) {
    ctx.json.insert(QStringLiteral("messages"), messagesJson(presenter));
    out << QJsonDocument(ctx.json).toJson(QJsonDocument::Indented);
  }
  out.flush();
  err.flush();
  return code;
}
