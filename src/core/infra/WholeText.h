#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <QStringView>

#include <optional>
#include <utility>

/// Texts that come from and go to other programs as files.
namespace WholeText {

/// The text of a file's bytes: by its byte order mark (UTF-8 or UTF-16), as UTF-8 where it is valid, else as single
/// bytes. Odd bytes behind a mark become replacement characters.
QString fromBytes(QByteArrayView bytes);

/// The bytes of a text that is put together piece by piece, as toBytes gives them of the whole. No piece ends between
/// the two halves of a character.
class Builder {
 public:
  void append(QStringView piece);
  QByteArray take() { return std::move(bytes_); }

 private:
  bool appendSingle(QStringView piece);

  QByteArray bytes_;
  bool isUnicode_ = false;
};

/// A text as the file of these bytes is encoded, to be put behind them; nothing when that encoding lacks a letter.
std::optional<QByteArray> encodedAs(QByteArrayView bytes, QStringView text);

/// Single bytes like all our text files; UTF-8, marked as such, for a text whose characters those lack.
QByteArray toBytes(QStringView text);

/// The text takes the place of the file in one step, once it is on the disk: whatever fails before, the old file stays.
/// A read-only file is made writable first. Throws what cSharedFileSubs::ReplaceFile throws.
void replaceFile(const QString& path, QStringView text);

}  // namespace WholeText
