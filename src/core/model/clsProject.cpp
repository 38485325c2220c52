#include "core/model/clsProject.h"

#include "core/infra/Clock.h"
#include "core/infra/FolderLock.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SheetRun.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsNote.h"
#include "core/model/clsScene.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

/// An array that is indexed from 1 by the outside.
template <class Array>
auto& element(Array& array, int index) {
  if (index < 1 || static_cast<size_t>(index) > array.size()) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  return array[static_cast<size_t>(index) - 1];
}

/// The place behind all others of its list.
template <class Entity>
void putLast(Entity& entity) {
  for (const auto& other : bookCollectionOf(entity)) {
    entity.SortOrder = std::max(entity.SortOrder, other->SortOrder);
  }
  entity.SortOrder = std::min<qint16>(entity.SortOrder, std::numeric_limits<qint16>::max() - 1) + 1;
}

void putLast(clsChapter&) {}  // the book's order is that of its chapters

/// A new entity through its dialog: `ask` is true when it was accepted. It is added then, and the project saved.
template <class Entity, class Ask>
bool enterNew(clsProject& project, void (clsProject::*add)(const std::shared_ptr<Entity>&), Ask ask) {
  const auto entity = std::make_shared<Entity>();
  putLast(*entity);
  if (!ask(*entity)) {
    return false;
  }
  // It is there already when the system was about to end the program meanwhile.
  if (!isInBook(*entity)) {
    (project.*add)(entity);
  }
  project.SaveQN4(false);
  return true;
}

}  // namespace

clsProject::clsProject() {
  Scenes.LoadingNum = [this](qint32 number) { cScenes_LoadingNum(number); };
  Scenes.SavingNum = [this](qint32 number) { cScenes_SavingNum(number); };
}

clsProject::~clsProject() = default;

qint32 clsProject::LastFileIndex(int index) const {
  return element(lastFileIndex_, index);
}

void clsProject::setLastFileIndex(int index, qint32 value) {
  element(lastFileIndex_, index) = value;
}

qint32 clsProject::DeadlineDate(int level) const {
  return element(deadlineDate_, level);
}

void clsProject::setDeadlineDate(int level, qint32 dayNumber) {
  element(deadlineDate_, level) = dayNumber;
}

qint32 clsProject::DeadlineStartDate(int level) const {
  return element(deadlineStartDate_, level);
}

void clsProject::setDeadlineStartDate(int level, qint32 dayNumber) {
  element(deadlineStartDate_, level) = dayNumber;
}

const QString& clsProject::FieldTitle(int index) const {
  return element(fieldTitle_, index);
}

QString clsProject::Path() const {
  return Files().PathOnly(FileWithPath);
}

QString clsProject::RTFFolder() const {
  const QString folder = Path();
  if (folder != rtfFolderOf_) {
    rtfFolderOf_ = folder;
    rtfFolderName_ = Files().NameOnDisk(folder, u"RTF"_s);
  }
  return folder + rtfFolderName_ + Paths::separator();
}

bool clsProject::IsInOwnFolder() const {
  return !storedIn_.isEmpty() && Paths::areSame(Path(), Files().PathOnly(storedIn_));
}

QString clsProject::TodaysBackupFolder() const {
  return Path() + u"Autobackups"_s + Paths::separator() + Clock::today().toString(Qt::ISODate) + Paths::separator();
}

qint32 clsProject::Wordcount(bool includeUnused) const {
  qint64 words = 0;
  for (const auto& chapter : Chapters) {
    words += chapter->Wordcount(includeUnused);
  }
  return static_cast<qint32>(words);
}

std::shared_ptr<clsCharacter> clsProject::CharByID(qint32 id) const {
  if (id != 0) {
    return Chars.CharByID(id);
  }
  auto nobody = std::make_shared<clsCharacter>();
  nobody->setTitle(shownText(u"N/A"_s));
  g_CharChanges.ResetAllChanged(0);
  return nobody;
}

void clsProject::RemoveCharByID(qint32 id) {
  for (const auto& scene : Scenes) {
    scene->RemoveCharByID(id);
  }
  Chars.RemoveCharByID(id);
}

void clsProject::RemoveSceneByID(qint32 id) {
  for (const auto& chapter : Chapters) {
    chapter->RemoveSceneByID(id);
  }
  Scenes.RemoveSceneByID(id);
}

void clsProject::RemoveLocationByID(qint32 id) {
  for (const auto& scene : Scenes) {
    scene->RemoveLocationByID(id);
  }
  Locations.RemoveLocationByID(id);
}

void clsProject::RemoveItemByID(qint32 id) {
  for (const auto& scene : Scenes) {
    scene->RemoveItemByID(id);
  }
  Items.RemoveItemByID(id);
}

bool clsProject::EnterNewChapter() {
  return enterNew(*this, &clsProject::AddChapter, [](clsChapter& chapter) { return chapter.Add(); });
}

bool clsProject::EnterNewLocation() {
  return enterNew(*this, &clsProject::AddLocation, [](clsLocation& location) { return location.Edit(); });
}

bool clsProject::EnterNewItem() {
  return enterNew(*this, &clsProject::AddItem, [](clsItem& item) { return item.Edit(); });
}

bool clsProject::EnterNewChar() {
  return enterNew(*this, &clsProject::AddChar, [](clsCharacter& character) { return character.Edit(0); });
}

bool clsProject::CreateNewScene(qint32 chapterID, qint32 position) {
  const auto scene = std::make_shared<clsScene>();
  Scenes.Addscene(scene);
  const auto chapter = ChapterByID(chapterID);
  position != 0 ? chapter->InsertScene(scene, position) : chapter->Addscene(scene);
  scene->Add();
  // A "No" at the end drops only what was typed since the last save.
  if (scene->SavedByEditor || scene->RTFChanged() || !scene->RTFFilename().isEmpty()) {
    return true;
  }
  chapter->RemoveSceneByID(scene->ID());
  RemoveSceneByID(scene->ID());
  return false;
}

