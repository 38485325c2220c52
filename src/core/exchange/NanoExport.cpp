#include "core/exchange/NanoExport.h"

#include "core/exchange/BookWalk.h"
#include "core/infra/WholeText.h"
#include "core/model/clsScene.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Plain letters are the same bytes in every form of such a file. Without a jump, so that many are done at once.
void scramble(QByteArray& text) {
  std::transform(text.cbegin(), text.cend(), text.begin(), [](char character) {
    constexpr unsigned kCaseBit = 0x20;
    const auto byte = static_cast<uchar>(character);
    const bool isLetter = static_cast<uchar>((byte | kCaseBit) - 'a') < 26;
    const auto hidden = static_cast<uchar>(isLetter ? (byte & kCaseBit) | 'N' : byte);
    return static_cast<char>(hidden == '_' ? ' ' : hidden);
  });
}

}  // namespace

QByteArray ExportToNano(bool withUnused, const ExportStep& step) {
  WholeText::Builder text;
  BookWalk walk(step, withUnused);
  walk.eachChapter([&](const auto& chapter, qint32) {
    walk.eachScene(chapter, [&](clsScene& scene, qint32) {
      text.append(scene.ConvertedToBodyText());
      text.append(u"\r\n");
    });
    text.append(u"\r\n");
  });
  QByteArray bytes = text.take();
  scramble(bytes);
  return bytes;
}
