#include "gui/shell/commands/ImportCommands.h"

#include "core/exchange/Manuscript.h"
#include "core/exchange/SceneListImport.h"
#include "core/infra/FirstOf.h"
#include "core/infra/Guard.h"
#include "core/infra/Paths.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/ScanPause.h"
#include "core/infra/ToldText.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/exchange/frmImportWIP.h"
#include "gui/shell/commands/ReplacedContents.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"

#include <QCollator>
#include <QLocale>
#include <QScopeGuard>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";

const QString kEachAScene = shownText(
    u"Select one or more files of text or RTF. Each becomes a new scene at the end of the selected chapter, with the "
    "name of the file as its title.\n\n(Note that the original files will be copied into the project, and left "
    "untouched.)"_s);

bool isProjectOpen() {
  return !g_Project->FileWithPath.isEmpty() || !g_Project->IsEmpty();
}

/// "scene 2" before "scene 10".
QStringList inOrder(QStringList files) {
  QCollator collator;
  collator.setNumericMode(true);
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  std::sort(files.begin(), files.end(), collator);
  return files;
}

/// The files that didn't become what was wanted.
struct Misfits {
  QStringList noTexts;
  QStringList unread;

  void tell() const {
    QStringList told;
    if (!noTexts.isEmpty()) {
      told.append(translated(u"These files are neither text nor RTF, and were left out:"_s) + u'\n' +
                  firstOf(noTexts).join(u'\n'));
    }
    if (!unread.isEmpty()) {
      told.append(translated(u"These files could not be read, so their scenes are empty:"_s) + u'\n' +
                  firstOf(unread).join(u'\n'));
    }
    if (!told.isEmpty()) {
      toolkit().MsgBox(told.join(u"\n\n"_s));
    }
  }
};

/// The scene that holds what the file does; null when that is no text.
std::shared_ptr<clsScene> sceneOf(const QString& file, Misfits& misfits) {
  const QString name = Files().FileOnly(file);
  auto scene = std::make_shared<clsScene>();
  scene->Title = name.lastIndexOf(u'.') > 0 ? Files().FileWithoutExt(name) : name;
  bool isText = true;
  const QString cause = Guard("mnuImportScene_Click", kModule).causeOf([&] {
    const std::optional<QByteArray> text = Manuscript::sceneText(Manuscript::bytesOf(file));
    isText = text.has_value();
    scene->setTextRTF(text.value_or(QByteArray()));
  });
  if (!cause.isEmpty()) {
    misfits.unread.append(cause.contains(name) ? translated(cause) : name + u": "_s + translated(cause));
  }
  if (!isText) {
    misfits.noTexts.append(name);
    return nullptr;
  }
  return scene;
}

/// Nothing when the writer has stopped it.
std::optional<SceneListImport> readList(const QString& file) {
  LongWork work(*g_Project, translated(u"Reading %1"_s).arg(Files().FileOnly(file)), Manuscript::takesLong(file),
                LongWork::Stop::Offered);
  const std::optional<QString> text = Manuscript::plainText(Manuscript::bytesOf(file));
  if (!text) {
    throw RuntimeError(RuntimeError::InvalidCall, toldText(shownText(u"%1 is no text."_s), {Files().FileOnly(file)}));
  }
  work.setCaption(shownText(u"Looking for scenes"_s));
  return work.stopWanted() ? std::nullopt : std::optional(SceneListImport::read(*text));
}

QString doneWith(qint32 imported, qsizetype files, bool isStopped) {
  const QString done =
      imported == 1 ? translated(u"1 scene was imported"_s) : translated(u"%L1 scenes were imported"_s).arg(imported);
  if (!isStopped) {
    return done;
  }
  return files == 1 ? translated(u"%1 before it was stopped; 1 file is left"_s).arg(done)
                    : translated(u"%1 before it was stopped; %2 files are left"_s).arg(done, QLocale().toString(files));
}

}  // namespace

void ImportCommands::bind(MenuBindings& menu) {
  const auto bindTo = [&](const char* name, void (ImportCommands::*command)()) {
    menu.bind(name, [this, command] {
      if (!g_Project->IsBusy()) {
        (this->*command)();
      }
    });
  };
  bindTo("mnuImportProject", &ImportCommands::ImportWorkInProgress);
  bindTo("mnuImportSceneFile", &ImportCommands::ImportScenesFromFile);
  bindTo("mnuImportScene", &ImportCommands::mnuImportScene_Click);
}

