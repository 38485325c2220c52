#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <memory>

class RichText;

/// A stretch of bytes that are held elsewhere too, and once.
class SharedBytes {
 public:
  SharedBytes() = default;
  SharedBytes(QByteArray whole, qsizetype from, qsizetype size) : whole_(std::move(whole)), from_(from), size_(size) {}
  explicit SharedBytes(QByteArray whole) : SharedBytes(whole, 0, whole.size()) {}

  QByteArrayView view() const { return QByteArrayView(whole_).sliced(from_, size_); }

  friend bool operator==(const SharedBytes& a, const SharedBytes& b) { return a.view() == b.view(); }

 private:
  QByteArray whole_;
  qsizetype from_ = 0;
  qsizetype size_ = 0;
};

/// What stands in a text as one position and is no letter. Never changed: what changes it makes another one.
struct InlineObject {
  enum class Kind : quint8 {
    Picture,
    Embedded,  ///< Of another program, or a drawing.
    Footnote,
    Endnote,
    Comment,
    BookmarkStart,
    BookmarkEnd,
    CommentStart,  ///< Where the words begin that a comment is about.
    CommentEnd,
    Field,  ///< One that has no result in the text.
    Entry,  ///< Of an index or a table of contents.
  };
  /// A small fact that belongs to a comment, under the RTF word that tells it: who wrote it, when.
  struct Detail {
    QByteArray word;
    QString text;

    friend bool operator==(const Detail&, const Detail&) = default;
  };

  Kind kind = Kind::Picture;
  /// A note that is numbered by itself; its number is no text.
  bool isNumbered = false;
  /// The name of a bookmark or of a comment's words, the instruction of a field, the word of an entry.
  QString label{};
  /// The inside of an RTF group, written as it was read: all of a picture, of an object what stands in front of its
  /// result.
  SharedBytes bytes{};
  /// Of an object: what stands behind its result.
  SharedBytes tail{};
  QList<Detail> details{};
  /// Of a note, a comment, an entry; what an object shows of itself. None: nothing.
  std::shared_ptr<const RichText> content{};

  friend bool operator==(const InlineObject& a, const InlineObject& b);
};

size_t hashOf(const InlineObject& object) noexcept;

/// True for those whose text a writer reads and changes.
bool isNote(InlineObject::Kind kind);
/// What it is and the text that it holds, in a line or more for a person: a tool tip, a screen reader.
QString describe(const InlineObject& object);
