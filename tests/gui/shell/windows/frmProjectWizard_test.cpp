// The wizard gone through as a writer does, and the book that comes of it.

#include "gui/shell/windows/frmProjectWizard.h"

#include "core/infra/Clock.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "core/model/clsScene.h"
#include "gui/editor/frmEditor.h"
#include "gui/shell/MainWindow.h"
#include "support/FailingDisk.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString kQuestion = u"The project path does not exist. Do you want to create it?"_s;
const QString kDone = u"Now add chapters, characters and scenes to the project."_s;
const QString kExists =
    u"The project filename already exists. Do you want to overwrite it?\n(This won't delete existing chapters or "
    "scenes in this folder, just the project file)"_s;

}  // namespace

class ProjectWizard : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    old_ = smallProject();
    startWith(old_);
  }

  void open() {
    ASSERT_TRUE(soon([this] { return wizard_.isNull(); })) << "the one before goes";
    trigger("mnuProjectGen");
    wizard_ = &control<frmProjectWizard>("frmProjectWizard");
    ASSERT_TRUE(waitUntilActive(*wizard_));
  }
  frmProjectWizard& wizard() const { return required(wizard_, u"wizard"_s); }
  template <class Control>
  Control& part(const char* name) const {
    return childOf<Control>(wizard(), QString::fromLatin1(name));
  }
  QLineEdit& field(const char* name) const { return part<QLineEdit>(name); }
  /// To whichever control has the keyboard.
  void press(Qt::Key key) { QTest::keyClick(&required(wizard().focusWidget(), u"focus"_s), key); }
  void type(const QString& text) { QTest::keyClicks(&required(wizard().focusWidget(), u"focus"_s), text); }

  /// From the first page to the last, with keys alone. The folder's questions are the caller's.
  void fillIn(const QString& title, const QString& path) {
    open();
    press(Qt::Key_Return);
    type(title);
    press(Qt::Key_Return);
    type(u"A. N. Emuse"_s);
    press(Qt::Key_Return);
    type(path);
    press(Qt::Key_Return);
  }
  /// The folder is made when all is done.
  void fillInNew(const QString& title, const QString& folderName) {
    toolkit.expectBox(kQuestion, Answer::Yes);
    fillIn(title, folder.path(folderName));
    ASSERT_EQ(wizard().CurrentPage, 4);
  }

  QString old_;
  QPointer<frmProjectWizard> wizard_;
};

TEST_F(ProjectWizard, EachPageAsksForOneThingAndChecksIt) {
  open();
  press(Qt::Key_Return);
  struct PageCase {
    const char* field;
    const char* complaint;
  };
  const PageCase cases[] = {{"txtProjTitle", "Please specify a project title"},
                            {"txtAuthor", "Please specify the author's name"},
                            {"txtProjectpath", "Please specify a path to store the project in"}};
  qint16 page = 0;
  for (const PageCase& expected : cases) {
    EXPECT_EQ(wizard().CurrentPage, ++page);
    EXPECT_EQ(wizard().focusWidget(), &field(expected.field));
    field(expected.field).setText(u"  "_s);
    toolkit.expectBox(QString::fromLatin1(expected.complaint));
    press(Qt::Key_Return);
    EXPECT_EQ(wizard().CurrentPage, page);
    field(expected.field).setText(u' ' + folder.path() + u"  "_s);
    press(Qt::Key_Return);
  }
  EXPECT_EQ(wizard().CurrentPage, 4);
  EXPECT_EQ(wizard().book().title, folder.path());
  press(Qt::Key_Backtab);
  EXPECT_EQ(wizard().focusWidget(), &part<QPushButton>("cmdBack"));
  for (int i = 0; i < 4; ++i) {
    QTest::mouseClick(&part<QPushButton>("cmdBack"), Qt::LeftButton);
  }
  EXPECT_EQ(wizard().focusWidget(), &part<QPushButton>("cmdNext"));
  EXPECT_FALSE(part<QPushButton>("cmdBack").isVisible());
}

