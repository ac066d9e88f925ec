// calvix-cli bank: the banking window's model without its window.
//
//   bank deposit|savings|loan --capital C --interest I --time T (--months|--years)
//        [--monthly M] [--increase P] [AFTER]
//   bank file FILE [AFTER]
//   AFTER: [--decimals 0|1|2] [--dates DD/MM/YYYY] [--repay ROW]
//          [--sum COL:FIRST-LAST] [--save FILE]
//   bank rate | bank duration
//
// The boxes are typed through their key filter, then Cálculo is pressed and
// the AFTER steps follow in that order. Prints mensual, total and intereses,
// the table (heads first) and the early repayment's report. Exit 1 when the
// calculation or a later step stops with an error, 2 on bad usage.
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

#include "bank/BankModel.h"
#include "cli/CliCommand.h"
#include "shell/ProgramState.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/RuntimeError.h"

namespace {

struct AfterSteps {
  QString decimals, dates, repay, sum, save;
  bool hasDecimals = false, hasDates = false, hasRepay = false, hasSum = false, hasSave = false;
  double date = 0;
  int repayRow = 0, sumCol = 0, sumFirst = 0, sumLast = 0;
};

int takeAfter(CliContext& ctx, AfterSteps& a) {
  a.hasDecimals = ctx.takeOption(QStringLiteral("--decimals"), a.decimals);
  a.hasDates = ctx.takeOption(QStringLiteral("--dates"), a.dates);
  a.hasRepay = ctx.takeOption(QStringLiteral("--repay"), a.repay);
  a.hasSum = ctx.takeOption(QStringLiteral("--sum"), a.sum);
  a.hasSave = ctx.takeOption(QStringLiteral("--save"), a.save);
  if (a.hasDecimals && a.decimals != QLatin1String("0") && a.decimals != QLatin1String("1") &&
      a.decimals != QLatin1String("2")) {
    return ctx.usage(QStringLiteral("bank: --decimals takes 0, 1 or 2"));
  }
  if (a.hasDates) {
    static const QRegularExpression form(QStringLiteral("^\\d{1,2}/\\d{1,2}/\\d{4}$"));
    try {
      if (!form.match(a.dates).hasMatch()) rt::raise(rt::kTypeMismatch);
      a.date = rt::DateValue(a.dates);
    } catch (const rt::RuntimeError&) {
      return ctx.usage(QStringLiteral("bank: --dates takes DD/MM/YYYY"));
    }
  }
  bool ok = true;
  if (a.hasRepay) a.repayRow = a.repay.toInt(&ok);
  if (!ok) return ctx.usage(QStringLiteral("bank: --repay takes a row number"));
  if (a.hasSum) {
    static const QRegularExpression form(QStringLiteral("^(\\d+):(\\d+)-(\\d+)$"));
    const QRegularExpressionMatch m = form.match(a.sum);
    if (!m.hasMatch()) return ctx.usage(QStringLiteral("bank: --sum takes COL:FIRST-LAST"));
    a.sumCol = m.captured(1).toInt();
    a.sumFirst = m.captured(2).toInt();
    a.sumLast = m.captured(3).toInt();
  }
  return 0;
}

QJsonObject resultJson(const BankModel& m) {
  QJsonObject o;
  o.insert(QStringLiteral("tipo"), m.tipo);
  o.insert(QStringLiteral("capital"), m.capital);
  o.insert(QStringLiteral("interes"), m.interes);
  o.insert(QStringLiteral("tiempo"), m.tiempo);
  o.insert(QStringLiteral("aportemes"), m.aportemes);
  o.insert(QStringLiteral("incremes"), m.incremes);
  o.insert(QStringLiteral("Option2"), m.Option2);
  o.insert(QStringLiteral("numero"), m.numero);
  o.insert(QStringLiteral("mensual"), m.mensual);
  o.insert(QStringLiteral("total"), m.total);
  o.insert(QStringLiteral("intereses"), m.intereses);
  QJsonArray table;
  for (const QStringList& row : m.Bancolist) table.append(QJsonArray::fromStringList(row));
  o.insert(QStringLiteral("Bancolist"), table);
  o.insert(QStringLiteral("report"), m.report);
  return o;
}

void printResults(CliContext& ctx, const BankModel& m) {
  ctx.out << "mensual\t" << m.mensual << '\n' << "total\t" << m.total << '\n' << "intereses\t" << m.intereses << '\n';
  for (const QStringList& row : m.Bancolist) ctx.out << row.join(QLatin1Char('\t')) << '\n';
  if (!m.report.isEmpty()) ctx.out << m.report << '\n';
}

// The message of a step that stopped: the display's text, or the last box
// (already echoed on stderr unless the output is JSON).
int stopped(CliContext& ctx, const BankModel& m, bool onDisplay) {
  if (onDisplay) return ctx.fail(m.numero);
  const auto& shown = static_cast<ScriptedPresenter*>(messagePresenter())->shown();
  if (ctx.jsonOutput && !shown.empty()) ctx.err << shown.back().text << Qt::endl;
  return 1;
}

int finish(CliContext& ctx, const BankModel& m, int code, bool printed) {
  if (ctx.jsonOutput) ctx.json = resultJson(m);
  else if (printed) printResults(ctx, m);
  return code;
}

int runOperation(CliContext& ctx, const QString& word) {
  BankModel m;
  AfterSteps after;
  QString file;
  if (word == QLatin1String("file")) {
    if (ctx.args.isEmpty() || ctx.args.first().startsWith(QLatin1String("--"))) {
      return ctx.usage(QStringLiteral("bank file needs a FILE"));
    }
    file = ctx.args.takeFirst();
  } else {
    const int tipo = word == QLatin1String("deposit") ? 1 : word == QLatin1String("savings") ? 2 : 3;
    m.BanKOperations(tipo);
    const std::pair<const char*, int> boxes[] = {{"--capital", BankModel::kCapital},
                                                 {"--interest", BankModel::kInteres},
                                                 {"--time", BankModel::kTiempo},
                                                 {"--monthly", BankModel::kAportemes},
                                                 {"--increase", BankModel::kIncremes}};
    for (const auto& [option, box] : boxes) {
      QString value;
      if (ctx.takeOption(QLatin1String(option), value)) m.typeInto(box, value);
    }
    const bool months = ctx.takeFlag(QStringLiteral("--months"));
    const bool years = ctx.takeFlag(QStringLiteral("--years"));
    if (months && years) return ctx.usage(QStringLiteral("bank: --months and --years do not go together"));
    m.Option_Click(years);
  }
  if (const int code = takeAfter(ctx, after)) return code;
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("bank: unexpected argument ") + ctx.args.first());

