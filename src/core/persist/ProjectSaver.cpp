#include "core/persist/ProjectSaver.h"

#include "core/infra/FileChannels.h"
#include "core/infra/FolderLock.h"
#include "core/infra/Guard.h"
#include "core/infra/MayReplace.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/DiskConflicts.h"
#include "core/persist/OlderCopy.h"
#include "core/persist/SceneFile.h"
#include "core/persist/modConstXML.h"

#include <QScopedValueRollback>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

const QString kUnableToReplace = shownText(u"Unable to write the project file. Please choose another location."_s);
const QString kUnableToSave =
    shownText(u"Unable to save project. Please use Save As and choose a different location."_s);

/// The new project file while it is written: whatever ends the save early throws it away.
class NewFile {
 public:
  explicit NewFile(int number) : number_(number) {}
  ~NewFile() {
    if (number_ > 0) {
      Guard("Save", "clsProject")([this] { Channels().Abandon(number_); });
    }
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  int number() const { return number_; }
  /// Puts it in the old one's place; throws what the system says when that fails.
  FileStamp commit() { return Channels().CloseToDisk(std::exchange(number_, 0)); }

 private:
  int number_;
};

FileQuestion projectFileQuestion(const QString& folder) {
  return {shownText(u"Specify your Project file."_s), u"*.qn4"_s, u"MyProject.qn4"_s, folder};
}

}  // namespace

std::function<void()>& behindEachSave() {
  static std::function<void()> work;
  return work;
}

bool clsProject::SaveQN4(bool showProgress) {
  return ProjectSaver(*this).saveQN4(showProgress);
}

bool clsProject::SaveQNC4(bool showProgress) {
  return ProjectSaver(*this).saveQNC4(showProgress);
}

bool clsProject::SaveAs() {
  return ProjectSaver(*this).saveAs();
}

/// Another folder has none of the scenes' files, nor has the book's own one when somebody took them away: all are due.
/// When the save fails they are what they were.
class ProjectSaver::NewPlace {
 public:
  explicit NewPlace(const clsProject& project) {
    for (const auto& scene : project.Scenes) {
      const bool isDue = scene->rtfChanged_ || scene->rtfFilename_.isEmpty();
      former_.push_back({scene, scene->stored_, scene->textStamp_, isDue});
      if (!project.IsInOwnFolder()) {
        scene->stored_ = {};
      }
      scene->rtfChanged_ = true;
    }
  }
  ~NewPlace() {
    for (const Former& former : former_) {
      former.scene->stored_ = former.stored;
      former.scene->rtfChanged_ = former.changed || former.scene->textStamp_ != former.text;
    }
  }
  NewPlace(const NewPlace&) = delete;
  NewPlace& operator=(const NewPlace&) = delete;

  void keep() { former_.clear(); }

 private:
  struct Former {
    std::shared_ptr<clsScene> scene;
    FileStamp stored;
    quint64 text;
    bool changed;
  };
  std::vector<Former> former_;
};

ProjectSaver::ProjectSaver(clsProject& project) : project_(project) {}
ProjectSaver::~ProjectSaver() = default;

bool ProjectSaver::mayBegin() const {
  if (project_.IsBusy()) {
    Logging().AddDebug(u"Not saved while a load or save is under way"_s, u"Save"_s, u"clsProject"_s);
  }
  return !project_.IsBusy();
}

bool ProjectSaver::saveQN4(bool showProgress) {
  if (!mayBegin()) {
    return false;
  }
  if (project_.readOnly_) {
    Logging().LogEvent(u"Not saved: the book was opened read-only"_s);
    return false;
  }
  if (!project_.FileWithPath.isEmpty()) {
    project_.FileWithPath = forcedExtension(u".qn4"_s);
  }
  return saveBook(showProgress, project_.FileWithPath);
}

bool ProjectSaver::saveQNC4(bool showProgress) {
  if (!mayBegin() || project_.readOnly_) {
    return false;
  }
  project_.FileWithPath = forcedExtension(u".qnc4"_s);
  return save(showProgress, Form::SingleFile, project_.FileWithPath);
}

bool ProjectSaver::saveAs() {
  if (!mayBegin()) {
    return false;
  }
  const BusyMark busy(project_);
  const QString own = project_.FileWithPath;
  const QString answer = toolkit().SaveFileDialog(projectFileQuestion(Paths::documentsFolder()));
  if (answer.isEmpty()) {
    return false;
  }
  project_.FileWithPath = answer;
  project_.FileWithPath = extensionGiven(u".qn4"_s);
  if (!mayTakeName(answer)) {
    project_.FileWithPath = own;
    return false;
  }
  saveBook(true, own);
  return true;
}

