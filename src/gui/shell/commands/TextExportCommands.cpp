#include "gui/shell/commands/TextExportCommands.h"

#include "core/exchange/DescriptionExport.h"
#include "core/exchange/NanoExport.h"
#include "core/exchange/OutlineExport.h"
#include "core/exchange/RtfExport.h"
#include "core/exchange/TextExport.h"
#include "core/infra/Toolkit.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/commands/ExportRun.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/frmPickChapters.h"

using namespace Qt::StringLiterals;

/// A manuscript in one of its forms.
struct TextExportCommands::Manuscript {
  const char* routine;
  const char* module;
  QString title;
  QString filter;
  QString name;
  std::function<QByteArray(const ManuscriptOptions&, const ExportStep&)> content;
};

namespace {

bool ask(const QString& question) {
  return toolkit().MsgBox(question, Buttons::YesNo) == Answer::Yes;
}

bool askForUnused() {
  return ask(u"Include unused chapters and scenes?"_s);
}

/// The export of one text into one file. True when it was done.
bool exportText(const char* routine, const char* module, const QString& path,
                const std::function<QString(const ExportStep&)>& text) {
  return runExport({routine, module, path,
                    [&](const ExportStep& step) { Files().ReplaceFile(path, WholeText::toBytes(text(step))); }});
}

void tell(const QString& done, const QString& remark = {}) {
  toolkit().MsgBox(remark.isEmpty() ? done : done + u"\n\n"_s + remark);
}

}  // namespace

void TextExportCommands::bind(MenuBindings& menu) {
  const Manuscript text{"CombineFiles",
                        "modExportProject",
                        u"Specify a .TXT file to export to"_s,
                        u"*.txt"_s,
                        u"ExportedProject.txt"_s,
                        [](const ManuscriptOptions& options, const ExportStep& step) {
                          return WholeText::toBytes(CombineFiles(options, step));
                        }};
  const Manuscript rtf{"ExportToRTF", "modExportToRTF",         u"Specify an .rtf file to export to"_s,
                       u"*.rtf"_s,    u"ExportedProject.rtf"_s, &ExportToRTF};
  menu.bind("mnuCombineFiles", [this, text] { exportManuscript(text); });
  menu.bind("mnuExportToRTF", [this, rtf] { exportManuscript(rtf); });
  menu.bind("mnuExportOutline", [this] { mnuExportOutline_Click(); });
  menu.bind("mnuExportDesc", [this] { mnuExportDesc_Click(); });
  menu.bind("mnuExportNano", [this] { mnuExportNano_Click(); });
}

void TextExportCommands::exportManuscript(const Manuscript& kind) {
  if (g_Project->IsBusy()) {
    return;
  }
  const QString path = askForExportFile({kind.title, kind.filter, kind.name, folderForExports()});
  if (path.isEmpty()) {
    return;
  }
  ManuscriptOptions options;
  options.summaries = ask(u"Save summaries to file as well?"_s);
  options.unused = askForUnused();
  const bool done = runExport({kind.routine, kind.module, path, [&](const ExportStep& step) {
                                 Files().ReplaceFile(path, kind.content(options, step));
                               }});
  if (!done) {
    return;
  }
  const QString end = u"The book was exported to "_s + path;
  const QString missing = missingTexts(options.unused);
  missing.isEmpty() ? main_.showMessage(end) : tell(end, missing);
}

void TextExportCommands::mnuExportOutline_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const QString path = placeOfExport(u"auto_outline.txt"_s);
  if (!path.isEmpty() && exportText("ExportOutline", "modExportOutline", path, &ExportOutline)) {
    tell(u"Outline saved to "_s + path);
  }
}

void TextExportCommands::mnuExportDesc_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const std::optional<ChapterRange> chapters = pickChapters();
  if (!chapters) {
    return;
  }
  const QString path = placeOfExport(u"Auto_Descriptions.txt"_s);
  const auto text = [&chapters](const ExportStep& step) {
    return ExportDescriptionsByChapter(chapters->first, chapters->last, step);
  };
  if (!path.isEmpty() && exportText("ExportDescriptionsByChapter", "modExportDesc", path, text)) {
    tell(u"Your summary was saved to "_s + path);
  }
}

void TextExportCommands::mnuExportNano_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const QString path = placeOfExport(u"ExportedNanoText.txt"_s);
  if (path.isEmpty()) {
    return;
  }
  const bool withUnused = askForUnused();
  const auto text = [withUnused](const ExportStep& step) { return ExportToNano(withUnused, step); };
  if (exportText("ExportToNano", "modExportNano", path, text)) {
    tell(u"Your Nano-obfusicated file has been saved to "_s + path, missingTexts(withUnused));
  }
}