  if (!file.isEmpty() && !m.bancoImport(file)) return finish(ctx, m, stopped(ctx, m, false), false);
  if (after.hasDecimals) m.setFormat(after.decimals.toInt());
  m.Command7_Click();
  if (!m.computed) return finish(ctx, m, stopped(ctx, m, m.errorBeep), false);

  const int dataRows = m.rowCount() - 1;
  if (after.hasDates) {
    m.defineDates(after.date);
    if (!m.Command14) m.Command14_Click();
  }
  int code = 0;
  if (after.hasRepay) {
    if (after.repayRow < 1 || after.repayRow > dataRows) {
      return ctx.usage(QStringLiteral("bank: --repay row outside the table"));
    }
    m.lastErrorCode = 0;
    m.Command9_Click();
    m.Bancolist_Click(after.repayRow);
    if (m.lastErrorCode != 0) code = stopped(ctx, m, false);
  }
  if (after.hasSum) {
    if (after.sumCol < 0 || after.sumCol >= m.columnCount() || after.sumFirst < 1 || after.sumLast > dataRows ||
        after.sumFirst > after.sumLast) {
      return ctx.usage(QStringLiteral("bank: --sum outside the table"));
    }
    m.SumaCol(after.sumCol, after.sumFirst, after.sumLast);
  }
  if (after.hasSave) {
    m.lastErrorCode = 0;
    if (!m.bancoSave(after.save)) code = stopped(ctx, m, false);
  }
  return finish(ctx, m, code, true);
}

int runSolve(CliContext& ctx, bool rate) {
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("bank: unexpected argument ") + ctx.args.first());
  BankModel m;
  if (rate) m.PrestIinteres();
  else m.PrestTiempo();
  const int code = m.errorBeep ? ctx.fail(m.numero) : 0;
  const bool done = !m.infoText.isEmpty();
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("report"), m.infoText);
    ctx.json.insert(QStringLiteral("numero"), m.numero);
    if (done && rate) ctx.json.insert(QStringLiteral("result"), m.rateResult);
    if (done && !rate) {
      ctx.json.insert(QStringLiteral("x"), m.durationX);
      ctx.json.insert(QStringLiteral("months"), m.durationMonths);
    }
  } else if (done) {
    ctx.out << m.infoText << '\n';
  }
  return code;
}

int runBank(CliContext& ctx) {
  if (ctx.args.isEmpty()) return ctx.usage(QStringLiteral("bank needs deposit, savings, loan, file, rate or duration"));
  const QString word = ctx.args.takeFirst();
  if (word == QLatin1String("rate")) return runSolve(ctx, true);
  if (word == QLatin1String("duration")) return runSolve(ctx, false);
  if (word == QLatin1String("deposit") || word == QLatin1String("savings") || word == QLatin1String("loan") ||
      word == QLatin1String("file")) {
    return runOperation(ctx, word);
  }
  return ctx.usage(QStringLiteral("bank: unknown operation ") + word);
}

}  // namespace

CALVIX_CLI_COMMAND("bank",
                   "banking: bank deposit|savings|loan --capital C --interest I --time T (--months|--years) "
                   "[--monthly M] [--increase P] | bank file FILE; then [--decimals 0|1|2] [--dates DD/MM/YYYY] "
                   "[--repay ROW] [--sum COL:FIRST-LAST] [--save FILE]; bank rate | bank duration",
                   runBank);
