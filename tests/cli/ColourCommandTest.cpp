// calvix-cli colour: the notations typed through the viewer's key filters.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

namespace {

class ColourCommand : public CalvixTest {};

TEST_F(ColourCommand, EachNotationDrivesTheOthers) {
  const struct {
    QStringList args;
    const char* scrl;
    const char* html;
  } rows[] = {
      {{}, "131\t131\t131", "#838383"},
      {{"--rgb", "255,0,0"}, "255\t0\t0", "#FF0000"},
      {{"--hls", "80,120,240"}, "0\t255\t0", "#00FF00"},
      {{"--dec", "16711680"}, "0\t0\t255", "#0000FF"},
      {{"--hex", "&hFF"}, "255\t0\t0", "#FF0000"},  // "&" is refused by the filter: FF
      // The field typed into keeps the keys it took ("#" is refused).
      {{"--html", "#0000ff"}, "0\t0\t255", "0000ff"},
  };
  for (const auto& row : rows) {
    const CliRun r = runCli(QStringList{QStringLiteral("colour")} + row.args);
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const auto f = outputFields(r.out);
    EXPECT_EQ(f.value("scrl"), QString::fromLatin1(row.scrl)) << row.args.join(' ').toStdString();
    EXPECT_EQ(f.value("txtHTML"), QString::fromLatin1(row.html)) << row.args.join(' ').toStdString();
  }
}

TEST_F(ColourCommand, PrintsEveryFieldAndCopiesToTheRegisters) {
  CliRun r = runCli({QStringLiteral("colour"), QStringLiteral("--rgb"), QStringLiteral("255,0,0")});
  const auto f = outputFields(r.out);
  EXPECT_EQ(QStringList({f.value("txt1"), f.value("txt2"), f.value("txtDEC"), f.value("txtHEX"), f.value("txtRGB")}),
            QStringList({"255\t0\t0", "0\t120\t240", "255", "&h0000FF", "RGB(255,0,0)"}));

  r = runCli({QStringLiteral("--json"), QStringLiteral("colour"), QStringLiteral("--html"), QStringLiteral("102030"),
              QStringLiteral("--copy")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
  EXPECT_EQ(o.value("txtDEC").toString(), QString::number(0x10 + 0x20 * 256 + 0x30 * 65536));
  const QJsonArray registers = o.value("registers").toArray();
  ASSERT_EQ(registers.size(), 4);
  EXPECT_EQ(registers.at(0).toObject().value("value").toDouble(), 16);
  EXPECT_EQ(registers.at(3).toObject().value("value").toDouble(), 0x10 + 0x20 * 256 + 0x30 * 65536);
  EXPECT_EQ(registers.at(1).toObject().value("label").toString(), QStringLiteral("Componente Verde"));
}

TEST_F(ColourCommand, RefusesTwoNotations) {
  const CliRun r = runCli({QStringLiteral("colour"), QStringLiteral("--dec"), QStringLiteral("1"),
                           QStringLiteral("--hex"), QStringLiteral("2")});
  EXPECT_EQ(r.exitCode, 2);
}

}  // namespace
