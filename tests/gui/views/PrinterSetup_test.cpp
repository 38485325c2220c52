#include "core/infra/cSHAREDSettings.h"
#include "core/infra/cSharedLogging.h"
#include "core/model/Globals.h"
#include "core/model/clsProject.h"
#include "gui/views/PageView.h"
#include "gui/views/PrintRun.h"
#include "gui/views/frmPrintPreview.h"
#include "gui/views/frmPrinterSetup.h"
#include "support/ModalHelper.h"
#include "support/PrintedPages.h"
#include "support/Required.h"
#include "support/SampleProject.h"
#include "support/ScriptedToolkit.h"
#include "support/SquareLetters.h"
#include "support/TestHome.h"

#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class PrinterSetupTest : public ::testing::Test {
 protected:
  void SetUp() override {
    makeSmallProject();
    Settings().DeleteAllSettings();
    PrintState{false, false, 10, u"Liberation Serif"_s}.makeCurrent();
  }
  void TearDown() override { newProject(); }

  static void press(const QWidget& form, const QString& button) { childOf<QPushButton>(form, button).click(); }
  static QString printer(const QWidget& form) { return childOf<QToolButton>(form, u"lblReportPrinterName"_s).text(); }
  static QLineEdit& size(const QWidget& form) { return childOf<QLineEdit>(form, u"txtFontSize"_s); }
  /// Prints so many pages of one line each.
  static PrintOrder order(int pages) {
    return {u"Summary"_s, u"Click PRINT to continue."_s, u"Book"_s, [pages](const ReportJob& job) {
              PrintFlow flow(job.measure, job.state);
              for (int i = 1; i <= pages; ++i) {
                flow.newNumberedPage();
                flow.PrintText(u"text %1"_s.arg(i));
              }
              return Reports::finished(u"Book"_s, flow);
            }};
  }
  static bool print(const WhenModal::Act& act, int pages = 1) {
    const WhenModal whenUp(act);
    return printReport(order(pages));
  }

  ScriptedToolkit toolkit_;
  ScratchFolder folder_;
};

}  // namespace

TEST_F(PrinterSetupTest, RemembersThePrinterOfAReportAndTheLetters) {
  PrintedPages pages({u"Laser"_s, u"Jet & Co"_s});
  pages.choice = u"Jet & Co"_s;
  EXPECT_TRUE(print([](QWidget& form) {
    EXPECT_EQ(form.windowTitle(), u"Choose Your Printer..."_s);
    EXPECT_EQ(childOf<QLabel>(form, u"lblTitle"_s).text(), u"Click PRINT to continue."_s);
    EXPECT_EQ(printer(form), u"Laser"_s);
    press(form, u"cmdSetup"_s);
    childOf<QRadioButton>(form, u"optDoubleSpaced"_s).click();
    size(form).setText(u"6"_s);
    EXPECT_EQ(childOf<QLabel>(form, u"picPreview"_s).font().pointSize(), 6);
    press(form, u"cmdOk"_s);
  }));
  EXPECT_EQ(pages.printers, QStringList(u"Jet & Co"_s));
  EXPECT_EQ(pages.documents.at(0).pages.at(0).texts.at(1).font, (PrintFont{u"Liberation Serif"_s, 6, false}));
  EXPECT_EQ(Settings().sGet(u"Summary"_s).toString(), u"Jet & Co"_s);
  EXPECT_EQ(PrintState::current(), (PrintState{true, false, 6, u"Liberation Serif"_s}));
  EXPECT_FALSE(print([](QWidget& form) {
    EXPECT_EQ(printer(form), u"Jet && Co"_s);
    EXPECT_TRUE(childOf<QRadioButton>(form, u"optDoubleSpaced"_s).isChecked());
    size(form).setText(u"20"_s);
    QTest::keyClick(&form, Qt::Key_Escape);
  }));
  EXPECT_EQ(g_FontSize, 6);
  EXPECT_EQ(pages.documents.size(), 1);
  Settings().sSet(u"Summary"_s, u"Gone"_s);
  print([](QWidget& form) {
    EXPECT_EQ(printer(form), u"Laser"_s);
    form.close();
  });
}

