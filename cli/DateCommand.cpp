// calvix-cli date: the calendar's models on a fresh installation.
//
//   calvix-cli date info D [--date1 D1] [--date2 D2]
//   calvix-cli date diff D1 D2
//   calvix-cli date add D N yyyy|m|w|d
//   calvix-cli date saints D
//   calvix-cli date saints --search TEXT [--next N]
//   calvix-cli date events ACTION...
//       ACTION: --open F | --save F | --new | --add D | --delete N | --date D | --show K
//       (run in the order given)
//
// Dates are typed YYYY-MM-DD. Message boxes take the --answer values in turn.
#include <QDate>
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <cmath>

#include "calendar/DateInfo.h"
#include "calendar/EventList.h"
#include "calendar/SaintsTable.h"
#include "cli/CliCommand.h"
#include "shell/ProgramState.h"
#include "shell/Strings.h"
#include "shell/runtime/DateTime.h"
#include "shell/runtime/NumberText.h"
#include "shell/runtime/Numeric.h"
#include "shell/runtime/RuntimeError.h"

namespace {

std::optional<double> parseDate(const QString& text) {
  static const QRegularExpression form(QStringLiteral("^(\\d{4})-(\\d{2})-(\\d{2})$"));
  const QRegularExpressionMatch m = form.match(text);
  if (!m.hasMatch()) return std::nullopt;
  const QDate d(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
  if (!d.isValid()) return std::nullopt;
  return rt::DateSerial(d.year(), d.month(), d.day());
}

QString isoDate(double date) { return rt::toQDate(date).toString(Qt::ISODate); }

QJsonArray toJson(const QStringList& list) {
  QJsonArray a;
  for (const QString& s : list) a.append(s);
  return a;
}

// The text of the last message shown, for stderr in JSON mode (the plain mode
// echoes every message as it shows).
void echoLastMessage(CliContext& ctx) {
  if (!ctx.jsonOutput) return;
  auto* presenter = dynamic_cast<ScriptedPresenter*>(messagePresenter());
  if (presenter && !presenter->shown().empty()) ctx.err << presenter->shown().back().text << Qt::endl;
}

int runInfo(CliContext& ctx) {
  QString one, two;
  const bool hasOne = ctx.takeOption(QStringLiteral("--date1"), one);
  const bool hasTwo = ctx.takeOption(QStringLiteral("--date2"), two);
  if (ctx.args.size() != 1) return ctx.usage(QStringLiteral("date info D [--date1 D1] [--date2 D2]"));
  const auto date = parseDate(ctx.args.first());
  const auto d1 = hasOne ? parseDate(one) : std::optional<double>();
  const auto d2 = hasTwo ? parseDate(two) : std::optional<double>();
  if (!date || (hasOne && !d1) || (hasTwo && !d2)) return ctx.usage(QStringLiteral("dates are typed YYYY-MM-DD"));
  ProgramState& p = program();
  p.CalendarDates = {d1.value_or(0), d2.value_or(0)};

  const calendar::MoonPhase moon = calendar::moonPhase(*date);
  const QStringList remaining{calendar::remainingLine(*date, d1), calendar::remainingLine(*date, d2)};
  const QString saints = calendar::SaintsTable().saintsOf(*date);
  const int illumination = static_cast<int>(rt::Round(moon.illumination));
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("header"), calendar::headerLine(*date));
    ctx.json.insert(QStringLiteral("dayOfYear"), calendar::dayOfYear(*date));
    ctx.json.insert(QStringLiteral("week"), calendar::weekOfYear(*date));
    ctx.json.insert(QStringLiteral("remaining"), toJson(remaining));
    ctx.json.insert(QStringLiteral("saints"), saints);
    ctx.json.insert(QStringLiteral("moon"), calendar::moonLine(moon));
    ctx.json.insert(QStringLiteral("phase"), Res(moon.nameId));
    ctx.json.insert(QStringLiteral("illumination"), illumination);
    ctx.json.insert(QStringLiteral("picture"), moon.picture);
    ctx.json.insert(QStringLiteral("zodiac"), calendar::zodiacName(*date));
    return 0;
  }
  ctx.out << "header\t" << calendar::headerLine(*date) << '\n'
          << "dayOfYear\t" << calendar::dayOfYear(*date) << '\n'
          << "week\t" << calendar::weekOfYear(*date) << '\n';
  for (const QString& line : remaining) ctx.out << "remaining\t" << line << '\n';
  ctx.out << "saints\t" << saints << '\n'
          << "moon\t" << calendar::moonLine(moon) << '\n'
          << "phase\t" << Res(moon.nameId) << '\n'
          << "illumination\t" << illumination << '\n'
          << "picture\t" << moon.picture << '\n'
          << "zodiac\t" << calendar::zodiacName(*date) << '\n';
  return 0;
}

