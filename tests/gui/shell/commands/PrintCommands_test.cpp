// Reports from the menu to the printer.

#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/shell/MainWindow.h"
#include "support/ModalHelper.h"
#include "support/PrintedPages.h"
#include "support/SampleProject.h"
#include "support/SquareLetters.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>

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
    QString prompt;
    QString text;
  } cases[] = {
      {"mnuPrintSynopsis", true, u"Click PRINT to output the list."_s, u"A small book synopsis"_s},
      {"mnuExpandedSynopsis", true, u"Click PRINT to output the list."_s, u"*1) *"_s},
      {"mnuPrintSummary", true, u"Click PRINT to continue."_s, u"A small book scene descriptions"_s},
      {"mnuPrintProject", true, u"Print chapter(s)"_s, u"one two three"_s},
      {"mnuPrintSelectedChapters", false, u"Print chapter(s)"_s, u"one two three"_s},
      {"mnuPrintScene", false, u"Print scene(s)"_s, u"   one two three"_s},
      {"mnuPrintChar", false, u"Click PRINT to continue."_s, u"*Anna (Anna Marsh)*"_s},
      {"mnuPrintLocationList", false, u"Click PRINT to continue."_s, u"The pier"_s},
      {"mnuPrintOnStatus(0)", false, u"Click PRINT to output the report."_s, u"*Needed at each status level: *"_s},
      {"mnuPrintItemList", false, u"Click PRINT to continue."_s, u"A lamp"_s},
  };
  size_t printed = 0;
  for (const auto& one : cases) {
    print(one.entry, one.picks, true);
    ASSERT_EQ(pages_.documents.size(), ++printed) << one.entry;
    EXPECT_EQ(prompt_, one.prompt) << one.entry;
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
