#pragma once

#include "core/model/EntityCollection.h"

#include <QByteArrayView>
#include <QSet>
#include <QString>

#include <functional>

class TagView;
class clsChapter;
class clsCharacter;
class clsItem;
class clsLocation;
class clsNote;
class clsScene;

// The six collections. A look-up by ID never fails: an unknown ID gives a new blank object in no collection.
// By index, from 1, there is no object above the count. An add of an ID that is there already is logged and
// nothing else. WriteXML prints the block to an open file; when that isn't one it says so in the log, prints
// nothing and is true all the same; a failure while printing makes it false and goes on. CreateFromXML replaces
// the content by that of a block; the first error ends it with false.

class clsScenes : public EntityCollection<clsScene> {
 public:
  /// Before each scene is read, and written; counted from 1.
  std::function<void(qint32)> LoadingNum;
  std::function<void(qint32)> SavingNum;

  Pointer SceneByID(qint32 id) const;
  Pointer SceneByIndex(qint32 index) const;
  void setSceneByIndex(qint32 index, const Pointer& scene);
  void Addscene(const Pointer& scene);
  void RemoveSceneByID(qint32 id);
  void Clear();
  bool WriteXML(int file, bool singleFile);
  /// Unless `singleFile`, each scene's RTF file is read too; one that is missing ends it with false.
  bool CreateFromXML(QByteArrayView xml, bool singleFile);
  bool CreateFromXML(const TagView& block, bool singleFile);
  bool SaveScenesText(bool force);
  /// Gives a file name to each scene that has none yet.
  void NameScenesText();
  /// The names of the scenes' files.
  QSet<QString> TextFileNames() const;
};

class clsChapters : public EntityCollection<clsChapter> {
 public:
  Pointer ChapterByID(qint32 id) const;
  Pointer ChapterByIndex(qint32 index) const;
  void setChapterByIndex(qint32 index, const Pointer& chapter);
  /// The ID at a position; 0 when there is none.
  qint32 ChapterID(qint32 index) const;
  /// 1-based position; -1 when there is no such chapter.
  qint32 ChapterIndex(qint32 id) const;
  void AddChapter(const Pointer& chapter);
  void InsertChapter(const Pointer& chapter, qint32 position);
  void RemoveChapterByID(qint32 id);
  void RemoveChapterByIndex(qint32 index);
  void Clear() { removeAll(); }
  bool WriteXML(int file);
  bool CreateFromXML(QByteArrayView xml);
  bool CreateFromXML(const TagView& block);
};

class clsCharacters : public EntityCollection<clsCharacter> {
 public:
  Pointer CharByID(qint32 id) const;
  Pointer CharByIndex(qint32 index) const;
  void setCharByIndex(qint32 index, const Pointer& character);
  void AddChar(const Pointer& character);
  void RemoveCharByID(qint32 id);
  void RemoveCharByIndex(qint32 index);
  void Clear();
  bool WriteXML(int file);
  bool CreateFromXML(QByteArrayView xml);
  bool CreateFromXML(const TagView& block);
};

class clsLocations : public EntityCollection<clsLocation> {
 public:
  Pointer LocationByID(qint32 id) const;
  Pointer LocationByIndex(qint32 index) const;
  Pointer Location(qint32 index) const { return LocationByIndex(index); }
  void setLocation(qint32 index, const Pointer& location);
  void AddLocation(const Pointer& location);
  void RemoveLocationByID(qint32 id);
  void RemoveLocationByIndex(qint32 index);
  void Clear();
  bool WriteXML(int file);
  bool CreateFromXML(QByteArrayView xml);
  bool CreateFromXML(const TagView& block);
};

class clsItems : public EntityCollection<clsItem> {
 public:
  Pointer ItemByID(qint32 id) const;
  Pointer ItemByIndex(qint32 index) const;
  void AddItem(const Pointer& item);
  void RemoveItemByID(qint32 id);
  void RemoveItemByIndex(qint32 index);
  void Clear();
  bool WriteXML(int file);
  bool CreateFromXML(QByteArrayView xml);
  bool CreateFromXML(const TagView& block);
};

class clsNotes : public EntityCollection<clsNote> {
 public:
  Pointer NoteByID(qint32 id) const;
  Pointer NoteByIndex(qint32 index) const;
  void AddNote(const Pointer& note);
  void RemoveNoteByID(qint32 id);
  void RemoveNoteByIndex(qint32 index);
  void Clear() { removeAll(); }
  bool WriteXML(int file);
  bool CreateFromXML(QByteArrayView xml);
  bool CreateFromXML(const TagView& block);
};
