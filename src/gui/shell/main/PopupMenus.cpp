#include "gui/shell/main/PopupMenus.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainMenuBar.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/SceneTabs.h"
#include "gui/shell/main/frmMain.h"
#include "gui/toolkit/GuardedSlot.h"
#include "gui/views/ListView.h"
#include "gui/views/modFillList.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kModule = "frmMain";
constexpr std::array kNotInPopups{"mnuSetAllSceneFont", "mnuSepListView", "mnuListView"};

}  // namespace

PopupMenus::PopupMenus(frmMain& main) : QObject(&main), main_(main) {
  MainMenuBar& menus = main.menus();
  MainPanes& panes = main.panes();
  connect(menus.menu(u"mnuChapters"_s), &QMenu::aboutToShow, this,
          guarded("mnuChapters_Click", kModule, this, &PopupMenus::mnuChapters_Click));
  connect(menus.menu(u"mnuScene"_s), &QMenu::aboutToShow, this,
          guarded("mnuScene_Click", kModule, this, &PopupMenus::mnuScene_Click));
  for (const char* const name : {"mnuChapters", "mnuScene"}) {
    connect(menus.menu(QString::fromLatin1(name)), &QMenu::aboutToHide, this,
            guarded("ShowPopupOnlyEntries", kModule, this, &PopupMenus::ShowPopupOnlyEntries));
  }
  connect(&panes.chapters().listChapters(), &ListView::menuWanted, this,
          guarded("ListChapters_MouseUp", kModule, this, &PopupMenus::ListChapters_MouseUp));
  connect(&panes.scenes().listScenes(), &ListView::menuWanted, this,
          guarded("ListScenes_MouseUp", kModule, this, &PopupMenus::ListScenes_MouseUp));
  connect(&panes.scenes().tabStrip1(), &SceneTabs::listsBuilt, this,
          guarded("TabStrip1_Build", kModule, this, &PopupMenus::joinCharLists));
}

void PopupMenus::joinCharLists() {
  const SceneTabs::CastLists& lists = main_.panes().scenes().tabStrip1().castLists(CastKind::Character);
  for (const auto& [list, inScene] : {std::pair{lists.inScene, true}, {lists.all, false}}) {
    connect(list, &ListView::menuWanted, this,
            guarded("ListChar_MouseUp", kModule, [this, list = list, inScene = inScene](const QPoint& place) {
              ListChar_MouseUp(*list, inScene, place);
            }));
  }
}

void PopupMenus::popUp(const char* menu, const QPoint& place) {
  main_.menus().menu(QString::fromLatin1(menu))->popup(place);
}

void PopupMenus::ListChapters_MouseUp(const QPoint& place) {
  main_.panes().FillSceneList(0);
  HidePopupOnlyEntries();
  popUp("mnuChapters", place);
}

void PopupMenus::ListScenes_MouseUp(const QPoint& place) {
  HidePopupOnlyEntries();
  popUp("mnuScene", place);
}

// In the bar the list is asked for rows, as a pop-up for selected ones.
void PopupMenus::mnuChapters_Click() {
  const ListView& list = main_.panes().chapters().listChapters();
  const bool anyRows = popup_ ? list.SelectedTag() > 0 : list.rowCount() > 0;
  main_.UpdateMenusForEditing();
  main_.menus().apply(chapterEntries(anyRows),
                      popup_ ? shownText(u"no chapter is selected"_s) : shownText(u"there is no chapter yet"_s));
  if (main_.Editing()) {
    main_.UpdateMenusForEditing();
  }
}

void PopupMenus::mnuScene_Click() {
  const ListView& list = main_.panes().scenes().listScenes();
  const bool anyRows = popup_ ? list.SelectedTag() > 0 : list.rowCount() > 0;
  main_.menus().apply(sceneEntries(anyRows),
                      popup_ ? shownText(u"no scene is selected"_s) : shownText(u"there is no scene here"_s));
  checkStatus();
}

void PopupMenus::checkStatus() {
  const qint32 id = main_.panes().scenes().SelectedSceneID();
  const QString status = id > 0 ? QString::number(g_Project->SceneByID(id)->Status) : QString();
  main_.menus().checkElement(u"mnuStatus"_s, status);
}

void PopupMenus::ListChar_MouseUp(ListView& list, bool inScene, const QPoint& place) {
  const qint32 id = list.SelectedTag();
  if (inScene) {
    const auto scene = g_Project->SceneByID(modFillList::listSceneID(list));
    main_.menus().apply(charEntries(id > 0, id == scene->ViewPointID()),
                        id > 0 ? shownText(u"is the viewpoint already"_s) : shownText(u"no character is selected"_s));
    popUp("mnuCharRC", place);
  } else if (id > 0) {
    popUp("mnuAllCharRC", place);
  }
}

void PopupMenus::HidePopupOnlyEntries() {
  popup_ = true;
  for (const char* const name : kNotInPopups) {
    main_.menus().setVisible(QString::fromLatin1(name), false);
  }
}

// What was disabled because no row is selected is so in the pop-up alone.
void PopupMenus::ShowPopupOnlyEntries() {
  if (!popup_) {
    return;
  }
  popup_ = false;
  for (const char* const name : kNotInPopups) {
    main_.menus().setVisible(QString::fromLatin1(name), true);
  }
  mnuChapters_Click();
  mnuScene_Click();
}
