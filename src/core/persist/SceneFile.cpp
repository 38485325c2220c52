#include "core/persist/SceneFile.h"

#include "core/infra/CodePage.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/SaveSeries.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/DiskConflicts.h"
#include "core/persist/OlderCopy.h"
#include "core/persist/RescueFolder.h"
#include "core/persist/SceneFolder.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The slot of LastFileIndex that numbers the RTF files.
constexpr int kRTFFileIndex = 4;

/// Asking for the time at each would cost more than looking whether it is due.
constexpr qint32 kScenesBetweenYields = 16;

/// The next free file name behind the stored counter.
QString GenerateFilename(const QString& prefix, int fileIndex, const QString& extension, const QSet<QString>& taken) {
  qint32 number = std::max(0, g_Project->LastFileIndex(fileIndex));
  QString name;
  do {
    number = number == std::numeric_limits<qint32>::max() ? 1 : number + 1;
    name = prefix + QString::number(number).rightJustified(5, u'0') + extension;
  } while (taken.contains(name.toUpper()));
  g_Project->setLastFileIndex(fileIndex, number);
  return name;
}

/// In capitals: names that differ in their letters' case alone are one on many systems.
QSet<QString> takenNames(const clsScenes& scenes) {
  QSet<QString> names;
  for (const QString& there : QDir(g_Project->RTFFolder()).entryList(QDir::AllEntries | QDir::Hidden)) {
    names.insert(there.toUpper());
  }
  names.reserve(scenes.Count());
  for (const auto& scene : scenes) {
    names.insert(scene->RTFFilename().toUpper());
  }
  return names;
}

void logUnsaved(const QString& path) {
  Logging().LogEvent(u"Could not save "_s + path);
}

/// Until the file of the older project that the book comes from is renamed, the folder Data beside it is that one's.
bool isDataOfOlderProject() {
  const QString& source = g_Project->SourceFile;
  return clsProject::IsQN3(source) && Paths::areSame(Files().PathOnly(source), g_Project->Path()) &&
         Files().FileExists(source);
}

/// What an older project or another program has left in the folder is never called like this.
QString mirrorNameOf(const QString& rtfFile) {
  const QString mark = u"Plain_"_s;
  QString name = Files().FileWithoutExt(rtfFile) + u".txt"_s;
  name.replace(u"RTF_"_s, mark);
  return name.startsWith(mark) ? name : mark + name;
}

}  // namespace

// What a window saves by itself: there is somebody to ask.
void clsScene::SaveRTF(bool force) {
  SceneFile file(*this);
  saveFailure_.clear();
  if (!g_Project->HasPlace()) {
    countsHeld_ = false;
    // What nobody has changed is where it was read from.
    if (rtfChanged_ || force) {
      RescueFolder(*g_Project).keep(*this);
    }
    return;
  }
  if (!OlderCopy(*g_Project).mayWriteTexts()) {
    return;
  }
  DiskConflicts conflicts(*g_Project);
  conflicts.lookAt(*this);
  // Only the editor's own save, the forced one, looks afterwards whether another text was taken.
  using Askers = DiskConflicts::Askers;
  if (conflicts.settle(force ? Askers::Editor : Askers::Project) == DiskConflicts::Outcome::GiveUp) {
    return;
  }
  // A book from a single file may have none yet; one whose own folder has gone gets none.
  Files().MkMissingDirNoRecurse(g_Project->RTFFolder());
  if (file.save(force, SceneFile::mirrorFolder())) {
    SaveSeries::nameIsNew();
  }
  countsHeld_ = countsHeld_ && rtfChanged_;
  saveFailure_ = Files().FolderExists(g_Project->Path()) ? file.failure()
                                                         : shownText(u"The book's folder isn't there any more."_s);
  if (saveFailure_.isEmpty()) {
    g_Project->lastSaves_.textSaved(g_Project->UnsavedTexts() == 0);
  } else {
    g_Project->lastSaves_.textNotSaved(saveFailure_);
  }
}

bool clsScene::LoadRTF() {
  SceneFolder folder(*g_Project);
  return SceneFile(*this).load(folder);
}

