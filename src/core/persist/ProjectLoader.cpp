#include "core/persist/ProjectLoader.h"

#include "core/infra/FirstOf.h"
#include "core/infra/FolderLock.h"
#include "core/infra/Guard.h"
#include "core/infra/Maker.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Paths.h"
#include "core/infra/ToldText.h"
#include "core/infra/cSHAREDShowError.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/LongWork.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/Backups.h"
#include "core/persist/IntegrityCheck.h"
#include "core/persist/ProjectRepair.h"
#include "core/persist/ProjectSummary.h"
#include "core/persist/RescueFolder.h"
#include "core/persist/SceneFile.h"
#include "core/persist/WholeFile.h"
#include "core/persist/modConstXML.h"
#include "core/text/TagView.h"

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;
using namespace modConstXML;

namespace {

const QString kBackup = shownText(u"Open the newest backup"_s);
const QString kAsItIs = shownText(u"Open the file as it is"_s);
const QString kEmptyBook = shownText(u"Begin an empty book"_s);

QString singleFileNotice() {
  return shownText(
      u"IMPORTANT!\nYou've loaded an all-in-one 'qnc4' project file. When it saves, it'll be saved as a regular "
      "'qn4' file with separate scene RTF files. If you want to update the qnc4 file instead, you need to click "
      "'Tools' then 'Backups' then 'Save project content to single file'"_s);
}

QString unreadNotice(const QStringList& titles) {
  return translated(u"The text of these scenes could not be read, and they are empty now:"_s) + u'\n' +
         firstOf(titles).join(u'\n');
}

QString whereTaken(const FolderLock::Holder& other, const QString& more) {
  if (other.isHere) {
    return translated(u"This book is open already in another window of this computer%1."_s).arg(more);
  }
  return other.host.isEmpty() ? translated(u"This book is open already elsewhere%1."_s).arg(more)
                              : translated(u"This book is open already on %1%2."_s).arg(other.host, more);
}

QString takenNotice(const FolderLock::Holder& other) {
  const QString who = other.user.isEmpty() ? QString() : translated(u" by %1"_s).arg(other.user);
  const QString since = other.since.isEmpty() ? QString() : translated(u", since %1"_s).arg(other.since);
  return whereTaken(other, who + since) + u"\n\n"_s +
         translated(
             u"Opened read-only it can be looked at, and nothing is saved. Opened by two at once, whoever saves "
             "last may replace what the other has written."_s);
}

/// The report is English, the window puts it into the language.
QString loadFailure() {
  return toldText(shownText(u"There was an error loading this project. (If you moved the QN4 file and didn't move the "
                            "RTF folder along with it, just put the QN4 file back where it was again.) Please submit "
                            "an error report - and if possible, email your QN4 project file to %1"_s),
                  {QString::fromLatin1(Maker::kSupportAddress)});
}

QString extensionOf(const QString& file) {
  return Files().ExtOnly(file).toLower();
}

}  // namespace

bool clsProject::Load(const QString& file, bool showProgress) {
  return ProjectLoader(*this).load(file, showProgress);
}

bool clsProject::IsQN3(const QString& file) {
  return extensionOf(file) == u"qn3"_s;
}

bool ProjectLoader::load(const QString& file, bool showProgress) {
  if (project_.IsBusy()) {
    Logging().AddDebug(u"Not loaded while a load or save is under way: "_s + file, u"Load"_s, u"clsProject"_s);
    return false;
  }
  if (clsProject::IsQN3(file)) {
    return convertQN3(file, showProgress);
  }
  const BusyMark busy(project_);
  const bool result = loadQN4(file, showProgress);
  if (extensionOf(file) == u"qnc4"_s) {
    toolkit().MsgBox(singleFileNotice());
    tellUnreadTexts();
  }
  return result;
}

