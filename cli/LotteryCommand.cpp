// calvix-cli lottery: the lottery window's bets model without its window.
//
//   lottery probs N          numbers 1 to N marked by hand; the eight
//                            probability labels, Label7 and Label1
//   lottery bets ACTION...   --bet "n ...", --random N, --pref K ["n ..."],
//                            --delete A-B|all, --open F, --save F, in order;
//                            then the selected bets
//
// A step the window refuses with a message stops the run: the message on
// stderr, exit 1 (JSON still printed). Bad usage: exit 2.
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>

#include "cli/CliCommand.h"
#include "lottery/LotteryModel.h"
#include "shell/Strings.h"

namespace {

const QString kLaterReduction =
    QStringLiteral("comes with the reduction and statistics work (reductions, automatic mode, statistics)");
const QString kLaterDatabase = QStringLiteral("comes with the draw database and analysis work");

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
    if (s.action == QLatin1String("--auto")) return ctx.usage(QStringLiteral("lottery: --auto ") + kLaterReduction);
    if (s.action == QLatin1String("--reduce")) {
      return ctx.usage(QStringLiteral("lottery: --reduce ") + kLaterReduction);
    }
    static const QStringList withValue{"--bet", "--random", "--pref", "--delete", "--open", "--save"};
    if (!withValue.contains(s.action)) return ctx.usage(QStringLiteral("lottery bets: unknown action ") + s.action);
    if (args.isEmpty()) return ctx.usage(QStringLiteral("lottery bets: ") + s.action + QStringLiteral(" needs a value"));
    s.value = args.takeFirst();
    if (s.action == QLatin1String("--pref") && !args.isEmpty() && !args.first().startsWith(QLatin1String("--"))) {
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

int runLottery(CliContext& ctx) {
  if (ctx.args.isEmpty()) return ctx.usage(QStringLiteral("lottery needs probs or bets"));
  const QString word = ctx.args.takeFirst();
  if (word == QLatin1String("probs")) return runProbs(ctx);
  if (word == QLatin1String("bets")) return runBets(ctx);
  if (word == QLatin1String("stats")) return ctx.usage(QStringLiteral("lottery stats ") + kLaterReduction);
  if (word == QLatin1String("import") || word == QLatin1String("analyse")) {
    return ctx.usage(QStringLiteral("lottery ") + word + QLatin1Char(' ') + kLaterDatabase);
  }
  return ctx.usage(QStringLiteral("lottery: unknown operation ") + word);
}

}  // namespace

CALVIX_CLI_COMMAND("lottery", "lottery probs N | lottery bets ACTION...  (bets, probabilities, *.lot files)",
                   runLottery);
