#include "gui/shell/commands/FontCommand.h"

#include "core/infra/FirstOf.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/persist/BookFont.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/shell/windows/UnplacedBook.h"
#include "gui/views/frmPickFont.h"

using namespace Qt::StringLiterals;

namespace {

using End = BookFont::Outcome::End;

/// As many have their font before a window about it could be read.
constexpr qint32 kScenesInAMoment = 50;

/// How far it came, and what is as it was.
QString endOf(const BookFont::Outcome& outcome) {
  switch (outcome.end) {
    case End::Stopped:
      return translated(u"The font was set in %L1 of %L2 scenes, then it was stopped. The others are as they were."_s)
          .arg(outcome.done)
          .arg(outcome.scenes);
    case End::Failed:
      return translated(u"The font was set in %L1 of %L2 scenes. It ended at \"%3\": %4"_s)
                 .arg(outcome.done)
                 .arg(outcome.scenes)
                 .arg(outcome.failedAt, translated(outcome.cause)) +
             u"\n\n"_s + translated(u"That scene and those behind it are as they were."_s);
    default:
      return translated(u"The font was set in %L1 of %L2 scenes."_s).arg(outcome.done).arg(outcome.scenes);
  }
}

/// What the writer has to know beyond that it was done; empty for nothing.
QStringList remarksOn(const BookFont::Outcome& outcome) {
  QStringList remarks;
  if (!outcome.unread.isEmpty()) {
    remarks.append(translated(u"The text of %1 could not be read when the book was opened, and is as it was:"_s)
                       .arg(countedScenes(outcome.unread.size())) +
                   u'\n' + firstOf(outcome.unread).join(u'\n'));
  }
  if (const QString remark = outcome.reduced.remark(); !remark.isEmpty()) {
    remarks.append(remark);
  }
  return remarks;
}

BookFont::Outcome setEverywhere(const DefaultFont& font) {
  LongWork work(*g_Project, shownText(u"Setting the font"_s), g_Project->SceneCount() > kScenesInAMoment,
                LongWork::Stop::Offered);
  return BookFont(font.name, font.points).apply([&](qint32 done) {
    work.showIfLong();
    work.setCaption(translated(u"Setting the font in %1 scenes, done: %2"_s).arg(g_Project->SceneCount()).arg(done));
    return !work.stopWanted();
  });
}

}  // namespace

void FontCommand::bind(MenuBindings& menu) {
  menu.bind("mnuSetAllSceneFont", [this] { mnuSetAllSceneFont_Click(); });
}

void FontCommand::mnuSetAllSceneFont_Click() {
  if (g_Project->IsBusy() || main_.refusedWhileEditing()) {
    return;
  }
  const std::optional<DefaultFont> font = frmPickFont::pick(shownText(u"Set font across all scenes"_s));
  if (!font || g_Project->IsBusy()) {
    return;
  }
  if (!BookFont::mayBegin()) {
    main_.showBook();
    main_.showMessage(u"The font was not set: all texts are as they were."_s);
    return;
  }
  const BookFont::Outcome outcome = setEverywhere(*font);
  if (outcome.done > 0) {
    main_.ProjectChanged = true;
  }
  main_.panes().scenes().DisplaySelectedScene();
  main_.showBook();
  QStringList remarks = remarksOn(outcome);
  if (outcome.done > 0 && !g_Project->HasPlace()) {
    remarks.append(howToKeepChanges());
  }
  if (outcome.end == End::Done && remarks.isEmpty()) {
    main_.showMessage(endOf(outcome));
  } else {
    toolkit().MsgBox((QStringList(endOf(outcome)) + remarks).join(u"\n\n"_s));
  }
}
