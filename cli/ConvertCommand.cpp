// calvix-cli convert: the unit converter driven by its events.
//
//   calvix-cli convert [--keys "SEQ"] [--table ITEM] [--from U] [--to U] [--value V] [EVENT]...
//   calvix-cli convert --list [--table ITEM]
//
// A fresh converter window's model opens on length; then, in order, the
// click of the magnitude ITEM, a click on unit --from, one on unit --to,
// with --value "Text2=V" and Enter, then each EVENT. U is a button caption
// (outer blanks ignored) or "#i" for Command1(i). --keys first runs the
// scientific calculator on SEQ, as `keys` does: its display is the value a
// conversion takes (without it "0", never taken).
// EVENTs: an item name of the magnitude menu; Command1(i) (0..38);
// Text2=TEXT (emptied, then typed key by key through the "T" filter);
// Enter; Command2, Command4, Command6, Command9; Command3(i) (0..3); borrhis.
// Output: "Label3<TAB>Text4"; --json gives the window's fields.
// --list: item, number of units and magnitude of each table; with --table,
// index, caption and factor (shortest text that reads back the same) of each unit.
#include <QJsonArray>
#include <QJsonObject>
#include <QRegularExpression>
#include <charconv>
#include <cmath>

#include "calc/CalculatorEngine.h"
#include "calc/KeySequence.h"
#include "cli/CliCommand.h"
#include "convert/ConverterModel.h"
#include "shell/Registers.h"
#include "shell/Strings.h"

namespace {

// The shortest text that reads back as the same double, point as decimal
// mark: fixed form from 1e-4 up to 1e16 (an integer below 1e15 without
// ".0"), otherwise "d.ddde+XX".
QString shortestText(double v) {
  char buf[64];
  const auto res = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::scientific);
  const QString sci = QString::fromLatin1(buf, static_cast<qsizetype>(res.ptr - buf));
  const qsizetype e = sci.indexOf(QLatin1Char('e'));
  QString mantissa = sci.left(e);
  const int exponent = sci.mid(e + 1).toInt();
  const bool negative = mantissa.startsWith(QLatin1Char('-'));
  if (negative) mantissa.remove(0, 1);
  QString digits = mantissa;
  digits.remove(QLatin1Char('.'));
  QString text;
  if (exponent < -4 || exponent >= 16) {
    text = digits.left(1);
    if (digits.size() > 1) text += QLatin1Char('.') + digits.mid(1);
    text += QStringLiteral("e%1%2").arg(exponent < 0 ? QLatin1Char('-') : QLatin1Char('+'))
                .arg(std::abs(exponent), 2, 10, QLatin1Char('0'));
  } else if (exponent < 0) {
    text = QStringLiteral("0.") + QString(-exponent - 1, QLatin1Char('0')) + digits;
  } else {
    const int whole = exponent + 1;
    if (digits.size() <= whole) {
      text = digits + QString(whole - digits.size(), QLatin1Char('0'));
      if (std::fabs(v) >= 1e15) text += QStringLiteral(".0");
    } else {
      text = digits.left(whole) + QLatin1Char('.') + digits.mid(whole);
    }
  }
  return negative ? QLatin1Char('-') + text : text;
}

struct Event {
  enum class Kind { Item, Unit, Text, Enter, Reset, Inverse, Exponential, Clear, Register, ClearHistory };
  Kind kind;
  QString text;
  int index = 0;
};

