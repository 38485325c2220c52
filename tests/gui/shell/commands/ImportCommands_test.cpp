// What other programs wrote brought into the book, or in its place, from the main window's menu to the files.

#include "core/infra/FolderLock.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/clsChapter.h"
#include "core/model/clsCharacter.h"
#include "core/text/Rtf.h"
#include "gui/exchange/frmImportWIP.h"
#include "gui/shell/BackupTest.h"
#include "gui/shell/main/MainPanes.h"
#include "support/Archives.h"
#include "support/FailingDisk.h"
#include "support/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kSureOfWork =
    u"Importing a work in progress will erase everything in the current project. Are you sure?"_s;
const QString kSureOfScenes = u"Importing will erase everything in the current project. Are you sure?"_s;
const QString kAboutWork = u"A work in progress is an HTML, RTF or TXT file"_s;
const QString kAboutScenes = u"A suitable file will consist of separate paragraphs, one per scene."_s;

}  // namespace

class ImportTest : public BackupTest {
 protected:
  void SetUp() override {
    BackupTest::SetUp();
    startWith(project_);
    book_ = folder.path(u"book.rtf"_s);
    writeFile(book_,
              "{\\rtf1 By me\\par Chapter 7\\par one {\\i two}\\par * * *\\par three\\par CHAPTER 8\\par four\\par}");
    before_ = filesBelow(folder.path(u"Small"_s));
  }

  void open() {
    ASSERT_TRUE(soon([this] { return wizard_.isNull(); })) << "the one before goes";
    toolkit.expectBox(kSureOfWork, Answer::Yes);
    toolkit.expectBox(kAboutWork);
    trigger("mnuImportProject");
    wizard_ = &control<frmImportWIP>("frmImportWIP");
    ASSERT_TRUE(waitUntilActive(*wizard_));
  }
  template <class Control>
  Control& part(const char* name) {
    return childOf<Control>(required(wizard_, u"wizard"_s), QString::fromLatin1(name));
  }
  QString said(const char* label) { return part<QLabel>(label).text(); }
  /// To whichever control has the keyboard.
  void press(Qt::Key key) { QTest::keyClick(&required(wizard_->focusWidget(), u"focus"_s), key); }
  void type(const QString& text) { QTest::keyClicks(&required(wizard_->focusWidget(), u"focus"_s), text); }
  /// To the last step, with keys alone.
  void fillIn(const QString& file, const QString& project = {}) {
    open();
    type(file);
    press(Qt::Key_Return);
    if (!project.isEmpty()) {
      type(project);
    }
    press(Qt::Key_Return);
    ASSERT_EQ(said("lblStepNum"), u"Step 3"_s);
  }
  bool isAsItWas() const { return filesBelow(folder.path(u"Small"_s)) == before_; }
  static QStringList outline() {
    QStringList lines;
    for (const auto& chapter : g_Project->Chapters) {
      lines.append(chapter->Title);
      for (qint32 i = 1; i <= chapter->SceneCount(); ++i) {
        const auto scene = chapter->SceneByIndex(i);
        lines.append(scene->Title + u'=' + QString(scene->ConvertedToBodyText()).replace(u"\r\n"_s, u"|"_s));
      }
    }
    return lines;
  }

  const QStringList kImported{u"Chapter 1"_s, u"Scene 1=Chapter 7|one two"_s, u"Scene 2=three"_s, u"Chapter 2"_s,
                              u"Scene 1=CHAPTER 8|four"_s};
  QString book_;
  QMap<QString, QByteArray> before_;
  QPointer<frmImportWIP> wizard_;
};

