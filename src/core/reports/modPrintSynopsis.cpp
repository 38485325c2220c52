#include "core/reports/modPrintSynopsis.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/cSharedText.h"

using namespace Qt::StringLiterals;

namespace {

const QString kParagraphEnd = u"\r\n\r\n"_s;
/// Between two scenes of a manuscript's synopsis.
const QString kSeparator = u"#"_s;

QString counted(qint32 words) {
  return translated(u"%1 words"_s).arg(words);
}

void printParagraph(PrintFlow& flow, const QString& text) {
  flow.PrintText(text);
  flow.spacing();
}

void printHeading(PrintFlow& flow, const QString& heading) {
  flow.newNumberedPage();
  flow.PrintText(heading);
  flow.blankLine();
}

void printTitle(PrintFlow& flow, const clsChapter& chapter) {
  flow.PrintBold(chapter.Title);
  flow.spacing();
}

QString statusOf(const clsScene& scene) {
  return scene.Status > 0 ? u", "_s + translated(g_StatusNames.value(scene.Status)) : QString();
}

void printExpandedScene(PrintFlow& flow, clsScene& scene, qint32 number) {
  const double tab = PrintFlow::kTextLeft + 3 * flow.breaker().widthOf(u"x");
  flow.PrintHeading(
      {{translated(u"Scene "_s), true},
       {QString::number(number) + u": "_s + counted(scene.Wordcount()) + statusOf(scene) + u", "_s, false},
       {shownViewpoint(scene), true}},
      tab);
  if (!scene.Title.isEmpty()) {
    flow.PrintHeading({{scene.Title, false}});
  }
  flow.PrintText(scene.DescText);
  flow.spacing();
}

}  // namespace

PrintDocument PrintSynopsis(const ReportJob& job) {
  PrintFlow flow(job.measure, job.state);
  const QString heading = translated(u"%1 synopsis"_s).arg(g_Project->Title);
  printHeading(flow, heading);
  Reports::eachUsedChapter(job, [&](const clsChapter& chapter, qint32) {
    printTitle(flow, chapter);
    Reports::eachUsedScene(job, chapter, [&](const clsScene& scene, qint32 number, bool isLast) {
      QString description = scene.DescText;
      TextTools().RemoveCRLFFromEnd(description);
      printParagraph(flow, QString::number(number) + u". "_s + scene.Title + kParagraphEnd + description);
      if (!isLast) {
        printParagraph(flow, kSeparator);
      }
    });
  });
  return Reports::finished(heading, flow);
}

PrintDocument PrintSummary(const ReportJob& job) {
  PrintFlow flow(job.measure, job.state);
  const QString heading = translated(u"%1 scene descriptions"_s).arg(g_Project->Title);
  printHeading(flow, heading);
  Reports::eachUsedChapter(job, [&](const clsChapter& chapter, qint32 chapterNumber) {
    printTitle(flow, chapter);
    Reports::eachUsedScene(job, chapter, [&](const clsScene& scene, qint32 number, bool) {
      printParagraph(flow, u' ' + Reports::numberOf(chapterNumber, number) + u"  ["_s + shownViewpoint(scene) +
                               u"] "_s + scene.Title);
    });
  });
  return Reports::finished(heading, flow);
}

PrintDocument PrintExpandedSynopsis(const ReportJob& job) {
  PrintFlow flow(job.measure, job.state);
  flow.newNumberedPage();
  Reports::eachUsedChapter(job, [&](const clsChapter& chapter, qint32 chapterNumber) {
    flow.PrintHeading({{QString::number(chapterNumber) + u") "_s, true},
                       {chapter.Title + u" ("_s + counted(chapter.Wordcount(false)) + u')', false}});
    flow.spacing();
    Reports::eachUsedScene(job, chapter,
                           [&](clsScene& scene, qint32 number, bool) { printExpandedScene(flow, scene, number); });
  });
  return Reports::finished(translated(u"%1 synopsis"_s).arg(g_Project->Title), flow);
}
