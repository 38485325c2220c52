#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// The single-byte code page of our text files: Windows-1252 with its five holes passed straight through,
/// so that every byte survives reading and writing.
namespace CodePage {

/// The character of a byte.
char16_t toChar(uchar byte);
/// The byte of a UTF-16 unit, or -1 when the code page lacks it.
int toByte(char16_t unit);

QString fromBytes(QByteArrayView bytes);
/// What the code page lacks becomes "?", one for each UTF-16 unit.
QByteArray toBytes(QStringView text);
/// True when every unit of the text has a byte.
bool canEncode(QStringView text);

/// Lossless: what the code page lacks is written %uXXXX, one for each UTF-16 unit, and a "%u" of the text
/// itself that would read as such a mark has its "%" written %u0025. All other text is as toBytes gives it.
QByteArray toMarkedBytes(QStringView text);
/// The reverse of toMarkedBytes; "%u" without four hexadecimal digits behind it stays.
QString fromMarkedBytes(QByteArrayView bytes);

}  // namespace CodePage
