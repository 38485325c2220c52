// What stands in no chapter: how it is found, and how it comes back into the book or leaves it.

#include "core/persist/LostAndFound.h"

#include "core/model/Globals.h"
#include "core/model/clsChapter.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/TestHome.h"

#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class LostAndFoundTest : public ::testing::Test {
 protected:
  void SetUp() override { path_ = saveSmallProject(folder_.path()); }
  void TearDown() override { newProject(); }

  QString rtf(const QString& name) const { return folder_.path(u"RTF/"_s + name); }

  static QStringList found() {
    QStringList titles;
    for (const LostText& lost : LostAndFound::find()) {
      titles.append(lost.title);
    }
    return titles;
  }
  static LostText only() {
    const std::vector<LostText> lost = LostAndFound::find();
    EXPECT_EQ(lost.size(), 1U);
    return lost.empty() ? LostText() : lost.front();
  }
  void reload() {
    newProject();
    ASSERT_TRUE(g_Project->Load(path_, false));
  }

  ScriptedToolkit toolkit_;
  ScratchFolder folder_;
  QString path_;
};

TEST_F(LostAndFoundTest, ScenesOfNoChapterAndFilesOfNoScene) {
  EXPECT_EQ(found(), QStringList());
  writeFile(rtf(u"beta.RTF"_s), simpleRtf("b"));
  writeFile(rtf(u"Alpha.rtf"_s), simpleRtf("a"));
  writeFile(rtf(u"notes.txt"_s), "no text of ours");
  writeFile(rtf(u"Old.rtf.bak"_s), "nor this");
  QDir(rtf({})).mkdir(u"folder.rtf"_s);
  ASSERT_TRUE(QFile::link(rtf(u"Alpha.rtf"_s), rtf(u"link.rtf"_s)));
  // The scene's name as another system has written it.
  ASSERT_TRUE(QFile::rename(rtf(u"RTF_00005.rtf"_s), rtf(u"rtf_00005.RTF"_s)));
  chapterAt(1)->RemoveSceneByID(2);
  chapterAt(3)->RemoveSceneByID(5);
  EXPECT_EQ(found(), QStringList({u"Arrival 2"_s, u"Cut scenes 1"_s, u"Alpha.rtf"_s, u"beta.RTF"_s}));
  const LostText scene = LostAndFound::find().front();
  EXPECT_EQ(scene.date, QFileInfo(rtf(u"RTF_00002.rtf"_s)).lastModified());
  g_Project->FileWithPath.clear();
  EXPECT_EQ(found(), QStringList({u"Arrival 2"_s, u"Cut scenes 1"_s})) << "no file, no folder";
}

TEST_F(LostAndFoundTest, AGlanceHasTheWordsAndTheBeginningOnOneLine) {
  const auto glanceOf = [this](const QByteArray& text) {
    writeFile(rtf(u"x.rtf"_s), simpleRtf(text));
    const auto glance = LostAndFound::glanceAt(only());
    return glance ? QString::number(glance->words) + u' ' + glance->firstWords : u"nothing"_s;
  };
  EXPECT_EQ(glanceOf(""), u"0 "_s);
  EXPECT_EQ(glanceOf("\\par  The \\tab tide\\par\\par turned."), u"3 The tide turned."_s);
  EXPECT_EQ(glanceOf(QByteArray("seven77 ").repeated(9)), u"9 "_s + u"seven77 "_s.repeated(7).trimmed() + u'…');
  EXPECT_EQ(glanceOf(QByteArray(80, 'x')), u"1 "_s + QString(60, u'x') + u'…');
  EXPECT_EQ(glanceOf(QByteArray(59, 'x') + "\\u-10179?\\u-8704?y"), u"1 "_s + QString(59, u'x') + u'…')
      << "no half of a character";
  QFile::remove(rtf(u"x.rtf"_s));
  chapterAt(1)->RemoveSceneByID(1);
  const auto ofScene = LostAndFound::glanceAt(only());
  ASSERT_TRUE(ofScene);
  EXPECT_EQ(ofScene->words, 3);
  EXPECT_EQ(ofScene->firstWords, u"one two three"_s);
}

