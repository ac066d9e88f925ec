// The command-line tool's common options, whatever subcommands exist.
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/support/TestSupport.h"

TEST(CliOptions, HelpListsTheOptionsAndExitsZero) {
  const CliRun r = runCli({QStringLiteral("--help")});
  EXPECT_EQ(r.exitCode, 0);
  for (const char* option : {"--json", "--decimal", "--lang", "--answer", "--version"}) {
    EXPECT_TRUE(r.out.contains(QLatin1String(option))) << option;
  }
}

TEST(CliOptions, VersionPrintsTheProgramName) {
  const CliRun r = runCli({QStringLiteral("--version")});
  EXPECT_EQ(r.exitCode, 0);
  EXPECT_TRUE(r.out.startsWith(QLatin1String("calvix-cli "))) << r.out.toStdString();
}

TEST(CliOptions, BadUsageExitsTwoWithAMessage) {
  const QList<QStringList> cases = {
      {},
      {QStringLiteral("no-such-command")},
      {QStringLiteral("--no-such-option")},
      {QStringLiteral("--lang"), QStringLiteral("de"), QStringLiteral("--help-me")},
      {QStringLiteral("--decimal"), QStringLiteral(";"), QStringLiteral("x")},
      {QStringLiteral("--lang")},
  };
  for (const QStringList& args : cases) {
    const CliRun r = runCli(args);
    EXPECT_EQ(r.exitCode, 2) << args.join(QLatin1Char(' ')).toStdString();
    EXPECT_FALSE(r.err.isEmpty()) << args.join(QLatin1Char(' ')).toStdString();
  }
}

TEST(CliOptions, EverySubcommandRefusesAnOptionItDoesNotKnow) {
  const QStringList commands = {"eval", "keys", "number", "plot", "settings", "stats", "table"};
  for (const QString& command : commands) {
    const CliRun r = runCli({command, QStringLiteral("--nonesuch"), QStringLiteral("5")});
    EXPECT_EQ(r.exitCode, 2) << command.toStdString();
    EXPECT_TRUE(r.err.contains(QLatin1String("--nonesuch"))) << command.toStdString() << r.err.toStdString();
    EXPECT_TRUE(r.out.isEmpty()) << command.toStdString();
  }
  // After "--" a word that looks like an option is an argument.
  const CliRun r = runCli({QStringLiteral("number"), QStringLiteral("--"), QStringLiteral("--5")});
  EXPECT_EQ(r.exitCode, 0) << r.err.toStdString();
}