TEST_F(ImportTest, EachStepChecksWhatItAsksForAndTheLastTellsWhatWillBeLost) {
  open();
  struct StepCase {
    const char* field;
    QList<std::pair<QString, QString>> refused;
    QString taken;
    const char* pick;
  };
  writeFile(folder.path(u"no.TXT"_s), "Just words");
  const StepCase cases[] = {{"txtWipFile",
                             {{u"  "_s, u"You must select an import file"_s},
                              {folder.path(u"book.doc"_s), u"Unsupported format."_s},
                              {folder.path(u"gone.html"_s), u"Your import file does not exist."_s}},
                             folder.path(u"no.TXT"_s),
                             "cmdPickWIP"},
                            {"txtProjFile",
                             {{u"  "_s, u"You must select a project file"_s},
                              {folder.path(u"Small.qnc4"_s), u"Unsupported format."_s},
                              {below(u"New.qn4"_s), u"There's already a project in that folder."_s}},
                             project_,
                             "cmdPickProj"}};
  for (const StepCase& expected : cases) {
    auto& field = part<QLineEdit>(expected.field);
    EXPECT_EQ(wizard_->focusWidget(), &field);
    const QString step = said("lblStepNum");
    for (const auto& [typed, complaint] : expected.refused) {
      field.setText(typed);
      toolkit.expectBox(complaint);
      press(Qt::Key_Return);
      EXPECT_EQ(said("lblStepNum"), step);
    }
    toolkit.expectFile({});
    part<QPushButton>(expected.pick).click();
    EXPECT_EQ(field.text(), expected.refused.last().first) << "nothing was chosen";
    toolkit.expectFile(expected.taken);
    part<QPushButton>(expected.pick).click();
    EXPECT_EQ(field.text(), expected.taken);
    press(Qt::Key_Return);
  }
  EXPECT_EQ(said("lblImportFile") + said("lblProjFile"), folder.path(u"no.TXT"_s) + project_);
  EXPECT_TRUE(said("lblFound").startsWith(u"No chapter heading was found in the file."_s));
  EXPECT_EQ(wizard_->focusWidget(), &part<QPushButton>("cmdBack"));
  EXPECT_TRUE(part<QPushButton>("cmdBack").isDefault());
  part<QPushButton>("cmdBack").click();
  EXPECT_TRUE(part<QPushButton>("cmdNext").isDefault());
  part<QPushButton>("cmdBack").click();
  part<QLineEdit>("txtWipFile").setText(book_);
  press(Qt::Key_Return);
  press(Qt::Key_Return);
  EXPECT_TRUE(said("lblFound").startsWith(u"Found: 2 chapters, 3 scenes, 8 words."_s));
}

TEST_F(ImportTest, WhereverItIsCancelledTheProjectIsAsItWas) {
  toolkit.expectBox(kSureOfWork, Answer::No);
  trigger("mnuImportProject");
  EXPECT_EQ(window().findChild<frmImportWIP*>(), nullptr);
  for (int step = 0; step < 3; ++step) {
    open();
    type(book_);
    for (int i = 0; i < step; ++i) {
      press(Qt::Key_Return);
    }
    step == 0 ? part<QPushButton>("cmdBack").click() : press(Qt::Key_Escape);
  }
  for (const bool goesOn : {false, true}) {
    toolkit.expectBox(kSureOfScenes, goesOn ? Answer::Yes : Answer::No);
    if (goesOn) {
      toolkit.expectBox(kAboutScenes);
      toolkit.expectFile({});
    }
    trigger("mnuImportSceneFile");
  }
  EXPECT_TRUE(isAsItWas());
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_EQ(list("ListChapters").rowCount(), 3);
  EXPECT_FALSE(QFile::exists(archive(u"_complete.zip"_s)));
}

TEST_F(ImportTest, TheManuscriptTakesThePlaceOfTheBookBehindABackup) {
  // What is typed in the main window and not saved yet is in the backup.
  sceneAt(1)->setTextRTF(simpleRtf("typed last"));
  window().ProjectChanged = true;
  const QString former = sceneAt(1)->RTFFilename();
  fillIn(book_);
  press(Qt::Key_Return);
  EXPECT_EQ(outline(), kImported);
  EXPECT_TRUE(readRtf(sceneAt(1)->TextRTF()).charFormatAt(15).italic);
  EXPECT_EQ(g_Project->FileWithPath, project_);
  EXPECT_EQ(g_Project->Title + g_Project->AuthorName, u"Imported ProjectAuthor's Name"_s);
  EXPECT_EQ(list("ListChapters").rowCount(), 2);
  EXPECT_EQ(list("ListScenes").rowCount(), 2);
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_TRUE(soon([this] { return wizard_.isNull(); }));
  const QString packed = archive(u"_complete.zip"_s);
  EXPECT_TRUE(membersOf(packed).value(u"RTF/"_s + former).contains("typed last"));
  EXPECT_TRUE(membersOf(packed).contains(u"Small.qn4"_s));
  EXPECT_TRUE(Settings().IsSettingPresent(u"LastFullBackup"_s));
  EXPECT_TRUE(fileBytes(below(u"RTF/"_s + former)).contains("typed last")) << "the files of the texts stay";
  endProgram();
  startWith(project_);
  EXPECT_EQ(outline(), kImported);
  EXPECT_EQ(sceneAt(2)->ViewPointChar()->Title(), u"Unnamed"_s);
  EXPECT_EQ(g_Project->CharCount(), 1);
}

