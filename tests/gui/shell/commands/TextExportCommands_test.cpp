// The book into a text file, from the menu.

#include "core/infra/FolderLock.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "core/persist/ProjectSaver.h"
#include "core/text/Rtf.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "support/FailingDisk.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class TextExportCommandsTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    startWith(smallProject());
  }
  /// The answers of an export of the manuscript.
  void expectManuscript(const QString& path, Answer summaries, Answer unused) {
    toolkit.expectFile(path);
    toolkit.expectBox(u"Save summaries to file as well?"_s, summaries);
    expectUnused(unused);
  }
  void expectUnused(Answer unused) { toolkit.expectBox(u"Include unused chapters and scenes?"_s, unused); }
  void exportDescriptions(const char* button) {
    const WhenModal whenUp([&](QWidget& form) {
      EXPECT_EQ(form.windowTitle(), u"Select the range of files"_s);
      childOf<QPushButton>(form, QString::fromLatin1(button)).click();
    });
    trigger("mnuExportDesc");
  }
};

TEST_F(TextExportCommandsTest, TheManuscriptGoesWhereItIsAskedFor) {
  const struct {
    const char* entry;
    QString title;
    QString filter;
    QString name;
  } cases[] = {{"mnuCombineFiles", u"Specify a .TXT file to export to"_s, u"*.txt"_s, u"ExportedProject.txt"_s},
               {"mnuExportToRTF", u"Specify an .rtf file to export to"_s, u"*.rtf"_s, u"ExportedProject.rtf"_s}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.entry);
    const QString path = g_Project->Path() + one.name;
    toolkit.expectFile({});
    trigger(one.entry);
    EXPECT_FALSE(QFile::exists(path));
    const FileQuestion& asked = toolkit.fileQuestions.last();
    EXPECT_EQ(asked.title, one.title);
    EXPECT_EQ(asked.filter, one.filter);
    EXPECT_EQ(asked.defaultName, one.name);
    EXPECT_EQ(asked.folder, g_Project->Path());
    QMap<bool, QString> texts;
    for (const bool all : {true, false}) {
      expectManuscript(path, all ? Answer::Yes : Answer::No, all ? Answer::Yes : Answer::No);
      trigger(one.entry);
      EXPECT_EQ(panel("numberfiles"), u"The book was exported to "_s + path);
      texts[all] = readRtf(fileBytes(path)).plainText();
    }
    EXPECT_EQ(toolkit.lastButtons, Buttons::YesNo);
    EXPECT_EQ(toolkit.pointer, Pointer::Normal);
    for (const QString& unused : {u"eleven twelve"_s, u"ten"_s, u"Departure 1"_s}) {
      EXPECT_TRUE(texts[true].contains(unused + u"\r\n"_s) || texts[true].endsWith(unused)) << unused;
      EXPECT_FALSE(texts[false].contains(u'\n' + unused)) << unused;
    }
    EXPECT_TRUE(texts[false].contains(u"one two three"_s));
  }
}

TEST_F(TextExportCommandsTest, TheOthersHaveTheirOwnNamesInTheBooksFolder) {
  sceneAt(1)->DescText = u"Пётр"_s;
  const QString own = g_Project->Path();
  toolkit.expectBox(u"Outline saved to "_s + own + u"auto_outline.txt"_s);
  trigger("mnuExportOutline");
  EXPECT_TRUE(fileBytes(own + u"auto_outline.txt"_s)
                  .startsWith("\xEF\xBB\xBF[chapter] Arrival.\r\n[scene] Arrival 1.\r\n" + u"Пётр"_s.toUtf8()));
  exportDescriptions("cmdCancel");
  EXPECT_FALSE(QFile::exists(own + u"Auto_Descriptions.txt"_s));
  toolkit.expectBox(u"Your summary was saved to "_s + own + u"Auto_Descriptions.txt"_s);
  exportDescriptions("cmdAll");
  EXPECT_TRUE(fileBytes(own + u"Auto_Descriptions.txt"_s).endsWith(" 3.1 Cut scenes 1\r\n\r\n\r\n\r\n"));
  const QByteArray used = "nnn nnn nnnnn\r\nnnnn nnnn\r\n\r\nnnn nnnnn nnnnn nnnn\r\n";
  for (const auto& [answer, text] :
       {std::pair(Answer::No, used + "\r\n"), std::pair(Answer::Yes, used + "nnn\r\n\r\nnnnnnn nnnnnn\r\n\r\n")}) {
    expectUnused(answer);
    toolkit.expectBox(u"Your Nano-obfusicated file has been saved to "_s + own + u"ExportedNanoText.txt"_s);
    trigger("mnuExportNano");
    EXPECT_EQ(fileBytes(own + u"ExportedNanoText.txt"_s), text);
  }
}

