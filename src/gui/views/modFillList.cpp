#include "gui/views/modFillList.h"

#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/toolkit/PlainToolTip.h"
#include "gui/views/ListView.h"
#include "gui/views/RowIcon.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kSceneProperty = "sceneID";

QTreeWidgetItem* row(qint32 id, const QString& text, const char* iconKey) {
  auto* item = new QTreeWidgetItem({text});
  ListView::setTag(*item, id);
  item->setIcon(0, rowIcon(iconKey));
  return item;
}

QTreeWidgetItem* characterRow(clsCharacter& character, const char* iconKey, bool showFullName) {
  QTreeWidgetItem* item = row(character.ID(), character.Title(), iconKey);
  if (showFullName) {
    item->setText(1, character.FullName);
  }
  return item;
}

/// The rows go in at one stroke: the list lays itself out once.
void show(ListView& list, const QList<QTreeWidgetItem*>& rows) {
  list.clear();
  list.addTopLevelItems(rows);
}

template <class Collection>
void showAll(ListView& list, const Collection& collection, const char* iconKey) {
  QList<QTreeWidgetItem*> rows;
  for (const auto& entity : collection) {
    rows.append(row(entity->ID(), entity->Title, iconKey));
  }
  show(list, rows);
}

template <class Find>
void showListed(ListView& list, qint32 sceneID, const IDList& ids, const char* iconKey, const Find& find) {
  list.setProperty(kSceneProperty, sceneID);
  QList<QTreeWidgetItem*> rows;
  for (const qint32 id : ids) {
    rows.append(row(id, find(id)->Title, iconKey));
  }
  show(list, rows);
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
  QList<QTreeWidgetItem*> rows;
  for (const auto& character : orderedCharacters(OnlyMajor)) {
    rows.append(characterRow(*character, character->major ? "viewpoint" : "character", ShowFullName));
  }
  show(list, rows);
  list.SelectRow(0);
}

void FillCharInScene(ListView& list, qint32 SceneID, bool ShowFullName, bool OnlyMajor) {
  list.setProperty(kSceneProperty, SceneID);
  const auto scene = g_Project->SceneByID(SceneID);
  const qint32 viewpoint = scene->ViewPointID();
  QList<QTreeWidgetItem*> rows;
  for (const qint32 id : scene->CharIDs()) {
    const auto character = g_Project->CharByID(id);
    if (id == 0 || character->Title() == u"N/A"_s || (OnlyMajor && !character->major)) {
      continue;
    }
    QTreeWidgetItem* item = characterRow(*character, id == viewpoint ? "viewpoint" : "character", ShowFullName);
    ListView::setTag(*item, id);
    item->setToolTip(0, plainToolTip(character->FullName));
    rows.append(item);
  }
  show(list, rows);
}

void FillLocationsInScene(ListView& list, qint32 SceneID) {
  const auto scene = g_Project->SceneByID(SceneID);
  showListed(list, SceneID, scene->LocationIDs(), "location", [](qint32 id) { return g_Project->LocationByID(id); });
}

void FillItemsInScene(ListView& list, qint32 SceneID) {
  const auto scene = g_Project->SceneByID(SceneID);
  showListed(list, SceneID, scene->ItemIDs(), "item", [](qint32 id) { return g_Project->ItemByID(id); });
}

void FillAllLocations(ListView& list) {
  showAll(list, g_Project->Locations, "location");
}

void FillAllItems(ListView& list) {
  showAll(list, g_Project->Items, "item");
}

qint32 listSceneID(const ListView& list) {
  return list.property(kSceneProperty).toInt();
}

}  // namespace modFillList
