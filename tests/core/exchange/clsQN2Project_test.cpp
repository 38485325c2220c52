// Projects of generation 2: what their files say, and what becomes of it in the book.

#include "core/exchange/clsQN2Project.h"

#include "core/exchange/ImportQN2.h"
#include "core/infra/Numbers.h"
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

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

void fillBook(const clsQN2Project& from) {
  newProject();
  LongWork work(*g_Project, u"Importing"_s, false);
  EXPECT_EQ(ImportQN2::fill(from, work), QStringList());
}

}  // namespace

TEST(clsQN2Scene, TagsAreCutOutAndWhatRemainsIsTheText) {
  struct Row {
    QString span;
    QString title;
    QString outcome;
    qint16 day;
    QString text;
  };
  const Row rows[] = {
      {u"[COL:2][DESC: A\r\nb ][RESULT:won][DAY:3]\r\n\r\n  Text.\r\n"_s, u"A b"_s, u"won"_s, 3, u"  Text."_s},
      {u"[result:won]x[desc:late]y"_s, u"late"_s, QString(), 0, u"[result:won]xy"_s},
      {u"a [day: 12x] b [DESC:open"_s, QString(), QString(), 12, u"a  b [DESC:open"_s},
      {u"[DAY:99999999999][LDAY:-5]"_s, QString(), QString(), 32767, QString()},
      {QString(), QString(), QString(), 0, QString()},
  };
  for (const Row& row : rows) {
    const clsQN2Scene scene{QString(row.span)};
    EXPECT_EQ(scene.Title, row.title) << qPrintable(row.span);
    EXPECT_EQ(scene.Outcome, row.outcome) << qPrintable(row.span);
    EXPECT_EQ(scene.Day, row.day) << qPrintable(row.span);
    EXPECT_EQ(scene.Text, row.text) << qPrintable(row.span);
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
  fillBook(old);
  EXPECT_EQ(g_Project->Title, u"\"My\" first, book"_s);
  EXPECT_EQ(g_Project->AuthorName, u"Lee, A."_s);
  EXPECT_EQ(g_Project->FieldTitle(2), u"Wit"_s);
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
  EXPECT_EQ(lee->Title(), u"ANN/LEE"_s);
  EXPECT_EQ(lee->FullName, u"Ann Marie Lee: the elder"_s);
  EXPECT_EQ(lee->AlternateNames, u"Annie"_s);
  EXPECT_EQ(lee->Bio, u"Born {here}.\r\nStayed."_s);
  EXPECT_EQ(lee->Goals, u"To leave"_s);
  EXPECT_EQ(sceneAt(2)->ConvertedToBodyText(), u"Bob's words [GOAL:late"_s);
  EXPECT_EQ(sceneAt(3)->ViewPointID(), 0);
  EXPECT_EQ(sceneAt(4)->ConvertedToBodyText(), u"No marks at all."_s);
  EXPECT_EQ(sceneAt(4)->ViewPointChar()->Title(), u"NONE"_s);
  ASSERT_EQ(g_Project->CharCount(), 4);
  EXPECT_EQ(g_Project->CharByIndex(4)->Title(), u"Unseen"_s);
  newProject();
}

// What is a scene's text in the files is a scene's text in the book, whatever it holds.
TEST(clsQN2Project, AnyBytesAtAllAreReadAndNoTextIsLost) {
  const ScratchFolder scratch;
  const QString path = writeGeneration2(scratch.path());
  const QMap<QString, QByteArray> whole = filesBelow(scratch.path());
  const QList<QByteArray> snippets{"[SCENE]",      "[DESC:",           "]", "<@@@>", "\"", ",", "\r", "[F1:99999999]",
                                   "\xEF\xBB\xBF", QByteArray("\0", 1)};
  std::mt19937 random(11);
  int read = 0;
  constexpr int kRounds = 400;
  for (int round = 0; round < kRounds; ++round) {
    const QString file = whole.keys()[round % whole.size()];
    writeFile(scratch.path(file), damaged(whole[file], round / whole.size() % 4, random, snippets));
    clsQN2Project old;
    if (old.LoadProject(path)) {
      ++read;
      fillBook(old);
      qint32 number = 0;
      for (const auto& chapter : old.Chapters) {
        for (const auto& scene : chapter.Text.Scenes) {
          QString text = scene.Text;
          text.remove(QChar(u'\0'));
          EXPECT_EQ(sceneAt(++number)->ConvertedToBodyText().simplified(), text.simplified()) << "round " << round;
        }
      }
    }
    writeFile(scratch.path(file), whole[file]);
  }
  EXPECT_GT(read, kRounds * 3 / 4);
  EXPECT_LT(read, kRounds) << "a project file of other bytes names no chapter";
  RecordProperty("read", read);
  newProject();
}
