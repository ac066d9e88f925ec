#pragma once
// The sequential text form shared by every file the program writes
// (settings, statistics, tables, bets, events...).
//
// Writing (the classic "Write #"): values on one line separated by one comma;
// a text in double quotes with no escaping; a number with a point and no
// quotes (no leading blank); a Boolean as #TRUE# / #FALSE#; a date as
// #yyyy-mm-dd#, #hh:mm:ss# or #yyyy-mm-dd hh:mm:ss#; Empty as nothing;
// each statement ends its line with CR LF.
//
// Reading (the classic "Input #"): fields split at commas and line ends
// outside quotes; each read takes one field into the type asked for. A read
// past the end is error 62, a field that does not fit the type is error 13
// (or 6 for an integer out of range).
//
// Bytes on disk are Windows-1252, as the classic files are.
#include <QByteArray>
#include <QString>
#include <QStringList>
#include <cstdint>
#include <initializer_list>

#include "shell/runtime/Variant.h"

namespace rt {

class SequentialWriter {
 public:
  // One "Write #" statement: the values, separated by commas, then CR LF.
  void write(std::initializer_list<Variant> values);
  void write(const QList<Variant>& values);
  // "Print #" of one line of text, then CR LF.
  void printLine(const QString& line);
  const QByteArray& bytes() const { return bytes_; }

  // The text of one value as "Write #" puts it.
  static QByteArray encode(const Variant& v);

 private:
  QByteArray bytes_;
};

class SequentialReader {
 public:
  explicit SequentialReader(QByteArray bytes);

  bool atEnd() const;  // EOF(): no byte left to read
  QString readText();
  double readDouble();
  float readSingle();
  std::int16_t readInteger();
  std::int32_t readLong();
  bool readBoolean();
  double readDate();
  // A field into a variant: quoted -> text, #TRUE#/#FALSE# -> Boolean,
  // #...# -> date, a number -> Integer, Long or Double by its size and form,
  // nothing -> Empty.
  Variant readVariant();
  // "Line Input #": the rest of the current line, without its CR LF.
  QString readLine();
  // True when the last field read was whole: a quoted text had its closing
  // quote, any other field ended at a delimiter (a comma or a line end).
  // False when the bytes ran out inside it, as in a file cut short.
  bool lastFieldComplete() const { return lastComplete_; }

 private:
  struct Field {
    QString text;
    bool quoted = false;
  };
  Field nextField();

  QByteArray bytes_;
  qsizetype pos_ = 0;
  bool lastComplete_ = false;
};

// Text to and from the files' code page (Windows-1252); a character the code
// page lacks is written as "?".
QByteArray toCodePage(const QString& text);
QString fromCodePage(const QByteArray& bytes);

// Whole-file helpers. Writing goes to a temporary file renamed over the
// target, so a failed write never leaves half a file. Errors: 53, 57, 76.
QByteArray readWholeFile(const QString& path);
void writeWholeFile(const QString& path, const QByteArray& bytes);

}  // namespace rt
