#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Collections.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/OlderFiles.h"
#include "core/persist/SceneFolder.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kImportFailed = 23000;

/// What a kind's list is called in a generation-3 project, and one of it in messages.
struct OlderForm {
  const char16_t* list;
  const char16_t* called;
};

template <class Traits>
constexpr OlderForm olderFormOf();
template <>
constexpr OlderForm olderFormOf<ChapterTraits>() {
  return {shownText(u"Chapters"), shownText(u"chapter")};
}
template <>
constexpr OlderForm olderFormOf<SceneTraits>() {
  return {shownText(u"Scenes"), shownText(u"scene")};
}
template <>
constexpr OlderForm olderFormOf<CharacterTraits>() {
  return {shownText(u"Characters"), shownText(u"character")};
}
template <>
constexpr OlderForm olderFormOf<LocationTraits>() {
  return {shownText(u"Locations"), shownText(u"Location")};
}
template <>
constexpr OlderForm olderFormOf<ItemTraits>() {
  return {shownText(u"Items"), shownText(u"Item")};
}

template <class Traits>
struct ListRead {
  std::vector<typename EntityCollection<Traits>::Pointer> entities;
  qint32 highestID = 0;
  /// The list itself was there.
  bool isThere = false;
};

/// An entity for each entry of a list, filled by `fill` from the file that the entry names. One whose file can't be
/// read is logged, noted and left out.
template <class Traits, class Fill>
ListRead<Traits> readList(const QString& file, OlderFiles& from, Fill fill) {
  const QString list = QString::fromUtf16(olderFormOf<Traits>().list);
  const QString called = QString::fromUtf16(olderFormOf<Traits>().called);
  ListRead<Traits> read;
  const auto entries = from.read(file);
  if (!entries) {
    from.noteMissing(file.isEmpty() ? toldText(shownText(u"the list of %1"_s), {toldText(list)})
                                    : toldText(shownText(u"the list of %1 (%2)"_s), {toldText(list), file}));
    return read;
  }
  read.isThere = true;
  const Guard guard("ImportQN3", Traits::kModule);
  from.noteLost(*entries, toldText(list));
  for (const QString& entry : entries->list(list)) {
    guard([&] {
      const auto content = from.read(entry);
      if (!content) {
        from.noteMissing(toldText(u"%1 %2"_s, {toldText(called), OldFolder::shown(entry)}));
        throw RuntimeError(kImportFailed, u"Error loading "_s + called + u' ' + entry + u". Project load cancelled"_s);
      }
      const auto entity = std::make_shared<typename Traits::Entity>();
      fill(*entity, *content);
      read.highestID = std::max(read.highestID, content->integer32(u"ID"_s));
      read.entities.push_back(entity);
    });
  }
  return read;
}

}  // namespace

template <class Traits>
bool EntityCollection<Traits>::ImportQN3(const QString& File, OlderFiles& from) {
  Clear();
  const auto read =
      readList<Traits>(File, from, [&](Entity& entity, const KeyedFile& file) { entity.ImportQN3(file, from); });
  addRead(read.entities, read.highestID);
  return read.isThere;
}

template bool EntityCollection<ChapterTraits>::ImportQN3(const QString&, OlderFiles&);
template bool EntityCollection<CharacterTraits>::ImportQN3(const QString&, OlderFiles&);
template bool EntityCollection<LocationTraits>::ImportQN3(const QString&, OlderFiles&);
template bool EntityCollection<ItemTraits>::ImportQN3(const QString&, OlderFiles&);

// The chapters' lists win over what the scenes say of their chapter.
bool clsScenes::ImportQN3(const QString& File, OlderFiles& from) {
  Clear();
  SceneFolder texts(*g_Project);
  qint32 number = 0;
  const auto read = readList<SceneTraits>(File, from, [&](clsScene& scene, const KeyedFile& file) {
    ++number;
    if (LoadingNum) {
      LoadingNum(number);
    }
    scene.ImportQN3(file, from, texts);
  });
  addRead(read.entities, read.highestID);
  for (const Pointer& scene : *this) {
    scene->inScenes_ = true;
  }
  for (const auto& chapter : g_Project->Chapters) {
    chapter->UpdateBelongsToChapter();
  }
  return read.isThere;
}
