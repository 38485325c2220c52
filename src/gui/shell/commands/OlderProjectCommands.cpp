#include "gui/shell/commands/OlderProjectCommands.h"

#include "core/exchange/ImportQN2.h"
#include "core/exchange/clsQN2Project.h"
#include "core/infra/Paths.h"
#include "core/infra/ScanPause.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/commands/BookScenes.h"
#include "gui/shell/commands/OpenChosen.h"
#include "gui/shell/main/BookBackups.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/ListView.h"

#include <memory>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Asks for a file of an older project, where one was chosen last.
QString askForOlder(const QString& title, const QString& filter) {
  const QString key = u"ImportFolder"_s;
  const QString last = Settings().sGet(key).toString();
  const bool isThere = !last.isEmpty() && Files().FolderExists(last);
  const QString path = toolkit().OpenFileDialog({title, filter, QString(), isThere ? last : Paths::documentsFolder()});
  if (!path.isEmpty()) {
    Settings().sSet(key, Files().PathOnly(path));
  }
  return path;
}

QString whyNotOlder(const QString& path) {
  return translated(
             u"%1 is not a Quillane 3 project: the name of such a file ends in .qn3. (One that was converted before "
             "ends in .qn3.bak. To convert it again, make a copy of the entire project folder and remove the "
             ".bak from the name there.) Nothing was imported."_s)
      .arg(path);
}

QString whyNotRead(const QString& path) {
  return translated(
             u"No chapter of the Quillane 2 project %1 could be read. (The texts of its chapters are expected in "
             "the folder of the project file.) Nothing was imported."_s)
      .arg(path);
}

}  // namespace

void OlderProjectCommands::bind(MenuBindings& menu) {
  menu.bind("mnuImportQuillane3", [this] { mnuImportQuillane3_Click(); });
  menu.bind("mnuImportQuillane2", [this] { mnuImportQuillane2_Click(); });
  menu.bind("mnuConvQN2Scn", [this] { mnuConvQN2Scn_Click(); });
}

void OlderProjectCommands::mnuImportQuillane3_Click() {
  openChosen(main_, [] {
    const QString path = askForOlder(shownText(u"Import Quillane3 Project"_s), u"*.qn3"_s);
    if (path.isEmpty() || clsProject::IsQN3(path)) {
      return path;
    }
    toolkit().MsgBox(whyNotOlder(path));
    return QString();
  });
}

void OlderProjectCommands::mnuImportQuillane2_Click() {
  if (g_Project->IsBusy() || !main_.session().mayReplaceProject()) {
    return;
  }
  const ScanPause pause;
  const QString path = askForOlder(shownText(u"Import Quillane2 Project"_s), u"*.QNP"_s);
  if (path.isEmpty()) {
    return;
  }
  clsQN2Project old;
  bool isRead = false;
  {
    LongWork work(*g_Project, shownText(u"Loading Project"_s), true);
    old.LoadingNum = [&work](qint32 number) { work.setCaption(shownText(u"Loading Chapter %1"_s), number); };
    isRead = old.LoadProject(path);
    old.LoadingNum = nullptr;
  }
  if (!isRead) {
    toolkit().MsgBox(whyNotRead(path));
    return;
  }
  toolkit().MsgBox(u"I STRONGLY SUGGEST you create the Quillane 4 project in an EMPTY folder"_s);
  if (beginBook()) {
    fillBook(old);
  }
}

bool OlderProjectCommands::beginBook() {
  auto book = std::make_unique<clsProject>();
  {
    // What stays open until then is not to be touched behind the question.
    const BusyMark busy(*g_Project);
    if (!book->SaveQN4(true)) {
      return false;
    }
  }
  main_.session().leaveProject();
  g_Project->Clear();
  g_Project = std::move(book);
  return true;
}

void OlderProjectCommands::fillBook(const clsQN2Project& from) {
  QStringList findings = from.findings();
  {
    LongWork work(*g_Project, shownText(u"Importing Project"_s), true);
    findings += ImportQN2::fill(from, work);
  }
  const bool saved = g_Project->SaveQN4(true);
  if (saved) {
    main_.session().AddToRecent(g_Project->FileWithPath);
  }
  main_.session().setMenusByProject();
  main_.ProjectChanged = !saved;
  main_.RefreshAll();
  main_.backups().bookOpened();
  if (!findings.isEmpty()) {
    toolkit().MsgBox(translated(u"This was found when the project was imported:"_s) + u"\n\n"_s +
                     findings.join(u"\n\n"_s));
  }
}

void OlderProjectCommands::mnuConvQN2Scn_Click() {
  const QList<qint32> selected = main_.panes().scenes().listScenes().SelectedTags();
  if (g_Project->IsBusy() || selected.isEmpty()) {
    return;
  }
  const auto scene = g_Project->SceneByID(selected.constFirst());
  if (scene->Locked()) {
    BookScenes::tellRefused(true);
    return;
  }
  if (!clsQN2Text::MarksScenes(scene->ConvertedToBodyText())) {
    toolkit().MsgBox(translated(u"I can't see any [SCENE] marks in the text of '%1'. Nothing was converted."_s)
                         .arg(calledScene(scene->Title)));
    return;
  }
  if (g_Project->ReadOnly()) {
    toolkit().MsgBox(
        u"The book was opened read-only, so nothing is saved to its place and no scene can be converted."_s);
    return;
  }
  // The new scenes' texts are written before the project file that names them.
  if (!g_Project->HasPlace() && !g_Project->SaveQN4(false)) {
    return;
  }
  const qint32 before = g_Project->SceneCount();
  const QString failure = ImportQN2::splitScene(*scene);
  if (!failure.isEmpty()) {
    toolkit().MsgBox(translated(u"The scene was not converted, and nothing has changed."_s) + u"\n\n"_s +
                     translated(failure));
  }
  main_.RefreshAll();
  if (failure.isEmpty()) {
    main_.showMessage(
        translated(u"%1 made of the selected one"_s).arg(countedScenes(g_Project->SceneCount() - before)));
  }
}
