// Projects of generation 2: what their files say, and what becomes of it in the book.

#include "core/exchange/clsQN2Project.h"

#include "core/exchange/ImportQN2.h"
#include "core/infra/Numbers.h"
#include "core/infra/WholeText.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/LongWork.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/Mutations.h"
#include "support/OlderProjects.h"
#include "support/SampleProject.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

QStringList fillBook(const clsQN2Project& from) {
  newProject();
  LongWork work(*g_Project, u"Importing"_s, false);
  return ImportQN2::fill(from, work);
}

/// The words of a chapter's file that are no tag's name and stand nowhere in what was read of it.
QStringList lostWords(const QByteArray& file, const clsQN2Text& read) {
  QString all = read.Header + u' ' + read.Front;
  for (const clsQN2Scene& scene : read.Scenes) {
    for (const QString& part :
         {scene.Actor, scene.Title, scene.DescText, scene.Goal, scene.Conflict, scene.Outcome, scene.Text}) {
      all += u' ' + part;
    }
  }
  static const QRegularExpression tag(u"\\[[A-Za-z0-9]+:?"_s);
  static const QRegularExpression noLetter(u"[^\\p{L}]+"_s);
  QStringList lost;
  for (const QString& word : WholeText::fromBytes(file).remove(tag).split(noLetter, Qt::SkipEmptyParts)) {
    if (!all.contains(word, Qt::CaseInsensitive)) {
      lost.append(word);
    }
  }
  return lost;
}

}  // namespace

TEST(clsQN2Scene, TagsAreCutOutAndWhatRemainsIsTheText) {
  const std::tuple<QString, QString, QString, qint16, QString> rows[] = {
      {u"[COL:2][DESC: A\r\nb ][RESULT:won][DAY:3]\r\n\r\n  Text.\r\n"_s, u"A b"_s, u"won"_s, 3, u"  Text."_s},
      {u"[result:won]x[desc:late]y"_s, u"late"_s, QString(), 0, u"[result:won]xy"_s},
      {u"a [day: 12x] b [DESC:open"_s, QString(), QString(), 12, u"a  b [DESC:open"_s},
      {u"[DAY:99999999999][LDAY:-5]"_s, QString(), QString(), 32767, QString()},
      {QString(), QString(), QString(), 0, QString()},
      {u"{\\rtf1 \u4E2D}"_s, QString(), QString(), 0, u"{\\rtf1 \u4E2D}"_s},
  };
  for (const auto& [span, title, outcome, day, text] : rows) {
    const clsQN2Scene scene{QString(span)};
    EXPECT_EQ(scene.Title, title) << qPrintable(span);
    EXPECT_EQ(scene.Outcome, outcome) << qPrintable(span);
    EXPECT_EQ(scene.Day, day) << qPrintable(span);
    EXPECT_EQ(scene.Text, text) << qPrintable(span);
    EXPECT_FALSE(scene.TextRTF().contains('?')) << qPrintable(span);
  }
}

TEST(clsQN2Text, AMarkerPartsHeaderAndBody) {
  const QStringList rows[] = {
      {u"<@@@>a"_s, QString(), u"a"_s}, {u"h<@@@>a<@@@>b"_s, u"h"_s, u"ab"_s}, {u"a\r\n"_s, QString(), u"a"_s}};
  for (const QStringList& row : rows) {
    clsQN2Text text;
    text.SetText(row[0], true);
    EXPECT_EQ(text.Header, row[1]);
    ASSERT_EQ(text.Scenes.size(), 1U);
    EXPECT_EQ(text.Scenes[0].Text, row[2]);
    EXPECT_EQ(text.Scenes[0].Wordcount, 1);
  }
}

TEST(clsQN2Project, AllOfItComesIntoTheBook) {
  const ScratchFolder scratch;
  clsQN2Project old;
  ASSERT_TRUE(old.LoadProject(writeGeneration2(scratch.path())));
  EXPECT_EQ(old.findings(), (QStringList{u"The text of these chapters is missing or can't be read, and they are empty: "
                                         "Three (gone.txt)"_s,
                                         u"Not understood, and left empty: WORDTARGETENDDATE \"never\"; WORDCOUNTSTART "
                                         "\"12x\""_s}));
  EXPECT_EQ(old.ActorNum(u"BOB"_s), 1);
  EXPECT_EQ(old.ActorNum(u"nobody"_s), -1);
  EXPECT_EQ(fillBook(old), QStringList(u"What stood before the first scene of these chapters is in their descriptions "
                                       "now: One, the first"_s));
  EXPECT_EQ((QStringList{g_Project->Title, g_Project->AuthorName, g_Project->FieldTitle(2)}),
            (QStringList{u"\"My\" first, book"_s, u"Lee, A."_s, u"Wit"_s}));
  EXPECT_EQ(g_Project->DeadlineDate(1), Numbers::DayNumber("2001-05-04"));
  EXPECT_EQ(g_Project->DeadlineStartDate(1), Numbers::DayNumber("2001-05-01"));
  EXPECT_EQ(g_Project->WordTarget, 60000);
  ASSERT_EQ(g_Project->ChapterCount(), 3);
  EXPECT_EQ(chapterAt(1)->Title, u"One, the first"_s);
  EXPECT_EQ(chapterAt(1)->DescText, u"A header"_s);
  EXPECT_EQ(chapterAt(3)->SceneCount(), 0);
  ASSERT_EQ(g_Project->SceneCount(), 4);
  const auto first = sceneAt(1);
  EXPECT_EQ(first->Title, u"At the gate"_s);
  EXPECT_EQ(first->DescText, u"She {waits} \\ long"_s);
  EXPECT_EQ(first->Goal + first->Conflict + first->Outcome, u"InShutOut"_s);
  EXPECT_EQ(first->Status, 2);
  EXPECT_EQ(first->Field(4), 4);
  EXPECT_EQ(first->Hour * 100 + first->Minute, 930);
  EXPECT_EQ(first->LastsHours, 2);
  EXPECT_TRUE(first->TextRTF().startsWith("{\\rtf"));
  EXPECT_EQ(first->ConvertedToBodyText(), u"Café {at} the \\gate.\r\nSecond line."_s);
  const auto lee = first->ViewPointChar();
  EXPECT_EQ((QStringList{lee->Title(), lee->FullName, lee->AlternateNames, lee->Bio, lee->Goals}),
            (QStringList{u"ANN/LEE"_s, u"Ann Marie Lee: the elder"_s, u"Annie"_s, u"Born {here}.\r\nStayed."_s,
                         u"To leave"_s}));
  EXPECT_EQ(sceneAt(2)->ConvertedToBodyText(), u"Bob's words [GOAL:late"_s);
  EXPECT_EQ(sceneAt(3)->ViewPointID(), 0);
  EXPECT_EQ(sceneAt(4)->ConvertedToBodyText(), u"No marks at all."_s);
  EXPECT_EQ(sceneAt(4)->ViewPointChar()->Title(), u"NONE"_s);
  ASSERT_EQ(g_Project->CharCount(), 4);
  EXPECT_EQ(g_Project->CharByIndex(4)->Title(), u"Unseen"_s);
  newProject();
}

