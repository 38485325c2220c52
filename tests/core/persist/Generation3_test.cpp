// Projects of generation 3: all of one is read and converted, and nothing of it is lost whatever fails.

#include "core/infra/Numbers.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedFileSubs.h"
#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsItem.h"
#include "core/model/clsLocation.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/FailingDisk.h"
#include "support/ListeningToolkit.h"
#include "support/Mutations.h"
#include "support/OlderProjects.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <random>

using namespace Qt::StringLiterals;

namespace {

class Generation3 : public ::testing::Test {
 protected:
  void SetUp() override {
    path = writeGeneration3(scratch.path());
    before = filesBelow(scratch.path());
    newProject();
  }
  void TearDown() override { newProject(); }

  /// Everything of the old project is on the disk as it was, its file under this name.
  void expectOldWhole(const QString& name) {
    QMap<QString, QByteArray> now = filesBelow(scratch.path());
    for (const auto& [file, content] : before.asKeyValueRange()) {
      const QString place = file == u"Old book.qn3"_s ? name : file;
      EXPECT_TRUE(now.contains(place) && now[place] == content) << place;
    }
  }
  QString data(const QString& name) { return scratch.path(u"data/"_s + name); }
  /// Loads it, whatever is asked or told; what was told last.
  QString findingsOf(bool loads = true) {
    ListeningToolkit listener;
    installToolkit(&listener);
    EXPECT_EQ(g_Project->Load(path, false), loads);
    installToolkit(nullptr);
    return listener.told.value(listener.told.size() - 1);
  }
  void freshProject() {
    newProject();
    QDir(scratch.path()).removeRecursively();
    writeGeneration3(scratch.path());
  }

  ScratchFolder scratch;
  QString path;
  QMap<QString, QByteArray> before;
};

std::vector<qint32> in(const IDList& list) {
  return {list.begin(), list.end()};
}

void expectBook() {
  EXPECT_EQ((QStringList{g_Project->Title, g_Project->AuthorName, g_Project->AuthorBio, g_Project->FieldTitle(1),
                         g_Project->FieldTitle(2)}),
            (QStringList{u"The old book"_s, u"A. Writer"_s, u"She wrote."_s, u"Fear"_s, u"Tension"_s}));
  EXPECT_EQ(g_Project->WordTarget, 50000);
  EXPECT_EQ(g_Project->WordTargetStartDate, Numbers::DayNumber("2004-02-29"));
  EXPECT_EQ(g_Project->DeadlineDate(1), Numbers::DayNumber("2005-01-31"));
  EXPECT_EQ(g_Project->DeadlineDate(2), 0);
  EXPECT_EQ(g_Project->LastFileIndex(4), 3);
  ASSERT_EQ(g_Project->ChapterCount(), 2);
  EXPECT_EQ(chapterAt(1)->Title, u"One, and a comma"_s);
  EXPECT_EQ(chapterAt(1)->DescText, u"Café, \"quoted\"\r\nline"_s);
  EXPECT_EQ(in(chapterAt(1)->SceneIDs()), (std::vector<qint32>{2, 1}));
  EXPECT_EQ(chapterAt(2)->Title, u"Chapter"_s);
  EXPECT_EQ(chapterAt(2)->DescText, u"Plain déjà vu"_s);
  EXPECT_TRUE(chapterAt(2)->Unused);
  ASSERT_EQ(g_Project->SceneCount(), 3);
  const auto first = g_Project->SceneByID(1);
  EXPECT_EQ(first->Title, u"True"_s);
  EXPECT_EQ(first->ConvertedToBodyText(), u"First old text."_s);
  EXPECT_EQ(in(first->CharIDs()), (std::vector<qint32>{4, 3, 7}));
  EXPECT_EQ(in(first->LocationIDs()), (std::vector<qint32>{5}));
  EXPECT_EQ(in(first->ItemIDs()), (std::vector<qint32>{6}));
  EXPECT_EQ(first->BelongsToChID, 1) << "the chapter's list wins";
  EXPECT_EQ(first->LastsDays, 2);
  EXPECT_EQ(first->Hour, 13);
  EXPECT_EQ(first->Field(2), 4);
  EXPECT_EQ(first->Status, 3);
  EXPECT_TRUE(first->ReactionScene && first->SubPlot);
  EXPECT_EQ(g_Project->SceneByID(2)->ConvertedToBodyText(), u"Second old text."_s);
  EXPECT_EQ(g_Project->SceneByID(3)->Title, u"Unnamed Scene"_s);
  EXPECT_EQ(g_Project->SceneByID(3)->Status, 1);
  ASSERT_EQ(g_Project->CharCount(), 3);
  const auto anna = g_Project->CharByID(3);
  const auto place = g_Project->LocationByID(5);
  EXPECT_EQ((QStringList{anna->Bio, anna->Notes, g_Project->CharByID(4)->Bio, place->Title, place->DescText,
                         g_Project->ItemByID(6)->Title}),
            (QStringList{u"Bio"_s, u"(n)"_s, u"Born."_s, u"Location"_s, u"Wet"_s, u"Lamp"_s}));
}

}  // namespace

