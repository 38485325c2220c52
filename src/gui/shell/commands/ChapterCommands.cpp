#include "gui/shell/commands/ChapterCommands.h"

#include "core/infra/Numbers.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/ChapterNumbers.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/commands/BookScenes.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/ListView.h"

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMostAtOnce = 100;

using Chapters = std::vector<std::shared_ptr<clsChapter>>;

/// Those of the selected rows that are in the book.
Chapters selectedIn(const ChapterPane& pane) {
  Chapters chapters;
  for (const qint32 id : pane.listChapters().SelectedTags()) {
    if (g_Project->Chapters.ChapterIndex(id) > 0) {
      chapters.push_back(g_Project->ChapterByID(id));
    }
  }
  return chapters;
}

QList<qint32> scenesOf(const Chapters& chapters) {
  QList<qint32> ids;
  for (const auto& chapter : chapters) {
    for (const qint32 id : chapter->SceneIDs()) {
      ids.append(id);
    }
  }
  return ids;
}

/// The count goes up while the list gets shorter: every second scene stays in the project, in no chapter.
void removeWithScenes(clsChapter& chapter) {
  for (qint32 i = 1; i <= chapter.SceneCount(); ++i) {
    BookScenes::remove(chapter, chapter.SceneID(i));
  }
  Logging().LogEvent(u"Removed chapter "_s + chapter.Title);
  g_Project->RemoveChapterByID(chapter.ID());
}

}  // namespace

void ChapterCommands::bind(MenuBindings& menu) {
  const auto bindTo = [&](const char* name, void (ChapterCommands::*command)()) {
    menu.bind(name, [this, command] {
      if (!g_Project->IsBusy()) {
        (this->*command)();
      }
    });
  };
  bindTo("mnuFileNew", &ChapterCommands::mnuFileNew_Click);
  bindTo("mnuCreateChapters", &ChapterCommands::mnuCreateChapters_Click);
  bindTo("mnuEditChapter", &ChapterCommands::mnuEditChapter_Click);
  bindTo("mnuMarkEndBeginning", &ChapterCommands::mnuMarkEndBeginning_Click);
  bindTo("mnuMarkEndMiddle", &ChapterCommands::mnuMarkEndMiddle_Click);
  bindTo("mnuRenumber", &ChapterCommands::mnuRenumber_Click);
  bindTo("mnuMarkChaptersUnused", &ChapterCommands::mnuMarkChaptersUnused_Click);
  bindTo("mnuRemoveChapter", &ChapterCommands::mnuRemoveChapter_Click);
}

void ChapterCommands::showChanged() {
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.RefreshAll();
}

void ChapterCommands::mnuFileNew_Click() {
  if (!g_Project->EnterNewChapter()) {
    return;
  }
  main_.ProjectChanged = true;
  if (g_Project->HasPlace() && !g_Project->HoldsUnsaved()) {
    main_.ProjectChanged.setWritten();
  }
  main_.RefreshAll();
  main_.panes().chapters().SelectChapter(g_Project->Chapters.ChapterID(g_Project->ChapterCount()));
  main_.panes().FillSceneList(0);
}

void ChapterCommands::mnuCreateChapters_Click() {
  const QString answer =
      toolkit().InputBox(u"How many chapters would you like to create?"_s, u"Create multiple chapters"_s, {});
  const std::optional<double> number = Numbers::ToNumber(answer);
  if (!number) {
    if (!answer.isEmpty()) {
      main_.showMessage(translated(u"No chapter was created: \"%1\" is no number"_s).arg(answer));
    }
    throw RuntimeError(RuntimeError::TypeMismatch);
  }
  // Halves go to the even one.
  const double count = std::nearbyint(*number);
  if (count > kMostAtOnce) {
    toolkit().MsgBox(u"Please specify 100 chapters or less"_s);
    return;
  }
  if (count > 0) {
    createChapters(static_cast<qint32>(count));
  }
}

