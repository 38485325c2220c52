#include "core/persist/BackupsProject.h"

#include "core/infra/Clock.h"
#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/ToldText.h"
#include "core/infra/ZipContents.h"
#include "core/infra/cSHAREDSubs.h"
#include "core/infra/cSHAREDZipFiles.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/WholeFile.h"

#include <QLocale>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

using Result = BackupOutcome::Result;

QString archiveOf(const clsProject& project, bool complete, bool weekdayFile) {
  const QString root = Files().FileWithoutExt(Files().FileOnly(project.FileWithPath));
  const QString ending = complete ? u"_complete.zip"_s : u".zip"_s;
  const QString start = weekdayFile ? Files().AddSlashIfMissing(project.Path() + u"Autobackups"_s) + root +
                                          QLocale().toString(Clock::today(), u"ddd"_s)
                                    : project.TodaysBackupFolder() + root;
  return start + ending;
}

/// Why no backup is made; empty when one is.
QString reasonToSkip(const clsProject& project) {
  if (project.FileWithPath.isEmpty()) {
    return shownText(u"The book has no file yet."_s);
  }
  if (project.ReadOnly()) {
    return shownText(u"The book is opened read-only."_s);
  }
  return project.IsBusy() ? shownText(u"The book is being loaded or saved."_s) : QString();
}

/// Collects what goes into one archive.
class Packing {
 public:
  Packing(const clsProject& project, BackupOutcome& outcome) : project_(project), outcome_(outcome) {
    zip_.Setup();
    zip_.ZipFileName = outcome.archive;
    zip_.RootDirectory = project.Path();
  }

  void addProject() {
    if (wouldSpoilBackup()) {
      outcome_.causes.append(
          toldText(shownText(u"%1: it is incomplete, and the whole one in the backup was not replaced by it"_s),
                   {project_.FileWithPath}));
    } else {
      guard_([&] { zip_.AddFile(project_.FileWithPath); });
    }
    // A first run has none yet.
    if (Files().FileExists(g_SettingsFile)) {
      guard_([&] { zip_.AddFile(g_SettingsFile); });
    }
  }

  void addScene(clsScene& scene) {
    const bool hasFile = !scene.RTFFilename().isEmpty() && Files().FileExists(scene.RTFFileWithPath());
    if (hasFile) {
      guard_([&] { zip_.AddFile(scene.RTFFileWithPath()); });
      return;
    }
    const bool isInProjectFile = Files().ExtOnly(project_.FileWithPath).compare(u"qnc4"_s, Qt::CaseInsensitive) == 0;
    if (!isInProjectFile && !(scene.RTFFilename().isEmpty() && scene.TextRTF().isEmpty())) {
      outcome_.causes.append(
          toldText(shownText(u"The scene \"%1\" has no file of its text."_s), {calledScene(scene.Title)}));
    }
  }

  void run(bool keepUnchanged) {
    setAsideWhatIsNoArchive();
    zip_.KeepUnchanged = keepUnchanged;
    Files().MkMissingDir(Files().PathOnly(outcome_.archive));
    const QString cause = guard_.causeOf([&] { zip_.MakeZipFile(); });
    if (!cause.isEmpty()) {
      outcome_.causes.append(cause);
    }
    for (const cSHAREDZipFiles::Failure& failure : zip_.Failures()) {
      outcome_.causes.append(
          failure.cause.contains(failure.file) ? failure.cause : toldText(u"%1: %2"_s, {failure.file, failure.cause}));
    }
  }

 private:
  /// Nothing can be added to it, so there would be no backup all day.
  void setAsideWhatIsNoArchive() const {
    if (!Files().FileExists(outcome_.archive) ||
        guard_.causeOf([&] { const ZipContents contents(outcome_.archive); }).isEmpty()) {
      return;
    }
    Files().MoveFile(outcome_.archive,
                     Files().FileWithoutExt(outcome_.archive) + Clock::now().toString(u"'_damaged_'HHmmss'.zip'"_s));
  }

