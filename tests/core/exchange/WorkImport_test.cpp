#include "core/exchange/WorkImport.h"

#include "core/exchange/Manuscript.h"
#include "core/exchange/RtfExport.h"
#include "core/exchange/SceneListImport.h"
#include "core/exchange/TextExport.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/text/Rtf.h"
#include "support/SampleProject.h"
#include "support/TestLanguage.h"

#include <QStringList>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// Scenes parted by "/", chapters by "#", line ends as "|".
QString shown(const WorkImport& work) {
  QStringList chapters;
  for (const WorkImport::Chapter& chapter : work.chapters) {
    QStringList scenes;
    for (const QByteArray& scene : chapter) {
      scenes.append(QString(readRtf(scene).text()).replace(u"\r\n"_s, u"|"_s));
    }
    chapters.append(scenes.join(u'/'));
  }
  return chapters.join(u'#');
}

WorkImport cut(const RichText& text) {
  return WorkImport::cut(text).value();
}

}  // namespace

// A word of another language is a heading at the begin of a line only.
TEST(WorkImport, HeadingsMayBeInTheLanguageOfTheProgram) {
  const TestLanguage language(u"Chapter||Kapitel\nScene||Szene\n"_s);
  const WorkImport work = cut(
      RichText::fromPlain(u"Von mir\n  KAPITEL 3\nDas Kapitel davor\nChapter 9\nb\nKapitel\u00a0drei\nc\n* * *\nd"_s));
  EXPECT_EQ(shown(work), u"KAPITEL 3|Das Kapitel davor#Chapter 9|b#Kapitel\u00a0drei|c/d"_s);
  g_Project->Clear();
  work.fill(*g_Project);
  EXPECT_EQ(g_Project->ChapterByIndex(3)->Title + u'/' + g_Project->SceneByID(4)->Title, u"Kapitel 3/Szene 2"_s);
  for (qint32 id = 1; id <= 4; ++id) {
    g_Project->SceneByID(id)->setTextRTF(writeRtf(RichText::fromPlain(u"a"_s)));
  }
  EXPECT_EQ(shown(cut(readRtf(ExportToRTF({}, [](qint32) {})))), u"a#a#a/a"_s) << "headings of ours aren't said again";
}

TEST(WorkImport, ATextIsCutIntoChaptersAndScenes) {
  const std::tuple<QString, QString, qint32, qint32> cases[] = {
      {u""_s, u""_s, 0, 0},
      {u"No heading\nat all"_s, u""_s, 0, 4},
      {u"By me\n\nCHAPTER 3\nOne\nTwo\nchapter four\nEnd"_s, u"CHAPTER 3|One|Two#chapter four|End"_s, 7, 2},
      {u"Chapter 1\na\n* * *\nb\n   * * *  \nc"_s, u"Chapter 1|a/b/c"_s, 5, 0},
      {u"Chapter 1 a * * * b"_s, u"Chapter 1 a / b"_s, 4, 0},
      {u"Chapter 1\n***\na\n* * *\n"_s, u"Chapter 1|***|a/"_s, 3, 0},
      {u"Chapter\u00a01\na\n*\u00a0*\u00a0*\nb"_s, u"Chapter\u00a01|a/b"_s, 4, 0},
      {u"Chapter 1\n* * * * *\nb"_s, u"Chapter 1|* * /b"_s, 3, 0},
      {u"Chapter 1\n* * *\n* * *\nb"_s, u"Chapter 1//b"_s, 3, 0},
      {u"In Chapter\u00A01, chapters\n and a chapter too"_s, u"chapter too"_s, 2, 6},
      {u"a\n\n\nChapter 1\n\n\nb\n\n\nChapter 2"_s, u"Chapter 1|||b||#Chapter 2"_s, 5, 1},
  };
  for (const auto& [text, expected, words, inFront] : cases) {
    const WorkImport work = cut(RichText::fromPlain(text));
    EXPECT_EQ(shown(work), expected) << text;
    EXPECT_EQ(work.words, words) << text;
    EXPECT_EQ(work.wordsInFront, inFront) << text;
  }
}

