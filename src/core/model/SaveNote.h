#pragma once

#include <QDateTime>
#include <QString>

/// How the saves of a book went since it was opened, for a window to say. What failed stands until it is mended: a
/// book that wasn't saved by a save of the book, a text by that or by saves of texts that leave none unsaved.
class SaveNote {
 public:
  void bookSaved();
  /// Why, where that is known.
  void bookNotSaved(const QString& why);
  void textSaved(bool allSaved);
  void textNotSaved(const QString& why);

  bool failed() const { return failed_ != Failed::Nothing; }
  /// "Saved 14:05", the hour and minute as the locale has them, or "Not saved: the disk is full"; empty when nothing
  /// was saved yet.
  QString text() const;

 private:
  enum class Failed { Nothing, Text, Book };

  Failed failed_ = Failed::Nothing;
  QString why_;
  QDateTime savedAt_;
};
