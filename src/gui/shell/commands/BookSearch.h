#pragma once

#include "core/model/StorySearch.h"

#include <QPointer>

#include <memory>

class RichTextBox;
class clsChapter;
class clsScene;
class frmFind;
class frmMain;

/// The search of the main window: through the texts of the whole book, each hit shown in its scene. It goes on where it
/// has left off, or from the scene that was selected since.
class BookSearch {
 public:
  explicit BookSearch(frmMain& main) : main_(main) {}

  /// Asks what to look for; what is selected in the shown text is offered.
  void ShowFind();
  /// The last search again; asks when there was none. Says so where there is no match.
  void FindNext();
  void FindPrevious();
  /// Another word by the same rule of case, from the start of the scene where the search stands.
  void findWord(const QString& word);
  /// The same whatever its case, behind the last hit.
  void findInAnyCase(const QString& word);

 private:
  void PrepareFind();
  void ShowHit(const StorySearch::Hit& hit);
  void Find_DoFind(const QString& text, bool caseSensitive);
  void Find_DoPrevious(const QString& text, bool caseSensitive);
  void makeDialog();
  QString selectedTerm() const;
  void setSearch(const QString& text, bool caseSensitive);
  void followSelection();
  void noteSelection();
  void show(const std::optional<StorySearch::Hit>& hit);
  void showEnd();
  void selectRows(clsChapter& chapter, qint32 sceneRow);
  RichTextBox& select(const StorySearch::Hit& hit);

  frmMain& main_;
  StorySearch search_;
  QPointer<frmFind> Find;
  /// What was selected when the last search ended. The scene itself, for one of another book may have its ID.
  qint32 seenChapter_ = 0;
  std::weak_ptr<clsScene> seenScene_;
};