TEST_F(ImportTest, AnotherProjectIsOpenedAndANewOneIsMade) {
  const QMap<QString, QByteArray> small = filesBelow(folder.path(u"Small"_s));
  endProgram();
  const QString other = smallProject(u"Other"_s);
  startWith(project_);
  fillIn(book_, other);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->FileWithPath, other);
  EXPECT_EQ(outline(), kImported);
  EXPECT_EQ(filesBelow(folder.path(u"Small"_s)), small);
  EXPECT_TRUE(QDir(folder.path(u"Other/Autobackups"_s)).exists());
  const QString fresh = folder.path(u"Fresh/Fresh.qn4"_s);
  fillIn(book_, fresh);
  EXPECT_EQ(said("lblErased"), u"The project file isn't there yet: a new project is made."_s);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->FileWithPath, fresh);
  EXPECT_EQ(outline(), kImported);
  EXPECT_TRUE(QFile::exists(fresh));
}

TEST_F(ImportTest, WithoutAWholeBackupTheWriterIsAsked) {
  const QString question = u"so what is erased could not be brought back.\n\n"_s;
  QFile::remove(sceneAt(2)->RTFFileWithPath());
  before_ = filesBelow(folder.path(u"Small"_s));
  fillIn(book_);
  toolkit.expectBox(question, Answer::No);
  press(Qt::Key_Return);
  EXPECT_EQ(toolkit.lastButtons, Buttons::NoUnlessYes);
  ASSERT_TRUE(isAsItWas());
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_TRUE(wizard_->isVisible()) << "the answers stay";
  ASSERT_TRUE(waitUntilActive(*wizard_));
  toolkit.expectBox(question, Answer::Yes);
  press(Qt::Key_Return);
  EXPECT_EQ(outline(), kImported);
}

TEST_F(ImportTest, AnotherProjectThatCanNotBePackedStaysAndTheFormerOneIsOpenAgain) {
  endProgram();
  const QString other = smallProject(u"Other"_s);
  startWith(project_);
  writeFile(folder.path(u"Other/Autobackups"_s), "in the way");
  const QMap<QString, QByteArray> files = filesBelow(folder.path(u"Other"_s));
  fillIn(book_, other);
  toolkit.expectBox(u"Import all the same?"_s, Answer::No);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->FileWithPath, project_);
  EXPECT_EQ(filesBelow(folder.path(u"Other"_s)), files);
  EXPECT_EQ(list("ListChapters").rowCount(), 3);
}

// What it knows only in memory too.
TEST_F(ImportTest, ABookThatIsOpenReadOnlyComesBackAsItWasChanged) {
  endProgram();
  const QString other = smallProject(u"Other"_s);
  const FolderLock elsewhere(folder.path(u"Small"_s));
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  startWith(project_);
  sceneAt(1)->Title = u"Changed and not saved"_s;
  g_Project->MarkEdited();
  writeFile(folder.path(u"Other/Autobackups"_s), "in the way");
  fillIn(book_, other);
  toolkit.expectChoice(u"The book was opened read-only, so what you have changed"_s, u"Leave it unsaved"_s);
  toolkit.expectBox(u"Import all the same?"_s, Answer::No);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->FileWithPath, project_);
  EXPECT_EQ(sceneAt(1)->Title, u"Changed and not saved"_s);
  EXPECT_TRUE(g_Project->HoldsUnsaved() && g_Project->ReadOnly());
  EXPECT_EQ(list("ListChapters").rowCount(), 3);
}

