#include "core/infra/Guard.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsProject.h"

using namespace Qt::StringLiterals;

namespace {

template <class Entity>
qint32 lazyID(Entity& entity, const qint32& id) {
  if (id == 0) {
    entity.GenerateID();
  }
  return id;
}

/// Locks the record while the dialog is open; a saved edit marks it for all windows. A dialog that fails is logged
/// and counts as cancelled.
template <class Entity, class Ask>
bool runDialog(Entity& entity, EntityKind kind, clsHashTable& table, const char* module, Ask ask) {
  if (entity.EditOpen) {
    bringDialogForward(kind, entity.ID());
    return false;
  }
  table.LockRec(entity.ID());
  entity.EditOpen = true;
  bool saved = false;
  Guard("Edit", module)([&] { saved = ask(); });
  if (saved) {
    table.MarkUpdated(entity.ID());
  }
  entity.EditOpen = false;
  table.UnLockRec(entity.ID());
  return saved;
}

}  // namespace

qint32 clsCharacter::ID() {
  return lazyID(*this, id_);
}

void clsCharacter::GenerateID() {
  id_ = g_Project->Chars.nextID();
}

void clsCharacter::setTitle(const QString& title) {
  title_ = title;
  if (title.toLower() != u"n/a"_s) {
    g_CharChanges.MarkUpdated(ID());
  }
}

bool clsCharacter::Edit(qint32 arg) {
  return runDialog(*this, EntityKind::Character, g_CharChanges, "clsCharacter",
                   [&] { return entityDialogs().character && entityDialogs().character(*this, arg); });
}

void clsCharacter::Clear() {
  title_.clear();
  id_ = 0;
  Bio.clear();
  DescText.clear();
  Goals.clear();
  Notes.clear();
}

qint32 clsLocation::ID() {
  return lazyID(*this, id_);
}

void clsLocation::GenerateID() {
  id_ = g_Project->Locations.nextID();
}

bool clsLocation::Edit() {
  return runDialog(*this, EntityKind::Location, g_LocationChanges, "clsLocation",
                   [&] { return entityDialogs().location && entityDialogs().location(*this); });
}

qint32 clsItem::ID() {
  return lazyID(*this, id_);
}

void clsItem::GenerateID() {
  id_ = g_Project->Items.nextID();
}

bool clsItem::Edit() {
  return runDialog(*this, EntityKind::Item, g_ItemChanges, "clsItem",
                   [&] { return entityDialogs().item && entityDialogs().item(*this); });
}

void StoryThing::Clear() {
  Title.clear();
  DescText.clear();
  id_ = 0;
}

qint32 clsNote::ID() {
  return lazyID(*this, id_);
}

void clsNote::GenerateID() {
  id_ = g_Project->Notes.nextID();
}

void clsNote::Clear() {
  Title.clear();
  DescText.clear();
  id_ = 0;
}