  /// What was cut off must not take the place of a whole copy.
  bool wouldSpoilBackup() const {
    std::optional<QByteArray> text;
    guard_([&] { text = readWholeFile(project_.FileWithPath); });
    if (!text || isWholeProjectFile(*text)) {
      return false;
    }
    const std::optional<QByteArray> packed = readFromZip(outcome_.archive, Files().FileOnly(project_.FileWithPath));
    return packed && isWholeProjectFile(*packed);
  }

  const clsProject& project_;
  BackupOutcome& outcome_;
  cSHAREDZipFiles zip_;
  Guard guard_{"BackupProject", "clsProject"};
};

/// Packed anew as a whole: that is what mends one that was damaged.
void packAll(clsProject& project, BackupOutcome& outcome) {
  const LongWork work(project, shownText(u"Making Backup"_s), true);
  Packing packing(project, outcome);
  packing.addProject();
  for (const auto& scene : project.Scenes) {
    packing.addScene(*scene);
  }
  packing.run(false);
}

// It comes unasked at any moment, so nothing that is typed into it may be lost.
void packProject(clsProject& project, BackupOutcome& outcome) {
  const BusyMark busy(project);
  const YieldPause pause;
  Packing packing(project, outcome);
  packing.addProject();
  packing.run(true);
}

}  // namespace

BackupOutcome backUpProject(clsProject& project, bool complete, bool weekdayFile) {
  BackupOutcome outcome;
  if (const QString reason = reasonToSkip(project); !reason.isEmpty()) {
    outcome.causes.append(reason);
    return outcome;
  }
  outcome.archive = archiveOf(project, complete, weekdayFile);
  // A folder that has gone isn't made anew.
  if (!Files().FolderExists(project.Path())) {
    outcome.causes.append(toldText(shownText(u"The folder %1 is not there."_s), {project.Path()}));
  } else {
    const QString cause = Guard("BackupProject", "clsProject").causeOf([&] {
      complete ? packAll(project, outcome) : packProject(project, outcome);
    });
    if (!cause.isEmpty()) {
      outcome.causes.append(cause);
    }
  }
  const bool made = outcome.causes.isEmpty();
  outcome.result = made ? Result::Made : Result::Failed;
  for (const QString& cause : outcome.causes) {
    Logging().LogEvent(u"Not in the backup: "_s + cause);
  }
  Logging().LogEvent(u"Backup to "_s + outcome.archive + (made ? u" complete"_s : u" failed"_s));
  return outcome;
}

BackupCheck verifyBackup(clsProject& project, const QString& archive) {
  BackupCheck check;
  const Guard guard("verifyBackup", "Backups");
  check.failure = guard.causeOf([&] {
    LongWork work(project, shownText(u"Verifying Backup"_s), true);
    const ZipContents contents(archive);
    for (qsizetype i = 0; i < contents.members().size(); ++i) {
      work.setCaption(shownText(u"Verifying File %1"_s), ++check.members);
      const QString why = guard.causeOf([&] { contents.read(i); });
      if (!why.isEmpty()) {
        check.damaged.append(why);
      }
    }
  });
  return check;
}

void clsProject::MakeAutoBackupFolder() const {
  Files().MkMissingDir(Path() + u"Autobackups"_s);
}

bool clsProject::BackupThisFile(const QString& File, const QString& ZipName) const {
  bool made = false;
  Guard("BackupThisFile", "clsProject")([&] {
    cSHAREDZipFiles zip;
    made = zip.Zip(File, ZipName);
  });
  if (!made) {
    Logging().LogEvent(u"Error making backup of "_s + File);
  }
  return made;
}

bool clsProject::BackupProject(bool Complete, bool WeekdayFile) {
  return backUpProject(*this, Complete, WeekdayFile).result == Result::Made;
}
