#include "core/exchange/HtmlExport.h"

#include "core/exchange/BookWalk.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/clsChapter.h"
#include "core/model/clsScene.h"
#include "core/text/HtmlText.h"
#include "core/text/mSHAREDRtf2Html3.h"

using namespace Qt::StringLiterals;

namespace {

const QByteArray kHead =
    "<HTML><BODY>\r\n"
    "<Table align=center border=0 width=790>\r\n"
    "<TR><TD>\r\n"
    "<Font name='Arial' size=+1>\r\n";
const QByteArray kFoot =
    "</font>\r\n"
    "</Td></Tr></Table>\r\n"
    "</BODY></HTML>\r\n";
const QByteArray kEmptyLine = "<P ALIGN='JUSTIFY'><I>&nbsp;</I></P>\r\n";
const QByteArray kParted = "<BR><BR><BR><center>* * *</center><BR><BR>\r\n";

/// The first line of each paragraph but the first is indented.
void appendText(QByteArray& page, const clsScene& scene) {
  static const QByteArrayView kBreak("<br>\r\n");
  const QByteArray html = Rtf2Html(scene.TextRTF(), u"+CR+U").toLatin1();
  const QByteArrayView text(html);
  qsizetype from = 0;
  for (qsizetype at = text.indexOf(kBreak); at >= 0; at = text.indexOf(kBreak, from)) {
    page.append(text.sliced(from, at - from)).append("<BR>\r\n &nbsp; &nbsp; ");
    from = at + kBreak.size();
  }
  page.append(text.sliced(from)).append("\r\n");
}

QByteArray chapterOf(const clsChapter& chapter, bool hasPageMarks) {
  return (hasPageMarks ? QByteArray("[pb]\r\n") : kEmptyLine.repeated(3)) + "<center><B>" +
         HtmlText::escaped(chapter.Title).toLatin1() + "</B></center>\r\n" + kEmptyLine.repeated(4);
}

}  // namespace

bool HtmlExport::isForPages(const QString& name) {
  return Files().FileOnly(name).contains(".plhtm"_L1, Qt::CaseInsensitive);
}

QString HtmlExport::withExtension(const QString& path) {
  const bool hasOne = isForPages(path) || Files().FileOnly(path).contains(".htm"_L1, Qt::CaseInsensitive);
  return hasOne ? path : path + u".html"_s;
}

QByteArray ExportToHTML(const HtmlExport& what, const ExportStep& step) {
  QByteArray page = kHead;
  BookWalk walk(step, false, what.chapters);
  walk.eachChapter([&](const auto& chapter, qint32) {
    page += chapterOf(*chapter, what.hasPageMarks);
    walk.eachScene(chapter, [&](const clsScene& scene, qint32 index) {
      appendText(page, scene);
      // Also where all that follow are set aside.
      page += index < chapter->SceneCount() ? kParted : QByteArray();
    });
  });
  return page + kFoot;
}
