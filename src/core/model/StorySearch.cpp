#include "core/model/StorySearch.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QStringMatcher>

#include <algorithm>

namespace {

/// 0 for a row that isn't there.
qint32 scenesInRow(qint32 chapter) {
  return chapter < 1 || chapter > g_Project->ChapterCount() ? 0 : g_Project->ChapterByIndex(chapter)->SceneCount();
}

}  // namespace

bool StorySearch::setSearch(const QString& text, bool caseSensitive) {
  const auto caseSensitivity = caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
  if (text == searchText_ && caseSensitivity == caseSensitivity_) {
    return false;
  }
  searchText_ = text;
  caseSensitivity_ = caseSensitivity;
  return true;
}

void StorySearch::restart() {
  searchChapter_ = 1;
  searchScene_ = 1;
  searchPos_ = 0;
  lastHit_.reset();
}

void StorySearch::standAt(qint32 chapterID, qint32 sceneID) {
  restart();
  searchChapter_ = std::max(1, g_Project->Chapters.ChapterIndex(chapterID));
  searchScene_ = std::max(1, g_Project->ChapterByID(chapterID)->SceneIndex(sceneID));
}

/// The rows may be others than when the last match was found.
void StorySearch::followMoves() {
  searchChapter_ = std::max(1, searchChapter_);
  searchScene_ = std::max(1, searchScene_);
  if (searchPos_ == 0 || !lastHit_) {
    return;
  }
  const auto scene = g_Project->SceneByID(lastHit_->sceneID);
  const qint32 chapter = g_Project->Chapters.ChapterIndex(scene->BelongsToChID);
  const qint32 place = g_Project->ChapterByID(scene->BelongsToChID)->SceneIndex(lastHit_->sceneID);
  if (chapter < 1 || place < 1) {
    searchPos_ = 0;
    return;
  }
  searchChapter_ = chapter;
  searchScene_ = place;
}

StorySearch::Hit StorySearch::found(qint32 chapterID, qint32 sceneID, qsizetype position) {
  searchPos_ = position + 1;
  lastHit_ = Place{sceneID, position};
  return {chapterID, sceneID, position, searchText_.size()};
}

std::optional<StorySearch::Hit> StorySearch::FindNext() {
  if (searchText_.isEmpty()) {
    return {};
  }
  followMoves();
  const QStringMatcher matcher(searchText_, caseSensitivity_);
  for (; searchChapter_ <= g_Project->ChapterCount(); ++searchChapter_) {
    const auto chapter = g_Project->ChapterByIndex(searchChapter_);
    for (; searchScene_ <= chapter->SceneCount(); ++searchScene_) {
      const qint32 id = chapter->SceneIDs().at(searchScene_);
      const QString& text = g_Project->SceneByID(id)->ConvertedToBodyText();
      const qsizetype position = matcher.indexIn(text, std::min(searchPos_, text.size()));
      if (position >= 0) {
        return found(chapter->ID(), id, position);
      }
      searchPos_ = 0;
    }
    searchScene_ = 1;
  }
  return {};
}

std::optional<qsizetype> StorySearch::lastWithin(QStringView text) const {
  const qsizetype position = text.lastIndexOf(searchText_, -1, caseSensitivity_);
  return position < 0 ? std::nullopt : std::optional(position);
}

/// In front of where the search stands in the scene, from its end where that is at its start. A match lies whole in
/// front of the last one.
std::optional<qsizetype> StorySearch::previousIn(qint32 sceneID) const {
  const QStringView text = g_Project->SceneByID(sceneID)->ConvertedToBodyText();
  const qsizetype end = searchPos_ == 0 ? text.size() : std::min(searchPos_ - 1, text.size());
  const auto position = lastWithin(text.first(end));
  return position && lastHit_ == Place{sceneID, *position} ? lastWithin(text.first(*position)) : position;
}

std::optional<StorySearch::Hit> StorySearch::FindPrevious() {
  if (searchText_.isEmpty()) {
    return {};
  }
  followMoves();
  if (searchChapter_ > g_Project->ChapterCount()) {
    searchChapter_ = g_Project->ChapterCount();
    searchScene_ = scenesInRow(searchChapter_);
  }
  for (; searchChapter_ >= 1; --searchChapter_) {
    const auto chapter = g_Project->ChapterByIndex(searchChapter_);
    searchScene_ = std::min(searchScene_, chapter->SceneCount());
    for (; searchScene_ >= 1; --searchScene_) {
      const qint32 id = chapter->SceneIDs().at(searchScene_);
      if (const auto position = previousIn(id)) {
        return found(chapter->ID(), id, *position);
      }
      searchPos_ = 0;
    }
    searchScene_ = scenesInRow(searchChapter_ - 1);
  }
  searchChapter_ = 1;
  searchScene_ = 1;
  return {};
}
