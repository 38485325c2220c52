#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringView>

/// Text tools over the helper libraries. A routine whose library fails says so in the log and gives its input
/// back, or 0.
class cSharedHTML {
 public:
  /// The words of a text: parted at white space, at en and em dashes, at two or more hyphens in a row; a piece
  /// counts when it holds a letter or a digit of any script.
  qint32 CalcWordCount(QStringView text) const;

  /// Base64 on one line, padded.
  QByteArray EncodeMime64String(QByteArrayView bytes) const;
  /// The bytes of a Base64 text; line ends, blanks and missing padding are borne. Throws RuntimeError 5 for text
  /// that is no Base64.
  QByteArray DecodeMime64(QByteArrayView text) const;
};

cSharedHTML& Html();
