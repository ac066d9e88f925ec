#pragma once
// The list of times, "*.cro": a plain report, one line per entry of the lap
// list, each written as one quoted text in the sequential "write" form
// ("00:01:05  37" and CR LF). It has no header and is never read back.
#include <QByteArray>
#include <QString>
#include <QStringList>

QByteArray writeCro(const QStringList& lines);
// The extension rule of the save dialog, as for the other file types: the
// name's last three letters are "cro", any case.
bool hasCroExtension(const QString& fileName);
