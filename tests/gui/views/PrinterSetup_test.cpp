#include "core/infra/cSHAREDSettings.h"
#include "core/model/Globals.h"
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

TEST_F(PrinterSetupTest, StopsInTheMiddleAndPrintsNothing) {
  makeLargerProject(10, 20);
  const PrintedPages pages;
  const WhenModal whenUp([](QWidget& form) { press(form, u"cmdOk"_s); });
  PrintOrder stopped = order(3);
  stopped.report = [this](const ReportJob& job) {
    toolkit_.pressStop();
    return (job.progress.step(u"Laying out chapter "_s, 1), PrintDocument());
  };
  EXPECT_FALSE(printReport(stopped));
  EXPECT_TRUE(pages.documents.empty());
  EXPECT_EQ(toolkit_.progressWindowsShown, 1);
  EXPECT_EQ(toolkit_.pointer, Pointer::Normal);
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
        const WhenModal wanted([](QWidget& previewed) { QTest::keyClick(&previewed, Qt::Key_Return); });
        press(form, u"cmdPreview"_s);
      },
      3));
  EXPECT_EQ(pages.documents.size(), 1);
}
