// The book as a page, and the log of its progress, from the menu to the files.

#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/MainWindow.h"
#include "support/ModalHelper.h"
#include "support/SampleProject.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

class HtmlExportTest : public ShellTest {
 protected:
  /// Chooses the entry and takes all chapters.
  void exportAll() {
    const WhenModal pick([](QWidget& form) { childOf<QPushButton>(form, u"cmdAll"_s).click(); });
    trigger("mnuExportHTML");
  }
};

}  // namespace

TEST_F(HtmlExportTest, TheFileIsWrittenWholeOrNotAtAll) {
  startWith(smallProject());
  const QString page = folder.path(u"page.html"_s);
  toolkit.expectFile(folder.path(u"page"_s));
  exportAll();
  EXPECT_TRUE(fileBytes(page).contains("<B>Departure</B>") && fileBytes(page).endsWith("</BODY></HTML>\r\n"));
  EXPECT_EQ(toolkit.fileQuestions.back().title, u"Enter a filename"_s);
  EXPECT_EQ(toolkit.fileQuestions.back().filter, u"*.HTML;*.HTM;*.PLHTM"_s);

  writeFile(page, "mine");
  toolkit.expectFile(folder.path(u"page"_s));
  toolkit.expectBox(u"page.html is there already. Do you want to replace it?"_s, Answer::No);
  toolkit.expectFile(QString());
  exportAll();
  EXPECT_EQ(fileBytes(page), "mine");

  toolkit.expectFile(page);
  toolkit.expectBox(u"The export was stopped"_s);
  toolkit.onYield = [this] { toolkit.pressStop(); };
  exportAll();
  EXPECT_EQ(fileBytes(page), "mine");

  toolkit.expectFile(folder.path(u"nowhere/page.html"_s));
  toolkit.expectBox(u"Couldn't open output file."_s);
  exportAll();
}

TEST_F(HtmlExportTest, ASaveLogsTheProgressAndAsksAboutAScriptOnceItIsOver) {
  const QString project = smallProject();
  startWith(project);
  const QString logs = QFileInfo(project).path() + u"/Logs/"_s;
  trigger("mnuSaveProj");
  EXPECT_TRUE(QFile::exists(logs));
  writeFile(logs + u"copyto.sh"_s, "#!/bin/sh\necho\n");
  writeFile(logs + u"WebTemplate.txt"_s, "page");
  toolkit.expectBox(u"publishing script"_s, Answer::Yes);
  bool wasBusy = true;
  toolkit.onBox = [&wasBusy] { wasBusy = g_Project->IsBusy(); };
  trigger("mnuSaveProj");
  EXPECT_TRUE(soon([this] { return toolkit.programsRun.size() == 1; }));
  EXPECT_FALSE(wasBusy);
  EXPECT_EQ(fileBytes(logs + u"index.html"_s), "page");
  trigger("mnuSaveProj");
  EXPECT_EQ(toolkit.programsRun.size(), 2);

  // The question is about the book that was saved, not about one that was opened behind.
  QDir().mkpath(folder.path(u"Other/Logs"_s));
  for (const QString& script : {logs + u"copyto.sh"_s, folder.path(u"Other/Logs/copyto.sh"_s)}) {
    writeFile(script, "#!/bin/sh\necho another\n");
  }
  trigger("mnuSaveProj");
  const QString saved = std::exchange(g_Project->FileWithPath, folder.path(u"Other/Other.qn4"_s));
  QCoreApplication::processEvents();
  g_Project->FileWithPath = saved;
}
