#include "core/reports/SaveSynopsis.h"

#include "core/infra/WholeText.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

namespace {

const QString kLine = u"\r\n"_s;

QString synopsisText(const ChapterRange& chapters) {
  QString text = g_Project->Title + u" synopsis"_s + kLine + kLine;
  Reports::eachUsedChapter(chapters, [&](const clsChapter& chapter, qint32 number) {
    text += kLine + chapter.Title + kLine + kLine;
    Reports::eachUsedScene(chapter, [&](const clsScene& scene, qint32 index, bool isLast) {
      text += u"  "_s + Reports::numberOf(number, index) + u' ' + scene.DescText + kLine;
      text += isLast ? QString() : kLine + u"* * *"_s + kLine + kLine;
    });
  });
  return text;
}

}  // namespace

QString SaveSynopsis(const ChapterRange& chapters) {
  const QString path = g_Project->Path() + u"Auto_Synopsis.txt"_s;
  WholeText::replaceFile(path, synopsisText(chapters));
  return path;
}
