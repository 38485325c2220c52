#include "gui/shell/commands/TimelineCommand.h"

#include "core/exchange/HtmlBytes.h"
#include "core/exchange/Timeline.h"
#include "core/infra/BusyPointer.h"
#include "core/infra/Clock.h"
#include "core/infra/RuntimeError.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/infra/cSharedLang.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/EntityDialogs.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "gui/shell/commands/BookCast.h"
#include "gui/shell/main/ProjectSession.h"
#include "gui/shell/main/frmMain.h"

using namespace Qt::StringLiterals;

namespace {

/// What there is to say when it could not be written; empty when it was.
QString writePage(const QString& path, const QStringList& characters) {
  const BusyPointer busy;
  try {
    Files().ReplaceFile(path, toHtmlBytes(Timeline::page(*g_Project, characters, Clock::now())));
    return {};
  } catch (const RuntimeError& error) {
    Logging().AddDebug(error.description(), u"ExportTimeline"_s, u"modExportTimeline"_s);
    const bool isDisk = error.number() == RuntimeError::DiskFull || error.number() == RuntimeError::DeviceError;
    return isDisk ? translated(u"The timeline could not be saved."_s) + u"\n\n"_s + translated(error.description())
                  : shownText(u"Could not create output file. Already open in another program?"_s);
  }
}

bool openPage(const QString& path) {
  const BusyPointer busy;
  return Files().RunFile(path);
}

}  // namespace

void TimelineCommand::bind(MenuBindings& menu) {
  menu.bind("mnuExportTimeline", [this] { ExportTimeline(); });
}

void TimelineCommand::ExportTimeline() {
  if (g_Project->IsBusy() || g_Project->FileWithPath.isEmpty()) {
    return;
  }
  const BookCast::Choice choice = BookCast::choose(main_, kListCharacters);
  QStringList names;
  for (const qint32 id : choice.ids) {
    names.append(g_Project->CharByID(id)->Title());
  }
  const QString path = Timeline::pathOf(*g_Project);
  if (choice.changedBook) {
    main_.session().saveChange();
  }
  // The save may have asked, and the answer may have brought another book.
  if (!choice.taken || path != Timeline::pathOf(*g_Project)) {
    return;
  }
  if (names.isEmpty()) {
    toolkit().MsgBox(u"No characters selected."_s);
    return;
  }
  if (const QString failure = writePage(path, names); !failure.isEmpty()) {
    toolkit().MsgBox(failure);
  } else if (!openPage(path)) {
    toolkit().MsgBox(translated(u"The timeline is in the file %1"_s).arg(path));
  }
}
