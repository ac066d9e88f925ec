// calvix-cli number: shows how the runtime reads and writes one number, the
// rules every calculator display follows.
//
//   calvix-cli number [--format PATTERN]... TEXT
//
// Prints the Val reading of TEXT, its locale-aware reading (or the failure),
// and for the locale-aware value: Str, the default text, CInt, Round, Hex and
// each Format asked for.
#include <QJsonArray>
#include <QJsonObject>

#include "cli/CliCommand.h"
#include "shell/runtime/Format.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace {

// Runs one conversion; a run-time failure shows as "Error N".
template <typename F>
QString attempt(F f) {
  try {
    return f();
  } catch (const rt::RuntimeError& e) {
    return QStringLiteral("Error %1").arg(e.number());
  }
}

int runNumber(CliContext& ctx) {
  const QStringList formats = ctx.takeOptions(QStringLiteral("--format"));
  if (const int code = ctx.refuseOptions()) return code;
  if (ctx.args.size() != 1) return ctx.usage(QStringLiteral("number takes one text: number [--format P] TEXT"));
  const QString text = ctx.args.first();

  QList<QPair<QString, QString>> rows;
  rows.append({QStringLiteral("Val"), rt::NumberToText(rt::Val(text))});
  double value = 0;
  const bool readable = rt::tryTextToDouble(text, value);
  rows.append({QStringLiteral("CDbl"), readable ? rt::NumberToText(value) : attempt([&] {
                 return rt::NumberToText(rt::TextToDouble(text));
               })});
  if (readable) {
    rows.append({QStringLiteral("Str"), rt::Str(value)});
    rows.append({QStringLiteral("Text"), rt::NumberToText(value)});
    rows.append({QStringLiteral("CInt"), attempt([&] { return QString::number(rt::CInt(value)); })});
    rows.append({QStringLiteral("CLng"), attempt([&] { return QString::number(rt::CLng(value)); })});
    rows.append({QStringLiteral("Round"), attempt([&] { return rt::NumberToText(rt::Round(value)); })});
    rows.append({QStringLiteral("Hex"), attempt([&] { return rt::Hex(value); })});
    for (const QString& f : formats) {
      rows.append({QStringLiteral("Format ") + f, attempt([&] { return rt::Format(value, f); })});
    }
  }

  if (ctx.jsonOutput) {
    for (const auto& [name, shown] : rows) ctx.json.insert(name, shown);
  } else {
    for (const auto& [name, shown] : rows) ctx.out << name << '\t' << shown << '\n';
  }
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("number", "how the runtime reads and writes a number: number [--format P]... TEXT", runNumber);