int runDiff(CliContext& ctx) {
  if (ctx.args.size() != 2) return ctx.usage(QStringLiteral("date diff D1 D2"));
  const auto a = parseDate(ctx.args.at(0));
  const auto b = parseDate(ctx.args.at(1));
  if (!a || !b) return ctx.usage(QStringLiteral("dates are typed YYYY-MM-DD"));
  const calendar::DateDifference d = calendar::dateDifference(*a, *b);
  const double values[] = {d.yyyy, d.m, d.w, d.d, d.h, d.n, d.s};
  if (ctx.jsonOutput) {
    static const char* const kKeys[] = {"yyyy", "m", "w", "d", "h", "n", "s"};
    ctx.json.insert(QStringLiteral("text"), calendar::differenceText(*a, *b));
    for (int i = 0; i < 7; ++i) ctx.json.insert(QString::fromLatin1(kKeys[i]), values[i]);
    return 0;
  }
  for (int i = 0; i < 7; ++i) ctx.out << Res(365 + i) << rt::NumberToText(values[i]) << '\n';
  return 0;
}

int runAdd(CliContext& ctx) {
  if (ctx.args.size() != 3) return ctx.usage(QStringLiteral("date add D N yyyy|m|w|d"));
  const auto date = parseDate(ctx.args.at(0));
  bool ok = false;
  const double amount = ctx.args.at(1).toDouble(&ok);
  const int unit = QStringList{QStringLiteral("yyyy"), QStringLiteral("m"), QStringLiteral("w"), QStringLiteral("d")}
                       .indexOf(ctx.args.at(2));
  if (!date || !ok || !std::isfinite(amount) || unit < 0)
    return ctx.usage(QStringLiteral("date add D N yyyy|m|w|d, D typed YYYY-MM-DD"));
  double result = 0;
  try {
    result = calendar::addToDate(*date, amount, unit);
  } catch (const rt::RuntimeError&) {
    return ctx.usage(QStringLiteral("the result is outside the calendar"));
  }
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("date"), isoDate(result));
    ctx.json.insert(QStringLiteral("text"), calendar::additionText(*date, amount, unit));
  } else {
    ctx.out << isoDate(result) << '\n';
  }
  return 0;
}

int runSaints(CliContext& ctx) {
  QString text, next;
  const bool searching = ctx.takeOption(QStringLiteral("--search"), text);
  const bool hasNext = ctx.takeOption(QStringLiteral("--next"), next);
  calendar::SaintsTable table;
  if (!searching) {
    const auto date = ctx.args.size() == 1 ? parseDate(ctx.args.first()) : std::nullopt;
    if (!date || hasNext) return ctx.usage(QStringLiteral("date saints D | date saints --search TEXT [--next N]"));
    const QString saints = table.saintsOf(*date);
    if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("saints"), saints);
    else ctx.out << saints << '\n';
    return 0;
  }
  bool ok = true;
  const int times = hasNext ? next.toInt(&ok) : 0;
  if (!ctx.args.isEmpty() || !ok || times < 0 || text.isEmpty())
    return ctx.usage(QStringLiteral("date saints --search TEXT [--next N]"));

  QStringList found;
  auto record = [&](const std::optional<calendar::SaintsRow>& row) {
    if (!row) return false;
    found << row->Fecha.left(5) + QLatin1Char('\t') + row->Santos;
    return true;
  };
  // santobusca answered with TEXT, then santobuscasig as often as asked.
  bool more = record(table.find(text));
  for (int i = 0; more && i < times; ++i) more = record(table.santobuscasig_Click());
  const int code = more ? 0 : 1;
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("found"), toJson(found));
  } else {
    for (const QString& line : found) ctx.out << line << '\n';
  }
  if (code) echoLastMessage(ctx);
  return code;
}