// What isn't read, a bookmark or hidden words, is no part of a heading or a mark, and goes with what comes behind it.
TEST(WorkImport, FormatsAndObjectsGoWithTheirText) {
  const QByteArray rtf =
      "{\\rtf1 front\\par\\pard\\qc {\\*\\bkmkstart a}{\\*\\bkmkend a}{\\b Cha{\\v hidden}pter 1}\\par\\pard "
      "one {\\i two}\\line three\\par\\qc * *{\\v x} *\\par\\pard\\qr four {\\*\\bkmkstart b}{\\*\\bkmkend b}\\par "
      "Chapter 2\\par}";
  const RichText text = readRtf(rtf);
  ASSERT_NE(text.plainText().size(), text.size());
  const WorkImport work = cut(text);
  ASSERT_EQ(work.scenes, 3);
  const RichText first = readRtf(work.chapters[0][0]);
  const RichText whole = text.slice(text.text().indexOf(u"front") + 7, first.size());
  EXPECT_EQ(first, whole);
  EXPECT_EQ(first.plainText(), u"Chapter 1\r\none two\r\nthree"_s);
  EXPECT_EQ(first.paragraph(0).format->alignment, ParagraphFormat::Alignment::Centre);
  const RichText second = readRtf(work.chapters[0][1]);
  EXPECT_EQ(second.plainText(), u"four "_s);
  EXPECT_EQ(second.paragraph(0).format->alignment, ParagraphFormat::Alignment::Right);
  EXPECT_EQ(shown(work).section(u'#', 1), u"Chapter 2"_s);
}

TEST(WorkImport, WhatOurExportsPutBetweenTheTextsGoes) {
  const std::pair<QString, QString> cases[] = {
      {u"x\n\n[PB]\n\n\nchapter 1\n\n\n\na\n\n\n[PB]\nChapter Two\n\nb\n\n[PB]\n\nIn chapter 3\nc"_s,
       u"|a|#Chapter Two||b||[PB]||In #chapter 3|c"_s},
      {u"[PB]\n<center>*Chapter 1*\n\n\n\na\n\n\n<center>* * *\n\n\nb\n\n\n\n\n[PB]\n\n<center>*Chapter 2*\n\n\n\nc\n"_s,
       u"a|/|b|#c"_s},
      {u" [PB]\nChapter 1\na<center>* * *\n\n[PB]\nend"_s, u"Chapter 1|a<center>/|[PB]|end"_s},
  };
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(shown(cut(RichText::fromPlain(text))), expected) << text;
  }
}

TEST(WorkImport, ABookThatWasExportedComesBack) {
  makeSmallProject();
  const QByteArray head =
      "{\\rtf1\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Courier;}}{\\colortbl;\\red9\\green0\\blue0;}\\deftab300\\f0 ";
  const QByteArray texts[] = {
      head + "\\qc\\f1\\fs30 {\\b Bold} and {\\i it}\\par\\pard\\li300 last {\\ul line}\\par\\par}",
      head + "\\par\\ql begins and ends empty\\par\\par\\par}", "", head + "\\qr\\cf1 red [PB]\\par * *\\par}",
      head + "\\li200 the end\\par\\par}"};
  std::vector<RichText> former;
  for (qint32 i = 1; i <= 3; ++i) {
    chapterAt(i)->Title = u"Chapter "_s + QString::number(i);
    chapterAt(i)->Unused = false;
  }
  const auto shape = [] {
    QStringList counts;
    for (const auto& chapter : g_Project->Chapters) {
      counts.append(QString::number(chapter->SceneCount()));
    }
    return counts;
  };
  qint32 next = 0;
  for (const auto& chapter : g_Project->Chapters) {
    for (qint32 i = 1; i <= chapter->SceneCount(); ++i) {
      chapter->SceneByIndex(i)->Unused = false;
      chapter->SceneByIndex(i)->setTextRTF(texts[next++ % 5]);
      former.push_back(readRtf(chapter->SceneByIndex(i)->TextRTF()));
    }
  }
  const QStringList counts = shape();
  const QByteArray asText = CombineFiles({}, [](qint32) {});
  const QByteArray rtf = ExportToRTF({}, [](qint32) {});
  const WorkImport work = cut(readRtf(rtf));
  EXPECT_EQ(work.wordsInFront, 0);
  work.fill(*g_Project);
  EXPECT_EQ(shape(), counts);
  ASSERT_EQ(static_cast<size_t>(g_Project->SceneCount()), former.size());
  for (size_t i = 0; i < former.size(); ++i) {
    const RichText text = readRtf(sceneAt(static_cast<qint32>(i) + 1)->TextRTF());
    EXPECT_EQ(text.text(), former[i].text()) << i;
    EXPECT_TRUE(text.isEmpty() || text == former[i]) << i;
  }
  EXPECT_EQ(ExportToRTF({}, [](qint32) {}), rtf) << "as often as you like";
  cut(Manuscript::read(asText, Manuscript::Kind::Text)).fill(*g_Project);
  EXPECT_EQ(shape(), counts);
  EXPECT_EQ(CombineFiles({}, [](qint32) {}), asText);
}

