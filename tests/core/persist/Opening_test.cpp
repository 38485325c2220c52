// Books that are not as they should be when they are opened: what is found, told and put right, and what is not
// followed.

#include "core/infra/Paths.h"
#include "core/infra/SilentToolkit.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/LostAndFound.h"
#include "core/persist/RescueFolder.h"
#include "support/ListeningToolkit.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <zip.h>

using namespace Qt::StringLiterals;

namespace {

class Opening : public ::testing::Test {
 protected:
  void SetUp() override {
    path_ = saveSmallProject(scratch_.path(u"book"_s));
    newProject();
  }
  void TearDown() override { newProject(); }

  QString file(const QString& name) const { return scratch_.path(u"book/"_s + name); }
  void edit(const QByteArray& from, const QByteArray& to) const {
    QByteArray text = fileBytes(path_);
    ASSERT_EQ(text.count(from), 1) << from;
    writeFile(path_, text.replace(from, to));
  }
  static QStringList titlesOf(qint32 chapter) {
    QStringList titles;
    for (const qint32 id : chapterAt(chapter)->SceneIDs()) {
      titles.append(g_Project->SceneByID(id)->Title);
    }
    return titles;
  }

  ScriptedToolkit screen_;
  ScratchFolder scratch_;
  QString path_;
};

void zipUp(const QString& archive, const QString& name, const QByteArray& content) {
  QDir().mkpath(QFileInfo(archive).path());
  zip_t* const zip = zip_open(QFile::encodeName(archive).constData(), ZIP_CREATE | ZIP_TRUNCATE, nullptr);
  ASSERT_NE(zip, nullptr);
  zip_source_t* const source =
      zip_source_buffer(zip, content.constData(), static_cast<zip_uint64_t>(content.size()), 0);
  zip_file_add(zip, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8);
  ASSERT_EQ(zip_close(zip), 0);
}

}  // namespace

TEST_F(Opening, AFileThatWasCutOffOffersTheNewestWholeBackup) {
  const QByteArray whole = fileBytes(path_);
  QByteArray backup = whole;
  backup.replace("<Title>Arrival<", "<Title>From%20the%20backup<");
  zipUp(file(u"Autobackups/2026-11-19/Small.zip"_s), u"Small.qn4"_s, whole);
  zipUp(file(u"Autobackups/2026-11-20/Small.zip"_s), u"books/SMALL.qn4"_s, backup);
  zipUp(file(u"Autobackups/2026-11-20/Other.zip"_s), u"Small.qn4"_s, "not of this book");
  writeFile(file(u"Autobackups/2026-11-20/Small_complete.zip"_s), "cut off too");
  for (const QString& name : {u"19/Small"_s, u"20/Other"_s, u"20/Small_complete"_s, u"20/Small"_s}) {
    QFile archive(file(u"Autobackups/2026-11-"_s + name + u".zip"_s));
    const int hours = name.startsWith(u"19"_s) ? -24 : name.endsWith(u"Small"_s) ? -1 : 0;
    ASSERT_TRUE(
        archive.open(QIODevice::ReadWrite) &&
        archive.setFileTime(QDateTime::currentDateTime().addSecs(hours * 3600), QFileDevice::FileModificationTime));
  }
  const QByteArray cut = whole.first(whole.size() - 40);
  for (const QByteArray& left : {cut, QByteArray(), whole.first(60)}) {
    writeFile(path_, left);
    if (left != cut) {
      screen_.expectErrorReport(u"There was an error loading this project."_s);
    }
    screen_.expectChoice(u"5 files with the texts of scenes stand beside it."_s, u"Open the newest backup"_s);
    ASSERT_TRUE(g_Project->Load(path_, false)) << left.size();
    EXPECT_TRUE(screen_.choices.constLast().text.contains(u"The newest backup is Small.zip ("_s));
    EXPECT_EQ(chapterAt(1)->Title, u"From the backup"_s);
    EXPECT_EQ(sceneAt(2)->TextRTF(), simpleRtf("four five"));
    screen_.expectBox(u"Do you want to save over it?"_s, Answer::No);
    screen_.expectFile({});
    screen_.expectBox(u"Save cancelled."_s);
    EXPECT_FALSE(g_Project->SaveQN4(true));
    EXPECT_EQ(fileBytes(path_), left);
    newProject();
  }
  writeFile(path_, cut);
  screen_.expectChoice(u"incomplete"_s, QString());
  EXPECT_FALSE(g_Project->Load(path_, false));
  EXPECT_EQ(g_Project->SceneCount(), 0);
}

