#pragma once

#include "core/text/RichText.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QFlags>
#include <QString>
#include <QStringList>

/// RTF, which is bytes everywhere, to and from rich text. Any bytes can be read, in linear time; what is no
/// RTF is plain text in our code page.
///
/// The \par directly before the end of the document ends the last paragraph and adds none, and writing ends
/// every paragraph with \par: reading what was written gives an equal text.

/// What an RTF text may hold that a rich text can't, and that is gone from what is written of it.
enum class RtfLoss : quint16 {
  TableLayout = 1,  ///< Borders and columns; the words stay.
  HeadersFooters = 2,
  Deletions = 4,  ///< Struck out in a tracked draft.
  TextBoxes = 8,
  Styles = 16,
  NestedFields = 32,  ///< Fields in the result of another; their text stays.
  FieldData = 64,     ///< Of forms and of other programs.
  ParagraphBorders = 128,
  Sections = 256,
  Damaged = 512,  ///< Words behind the last brace, or of a text without one: a picture may have swallowed them.
};
Q_DECLARE_FLAGS(RtfLosses, RtfLoss)
Q_DECLARE_OPERATORS_FOR_FLAGS(RtfLosses)

/// Their names, for a sentence that goes on with them.
QStringList namesOf(RtfLosses losses);

/// The bytes from where the RTF begins: some programs put a byte order mark, blanks, line ends or a lone "/" in front.
/// Empty when they are no RTF.
QByteArrayView rtfStart(QByteArrayView bytes);
/// True when the bytes begin as RTF does.
bool isRtf(QByteArrayView bytes);

/// The plain text alone, equal to readRtf(bytes).plainText(); builds no formats and is several times faster.
QString rtfToPlainText(QByteArrayView bytes);

/// Pictures and objects share the bytes that are given. Tells what has no place in a rich text.
RichText readRtf(const QByteArray& bytes, RtfLosses* losses = nullptr);

/// 7-bit RTF. Characters of the code page are written \'xx, all others \uN with a question mark to fall back on.
QByteArray writeRtf(const RichText& text);
