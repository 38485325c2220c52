#include "gui/shell/commands/HtmlExportCommand.h"

#include "core/exchange/HtmlExport.h"
#include "core/infra/Guard.h"
#include "core/infra/MayReplace.h"
#include "core/infra/NativeFile.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/commands/ExportRun.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/frmPickChapters.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Empty when the user wants none.
QString GetHTMLFilename() {
  for (;;) {
    const QString typed =
        askForExportFile({shownText(u"Enter a filename"_s), u"*.HTML;*.HTM;*.PLHTM"_s, QString(), folderForExports()});
    const QString path = typed.isEmpty() ? QString() : HtmlExport::withExtension(typed);
    // The dialog has asked about the name that was typed, not about what we have made of it.
    if (path == typed || mayReplace(path)) {
      return path;
    }
  }
}

/// Of a file that can't be opened the writer hears before the work begins.
bool writePage(const HtmlExport& what, const QString& path) {
  std::optional<ReplacementFile> file;
  const QString cause = Guard("ExportToHTML", "modExportHTML").causeOf([&] { file.emplace(path); });
  if (!cause.isEmpty()) {
    toolkit().MsgBox(translated(u"Couldn't open output file."_s) + u"\n\n"_s + translated(cause));
    return false;
  }
  return runExport({"ExportToHTML", "modExportHTML", path, [&](const ExportStep& step) {
                      file->write(ExportToHTML(what, step));
                      file->commit(ReplacementFile::Durability::ContentOnDisk);
                    }});
}

}  // namespace

void HtmlExportCommand::bind(MenuBindings& menu) {
  menu.bind("mnuExportHTML", [this] { mnuExportHTML_Click(); });
}

void HtmlExportCommand::mnuExportHTML_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const std::optional<ChapterRange> chapters = pickChapters(u"exports"_s);
  const QString path = chapters ? GetHTMLFilename() : QString();
  if (path.isEmpty()) {
    return;
  }
  const HtmlExport what{{chapters->first, chapters->last}, HtmlExport::isForPages(path)};
  if (!writePage(what, path)) {
    return;
  }
  const QString end = translated(u"The book was exported to %1"_s).arg(path);
  const QString missing = missingTexts(unreadTexts(false, what.chapters));
  if (missing.isEmpty()) {
    main_.showMessage(end);
  } else {
    toolkit().MsgBox(end + u"\n\n"_s + missing);
  }
}