bool clsScenes::SaveScenesText(bool force, bool overOthers, QString* cause) const {
  bool result = true;
  bool written = false;
  const QString mirror = SceneFile::mirrorFolder();
  const auto others = overOthers ? SceneFile::Others::Replaced : SceneFile::Others::Kept;
  const Guard guard("SaveScenesText", "clsScenes");
  // By position: what is yielded to may add a scene.
  for (qint32 i = 1; i <= Count(); ++i) {
    const Pointer scene = SceneByIndex(i);
    SceneFile file(*scene);
    result = guard([&] { written = file.save(force, mirror, others) || written; }) && result;
    // The book can't be opened without it, so its file must not name it before it is there.
    if (!file.failure().isEmpty() && !Files().FileExists(scene->RTFFileWithPath())) {
      result = false;
      if (cause != nullptr) {
        *cause = file.failure();
      }
    }
    if (i % kScenesBetweenYields == 0) {
      guard([] { Subs().RegularDoEvents(); });
    }
  }
  if (written) {
    // The project file names them, and is written next.
    SaveSeries::flush();
  }
  return result;
}

QString SceneFile::mirrorFolder() {
  if (!Numbers::ToBool(Settings().sGet(u"CreateTextToo"_s)) || isDataOfOlderProject()) {
    return {};
  }
  const QString project = g_Project->Path();
  return project + Files().NameOnDisk(project, u"Data"_s) + Paths::separator();
}

QString SceneFile::path() const {
  return scene_.RTFFileWithPath();
}

void SceneFile::name(QSet<QString>& taken) const {
  if (scene_.rtfFilename_.isEmpty()) {
    scene_.rtfFilename_ = GenerateFilename(u"RTF_"_s, kRTFFileIndex, u".rtf"_s, taken);
    taken.insert(scene_.rtfFilename_.toUpper());
    // A book one of whose scenes has no file can't be opened.
    scene_.rtfChanged_ = true;
  }
}

void SceneFile::nameAll(const clsScenes& scenes) {
  // Most saves find every scene named.
  if (std::none_of(scenes.begin(), scenes.end(), [](const auto& scene) { return scene->RTFFilename().isEmpty(); })) {
    return;
  }
  QSet<QString> taken = takenNames(scenes);
  for (const auto& scene : scenes) {
    SceneFile(*scene).name(taken);
  }
}

bool SceneFile::isDue() const {
  return scene_.rtfFilename_.isEmpty() || scene_.rtfChanged_ || scene_.textUnread_;
}

bool SceneFile::save(bool force, const QString& mirrorFolder, Others others) {
  // A book without a file has no folder: its texts stay due, and never go to where the program happens to stand.
  if (g_Project->FileWithPath.isEmpty()) {
    return false;
  }
  const bool unread = scene_.textUnread_;
  // A file that is there may hold the text that wasn't read. Where there is none an empty one has to do: a project
  // one of whose scenes has no file can't be opened.
  if (unread && Files().FileExists(path())) {
    return false;
  }
  bool written = false;
  if (isDue()) {
    written = writeText(others);
  } else if (force) {
    written = restoreIfGone();
  }
  if (unread) {
    written = keepUndecodedText() || written;
  } else if (!mirrorFolder.isEmpty()) {
    writePlainMirror(mirrorFolder);
  }
  return written;
}

void SceneFile::knowFile() const {
  if (!scene_.rtfFilename_.isEmpty() && !SceneFolder::leadsOut(*g_Project, path())) {
    Guard("knowFile", "SceneFile")([&] {
      if (const auto text = readWholeFile(path(), Links::Followed, &scene_.stored_)) {
        scene_.stored_.noteContent(*text);
      }
    });
  }
}

void SceneFile::recountIfYoungerThan(const FileStamp& projectFile) const {
  if (scene_.stored_.modified > projectFile.modified) {
    scene_.wordsStale_ = true;
  }
}

std::optional<SceneFile::Changed> SceneFile::changedByOthers() const {
  const FileStamp now = FileStamp::lookAt(path());
  if (scene_.rtfFilename_.isEmpty() || !now.isKnown() || scene_.stored_.looksLike(now) ||
      SceneFolder::leadsOut(*g_Project, path())) {
    return {};
  }
  Changed changed;
  std::optional<QByteArray> text;
  Guard("changedByOthers", "SceneFile")([&] { text = readWholeFile(path(), Links::Followed, &changed.stamp); });
  if (!text) {
    return Changed{{}, now, false};
  }
  changed.stamp.noteContent(*text);
  if (scene_.stored_.hasContent(*text) || *text == scene_.textRTF_) {
    scene_.stored_ = changed.stamp;
    return {};
  }
  changed.text = *std::move(text);
  return changed;
}

