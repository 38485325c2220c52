#pragma once

#include "core/text/Tags.h"

#include <QByteArray>
#include <QStringView>

/// Appends an element to a text as it stands in the project file: one tab before its tags, two before a field,
/// three before a list entry; every line but the closing one ends in CR LF, which the print that writes the
/// element adds.
class ElementWriter {
 public:
  ElementWriter(QByteArray& out, const Tag& element);
  /// Closes the element.
  ~ElementWriter();
  ElementWriter(const ElementWriter&) = delete;
  ElementWriter& operator=(const ElementWriter&) = delete;

  void text(const Tag& tag, QStringView value);
  void textUnlessEmpty(const Tag& tag, QStringView value);
  /// The characters as they are, in the code page.
  void raw(const Tag& tag, QStringView value);
  void integer(const Tag& tag, qint32 value);
  void integerUnlessZero(const Tag& tag, qint32 value);
  void boolean(const Tag& tag, bool value);
  void booleanIfTrue(const Tag& tag, bool value);
  void date(const Tag& tag, qint32 dayNumber);
  /// Nothing for an empty list.
  template <class IDs>
  void list(const Tag& tag, const Tag& entry, const IDs& ids) {
    if (ids.isEmpty()) {
      return;
    }
    line(tag.open);
    for (const qint32 id : ids) {
      ensureRoom(1);
      *to_++ = '\t';
      integer(entry, id);
    }
    line(tag.close);
  }
  /// A scene's RTF, as Base64 on one line.
  void base64(const Tag& tag, const Tag& data, QByteArrayView encoded);

 private:
  void line(QByteArrayView content);
  /// Room for a field of so many bytes, its tags and line end not counted.
  void ensureRoom(qsizetype content);
  void put(QByteArrayView bytes);
  void open(const Tag& tag);
  void close(const Tag& tag);

  QByteArray& out_;
  /// Where the next byte goes; the text is longer than what is in it until the element is closed.
  char* to_ = nullptr;
  const char* end_ = nullptr;
  Tag element_;
};
