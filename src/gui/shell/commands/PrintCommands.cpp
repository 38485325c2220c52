#include "gui/shell/commands/PrintCommands.h"

#include "core/infra/Guard.h"
#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/reports/SaveSynopsis.h"
#include "core/reports/modPrintCards.h"
#include "core/reports/modPrintProject.h"
#include "core/reports/modPrintSynopsis.h"
#include "core/reports/modPrintWorkSchedule.h"
#include "gui/shell/main/ChapterPane.h"
#include "gui/shell/main/MainPanes.h"
#include "gui/shell/main/ScenePane.h"
#include "gui/shell/main/frmMain.h"
#include "gui/views/ListView.h"
#include "gui/views/PrintRun.h"
#include "gui/views/frmPickChapters.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// It goes into the book's folder. Empty when it can.
QString whyNoSynopsis() {
  if (g_Project->FileWithPath.isEmpty()) {
    return shownText(u"Save the book first. The synopsis goes into its folder."_s);
  }
  return g_Project->ReadOnly() ? shownText(u"The book was opened read-only, so no synopsis is saved in its folder."_s)
                               : QString();
}

/// Nothing when the user wants no cards after all.
std::optional<int> askCardsPerPage() {
  QString offered = u"8"_s;
  for (;;) {
    const QString answer = toolkit().InputBox(u"How many cards per page? (6 - 16)"_s, u"Print scene cards"_s, offered);
    const double cards = Numbers::Val(QStringView(answer));
    if (cards <= 0) {
      return {};
    }
    if (cards >= kFewestCards && cards <= kMostCards) {
      return static_cast<int>(cards);
    }
    offered = answer;
  }
}

}  // namespace

void PrintCommands::bind(MenuBindings& menu) {
  const auto bindReport = [&menu](const char* entry, const char* routine, const QString& key, const QString& prompt,
                                  const ReportLayout& report) {
    bindChapterReport(
        menu, entry,
        {.key = key, .prompt = prompt, .report = report, .routine = routine, .module = "modPrintSynopsis"});
  };
  bindReport("mnuPrintSynopsis", "PrintSynopsis", shownText(u"Synopsis"_s),
             shownText(u"Click PRINT to output the list."_s), &PrintSynopsis);
  bindReport("mnuExpandedSynopsis", "PrintExpandedSynopsis", shownText(u"Expanded Synopsis"_s),
             shownText(u"Click PRINT to output the list."_s), &PrintExpandedSynopsis);
  bindReport("mnuPrintSummary", "PrintSummary", shownText(u"Summary"_s), shownText(u"Click PRINT to continue."_s),
             &PrintSummary);
  bindWorkSchedule(menu);
  bindList(menu, "mnuPrintChar", CastKind::Character);
  bindList(menu, "mnuPrintLocationList", CastKind::Location);
  bindList(menu, "mnuPrintItemList", CastKind::Item);
  menu.bind("mnuPrintProject", [this] { mnuPrintProject_Click(); });
  menu.bind("mnuPrintSelectedChapters", [this] { mnuPrintSelectedChapters_Click(); });
  menu.bind("mnuPrintScene", [this] { mnuPrintScene_Click(); });
  menu.bind("mnuPrintSceneCards", [this] { mnuPrintSceneCards_Click(); });
  menu.bind("mnuSaveSynopsis", [this] { mnuSaveSynopsis_Click(); });
}

void PrintCommands::bindChapterReport(MenuBindings& menu, const char* entry, const PrintOrder& report) {
  menu.bind(entry, [report] {
    if (g_Project->IsBusy()) {
      return;
    }
    if (const auto chapters = pickChapters(u"printing"_s)) {
      PrintOrder order = report;
      order.name = printFileName(order.key);
      order.chapters = *chapters;
      printReport(order);
    }
  });
}

void PrintCommands::bindWorkSchedule(MenuBindings& menu) {
  menu.bind("mnuPrintOnStatus", [](const MenuChoice& chosen) {
    printReport({.key = u"SceneList"_s,
                 .prompt = shownText(u"Click PRINT to output the report."_s),
                 .name = printFileName(shownText(u"Work Schedule"_s)),
                 .report = [item = chosen.index](const ReportJob& job) { return PrintWorkSchedule(job, item); },
                 .routine = "PrintWorkSchedule",
                 .module = "modPrintWorkSchedule"});
  });
}

void PrintCommands::bindList(MenuBindings& menu, const char* entry, CastKind kind) {
  menu.bind(entry, [kind] { printCast(kind); });
}

void PrintCommands::mnuPrintProject_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  if (const auto chapters = pickChapters(u"printing"_s)) {
    printReport({.key = u"Chapter"_s,
                 .prompt = shownText(u"Print chapter(s)"_s),
                 .name = printFileName(shownText(u"Manuscript"_s)),
                 .report = &PrintProject,
                 .chapters = *chapters,
                 .offersDetails = true,
                 .routine = "PrintProject",
                 .module = "modPrintProject"});
  }
}

void PrintCommands::mnuPrintSelectedChapters_Click() {
  const QList<qint32> chapters = main_.panes().chapters().listChapters().SelectedTags();
  if (chapters.isEmpty()) {
    return;
  }
  printReport({.key = u"Chapter"_s,
               .prompt = shownText(u"Print chapter(s)"_s),
               .name = printFileName(shownText(u"Chapters"_s)),
               .report = [chapters](const ReportJob& job) { return PrintChapters(job, chapters); },
               .offersDetails = true,
               .routine = "PrintChapter",
               .module = "modPrintProject"});
}

void PrintCommands::mnuPrintScene_Click() {
  const QList<qint32> scenes = main_.panes().scenes().listScenes().SelectedTags();
  if (scenes.isEmpty()) {
    toolkit().MsgBox(u"Select a scene first"_s);
    return;
  }
  printScenes(scenes);
}

void PrintCommands::mnuPrintSceneCards_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const std::optional<int> cards = askCardsPerPage();
  const std::optional<ChapterRange> chapters = cards ? pickChapters(u"printing"_s) : std::nullopt;
  if (chapters) {
    printReport({.key = u"Scene Cards"_s,
                 .prompt = shownText(u"Click PRINT to output all project summaries."_s),
                 .name = printFileName(shownText(u"Scene Cards"_s)),
                 .report = [perPage = *cards](const ReportJob& job) { return PrintSummaryCards(job, perPage); },
                 .chapters = *chapters,
                 .routine = "PrintSummaryCards",
                 .module = "modPrintCards"});
  }
}

void PrintCommands::mnuSaveSynopsis_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const QString refusal = whyNoSynopsis();
  if (!refusal.isEmpty()) {
    toolkit().MsgBox(refusal);
    return;
  }
  const std::optional<ChapterRange> chapters = pickChapters(u"printing"_s);
  if (!chapters) {
    return;
  }
  QString path;
  const QString cause = Guard("SaveSynopsis", "modSaveSynopsis").causeOf([&] { path = SaveSynopsis(*chapters); });
  toolkit().MsgBox(cause.isEmpty() ? translated(u"Synopsis saved to %1"_s).arg(path)
                                   : translated(u"The synopsis could not be saved."_s) + u"\n\n"_s + translated(cause));
}
