// calvix-cli geometry: the geometry window's model, from its fresh defaults.
//
//   calvix-cli geometry [--decimals N] [--prev|--next]... [--copy] NAME [LABEL=VALUE]...
//   calvix-cli geometry --list
//   calvix-cli geometry --calc EXPR
//
// NAME is chosen from the list; each --prev/--next then moves one row (with
// wrap-around); each LABEL=VALUE is typed into the visible box of that label
// (case-sensitive; "." and "," type the decimal symbol). With any LABEL=VALUE
// the figure is calculated; --copy then copies the results to R1-R3.
// Prints one line per shown result line: title, result text and formula
// text, tab-separated. A refused figure prints nothing and exits 1. --calc
// types EXPR into the inline calculator and presses Enter.
#include <QJsonArray>
#include <QJsonObject>

#include "cli/CliCommand.h"
#include "geometry/GeometryModel.h"
#include "shell/Registers.h"
#include "shell/Services.h"
#include "shell/Strings.h"

namespace {

QJsonArray toJson(const QStringList& list) { return QJsonArray::fromStringList(list); }

QJsonArray registersJson() {
  QJsonArray r;
  for (int i = 0; i < kRegisterCount; ++i) {
    r.append(QJsonObject{{QStringLiteral("value"), RegisterValue(i)}, {QStringLiteral("label"), RegisterLabel(i)}});
  }
  return r;
}

int runList(CliContext& ctx) {
  GeometryModel model;
  model.Form_Load();
  QJsonArray rows;
  for (int i = 0; i < model.Combo1Items.size(); ++i) {
    if (ctx.jsonOutput) {
      rows.append(QJsonObject{{QStringLiteral("FigureIndex"), i + 1}, {QStringLiteral("name"), model.Combo1Items.at(i)}});
    } else {
      ctx.out << i + 1 << '\t' << model.Combo1Items.at(i) << '\n';
    }
  }
  if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("figures"), rows);
  return 0;
}

int runCalc(CliContext& ctx, const QString& expression) {
  GeometryModel model;
  model.Form_Load();
  model.Text3 = expression;
  model.Text3_KeyPress(kKeyEnter, false);
  if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("Text3"), model.Text3);
  if (!model.calcError.isEmpty()) return ctx.fail(model.calcError);
  if (!ctx.jsonOutput) ctx.out << model.Text3 << '\n';
  return 0;
}

int runGeometry(CliContext& ctx) {
  if (ctx.takeFlag(QStringLiteral("--list"))) {
    if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("geometry --list takes nothing else"));
    return runList(ctx);
  }
  QString expression;
  if (ctx.takeOption(QStringLiteral("--calc"), expression)) {
    if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("geometry --calc takes one expression"));
    return runCalc(ctx, expression);
  }

  QString decimalsText;
  const bool decimals = ctx.takeOption(QStringLiteral("--decimals"), decimalsText);
  int places = 0;
  if (decimals) {
    bool ok = false;
    places = decimalsText.toInt(&ok);
    if (!ok || places < 0 || places > 15) return ctx.usage(QStringLiteral("--decimals takes 0 to 15"));
  }
  const bool copy = ctx.takeFlag(QStringLiteral("--copy"));
  QList<bool> moves;  // true: next
  QString name;
  QList<QPair<QString, QString>> typed;
  for (const QString& a : std::as_const(ctx.args)) {
    if (a == QLatin1String("--next") || a == QLatin1String("--prev")) {
      moves << (a == QLatin1String("--next"));
    } else if (a.startsWith(QLatin1String("--"))) {
      return ctx.usage(QStringLiteral("geometry: unknown option ") + a);
    } else if (name.isEmpty() && !a.contains(u'=')) {
      name = a;
    } else if (a.contains(u'=')) {
      typed.append({a.section(u'=', 0, 0), a.section(u'=', 1)});
    } else {
      return ctx.usage(QStringLiteral("geometry: unexpected argument ") + a);
    }
  }
  if (name.isEmpty()) {
    return ctx.usage(QStringLiteral("geometry [--decimals N] [--prev|--next]... [--copy] NAME [LABEL=VALUE]..."));
  }

  GeometryModel model;
  model.Form_Load();
  const qsizetype listIndex = model.Combo1Items.indexOf(name);
  if (listIndex < 0) return ctx.usage(QStringLiteral("geometry: unknown figure ") + name + QStringLiteral(" (see --list)"));
  model.Combo1_Click(static_cast<int>(listIndex));
  for (bool next : std::as_const(moves)) model.chameleonButton1_Click(next);
  if (decimals) {
    model.UpDown1_Change(places);
    model.Check1_Click(true);
  }
  for (const auto& [label, value] : std::as_const(typed)) {
    const int box = model.boxOf(label);
    if (box < 0) return ctx.usage(QStringLiteral("geometry: ") + model.Label4 + QStringLiteral(" has no box ") + label);
    model.typeText1(box, value);
  }
  if (!typed.isEmpty()) model.chameleonButton2_Click();
  if (copy) model.chameleonButton3_Click();
  const bool refused = !model.refusal.isEmpty();

  if (ctx.jsonOutput) {
    QStringList labels, texts, titles, results, formulas, notes;
    for (int i = 0; i < model.visibleBoxes; ++i) {
      labels << model.Label1[i];
      texts << model.Text1[i];
    }
    for (int i = 0; i < GeometryModel::kLines; ++i) {
      if (!model.lineVisible[i]) continue;
      titles << model.Label2[i];
      results << model.Text2[i];
      formulas << model.Picture3[i];
    }
    for (const auto& n : model.notes) notes << n.label + n.text;
    ctx.json.insert(QStringLiteral("Label4"), model.Label4);
    ctx.json.insert(QStringLiteral("FigureIndex"), model.figureIndex());
    ctx.json.insert(QStringLiteral("Label1"), toJson(labels));
    ctx.json.insert(QStringLiteral("Text1"), toJson(texts));
    ctx.json.insert(QStringLiteral("Label2"), toJson(titles));
    ctx.json.insert(QStringLiteral("Text2"), toJson(results));
    ctx.json.insert(QStringLiteral("Picture3"), toJson(formulas));
    ctx.json.insert(QStringLiteral("notes"), toJson(notes));
    ctx.json.insert(QStringLiteral("registers"), registersJson());
    // Without --json the message box has already shown the reason on stderr.
    if (refused) return ctx.fail(Res(2800) + QStringLiteral(":  ") + model.refusal);
    return 0;
  }
  if (refused) return 1;
  for (int i = 0; i < GeometryModel::kLines; ++i) {
    if (!model.lineVisible[i]) continue;
    ctx.out << model.Label2[i] << '\t' << model.Text2[i] << '\t' << model.Picture3[i] << '\n';
  }
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("geometry",
                   "areas and volumes: geometry [--decimals N] [--prev|--next]... [--copy] NAME [LABEL=VALUE]... | "
                   "--list | --calc EXPR",
                   runGeometry);