TEST_F(Generation3, IsReadWholeAndSavedInThePresentForm) {
  ScriptedToolkit toolkit;
  toolkit.expectBox(
      u"READ THIS CAREFULLY!\nYour Quillane 3 project has been converted to Quillane 4. Your old project file has been "
      "renamed to Old book.qn3.bak\nIf you want to revert to Quillane 3, make a copy of the entire project folder and "
      "rename Old book.qn3.bak to Old book.qn3"_s);
  toolkit.expectBox(
      u"Missing in the old project, or not to be read: none.txt\n\nNot understood, and left empty: "
      "DeadlineDate2 \"someday\""_s);
  ASSERT_TRUE(g_Project->Load(path, true));
  expectBook();
  const QString converted = scratch.path(u"Old book.qn4"_s);
  EXPECT_EQ(g_Project->FileWithPath, converted);
  EXPECT_FALSE(g_Project->QN3FileMode || g_Project->HoldsUnsaved());
  EXPECT_TRUE(toolkit.progressCaptions.contains(u"Loading Scene 3"_s) && !toolkit.askedWhileHeld);
  EXPECT_FALSE(QFile::exists(path));
  expectOldWhole(u"Old book.qn3.bak"_s);
  newProject();
  ASSERT_TRUE(g_Project->Load(converted, false));
  expectBook();
}

TEST_F(Generation3, WhatIsMissingNamesItselfAndTheRestIsLoaded) {
  for (const auto& name : {u"Ch2.txt"_s, u"Sc1.txt"_s, u"P3.txt"_s, u"Loc.txt"_s}) {
    ASSERT_TRUE(QFile::remove(data(name)));
  }
  QFile::remove(scratch.path(u"RTF/RTF_00003.rtf"_s));
  const QString told = findingsOf();
  for (const auto& name : {u"chapter Ch2.txt"_s, u"scene Sc1.txt"_s, u"character P3.txt"_s,
                           u"the list of Locations (Loc.txt)"_s, u"the text of Unnamed Scene (RTF_00003.rtf)"_s}) {
    EXPECT_TRUE(told.contains(name)) << qPrintable(name) << qPrintable(told);
  }
  EXPECT_EQ(g_Project->ChapterCount(), 1);
  EXPECT_EQ(g_Project->SceneCount(), 2);
  EXPECT_EQ(g_Project->CharCount(), 2);
}

