// What becomes of the project's settings, through the main window.

#include "core/infra/FolderLock.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/windows/frmEditProject.h"
#include "support/FailingDisk.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"
#include "support/WaitFor.h"

#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

class SettingsCommandsTest : public ShellTest {
 protected:
  void SetUp() override {
    ShellTest::SetUp();
    path_ = smallProject();
    startWith(path_);
  }

  frmEditProject& openForm() {
    trigger("mnuSettings");
    auto& form = control<frmEditProject>("frmEditProject");
    EXPECT_TRUE(waitUntilActive(form));
    return form;
  }
  static void press(frmEditProject& form, const char* name) {
    QTest::mouseClick(&childOf<QPushButton>(form, QString::fromLatin1(name)), Qt::LeftButton);
  }
  static void write(frmEditProject& form, const char* field, const QString& text) {
    childOf<QLineEdit>(form, QString::fromLatin1(field)).setText(text);
  }
  static void writeLines(frmEditProject& form, const char* field, const QString& text) {
    auto& memo = childOf<QPlainTextEdit>(form, QString::fromLatin1(field));
    memo.selectAll();
    memo.insertPlainText(text);
  }

  QString path_;
};

TEST_F(SettingsCommandsTest, SavingStoresAllAndWritesTheBook) {
  const QPointer<frmEditProject> form = &openForm();
  EXPECT_EQ(QApplication::activeModalWidget(), form);
  write(*form, "txtTitle", u"The Pier"_s);
  write(*form, "txtAuthor", u"Zoë M."_s);
  write(*form, "txtField(2)", u"Größe"_s);
  writeLines(*form, "txtBio", u"One.\nTwo."_s);
  writeLines(*form, "txtDesc", u"Short."_s);
  const Deadlines deadlines = form->settings().deadlines;
  // As a message loop does while the book is saved: what is to be deleted goes.
  toolkit.onYield = [] { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); };
  press(*form, "cmdSave");
  EXPECT_EQ(g_Project->Title, u"The Pier"_s);
  EXPECT_EQ(g_Project->AuthorName, u"Zoë M."_s);
  EXPECT_EQ(g_Project->AuthorBio, u"One.\r\nTwo."_s);
  EXPECT_EQ(g_Project->DescText, u"Short."_s);
  EXPECT_EQ(g_Project->FieldTitle(2), u"Größe"_s);
  EXPECT_EQ(Deadlines::of(*g_Project), deadlines);
  EXPECT_NE(g_Project->DeadlineDate(5), 0);
  EXPECT_EQ(control<QLineEdit>("txtTitle").text(), u"The Pier"_s);
  EXPECT_EQ(control<QLineEdit>("txtAuthor").text(), u"Zoë M."_s);
  EXPECT_TRUE(window().windowTitle().startsWith(u"The Pier"_s));
  EXPECT_TRUE(fileBytes(path_).contains("<Title>The%20Pier</Title>"));
  EXPECT_FALSE(window().ProjectChanged || window().isWindowModified());
  EXPECT_TRUE(soon([&] { return form.isNull(); }));
}

TEST_F(SettingsCommandsTest, ACancelledWindowLeavesTheProjectAsItWas) {
  const auto files = filesBelow(folder.path());
  const ProjectSettings before = ProjectSettings::of(*g_Project);
  frmEditProject& form = openForm();
  write(form, "txtTitle", u"The Pier"_s);
  {
    const WhenModal picker(
        [](QWidget& window) { QTest::keyClick(&childOf<QLineEdit>(window, u"txtYear"_s), Qt::Key_F10); });
    childOf<QPushButton>(form, u"lblDeadline(1)"_s).click();
  }
  toolkit.expectBox(u"Discard the changes?"_s, Answer::Yes);
  press(form, "cmdCancel");
  EXPECT_EQ(ProjectSettings::of(*g_Project), before);
  EXPECT_EQ(control<QLineEdit>("txtTitle").text(), u"A small book"_s);
  EXPECT_FALSE(window().ProjectChanged);
  EXPECT_EQ(filesBelow(folder.path()), files);
}

TEST_F(SettingsCommandsTest, AReadOnlyBookKeepsTheChangeInMemoryAndAsksWhenItIsLeft) {
  endProgram();
  const FolderLock elsewhere(folder.path(u"Small"_s));
  const QByteArray before = fileBytes(path_);
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  startWith(path_);
  frmEditProject& form = openForm();
  write(form, "txtTitle", u"Mine"_s);
  press(form, "cmdSave");
  EXPECT_EQ(g_Project->Title, u"Mine"_s);
  EXPECT_TRUE(window().ProjectChanged && window().isWindowModified());
  EXPECT_EQ(panel("numberfiles"), u"The book was opened read-only: the settings are changed, but not saved."_s);
  const QString own = folder.path(u"own/Own.qn4"_s);
  toolkit.expectChoice(u"isn't saved"_s, u"Save under a new name"_s);
  toolkit.expectFile(own);
  trigger("mnuCloseProject");
  EXPECT_EQ(fileBytes(path_), before);
  EXPECT_TRUE(fileBytes(own).contains("<Title>Mine</Title>"));
}

// Such a book has nothing else that would tell of what is missing in its file.
TEST_F(SettingsCommandsTest, SettingsOfAnEmptyBookWhoseSaveWasGivenUpAreSavedWhenItIsLeft) {
  if (!FailingDisk::available()) {
    GTEST_SKIP();
  }
  const QString path = folder.path(u"New/Fresh.qn4"_s);
  toolkit.expectFile(path);
  trigger("mnuNewProj");
  frmEditProject& form = openForm();
  writeLines(form, "txtBio", u"Grown"_s);
  FailingDisk disk(100);
  toolkit.expectBox(u"Unable to "_s);
  toolkit.expectFile({});
  toolkit.expectBox(u"No project file specified. Save cancelled."_s);
  press(form, "cmdSave");
  EXPECT_EQ(g_Project->AuthorBio, u"Grown"_s);
  EXPECT_TRUE(window().ProjectChanged && window().isWindowModified());
  disk.clear();
  trigger("mnuCloseProject");
  EXPECT_TRUE(fileBytes(path).contains("<Bio>Grown</Bio>"));
}