TEST_F(ProjectWizard, APathThatCannotBeTakenKeepsTheWriterOnItsPage) {
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"Taken/rtf"_s));
  writeFile(folder.path(u"file"_s), {});
  toolkit.expectBox(kQuestion, Answer::No);
  fillIn(u"Title"_s, folder.path(u"New"_s));
  EXPECT_EQ(wizard().CurrentPage, 3);
  EXPECT_EQ(field("txtProjectpath").text(), folder.path(u"New"_s));
  field("txtProjectpath").setText(folder.path(u"Taken"_s));
  toolkit.expectBox(u"There's already a project in that folder. Please choose another location."_s);
  press(Qt::Key_Return);
  EXPECT_EQ(wizard().CurrentPage, 3);
  field("txtProjectpath").setText(folder.path(u"file/New"_s));
  toolkit.expectBox(kQuestion, Answer::Yes);
  toolkit.expectBox(u"Unable to create project folder. Please choose another location."_s);
  press(Qt::Key_Return);
  EXPECT_EQ(wizard().CurrentPage, 3);
  EXPECT_EQ(wizard().focusWidget(), &field("txtProjectpath"));
}

TEST_F(ProjectWizard, CancelledAtTheEndItLeavesNothingBehind) {
  control<QLineEdit>("txtTitle").setText(u"Not saved yet"_s);
  fillInNew(u"New one"_s, u"a/b"_s);
  // Once is enough.
  QTest::mouseClick(&part<QPushButton>("cmdBack"), Qt::LeftButton);
  EXPECT_EQ(field("txtProjectpath").text(), folder.path(u"a/b/"_s));
  press(Qt::Key_Return);
  EXPECT_EQ(wizard().CurrentPage, 4);
  const QPointer<frmProjectWizard> shown = wizard_;
  bool cancelled = false;
  QObject::connect(shown, &QDialog::rejected, shown, [&] { cancelled = shown->Cancelled; });
  press(Qt::Key_Escape);
  EXPECT_TRUE(cancelled);
  EXPECT_TRUE(soon([&] { return shown.isNull(); }));
  EXPECT_FALSE(QDir(folder.path(u"a"_s)).exists());
  EXPECT_EQ(g_Project->FileWithPath, old_);
  EXPECT_EQ(g_Project->Title, u"Not saved yet"_s);
  EXPECT_TRUE(window().ProjectChanged);
}

TEST_F(ProjectWizard, TheBookComesInThePlaceOfTheOldOneWhichIsSaved) {
  control<QLineEdit>("txtTitle").setText(u"Changed"_s);
  fillInNew(u"  War/Peace "_s, u"new/book"_s);
  const QString path = folder.path(u"new/book/War Peace.qn4"_s);
  part<QPlainTextEdit>("txtSummary").setFocus();
  toolkit.expectBox(kDone);
  press(Qt::Key_Return);
  EXPECT_TRUE(fileBytes(old_).contains("<Title>Changed</Title>"));
  EXPECT_EQ(g_Project->FileWithPath, path);
  EXPECT_TRUE(fileBytes(path).contains("<AuthorName>A.%20N.%20Emuse</AuthorName>"));
  EXPECT_EQ(control<QLineEdit>("txtTitle").text(), u"War/Peace"_s);
  EXPECT_EQ(control<QLineEdit>("txtAuthor").text(), u"A. N. Emuse"_s);
  EXPECT_EQ(list("ListChapters").rowCount(), 0);
  EXPECT_TRUE(isEnabled("mnuSaveProj"));
  EXPECT_FALSE(window().isWindowModified());
  EXPECT_EQ(Settings().sGet(u"Recent0"_s).toString(), path);
  EXPECT_EQ(Settings().sGet(u"LastProjectFile"_s).toString(), path);
}

