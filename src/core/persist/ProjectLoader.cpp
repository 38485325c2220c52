#include "core/persist/ProjectLoader.h"

#include "core/infra/Guard.h"
#include "core/infra/Maker.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/LongWork.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/IntegrityCheck.h"
#include "core/persist/WholeFile.h"
#include "core/persist/modConstXML.h"
#include "core/text/TagView.h"

#include <array>
#include <functional>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

QString singleFileNotice() {
  return u"IMPORTANT!\nYou've loaded an all-in-one 'qnc4' project file. When it saves, it'll be saved as a regular "
         "'qn4' file with separate scene RTF files. If you want to update the qnc4 file instead, you need to click "
         "'Tools' then 'Backups' then 'Save project content to single file'"_s;
}

/// Names a few of the scenes, so that the box stays readable.
QString unreadNotice(const QStringList& titles) {
  constexpr qsizetype kNamed = 10;
  const QString more = titles.size() > kNamed ? u"\n..."_s : QString();
  return u"The text of these scenes could not be read, and they are empty now:\n"_s +
         titles.first(std::min(titles.size(), kNamed)).join(u'\n') + more;
}

QString loadFailure() {
  return u"There was an error loading this project. (If you moved the QN4 file and didn't move the RTF folder along "
         "with it, just put the QN4 file back where it was again.) Please submit an error report - and if possible, "
         "email your QN4 project file to "_s +
         QString::fromLatin1(Maker::kSupportAddress);
}

QString extensionOf(const QString& file) {
  return Files().ExtOnly(file).toLower();
}

}  // namespace

bool clsProject::Load(const QString& file, bool showProgress) {
  return ProjectLoader(*this).load(file, showProgress);
}

bool ProjectLoader::load(const QString& file, bool showProgress) {
  if (project_.IsBusy()) {
    Logging().AddDebug(u"Not loaded while a load or save is under way: "_s + file, u"Load"_s, u"clsProject"_s);
    return false;
  }
  const BusyMark busy(project_);
  const QString extension = extensionOf(file);
  if (extension == u"qn3"_s) {
    toolkit().MsgBox(u"Quillane 3 projects can't be opened by this version yet."_s);
    project_.Clear();
    return false;
  }
  const bool result = loadQN4(file, showProgress);
  if (extension == u"qnc4"_s) {
    toolkit().MsgBox(singleFileNotice());
    tellUnreadTexts();
  }
  return result;
}

bool ProjectLoader::loadQN4(const QString& file, bool showProgress) {
  project_.Clear();
  project_.QN3FileMode = false;
  bool isRead = false;
  bool isWhole = true;
  // Whatever a yield leads to: an empty project must not bear the name of a book.
  Guard("LoadQN4", "clsProject")([&] {
    LongWork work(project_, u"Loading Project"_s, showProgress);
    project_.FileWithPath = file;
    isRead = readFile(work);
    if (isRead) {
      isWhole = IntegrityCheck(project_);
      work.setCaption(u"Loading Complete"_s);
    }
  });
  if (!isRead) {
    tellFailure();
    project_.Clear();
  } else if (!isWhole) {
    toolkit().MsgBox(u"Indexing error in project file"_s);
  }
  if (isRead && !project_.incompleteFile_.isEmpty()) {
    tellIncomplete();
  }
  return isRead;
}

bool ProjectLoader::readFile(LongWork& work) {
  QByteArray text;
  Files().LoadTextFile(project_.FileWithPath, text);
  project_.incompleteFile_ = isWholeProjectFile(text) ? QString() : project_.FileWithPath;
  bool result = false;
  Guard("LoadQN4", "clsProject")([&] { result = readBlocks(work, text); });
  return result;
}

bool ProjectLoader::readBlocks(LongWork& work, QByteArrayView text) {
  struct Step {
    QString caption;
    Tag block;
    QString what;
    std::function<bool(const TagView&)> read;
  };
  clsProject& into = project_;
  const bool singleFile = extensionOf(into.FileWithPath) == u"qnc4"_s;
  const std::array steps{
      Step{{}, kProject, u"extract project data from "_s, [&](const TagView& xml) { return into.CreateFromXML(xml); }},
      Step{u"Loading Chapters"_s, kChapters, u"extract chapter data from "_s,
           [&](const TagView& xml) { return into.Chapters.CreateFromXML(xml); }},
      Step{u"Loading Scenes"_s, kScenes, u"extract scene data / load scenes from "_s,
           [&](const TagView& xml) { return into.Scenes.CreateFromXML(xml, singleFile); }},
      Step{u"Loading Locations"_s, kLocations, u"extract location data from "_s,
           [&](const TagView& xml) { return into.Locations.CreateFromXML(xml); }},
      Step{u"Loading Characters"_s, kCharacters, u"extract character data from "_s,
           [&](const TagView& xml) { return into.Chars.CreateFromXML(xml); }},
      Step{u"Loading Items"_s, kItems, u"extract items data from "_s,
           [&](const TagView& xml) { return into.Items.CreateFromXML(xml); }},
      Step{u"Loading Notes"_s, kProjectNotes, u"extract notes data from "_s,
           [&](const TagView& xml) { return into.Notes.CreateFromXML(xml); }},
  };
  const TagIndex index(text);
  const TagView whole(index);
  for (const Step& step : steps) {
    if (!step.caption.isEmpty()) {
      work.setCaption(step.caption);
    }
    if (!step.read(whole.block(step.block))) {
      Logging().LogEvent(u"Load failed ... unable to "_s + step.what + into.FileWithPath);
      return false;
    }
  }
  return true;
}

void ProjectLoader::tellFailure() const {
  ShowError().ShowErr(loadFailure(), {});
}

void ProjectLoader::tellIncomplete() const {
  QStringList texts;
  Files().FillFiles(project_.Path() + u"RTF"_s, u"rtf"_s, texts);
  toolkit().MsgBox(
      u"The project file is incomplete: it may have been cut off. %1 chapters and %2 scenes were found in it; %3 files "
      "with the texts of scenes stand beside it.\nThe book is shown as it is. Its file is not written over before you "
      "have been asked."_s.arg(project_.ChapterCount())
          .arg(project_.SceneCount())
          .arg(texts.size()));
}

void ProjectLoader::tellUnreadTexts() const {
  QStringList titles;
  for (const auto& scene : project_.Scenes) {
    if (scene->TextUnread()) {
      titles.append(scene->Title);
    }
  }
  if (!titles.isEmpty()) {
    toolkit().MsgBox(unreadNotice(titles));
  }
}
