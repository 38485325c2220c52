#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// The single-byte code page of our text files: Windows-1252 with its five holes passed straight through,
/// so that every byte survives reading and writing.
namespace CodePage {

/// The characters of the bytes 0x80 to 0x9F; all others are their own.
inline constexpr char16_t kHigh[32] = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                       0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

/// The character of a byte.
constexpr char16_t toChar(uchar byte) {
  return byte >= 0x80 && byte < 0xA0 ? kHigh[byte - 0x80U] : byte;
}
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
/// The same as one line of a file: CR and LF are marked too.
QByteArray toMarkedLine(QStringView text);
/// The reverse of both; "%u" without four hexadecimal digits behind it stays.
QString fromMarkedBytes(QByteArrayView bytes);

}  // namespace CodePage