// Each row: what stands in the way, and what the writer is told.
TEST_F(Generation3, WhateverStopsItTheOldProjectIsAsItWas) {
  const auto stopped = [this](const char* what) {
    EXPECT_FALSE(g_Project->Load(path, false)) << what;
    EXPECT_EQ(g_Project->FileWithPath, QString()) << what;
    EXPECT_TRUE(filesBelow(scratch.path()) == before) << what;
  };
  {
    ScriptedToolkit toolkit;
    ASSERT_TRUE(QDir().rename(scratch.path(u"data"_s), scratch.path(u"away"_s)));
    before = filesBelow(scratch.path());
    toolkit.expectBox(u"neither its list"_s);
    stopped("no Data");
    const ScratchFolder outside;
    ASSERT_TRUE(QDir().rename(scratch.path(u"away"_s), outside.path(u"data"_s)));
    ASSERT_TRUE(QFile::link(outside.path(u"data"_s), scratch.path(u"data"_s)));
    before = filesBelow(scratch.path());
    toolkit.expectBox(u"neither its list"_s);
    stopped("Data leads out");
    freshProject();
    ASSERT_TRUE(QFile::remove(data(u"ChList.txt"_s)) && QFile::remove(data(u"Sc.txt"_s)));
    before = filesBelow(scratch.path());
    toolkit.expectBox(u"neither its list"_s);
    stopped("only the rest is there");
    freshProject();
  }
  const QString target = scratch.path(u"Old book.qn4"_s);
  {
    ScriptedToolkit toolkit;
    writeFile(target, "a book that was converted before");
    before = filesBelow(scratch.path());
    toolkit.expectChoice(u"Saved here it would replace"_s, {});
    toolkit.expectBox(u"so nothing has changed"_s);
    stopped("there is one already");
    QFile::remove(target);
  }
  if (FailingDisk::available()) {
    ScriptedToolkit toolkit;
    before = filesBelow(scratch.path());
    FailingDisk full;
    toolkit.expectBox(u"Please"_s);
    toolkit.expectFile({});
    toolkit.expectBox(u"No project file specified. Save cancelled."_s);
    toolkit.expectBox(u"so nothing has changed"_s);
    EXPECT_FALSE(g_Project->Load(path, false));
    full.clear();
    EXPECT_TRUE(filesBelow(scratch.path()) == before);
  }
  if (FailingDisk::available()) {
    // Full behind the texts: what stands in for the missing one goes again, or the next try would find it.
    ASSERT_TRUE(QFile::remove(scratch.path(u"RTF/RTF_00003.rtf"_s)));
    before = filesBelow(scratch.path());
    FailingDisk full(1000);
    findingsOf(false);
    full.clear();
    EXPECT_TRUE(filesBelow(scratch.path()) == before);
  }
}

TEST_F(Generation3, MirrorsOfItsTextsAreNeverFilesOfTheOldProject) {
  writeFile(scratch.path(u"RTF/Sc1.rtf"_s), simpleRtf("Named like a scene."));
  writeFile(data(u"Sc2.txt"_s), "ID, 2 \r\nRTFFILE,Sc1.rtf\r\n");
  before = filesBelow(scratch.path());
  Settings().sSet(u"CreateTextToo"_s, true);
  findingsOf();
  EXPECT_EQ(QDir(data({})).entryList({u"Plain_*"_s}), QStringList()) << "the conversion leaves the folder alone";
  EXPECT_TRUE(g_Project->SaveQN4(true));
  Settings().sSet(u"CreateTextToo"_s, false);
  expectOldWhole(u"Old book.qn3.bak"_s);
  EXPECT_EQ(fileBytes(data(u"Plain_Sc1.txt"_s)).trimmed(), "Named like a scene.");
  EXPECT_TRUE(QFile::exists(data(u"Plain_00001.txt"_s)));
}

