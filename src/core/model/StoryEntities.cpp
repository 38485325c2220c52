#include "core/model/Globals.h"
#include "core/model/SheetRun.h"
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

class LockedRecord {
 public:
  LockedRecord(clsHashTable& table, qint32 id) : table_(table), id_(id) { table_.LockRec(id_); }
  ~LockedRecord() { table_.UnLockRec(id_); }
  LockedRecord(const LockedRecord&) = delete;
  LockedRecord& operator=(const LockedRecord&) = delete;

 private:
  clsHashTable& table_;
  qint32 id_;
};

/// Locks the record while the dialog is open; a confirmed edit marks it for all windows.
template <class Entity, class Ask>
bool runLocked(Entity& entity, EntityKind kind, clsHashTable& table, const char* module, Ask ask) {
  const bool saved = runSheet(entity, kind, "Edit", module, [&](const SheetSubject& subject) {
    const LockedRecord lock(table, subject.id);
    return ask(subject);
  });
  if (saved) {
    table.MarkUpdated(entity.ID());
  }
  return saved;
}

CharacterDetails detailsOf(const clsCharacter& character) {
  return {character.Title(), character.FullName, character.AlternateNames, character.DescText, character.Tags,
          character.major,   character.Bio,      character.Goals,          character.Notes,    character.ImageFile};
}

void take(clsCharacter& character, const CharacterDetails& details) {
  character.setTitle(details.Title);
  character.Bio = details.Bio;
  character.Goals = details.Goals;
  character.FullName = details.FullName;
  character.Notes = details.Notes;
  character.ImageFile = details.ImageFile;
  character.DescText = details.DescText;
  character.AlternateNames = details.AlternateNames;
  character.Tags = details.Tags;
  character.major = details.major;
}

void takeThing(StoryThing& thing, const ThingDetails& details) {
  thing.Title = details.Title;
  thing.DescText = details.DescText;
  thing.Tags = details.Tags;
}

template <class Thing>
bool askForThing(Thing& thing, const SheetSubject& subject) {
  const auto& ask = entityDialogs().thing;
  const auto details =
      ask ? ask(keeping<ThingDetails>(subject, thing, &takeThing), {thing.Title, thing.DescText, thing.Tags})
          : std::nullopt;
  if (details) {
    takeThing(thing, *details);
  }
  return details.has_value();
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
  return runLocked(*this, EntityKind::Character, g_CharChanges, "clsCharacter", [&](const SheetSubject& subject) {
    const auto& ask = entityDialogs().character;
    const auto details =
        ask ? ask(keeping<CharacterDetails>(subject, *this, &take), detailsOf(*this), arg) : std::nullopt;
    if (details) {
      take(*this, *details);
    }
    return details.has_value();
  });
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
  return runLocked(*this, EntityKind::Location, g_LocationChanges, "clsLocation",
                   [&](const SheetSubject& subject) { return askForThing(*this, subject); });
}

qint32 clsItem::ID() {
  return lazyID(*this, id_);
}

void clsItem::GenerateID() {
  id_ = g_Project->Items.nextID();
}

bool clsItem::Edit() {
  return runLocked(*this, EntityKind::Item, g_ItemChanges, "clsItem",
                   [&](const SheetSubject& subject) { return askForThing(*this, subject); });
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