TEST_F(PrinterSetupTest, RefusesWhatCannotBePrinted) {
  PrintedPages pages({u"Laser"_s}, {});
  print([this, &pages](QWidget& form) {
    EXPECT_EQ(printer(form), u"No Printer"_s);
    toolkit_.expectBox(u"Please choose a printer"_s);
    press(form, u"cmdOk"_s);
    pages.choice = u"Laser"_s;
    childOf<QToolButton>(form, u"lblReportPrinterName"_s).click();
    for (const QString& typed : {u"5"_s, u""_s, u"big"_s}) {
      size(form).setText(typed);
      toolkit_.expectBox(u"Font size must be at least 6 points"_s);
      press(form, u"cmdOk"_s);
    }
    EXPECT_TRUE(form.isVisible());
    form.close();
  });
  EXPECT_TRUE(pages.documents.empty());
  {
    const PrintedPages none({}, {}, false);
    toolkit_.expectBox(u"No printers installed"_s);
    EXPECT_FALSE(printReport(order(1)));
  }
  const PrintedPages pdfAlone({}, {});
  print([](QWidget& form) {
    EXPECT_EQ(printer(form), u"PDF file"_s);
    form.close();
  });
}

TEST_F(PrinterSetupTest, AsksForTheNameOfAPdfFileAndWritesIt) {
  const PrintedPages pages({}, {});
  const QString path = folder_.path(u"Out.pdf"_s);
  EXPECT_TRUE(print([&](QWidget& form) {
    toolkit_.expectFile({});
    press(form, u"cmdOk"_s);
    EXPECT_TRUE(form.isVisible());
    toolkit_.expectFile(path);
    toolkit_.expectBox(u"The report is in the file "_s + path);
    press(form, u"cmdOk"_s);
  }));
  EXPECT_EQ(toolkit_.fileQuestions.last().defaultName, u"Book.pdf"_s);
  EXPECT_TRUE(fileBytes(path).startsWith("%PDF"));
  EXPECT_FALSE(toolkit_.askedWhileHeld);
  // A name of another kind gets its own ending, which may be there too.
  EXPECT_FALSE(print([&](QWidget& form) {
    toolkit_.expectFile(folder_.path(u"Out"_s));
    toolkit_.expectBox(path + u" is there already. Replace it?"_s, Answer::No);
    press(form, u"cmdOk"_s);
    form.close();
  }));
  EXPECT_FALSE(print([&](QWidget& form) {
    toolkit_.expectFile(folder_.path(u"none/Out.pdf"_s));
    toolkit_.expectBox(u"could not be written"_s);
    press(form, u"cmdOk"_s);
  }));
}

TEST_F(PrinterSetupTest, StopsWhereverItIsAndPrintsNothing) {
  const PrintedPages pages;
  const WhenModal::Act printIt = [](QWidget& form) { press(form, u"cmdOk"_s); };
  int behind = 0;
  for (const bool inLayout : {true, false}) {
    PrintOrder stopped = order(3);
    stopped.report = [&](const ReportJob& job) {
      toolkit_.pressStop();
      if (inLayout) {
        job.progress.step(u"Laying out chapter %1"_s, 1);
        ++behind;
      }
      return order(3).report(job);
    };
    const WhenModal whenUp(printIt);
    EXPECT_FALSE(printReport(stopped));
  }
  EXPECT_EQ(behind, 0);
  EXPECT_TRUE(pages.documents.empty());
  EXPECT_EQ(toolkit_.boxes, QStringList()) << "who stops it knows";
  EXPECT_EQ(toolkit_.pointer, Pointer::Normal);
}

TEST_F(PrinterSetupTest, TellsWhatFailsAndLogsItUnderTheReportsName) {
  PrintedPages pages;
  PrintOrder failing = order(1);
  failing.routine = "PrintSummary";
  failing.module = "modPrintSynopsis";
  const ReportLayout whole = failing.report;
  const ReportLayout broken = [](const ReportJob&) -> PrintDocument { throw std::bad_alloc(); };
  pages.failure = u"The printer Laser does not answer."_s;
  const auto printed = [&](const ReportLayout& report, const QString& button, const QString& told) {
    failing.report = report;
    const WhenModal whenUp([&](QWidget& form) {
      toolkit_.expectBox(told);
      press(form, button);
      form.close();
    });
    EXPECT_FALSE(printReport(failing));
    EXPECT_TRUE(Logging().CurrentAction().contains(u") in PrintSummary of module modPrintSynopsis"_s))
        << Logging().CurrentAction();
  };
  printed(whole, u"cmdOk"_s, u"The report could not be printed on Laser.\n\nThe printer Laser does not answer."_s);
  printed(broken, u"cmdOk"_s, u"The report could not be laid out.\n\n"_s);
  printed(broken, u"cmdPreview"_s, u"The report could not be laid out.\n\n"_s);
}

