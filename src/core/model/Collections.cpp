#include "core/model/Collections.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsScene.h"

clsScenes::Pointer clsScenes::SceneByID(qint32 id) const {
  return byID(id);
}

clsScenes::Pointer clsScenes::SceneByIndex(qint32 index) const {
  return byIndex(index, "SceneByIndex", "clsScenes");
}

void clsScenes::setSceneByIndex(qint32 index, const Pointer& scene) {
  const Pointer before = index > Count() ? nullptr : SceneByIndex(index);
  if (!assign(index, scene, "SceneByIndex", "clsScenes")) {
    return;
  }
  if (before) {
    before->InScenes = false;
  }
  scene->InScenes = true;
}

void clsScenes::Addscene(const Pointer& scene) {
  add(scene, "Addscene", "clsScenes");
  if (scene) {
    scene->InScenes = true;
  }
}

void clsScenes::RemoveSceneByID(qint32 id) {
  // A scene that comes back to a chapter has to come back to the project too.
  SceneByID(id)->InScenes = false;
  removeID(id, "RemoveSceneByID", "clsScenes");
  g_SceneChanges.MarkDeleted(id);
}

QSet<QString> clsScenes::TextFileNames() const {
  QSet<QString> names;
  names.reserve(Count());
  for (const Pointer& scene : *this) {
    names.insert(scene->RTFFilename());
  }
  return names;
}

void clsScenes::Clear() {
  for (const Pointer& scene : *this) {
    scene->InScenes = false;
  }
  clearEach();
}

clsChapters::Pointer clsChapters::ChapterByID(qint32 id) const {
  return byID(id);
}

clsChapters::Pointer clsChapters::ChapterByIndex(qint32 index) const {
  return byIndex(index, "ChapterByIndex", "clsChapters");
}

void clsChapters::setChapterByIndex(qint32 index, const Pointer& chapter) {
  assign(index, chapter, "ChapterByIndex", "clsChapters");
}

qint32 clsChapters::ChapterID(qint32 index) const {
  const Pointer chapter = ChapterByIndex(index);
  return chapter ? chapter->ID() : 0;
}

qint32 clsChapters::ChapterIndex(qint32 id) const {
  qint32 index = 0;
  for (const Pointer& chapter : *this) {
    ++index;
    if (chapter->ID() == id) {
      return index;
    }
  }
  return -1;
}

void clsChapters::AddChapter(const Pointer& chapter) {
  add(chapter, "AddChapter", "clsChapters");
}

void clsChapters::InsertChapter(const Pointer& chapter, qint32 position) {
  insert(chapter, position, "InsertChapter", "clsChapters");
}

void clsChapters::RemoveChapterByID(qint32 id) {
  removeID(id, "RemoveChapterByID", "clsChapters");
}

void clsChapters::RemoveChapterByIndex(qint32 index) {
  if (index <= Count()) {
    removeIndex(index, "RemoveChapterByIndex", "clsChapters");
  }
}

clsCharacters::Pointer clsCharacters::CharByID(qint32 id) const {
  return byID(id);
}

clsCharacters::Pointer clsCharacters::CharByIndex(qint32 index) const {
  return byIndex(index, "CharByIndex", "clsCharacters");
}

void clsCharacters::setCharByIndex(qint32 index, const Pointer& character) {
  assign(index, character, "CharByIndex", "clsCharacters");
}

void clsCharacters::AddChar(const Pointer& character) {
  add(character, "AddChar", "clsCharacters");
}

void clsCharacters::RemoveCharByID(qint32 id) {
  removeID(id, "RemoveCharByID", "clsCharacters");
}

void clsCharacters::RemoveCharByIndex(qint32 index) {
  removeIndex(index, "RemoveCharByIndex", "clsCharacters");
}

void clsCharacters::Clear() {
  clearEach();
}

clsLocations::Pointer clsLocations::LocationByID(qint32 id) const {
  return byID(id);
}

clsLocations::Pointer clsLocations::LocationByIndex(qint32 index) const {
  return byIndex(index, "LocationByIndex", "clsLocations");
}

void clsLocations::setLocation(qint32 index, const Pointer& location) {
  assign(index, location, "Location", "clsLocations");
}

void clsLocations::AddLocation(const Pointer& location) {
  add(location, "AddLocation", "clsLocations");
}

void clsLocations::RemoveLocationByID(qint32 id) {
  removeID(id, "RemoveLocationByID", "clsLocations");
}

void clsLocations::RemoveLocationByIndex(qint32 index) {
  removeIndex(index, "RemoveLocationByIndex", "clsLocations");
}

void clsLocations::Clear() {
  clearEach();
}

clsItems::Pointer clsItems::ItemByID(qint32 id) const {
  return byID(id);
}

clsItems::Pointer clsItems::ItemByIndex(qint32 index) const {
  return byIndex(index, "ItemByIndex", "clsItems");
}

void clsItems::AddItem(const Pointer& item) {
  add(item, "AddItem", "clsItems");
}

void clsItems::RemoveItemByID(qint32 id) {
  removeID(id, "RemoveItemByID", "clsItems");
}

void clsItems::RemoveItemByIndex(qint32 index) {
  removeIndex(index, "RemoveItemByIndex", "clsItems");
}

void clsItems::Clear() {
  clearEach();
}

clsNotes::Pointer clsNotes::NoteByID(qint32 id) const {
  return byID(id);
}

clsNotes::Pointer clsNotes::NoteByIndex(qint32 index) const {
  return byIndex(index, "NoteByIndex", "clsNotes");
}

void clsNotes::AddNote(const Pointer& note) {
  add(note, "AddNote", "clsNotes");
}

void clsNotes::RemoveNoteByID(qint32 id) {
  removeID(id, "RemoveNoteByID", "clsNotes");
}

void clsNotes::RemoveNoteByIndex(qint32 index) {
  removeIndex(index, "RemoveNoteByIndex", "clsNotes");
}
