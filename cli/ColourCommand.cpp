// calvix-cli colour: the colour viewer after typing one notation.
//
//   calvix-cli colour [--rgb R,G,B | --hls H,L,S | --dec N | --hex T | --html T] [--copy]
//
// The viewer opens as the window has it (131, 131, 131). --rgb types each
// value into txt1(0..2) in turn, --hls into txt2(0..2); --dec, --hex and
// --html empty their field (txtDEC, txtHEX, txtHTML) and type into it. Every
// character goes through the field's key filter, so a refused key is simply
// not typed. --copy then presses botoncopia (R1-R4).
// Plain output: NAME TAB value(s) for scrl, txt1, txt2 (three each), txtDEC,
// txtHEX, txtHTML, txtRGB; JSON the same names plus "registers".
#include <QJsonArray>
#include <QJsonObject>

#include "calc/ColourModel.h"
#include "cli/CliCommand.h"
#include "shell/Registers.h"

namespace {

using Field = ColourModel::Field;

void typeInto(ColourModel& m, Field f, int index, const QString& text) {
  m.clearField(f, index);
  for (QChar c : text) m.typeKey(f, index, c);
}

int runColour(CliContext& ctx) {
  struct Notation {
    const char* option;
    Field field;
    bool triple;
  };
  const Notation notations[] = {{"--rgb", Field::Txt1, true},     {"--hls", Field::Txt2, true},
                                {"--dec", Field::TxtDEC, false},  {"--hex", Field::TxtHEX, false},
                                {"--html", Field::TxtHTML, false}};
  const Notation* chosen = nullptr;
  QString value;
  for (const Notation& n : notations) {
    QString v;
    if (!ctx.takeOption(QString::fromLatin1(n.option), v)) continue;
    if (chosen) return ctx.usage(QStringLiteral("colour takes one of --rgb, --hls, --dec, --hex, --html"));
    chosen = &n;
    value = v;
  }
  const bool copy = ctx.takeFlag(QStringLiteral("--copy"));
  if (const int code = ctx.refuseOptions()) return code;
  if (!ctx.args.isEmpty()) return ctx.usage(QStringLiteral("colour: unexpected argument ") + ctx.args.first());

  ColourModel m;
  if (chosen && chosen->triple) {
    const QStringList parts = value.split(QLatin1Char(','));
    if (parts.size() != 3) return ctx.usage(QStringLiteral("colour %1 takes three values: A,B,C").arg(QLatin1String(chosen->option)));
    for (int i = 0; i < 3; ++i) typeInto(m, chosen->field, i, parts.at(i).trimmed());
  } else if (chosen) {
    typeInto(m, chosen->field, 0, value);
  }
  if (copy) m.botoncopia_Click();

  const auto triple = [](const auto& a) { return QStringList{QString(a[0]), QString(a[1]), QString(a[2])}; };
  const QStringList scrl{QString::number(m.scrl[0]), QString::number(m.scrl[1]), QString::number(m.scrl[2])};
  if (ctx.jsonOutput) {
    ctx.json.insert(QStringLiteral("scrl"), QJsonArray{m.scrl[0], m.scrl[1], m.scrl[2]});
    ctx.json.insert(QStringLiteral("txt1"), QJsonArray::fromStringList(triple(m.txt1)));
    ctx.json.insert(QStringLiteral("txt2"), QJsonArray::fromStringList(triple(m.txt2)));
    ctx.json.insert(QStringLiteral("txtDEC"), m.txtDEC);
    ctx.json.insert(QStringLiteral("txtHEX"), m.txtHEX);
    ctx.json.insert(QStringLiteral("txtHTML"), m.txtHTML);
    ctx.json.insert(QStringLiteral("txtRGB"), m.txtRGB);
    QJsonArray registers;
    for (int i = 0; i < kRegisterCount; ++i) {
      registers.append(QJsonObject{{QStringLiteral("value"), RegisterValue(i)}, {QStringLiteral("label"), RegisterLabel(i)}});
    }
    ctx.json.insert(QStringLiteral("registers"), registers);
    return 0;
  }
  const QLatin1Char tab('\t');
  ctx.out << "scrl\t" << scrl.join(tab) << '\n'
          << "txt1\t" << triple(m.txt1).join(tab) << '\n'
          << "txt2\t" << triple(m.txt2).join(tab) << '\n'
          << "txtDEC\t" << m.txtDEC << '\n'
          << "txtHEX\t" << m.txtHEX << '\n'
          << "txtHTML\t" << m.txtHTML << '\n'
          << "txtRGB\t" << m.txtRGB << '\n';
  return 0;
}

}  // namespace

CALVIX_CLI_COMMAND("colour",
                   "the colour viewer in its six notations: colour [--rgb R,G,B | --hls H,L,S |\n"
                   "            --dec N | --hex T | --html T] [--copy] (typed through the fields' key filters;\n"
                   "            --copy stores red, green, blue and the decimal colour in R1-R4)",
                   runColour);
