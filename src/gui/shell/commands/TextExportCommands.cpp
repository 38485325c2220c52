#include "gui/shell/commands/TextExportCommands.h"

#include "core/exchange/DescriptionExport.h"
#include "core/exchange/NanoExport.h"
#include "core/exchange/OutlineExport.h"
#include "core/exchange/RtfExport.h"
#include "core/exchange/TextExport.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
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
  return ask(shownText(u"Include unused chapters and scenes?"_s));
}

/// An export into one file. True when it was done.
bool exportFile(const char* routine, const char* module, const QString& path,
                const std::function<QByteArray(const ExportStep&)>& content) {
  return runExport({routine, module, path, [&](const ExportStep& step) { writeExport(path, content(step)); }});
}

void tell(const QString& done, const QString& remark = {}) {
  toolkit().MsgBox(remark.isEmpty() ? done : done + u"\n\n"_s + remark);
}

}  // namespace

void TextExportCommands::bind(MenuBindings& menu) {
  const Manuscript text{"CombineFiles", "modExportProject",       shownText(u"Specify a .TXT file to export to"_s),
                        u"*.txt"_s,     u"ExportedProject.txt"_s, &CombineFiles};
  const Manuscript rtf{"ExportToRTF", "modExportToRTF",         shownText(u"Specify an .rtf file to export to"_s),
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
  options.summaries = ask(shownText(u"Save summaries to file as well?"_s));
  options.unused = askForUnused();
  const auto content = [&](const ExportStep& step) { return kind.content(options, step); };
  if (!exportFile(kind.routine, kind.module, path, content)) {
    return;
  }
  const QString end = translated(u"The book was exported to %1"_s).arg(path);
  const QString missing = missingTexts(options.unused);
  missing.isEmpty() ? main_.showMessage(end) : tell(end, missing);
}

void TextExportCommands::mnuExportOutline_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const QString path = placeOfExport(u"auto_outline.txt"_s);
  if (!path.isEmpty() && exportFile("ExportOutline", "modExportOutline", path, &ExportOutline)) {
    tell(translated(u"Outline saved to %1"_s).arg(path));
  }
}

void TextExportCommands::mnuExportDesc_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const std::optional<ChapterRange> chapters = pickChapters(u"exports"_s);
  if (!chapters) {
    return;
  }
  const QString path = placeOfExport(u"Auto_Descriptions.txt"_s);
  const auto text = [&chapters](const ExportStep& step) {
    return ExportDescriptionsByChapter(chapters->first, chapters->last, step);
  };
  if (!path.isEmpty() && exportFile("ExportDescriptionsByChapter", "modExportDesc", path, text)) {
    tell(translated(u"Your summary was saved to %1"_s).arg(path));
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
  if (exportFile("ExportToNano", "modExportNano", path, text)) {
    tell(translated(u"Your Nano-obfusicated file has been saved to %1"_s).arg(path), missingTexts(withUnused));
  }
}
