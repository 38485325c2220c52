#include "core/exchange/Timeline.h"

#include "core/exchange/HtmlBytes.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/SampleProject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString pageFor(const QStringList& characters) {
  return Timeline::page(*g_Project, characters, QDateTime(QDate(2026, 3, 4), QTime(5, 6)));
}

}  // namespace

TEST(Timeline, HasARowForEachChapterAndForEachSceneOfAMarkedViewpoint) {
  makeSmallProject();
  g_Project->Title = u"Tide <i>"_s;
  g_Project->AuthorName = u"N. Öbody"_s;
  sceneAt(1)->DescText = u"She <b>lands</b>."_s;
  sceneAt(2)->SetViewpointByID(1);
  sceneAt(2)->DescText.clear();
  sceneAt(2)->Title = u"Untold"_s;
  sceneAt(2)->Unused = true;
  chapterAt(3)->Unused = true;
  const QString head =
      u"<HTML><HEAD><Title>Tide <i> by N. Öbody (Exported 04/03/2026 05:06)</title></HEAD><BODY>\r\n<font "
      u"size=+2><BR><center>\r\nTide <i> by N. "
      u"Öbody\r\n</font></center>\r\n<BR><BR>\r\n"
      "<table width=100% border=1 cellspacing=2 cellpadding=5>\r\n<TR>\r\n"_s;
  const QString none = u"<td>&nbsp;</td>"_s;
  const struct {
    QStringList characters;
    QString first, second;
  } cases[] = {
      {{u"Anna"_s, u"Nobody's"_s, u"Zoë"_s},
       none + none + u"<td>She <b>lands</b>.</td>"_s,
       u"<td>Untold</td>"_s + none + none},
      {{u"Zoë"_s, u"Zoë"_s}, u"<td>She <b>lands</b>.</td>"_s + none, {}},
      {{u"Anna"_s}, {}, u"<td>Untold</td>"_s},
  };
  for (const auto& one : cases) {
    QString expected = head;
    for (const QString& name : one.characters) {
      expected += u"<TD align=center><B>"_s + name + u"</b></TD>\r\n"_s;
    }
    const QString chapter = u"<TR><TD align=center colspan = %1> %2</TD></TR>\r\n"_s.arg(one.characters.size());
    expected += u"</TR>\r\n"_s + chapter.arg(u"Arrival"_s);
    for (const QString& cells : {one.first, one.second}) {
      expected += cells.isEmpty() ? QString() : u"<TR>\r\n"_s + cells + u"</TR>\r\n"_s;
    }
    EXPECT_EQ(pageFor(one.characters), expected + chapter.arg(u"Departure"_s) + u"</BODY></HTML>\r\n"_s);
  }
}

TEST(Timeline, WhatTheCodePageLacksIsAReference) {
  EXPECT_EQ(toHtmlBytes(u"Zoë – “€” Тайна 😀 &amp;"),
            "Zo\xEB \x96 \x93\x80\x94 &#1058;&#1072;&#1081;&#1085;&#1072; &#128512; &amp;");
  EXPECT_EQ(toHtmlBytes(QString(QChar(0xD83D)) + u'x'), "&#65533;x");
}
