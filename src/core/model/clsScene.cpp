#include "core/model/clsScene.h"

#include "core/infra/Guard.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/text/cSharedHTML.h"
#include "core/text/frmRTFHidden.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "clsScene";
constexpr double kHoursADay = 24;
constexpr double kMinutesADay = 1440;

}  // namespace

clsScene::~clsScene() {
  letEditorGo();
}

qint32 clsScene::ID() {
  if (id_ == 0) {
    GenerateID();
  }
  return id_;
}

void clsScene::GenerateID() {
  id_ = g_Project->Scenes.nextID();
}

qint16 clsScene::Field(int index) const {
  if (index < 0 || index >= static_cast<int>(field_.size())) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  return field_[static_cast<size_t>(index)];
}

void clsScene::setField(int index, qint16 value) {
  if (index < 0 || index >= static_cast<int>(field_.size())) {
    throw RuntimeError(RuntimeError::OutOfBounds);
  }
  field_[static_cast<size_t>(index)] = value;
}

bool clsScene::HasNote() const {
  return !Notes.trimmed().isEmpty();
}

bool clsScene::Locked() {
  return g_SceneChanges.IsLocked(ID());
}

double clsScene::StartDate() const {
  return Day + Hour / kHoursADay + Minute / kMinutesADay;
}

QString clsScene::RTFFileWithPath() const {
  return g_Project->RTFFolder() + rtfFilename_;
}

void clsScene::setTextRTF(const QByteArray& rtf) {
  if (rtf == textRTF_ && !rtf.isEmpty()) {
    return;
  }
  if (!rtfChanged_) {
    // The file holds what goes now: this is how it is known again.
    stored_.noteContent(textRTF_);
  }
  textRTF_ = rtf;
  textUnread_ = false;
  undecodedRTF_.clear();
  wordsStale_ = true;
  ++textStamp_;
  rtfChanged_ = true;
}

void clsScene::refreshPlainText() {
  if (textStamp_ != plainStamp_) {
    plainText_ = RtfToPlain(textRTF_);
    plainStamp_ = textStamp_;
  }
}

const QString& clsScene::ConvertedToBodyText() {
  refreshPlainText();
  return plainText_;
}

void clsScene::ForceWordcount() {
  refreshPlainText();
  wordcount_ = Html().CalcWordCount(plainText_);
  lettercount_ = static_cast<qint32>(plainText_.size());
  wordsStale_ = false;
}

void clsScene::HoldCounts() {
  Wordcount();
  countsHeld_ = true;
}

qint32 clsScene::Wordcount() {
  if (wordsStale_ && !countsHeld_) {
    ForceWordcount();
  }
  return wordcount_;
}

qint32 clsScene::Lettercount() {
  Wordcount();
  return lettercount_;
}

qint32 clsScene::CharID(qint32 index) const {
  return characters_.atOrNone(index, "CharID", kModule);
}

qint32 clsScene::LocationID(qint32 index) const {
  return locations_.atOrNone(index, "LocationID", kModule);
}

qint32 clsScene::ItemID(qint32 index) const {
  return items_.atOrNone(index, "ItemID", kModule);
}

std::shared_ptr<clsCharacter> clsScene::CharByIndex(qint32 index) const {
  return g_Project->CharByID(CharID(index));
}

std::shared_ptr<clsLocation> clsScene::LocationByIndex(qint32 index) const {
  return g_Project->LocationByID(LocationID(index));
}

std::shared_ptr<clsItem> clsScene::ItemByIndex(qint32 index) const {
  return g_Project->ItemByID(ItemID(index));
}

void clsScene::AddCharByID(qint32 id) {
  Guard("AddCharByID", kModule)([&] { characters_.append(id); });
}

void clsScene::AddLocationByID(qint32 id) {
  Guard("AddLocationByID", kModule)([&] { locations_.append(id); });
}

void clsScene::AddItemByID(qint32 id) {
  Guard("AddItemByID", kModule)([&] { items_.append(id); });
}

std::shared_ptr<clsCharacter> clsScene::ViewPointChar() const {
  return g_Project->CharByID(ViewPointID());
}

void clsScene::ChangeViewpointByID(qint32 id) {
  characters_.remove(id);
  if (characters_.isEmpty()) {
    characters_.append(id);
  } else {
    characters_.insertBefore(id, 1);
  }
  g_SceneChanges.MarkUpdated(ID());
}

void clsScene::SetViewpointByID(qint32 id) {
  if (!characters_.isEmpty()) {
    characters_.removeAt(1);
  }
  ChangeViewpointByID(id);
}

bool clsScene::Save(bool noMark, bool force) {
  SaveRTF(force);
  if (!noMark) {
    g_SceneChanges.MarkUpdated(ID());
  }
  return true;
}

bool clsScene::EraseScene() {
  if (!rtfFilename_.isEmpty()) {
    Files().EraseFile(rtfFilename_);
  }
  return true;
}

void clsScene::Clear() {
  letEditorGo();
  if (id_ > 0) {
    g_SceneChanges.UnLockRec(id_);
    g_SceneChanges.ResetAllChanged(id_);
  }
  characters_.clear();
  locations_.clear();
  items_.clear();
  SavedByEditor = false;
  textRTF_.clear();
  rtfFilename_.clear();
  rtfChanged_ = false;
  stored_ = {};
  textUnread_ = false;
  undecodedRTF_.clear();
  plainText_.clear();
  ++textStamp_;
  wordsStale_ = true;
  countsHeld_ = false;
}
