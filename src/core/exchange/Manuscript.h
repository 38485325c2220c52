#pragma once

#include "core/text/Rtf.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// A text that another program has written, as its file holds it.
namespace Manuscript {

enum class Kind { Text, Html, Rtf };

/// By the file's extension; nothing for a kind that can't be read.
std::optional<Kind> kindOf(const QString& file);

/// What is called RTF and is none is read as text. Text is read by its byte order mark, as UTF-8 where it is valid,
/// else in our code page, a page in the encoding that it names; its lines end with CR LF, LF or CR. Tells what of RTF
/// has no place in a rich text.
RichText read(const QByteArray& bytes, Kind kind, RtfLosses* losses = nullptr);

/// The RTF of a scene that is to hold what a file does: RTF as it is, text as RTF; nothing for what is neither.
std::optional<QByteArray> sceneText(const QByteArray& bytes);

/// The text of bytes that are one; nothing for what is none.
std::optional<QString> plainText(const QByteArray& bytes);

/// So much that the writer should see at once that it is being read.
bool takesLong(const QString& file);

/// The bytes of a file. Throws what the system says, also where there is none.
QByteArray bytesOf(const QString& file);

}  // namespace Manuscript
