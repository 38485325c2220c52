#include "core/model/clsScene.h"

#include "core/infra/CodePage.h"
#include "core/infra/Guard.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/SceneEditor.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/text/cSharedHTML.h"
#include "core/text/frmRTFHidden.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "clsScene";
/// The slot of LastFileIndex that numbers the RTF files.
constexpr int kRTFFileIndex = 4;
constexpr double kHoursADay = 24;
constexpr double kMinutesADay = 1440;

/// The next free file name. The folder is relative, so the test for a file of that name looks in the working
/// directory and normally finds none: the stored counter is what keeps names unique. Where that has fallen behind,
/// a name that a scene has is passed over, so that no scene is written over another.
QString GenerateFilename(const QString& folder, const QString& prefix, int fileIndex, const QString& extension,
                         const QSet<QString>& taken) {
  const QString base = Files().AddSlashIfMissing(folder);
  QString ending = extension.isEmpty() ? u".txt"_s : extension;
  if (!ending.contains(u'.')) {
    ending.prepend(u'.');
  }
  qint32 number = std::max(0, g_Project->LastFileIndex(fileIndex));
  QString name;
  do {
    number = number == std::numeric_limits<qint32>::max() ? 1 : number + 1;
    name = prefix + QString::number(number).rightJustified(5, u'0') + ending;
  } while (Files().FileExists(base + name) || taken.contains(name));
  g_Project->setLastFileIndex(fileIndex, number);
  return name;
}

/// A file that holds these bytes is left alone: reading it costs a hundredth of writing it to disk anew, and a save
/// of the whole book asks for every one.
bool holdsAlready(const QString& path, const QByteArray& bytes) {
  QByteArray stored;
  return Files().FileSize(path) == bytes.size() && Files().LoadTextFile(path, stored) && stored == bytes;
}

}  // namespace

clsScene::~clsScene() {
  if (fEditor_ != nullptr) {
    fEditor_->Finished = nullptr;
    fEditor_->Changed = nullptr;
  }
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

void clsScene::setRTFFilename(const QString& name) {
  if (!CodePage::canEncode(name)) {
    throw RuntimeError(RuntimeError::InvalidCall,
                       u"The file name '"_s + name + u"' has characters that a project file can't hold"_s);
  }
  rtfFilename_ = name;
}

QString clsScene::RTFFileWithPath() const {
  return g_Project->Path() + u"RTF"_s + Paths::separator() + rtfFilename_;
}

void clsScene::NameRTFFile(QSet<QString>& taken) {
  if (rtfFilename_.isEmpty()) {
    rtfFilename_ = GenerateFilename(u"RTF"_s, u"RTF_"_s, kRTFFileIndex, u".rtf"_s, taken);
    taken.insert(rtfFilename_);
    rtfChanged_ = true;
  }
}

void clsScene::setTextRTF(const QByteArray& rtf) {
  if (rtf == textRTF_ && !rtf.isEmpty()) {
    return;
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

qint32 clsScene::Wordcount() {
  if (wordsStale_) {
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

bool clsScene::mirrorWanted() {
  return Numbers::ToBool(Settings().sGet(u"CreateTextToo"_s));
}

void clsScene::SaveRTF(bool force, bool mirror) {
  // A file that is there may hold the text that wasn't read. Where there is none an empty one has to do: a project
  // one of whose scenes has no file can't be opened.
  if (textUnread_ && Files().FileExists(RTFFileWithPath())) {
    return;
  }
  if (rtfFilename_.isEmpty() || force || rtfChanged_ || textUnread_) {
    if (rtfFilename_.isEmpty()) {
      QSet<QString> taken = g_Project->Scenes.TextFileNames();
      NameRTFFile(taken);
    }
    rtfChanged_ = !(holdsAlready(RTFFileWithPath(), textRTF_) ||
                    Files().SaveTextFile(RTFFileWithPath(), QByteArrayView(textRTF_)));
    if (rtfChanged_) {
      Logging().LogEvent(u"Could not save "_s + RTFFileWithPath());
    }
  }
  if (textUnread_) {
    keepUndecodedText();
    return;
  }
  if (mirror) {
    writePlainMirror();
  }
}

// Somebody may know how to mend it.
void clsScene::keepUndecodedText() {
  const QString path = RTFFileWithPath() + u".undecoded"_s;
  if (undecodedRTF_.isEmpty()) {
    return;
  }
  const bool kept = Files().SaveTextFile(path, QByteArrayView(undecodedRTF_));
  Logging().LogEvent((kept ? u"The text that could not be decoded is kept in "_s : u"Could not save "_s) + path);
}

void clsScene::writePlainMirror() {
  const QString folder = g_Project->Path() + u"Data"_s + Paths::separator();
  QString name = Files().FileWithoutExt(rtfFilename_) + u".txt"_s;
  name.replace(u"RTF_"_s, u"Plain_"_s);
  Files().MkMissingDir(folder);
  if (!Files().WriteTextFile(folder + name, ConvertedToBodyText())) {
    Logging().LogEvent(u"Could not save "_s + folder + name);
  }
}

bool clsScene::LoadRTF() {
  if (rtfFilename_.isEmpty()) {
    Logging().LogEvent(u"No RTF filename in scene "_s + Title);
    return false;
  }
  QByteArray stored;
  if (!Files().LoadTextFile(RTFFileWithPath(), stored)) {
    Logging().LogEvent(u"Could not find or load "_s + RTFFileWithPath());
    return false;
  }
  textRTF_ = std::move(stored);
  textUnread_ = false;
  ++textStamp_;
  return true;
}

bool clsScene::EraseScene() {
  if (!rtfFilename_.isEmpty()) {
    Files().EraseFile(rtfFilename_);
  }
  return true;
}

void clsScene::Clear() {
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
  textUnread_ = false;
  undecodedRTF_.clear();
  plainText_.clear();
  ++textStamp_;
  wordsStale_ = true;
}
