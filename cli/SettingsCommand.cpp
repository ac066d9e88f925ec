// calvix-cli settings: reads, restores and writes the settings file.
//
//   calvix-cli settings --file PATH              read PATH, print every variable it filled
//   calvix-cli settings --restore --write PATH   write the defaults to PATH
//   calvix-cli settings --file IN --write OUT    read IN and write it back as OUT
//
// Reading shows the program's own message when the file is damaged or cut
// short (on stderr, or in "messages" with --json), prints what was read
// before the failure, and ends with exit code 1. Values print in the file's
// own notation: texts in quotes, #TRUE#/#FALSE#, dates as #yyyy-mm-dd#.
#include <QJsonArray>
#include <QJsonObject>

#include "cli/CliCommand.h"
#include "shell/runtime/DateTime.h"
#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/runtime/SequentialFile.h"
#include "shell/Settings.h"
#include "shell/Strings.h"

namespace {

QJsonValue jsonValue(const rt::Variant& v) {
  switch (v.type()) {
    case rt::VType::Empty: return QJsonValue(QJsonValue::Null);
    case rt::VType::String: return v.rawText();
    case rt::VType::Boolean: return v.toBool();
    case rt::VType::Date: return rt::toQDateTime(v.rawNumber()).toString(Qt::ISODate);
    default: return v.rawNumber();
  }
}

int runSettings(CliContext& ctx) {
  QString file;
  QString write;
  const bool haveFile = ctx.takeOption(QStringLiteral("--file"), file);
  const bool haveWrite = ctx.takeOption(QStringLiteral("--write"), write);
  const bool restore = ctx.takeFlag(QStringLiteral("--restore"));
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("settings: unexpected argument ") + ctx.args.first());
  if (!haveFile && !haveWrite) {
    return ctx.usage(QStringLiteral("settings takes --file PATH and/or --restore --write PATH"));
  }

  ProgramState& p = program();
  int code = 0;
  if (haveFile) {
    const SettingsRead r = readSettingsFile(file, p);
    if (r.error != 0) {
      // The message the program shows at start for a damaged file.
      p.MessageSound = 1;
      MBoxShow(3, Res(2961) + QStringLiteral("\n\n") + Res(2962), 3, 0, 0,
               QStringLiteral("Calvix Premium  -  ") + Res(2963));
      code = 1;
    }
    if (ctx.jsonOutput) {
      QJsonArray values;
      for (const SettingsValue& v : r.filled) {
        values.append(QJsonObject{{QStringLiteral("name"), v.name}, {QStringLiteral("value"), jsonValue(v.value)}});
      }
      ctx.json.insert(QStringLiteral("variables"), values);
      ctx.json.insert(QStringLiteral("error"), r.error);
    } else {
      for (const SettingsValue& v : r.filled) {
        ctx.out << v.name << '\t' << QString::fromLatin1(rt::SequentialWriter::encode(v.value)).replace(QLatin1Char('\n'), QStringLiteral("\\n")) << '\n';
      }
    }
  }
  if (restore) RestoreSettings(QStringLiteral("restore"));
  if (haveWrite) {
    if (p.Language == 0) p.Language = 1;
    if (const int error = writeSettingsFile(write, p)) {
      ctx.fail(QStringLiteral("settings: cannot write %1 (error %2)").arg(write).arg(error));
      return 1;
    }
  }
  return code;
}

}  // namespace

CALVIX_CLI_COMMAND("settings", "read, restore or write a settings file: settings [--file PATH] [--restore] [--write PATH]",
                   runSettings);
