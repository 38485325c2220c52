#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

/// The lines of a settings file: a key, the first comma, a value.
namespace KeyedLines {

/// Ended by CR LF; a file without any such end was written by an editor of another platform.
QList<QByteArray> of(const QByteArray& content);

struct KeyAndValue {
  QString key;
  /// With its blanks.
  QString value;
};
/// Nothing for a line without a comma, or with blanks alone in front of it.
std::optional<KeyAndValue> parted(const QByteArray& line);

}  // namespace KeyedLines
