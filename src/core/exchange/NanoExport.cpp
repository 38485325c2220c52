#include "core/exchange/NanoExport.h"

#include "core/exchange/BookWalk.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

namespace {

char16_t scrambled(char16_t unit) {
  if (unit >= u'a' && unit <= u'z') {
    return u'n';
  }
  if (unit >= u'A' && unit <= u'Z') {
    return u'N';
  }
  return unit == u'_' ? u' ' : unit;
}

void scramble(QString& text) {
  for (QChar& letter : text) {
    letter = QChar(scrambled(letter.unicode()));
  }
}

}  // namespace

QString ExportToNano(bool withUnused, const ExportStep& step) {
  QString text;
  BookWalk walk(step, withUnused);
  walk.eachChapter([&](const auto& chapter, qint32) {
    walk.eachScene(chapter, [&](clsScene& scene, qint32) {
      text += scene.ConvertedToBodyText();
      text += u"\r\n"_s;
    });
    text += u"\r\n"_s;
  });
  scramble(text);
  return text;
}