TEST_F(ProjectWizard, AFileThatIsThereIsReplacedOnlyWhenTheWriterSaysSo) {
  Clock::set(QDateTime(QDate(2026, 3, 15), QTime(0, 1, 5)));
  QDir(folder.path()).mkdir(u"There"_s);
  const QString path = folder.path(u"There/Title.qn4"_s);
  writeFile(path, "another book");
  fillIn(u"Title"_s, folder.path(u"There"_s));
  EXPECT_FALSE(part<QLabel>("lblFileName").isVisible());
  toolkit.expectBox(kExists, Answer::No);
  toolkit.expectBox(kDone);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->FileWithPath, folder.path(u"There/Title-65.qn4"_s));
  EXPECT_EQ(fileBytes(path), "another book");
  EXPECT_TRUE(QFile::exists(g_Project->FileWithPath));

  ASSERT_TRUE(QDir(folder.path(u"There/RTF"_s)).removeRecursively());
  fillIn(u"Title"_s, folder.path(u"There"_s));
  toolkit.expectBox(kExists, Answer::Yes);
  toolkit.expectBox(kDone);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->FileWithPath, path);
  EXPECT_TRUE(fileBytes(path).contains("<Title>Title</Title>"));
}

TEST_F(ProjectWizard, WhenTheFolderCannotBeMadeInTheEndTheAnswersStay) {
  fillInNew(u"Title"_s, u"a/b"_s);
  writeFile(folder.path(u"a"_s), "in the way");
  toolkit.expectBox(u"Unable to create project folder. Please choose another location."_s);
  press(Qt::Key_Return);
  EXPECT_EQ(wizard().CurrentPage, 3);
  EXPECT_EQ(field("txtProjTitle").text(), u"Title"_s);
  EXPECT_EQ(g_Project->FileWithPath, old_);
  QFile::remove(folder.path(u"a"_s));
  press(Qt::Key_Return);
  toolkit.expectBox(kDone);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->FileWithPath, folder.path(u"a/b/Title.qn4"_s));
}

TEST_F(ProjectWizard, ASaveThatFailsKeepsTheNewBookInMemory) {
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"There/Title.qn4"_s));
  fillIn(u"Title"_s, folder.path(u"There"_s));
  toolkit.expectBox(u"Unable to save project. Please use Save As and choose a different location."_s);
  toolkit.expectFile({});
  toolkit.expectBox(u"No project file specified. Save cancelled."_s);
  press(Qt::Key_Return);
  EXPECT_EQ(control<QLineEdit>("txtTitle").text(), u"Title"_s);
  EXPECT_TRUE(isEnabled("mnuSaveProj"));
  EXPECT_TRUE(window().ProjectChanged);
  EXPECT_NE(Settings().sGet(u"Recent0"_s).toString(), g_Project->FileWithPath);
}

TEST_F(ProjectWizard, ABookThatCannotBeSavedStaysWhenTheWriterWantsIt) {
  const QByteArray text = simpleRtf(QByteArray("not lost ").repeated(20000));
  g_Project->SceneByID(1)->setTextRTF(text);
  fillInNew(u"Title"_s, u"new"_s);
  const FailingDisk disk(100000);
  toolkit.expectBox(u"The project could not be saved whole."_s, Answer::No);
  press(Qt::Key_Return);
  EXPECT_EQ(g_Project->FileWithPath, old_);
  EXPECT_EQ(g_Project->Title, u"A small book"_s);
  EXPECT_EQ(g_Project->SceneByID(1)->TextRTF(), text);
}

TEST_F(ProjectWizard, IsRefusedWhileASceneIsOpen) {
  window().EditSelectedScene();
  toolkit.expectBox(u"Please close all editor windows first"_s);
  trigger("mnuProjectGen");
  EXPECT_EQ(window().findChild<frmProjectWizard*>(), nullptr);
}