TEST_F(LostAndFoundTest, ASceneComesBackAtTheEndOfAChapter) {
  chapterAt(1)->RemoveSceneByID(2);
  ASSERT_TRUE(LostAndFound::putIntoChapter(only(), *chapterAt(2)));
  EXPECT_EQ(chapterAt(2)->SceneIndex(2), 3);
  EXPECT_EQ(sceneAt(2)->BelongsToChID, chapterAt(2)->ID());
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_EQ(found(), QStringList());
}

TEST_F(LostAndFoundTest, AFileBecomesTheFileOfANewSceneAndIsLeftAlone) {
  const QByteArray bytes = simpleRtf("A lamp was lit far out on the water, and nobody spoke of it.");
  qint32 scenes = 5;
  for (const auto& [file, title] : {std::pair{u"RTF_00077.rtf"_s, u"A lamp was lit far out on the water, and…"_s},
                                    {u"The lamp.rtf"_s, u"The lamp"_s},
                                    {u"Überfahrt.RTF"_s, u"Überfahrt"_s}}) {
    SCOPED_TRACE(file.toStdString());
    writeFile(rtf(file), bytes);
    ASSERT_TRUE(LostAndFound::putIntoChapter(only(), *chapterAt(1)));
    EXPECT_EQ(found(), QStringList());
    ASSERT_TRUE(g_Project->SaveQN4(true));
    reload();
    const auto scene = sceneAt(++scenes);
    EXPECT_EQ(scene->RTFFilename(), file);
    EXPECT_EQ(scene->Title, title);
    EXPECT_EQ(scene->Wordcount(), 14);
    EXPECT_EQ(scene->BelongsToChID, chapterAt(1)->ID());
    EXPECT_EQ(chapterAt(1)->SceneIndex(scene->ID()), chapterAt(1)->SceneCount());
    EXPECT_EQ(fileBytes(rtf(file)), bytes);
  }
}

TEST_F(LostAndFoundTest, AFileWhoseNameTheProjectCantHoldGivesItsTextToANewOne) {
  // Had the scene the file's own name, the project could not be opened again.
  qint32 scenes = 5;
  for (const QString& name : {u"Маяк.rtf"_s, u"a<b.rtf"_s, u"back\\slash.rtf"_s, u" blank.rtf"_s}) {
    SCOPED_TRACE(name.toStdString());
    writeFile(rtf(name), simpleRtf("kept"));
    ASSERT_TRUE(LostAndFound::putIntoChapter(only(), *chapterAt(1)));
    ASSERT_TRUE(g_Project->SaveQN4(false));
    reload();
    EXPECT_EQ(sceneAt(++scenes)->ConvertedToBodyText(), u"kept"_s);
    EXPECT_EQ(fileBytes(rtf(name)), simpleRtf("kept"));
    QFile::remove(rtf(name));
  }
}

TEST_F(LostAndFoundTest, WhatHasGoneOrCantBeReadChangesNothing) {
  chapterAt(1)->RemoveSceneByID(2);
  const LostText scene = only();
  g_Project->RemoveSceneByID(2);
  const LostText file = only();
  EXPECT_EQ(file.title, u"RTF_00002.rtf"_s);
  QFile::remove(rtf(u"RTF_00002.rtf"_s));
  for (const LostText& lost : {scene, file}) {
    EXPECT_FALSE(LostAndFound::glanceAt(lost));
    EXPECT_FALSE(LostAndFound::putIntoChapter(lost, *chapterAt(2)));
  }
  EXPECT_EQ(g_Project->SceneCount(), 4);
  EXPECT_EQ(chapterAt(2)->SceneCount(), 2);
}

TEST_F(LostAndFoundTest, OnlyASceneWhoseTextIsInItsFileMayBeRemoved) {
  EXPECT_TRUE(LostAndFound::mayBeRemoved(*sceneAt(1)));
  sceneAt(1)->setTextRTF(simpleRtf("not yet written"));
  EXPECT_FALSE(LostAndFound::mayBeRemoved(*sceneAt(1)));
  QFile::remove(rtf(u"RTF_00002.rtf"_s));
  EXPECT_FALSE(LostAndFound::mayBeRemoved(*sceneAt(2))) << "its file has gone";
  clsScene fresh;
  EXPECT_TRUE(LostAndFound::mayBeRemoved(fresh));
  fresh.setTextRTF(simpleRtf("typed"));
  EXPECT_FALSE(LostAndFound::mayBeRemoved(fresh));
}
