#pragma once

#include "core/text/Tags.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <vector>

/// Where each "<" of a text stands that a name may follow, found in one pass, so that many tags can be looked for in
/// any part of it without reading it again. The text must outlive the index. Throws RuntimeError 7 for one beyond 4 GB.
class TagIndex {
 public:
  explicit TagIndex(QByteArrayView text);

  /// The bytes that it takes: four for each of the text at the most, and some hundred.
  qsizetype memory() const;

 private:
  friend class TagView;

  /// Room for what a whole text may still hold, and no more.
  void makeRoom(const char* from, const char* end);

  QByteArrayView text_;
  std::vector<quint32> positions_;
  /// A number made of each tag's name, the case of its letters gone: equal for equal names. Some zeros stand behind
  /// the last one, so that a search may look at several at once.
  std::vector<quint32> keys_;
};

/// A part of an indexed text: the whole, a block, an element. Gives just what the functions of Tags give for the same
/// characters, for tags of the usual form: "<", a name, ">". The index must outlive it.
class TagView {
 public:
  explicit TagView(const TagIndex& index);

  QByteArrayView text() const { return index_->text_.sliced(from_, to_ - from_); }
  bool contains(const Tag& tag) const { return first(tag.open, firstEntry_) >= 0; }

  /// As Tags::ExtractWithTags; an empty view when there is no opening tag.
  TagView block(const Tag& tag) const;
  /// The text parted at every delimiter; always at least one piece.
  std::vector<TagView> split(QByteArrayView delimiter) const;

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
  TagView(const TagIndex& index, qsizetype from, qsizetype to, qsizetype firstEntry, qsizetype endEntry)
      : index_(&index), from_(from), to_(to), firstEntry_(firstEntry), endEntry_(endEntry) {}

  /// The entry of the first occurrence at or behind an entry; -1 for none.
  qsizetype first(QByteArrayView tag, qsizetype entry) const;
  bool isAt(QByteArrayView tag, qsizetype entry) const;
  qsizetype positionOf(qsizetype entry) const {
    return static_cast<qsizetype>(index_->positions_[static_cast<size_t>(entry)]);
  }
  /// The value as a view where no inner tag has to be taken out, else through `scratch`.
  QByteArrayView value(const Tag& tag, QByteArray& scratch) const;

  const TagIndex* index_;
  qsizetype from_;
  qsizetype to_;
  qsizetype firstEntry_;
  qsizetype endEntry_;
};
