// The runtime rules stand alone: no file of shell/runtime includes a header
// of another folder of the project, so they build and test on Qt Core only.
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "tests/support/TestSupport.h"

TEST(RuntimeLayering, IncludesOnlyItsOwnFolderAndQt) {
  const QDir dir(sourcePath(QStringLiteral("shell/runtime")));
  const QStringList files = dir.entryList({QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files);
  ASSERT_GT(files.size(), 10);
  const QRegularExpression projectInclude(QStringLiteral("^#include \"([^\"]+)\""),
                                          QRegularExpression::MultilineOption);
  for (const QString& name : files) {
    QFile f(dir.filePath(name));
    ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << name.toStdString();
    const QString text = QString::fromUtf8(f.readAll());
    for (auto it = projectInclude.globalMatch(text); it.hasNext();) {
      const QString header = it.next().captured(1);
      EXPECT_TRUE(header.startsWith(QLatin1String("shell/runtime/"))) << name.toStdString() << " includes "
                                                                       << header.toStdString();
    }
  }
}
