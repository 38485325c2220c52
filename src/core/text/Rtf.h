#pragma once

#include "core/text/RichText.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

/// RTF, which is bytes everywhere, to and from rich text. Any bytes can be read, in linear time; what is no
/// RTF is plain text in our code page.
///
/// The \par directly before the end of the document ends the last paragraph and adds none, and writing ends
/// every paragraph with \par: reading what was written gives an equal text.

/// The bytes from where the RTF begins: some programs put a byte order mark, blanks or line ends in front. Empty when
/// they are no RTF.
QByteArrayView rtfStart(QByteArrayView bytes);
/// True when the bytes begin as RTF does.
bool isRtf(QByteArrayView bytes);

/// The plain text alone, equal to readRtf(bytes).plainText(); builds no formats and is several times faster.
QString rtfToPlainText(QByteArrayView bytes);

RichText readRtf(QByteArrayView bytes);

/// 7-bit RTF. Characters of the code page are written \'xx, all others \uN with a question mark to fall back on.
QByteArray writeRtf(const RichText& text);