// Each row: what the old project calls a scene's text, what stands there, and whether that can be read.
TEST_F(Generation3, ATextWhoseNameWontDoGetsAnotherAndTheBookOpensAgain) {
  const ScratchFolder outside;
  writeFile(outside.path(u"secret.rtf"_s), simpleRtf("secret"));
  enum class There { Text, Nothing, Folder, LinkOut };
  struct Row {
    QString named, file;
    There there;
    bool keepsName;
  };
  const Row rows[] = {
      {u"a<ID>.rtf"_s, u"a<ID>.rtf"_s, There::Text, false},
      {u"%u4E2D.rtf"_s, QString(QChar(0x4E2D)) + u".rtf"_s, There::Text, false},
      {u"gone.rtf"_s, {}, There::Nothing, true},
      {u"gone</RTFFile>.rtf"_s, {}, There::Nothing, false},
      {QString(300, u'x'), {}, There::Nothing, false},
      {u"a:b?.rtf"_s, {}, There::Nothing, false},
      {u"folder.rtf"_s, u"folder.rtf"_s, There::Folder, false},
      {u"link.rtf"_s, u"link.rtf"_s, There::LinkOut, false},
  };
  for (const Row& row : rows) {
    freshProject();
    const QString there = scratch.path(u"RTF/"_s + row.file);
    if (row.there == There::Text) {
      writeFile(there, simpleRtf("Kept."));
    } else if (row.there == There::Folder) {
      ASSERT_TRUE(QDir().mkpath(there));
    } else if (row.there == There::LinkOut) {
      ASSERT_TRUE(QFile::link(outside.path(u"secret.rtf"_s), there));
    }
    writeFile(data(u"Sc2.txt"_s), "ID, 2 \r\nTITLE,Second\r\nRTFFILE," + row.named.toLatin1() + "\r\n");
    const bool isText = row.there == There::Text;
    EXPECT_EQ(findingsOf().contains(u"the text of Second"_s), !isText) << qPrintable(row.named);
    const QString book = g_Project->FileWithPath;
    newProject();
    ASSERT_TRUE(g_Project->Load(book, false)) << qPrintable(row.named);
    const auto scene = g_Project->SceneByID(2);
    EXPECT_EQ(scene->ConvertedToBodyText(), isText ? u"Kept."_s : QString()) << qPrintable(row.named);
    EXPECT_EQ(scene->RTFFilename() == row.named, row.keepsName) << qPrintable(row.named);
  }
}

TEST_F(Generation3, WhatADamagedListLosesIsTold) {
  const std::tuple<QString, QByteArray, QString, qint32> rows[] = {
      {u"Sc.txt"_s, "SCENES,2x\r\nSCENES_1,Sc1.txt\r\nSCENES_2,Sc2.txt\r\n", {}, 2},
      {u"Sc.txt"_s, "SCENES, 1 \r\nSCENES_1,Sc1.txt\r\nSCENES_2,Sc2.txt\r\n", u"Scenes (1 counted, 2 found)"_s, 1},
      {u"Sc.txt"_s, "SCENES, 3 \r\nSCENES_1,Sc1.txt\r\nSCENES_3,Sc2.txt\r\n", u"Scenes (3 counted, 2 found)"_s, 2},
      {u"Sc.txt"_s, "\xEF\xBB\xBFSCENES, 1 \rSCENES_1,Sc1.txt\r", {}, 1},
      {u"Ch1.txt"_s, "ID, 1 \r\nTITLE,One\r\nSCENES, 2 \r\nSCENES_1,x\r\nSCENES_2,2\r\n",
       u"Scenes of chapter One: \"x\""_s, 3},
      {u"Old book.qn3"_s, "CHAPTERFILE,ChList.txt\r\nSCENEFILE,Sc.txt\r\nDEADLINEDATE1,00:00:00\r\n", {}, 3},
  };
  for (const auto& [file, content, expected, scenes] : rows) {
    freshProject();
    writeFile(file.endsWith(u"qn3"_s) ? path : data(file), content);
    const QString told = findingsOf();
    EXPECT_TRUE(told.contains(expected)) << content.constData() << qPrintable(told);
    EXPECT_FALSE(expected.isEmpty() && told.contains(u"counted"_s)) << qPrintable(told);
    EXPECT_FALSE(told.contains(u"00:00:00"_s)) << qPrintable(told);
    EXPECT_EQ(g_Project->SceneCount(), scenes) << content.constData();
  }
}

