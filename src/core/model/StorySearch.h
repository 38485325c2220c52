#pragma once

#include <QString>

#include <optional>

/// Looks for a text in the scenes of the book, in the order of its lists, from where the last search has left off. It
/// doesn't wrap: behind the last match it stands at the end of the book until it is told to begin again.
class StorySearch {
 public:
  /// What was found: positions count in the scene's plain text from 0.
  struct Hit {
    qint32 chapterID;
    qint32 sceneID;
    qsizetype position;
    qsizetype length;
  };

  /// False when it is the search that there is already.
  bool setSearch(const QString& text, bool caseSensitive);
  const QString& SearchText() const { return searchText_; }
  bool SearchCase() const { return caseSensitivity_ == Qt::CaseSensitive; }

  /// Begins at the first scene of the first chapter.
  void restart();
  /// Begins at the start of this scene, or of this chapter where the ID is 0.
  void standAt(qint32 chapterID, qint32 sceneID);
  /// Begins at the start of the scene where it stands.
  void standAtStartOfScene() { searchPos_ = 0; }

  /// The next match behind the last, which may overlap it. Nothing for an empty text.
  std::optional<Hit> FindNext();
  /// The last match in front. Where there was none the next search begins at the end of the scene where it stands, and
  /// passes over the last hit.
  std::optional<Hit> FindPrevious();

  /// Rows of the lists, from 1, of where the search stands: behind the last one at the end of the book.
  qint32 SearchChapter() const { return searchChapter_; }
  qint32 SearchScene() const { return searchScene_; }

 private:
  struct Place {
    qint32 sceneID;
    qsizetype position;

    bool operator==(const Place&) const = default;
  };

  void followMoves();
  Hit found(qint32 chapterID, qint32 sceneID, qsizetype position);
  std::optional<qsizetype> lastWithin(QStringView text) const;
  std::optional<qsizetype> previousIn(qint32 sceneID) const;

  QString searchText_;
  Qt::CaseSensitivity caseSensitivity_ = Qt::CaseInsensitive;
  qint32 searchChapter_ = 0;
  qint32 searchScene_ = 0;
  /// Of the last hit in its scene, from 1; 0 for the start of the scene.
  qsizetype searchPos_ = 0;
  std::optional<Place> lastHit_;
};
