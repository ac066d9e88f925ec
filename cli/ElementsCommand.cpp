// calvix-cli element and molweight: the periodic table's model, reading
// cvxtp.dlj from the application folder as the window does.
//
//   calvix-cli element Z|SYMBOL
//     Clicks the button of that element and prints each label of the sheet,
//     "name<TAB>text as shown", in the table's field order, then
//     simbolosColor. --json: the same keys.
//
//   calvix-cli molweight TOKENS...
//   calvix-cli molweight --formula FORMULA
//     Enters the molecular-weight mode and runs the tokens: a symbol clicks
//     that element, a number presses its digits, Command123 the subscript,
//     Command112 clears. A formula (C6H12O6) clicks each symbol and, after a
//     count, presses its digits and the subscript. Prints formula and masa;
//     --json adds nn, pesoMol and ultimo.
//
// A number, symbol or token the table does not know is bad usage (exit 2).
#include <QCoreApplication>
#include <QJsonObject>
#include <QRegularExpression>

#include "cli/CliCommand.h"
#include "elements/PeriodicTable.h"
#include "shell/ProgramState.h"

namespace {

const QString kElementUsage = QStringLiteral("usage: element Z|SYMBOL  (Z from 1 to 111, or a symbol such as Au)");
const QString kMolweightUsage =
    QStringLiteral("usage: molweight TOKENS... | molweight --formula FORMULA  (tokens: symbols, numbers, "
                   "Command123, Command112)");

// The window's model with its table, as the window loads it.
void loadTable(PeriodicTable& table) {
  ProgramState& p = program();
  if (p.AppFolder.toText().isEmpty()) p.AppFolder = rt::Variant(QString(QCoreApplication::applicationDirPath() + QLatin1Char('/')));
  table.Form_Load();
}

bool isNumber(const QString& token) {
  static const QRegularExpression digits(QStringLiteral("^[0-9]+$"));
  return digits.match(token).hasMatch();
}

int runElement(CliContext& ctx) {
  if (ctx.args.size() != 1) return ctx.usage(kElementUsage);
  const QString arg = ctx.args.first();
  int z = 0;
  if (isNumber(arg)) {
    bool ok = false;
    z = arg.toInt(&ok);
    if (!ok) z = 0;
  } else {
    z = PeriodicTable::atomicNumberOf(arg);
  }
  if (z < 1 || z > kElementCount) return ctx.usage(kElementUsage);

  PeriodicTable table;
  loadTable(table);
  table.zeta_Click(z);
  for (int i = 0; i < kElementFieldCount; ++i) {
    const QString name = elementFieldName(i);
    const QString& shown = table.sheet[static_cast<std::size_t>(i)];
    if (ctx.jsonOutput) ctx.json.insert(name, shown);
    else ctx.out << name << '\t' << shown << '\n';
  }
  if (ctx.jsonOutput) ctx.json.insert(QStringLiteral("simbolosColor"), static_cast<double>(table.simbolosColor));
  else ctx.out << "simbolosColor\t" << table.simbolosColor << '\n';
  return 0;
}

// One step of the builder, as the keys would run it.
struct Step {
  enum Kind { Element, Digits, Subscript, Clear };
  Kind kind = Element;
  int z = 0;
  QString digits;
  static Step element(int z) { return {Element, z, {}}; }
  static Step typed(const QString& digits) { return {Digits, 0, digits}; }
  static Step key(Kind k) { return {k, 0, {}}; }
};

bool parseTokens(const QStringList& args, QList<Step>& steps) {
  for (const QString& arg : args) {
    for (const QString& token : arg.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts)) {
      if (token == QLatin1String("Command123")) steps.append(Step::key(Step::Subscript));
      else if (token == QLatin1String("Command112")) steps.append(Step::key(Step::Clear));
      else if (isNumber(token)) steps.append(Step::typed(token));
      else if (const int z = PeriodicTable::atomicNumberOf(token); z > 0) steps.append(Step::element(z));
      else return false;
    }
  }
  return true;
}

// C6H12O6: each symbol, and after a count its digits and the subscript.
bool parseFormula(const QString& formula, QList<Step>& steps) {
  static const QRegularExpression part(QStringLiteral("([A-Z][a-z]*)([0-9]*)"));
  qsizetype at = 0;
  while (at < formula.size()) {
    const QRegularExpressionMatch m = part.match(formula, at, QRegularExpression::NormalMatch,
                                                 QRegularExpression::AnchorAtOffsetMatchOption);
    if (!m.hasMatch()) return false;
    const int z = PeriodicTable::atomicNumberOf(m.captured(1));
    if (z == 0) return false;
    steps.append(Step::element(z));
    if (!m.captured(2).isEmpty()) {
      steps.append(Step::typed(m.captured(2)));
      steps.append(Step::key(Step::Subscript));
    }
    at = m.capturedEnd();
  }
  return !formula.isEmpty();
}

int runMolweight(CliContext& ctx) {
  QString formula;
  const bool byFormula = ctx.takeOption(QStringLiteral("--formula"), formula);
  QList<Step> steps;
  if (byFormula) {
    if (!ctx.args.isEmpty() || !parseFormula(formula, steps)) return ctx.usage(kMolweightUsage);
  } else if (!parseTokens(ctx.args, steps)) {
    return ctx.usage(kMolweightUsage);
  }

  PeriodicTable table;
  loadTable(table);
  table.calculo_Click();
  for (const Step& s : steps) {
    switch (s.kind) {
      case Step::Element: table.zeta_Click(s.z); break;
      case Step::Digits:
        for (QChar c : s.digits) table.Command1_Click(c.digitValue());
        break;
      case Step::Subscript: table.Command123_Click(); break;
      case Step::Clear: table.Command112_Click(); break;
    }
  }

  const MolecularWeight& w = table.weight;
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("formula"), w.formula);
    ctx.json.insert(QStringLiteral("masa"), w.masa);
    ctx.json.insert(QStringLiteral("nn"), w.nn);
    ctx.json.insert(QStringLiteral("pesoMol"), w.pesoMol);
    ctx.json.insert(QStringLiteral("ultimo"), w.ultimo);
  } else {
    ctx.out << w.formula << '\n' << w.masa << '\n';
  }
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("element", "the data sheet of an element: element Z|SYMBOL", runElement);
CALVIX_CLI_COMMAND("molweight", "molecular weight: molweight TOKENS... | molweight --formula FORMULA", runMolweight);
