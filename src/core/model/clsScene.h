#pragma once

#include "core/infra/FileStamp.h"
#include "core/model/IDList.h"
#include "core/model/WatchedFlag.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <memory>

class clsCharacter;
class clsItem;
class clsLocation;
class KeyedFile;
class OlderFiles;
class OpenEditor;
class SceneEditor;
class SceneFolder;
class TagView;

/// The unit of writing: one rich text and its planning data. The text is held as RTF and mirrored to a file of its
/// own; plain text and counts are derived when they are asked for.
class clsScene : public std::enable_shared_from_this<clsScene> {
 public:
  clsScene() = default;
  ~clsScene();
  clsScene(const clsScene&) = delete;
  clsScene& operator=(const clsScene&) = delete;

  /// True when the editor that closed last had saved.
  bool SavedByEditor = false;

  QString Title;
  qint32 BelongsToChID = 0;
  /// Set aside: still in the list, left out of counts and most output.
  bool Unused = false;
  QString Conflict;
  QString Goal;
  QString Outcome;
  /// Story time; Day is a day number in the story.
  qint16 Minute = 0;
  qint16 Hour = 0;
  qint16 Day = 0;
  qint16 LastsMinutes = 0;
  qint16 LastsHours = 0;
  qint16 LastsDays = 0;
  bool ReactionScene = false;
  bool SubPlot = false;
  /// Index into g_StatusNames; 0 when it was never set.
  qint16 Status = 0;
  QString DescText;
  QString Notes;
  QString Tags;

  /// Given at the first look, where none was loaded.
  qint32 ID();
  /// True once the scene is in the project's collection.
  bool InScenes() const { return inScenes_; }
  /// An editor window is open on this scene.
  bool EditingScene() const;
  /// Ratings. Throws RuntimeError 9 outside 0 to 5.
  qint16 Field(int index) const;
  void setField(int index, qint16 value);

  /// Notes that are blanks and line ends alone are none.
  bool HasNote() const;
  /// An editor is open.
  bool Locked();
  /// Day number of the story time, with the time of day as its fraction.
  double StartDate() const;

  /// File name only, in the project's RTF folder; empty until the scene is first saved.
  const QString& RTFFilename() const { return rtfFilename_; }
  QString RTFFileWithPath() const;
  const QByteArray& TextRTF() const { return textRTF_; }
  /// A change, or an assignment of empty text, makes the counts stale and the file due for writing.
  void setTextRTF(const QByteArray& rtf);
  bool RTFChanged() const { return rtfChanged_; }
  /// Why the last save by itself could not write the text; empty when it could, or when the user cancelled it.
  const QString& SaveFailure() const { return saveFailure_; }
  /// The stored text was not there or could not be read: the scene is empty instead.
  bool TextUnread() const { return textUnread_; }
  bool WordsStale() const { return wordsStale_; }

  /// The plain text, converted only when the RTF has changed since.
  const QString& ConvertedToBodyText();
  qint32 Wordcount();
  /// Every character of the plain text, line ends included.
  qint32 Lettercount();
  /// Counts now, stale or not.
  void ForceWordcount();
  /// From now on the counts stay those of the text that is there, whatever comes, until that is written or saved by
  /// itself: what an editor puts here between its saves doesn't count yet.
  void HoldCounts();

  qint32 CharCount() const { return characters_.Count(); }
  qint32 LocationCount() const { return locations_.Count(); }
  qint32 ItemCount() const { return items_.Count(); }
  /// IDs at 1-based positions; 0, and logged, outside.
  qint32 CharID(qint32 index) const;
  qint32 LocationID(qint32 index) const;
  qint32 ItemID(qint32 index) const;
  const IDList& CharIDs() const { return characters_; }
  const IDList& LocationIDs() const { return locations_; }
  const IDList& ItemIDs() const { return items_; }
  /// Never null, whatever stands at the position.
  std::shared_ptr<clsCharacter> CharByIndex(qint32 index) const;
  std::shared_ptr<clsLocation> LocationByIndex(qint32 index) const;
  std::shared_ptr<clsItem> ItemByIndex(qint32 index) const;
  void AddCharByID(qint32 id);
  void AddLocationByID(qint32 id);
  void AddItemByID(qint32 id);
  /// An ID that isn't listed is ignored.
  void RemoveCharByID(qint32 id) { characters_.remove(id); }
  void RemoveLocationByID(qint32 id) { locations_.remove(id); }
  void RemoveItemByID(qint32 id) { items_.remove(id); }

