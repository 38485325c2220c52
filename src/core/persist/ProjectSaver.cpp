#include "core/persist/ProjectSaver.h"

#include "core/infra/FileChannels.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/LongWork.h"
#include "core/model/clsProject.h"
#include "core/persist/SceneFile.h"
#include "core/persist/modConstXML.h"

#include <array>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

const QString kUnableToReplace = u"Unable to write the project file. Please choose another location."_s;
const QString kUnableToSave = u"Unable to save project. Please use Save As and choose a different location."_s;

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
  void commit() { Channels().CloseToDisk(std::exchange(number_, 0)); }

 private:
  int number_;
};

FileQuestion projectFileQuestion(const QString& folder) {
  return {u"Specify your Project file."_s, u"*.qn4"_s, u"MyProject.qn4"_s, folder};
}

}  // namespace

bool clsProject::SaveQN4(bool showProgress) {
  return ProjectSaver(*this).saveQN4(showProgress);
}

bool clsProject::SaveQNC4(bool showProgress) {
  return ProjectSaver(*this).saveQNC4(showProgress);
}

bool clsProject::SaveAs() {
  return ProjectSaver(*this).saveAs();
}

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
  if (!project_.FileWithPath.isEmpty()) {
    project_.FileWithPath = forcedExtension(u".qn4"_s);
  }
  return save(showProgress, Form::Folder);
}

bool ProjectSaver::saveQNC4(bool showProgress) {
  if (!mayBegin()) {
    return false;
  }
  project_.FileWithPath = forcedExtension(u".qnc4"_s);
  return save(showProgress, Form::SingleFile);
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
  if (!save(true, Form::Folder)) {
    giveUp(own, Form::Folder);
  }
  return true;
}

QString ProjectSaver::forcedExtension(const QString& extension) const {
  // The file's own dot alone counts, and a name that has the extension in other letters is kept.
  const QString name = Files().FileOnly(project_.FileWithPath);
  if (name.endsWith(extension, Qt::CaseInsensitive)) {
    return project_.FileWithPath;
  }
  return project_.Path() + Files().FileWithoutExt(name) + extension;
}

// In a name that was typed a dot may be a part of it: "Vol. 2".
QString ProjectSaver::extensionGiven(const QString& extension) const {
  const QString own = Files().ExtOnlyWithDot(Files().FileOnly(project_.FileWithPath)).toLower();
  const bool isOurs = own == u".qn4"_s || own == u".qnc4"_s || own == u".qn3"_s;
  return isOurs ? forcedExtension(extension) : project_.FileWithPath + extension;
}

// Every failure turns into the question for another file; only giving that up ends the save.
bool ProjectSaver::save(bool showProgress, Form form) {
  const BusyMark busy(project_);
  project_.QN3FileMode = false;
  const QString own = project_.FileWithPath;
  QString folder = Paths::documentsFolder();
  for (;;) {
    const bool asked = project_.FileWithPath.isEmpty();
    if (asked && !askForFile(folder)) {
      giveUp(own, form);
      return false;
    }
    if (!asked && !mayReplaceIncomplete()) {
      project_.FileWithPath.clear();
      continue;
    }
    if (asked) {
      project_.FileWithPath = extensionGiven(form == Form::SingleFile ? u".qnc4"_s : u".qn4"_s);
    }
    if (attempt(showProgress, form, asked)) {
      return true;
    }
    folder = project_.Path();
    project_.FileWithPath.clear();
  }
}

// What was cut off may still be wanted, if only to be mended by hand.
bool ProjectSaver::mayReplaceIncomplete() const {
  return project_.incompleteFile_.isEmpty() || project_.incompleteFile_ != project_.FileWithPath ||
         toolkit().MsgBox(
             u"The project file was incomplete when it was opened. Do you want to save over it? If not, you "
             "can choose another place for the book as it is now."_s,
             Buttons::NoUnlessYes) == Answer::Yes;
}

// The next save tries the same place again: what was in the way may have gone by then.
void ProjectSaver::giveUp(const QString& own, Form form) const {
  project_.FileWithPath = own;
  project_.editedSinceSave_ = project_.editedSinceSave_ || (form == Form::Folder && !own.isEmpty());
}

bool ProjectSaver::askForFile(const QString& folder) {
  project_.FileWithPath = toolkit().SaveFileDialog(projectFileQuestion(folder));
  if (project_.FileWithPath.isEmpty()) {
    toolkit().MsgBox(u"No project file specified. Save cancelled."_s);
    return false;
  }
  return true;
}

bool ProjectSaver::attempt(bool showProgress, Form form, bool asked) {
  Failure failure = prepareTarget(form, asked);
  if (isDone(failure)) {
    failure = write(showProgress, form, asked);
  }
  tell(failure);
  return isDone(failure);
}

