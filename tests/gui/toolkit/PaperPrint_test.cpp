#include "gui/toolkit/PaperPrint.h"

#include "core/infra/RuntimeError.h"
#include "core/layout/PrintFlow.h"
#include "support/ReadPdf.h"
#include "support/SampleProject.h"
#include "support/SquareLetters.h"
#include "support/TestHome.h"

#include <QFileInfo>
#include <QPrinter>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A printer that is a file.
class PaperPrintTest : public ::testing::Test {
 protected:
  void print(const QPageSize& sheet, const PaperSize& paper = PaperSize::a4()) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setOutputFileName(path_);
    PaperPrint target(printer, sheet);
    PrintFlow flow(target.measure(), {false, false, 12, u"Liberation Serif"_s}, paper);
    flow.newNumberedPage();
    flow.PrintText(u"The tide was out.\n"_s.repeated(90));
    target.print({u"Tides"_s, {}, paper, flow.takePages()}, progress_);
  }

  ScratchFolder folder_;
  QString path_ = folder_.path(u"Paper.pdf"_s);
  CountedProgress progress_;
};

}  // namespace

TEST_F(PaperPrintTest, FitsThePagesOnTheSheetsThatThereAre) {
  const struct {
    QPageSize::PageSizeId sheet;
    PaperSize paper;
    QString size;
    int pages;
  } cases[] = {{QPageSize::A4, PaperSize::a4(), u"595 x 842 pts (A4)"_s, 2},
               {QPageSize::A4, PaperSize::a4().turned(), u"842 x 595 pts (A4)"_s, 3},
               {QPageSize::Letter, PaperSize::a4(), u"612 x 792 pts (letter)"_s, 2},
               {QPageSize::A6, PaperSize::a4(), u"297 x 420 pts"_s, 2}};
  for (const auto& one : cases) {
    print(QPageSize(one.sheet), one.paper);
    const QString info = outputOf(u"pdfinfo"_s, {path_});
    if (info.isEmpty()) {
      GTEST_SKIP() << "no program here reads PDF files";
    }
    EXPECT_TRUE(info.contains(one.size)) << info;
    EXPECT_TRUE(info.contains(u"Title:           Tides"_s)) << info;
    EXPECT_TRUE(info.contains(u"Pages:           %1"_s.arg(one.pages))) << info;
    // What lies beyond the sheet isn't among what is cut to it; the number of each page is, in its foot.
    const double height = one.size.section(u' ', 2, 2).toDouble();
    const QString boxes = outputOf(u"pdftotext"_s, {u"-bbox"_s, path_, u"-"_s});
    const QStringList numbers = boxes.split(u'\n').filter(u">%1</word>"_s.arg(one.pages));
    ASSERT_EQ(numbers.size(), 1) << one.size;
    const double bottom = numbers[0].section(u"yMax=\""_s, 1).section(u'"', 0, 0).toDouble();
    EXPECT_LT(bottom, height) << one.size;
    EXPECT_GT(bottom, height * 0.8) << one.size;
  }
}

TEST_F(PaperPrintTest, GivesThePrinterNothingOnceItIsStopped) {
  struct Stopped : PrintProgress {
    void step(const QString&, qint32) override { throw RuntimeError(RuntimeError::InvalidCall); }
  } stopped;
  const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
  printer->setOutputFormat(QPrinter::PdfFormat);
  printer->setOutputFileName(path_);
  PrintDocument document;
  document.pages.resize(2);
  EXPECT_THROW(PaperPrint(printer, QPageSize(QPageSize::A4)).print(document, stopped), RuntimeError);
  EXPECT_FALSE(QFileInfo::exists(path_));
  print(QPageSize(QPageSize::A4));
  EXPECT_EQ(progress_.steps.size(), 1) << "asked again in the middle, the pages before would come out";
}

TEST_F(PaperPrintTest, TellsAPrinterThatTakesNothing) {
  path_ = folder_.path(u"none/Paper.pdf"_s);
  EXPECT_THROW(print(QPageSize(QPageSize::A4)), RuntimeError);
}