  /// The first character of the list; 0 when it is empty.
  qint32 ViewPointID() const { return characters_.isEmpty() ? 0 : characters_.at(1); }
  /// Never null: a character titled "N/A" when the scene has none.
  std::shared_ptr<clsCharacter> ViewPointChar() const;
  /// Puts the character first and keeps the old viewpoint in the scene.
  void ChangeViewpointByID(qint32 id);
  /// Puts the character in the old viewpoint's place.
  void SetViewpointByID(qint32 id);

  /// Passes the text to an open editor for highlighting.
  void setCurrentSearchString(const QString& text);
  /// Opens the editor window, or brings the open one forward.
  void Edit();
  /// The editor for a new scene; modal.
  void Add();
  void MarkCharacters();
  /// What an open editor holds goes into the scene and its file, without a question.
  void SaveEditor();
  /// An open editor holds what no save has taken up.
  bool EditorHoldsUnsaved() const;
  /// An open editor that does comes forward and asks whether to save that. False when it is to stay as it is.
  bool AskEditor();
  void UnmarkCharacters();
  void UpdateEditorCombos();
  void fEditor_Finished();
  void fEditor_Changed();

  /// Writes the RTF file when it is due or forced; marks the scene updated unless told not to. Always true.
  bool Save(bool noMark = false, bool force = false);
  /// Writes the RTF file when it is due or forced, and the plain-text mirror where the writer wants one.
  void SaveRTF(bool force);
  /// Reads the RTF file; false, and logged, when it can't be read. Counts stay as they are.
  bool LoadRTF();
  /// Takes a file of the project's RTF folder as this scene's own and reads it. False, and nothing is taken, when it
  /// can't be read or has a name that the project file would not give back.
  bool TakeRTFFile(const QString& name);
  /// Erases a file of the bare name in the working directory; the project's own file stays. Always true.
  bool EraseScene();
  /// Releases the lock and the flags, lets an open editor window go, empties lists and text; ID, Title and the planning
  /// fields stay.
  void Clear();
  void GenerateID();
  /// With `singleFile` the RTF goes into the element.
  void DataAsXML(QByteArray& out, bool singleFile);
  void CreateFromXML(const TagView& element);
  /// From a file of a generation-3 project, and its text from the folder. A text that isn't there leaves it empty.
  void ImportQN3(const KeyedFile& file, OlderFiles& from, SceneFolder& texts);

 private:
  friend class DiskConflicts;
  friend class ProjectRepair;
  friend class ProjectSaver;
  friend class SceneBefore;
  friend class SceneFile;
  friend class clsScenes;

  /// The window that is open; null when there is none, or one that is just going.
  SceneEditor* fEditor() const;
  bool openEditor(const char* routine, void (SceneEditor::*show)());
  void bringForward();
  void letEditorGo();
  void refreshPlainText();
  void readFields(const TagView& element);
  void readLists(const TagView& element);
  void readRTF(const TagView& element);
  void importPlan(const KeyedFile& file);
  void importLists(const KeyedFile& file);

  qint32 id_ = 0;
  WatchedFlag inScenes_;
  std::array<qint16, 6> field_{};
  bool wordsStale_ = true;
  bool countsHeld_ = false;
  DueFlag rtfChanged_;
  /// What the file looked like when it was last read or written. Its content is the text itself until that changes.
  FileStamp stored_;
  /// The stamp of the text that the plain mirror holds; 0 for none.
  quint64 mirroredStamp_ = 0;
  /// The stored text was not read, or could not be: nothing is written over what may be left of it until there is a
  /// new one.
  bool textUnread_ = false;
  /// The text of a single file that could not be decoded; it goes back into the next one as it was.
  QByteArray undecodedRTF_;
  /// Grow by one with each change of the text; equal when the plain text is up to date.
  quint64 textStamp_ = 1;
  quint64 plainStamp_ = 0;
  qint32 wordcount_ = 0;
  qint32 lettercount_ = 0;
  QString plainText_;
  QString rtfFilename_;
  QString saveFailure_;
  QByteArray textRTF_;
  IDList characters_;
  IDList locations_;
  IDList items_;
  std::shared_ptr<OpenEditor> editor_;
};
