#include "core/persist/SceneFile.h"

#include "core/infra/Guard.h"
#include "core/infra/Numbers.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// The slot of LastFileIndex that numbers the RTF files.
constexpr int kRTFFileIndex = 4;

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

QSet<QString> namesOf(const clsScenes& scenes) {
  QSet<QString> names;
  names.reserve(scenes.Count());
  for (const auto& scene : scenes) {
    names.insert(scene->RTFFilename());
  }
  return names;
}

/// A file that holds these bytes is left alone: reading it costs a hundredth of writing it to disk anew, and a save
/// of the whole book asks for every one.
bool holdsAlready(const QString& path, const QByteArray& bytes) {
  QByteArray stored;
  return Files().FileSize(path) == bytes.size() && Files().LoadTextFile(path, stored) && stored == bytes;
}

void logUnsaved(const QString& path) {
  Logging().LogEvent(u"Could not save "_s + path);
}

}  // namespace

void clsScene::SaveRTF(bool force) {
  SceneFile(*this).save(force, SceneFile::mirrorWanted());
}

bool clsScene::LoadRTF() {
  return SceneFile(*this).load();
}

bool clsScenes::SaveScenesText(bool force) const {
  bool result = true;
  const bool mirror = SceneFile::mirrorWanted();
  const Guard guard("SaveScenesText", "clsScenes");
  // By position: a write may yield, and what it yields to may add a scene.
  for (qint32 i = 1; i <= Count(); ++i) {
    const Pointer scene = SceneByIndex(i);
    result = guard([&] { SceneFile(*scene).save(force, mirror); }) && result;
  }
  return result;
}

bool SceneFile::mirrorWanted() {
  return Numbers::ToBool(Settings().sGet(u"CreateTextToo"_s));
}

QString SceneFile::path() const {
  return scene_.RTFFileWithPath();
}

void SceneFile::name(QSet<QString>& taken) const {
  if (scene_.rtfFilename_.isEmpty()) {
    scene_.rtfFilename_ = GenerateFilename(u"RTF"_s, u"RTF_"_s, kRTFFileIndex, u".rtf"_s, taken);
    taken.insert(scene_.rtfFilename_);
    // A book one of whose scenes has no file can't be opened.
    scene_.rtfChanged_ = true;
  }
}

void SceneFile::nameAll(const clsScenes& scenes) {
  // Most saves find every scene named.
  if (std::none_of(scenes.begin(), scenes.end(), [](const auto& scene) { return scene->RTFFilename().isEmpty(); })) {
    return;
  }
  QSet<QString> taken = namesOf(scenes);
  for (const auto& scene : scenes) {
    SceneFile(*scene).name(taken);
  }
}

void SceneFile::save(bool force, bool mirror) const {
  // A book without a file has no folder: its texts stay due, and never go to where the program happens to stand.
  if (g_Project->FileWithPath.isEmpty()) {
    return;
  }
  const bool unread = scene_.textUnread_;
  // A file that is there may hold the text that wasn't read. Where there is none an empty one has to do: a project
  // one of whose scenes has no file can't be opened.
  if (unread && Files().FileExists(path())) {
    return;
  }
  if (scene_.rtfFilename_.isEmpty() || force || scene_.rtfChanged_ || unread) {
    writeText();
  }
  if (unread) {
    keepUndecodedText();
  } else if (mirror) {
    writePlainMirror();
  }
}

void SceneFile::writeText() const {
  if (scene_.rtfFilename_.isEmpty()) {
    QSet<QString> taken = namesOf(g_Project->Scenes);
    name(taken);
  }
  const QByteArray& text = scene_.textRTF_;
  scene_.rtfChanged_ = !(holdsAlready(path(), text) || Files().SaveTextFile(path(), QByteArrayView(text)));
  if (scene_.rtfChanged_) {
    logUnsaved(path());
  }
}

// Somebody may know how to mend it.
void SceneFile::keepUndecodedText() const {
  const QString kept = path() + u".undecoded"_s;
  if (scene_.undecodedRTF_.isEmpty()) {
    return;
  }
  if (!Files().SaveTextFile(kept, QByteArrayView(scene_.undecodedRTF_))) {
    logUnsaved(kept);
    return;
  }
  Logging().LogEvent(u"The text that could not be decoded is kept in "_s + kept);
}

void SceneFile::writePlainMirror() const {
  const QString folder = g_Project->Path() + u"Data"_s + Paths::separator();
  QString name = Files().FileWithoutExt(scene_.rtfFilename_) + u".txt"_s;
  name.replace(u"RTF_"_s, u"Plain_"_s);
  Files().MkMissingDir(folder);
  if (!Files().WriteTextFile(folder + name, scene_.ConvertedToBodyText())) {
    logUnsaved(folder + name);
  }
}

bool SceneFile::load() const {
  if (scene_.rtfFilename_.isEmpty()) {
    Logging().LogEvent(u"No RTF filename in scene "_s + scene_.Title);
    return false;
  }
  QByteArray stored;
  if (!Files().LoadTextFile(path(), stored)) {
    Logging().LogEvent(u"Could not find or load "_s + path());
    return false;
  }
  scene_.textRTF_ = std::move(stored);
  scene_.textUnread_ = false;
  ++scene_.textStamp_;
  return true;
}
