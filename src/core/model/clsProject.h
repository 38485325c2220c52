#pragma once

#include "core/infra/FileStamp.h"
#include "core/model/Collections.h"
#include "core/model/SaveNote.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <memory>

class BusyMark;
class FolderLock;
class KeyedFile;
class LongWork;
class OlderFiles;
class TagView;

/// The document: the root of everything the writer has written. One is alive at a time, in g_Project; every
/// entity reaches its siblings through that.
class clsProject {
 public:
  clsProject();
  ~clsProject();
  clsProject(const clsProject&) = delete;
  clsProject& operator=(const clsProject&) = delete;

  /// Every scene, whichever chapter it is in.
  clsScenes Scenes;
  /// Book order.
  clsChapters Chapters;
  clsLocations Locations;
  clsItems Items;
  clsCharacters Chars;
  clsNotes Notes;

  bool QN3FileMode = false;
  /// The path given to the import of an older project.
  QString SourceFile;
  /// Full path of the project file; empty when the project was never saved.
  QString FileWithPath;
  QString Title;
  QString AuthorBio;
  QString AuthorName;
  QString DescText;
  /// The daily word target's period, as day numbers.
  qint32 WordTargetStartDate = 0;
  qint32 WordTargetEndDate = 0;
  qint32 WordTarget = 0;
  /// IDs of the chapters that end the book's sections; a removed chapter stays named.
  qint32 EndMiddleChID = 0;
  qint32 EndBeginningChID = 0;
  qint32 WordCountStart = 0;
  /// Names of the list files of older projects; read and never written.
  QString LocationFile;
  QString ItemFile;
  QString CharacterFile;
  QString SceneFile;
  QString ChapterFile;

  // Indexed properties; RuntimeError 9 for an index outside.
  qint32 LastFileIndex(int index) const;
  void setLastFileIndex(int index, qint32 value);
  /// Day numbers for the status levels 1 to 5.
  qint32 DeadlineDate(int level) const;
  void setDeadlineDate(int level, qint32 dayNumber);
  qint32 DeadlineStartDate(int level) const;
  void setDeadlineStartDate(int level, qint32 dayNumber);
  /// The project's names of the ratings 1 to 4.
  const QString& FieldTitle(int index) const;
  /// Throws what checkFieldTitle throws; the name is the former one then.
  void setFieldTitle(int index, const QString& name);
  /// The project file holds these names as they stand: throws RuntimeError 5, with a text for the user, for one that
  /// would not come back from the file, because of a character that its code page lacks or of a tag.
  static void checkFieldTitle(const QString& name);

  /// The project's folder, ending in a separator; "./" when the file name has none.
  QString Path() const;
  /// The folder of the scenes' texts in it, ending in a separator, in the letters that it has on the disk.
  QString RTFFolder() const;
  /// FileWithPath is in the folder that the book was read from or last saved to.
  bool IsInOwnFolder() const;
  /// The folder of the day's backups, ending in a separator.
  QString TodaysBackupFolder() const;
  void MakeAutoBackupFolder() const;
  /// Packs one file into an archive; false, and logged, when that failed.
  bool BackupThisFile(const QString& File, const QString& ZipName) const;
  /// Packs the project file and the settings into the day's archive, with the scenes' files into the complete one; with
  /// WeekdayFile into one that bears the day's name. False, and logged, when anything of it is not in there.
  bool BackupProject(bool Complete, bool WeekdayFile);
  /// Words of all chapters.
  qint32 Wordcount(bool includeUnused) const;
  qint32 ChapterCount() const { return Chapters.Count(); }
  qint32 SceneCount() const { return Scenes.Count(); }
  qint32 LocationCount() const { return Locations.Count(); }
  qint32 ItemCount() const { return Items.Count(); }
  qint32 NoteCount() const { return Notes.Count(); }
  qint32 CharCount() const { return Chars.Count(); }