bool ProjectSaver::saveElsewhere() {
  if (!mayBegin()) {
    return false;
  }
  sharesFolder_ = true;
  const QString own = std::exchange(project_.FileWithPath, {});
  return saveBook(true, own);
}

// Also in the middle of another save: nothing of the book is changed by it.
bool ProjectSaver::saveCopy(const QString& file) {
  const BusyMark busy(project_);
  const QScopedValueRollback name(project_.FileWithPath, file);
  return isDone(write(false, Form::SingleFile));
}

QString ProjectSaver::forcedExtension(const QString& extension) const {
  // The file's own dot alone counts, and a name that has the extension in other letters is kept.
  const QString name = Files().FileOnly(project_.FileWithPath);
  if (name.endsWith(extension, Qt::CaseInsensitive)) {
    return project_.FileWithPath;
  }
  const QString stem = Files().FileWithoutExt(name);
  return project_.Path() + (stem.endsWith(extension, Qt::CaseInsensitive) ? stem : stem + extension);
}

// In a name that was typed a dot may be a part of it: "Vol. 2".
QString ProjectSaver::extensionGiven(const QString& extension) const {
  const QString own = Files().ExtOnlyWithDot(Files().FileOnly(project_.FileWithPath)).toLower();
  const bool isOurs = own == u".qn4"_s || own == u".qnc4"_s || own == u".qn3"_s;
  return isOurs ? forcedExtension(extension) : project_.FileWithPath + extension;
}

bool ProjectSaver::saveBook(bool showProgress, const QString& own) {
  const bool saved = save(showProgress, Form::Folder, own);
  // A book that isn't the open one yet has nothing to log.
  if (saved && !leavesFile_ && &project_ == g_Project.get() && behindEachSave()) {
    Guard("WriteProgressLog", "clsProject")(behindEachSave());
  }
  return saved;
}

// Every failure turns into the question for another file; only giving that up ends the save.
bool ProjectSaver::save(bool showProgress, Form form, QString own) {
  const BusyMark busy(project_);
  project_.QN3FileMode = false;
  QString folder = Paths::documentsFolder();
  for (;;) {
    const bool asked = project_.FileWithPath.isEmpty();
    if (asked && !askForFile(folder, form)) {
      giveUp(own, form);
      return false;
    }
    const Way way = asked ? Way::GoOn : wayTo(form);
    if (way == Way::GiveUp) {
      giveUp(own, form);
      return false;
    }
    if (way == Way::GoOn && attempt(showProgress, form, asked)) {
      return true;
    }
    // In the book's own folder there is one already.
    folder =
        way == Way::AskForAnother ? Files().PathOnly(Files().RemoveSlashFromEnd(project_.Path())) : project_.Path();
    project_.FileWithPath.clear();
  }
}

bool ProjectSaver::isUnchanged(Form form) {
  quint64 hash = 0;
  const bool written = Guard("Save", "clsProject")([&] {
    QString cause;
    const NewFile file(Files().CreateReplacementFile(project_.FileWithPath, cause));
    LongWork work(project_, shownText(u"Saving Project"_s), false);
    if (file.number() > 0 && isDone(writeSteps(work, file.number(), form, Texts::Skipped))) {
      hash = Channels().hashOf(file.number());
    }
  });
  return written && hash == project_.stored_.hash;
}

// The next save tries the same place again: what was in the way may have gone by then.
void ProjectSaver::giveUp(const QString& own, Form form) const {
  project_.FileWithPath = own;
  project_.editedSinceSave_ = project_.editedSinceSave_ || (form == Form::Folder && !own.isEmpty());
  if (form == Form::Folder && !project_.reloadWanted_) {
    project_.lastSaves_.bookNotSaved(cause_);
  }
}

bool ProjectSaver::askForFile(const QString& folder, Form form) {
  for (;;) {
    const QString typed = toolkit().SaveFileDialog(projectFileQuestion(folder));
    project_.FileWithPath = typed;
    if (typed.isEmpty()) {
      toolkit().MsgBox(u"No project file specified. Save cancelled."_s);
      return false;
    }
    project_.FileWithPath = extensionGiven(form == Form::SingleFile ? u".qnc4"_s : u".qn4"_s);
    if (mayTakeName(typed)) {
      return true;
    }
  }
}