// Also the other one may have been left by a machine that crashed: then it is opened anyway.
bool ProjectLoader::mayOpenFolder(const QString& file) {
  if (!Files().FileExists(file)) {
    return true;  // nothing is there to be open
  }
  const QString folder = Files().PathOnly(file);
  auto lock = std::make_unique<FolderLock>(folder);
  if (const auto& other = lock->other()) {
    const int choice = toolkit().Choose(
        {takenNotice(*other), {shownText(u"Open read-only"_s), shownText(u"Open anyway"_s)}, 0, ChoiceQuestion::kNone});
    if (choice == ChoiceQuestion::kNone) {
      Logging().LogEvent(u"Not opened, being open elsewhere: "_s + file);
      return false;
    }
    project_.readOnly_ = choice == 0;
    lock.reset();
    if (choice == 1) {
      lock = std::make_unique<FolderLock>(folder, FolderLock::Claim::InAnyCase);
    }
  }
  project_.lock_ = std::move(lock);
  return true;
}

bool ProjectLoader::loadQN4(const QString& file, bool showProgress) {
  project_.Clear();
  if (!mayOpenFolder(file)) {
    return false;
  }
  FileStamp stamp;
  std::optional<QByteArray> text;
  Guard("LoadQN4", "clsProject")([&] { text = readWholeFile(Paths::native(file), Links::Followed, &stamp); });
  if (text) {
    stamp.noteContent(*text);
  }
  const bool isComplete = text && isWholeProjectFile(*text);
  bool isRead = readBook(file, text.value_or(QByteArray()), showProgress);
  if (text && !isComplete) {
    isRead = settleIncomplete(file, isRead, showProgress);
  }
  if (!isRead) {
    project_.Clear();
    return false;
  }
  // What was cut off, or is a backup's, says nothing of the texts that stand there.
  recountYounger(file, isComplete ? stamp : FileStamp());
  project_.incompleteFile_ = isComplete ? QString() : file;
  project_.storedIn_ = file;
  project_.stored_ = stamp;
  project_.freshlyRead_ = true;
  if (RescueFolder::isBelow(file)) {
    // What was rescued has no place of its own yet: the first save asks for one.
    project_.FileWithPath.clear();
    project_.storedIn_.clear();
    project_.lock_.reset();
  }
  tellFindings();
  return true;
}

void ProjectLoader::recountYounger(const QString& file, const FileStamp& projectFile) const {
  if (extensionOf(file) == u"qnc4"_s) {
    return;  // its texts are its own
  }
  for (const auto& scene : project_.Scenes) {
    SceneFile(*scene).recountIfYoungerThan(projectFile);
  }
}

bool ProjectLoader::readBook(const QString& file, QByteArrayView text, bool showProgress) {
  project_.QN3FileMode = false;
  missingText_.clear();
  bool isRead = false;
  bool isWhole = true;
  // Whatever a yield leads to: an empty project must not bear the name of a book.
  Guard("LoadQN4", "clsProject")([&] {
    LongWork work(project_, shownText(u"Loading Project"_s), showProgress);
    project_.FileWithPath = file;
    isRead = readText(work, text);
    if (isRead) {
      findings_ = ProjectRepair(project_).run();
      isWhole = IntegrityCheck(project_);
      work.setCaption(shownText(u"Loading Complete"_s));
    }
  });
  if (!isRead) {
    tellFailure();
  } else if (!isWhole) {
    toolkit().MsgBox(u"Indexing error in project file"_s);
  }
  return isRead;
}