TEST(clsQN2Project, WhatCanBeReadOfADamagedOneIsEnough) {
  const std::tuple<QByteArray, bool, QString> rows[] = {
      {"T\nAUTHOR,Ann \"Kit\"\n", true, u"Ann \"Kit\""_s},
      {"T\nAUTHOR,\"Wit\" and \"fun\"\n", true, u"\"Wit\" and \"fun\""_s},
      {"T\nAUTHOR,\"Lee, A.\"\n", true, u"Lee, A."_s},
      {"T\nAUTHOR,\"\nDEADLINE1,0\nDEADLINE2,00:00:00\n", true, u"\""_s},
      {"T\nOne,x,gone.txt\n", false, {}},
      {"T\n", false, {}},
  };
  const ScratchFolder scratch;
  const QString path = scratch.path(u"Old.qnp"_s);
  for (const auto& [content, isRead, author] : rows) {
    writeFile(path, content);
    clsQN2Project old;
    EXPECT_EQ(old.LoadProject(path), isRead) << content.constData();
    EXPECT_EQ(old.Author, author);
    EXPECT_FALSE(old.findings().join(u' ').contains(u"Not understood"_s)) << content.constData();
  }
  // Actors alone, but not from a folder that leads elsewhere.
  const ScratchFolder outside;
  writeFile(outside.path(u"Charlist.dat"_s), "Unseen\n");
  ASSERT_TRUE(QFile::link(outside.path(), scratch.path(u"Characters"_s)));
  EXPECT_FALSE(clsQN2Project().LoadProject(path));
  QFile::remove(scratch.path(u"Characters"_s));
  QDir().mkpath(scratch.path(u"Characters"_s));
  writeFile(scratch.path(u"Characters/Charlist.dat"_s), "Unseen\n");
  EXPECT_TRUE(clsQN2Project().LoadProject(path));
  // A box names ten, the log all.
  QByteArray lines = "T\n";
  for (int i = 1; i <= 12; ++i) {
    lines += "Part " + QByteArray::number(i) + ",x,gone" + QByteArray::number(i) + ".txt\n";
  }
  writeFile(path, lines);
  EXPECT_TRUE(clsQN2Project().LoadProject(path));
  Logging().WriteActionsToLog();
  EXPECT_TRUE(fileBytes(Logging().CurrentLogFilename()).contains("Part 12 (gone12.txt)"));
}

// What is a scene's text in the files is a scene's text in the book, whatever it holds.
TEST(clsQN2Project, AnyBytesAtAllAreReadAndNoTextIsLost) {
  const ScratchFolder scratch;
  const QString path = writeGeneration2(scratch.path());
  const QMap<QString, QByteArray> whole = filesBelow(scratch.path());
  const QList<QByteArray> snippets{"[SCENE]",      "[DESC:",           "]", "<@@@>", "\"", ",", "\r", "[F1:99999999]",
                                   "\xEF\xBB\xBF", QByteArray("\0", 1)};
  std::mt19937 random(11);
  constexpr int kRounds = 400;
  for (int round = 0; round < kRounds; ++round) {
    const QString file = whole.keys()[round % whole.size()];
    writeFile(scratch.path(file), damaged(whole[file], round / whole.size() % 4, random, snippets));
    clsQN2Project old;
    EXPECT_TRUE(old.LoadProject(path)) << "its actors at least are there";
    fillBook(old);
    qint32 number = 0;
    for (const auto& chapter : old.Chapters) {
      for (const auto& scene : chapter.Text.Scenes) {
        QString text = scene.Text;
        text.remove(QChar(u'\0'));
        EXPECT_EQ(sceneAt(++number)->ConvertedToBodyText().simplified(), text.simplified()) << "round " << round;
      }
    }
    const bool isCutOff = round / whole.size() % 4 == 0;
    if (isCutOff && !path.endsWith(file) && old.Chapters.size() > 1) {
      const QByteArray first = fileBytes(scratch.path(u"one.txt"_s));
      EXPECT_EQ(lostWords(first, old.Chapters[0].Text), QStringList()) << "round " << round;
    }
    writeFile(scratch.path(file), whole[file]);
  }
  newProject();
}