// Its save is one like any other.
TEST_F(ImportTest, WhatTheSaveWouldReplaceIsAskedAbout) {
  fillIn(book_);
  writeFile(project_, fileBytes(project_).replace("Arrival", "Theirs!"));
  const QByteArray theirs = fileBytes(project_);
  toolkit.expectChoice(u"Another program has changed what you are about to save"_s, u"Keep both"_s);
  press(Qt::Key_Return);
  EXPECT_EQ(outline(), kImported);
  EXPECT_EQ(filesBelow(folder.path(u"Small"_s)).values().count(theirs), 1);
  QFile::remove(below(u"Small (conflict "_s + Clock::today().toString(Qt::ISODate) + u").qn4"_s));
  const QString single = below(u"Small.qnc4"_s);
  g_Project->FileWithPath = single;
  ASSERT_TRUE(g_Project->SaveQNC4(false));
  endProgram();
  toolkit.expectBox(u"You've loaded an all-in-one"_s);
  startWith(single);
  const QByteArray former = fileBytes(project_);
  const QString ideas = folder.path(u"ideas.txt"_s);
  writeFile(ideas, "One.\n");
  toolkit.expectBox(kSureOfScenes, Answer::Yes);
  toolkit.expectBox(kAboutScenes);
  toolkit.expectFile(ideas);
  toolkit.expectChoice(u"You opened Small.qnc4"_s, {});
  toolkit.expectBox(u"What was imported could not be saved whole. What the project held before is in\n"_s);
  trigger("mnuImportSceneFile");
  EXPECT_EQ(fileBytes(project_), former);
  EXPECT_EQ(g_Project->SceneCount(), 1);
  EXPECT_TRUE(window().isWindowModified());
  toolkit.expectChoice(u"You opened Small.qnc4"_s, u"Replace"_s);
  trigger("mnuSaveProj");
  EXPECT_NE(fileBytes(project_), former);
}

TEST_F(ImportTest, AFailedSaveIsToldAndLeavesTheFormerBookOnTheDisk) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  fillIn(book_);
  const QByteArray former = fileBytes(project_);
  std::optional<FailingDisk> full;
  toolkit.onYield = [&] { full.emplace(); };
  // From here on nothing can be written, the backup neither.
  toolkit.expectBox(u"Import all the same?"_s, Answer::Yes);
  toolkit.expectErrorReport(u"Unable to scene contents"_s);
  toolkit.expectFile({});
  toolkit.expectBox(u"No project file specified. Save cancelled."_s);
  press(Qt::Key_Return);
  full.reset();
  EXPECT_EQ(fileBytes(project_), former);
  EXPECT_EQ(outline(), kImported);
  EXPECT_TRUE(window().isWindowModified());
  trigger("mnuSaveProj");
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_NE(fileBytes(project_), former);
}

TEST_F(ImportTest, WhatCanNotBeReadIsTold) {
  const QString huge = folder.path(u"huge.txt"_s);
  QFile file(huge);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.resize(qint64{3} << 30)) << "beyond all measure, without a byte";
  open();
  type(huge);
  toolkit.expectBox(u"Your import file can't be read.\n\n"_s);
  press(Qt::Key_Return);
  EXPECT_EQ(said("lblStepNum"), u"Step 1"_s);
  press(Qt::Key_Escape);
  toolkit.expectBox(kSureOfScenes, Answer::Yes);
  toolkit.expectBox(kAboutScenes);
  toolkit.expectFile(huge);
  toolkit.expectBox(u"The file can't be read. Nothing was imported.\n\n"_s);
  trigger("mnuImportSceneFile");
  EXPECT_TRUE(isAsItWas());
  toolkit.expectBox(u"Each becomes a new scene"_s);
  toolkit.expectFile(huge);
  toolkit.expectBox(u"These files could not be read, so their scenes are empty:\n"_s);
  trigger("mnuImportScene");
  EXPECT_EQ(sceneAt(6)->Title + sceneAt(6)->ConvertedToBodyText(), u"huge"_s);
  EXPECT_FALSE(toolkit.askedWhileHeld);
}

