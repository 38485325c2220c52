#pragma once

#include "text/Tags.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

/// One element of a project file: finds many tags in the same text with one index of its "<" characters, and gives
/// just what Tags::ExtractBetweenTags gives. Views into the element; the text must outlive the reader.
class ElementReader {
 public:
  explicit ElementReader(QByteArrayView element);

  QByteArrayView text() const { return text_; }
  bool contains(const Tag& tag) const { return firstAt(tag.open, 0) >= 0; }

  /// As the characters stand in the file.
  QByteArray bytes(const Tag& tag) const;
  QString raw(const Tag& tag) const;
  /// Percent-unescaped.
  QString text(const Tag& tag) const;
  /// True for the exact text "-1" and nothing else.
  bool boolean(const Tag& tag) const;
  qint32 integer32(const Tag& tag) const;
  qint16 integer16(const Tag& tag) const;
  /// These throw as Numbers::Strict32 and Numbers::DayNumber do.
  qint32 strictInteger(const Tag& tag) const;
  qint32 date(const Tag& tag) const;

 private:
  /// The index in positions_ of the first occurrence at or behind `from`; -1 for none.
  qsizetype firstAt(QByteArrayView tag, size_t from) const;
  /// The value as a view where no inner tag has to be taken out, else through `scratch`.
  QByteArrayView value(const Tag& tag, QByteArray& scratch) const;

  QByteArrayView text_;
  std::vector<qsizetype> positions_;
  /// The eight bytes behind each "<", folded so that the case of letters is gone; a quick first test.
  std::vector<quint64> keys_;
};