bool ImportCommands::mayBegin(const QString& question, const QStringList& explanation) {
  if (main_.refusedWhileEditing()) {
    return false;
  }
  if (!isProjectOpen()) {
    toolkit().MsgBox(u"Please create a new project first"_s);
    return false;
  }
  if (toolkit().MsgBox(question, Buttons::NoUnlessYes) != Answer::Yes) {
    return false;
  }
  toolkit().MsgBox(translatedLines(explanation.join(u'\n')));
  return true;
}

void ImportCommands::ImportWorkInProgress() {
  if (!mayBegin(
          shownText(u"Importing a work in progress will erase everything in the current project. Are you sure?"_s),
          {shownText(u"A work in progress is an HTML, RTF or TXT file with the following delimiters:"_s),
           shownText(u"First, it should contain chapter headings as 'Chapter 1', 'Chapter 2' and so on."_s),
           shownText(u"Second, each scene should be broken with three asterisks: * * *"_s)})) {
    return;
  }
  frmImportWIP* const wizard = frmImportWIP::showOver(main_);
  QObject::connect(wizard, &frmImportWIP::importWanted, &main_,
                   guarded("ImportWorkInProgress", kModule, [this, wizard] {
                     // The answers stay where the project stays.
                     auto again = qScopeGuard([wizard] { wizard->show(); });
                     if (replaceContents(main_, wizard->ProjectFile(),
                                         [wizard](clsProject& project) { wizard->Work().fill(project); })) {
                       again.dismiss();
                       wizard->accept();
                     }
                   }));
}

void ImportCommands::ImportScenesFromFile() {
  if (!mayBegin(
          shownText(u"Importing will erase everything in the current project. Are you sure?"_s),
          {shownText(u"A suitable file will consist of separate paragraphs, one per scene."_s),
           shownText(
               u"Each paragraph is a scene description. The first sentence will be used as the short description."_s),
           shownText(u"After importing, there will be one new chapter for every three scenes."_s)})) {
    return;
  }
  const ScanPause pause;
  const QString file = toolkit().OpenFileDialog({u"Import scenes"_s, u"*.txt"_s, QString(), Paths::documentsFolder()});
  if (file.isEmpty()) {
    return;
  }
  std::optional<SceneListImport> list;
  const QString cause = Guard("ImportScenesFromFile", kModule).causeOf([&] { list = readList(file); });
  if (!cause.isEmpty()) {
    toolkit().MsgBox(translated(u"The file can't be read. Nothing was imported."_s) + u"\n\n"_s + translated(cause));
    return;
  }
  if (list) {
    replaceContents(main_, {}, [&list](clsProject& project) { list->fill(project); });
  }
}

void ImportCommands::mnuImportScene_Click() {
  const qint32 chapter = main_.panes().scenes().shownChapterID();
  const auto isThere = [chapter] { return g_Project->Chapters.ChapterIndex(chapter) > 0; };
  if (!isThere()) {
    toolkit().MsgBox(u"Select a chapter first"_s);
    return;
  }
  toolkit().MsgBox(kEachAScene);
  const QString folder = g_Project->FileWithPath.isEmpty() ? Paths::documentsFolder() : g_Project->Path();
  const QStringList files = toolkit().GetFiles({u"Import scenes"_s, u"*.TXT;*.RTF"_s, {}, folder});
  if (!files.isEmpty() && isThere()) {
    importScenes(*g_Project->ChapterByID(chapter), inOrder(files));
  }
}

// They get their files with the book: one save, and one question where there is any.
void ImportCommands::importScenes(clsChapter& chapter, const QStringList& files) {
  Misfits misfits;
  qint32 imported = 0;
  qsizetype left = files.size();
  {
    LongWork work(*g_Project, shownText(u"Importing scenes"_s), false, LongWork::Stop::Offered);
    for (const QString& file : files) {
      work.showIfLong();
      work.setCaption(shownText(u"Importing scene %1"_s), imported + 1);
      if (work.stopWanted()) {
        break;
      }
      --left;
      const auto scene = Files().FileExists(file) ? sceneOf(file, misfits) : nullptr;
      if (scene) {
        chapter.Addscene(scene);
        g_SceneChanges.MarkUpdated(scene->ID());
        ++imported;
      }
    }
  }
  if (imported > 0) {
    main_.ProjectChanged = true;
    main_.session().saveChange();
    main_.RefreshAll();
  }
  if (imported > 0 || left > 0) {
    main_.showMessage(doneWith(imported, left, left > 0));
  }
  misfits.tell();
}