TEST_F(ImportTest, NothingTakesThePlaceOfABookThatIsOpenReadOnly) {
  endProgram();
  const FolderLock elsewhere(folder.path(u"Small"_s));
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  startWith(project_);
  fillIn(book_);
  toolkit.expectBox(u"The book was opened read-only, so nothing is saved to its place."_s);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->SceneCount(), 5);
  EXPECT_TRUE(wizard_->isVisible());
}

TEST_F(ImportTest, AListOfScenesTakesThePlaceOfTheBook) {
  const QString ideas = folder.path(u"ideas.txt"_s);
  writeFile(ideas, "One. Two!\n\nWow\xE9! Really.\nNone\n");
  toolkit.expectBox(kSureOfScenes, Answer::Yes);
  toolkit.expectBox(kAboutScenes);
  toolkit.expectFile(ideas);
  trigger("mnuImportSceneFile");
  EXPECT_EQ(outline().join(u' '), u"Chapter 1 One.= Wow\u00E9!= Chapter 2 No short description="_s);
  EXPECT_EQ(sceneAt(2)->DescText, u"Wow\u00E9! Really."_s);
  EXPECT_EQ(list("ListChapters").rowCount(), 2);
  EXPECT_TRUE(QFile::exists(archive(u"_complete.zip"_s)));
  endProgram();
  startWith(project_);
  EXPECT_EQ(g_Project->SceneCount(), 3);
}

TEST_F(ImportTest, ReadingCanBeStopped) {
  const QString big = folder.path(u"big.txt"_s);
  writeFile(big, QByteArray("word ").repeated(4 << 20));
  open();
  type(big);
  toolkit.onYield = [this] { toolkit.pressStop(); };
  press(Qt::Key_Return);
  EXPECT_EQ(said("lblStepNum"), u"Step 1"_s);
  EXPECT_TRUE(isAsItWas());
  EXPECT_EQ(g_Project->SceneCount(), 5);
}

TEST_F(ImportTest, FilesBecomeScenesOfTheChapter) {
  const QByteArray rtf = "{\\rtf1 {\\b bold}\\par}";
  QStringList files;
  const std::pair<QString, QByteArray> contents[] = {
      {u"Part 10.rtf"_s, rtf}, {u"Part 2.txt"_s, "caf\xE9\nend\n"}, {u"Report.doc"_s, QByteArray("\xD0\xCF\0\0", 4)}};
  for (const auto& [name, bytes] : contents) {
    files.append(folder.path(name));
    writeFile(files.last(), bytes);
  }
  files.append(folder.path(u"gone.txt"_s));
  const qint32 scenes = chapterAt(1)->SceneCount();
  toolkit.expectBox(u"(Note that the original files will be copied into the project, and left untouched.)"_s);
  toolkit.expectFile(files.join(u'\n'));
  toolkit.expectBox(u"These files are neither text nor RTF, and were left out:\nReport.doc"_s);
  trigger("mnuImportScene");
  ASSERT_EQ(chapterAt(1)->SceneCount(), scenes + 2);
  const auto text = chapterAt(1)->SceneByIndex(scenes + 1);
  const auto rich = chapterAt(1)->SceneByIndex(scenes + 2);
  EXPECT_EQ(text->Title + u'/' + rich->Title, u"Part 2/Part 10"_s);
  EXPECT_EQ(text->ConvertedToBodyText(), u"caf\u00E9\r\nend"_s);
  EXPECT_EQ(fileBytes(rich->RTFFileWithPath()), rtf);
  EXPECT_EQ(rich->BelongsToChID, chapterAt(1)->ID());
  EXPECT_EQ(list("ListScenes").rowCount(), scenes + 2);
  EXPECT_TRUE(fileBytes(project_).contains("Part%2010"));
  EXPECT_FALSE(toolkit.askedWhileHeld);
  window().panes().ClearLists();
  toolkit.expectBox(u"Select a chapter first"_s);
  trigger("mnuImportScene");
}
