#include "core/persist/DiskConflicts.h"

#include "core/infra/Clock.h"
#include "core/infra/FirstOf.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/ConflictCopy.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

enum Choice { kBoth, kMine, kTheirs };

}  // namespace

void DiskConflicts::lookAtProjectFile() {
  const QString& path = project_.FileWithPath;
  if (path != project_.storedIn_ || project_.stored_.looksLike(FileStamp::lookAt(path))) {
    return;
  }
  SceneFile::Changed changed;
  std::optional<QByteArray> text;
  Guard("lookAtProjectFile", "DiskConflicts")([&] { text = readWholeFile(path, Links::Followed, &changed.stamp); });
  const bool asLeft = changed.stamp.size == project_.stored_.size && changed.stamp.hash == project_.stored_.hash;
  if (!text || asLeft) {
    return;
  }
  changed.text = *std::move(text);
  conflicts_.append({path, std::move(changed), nullptr});
}

void DiskConflicts::lookAt(clsScene& scene) {
  if (scene.RTFChanged()) {
    lookAtDisk(scene);
  }
}

void DiskConflicts::lookAtDisk(clsScene& scene) {
  if (auto changed = SceneFile(scene).changedByOthers()) {
    conflicts_.append({scene.RTFFileWithPath(), *std::move(changed), scene.shared_from_this()});
  }
}

bool DiskConflicts::hasProjectFile() const {
  return std::any_of(conflicts_.begin(), conflicts_.end(), [](const Conflict& conflict) { return !conflict.scene; });
}

QList<std::shared_ptr<clsScene>> DiskConflicts::scenes() const {
  QList<std::shared_ptr<clsScene>> found;
  for (const Conflict& conflict : conflicts_) {
    if (conflict.scene) {
      found.append(conflict.scene);
    }
  }
  return found;
}

void DiskConflicts::takeTexts() const {
  for (const Conflict& conflict : conflicts_) {
    if (conflict.scene) {
      takeTheirs(conflict);
    }
  }
}

QString DiskConflicts::question() const {
  QStringList lines;
  for (const Conflict& conflict : conflicts_) {
    const QString date = Files().FileDate(conflict.path).toString(u"yyyy-MM-dd HH:mm"_s);
    const QString title = conflict.scene ? u", the text of '"_s + conflict.scene->Title + u'\'' : QString();
    lines.append(Files().FileOnly(conflict.path) + title + u", changed "_s + date);
  }
  return u"Another program has changed what you are about to save:\n\n"_s + firstOf(lines).join(u'\n') +
         u"\n\nWhich do you want to keep? With 'Both' yours is saved, and the other stays beside it with \"(conflict "_s +
         Clock::today().toString(Qt::ISODate) + u")\" in its name."_s;
}

// A window that goes on showing the old text would put it back with its next save. What the asking editor shows, it
// looks at afterwards.
bool DiskConflicts::mayTakeTheirs(Askers askers) const {
  return askers == Askers::Editor || g_SceneChanges.lockedIDs().empty();
}

bool DiskConflicts::keepBeside(const Conflict& conflict) const {
  const QString name = ConflictCopy::nameFor(conflict.path);
  const QString cause =
      Guard("keepBeside", "DiskConflicts").causeOf([&] { Files().ReplaceFile(name, conflict.changed.text); });
  if (!cause.isEmpty()) {
    toolkit().MsgBox(u"The other version of "_s + conflict.path + u" could not be kept as "_s + name +
                     u". Nothing was written over it.\n\n"_s + cause);
    return false;
  }
  Logging().LogEvent(u"The version that another program left is kept as "_s + name);
  return true;
}

void DiskConflicts::accept(const Conflict& conflict) {
  (conflict.scene ? conflict.scene->stored_ : project_.stored_) = conflict.changed.stamp;
}

void DiskConflicts::takeTheirs(const Conflict& conflict) const {
  clsScene& scene = *conflict.scene;
  scene.setTextRTF(conflict.changed.text);
  scene.stored_ = conflict.changed.stamp;
  scene.rtfChanged_ = false;
  g_SceneChanges.MarkUpdated(scene.ID());
}

DiskConflicts::Outcome DiskConflicts::settle(Askers askers) {
  if (isEmpty()) {
    return Outcome::GoOn;
  }
  ChoiceQuestion asked{question(), {u"Both"_s, u"Mine"_s}, kBoth, kBoth};
  if (mayTakeTheirs(askers)) {
    asked.choices.append(u"Theirs"_s);
  } else {
    asked.text += u" To take the other, please close all editor windows first."_s;
  }
  const int choice = toolkit().Choose(asked);
  switch (choice) {
    case kBoth:
      for (const Conflict& conflict : conflicts_) {
        if (!keepBeside(conflict)) {
          return Outcome::GiveUp;
        }
        accept(conflict);
      }
      return Outcome::GoOn;
    case kMine:
      for (const Conflict& conflict : conflicts_) {
        accept(conflict);
      }
      return Outcome::GoOn;
    case kTheirs:
      takeTexts();
      return hasProjectFile() ? Outcome::Reload : Outcome::GoOn;
    default:
      return Outcome::GiveUp;
  }
}
