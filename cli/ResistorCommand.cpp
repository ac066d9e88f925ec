// calvix-cli resistor: the resistor colour code, either way.
//
//   calvix-cli resistor --bands 3|4|5|6 (COLOUR... | --value V)
//
// COLOUR is one of black brown red orange yellow green blue violet grey white
// gold silver none (the keys Command86(0..12)), painted on band 1, 2... in
// order; then Command87 reads them. --value V goes into Text9 and Command97
// paints the bands (tolerance gold, coefficient the first of the list).
// Lines: value (ohms, number text; empty when a needed band is "x"),
// tolerance (percent), coefficient (the text of Combo3), bands (a word per
// band, "x" unpainted). A value out of the multiplier colours' range prints
// the message on stderr, exit 1; JSON adds error and errorCode.
#include <QJsonObject>

#include "calc/ResistorCode.h"
#include "cli/CliCommand.h"
#include "shell/ErrorReport.h"

namespace {

int runResistor(CliContext& ctx) {
  QString bands, value;
  const bool hasBands = ctx.takeOption(QStringLiteral("--bands"), bands);
  const bool hasValue = ctx.takeOption(QStringLiteral("--value"), value);
  if (const int code = ctx.refuseOptions()) return code;
  const int count = bands.toInt();
  if (!hasBands || count < 3 || count > 6) return ctx.usage(QStringLiteral("resistor takes --bands 3, 4, 5 or 6"));
  if (hasValue == !ctx.args.isEmpty()) return ctx.usage(QStringLiteral("resistor takes colours or --value V"));
  if (ctx.args.size() > count) return ctx.usage(QStringLiteral("resistor: more colours than bands"));

  ResistorCode r;
  r.Option1_Click(count - 3);
  bool failed = false;
  if (hasValue) {
    r.Text9 = value;
    failed = !r.Command97_Click();
  } else {
    for (const QString& word : std::as_const(ctx.args)) {
      const int colour = colourFromWord(word);
      if (colour < 0) return ctx.usage(QStringLiteral("resistor: unknown colour ") + word);
      r.Command86_Click(colour);
    }
    r.Command87_Click();
  }
  if (failed) {
    if (ctx.jsonOutput) {
      ctx.json.insert(QStringLiteral("error"), ErrorText(8));
      ctx.json.insert(QStringLiteral("errorCode"), 8);
    }
    return 1;
  }
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("value"), r.Text8);
    ctx.json.insert(QStringLiteral("tolerance"), r.tolerance);
    ctx.json.insert(QStringLiteral("coefficient"), r.Combo3Text());
    ctx.json.insert(QStringLiteral("bands"), r.bandWords());
    return 0;
  }
  ctx.out << "value\t" << r.Text8 << '\n'
          << "tolerance\t" << r.tolerance << '\n'
          << "coefficient\t" << r.Combo3Text() << '\n'
          << "bands\t" << r.bandWords() << '\n';
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("resistor",
                   "the resistor colour code: resistor --bands 3|4|5|6 (COLOUR... | --value V)\n"
                   "            colours: black brown red orange yellow green blue violet grey white gold silver none",
                   runResistor);
