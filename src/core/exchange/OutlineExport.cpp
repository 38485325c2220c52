#include "core/exchange/OutlineExport.h"

#include "core/exchange/BookWalk.h"
#include "core/infra/WholeText.h"
#include "core/model/clsChapter.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

QByteArray ExportOutline(const ExportStep& step) {
  QString text;
  BookWalk walk(step);
  walk.eachChapter([&](const auto& chapter, qint32) {
    text += u"[chapter] "_s + withLineEnds(chapter->Title) + u".\r\n"_s;
    walk.eachScene(chapter, [&](const clsScene& scene, qint32) {
      text += u"[scene] "_s + withLineEnds(scene.Title) + u".\r\n"_s;
      text += withLineEnds(scene.DescText) + u"\r\n\r\n"_s;
    });
  });
  return WholeText::toBytes(text);
}