TEST_F(TextExportCommandsTest, WhatIsStoppedOrFailsLeavesTheFormerFileAndSaysSo) {
  const QString path = folder.path(u"Out.rtf"_s);
  const auto stop = [this] { toolkit.onYield = [this] { toolkit.pressStop(); }; };
  expectManuscript(path, Answer::No, Answer::No);
  stop();
  toolkit.expectBox(u"The export was stopped, and "_s + path + u" was not written."_s);
  trigger("mnuExportToRTF");
  EXPECT_FALSE(QFile::exists(path));
  EXPECT_FALSE(toolkit.askedWhileHeld);
  EXPECT_EQ(panel("numberfiles"), QString());
  writeFile(path, "former");
  expectManuscript(path, Answer::No, Answer::No);
  stop();
  toolkit.expectBox(u" The file that is there is the former one."_s);
  trigger("mnuExportToRTF");
  EXPECT_EQ(fileBytes(path), "former");
  expectManuscript(folder.path(u"Nowhere/Out.txt"_s), Answer::No, Answer::No);
  toolkit.expectBox(folder.path(u"Nowhere/Out.txt"_s) + u" could not be written.\n\n"_s);
  trigger("mnuCombineFiles");
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  const FailingDisk disk(100);
  expectManuscript(path, Answer::No, Answer::No);
  toolkit.expectBox(path + u" could not be written. The file that is there is the former one.\n\n"_s);
  trigger("mnuCombineFiles");
  EXPECT_EQ(fileBytes(path), "former");
}

TEST_F(TextExportCommandsTest, NoExportTakesThePlaceOfTheBook) {
  const QMap<QString, QByteArray> before = filesBelow(g_Project->Path());
  const QString path = folder.path(u"Out.rtf"_s);
  for (const QString& own : {g_Project->FileWithPath, sceneAt(1)->RTFFileWithPath()}) {
    toolkit.expectFile(own);
    toolkit.expectBox(own + u" is where the book itself is kept. Please choose another name or folder."_s);
    expectManuscript(path, Answer::No, Answer::No);
    trigger("mnuExportToRTF");
    EXPECT_EQ(filesBelow(g_Project->Path()), before);
    EXPECT_TRUE(QFile::remove(path));
  }
}

TEST_F(TextExportCommandsTest, ABookWithoutAPlaceOfItsOwnIsAskedForOne) {
  const QString path = folder.path(u"Elsewhere.txt"_s);
  const auto exportOutline = [&](const QString& inFolder) {
    toolkit.expectFile(path);
    toolkit.expectBox(u"Outline saved to "_s + path);
    trigger("mnuExportOutline");
    const FileQuestion asked = toolkit.fileQuestions.value(toolkit.fileQuestions.size() - 1);
    EXPECT_EQ(asked.defaultName, u"auto_outline.txt"_s);
    EXPECT_EQ(asked.folder, inFolder);
    EXPECT_TRUE(QFile::remove(path));
  };
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  const QString other = smallProject(u"Other"_s);
  const FolderLock elsewhere(QFileInfo(other).path());
  window().LoadProject(other, false);
  ASSERT_TRUE(g_Project->ReadOnly());
  exportOutline(g_Project->Path());
  g_Project->FileWithPath.clear();
  exportOutline({});
  toolkit.expectFile({});
  trigger("mnuExportNano");
}

TEST_F(TextExportCommandsTest, WhatAnEditorHoldsIsNotInIt) {
  window().EditSelectedScene();
  QTest::keyClicks(&childOf<QLineEdit>(openEditor(), u"txtTitle"_s), u"typed"_s);
  const QString out = folder.path(u"Out.txt"_s);
  expectManuscript(out, Answer::No, Answer::No);
  toolkit.expectBox(u"The book was exported to "_s + out +
                    u"\n\nWhat isn't saved yet in open editor windows is not in it."_s);
  trigger("mnuCombineFiles");
}

TEST_F(TextExportCommandsTest, TextsThatCouldNotBeReadAreNamed) {
  ASSERT_TRUE(QDir(folder.path()).mkdir(u"Other"_s));
  const QString single = folder.path(u"Other/Book.qnc4"_s);
  const QString out = folder.path(u"Out.txt"_s);
  ASSERT_TRUE(ProjectSaver(*g_Project).saveCopy(single));
  QByteArray book = fileBytes(single);
  // Of the first scene and of the fourth, which stays out.
  qsizetype text = 0;
  for (int scene = 1; scene <= 4; ++scene) {
    text = book.indexOf("<SCENERTF>", text) + 10;
    if (scene == 1 || scene == 4) {
      book.replace(text, book.indexOf("</SCENERTF>", text) - text, "?not Base64?");
    }
  }
  writeFile(single, book);
  toolkit.expectBox(u"IMPORTANT!"_s);
  toolkit.expectBox(u"The text of these scenes could not be read"_s);
  window().LoadProject(single, false);
  ASSERT_TRUE(sceneAt(1)->TextUnread() && sceneAt(4)->TextUnread());
  expectManuscript(out, Answer::No, Answer::No);
  toolkit.expectBox(u"The book was exported to "_s + out +
                    u"\n\nThe text of 1 scene could not be read when the book was opened, and is missing in the "
                    "file:\nArrival 1"_s);
  trigger("mnuCombineFiles");
}
