#pragma once
// The banking window's file (*.ban): the inputs of an operation, never its
// results, which are computed again. Two lines in the sequential text form:
//
//   3
//   "10000","8","10",#FALSE#,"",""
//
// line 1 the kind of operation (1 deposit, 2 savings plan, 3 loan); line 2
// the capital, interest and time boxes as typed, whether the time is in
// years, the monthly contribution and its yearly increase.
#include <QByteArray>
#include <QString>
#include <cstdint>

struct BanInputs {
  std::int16_t tipo = 1;
  QString capital, interes, tiempo;
  bool years = false;
  QString aportemes, incremes;
  bool operator==(const BanInputs&) const = default;
};

QByteArray writeBan(const BanInputs& inputs);
// False when the bytes are not a whole, well-formed file of this kind; out
// is then left as it was.
bool readBan(const QByteArray& bytes, BanInputs& out);
// The extension rule of the file dialogs: the name's last three letters,
// lower-cased, are "ban".
bool hasBanExtension(const QString& fileName);
