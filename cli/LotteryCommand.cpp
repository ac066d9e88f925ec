// calvix-cli lottery: the lottery window's bets model without its window.
//
//   lottery probs N          numbers 1 to N marked by hand; the eight
//                            probability labels, Label7 and Label1
//   lottery bets ACTION...   --bet "n ...", --random N, --auto, --pref K
//                            ["n ..."], --reduce K "n ...", --delete A-B|all,
//                            --open F, --save F, in order; then the selected
//                            bets
//   lottery stats [--type P|B|G|all] [--db FILE]
//                            the draw statistics frecDB, a line per number
//   lottery import --csv F --db FILE [--append]
//   lottery analyse (--bet "n ..." | --lot F) [--type P|B|G|all] [--express]
//                   [--db FILE]
//
// A step the window refuses with a message stops the run: the message on
// stderr, exit 1 (JSON still printed). Bad usage: exit 2.
#include <QJsonArray>
#include <QJsonObject>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include "cli/CliCommand.h"
#include "lottery/LotteryModel.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/runtime/NumberText.h"

namespace {

const QStringList kTypes{"P", "B", "G", "all"};

int runProbs(CliContext& ctx) {
  if (ctx.args.size() != 1) return ctx.usage(QStringLiteral("lottery probs needs N (0-49)"));
  bool ok = false;
  const int n = ctx.args.first().toInt(&ok);
  if (!ok || n < 0 || n > 49) return ctx.usage(QStringLiteral("lottery probs: N is 0 to 49"));
  LotteryModel m;
  m.manualoto_Click();
  for (int x = 1; x <= n; ++x) m.Label10_Click(x - 1);
  const QString lit = m.Label1Lit < 0 ? QString() : Res(565 + m.Label1Lit);
  if (ctx.jsonOutput) {
    const auto entry = [](const QString& text, const QString& tooltip) {
      QJsonObject o;
      o.insert(QStringLiteral("text"), text);
      o.insert(QStringLiteral("tooltip"), tooltip);
      return o;
    };
    for (const auto& t : m.texts) ctx.json.insert(t.name, entry(t.text, t.tooltip));
    ctx.json.insert(QStringLiteral("Label7"), entry(m.Label7, QString()));
    ctx.json.insert(QStringLiteral("Label1"), entry(lit, QString()));
    return 0;
  }
  for (const auto& t : m.texts) ctx.out << t.name << '\t' << t.text << '\t' << t.tooltip << '\n';
  ctx.out << "Label7\t" << m.Label7 << '\n' << "Label1\t" << lit << '\n';
  return 0;
}

// "n n n ..." as board numbers; false when a word is not 1 to 49.
bool parseNumbers(const QString& text, QList<int>& out) {
  static const QRegularExpression blanks(QStringLiteral("[\\s,]+"));
  for (const QString& word : text.split(blanks, Qt::SkipEmptyParts)) {
    bool ok = false;
    const int x = word.toInt(&ok);
    if (!ok || x < 1 || x > 49) return false;
    out << x;
  }
  return true;
}

QJsonArray frequencies(const std::array<float, 50>& a) {
  QJsonArray out;
  for (int i = 1; i <= 49; ++i) out.append(static_cast<double>(a[i]));
  return out;
}

int finishBets(CliContext& ctx, const LotteryModel& m, int code) {
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("apuestasSel"), m.apuestasSel);
    QJsonArray rows;
    for (const QStringList& row : m.grid) rows.append(QJsonArray::fromStringList(row));
    ctx.json.insert(QStringLiteral("apuestas"), rows);
    ctx.json.insert(QStringLiteral("frecSel"), frequencies(m.frecSel));
    ctx.json.insert(QStringLiteral("frecTodas"), frequencies(m.frecTodas));
    ctx.json.insert(QStringLiteral("apuestasCambiadas"), m.apuestasCambiadas);
    return code;
  }
  if (code != 0) return code;
  for (const QStringList& row : m.grid) {
    QStringList numbers;
    for (int c = 2; c < LotteryModel::kColumns; ++c) {
      if (!row.at(c).isEmpty()) numbers << row.at(c);
    }
    ctx.out << row.at(0) << '\t' << row.at(1) << '\t' << numbers.join(QLatin1Char(' ')) << '\n';
  }
  return 0;
}

