#include "core/persist/DiskConflicts.h"

#include "core/infra/Clock.h"
#include "core/infra/FirstOf.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/Backups.h"
#include "core/persist/ConflictCopy.h"
#include "core/persist/WholeFile.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString kBoth = shownText(u"Keep both"_s);
const QString kMine = shownText(u"Keep mine"_s);
const QString kTheirs = shownText(u"Take theirs"_s);

}  // namespace

void DiskConflicts::lookAtProjectFile() {
  const QString& path = project_.FileWithPath;
  if (path != project_.storedIn_ || project_.stored_.looksLike(FileStamp::lookAt(path))) {
    return;
  }
  SceneFile::Changed changed;
  std::optional<QByteArray> text;
  Guard("lookAtProjectFile", "DiskConflicts")([&] { text = readWholeFile(path, Links::Followed, &changed.stamp); });
  if (!text) {
    const FileStamp now = FileStamp::lookAt(path);
    if (now.isKnown()) {
      conflicts_.append({path, {{}, now, false}, nullptr});
    }
    return;
  }
  changed.stamp.noteContent(*text);
  if (project_.stored_.hasContent(*text)) {
    project_.stored_ = changed.stamp;
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
    const QString what = conflict.scene ? translated(u"The text of '%1'"_s).arg(calledScene(conflict.scene->Title))
                                        : translated(u"The plan of the book"_s);
    lines.append(u"%1 (%2, %3)"_s.arg(what, Files().FileOnly(conflict.path), date));
  }
  const QString offers =
      translated(
          u"Keep both: yours is saved, and the other stays beside it with \"(conflict %1)\" in its name.\n"
          "Keep mine: the other is replaced.\n"
          "Take theirs: what you have written since your last save is dropped."_s)
          .arg(Clock::today().toString(Qt::ISODate));
  return translated(u"Another program has changed what you are about to save:"_s) + u"\n\n"_s +
         firstOf(lines).join(u'\n') + u"\n\n"_s + offers;
}

bool DiskConflicts::isWhole(const Conflict& conflict) {
  const SceneFile::Changed& changed = conflict.changed;
  if (!conflict.scene) {
    return changed.readable && isWholeProjectFile(changed.text);
  }
  // Texts of other programs may be no RTF at all.
  const QByteArray text = changed.text.trimmed();
  const bool isCutOff = text.startsWith("{\\rtf") && !text.endsWith('}') && !text.endsWith('\0');
  return changed.readable && !isCutOff && (!text.isEmpty() || conflict.scene->TextRTF().isEmpty());
}

bool DiskConflicts::areWhole() const {
  return std::all_of(conflicts_.begin(), conflicts_.end(), isWhole);
}

bool DiskConflicts::keepAllBeside() {
  for (const Conflict& conflict : conflicts_) {
    if (!keepBeside(conflict)) {
      return false;
    }
    accept(conflict);
  }
  return true;
}

// A window that goes on showing the old text would put it back with its next save. What the asking editor shows, it
// looks at afterwards.
bool DiskConflicts::mayTakeTheirs(Askers askers) const {
  return askers == Askers::Editor || g_SceneChanges.lockedIDs().empty();
}

bool DiskConflicts::keepBeside(const Conflict& conflict) const {
  const QString name = ConflictCopy::nameFor(conflict.path);
  if (!conflict.changed.readable) {
    toolkit().MsgBox(
        translated(u"The other version of %1 can't be read, so it can't be kept. Nothing was written over it."_s)
            .arg(conflict.path));
    return false;
  }
  const QString cause =
      Guard("keepBeside", "DiskConflicts").causeOf([&] { Files().ReplaceFile(name, conflict.changed.text); });
  if (!cause.isEmpty()) {
    toolkit().MsgBox(translated(u"The other version of %1 could not be kept as %2. Nothing was written over it."_s)
                         .arg(conflict.path, name) +
                     u"\n\n"_s + translated(cause));
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
  if (scene.RTFChanged()) {
    // Whoever thinks better of it finds it with the day's backups.
    backUpScene(scene);
  }
  scene.setTextRTF(conflict.changed.text);
  scene.stored_ = conflict.changed.stamp;
  scene.rtfChanged_ = false;
  scene.countsHeld_ = false;
  g_SceneChanges.MarkUpdated(scene.ID());
}

ChoiceQuestion DiskConflicts::questionFor(Askers askers) const {
  ChoiceQuestion asked{question(), {kBoth, kMine}, 0, 0};
  const bool areReadable = std::all_of(conflicts_.begin(), conflicts_.end(),
                                       [](const Conflict& conflict) { return conflict.changed.readable; });
  if (!areReadable) {
    asked = {
        asked.text + translated(u" The other can't be read, so it can't be kept."_s), {kMine}, ChoiceQuestion::kNone};
  } else if (!areWhole()) {
    asked.text += translated(u" The other is cut off or empty."_s);
  } else if (mayTakeTheirs(askers)) {
    asked.choices.append(kTheirs);
  } else {
    asked.text += translated(u" To take the other, please close all editor windows first."_s);
  }
  return asked;
}

DiskConflicts::Outcome DiskConflicts::settle(Askers askers) {
  if (isEmpty()) {
    return Outcome::GoOn;
  }
  const ChoiceQuestion asked = questionFor(askers);
  const QString choice = asked.choices.value(toolkit().Choose(asked));
  if (choice == kBoth) {
    return keepAllBeside() ? Outcome::GoOn : Outcome::GiveUp;
  }
  if (choice == kMine) {
    for (const Conflict& conflict : conflicts_) {
      accept(conflict);
    }
    return Outcome::GoOn;
  }
  if (choice == kTheirs) {
    takeTexts();
    return hasProjectFile() ? Outcome::Reload : Outcome::GoOn;
  }
  return Outcome::GiveUp;
}