// What the system says may be all that a writer needs to mend it.
ProjectSaver::Failure ProjectSaver::because(Failure failure, const QString& cause) {
  if (!cause.isEmpty()) {
    failure.text += u"\n\n"_s + cause;
  }
  return failure;
}

void ProjectSaver::tell(const Failure& failure) {
  if (failure.told == Failure::Told::ByBox) {
    toolkit().MsgBox(failure.text);
  } else if (failure.told == Failure::Told::ByReport) {
    ShowError().ShowErr(failure.text, {});
  }
}

ProjectSaver::Failure ProjectSaver::prepareTarget(Form form, bool asked) const {
  const QString folder = project_.Path();
  if (form == Form::Folder && asked && Files().FolderExists(folder + u"RTF"_s)) {
    return boxed(u"There's already a project in that location. Please choose a different folder."_s);
  }
  Files().MkMissingDir(folder);
  if (form == Form::Folder) {
    Files().MkMissingDir(folder + u"RTF"_s);
    if (!Files().FolderExists(folder)) {
      return boxed(u"Unable to create project folder. Please choose another location."_s);
    }
  }
  return {};
}

ProjectSaver::Failure ProjectSaver::write(bool showProgress, Form form, bool asked) {
  QString cause;
  NewFile file(Files().CreateReplacementFile(project_.FileWithPath, cause));
  if (file.number() <= 0) {
    Logging().LogEvent(u"Unable to write project file"_s);
    return because(boxed(Files().FileExists(project_.FileWithPath) ? kUnableToReplace : kUnableToSave), cause);
  }
  Logging().LogEvent(u"Saving project"_s);
  Failure failure;
  cause = Guard("Save", "clsProject").causeOf([&] {
    LongWork work(project_, u"Saving Project"_s, showProgress);
    // Another place has none of the scenes' files yet.
    failure = writeSteps(work, file.number(), form, showProgress || asked);
    if (isDone(failure)) {
      file.commit();
    }
  });
  if (!isDone(failure)) {
    return because(failure, Channels().failureOf(file.number()));
  }
  if (!cause.isEmpty()) {
    return because(boxed(kUnableToSave), cause);
  }
  remember(form);
  return {};
}

struct ProjectSaver::Step {
  QString caption;
  std::function<bool()> write;
  QString failure;
  Failure::Told told = Failure::Told::ByReport;
};

ProjectSaver::Failure ProjectSaver::writeSteps(LongWork& work, int file, Form form, bool forceTexts) {
  clsProject& from = project_;
  const Guard guard("Save", "clsProject");
  if (form == Form::Folder) {
    // The head holds the counter of these names, so they are given before it is written.
    guard([&] { SceneFile::nameAll(from.Scenes); });
  }
  const std::array steps{
      Step{{}, [&] { return writeHead(file); }, kUnableToSave, Failure::Told::ByBox},
      Step{u"Saving Locations, Items, Characters"_s, [&] { return from.Locations.WriteXML(file); },
           u"Unable to write location details (cProject.Save)"_s},
      Step{{}, [&] { return from.Items.WriteXML(file); }, u"Unable to write item details (cProject.Save)"_s},
      Step{{}, [&] { return from.Chars.WriteXML(file); }, u"Unable to write character details (cProject.Save)"_s},
      Step{{}, [&] { return from.Notes.WriteXML(file); }, u"Unable to write notes (cProject.Save)"_s},
      Step{u"Saving Scenes and Chapters"_s, [&] { return writeTexts(form, forceTexts); },
           u"Unable to scene contents (cProject.Save)"_s},
      Step{{},
           [&] { return from.Scenes.WriteXML(file, form == Form::SingleFile); },
           u"Unable to write scene details (cProject.Save)"_s},
      Step{{}, [&] { return from.Chapters.WriteXML(file); }, u"Unable to write chapter details (cProject.Save)"_s},
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

bool ProjectSaver::writeTexts(Form form, bool force) const {
  if (form == Form::SingleFile) {
    Logging().LogEvent(u"Saving scene RTF in project file"_s);
    return true;
  }
  Logging().LogEvent(u"Saving scene RTF files to "_s + project_.Path() + u"RTF"_s);
  return project_.Scenes.SaveScenesText(force);
}

void ProjectSaver::remember(Form form) const {
  Settings().sSet(u"LastProjectFile"_s, project_.FileWithPath);
  Settings().sSet(u"LastProjectLoaded"_s, project_.FileWithPath);
  project_.incompleteFile_.clear();
  if (form == Form::SingleFile || project_.UnsavedTexts() == 0) {
    Logging().LogEvent(u"Project saved"_s);
  }
  project_.editedSinceSave_ = project_.editedSinceSave_ && form == Form::SingleFile;
}