  std::shared_ptr<clsChapter> ChapterByIndex(qint32 index) const { return Chapters.ChapterByIndex(index); }
  std::shared_ptr<clsChapter> ChapterByID(qint32 id) const { return Chapters.ChapterByID(id); }
  std::shared_ptr<clsLocation> LocationByIndex(qint32 index) const { return Locations.LocationByIndex(index); }
  std::shared_ptr<clsLocation> LocationByID(qint32 id) const { return Locations.LocationByID(id); }
  std::shared_ptr<clsItem> ItemByIndex(qint32 index) const { return Items.ItemByIndex(index); }
  std::shared_ptr<clsItem> ItemByID(qint32 id) const { return Items.ItemByID(id); }
  std::shared_ptr<clsScene> SceneByIndex(qint32 index) const { return Scenes.SceneByIndex(index); }
  std::shared_ptr<clsScene> SceneByID(qint32 id) const { return Scenes.SceneByID(id); }
  std::shared_ptr<clsNote> NoteByID(qint32 id) const { return Notes.NoteByID(id); }
  std::shared_ptr<clsCharacter> CharByIndex(qint32 index) const { return Chars.CharByIndex(index); }
  /// ID 0 gives a character titled "N/A" that is in no collection.
  std::shared_ptr<clsCharacter> CharByID(qint32 id) const;

  void AddChar(const std::shared_ptr<clsCharacter>& character) { Chars.AddChar(character); }
  void InsertCharacter(const std::shared_ptr<clsCharacter>& character) { Chars.AddChar(character); }
  void AddChapter(const std::shared_ptr<clsChapter>& chapter) { Chapters.AddChapter(chapter); }
  void InsertChapter(const std::shared_ptr<clsChapter>& chapter, qint32 position) {
    Chapters.InsertChapter(chapter, position);
  }
  void Addscene(const std::shared_ptr<clsScene>& scene) { Scenes.Addscene(scene); }
  void AddLocation(const std::shared_ptr<clsLocation>& location) { Locations.AddLocation(location); }
  void AddItem(const std::shared_ptr<clsItem>& item) { Items.AddItem(item); }
  void AddNote(const std::shared_ptr<clsNote>& note) { Notes.AddNote(note); }

  // What refers to the removed entity forgets it. A chapter's scenes stay in Scenes.
  void RemoveChapterByID(qint32 id) { Chapters.RemoveChapterByID(id); }
  void RemoveCharByID(qint32 id);
  void RemoveSceneByID(qint32 id);
  void RemoveLocationByID(qint32 id);
  void RemoveItemByID(qint32 id);
  void RemoveNoteByID(qint32 id) { Notes.RemoveNoteByID(id); }

  // A new entity through its dialog; true when it was accepted, added and the project saved.
  bool EnterNewChapter();
  bool EnterNewLocation();
  bool EnterNewItem();
  bool EnterNewChar();
  /// A new scene in a chapter (position 0: at the end), written in the modal editor; true when it was saved there.
  bool CreateNewScene(qint32 chapterID, qint32 position);
  void AddEditCharacters(qint32 arg);
  void AddEditLocations();
  void AddEditItems();

  void MarkAllCharInEditorWindows();
  void UnMarkAllCharInEditorWindows();
  void UpdateCombosInEditorWindows();
  /// What open editors hold goes into their scenes and files, without a question.
  void SaveEditorWindows();
  /// An open editor holds what no save has taken up.
  bool EditorsHoldUnsaved() const;
  /// Each open editor that holds such is asked whether to save it. False as soon as one is to stay as it is.
  bool AskEditorWindows();
  /// Closes them all without a question: what was to be saved has been by then.
  void CloseEditorWindows();

  /// Days from the level's start, or from today when that has passed, to its deadline; both days count.
  qint32 DaysLeft(int level, double today) const;
  /// Number of scenes that this character narrates.
  qint32 VPUsedCount(qint32 charID) const;
  bool IsViewpointSomewhere(qint32 charID) const;

