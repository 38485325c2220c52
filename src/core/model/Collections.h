#pragma once

#include "core/model/EntityCollection.h"

#include <QString>

#include <functional>

class clsChapter;
class clsCharacter;
class clsItem;
class clsLocation;
class clsNote;
class clsScene;

// What each kind of entity is called in the log, and whether a cleared collection clears its entities.

struct SceneTraits {
  using Entity = clsScene;
  static constexpr auto kModule = "clsScenes";
  static constexpr auto kByIndex = "SceneByIndex";
  static constexpr auto kAdd = "Addscene";
  static constexpr auto kRemoveByID = "RemoveSceneByID";
  static constexpr auto kRemoveByIndex = "RemoveSceneByIndex";
  static constexpr bool kClearsEach = true;
};

struct ChapterTraits {
  using Entity = clsChapter;
  static constexpr auto kModule = "clsChapters";
  static constexpr auto kByIndex = "ChapterByIndex";
  static constexpr auto kAdd = "AddChapter";
  static constexpr auto kRemoveByID = "RemoveChapterByID";
  static constexpr auto kRemoveByIndex = "RemoveChapterByIndex";
  static constexpr bool kClearsEach = false;
};

struct CharacterTraits {
  using Entity = clsCharacter;
  static constexpr auto kModule = "clsCharacters";
  static constexpr auto kByIndex = "CharByIndex";
  static constexpr auto kAdd = "AddChar";
  static constexpr auto kRemoveByID = "RemoveCharByID";
  static constexpr auto kRemoveByIndex = "RemoveCharByIndex";
  static constexpr bool kClearsEach = true;
};

struct LocationTraits {
  using Entity = clsLocation;
  static constexpr auto kModule = "clsLocations";
  static constexpr auto kByIndex = "LocationByIndex";
  static constexpr auto kAdd = "AddLocation";
  static constexpr auto kRemoveByID = "RemoveLocationByID";
  static constexpr auto kRemoveByIndex = "RemoveLocationByIndex";
  static constexpr bool kClearsEach = true;
};

struct ItemTraits {
  using Entity = clsItem;
  static constexpr auto kModule = "clsItems";
  static constexpr auto kByIndex = "ItemByIndex";
  static constexpr auto kAdd = "AddItem";
  static constexpr auto kRemoveByID = "RemoveItemByID";
  static constexpr auto kRemoveByIndex = "RemoveItemByIndex";
  static constexpr bool kClearsEach = true;
};

struct NoteTraits {
  using Entity = clsNote;
  static constexpr auto kModule = "clsNotes";
  static constexpr auto kByIndex = "NoteByIndex";
  static constexpr auto kAdd = "AddNote";
  static constexpr auto kRemoveByID = "RemoveNoteByID";
  static constexpr auto kRemoveByIndex = "RemoveNoteByIndex";
  static constexpr bool kClearsEach = false;
};

// The six collections: the operations of EntityCollection under the names of their kind, and what a kind has more.

class clsScenes : public EntityCollection<SceneTraits> {
 public:
  /// Before each scene is read, and written; counted from 1.
  std::function<void(qint32)> LoadingNum;
  std::function<void(qint32)> SavingNum;

  Pointer SceneByID(qint32 id) const { return byID(id); }
  Pointer SceneByIndex(qint32 index) const { return byIndex(index); }
  void setSceneByIndex(qint32 index, const Pointer& scene);
  void Addscene(const Pointer& scene);
  void RemoveSceneByID(qint32 id);
  void Clear();
  bool WriteXML(int file, bool singleFile) const;
  /// Unless `singleFile`, each scene's RTF file is read too; one that is missing ends it with false, and its path goes
  /// where it is wanted.
  bool CreateFromXML(const TagView& block, bool singleFile, QString* missing = nullptr);
  bool ImportQN3(const QString& File, OlderFiles& from);
  /// Writes the file of each scene whose text is due; forced, those too that have gone from the disk. Yields now and
  /// then. What other programs left under these names stays, unless `overOthers`. A text that can't be written stays
  /// due; false, and `cause` says why, when its scene has no file at all then.
  bool SaveScenesText(bool force, bool overOthers = false, QString* cause = nullptr) const;
};

class clsChapters : public EntityCollection<ChapterTraits> {
 public:
  Pointer ChapterByID(qint32 id) const { return byID(id); }
  Pointer ChapterByIndex(qint32 index) const { return byIndex(index); }
  void setChapterByIndex(qint32 index, const Pointer& chapter) { assign(index, chapter); }
  void AddChapter(const Pointer& chapter) { add(chapter); }
  void InsertChapter(const Pointer& chapter, qint32 position) { insert(chapter, position, "InsertChapter"); }
  void RemoveChapterByID(qint32 id) { removeID(id); }
  void RemoveChapterByIndex(qint32 index);
  /// The ID at a position; 0 when there is none.
  qint32 ChapterID(qint32 index) const;
  /// 1-based position; -1 when there is no such chapter.
  qint32 ChapterIndex(qint32 id) const;
};

class clsCharacters : public EntityCollection<CharacterTraits> {
 public:
  Pointer CharByID(qint32 id) const { return byID(id); }
  Pointer CharByIndex(qint32 index) const { return byIndex(index); }
  void setCharByIndex(qint32 index, const Pointer& character) { assign(index, character); }
  void AddChar(const Pointer& character) { add(character); }
  void RemoveCharByID(qint32 id) { removeID(id); }
  void RemoveCharByIndex(qint32 index) { removeIndex(index); }
};

class clsLocations : public EntityCollection<LocationTraits> {
 public:
  Pointer LocationByID(qint32 id) const { return byID(id); }
  Pointer LocationByIndex(qint32 index) const { return byIndex(index); }
  Pointer Location(qint32 index) const { return byIndex(index); }
  void setLocation(qint32 index, const Pointer& location) { assign(index, location); }
  void AddLocation(const Pointer& location) { add(location); }
  void RemoveLocationByID(qint32 id) { removeID(id); }
  void RemoveLocationByIndex(qint32 index) { removeIndex(index); }
  /// The order of their places in the list, ties as they stood.
  void sortByPlace();
};

class clsItems : public EntityCollection<ItemTraits> {
 public:
  Pointer ItemByID(qint32 id) const { return byID(id); }
  Pointer ItemByIndex(qint32 index) const { return byIndex(index); }
  void AddItem(const Pointer& item) { add(item); }
  void RemoveItemByID(qint32 id) { removeID(id); }
  void RemoveItemByIndex(qint32 index) { removeIndex(index); }
  /// The order of their places in the list, ties as they stood.
  void sortByPlace();
};

class clsNotes : public EntityCollection<NoteTraits> {
 public:
  Pointer NoteByID(qint32 id) const { return byID(id); }
  Pointer NoteByIndex(qint32 index) const { return byIndex(index); }
  void AddNote(const Pointer& note) { add(note); }
  void RemoveNoteByID(qint32 id) { removeID(id); }
  void RemoveNoteByIndex(qint32 index) { removeIndex(index); }
};
