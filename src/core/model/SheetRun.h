#pragma once

#include "core/infra/Guard.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <memory>

/// The collections in which an entity of its kind stands once it is in the book.
inline const auto& bookCollectionOf(const clsChapter&) {
  return g_Project->Chapters;
}
inline const auto& bookCollectionOf(const clsCharacter&) {
  return g_Project->Chars;
}
inline const auto& bookCollectionOf(const clsLocation&) {
  return g_Project->Locations;
}
inline const auto& bookCollectionOf(const clsItem&) {
  return g_Project->Items;
}

template <class Entity>
bool isInBook(const Entity& entity) {
  const auto& all = bookCollectionOf(entity);
  return std::any_of(all.begin(), all.end(), [&](const auto& other) { return other.get() == &entity; });
}

inline void addToBook(const std::shared_ptr<clsChapter>& chapter) {
  g_Project->AddChapter(chapter);
}
inline void addToBook(const std::shared_ptr<clsCharacter>& character) {
  g_Project->AddChar(character);
}
inline void addToBook(const std::shared_ptr<clsLocation>& location) {
  g_Project->AddLocation(location);
}
inline void addToBook(const std::shared_ptr<clsItem>& item) {
  g_Project->AddItem(item);
}

/// The subject of a sheet whose values `take` puts into the entity. One that is new joins the book when they are to be
/// kept while the sheet is still up.
template <class Details, class Entity, class Take>
SubjectOf<Details> keeping(const SheetSubject& subject, Entity& entity, Take take) {
  return {subject, [&entity, take](const Details& typed) {
            take(entity, typed);
            if (!isInBook(entity)) {
              addToBook(entity.shared_from_this());
            }
          }};
}

/// Opens the sheet on an entity, which lives on as long as the sheet does. `ask` shows it and takes over what was
/// edited; true when the user confirmed. One that is open already comes forward; one that fails is logged and counts
/// as cancelled.
template <class Entity, class Ask>
bool runSheet(Entity& entity, EntityKind kind, const char* routine, const char* module, Ask ask) {
  const qint32 id = entity.ID();
  if (entity.EditOpen) {
    bringDialogForward(kind, id);
    return false;
  }
  const std::shared_ptr<Entity> alive = entity.weak_from_this().lock();
  const QScopedValueRollback open(entity.EditOpen, true);
  const bool isNew = !isInBook(entity);
  const SheetSubject subject{kind, id, [&entity, isNew, book = g_Project.get()] {
                               return g_Project.get() == book && (isNew || isInBook(entity));
                             }};
  bool saved = false;
  Guard(routine, module)([&] { saved = ask(subject) && subject.isThere(); });
  return saved;
}