  /// Empties FileWithPath and the collections; scalar fields keep their values.
  void Clear();
  /// Empties the collections; where the book stands, and what is known of its files there, stays.
  void ClearContents();
  /// Another book of the same folder may be opened meanwhile.
  void UnlockFolder();
  void LockFolder();
  /// A load or save is under way, or a walk over its scenes: nothing may replace or end the project now.
  bool IsBusy() const { return busy_; }
  /// Something was edited that the file doesn't hold. What another program has left there is no longer wanted in its
  /// place: that is asked about again.
  void MarkEdited();
  /// It was edited so since the project was loaded or last saved.
  bool EditedSinceSave() const { return editedSinceSave_; }
  /// A scene's plan, or the scene itself, was saved by its editor and isn't in the project file yet.
  bool PlanDue() const { return planDue_; }
  void setPlanDue() { planDue_ = true; }
  /// Nothing in it that could be lost.
  bool IsEmpty() const;
  /// The number of scenes whose text is due to be written to its file.
  qint32 UnsavedTexts() const;
  /// Something of it stands in memory alone: it has no file, an edited scene isn't in the project file yet, or the
  /// file of a scene could not be written.
  bool HoldsUnsaved() const;
  /// Opened to be looked at: nothing is saved to its own place.
  bool ReadOnly() const { return readOnly_; }
  /// What is saved of it has where to go: it has a file, which isn't read-only.
  bool HasPlace() const { return !FileWithPath.isEmpty() && !readOnly_; }
  /// The project file that was opened had been cut off, and hasn't been written since.
  bool OpenedIncomplete() const { return !incompleteFile_.isEmpty(); }
  /// The user wants the project file as another program has left it, in the place of what is in memory.
  bool ReloadWanted() const { return reloadWanted_; }
  /// How its saves went.
  const SaveNote& LastSaves() const { return lastSaves_; }
  /// A project file of the generation before, which is converted when it is loaded.
  static bool IsQN3(const QString& file);
  /// True on success; a failed load leaves an empty project. The user has been told by then. A file of generation 3 is
  /// converted and saved in the present form; until that is done all of it stays as it is.
  bool Load(const QString& file, bool showProgress);
  /// Writes the project and every scene that is due. With progress every RTF file is written anew. False when the
  /// user gave up: the project is whole in memory then, counts as unsaved, and the next save tries its own file again.
  bool SaveQN4(bool showProgress);
  /// The same as one file with the scenes' RTF inside.
  bool SaveQNC4(bool showProgress);
  /// Asks for another place and saves there. False on cancel.
  bool SaveAs();

  void DataAsXML(QByteArray& out) const;
  /// False, and logged, at the first field that can't be read.
  bool CreateFromXML(const TagView& element);

 private:
  friend class BusyMark;
  friend class DiskConflicts;
  friend class LongWork;
  friend class OlderCopy;
  friend class ProjectLoader;
  friend class ProjectSaver;
  friend class RescueFolder;
  friend class clsScene;

  /// What the project file of generation 3 holds; what it doesn't is as in a new one.
  void CopySettingsToVariables(const KeyedFile& file, OlderFiles& from);
  /// The texts that still older files have beside it.
  void ImportDescBioFiles(const KeyedFile& file, OlderFiles& from);
  void cScenes_LoadingNum(qint32 number);
  void cScenes_SavingNum(qint32 number);
  void eachOpenEditor(void (clsScene::*action)());
  void manageAndSave(int type);

  std::array<qint32, 7> lastFileIndex_{};
  std::array<qint32, 5> deadlineDate_{};
  std::array<qint32, 5> deadlineStartDate_{};
  std::array<QString, 4> fieldTitle_;
  bool editedSinceSave_ = false;
  bool planDue_ = false;
  SaveNote lastSaves_;
  /// How many texts were unsaved, and at which number of changes of the scenes' flags.
  mutable qint32 unsavedTexts_ = 0;
  mutable quint64 unsavedTextsAt_ = 0;
  /// The file that was opened and had been cut off: it isn't written over unasked. Empty for a whole one.
  QString incompleteFile_;
  /// The file that the book was read from or last written to, and what that looked like then.
  QString storedIn_;
  FileStamp stored_;
  /// The book stands where it was read from, and what a save there may replace of another one wasn't asked about yet.
  bool freshlyRead_ = false;
  /// The project's folder that was looked into last for the folder of the texts, and what that is called there.
  mutable QString rtfFolderOf_;
  mutable QString rtfFolderName_;
  std::unique_ptr<FolderLock> lock_;
  bool readOnly_ = false;
  /// The folders for texts that saves of this book have made: no other book is in them.
  QStringList made_;
  bool reloadWanted_ = false;
  /// The folder for the texts of a book without a file; named when it is first needed.
  QString rescueFolder_;
  /// A load or save is under way; what it yields to must not begin another.
  bool busy_ = false;
  /// The long work that shows its progress, while there is one.
  LongWork* work_ = nullptr;
};
