#pragma once

#include <QString>
#include <QStringList>

class clsProject;

/// A book that was opened from a copy, and what its first save would replace: another project file, or the texts that
/// it shares with one. An older copy never does that in silence.
class OlderCopy {
 public:
  explicit OlderCopy(clsProject& project) : project_(project) {}

  /// Those that are to be written: a command that changes all of them asks before any is due.
  enum class Texts { ThatAreDue, All };
  enum class Answer { NothingToAsk, Replace, NewName, GiveUp };
  /// Asks where there is anything to ask. In the folder that the book came from that is once, before the first save:
  /// what may be replaced is the book's own from then on.
  Answer settle(Texts texts = Texts::ThatAreDue);
  /// The same before a text is written by itself. With a new name the whole book is saved there.
  bool mayWriteTexts();

 private:
  /// Project files that a save would replace, or whose texts it would change; none for a book by itself.
  QStringList threatened(Texts texts) const;
  QStringList othersInFolder() const;
  QString question(const QStringList& others) const;

  clsProject& project_;
};
