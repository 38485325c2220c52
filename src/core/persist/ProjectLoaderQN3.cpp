#include "core/infra/Guard.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/LongWork.h"
#include "core/model/clsProject.h"
#include "core/persist/OlderFiles.h"
#include "core/persist/ProjectLoader.h"
#include "core/persist/ProjectRepair.h"

#include <array>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

// The conversion of a generation-3 project. Its files stay as they are; once the new project file is on the disk, the
// old one gets another name.

namespace {

QString whyNotRead(const QString& file) {
  return u"The Quillane 3 project "_s + file +
         u" can't be converted: none of its lists of chapters, scenes, characters, locations and items could be read "
         "from the folder Data beside it. (If you moved the QN3 file without its folders Data and RTF, just put it "
         "back where it was.) Nothing was changed."_s;
}

QString notSaved(const QString& file) {
  return u"The converted project was not saved, so nothing has changed: your Quillane 3 project is still "_s + file;
}

QString readOnlyNotice(const QString& file) {
  return u"The Quillane 3 project "_s + file +
         u" can't be opened read-only, since it is converted to Quillane 4 format. Please open it again when nobody "
         "else has it open."_s;
}

QString convertedNotice(const QString& name) {
  return u"READ THIS CAREFULLY!\nYour Quillane 3 project has been converted to Quillane 4. Your old project file has "
         "been renamed to "_s +
         name + u".bak\nIf you want to revert to Quillane 3, make a copy of the entire project folder and rename "_s +
         name + u".bak to "_s + name;
}

QString keptNotice(const QString& file, const QString& converted) {
  return u"READ THIS CAREFULLY!\nYour Quillane 3 project has been converted to Quillane 4, and is "_s + converted +
         u" now. Your old project file has kept its name: "_s + file;
}

}  // namespace

bool ProjectLoader::convertQN3(const QString& file, bool showProgress) {
  if (!readQN3(file, showProgress) || !saveConverted(file)) {
    project_.Clear();
    return false;
  }
  tellFindings();
  return true;
}

bool ProjectLoader::readQN3(const QString& file, bool showProgress) {
  const BusyMark busy(project_);
  project_.Clear();
  if (!mayOpenFolder(file)) {
    return false;
  }
  if (project_.readOnly_) {
    toolkit().MsgBox(readOnlyNotice(file));
    return false;
  }
  bool isRead = false;
  Guard("ImportQN3", "clsProject")([&] { isRead = ImportQN3(file, showProgress); });
  project_.QN3FileMode = false;
  if (!isRead) {
    Logging().LogEvent(u"Load failed ... unable to convert "_s + file);
    toolkit().MsgBox(whyNotRead(file));
  }
  return isRead;
}

bool ProjectLoader::ImportQN3(const QString& file, bool showProgress) {
  LongWork work(project_, u"Loading Project"_s, showProgress);
  project_.QN3FileMode = true;
  project_.FileWithPath = file;
  project_.SourceFile = file;
  FileStamp stamp;
  const std::optional<QByteArray> content = readWholeFile(Paths::native(file), Links::Followed, &stamp);
  const KeyedFile settings(content.value_or(QByteArray()));
  OlderFiles from(project_);
  project_.CopySettingsToVariables(settings, from);
  project_.ImportDescBioFiles(settings, from);
  clsProject& into = project_;
  struct Step {
    QString caption;
    std::function<bool()> read;
  };
  const std::array steps{
      Step{u"Loading Chapters"_s, [&] { return into.Chapters.ImportQN3(into.ChapterFile, from); }},
      Step{u"Loading Scenes"_s, [&] { return into.Scenes.ImportQN3(into.SceneFile, from); }},
      Step{u"Loading Locations"_s, [&] { return into.Locations.ImportQN3(into.LocationFile, from); }},
      Step{u"Loading Characters"_s, [&] { return into.Chars.ImportQN3(into.CharacterFile, from); }},
      Step{u"Loading Items"_s, [&] { return into.Items.ImportQN3(into.ItemFile, from); }},
  };
  bool isAnyRead = false;
  for (const Step& step : steps) {
    work.setCaption(step.caption);
    isAnyRead = step.read() || isAnyRead;
  }
  findings_ = from.findings() + ProjectRepair(project_).run();
  work.setCaption(u"Loading Complete"_s);
  // The book stands in the old one's folder, and a save asks before it replaces what else is there.
  project_.storedIn_ = file;
  project_.stored_ = stamp;
  project_.freshlyRead_ = true;
  return isAnyRead;
}

bool ProjectLoader::saveConverted(const QString& file) {
  project_.FileWithPath = Files().FileWithoutExt(project_.SourceFile) + u".qn4"_s;
  if (!project_.SaveQN4(true) || !Files().FileExists(project_.FileWithPath)) {
    toolkit().MsgBox(notSaved(file));
    return false;
  }
  const QString kept = file + u".bak"_s;
  const bool isHere = Paths::areSame(Files().PathOnly(file), project_.Path());
  const bool isRenamed = isHere && Files().EraseFile(kept) && Files().MoveFile(file, kept);
  toolkit().MsgBox(isRenamed ? convertedNotice(Files().FileOnly(file)) : keptNotice(file, project_.FileWithPath));
  return true;
}
