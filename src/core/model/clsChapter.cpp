#include "core/model/clsChapter.h"

#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/SheetRun.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "clsChapter";

void take(clsChapter& chapter, const ChapterDetails& details) {
  chapter.Title = details.Title;
  chapter.DescText = details.DescText;
}

}  // namespace

qint32 clsChapter::ID() {
  if (id_ == 0) {
    GenerateID();
  }
  return id_;
}

void clsChapter::GenerateID() {
  id_ = g_Project->Chapters.nextID();
}

qint32 clsChapter::Wordcount(bool includeUnused) const {
  if (Unused && !includeUnused) {
    return 0;
  }
  qint64 words = 0;
  for (const qint32 id : scenes_) {
    const auto scene = g_Project->SceneByID(id);
    words += includeUnused || !scene->Unused ? scene->Wordcount() : 0;
  }
  return static_cast<qint32>(words);
}

qint32 clsChapter::Lettercount() const {
  qint64 letters = 0;
  for (const qint32 id : scenes_) {
    letters += g_Project->SceneByID(id)->Lettercount();
  }
  return static_cast<qint32>(letters);
}

std::shared_ptr<clsScene> clsChapter::SceneByIndex(qint32 index) const {
  return g_Project->SceneByID(SceneID(index));
}

void clsChapter::adopt(const std::shared_ptr<clsScene>& scene) {
  if (!scene) {
    throw RuntimeError(RuntimeError::NoObject);
  }
  if (!scene->InScenes()) {
    g_Project->Addscene(scene);
  }
  scene->BelongsToChID = ID();
}

void clsChapter::Addscene(const std::shared_ptr<clsScene>& scene) {
  Guard("Addscene", kModule)([&] {
    adopt(scene);
    scenes_.append(scene->ID());
  });
}

void clsChapter::InsertScene(const std::shared_ptr<clsScene>& scene, qint32 position) {
  const bool atEnd = scenes_.isEmpty() || position == 0 || position > scenes_.Count();
  Guard("InsertScene", kModule)([&] {
    adopt(scene);
    atEnd ? scenes_.append(scene->ID()) : scenes_.insertBefore(scene->ID(), position);
  });
}

void clsChapter::UpdateBelongsToChapter() {
  for (const qint32 sceneID : scenes_) {
    const auto scene = g_Project->SceneByID(sceneID);
    if (scene->BelongsToChID != ID()) {
      Logging().LogEvent(u"Changing scene '"_s + scene->Title + u"' from "_s + QString::number(scene->BelongsToChID) +
                         u" to "_s + QString::number(ID()));
      scene->BelongsToChID = ID();
    }
  }
}

QStringList clsChapter::sceneDescs() const {
  QStringList texts;
  for (const qint32 id : scenes_) {
    texts.append(g_Project->SceneByID(id)->DescText);
  }
  return texts;
}

bool clsChapter::runDialog(const char* routine) {
  return runSheet(*this, EntityKind::Chapter, routine, kModule, [&](const SheetSubject& subject) {
    const auto& ask = entityDialogs().chapter;
    const auto details =
        ask ? ask(keeping<ChapterDetails>(subject, *this, &take), {Title, DescText, Wordcount(false), sceneDescs()})
            : std::nullopt;
    if (details) {
      take(*this, *details);
    }
    return details.has_value();
  });
}

void clsChapter::Clear() {
  scenes_.clear();
  Title.clear();
  id_ = 0;
}
