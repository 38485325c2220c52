#include "core/exchange/HtmlExport.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/SampleProject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(HtmlExport, TheUsedChaptersOfTheRangeBecomeOnePage) {
  makeSmallProject();
  chapterAt(1)->Title = u"Arrival <at> “night”"_s;
  sceneAt(1)->setTextRTF("{\\rtf1\\ansi {\\b one}\\par two\\rquote s \\u8212? 1 < 2\\par}");
  sceneAt(2)->Unused = true;
  qint32 steps = 0;
  const auto step = [&steps](qint32 scene) { EXPECT_EQ(scene, ++steps); };
  const QByteArray empty = "<P ALIGN='JUSTIFY'><I>&nbsp;</I></P>\r\n";
  const QByteArray head =
      "<HTML><BODY>\r\n<Table align=center border=0 width=790>\r\n<TR><TD>\r\n<Font name='Arial' size=+1>\r\n";
  const QByteArray first = "<center><B>Arrival &lt;at&gt; &ldquo;night&rdquo;</B></center>\r\n" + empty.repeated(4) +
                           "<b>one</b><BR>\r\n &nbsp; &nbsp; two&rsquo;s &mdash; 1 &lt; 2\r\n"
                           "<BR><BR><BR><center>* * *</center><BR><BR>\r\n";
  const QByteArray foot = "</font>\r\n</Td></Tr></Table>\r\n</BODY></HTML>\r\n";
  EXPECT_EQ(ExportToHTML({{1, 1}, false}, step), head + empty.repeated(3) + first + foot);
  EXPECT_EQ(ExportToHTML({{1, 1}, true}, [](qint32) {}), head + "[pb]\r\n" + first + foot);
  steps = 0;
  const QByteArray whole = ExportToHTML({{2, 99}, true}, step);
  EXPECT_TRUE(whole.contains("Departure") && !whole.contains("Arrival") && !whole.contains("Cut scenes")) << whole;
  EXPECT_EQ(steps, 1);
  newProject();
}