void ChapterCommands::createChapters(qint32 count) {
  const qint64 highest = ChapterNumbers::highest(*g_Project);
  std::shared_ptr<clsChapter> chapter;
  for (qint32 i = 1; i <= count; ++i) {
    chapter = std::make_shared<clsChapter>();
    chapter->Title = ChapterNumbers::title(highest + i);
    g_Project->AddChapter(chapter);
  }
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.RefreshAll();
  if (g_Project->ChapterByID(chapter->ID()) != chapter) {
    return;  // another program's book was taken in the save
  }
  main_.showMessage(count == 1 ? translated(u"Chapter %1 was created at the end of the book"_s).arg(highest + 1)
                               : translated(u"Chapters %1 to %2 were created at the end of the book"_s)
                                     .arg(highest + 1)
                                     .arg(highest + count));
}

void ChapterCommands::mnuEditChapter_Click() {
  const qint32 id = main_.panes().chapters().SelectedChapterID();
  if (g_Project->Chapters.ChapterIndex(id) > 0 && g_Project->ChapterByID(id)->Edit()) {
    showChanged();
  }
}

void ChapterCommands::mnuMarkEndBeginning_Click() {
  markEnd(g_Project->EndBeginningChID);
}

void ChapterCommands::mnuMarkEndMiddle_Click() {
  markEnd(g_Project->EndMiddleChID);
}

void ChapterCommands::markEnd(qint32& section) {
  const qint32 id = main_.panes().chapters().SelectedChapterID();
  if (id != 0) {
    section = id;
    showChanged();
  }
}

// What a save has written is no change any more; what could not be saved is.
void ChapterCommands::mnuRenumber_Click() {
  const qint32 renamed = ChapterNumbers::renumber(*g_Project);
  main_.ProjectChanged = main_.ProjectChanged || renamed > 0;
  main_.session().saveChange();
  if (!main_.ProjectChanged.isUnsaved()) {
    main_.ProjectChanged = false;
  }
  main_.RefreshAll();
  g_Project->UpdateCombosInEditorWindows();
  main_.showMessage(renamed == 0
                        ? shownText(u"No chapter has another title."_s)
                        : translated(u"Chapters with another title: %L1. The log holds the old ones."_s).arg(renamed));
}

// Scenes that were marked by hand lose their mark.
void ChapterCommands::mnuMarkChaptersUnused_Click() {
  const Chapters chapters = selectedIn(main_.panes().chapters());
  if (chapters.empty()) {
    return;
  }
  bool refused = false;
  for (const auto& chapter : chapters) {
    chapter->Unused = !chapter->Unused;
    for (const qint32 id : chapter->SceneIDs()) {
      refused = !BookScenes::change(id, [&](clsScene& scene) { scene.Unused = chapter->Unused; }) || refused;
    }
  }
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.RefreshAll();
  BookScenes::tellRefused(refused);
}

// It isn't offered while a scene is open, but another window may have opened one since the last scan.
void ChapterCommands::mnuRemoveChapter_Click() {
  const Chapters chapters = selectedIn(main_.panes().chapters());
  const QString question =
      shownText(u"This will remove the selected chapter(s) and their scenes from your project. Are you sure?"_s);
  if (chapters.empty() || !BookScenes::mayRemove(main_, scenesOf(chapters), question)) {
    return;
  }
  const qint32 place = g_Project->Chapters.ChapterIndex(chapters.front()->ID());
  for (const auto& chapter : chapters) {
    removeWithScenes(*chapter);
  }
  main_.ProjectChanged = true;
  main_.session().saveChange();
  main_.RefreshAll();
  // Where the writer was: at the top the next Delete would ask for another one.
  main_.panes().chapters().SelectChapter(g_Project->Chapters.ChapterID(std::min(place, g_Project->ChapterCount())));
  main_.panes().FillSceneList(0);
}
