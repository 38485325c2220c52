#include "core/reports/modPrintProject.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/SceneTitle.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <QScopedValueRollback>

using namespace Qt::StringLiterals;

namespace {

const QString kLine = u"\r\n"_s;
constexpr double kChapterTop = 1200;
constexpr double kDetailsSmaller = 2;
constexpr double kSmallestPoints = 4;
constexpr int kRatings = 4;

QString ruler(const QString& name, int dashesBehind) {
  return QString(10, u'-') + name + QString(dashesBehind, u'-') + kLine;
}

QString sceneBlock(clsScene& scene) {
  QString block = translated(u"Viewpoint: "_s) + shownViewpoint(scene) + kLine;
  for (int i = 1; i <= kRatings; ++i) {
    block += withColon(shownRating(i, g_Project->FieldTitle(i))) + u' ' + QString::number(scene.Field(i)) + kLine;
  }
  block += translated(u"Goal: "_s) + scene.Goal + kLine;
  block += translated(u"Conflict: "_s) + scene.Conflict + kLine;
  block += translated(u"Outcome: "_s) + scene.Outcome + kLine;
  block += translated(u"Details: "_s) + (scene.Status > 0 ? translated(g_StatusNames.value(scene.Status)) : QString()) +
           kLine;
  block += translated(u"Description: "_s) + kLine + kLine;
  block += (scene.DescText.isEmpty() ? translated(u"None"_s) : scene.DescText) + kLine + kLine;
  block += ruler(translated(u"Content"_s), 60);
  block += scene.ConvertedToBodyText() + kLine;
  return block + ruler(translated(u"End Content"_s), 56);
}

QString manuscriptOf(const ReportJob& job, const clsChapter& chapter) {
  QString text;
  Reports::eachUsedScene(job, chapter, [&text](clsScene& scene, qint32, bool isLast) {
    text += scene.ConvertedToBodyText();
    if (!isLast) {
      text += kLine + kLine + u"* * *"_s + kLine + kLine;
    }
  });
  return text;
}

void PrintScene(PrintFlow& flow, clsScene& scene) {
  flow.PrintPage(sceneBlock(scene), scene.Title);
}

/// All scenes, in smaller letters and close lines.
void printDetails(const ReportJob& job, PrintFlow& flow, const clsChapter& chapter) {
  const QScopedValueRollback smaller(flow.font.points, qMax(kSmallestPoints, flow.font.points - kDetailsSmaller));
  const QScopedValueRollback notDoubled(flow.doubleSpaced, false);
  const QScopedValueRollback close(flow.oneAndHalf, false);
  for (qint32 i = 1; i <= chapter.SceneCount(); ++i) {
    job.progress.step(shownText(u"Laying out scene %1"_s), i);
    PrintScene(flow, *chapter.SceneByIndex(i));
  }
}

/// From a fresh page: its title and the text of its used scenes, or all of them with details.
void PrintChapter(const ReportJob& job, PrintFlow& flow, const clsChapter& chapter) {
  if (job.details) {
    printDetails(job, flow, chapter);
    return;
  }
  flow.newPage();
  flow.moveTo(kChapterTop);
  flow.PrintCentred(chapter.Title);
  flow.blankLine();
  flow.blankLine();
  flow.PrintText(manuscriptOf(job, chapter), true);
}

QString titleOf(const QString& part) {
  return g_Project->Title.isEmpty() ? part : g_Project->Title;
}

}  // namespace

PrintDocument PrintProject(const ReportJob& job) {
  PrintFlow flow(job.measure, job.state);
  Reports::eachUsedChapter(job, [&](const clsChapter& chapter, qint32) { PrintChapter(job, flow, chapter); });
  return Reports::finished(titleOf(translated(u"Manuscript"_s)), flow);
}

PrintDocument PrintChapters(const ReportJob& job, const QList<qint32>& chapterIDs) {
  PrintFlow flow(job.measure, job.state);
  qint32 done = 0;
  for (const qint32 id : chapterIDs) {
    job.progress.step(shownText(u"Laying out chapter %1"_s), ++done);
    PrintChapter(job, flow, *g_Project->ChapterByID(id));
  }
  return Reports::finished(titleOf(translated(u"Chapters"_s)), flow);
}

PrintDocument PrintScenes(const ReportJob& job, const QList<qint32>& sceneIDs) {
  PrintFlow flow(job.measure, job.state);
  qint32 done = 0;
  for (const qint32 id : sceneIDs) {
    job.progress.step(shownText(u"Laying out scene %1"_s), ++done);
    PrintScene(flow, *g_Project->SceneByID(id));
  }
  return Reports::finished(
      sceneIDs.size() == 1 ? g_Project->SceneByID(sceneIDs.front())->Title : titleOf(translated(u"Scenes"_s)), flow);
}
