#pragma once

#include "core/spell/WordSet.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

/// One word list: a text file, a word to a line, without a header. UTF-8 when its bytes are, else Windows-1252; lines
/// end with CR LF, CR or LF. Case doesn't count, nor do blanks around a word.
class cDict {
 public:
  QString Filename;
  WordSet Words;
  bool Loaded = false;
  qint32 WordTotal = 0;

  /// Adds the file's words to those that are there, or to none. A file that is missing, empty or can't be read is
  /// logged; `result` is Loaded: whether there is any word now.
  void LoadDict(const QString& file, bool clear, bool& result);
  /// The same in steps: what BeginLoad has read is taken up by LoadSome, some thousand words at a call, until that says
  /// that all is done.
  void BeginLoad(const QString& file, bool clear);
  bool LoadSome();
  bool WordExists(QStringView word) const { return Words.contains(word); }
  bool WordExists(const WordKey& word) const { return Words.contains(word); }

  /// Takes up what isn't there yet and writes it behind what the file holds at that moment, whoever wrote it: the
  /// old file stays until the new one is whole. Nothing without a Filename. Empty when all is on disk, else why not, as
  /// it may be told; the words count all the same and go to the file with the next that are added.
  QString AddNewWord(const QString& word) { return AddNewWords({word}); }
  QString AddNewWords(const QStringList& words);
  /// Tries again to write what is not in the file yet.
  QString SaveNewWords();
  bool HasUnsavedWords() const { return !unsaved_.isEmpty(); }

 private:
  /// A file as it was read.
  struct Source {
    QByteArray utf8;
    qsizetype at = 0;
    bool wasRead = false;
    bool isThere = false;
  };

  void endLoad();

  std::optional<Source> loading_;
  /// Added, and not yet in the file.
  QStringList unsaved_;
};
