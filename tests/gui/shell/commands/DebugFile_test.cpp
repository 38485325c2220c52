// What is sent to those who help: the project without the story.

#include "core/persist/DebugFile.h"

#include "core/infra/ZipContents.h"
#include "core/infra/cSHAREDZipFiles.h"
#include "core/model/Globals.h"
#include "core/model/clsCharacter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/shell/MainWindow.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

class DebugFileTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    path_ = smallProject(u"v1.5"_s);
    startWith(path_);
  }
  QString beside(const QString& ending) const { return QFileInfo(path_).path() + u"/Small"_s + ending; }
  void make(const QString& archive) {
    toolkit.expectBox(u"Your debug info has been stored in "_s + QDir::toNativeSeparators(archive) +
                      u"\n Note - all descriptions and notes have been removed from the debug file, and no scene "
                      "content has been included."_s);
    trigger("mnuCreateDebug");
  }
  static QStringList membersOf(const QString& archive) {
    QStringList names;
    const ZipContents contents(archive);
    for (const ZipMember& member : contents.members()) {
      names.append(member.name);
    }
    return names;
  }

  QString path_;
};

TEST_F(DebugFileTest, NothingOfTheStoryIsInIt) {
  const auto scene = sceneAt(1);
  scene->DescText = scene->Notes = scene->Goal = scene->Conflict = scene->Outcome = u"she drowns"_s;
  const auto character = g_Project->CharByID(1);
  character->Bio = character->Goals = character->Notes = character->DescText = u"he drowned her"_s;
  g_Project->AuthorBio = u"drowned once"_s;
  scene->setTextRTF(simpleRtf("She drowned."));
  window().ProjectChanged = true;
  make(beside(u".zip"_s));
  EXPECT_FALSE(window().ProjectChanged) << "it was saved first";
  const QByteArray project = fileBytes(path_);
  EXPECT_TRUE(project.contains("drown"));
  const QByteArray debug = fileBytes(beside(u"_qn4.dbg"_s));
  EXPECT_FALSE(debug.contains("drown") || debug.contains("What%20happens") || debug.contains("To%20leave"));
  for (const char* kept : {"<Title>Arrival", "<Goal>Goal Removed</Goal>", "<Notes>Notes Removed</Notes>",
                           "<Goals>Goals Removed</Goals>", "<Bio>Bio Removed</Bio>", "<Desc>Description Removed</Desc>",
                           "<Conflict>Conflict Removed</Conflict>", "<Outcome>Outcome Removed</Outcome>"}) {
    EXPECT_TRUE(debug.contains(kept)) << kept;
  }
  const QByteArray list = fileBytes(beside(u"_qn4_rtf.dbg"_s));
  EXPECT_TRUE(list.startsWith("1 RTF_00001.rtf 20"));
  EXPECT_TRUE(list.endsWith(' ' + QByteArray::number(QFileInfo(sceneAt(5)->RTFFileWithPath()).size()) + "\r\n"));
  EXPECT_EQ(membersOf(beside(u".zip"_s)),
            QStringList({u"Small_qn4.dbg"_s, u"Small_qn4_rtf.dbg"_s, u"Quillane4.ini"_s, u"log.txt"_s}));
  EXPECT_EQ(readFromZip(beside(u".zip"_s), u"Small_qn4.dbg"_s), debug);
  EXPECT_TRUE(readFromZip(beside(u".zip"_s), u"log.txt"_s)->contains("Added files list"));
  EXPECT_TRUE(logText().contains(u"Created debug files "));
  make(beside(u".zip"_s));
}

TEST_F(DebugFileTest, TagsAreFoundInAnyLettersAndWithoutTheirEnd) {
  const std::pair<QByteArray, QByteArray> cases[] = {
      {"<A><desc>x</DESC><Desc></Desc></A>", "<A><desc>Description Removed</DESC><Desc>Description Removed</Desc></A>"},
      {"<Goal>a<b</Goal><Goals>c</Goals>", "<Goal>Goal Removed</Goal><Goals>Goals Removed</Goals>"},
      {"<SCENERTF><![CDATA[x]]></SCENERTF>", "<SCENERTF>Scene Removed</SCENERTF>"},
      {"<Notes>to the <Desc>end", "<Notes>Notes Removed"},
      {"<Described>stays</Described><", "<Described>stays</Described><"}};
  for (const auto& [project, told] : cases) {
    EXPECT_EQ(DebugFile::withoutStory(project), told);
  }
}

TEST_F(DebugFileTest, AnArchiveOfTheWritersOwnStaysAsItIs) {
  const QString own = beside(u".zip"_s);
  ASSERT_TRUE(cSHAREDZipFiles().Zip(path_, own));
  const QByteArray withoutMembers = "PK\5\6" + QByteArray(18, '\0');
  for (const QByteArray& before : {fileBytes(own), withoutMembers}) {
    writeFile(own, before);
    make(beside(u"_qn4.zip"_s));
    EXPECT_EQ(fileBytes(own), before);
    EXPECT_EQ(membersOf(beside(u"_qn4.zip"_s)).size(), 4);
  }
}

TEST_F(DebugFileTest, ItSaysWhatCouldNotBeWritten) {
  const QByteArray before = fileBytes(path_);
  ASSERT_TRUE(QDir().mkdir(beside(u"_qn4.dbg"_s)));
  toolkit.expectBox(u"could not be made. Your project is as it was."_s);
  trigger("mnuCreateDebug");
  EXPECT_EQ(fileBytes(path_), before);
  EXPECT_FALSE(QFile::exists(beside(u".zip"_s)));
}