bool ProjectLoader::readText(LongWork& work, QByteArrayView text) {
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
      Step{shownText(u"Loading Chapters"_s), kChapters, u"extract chapter data from "_s,
           [&](const TagView& xml) { return into.Chapters.CreateFromXML(xml); }},
      Step{shownText(u"Loading Scenes"_s), kScenes, u"extract scene data / load scenes from "_s,
           [&](const TagView& xml) { return into.Scenes.CreateFromXML(xml, singleFile, &missingText_); }},
      Step{shownText(u"Loading Locations"_s), kLocations, u"extract location data from "_s,
           [&](const TagView& xml) { return into.Locations.CreateFromXML(xml); }},
      Step{shownText(u"Loading Characters"_s), kCharacters, u"extract character data from "_s,
           [&](const TagView& xml) { return into.Chars.CreateFromXML(xml); }},
      Step{shownText(u"Loading Items"_s), kItems, u"extract items data from "_s,
           [&](const TagView& xml) { return into.Items.CreateFromXML(xml); }},
      Step{shownText(u"Loading Notes"_s), kProjectNotes, u"extract notes data from "_s,
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
  const QString cause =
      missingText_.isEmpty()
          ? QString()
          : u"\n\n"_s + toldText(shownText(u"The text of a scene is missing or can't be read: %1"_s), {missingText_});
  ShowError().ShowErr(loadFailure() + cause, {});
}

qsizetype ProjectLoader::filesBesideIt(const QString& file) const {
  const QString folder = Files().PathOnly(file);
  QStringList texts;
  Files().FillFiles(folder + Files().NameOnDisk(folder, u"RTF"_s), u"rtf"_s, texts);
  return texts.size();
}

QString ProjectLoader::whatWasFound(bool isRead, qsizetype texts) const {
  if (!isRead) {
    return translated(u"No book could be read from it; %1 files with the texts of scenes stand beside it."_s)
        .arg(texts);
  }
  const bool inNoChapter = project_.ChapterCount() == 0 && project_.SceneCount() > 0;
  const QString found =
      inNoChapter
          ? translated(
                u"%1 chapters and %2 scenes were found in it (Tools - Lost and Found shows scenes that are in no "
                "chapter); %3 files with the texts of scenes stand beside it."_s)
          : translated(
                u"%1 chapters and %2 scenes were found in it; %3 files with the texts of scenes stand beside "
                "it."_s);
  return found.arg(project_.ChapterCount()).arg(project_.SceneCount()).arg(texts);
}

bool ProjectLoader::settleIncomplete(const QString& file, bool isRead, bool showProgress) {
  const qsizetype texts = filesBesideIt(file);
  const std::optional<Backup> backup = newestBackup(file);
  if (!isRead && texts == 0 && !backup) {
    return false;  // some other file
  }
  ChoiceQuestion question;
  question.text = translated(u"The project file is incomplete: it may have been cut off. "_s) +
                  whatWasFound(isRead, texts) + u"\n\n"_s +
                  translated(u"The file is not written over before you have been asked."_s);
  if (backup) {
    question.choices.append(kBackup);
    question.text += translated(u" The newest backup is %1."_s)
                         .arg(ProjectSummary::of(backup->text).described(backup->path, backup->date));
  } else {
    question.text += translated(u" No backup was found."_s);
  }
  if (isRead) {
    question.unattended = static_cast<int>(question.choices.size());
    question.choices.append(kAsItIs);
  } else if (texts > 0) {
    question.choices.append(kEmptyBook);
    question.text += translated(u" In an empty book Tools - Lost and Found lists the texts."_s);
  }
  const QString choice = question.choices.value(toolkit().Choose(question));
  if (choice == kBackup) {
    Logging().LogEvent(u"Loading from the backup "_s + backup->path);
    return readBook(file, backup->text, showProgress);
  }
  if (choice == kEmptyBook) {
    beginEmptyBook(file);
  }
  return choice == kAsItIs || choice == kEmptyBook;
}

// With a chapter to put the texts into.
void ProjectLoader::beginEmptyBook(const QString& file) {
  auto lock = std::move(project_.lock_);
  const bool readOnly = project_.readOnly_;
  project_.Clear();
  project_.lock_ = std::move(lock);
  project_.readOnly_ = readOnly;
  project_.FileWithPath = file;
  const auto chapter = std::make_shared<clsChapter>();
  chapter->Title = translated(u"Found texts"_s);
  project_.AddChapter(chapter);
}

void ProjectLoader::tellFindings() const {
  if (!findings_.isEmpty()) {
    toolkit().MsgBox(translated(u"This was found when the book was opened:"_s) + u"\n\n"_s + findings_.join(u"\n\n"_s));
  }
}

void ProjectLoader::tellUnreadTexts() const {
  QStringList titles;
  for (const auto& scene : project_.Scenes) {
    if (scene->TextUnread()) {
      titles.append(calledScene(scene->Title));
    }
  }
  if (!titles.isEmpty()) {
    toolkit().MsgBox(unreadNotice(titles));
  }
}
