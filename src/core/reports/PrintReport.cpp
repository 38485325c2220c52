#include "core/reports/PrintReport.h"

#include "core/infra/cSharedLang.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

#include <vector>

using namespace Qt::StringLiterals;

void Reports::eachUsedChapter(const ChapterRange& chapters, const EachChapter& report) {
  for (qint32 number = chapters.first; number <= qMin(chapters.last, g_Project->ChapterCount()); ++number) {
    const auto chapter = g_Project->ChapterByIndex(number);
    if (!chapter->Unused) {
      report(*chapter, number);
    }
  }
}

void Reports::eachUsedScene(const clsChapter& chapter, const EachScene& report) {
  std::vector<qint32> used;
  for (qint32 number = 1; number <= chapter.SceneCount(); ++number) {
    const auto scene = chapter.SceneByIndex(number);
    if (scene->InScenes() && !scene->Unused) {
      used.push_back(number);
    }
  }
  for (const qint32 number : used) {
    report(*chapter.SceneByIndex(number), number, number == used.back());
  }
}

void Reports::eachUsedChapter(const ReportJob& job, const EachChapter& report) {
  eachUsedChapter(job.chapters, [&](clsChapter& chapter, qint32 number) {
    job.progress.step(shownText(u"Laying out chapter %1"_s), number);
    report(chapter, number);
  });
}

void Reports::eachUsedScene(const ReportJob& job, const clsChapter& chapter, const EachScene& report) {
  eachUsedScene(chapter, [&](clsScene& scene, qint32 number, bool isLast) {
    job.progress.step(shownText(u"Laying out scene %1"_s), number);
    report(scene, number, isLast);
  });
}

QString Reports::numberOf(qint32 chapter, qint32 scene) {
  return u"%1.%2"_s.arg(chapter).arg(scene);
}

QString Reports::titleOf(const QString& report) {
  return g_Project->Title.isEmpty() ? report : g_Project->Title + u": "_s + report;
}

PrintDocument Reports::finished(const QString& title, PrintFlow& flow) {
  return {title, g_Project->AuthorName, flow.paper(), flow.takePages()};
}
