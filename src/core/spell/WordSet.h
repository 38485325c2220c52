#pragma once

#include <QByteArrayView>
#include <QStringView>
#include <QVarLengthArray>

#include <vector>

/// A word as the sets look it up: UTF-8 without regard to case, and its hash. Made once, asked of many sets.
class WordKey {
 public:
  explicit WordKey(QStringView word);
  /// UTF-8, a byte order mark in front being passed over; what isn't valid reads as replacement characters.
  explicit WordKey(QByteArrayView word);

  QByteArrayView bytes() const { return bytes_; }
  quint32 hash() const { return hash_; }

 private:
  void foldAll(const QString& word);

  QVarLengthArray<char, 48> bytes_;
  quint32 hash_ = 0;
};

/// The words of one list. Some ten bytes and a slot for each, all in two blocks of memory: a hundred thousand of them
/// are read in a few milliseconds.
class WordSet {
 public:
  /// False when the word is there already, or is empty. Throws RuntimeError 7 beyond 4 GB of words.
  bool insert(const WordKey& key);
  bool contains(const WordKey& key) const;
  bool contains(QStringView word) const { return contains(WordKey(word)); }
  /// Room for so many words; more may come.
  void reserve(size_t words);
  void clear() { *this = {}; }
  size_t size() const { return size_; }
  bool isEmpty() const { return size_ == 0; }

 private:
  /// A length of 0 is a free slot.
  struct Slot {
    quint32 hash = 0;
    quint32 start = 0;
    quint32 length = 0;
  };

  /// The slot of the word, or the free one where it belongs.
  size_t placeOf(const WordKey& key) const;
  void rehash(size_t slots);

  std::vector<Slot> slots_;
  std::vector<char> letters_;
  size_t size_ = 0;
};
