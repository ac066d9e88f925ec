// calvix-cli about: Form6's texts and the addresses its controls ask for,
// recorded and never opened.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "shell/AboutModel.h"
#include "shell/Platform.h"
#include "tests/support/TestSupport.h"

namespace {

class AboutCommand : public CalvixTest {};

TEST_F(AboutCommand, PlainLinesInOrder) {
  const CliRun r = runCli({QStringLiteral("about"), QStringLiteral("Command5"), QStringLiteral("Command1")});
  ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
  const QStringList lines = r.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  ASSERT_EQ(lines.size(), 5) << r.out.toStdString();
  EXPECT_EQ(lines.at(0), QStringLiteral("Caption\tAcerca de Calvix Premium"));
  EXPECT_EQ(lines.at(1), QStringLiteral("version\tVersión %1 M. %2 m. Rev. %3")
                             .arg(AboutModel::major())
                             .arg(AboutModel::minor())
                             .arg(AboutModel::revision()));
  EXPECT_EQ(lines.at(2), QStringLiteral("user\t") + accountUserName());
  EXPECT_EQ(lines.at(3), QStringLiteral("opened\t") + AboutModel::kInfoUrl);
  EXPECT_EQ(lines.at(4), QStringLiteral("opened\t") + AboutModel::kUpdatesUrl);
}

TEST_F(AboutCommand, LanguageHelpOpensTheMailOnlyWhenAccepted) {
  const struct {
    QStringList answers;
    int opened;
  } rows[] = {{{}, 1}, {{"--answer", "0"}, 1}, {{"--answer", "1"}, 0}};
  for (const auto& row : rows) {
    const CliRun r = runCli(QStringList{QStringLiteral("--json")} + row.answers +
                            QStringList{QStringLiteral("about"), QStringLiteral("Command3")});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8()).object();
    EXPECT_EQ(o.value("opened").toArray().size(), row.opened);
    EXPECT_EQ(o.value("messages").toArray().size(), 1);
    if (row.opened) {
      EXPECT_EQ(o.value("opened").toArray().at(0).toString(), AboutModel::kAuthorMail);
    }
  }
}

TEST_F(AboutCommand, UnknownEventIsBadUsage) {
  const CliRun r = runCli({QStringLiteral("about"), QStringLiteral("Command1"), QStringLiteral("Command2")});
  EXPECT_EQ(r.exitCode, 2);
  EXPECT_TRUE(r.out.isEmpty());
}

}  // namespace
