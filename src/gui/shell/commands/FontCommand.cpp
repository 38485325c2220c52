#include "gui/shell/commands/FontCommand.h"

#include "core/infra/FirstOf.h"
#include "core/infra/Toolkit.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsProject.h"
#include "core/persist/BookFont.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/frmPickFont.h"

using namespace Qt::StringLiterals;

namespace {

using End = BookFont::Outcome::End;

/// As many have their font before a window about it could be read.
constexpr qint32 kScenesInAMoment = 50;

/// How far it came, and what is as it was.
QString endOf(const BookFont::Outcome& outcome) {
  const QString done = u"The font was set in %L1 of %L2 scenes"_s.arg(outcome.done).arg(outcome.scenes);
  switch (outcome.end) {
    case End::Stopped:
      return done + u", then it was stopped. The others are as they were."_s;
    case End::Failed:
      return done + u". It ended at \""_s + outcome.failedAt + u"\": "_s + outcome.cause +
             u"\n\nThat scene and those behind it are as they were."_s;
    default:
      return done + u'.';
  }
}

/// What the writer has to know beyond that it was done; empty for nothing.
QStringList remarksOn(const BookFont::Outcome& outcome) {
  QStringList remarks;
  if (!outcome.unread.isEmpty()) {
    remarks.append(u"The text of %1 could not be read when the book was opened, and is as it was:\n"_s.arg(
                       countedScenes(outcome.unread.size())) +
                   firstOf(outcome.unread).join(u'\n'));
  }
  if (const QString remark = outcome.reduced.remark(); !remark.isEmpty()) {
    remarks.append(remark);
  }
  return remarks;
}

BookFont::Outcome setEverywhere(const DefaultFont& font) {
  LongWork work(*g_Project, u"Setting the font"_s, g_Project->SceneCount() > kScenesInAMoment, LongWork::Stop::Offered);
  const QString what = u"Setting the font in %1 scenes, done: "_s.arg(g_Project->SceneCount());
  return BookFont(font.name, font.points).apply([&](qint32 done) {
    work.setCaption(what, done);
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
  const std::optional<DefaultFont> font = frmPickFont::pick(u"Set font across all scenes"_s);
  if (!font || g_Project->IsBusy() || !BookFont::mayBegin()) {
    return;
  }
  const BookFont::Outcome outcome = setEverywhere(*font);
  if (outcome.done > 0) {
    main_.ProjectChanged = true;
  }
  main_.panes().scenes().DisplaySelectedScene();
  main_.showBook();
  const QStringList remarks = remarksOn(outcome);
  if (outcome.end == End::Done && remarks.isEmpty()) {
    main_.showMessage(endOf(outcome));
  } else {
    toolkit().MsgBox((QStringList(endOf(outcome)) + remarks).join(u"\n\n"_s));
  }
}