TEST_F(PrinterSetupTest, PrintsWhatWasSeenWithoutAnotherLayout) {
  const PrintedPages pages;
  for (const bool changes : {false, true}) {
    int layouts = 0;
    PrintOrder counted = order(2);
    counted.report = [&](const ReportJob& job) {
      ++layouts;
      return order(2).report(job);
    };
    const WhenModal whenUp([&](QWidget& form) {
      {
        const WhenModal seen([](QWidget& previewed) { QTest::keyClick(&previewed, Qt::Key_Escape); });
        press(form, u"cmdPreview"_s);
      }
      size(form).setText(changes ? u"12"_s : u"10"_s);
      press(form, u"cmdOk"_s);
    });
    EXPECT_TRUE(printReport(counted));
    EXPECT_EQ(layouts, changes ? 2 : 1);
  }
  EXPECT_EQ(pages.documents.at(1).pages.at(0).texts.at(1).font.points, 12);
}

TEST_F(PrinterSetupTest, LeavesNoNameTooLongForAFile) {
  g_Project->Title = u"A/B: "_s + u"Война и мир "_s.repeated(60);
  const QString name = printFileName(u"Expanded Synopsis"_s);
  EXPECT_TRUE(name.startsWith(u"A B Война"_s) && name.endsWith(u" - Expanded Synopsis"_s)) << name;
  EXPECT_LT(name.toUtf8().size(), 240);
}

TEST_F(PrinterSetupTest, ShowsThePagesBefore) {
  PrintedPages pages;
  const auto inPreview = [](QWidget& form) {
    auto& view = childOf<PageView>(form, u"picPage"_s);
    auto& number = childOf<QSpinBox>(form, u"txtPage"_s);
    EXPECT_EQ(view.accessibleDescription(), u"1\ntext 1"_s);
    EXPECT_EQ(number.text(), u"1 of 3"_s);
    QTest::keyClick(&form, Qt::Key_PageDown);
    EXPECT_EQ(view.accessibleDescription(), u"2\ntext 2"_s);
    press(form, u"cmdLast"_s);
    EXPECT_EQ(number.value(), 3);
    EXPECT_FALSE(childOf<QPushButton>(form, u"cmdNext"_s).isEnabled());
    QTest::keyClick(&form, Qt::Key_Home);
    EXPECT_EQ(number.value(), 1);
    // What is typed is taken by Enter, which prints nothing here; and pages turn from here by one as well.
    number.setFocus();
    number.selectAll();
    QTest::keyClicks(&number, u"2"_s);
    QTest::keyClick(&number, Qt::Key_Return);
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(view.accessibleDescription(), u"2\ntext 2"_s);
    QTest::keyClick(&number, Qt::Key_PageUp);
    EXPECT_EQ(number.value(), 1);
    // At the last page Enter on the button stays with pages.
    auto& next = childOf<QPushButton>(form, u"cmdNext"_s);
    next.setFocus();
    for (const int page : {2, 3, 2}) {
      QTest::keyClick(form.focusWidget(), Qt::Key_Return);
      EXPECT_EQ(number.value(), page);
    }
    press(form, u"cmdFirst"_s);
    childOf<QComboBox>(form, u"cmbZoom"_s).setCurrentText(u"100%"_s);
    EXPECT_EQ(view.size(), QSize(794, 1123));
    QTest::keyClick(&form, Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(childOf<QComboBox>(form, u"cmbZoom"_s).currentText(), u"125%"_s);
  };
  EXPECT_TRUE(print(
      [&](QWidget& form) {
        {
          const WhenModal cancelled([&](QWidget& previewed) {
            inPreview(previewed);
            QTest::keyClick(&previewed, Qt::Key_Escape);
          });
          press(form, u"cmdPreview"_s);
        }
        EXPECT_TRUE(form.isVisible());
        {
          const WhenModal cancelled([&](QWidget& previewed) { previewed.close(); });
          auto& button = childOf<QPushButton>(form, u"cmdPreview"_s);
          button.setFocus();
          QTest::keyClick(&button, Qt::Key_Return);
        }
        EXPECT_TRUE(form.isVisible()) << "Enter is the focused button's";
        const WhenModal wanted([](QWidget& previewed) { QTest::keyClick(&previewed, Qt::Key_Return); });
        press(form, u"cmdPreview"_s);
      },
      3));
  EXPECT_EQ(pages.documents.size(), 1);
}