// The dialog has asked about the name that was typed, not about what we have made of it.
bool ProjectSaver::mayTakeName(const QString& typed) const {
  const QString& path = project_.FileWithPath;
  return path == typed || Paths::areSame(path, project_.storedIn_) || mayReplace(path);
}

bool ProjectSaver::attempt(bool showProgress, Form form, bool asked) {
  std::optional<NewPlace> newPlace;
  if (form == Form::Folder && (!project_.IsInOwnFolder() || !Files().FolderExists(project_.RTFFolder()))) {
    newPlace.emplace(project_);
  }
  // What an editor saves while we write isn't in the file yet.
  const bool edited = project_.editedSinceSave_;
  project_.editedSinceSave_ = edited && form == Form::SingleFile;
  const bool planDue = project_.planDue_;
  project_.planDue_ = planDue && form == Form::SingleFile;
  Failure failure = prepareTarget(form, asked);
  if (isDone(failure)) {
    failure = write(showProgress, form);
  }
  if (isDone(failure)) {
    if (newPlace) {
      newPlace->keep();
    }
    remember(form);
    note(form);
  } else {
    project_.editedSinceSave_ = project_.editedSinceSave_ || edited;
    project_.planDue_ = project_.planDue_ || planDue;
  }
  cause_ = failure.cause;
  tell(failure);
  return isDone(failure);
}

// What the system says may be all that a writer needs to mend it.
void ProjectSaver::tell(const Failure& failure) {
  const auto text = [&failure](const QString& what, const QString& cause) {
    return failure.cause.isEmpty() ? what : what + u"\n\n"_s + cause;
  };
  if (failure.told == Failure::Told::ByBox) {
    toolkit().MsgBox(text(translated(failure.text), translated(failure.cause)));
  } else if (failure.told == Failure::Told::ByReport) {
    ShowError().ShowErr(text(failure.text, failure.cause), {});
  }
}

// A copy in a single file is no save of the book.
void ProjectSaver::note(Form form) const {
  if (form == Form::SingleFile) {
    return;
  }
  project_.lastSaves_.bookSaved();
  if (const qint32 unsaved = project_.UnsavedTexts(); unsaved > 0) {
    project_.lastSaves_.textNotSaved(
        toldText(shownText(u"the text of %1 scene(s) could not be written"_s), {QString::number(unsaved)}));
  }
}

ProjectSaver::Failure ProjectSaver::prepareTarget(Form form, bool asked) {
  const QString folder = project_.Path();
  const QString texts = project_.RTFFolder();
  const bool isOurs =
      (project_.IsInOwnFolder() && !project_.readOnly_ && !sharesFolder_) || project_.made_.contains(texts);
  if (form == Form::Folder && asked && !isOurs && Files().FolderExists(texts)) {
    return boxed(shownText(u"There's already a project in that location. Please choose a different folder."_s));
  }
  Files().MkMissingDir(folder);
  if (form == Form::Folder && !project_.IsInOwnFolder() && Files().FolderExists(folder)) {
    lock_ = std::make_unique<FolderLock>(folder);
    if (lock_->other()) {
      return boxed(shownText(u"The book in that folder is open elsewhere. Please choose a different folder."_s));
    }
  }
  if (form == Form::Folder) {
    if (Files().MkMissingDir(texts)) {
      project_.made_.append(texts);
    }
    if (!Files().FolderExists(folder)) {
      return boxed(shownText(u"Unable to create project folder. Please choose another location."_s));
    }
  }
  return {};
}

ProjectSaver::Failure ProjectSaver::write(bool showProgress, Form form) {
  QString cause;
  NewFile file(Files().CreateReplacementFile(project_.FileWithPath, cause));
  if (file.number() <= 0) {
    Logging().LogEvent(u"Unable to write project file"_s);
    return boxed(Files().FileExists(project_.FileWithPath) ? kUnableToReplace : kUnableToSave, cause);
  }
  Logging().LogEvent(u"Saving project"_s);
  Failure failure;
  textFailure_.clear();
  if (leavesFile_) {
    return form == Form::Folder && !writeTexts(form, showProgress) ? boxed(kUnableToSave, textFailure_) : Failure();
  }
  cause = Guard("Save", "clsProject").causeOf([&] {
    LongWork work(project_, shownText(u"Saving Project"_s), showProgress);
    failure = writeSteps(work, file.number(), form, showProgress ? Texts::All : Texts::Due);
    if (isDone(failure) && !keepLateChange()) {
      failure = boxed(kUnableToReplace);
    }
    if (isDone(failure)) {
      written_ = file.commit();
    }
  });
  if (!isDone(failure)) {
    failure.cause = textFailure_.isEmpty() ? Channels().failureOf(file.number()) : textFailure_;
    return failure;
  }
  return cause.isEmpty() ? Failure() : boxed(kUnableToSave, cause);
}

