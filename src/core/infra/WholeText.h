#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

/// Texts that come from and go to other programs as files.
namespace WholeText {

/// The text of a file's bytes: by its byte order mark (UTF-8 or UTF-16), as UTF-8 where it is valid, else as single
/// bytes. Odd bytes behind a mark become replacement characters.
QString fromBytes(QByteArrayView bytes);

/// Single bytes like all our text files; UTF-8, marked as such, for a text whose characters those lack.
QByteArray toBytes(QStringView text);

/// The text takes the place of the file in one step, once it is on the disk: whatever fails before, the old file stays.
/// A read-only file is made writable first. Throws what cSharedFileSubs::ReplaceFile throws.
void replaceFile(const QString& path, QStringView text);

}  // namespace WholeText