TEST_F(Generation3, AFormerBakGoesOnlyOnceTheNewOneIsThere) {
  writeFile(path + u".bak"_s, "converted before");
  findingsOf();
  expectOldWhole(u"Old book.qn3.bak"_s);
  EXPECT_EQ(QDir(scratch.path()).entryList({u"*.bak.*"_s}), QStringList());
  freshProject();
  ASSERT_TRUE(QDir().mkpath(path + u".bak/in the way"_s));
  ListeningToolkit listener;
  installToolkit(&listener);
  EXPECT_TRUE(g_Project->Load(path, false));
  installToolkit(nullptr);
  EXPECT_TRUE(listener.told.value(0).contains(u"Your old project file has kept its name"_s));
  EXPECT_TRUE(QFile::exists(path));
}

TEST_F(Generation3, SavedElsewhereTheOldFileKeepsItsName) {
  ScriptedToolkit toolkit;
  const QString place = scratch.path(u"new/Book.qn4"_s);
  writeFile(scratch.path(u"Old book.qn4"_s), "another");
  toolkit.expectChoice(u"Saved here it would replace"_s, u"Save under a new name"_s);
  toolkit.expectFile(place);
  toolkit.expectBox(u"Your old project file has kept its name: "_s + path);
  toolkit.expectBox(u"none.txt"_s);
  EXPECT_TRUE(g_Project->Load(path, false));
  EXPECT_EQ(g_Project->FileWithPath, place);
  expectOldWhole(u"Old book.qn3"_s);
  newProject();
  EXPECT_TRUE(g_Project->Load(place, false));
  expectBook();
}

// Cut, zeroed, random: each of its files in turn.
TEST_F(Generation3, AnyBytesAtAllEndInABookOrAMessage) {
  std::mt19937 random(7);
  const QList<QByteArray> snippets =
      QByteArray("\r\n~,~SCENES, 2147483647 \r\n~ID,-1\r\n~ID, 2147483647 \r\n~_INDEX,~%~..\\..\\~RTFFILE,..\r\n~<ID>")
          .split('~') +
      QList<QByteArray>{QByteArray("\0", 1), QByteArray(300, 'x')};
  const QStringList files = before.keys();
  int converted = 0;
  int refused = 0;
  for (int round = 0; round < 120; ++round) {
    const QString file = files[round % files.size()];
    const QByteArray bytes = damaged(before[file], round / files.size() % 4, random, snippets);
    QDir(scratch.path()).removeRecursively();
    QDir().mkpath(scratch.path());
    ASSERT_EQ(writeGeneration3(scratch.path()), path);
    writeFile(scratch.path(file), bytes);
    ListeningToolkit listener;
    installToolkit(&listener);
    const bool loaded = g_Project->Load(path, false);
    EXPECT_FALSE(listener.told.isEmpty());
    EXPECT_EQ(QFile::exists(path), !loaded) << "round " << round;
    EXPECT_TRUE(fileBytes(loaded ? path + u".bak"_s : path) ==
                (path.endsWith(file) ? bytes : before[u"Old book.qn3"_s]));
    if (loaded) {
      const QString book = g_Project->FileWithPath;
      const qint32 scenes = g_Project->SceneCount();
      newProject();
      EXPECT_TRUE(g_Project->Load(book, false)) << "round " << round << ": what was written can't be read";
      EXPECT_EQ(g_Project->SceneCount(), scenes) << "round " << round;
    }
    (loaded ? converted : refused)++;
    newProject();
    installToolkit(nullptr);
  }
  EXPECT_GT(converted, 80) << "most damage should cost a value and not the book";
  EXPECT_GT(refused, 0);
  RecordProperty("converted", converted);
  RecordProperty("refused", refused);
}
