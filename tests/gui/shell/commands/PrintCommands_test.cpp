// Reports from the menu to the printer.

#include "core/infra/FolderLock.h"
#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/MainWindow.h"
#include "gui/shell/windows/frmOverview.h"
#include "support/ModalHelper.h"
#include "support/PrintedPages.h"
#include "support/SampleProject.h"
#include "support/SquareLetters.h"

#include <QCheckBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

class PrintCommandsTest : public ShellTest {
 protected:
  /// Chooses the entry and takes all chapters and what the printer window offers, where these windows come.
  void print(const char* entry, bool picks, bool prints, const WhenModal::Act& inPrinterWindow = {}) {
    std::vector<std::unique_ptr<WhenModal>> windows;
    const WhenModal::Act setUp = [&](QWidget& form) {
      prompt_ = childOf<QLabel>(form, u"lblTitle"_s).text();
      if (inPrinterWindow) {
        inPrinterWindow(form);
      }
      childOf<QPushButton>(form, u"cmdOk"_s).click();
    };
    const WhenModal::Act pick = [&](QWidget& form) {
      // It goes before the next window comes.
      if (prints) {
        windows.push_back(std::make_unique<WhenModal>(setUp));
      }
      childOf<QPushButton>(form, u"cmdAll"_s).click();
    };
    if (picks || prints) {
      windows.push_back(std::make_unique<WhenModal>(picks ? pick : setUp));
    }
    trigger(entry);
  }

  QStringList firstPage() const { return textsOf(pages_.documents.back().pages.at(0)); }

  PrintedPages pages_;
  QString prompt_;
};

}  // namespace

TEST_F(PrintCommandsTest, EachEntryPrintsItsReport) {
  startWith(smallProject());
  const struct {
    const char* entry;
    bool picks;
    QString key;
    QString prompt;
    QString text;
  } cases[] = {
      {"mnuPrintSynopsis", true, u"Synopsis"_s, u"Click PRINT to output the list."_s, u"A small book synopsis"_s},
      {"mnuExpandedSynopsis", true, u"Expanded Synopsis"_s, u"Click PRINT to output the list."_s, u"*1) *"_s},
      {"mnuPrintSummary", true, u"Summary"_s, u"Click PRINT to continue."_s, u"A small book scene descriptions"_s},
      {"mnuPrintProject", true, u"Chapter"_s, u"Print chapter(s)"_s, u"one two three"_s},
      {"mnuPrintSelectedChapters", false, u"Chapter"_s, u"Print chapter(s)"_s, u"one two three"_s},
      {"mnuPrintScene", false, u"StoryFile"_s, u"Print scene(s)"_s, u"   one two three"_s},
      {"mnuPrintChar", false, u"Character List"_s, u"Click PRINT to continue."_s, u"*Anna (Anna Marsh)*"_s},
      {"mnuPrintLocationList", false, u"Location List"_s, u"Click PRINT to continue."_s, u"The pier"_s},
      {"mnuPrintOnStatus(0)", false, u"SceneList"_s, u"Click PRINT to output the report."_s,
       u"*Needed at each status level: *"_s},
      {"mnuPrintOnStatus(2)", false, u"SceneList"_s, u"Click PRINT to output the report."_s,
       u"*You need to turn the following scenes into 1st Edit*"_s},
      {"mnuPrintItemList", false, u"Item List"_s, u"Click PRINT to continue."_s, u"A lamp"_s},
  };
  size_t printed = 0;
  for (const auto& one : cases) {
    Settings().sSet(one.key, QString());
    print(one.entry, one.picks, true);
    ASSERT_EQ(pages_.documents.size(), ++printed) << one.entry;
    EXPECT_EQ(prompt_, one.prompt) << one.entry;
    EXPECT_EQ(Settings().sGet(one.key).toString(), u"Laser"_s) << one.entry;
    EXPECT_TRUE(firstPage().contains(one.text)) << one.entry << firstPage().join(u'|');
  }
  print("mnuPrintProject", true, true,
        [](QWidget& form) { childOf<QCheckBox>(form, u"chkDetails"_s).setChecked(true); });
  EXPECT_TRUE(firstPage().contains(u"Page: 1"_s));
}

TEST_F(PrintCommandsTest, CardsAreAskedForUntilTheNumberIsOne) {
  startWith(smallProject());
  for (const QString& answer : {u"5"_s, u"17"_s, u"12"_s}) {
    toolkit.expectFile(answer);
  }
  print("mnuPrintSceneCards", true, true);
  ASSERT_EQ(pages_.documents.size(), 1);
  EXPECT_EQ(pages_.documents[0].pages.at(0).lines.size(), 10);
  EXPECT_EQ(prompt_, u"Click PRINT to output all project summaries."_s);
  EXPECT_EQ(Settings().sGet(u"Scene Cards"_s).toString(), u"Laser"_s);
  toolkit.expectFile({});
  print("mnuPrintSceneCards", false, false);
  EXPECT_EQ(pages_.documents.size(), 1);
}

TEST_F(PrintCommandsTest, TheSynopsisIsSaved) {
  startWith(smallProject());
  const QString path = g_Project->Path() + u"Auto_Synopsis.txt"_s;
  toolkit.expectBox(u"Synopsis saved to "_s + path);
  print("mnuSaveSynopsis", true, false);
  EXPECT_TRUE(fileBytes(path).startsWith("A small book synopsis\r\n\r\n\r\nArrival\r\n"));
}

TEST_F(PrintCommandsTest, TheSynopsisThatCannotBeSavedIsTold) {
  const QString path = smallProject();
  startWith(path);
  QDir(g_Project->Path()).mkdir(u"Auto_Synopsis.txt"_s);
  toolkit.expectBox(u"The synopsis could not be saved.\n\n"_s);
  print("mnuSaveSynopsis", true, false);
  const QString place = std::exchange(g_Project->FileWithPath, QString());
  toolkit.expectBox(u"Save the book first."_s);
  print("mnuSaveSynopsis", false, false);
  g_Project->FileWithPath = place;
  endProgram();
  const FolderLock elsewhere(QFileInfo(path).path());
  toolkit.expectChoice(u"This book is open already"_s, u"Open read-only"_s);
  startWith(path);
  toolkit.expectBox(u"The book was opened read-only, so no synopsis is saved in its folder."_s);
  print("mnuSaveSynopsis", false, false);
}

TEST_F(PrintCommandsTest, TheOverviewIsPrintedAndToldInOneBox) {
  startWith(smallProject());
  frmOverview overview(&window());
  overview.setText(u"All of it"_s);
  overview.show();
  const QString path = folder.path(u"Overview.pdf"_s);
  for (const bool toFile : {false, true}) {
    Settings().sSet(u"AllStoryFile"_s, toFile ? u"PDF file"_s : u"Laser"_s);
    const WhenModal whenUp([&](QWidget& form) {
      EXPECT_EQ(childOf<QLabel>(form, u"lblTitle"_s).text(), u"Click PRINT to continue."_s);
      if (toFile) {
        toolkit.expectFile(path);
      }
      toolkit.expectBox(toFile ? u"Overview printed\n\nThe report is in the file "_s + path : u"Overview printed"_s);
      childOf<QPushButton>(form, u"cmdOk"_s).click();
    });
    childOf<QPushButton>(overview, u"cmdPrint"_s).click();
  }
  ASSERT_EQ(pages_.documents.size(), 1);
  EXPECT_TRUE(firstPage().contains(u"All of it"_s));
}
