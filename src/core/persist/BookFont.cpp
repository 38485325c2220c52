#include "core/persist/BookFont.h"

#include "core/infra/BusyPointer.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/DiskConflicts.h"
#include "core/persist/OlderCopy.h"
#include "core/persist/ProjectSaver.h"
#include "core/persist/RescueFolder.h"
#include "core/persist/SceneFile.h"
#include "core/text/frmRTFHidden.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

const Guard kGuard("mnuSetAllSceneFont_Click", "frmMain");

/// The names of all files that were written reach the disk at the end, once.
class TextFolder {
 public:
  TextFolder() {
    if (g_Project->HasPlace()) {
      // A book from a single file may have none yet.
      Files().MkMissingDirNoRecurse(g_Project->RTFFolder());
      SceneFile::nameAll(g_Project->Scenes);
    }
  }
  ~TextFolder() {
    if (g_Project->HasPlace()) {
      kGuard([] { flushFolderToDisk(g_Project->RTFFolder()); });
    }
  }
  TextFolder(const TextFolder&) = delete;
  TextFolder& operator=(const TextFolder&) = delete;

  /// Why the scene's text could not be written; empty when it could.
  QString save(clsScene& scene) const {
    if (!g_Project->HasPlace()) {
      scene.SaveRTF(false);
      return scene.RTFChanged() && !RescueFolder(*g_Project).holds(scene)
                 ? toldText(shownText(u"The book has no place of its own, and the text could not be kept in %1"_s),
                            {RescueFolder(*g_Project).path()})
                 : QString();
    }
    SceneFile file(scene);
    file.save(false, mirror_);
    return file.failure();
  }

 private:
  QString mirror_ = SceneFile::mirrorFolder();
};

QString nameOf(const clsScene& scene) {
  return calledScene(scene.Title);
}

/// With a new name it goes on there.
bool mayWriteBook() {
  switch (OlderCopy(*g_Project).settle(OlderCopy::Texts::All)) {
    case OlderCopy::Answer::NewName:
      return ProjectSaver(*g_Project).saveElsewhere() && g_Project->HasPlace();
    case OlderCopy::Answer::GiveUp:
      return false;
    default:
      return true;
  }
}

}  // namespace

BookFont::BookFont(const QString& name, double points) : name_(name), halfPoints_(qRound(points * 2)) {}

bool BookFont::mayBegin() {
  if (!g_Project->HasPlace()) {
    return true;
  }
  if (!mayWriteBook()) {
    return false;
  }
  const BusyPointer pointer;
  DiskConflicts conflicts(*g_Project);
  for (const auto& scene : g_Project->Scenes) {
    if (!scene->TextUnread()) {
      conflicts.lookAtDisk(*scene);
    }
  }
  return conflicts.settle(DiskConflicts::Askers::Project) != DiskConflicts::Outcome::GiveUp;
}

BookFont::Outcome BookFont::apply(const std::function<bool(qint32)>& next) const {
  // The scenes that are walked stay, whatever is done while the window repaints.
  const std::vector<std::shared_ptr<clsScene>> scenes(g_Project->Scenes.begin(), g_Project->Scenes.end());
  Outcome outcome;
  outcome.scenes = static_cast<qint32>(scenes.size());
  const TextFolder folder;
  for (const auto& scene : scenes) {
    if (!next(outcome.done)) {
      outcome.end = Outcome::End::Stopped;
      return outcome;
    }
    const QByteArray before = scene->TextRTF();
    outcome.cause = kGuard.causeOf([&] {
      change(*scene, outcome);
      if (const QString cause = folder.save(*scene); !cause.isEmpty()) {
        throw RuntimeError(RuntimeError::PathAccess, cause);
      }
    });
    if (!outcome.cause.isEmpty()) {
      outcome.end = Outcome::End::Failed;
      outcome.failedAt = nameOf(*scene);
      if (scene->TextRTF() != before) {
        scene->setTextRTF(before);
        // The file holds it still: it isn't due.
        folder.save(*scene);
      }
      return outcome;
    }
    // The lists would have to wait for all of them at once.
    scene->Wordcount();
    g_SceneChanges.MarkUpdated(scene->ID());
    ++outcome.done;
  }
  return outcome;
}

void BookFont::change(clsScene& scene, Outcome& outcome) const {
  if (scene.TextUnread()) {
    outcome.unread.append(nameOf(scene));
    return;
  }
  const QByteArray& rtf = scene.TextRTF();
  if (rtf.isEmpty()) {
    return;
  }
  RtfLosses losses;
  RichText text = readRtf(rtf, &losses);
  text.formatCharacters(0, -1, [this](CharFormat& format) {
    format.fontName = name_;
    format.halfPoints = halfPoints_;
  });
  outcome.reduced.keepOriginal(scene, losses);
  frmRTFHidden worker;
  worker.SetText(text);
  scene.setTextRTF(worker.GetRTF());
}