// Parses one EVENT; false with a reason when it names nothing.
bool parseEvent(const QString& token, const UnitTables& tables, Event& event, QString& error) {
  static const QRegularExpression indexed(QStringLiteral("^(Command1|Command3)\\((-?\\d+)\\)$"));
  if (tables.find(token)) {
    event = {Event::Kind::Item, token, 0};
    return true;
  }
  if (token.startsWith(QLatin1String("Text2="))) {
    event = {Event::Kind::Text, token.mid(6), 0};
    return true;
  }
  const QRegularExpressionMatch m = indexed.match(token);
  if (m.hasMatch()) {
    const int i = m.captured(2).toInt();
    const bool units = m.captured(1) == QLatin1String("Command1");
    if (i < 0 || i >= (units ? kUnitButtons : kRegisterCount)) {
      error = QStringLiteral("index out of range: %1").arg(token);
      return false;
    }
    event = {units ? Event::Kind::Unit : Event::Kind::Register, QString(), i};
    return true;
  }
  static const QList<QPair<QString, Event::Kind>> plain{
      {QStringLiteral("Enter"), Event::Kind::Enter},       {QStringLiteral("Command2"), Event::Kind::Reset},
      {QStringLiteral("Command4"), Event::Kind::Inverse},  {QStringLiteral("Command6"), Event::Kind::Exponential},
      {QStringLiteral("Command9"), Event::Kind::Clear},    {QStringLiteral("borrhis"), Event::Kind::ClearHistory}};
  for (const auto& [name, kind] : plain) {
    if (token == name) {
      event = {kind, QString(), 0};
      return true;
    }
  }
  error = QStringLiteral("unknown event: %1").arg(token);
  return false;
}

void runEvent(ConverterModel& model, const Event& e) {
  switch (e.kind) {
    case Event::Kind::Item: model.magnitud_Click(e.text); break;
    case Event::Kind::Unit: model.Command1_Click(e.index); break;
    case Event::Kind::Text: model.typeText2(e.text); break;
    case Event::Kind::Enter: model.Text2_Enter(); break;
    case Event::Kind::Reset: model.Command2_Click(); break;
    case Event::Kind::Inverse: model.Command4_Click(); break;
    case Event::Kind::Exponential: model.Command6_Click(); break;
    case Event::Kind::Clear: model.Command9_Click(); break;
    case Event::Kind::Register: model.Command3_Click(e.index); break;
    case Event::Kind::ClearHistory: model.borrhis_Click(); break;
  }
}

// The button a --from/--to names in the table: a caption or "#i".
int unitOf(const QString& name, const UnitTable& table, QString& error) {
  int index = -1;
  if (name.startsWith(QLatin1Char('#'))) {
    bool ok = false;
    index = name.mid(1).toInt(&ok);
    if (!ok || index < 0 || index >= table.rows.size()) index = -1;
  } else {
    for (qsizetype i = 0; i < table.rows.size(); ++i) {
      if (table.rows.at(i).caption.trimmed() == name.trimmed()) {
        index = static_cast<int>(i);
        break;
      }
    }
  }
  if (index < 0) error = QStringLiteral("no unit %1 in table %2").arg(name, table.item);
  return index;
}

// With --json the same lists come as "tables" (item, units, Label11) or
// "units" (index, caption, factor).
int listTables(CliContext& ctx, const UnitTables& tables, const QString& item) {
  QJsonArray list;
  if (item.isEmpty()) {
    for (const UnitTable& t : tables.tables()) {
      if (ctx.jsonOutput) {
        list.append(QJsonObject{{QStringLiteral("item"), t.item},
                                {QStringLiteral("units"), static_cast<int>(t.rows.size())},
                                {QStringLiteral("Label11"), Res(t.labelId)}});
      } else {
        ctx.out << t.item << '\t' << t.rows.size() << '\t' << Res(t.labelId) << '\n';
      }
    }
    if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("tables"), list);
    return 0;
  }
  const UnitTable* table = tables.find(item);
  if (!table) return ctx.usage(QStringLiteral("convert: unknown table %1").arg(item));
  for (qsizetype i = 0; i < table->rows.size(); ++i) {
    const UnitRow& row = table->rows.at(i);
    if (ctx.jsonOutput) {
      list.append(QJsonObject{{QStringLiteral("index"), static_cast<int>(i)},
                              {QStringLiteral("caption"), row.caption},
                              {QStringLiteral("factor"), row.factor}});
    } else {
      ctx.out << i << '\t' << row.caption << '\t' << shortestText(row.factor) << '\n';
    }
  }
  if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("units"), list);
  return 0;
}

