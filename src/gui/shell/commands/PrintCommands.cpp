#include "gui/shell/commands/PrintCommands.h"

#include "core/infra/Guard.h"
#include "core/infra/Numbers.h"
#include "core/infra/Toolkit.h"
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
  bindChapterReport(menu, "mnuPrintSynopsis", u"Synopsis"_s, u"Click PRINT to output the list."_s, &PrintSynopsis);
  bindChapterReport(menu, "mnuExpandedSynopsis", u"Expanded Synopsis"_s, u"Click PRINT to output the list."_s,
                    &PrintExpandedSynopsis);
  bindChapterReport(menu, "mnuPrintSummary", u"Summary"_s, u"Click PRINT to continue."_s, &PrintSummary);
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

void PrintCommands::bindChapterReport(MenuBindings& menu, const char* entry, const QString& key, const QString& prompt,
                                      const ReportLayout& report) {
  menu.bind(entry, [key, prompt, report] {
    if (g_Project->IsBusy()) {
      return;
    }
    if (const auto chapters = pickChapters()) {
      printReport({key, prompt, printFileName(key), report, *chapters});
    }
  });
}

void PrintCommands::bindWorkSchedule(MenuBindings& menu) {
  menu.bind("mnuPrintOnStatus", [](const MenuChoice& chosen) {
    if (g_Project->IsBusy()) {
      return;
    }
    const ReportLayout report = [item = chosen.index](const ReportJob& job) { return PrintWorkSchedule(job, item); };
    printReport({u"SceneList"_s, u"Click PRINT to output the report."_s, printFileName(u"Work Schedule"_s), report});
  });
}

void PrintCommands::bindList(MenuBindings& menu, const char* entry, CastKind kind) {
  menu.bind(entry, [kind] {
    if (!g_Project->IsBusy()) {
      printCast(kind);
    }
  });
}

void PrintCommands::mnuPrintProject_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  if (const auto chapters = pickChapters()) {
    printReport({u"Chapter"_s, u"Print chapter(s)"_s, printFileName(u"Manuscript"_s), &PrintProject, *chapters, true});
  }
}

void PrintCommands::mnuPrintSelectedChapters_Click() {
  const QList<qint32> chapters = main_.panes().chapters().listChapters().SelectedTags();
  if (chapters.isEmpty() || g_Project->IsBusy()) {
    return;
  }
  const ReportLayout report = [chapters](const ReportJob& job) { return PrintChapters(job, chapters); };
  printReport({u"Chapter"_s, u"Print chapter(s)"_s, printFileName(u"Chapters"_s), report, {}, true});
}

void PrintCommands::mnuPrintScene_Click() {
  const QList<qint32> scenes = main_.panes().scenes().listScenes().SelectedTags();
  if (scenes.isEmpty()) {
    toolkit().MsgBox(u"Select a scene first"_s);
    return;
  }
  if (!g_Project->IsBusy()) {
    printScenes(scenes);
  }
}

void PrintCommands::mnuPrintSceneCards_Click() {
  if (g_Project->IsBusy()) {
    return;
  }
  const std::optional<int> cards = askCardsPerPage();
  const std::optional<ChapterRange> chapters = cards ? pickChapters() : std::nullopt;
  if (chapters) {
    const ReportLayout report = [perPage = *cards](const ReportJob& job) { return PrintSummaryCards(job, perPage); };
    printReport({u"Scene Cards"_s, u"Click PRINT to output all project summaries."_s, printFileName(u"Scene Cards"_s),
                 report, *chapters});
  }
}

void PrintCommands::mnuSaveSynopsis_Click() {
  if (g_Project->IsBusy() || g_Project->FileWithPath.isEmpty()) {
    return;
  }
  const std::optional<ChapterRange> chapters = pickChapters();
  if (!chapters) {
    return;
  }
  QString path;
  const QString cause = Guard("SaveSynopsis", "modSaveSynopsis").causeOf([&] { path = SaveSynopsis(*chapters); });
  toolkit().MsgBox(cause.isEmpty() ? u"Synopsis saved to "_s + path
                                   : u"The synopsis could not be saved.\n\n"_s + cause);
}
