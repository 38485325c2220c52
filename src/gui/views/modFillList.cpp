#include "gui/views/modFillList.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/views/ListView.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kSceneProperty = "sceneID";

/// By SortOrder, ties in the project's order.
template <class Collection>
QList<qint32> orderedTags(const Collection& collection) {
  std::vector<typename Collection::Pointer> ordered(collection.begin(), collection.end());
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const auto& a, const auto& b) { return a->SortOrder < b->SortOrder; });
  QList<qint32> tags;
  tags.reserve(collection.Count());
  for (const auto& entity : ordered) {
    tags.append(entity->ID());
  }
  return tags;
}

QList<qint32> tagsOf(const IDList& ids) {
  return {ids.begin(), ids.end()};
}

/// `find` gives what has an ID.
template <class Find>
void show(ListView& list, const QList<qint32>& tags, const char* icon, Find find) {
  list.setRows(tags, [icon, find](qint32 id, int) { return ListRow{{find(id)->Title}, icon}; });
}

QStringList charCells(const clsCharacter& character, bool showFullName) {
  return showFullName ? QStringList{character.Title(), character.FullName} : QStringList{character.Title()};
}

ListRow castRow(qint32 id, bool showFullName) {
  const auto character = g_Project->CharByID(id);
  return {charCells(*character, showFullName),
          character->major ? "viewpoint" : "character",
          {},
          {character->major ? shownText(u"major"_s) : shownText(u"minor"_s)}};
}

auto locationByID() {
  return [](qint32 id) { return g_Project->LocationByID(id); };
}

auto itemByID() {
  return [](qint32 id) { return g_Project->ItemByID(id); };
}

}  // namespace

namespace modFillList {

std::vector<std::shared_ptr<clsCharacter>> orderedCharacters(bool OnlyMajor) {
  std::vector<std::shared_ptr<clsCharacter>> ordered;
  for (const auto& character : g_Project->Chars) {
    if (character->major || !OnlyMajor) {
      ordered.push_back(character);
    }
  }
  std::stable_sort(ordered.begin(), ordered.end(), [](const auto& a, const auto& b) {
    return a->major != b->major ? a->major : a->SortOrder < b->SortOrder;
  });
  return ordered;
}

void FillAllCharList(ListView& list, bool ShowFullName, bool OnlyMajor) {
  QList<qint32> tags;
  for (const auto& character : orderedCharacters(OnlyMajor)) {
    tags.append(character->ID());
  }
  list.setRows(tags, [ShowFullName](qint32 id, int) { return castRow(id, ShowFullName); });
  if (list.SelectedRow() < 0) {
    list.SelectRow(0);
  }
}

void FillCharInScene(ListView& list, qint32 SceneID, bool ShowFullName, bool OnlyMajor) {
  list.setProperty(kSceneProperty, SceneID);
  const auto scene = g_Project->SceneByID(SceneID);
  QList<qint32> tags;
  for (const qint32 id : scene->CharIDs()) {
    const auto character = g_Project->CharByID(id);
    if (id != 0 && character->Title() != u"N/A"_s && (character->major || !OnlyMajor)) {
      tags.append(id);
    }
  }
  const qint32 viewpoint = scene->ViewPointID();
  list.setRows(tags, [viewpoint, ShowFullName](qint32 id, int) {
    const auto character = g_Project->CharByID(id);
    const bool narrates = id == viewpoint;
    return ListRow{charCells(*character, ShowFullName),
                   narrates ? "viewpoint" : "character",
                   {},
                   narrates ? QStringList{shownText(u"viewpoint"_s)} : QStringList(),
                   character->FullName};
  });
}

void FillLocationsInScene(ListView& list, qint32 SceneID) {
  list.setProperty(kSceneProperty, SceneID);
  show(list, tagsOf(g_Project->SceneByID(SceneID)->LocationIDs()), "location", locationByID());
}

void FillItemsInScene(ListView& list, qint32 SceneID) {
  list.setProperty(kSceneProperty, SceneID);
  show(list, tagsOf(g_Project->SceneByID(SceneID)->ItemIDs()), "item", itemByID());
}

void FillAllLocations(ListView& list) {
  show(list, orderedTags(g_Project->Locations), "location", locationByID());
}

void FillAllItems(ListView& list) {
  show(list, orderedTags(g_Project->Items), "item", itemByID());
}

void clear(ListView& list) {
  list.setProperty(kSceneProperty, 0);
  list.clear();
}

qint32 listSceneID(const ListView& list) {
  return list.property(kSceneProperty).toInt();
}

}  // namespace modFillList
