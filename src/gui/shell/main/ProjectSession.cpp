#include "gui/shell/main/ProjectSession.h"

#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/main/BookBackups.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/RecentProjects.h"
#include "gui/shell/main/frmMain.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

const QString kConvert =
    shownText(u"If you proceed, your Quillane3 project will be converted to Quillane4 format. Are you sure?"_s);

}  // namespace

void ProjectSession::LoadProject(const QString& Path, bool ShowProgress) {
  const bool isOlder = clsProject::IsQN3(Path);
  if (isOlder && toolkit().MsgBox(kConvert, Buttons::YesNo) != Answer::Yes) {
    return;
  }
  // Written at once, so that the list outlives a crash; as it stands already at most starts, it is left alone then.
  if (!isOlder) {
    RecentProjects::isNewest(Path) ? UpdateRecent() : AddToRecent(Path);
  }
  const QString former = g_Project->FileWithPath;
  if (!readProject(Path, ShowProgress)) {
    showEmptyProject();
    toolkit().DoEvents();
    // A conversion that came to nothing has changed nothing.
    if (isOlder && Files().FileExists(former)) {
      LoadProject(former, ShowProgress);
    }
    return;
  }
  if (isOlder) {
    AddToRecent(g_Project->FileWithPath);
  }
  main_.EnableMenus();
  main_.ProjectChanged = false;
  main_.RefreshAll();
  main_.backups().bookOpened();
}

bool ProjectSession::readProject(const QString& path, bool showProgress) {
  leaveProject();
  return g_Project->Load(path, showProgress);
}

// The rows stand for what is cleared while the windows repaint.
void ProjectSession::leaveProject() {
  main_.backups().bookLeaves();
  g_Project->CloseEditorWindows();
  main_.clearLists();
}

void ProjectSession::showEmptyProject() {
  main_.backups().bookLeaves();
  // Scenes that were open give up their locks.
  g_Project->Clear();
  g_Project = std::make_unique<clsProject>();
  main_.DisableMenus();
  main_.clearLists();
  main_.ProjectChanged = false;
  main_.RefreshAll();
}

void ProjectSession::SaveProject(bool ShowProgress) {
  if (g_Project->ReadOnly()) {
    return;
  }
  // Whoever saves the book means the note as well that is being written.
  main_.panes().storeTypedNote();
  main_.ProjectChanged = false;
  if (g_Project->SaveQN4(ShowProgress)) {
    main_.panes().setNoteWritten();
    AddToRecent(g_Project->FileWithPath);
  } else {
    reloadIfWanted(ShowProgress);
  }
  main_.showBook();
}

void ProjectSession::saveChange() {
  if (g_Project->HasPlace()) {
    if (g_Project->SaveQN4(false)) {
      main_.ProjectChanged.setWritten();
    } else {
      reloadIfWanted(false);
    }
  }
  main_.showBook();
}

// With an open editor it waits for that: nobody has been asked what is to become of its text.
void ProjectSession::reloadIfWanted(bool showProgress) {
  if (g_Project->ReloadWanted() && !main_.Closing && !main_.Editing()) {
    LoadProject(QString(g_Project->FileWithPath), showProgress);
  }
}

bool ProjectSession::saveUnderNewName() {
  const bool saved = g_Project->SaveAs() && !g_Project->HoldsUnsaved() && !g_Project->ReadOnly();
  if (saved) {
    main_.ProjectChanged = false;
    AddToRecent(g_Project->FileWithPath);
  }
  main_.showBook();
  return saved;
}

// A changed title is in no text and counts as little as it does elsewhere: it is a change all the same.
bool ProjectSession::mayLeaveReadOnly() {
  while (main_.ProjectChanged.isUnsaved() || g_Project->HoldsUnsaved()) {
    switch (
        toolkit().Choose({shownText(u"The book was opened read-only, so what you have changed in it isn't saved."_s),
                          {shownText(u"Save under a new name"_s), shownText(u"Leave it unsaved"_s)}})) {
      case 0:
        if (saveUnderNewName()) {
          return true;
        }
        break;
      case 1:
        return true;
      default:
        return false;
    }
  }
  return true;
}

QString ProjectSession::nameOfBook() const {
  const QString title = g_Project->Title.simplified();
  const QString file = Files().FileOnly(g_Project->FileWithPath);
  return title.isEmpty() || (file.isEmpty() && g_Project->IsEmpty()) ? file : title;
}

bool ProjectSession::isChanged() const {
  return main_.ProjectChanged || g_Project->EditedSinceSave();
}

bool ProjectSession::isOnlyLookedAt() const {
  return g_Project->OpenedIncomplete() && !isChanged() && !g_Project->HoldsUnsaved();
}

// Whatever was cancelled, the menus go with the project that is there.
bool ProjectSession::mayReplaceProject() {
  const bool may = mayLeaveProject();
  if (!may) {
    setMenusByProject();
  }
  return may;
}

bool ProjectSession::mayLeaveProject() {
  if (!main_.panes().mayLeaveNotes() || !g_Project->AskEditorWindows()) {
    return false;
  }
  if (g_Project->ReadOnly()) {
    return mayLeaveReadOnly();
  }
  if (main_.ProjectChanged || g_Project->HoldsUnsaved()) {
    SaveProject(false);
  }
  return !g_Project->HoldsUnsaved() || g_Project->ReloadWanted() ||
         toolkit().MsgBox(
             u"The project could not be saved whole. What isn't saved is lost if you go on. Do you want to go on?"_s,
             Buttons::YesNo) == Answer::Yes;
}

void ProjectSession::AddToRecent(const QString& Path) {
  RecentProjects::AddToRecent(Path);
  UpdateRecent();
}

void ProjectSession::UpdateRecent() {
  QElapsedTimer looking;
  looking.start();
  QList<MenuElement> elements;
  recentAway_ = false;
  for (const auto& [path, away] : RecentProjects::known()) {
    elements.append(
        {RecentProjects::captionOf(path), path, away ? shownText(u"The folder isn't there now"_s) : QString()});
    recentAway_ = recentAway_ || away;
  }
  recentTime_ = looking.elapsed();
  main_.menus().loadElements(u"mnuRecent"_s, elements);
  // Element 0 only says that there is nothing yet.
  main_.menus().setVisible(u"mnuRecent(0)"_s, elements.isEmpty());
}

// A drive may have come back. Where the folders take long to answer the menu doesn't wait for them.
void ProjectSession::lookForRecent() {
  constexpr qint64 kLong = 100;
  if (recentAway_ && recentTime_ < kLong) {
    UpdateRecent();
  }
}

bool ProjectSession::CloseProject() {
  if ((isChanged() || g_Project->EditorsHoldUnsaved()) && main_.refusedWhileEditing()) {
    return true;
  }
  if (!mayReplaceProject()) {
    return false;
  }
  showEmptyProject();
  return true;
}

void ProjectSession::setMenusByProject() {
  // A book whose save was given up has no file and can still be saved.
  g_Project->FileWithPath.isEmpty() && g_Project->IsEmpty() ? main_.DisableMenus() : main_.EnableMenus();
}