int runConvert(CliContext& ctx) {
  const UnitTables& tables = UnitTables::builtIn();
  QString keys, item, from, to, value;
  const bool hasKeys = ctx.takeOption(QStringLiteral("--keys"), keys);
  ctx.takeOption(QStringLiteral("--table"), item);
  const bool hasFrom = ctx.takeOption(QStringLiteral("--from"), from);
  const bool hasTo = ctx.takeOption(QStringLiteral("--to"), to);
  const bool hasValue = ctx.takeOption(QStringLiteral("--value"), value);
  if (ctx.takeFlag(QStringLiteral("--list"))) {
    if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("convert --list takes only --table"));
    return listTables(ctx, tables, item);
  }

  const UnitTable* table = tables.find(item.isEmpty() ? QStringLiteral("Longitud") : item);
  if (!table) return ctx.usage(QStringLiteral("convert: unknown table %1").arg(item));
  QString error;
  const int fromIndex = hasFrom ? unitOf(from, *table, error) : -1;
  const int toIndex = hasTo ? unitOf(to, *table, error) : -1;
  if (!error.isEmpty()) return ctx.usage(QStringLiteral("convert: ") + error);
  QList<Event> events;
  for (const QString& token : ctx.args) {
    Event e{Event::Kind::Enter, QString(), 0};
    if (!parseEvent(token, tables, e, error)) return ctx.usage(QStringLiteral("convert: ") + error);
    events << e;
  }

  CalculatorEngine calculator;
  if (hasKeys) {
    QList<KeyStep> steps;
    if (!parseKeySequence(keys, steps, error)) return ctx.usage(QStringLiteral("convert --keys: ") + error);
    calculator.Form_Activate();
    runKeySteps(calculator, steps);
  }
  const auto* recorder = dynamic_cast<const ScriptedPresenter*>(messagePresenter());
  const size_t messagesBefore = recorder ? recorder->shown().size() : 0;

  ConverterModel model(tables);
  if (hasKeys) model.calculatorDisplay = [&calculator] { return calculator.numero.text(); };
  model.Form_Load();
  if (!item.isEmpty()) model.magnitud_Click(item);
  if (hasFrom) model.Command1_Click(fromIndex);
  if (hasTo) model.Command1_Click(toIndex);
  if (hasValue) {
    model.typeText2(value);
    model.Text2_Enter();
  }
  for (const Event& e : events) runEvent(model, e);
  const bool failed = recorder && recorder->shown().size() > messagesBefore;

  if (ctx.jsonOutput) {
    QJsonArray selected, registers;
    for (int i : model.selected()) selected.append(i);
    for (int i = 0; i < kRegisterCount; ++i) {
      registers.append(QJsonObject{{QStringLiteral("value"), RegisterValue(i)}, {QStringLiteral("label"), RegisterLabel(i)}});
    }
    ctx.json.insert(QStringLiteral("Label11"), model.Label11);
    ctx.json.insert(QStringLiteral("Label12"), QJsonArray{model.Label12[0], model.Label12[1]});
    ctx.json.insert(QStringLiteral("Label3"), model.Label3);
    ctx.json.insert(QStringLiteral("Text2"), model.Text2);
    ctx.json.insert(QStringLiteral("Text4"), model.Text4);
    ctx.json.insert(QStringLiteral("Label9"), model.Label9);
    ctx.json.insert(QStringLiteral("etapa"), model.etapa);
    ctx.json.insert(QStringLiteral("unidad"), QJsonArray{model.unidad[0], model.unidad[1]});
    ctx.json.insert(QStringLiteral("factorConv"), model.factorConv);
    ctx.json.insert(QStringLiteral("selected"), selected);
    ctx.json.insert(QStringLiteral("List1"), QJsonArray::fromStringList(model.List1));
    ctx.json.insert(QStringLiteral("ListIndex"), model.ListIndex);
    ctx.json.insert(QStringLiteral("registers"), registers);
  } else {
    ctx.out << model.Label3 << '\t' << model.Text4 << '\n';
  }
  return failed ? 1 : 0;
}

}  // namespace

CALVIX_CLI_COMMAND("convert",
                   "the unit converter: convert [--keys \"SEQ\"] [--table ITEM] [--from U] [--to U]\n"
                   "            [--value V] [EVENT]...   U: a button caption or #i\n"
                   "            EVENTs: ITEM Command1(i) Text2=TEXT Enter Command2 Command3(i) Command4\n"
                   "            Command6 Command9 borrhis;  convert --list [--table ITEM]",
                   runConvert);
