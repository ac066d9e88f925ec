#pragma once
// What every fuzz target shares: a fresh program state before each input (a
// "." system, Spanish texts), a scripted presenter that answers every
// message with its default, and a scratch folder for readers that take a
// path. Targets link the logic libraries only.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QString>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "shell/MessageService.h"
#include "shell/ProgramState.h"

namespace fuzz {

inline QByteArray bytesOf(const std::uint8_t* data, std::size_t size) {
  return QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
}

class Session {
 public:
  Session() { setMessagePresenter(&messages); }

  // Before each input: the state of a fresh start and no message left over.
  void reset() {
    resetProgram(QLocale::c());
    program().AppFolder = rt::Variant(folder_.path() + QLatin1Char('/'));
    messages.clear();
  }

  // Writes the bytes to a file of that name in the scratch folder.
  QString file(const QString& name, const QByteArray& bytes) {
    const QString path = QDir(folder_.path()).filePath(name);
    QFile f(path);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate)) f.write(bytes);
    return path;
  }

  ScriptedPresenter messages;

 private:
  QTemporaryDir folder_;
};

// A broken promise of the code under test: libFuzzer records the input.
[[noreturn]] inline void finding() { std::abort(); }

}  // namespace fuzz