int runEvents(CliContext& ctx) {
  calendar::EventList list;
  QStringList& args = ctx.args;
  int code = 0;
  QString pendingFile;
  QString action;
  // F answers the dialog of its own action. The save dialog of a save offer
  // (before --open or --new) keeps the list's own file, cancelled when it has none.
  list.fileDialog = [&](const calendar::EventList::FileDialogRequest& r) {
    if (r.save && action != QLatin1String("--save")) return list.fileName();
    return pendingFile;
  };
  // Check every action before running any: a bad one is bad usage.
  const QStringList valued{QStringLiteral("--open"), QStringLiteral("--save"), QStringLiteral("--add"),
                           QStringLiteral("--delete"), QStringLiteral("--date"), QStringLiteral("--show")};
  for (int i = 0; i < args.size(); ++i) {
    const QString& a = args.at(i);
    if (a == QLatin1String("--new")) continue;
    if (!valued.contains(a)) return ctx.usage(QStringLiteral("unknown events action ") + a);
    if (i + 1 >= args.size()) return ctx.usage(a + QStringLiteral(" needs a value"));
    const QString& v = args.at(++i);
    if ((a == QLatin1String("--add") || a == QLatin1String("--date")) && !parseDate(v))
      return ctx.usage(QStringLiteral("dates are typed YYYY-MM-DD"));
    bool ok = false;
    if (a == QLatin1String("--delete") && (v.toInt(&ok) < 1 || !ok))
      return ctx.usage(QStringLiteral("--delete takes a line number from 1"));
    if (a == QLatin1String("--show") && (v.toInt(&ok) < 0 || !ok || v.toInt() > 4))
      return ctx.usage(QStringLiteral("--show takes 0 to 4"));
  }
  // In the order given; a double click on a date selects it, as in the month view.
  for (int i = 0; i < args.size(); ++i) {
    const QString& a = args.at(i);
    const QString v = a == QLatin1String("--new") ? QString() : args.at(++i);
    action = a;
    list.clearFailure();
    if (a == QLatin1String("--open")) {
      pendingFile = v;
      list.FileAbre_Click();
    } else if (a == QLatin1String("--save")) {
      pendingFile = v;
      list.FileGuarda_Click();
    } else if (a == QLatin1String("--new")) {
      list.NuevoFile_Click();
    } else if (a == QLatin1String("--add")) {
      list.MonthView1_DblClick(*parseDate(v));
    } else if (a == QLatin1String("--delete")) {
      list.deleteEvent(v.toInt() - 1);
    } else if (a == QLatin1String("--date")) {
      list.select(*parseDate(v));
    } else {
      list.setView(v.toInt());
    }
    if (list.failure() != 0) {
      code = 1;
      echoLastMessage(ctx);
    }
  }
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("List1"), toJson(list.List1()));
    ctx.json.insert(QStringLiteral("forDate"), list.forDateText());
    ctx.json.insert(QStringLiteral("Caption"), list.Caption());
    ctx.json.insert(QStringLiteral("file"), program().EventsFile);
  } else {
    for (const QString& line : list.List1()) ctx.out << line << '\n';
  }
  return code;
}

int runDate(CliContext& ctx) {
  if (ctx.args.isEmpty()) return ctx.usage(QStringLiteral("date info|diff|add|saints|events ..."));
  const QString action = ctx.args.takeFirst();
  if (action == QLatin1String("info")) return runInfo(ctx);
  if (action == QLatin1String("diff")) return runDiff(ctx);
  if (action == QLatin1String("add")) return runAdd(ctx);
  if (action == QLatin1String("saints")) return runSaints(ctx);
  if (action == QLatin1String("events")) return runEvents(ctx);
  return ctx.usage(QStringLiteral("date info|diff|add|saints|events ..."));
}

}  // namespace

CALVIX_CLI_COMMAND("date", "date information, differences, additions, saints and events", runDate);
