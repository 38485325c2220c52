#include "core/exchange/DescriptionExport.h"

#include "core/exchange/BookWalk.h"
#include "core/infra/WholeText.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/cSharedText.h"

using namespace Qt::StringLiterals;

namespace {

/// Each piece but the first is a line of its own, whatever line ends it has itself.
const QString kPieceEnd = u"\r\n\r\n\r\n"_s;

QString described(const clsScene& scene) {
  QString text = withLineEnds(scene.DescText);
  TextTools().RemoveCRLFFromEnd(text);
  return text;
}

}  // namespace

QByteArray ExportDescriptionsByChapter(qint32 first, qint32 last, const ExportStep& step) {
  QString text = withLineEnds(g_Project->Title) + u"\r\n\r\n"_s;
  BookWalk walk(step, true, {first, last});
  walk.eachChapter([&](const auto& chapter, qint32 number) {
    text += withLineEnds(chapter->Title) + kPieceEnd;
    walk.eachScene(chapter, [&](const clsScene& scene, qint32 index) {
      text += u" %1.%2 "_s.arg(number).arg(index) + withLineEnds(scene.Title) + u"\r\n"_s;
      text += described(scene) + kPieceEnd;
    });
  });
  return WholeText::toBytes(text);
}
