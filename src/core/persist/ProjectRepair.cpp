#include "core/persist/ProjectRepair.h"

#include "core/infra/FirstOf.h"
#include "core/infra/Guard.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/ConflictCopy.h"

#include <QLocale>
#include <QSet>

#include <algorithm>
#include <iterator>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

template <class Collection>
QStringList titlesOfRenumbered(const Collection& collection) {
  QStringList titles;
  for (const auto& renumbered : collection.renumbered()) {
    if constexpr (requires { renumbered.entity->Title; }) {
      titles.append(renumbered.entity->Title);
    } else {
      titles.append(renumbered.entity->Title());
    }
  }
  return titles;
}

/// Whether two names may be the same but for their letters' case. Looked for without making one of them anew: a sound
/// book has none.
bool mayShareNames(const clsScenes& scenes) {
  std::vector<size_t> hashes;
  hashes.reserve(static_cast<size_t>(scenes.Count()));
  for (const auto& scene : scenes) {
    size_t hash = 0;
    for (const QChar letter : scene->RTFFilename()) {
      hash = hash * 31 + letter.toUpper().unicode();
    }
    hashes.push_back(hash);
  }
  std::sort(hashes.begin(), hashes.end());
  return std::adjacent_find(hashes.begin(), hashes.end()) != hashes.end();
}

}  // namespace

QStringList ProjectRepair::run() {
  tellNewIDs();
  placeRenumberedScenes();
  followRenumberedChapters();
  dropMissingScenes();
  placeScenesOnce();
  findEmptiedFiles();
  partSharedFiles();
  findConflictCopies();
  return findings_;
}

void ProjectRepair::tell(const QString& what, const QStringList& names) {
  if (names.isEmpty()) {
    return;
  }
  Logging().LogEvent(what + u": "_s + names.join(u", "_s));
  constexpr qsizetype kNamed = 5;
  findings_.append(translated(what) + u": "_s + firstOf(names, kNamed).join(u"; "_s));
}

void ProjectRepair::tellNewIDs() {
  tell(shownText(u"Had the number of another scene, chapter or character, and got one of their own"_s),
       titlesOfRenumbered(project_.Scenes) + titlesOfRenumbered(project_.Chapters) +
           titlesOfRenumbered(project_.Chars) + titlesOfRenumbered(project_.Locations) +
           titlesOfRenumbered(project_.Items) + titlesOfRenumbered(project_.Notes));
}

// Its chapter lists the number that was two scenes': the other one keeps it where that is in the same chapter.
void ProjectRepair::placeRenumberedScenes() {
  for (const auto& [former, scene] : project_.Scenes.renumbered()) {
    const auto chapter = project_.ChapterByID(scene->BelongsToChID);
    const qint32 place = chapter->SceneIndex(former);
    if (place == 0) {
      continue;  // it was in no chapter before either
    }
    chapter->InsertScene(scene, place + 1);
    if (project_.SceneByID(former)->BelongsToChID != chapter->ID()) {
      chapter->RemoveSceneByID(former);
    }
  }
}

void ProjectRepair::followRenumberedChapters() {
  for (const auto& [former, chapter] : project_.Chapters.renumbered()) {
    const auto other = project_.ChapterByID(former);
    for (const qint32 id : chapter->SceneIDs()) {
      if (!other->SceneIDs().contains(id)) {
        project_.SceneByID(id)->BelongsToChID = chapter->ID();
      }
    }
  }
}

void ProjectRepair::dropMissingScenes() {
  QStringList chapters;
  for (const auto& chapter : project_.Chapters) {
    std::vector<qint32> missing;
    std::copy_if(chapter->SceneIDs().begin(), chapter->SceneIDs().end(), std::back_inserter(missing),
                 [&](qint32 id) { return !project_.SceneByID(id)->InScenes(); });
    for (const qint32 id : missing) {
      chapter->RemoveSceneByID(id);
    }
    if (!missing.empty()) {
      chapters.append(u"%1 (%2)"_s.arg(chapter->Title, QString::number(missing.size())));
    }
  }
  tell(shownText(u"Chapters that listed so many scenes which aren't in the book, and don't any more"_s), chapters);
}

// What a chapter lists is its scene, whatever the scene says of itself; of two chapters that list it the one that it
// names.
void ProjectRepair::placeScenesOnce() {
  QStringList twice;
  for (const auto& chapter : project_.Chapters) {
    std::vector<qint32> others;
    for (const qint32 id : chapter->SceneIDs()) {
      const auto scene = project_.SceneByID(id);
      if (scene->BelongsToChID == chapter->ID()) {
        continue;
      }
      if (project_.ChapterByID(scene->BelongsToChID)->SceneIndex(id) > 0) {
        others.push_back(id);
        twice.append(calledScene(scene->Title));
      } else {
        Logging().LogEvent(u"Changing scene '%1' from %2 to %3"_s.arg(
            scene->Title, QString::number(scene->BelongsToChID), QString::number(chapter->ID())));
        scene->BelongsToChID = chapter->ID();
      }
    }
    for (const qint32 id : others) {
      chapter->RemoveSceneByID(id);
    }
  }
  tell(shownText(u"Stood in two chapters, and stand in one now"_s), twice);
}

// One of the two would be written over the other.
void ProjectRepair::partSharedFiles() {
  if (!mayShareNames(project_.Scenes)) {
    return;
  }
  QSet<QString> taken;
  QStringList titles;
  for (const auto& scene : project_.Scenes) {
    const QString name = scene->RTFFilename().toUpper();
    if (name.isEmpty() || !taken.contains(name)) {
      taken.insert(name);
      continue;
    }
    scene->rtfFilename_.clear();
    scene->stored_ = {};
    scene->rtfChanged_ = true;
    titles.append(calledScene(scene->Title));
  }
  tell(shownText(u"Shared a file with another scene, and get their own when the book is saved"_s), titles);
}

void ProjectRepair::findEmptiedFiles() {
  QStringList titles;
  for (const auto& scene : project_.Scenes) {
    if (scene->TextRTF().isEmpty() && !scene->TextUnread() && !scene->wordsStale_) {
      titles.append(translated(u"%1 (%2, %3 words)"_s)
                        .arg(calledScene(scene->Title), scene->RTFFilename(), QLocale().toString(scene->wordcount_)));
    }
  }
  tell(shownText(u"Scenes whose file is empty now, though there were words in it"_s), titles);
}

void ProjectRepair::findConflictCopies() {
  QStringList copies;
  for (const QString& folder : {project_.Path(), project_.RTFFolder()}) {
    Guard("findConflictCopies", "ProjectRepair")([&] { copies += ConflictCopy::in(folder); });
  }
  tell(
      shownText(
          u"Copies from a time when two programs changed the same file (Tools - Lost and Found shows those of scenes)"_s),
      copies);
}