// The step's message was shown by the box (echoed on stderr unless JSON).
int stopped(CliContext& ctx, const LotteryModel& m) {
  const auto& shown = static_cast<ScriptedPresenter*>(messagePresenter())->shown();
  if (ctx.jsonOutput && !shown.empty()) ctx.err << shown.back().text << Qt::endl;
  return finishBets(ctx, m, 1);
}

int runBets(CliContext& ctx) {
  struct Step {
    QString action, value, extra;
  };
  QList<Step> steps;
  QStringList args = ctx.args;
  while (!args.isEmpty()) {
    Step s{args.takeFirst(), {}, {}};
    if (s.action == QLatin1String("--auto")) {
      steps << s;
      continue;
    }
    static const QStringList withValue{"--bet", "--random", "--pref", "--reduce", "--delete", "--open", "--save"};
    if (!withValue.contains(s.action)) return ctx.usage(QStringLiteral("lottery bets: unknown action ") + s.action);
    if (args.isEmpty()) return ctx.usage(QStringLiteral("lottery bets: ") + s.action + QStringLiteral(" needs a value"));
    s.value = args.takeFirst();
    if (s.action == QLatin1String("--pref") && !args.isEmpty() && !args.first().startsWith(QLatin1String("--"))) {
      s.extra = args.takeFirst();
    }
    if (s.action == QLatin1String("--reduce")) {
      if (args.isEmpty()) return ctx.usage(QStringLiteral("lottery bets: --reduce needs K and \"n ...\""));
      s.extra = args.takeFirst();
    }
    steps << s;
  }
  ctx.args.clear();

  LotteryModel m;
  QString answer;
  m.hooks.fileDialog = [&answer](const LotteryModel::FileDialogRequest&) { return answer; };
  for (const Step& s : steps) {
    m.lastErrorCode = 0;
    if (s.action == QLatin1String("--bet")) {
      QList<int> numbers;
      if (!parseNumbers(s.value, numbers)) return ctx.usage(QStringLiteral("lottery: --bet takes numbers 1 to 49"));
      m.manualoto_Click();
      for (int x : numbers) m.Label10_Click(x - 1);
      m.Command9_Click();
    } else if (s.action == QLatin1String("--random")) {
      bool ok = false;
      const int n = s.value.toInt(&ok);
      if (!ok || n < 5 || n > 11) return ctx.usage(QStringLiteral("lottery: --random takes 5 to 11"));
      m.azarloto_Click();
      m.Command1_Click(n - 5);
      m.Command9_Click();
    } else if (s.action == QLatin1String("--auto")) {
      m.modoauto_Click();
    } else if (s.action == QLatin1String("--reduce")) {
      bool ok = false;
      const int k = s.value.toInt(&ok);
      QList<int> numbers;
      if (!ok || k < 0 || k >= kReductionSystems) return ctx.usage(QStringLiteral("lottery: --reduce takes 0 to 4"));
      if (!parseNumbers(s.extra, numbers)) return ctx.usage(QStringLiteral("lottery: --reduce takes numbers 1 to 49"));
      m.lotoReduc5_Click(k);
      for (int x : numbers) m.Label10_Click(x - 1);
      m.Command9_Click();
      if (m.lastErrorCode == 0) m.Command11_Click();  // leaves the method, as the next action needs
    } else if (s.action == QLatin1String("--pref")) {
      bool ok = false;
      const int k = s.value.toInt(&ok);
      QList<int> numbers;
      if (!ok || k < 0 || k > 5) return ctx.usage(QStringLiteral("lottery: --pref takes 0 to 5"));
      if (!parseNumbers(s.extra, numbers)) return ctx.usage(QStringLiteral("lottery: --pref takes numbers 1 to 49"));
      m.pref1_Click(k);
      if (k >= 1 && k <= 3) {
        for (int x : numbers) m.Label10_Click(x - 1);
        m.Command9_Click();
      }
    } else if (s.action == QLatin1String("--delete")) {
      if (s.value == QLatin1String("all")) {
        m.borrapuestod_Click();
        continue;
      }
      static const QRegularExpression range(QStringLiteral("^(\\d+)-(\\d+)$"));
      const QRegularExpressionMatch r = range.match(s.value);
      if (!r.hasMatch()) return ctx.usage(QStringLiteral("lottery: --delete takes A-B or all"));
      const int a = r.captured(1).toInt(), b = r.captured(2).toInt();
      if (a < 1 || b < a || b > m.apuestasSel) {
        return ctx.usage(QStringLiteral("lottery: --delete rows outside the list of ") + QString::number(m.apuestasSel));
      }
      m.mostrarloto_Click();
      m.gridRow = a;
      m.gridRowSel = b;
      m.borraapuessel_Click();
    } else {
      answer = s.value;
      if (s.action == QLatin1String("--open")) m.abrirloto_Click();
      else m.guardarloto_Click();
    }
    if (m.lastErrorCode != 0) return stopped(ctx, m);
  }
  return finishBets(ctx, m, 0);
}

