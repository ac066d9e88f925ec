// calvix-cli csv: the grid, the presets and separators, the written file, the
// import and its limits, messages and bad usage.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/ErrorReport.h"
#include "shell/Strings.h"
#include "tests/support/TestSupport.h"

namespace {

class CsvCommand : public CalvixTest {
 protected:
  QString write(const char* name, const QByteArray& bytes) {
    const QString path = appFolder.filePath(QString::fromLatin1(name));
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
    return path;
  }
  QJsonObject json(const QStringList& args, int expectedExit = 0) {
    const CliRun r = runCli(QStringList{QStringLiteral("--json"), QStringLiteral("csv")} + args);
    EXPECT_EQ(r.exitCode, expectedExit) << r.err.toStdString();
    return QJsonDocument::fromJson(r.out.toUtf8()).object();
  }
};

TEST_F(CsvCommand, PlainOutputIsTheGridPaddedToItsLastColumn) {
  const QString path = write("ing.csv", "a,b,c\r\n1.5,2\r\n");
  const CliRun r = runCli({QStringLiteral("csv"), QStringLiteral("--file"), path, QStringLiteral("--preset"),
                           QStringLiteral("ing")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("a\tb\tc\n1,5\t2\t\n"));
}

TEST_F(CsvCommand, DecimalCommaImportOnACommaSystem) {
  const QString path = write("d.csv", "x,y\r\n1.5,2\r\n2.5,4\r\n");
  const QJsonObject o = json({QStringLiteral("--decimal"), QStringLiteral(","), QStringLiteral("--file"), path,
                              QStringLiteral("--detect"), QStringLiteral("--out"), QStringLiteral(";,"),
                              QStringLiteral("--write"), QStringLiteral("--x"), QStringLiteral("1"),
                              QStringLiteral("--y"), QStringLiteral("2"), QStringLiteral("--import")});
  EXPECT_EQ(o.value(QStringLiteral("Label3")).toString(), QStringLiteral("dCvx.csv"));
  EXPECT_EQ(o.value(QStringLiteral("Combo1")).toArray(), (QJsonArray{Res(1904), Res(1905)}));
  EXPECT_EQ(o.value(QStringLiteral("Label5")).toArray(), (QJsonArray{QStringLiteral("1"), QStringLiteral("2")}));
  EXPECT_EQ(o.value(QStringLiteral("nx")).toInt(), 2);
  EXPECT_EQ(o.value(QStringLiteral("X")).toArray(), (QJsonArray{1.5, 2.5}));
  EXPECT_EQ(o.value(QStringLiteral("sumY")).toDouble(), 6.0);
  QFile out(appFolder.filePath(QStringLiteral("dCvx.csv")));
  ASSERT_TRUE(out.open(QIODevice::ReadOnly));
  EXPECT_EQ(out.readAll(), QByteArray("x;y\r\n1,5;2\r\n2,5;4\r\n"));
}

TEST_F(CsvCommand, ImportReplacesOnlyTheChosenListOfTheKeyedStore) {
  const QString path = write("y.csv", "7;8\r\n");
  const QJsonObject o = json({QStringLiteral("--keys"), QStringLiteral("1 X 2 Y 3 Y"), QStringLiteral("--file"), path,
                              QStringLiteral("--in"), QStringLiteral(";,"), QStringLiteral("--out"),
                              QStringLiteral(";,"), QStringLiteral("--y"), QStringLiteral("2"),
                              QStringLiteral("--import")});
  EXPECT_EQ(o.value(QStringLiteral("X")).toArray(), QJsonArray{1.0});
  EXPECT_EQ(o.value(QStringLiteral("Y")).toArray(), QJsonArray{8.0});
}

TEST_F(CsvCommand, MessagesGoToStderrAndExitWithOne) {
  const QString txt = write("d.txt", "1\r\n");
  CliRun r = runCli({QStringLiteral("csv"), QStringLiteral("--file"), txt});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(Res(2901))) << r.err.toStdString();
  const QString csv = write("n.csv", "1\r\n");
  r = runCli({QStringLiteral("csv"), QStringLiteral("--file"), csv, QStringLiteral("--import")});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_TRUE(r.err.contains(Res(2300))) << r.err.toStdString();
  EXPECT_EQ(r.out, QStringLiteral("1\n"));  // the run went on
}

TEST_F(CsvCommand, BadUsageExitsWithTwo) {
  const QStringList bad[] = {
      {QStringLiteral("--preset"), QStringLiteral("fr")},
      {QStringLiteral("--in"), QStringLiteral(";")},
      {QStringLiteral("--out"), QStringLiteral(";x")},
      {QStringLiteral("--x"), QStringLiteral("0")},
      {QStringLiteral("--y"), QStringLiteral("1.5")},
  };
  for (const QStringList& args : bad) {
    const CliRun r = runCli(QStringList{QStringLiteral("csv")} + args);
    EXPECT_EQ(r.exitCode, 2) << args.join(u' ').toStdString();
  }
}

}  // namespace