TEST(WorkImport, ItCanBeStoppedAtEachScene) {
  int asked = 0;
  EXPECT_FALSE(WorkImport::cut(RichText::fromPlain(u"chapter 1 * * * chapter 2"_s), [&] { return ++asked < 2; }));
  EXPECT_EQ(asked, 2);
}

TEST(WorkImport, TheBookHoldsWhatWasCutAndNothingElse) {
  makeSmallProject();
  g_Project->FileWithPath = u"/nowhere/Book.qn4"_s;
  g_Project->EndMiddleChID = chapterAt(1)->ID();
  g_Project->setLastFileIndex(4, 7);
  cut(RichText::fromPlain(u"Chapter IX\na\n* * *\nb\nChapter X\nc"_s)).fill(*g_Project);
  EXPECT_EQ(g_Project->FileWithPath, u"/nowhere/Book.qn4"_s);
  EXPECT_EQ(g_Project->Title + u'/' + g_Project->AuthorName, u"Imported Project/Author's Name"_s);
  EXPECT_EQ(g_Project->EndMiddleChID, 0);
  EXPECT_EQ(g_Project->LastFileIndex(4), 7) << "files of the former scenes keep their names";
  ASSERT_EQ(g_Project->CharCount(), 1);
  EXPECT_EQ(g_Project->LocationCount() + g_Project->ItemCount() + g_Project->NoteCount(), 0);
  QStringList outline;
  for (const auto& chapter : g_Project->Chapters) {
    outline.append(chapter->Title);
    for (qint32 i = 1; i <= chapter->SceneCount(); ++i) {
      const auto scene = chapter->SceneByIndex(i);
      EXPECT_EQ(scene->BelongsToChID, chapter->ID());
      EXPECT_EQ(scene->ViewPointChar()->Title(), u"Unnamed"_s);
      outline.append(scene->Title + u'=' + QString(scene->ConvertedToBodyText()).remove(u"\r\n"_s));
    }
  }
  EXPECT_EQ(outline.join(u' '), u"Chapter 1 Scene 1=Chapter IXa Scene 2=b Chapter 2 Scene 1=Chapter Xc"_s);
  EXPECT_EQ(g_Project->SceneCount(), 3);
}

TEST(SceneListImport, ALineIsAScene) {
  const std::pair<QString, QString> cases[] = {
      {u""_s, u""_s},
      {u"One. Two!\r\nWow! Really.\rNone\n\tIndented. Yes"_s,
       u"+One.=One. Two! Wow!=Wow! Really. No short description=None +\tIndented.=\tIndented. Yes"_s},
      {u"1.\n2.\n3.\n4.\n5.\n6.\n7.\n"_s, u"+1.=1. 2.=2. 3.=3. +4.=4. 5.=5. 6.=6. +7.=7."_s},
      // Empty lines count, and the first idea always has a chapter.
      {u"\n1.\n \n2.\n\n3.\n\n4."_s, u"+1.=1. +2.=2. 3.=3. 4.=4."_s},
      {u"<html><head><title>x.</title></head><body><p>A &amp; b. <b>C</b>\nd</p>\n<p>E!</p></body></html>"_s,
       u"+A & b.=A & b. C d E!=E!"_s},
  };
  for (const auto& [text, expected] : cases) {
    QStringList ideas;
    for (const SceneListImport::Idea& idea : SceneListImport::read(text).ideas) {
      ideas.append((idea.opensChapter ? u"+"_s : QString()) + idea.title + u'=' + idea.description);
    }
    EXPECT_EQ(ideas.join(u' '), expected) << text;
  }
  makeSmallProject();
  SceneListImport::read(cases[2].first).fill(*g_Project);
  ASSERT_EQ(g_Project->ChapterCount(), 3);
  EXPECT_EQ(chapterAt(3)->SceneCount(), 1);
  EXPECT_EQ(chapterAt(3)->Title + sceneAt(7)->DescText + sceneAt(7)->ViewPointChar()->Title(), u"Chapter 37.Unnamed"_s);
  EXPECT_TRUE(sceneAt(7)->TextRTF().isEmpty());
}