bool SceneFile::mayWrite(Others others) {
  if (SceneFolder::leadsOut(*g_Project, path())) {
    failure_ = toldText(shownText(u"%1 leads out of the project's folder, and isn't written"_s), {path()});
    return false;
  }
  if (others == Others::Kept && changedByOthers()) {
    failure_ = toldText(shownText(u"%1 was changed by another program, and isn't written over"_s), {path()});
    return false;
  }
  return true;
}

bool SceneFile::writeText(Others others) {
  if (scene_.rtfFilename_.isEmpty()) {
    QSet<QString> taken = takenNames(g_Project->Scenes);
    name(taken);
  }
  const QByteArray& text = scene_.textRTF_;
  bool written = false;
  if (mayWrite(others)) {
    // A file that holds these bytes is left alone: reading it costs a hundredth of writing it to disk anew.
    const bool holdsAlready = FileStamp::lookAt(path()).looksLike(scene_.stored_) && scene_.stored_.hasContent(text);
    if (!holdsAlready) {
      failure_ = Guard("SaveRTF", "clsScene").causeOf([&] {
        scene_.stored_ = Files().ReplaceFile(path(), text, ReplacementFile::Durability::ContentOnDisk);
      });
      written = failure_.isEmpty();
    }
  }
  scene_.rtfChanged_ = !failure_.isEmpty();
  scene_.countsHeld_ = scene_.countsHeld_ && scene_.rtfChanged_;
  if (scene_.rtfChanged_) {
    logUnsaved(path() + u" ("_s + failure_ + u')');
  }
  return written;
}

// What stands on the disk stays as it is: it is what was left there, or another program's. What another program took
// away is needed, for the book can't be opened without it.
bool SceneFile::restoreIfGone() {
  return !FileStamp::lookAt(path()).isKnown() && writeText(Others::Kept);
}

// Somebody may know how to mend it.
bool SceneFile::keepUndecodedText() const {
  const QString kept = path() + u".undecoded"_s;
  if (scene_.undecodedRTF_.isEmpty()) {
    return false;
  }
  if (!Files().SaveTextFile(kept, QByteArrayView(scene_.undecodedRTF_))) {
    logUnsaved(kept);
    return false;
  }
  Logging().LogEvent(u"The text that could not be decoded is kept in "_s + kept);
  return true;
}

// The mirror is for other programs: it is written where it differs, and in a form that holds every letter.
void SceneFile::writePlainMirror(const QString& folder) const {
  const QString name = mirrorNameOf(scene_.rtfFilename_);
  if (scene_.mirroredStamp_ == scene_.textStamp_ && QFileInfo(folder + name).isFile()) {
    return;
  }
  const QString& text = scene_.ConvertedToBodyText();
  const QByteArray bytes = CodePage::canEncode(text) ? CodePage::toBytes(text) : "\xEF\xBB\xBF" + text.toUtf8();
  Files().MkMissingDirNoRecurse(folder);
  QByteArray there;
  const bool holdsAlready =
      Files().FileSize(folder + name) == bytes.size() && Files().LoadTextFile(folder + name, there) && there == bytes;
  const bool leadsOut = SceneFolder::leadsOut(*g_Project, folder + name);
  if (leadsOut || (!holdsAlready && !Files().WriteTextFile(folder + name, QByteArrayView(bytes)))) {
    logUnsaved(folder + name);
    return;
  }
  scene_.mirroredStamp_ = scene_.textStamp_;
}

bool SceneFile::load(SceneFolder& folder) const {
  if (scene_.rtfFilename_.isEmpty()) {
    Logging().LogEvent(u"No RTF filename in scene "_s + scene_.Title);
    return false;
  }
  std::optional<SceneFolder::File> found = folder.read(scene_.rtfFilename_);
  if (!found) {
    Logging().LogEvent(u"Could not find or load "_s + path());
    return false;
  }
  scene_.rtfFilename_ = found->name;
  scene_.stored_ = found->stamp;
  scene_.textRTF_ = std::move(found->text);
  scene_.textUnread_ = false;
  ++scene_.textStamp_;
  return true;
}
