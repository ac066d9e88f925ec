#include "tests/support/TestSupport.h"

#include <QDir>

QLocale pointLocale() { return QLocale(QLocale::English, QLocale::UnitedStates); }
QLocale commaLocale() { return QLocale(QLocale::Spanish, QLocale::Spain); }

void CalvixTest::SetUp() {
  resetProgram(pointLocale());
  program().AppFolder = rt::Variant(appFolder.path() + QLatin1Char('/'));
  previous_ = messagePresenter();
  setMessagePresenter(&messages);
}

void CalvixTest::TearDown() { setMessagePresenter(previous_); }

void CalvixTest::useComma() {
  setSystemLocale(commaLocale());
  program().DecimalSymbol = QStringLiteral(",");
}

void CalvixTest::usePoint() {
  setSystemLocale(pointLocale());
  program().DecimalSymbol = QStringLiteral(".");
}

QString sourcePath(const QString& relative) {
  QString root = qEnvironmentVariable("CALVIX_SOURCE_DIR");
  if (root.isEmpty()) root = QStringLiteral(CALVIX_SOURCE_DIR);
  return QDir(root).filePath(relative);
}

#include <QProcess>

CliRun runCli(const QStringList& args) {
  QProcess p;
  p.setProgram(QDir(QStringLiteral(CALVIX_BIN_DIR)).filePath(QStringLiteral("calvix-cli")));
  p.setArguments(args);
  p.start();
  CliRun r;
  if (!p.waitForFinished(60000)) {
    p.kill();
    r.err = QStringLiteral("calvix-cli did not finish");
    return r;
  }
  r.out = QString::fromUtf8(p.readAllStandardOutput());
  r.err = QString::fromUtf8(p.readAllStandardError());
  r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
  return r;
}

QMap<QString, QString> outputFields(const QString& out, const QString& skip) {
  QMap<QString, QString> map;
  for (const QString& line : out.split(QLatin1Char('\n'))) {
    const qsizetype tab = line.indexOf(QLatin1Char('\t'));
    if (tab < 0 || (!skip.isEmpty() && line.startsWith(skip))) continue;
    map.insert(line.left(tab), line.mid(tab + 1));
  }
  return map;
}
