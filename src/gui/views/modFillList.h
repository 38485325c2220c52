#pragma once

#include <QtGlobal>

#include <memory>
#include <vector>

class ListView;
class clsCharacter;

/// The lists of characters, locations and items that several windows show. A row's tag is the entity's ID. Each
/// routine empties its list first; a list of what is in a scene remembers the scene in `listSceneID`.
namespace modFillList {

/// All characters as they are listed: majors by SortOrder, then minors by SortOrder, ties in the project's order.
std::vector<std::shared_ptr<clsCharacter>> orderedCharacters(bool OnlyMajor);

/// With `ShowFullName` the second column has the full name. The first row ends selected where none of these rows was.
void FillAllCharList(ListView& list, bool ShowFullName, bool OnlyMajor);
/// In scene order; the first is the viewpoint. Every row has the full name as tool tip.
void FillCharInScene(ListView& list, qint32 SceneID, bool ShowFullName, bool OnlyMajor);
void FillLocationsInScene(ListView& list, qint32 SceneID);
void FillItemsInScene(ListView& list, qint32 SceneID);
/// By SortOrder, ties in the project's order.
void FillAllLocations(ListView& list);
void FillAllItems(ListView& list);

/// No rows, and of no scene.
void clear(ListView& list);
/// The scene whose content the list shows; 0 when it shows none.
qint32 listSceneID(const ListView& list);

}  // namespace modFillList