// Somebody may have written it while we did.
bool ProjectSaver::keepLateChange() const {
  DiskConflicts late(project_);
  late.lookAtProjectFile();
  return late.keepAllBeside();
}

struct ProjectSaver::Step {
  QString caption;
  std::function<bool()> write;
  QString failure;
  Failure::Told told = Failure::Told::ByReport;
};

ProjectSaver::Failure ProjectSaver::writeSteps(LongWork& work, int file, Form form, Texts texts) {
  clsProject& from = project_;
  const Guard guard("Save", "clsProject");
  if (form == Form::Folder) {
    // The head holds the counter of these names, so they are given before it is written.
    guard([&] { SceneFile::nameAll(from.Scenes); });
  }
  const std::array steps{
      Step{{}, [&] { return writeHead(file); }, kUnableToSave, Failure::Told::ByBox},
      Step{shownText(u"Saving Locations, Items, Characters"_s), [&] { return from.Locations.WriteXML(file); },
           shownText(u"Unable to write location details (cProject.Save)"_s)},
      Step{{}, [&] { return from.Items.WriteXML(file); }, shownText(u"Unable to write item details (cProject.Save)"_s)},
      Step{{},
           [&] { return from.Chars.WriteXML(file); },
           shownText(u"Unable to write character details (cProject.Save)"_s)},
      Step{{}, [&] { return from.Notes.WriteXML(file); }, shownText(u"Unable to write notes (cProject.Save)"_s)},
      Step{shownText(u"Saving Scenes and Chapters"_s),
           [&] { return texts == Texts::Skipped || writeTexts(form, texts == Texts::All); },
           shownText(u"Unable to scene contents (cProject.Save)"_s)},
      Step{{},
           [&] { return from.Scenes.WriteXML(file, form == Form::SingleFile); },
           shownText(u"Unable to write scene details (cProject.Save)"_s)},
      Step{{},
           [&] { return from.Chapters.WriteXML(file); },
           shownText(u"Unable to write chapter details (cProject.Save)"_s)},
      Step{{},
           [&] { return guard([&] { Channels().PrintLine(file, Tag(kRoot).close); }); },
           kUnableToSave,
           Failure::Told::ByBox},
  };
  for (const Step& step : steps) {
    if (!step.caption.isEmpty()) {
      work.setCaption(step.caption);
    }
    if (!step.write()) {
      return {step.told, step.failure};
    }
  }
  return {};
}

bool ProjectSaver::writeHead(int file) const {
  return Guard("Save", "clsProject")([&] {
    QByteArray head;
    head.append(kHeader).append("\r\n").append(Tag(kRoot).open).append("\r\n");
    project_.DataAsXML(head);
    Channels().PrintLine(file, QByteArrayView(head));
  });
}

bool ProjectSaver::writeTexts(Form form, bool force) {
  if (form == Form::SingleFile) {
    Logging().LogEvent(u"Saving scene RTF in project file"_s);
    return true;
  }
  Logging().LogEvent(u"Saving scene RTF files to "_s + project_.Path() + u"RTF"_s);
  return project_.Scenes.SaveScenesText(force, overOthers_, &textFailure_);
}

void ProjectSaver::remember(Form form) {
  Settings().sSet(u"LastProjectFile"_s, project_.FileWithPath);
  Settings().sSet(u"LastProjectLoaded"_s, project_.FileWithPath);
  if (form == Form::Folder || project_.incompleteFile_ == project_.FileWithPath) {
    project_.incompleteFile_.clear();
  }
  if (form == Form::SingleFile || project_.UnsavedTexts() == 0) {
    Logging().LogEvent(u"Project saved"_s);
  }
  if (leavesFile_) {
    return;  // what it holds isn't known yet
  }
  if (project_.FileWithPath == project_.storedIn_) {
    project_.stored_ = written_;
  }
  if (form == Form::SingleFile) {
    return;
  }
  if (!project_.IsInOwnFolder()) {
    project_.lock_ = std::move(lock_);
    project_.readOnly_ = false;
  }
  project_.reloadWanted_ = false;
  if (!Paths::areSame(project_.storedIn_, project_.FileWithPath)) {
    // What stands there now is this book.
    project_.freshlyRead_ = false;
  }
  project_.storedIn_ = project_.FileWithPath;
  project_.stored_ = written_;
}
