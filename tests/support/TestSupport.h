#pragma once
// Shared test fixture: a fresh program state for every test, the decimal symbol
// pinned, and a scripted message presenter that records every message.
#include <gtest/gtest.h>

#include <QLocale>
#include <QMap>
#include <QTemporaryDir>
#include <string>
#include <vector>

#include "shell/MessageService.h"
#include "shell/ProgramState.h"
#include "shell/runtime/RuntimeError.h"

// Readable QString values in failure messages.
inline void PrintTo(const QString& s, std::ostream* os) { *os << '"' << s.toStdString() << '"'; }

// A system that writes 1.5 as "1.5" (group mark ",") or as "1,5" (group mark ".").
QLocale pointLocale();
QLocale commaLocale();

// Gives each test a fresh ProgramState on a "." system, a scripted presenter
// and a temporary AppFolder. Tests that need the "," system call useComma().
class CalvixTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;
  void useComma();
  void usePoint();
  ScriptedPresenter messages;
  QTemporaryDir appFolder;

 private:
  MessagePresenter* previous_ = nullptr;
};

// Path of a file in the source tree (for tests that scan sources or read samples).
QString sourcePath(const QString& relative);

// Runs the built calvix-cli with the given arguments; stdout, stderr and the
// exit code come back.
struct CliRun {
  QString out;
  QString err;
  int exitCode = -1;
};
CliRun runCli(const QStringList& args);
// The "NAME TAB value" lines of a subcommand's plain output, by name; lines
// starting with skip (a repeated field such as "history") are left out.
QMap<QString, QString> outputFields(const QString& out, const QString& skip = {});

// The classic error number a call fails with, or 0 when it does not fail.
template <typename F>
int errorOf(F f) {
  try {
    f();
  } catch (const rt::RuntimeError& e) {
    return e.number();
  }
  return 0;
}

// Table-driven key tests run every row twice: on a "." system and on a "," system.
template <typename Row>
struct SeparatorRun {
  Row row;
  bool comma;
};

template <typename Row, std::size_t N>
std::vector<SeparatorRun<Row>> onBothSeparators(const Row (&rows)[N]) {
  std::vector<SeparatorRun<Row>> runs;
  for (const Row& r : rows) {
    runs.push_back({r, false});
    runs.push_back({r, true});
  }
  return runs;
}

// Test name of a run: the row's name and the separator it ran with.
template <typename Row>
std::string separatorRunName(const ::testing::TestParamInfo<SeparatorRun<Row>>& info) {
  return std::string(info.param.row.name) + (info.param.comma ? "_comma" : "_point");
}