void clsProject::AddEditCharacters(qint32 arg) {
  const bool highlighted = Numbers::ToBool(Settings().sGet(u"HighlightChar"_s));
  if (highlighted) {
    UnMarkAllCharInEditorWindows();
  }
  if (entityDialogs().list) {
    entityDialogs().list(kListCharacters, arg);
  }
  if (highlighted) {
    MarkAllCharInEditorWindows();
  }
}

void clsProject::AddEditLocations() {
  manageAndSave(kListLocations);
}

void clsProject::AddEditItems() {
  manageAndSave(kListItems);
}

// Whoever has only looked has nothing to save, and whoever wants what another program has left saves nothing over it.
void clsProject::manageAndSave(int type) {
  if (entityDialogs().list) {
    entityDialogs().list(type, 0);
  }
  if (editedSinceSave_ && !reloadWanted_) {
    SaveQN4(false);
  }
}

void clsProject::eachOpenEditor(void (clsScene::*action)()) {
  for (const qint32 id : g_SceneChanges.lockedIDs()) {
    (SceneByID(id).get()->*action)();
  }
}

void clsProject::MarkAllCharInEditorWindows() {
  eachOpenEditor(&clsScene::MarkCharacters);
}

void clsProject::UnMarkAllCharInEditorWindows() {
  eachOpenEditor(&clsScene::UnmarkCharacters);
}

void clsProject::SaveEditorWindows() {
  eachOpenEditor(&clsScene::SaveEditor);
}

bool clsProject::EditorsHoldUnsaved() const {
  const std::vector<qint32> open = g_SceneChanges.lockedIDs();
  return std::any_of(open.begin(), open.end(), [this](qint32 id) { return SceneByID(id)->EditorHoldsUnsaved(); });
}

bool clsProject::AskEditorWindows() {
  const std::vector<qint32> open = g_SceneChanges.lockedIDs();
  return std::all_of(open.begin(), open.end(), [this](qint32 id) { return SceneByID(id)->AskEditor(); });
}

void clsProject::CloseEditorWindows() {
  eachOpenEditor(&clsScene::fEditor_Finished);
}

void clsProject::UpdateCombosInEditorWindows() {
  eachOpenEditor(&clsScene::UpdateEditorCombos);
}

qint32 clsProject::DaysLeft(int level, double today) const {
  const double start = DeadlineStartDate(level);
  const double base = start < today ? std::trunc(today) : start;
  return static_cast<qint32>(std::nearbyint(DeadlineDate(level) - base + 1));
}

qint32 clsProject::VPUsedCount(qint32 charID) const {
  return static_cast<qint32>(std::count_if(Scenes.begin(), Scenes.end(),
                                           [charID](const auto& scene) { return scene->ViewPointID() == charID; }));
}

bool clsProject::IsViewpointSomewhere(qint32 charID) const {
  return std::any_of(Scenes.begin(), Scenes.end(),
                     [charID](const auto& scene) { return scene->ViewPointID() == charID; });
}

bool clsProject::IsEmpty() const {
  return SceneCount() == 0 && ChapterCount() == 0 && CharCount() == 0 && LocationCount() == 0 && ItemCount() == 0 &&
         NoteCount() == 0;
}

// The title bar asks twice a second: it doesn't walk through all scenes while none has changed in this.
qint32 clsProject::UnsavedTexts() const {
  // It is asked after each of thousands of saves.
  if (!DueFlag::isAnySet()) {
    return 0;
  }
  if (unsavedTextsAt_ != WatchedFlag::changes()) {
    unsavedTextsAt_ = WatchedFlag::changes();
    unsavedTexts_ = static_cast<qint32>(
        std::count_if(Scenes.begin(), Scenes.end(), [](const auto& scene) { return scene->RTFChanged(); }));
  }
  return unsavedTexts_;
}

void clsProject::MarkEdited() {
  editedSinceSave_ = true;
  reloadWanted_ = false;
}

bool clsProject::HoldsUnsaved() const {
  if (IsEmpty()) {
    return false;
  }
  if (FileWithPath.isEmpty() || editedSinceSave_) {
    return true;
  }
  // The texts of a single file are all due, and stand in that file.
  const bool singleFile = Files().ExtOnly(FileWithPath).toLower() == u"qnc4"_s;
  return !singleFile && UnsavedTexts() > 0;
}

void clsProject::Clear() {
  FileWithPath.clear();
  editedSinceSave_ = false;
  planDue_ = false;
  lastSaves_ = {};
  incompleteFile_.clear();
  storedIn_.clear();
  stored_ = {};
  freshlyRead_ = false;
  rtfFolderOf_.clear();
  lock_.reset();
  readOnly_ = false;
  made_.clear();
  reloadWanted_ = false;
  rescueFolder_.clear();
  ClearContents();
}

void clsProject::ClearContents() {
  Chapters.Clear();
  Chars.Clear();
  Locations.Clear();
  Scenes.Clear();
  Items.Clear();
  Notes.Clear();
}

void clsProject::UnlockFolder() {
  lock_.reset();
}

void clsProject::LockFolder() {
  lock_ = readOnly_ ? nullptr : std::make_unique<FolderLock>(Path());
}

void clsProject::cScenes_LoadingNum(qint32 number) {
  if (work_ != nullptr) {
    work_->setCaption(shownText(u"Loading Scene %1"_s), number);
  }
}

void clsProject::cScenes_SavingNum(qint32 number) {
  if (work_ != nullptr) {
    work_->setCaption(shownText(u"Saving Scene %1"_s), number);
  }
}
