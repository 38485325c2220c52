#include "core/exchange/TextExport.h"

#include "core/infra/WholeText.h"
#include "core/model/clsChapter.h"
#include "core/model/clsScene.h"

using namespace Qt::StringLiterals;

namespace {

const QString kInstructions =
    u"   Formatting instructions (delete these lines)\r\n"
    "--------------------------------------------------\r\n"
    "Replace [PB] with ^m\r\n"
    "Replace <center> with center formatting\r\n"
    "Autoformat to convert *bold* and _italic_ text (e.g. chapter headings)\r\n"
    "--------------------------------------------------\r\n"
    "\r\n\r\n\r\n"_s;
const QString kPageBreak = u"\r\n\r\n[PB]\r\n\r\n\r\n\r\n\r\n\r\n\r\n"_s;
const QString kBehindTitle = u"*\r\n\r\n\r\n\r\n"_s;
const QString kParted = u"<center>* * *\r\n\r\n"_s;
const QString kEmptyLine = u"\r\n\r\n"_s;

void append(WholeText::Builder& text, clsScene& scene, bool withSummary) {
  if (withSummary) {
    text.append(withLineEnds(scene.Title) + kEmptyLine + withLineEnds(scene.DescText) + u"\r\n\r\n\r\n"_s);
  }
  text.append(scene.ConvertedToBodyText());
  text.append(kEmptyLine);
}

}  // namespace

QByteArray CombineFiles(const ManuscriptOptions& options, const ExportStep& step) {
  WholeText::Builder text;
  text.append(kInstructions);
  BookWalk walk(step, options.unused);
  walk.eachChapter([&](const auto& chapter, qint32) {
    text.append(kPageBreak + u"<center>*"_s + withLineEnds(chapter->Title) + kBehindTitle);
    walk.eachScene(chapter, [&](clsScene& scene, qint32 index) {
      append(text, scene, options.summaries);
      if (isParted(*chapter, index)) {
        text.append(kParted);
      }
    });
  });
  return text.take();
}
