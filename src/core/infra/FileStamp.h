#pragma once

#include <QByteArrayView>
#include <QString>

#include <array>

/// A hash of bytes that come in pieces, the same however they are cut. For comparing within one run, never stored.
class ContentHash {
 public:
  void add(QByteArrayView bytes);
  quint64 value() const;

  static quint64 of(QByteArrayView bytes);

 private:
  /// Four lanes side by side: one would wait for each multiplication.
  static constexpr qsizetype kBlock = 32;
  static constexpr size_t kLanes = 4;

  void addBlock(const char* block);

  std::array<quint64, kLanes> lanes_{};
  /// What doesn't fill a block yet, and how many bytes there were in all.
  std::array<char, kBlock> rest_{};
  qsizetype restSize_ = 0;
  quint64 length_ = 0;
};

/// What is remembered of a file that was read or written: another program's change shows in it.
struct FileStamp {
  /// Bytes; negative when nothing is known of the file.
  qint64 size = -1;
  /// Nanoseconds of the system's clock.
  qint64 modified = 0;
  /// Of the content, where somebody has asked for it.
  quint64 hash = 0;

  bool isKnown() const { return size >= 0; }
  /// The same without a look at the content.
  bool looksLike(const FileStamp& other) const { return isKnown() && size == other.size && modified == other.modified; }
  void noteContent(QByteArrayView bytes) { hash = ContentHash::of(bytes); }
  bool hasContent(QByteArrayView bytes) const { return size == bytes.size() && hash == ContentHash::of(bytes); }

  /// Size and time of a plain file, its hash not known; not known at all when there is none. Links are followed.
  static FileStamp lookAt(const QString& path);
};