TEST_F(Opening, TwoScenesOfOneNumberAreBothKeptAndTold) {
  edit("<ID>2</ID>\r\n\t\t<Title>Arrival%202", "<ID>1</ID>\r\n\t\t<Title>Arrival%202");
  edit("\t\t\t<ScID>2</ScID>\r\n", "");
  edit("<ID>3</ID>\r\n\t\t<Title>Departure%201", "<ID>1</ID>\r\n\t\t<Title>Departure%201");
  edit("<ScID>3</ScID>", "<ScID>1</ScID>");
  screen_.expectBox(u"and got one of their own: Arrival 2; Departure 1"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_EQ(titlesOf(1), QStringList({u"Arrival 1"_s, u"Arrival 2"_s}));
  EXPECT_EQ(titlesOf(2), QStringList({u"Departure 1"_s, u"Departure 2"_s}));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_TRUE(g_Project->Load(path_, false)) << "told again";
}

TEST_F(Opening, ASceneStandsInTheChapterThatListsItAndInOneAlone) {
  edit("<ScID>2</ScID>", "<ScID>2</ScID>\r\n\t\t\t<ScID>3</ScID>");
  edit("Arrival%201</Title>\r\n\t\t<Unused>0</Unused>\r\n\t\t<BelongsToChID>1",
       "Arrival%201</Title>\r\n\t\t<Unused>0</Unused>\r\n\t\t<BelongsToChID>3");
  screen_.expectBox(u"Stood in two chapters, and stand in one now: Departure 1"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(titlesOf(1), QStringList({u"Arrival 1"_s, u"Arrival 2"_s}));
  EXPECT_EQ(titlesOf(2), QStringList({u"Departure 1"_s, u"Departure 2"_s}));
  EXPECT_EQ(sceneAt(1)->BelongsToChID, 1);
}

// An ID is given behind all others, the ones that come later in the file too.
TEST_F(Opening, TwoChaptersOfOneNumberAndOneWithoutKeepTheirScenes) {
  edit("<ID>2</ID>\r\n\t\t<Title>Departure<", "<ID>1</ID>\r\n\t\t<Title>Departure<");
  edit("\t\t<ID>1</ID>\r\n\t\t<Title>Arrival<", "\t\t<Title>Arrival<");
  edit("<ID>3</ID>\r\n\t\t<Title>Cut%20scenes<", "<ID>1</ID>\r\n\t\t<Title>Cut%20scenes<");
  screen_.expectBox(u"and got one of their own: Cut scenes"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(titlesOf(1), QStringList({u"Arrival 1"_s, u"Arrival 2"_s}));
  EXPECT_EQ(titlesOf(2), QStringList({u"Departure 1"_s, u"Departure 2"_s}));
  EXPECT_EQ(titlesOf(3), QStringList({u"Cut scenes 1"_s}));
  EXPECT_EQ(sceneAt(5)->BelongsToChID, chapterAt(3)->ID());
}

TEST_F(Opening, WhatContradictsItselfIsPutRightAndToldInOneBox) {
  edit("<RTFFile>RTF_00002.rtf", "<RTFFile>rtf_00001.RTF");
  edit("<ScID>4</ScID>", "<ScID>4</ScID>\r\n\t\t\t<ScID>77</ScID>\r\n\t\t\t<ScID>78</ScID>");
  writeFile(file(u"RTF/RTF_00005.rtf"_s), {});
  writeFile(file(u"RTF/RTF_00003.sync-conflict-20261120-101010.rtf"_s), "x");
  writeFile(file(u"Small (Anna's conflicted copy 2026-11-20).qn4"_s), "x");
  screen_.expectBox(u"found when the book was opened"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  for (const QString& told : {u"Departure (2)"_s, u"Arrival 2"_s, u"Cut scenes 1 (RTF_00005.rtf, 2 words)"_s,
                              u"RTF_00003.sync-conflict"_s, u"Anna's conflicted copy"_s}) {
    EXPECT_TRUE(screen_.boxes.constLast().contains(told)) << told;
  }
  EXPECT_EQ(chapterAt(2)->SceneCount(), 2);
  const QByteArray first = fileBytes(file(u"RTF/RTF_00001.rtf"_s));
  sceneAt(2)->setTextRTF(simpleRtf("of its own"));
  ASSERT_TRUE(g_Project->SaveQN4(false));
  EXPECT_EQ(fileBytes(file(u"RTF/RTF_00001.rtf"_s)), first);
  EXPECT_EQ(sceneAt(2)->RTFFilename(), u"RTF_00006.rtf"_s);
}

TEST_F(Opening, NamesInOtherLettersAreFoundAndKept) {
  QDir(scratch_.path(u"book"_s)).rename(u"RTF"_s, u"Rtf"_s);
  ASSERT_TRUE(QFile::rename(file(u"Rtf/RTF_00002.rtf"_s), file(u"Rtf/rtf_00002.RTF"_s)));
  ASSERT_TRUE(g_Project->Load(path_, false));
  sceneAt(2)->setTextRTF(simpleRtf("new"));
  ASSERT_TRUE(g_Project->SaveQN4(true));
  EXPECT_EQ(fileBytes(file(u"Rtf/rtf_00002.RTF"_s)), simpleRtf("new"));
  EXPECT_EQ(filesBelow(scratch_.path(u"book"_s)).size(), 6) << "nothing beside it";
}

TEST_F(Opening, LinksThatLeadOutAreNeitherReadNorWritten) {
  const QString outside = scratch_.path(u"outside.rtf"_s);
  const QString scene = file(u"RTF/RTF_00002.rtf"_s);
  writeFile(outside, simpleRtf("secret"));
  ASSERT_TRUE(QFile::remove(scene) && QFile::link(outside, scene));
  screen_.expectErrorReport(u"missing or can't be read: "_s + scene);
  EXPECT_FALSE(g_Project->Load(path_, false));
  // A link within the book is followed.
  ASSERT_TRUE(QFile::remove(scene) && QFile::link(file(u"RTF/RTF_00003.rtf"_s), scene));
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(sceneAt(2)->TextRTF(), simpleRtf("six seven eight nine"));
  // One that comes while the book is open, and the folder of the mirrors.
  ASSERT_TRUE(QFile::remove(scene) && QFile::link(outside, scene));
  QDir().mkpath(scratch_.path(u"elsewhere"_s));
  ASSERT_TRUE(QFile::link(scratch_.path(u"elsewhere"_s), file(u"Data"_s)));
  sceneAt(2)->setTextRTF(simpleRtf("new"));
  Settings().sSet(u"CreateTextToo"_s, true);
  EXPECT_TRUE(g_Project->SaveQN4(true));
  Settings().sSet(u"CreateTextToo"_s, false);
  EXPECT_EQ(fileBytes(outside), simpleRtf("secret"));
  EXPECT_TRUE(sceneAt(2)->RTFChanged());
  EXPECT_TRUE(filesBelow(scratch_.path(u"elsewhere"_s)).isEmpty());
}

TEST_F(Opening, AFolderOfTextsThatIsALinkOutwardsIsNotFollowed) {
  const QString outside = scratch_.path(u"outside"_s);
  ASSERT_TRUE(QDir().rename(file(u"RTF"_s), outside));
  ASSERT_TRUE(QFile::link(outside, file(u"RTF"_s)));
  screen_.expectErrorReport(u"missing or can't be read"_s);
  EXPECT_FALSE(g_Project->Load(path_, false));
}

TEST_F(Opening, TheMirrorHoldsEveryLetterAndIsWrittenWhereItDiffers) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  Settings().sSet(u"CreateTextToo"_s, true);
  sceneAt(1)->setTextRTF("{\\rtf1 \\u1055?\\par}");
  ASSERT_TRUE(g_Project->SaveQN4(false));
  const QString mirror = file(u"Data/Plain_00001.txt"_s);
  EXPECT_TRUE(fileBytes(mirror).startsWith("\xEF\xBB\xBF\xD0\x9F"));
  EXPECT_EQ(fileBytes(file(u"Data/Plain_00002.txt"_s)).trimmed(), "four five");
  const QDateTime past = QFileInfo(mirror).lastModified().addSecs(-100);
  const auto age = [&] {
    QFile aged(mirror);
    return aged.open(QIODevice::ReadWrite) && aged.setFileTime(past, QFileDevice::FileModificationTime);
  };
  ASSERT_TRUE(age());
  ASSERT_TRUE(g_Project->SaveQN4(true));
  newProject();
  ASSERT_TRUE(g_Project->Load(path_, false) && g_Project->SaveQN4(true));
  EXPECT_EQ(QFileInfo(mirror).lastModified(), past);
  Settings().sSet(u"CreateTextToo"_s, false);
}

TEST_F(Opening, TextsWithoutAPlaceAreKeptInTheRescueFolder) {
  makeSmallProject();
  g_Project->Title = u"A: book / of \"mine\""_s;
  const auto scene = sceneAt(1);
  scene->Title = u"../../up"_s;
  scene->Save(false, true);
  const QString rescue = RescueFolder(*g_Project).path();
  EXPECT_TRUE(rescue.startsWith(Paths::programFolder() + u"Rescue"_s));
  EXPECT_EQ(filesBelow(rescue.chopped(1)).values(), QList<QByteArray>{scene->TextRTF()});
  EXPECT_TRUE(scene->RTFChanged());
  const QString whole = RescueFolder(*g_Project).keepBook();
  EXPECT_EQ(g_Project->FileWithPath, QString());
  screen_.expectBox(u"You've loaded an all-in-one"_s);
  ASSERT_TRUE(g_Project->Load(whole, false));
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_EQ(sceneAt(2)->TextRTF(), simpleRtf("four five"));
}

TEST_F(Opening, OnlyATextThatWasChangedIsKeptThere) {
  ASSERT_TRUE(g_Project->Load(path_, false));
  g_Project->FileWithPath.clear();
  const auto scene = sceneAt(1);
  const RescueFolder rescue(*g_Project);
  scene->Save();
  EXPECT_FALSE(rescue.holds(*scene));
  scene->setTextRTF(simpleRtf("mine"));
  scene->Save();
  EXPECT_TRUE(rescue.holds(*scene));
}

TEST_F(Opening, APieceThatIsMissingInTheMiddleIsSeen) {
  const QByteArray whole = fileBytes(path_);
  int tried = 0;
  int silent = 0;
  for (qsizetype at = whole.indexOf("<LOCATIONS>"); at + 400 < whole.size(); at += 97) {
    writeFile(path_, QByteArray(whole).remove(at, 400));
    ListeningToolkit listener;
    installToolkit(&listener);
    const bool complete = g_Project->Load(path_, false) && g_Project->SceneCount() == 5 &&
                          g_Project->ChapterCount() == 3 && g_Project->CharCount() == 3;
    ++tried;
    silent += !complete && listener.told.isEmpty() ? 1 : 0;
    installToolkit(&screen_);
  }
  // Nothing tells of whole elements that are gone.
  EXPECT_LT(silent * 10, tried);
}

TEST_F(Opening, TheAllInOneCopyDoesNotStandForTheFileThatWasCutOff) {
  const QByteArray cut = fileBytes(path_).chopped(20);
  writeFile(path_, cut);
  screen_.expectChoice(u"3 chapters and 5 scenes were found"_s, u"Open the file as it is"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  g_Project->FileWithPath = file(u"Copy.qnc4"_s);
  ASSERT_TRUE(g_Project->SaveQNC4(false));
  g_Project->FileWithPath = path_;
  screen_.expectBox(u"Do you want to save over it?"_s, Answer::No);
  screen_.expectFile({});
  screen_.expectBox(u"Save cancelled."_s);
  EXPECT_FALSE(g_Project->SaveQN4(false));
  EXPECT_EQ(fileBytes(path_), cut);
}

TEST_F(Opening, AnEmptyFileWithoutABackupBeginsABookFromItsTexts) {
  writeFile(path_, {});
  screen_.expectErrorReport(u"There was an error loading this project."_s);
  screen_.expectChoice(u"No backup was found."_s, u"Begin an empty book"_s);
  ASSERT_TRUE(g_Project->Load(path_, false));
  std::vector<LostText> lost = LostAndFound::find();
  ASSERT_EQ(lost.size(), 5U);
  EXPECT_TRUE(LostAndFound::putIntoChapter(lost[1], *chapterAt(1)));
  EXPECT_EQ(sceneAt(1)->TextRTF(), simpleRtf("four five"));
  screen_.expectBox(u"Do you want to save over it?"_s, Answer::Yes);
  ASSERT_TRUE(g_Project->SaveQN4(false));
  ASSERT_TRUE(g_Project->Load(path_, false));
  EXPECT_EQ(g_Project->SceneCount(), 1);
}
