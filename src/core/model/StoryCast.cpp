#include "core/model/StoryCast.h"

#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"

#include <algorithm>
#include <limits>

namespace {

template <class Act>
auto withEntity(CastKind kind, qint32 id, Act act) {
  switch (kind) {
    case CastKind::Character:
      return act(*g_Project->CharByID(id));
    case CastKind::Location:
      return act(*g_Project->LocationByID(id));
    default:
      return act(*g_Project->ItemByID(id));
  }
}

template <class Act>
auto withCollection(CastKind kind, Act act) {
  switch (kind) {
    case CastKind::Character:
      return act(g_Project->Chars);
    case CastKind::Location:
      return act(g_Project->Locations);
    default:
      return act(g_Project->Items);
  }
}

clsHashTable& changesOf(CastKind kind) {
  switch (kind) {
    case CastKind::Character:
      return g_CharChanges;
    case CastKind::Location:
      return g_LocationChanges;
    default:
      return g_ItemChanges;
  }
}

qint16 placeOf(CastKind kind, qint32 id) {
  return withEntity(kind, id, [](const auto& entity) { return entity.SortOrder; });
}

void setPlace(CastKind kind, qint32 id, qint16 place) {
  withEntity(kind, id, [place](auto& entity) { entity.SortOrder = place; });
}

}  // namespace

namespace StoryCast {

bool contains(CastKind kind, qint32 id) {
  return withCollection(kind, [id](const auto& all) {
    return std::any_of(all.begin(), all.end(), [id](const auto& entity) { return entity->ID() == id; });
  });
}

bool edit(CastKind kind, qint32 id) {
  if (!contains(kind, id)) {
    return false;
  }
  switch (kind) {
    case CastKind::Character:
      return g_Project->CharByID(id)->Edit(0);
    case CastKind::Location:
      return g_Project->LocationByID(id)->Edit();
    default:
      return g_Project->ItemByID(id)->Edit();
  }
}

bool enterNew(CastKind kind) {
  switch (kind) {
    case CastKind::Character:
      return g_Project->EnterNewChar();
    case CastKind::Location:
      return g_Project->EnterNewLocation();
    default:
      return g_Project->EnterNewItem();
  }
}

void remove(CastKind kind, qint32 id) {
  if (!contains(kind, id)) {
    return;
  }
  switch (kind) {
    case CastKind::Character:
      g_Project->RemoveCharByID(id);
      break;
    case CastKind::Location:
      g_Project->RemoveLocationByID(id);
      break;
    default:
      g_Project->RemoveItemByID(id);
  }
  changesOf(kind).MarkDeleted(id);
}

void number(CastKind kind, const QList<qint32>& ids) {
  qint16 place = 0;
  for (const qint32 id : ids) {
    place = std::min<qint16>(place, std::numeric_limits<qint16>::max() - 1) + 1;
    setPlace(kind, id, place);
  }
  if (kind == CastKind::Location) {
    g_Project->Locations.sortByPlace();
  } else if (kind == CastKind::Item) {
    g_Project->Items.sortByPlace();
  }
}

void swapPlaces(CastKind kind, qint32 a, qint32 b) {
  const qint16 place = placeOf(kind, a);
  setPlace(kind, a, placeOf(kind, b));
  setPlace(kind, b, place);
  changesOf(kind).MarkUpdated(a);
  changesOf(kind).MarkUpdated(b);
}

}  // namespace StoryCast
