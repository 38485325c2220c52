#include "core/infra/FileChannels.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/clsProject.h"
#include "core/persist/modConstXML.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

const QString kUnableToSave = u"Unable to save project. Please use Save As and choose a different location."_s;

FileQuestion projectFileQuestion(const QString& folder) {
  return {u"Specify your Project file."_s, u"*.qn4"_s, u"MyProject.qn4"_s, folder};
}

/// Shows the reporter when a writer reported failure.
bool written(bool result, const QString& failure) {
  if (!result) {
    ShowError().ShowErr(failure, {});
  }
  return result;
}

}  // namespace

QString clsProject::forcedExtension(const QString& extension) const {
  // The file's own dot alone counts, and a name that has the extension in other letters is kept.
  const QString name = Files().FileOnly(FileWithPath);
  if (name.endsWith(extension, Qt::CaseInsensitive)) {
    return FileWithPath;
  }
  return Path() + Files().FileWithoutExt(name) + extension;
}

bool clsProject::SaveQN4(bool showProgress) {
  if (!FileWithPath.isEmpty()) {
    FileWithPath = forcedExtension(u".qn4"_s);
  }
  return Save(showProgress, false);
}

bool clsProject::SaveQNC4(bool showProgress) {
  FileWithPath = forcedExtension(u".qnc4"_s);
  return Save(showProgress, true);
}

bool clsProject::SaveAs() {
  const QString answer = toolkit().SaveFileDialog(projectFileQuestion(Paths::documentsFolder()));
  if (answer.isEmpty()) {
    return false;
  }
  QN3FileMode = false;
  FileWithPath = answer;
  SaveQN4(true);
  return true;
}

bool clsProject::Save(bool showProgress, bool singleFile) {
  if (busy_) {
    Logging().AddDebug(u"Not saved while a load or save is under way"_s, u"Save"_s, u"clsProject"_s);
    return false;
  }
  const QScopedValueRollback busy(busy_, true);
  return saveOnce(showProgress, singleFile);
}

// Every failure turns into the question for another file; only giving that up ends the save.
bool clsProject::saveOnce(bool showProgress, bool singleFile) {
  QN3FileMode = false;
  QString folder = Paths::documentsFolder();
  for (;;) {
    const bool asked = FileWithPath.isEmpty();
    if (asked && !askForFile(folder)) {
      return false;
    }
    if (asked && singleFile) {
      FileWithPath = forcedExtension(u".qnc4"_s);
    }
    if (attemptSave(showProgress, singleFile, asked)) {
      return true;
    }
    ProgressWindow_.reset();
    folder = Path();
    FileWithPath.clear();
  }
}

bool clsProject::askForFile(const QString& folder) {
  FileWithPath = toolkit().SaveFileDialog(projectFileQuestion(folder));
  if (FileWithPath.isEmpty()) {
    toolkit().MsgBox(u"No project file specified. Save cancelled."_s);
    return false;
  }
  return true;
}

bool clsProject::prepareTarget(bool singleFile, bool asked) {
  if (!singleFile && asked && Files().FolderExists(Path() + u"RTF"_s)) {
    toolkit().MsgBox(u"There's already a project in that location. Please choose a different folder."_s);
    return false;
  }
  Files().MkMissingDir(Path());
  if (!singleFile) {
    Files().MkMissingDir(Path() + u"RTF"_s);
    if (!Files().FolderExists(Path())) {
      toolkit().MsgBox(u"Unable to create project folder. Please choose another location."_s);
      return false;
    }
  }
  Files().EraseFile(FileWithPath);
  if (Files().FileExists(FileWithPath)) {
    toolkit().MsgBox(u"Unable to write the project file. Please choose another location."_s);
    return false;
  }
  return true;
}

bool clsProject::attemptSave(bool showProgress, bool singleFile, bool asked) {
  if (!prepareTarget(singleFile, asked)) {
    return false;
  }
  const int file = Files().CreateOutputFile(FileWithPath);
  if (file <= 0) {
    Logging().LogEvent(u"Unable to write project file"_s);
    toolkit().MsgBox(kUnableToSave);
    return false;
  }
  Logging().LogEvent(u"Saving project"_s);
  ProgressWindow_ = toolkit().makeProgressWindow();
  if (showProgress) {
    ProgressWindow_->Show();
  }
  setProgress(u"Saving Project"_s);
  // Another place has none of the scenes' files yet.
  const bool result = writeProject(file, showProgress || asked, singleFile);
  const Guard guard("Save", "clsProject");
  const bool closed = guard([&] { Channels().CloseToDisk(file); });
  if (!result) {
    return false;
  }
  if (!closed) {
    toolkit().MsgBox(kUnableToSave);
    return false;
  }
  Settings().sSet(u"LastProjectFile"_s, FileWithPath);
  Settings().sSet(u"LastProjectLoaded"_s, FileWithPath);
  Logging().LogEvent(u"Project saved"_s);
  EditedSinceSave = EditedSinceSave && singleFile;
  ProgressWindow_.reset();
  return true;
}

bool clsProject::writeProject(int file, bool forceTexts, bool singleFile) {
  const Guard guard("Save", "clsProject");
  if (!singleFile) {
    // The head holds the counter of these names, so they are given before it is written.
    guard([&] { Scenes.NameScenesText(); });
  }
  const bool headWritten = guard([&] {
    QByteArray head;
    head.append(kHeader).append("\r\n").append(Tag(kRoot).open).append("\r\n");
    DataAsXML(head);
    Channels().PrintLine(file, QByteArrayView(head));
  });
  if (!headWritten) {
    toolkit().MsgBox(kUnableToSave);
    return false;
  }
  setProgress(u"Saving Locations, Items, Characters"_s);
  if (!written(Locations.WriteXML(file), u"Unable to write location details (cProject.Save)"_s) ||
      !written(Items.WriteXML(file), u"Unable to write item details (cProject.Save)"_s) ||
      !written(Chars.WriteXML(file), u"Unable to write character details (cProject.Save)"_s) ||
      !written(Notes.WriteXML(file), u"Unable to write notes (cProject.Save)"_s)) {
    return false;
  }
  setProgress(u"Saving Scenes and Chapters"_s);
  if (singleFile) {
    Logging().LogEvent(u"Saving scene RTF in project file"_s);
  } else {
    Logging().LogEvent(u"Saving scene RTF files to "_s + Path() + u"RTF"_s);
    if (!written(Scenes.SaveScenesText(forceTexts), u"Unable to scene contents (cProject.Save)"_s)) {
      return false;
    }
  }
  return written(Scenes.WriteXML(file, singleFile), u"Unable to write scene details (cProject.Save)"_s) &&
         written(Chapters.WriteXML(file), u"Unable to write chapter details (cProject.Save)"_s) &&
         guard([&] { Channels().PrintLine(file, Tag(kRoot).close); });
}