int runImport(CliContext& ctx) {
  QString csv, db;
  if (!ctx.takeOption(QStringLiteral("--csv"), csv) || !ctx.takeOption(QStringLiteral("--db"), db)) {
    return ctx.usage(QStringLiteral("lottery import needs --csv F and --db FILE"));
  }
  const bool append = ctx.takeFlag(QStringLiteral("--append"));
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("lottery import: unexpected argument ") + ctx.args.first());
  QFile f(csv);
  if (!f.open(QIODevice::ReadOnly)) return ctx.fail(QStringLiteral("lottery import: cannot read ") + csv);
  QList<QStringList> rows;
  int badLine = 0;
  if (!parseDrawsCsv(f.readAll(), rows, badLine)) {
    return ctx.fail(QStringLiteral("lottery import: line %1 is not a draw (dd/mm/yyyy,n1,...,n6,complementary,"
                                   "reintegro,P|B|G); nothing imported")
                        .arg(badLine));
  }
  const int count = storeDraws(db, rows, append);
  if (count < 0) return ctx.fail(QStringLiteral("lottery import: ") + db + QStringLiteral(" is not a draw database"));
  if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("draws"), count);
  else ctx.out << count << '\n';
  return 0;
}

int runAnalyse(CliContext& ctx) {
  QString betText, lot, type, db;
  const bool hasBet = ctx.takeOption(QStringLiteral("--bet"), betText);
  const bool hasLot = ctx.takeOption(QStringLiteral("--lot"), lot);
  const bool hasType = ctx.takeOption(QStringLiteral("--type"), type);
  const bool hasDb = ctx.takeOption(QStringLiteral("--db"), db);
  const bool express = ctx.takeFlag(QStringLiteral("--express"));
  if (hasBet == hasLot) return ctx.usage(QStringLiteral("lottery analyse needs --bet \"n ...\" or --lot F"));
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("lottery analyse: unexpected argument ") + ctx.args.first());
  if (hasType && !kTypes.contains(type)) return ctx.usage(QStringLiteral("lottery analyse: --type is P, B, G or all"));
  QList<int> numbers;
  if (hasBet && (!parseNumbers(betText, numbers) || numbers.size() < 5 || numbers.size() > 11)) {
    return ctx.usage(QStringLiteral("lottery analyse: --bet takes 5 to 11 numbers 1 to 49"));
  }
  LotteryModel m;
  if (hasDb && !m.loadDraws(db)) return ctx.fail(QStringLiteral("lottery analyse: ") + db + QStringLiteral(" is not a draw database"));
  if (!hasDb && m.draws.rows.isEmpty()) {
    const QString path = program().AppFolder.toText() + QStringLiteral("cvxlp.dlj");
    if (!QFileInfo::exists(path)) return ctx.fail(QStringLiteral("lottery analyse: no draw database at ") + path);
  }
  if (hasType) m.tipoloto_Click(static_cast<int>(kTypes.indexOf(type)));
  m.LotoInfoExpress = express;
  if (hasBet) {
    m.manualoto_Click();
    for (int x : numbers) m.Label10_Click(x - 1);
    m.Command6_Click();
  } else {
    if (!m.abrirloto(lot)) {
      const auto& shown = static_cast<ScriptedPresenter*>(messagePresenter())->shown();
      if (ctx.jsonOutput && !shown.empty()) ctx.err << shown.back().text << Qt::endl;
      return 1;
    }
    m.analizeTodapu_Click();
  }
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("report"), m.informeLoto);
    QJsonArray premios;
    for (auto p : m.analysis.premios) premios.append(p);
    ctx.json.insert(QStringLiteral("premios"), premios);
    ctx.json.insert(QStringLiteral("sorteosBase"), static_cast<double>(m.analysis.sorteosBase));
    ctx.json.insert(QStringLiteral("premiados"), m.analysis.premiados);
  } else {
    ctx.out << m.informeLoto;
  }
  return 0;
}

int runStats(CliContext& ctx) {
  QString type, db;
  const bool hasType = ctx.takeOption(QStringLiteral("--type"), type);
  const bool hasDb = ctx.takeOption(QStringLiteral("--db"), db);
  if (const int refused = ctx.refuseOptions()) return refused;
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("lottery stats: unexpected argument ") + ctx.args.first());
  if (hasType && !kTypes.contains(type)) return ctx.usage(QStringLiteral("lottery stats: --type is P, B, G or all"));
  LotteryModel m;
  if (hasDb && !m.loadDraws(db)) return ctx.fail(QStringLiteral("lottery stats: ") + db + QStringLiteral(" is not a draw database"));
  if (!hasDb && m.draws.rows.isEmpty()) {
    const QString path = program().AppFolder.toText() + QStringLiteral("cvxlp.dlj");
    if (!QFileInfo::exists(path)) return ctx.fail(QStringLiteral("lottery stats: no draw database at ") + path);
  }
  if (hasType) m.tipoloto_Click(static_cast<int>(kTypes.indexOf(type)));
  const DrawStatistics& s = m.statistics;
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("sorteosBase"), static_cast<double>(s.sorteosBase));
    QJsonArray lists;
    for (const Frequencies& list : s.frecDB) {
      QJsonArray values;
      for (float v : list) values.append(static_cast<double>(v));
      lists.append(values);
    }
    ctx.json.insert(QStringLiteral("frecDB"), lists);
    return 0;
  }
  const QList<QStringList> rows = frequencyRows(s.frecDB[0], s.sorteosBase, 0);
  for (int i = 1; i <= 49; ++i) {
    const QStringList& row = rows.at(i - 1);
    ctx.out << row.at(0) << '\t' << row.at(1) << '\t' << rt::NumberToTextSingle(s.frecDB[1][i]) << '\t'
            << rt::NumberToTextSingle(s.frecDB[2][i]) << '\t' << row.at(2) << '\n';
  }
  return 0;
}

int runLottery(CliContext& ctx) {
  // The window's folder: the draw history sits beside the programs.
  ProgramState& p = program();
  if (p.AppFolder.toText().isEmpty()) {
    p.AppFolder = rt::Variant(QString(QCoreApplication::applicationDirPath() + QLatin1Char('/')));
  }
  if (ctx.args.isEmpty()) return ctx.usage(QStringLiteral("lottery needs probs, bets, import, analyse or stats"));
  const QString word = ctx.args.takeFirst();
  if (word == QLatin1String("probs")) return runProbs(ctx);
  if (word == QLatin1String("bets")) return runBets(ctx);
  if (word == QLatin1String("stats")) return runStats(ctx);
  if (word == QLatin1String("import")) return runImport(ctx);
  if (word == QLatin1String("analyse")) return runAnalyse(ctx);
  return ctx.usage(QStringLiteral("lottery: unknown operation ") + word);
}

}  // namespace

CALVIX_CLI_COMMAND("lottery",
                   "lottery probs N | bets ACTION... | import | analyse | stats  (bets, *.lot files, reductions, "
                   "draw analysis and statistics)",
                   runLottery);
